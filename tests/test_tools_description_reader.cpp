// The number and byte-string readers of description values.
#include <gtest/gtest.h>

#include <memory>

#include "test_support.h"
#include "tools/Description.h"

using VT::Description;
using VT::Xml_element;

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
