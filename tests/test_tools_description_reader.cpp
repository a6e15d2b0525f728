// The XML reader of descriptions, and the number and byte-string readers of description values.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "test_support.h"
#include "tools/description/Description.h"

using VT::Description;
using VT::Xml_element;

TEST(ToolsDescriptionReader, GivesEachElementItsLineKindAndDecodedValues)
{
    Description d;
    ASSERT_TRUE(d.parse("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                        "<object_pool>\n"
                        "  <colour name=\"c\" value=\"red\"/>\n"
                        "  <!-- a comment\n  over two lines -->\n"
                        "  <Number_variable name=\"n\"\n"
                        "      value='&lt;&#65;&#xe9;\tx\ny' other=\"\xC3\xA9\"/>\n"
                        "  <Container><place/><ref/><Point/><attr_font/></Container>\n"
                        "</object_pool>\n",
                        "x.xml"))
        << d.problems().join("\n").toStdString();
    Xml_element* pool = d.root_element();
    ASSERT_NE(pool, nullptr);
    EXPECT_EQ(pool->kind, Xml_element::POOL);
    ASSERT_EQ(pool->children.size(), 3u);
    Xml_element* colour = pool->children[0].get();
    Xml_element* number = pool->children[1].get();
    Xml_element* container = pool->children[2].get();
    EXPECT_EQ(colour->kind, Xml_element::COLOUR);
    EXPECT_EQ(colour->line, 3);
    // A start tag over several lines is at the line where it begins.
    EXPECT_EQ(number->kind, Xml_element::OBJECT);
    EXPECT_EQ(number->line, 6);
    EXPECT_EQ(number->parent, pool);
    ASSERT_EQ(number->attributes.size(), 3u);
    EXPECT_EQ(number->attributes[1].key, "value");
    // Entities are decoded, tabs and line breaks read as spaces, and values are UTF-8.
    EXPECT_EQ(number->attributes[1].value, "<A\xC3\xA9 x y");
    EXPECT_EQ(number->attributes[2].value, "\xC3\xA9");
    const Xml_element::Kind kinds[] = {Xml_element::LIST_ITEM, Xml_element::LIST_ITEM, Xml_element::ITEM,
                                       Xml_element::ATTR_WRAPPER};
    ASSERT_EQ(container->children.size(), 4u);
    for (size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(container->children[i]->kind, kinds[i]) << container->children[i]->name.constData();
        EXPECT_EQ(container->children[i]->line, 9) << "the line break inside the value counts";
        EXPECT_EQ(container->children[i]->parent, container);
    }
}

TEST(ToolsDescriptionReader, RefusesTextDeepNestingAndBadXmlWithTheirLines)
{
    // Text inside an element is a problem at that element's line, named once however often
    // the same text appears in it.
    Description text;
    EXPECT_FALSE(text.parse("<object_pool>\n  <Container name=\"c\">\n   hello <a/> hello\n  </Container>\n</object_pool>",
                            "t.xml"));
    EXPECT_EQ(text.problems(), QStringList({"t.xml:2: unexpected text 'hello' in <Container>"}));

    QByteArray deep;
    for (int i = 0; i < 65; ++i)
        deep += "<a>";
    for (int i = 0; i < 65; ++i)
        deep += "</a>";
    Description nested;
    EXPECT_FALSE(nested.parse(deep, "deep.xml"));
    EXPECT_EQ(nested.problems(), QStringList({"deep.xml:1: elements nested more than 64 deep"}));
    EXPECT_EQ(nested.root_element(), nullptr);

    Description d;
    EXPECT_FALSE(d.parse("<object_pool>\n<A a=\"1\"\n   a=\"2\"/>\n</object_pool>", "dup.xml"));
    ASSERT_EQ(d.problems().size(), 1);
    EXPECT_TRUE(d.problems()[0].startsWith("dup.xml:3: XML error: ")) << d.problems()[0].toStdString();
    EXPECT_EQ(d.root_element(), nullptr);
}

TEST(ToolsDescriptionReader, ReadsNumbersAndByteStringsFromTheValueText)
{
    Description d;
    VT::Object_pool pool;
    ASSERT_TRUE(d.parse(R"(<object_pool>
  <String_variable name="s" string="x" a=" 42	" b="+7" c="0X1f" d="18446744073709551615" e="18446744073709551616"
      f="-9223372036854775808" g="0x" h="-" i="1 2" j="0x-1" k="true" l=" false " m="EIGHT_BIT_COLOUR"/>
  <Macro name="m1" bytes=""/>
  <Macro name="m2" bytes=" 0x0a0B ,, 0C&#10;0d "/>
  <Macro name="m3" bytes="A0 5"/>
  <Macro name="m4" bytes="0xG0"/>
  <Macro name="m5" bytes="A0 0x"/>
</object_pool>)",
                        "n.xml"));
    {
        test::Stream_capture out(std::cout);
        test::Stream_capture err(std::cerr);
        d.build(pool);
    }
    Xml_element* root = d.root_element();
    std::unique_ptr<Spec_node> s(d.make_node(root->children.at(0).get()));

    uint64_t u64 = 0;
    int64_t i64 = 0;
    EXPECT_EQ(s->get_uint64(&u64, "a"), 1);
    EXPECT_EQ(u64, 42u) << "whitespace around a number is ignored";
    EXPECT_EQ(s->get_uint64(&u64, "b"), 1);
    EXPECT_EQ(u64, 7u);
    EXPECT_EQ(s->get_uint64(&u64, "c"), 1);
    EXPECT_EQ(u64, 31u);
    EXPECT_EQ(s->get_uint64(&u64, "d"), 1);
    EXPECT_EQ(u64, 18446744073709551615u);
    EXPECT_EQ(s->get_int64(&i64, "f"), 1);
    EXPECT_EQ(i64, INT64_MIN);
    for (const char* key : {"e", "g", "h", "i", "j"})
        EXPECT_EQ(s->get_uint64(&u64, key), 0) << key;
    uint8_t u8 = 9;
    EXPECT_EQ(s->get_uint8(&u8, "k"), 1);
    EXPECT_EQ(u8, 1);
    EXPECT_EQ(s->get_uint8(&u8, "l"), 1);
    EXPECT_EQ(u8, 0);
    EXPECT_EQ(s->get_uint8(&u8, "m"), 1);
    EXPECT_EQ(u8, 2);
    EXPECT_TRUE(d.problems().contains("n.xml:2: '18446744073709551616' of 'e' is not a number"));
    EXPECT_TRUE(d.problems().contains("n.xml:2: '0x' of 'g' is not a number"));

    // Byte strings: separators may repeat, and a line break separates too.
    std::unique_ptr<Spec_node> m1(d.make_node(root->children.at(1).get()));
    EXPECT_EQ(m1->get_value_length("bytes", VT::SCALE_AREA_NONE), 0);
    std::unique_ptr<Spec_node> m2(d.make_node(root->children.at(2).get()));
    char buf[8] = {};
    ASSERT_EQ(m2->get_value_length("bytes", VT::SCALE_AREA_NONE), 4);
    EXPECT_EQ(m2->get_text(buf, sizeof buf, "bytes"), 1);
    EXPECT_EQ(test::hex(test::Bytes(buf, buf + 5)), "0A 0B 0C 0D 00");
    for (int line : {6, 7, 8})
        EXPECT_TRUE(d.problems().contains(
            QStringLiteral("n.xml:%1: 'bytes' must be hexadecimal bytes such as \"A0 05 FF\"").arg(line)))
            << line << "\n"
            << d.problems().join("\n").toStdString();
}
