#include "object_test_support.h"

using namespace VT;
using namespace VT::Base;
using test::Bytes;
using test::Fake_spec;
using test::from_hex;

TEST(Graphs, defaults_names_and_option_ranges)
{
    test::Stream_capture err(std::cerr);
    // A default meter: 21 bytes, the NULL variable reference at 16..17, no macros.
    Meter_obj meter(new Fake_spec());
    meter.set_by_spec(SCALE_AREA_NONE);
    meter.set_id(0x0011);
    EXPECT_EQ(test::hex(test::serialise_whole(meter)),
              "11 00 11 00 00 00 00 00 00 00 00 00 00 00 00 00 FF FF 00 00 00");
    EXPECT_EQ(meter.get_height(), 0);

    // Only "target_value_reference" sets the arched bar graph's target reference.
    test::Reference_world refs;
    Fake_spec wrong_name = refs.node();
    wrong_name.set("target_variable_reference", "var");
    Arched_bar_graph_obj arched(new Fake_spec(wrong_name));
    arched.set_by_spec(SCALE_AREA_NONE);
    EXPECT_EQ(arched.get_target_value_reference(), 65535);
    Fake_spec right_name = refs.node();
    right_name.set("target_value_reference", "var");
    Arched_bar_graph_obj arched_set(new Fake_spec(right_name));
    arched_set.set_by_spec(SCALE_AREA_NONE);
    EXPECT_EQ(arched_set.get_target_value_reference(), 0x1234);
    EXPECT_EQ(err.str(), "");

    // The option ranges differ by design: 0..15, 0..63 and 0..31; angles stop at 180.
    Attribute_event_macro macros[] = {{1, 2}, {3, 4}};
    Meter_obj wide(1, "m", 10, 0, 0, 0, 16, 0, 0, 200, 0, 0, 65535, 0, 2, macros);
    Linear_bar_graph_obj linear(2, "lb", 10, 10, 0, 0, 64, 0, 0, 0, 65535, 0, 65535, 0, 0, nullptr);
    Arched_bar_graph_obj arc(3, "ab", 10, 10, 0, 0, 32, 0, 0, 0, 0, 0, 65535, 0, 65535, 0, 0, nullptr);
    EXPECT_EQ(wide.get_options(), 15);
    EXPECT_EQ(wide.get_end_angle(), 180);
    EXPECT_EQ(linear.get_options(), 63);
    EXPECT_EQ(arc.get_options(), 31);
    EXPECT_EQ(err.str(), "WARNING: attempt to set 'options' to 16, maximum is 15\n"
                         "WARNING: attempt to set 'end_angle' to 200, maximum is 180\n"
                         "WARNING: attempt to set 'options' to 64, maximum is 63\n"
                         "WARNING: attempt to set 'options' to 32, maximum is 31\n");
    EXPECT_EQ(wide.get_num_macros(), 2);
    EXPECT_EQ(wide.get_event_macro_event_id(1), 3);
    EXPECT_EQ(wide.get_event_macro_macro_id(1), 4);
    EXPECT_EQ(wide.get_event_macro_macro_id(2), 0);
    EXPECT_EQ(test::serialise_whole(wide).size(), 25u);
}

TEST(Macros, printing_shows_the_command_bytes_in_hex)
{
    unsigned char commands[] = {0xA0, 0x05};
    Macro_obj macro(0x011C, "mac", 2, commands);
    std::ostringstream printed;
    macro.print_me(printed, 0);
    printed << 255;
    EXPECT_EQ(printed.str(), "Macro(284)\n"
                             "  Type: 17\tName: num_bytes Value: 2\n"
                             "  Type: 11\tName: bytes With 2 items\n"
                             "  Bytes: a0  05  \n"
                             "255");
    std::ostringstream deeper;
    macro.print_me(deeper, 1);
    EXPECT_NE(deeper.str().find("\n    Bytes: a0  05  \n"), std::string::npos) << deeper.str();
    std::ostringstream negative;
    macro.print_me(negative, -2);
    EXPECT_NE(negative.str().find("\nBytes: a0  05  \n"), std::string::npos) << negative.str();

    EXPECT_EQ(macro.get_num_bytes(), 2);
    EXPECT_EQ(macro.get_bytes(0), 0xA0);
    EXPECT_EQ(macro.get_bytes(2), 0);

    // No command bytes: id, type 28, a zero 16-bit count.
    Macro_obj empty(0x0005, "none", 0, nullptr);
    EXPECT_EQ(test::hex(test::serialise_whole(empty)), "05 00 1C 00 00");
}

TEST(Object_pointers, dynamic_children_are_walked_but_not_serialised)
{
    unsigned short dynamic[] = {0x1111, 0x2222, 0x3333, 0x4444, 0x5555, 0x6666};
    Object_pointer_obj pointer(0x011D, "op", 6, dynamic, 0x0201);
    EXPECT_EQ(pointer.get_num_dynamic(), 6);
    EXPECT_EQ(pointer.get_dynamic_children(3), 0x4444);
    EXPECT_EQ(pointer.get_dynamic_children(6), 0);

    // A run read copies its length in bytes: 4 from entry 0 are the first two ids whole.
    unsigned short out[6];
    std::fill(std::begin(out), std::end(out), 0xEEEE);
    EXPECT_EQ(pointer.get_dynamic_children(0, out, 4), 1);
    EXPECT_EQ(out[0], 0x1111);
    EXPECT_EQ(out[1], 0x2222);
    EXPECT_EQ(out[2], 0xEEEE);
    // From the last entry one byte remains to copy.
    std::fill(std::begin(out), std::end(out), 0xEEEE);
    EXPECT_EQ(pointer.get_dynamic_children(5, out, 4), 1);
    const uint8_t* out_bytes = reinterpret_cast<const uint8_t*>(out);
    EXPECT_EQ(out_bytes[0], 0x66);
    EXPECT_EQ(out_bytes[1], 0xEE);
    EXPECT_EQ(pointer.get_dynamic_children(6, out, 4), 0);
    EXPECT_EQ(pointer.get_dynamic_children(2, out, 0), 0);
    pointer.lock();
    EXPECT_EQ(pointer._get_dynamic_children().get_length(), 6u);
    pointer.unlock();

    // The walks see num_dynamic, dynamic_children, value; the record holds only value.
    EXPECT_EQ(pointer.find_attribute("num_dynamic"), 0);
    EXPECT_EQ(pointer.find_attribute("dynamic_children"), 1);
    EXPECT_EQ(pointer.find_attribute("value"), 2);
    EXPECT_EQ(pointer.get_every_attribute(3), nullptr);
    EXPECT_EQ(test::hex(test::serialise_whole(pointer)), "1D 01 1B 01 02");
    EXPECT_EQ(pointer.num_bytes(), 5);
    std::ostringstream printed, init;
    pointer.print_me(printed, 0);
    EXPECT_EQ(printed.str(), "Object_pointer(285)\n"
                             "  Type: 17\tName: num_dynamic Value: 6\n"
                             "  Type: 14\tName: dynamic_children With 6 items\n"
                             "  Type: 23\tName: value id: 513\n");
    pointer.get_code_init(init, 0);
    EXPECT_EQ(init.str(), "op(Oids::op, \"op\", 6, op_dynamic_children, VT_obj::NULL_ID)");

    // From a description: the dynamic children are read (filled from the back), the record is not widened.
    test::Reference_world refs;
    Fake_spec node = refs.node();
    node.set("value", "item_a");
    node.add_child(Fake_spec("Object").set("id", "item_a")).add_child(Fake_spec("Object").set("id", "item_b"));
    Object_pointer_obj from_node(new Fake_spec(node));
    from_node.set_by_spec(SCALE_AREA_NONE);
    from_node.set_id(0x0102);
    EXPECT_EQ(from_node.get_num_dynamic(), 2);
    EXPECT_EQ(from_node.get_dynamic_children(0), 0x0202);
    EXPECT_EQ(from_node.get_dynamic_children(1), 0x0201);
    EXPECT_EQ(test::hex(test::serialise_whole(from_node)), "02 01 1B 01 02");

    // Deserialising reads the value alone and leaves the dynamic children as they are.
    Bytes in = from_hex("02 02");
    Iso::Deserialise_results res;
    EXPECT_EQ(from_node.deserialise(0, in.data(), 2, &res), 2);
    EXPECT_EQ(from_node.get_value(), 0x0202);
    EXPECT_EQ(from_node.get_num_dynamic(), 2);
}

TEST(References, label_lists_and_external_pointer_defaults)
{
    Attribute_labelref labels[] = {{0x0201, 0x1234, 2, 0x0102}, {0x0202, 65535, 7, 65535}};
    Object_labelref_list_obj list(0x0128, "ll", 2, labels);
    EXPECT_EQ(list.get_num_labelrefs(), 2);
    EXPECT_EQ(list.get_labelrefs_labelled_object(1), 0x0202);
    EXPECT_EQ(list.get_labelrefs_string_variable(0), 0x1234);
    EXPECT_EQ(list.get_labelrefs_font_type(1), 7);
    EXPECT_EQ(list.get_labelrefs_graphic_representation(0), 0x0102);
    // The count itself is addressable.
    EXPECT_EQ(list.get_attribute_whole_id(1), 0);
    EXPECT_EQ(list.num_bytes(), 5 + 14);

    // A count that the bytes do not hold is refused without reading past them.
    test::Dprint_capture dprint;
    Object_labelref_list_obj read(new Fake_spec());
    Bytes short_input = from_hex("03 00 01 02 34 12 02 02 01");
    Iso::Deserialise_results res;
    EXPECT_EQ(read.deserialise(0, short_input.data(), int(short_input.size()), &res), -1);
    EXPECT_NE(dprint.text.find("Not enough data left for list"), std::string::npos);

    External_object_pointer_obj pointer(new Fake_spec());
    EXPECT_EQ(pointer.get_default_object_id(), 65535);
    EXPECT_EQ(pointer.get_external_reference_name_id(), 65535);
    EXPECT_EQ(pointer.get_value(), 65535);
}
