// The object reference made from the classes (vtpool types, attributes, docs/objects.md) and the
// attribute names descriptions accept beyond the classes' own.
#include <gtest/gtest.h>

#include <QFile>

#include "every_type_pool.h"
#include "test_support.h"
#include "tool_test_support.h"
#include "tools/description/Attribute_names.h"
#include "tools/description/Description.h"
#include "tools/pool/Pool_file.h"
#include "tools/reference/Attribute_meanings.h"
#include "tools/reference/Reference.h"

namespace {

struct Built
{
    VT::Description d;
    VT::Object_pool pool;
    bool ok = false;
};

std::unique_ptr<Built> build(const QByteArray& xml)
{
    auto b = std::make_unique<Built>();
    test::Stream_capture err(std::cerr);
    b->ok = b->d.parse(xml, "t.xml") && b->d.build(b->pool);
    return b;
}

}

TEST(ToolsReference, DocsObjectsMdIsWhatTheClassesSay)
{
    QFile f(QStringLiteral(VT_EXAMPLES_DIR "/../docs/objects.md"));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_TRUE(f.readAll() == VT::Reference::markdown().toUtf8())
        << "docs/objects.md is out of date: scripts/update-docs.sh writes it again from the classes";
}

TEST(ToolsReference, OffsetsAndSizesAreWhereTheBytesAre)
{
    // In a pool of every type, each attribute the reference places at a byte holds there the
    // bytes the object sends for it, and an object with empty lists is as long as it says.
    QVector<int> starts;
    const QByteArray bytes = test::every_type_pool(&starts);
    starts.append(bytes.size());
    VT::Object_pool pool;
    QString error;
    ASSERT_TRUE(VT::Pool_file::read(bytes, pool, &error)) << error.toStdString();
    int placed = 0;
    for (int i = 0; i < pool.size(); ++i) {
        VT::VT_obj* obj = pool.objects()[i];
        const VT::Class_facts* facts = VT::class_facts(obj->get_type());
        ASSERT_TRUE(facts);
        const QByteArray own = bytes.mid(starts[i], starts[i + 1] - starts[i]);
        obj->lock();
        for (const VT::Attribute_facts& f : facts->attributes) {
            if (f.offset < 0)
                continue;
            const QByteArray sent = VT::attribute_bytes(*obj->get_every_attribute(uint16_t(f.index)));
            EXPECT_EQ(own.mid(f.offset, sent.size()), sent) << facts->name.constData() << "." << f.name.constData();
            ++placed;
        }
        obj->unlock();
        std::unique_ptr<VT::VT_obj> empty(facts->entry->make(nullptr));
        if (facts->entry->in_pool_files()) {
            EXPECT_EQ(empty->num_bytes(), facts->fixed_bytes) << facts->name.constData();
        }
    }
    EXPECT_GT(placed, 300);

    // Facts the reference states that a pool author relies on.
    const VT::Class_facts* number = VT::class_facts("Output_number");
    ASSERT_TRUE(number);
    EXPECT_EQ(number->find("no_decimals")->offset, 25);
    EXPECT_EQ(number->find("no_decimals")->aid, 9);
    EXPECT_EQ(number->find("value")->aid, 12);
    EXPECT_EQ(number->find("num_macros")->counts, "event_macro");
    EXPECT_FALSE(VT::class_facts("Object_pointer")->find("dynamic_children")->travels);
}

TEST(ToolsReference, MeaningsNameTheBitsAndValues)
{
    const VT::Attribute_meanings* options = VT::attribute_meanings(VT::VT_obj_type::TYPE_OUTPUT_STRING, "options");
    ASSERT_TRUE(options);
    EXPECT_EQ(options->explain(0x03), "transparent, auto-wrap");
    EXPECT_EQ(options->explain(0x41), "transparent, bit 6 (reserved)");
    EXPECT_EQ(options->explain(0), "none");
    const VT::Attribute_meanings* justify =
        VT::attribute_meanings(VT::VT_obj_type::TYPE_INPUT_NUMBER, "horizontal_justification");
    ASSERT_TRUE(justify);
    EXPECT_EQ(justify->explain(0x06), "right, centred vertically");
    EXPECT_EQ(justify->condition(justify->entries[2]), "bits 0-1 = 2");
    const VT::Attribute_meanings* size = VT::attribute_meanings(VT::VT_obj_type::TYPE_FONT_ATTRIBUTES, "font_size");
    ASSERT_TRUE(size);
    EXPECT_EQ(size->explain(3), "12x16");
    EXPECT_EQ(size->explain(15), "(not defined)");
    EXPECT_FALSE(VT::attribute_meanings(VT::VT_obj_type::TYPE_OUTPUT_STRING, "width"));

    const QString text = VT::Reference::attributes_text(*VT::class_facts("Output_number"));
    EXPECT_TRUE(text.contains("no_decimals (also number_of_decimals)")) << text.toStdString();
    EXPECT_TRUE(text.contains("bit 1  leading zeros")) << text.toStdString();
    EXPECT_TRUE(text.contains("Events it raises (event_id of <Event_macro>): ")) << text.toStdString();
    EXPECT_TRUE(VT::Reference::types_text().contains("Window_mask                         4"));
}

TEST(ToolsReference, DescriptionsTakeOtherNamesAndSuggestTheNearest)
{
    // The ISO 11783-6 names build the same object as the classes' names.
    auto iso = build("<object_pool><Output_number name='n' width='9' number_of_decimals='2' justification='2'/>"
                     "<Output_string name='s' value='Hi'/><Polygon name='p'><Point x='1' y='2'/></Polygon>"
                     "</object_pool>");
    auto own = build("<object_pool><Output_number name='n' width='9' no_decimals='2' horizontal_justification='2'/>"
                     "<Output_string name='s' string='Hi'/><Polygon name='p'><Point point_x='1' point_y='2'/>"
                     "</Polygon></object_pool>");
    ASSERT_TRUE(iso->ok) << iso->d.problems().join("\n").toStdString();
    ASSERT_TRUE(own->ok);
    EXPECT_EQ(VT::Pool_file::write(iso->pool), VT::Pool_file::write(own->pool));
    EXPECT_TRUE(iso->d.warnings().isEmpty()) << iso->d.warnings().join("\n").toStdString();

    auto both = build("<object_pool><Output_string name='s' value='Hi' string='Ho'/></object_pool>");
    EXPECT_FALSE(both->ok);
    EXPECT_EQ(both->d.problems(),
              QStringList("t.xml:1: 'value' and 'string' name the same attribute of <Output_string>; give one of them"));

    auto typo = build("<object_pool><Output_number name='n' no_decimal='1' backgroud_colour='red' colur='5'/>"
                      "<Polygon name='p'><Point point_x='1' pont_y='2'/></Polygon></object_pool>");
    EXPECT_EQ(typo->d.warnings(),
              QStringList({"t.xml:1: attribute 'no_decimal' of <Output_number> is not used (did you mean "
                           "'no_decimals'?)",
                           "t.xml:1: attribute 'backgroud_colour' of <Output_number> is not used (did you mean "
                           "'background_colour'?)",
                           "t.xml:1: attribute 'colur' of <Output_number> is not used",
                           "t.xml:1: attribute 'pont_y' of <Point> is not used (did you mean 'point_y'?)"}));
    // A near miss of another name suggests the class's own name for it.
    EXPECT_EQ(VT::Attribute_names::suggestion("Output_number", "number_of_decimal"), " (did you mean 'no_decimals'?)");
}

TEST(ToolsReference, VtpoolTypesAndAttributes)
{
    test::Outcome r = test::vtpool({"types"});
    ASSERT_EQ(r.status, 0);
    EXPECT_TRUE(r.out.contains("46        PNG                                 6")) << r.out.toStdString();
    EXPECT_TRUE(r.out.contains("48 (iso)  Scaled_graphic                      6")) << r.out.toStdString();
    // A type by name in any letter case, or by number.
    const test::Outcome by_name = test::vtpool({"attributes", "output_NUMBER"});
    EXPECT_EQ(by_name.status, 0);
    EXPECT_EQ(test::vtpool({"attributes", "12"}).out, by_name.out);
    EXPECT_EQ(by_name.out, VT::Reference::attributes_text(*VT::class_facts("Output_number")));
    r = test::vtpool({"attributes", "Output_numbr"});
    EXPECT_EQ(r.status, 2);
    EXPECT_TRUE(r.err.contains("no object type 'Output_numbr'")) << r.err.toStdString();
}
