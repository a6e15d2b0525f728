#include "core_test_helpers.h"

using namespace VT;
using VT::Base::Number_variable_obj;
using test::Bytes;

namespace {

// A description with two built objects, "speed" (id 5) and "label" (id 9).
struct World
{
    World()
    {
        spec_node.shared().ids = {{"speed", 5}, {"label", 9}};
        spec_node.shared().objects = {{"speed", &speed}, {"label", &label}};
    }
    test::Fake_spec node(const char* element = "node") { return test::Fake_spec(element, spec_node.world); }

    Number_variable_obj speed{5, "speed", 0};
    Number_variable_obj label{9, "label", 0};
    test::Fake_spec spec_node;
};

}

TEST(Object_references, resolve_names_through_the_description)
{
    World w;
    test::Stream_capture err(std::cerr);

    Attribute_object_id font("font");
    w.spec_node.set("font", "speed");
    EXPECT_EQ(font._set_by_spec(&w.spec_node, SCALE_AREA_SOFT_KEY), 1);
    EXPECT_EQ(font.get(), 5);
    EXPECT_EQ(font.get_referenced_name(), "speed");
    EXPECT_EQ(w.speed.get_scale_area(), SCALE_AREA_SOFT_KEY);

    // "65535" names no object on purpose.
    w.spec_node.set("font", "65535");
    EXPECT_EQ(font._set_by_spec(&w.spec_node, SCALE_AREA_NONE), 1);
    EXPECT_EQ(font.get(), 65535);
    EXPECT_TRUE(font.get_referenced_name().isEmpty());
    EXPECT_EQ(err.str(), "");
    EXPECT_EQ(w.spec_node.shared().unresolved, 0);

    // An unknown name: the host's hook first, then the warning.
    w.spec_node.set("font", "nowhere");
    EXPECT_EQ(font._set_by_spec(&w.spec_node, SCALE_AREA_NONE), 0);
    EXPECT_EQ(font.get(), 65535);
    EXPECT_EQ(w.spec_node.shared().unresolved, 1);
    EXPECT_EQ(err.str(), "!WARNING! Attribute 'font' refers to non-existant object 'nowhere'\n");

    // No node: nothing changes.
    Attribute_object_id kept(7, "kept");
    EXPECT_EQ(kept._set_by_spec(nullptr, SCALE_AREA_NONE), 0);
    EXPECT_EQ(kept.get(), 7);
    // No value and no attr_ child: NULL, and false.
    EXPECT_EQ(kept._set_by_spec(&w.spec_node, SCALE_AREA_NONE), 0);
    EXPECT_EQ(kept.get(), 65535);
}

TEST(Object_references, inline_objects)
{
    World w;
    test::Stream_capture err(std::cerr);

    // The first child of "attr_<name>" defines the object in place.
    test::Fake_spec holder = w.node();
    holder.add_child(w.node("attr_var").add_child(w.node("Number_variable").object(&w.label)));
    Attribute_object_id var("var");
    EXPECT_EQ(var._set_by_spec(&holder, SCALE_AREA_ACTIVE), 1);
    EXPECT_EQ(var.get(), 9);
    EXPECT_EQ(var.get_referenced_name(), "label");
    EXPECT_EQ(w.label.get_scale_area(), SCALE_AREA_ACTIVE);

    test::Fake_spec unbuilt = w.node();
    unbuilt.add_child(w.node("attr_var").add_child(w.node("Number_variable")));
    EXPECT_EQ(var._set_by_spec(&unbuilt, SCALE_AREA_NONE), 0);
    test::Fake_spec empty_holder = w.node();
    empty_holder.add_child(w.node("attr_var"));
    EXPECT_EQ(var._set_by_spec(&empty_holder, SCALE_AREA_NONE), 0);

    // Items of child lists read "object", or are the inline object themselves.
    Attribute_object_id child("child_objects");
    test::Fake_spec named = w.node("Child");
    named.set("object", "speed");
    EXPECT_EQ(child._set_by_spec(&named, SCALE_AREA_NONE), 1);
    EXPECT_EQ(child.get(), 5);
    test::Fake_spec inline_item = w.node("Child");
    inline_item.object(&w.label);
    Attribute_object_id layer("layers");
    EXPECT_EQ(layer._set_by_spec(&inline_item, SCALE_AREA_NONE), 1);
    EXPECT_EQ(layer.get(), 9);
    EXPECT_EQ(layer.get_referenced_name(), "label");
    EXPECT_EQ(err.str(), "");

    // Neither: reported, then looked up under the attribute's own name.
    test::Fake_spec bare = w.node("Child");
    bare.set("child_objects", "speed");
    EXPECT_EQ(child._set_by_spec(&bare, SCALE_AREA_NONE), 1);
    EXPECT_EQ(child.get(), 5);
    EXPECT_EQ(err.str(), "NO OBJECT\n");
}

TEST(Object_references, null_check_printing_and_source)
{
    World w;
    Attribute_object_id font(5, "font");
    {
        test::Stream_capture err(std::cerr);
        EXPECT_EQ(font.spec_null_check(w.speed), 0);
        EXPECT_EQ(err.str(), "FATAL ERROR!  Number_variable 'speed' has NULL attribute 'font'\n");
    }
    font.set_referenced_name("speed");
    EXPECT_NE(font.spec_null_check(w.speed), 0);

    std::ostringstream os;
    font.print_me(os, 1);
    font.get_code_valref("p", os, 0);
    os << "|";
    font.get_code_def_for_list("p", os, 1);
    os << "|";
    font.get_code_valref_for_list("p", os);
    os << "|";
    Attribute_object_id().get_code_valref("p", os, 0);
    font.get_code_def("p", os, 0);
    EXPECT_EQ(os.str(), "  Type: 23\tName: font id: 5\n"
                        "Oids::speed|    /*p*/Attribute_object_id|Oids::speed,\"font\"|VT_obj::NULL_ID");
    EXPECT_STREQ(Attribute_object_id().name, "Object_id");
    EXPECT_EQ(Attribute_object_id().get(), 0);
    EXPECT_EQ(test::attribute_bytes(Attribute_object_id(65535, "x")), (Bytes{0xFF, 0xFF}));
}

TEST(Placements, justification_texts)
{
    struct Case
    {
        const char* text;
        uint8_t bits;
    } cases[] = {
        {"bottom_right", 15}, {"BOTTOM_Right", 15}, {"center", 10}, {"Center", 10}, {"center-left", 9},
        {"top left", 5},      {"middle", 0},        {"top", 4},     {"bottom", 12}, {"left", 1},
        {"right", 3},         {"nowhere_right", 3}, {"top_", 4},    {"", 0},
        // A blank is looked for before a "-": here the first word is "top-center".
        {"top-center left", 1},
        // And a "-" before a "_".
        {"bottom-center_x", 12},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Attribute_object_placement::parse_justification(c.text), c.bits) << c.text;
}

TEST(Placements, set_by_spec)
{
    World w;
    test::Fake_spec item = w.node("Child");
    item.set("x_location", "-32768").set("y_location", "7").set("justification", "bottom_right").set("object", "speed");
    Attribute_object_placement p("child_location");
    {
        test::Stream_capture err(std::cerr);
        EXPECT_EQ(p._set_by_spec(&item, SCALE_AREA_NONE), 1);
        // Positions stop one short of the 16-bit minimum.
        EXPECT_EQ(err.str(), "WARNING: attempt to set 'x_location' to -32768, minimum is -32767\n");
    }
    EXPECT_EQ(p.get_object_id(), 5);
    EXPECT_EQ(p.get_x(), -32767);
    EXPECT_EQ(p.get_y(), 7);
    EXPECT_EQ(p.get_justification(), 15);
    EXPECT_EQ(p.get_referenced_name(), "speed");

    // An unknown name: silently NULL, still a success when x and y were given.
    test::Fake_spec unknown = w.node("Child");
    unknown.set("x_location", "1").set("y_location", "2").set("object", "nobody");
    {
        test::Stream_capture err(std::cerr);
        EXPECT_EQ(p._set_by_spec(&unknown, SCALE_AREA_NONE), 1);
        EXPECT_EQ(err.str(), "");
    }
    EXPECT_EQ(p.get_object_id(), 65535);
    EXPECT_EQ(p.get_justification(), 15); // no justification text: kept
    test::Fake_spec no_y = w.node("Child");
    no_y.set("x_location", "1").set("object", "speed");
    EXPECT_EQ(p._set_by_spec(&no_y, SCALE_AREA_NONE), 0);
    EXPECT_EQ(p.get_object_id(), 5);

    // Without an "object" text the first child is the object itself.
    test::Fake_spec holder = w.node("Child");
    holder.add_child(w.node("Output").object(&w.label));
    EXPECT_EQ(p._set_by_spec(&holder, SCALE_AREA_ACTIVE), 1);
    EXPECT_EQ(p.get_object_id(), 9);
    EXPECT_EQ(p.get_referenced_name(), "label");
    EXPECT_EQ(w.label.get_scale_area(), SCALE_AREA_ACTIVE);
    test::Fake_spec lone = w.node("Child");
    EXPECT_EQ(p._set_by_spec(&lone, SCALE_AREA_NONE), 0);
    EXPECT_EQ(p.get_object_id(), 65535);
    EXPECT_EQ(p._set_by_spec(nullptr, SCALE_AREA_NONE), 0);
}

TEST(Placements, justify_lays_out_in_the_available_area)
{
    Attribute_object_placement p(1, 3, 4, 10);
    p.justify(10, 10, 100, 50);
    EXPECT_EQ(p.get_x(), 45);
    EXPECT_EQ(p.get_y(), 20);

    Attribute_object_placement zero(1, 3, 4, 10);
    zero.justify(0, 0, 100, 50);
    EXPECT_EQ(zero.get_x(), 3);
    EXPECT_EQ(zero.get_y(), 4);
    Attribute_object_placement none(1, 3, 4, 0);
    none.justify(10, 10, 100, 50);
    EXPECT_EQ(none.get_x(), 3);

    Attribute_object_placement corner(1, 3, 4, 15);
    corner.justify(10, 20, 100, 50);
    EXPECT_EQ(corner.get_x(), 90);
    EXPECT_EQ(corner.get_y(), 30);
    Attribute_object_placement origin(1, 3, 4, 5);
    origin.justify(10, 20, 100, 50);
    EXPECT_EQ(origin.get_x(), 0);
    EXPECT_EQ(origin.get_y(), 0);

    // Only the vertical part set: x stays. Halving shifts, so odd negatives round down.
    Attribute_object_placement vertical(1, 3, 4, 8);
    vertical.justify(31, 31, 20, 20);
    EXPECT_EQ(vertical.get_x(), 3);
    EXPECT_EQ(vertical.get_y(), -6);
}

TEST(Placements, byte_form_printing_and_source)
{
    Attribute_object_placement p(0x1234, -2, 300, 9);
    const Bytes form{0x34, 0x12, 0xFE, 0xFF, 0x2C, 0x01};
    for (int piece = 1; piece <= 7; ++piece)
        EXPECT_EQ(test::attribute_in_pieces(p, piece), form);
    uint8_t out[8];
    EXPECT_EQ(p.serialise(3, out, 2), 2);
    EXPECT_EQ(Bytes(out, out + 2), (Bytes{0xFF, 0x2C}));

    Attribute_object_placement back;
    Bytes in = form;
    EXPECT_EQ(back.deserialise(0, in.data(), 6, nullptr), 6);
    EXPECT_TRUE(back == p); // justification is not compared
    EXPECT_EQ(back.get_justification(), 0);

    std::ostringstream os;
    Attribute_object_placement named("child_location");
    named.print_me(os, 0);
    EXPECT_EQ(os.str(), "Type: 18\tName: child_location\n"
                        "  Type: 1\tName: object_id Value: 0\n"
                        "  Type: 5\tName: x_location Value: 0\n"
                        "  Type: 5\tName: y_location Value: 0\n");

    World w;
    test::Fake_spec item = w.node("Child");
    item.set("x_location", "-2").set("y_location", "300").set("object", "speed");
    Attribute_object_placement from_node("child_location");
    from_node._set_by_spec(&item, SCALE_AREA_NONE);
    std::ostringstream code;
    from_node.get_code_def_for_list("p", code, 1);
    code << "|";
    from_node.get_code_valref_for_list("p", code);
    code << "|";
    from_node.set_justification(9);
    from_node.get_code_valref_for_list("p", code);
    EXPECT_EQ(code.str(), "    Attribute_object_placement|Oids::speed/**/,-2,300|Oids::speed/**/,-2,300,9");
}

TEST(Points, byte_form_set_by_spec_and_source)
{
    Attribute_point pt(0x0102, 0xA0B0);
    EXPECT_STREQ(pt.name, "point");
    EXPECT_EQ(test::attribute_bytes(pt), (Bytes{0x02, 0x01, 0xB0, 0xA0}));
    EXPECT_EQ(test::attribute_in_pieces(pt, 3), (Bytes{0x02, 0x01, 0xB0, 0xA0}));

    test::Fake_spec spec_node;
    spec_node.set("point_x", "10").set("point_y", "20");
    Attribute_point read;
    EXPECT_EQ(read._set_by_spec(&spec_node, SCALE_AREA_NONE), 1);
    EXPECT_TRUE(read == Attribute_point(10, 20));
    test::Fake_spec half;
    half.set("point_x", "3");
    EXPECT_EQ(read._set_by_spec(&half, SCALE_AREA_NONE), 0);
    EXPECT_EQ(read.get_x(), 3);
    EXPECT_EQ(read.get_y(), 20);

    std::ostringstream os;
    read.print_me(os, 0);
    read.get_code_def_for_list("p", os, 0);
    os << "(";
    read.get_code_valref_for_list("p", os);
    os << ")";
    EXPECT_EQ(os.str(), "Type: 19\tName: point\n"
                        "  Type: 1\tName: point_x Value: 3\n"
                        "  Type: 1\tName: point_y Value: 20\n"
                        "Attribute_point(3,20)");
}

TEST(Event_macros, byte_form_set_by_spec_and_printing)
{
    Attribute_event_macro m(1, 200);
    EXPECT_EQ(test::attribute_bytes(m), (Bytes{1, 200}));
    uint8_t one[] = {7};
    EXPECT_EQ(m.deserialise(0, one, 1, nullptr), 0);
    EXPECT_EQ(m.get_event_id(), 1);
    uint8_t two[] = {7, 8};
    EXPECT_EQ(m.deserialise(0, two, 2, nullptr), 2);
    EXPECT_EQ(m.get_macro_id(), 8);

    test::Fake_spec spec_node;
    spec_node.set("event_id", "3").set("macro_id", "4");
    EXPECT_EQ(m._set_by_spec(&spec_node, SCALE_AREA_NONE), 1);
    test::Fake_spec half;
    half.set("event_id", "5");
    EXPECT_EQ(m._set_by_spec(&half, SCALE_AREA_NONE), 0);
    EXPECT_EQ(m.get_event_id(), 5);
    EXPECT_EQ(m.get_macro_id(), 4);

    std::ostringstream os;
    m.print_me(os, 1);
    m.get_code_def_for_list("p", os, 1);
    os << "(";
    m.get_code_valref_for_list("p", os);
    os << ")";
    EXPECT_EQ(os.str(), "  Type: 16\tName: event_macro\tevent_id: 5\tmacro_id: 4\n"
                        "    Type: 0\tName: event_id Value: 5\n"
                        "    Type: 0\tName: macro_id Value: 4\n"
                        "    Attribute_event_macro(5,4)");
}

TEST(Languages_and_labels, byte_forms_and_source)
{
    Attribute_lang lang('e', 'n');
    EXPECT_EQ(test::attribute_bytes(lang), (Bytes{'e', 'n'}));
    std::ostringstream os;
    lang.print_me(os, 0);
    lang.get_code_def_for_list("p", os, 0);
    os << "(";
    lang.get_code_valref_for_list("p", os);
    os << ")";
    EXPECT_EQ(os.str(), "Type: 22\tName: languages Value: en\nAttribute_lang(101,110)");
    uint8_t de[] = {'d', 'e'};
    Attribute_lang back;
    EXPECT_EQ(back.deserialise(0, de, 2, nullptr), 2);
    EXPECT_EQ(back.get_byte_1(), 'd');

    Attribute_labelref ref(0x0102, 0x0304, 5, 0x0607);
    const Bytes form{0x02, 0x01, 0x04, 0x03, 0x05, 0x07, 0x06};
    EXPECT_EQ(ref.num_bytes(), 7);
    EXPECT_EQ(test::attribute_bytes(ref), form);
    uint8_t out[8];
    EXPECT_EQ(ref.serialise(4, out, 8), 3); // the font type and the last id
    EXPECT_EQ(Bytes(out, out + 3), (Bytes{0x05, 0x07, 0x06}));
    Attribute_labelref read;
    Bytes in = form;
    EXPECT_EQ(read.deserialise(0, in.data(), 7, nullptr), 7);
    EXPECT_TRUE(read == ref);
    EXPECT_FALSE(read == Attribute_labelref(0x0102, 0x0304, 6, 0x0607));
    std::ostringstream code;
    ref.get_code_def_for_list("p", code, 0);
    code << "(";
    ref.get_code_valref_for_list("p", code);
    code << ")";
    EXPECT_EQ(code.str(), "Attribute_labelref(258,772,5,1543)");

    World w;
    test::Stream_capture err(std::cerr);
    w.spec_node.set("labelled_object", "speed").set("string_variable", "label").set("font_type", "2").set(
        "graphic_representation", "65535");
    EXPECT_EQ(read._set_by_spec(&w.spec_node, SCALE_AREA_NONE), 1);
    EXPECT_TRUE(read == Attribute_labelref(5, 9, 2, 65535));
    w.spec_node.set("graphic_representation", "ghost");
    EXPECT_EQ(read._set_by_spec(&w.spec_node, SCALE_AREA_NONE), 0);
    EXPECT_EQ(err.str(), "!WARNING! Attribute 'graphic_representation' refers to non-existant object 'ghost'\n");
}

TEST(Identifiers_and_editables, have_no_byte_form)
{
    Attribute_identifier<unsigned char> small(5, 3);
    Attribute_identifier<unsigned short> wide(6, 700);
    Attribute_editable_object editable(8);
    uint8_t out[4] = {0xEE, 0xEE, 0xEE, 0xEE};
    for (Attribute* a : std::initializer_list<Attribute*>{&small, &wide, &editable}) {
        EXPECT_EQ(a->num_bytes(), 0);
        EXPECT_EQ(a->serialise(0, out, 4), 0);
        EXPECT_EQ(a->deserialise(0, out, 4, nullptr), 0);
    }
    EXPECT_EQ(out[0], 0xEE);
    test::Fake_spec spec_node;
    spec_node.set("identifier", "9");
    EXPECT_EQ(small._set_by_spec(&spec_node, SCALE_AREA_NONE), 1);
    EXPECT_EQ(small.get_identifier(), 3);
    EXPECT_STREQ(Attribute_identifier<unsigned char>::search_string(), "!Event_macro");
    EXPECT_STREQ(Attribute_editable_object::search_string(), "Editable");
    EXPECT_STREQ(editable.name, "Editable");

    std::ostringstream os;
    small.get_code_def_for_list("p", os, 0);
    os << "(";
    small.get_code_valref_for_list("p", os);
    os << ") ";
    wide.get_code_def_for_list("p", os, 0);
    os << "(";
    wide.get_code_valref_for_list("p", os);
    os << ") ";
    editable.get_code_def_for_list("p", os, 1);
    os << "(";
    editable.get_code_valref_for_list("p", os);
    os << ")";
    small.get_code_valref("p", os, 0);
    EXPECT_EQ(os.str(), "Attribute_identifier<uint8_t>(5,3) Attribute_identifier<uint16_t>(6,700)     "
                        "Attribute_editable_object()");

    // A list of identifiers adds nothing to an object's bytes, whatever its count.
    const Attribute_identifier<unsigned char> ids[] = {{1, 2}, {3, 4}};
    Attribute_list<Attribute_identifier<unsigned char>> list("refs", ids, 2);
    EXPECT_EQ(list.num_bytes(), 0);
    list.set_counters(40);
    EXPECT_EQ(list.num_bytes(), 0);
    EXPECT_EQ(list.serialise(0, out, 4), 0);
}

TEST(Identifiers_and_editables, editable_set_by_spec)
{
    World w;
    test::Stream_capture err(std::cerr);
    Attribute_editable_object e(3);
    test::Fake_spec nothing = w.node("Editable");
    EXPECT_EQ(e._set_by_spec(&nothing, SCALE_AREA_NONE), 1);
    EXPECT_EQ(e.get_oid(), 3);
    EXPECT_EQ(e._set_by_spec(nullptr, SCALE_AREA_NONE), 0);

    test::Fake_spec known = w.node("Editable");
    known.set("object", "label");
    EXPECT_EQ(e._set_by_spec(&known, SCALE_AREA_SOFT_KEY), 1);
    EXPECT_EQ(e.get_oid(), 9);
    EXPECT_EQ(w.label.get_scale_area(), SCALE_AREA_SOFT_KEY);
    EXPECT_EQ(err.str(), "");

    test::Fake_spec unknown = w.node("Editable");
    unknown.set("object", "ghost");
    EXPECT_EQ(e._set_by_spec(&unknown, SCALE_AREA_NONE), 0);
    EXPECT_EQ(e.get_oid(), 65535);
    EXPECT_EQ(w.spec_node.shared().unresolved, 1);
    EXPECT_EQ(err.str(), "!WARNING!  Object placement refers to non-existant object 'ghost'\n");
}
