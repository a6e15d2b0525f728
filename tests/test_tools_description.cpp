// Pool descriptions: the XML reader, the Spec_node implementation over it and the building of a pool.
#include <gtest/gtest.h>

#include <memory>

#include "test_support.h"
#include "tools/description/Description.h"
#include "tools/pool/Pool_file.h"

using VT::Description;
using VT::Object_pool;
using VT::Xml_element;

namespace {

struct Built
{
    Object_pool pool;
    Description d;
    bool ok = false;
    QByteArray bytes;
    QString problems() const { return d.problems().join("\n"); }
};

std::unique_ptr<Built> build(const char* xml, const char* file = "test.xml")
{
    auto b = std::make_unique<Built>();
    test::Stream_capture err(std::cerr);
    b->ok = b->d.parse(QByteArray(xml), file) && b->d.build(b->pool);
    b->bytes = VT::Pool_file::write(b->pool);
    return b;
}

// The n-th element child of e (depth first through the given path).
Xml_element* child(Xml_element* e, std::initializer_list<int> path)
{
    for (int i : path)
        e = e->children.at(size_t(i)).get();
    return e;
}

}

TEST(ToolsDescription, BuildsVariablesIntoTheirPoolBytes)
{
    auto b = build(R"(<?xml version="1.0"?>
<object_pool>
  <Number_variable name="speed" id="5000" value="1234"/>
  <String_variable name="unit" string="km/h &#176;"/>
  <Number_variable name="count" value="0x10"/>
</object_pool>)");
    ASSERT_TRUE(b->ok) << b->problems().toStdString();
    // 5000 = 1234; id 0 (lowest free) = "km/h \xB0" in ISO 8859-1; id 1 = 16.
    EXPECT_EQ(test::hex(test::Bytes(b->bytes.begin(), b->bytes.end())),
              "88 13 15 D2 04 00 00 "
              "00 00 16 06 00 6B 6D 2F 68 20 B0 "
              "01 00 15 10 00 00 00");
    EXPECT_STREQ(b->pool.find(1)->get_name(), "count");
    EXPECT_TRUE(b->d.warnings().isEmpty()) << b->d.warnings().join("\n").toStdString();
}

TEST(ToolsDescription, ReportsBadXmlWithItsLine)
{
    auto b = build("<object_pool>\n  <Number_variable name=\"a\" value=\"1\">\n</object_pool>\n", "bad.xml");
    EXPECT_FALSE(b->ok);
    ASSERT_EQ(b->d.problems().size(), 1);
    EXPECT_TRUE(b->d.problems()[0].startsWith("bad.xml:3: XML error: ")) << b->problems().toStdString();

    b = build("", "empty.xml");
    EXPECT_FALSE(b->ok);
    EXPECT_TRUE(b->problems().startsWith("empty.xml:1: XML error: ")) << b->problems().toStdString();

    b = build("<pool/>", "root.xml");
    EXPECT_EQ(b->problems(), "root.xml:1: the root element must be <object_pool>, not <pool>");
}

TEST(ToolsDescription, ReportsStructuralProblemsWithTheirLines)
{
    auto b = build(R"(<object_pool>
  <Number_variable name="a" id="7"/>
  <Number_variable name="a"/>
  <Number_variable name="b" id="7"/>
  <Number_variable id="8"/>
  <Frobnicator name="f"/>
  <Number_variable name="c" id="65535"/>
  <Number_variable name="d" id="twelve"/>
  <Number_variable name="this_name_is_much_longer_than_32_characters"/>
  <place object="a"/>
  <colour name="x"/>
</object_pool>)",
                   "s.xml");
    EXPECT_FALSE(b->ok);
    EXPECT_EQ(b->d.problems(),
              QStringList({"s.xml:3: name 'a' is already used at line 2",
                           "s.xml:4: id 7 is already used at line 2",
                           "s.xml:5: <Number_variable> has no name",
                           "s.xml:6: unknown object type 'Frobnicator'",
                           "s.xml:7: id '65535' is not an object id (0 to 65534)",
                           "s.xml:8: id 'twelve' is not an object id (0 to 65534)",
                           "s.xml:9: name 'this_name_is_much_longer_than_32_characters' is longer than 32 characters",
                           "s.xml:10: <place> is not allowed here",
                           "s.xml:11: <colour> needs a name and a value"}));
    EXPECT_EQ(b->pool.size(), 0) << "nothing is built from a description with structural problems";
}

TEST(ToolsDescription, TypesTheCatalogueKnowsWithoutAClassAreToldApartFromUnknownOnes)
{
    // Translatable_string is in the catalogue but no class makes it; "UNKNOWN" is what the
    // catalogue calls types it does not know, not a type.
    auto b = build(R"(<object_pool>
  <Translatable_string name="t"/>
  <UNKNOWN name="u"/>
  <Config_table name="c"/>
</object_pool>)",
                   "c.xml");
    EXPECT_EQ(b->d.problems(), QStringList({"c.xml:2: object type 'Translatable_string' is not available in this build",
                                            "c.xml:3: unknown object type 'UNKNOWN'"}));
    Object_pool pool;
    QString error;
    EXPECT_FALSE(VT::Pool_file::read(QByteArray("\x01\x00\xF5\x00", 4), pool, &error));
    EXPECT_EQ(error, "object 0 (id 1, type 245 Translatable_string) at byte offset 0: object type 245 is not "
                     "available in this build");
}

TEST(ToolsDescription, ReportsBadValuesAndUnusedAttributes)
{
    auto b = build(R"(<object_pool>
  <Number_variable name="a" value="12x"/>
  <Number_variable name="b" value="-1"/>
  <Number_variable name="c" value="4294967296"/>
  <Number_variable name="d" value="3" colour="red"/>
  <String_variable name="e" string="&#x20AC;"/>
</object_pool>)",
                   "v.xml");
    EXPECT_FALSE(b->ok);
    EXPECT_EQ(b->d.problems(), QStringList({"v.xml:2: '12x' of 'value' is not a number",
                                            "v.xml:3: '-1' of 'value' does not fit in 32 bits unsigned",
                                            "v.xml:4: '4294967296' of 'value' does not fit in 32 bits unsigned",
                                            "v.xml:6: text '\u20AC' of 'string' has characters outside ISO 8859-1"}));
    EXPECT_EQ(b->d.warnings(), QStringList({"v.xml:5: attribute 'colour' of <Number_variable> is not used"}));
    EXPECT_EQ(b->pool.size(), 5);
}

TEST(ToolsDescription, NodesAnswerNumbersNamesCodesAndByteStrings)
{
    Description d;
    Object_pool pool;
    ASSERT_TRUE(d.parse(R"(<object_pool>
  <Number_variable name="m" id="300"/>
  <Number_variable name="k" id="12"/>
  <String_variable name="s" bytes="A0 05, 0xff 10ab" x="-32768" y="0x7FFF" big="99999" f="2.5"
      event="k" far="m" fmt="FOUR_BIT_COLOUR">
    <Event_macro event_id="1" macro_id="k"/>
    <Language code="en"/>
    <place object="k" x_location="1" y_location="2"/>
    <ref object="m"/>
    <Point point_x="3" point_y="4"/>
    <ref><Number_variable name="inline"/></ref>
    <Number_variable name="direct"/>
    <attr_font><Number_variable name="wrapped"/></attr_font>
  </String_variable>
</object_pool>)",
                        "n.xml"));
    {
        test::Stream_capture out(std::cout);
        test::Stream_capture err(std::cerr);
        d.build(pool);
    }
    Xml_element* s = child(d.root_element(), {2});
    std::unique_ptr<Spec_node> node(d.make_node(s));

    int16_t i16 = 0;
    EXPECT_EQ(node->get_int16(&i16, "x"), 1);
    EXPECT_EQ(i16, -32768);
    EXPECT_EQ(node->get_int16(&i16, "y"), 1);
    EXPECT_EQ(i16, 32767);
    EXPECT_EQ(node->get_int16(&i16, "big"), 0);
    EXPECT_EQ(i16, 32767) << "a value that does not fit leaves the output alone";
    EXPECT_EQ(node->get_int16(&i16, "missing"), 0);
    uint8_t u8 = 0;
    EXPECT_EQ(node->get_uint8(&u8, "event"), 1) << "8-bit numbers may name an object";
    EXPECT_EQ(u8, 12);
    EXPECT_EQ(node->get_uint8(&u8, "far"), 0) << "object 300 does not fit in 8 bits";
    EXPECT_EQ(node->get_uint8(&u8, "fmt"), 1);
    EXPECT_EQ(u8, 1);
    int32_t i32 = 0;
    EXPECT_EQ(node->get_int32(&i32, "event"), 0) << "only 8- and 16-bit numbers take names";
    float f = 0;
    EXPECT_EQ(node->get_float(&f, "f"), 1);
    EXPECT_FLOAT_EQ(f, 2.5f);

    EXPECT_EQ(node->get_value_length("bytes", VT::SCALE_AREA_NONE), 5);
    char buf[8];
    memset(buf, 0x55, sizeof buf);
    EXPECT_EQ(node->get_text(buf, 6, "bytes"), 1);
    EXPECT_EQ(test::hex(test::Bytes(buf, buf + 7)), "A0 05 FF 10 AB 00 55");
    EXPECT_EQ(node->get_text(buf, 3, "bytes"), 1);
    EXPECT_EQ(test::hex(test::Bytes(buf, buf + 3)), "A0 05 00") << "copies at most size bytes with the zero";
    EXPECT_FALSE(node->has_value("nothing", VT::SCALE_AREA_NONE));
    EXPECT_EQ(node->get_value_length("nothing", VT::SCALE_AREA_NONE), -1);

    // Filters: list items and objects apart from macros, languages and points.
    EXPECT_EQ(node->count_children(nullptr), 8);
    EXPECT_EQ(node->count_children("Event_macro"), 1);
    EXPECT_EQ(node->count_children("Language"), 1);
    EXPECT_EQ(node->count_children("Point"), 1);
    EXPECT_EQ(node->count_children("!Event_macro"), 4) << "place, ref, ref, direct";
    EXPECT_EQ(node->get_child(4, "!Event_macro"), nullptr);
    EXPECT_EQ(node->get_child(-1, nullptr), nullptr);

    std::unique_ptr<Spec_node> lang(node->get_child(0, "Language"));
    EXPECT_EQ(lang->get_uint8(&u8, "byte_1"), 1);
    EXPECT_EQ(u8, 'e');
    EXPECT_EQ(lang->get_uint8(&u8, "byte_2"), 1);
    EXPECT_EQ(u8, 'n');
    std::unique_ptr<Spec_node> macro(node->get_child(0, "Event_macro"));
    EXPECT_EQ(macro->get_uint8(&u8, "macro_id"), 1);
    EXPECT_EQ(u8, 12);

    // Inline objects are found through their item, directly, or through an attr_ wrapper.
    std::unique_ptr<Spec_node> inline_ref(node->get_child(2, "!Event_macro"));
    ASSERT_NE(inline_ref->get_object(), nullptr);
    EXPECT_STREQ(inline_ref->get_object()->get_name(), "inline");
    std::unique_ptr<Spec_node> direct(node->get_child(3, "!Event_macro"));
    ASSERT_NE(direct->get_object(), nullptr);
    EXPECT_STREQ(direct->get_object()->get_name(), "direct");
    std::unique_ptr<Spec_node> wrapper(node->get_child(0, "attr_font"));
    std::unique_ptr<Spec_node> wrapped(wrapper->get_child(0, nullptr));
    EXPECT_STREQ(wrapped->get_object()->get_name(), "wrapped");
    std::unique_ptr<Spec_node> place(node->get_child(0, "!Event_macro"));
    EXPECT_EQ(place->get_object(), nullptr);

    EXPECT_EQ(node->lookup_object_id("k"), 12);
    EXPECT_EQ(node->lookup_object_id("65535"), 65535);
    EXPECT_EQ(node->find_object("m"), pool.find(300));
    EXPECT_EQ(node->lookup_object_id("nowhere"), 65535);
    char where[128];
    node->describe(where, sizeof where);
    EXPECT_STREQ(where, "n.xml:4: <String_variable name='s'>");

    EXPECT_TRUE(d.problems().contains("n.xml:4: unknown object 'nowhere' (in String_variable 's')"));
    EXPECT_TRUE(d.problems().contains("n.xml:4: 'm' of 'far' does not fit in 8 bits unsigned"));
    EXPECT_TRUE(d.problems().contains("n.xml:4: '99999' of 'big' does not fit in 16 bits"));
}

TEST(ToolsDescription, AssignsTheLowestFreeIds)
{
    auto b = build(R"(<object_pool>
  <Number_variable name="a" id="1"/>
  <Number_variable name="b"/>
  <Number_variable name="c" id="0"/>
  <Number_variable name="d"/>
</object_pool>)");
    ASSERT_TRUE(b->ok) << b->problems().toStdString();
    EXPECT_EQ(b->pool.find(QByteArray("b"))->get_id(), 2);
    EXPECT_EQ(b->pool.find(QByteArray("d"))->get_id(), 3);
    EXPECT_EQ(b->pool.objects()[1]->get_name(), std::string("b")) << "pool order is document order";
}

TEST(ToolsDescription, ResolvesReferencesColoursAndMacrosByName)
{
    auto b = build(R"(<object_pool>
  <Macro name="m" id="5" bytes="A0 05"/>
  <Output_number name="out" id="0x100" width="100" height="20" background_colour="brand2"
                 variable_reference="v" scale="0.5" offset="-10" format="true">
    <Event_macro event_id="16" macro_id="m"/>
  </Output_number>
  <Number_variable name="v" id="7" value="9"/>
  <colour name="brand" value="teal"/>
  <colour name="brand2" value="brand"/>
</object_pool>)");
    ASSERT_TRUE(b->ok) << b->problems().toStdString();
    EXPECT_EQ(test::hex(test::Bytes(b->bytes.begin(), b->bytes.end())),
              // macro 5: two bytes
              "05 00 1C 02 00 A0 05 "
              // output number 256: width 100, height 20, colour teal (3), no font, options 0,
              // variable 7, value 0, offset -10, scale 0.5, decimals 0, format 1, justification 0,
              // one macro (event 16, macro 5)
              "00 01 0C 64 00 14 00 03 FF FF 00 07 00 00 00 00 00 F6 FF FF FF 00 00 00 3F 00 01 00 01 10 05 "
              // number variable 7 = 9
              "07 00 15 09 00 00 00");
}

TEST(ToolsDescription, ReportsUnknownReferencesAndColoursWithFileAndLine)
{
    auto b = std::make_unique<Built>();
    std::string err;
    {
        test::Stream_capture capture(std::cerr);
        ASSERT_TRUE(b->d.parse(R"(<object_pool>
  <Output_number name="out" font_attributes="nofont" background_colour="mauve">
    <Event_macro event_id="16" macro_id="nomacro"/>
  </Output_number>
  <Input_list name="list">
    <ref object="os"/>
    <ref object="gone"/>
  </Input_list>
  <Output_string name="os"/>
</object_pool>)",
                               "u.xml"));
        EXPECT_FALSE(b->d.build(b->pool));
        err = capture.str();
    }
    EXPECT_EQ(b->d.problems(),
              QStringList({"u.xml:2: unknown object 'nofont' (in Output_number 'out')",
                           "u.xml:3: 'nomacro' of 'macro_id' is not a number nor an object name",
                           "u.xml:7: unknown object 'gone' (in Input_list 'list')",
                           "u.xml:2: unknown colour 'mauve'"}));
    // The library's own warnings say again what the problems say: they are kept as notes
    // naming the place and the object, and nothing reaches standard error.
    EXPECT_EQ(err, "");
    EXPECT_TRUE(b->d.library_notes().contains("u.xml:2: 'out' (Output_number 0): !WARNING! Attribute "
                                              "'font_attributes' refers to non-existant object 'nofont'"))
        << b->d.library_notes().join("\n").toStdString();
    EXPECT_TRUE(b->d.warnings().isEmpty()) << b->d.warnings().join("\n").toStdString();
    // What could be built is in the pool all the same.
    EXPECT_EQ(b->pool.size(), 3);
}
