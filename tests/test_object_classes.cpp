// Every object class of the masks, attribute objects and shapes, driven from one table:
// built from values and from a description, serialised whole and in pieces, read back into a
// fresh object and serialised again.

#include <functional>

#include "mask_test_support.h"

using namespace VT;
using namespace VT::Base;
using test::Bytes;
using test::Fake_spec;

namespace {

struct Class_case
{
    const char* name;
    unsigned type;
    std::vector<const char*> aid_names; // AIDs 1.. in order
    uint8_t every_count;
    std::function<std::unique_ptr<VT_obj>()> from_values;
    std::function<std::unique_ptr<VT_obj>(Spec_node*)> construct; // the constructor from a description node
    std::function<Fake_spec(const test::Pool_names&)> description;
    const char* bytes;           // of the object built from values
    const char* described_bytes; // of the object built from the description, when it differs
};

template <class T>
std::function<std::unique_ptr<VT_obj>(Spec_node*)> constructed()
{
    return [](Spec_node* s) -> std::unique_ptr<VT_obj> { return std::make_unique<T>(s); };
}

// Builds the object from a description as the host does: id and name first, then the values.
std::unique_ptr<VT_obj> build_from_node(const Class_case& c, const Fake_spec& node, uint16_t id)
{
    std::unique_ptr<VT_obj> obj = c.construct(new Fake_spec(node));
    obj->set_id(id);
    obj->set_name("described");
    obj->set_by_spec(SCALE_AREA_NONE);
    return obj;
}

test::Pool_names make_world()
{
    test::Pool_names w;
    w.name("mask", 10).name("keys", 11).name("key1", 40).name("key2", 41).name("name_str", 70).name("icon", 71);
    w.name("line_attr", 81).name("fill", 82).name("pic", 90);
    // Placements resolve names without asking for the object.
    w.world->ids["cont"] = 20;
    w.world->ids["alarm_child"] = 21;
    w.world->ids["child30"] = 30;
    return w;
}

Attribute_object_placement one_placement[] = {{20, 5, -3}};
Attribute_object_placement two_placements[] = {{20, 10, 20}, {30, 100, 50}};
Attribute_object_placement alarm_placement[] = {{21, 1, 2}};
Attribute_object_placement child30_at_4[] = {{30, 4, 4}};
Attribute_object_placement child30_at_0[] = {{30, 0, 0}};
Attribute_object_placement child30_at_2_3[] = {{30, 2, 3}};
Attribute_event_macro macro_1_30[] = {{1, 30}};
Attribute_event_macro macro_5_6[] = {{5, 6}};
Attribute_event_macro macro_2_3[] = {{2, 3}};
Attribute_event_macro macro_7_8[] = {{7, 8}};
Attribute_event_macro macro_1_2[] = {{1, 2}};
Attribute_event_macro macro_9_10[] = {{9, 10}};
Attribute_object_id two_keys[] = {{40, "child_objects"}, {41, "child_objects"}};
Attribute_code_plane_range latin[] = {{0x20, 0x7E}, {0xA0, 0xFF}};
Attribute_code_plane_range plane1[] = {{0x100, 0x1FF}};
Attribute_point three_points[] = {{10, 20}, {300, 5}, {0, 200}};
char digits[] = "0123";

std::vector<Class_case> class_cases()
{
    return {
        {"Working_set", 0, {"background_colour", "selectable", "active_mask"}, 9,
         [] { return std::make_unique<Working_set_obj>(1, "ws", 7, 1, 10, 1, 1, 0, one_placement, macro_1_30, nullptr); },
         constructed<Working_set_obj>(),
         [](const test::Pool_names& w) {
             return w.node().set("background_colour", "silver").set("selectable", "1").set("active_mask", "mask")
                 .add_child(test::placement_node("cont", 5, -3)).add_child(test::macro_node(1, 30));
         },
         "01 00 00 07 01 0A 00 01 01 00 14 00 05 00 FD FF 01 1E", nullptr},
        {"Data_mask", 1, {"background_colour", "soft_key_mask"}, 6,
         [] { return std::make_unique<Data_mask_obj>(10, "dm", 1, 11, 2, 0, two_placements, nullptr); },
         constructed<Data_mask_obj>(),
         [](const test::Pool_names& w) {
             return w.node().set("background_colour", "white").set("soft_key_mask", "keys")
                 .add_child(test::placement_node("cont", 10, 20)).add_child(test::placement_node("child30", 100, 50));
         },
         "0A 00 01 01 0B 00 02 00 14 00 0A 00 14 00 1E 00 64 00 32 00", nullptr},
        {"Alarm_mask", 2, {"background_colour", "soft_key_mask", "priority", "acoustic_signal"}, 8,
         [] { return std::make_unique<Alarm_mask_obj>(12, "am", 12, 11, 1, 2, 1, 1, alarm_placement, macro_5_6); },
         constructed<Alarm_mask_obj>(),
         [](const test::Pool_names& w) {
             return w.node().set("background_colour", "red").set("soft_key_mask", "keys").set("priority", "1")
                 .set("acoustic_signal", "2").add_child(test::placement_node("alarm_child", 1, 2))
                 .add_child(test::macro_node(5, 6));
         },
         "0C 00 02 0C 0B 00 01 02 01 01 15 00 01 00 02 00 05 06", nullptr},
        {"Container", 3, {"width", "height", "hidden"}, 7,
         [] { return std::make_unique<Container_obj>(20, "c", 120, 60, 0, 1, 1, child30_at_4, macro_2_3); },
         constructed<Container_obj>(),
         [](const test::Pool_names& w) {
             return w.node().set("width", "120").set("height", "60").set("hidden", "0")
                 .add_child(test::placement_node("child30", 4, 4)).add_child(test::macro_node(2, 3));
         },
         "14 00 03 78 00 3C 00 00 01 01 1E 00 04 00 04 00 02 03", nullptr},
        {"Soft_key_mask", 4, {"background_colour"}, 5,
         [] { return std::make_unique<Soft_key_mask_obj>(11, "skm", 3, 2, 0, two_keys, nullptr); },
         constructed<Soft_key_mask_obj>(),
         [](const test::Pool_names& w) {
             return w.node().set("background_colour", "3").add_child(test::reference_node("key1"))
                 .add_child(test::reference_node("key2"));
         },
         "0B 00 04 03 02 00 28 00 29 00", nullptr},
        {"Key", 5, {"background_colour", "key_code"}, 6,
         [] { return std::make_unique<Key_obj>(40, "k", 8, 5, 1, 1, child30_at_0, macro_7_8); },
         constructed<Key_obj>(),
         [](const test::Pool_names& w) {
             return w.node().set("background_colour", "grey").set("key_code", "5")
                 .add_child(test::placement_node("child30", 0, 0)).add_child(test::macro_node(7, 8));
         },
         "28 00 05 08 05 01 01 1E 00 00 00 00 00 07 08", nullptr},
        {"Button", 6, {"width", "height", "background_colour", "border_colour", "key_code", "options"}, 10,
         [] { return std::make_unique<Button_obj>(50, "b", 100, 40, 2, 0, 0, 1, 1, 0, child30_at_2_3, nullptr); },
         constructed<Button_obj>(),
         [](const test::Pool_names& w) {
             return w.node().set("width", "100").set("height", "40").set("background_colour", "green")
                 .set("border_colour", "black").set("key_code", "0").set("options", "1")
                 .add_child(test::placement_node("child30", 2, 3));
         },
         "32 00 06 64 00 28 00 02 00 00 01 01 00 1E 00 02 00 03 00", nullptr},
        {"Key_group", 35, {"options", "group_name"}, 7,
         [] { return std::make_unique<Key_group_obj>(60, "kg", 1, 70, 71, 2, 0, two_keys, nullptr); },
         constructed<Key_group_obj>(),
         [](const test::Pool_names& w) {
             return w.node().set("options", "1").set("group_name", "name_str").set("key_group_icon", "icon")
                 .add_child(test::reference_node("key1")).add_child(test::reference_node("key2"));
         },
         "3C 00 23 01 46 00 47 00 02 00 28 00 29 00", nullptr},
        {"Font_attributes", 23, {"font_colour", "font_size", "font_type", "font_style"}, 6,
         [] { return std::make_unique<Font_attributes_obj>(80, "fa", 12, 5, 0, 3, 1, macro_1_2); },
         constructed<Font_attributes_obj>(),
         [](const test::Pool_names& w) {
             return w.node().set("font_colour", "red").set("font_size", "5").set("font_type", "0")
                 .set("font_style", "3").add_child(test::macro_node(1, 2));
         },
         "50 00 17 0C 05 00 03 01 01 02", nullptr},
        {"Line_attributes", 24, {"line_colour", "line_width", "line_art"}, 5,
         [] { return std::make_unique<Line_attributes_obj>(81, "la", 9, 3, 0xF0F0, 0, nullptr); },
         constructed<Line_attributes_obj>(),
         [](const test::Pool_names& w) {
             return w.node().set("line_colour", "blue").set("line_width", "3").set("line_art", "0xF0F0");
         },
         "51 00 18 09 03 F0 F0 00", nullptr},
        {"Fill_attributes", 25, {"fill_type", "fill_colour", "fill_pattern"}, 5,
         [] { return std::make_unique<Fill_attributes_obj>(82, "fi", 2, 14, 90, 0, nullptr); },
         constructed<Fill_attributes_obj>(),
         [](const test::Pool_names& w) {
             return w.node().set("fill_type", "2").set("fill_colour", "yellow").set("fill_pattern", "pic");
         },
         "52 00 19 02 0E 5A 00 00", nullptr},
        {"Input_attributes", 26, {"validation_type"}, 5,
         [] { return std::make_unique<Input_attributes_obj>(83, "ia", 1, 4, digits, 1, macro_9_10); },
         constructed<Input_attributes_obj>(),
         [](const test::Pool_names& w) {
             return w.node().set("validation_type", "1").set("string", "0123").add_child(test::macro_node(9, 10));
         },
         "53 00 1A 01 04 30 31 32 33 01 09 0A", nullptr},
        {"Extended_input_attributes", 38, {"validation_type"}, 3,
         [] {
             Attribute_code_plane_rangeset sets[] = {{0, 2, latin}, {1, 1, plane1}};
             return std::make_unique<Extended_input_attributes_obj>(84, "eia", 0, 2, sets);
         },
         constructed<Extended_input_attributes_obj>(),
         // Code-plane ranges never come from a description.
         [](const test::Pool_names& w) { return w.node().set("validation_type", "1"); },
         "54 00 26 00 02 00 02 20 00 7E 00 A0 00 FF 00 01 01 00 01 FF 01", "54 00 26 01 00"},
        {"Line", 13, {"line_attributes", "width", "height", "line_direction"}, 6,
         [] { return std::make_unique<Line_obj>(100, "l", 81, 50, 20, 1, 0, nullptr); },
         constructed<Line_obj>(),
         [](const test::Pool_names& w) {
             return w.node().set("line_attributes", "line_attr").set("width", "50").set("height", "20")
                 .set("line_direction", "1");
         },
         "64 00 0D 51 00 32 00 14 00 01 00", nullptr},
        {"Rectangle", 14, {"line_attributes", "width", "height", "line_suppression", "fill_attributes"}, 7,
         [] { return std::make_unique<Rectangle_obj>(101, "r", 81, 30, 40, 5, 82, 1, macro_1_2); },
         constructed<Rectangle_obj>(),
         [](const test::Pool_names& w) {
             return w.node().set("line_attributes", "line_attr").set("width", "30").set("height", "40")
                 .set("line_suppression", "5").set("fill_attributes", "fill").add_child(test::macro_node(1, 2));
         },
         "65 00 0E 51 00 1E 00 28 00 05 52 00 01 01 02", nullptr},
        {"Ellipse", 15,
         {"line_attributes", "width", "height", "ellipse_type", "start_angle", "end_angle", "fill_attributes"}, 9,
         [] { return std::make_unique<Ellipse_obj>(102, "e", 81, 60, 30, 2, 10, 170, 82, 0, nullptr); },
         constructed<Ellipse_obj>(),
         [](const test::Pool_names& w) {
             return w.node().set("line_attributes", "line_attr").set("width", "60").set("height", "30")
                 .set("ellipse_type", "2").set("start_angle", "10").set("end_angle", "170")
                 .set("fill_attributes", "fill");
         },
         "66 00 0F 51 00 3C 00 1E 00 02 0A AA 52 00 00", nullptr},
        {"Polygon", 16, {"width", "height", "line_attributes", "fill_attributes", "polygon_type"}, 9,
         [] { return std::make_unique<Polygon_obj>(103, "p", 300, 200, 81, 82, 1, 3, 0, three_points, nullptr); },
         constructed<Polygon_obj>(),
         [](const test::Pool_names& w) {
             return w.node().set("width", "300").set("height", "200").set("line_attributes", "line_attr")
                 .set("fill_attributes", "fill").set("polygon_type", "1").add_child(test::point_node(10, 20))
                 .add_child(test::point_node(300, 5)).add_child(test::point_node(0, 200));
         },
         "67 00 10 2C 01 C8 00 51 00 52 00 01 03 00 0A 00 14 00 2C 01 05 00 00 00 C8 00", nullptr},
    };
}

// Serialises `obj` whole and in 1- and 3-byte pieces, checks they agree and the size.
Bytes serialise_checked(VT_obj& obj, const char* what)
{
    Bytes whole = test::serialise_whole(obj);
    EXPECT_EQ(int(whole.size()), obj.num_bytes()) << what;
    EXPECT_EQ(test::hex(test::serialise_in_pieces(obj, 1)), test::hex(whole)) << what;
    EXPECT_EQ(test::hex(test::serialise_in_pieces(obj, 3)), test::hex(whole)) << what;
    return whole;
}

}

TEST(Object_classes, round_trip_through_their_byte_form)
{
    test::Pool_names world = make_world();
    test::Dprint_capture quiet;
    for (const Class_case& c : class_cases()) {
        SCOPED_TRACE(c.name);
        std::unique_ptr<VT_obj> by_values = c.from_values();
        Bytes bytes = serialise_checked(*by_values, "from values");
        EXPECT_EQ(test::hex(bytes), c.bytes);

        std::unique_ptr<VT_obj> described = build_from_node(c, c.description(world), by_values->get_id());
        Bytes described_bytes = serialise_checked(*described, "described");
        EXPECT_EQ(test::hex(described_bytes), c.described_bytes ? c.described_bytes : c.bytes);

        for (const Bytes& source : {bytes, described_bytes}) {
            std::unique_ptr<VT_obj> fresh = c.construct(nullptr);
            ASSERT_EQ(test::deserialise_bytes(*fresh, source), int(source.size()) - 3);
            EXPECT_EQ(test::hex(serialise_checked(*fresh, "read back")), test::hex(source));
        }
    }
}

TEST(Object_classes, attribute_tables_follow_the_attribute_ids)
{
    for (const Class_case& c : class_cases()) {
        SCOPED_TRACE(c.name);
        std::unique_ptr<VT_obj> obj = c.from_values();
        EXPECT_EQ(obj->get_ctype(), c.type);
        EXPECT_EQ(obj->get_type(), c.type);
        EXPECT_EQ(obj->get_num_attributes_by_aid(), c.aid_names.size() + 1);
        EXPECT_EQ(obj->get_num_every_attribute(), c.every_count);
        Attribute* type_attribute = obj->get_attribute_by_aid(0);
        ASSERT_NE(type_attribute, nullptr);
        EXPECT_STREQ(type_attribute->name, "type");
        EXPECT_EQ(static_cast<Attribute_uint8*>(type_attribute)->get(), c.type);
        for (size_t aid = 1; aid <= c.aid_names.size(); ++aid) {
            Attribute* a = obj->get_attribute_by_aid(uint8_t(aid));
            ASSERT_NE(a, nullptr) << aid;
            EXPECT_STREQ(a->name, c.aid_names[aid - 1]) << aid;
            int whole = obj->get_attribute_whole_id(int(aid));
            ASSERT_GE(whole, 0) << aid;
            EXPECT_EQ(obj->get_every_attribute(uint16_t(whole)), a);
        }
        // The slot after the last AID is the null one.
        EXPECT_EQ(obj->get_attribute_whole_id(int(c.aid_names.size()) + 1), -1);
        EXPECT_EQ(obj->get_every_attribute(c.every_count), nullptr);
    }
}

TEST(Object_classes, short_input_is_refused_without_reading_past_it)
{
    test::Dprint_capture captured;
    for (const Class_case& c : class_cases()) {
        SCOPED_TRACE(c.name);
        Bytes bytes = test::serialise_whole(*c.from_values());
        int attributes = int(bytes.size()) - 3;
        for (int len = 0; len < attributes; ++len) {
            // An exact-size heap copy, so that any read past it is caught.
            std::unique_ptr<uint8_t[]> input(new uint8_t[size_t(len)]);
            std::copy(bytes.begin() + 3, bytes.begin() + 3 + len, input.get());
            std::unique_ptr<VT_obj> fresh = c.construct(nullptr);
            Iso::Deserialise_results res;
            EXPECT_EQ(fresh->deserialise(0, input.get(), len, &res), -1) << "len " << len;
        }
    }
    EXPECT_NE(captured.text.find("Deser: "), std::string::npos);
}
