#include "core_test_helpers.h"

using namespace VT;
using test::Bytes;

namespace {

// A character attribute holding exactly these bytes.
struct Text
{
    explicit Text(const std::string& bytes) : a("s")
    {
        a.set_num_items(unsigned(bytes.size()));
        memcpy(a.get_buf(), bytes.data(), bytes.size());
    }
    Attribute_array_char a;
};

}

TEST(Char_arrays, fixed_width_strings_pad_and_terminate)
{
    Attribute_array_char s("s");
    ASSERT_TRUE(s.set_num_items(10));
    EXPECT_TRUE(s.set_string("AB"));
    EXPECT_EQ(std::string(s.get_buf(), 11), std::string("AB        ") + '\0');
    EXPECT_EQ(s.num_chars(), 2);
    EXPECT_TRUE(s.set_string("ABCDEFGHIJKLMNOP")); // longer texts are cut to the field
    EXPECT_EQ(std::string(s.get_buf()), "ABCDEFGHIJ");
    EXPECT_EQ(s.get_length(), 10u);
    EXPECT_TRUE(s.is_same("ABCD", 4));
    EXPECT_FALSE(s.is_same("ABCX", 4));

    EXPECT_TRUE(s.set_string_copy("xyz"));
    EXPECT_EQ(s.get_length(), 3u);
    EXPECT_STREQ(s.get_buf(), "xyz");

    // A borrowed buffer holds exactly its length: nothing is written after it.
    char borrowed[6] = {'a', 'b', 'c', 'd', '!', '!'};
    Attribute_array_char b(borrowed, 4, "b");
    EXPECT_TRUE(b.set_string("q"));
    EXPECT_EQ(std::string(borrowed, 6), "q   !!");
}

TEST(Char_arrays, encoding_marks)
{
    EXPECT_TRUE(Text("\xFF\xFE").a.is_utf16());
    EXPECT_FALSE(Text("\xFF").a.is_utf16());
    EXPECT_FALSE(Text("\xFE\xFF" "A").a.is_utf16());
    EXPECT_TRUE(Text("\xEF\xBB\xBF").a.is_utf8());
    EXPECT_FALSE(Text("\xEF\xBB").a.is_utf8());
    EXPECT_FALSE(Attribute_array_char("empty").is_utf16());
}

TEST(Char_arrays, num_chars_trims_trailing_blanks)
{
    EXPECT_EQ(Text(std::string("A B\t\n \0", 7)).a.num_chars(), 3);
    EXPECT_EQ(Text("AB\r").a.num_chars(), 3); // carriage return is not trimmed
    EXPECT_EQ(Text(" \t\n").a.num_chars(), 0);
    EXPECT_EQ(Text("\xEF\xBB\xBF" "ab ").a.num_chars(), 5); // UTF-8 counts bytes, mark included

    // UTF-16: units after the mark; trailing blank units trimmed, a unit with a high byte stops it.
    EXPECT_EQ(Text("\xFF\xFE").a.num_chars(), 0);
    EXPECT_EQ(Text("\xFF\xFE" "A").a.num_chars(), 0);
    EXPECT_EQ(Text(std::string("\xFF\xFE" "A\0 \0\n\0", 8)).a.num_chars(), 1);
    EXPECT_EQ(Text(std::string("\xFF\xFE" "A\0 \x01", 6)).a.num_chars(), 2);
    EXPECT_EQ(Text(std::string("\xFF\xFE" " \0\t\0", 6)).a.num_chars(), 0);
    EXPECT_EQ(Text(std::string("\xFF\xFE" "A\0B", 5)).a.num_chars(), 1); // half a unit is dropped
    // A zero unit is not trimmed in UTF-16 text.
    EXPECT_EQ(Text(std::string("\xFF\xFE" "A\0\0\0", 6)).a.num_chars(), 2);
}

TEST(Char_arrays, rows_and_narrowest_line)
{
    Text words("abc defg");
    EXPECT_EQ(words.a.num_rows(5, true, false), 2);
    EXPECT_EQ(words.a.num_rows(4, true, false), 3);
    EXPECT_EQ(words.a.num_rows(2, false, false), 1); // without wrap only line breaks make rows
    EXPECT_EQ(words.a.min_line_chars(true, false), 4);
    EXPECT_EQ(words.a.min_line_chars(false, false), 8);

    Text crlf("ab\r\ncd");
    EXPECT_EQ(crlf.a.num_rows(10, true, false), 2);
    EXPECT_EQ(crlf.a.num_rows(10, false, false), 2);
    Text lfcr("ab\n\rcd");
    EXPECT_EQ(lfcr.a.num_rows(10, true, false), 3);
    EXPECT_EQ(lfcr.a.num_rows(10, false, false), 3);
    EXPECT_EQ(Text("ab\ncdefg\rh").a.min_line_chars(false, false), 5);

    // A word longer than the row is cut where the row is full.
    EXPECT_EQ(Text("abcdefgh").a.num_rows(3, true, false), 3);

    Text hyphen("ab-cd");
    EXPECT_EQ(hyphen.a.min_line_chars(true, true), 2);
    EXPECT_EQ(hyphen.a.min_line_chars(true, false), 5);
    EXPECT_EQ(Text("ab-cdefg").a.num_rows(4, true, true), 3);
    EXPECT_EQ(Text("ab-cdefg").a.num_rows(4, true, false), 2);

    // A soft hyphen counts into the run it ends, and leaves a word of length 2 behind it.
    Text soft("ab\xAD" "cd");
    EXPECT_EQ(soft.a.min_line_chars(true, false), 3);
    EXPECT_EQ(soft.a.min_line_chars(false, false), 5);
    EXPECT_EQ(Text("abc\xAD" "defg").a.num_rows(5, true, false), 3);

    // Text with nothing to show has no rows; trailing blanks are not measured.
    EXPECT_EQ(Text("   ").a.num_rows(5, true, false), 0);
    EXPECT_EQ(Text("   ").a.min_line_chars(true, false), 0);
    EXPECT_EQ(Text("ab   ").a.num_rows(2, true, false), 1);

    // UTF-16: units with a zero high byte are the single-byte characters; others are ordinary.
    Text utf16(std::string("\xFF\xFE" "a\0 \0b\0c\0", 10));
    EXPECT_EQ(utf16.a.min_line_chars(true, false), 2);
    EXPECT_EQ(utf16.a.num_rows(2, true, false), 3);
    Text wide_space(std::string("\xFF\xFE" "a\0 \x01" "b\0", 8));
    EXPECT_EQ(wide_space.a.min_line_chars(true, false), 3);
    EXPECT_EQ(Text("\xFF\xFE").a.num_rows(4, true, false), 0);
    EXPECT_EQ(Text("\xFF\xFE").a.min_line_chars(true, false), 0);
}

TEST(Char_arrays, printing_and_source)
{
    std::ostringstream os;
    Text("abc").a.print_me(os, 1);
    Attribute_array_char("none").print_me(os, 0);
    EXPECT_EQ(os.str(), "  Type: 13\tName: s Value: abc\nType: 13\tName: none\n");

    std::ostringstream wide;
    Text(std::string("\xFF\xFE" "A\0", 4)).a.print_me(wide, 0);
    wide << 255; // the stream is left in hexadecimal mode
    EXPECT_EQ(wide.str(), "Type: 13\tName: s Value: 0xff 0xfe 0x41 0x00 \nff");

    std::ostringstream code;
    Text text("ab");
    text.a.get_code_def("obj", code, 1);
    text.a.get_code_body("obj", code, 0);
    text.a.get_code_valref("obj", code, 0);
    text.a.get_code_init("obj", code, 0);
    EXPECT_EQ(code.str(), "    char_t obj_s[2];\n"
                          "static const char_t _obj_s[] = { 97, 98};\n"
                          "memcpy((void*)obj_s,(const void*)_obj_s, 2 * sizeof(char_t));\n"
                          "obj_s");

    uint8_t bytes[] = {1, 200, 17};
    Attribute_array_uint8 data(bytes, 3, "data");
    std::ostringstream body;
    data.get_code_body("p", body, 1);
    EXPECT_EQ(body.str(), "    static const uint8_t _p_data[] = {  1,200, 17};\n"
                          "    memcpy((void*)p_data,(const void*)_p_data, 3 * sizeof(uint8_t));\n");

    std::ostringstream empty;
    Attribute_array_char nothing("n");
    nothing.get_code_def("p", empty, 0);
    nothing.get_code_body("p", empty, 0);
    nothing.get_code_valref("p", empty, 0);
    EXPECT_EQ(empty.str(), "NULL");
}

TEST(Element_arrays, element_access_is_bounded)
{
    uint16_t storage[4] = {1, 2, 3, 4};
    Attribute_array<unsigned short> a(storage, 4, "a");
    EXPECT_EQ(a.get_type(), Attribute::ATTR_ARRAY_OBJECT_ID);
    EXPECT_FALSE(a.set_element(4, 9));
    EXPECT_TRUE(a.set_element(3, 9));
    EXPECT_EQ(storage[3], 9);

    const uint16_t src[] = {7, 7, 7};
    EXPECT_TRUE(a.set_elements(2, src, 3)); // copies only what fits
    EXPECT_EQ(storage[3], 7);
    EXPECT_FALSE(a.set_elements(4, src, 1));
    // The filling form checks only its start; it still never writes past the elements.
    EXPECT_TRUE(a.set_elements(1, uint16_t(5), 100));
    EXPECT_EQ(Bytes(reinterpret_cast<uint8_t*>(storage), reinterpret_cast<uint8_t*>(storage) + 8),
              (Bytes{1, 0, 5, 0, 5, 0, 5, 0}));
    EXPECT_FALSE(a.set_elements(4, uint16_t(5), 1));

    uint16_t dst[8] = {};
    EXPECT_EQ(a.get_elements(2, dst, 8), 2u);
    EXPECT_EQ(a.get_elements(4, dst, 8), 0u);
    EXPECT_EQ(a[1], 5);
    EXPECT_EQ(a[100], 0); // out of range reads the spare element

    // Taking over a buffer passes its ownership on.
    Attribute_array_char owner("owner");
    owner.set_string_copy("moved");
    Attribute_array_char taker(owner, "taker");
    EXPECT_TRUE(taker.owns());
    EXPECT_FALSE(owner.owns());
    EXPECT_STREQ(taker.get_buf(), "moved");
}

TEST(Element_arrays, byte_form_in_pieces_and_back)
{
    uint16_t ids[] = {0x1234, 0xABCD, 0x0001};
    Attribute_array<unsigned short> a(ids, 3, "a");
    const Bytes form{0x34, 0x12, 0xCD, 0xAB, 0x01, 0x00};
    EXPECT_EQ(a.num_bytes(), 6);
    for (int piece = 1; piece <= 7; ++piece)
        EXPECT_EQ(test::attribute_in_pieces(a, piece), form) << piece;

    Attribute_array<unsigned short> b("b");
    b.set_counters(3); // as its count attribute does when read
    Bytes in = form;
    EXPECT_EQ(b.deserialise(0, in.data(), 5, nullptr), 0); // short: reads nothing
    EXPECT_EQ(b.deserialise(0, in.data(), 6, nullptr), 6);
    EXPECT_EQ(test::attribute_bytes(b), form);
    EXPECT_TRUE(b.owns());

    // From an offset, the elements' leading bytes are taken as already zero.
    Attribute_array<unsigned short> c("c");
    c.set_counters(2);
    uint8_t tail[] = {0x12, 0x34, 0x56};
    EXPECT_EQ(c.deserialise(1, tail, 3, nullptr), 3);
    EXPECT_EQ(c[0], 0x1200);
    EXPECT_EQ(c[1], 0x5634);

    Attribute_array_uint8 empty("e");
    EXPECT_EQ(empty.deserialise(0, tail, 3, nullptr), 0);
    EXPECT_EQ(empty.num_bytes(), 0);
}

TEST(Element_arrays, set_by_spec)
{
    test::Fake_spec spec_node;
    spec_node.set("data", std::string("\x01\x02\xFF", 3)).set("s", "hello");
    Attribute_array_uint8 data("data");
    std::string trace;
    {
        test::Stream_capture out(std::cout);
        EXPECT_FALSE(data._set_by_spec(&spec_node, SCALE_AREA_NONE)); // reports false even on success
        trace = out.str();
    }
    EXPECT_EQ(trace, "data[3] = 1 2 ff \n");
    EXPECT_EQ(test::attribute_bytes(data), (Bytes{1, 2, 0xFF}));

    Attribute_array_char s("s");
    EXPECT_EQ(s._set_by_spec(&spec_node, SCALE_AREA_SOFT_KEY), 1);
    EXPECT_EQ(s.get_length(), 5u);
    EXPECT_STREQ(s.c_str(), "hello");
    Attribute_array_char missing("missing");
    missing.set_string_copy("keep");
    EXPECT_FALSE(missing._set_by_spec(&spec_node, SCALE_AREA_NONE));
    EXPECT_STREQ(missing.c_str(), "keep");
    EXPECT_FALSE(missing._set_by_spec(nullptr, SCALE_AREA_NONE));
}

TEST(Element_arrays, object_ids_fill_backwards_from_children)
{
    test::Fake_spec spec_node;
    spec_node.shared().ids = {{"five", 5}, {"seven", 7}};
    VT::Base::Number_variable_obj five(5, "five", 0), seven(7, "seven", 0);
    spec_node.shared().objects = {{"five", &five}, {"seven", &seven}};
    spec_node.add_child(test::Fake_spec("Child").set("id", "five"))
        .add_child(test::Fake_spec("Event_macro").set("id", "seven"))
        .add_child(test::Fake_spec("Child").set("id", "65535"))
        .add_child(test::Fake_spec("Child").set("id", "seven"));
    Attribute_array_object_id ids("ids");
    EXPECT_TRUE(ids._set_by_spec(&spec_node, SCALE_AREA_ACTIVE));
    ASSERT_EQ(ids.get_length(), 3u);
    EXPECT_EQ(ids[0], 0); // left over by the skipped NULL entry
    EXPECT_EQ(ids[1], 7);
    EXPECT_EQ(ids[2], 5);
    EXPECT_EQ(ids.get_names(), (QList<QByteArray>{"five", "", "seven"}));
    EXPECT_EQ(five.get_scale_area(), SCALE_AREA_ACTIVE);

    std::ostringstream body;
    ids.get_code_body("p", body, 0);
    EXPECT_EQ(body.str(), "static const object_id_t _p_ids[] = {(Oids::five),(Oids::),(Oids::seven)};\n"
                          "memcpy((void*)p_ids,(const void*)_p_ids, 3 * sizeof(object_id_t));\n");
}
