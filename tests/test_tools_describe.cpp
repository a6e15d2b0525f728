// vtpool describe's work: pools written as descriptions that build the same bytes, and refused
// where a description cannot give them back.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QHash>
#include <QSet>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <cstring>

#include "every_type_pool.h"
#include "test_support.h"
#include "tool_test_support.h"
#include "tools/describe/Describer.h"
#include "tools/description/Description.h"
#include "tools/pool/Pool_file.h"
#include "tools/pool/Pool_loader.h"

using VT::Describer;
using VT::Object_pool;
using VT::Pool_file;

namespace {

// A pool described, the description saved, and what building the saved files gives.
struct Round_trip
{
    bool described = false;
    QStringList problems, warnings;
    VT::Written_description text;
    QByteArray again; // the bytes of the pool built from the saved description
    std::shared_ptr<Object_pool> back = std::make_shared<Object_pool>(); // that pool
};

Round_trip round_trip(Object_pool& pool, const QByteArray& expected, const VT::Object_names::By_id& names = {})
{
    Round_trip r;
    r.described = Describer::describe(pool, expected, {names, "test.iop"}, r.text, r.problems, r.warnings);
    if (!r.described)
        return r;
    QTemporaryDir dir;
    QStringList problems, warnings;
    test::Stream_capture quiet(std::cerr); // the library's warnings about the pool, given once already
    if (Describer::save(r.text, dir.path(), problems) &&
        VT::Pool_loader::load(dir.filePath("pool.xml"), *r.back, problems, warnings))
        r.again = Pool_file::write(*r.back);
    r.problems += problems;
    return r;
}

bool read(const QByteArray& bytes, Object_pool& pool)
{
    QString error;
    test::Dprint_capture quiet;
    test::Stream_capture err(std::cerr);
    return Pool_file::read(bytes, pool, &error);
}

// One object's bytes: id, type and attributes.
QByteArray object(uint16_t id, uint8_t type, const QByteArray& attributes)
{
    QByteArray out;
    out.append(char(id & 0xFF)).append(char(id >> 8)).append(char(type));
    return out + attributes;
}


}

TEST(ToolsDescribe, RealPoolsComeBackByteForByteWithTheirPicturesAsFiles)
{
    const QStringList pools = test::real_pools();
    if (pools.isEmpty())
        GTEST_SKIP() << "no real pools in " << VT_SHARED_POOLS_DIR << ": describe is not tried on them";
    for (const QString& path : pools) {
        SCOPED_TRACE(path.toStdString());
        const QByteArray bytes = test::read_file(path);
        Object_pool pool;
        ASSERT_TRUE(read(bytes, pool));
        const Round_trip r = round_trip(pool, bytes);
        ASSERT_TRUE(r.described) << r.problems.join("\n").toStdString();
        EXPECT_EQ(r.again, bytes) << r.problems.join("\n").toStdString();
        // Every picture of these pools is one a PNG file gives back exactly.
        int pictures = 0;
        for (VT::VT_obj* obj : pool.objects())
            pictures += obj->get_type() == VT::VT_obj_type::TYPE_PICTURE_GRAPHIC ||
                        obj->get_type() == VT::VT_obj_type::TYPE_PNG;
        EXPECT_EQ(r.text.files.size(), pictures);
        EXPECT_FALSE(r.text.xml.contains("bytes=")) << "a picture kept as bytes";
    }
}

TEST(ToolsDescribe, ExamplesComeBackAndKeepTheirNames)
{
    const QDir examples(QStringLiteral(VT_EXAMPLES_DIR));
    const QStringList names = examples.entryList({"*.xml"}, QDir::Files);
    ASSERT_GE(names.size(), 2);
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        Object_pool pool;
        QStringList problems, warnings;
        ASSERT_TRUE(VT::Pool_loader::load(examples.filePath(name), pool, problems, warnings))
            << problems.join("\n").toStdString();
        const QByteArray bytes = Pool_file::write(pool);
        const Round_trip r = round_trip(pool, bytes);
        ASSERT_TRUE(r.described) << r.problems.join("\n").toStdString();
        EXPECT_EQ(r.again, bytes);
        for (VT::VT_obj* obj : pool.objects())
            EXPECT_TRUE(r.text.xml.contains("name=\"" + QByteArray(obj->VT::VT_obj_base::get_name()) + "\""))
                << obj->VT::VT_obj_base::get_name();
        // Pictures and graphic data that are PNG files travel as files.
        if (name == "vt6_iso.xml") {
            EXPECT_EQ(r.text.files.size(), 1);
            EXPECT_FALSE(r.text.xml.contains("bytes="));
        }
        // The description is flat: colour declarations and inline objects are resolved.
        EXPECT_FALSE(r.text.xml.contains("<colour"));
        EXPECT_FALSE(r.text.xml.contains("attr_"));
        // Describing it again changes nothing: describe normalises a description.
        const Round_trip twice = round_trip(*r.back, bytes);
        ASSERT_TRUE(twice.described) << twice.problems.join("\n").toStdString();
        EXPECT_EQ(twice.text.xml, r.text.xml);
    }
}

TEST(ToolsDescribe, EveryTypeWithEveryAttributeAwayFromItsDefaultComesBack)
{
    const QByteArray bytes = test::every_type_pool();
    Object_pool pool;
    ASSERT_TRUE(read(bytes, pool));
    test::Dprint_capture quiet; // the picture's run-length data makes no picture
    ASSERT_EQ(Pool_file::write(pool), bytes) << "the generated pool does not read back as made";
    const Round_trip r = round_trip(pool, bytes);
    ASSERT_TRUE(r.described) << r.problems.join("\n").toStdString();
    EXPECT_EQ(r.again, bytes) << r.problems.join("\n").toStdString();

    // Every attribute that is sent and can leave its default is written out, under its own name.
    QHash<QByteArray, QSet<QByteArray>> written; // object name -> attribute keys and child elements
    QXmlStreamReader xml(r.text.xml);
    QByteArray current;
    while (!xml.atEnd())
        if (xml.readNext() == QXmlStreamReader::StartElement) {
            if (xml.attributes().hasAttribute("id"))
                current = xml.attributes().value("name").toUtf8();
            for (const QXmlStreamAttribute& a : xml.attributes())
                written[current].insert(a.name().toUtf8().replace(".hex", ""));
            written[current].insert(xml.name().toUtf8());
        }
    ASSERT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    int checked = 0;
    for (VT::VT_obj* obj : pool.objects()) {
        const VT::Class_facts* facts = VT::class_facts(obj->get_type());
        const QSet<QByteArray>& keys = written.value(obj->VT::VT_obj_base::get_name());
        const bool from_file = keys.contains("file");
        for (const VT::Attribute_facts& f : facts->attributes) {
            if (!f.travels || f.shape == VT::Attribute_facts::COUNT || (f.has_range && f.min == f.max) ||
                (from_file && f.shape != VT::Attribute_facts::LIST))
                continue;
            const QByteArray key = f.shape == VT::Attribute_facts::LIST ? f.item_element : f.name;
            EXPECT_TRUE(keys.contains(key)) << obj->VT::VT_obj_base::get_name() << " does not give " << f.name.constData();
            ++checked;
        }
    }
    EXPECT_GT(checked, 300);
}

TEST(ToolsDescribe, PicturesArePngFilesWhereTheFileGivesTheirBytesBack)
{
    // A picture graphic: width, actual width and height, format, options, transparency
    // colour, its data's length (4 bytes), no macros, its data.
    auto picture = [](uint16_t id, uint16_t w, uint16_t h, uint8_t format, uint8_t options, const QByteArray& data) {
        QByteArray a;
        for (uint16_t v : {w, w, h})
            a.append(char(v & 0xFF)).append(char(v >> 8));
        a.append(char(format)).append(char(options)).append(char(0));
        for (int i = 0; i < 4; ++i)
            a.append(char(uint32_t(data.size()) >> (8 * i)));
        a.append(char(0));
        return object(id, 20, a + data);
    };
    struct Case
    {
        const char* what;
        QByteArray bytes;
        const char* kept_because; // null: written as a PNG file
    };
    QByteArray png_object = object(9, 46, QByteArray("\x02\x00\x02\x00\x01\x00\x00\x03\x00\x00\x00\x00", 12) + "xyz");
    const Case cases[] = {
        // Black twice over (a standard colour and a cube colour) and white: only the palette's
        // indexes tell them apart.
        {"an 8-bit picture of colours the palette holds twice", picture(1, 3, 1, 2, 0, QByteArray("\x00\x10\x01", 3)),
         nullptr},
        {"a run-length coded picture", picture(2, 4, 1, 2, 4, QByteArray("\x03\x0C\x01\xE7", 4)), nullptr},
        {"runs split as vtpool would not split them", picture(3, 4, 1, 2, 4, QByteArray("\x01\x0C\x03\x0C", 4)),
         "coding its pixels again would not give the same bytes"},
        {"a picture too large to be a file", picture(4, 60000, 60000, 2, 4, QByteArray("\xFF\x01", 2)),
         "it is larger than a picture file may be"},
        {"a PNG object whose data is no PNG", png_object, "its data is not a PNG file"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Object_pool pool;
        ASSERT_TRUE(read(c.bytes, pool));
        test::Dprint_capture quiet;
        const Round_trip r = round_trip(pool, c.bytes);
        ASSERT_TRUE(r.described) << r.problems.join("\n").toStdString();
        EXPECT_EQ(r.again, c.bytes);
        EXPECT_EQ(r.text.files.size(), c.kept_because ? 0 : 1);
        if (c.kept_because) {
            EXPECT_TRUE(r.text.xml.contains(QByteArray("picture data as stored: ") + c.kept_because))
                << r.text.xml.constData();
        }
    }
}

TEST(ToolsDescribe, RefusesWhatADescriptionCannotGiveBack)
{
    struct Case
    {
        const char* what;
        QByteArray bytes;
        const char* said;
    };
    QByteArray nan_with_payload;
    {
        // An output number whose scale is a NaN with a payload: no decimal text gives it back.
        QByteArray a("\x10\x00\x10\x00\x00\xFF\xFF\x00\xFF\xFF\x00\x00\x00\x00\x00\x00\x00\x00", 18);
        a += QByteArray("\x01\x00\xC0\x7F", 4);
        a += QByteArray("\x00\x00\x00\x00", 4);
        nan_with_payload = object(5, 12, a);
    }
    const Case cases[] = {
        {"a reference to an object the pool lacks", object(1, 1, QByteArray("\x00\xE7\x03\x00\x00", 5)),
         "refers to object 999"},
        {"a rectangle without line attributes",
         object(2, 14, QByteArray("\xFF\xFF\x0A\x00\x0A\x00\x00\xFF\xFF\x00", 10)), "has no line attributes"},
        {"a float no decimal number gives back", nan_with_payload, "float"},
        {"an animation naming the NULL object",
         object(4, 44, QByteArray("\x0A\x00\x0A\x00\x64\x00\x00\x01\x00\x00\x00\x00\x01\x00\xFF\xFF\x00\x00\x00\x00",
                                  20)),
         "NULL object"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Object_pool pool;
        ASSERT_TRUE(read(c.bytes, pool));
        ASSERT_EQ(Pool_file::write(pool), c.bytes);
        const Round_trip r = round_trip(pool, c.bytes);
        EXPECT_FALSE(r.described);
        EXPECT_TRUE(r.problems.join("\n").contains(c.said)) << r.problems.join("\n").toStdString();
        EXPECT_TRUE(r.text.xml.isEmpty() || !r.described);
    }
}

TEST(ToolsDescribe, DescriptionsGiveCodePlanesWindowReferencesAndNamedSwaths)
{
    // Lists the description reader fills itself: a window mask's references apart from its
    // children, code planes with their ranges, a swath named by a field.
    VT::Description d;
    Object_pool pool;
    ASSERT_TRUE(d.parse(R"(<object_pool>
  <Output_string name="t" id="7" width="8"/>
  <Window_mask name="w" id="1" window_type="1">
    <ref object="t"/><place object="t" x_location="3" y_location="4"/>
  </Window_mask>
  <Extended_input_attributes name="e" id="2">
    <Code_plane_rangeset code_plane="0">
      <Code_plane_range first_char="32" last_char="126"/><Code_plane_range first_char="160" last_char="0x1FF"/>
    </Code_plane_rangeset>
  </Extended_input_attributes>
  <Field name="f" id="3"><ref object="t"/></Field>
</object_pool>)",
                        "lists.xml"));
    {
        test::Stream_capture err(std::cerr);
        ASSERT_TRUE(d.build(pool)) << d.problems().join("\n").toStdString();
    }
    const QByteArray window = Pool_file::object_bytes(*pool.find(1));
    // One reference and one child (not two of each), then the reference, then the placement.
    EXPECT_EQ(window.mid(14, 3), QByteArray("\x01\x01\x00", 3));
    EXPECT_EQ(window.mid(17), QByteArray("\x07\x00\x07\x00\x03\x00\x04\x00", 8));
    EXPECT_EQ(Pool_file::object_bytes(*pool.find(2)).mid(3),
              QByteArray("\x00\x01\x00\x02\x20\x00\x7E\x00\xA0\x00\xFF\x01", 12));
    EXPECT_TRUE(Pool_file::object_bytes(*pool.find(3)).endsWith(QByteArray("\x01\x07\x00", 3)));

    VT::Description bad;
    Object_pool none;
    ASSERT_TRUE(bad.parse("<object_pool><Extended_input_attributes name='e'>\n"
                          "<Code_plane_rangeset><Code_plane_range first_char='x' last_char='1'/></Code_plane_rangeset>\n"
                          "<Code_plane_rangeset code_plane='300'/></Extended_input_attributes></object_pool>",
                          "bad.xml"));
    EXPECT_FALSE(bad.build(none));
    EXPECT_EQ(bad.problems(), QStringList({"bad.xml:2: <Code_plane_rangeset> needs code_plane, a number from 0 to 255",
                                           "bad.xml:3: <Code_plane_rangeset> needs code_plane, a number from 0 to 255"}));
}

TEST(ToolsDescribe, NamesComeFromAnIdHeaderWhereTheyCan)
{
    QStringList warnings;
    const VT::Object_names::By_id header = VT::Object_names::parse_header(
        "#define MAIN_MASK 1000\n"
        "  #  define   SPEED_VAR (0x0BB8)   // the speed\n"
        "#define UNIT_VAR 3001U\n"
        "constexpr uint16_t TITLE = 11000;\n"
        "#define ALSO_MAIN 1000\n"
        "#define POOL_VERSION \"3\"\n"
        "#define TOO_BIG 70000\n"
        "#define Data_mask_1000_too 65535\n",
        "ids.h", warnings);
    EXPECT_EQ(header, (VT::Object_names::By_id{{1000, "MAIN_MASK"}, {3000, "SPEED_VAR"}, {3001, "UNIT_VAR"},
                                               {11000, "TITLE"}}));
    ASSERT_EQ(warnings.size(), 1);
    EXPECT_TRUE(warnings[0].startsWith("ids.h:5: 'ALSO_MAIN' names id 1000")) << warnings[0].toStdString();

    // A data mask, a number variable and an output string that shows it; the header names two,
    // and gives the third a name that another object's default name already is.
    QByteArray bytes = object(1000, 1, QByteArray("\x00\xFF\xFF\x01\x00\xB8\x0B\x00\x00\x00\x00", 11));
    bytes += object(3000, 21, QByteArray("\x07\x00\x00\x00", 4));
    bytes += object(11000, 11,
                    QByteArray("\x0A\x00\x0A\x00\x00\xFF\xFF\x00\xB8\x0B\x00\x00\x00\x00", 14));
    Object_pool pool;
    ASSERT_TRUE(read(bytes, pool));
    const Round_trip r = round_trip(pool, bytes, {{1000, "MAIN_MASK"}, {3000, "Output_string_11000"},
                                                  {11000, "0x10"}});
    ASSERT_TRUE(r.described) << r.problems.join("\n").toStdString();
    EXPECT_EQ(r.again, bytes);
    EXPECT_TRUE(r.text.xml.contains("<Data_mask name=\"MAIN_MASK\" id=\"1000\">")) << r.text.xml.constData();
    EXPECT_TRUE(r.text.xml.contains("<place object=\"Output_string_11000\""));
    // A header name that reads as a number cannot stand for an object, and the output string's
    // default name is taken: it gets a name of its own.
    EXPECT_TRUE(r.text.xml.contains("<Output_string name=\"Output_string_11000_2\"")) << r.text.xml.constData();
    EXPECT_TRUE(r.text.xml.contains("variable_reference=\"Output_string_11000\""));
    EXPECT_EQ(r.warnings, QStringList({"'0x10' cannot name Output_string 11000: it is not usable as a name",
                                       "Output_string 11000 is named 'Output_string_11000_2': 'Output_string_11000' "
                                       "is taken"}));
}

TEST(ToolsDescribe, VtpoolDescribeIdsAndSourceOnAPoolFile)
{
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    const QString iop = tmp.filePath("pool.iop");
    ASSERT_EQ(test::vtpool({"build", VT_EXAMPLES_DIR "/realistic.xml", "-o", iop}).status, 0);
    const QByteArray bytes = test::read_file(iop);

    // describe, then build: the same bytes, the pictures beside the description.
    test::Outcome r = test::vtpool({"describe", iop, "-o", tmp.filePath("out")});
    ASSERT_EQ(r.status, 0) << r.err.toStdString();
    EXPECT_TRUE(r.out.contains(" objects) and 3 pictures")) << r.out.toStdString();
    EXPECT_EQ(QDir(tmp.filePath("out/pictures")).entryList(QDir::Files).size(), 3);
    ASSERT_EQ(test::vtpool({"build", tmp.filePath("out/pool.xml"), "-o", tmp.filePath("again.iop")}).status, 0);
    EXPECT_EQ(test::read_file(tmp.filePath("again.iop")), bytes);

    // ids writes the names describe gives; describe --names reads them back, #define or constexpr.
    for (const QStringList& style : {QStringList(), QStringList({"--constexpr", "--namespace", "ui"})}) {
        ASSERT_TRUE(test::write_file(tmp.filePath("ids.h"), "#define SPEED_VARIABLE 44\n"));
        r = test::vtpool(QStringList({"ids", iop, "-o", tmp.filePath("all.h"), "--names", tmp.filePath("ids.h")}) +
                         style);
        ASSERT_EQ(r.status, 0) << r.err.toStdString();
        const QByteArray header = test::read_file(tmp.filePath("all.h"));
        EXPECT_TRUE(header.contains(style.isEmpty() ? "#define SPEED_VARIABLE" : "constexpr uint16_t SPEED_VARIABLE"))
            << header.constData();
        r = test::vtpool({"describe", iop, "-o", tmp.filePath("named"), "--names", tmp.filePath("all.h")});
        ASSERT_EQ(r.status, 0) << r.err.toStdString();
        const QByteArray xml = test::read_file(tmp.filePath("named/pool.xml"));
        EXPECT_TRUE(xml.contains("<Number_variable name=\"SPEED_VARIABLE\" id=\"44\"")) << xml.constData();
        EXPECT_TRUE(xml.contains("variable_reference=\"SPEED_VARIABLE\""));
    }

    // source names a pool file's references as describe does.
    r = test::vtpool({"source", iop, "-o", tmp.filePath("pool.cpp"), "--header", tmp.filePath("ui_pool.h")});
    ASSERT_EQ(r.status, 0) << r.err.toStdString();
    const QByteArray source = test::read_file(tmp.filePath("pool.cpp"));
    EXPECT_TRUE(source.contains("#include \"ui_pool.h\"") && source.contains("namespace ui_pool {"));
    EXPECT_TRUE(source.contains("Oids::Number_variable_44")) << "references carry names";
    EXPECT_TRUE(test::read_file(tmp.filePath("ui_pool.h")).contains("const std::vector<VT::VT_obj*>& objects();"));
}

TEST(ToolsDescribe, VtpoolDescribeRefusesWithoutLeavingFiles)
{
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    // A value out of its range is clamped while reading: the file's bytes cannot come back.
    const QString clamped = tmp.filePath("clamped.iop");
    ASSERT_TRUE(test::write_file(clamped, object(1, 0, QByteArray("\x01\x07\xFF\xFF\x00\x00\x00", 7))));
    test::Outcome r = test::vtpool({"describe", clamped, "-o", tmp.filePath("a")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains("--accept-changes")) << r.err.toStdString();
    EXPECT_FALSE(QFile::exists(tmp.filePath("a/pool.xml")));
    r = test::vtpool({"describe", clamped, "-o", tmp.filePath("a"), "--accept-changes"});
    EXPECT_EQ(r.status, 0) << r.err.toStdString();
    EXPECT_TRUE(r.err.contains("warning: ") && r.err.contains("selectable")) << r.err.toStdString();

    // A reference to an object the pool lacks: refused, naming the object and attribute.
    const QString dangling = tmp.filePath("dangling.iop");
    ASSERT_TRUE(test::write_file(dangling, object(1, 1, QByteArray("\x00\xE7\x03\x00\x00", 5))));
    r = test::vtpool({"describe", dangling, "-o", tmp.filePath("b")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains("'Data_mask_1' (Data_mask 1): 'soft_key_mask' refers to object 999"))
        << r.err.toStdString();
    EXPECT_FALSE(QDir(tmp.filePath("b")).exists());
    EXPECT_EQ(test::vtpool({"describe", dangling, "-o", tmp.filePath("c"), "--names", tmp.filePath("none.h")}).status,
              1);
}
