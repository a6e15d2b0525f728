// One working pool uploaded to three terminals: colours and fonts are reduced to what each
// terminal has, and no other byte moves.

#include "mask_test_support.h"

using namespace VT;
using namespace VT::Base;
using test::Bytes;

namespace {

struct Pool
{
    Attribute_object_placement ws_children[1] = {{20, 0, 0}};
    Attribute_lang languages[1] = {{'e', 'n'}};
    Attribute_object_placement mask_children[4] = {{20, 0, 0}, {50, 10, 100}, {101, 0, 0}, {103, 60, 0}};
    Attribute_object_id keys[2] = {{40, "child_objects"}, {41, "child_objects"}};
    Attribute_object_placement key_children[1] = {{60, 0, 0}};
    Attribute_object_placement container_children[2] = {{100, 5, 5}, {101, 0, 50}};
    Attribute_event_macro macros[1] = {{1, 2}};
    Attribute_point points[3] = {{0, 0}, {40, 0}, {20, 30}};

    Working_set_obj ws{1, "ws", 46, 1, 10, 1, 0, 1, ws_children, nullptr, languages};
    Data_mask_obj mask{10, "mask", 196, 11, 4, 1, mask_children, macros};
    Soft_key_mask_obj soft_keys{11, "soft_keys", 240, 2, 0, keys, nullptr};
    Key_obj key1{40, "key1", 5, 1, 1, 0, key_children, nullptr};
    Key_obj key2{41, "key2", 231, 2, 1, 0, key_children, nullptr};
    Container_obj container{20, "container", 200, 100, 0, 2, 0, container_children, nullptr};
    Button_obj button{50, "button", 100, 40, 14, 46, 3, 0, 1, 0, key_children, nullptr};
    Font_attributes_obj big_font{60, "big_font", 12, Font_attributes_obj::FONT_48x64, 0, 0x05, 0, nullptr};
    Font_attributes_obj small_font{61, "small_font", 1, Font_attributes_obj::FONT_8x12, 0, 0x81, 0, nullptr};
    Line_attributes_obj lines{80, "lines", 196, 2, 0xFFFF, 0, nullptr};
    Fill_attributes_obj fill{81, "fill", 2, 46, 65535, 0, nullptr};
    Line_obj line{100, "line", 80, 40, 1, 0, 0, nullptr};
    Rectangle_obj rectangle{101, "rectangle", 80, 50, 30, 0, 81, 0, nullptr};
    Polygon_obj polygon{103, "polygon", 40, 30, 80, 81, 0, 3, 0, points, nullptr};

    std::vector<VT_obj*> all()
    {
        return {&ws, &mask, &soft_keys, &key1, &key2, &container, &button, &big_font, &small_font,
                &lines, &fill, &line, &rectangle, &polygon};
    }
};

// A byte that depends on the terminal, with its value for 256 colours, 16 colours and
// monochrome (the last two with small fonts only).
struct Terminal_byte
{
    const char* object;
    size_t offset;
    uint8_t full, sixteen, mono;
};

const Terminal_byte terminal_bytes[] = {
    {"ws", 3, 46, 10, 2},
    {"mask", 3, 196, 12, 2},
    {"soft_keys", 3, 240, 0, 2},
    {"key1", 3, 5, 5, 2},
    {"key2", 3, 231, 1, 2},
    {"button", 7, 14, 14, 2},
    {"button", 8, 46, 10, 2},
    {"big_font", 3, 12, 12, 2},
    {"big_font", 4, 9, 7, 2},
    {"big_font", 6, 0x05, 0x05, 0},
    {"small_font", 3, 1, 1, 2},
    // A proportional font's size goes through the style mask.
    {"small_font", 4, 2, 2, 0},
    {"small_font", 6, 0x81, 0x01, 0},
    {"lines", 3, 196, 12, 2},
    {"fill", 4, 46, 10, 2},
};

std::map<std::string, Bytes> serialise_pool(Pool& pool, Pool_helper_api* helper, int piece)
{
    std::map<std::string, Bytes> out;
    for (VT_obj* obj : pool.all()) {
        obj->set_pool_helper(helper);
        out[obj->get_name()] = piece ? test::serialise_in_pieces(*obj, piece) : test::serialise_whole(*obj);
    }
    return out;
}

}

TEST(Terminal_limits, colours_and_fonts_are_reduced_and_nothing_else_moves)
{
    Pool pool;
    test::Limits_pool_helper full(2, 0xFF, 0xFF, 0xFF);
    test::Limits_pool_helper sixteen(1, 0x7F, 0x00, 0x07); // fonts up to 32x32, three styles
    test::Limits_pool_helper mono(0, 0x03, 0x00, 0x00);    // 8x8 and 8x12 only, no styles

    std::map<std::string, Bytes> baseline = serialise_pool(pool, nullptr, 0);
    EXPECT_EQ(serialise_pool(pool, &full, 0), baseline);
    EXPECT_EQ(test::hex(baseline["mask"]),
              "0A 00 01 C4 0B 00 04 01 14 00 00 00 00 00 32 00 0A 00 64 00 65 00 00 00 00 00 67 00 3C 00 00 00 01 02");
    EXPECT_EQ(test::hex(baseline["big_font"]), "3C 00 17 0C 09 00 05 00");
    for (const Terminal_byte& b : terminal_bytes)
        EXPECT_EQ(baseline[b.object].at(b.offset), b.full) << b.object << " " << b.offset;

    for (bool is_mono : {false, true}) {
        SCOPED_TRACE(is_mono ? "monochrome" : "16 colours");
        std::map<std::string, Bytes> expected = baseline;
        for (const Terminal_byte& b : terminal_bytes)
            expected[b.object].at(b.offset) = is_mono ? b.mono : b.sixteen;
        test::Limits_pool_helper* terminal = is_mono ? &mono : &sixteen;
        for (int piece : {0, 1, 5}) {
            std::map<std::string, Bytes> sent = serialise_pool(pool, terminal, piece);
            for (const auto& object : expected)
                EXPECT_EQ(test::hex(sent[object.first]), test::hex(object.second)) << object.first << " " << piece;
        }
    }
    for (VT_obj* obj : pool.all())
        obj->set_pool_helper(nullptr);
}
