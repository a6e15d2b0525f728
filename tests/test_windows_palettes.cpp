// What window masks, graphics contexts, animations, colour maps and palettes do beyond the
// common object pattern.

#include "test_support.h"

using namespace VT;
using namespace VT::Base;
using test::Bytes;
using test::Fake_spec;

namespace {

Fake_spec placed(const char* object)
{
    Fake_spec s("Object");
    s.set("object", object).set("x_location", "0").set("y_location", "0");
    return s;
}

// An animation named "anim" built from the description node `spec_node`, with the objects "a" (id 1) and
// "b" (id 2) known.
std::unique_ptr<Animation_obj> animation(Fake_spec spec_node)
{
    static Number_variable_obj a(1, "a", 0), b(2, "b", 0);
    spec_node.shared().ids = {{"a", 1}, {"b", 2}};
    spec_node.shared().objects = {{"a", &a}, {"b", &b}};
    auto obj = std::make_unique<Animation_obj>(new Fake_spec(spec_node));
    obj->set_name("anim");
    return obj;
}

// Finds any object by the id of a placement.
class Finding_helper : public Pool_helper_api
{
public:
    std::map<uint16_t, VT_obj*> objects;
    VT_obj* find_object(const Attribute_object_placement& p) override
    {
        auto it = objects.find(p.get_object_id());
        return it == objects.end() ? nullptr : it->second;
    }
};

}

TEST(Animation, spec_child_count_and_null_children_are_fatal)
{
    Fake_spec declared;
    declared.set("num_objects", "3").add_child(placed("a")).add_child(placed("b"));
    EXPECT_EXIT(animation(declared)->set_by_spec(SCALE_AREA_ACTIVE), ::testing::ExitedWithCode(255),
                "FATAL ERROR!  Animation 'anim' refers to the NULL object in child 3");

    Fake_spec null_first;
    null_first.add_child(placed("65535")).add_child(placed("a"));
    EXPECT_EXIT(animation(null_first)->set_by_spec(SCALE_AREA_ACTIVE), ::testing::ExitedWithCode(255),
                "FATAL ERROR!  Animation 'anim' refers to the NULL object in child 1");

    // A declared count that the children fill is accepted, and so is a smaller one.
    Fake_spec exact;
    exact.set("num_objects", "1").add_child(placed("b")).add_child(placed("a"));
    auto obj = animation(exact);
    obj->set_by_spec(SCALE_AREA_ACTIVE);
    EXPECT_EQ(obj->get_num_objects(), 1);
    EXPECT_EQ(obj->get_child_location_object_id(0), 2);
}

TEST(Animation, finds_and_justifies_its_children)
{
    Attribute_object_placement children[] = {{7, 1, 1, 10}, {8, 3, 4}, {7, 5, 6}};
    Animation_obj anim(1, "anim", 100, 50, 0, 0, 1, 0, 2, 0, 0, 3, 0, children, nullptr);
    EXPECT_EQ(anim.__get_child_loc(8), 1);
    EXPECT_EQ(anim.__get_child_loc(7), 0) << "first of two entries";
    EXPECT_EQ(anim.__get_child_loc(9), -1);

    Animation_obj child(7, "child", 10, 10, 0, 0, 0, 0, 0, 0, 0, 0, 0, nullptr, nullptr);
    Finding_helper helper;
    helper.objects[7] = &child;
    anim.set_pool_helper(&helper);
    anim.justify_placements();
    anim.set_pool_helper(nullptr);
    // Centred both ways within the animation's own 100 x 50; unjustified entries stay.
    EXPECT_EQ(anim.get_child_location_x_location(0), 45);
    EXPECT_EQ(anim.get_child_location_y_location(0), 20);
    EXPECT_EQ(anim.get_child_location_x_location(2), 5);
    EXPECT_EQ(anim.get_child_location_y_location(2), 6);
}

TEST(Graphics_context, zoom_is_a_float_and_sizes_stop_at_32767)
{
    test::Stream_capture err(std::cerr);
    Fake_spec* spec_node = new Fake_spec();
    spec_node->set("viewport_zoom", "1.5").set("viewport_width", "40000").set("viewport_x", "-32768");
    Graphics_context_obj gc(spec_node);
    gc.set_by_spec(SCALE_AREA_ACTIVE);
    EXPECT_FLOAT_EQ(gc.get_viewport_zoom(), 1.5f);
    EXPECT_EQ(gc.get_viewport_width(), 32767);
    EXPECT_EQ(gc.get_viewport_x(), -32768);
    EXPECT_EQ(err.str(), "WARNING: attempt to set 'viewport_width' to 40000, maximum is 32767\n");

    Bytes bytes = test::serialise_whole(gc);
    ASSERT_EQ(bytes.size(), 34u);
    EXPECT_EQ(test::hex(Bytes(bytes.begin() + 15, bytes.begin() + 19)), "00 00 C0 3F");
    EXPECT_EQ(gc.get_num_attributes_by_aid(), 18);
    EXPECT_EQ(gc.get_attribute_whole_id(7), 6) << "zoom is AID 7";
    EXPECT_EQ(gc.get_attribute_whole_id(17), 16);
}

TEST(Window_mask, defaults_and_addressable_attributes)
{
    Window_mask_obj mask(new Fake_spec());
    EXPECT_EQ(test::hex(test::serialise_whole(mask)), "FF FF 22 01 01 00 00 00 FF FF FF FF FF FF 00 00 00");
    // Only the background colour, the options and the window name have AIDs.
    EXPECT_EQ(mask.get_attribute_whole_id(1), 3);
    EXPECT_EQ(mask.get_attribute_whole_id(2), 4);
    EXPECT_EQ(mask.get_attribute_whole_id(3), 5);
    EXPECT_EQ(mask.get_attribute_whole_id(4), -1);
}

TEST(Colour_map_and_palette, counts_and_colour_values)
{
    uint8_t colours[256];
    for (int i = 0; i < 256; ++i)
        colours[i] = uint8_t(255 - i);
    Colour_map_obj map(3, "map", 256, colours);
    Bytes bytes = test::serialise_whole(map);
    ASSERT_EQ(bytes.size(), 261u);
    EXPECT_EQ(test::hex(Bytes(bytes.begin(), bytes.begin() + 7)), "03 00 27 00 01 FF FE");
    EXPECT_EQ(bytes.back(), 0x00);
    EXPECT_EQ(map.get_colours(1), 0xFE);
    EXPECT_EQ(map.get_colours(256), 0) << "past the end";

    test::Stream_capture err(std::cerr);
    unsigned int argb[] = {0xFF000000u, 0x00FFFFFFu};
    Colour_palette_obj palette(4, "pal", 1, 2, argb);
    EXPECT_EQ(err.str(), "WARNING: attempt to set 'options' to 1, maximum is 0\n");
    EXPECT_EQ(test::hex(test::serialise_whole(palette)), "04 00 2D 00 02 00 00 00 FF FF FF FF 00");
    EXPECT_EQ(palette.get_colours(1), 0x00FFFFFFu);
    EXPECT_EQ(palette.get_attribute_whole_id(1), 0) << "options is AID 1";
}
