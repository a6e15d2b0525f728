#include <functional>
#include <limits>

#include "object_test_support.h"

using namespace VT;
using namespace VT::Base;
using test::Bytes;
using test::Fake_spec;
using test::from_hex;
using test::item;
using test::macro;
using test::Reference_world;

namespace {

template <class T>
std::unique_ptr<VT_obj> node_built(Spec_node* node)
{
    return std::make_unique<T>(node);
}

struct Round_trip_case
{
    const char* name;
    std::function<std::unique_ptr<VT_obj>()> from_values;
    std::function<std::unique_ptr<VT_obj>(Spec_node*)> from_node;
    // Gives the description node the same values as from_values.
    std::function<void(Fake_spec&)> fill_node;
    const char* bytes;
    // Names of AIDs 1, 2, ... in order.
    const char* aid_names;
    int walked_attributes;
};

std::string aid_names(const VT_obj& obj)
{
    std::string names;
    for (int aid = 1; aid < obj.get_num_attributes_by_aid(); ++aid) {
        Attribute* a = obj.get_attribute_by_aid(uint8_t(aid));
        names += (aid > 1 ? " " : "") + std::string(a && a->name ? a->name : "?");
    }
    return names;
}

// Serialised whole and in 1-byte pieces, the bytes are `expected` and num_bytes() counts them.
// Deserialised into a fresh object built from an empty node, they serialise again unchanged;
// cut short by one byte, they are refused.
void check_bytes(const Round_trip_case& c, VT_obj& obj, const Bytes& expected, const char* origin)
{
    SCOPED_TRACE(std::string(c.name) + " built from " + origin);
    Bytes whole = test::serialise_whole(obj);
    EXPECT_EQ(test::hex(whole), test::hex(expected));
    EXPECT_EQ(obj.num_bytes(), int(whole.size()));
    EXPECT_EQ(test::hex(test::serialise_in_pieces(obj, 1)), test::hex(whole));

    std::unique_ptr<VT_obj> fresh = c.from_node(new Fake_spec());
    fresh->set_id(obj.get_id());
    Bytes in(whole.begin() + 3, whole.end());
    Iso::Deserialise_results res;
    EXPECT_EQ(fresh->deserialise(0, in.data(), int(in.size()), &res), int(in.size()));
    EXPECT_EQ(res.flags, 0);
    EXPECT_EQ(test::hex(test::serialise_whole(*fresh)), test::hex(whole));

    test::Dprint_capture dprint;
    std::unique_ptr<VT_obj> short_of_one = c.from_node(new Fake_spec());
    Bytes cut(whole.begin() + 3, whole.end() - 1);
    EXPECT_EQ(short_of_one->deserialise(0, cut.data(), int(cut.size()), &res), -1);
    EXPECT_NE(dprint.text.find("Deser: "), std::string::npos);
}

}

TEST(Field_and_pointer_objects, round_trip_from_values_and_from_a_description)
{
    Reference_world refs;
    const Round_trip_case cases[] = {
        {"Input_boolean",
         [] {
             Attribute_event_macro m[] = {{4, 9}};
             return std::make_unique<Input_boolean_obj>(0x0107, "ib", 3, 0x0150, 0x0102, 0x1234, 1, 1, 1, m);
         },
         node_built<Input_boolean_obj>,
         [](Fake_spec& s) {
             s.set("background_colour", "3").set("width", "0x150").set("foreground_colour", "font");
             s.set("variable_reference", "var").set("value", "1").set("enabled", "1").add_child(macro("4", "9"));
         },
         "07 01 07 03 50 01 02 01 34 12 01 01 01 04 09",
         "background_colour width foreground_colour variable_reference value enabled", 8},
        {"Input_string",
         [] {
             static char text[] = "abc";
             return std::make_unique<Input_string_obj>(0x0108, "is", 100, 20, 5, 0x0102, 0x0103, 2, 65535, 1, 3,
                                                       text, 1, 0, nullptr);
         },
         node_built<Input_string_obj>,
         [](Fake_spec& s) {
             s.set("width", "100").set("height", "20").set("background_colour", "5").set("font_attributes", "font");
             s.set("input_attributes", "inattr").set("options", "2").set("variable_reference", "65535");
             s.set("horizontal_justification", "1").set("string", "abc").set("enabled", "1");
         },
         "08 01 08 64 00 14 00 05 02 01 03 01 02 FF FF 01 03 61 62 63 01 00",
         "width height background_colour font_attributes input_attributes options variable_reference "
         "horizontal_justification enabled",
         13},
        {"Input_number",
         [] {
             Attribute_event_macro m[] = {{1, 2}};
             return std::make_unique<Input_number_obj>(0x0109, "in", 80, 16, 1, 0x0102, 3, 0x1234, 0x01020304u, 0,
                                                       1000, -5, 0.5f, 2, 1, 2, 3, 1, m);
         },
         node_built<Input_number_obj>,
         [](Fake_spec& s) {
             s.set("width", "80").set("height", "16").set("background_colour", "1").set("font_attributes", "font");
             s.set("options", "3").set("variable_reference", "var").set("value", "0x01020304");
             s.set("min_value", "0").set("max_value", "1000").set("offset", "-5").set("scale", "0.5");
             s.set("no_decimals", "2").set("format", "1").set("horizontal_justification", "2");
             s.set("options2", "3").add_child(macro("1", "2"));
         },
         "09 01 09 50 00 10 00 01 02 01 03 34 12 04 03 02 01 00 00 00 00 E8 03 00 00 FB FF FF FF 00 00 00 3F "
         "02 01 02 03 01 01 02",
         "width height background_colour font_attributes options variable_reference min_value max_value offset "
         "scale no_decimals format horizontal_justification value options2",
         17},
        {"Input_list",
         [] {
             Attribute_object_id items[] = {{0x0201, "child_objects"}, {0x0202, "child_objects"}};
             Attribute_event_macro m[] = {{5, 6}};
             return std::make_unique<Input_list_obj>(0x010A, "il", 60, 30, 0x1234, 1, 2, 1, 1, items, m);
         },
         node_built<Input_list_obj>,
         [](Fake_spec& s) {
             s.set("width", "60").set("height", "30").set("variable_reference", "var").set("value", "1");
             s.set("options2", "1").add_child(item("item_a")).add_child(macro("5", "6")).add_child(item("item_b"));
         },
         "0A 01 0A 3C 00 1E 00 34 12 01 02 01 01 01 02 02 02 05 06",
         "width height variable_reference value options2", 9},
        {"Output_string",
         [] {
             static char text[] = "hi";
             return std::make_unique<Output_string_obj>(0x010B, "os", 100, 20, 2, 0x0102, 1, 65535, 4, 2, text, 0,
                                                        nullptr);
         },
         node_built<Output_string_obj>,
         [](Fake_spec& s) {
             s.set("width", "100").set("height", "20").set("background_colour", "2").set("font_attributes", "font");
             s.set("options", "1").set("horizontal_justification", "4").set("string", "hi");
         },
         "0B 01 0B 64 00 14 00 02 02 01 01 FF FF 04 02 00 68 69 00",
         "width height background_colour font_attributes options variable_reference horizontal_justification", 11},
        {"Output_number",
         [] {
             return std::make_unique<Output_number_obj>(0x010C, "on", 80, 16, 1, 0x0102, 4, 0x1234, 7, 100, 1.5f, 1,
                                                        0, 1, 0, nullptr);
         },
         node_built<Output_number_obj>,
         [](Fake_spec& s) {
             s.set("width", "80").set("height", "16").set("background_colour", "1").set("font_attributes", "font");
             s.set("options", "4").set("variable_reference", "var").set("value", "7").set("offset", "100");
             s.set("scale", "1.5").set("no_decimals", "1").set("format", "0").set("horizontal_justification", "1");
         },
         "0C 01 0C 50 00 10 00 01 02 01 04 34 12 07 00 00 00 64 00 00 00 00 00 C0 3F 01 00 01 00",
         "width height background_colour font_attributes options variable_reference offset scale no_decimals "
         "format horizontal_justification value",
         14},
        {"Output_list",
         [] {
             Attribute_object_id items[] = {{0x0201, "child_objects"}, {0x0202, "child_objects"}};
             Attribute_event_macro m[] = {{7, 8}};
             return std::make_unique<Output_list_obj>(0x0125, "ol", 60, 30, 0x1234, 0, 2, 1, items, m);
         },
         node_built<Output_list_obj>,
         [](Fake_spec& s) {
             s.set("width", "60").set("height", "30").set("variable_reference", "var").set("value", "0");
             s.add_child(macro("7", "8")).add_child(item("item_a")).add_child(item("item_b"));
         },
         "25 01 25 3C 00 1E 00 34 12 00 02 01 01 02 02 02 07 08", "width height variable_reference value", 8},
        {"Meter",
         [] {
             return std::make_unique<Meter_obj>(0x0111, "m", 120, 1, 2, 3, 5, 10, 30, 150, 0, 200, 0x1234, 50, 0,
                                                nullptr);
         },
         node_built<Meter_obj>,
         [](Fake_spec& s) {
             s.set("width", "120").set("needle_colour", "1").set("border_colour", "2").set("arc_and_tick_colour", "3");
             s.set("options", "5").set("no_ticks", "10").set("start_angle", "30").set("end_angle", "150");
             s.set("min_value", "0").set("max_value", "200").set("variable_reference", "var").set("value", "50");
         },
         "11 01 11 78 00 01 02 03 05 0A 1E 96 00 00 C8 00 34 12 32 00 00",
         "width needle_colour border_colour arc_and_tick_colour options no_ticks start_angle end_angle min_value "
         "max_value variable_reference value",
         14},
        {"Linear_bar_graph",
         [] {
             Attribute_event_macro m[] = {{1, 3}};
             return std::make_unique<Linear_bar_graph_obj>(0x0112, "lb", 20, 100, 4, 5, 9, 3, 0, 1000, 0x1234, 10,
                                                           0x0201, 500, 1, m);
         },
         node_built<Linear_bar_graph_obj>,
         [](Fake_spec& s) {
             s.set("width", "20").set("height", "100").set("fill_colour", "4").set("target_line_colour", "5");
             s.set("options", "9").set("no_ticks", "3").set("min_value", "0").set("max_value", "1000");
             s.set("variable_reference", "var").set("value", "10").set("target_variable_reference", "item_a");
             s.set("target_value", "500").add_child(macro("1", "3"));
         },
         "12 01 12 14 00 64 00 04 05 09 03 00 00 E8 03 34 12 0A 00 01 02 F4 01 01 01 03",
         "width height fill_colour target_line_colour options no_ticks min_value max_value variable_reference "
         "value target_variable_reference target_value",
         14},
        {"Arched_bar_graph",
         [] {
             return std::make_unique<Arched_bar_graph_obj>(0x0113, "ab", 100, 100, 6, 7, 17, 10, 170, 12, 0, 100,
                                                           0x1234, 40, 0x0201, 60, 0, nullptr);
         },
         node_built<Arched_bar_graph_obj>,
         [](Fake_spec& s) {
             s.set("width", "100").set("height", "100").set("fill_colour", "6").set("target_line_colour", "7");
             s.set("options", "17").set("start_angle", "10").set("end_angle", "170").set("bar_graph_width", "12");
             s.set("min_value", "0").set("max_value", "100").set("variable_reference", "var").set("value", "40");
             s.set("target_value_reference", "item_a").set("target_value", "60");
         },
         "13 01 13 64 00 64 00 06 07 11 0A AA 0C 00 00 00 64 00 34 12 28 00 01 02 3C 00 00",
         "width height fill_colour target_line_colour options start_angle end_angle bar_graph_width min_value "
         "max_value variable_reference value target_value_reference target_value",
         16},
        {"Macro",
         [] {
             static unsigned char commands[] = {0xA0, 0x05};
             return std::make_unique<Macro_obj>(0x011C, "mac", 2, commands);
         },
         node_built<Macro_obj>, [](Fake_spec& s) { s.set("bytes", "\xA0\x05"); }, "1C 01 1C 02 00 A0 05", "", 2},
        {"Object_pointer_base",
         [] { return std::make_unique<Object_pointer_base_obj>(0x011B, "opb", 0x0201); },
         node_built<Object_pointer_base_obj>, [](Fake_spec& s) { s.set("value", "item_a"); }, "1B 01 1B 01 02",
         "value", 1},
        {"Object_pointer",
         [] {
             static unsigned short dynamic[] = {0x0201, 0x0202};
             return std::make_unique<Object_pointer_obj>(0x011D, "op", 2, dynamic, 0x0202);
         },
         node_built<Object_pointer_obj>, [](Fake_spec& s) { s.set("value", "item_b"); }, "1D 01 1B 02 02", "value",
         3},
        {"Object_labelref_list",
         [] {
             Attribute_labelref labels[] = {{0x0201, 0x1234, 2, 0x0102}};
             return std::make_unique<Object_labelref_list_obj>(0x0128, "ll", 1, labels);
         },
         node_built<Object_labelref_list_obj>,
         [](Fake_spec& s) {
             s.add_child(Fake_spec("Labelref")
                             .set("labelled_object", "item_a")
                             .set("string_variable", "var")
                             .set("font_type", "2")
                             .set("graphic_representation", "font"));
         },
         "28 01 28 01 00 01 02 34 12 02 02 01", "num_labelrefs", 2},
        {"External_object_definition",
         [] {
             Attribute_object_id items[] = {{0x0201, "child_objects"}, {0x0202, "child_objects"}};
             return std::make_unique<External_object_definition_obj>(0x0129, "eod", 1, 0x11223344u, 0x55667788u, 2,
                                                                     items);
         },
         node_built<External_object_definition_obj>,
         [](Fake_spec& s) {
             s.set("options", "1").set("name0", "0x11223344").set("name1", "0x55667788");
             s.add_child(item("item_a")).add_child(item("item_b"));
         },
         "29 01 29 01 44 33 22 11 88 77 66 55 02 01 02 02 02", "options name0 name1", 5},
        // The 64-bit name travels as name0 then name1, each little-endian.
        {"External_reference_name",
         [] { return std::make_unique<External_reference_name_obj>(0x012A, "ern", 1, 1, 2); },
         node_built<External_reference_name_obj>,
         [](Fake_spec& s) { s.set("options", "1").set("name0", "1").set("name1", "2"); },
         "2A 01 2A 01 01 00 00 00 02 00 00 00", "options name0 name1", 3},
        {"External_object_pointer",
         [] { return std::make_unique<External_object_pointer_obj>(0x012B, "eop", 0x0201, 0x012A, 65535); },
         node_built<External_object_pointer_obj>,
         [](Fake_spec& s) {
             s.set("default_object_id", "item_a").set("external_reference_name_id", "ern").set("value", "65535");
         },
         "2B 01 2B 01 02 2A 01 FF FF", "default_object_id external_reference_name_id value", 3},
    };

    for (const Round_trip_case& c : cases) {
        SCOPED_TRACE(c.name);
        Bytes expected = from_hex(c.bytes);

        std::unique_ptr<VT_obj> by_value = c.from_values();
        EXPECT_EQ(by_value->get_ctype(), by_value->get_type());
        EXPECT_EQ(aid_names(*by_value), c.aid_names);
        EXPECT_EQ(by_value->get_num_every_attribute(), c.walked_attributes);
        check_bytes(c, *by_value, expected, "values");

        Fake_spec node = refs.node();
        c.fill_node(node);
        std::unique_ptr<VT_obj> by_node = c.from_node(new Fake_spec(node));
        by_node->set_id(by_value->get_id());
        {
            test::Stream_capture out(std::cout), err(std::cerr);
            by_node->set_by_spec(SCALE_AREA_NONE);
            // Every name in the description was found: no warnings.
            EXPECT_EQ(err.str(), "");
        }
        check_bytes(c, *by_node, expected, "a description");
    }
}

TEST(Input_output_fields, description_defaults_keep_the_most_negative_offset)
{
    test::Stream_capture err(std::cerr);
    Input_number_obj input(new Fake_spec());
    input.set_by_spec(SCALE_AREA_NONE);
    input.set_id(0x0009);
    // offset 00 00 00 80 after value, min and max; scale 0.0; ids NULL.
    EXPECT_EQ(test::hex(test::serialise_whole(input)),
              "09 00 09 00 00 00 00 00 FF FF 00 FF FF 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 80 "
              "00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(input.get_offset(), std::numeric_limits<int32_t>::min());

    Output_number_obj output(new Fake_spec());
    output.set_by_spec(SCALE_AREA_NONE);
    output.set_id(0x000C);
    EXPECT_EQ(test::hex(test::serialise_whole(output)),
              "0C 00 0C 00 00 00 00 00 FF FF 00 FF FF 00 00 00 00 00 00 00 80 00 00 00 00 00 00 00 00");
    EXPECT_EQ(output.get_scale(), 0.0f);

    // The input boolean's foreground colour is an object reference: two bytes, NULL by default.
    Input_boolean_obj boolean(new Fake_spec());
    EXPECT_EQ(boolean.get_foreground_colour(), 65535);
    EXPECT_EQ(boolean.num_bytes(), 13);
    EXPECT_EQ(err.str(), "");
}

TEST(Input_output_fields, options2_is_addressed_as_15_and_not_set_through_the_input_side)
{
    Input_list_obj list(1, "il", 10, 10, 65535, 0, 0, 2, 0, nullptr, nullptr);
    Input_number_obj number(2, "in", 10, 10, 0, 65535, 0, 65535, 0, 0, 0, 0, 1.0f, 0, 0, 0, 1, 0, nullptr);
    Input_obj_base* inputs[] = {&list, &number};
    for (Input_obj_base* input : inputs) {
        EXPECT_EQ(input->get_options2_aid(), 15);
        unsigned char before = input->get_options2();
        input->set_options2(3);
        EXPECT_EQ(input->get_options2(), before);
    }
    EXPECT_EQ(inputs[0]->get_options2(), 2);
    EXPECT_EQ(inputs[1]->get_options2(), 1);
    EXPECT_EQ(inputs[0]->get_vt_obj(), static_cast<VT_obj*>(&list));
    EXPECT_EQ(inputs[1]->get_vt_obj(), static_cast<VT_obj*>(&number));
    // The list's own table still gives options 2 the AID 5.
    EXPECT_STREQ(list.get_attribute_by_aid(5)->name, "options2");
    EXPECT_EQ(list.get_attribute_by_aid(15), nullptr);
    EXPECT_STREQ(number.get_attribute_by_aid(15)->name, "options2");

    Output_list_obj output(3, "ol", 10, 10, 65535, 0, 0, 0, nullptr, nullptr);
    EXPECT_EQ(output.get_options2_aid(), 255);
    EXPECT_EQ(output.get_vt_obj(), static_cast<VT_obj*>(&output));
}

TEST(Input_output_fields, strings_lengths_and_accessors)
{
    // The output string's length takes two bytes: 300 characters give 2C 01.
    std::string long_text(300, 'x');
    long_text[299] = 'z';
    Output_string_obj output(0x0B, "os", 100, 20, 0, 65535, 0, 65535, 0, 300, &long_text[0], 0, nullptr);
    Bytes bytes = test::serialise_whole(output);
    ASSERT_EQ(bytes.size(), 317u);
    EXPECT_EQ(bytes[14], 0x2C);
    EXPECT_EQ(bytes[15], 0x01);
    EXPECT_EQ(bytes[315], 'z');
    String_base received;
    output.get_string(received);
    EXPECT_EQ(received.get(), long_text);

    // The input string's length is one byte.
    char text[] = "hello";
    Input_string_obj input(8, "is", 10, 10, 0, 65535, 65535, 0, 65535, 0, 5, text, 0, 0, nullptr);
    EXPECT_EQ(input.num_bytes(), 3 + 15 + 1 + 5);
    EXPECT_EQ(input.get_length(), 5);
    EXPECT_EQ(input.get_string(1), 'e');
    EXPECT_EQ(input.get_string(5), '\0');
    char out[8] = {};
    EXPECT_EQ(input.get_string(3, out, 10), 1);
    EXPECT_STREQ(out, "lo");
    EXPECT_EQ(input.get_string(5, out, 10), 0);

    // A string read from bytes is handed on whole; a length that the bytes do not hold is refused.
    Output_string_obj read(new Fake_spec());
    Bytes in = from_hex("00 00 00 00 00 FF FF 00 FF FF 00 03 00 61 62 63 00");
    Iso::Deserialise_results res;
    ASSERT_EQ(read.deserialise(0, in.data(), int(in.size()), &res), int(in.size()));
    read.get_string(received);
    EXPECT_EQ(received.get(), "abc");
    test::Dprint_capture dprint;
    Bytes too_long = from_hex("00 00 00 00 00 FF FF 00 FF FF 00 FF FF 61 62 63 00");
    EXPECT_EQ(read.deserialise(0, too_long.data(), int(too_long.size()), &res), -1);
    read.get_string(received);
    EXPECT_LE(received.get().size(), 3u);
}

TEST(Input_output_fields, scaling_takes_the_font_along_and_reaches_the_size)
{
    Input_number_obj number(2, "in", 80, 16, 0, 0x0102, 0, 65535, 0, 0, 0, 0, 1.0f, 0, 0, 0, 0, 0, nullptr);
    Output_string_obj text(5, "os", 10, 10, 0, 0x0105, 0, 65535, 0, 0, nullptr, 0, nullptr);
    Output_list_obj list(6, "ol", 10, 10, 65535, 0, 0, 0, nullptr, nullptr);
    EXPECT_EQ(number.__get_scaling_child(), 0x0102);
    EXPECT_EQ(text.__get_scaling_child(), 0x0105);
    EXPECT_EQ(list.__get_scaling_child(), uint16_t(VT_obj::NULL_ID));

    number.set_scale(3, 1, 2, 2);
    EXPECT_EQ(number.get_width(), 120);
    EXPECT_EQ(number.get_height(), 8);
    // The input boolean has a width only.
    Input_boolean_obj boolean(7, "ib", 0, 40, 65535, 65535, 0, 0, 0, nullptr);
    EXPECT_EQ(boolean.get_height(), 0);
}

TEST(Input_output_fields, printing_and_source_of_a_list_object)
{
    Reference_world refs;
    Fake_spec node = refs.node();
    node.set("width", "60").set("height", "30").set("variable_reference", "var");
    node.add_child(item("item_a")).add_child(macro("7", "8")).add_child(item("item_b"));
    Output_list_obj list(new Fake_spec(node));
    list.set_by_spec(SCALE_AREA_NONE);
    list.set_id(293);
    list.set_name("ol");

    std::ostringstream printed;
    list.print_me(printed, 0);
    EXPECT_EQ(printed.str(), "Output_list(293)\n"
                             "  Type: 1\tName: width Value: 60\n"
                             "  Type: 1\tName: height Value: 30\n"
                             "  Type: 23\tName: variable_reference id: 4660\n"
                             "  Type: 0\tName: value Value: 0\n"
                             "  Type: 17\tName: num_list_items Value: 2\n"
                             "  Type: 17\tName: num_macros Value: 1\n"
                             "  Type: 10\tName: child_objects With 2 items\n"
                             "    Type: 23\tName: child_objects id: 513\n"
                             "    Type: 23\tName: child_objects id: 514\n"
                             "  Type: 10\tName: event_macro With 1 items\n");

    std::ostringstream def, init, body;
    list.get_code_def(def, 0);
    list.get_code_init(init, 0);
    list.get_code_body(body, 0);
    EXPECT_EQ(def.str(), "/*ol*/Attribute_object_id ol_child_objects[2];\n"
                         "Attribute_event_macro ol_event_macro[1];\n"
                         "Output_list_obj ol;\n");
    EXPECT_EQ(init.str(), "ol(Oids::ol, \"ol\", 60U, 30U, Oids::var, 0U, 2, 1, ol_child_objects, ol_event_macro)");
    EXPECT_EQ(body.str(), "ol_child_objects[0] =/*ol*/Attribute_object_id(Oids::item_a,\"child_objects\");\n"
                          "ol_child_objects[1] =/*ol*/Attribute_object_id(Oids::item_b,\"child_objects\");\n"
                          "ol_event_macro[0] =Attribute_event_macro(7,8);\n");
}

TEST(Input_output_fields, printing_and_source_of_a_string_and_a_number)
{
    char text[] = "hi";
    Output_string_obj string(267, "os", 100, 20, 2, 65535, 1, 65535, 4, 2, text, 0, nullptr);
    std::ostringstream printed, def, init, body;
    string.print_me(printed, 1);
    EXPECT_EQ(printed.str(), "  Output_string(267)\n"
                             "    Type: 1\tName: width Value: 100\n"
                             "    Type: 1\tName: height Value: 20\n"
                             "    Type: 9\tName: background_colour Value: 2\n"
                             "    Type: 23\tName: font_attributes id: 65535\n"
                             "    Type: 0\tName: options Value: 1\n"
                             "    Type: 23\tName: variable_reference id: 65535\n"
                             "    Type: 0\tName: horizontal_justification Value: 4\n"
                             "    Type: 17\tName: length Value: 2\n"
                             "    Type: 13\tName: string Value: hi\n"
                             "    Type: 17\tName: num_macros Value: 0\n"
                             "    Type: 10\tName: event_macro With 0 items\n");
    string.get_code_def(def, 0);
    string.get_code_init(init, 0);
    string.get_code_body(body, 0);
    EXPECT_EQ(def.str(), "char_t os_string[2];\nOutput_string_obj os;\n");
    EXPECT_EQ(init.str(), "os(Oids::os, \"os\", 100U, 20U, 2U, VT_obj::NULL_ID, 1U, VT_obj::NULL_ID, 4U, 2, "
                          "os_string, 0, NULL)");
    EXPECT_EQ(body.str(), "static const char_t _os_string[] = {104,105};\n"
                          "memcpy((void*)os_string,(const void*)_os_string, 2 * sizeof(char_t));\n");

    Output_number_obj number(268, "on", 80, 16, 1, 65535, 4, 65535, 7, -100, 1.5f, 1, 0, 1, 0, nullptr);
    std::ostringstream number_printed, number_init;
    number.print_me(number_printed, 0);
    EXPECT_NE(number_printed.str().find("  Type: 2\tName: value Value: 7\n"
                                        "  Type: 6\tName: offset Value: -100\n"
                                        "  Type: 8\tName: scale Value: 1.5\n"),
              std::string::npos)
        << number_printed.str();
    number.get_code_init(number_init, 0);
    EXPECT_EQ(number_init.str(), "on(Oids::on, \"on\", 80U, 16U, 1U, VT_obj::NULL_ID, 4U, VT_obj::NULL_ID, 7U, -100, "
                                 "1.5, 1U, 0U, 1U, 0, NULL)");
}
