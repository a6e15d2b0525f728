#include "mask_test_support.h"

using namespace VT;
using namespace VT::Base;
using test::Bytes;
using test::Fake_spec;

TEST(Masks, working_set_fixed_part_and_languages)
{
    Working_set_obj bare(new Fake_spec());
    EXPECT_EQ(test::hex(test::serialise_whole(bare)), "FF FF 00 00 00 FF FF 00 00 00");
    EXPECT_EQ(bare.num_bytes(), 10);
    EXPECT_EQ(bare.get_active_mask(), 65535);

    Attribute_lang langs[] = {{'e', 'n'}, {'d', 'e'}};
    Attribute_event_macro macros[] = {{1, 2}};
    Working_set_obj ws(3, "ws", 1, 1, 0x0102, 0, 1, 2, nullptr, macros, langs);
    // Counts first, then the lists in list order: macros before languages.
    EXPECT_EQ(test::hex(test::serialise_whole(ws)), "03 00 00 01 01 02 01 00 01 02 01 02 65 6E 64 65");
    EXPECT_EQ(ws.get_num_languages(), 2);
    EXPECT_EQ(ws.get_languages_byte_1(1), 'd');
    EXPECT_EQ(ws.get_languages_byte_2(0), 'n');
    EXPECT_EQ(ws.get_event_macro_macro_id(0), 2);

    Working_set_obj read(nullptr);
    ASSERT_EQ(test::deserialise_bytes(read, test::serialise_whole(ws)), 13);
    EXPECT_EQ(read.get_num_languages(), 2);
    EXPECT_EQ(read.get_languages_byte_2(1), 'e');
    EXPECT_EQ(read.get_active_mask(), 0x0102);
}

TEST(Masks, container_keeps_the_child_count_it_declares)
{
    test::Pool_names world;
    world.world->ids["a"] = 30;
    world.world->ids["b"] = 31;
    auto described_with = [&](const char* declared) {
        Fake_spec s = world.node();
        s.set("width", "50").set("height", "20");
        s.add_child(test::placement_node("a", 1, 2)).add_child(test::placement_node("b", 3, 4));
        if (declared)
            s.set("num_objects", declared);
        return s;
    };

    auto more = test::build_described<Container_obj>(described_with("3"), 7);
    EXPECT_EQ(more->get_num_objects(), 3);
    EXPECT_EQ(more->get_child_location_object_id(1), 31);
    EXPECT_EQ(more->get_child_location_object_id(2), 65535);
    // The undeclared third child travels as a NULL reference at the origin.
    EXPECT_EQ(test::hex(test::serialise_whole(*more)),
              "07 00 03 32 00 14 00 00 03 00 1E 00 01 00 02 00 1F 00 03 00 04 00 FF FF 00 00 00 00");
    EXPECT_EQ(more->num_bytes(), 28);

    auto fewer = test::build_described<Container_obj>(described_with("1"), 7);
    EXPECT_EQ(fewer->get_num_objects(), 1);
    EXPECT_EQ(test::hex(test::serialise_whole(*fewer)), "07 00 03 32 00 14 00 00 01 00 1E 00 01 00 02 00");

    auto listed = test::build_described<Container_obj>(described_with(nullptr), 7);
    EXPECT_EQ(listed->get_num_objects(), 2);
    EXPECT_EQ(listed->num_bytes(), 22);
}

TEST(Masks, placements_are_justified_within_their_parent)
{
    test::Limits_pool_helper pool;
    Container_obj small(30, "small", 20, 10, 0, 0, 0, nullptr, nullptr);
    Button_obj wide(31, "wide", 30, 12, 0, 0, 0, 0, 0, 0, nullptr, nullptr);
    pool.add(small);
    pool.add(wide);
    auto centre = Attribute_object_placement::JUSTIFY_H_CENTRE | Attribute_object_placement::JUSTIFY_V_CENTRE;
    auto bottom_right = Attribute_object_placement::JUSTIFY_RIGHT | Attribute_object_placement::JUSTIFY_BOTTOM;
    Attribute_object_placement children[] = {
        {30, 1, 1, uint8_t(centre)}, {31, 1, 1, uint8_t(bottom_right)}, {99, 7, 8, uint8_t(centre)}, {30, 5, 6}};

    Button_obj button(40, "button", 100, 40, 0, 0, 0, 0, 4, 0, children, nullptr);
    button.set_pool_helper(&pool);
    button.justify_placements();
    // Within the face of 92 x 32 left inside the 4-pixel border.
    EXPECT_EQ(button.get_child_location_x_location(0), 36);
    EXPECT_EQ(button.get_child_location_y_location(0), 11);
    EXPECT_EQ(button.get_child_location_x_location(1), 62);
    EXPECT_EQ(button.get_child_location_y_location(1), 20);
    // Not in the pool, and not justified: left where they were.
    EXPECT_EQ(button.get_child_location_x_location(2), 7);
    EXPECT_EQ(button.get_child_location_y_location(2), 8);
    EXPECT_EQ(button.get_child_location_x_location(3), 5);
    EXPECT_EQ(button.get_child_location_y_location(3), 6);

    Container_obj container(41, "container", 100, 40, 0, 4, 0, children, nullptr);
    container.set_pool_helper(&pool);
    container.justify_placements();
    EXPECT_EQ(container.get_child_location_x_location(0), 40);
    EXPECT_EQ(container.get_child_location_y_location(0), 15);
    EXPECT_EQ(container.get_child_location_x_location(1), 70);
    EXPECT_EQ(container.get_child_location_y_location(1), 28);

    Key_obj key(42, "key", 0, 1, 2, 0, children, nullptr);
    key.set_pool_helper(&pool);
    key.justify_placements(60, 30);
    EXPECT_EQ(key.get_child_location_x_location(0), 20);
    EXPECT_EQ(key.get_child_location_y_location(0), 10);
    EXPECT_EQ(key.get_child_location_x_location(1), 30);
    EXPECT_EQ(key.get_child_location_y_location(1), 18);
}

TEST(Masks, child_lookup_finds_the_first_placement_of_an_object)
{
    Attribute_object_placement children[] = {{5, 0, 0}, {6, 1, 1}, {5, 2, 2}};
    Container_obj container(1, "c", 10, 10, 0, 3, 0, children, nullptr);
    Button_obj button(2, "b", 10, 10, 0, 0, 0, 0, 3, 0, children, nullptr);
    for (int found : {container.__get_child_loc(6), button.__get_child_loc(6)})
        EXPECT_EQ(found, 1);
    EXPECT_EQ(container.__get_child_loc(5), 0);
    EXPECT_EQ(button.__get_child_loc(5), 0);
    EXPECT_EQ(container.__get_child_loc(7), -1);
    EXPECT_EQ(button.__get_child_loc(65535), -1);
    Container_obj empty(3, "e", 0, 0, 0, 0, 0, nullptr, nullptr);
    EXPECT_EQ(empty.__get_child_loc(0), -1);
}

TEST(Masks, key_code_zero_is_refused_for_keys_only)
{
    test::Pool_names world;
    Fake_spec zero = world.node().set("key_code", "0");
    EXPECT_EXIT(test::build_described<Key_obj>(zero, 5, "k_zero"), ::testing::ExitedWithCode(255),
                "FATAL ERROR!  Key 'k_zero' has a key code of 0\n");

    {
        test::Stream_capture err(std::cerr);
        auto key = test::build_described<Key_obj>(world.node().set("key_code", "7"), 5, "k_seven");
        EXPECT_EQ(key->get_key_code(), 7);
        // Left out, the key code stays at its default of 1.
        auto unset = test::build_described<Key_obj>(world.node(), 6, "k_unset");
        EXPECT_EQ(unset->get_key_code(), 1);
        EXPECT_EQ(err.str(), "");
    }

    auto button = test::build_described<Button_obj>(zero, 6, "b_zero");
    EXPECT_EQ(button->get_key_code(), 0);

    test::Stream_capture err(std::cerr);
    Key_obj from_values(7, "k", 0, 0, 0, 0, nullptr, nullptr);
    EXPECT_EQ(from_values.get_key_code(), 1);
    EXPECT_EQ(err.str(), "WARNING: attempt to set 'key_code' to 0, minimum is 1\n");
}

TEST(Masks, screen_masks_switch_their_soft_key_mask)
{
    Data_mask_obj data(1, "d", 0, 10, 0, 0, nullptr, nullptr);
    Alarm_mask_obj alarm(2, "a", 0, 10, 2, 3, 0, 0, nullptr, nullptr);
    for (Screen_mask_obj* mask : std::initializer_list<Screen_mask_obj*>{&data, &alarm})
        mask->set_soft_key_mask(0x1234);
    EXPECT_EQ(data.get_soft_key_mask(), 0x1234);
    EXPECT_EQ(alarm.get_soft_key_mask(), 0x1234);
    EXPECT_EQ(test::hex(test::serialise_whole(data)), "01 00 01 00 34 12 00 00");
    EXPECT_EQ(test::hex(test::serialise_whole(alarm)), "02 00 02 00 34 12 02 03 00 00");

    data.set_soft_key_mask(65535);
    EXPECT_EQ(data.get_soft_key_mask(), 65535);
}

