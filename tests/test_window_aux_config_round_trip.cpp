// Byte round trips of the window, palette, auxiliary, field and configuration objects: each
// class is built once from values and once from a description node describing the same object; both must
// give the expected bytes, whole and in 1-byte pieces, and the bytes must read back into a
// fresh object that writes them out again unchanged.

#include "test_support.h"

#include <functional>

using namespace VT;
using namespace VT::Base;
using test::Bytes;
using test::Fake_spec;

namespace {

// Objects that the rows refer to by name.
struct Targets
{
    Number_variable_obj a{0x0101, "a", 0};
    Number_variable_obj b{0x0202, "b", 0};
    Number_variable_obj c{0x0303, "c", 0};

    std::shared_ptr<Fake_spec::World> world()
    {
        auto w = std::make_shared<Fake_spec::World>();
        for (VT_obj* o : {(VT_obj*)&a, (VT_obj*)&b, (VT_obj*)&c}) {
            w->ids[o->get_name()] = o->get_id();
            w->objects[o->get_name()] = o;
        }
        return w;
    }
};

Fake_spec child(const char* element, std::map<std::string, std::string> values)
{
    Fake_spec s(element);
    s.values = std::move(values);
    return s;
}

Fake_spec macro(int event, int macro_id)
{
    return child("Event_macro", {{"event_id", std::to_string(event)}, {"macro_id", std::to_string(macro_id)}});
}

Fake_spec placed(const char* object, int x, int y)
{
    return child("Object", {{"object", object}, {"x_location", std::to_string(x)}, {"y_location", std::to_string(y)}});
}

Bytes from_hex(const std::string& text)
{
    Bytes out;
    for (size_t i = 0; i < text.size(); i += 3)
        out.push_back(uint8_t(std::stoul(text.substr(i, 2), nullptr, 16)));
    return out;
}

struct Row
{
    const char* label;
    std::function<std::unique_ptr<VT_obj>(Targets&)> from_values;
    // Describes the same object in a description node (which carries the targets' world).
    std::function<void(Fake_spec&, Targets&)> describe;
    std::function<std::unique_ptr<VT_obj>(Spec_node*)> from_spec;
    const char* expected;
};

template <class T>
std::function<std::unique_ptr<VT_obj>(Spec_node*)> spec_built()
{
    return [](Spec_node* s) { return std::unique_ptr<VT_obj>(new T(s)); };
}

Attribute_object_placement at(uint16_t id, short x, short y)
{
    return Attribute_object_placement(id, x, y);
}

const std::vector<Row>& rows()
{
    static uint8_t map_colours[] = {0x00, 0x01, 0xFF};
    static unsigned int palette_colours[] = {0xFF112233u, 0x80FFFFFFu};
    static uint8_t control_bytes[] = {0xDE, 0xAD, 0xBE};
    static uint8_t mask_data[] = {0x7F};
    static const std::vector<Row> table = {
        {"Window_mask",
         [](Targets&) {
             Attribute_object_id refs[] = {Attribute_object_id(0x0101, "required_object_refs")};
             Attribute_object_placement objects[] = {at(0x0202, -3, 4)};
             Attribute_event_macro macros[] = {{1, 2}};
             return std::unique_ptr<VT_obj>(new Window_mask_obj(0x1001, "wm", 2, 6, 18, 5, 3, 0x0101, 0x0202, 0x0303,
                                                                1, 1, 1, refs, objects, macros));
         },
         [](Fake_spec& s, Targets&) {
             s.set("width_columns", "2").set("height_rows", "6").set("window_type", "18");
             s.set("background_colour", "5").set("options", "3");
             s.set("window_name", "a").set("window_title", "b").set("window_icon", "c");
             // One child gives both the required reference and the placement.
             Fake_spec both = placed("b", -3, 4);
             both.set("required_object_refs", "a");
             s.add_child(both).add_child(macro(1, 2));
         },
         spec_built<Window_mask_obj>(),
         "01 10 22 02 06 12 05 03 01 01 02 02 03 03 01 01 01 01 01 02 02 FD FF 04 00 01 02"},
        {"Graphics_context",
         [](Targets&) {
             return std::unique_ptr<VT_obj>(new Graphics_context_obj(0x1002, "gc", 320, 240, -5, 7, 640, 480, 1.5f, -1,
                                                                     2, 3, 4, 0x0101, 0x0202, 0x0303, 2, 3, 6));
         },
         [](Fake_spec& s, Targets&) {
             s.set("viewport_width", "320").set("viewport_height", "240").set("viewport_x", "-5");
             s.set("viewport_y", "7").set("canvas_width", "640").set("canvas_height", "480");
             s.set("viewport_zoom", "1.5").set("graphics_cursor_x", "-1").set("graphics_cursor_y", "2");
             s.set("foreground_colour", "3").set("background_colour", "4").set("font_attributes", "a");
             s.set("line_attributes", "b").set("fill_attributes", "c").set("format", "2").set("options", "3");
             s.set("transparency_colour", "6");
         },
         spec_built<Graphics_context_obj>(),
         "02 10 24 40 01 F0 00 FB FF 07 00 80 02 E0 01 00 00 C0 3F FF FF 02 00 03 04 01 01 02 02 03 03 02 03 06"},
        {"Animation",
         [](Targets&) {
             Attribute_object_placement objects[] = {at(0x0101, 0, 0), at(0x0202, 10, -10)};
             Attribute_event_macro macros[] = {{3, 4}};
             return std::unique_ptr<VT_obj>(
                 new Animation_obj(0x1003, "anim", 100, 50, 250, 1, 1, 0, 1, 0, 2, 2, 1, objects, macros));
         },
         [](Fake_spec& s, Targets&) {
             s.set("width", "100").set("height", "50").set("refresh_interval", "250").set("value", "1");
             s.set("enabled", "1").set("first_child_index", "0").set("last_child_index", "1");
             s.set("default_child_index", "0").set("options", "2");
             s.add_child(placed("a", 0, 0)).add_child(placed("b", 10, -10)).add_child(macro(3, 4));
         },
         spec_built<Animation_obj>(),
         "03 10 2C 64 00 32 00 FA 00 01 01 00 01 00 02 02 01 01 01 00 00 00 00 02 02 0A 00 F6 FF 03 04"},
        {"Colour_map",
         [](Targets&) { return std::unique_ptr<VT_obj>(new Colour_map_obj(0x1004, "map", 3, map_colours)); },
         [](Fake_spec& s, Targets&) { s.set("colours", std::string("\x00\x01\xFF", 3)); }, spec_built<Colour_map_obj>(),
         "04 10 27 03 00 00 01 FF"},
        {"Colour_palette",
         [](Targets&) { return std::unique_ptr<VT_obj>(new Colour_palette_obj(0x1005, "pal", 0, 2, palette_colours)); },
         [](Fake_spec& s, Targets&) {
             s.set("options", "0").set("colours", std::string("\x33\x22\x11\xFF\xFF\xFF\xFF\x80", 8));
         },
         spec_built<Colour_palette_obj>(), "05 10 2D 00 02 33 22 11 FF FF FF FF 80"},
        {"Working_set_special_controls",
         [](Targets&) {
             return std::unique_ptr<VT_obj>(new Working_set_special_controls_obj(0x1006, "wssc", 3, control_bytes));
         },
         [](Fake_spec& s, Targets&) { s.set("bytes", "\xDE\xAD\xBE"); }, spec_built<Working_set_special_controls_obj>(),
         "06 10 2F 03 00 DE AD BE"},
        {"Auxiliary_function",
         [](Targets&) {
             Attribute_object_placement objects[] = {at(0x0101, 1, 2)};
             return std::unique_ptr<VT_obj>(new Auxiliary_function_obj(0x1007, "af", 12, 2, 1, objects));
         },
         [](Fake_spec& s, Targets&) {
             s.set("background_colour", "12").set("function_type", "2").add_child(placed("a", 1, 2));
         },
         spec_built<Auxiliary_function_obj>(), "07 10 1D 0C 02 01 01 01 01 00 02 00"},
        {"Auxiliary_input",
         [](Targets&) {
             Attribute_object_placement objects[] = {at(0x0202, -1, 0)};
             return std::unique_ptr<VT_obj>(new Auxiliary_input_obj(0x1008, "ai", 13, 1, 250, 1, objects));
         },
         [](Fake_spec& s, Targets&) {
             s.set("background_colour", "13").set("function_type", "1").set("input_id", "250");
             s.add_child(placed("b", -1, 0));
         },
         spec_built<Auxiliary_input_obj>(), "08 10 1E 0D 01 FA 01 02 02 FF FF 00 00"},
        {"Auxiliary_type2_function (no designators)",
         [](Targets&) {
             return std::unique_ptr<VT_obj>(new Auxiliary_type2_function_obj(0x1009, "a2f", 14, 0x80, 0, nullptr));
         },
         [](Fake_spec& s, Targets&) { s.set("background_colour", "14").set("function_attributes", "0x80"); },
         spec_built<Auxiliary_type2_function_obj>(), "09 10 1F 0E 80 00"},
        {"Auxiliary_type2_input",
         [](Targets&) {
             Attribute_object_placement objects[] = {at(0x0303, 5, 6)};
             return std::unique_ptr<VT_obj>(new Auxiliary_type2_input_obj(0x100A, "a2i", 15, 1, 1, objects));
         },
         [](Fake_spec& s, Targets&) {
             s.set("background_colour", "15").set("function_attributes", "1").add_child(placed("c", 5, 6));
         },
         spec_built<Auxiliary_type2_input_obj>(), "0A 10 20 0F 01 01 03 03 05 00 06 00"},
        {"Auxiliary_type2_control_designator",
         [](Targets&) {
             return std::unique_ptr<VT_obj>(new Auxiliary_type2_control_designator_obj(0x100B, "acd", 2, 0x0101));
         },
         [](Fake_spec& s, Targets&) { s.set("pointer_type", "2").set("auxiliary_object_id", "a"); },
         spec_built<Auxiliary_type2_control_designator_obj>(), "0B 10 21 02 01 01"},
        {"Named_colour (identifiers carry no bytes)",
         [](Targets&) {
             Attribute_identifier<unsigned char> refs[] = {{1, 2}, {3, 4}, {5, 6}};
             return std::unique_ptr<VT_obj>(new Named_colour_obj(0x100C, "nc", 3, refs, 0x0202));
         },
         [](Fake_spec& s, Targets&) {
             s.add_child(child("Ref", {})).add_child(child("Ref", {})).add_child(child("Ref", {}));
             s.set("pictures", "b");
         },
         spec_built<Named_colour_obj>(), "0C 10 F3 03 00 02 02"},
        {"Named_colour_mask (more pictures than data bytes)",
         [](Targets&) {
             Attribute_identifier<unsigned short> pictures[] = {{0x0101, 1}, {0x0202, 2}};
             return std::unique_ptr<VT_obj>(new Named_colour_mask_obj(0x100D, "ncm", 2, 1, pictures, mask_data));
         },
         [](Fake_spec& s, Targets&) {
             s.add_child(child("Picture", {})).add_child(child("Picture", {})).set("data", "\x7F");
         },
         spec_built<Named_colour_mask_obj>(), "0D 10 F4 02 01 00 7F"},
        {"Field",
         [](Targets&) {
             Attribute_object_id swaths[] = {Attribute_object_id(0x0202, "swaths"),
                                             Attribute_object_id(0x0303, "swaths")};
             return std::unique_ptr<VT_obj>(
                 new Field_obj(0x100E, "field", -100, 200, 40, -7, 8, -9, 0x0101, 1, 2, 3, 4, 250, 2, swaths));
         },
         [](Fake_spec& s, Targets& t) {
             s.set("camera_y", "-100").set("camera_z", "200").set("swath_spacing", "40").set("eye_y", "-7");
             s.set("eye_z", "8").set("rotation", "-9").set("centre_line_attributes", "a");
             s.set("completed_colour", "1").set("incomplete_colour", "2").set("tractor_x", "3");
             s.set("tractor_y", "4").set("scale", "250");
             s.add_child(Fake_spec("Swath").object(&t.b)).add_child(Fake_spec("Swath").object(&t.c));
         },
         spec_built<Field_obj>(), "0E 10 F1 9C FF C8 00 28 F9 FF 08 00 F7 FF 01 01 01 02 03 04 FA 00 02 02 02 03 03"},
        {"Swath",
         [](Targets&) {
             Attribute_point points[] = {{0, 0}, {0, 0}};
             Attribute_event_macro macros[] = {{5, 6}};
             return std::unique_ptr<VT_obj>(
                 new Swath_obj(0x100F, "swath", 20, 30, 40, 0x0101, 0x0202, 3, 2, 1, points, macros));
         },
         [](Fake_spec& s, Targets&) {
             s.set("maximum_points", "20").set("width", "30").set("height", "40").set("line_attributes", "a");
             s.set("fill_attributes", "b").set("polygon_type", "1").set("num_points", "2");
             // The host places the points: coordinates given here do not survive.
             s.add_child(child("Point", {{"point_x", "7"}, {"point_y", "8"}})).add_child(macro(5, 6));
         },
         spec_built<Swath_obj>(), "0F 10 10 1E 00 28 00 01 01 02 02 03 02 01 00 00 00 00 00 00 00 00 05 06"},
        {"Config_icon",
         [](Targets&) {
             Attribute_object_placement objects[] = {at(0x0101, 2, 3)};
             Attribute_event_macro macros[] = {{7, 8}};
             return std::unique_ptr<VT_obj>(new Config_icon_obj(0x1010, "icon", 1, 1, 1, objects, macros));
         },
         [](Fake_spec& s, Targets&) { s.add_child(placed("a", 2, 3)).add_child(macro(7, 8)); },
         spec_built<Config_icon_obj>(), "10 10 F6 01 01 01 01 01 02 00 03 00 07 08"},
        {"Config_node",
         [](Targets&) {
             Attribute_object_id children[] = {Attribute_object_id(0x0202, "child_objects"),
                                               Attribute_object_id(0x0303, "child_objects")};
             return std::unique_ptr<VT_obj>(
                 new Config_node_obj(0x1011, "node", 2, 0x0101, 0x0202, 5, 2, 0, children, nullptr));
         },
         [](Fake_spec& s, Targets&) {
             s.set("label", "a").set("icon", "b").set("options", "5");
             s.add_child(child("Child", {{"object", "b"}})).add_child(child("Child", {{"object", "c"}}));
         },
         spec_built<Config_node_obj>(), "11 10 F6 02 01 01 02 02 05 02 00 02 02 03 03"},
        {"Config_page",
         [](Targets&) {
             Attribute_object_id children[] = {Attribute_object_id(0x0303, "child_objects")};
             Attribute_event_macro macros[] = {{9, 10}};
             return std::unique_ptr<VT_obj>(new Config_page_obj(0x1012, "page", 3, 0x0101, 0x0202, 7, 0x0303, 0x0101,
                                                                0x0202, 1, 1, children, macros));
         },
         [](Fake_spec& s, Targets&) {
             s.set("label", "a").set("icon", "b").set("options", "7").set("title", "c").set("help", "a");
             s.set("diagram", "b").add_child(child("Child", {{"object", "c"}})).add_child(macro(9, 10));
         },
         spec_built<Config_page_obj>(), "12 10 F6 03 01 01 02 02 07 03 03 01 01 02 02 01 01 03 03 09 0A"},
        {"Config_item",
         [](Targets&) {
             Attribute_event_macro macros[] = {{11, 12}};
             return std::unique_ptr<VT_obj>(
                 new Config_item_obj(0x1013, "item", 4, 0x0101, 0x0202, 0x0303, 0x0101, 0x0202, 6, 1, macros));
         },
         [](Fake_spec& s, Targets&) {
             s.set("label", "a").set("icon", "b").set("units", "c").set("help", "a").set("content", "b");
             s.set("options", "6").add_child(macro(11, 12));
         },
         spec_built<Config_item_obj>(), "13 10 F6 04 01 01 02 02 03 03 01 01 02 02 06 01 0B 0C"},
        {"Config_table",
         [](Targets&) {
             Attribute_object_id children[] = {Attribute_object_id(0x0101, "child_objects")};
             return std::unique_ptr<VT_obj>(
                 new Config_table_obj(0x1014, "table", 5, 7, 3, 4, 1, 1, 0, children, nullptr));
         },
         [](Fake_spec& s, Targets&) {
             s.set("options", "7").set("num_rows", "3").set("num_columns", "4").set("num_tabs", "1");
             s.add_child(child("Child", {{"object", "a"}}));
         },
         spec_built<Config_table_obj>(), "14 10 F6 05 07 03 04 01 01 00 01 01"},
    };
    return table;
}

// Reads `bytes` (a whole serialised object) into a fresh object built from an empty description node.
int read_into(const Row& row, std::unique_ptr<VT_obj>& fresh, const Bytes& bytes, size_t keep)
{
    fresh = row.from_spec(new Fake_spec());
    // Reading may leave marks in its input, so every reader gets its own copy.
    Bytes input(bytes.begin() + 3, bytes.begin() + long(keep));
    Iso::Deserialise_results res{};
    return fresh->deserialise(0, input.data(), int(input.size()), &res);
}

}

TEST(Window_aux_config_round_trip, every_class_from_values_and_from_spec)
{
    test::Stream_capture err(std::cerr);
    test::Stream_capture out(std::cout);
    test::Dprint_capture debug;
    for (const Row& row : rows()) {
        SCOPED_TRACE(row.label);
        Targets targets;
        Bytes expected = from_hex(row.expected);

        std::unique_ptr<VT_obj> built = row.from_values(targets);
        Bytes whole = test::serialise_whole(*built);
        EXPECT_EQ(test::hex(whole), row.expected);
        EXPECT_EQ(built->num_bytes(), int(whole.size()));
        EXPECT_EQ(test::hex(test::serialise_in_pieces(*built, 1)), row.expected);
        EXPECT_EQ(test::hex(test::serialise_in_pieces(*built, 5)), row.expected);

        auto* spec_node = new Fake_spec("object", targets.world());
        row.describe(*spec_node, targets);
        std::unique_ptr<VT_obj> specced = row.from_spec(spec_node);
        specced->set_by_spec(SCALE_AREA_ACTIVE);
        specced->set_id(built->get_id());
        EXPECT_EQ(test::hex(test::serialise_whole(*specced)), row.expected) << "built from the description";
        EXPECT_EQ(specced->num_bytes(), int(expected.size()));

        std::unique_ptr<VT_obj> fresh;
        ASSERT_EQ(read_into(row, fresh, expected, expected.size()), int(expected.size()) - 3);
        fresh->set_id(built->get_id());
        EXPECT_EQ(test::hex(test::serialise_whole(*fresh)), row.expected) << "read back";
        EXPECT_EQ(fresh->num_bytes(), int(expected.size()));

        // Every shorter input is refused, never read past.
        for (size_t keep = 3; keep < expected.size(); ++keep)
            EXPECT_EQ(read_into(row, fresh, expected, keep), -1) << keep << " bytes";
    }
    EXPECT_EQ(err.str(), "") << "no warnings for well-formed objects";
}
