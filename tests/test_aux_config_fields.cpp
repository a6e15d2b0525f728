// What the auxiliary, field, swath and configuration objects do beyond the common object
// pattern.

#include "test_support.h"

using namespace VT;
using namespace VT::Base;
using test::Bytes;
using test::Fake_spec;

TEST(Auxiliary, type_1_objects_address_nothing_but_their_type)
{
    Auxiliary_function_obj function(1, "f", 0, 0, 0, nullptr);
    Auxiliary_input_obj input(2, "i", 0, 0, 0, 0, nullptr);
    for (VT_obj* obj : {static_cast<VT_obj*>(&function), static_cast<VT_obj*>(&input)}) {
        EXPECT_EQ(obj->get_attribute_by_aid(1), nullptr);
        EXPECT_EQ(obj->get_attribute_whole_id(1), -1);
    }
    // Type 2 objects do address their colour and attributes.
    Auxiliary_type2_input_obj type2(3, "t2", 0, 0, 0, nullptr);
    EXPECT_EQ(type2.get_attribute_whole_id(1), 0);
    EXPECT_EQ(type2.get_attribute_whole_id(2), 1);
    EXPECT_EQ(type2.get_attribute_whole_id(3), -1);
    Auxiliary_type2_control_designator_obj designator(4, "d", 0, 0);
    EXPECT_EQ(designator.get_attribute_whole_id(2), 1);
}

TEST(Auxiliary, input_id_stops_at_250)
{
    test::Stream_capture err(std::cerr);
    auto* spec_node = new Fake_spec();
    spec_node->set("input_id", "251");
    Auxiliary_input_obj from_spec(spec_node);
    from_spec.set_by_spec(SCALE_AREA_ACTIVE);
    EXPECT_EQ(from_spec.get_input_id(), 250);

    Auxiliary_input_obj from_bytes(new Fake_spec());
    uint8_t input[] = {1, 2, 251, 0};
    Iso::Deserialise_results res{};
    EXPECT_EQ(from_bytes.deserialise(0, input, 4, &res), 4);
    EXPECT_EQ(from_bytes.get_input_id(), 250);
    EXPECT_TRUE(res.flags & Iso::Deserialise_results::value_clamped);
    EXPECT_EQ(err.str(), "WARNING: attempt to set 'input_id' to 251, maximum is 250\n"
                         "WARNING: attempt to set 'input_id' to 251, maximum is 250\n");
}

TEST(Field, settings_snapshot)
{
    Field_obj field(1, "field", -10, 20, 40, -30, 40, -50, 7, 8, 9, 10, 11, 250, 0, nullptr);
    Field_obj::ds_field_settings s{};
    field.init(s);
    EXPECT_DOUBLE_EQ(s.swath_width, 100.0);
    EXPECT_EQ(s.camera_y, -10);
    EXPECT_EQ(s.camera_z, 20);
    EXPECT_EQ(s.eye_y, -30);
    EXPECT_EQ(s.eye_z, 40);
    EXPECT_EQ(s.rotation, -50);
    EXPECT_EQ(s.num_swaths, 0);
    EXPECT_EQ(s.completed_colour, 8);
    EXPECT_EQ(s.incomplete_colour, 9);
    EXPECT_EQ(s.tractor_x, 10);
    EXPECT_EQ(s.tractor_y, 11);
    EXPECT_EQ(s.scale, 250);

    test::Stream_capture err(std::cerr);
    Field_obj wide(2, "wide", -32768, 0, 0, 0, 0, 0, 7, 0, 0, 0, 0, 256, 0, nullptr);
    EXPECT_EQ(wide.get_camera_y(), -32767);
    EXPECT_EQ(wide.get_scale(), 255);
}

TEST(Field, swaths_come_from_the_spec_children_in_order)
{
    test::Stream_capture out(std::cout);
    auto* first_spec = new Fake_spec("Swath");
    first_spec->set("num_points", "3");
    Swath_obj first(first_spec);
    first.set_id(21);
    Swath_obj last(new Fake_spec("Swath"));
    last.set_id(23);

    auto* spec_node = new Fake_spec();
    spec_node->add_child(Fake_spec("Swath").object(&first)).add_child(Fake_spec("Swath"));
    spec_node->add_child(Fake_spec("Swath").object(&last));
    Field_obj field(spec_node);
    field.set_by_spec(SCALE_AREA_ACTIVE);
    ASSERT_EQ(field.get_num_swaths(), 3);
    EXPECT_EQ(field.get_swaths(0), 21);
    EXPECT_EQ(field.get_swaths(1), 65535) << "a child without an object";
    EXPECT_EQ(field.get_swaths(2), 23);
    // Each swath configured itself in the same pass.
    EXPECT_EQ(first.get_num_points(), 3);
    EXPECT_EQ(first.get_polygon_type(), 3);
    EXPECT_EQ(test::hex(test::serialise_whole(field)).substr(66), "03 15 00 FF FF 17 00");
}

TEST(Swath, spec_sizes_the_points_and_opens_the_polygon)
{
    auto* spec_node = new Fake_spec();
    spec_node->set("num_points", "0").set("polygon_type", "1").set("maximum_points", "9");
    spec_node->add_child(Fake_spec("Point").set("point_x", "4").set("point_y", "5"));
    Swath_obj swath(spec_node);
    swath.set_by_spec(SCALE_AREA_ACTIVE);
    EXPECT_EQ(swath.get_num_points(), 0);
    EXPECT_EQ(swath.get_polygon_type(), 3);
    EXPECT_EQ(swath.get_max_points(), 9);

    EXPECT_EQ(swath.get_ctype(), 16u);
    EXPECT_STREQ(swath.get_type_string(), "Swath");
    ASSERT_EQ(swath.get_num_every_attribute(), 10);
    EXPECT_STREQ(swath.get_every_attribute(0)->name, "maximum_points");
    EXPECT_STREQ(swath.get_every_attribute(1)->name, "width");
    EXPECT_STREQ(swath.get_every_attribute(9)->name, "event_macro");
    EXPECT_EQ(swath.get_every_attribute(10), nullptr);

    // The scaling is remembered for points placed later; a new start forgets it.
    swath.set_scale(3, 4, 2, 1);
    EXPECT_EQ(swath.get_scale_x_mul(), 3);
    EXPECT_EQ(swath.get_scale_y_div(), 1);
    swath.object_init();
    EXPECT_EQ(swath.get_scale_x_mul(), 1);
}

TEST(Config, empty_page_bytes)
{
    auto* spec_node = new Fake_spec();
    Config_page_obj page(spec_node);
    page.set_by_spec(SCALE_AREA_ACTIVE);
    EXPECT_EQ(test::hex(test::serialise_whole(page)), "FF FF F6 03 FF FF FF FF 00 FF FF FF FF FF FF 00 00");
}

TEST(Config, shared_type_byte_and_extended_types)
{
    test::Stream_capture err(std::cerr);
    Config_icon_obj icon(1, "icon", 1, 0, 0, nullptr, nullptr);
    Config_node_obj node(2, "node", 3, 0, 0, 0, 0, 0, nullptr, nullptr);
    Config_page_obj page(3, "page", 3, 0, 0, 0, 0, 0, 0, 0, 0, nullptr, nullptr);
    Config_item_obj item(4, "item", 4, 0, 0, 0, 0, 0, 0, 0, nullptr);
    Config_table_obj table(5, "table", 5, 0, 0, 0, 0, 0, 0, nullptr, nullptr);
    // The node was given its neighbour's extended type and keeps its own.
    EXPECT_EQ(err.str(), "WARNING: attempt to set 'extended_type' to 3, maximum is 2\n");

    struct Expect
    {
        VT_obj* obj;
        unsigned extended;
        const char* name;
    };
    for (const Expect& e : {Expect{&icon, 1, "Config_icon"}, Expect{&node, 2, "Config_node"},
                            Expect{&page, 3, "Config_page"}, Expect{&item, 4, "Config_item"},
                            Expect{&table, 5, "Config_table"}}) {
        SCOPED_TRACE(e.name);
        EXPECT_EQ(e.obj->get_ctype(), 246u);
        EXPECT_EQ(e.obj->get_extended_type(), e.extended);
        EXPECT_EQ(unsigned(e.obj->get_type()), 246 + 256 * e.extended);
        EXPECT_STREQ(e.obj->get_type_string(), e.name);
        Bytes bytes = test::serialise_whole(*e.obj);
        ASSERT_GE(bytes.size(), 4u);
        EXPECT_EQ(bytes[2], 246);
        EXPECT_EQ(bytes[3], e.extended) << "the extended type follows the type byte";
        EXPECT_EQ(e.obj->get_attribute_whole_id(1), 0) << "extended_type is AID 1";
    }
}
