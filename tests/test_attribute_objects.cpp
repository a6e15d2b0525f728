#include "mask_test_support.h"

using namespace VT;
using namespace VT::Base;
using test::Bytes;
using test::Fake_spec;

namespace {

// The font size and style bytes (offsets 4 and 6) sent to a terminal with the given masks.
std::pair<int, int> font_bytes(uint8_t size, uint8_t style, uint8_t small, uint8_t large, uint8_t styles)
{
    test::Limits_pool_helper terminal(2, small, large, styles);
    Font_attributes_obj font(1, "f", 0, size, 0, style, 0, nullptr);
    font.set_pool_helper(&terminal);
    Bytes whole = test::serialise_whole(font);
    EXPECT_EQ(test::hex(test::serialise_in_pieces(font, 1)), test::hex(whole));
    return {whole.at(4), whole.at(6)};
}

}

TEST(Attribute_objects, font_size_falls_back_to_the_largest_size_the_terminal_has)
{
    struct Case
    {
        uint8_t size, style, small, large, styles;
        int sent_size, sent_style;
    };
    const Case cases[] = {
        {5, 0, 0x0F, 0x00, 0xFF, 4, 0},       // sizes 1..4 only
        {9, 0, 0x00, 0x01, 0xFF, 8, 0},       // size 8 only, from the large mask
        {14, 0, 0x00, 0x40, 0xFF, 14, 0},     // the largest size, bit 6 of the large mask
        {7, 0, 0xFF, 0xFF, 0xFF, 7, 0},       // bit 7 of the small mask is not size 8
        {3, 0, 0x70, 0x00, 0xFF, 0, 0},       // only larger sizes: down to size 0
        {0, 0, 0x00, 0x00, 0xFF, 0, 0},
        {15, 0, 0xFF, 0xFF, 0xFF, 0, 0},      // no such size
        {12, 0x80, 0x00, 0x00, 0x0F, 12, 0},  // proportional: the size passes the style mask
        {0x35, 0x80, 0x00, 0x00, 0x0F, 5, 0}, // ... and really is masked by it
        {1, 0x85, 0xFF, 0xFF, 0x07, 1, 5},
        {1, 0x85, 0xFF, 0xFF, 0xFF, 1, 0x85},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "size " << int(c.size) << " style " << int(c.style));
        std::pair<int, int> sent = font_bytes(c.size, c.style, c.small, c.large, c.styles);
        EXPECT_EQ(sent.first, c.sent_size);
        EXPECT_EQ(sent.second, c.sent_style);
    }
}

TEST(Attribute_objects, font_bytes_need_the_terminal_limits)
{
    Font_attributes_obj fixed(1, "fixed", 0, 5, 0, 0x01, 0, nullptr);
    Font_attributes_obj proportional(2, "prop", 0, 5, 0, 0x81, 0, nullptr);
    Attribute* fixed_size = fixed.get_attribute_by_aid(2);
    Attribute* fixed_style = fixed.get_attribute_by_aid(4);
    uint8_t b = 0xEE;
    // Without limits a fixed-size font has nothing to choose from.
    EXPECT_EQ(fixed_size->serialise(nullptr, 0, &b, 1), 1);
    EXPECT_EQ(b, 0);
    EXPECT_EQ(proportional.get_attribute_by_aid(2)->serialise(nullptr, 0, &b, 1), 1);
    EXPECT_EQ(b, 5);
    EXPECT_EQ(fixed_style->serialise(nullptr, 0, &b, 1), 1);
    EXPECT_EQ(b, 1);
    Serialisation_limits all;
    b = 0xEE;
    EXPECT_EQ(fixed_size->serialise(&all, 1, &b, 1), 0);
    EXPECT_EQ(fixed_style->serialise(&all, 0, &b, 0), 0);
    EXPECT_EQ(b, 0xEE);
    // The terminal-blind serialise is a programming error.
    EXPECT_DEATH(fixed_size->serialise(0, &b, 1), "");
    EXPECT_DEATH(fixed_style->serialise(0, &b, 1), "");
}

TEST(Attribute_objects, input_attributes_carry_the_string_after_its_length)
{
    char text[] = "0123";
    Attribute_event_macro macros[] = {{1, 2}, {3, 4}};
    Input_attributes_obj input(0x0201, "in", 0, 4, text, 2, macros);
    Bytes bytes = test::serialise_whole(input);
    EXPECT_EQ(test::hex(bytes), "01 02 1A 00 04 30 31 32 33 02 01 02 03 04");
    EXPECT_EQ(input.get_string(3), '3');
    EXPECT_EQ(input.get_string(4), '\0');

    Input_attributes_obj read(nullptr);
    ASSERT_EQ(test::deserialise_bytes(read, bytes), 11);
    EXPECT_STREQ(read._get_string(), "0123");
    EXPECT_EQ(read.get_event_macro_event_id(1), 3);
    // The read copy owns its text: the caller's buffer may change.
    text[0] = 'x';
    EXPECT_EQ(read.get_string(0), '0');
}

TEST(Attribute_objects, line_width_follows_the_vertical_scale)
{
    Line_attributes_obj line(1, "l", 0, 3, 0xFFFF, 0, nullptr);
    line.set_scale(5, 2, 1, 1);
    EXPECT_EQ(line.get_line_width(), 6);
    line.set_scale(1, 1, 1, 7);
    // Never scaled down to nothing.
    EXPECT_EQ(line.get_line_width(), 6);
    line.set_scale(1, 1, 1, 2);
    EXPECT_EQ(line.get_line_width(), 3);
    Line_attributes_obj none(2, "n", 0, 0, 0, 0, nullptr);
    none.set_scale(4, 4, 1, 1);
    EXPECT_EQ(none.get_line_width(), 0);
}

TEST(Attribute_objects, invisible_lines_may_be_shared_by_both_areas)
{
    Line_attributes_obj invisible(1, "invisible", 0, 0, 0, 0, nullptr);
    Line_attributes_obj visible(2, "visible", 0, 1, 0, 0, nullptr);
    test::Stream_capture err(std::cerr);
    for (Line_attributes_obj* line : {&invisible, &visible}) {
        line->check_scale_area(SCALE_AREA_SOFT_KEY);
        line->check_scale_area(SCALE_AREA_ACTIVE);
        line->check_scale_area(SCALE_AREA_SOFT_KEY);
    }
    EXPECT_EQ(err.str(), "WARNING:  'visible' is used in a soft key area and is also used in the active area.\n"
                         "\tThis may cause problems if they are scaled at different rates.\n");
    EXPECT_EQ(invisible.get_scale_area(), SCALE_AREA_SOFT_KEY);
    EXPECT_EQ(visible.get_scale_area(), SCALE_AREA_SOFT_KEY);
}

TEST(Attribute_objects, fill_scaling_reaches_the_pattern)
{
    Fill_attributes_obj patterned(1, "f", 3, 0, 0x0507, 0, nullptr);
    EXPECT_EQ(patterned.__get_scaling_child(), 0x0507);
    Fill_attributes_obj plain(new Fake_spec());
    EXPECT_EQ(plain.__get_scaling_child(), 65535);
}

TEST(Attribute_objects, extended_input_attributes_list_code_plane_ranges)
{
    Attribute_code_plane_range latin[] = {{0x20, 0x7E}, {0xA0, 0xFF}};
    Attribute_code_plane_rangeset sets[] = {{0, 2, latin}, {3, 0, nullptr}};
    Extended_input_attributes_obj ext(9, "x", 1, 2, sets);
    EXPECT_EQ(ext.get_num_code_plane_rangesets(), 2);
    EXPECT_EQ(ext.get_code_plane_rangesets_code_plane(1), 3);
    EXPECT_EQ(ext.get_code_plane_rangesets_num_ranges(0), 2);
    EXPECT_EQ(ext.get_code_plane_range(0, 1).get_last_char(), 0xFF);
    EXPECT_EQ(ext.get_code_plane_range(1, 0).get_last_char(), 0);
    EXPECT_EQ(ext.get_code_plane_range(5, 5).get_first_char(), 0);
}
