#include "core_test_helpers.h"

using namespace VT;
using test::Bytes;

namespace {

// A 2-byte list item whose deserialise fails on its second use.
class Failing_item : public Attribute
{
public:
    Failing_item() : Attribute("failing") {}
    int num_bytes() const override { return 2; }
    using Attribute::serialise;
    int serialise(int, uint8_t*, int) const override { return 0; }
    int deserialise(int, uint8_t*, int, Iso::Deserialise_results*) override { return ++calls == 2 ? -3 : 2; }
    atype get_type() const override { return ATTR_UINT16; }
    int _set_by_spec(Spec_node*, scale_area_t) override { return 0; }
    void get_code_def_for_list(const char*, std::ostream&, int) {}
    void get_code_valref_for_list(const char*, std::ostream&) {}
    static int calls;
};
int Failing_item::calls = 0;

const Attribute_object_placement three_placements[] = {
    Attribute_object_placement(0x0101, 1, 2),
    Attribute_object_placement(0x0202, -3, 4),
    Attribute_object_placement(0x0303, 5, -6),
};
const Bytes three_placements_form{0x01, 0x01, 0x01, 0x00, 0x02, 0x00, 0x02, 0x02, 0xFD, 0xFF,
                                  0x04, 0x00, 0x03, 0x03, 0x05, 0x00, 0xFA, 0xFF};

}

TEST(Attribute_lists, serialise_resumes_inside_an_item)
{
    Attribute_list<Attribute_object_placement> list("child_location", three_placements, 3);
    EXPECT_EQ(list.num_bytes(), 18);
    uint8_t out[100];
    EXPECT_EQ(list.serialise(8, out, 100), 10);
    EXPECT_EQ(Bytes(out, out + 10), Bytes(three_placements_form.begin() + 8, three_placements_form.end()));
    for (int piece = 1; piece <= 19; ++piece)
        EXPECT_EQ(test::attribute_in_pieces(list, piece), three_placements_form) << piece;
    EXPECT_EQ(list.serialise(18, out, 100), 0);
    EXPECT_EQ(list.serialise(0, out, 0), 0);
    EXPECT_EQ(Attribute_list<Attribute_point>("points").serialise(0, out, 100), 0);
}

TEST(Attribute_lists, deserialise_reads_counted_items)
{
    Attribute_list<Attribute_object_placement> list("child_location");
    Attribute_list_len<uint8_t> count("num_objects", &list);
    Bytes in = three_placements_form;
    in.insert(in.begin(), 3);
    EXPECT_EQ(count.deserialise(0, in.data(), int(in.size()), nullptr), 1);
    EXPECT_EQ(list.get_length(), 3u);
    EXPECT_EQ(list.held(), 0u); // the count allocates nothing
    EXPECT_EQ(list.deserialise(0, in.data() + 1, int(in.size()) - 1, nullptr), 18);
    ASSERT_EQ(list.held(), 3u);
    for (unsigned i = 0; i < 3; ++i) {
        EXPECT_TRUE(list[i] == three_placements[i]);
        EXPECT_STREQ(list[i].name, "child_location");
    }
    EXPECT_EQ(test::attribute_bytes(list), three_placements_form);

    // A count of 0 reads nothing and leaves a list without bytes.
    uint8_t zero = 0;
    EXPECT_EQ(count.deserialise(0, &zero, 1, nullptr), 1);
    EXPECT_EQ(list.deserialise(0, in.data(), int(in.size()), nullptr), 0);
    EXPECT_EQ(list.num_bytes(), 0);
}

TEST(Attribute_lists, short_input_is_reported)
{
    test::Dprint_capture dprint;
    Attribute_list<Attribute_object_id> ids("refs");
    uint8_t bytes[8] = {1, 0, 2, 0, 3, 0, 4, 0};
    ids.set_counters(4);
    EXPECT_EQ(ids.deserialise(0, bytes, 7, nullptr), 0);
    EXPECT_EQ(ids.deserialise(3, bytes, 3, nullptr), 0);
    EXPECT_EQ(ids.deserialise(0, bytes, -1, nullptr), 0);
    EXPECT_EQ(dprint.text, "Deser: Not enough data left for list. (4 items, 2 bytes per item, off 0, len 7)\n"
                           "Deser: No data left for list\n"
                           "Deser: No data left for list\n");
    // Nothing was read, yet the count stands: the missing items travel as NULL references.
    EXPECT_EQ(ids.held(), 0u);
    EXPECT_EQ(ids.num_bytes(), 8);
    EXPECT_EQ(test::attribute_bytes(ids), Bytes(8, 0xFF));
    for (int piece = 1; piece <= 9; ++piece)
        EXPECT_EQ(test::attribute_in_pieces(ids, piece), Bytes(8, 0xFF)) << piece;

    dprint.text.clear();
    Attribute_list<Failing_item> failing("failing");
    failing.set_counters(3);
    EXPECT_EQ(failing.deserialise(0, bytes, 8, nullptr), -3);
    EXPECT_EQ(dprint.text, "Deser: List item 1 deser failed: -3\n");
}

TEST(Attribute_lists, count_attribute_enabled_and_disabled)
{
    const Attribute_event_macro macros[] = {{1, 2}, {3, 4}, {5, 6}};
    Attribute_list<Attribute_event_macro> list("event_macro", macros, 3);
    Attribute_list_len<uint16_t> count("num_macros", &list);
    EXPECT_EQ(count.get_type(), Attribute::ATTR_LIST_LEN);
    EXPECT_EQ(list.get_type(), Attribute::ATTR_LIST);
    EXPECT_EQ(count.num_bytes(), 2);
    EXPECT_EQ(test::attribute_bytes(count), (Bytes{3, 0}));
    uint8_t out[4] = {};
    EXPECT_EQ(count.serialise(1, out, 4), 1);
    EXPECT_EQ(out[0], 0);
    EXPECT_EQ(count.serialise(2, out, 4), 0);

    std::ostringstream os;
    count.print_me(os, 1);
    count.get_code_valref("p", os, 0);
    count.get_code_def("p", os, 0);
    EXPECT_EQ(os.str(), "  Type: 17\tName: num_macros Value: 3\n3");

    Attribute_list_len<uint32_t> wide("wide", &list);
    EXPECT_EQ(test::attribute_bytes(wide), (Bytes{3, 0, 0, 0}));

    count.set_enabled(false);
    EXPECT_EQ(count.num_bytes(), 0);
    EXPECT_EQ(count.serialise(0, out, 4), 0);
    uint8_t seven[] = {7, 0};
    EXPECT_EQ(count.deserialise(0, seven, 2, nullptr), 0);
    EXPECT_EQ(list.get_length(), 3u);
    count.set_enabled(true);
    EXPECT_EQ(count.deserialise(0, seven, 1, nullptr), 0); // too short
    EXPECT_EQ(count.deserialise(0, seven, 2, nullptr), 2);
    EXPECT_EQ(list.get_length(), 7u);

    test::Fake_spec spec_node;
    spec_node.set("num_macros", "2");
    EXPECT_EQ(count._set_by_spec(&spec_node, SCALE_AREA_NONE), 1);
    EXPECT_EQ(list.get_length(), 2u);
    Attribute_list_len<uint8_t> absent("absent", &list);
    EXPECT_EQ(absent._set_by_spec(&spec_node, SCALE_AREA_NONE), 0);
    EXPECT_EQ(list.get_length(), 2u);
}

TEST(Attribute_lists, set_by_spec_uses_the_item_filter)
{
    test::Fake_spec spec_node;
    spec_node.shared().ids = {{"a", 10}, {"b", 11}};
    VT::Base::Number_variable_obj a(10, "a", 0), b(11, "b", 0);
    spec_node.shared().objects = {{"a", &a}, {"b", &b}};
    spec_node.add_child(test::Fake_spec("Event_macro").set("event_id", "9").set("macro_id", "3"))
        .add_child(test::Fake_spec("Child").set("refs", "a"))
        .add_child(test::Fake_spec("Editable").set("object", "b"))
        .add_child(test::Fake_spec("Child").set("refs", "b"));

    Attribute_list<Attribute_event_macro> macros("event_macro");
    EXPECT_TRUE(macros._set_by_spec(&spec_node, SCALE_AREA_NONE));
    ASSERT_EQ(macros.get_length(), 1u);
    EXPECT_EQ(macros[0].get_event_id(), 9);
    EXPECT_EQ(macros[0].get_macro_id(), 3);

    // The Editable child carries no "refs" value: a NULL reference, silently.
    test::Stream_capture err(std::cerr);
    Attribute_list<Attribute_object_id> refs("refs");
    EXPECT_TRUE(refs._set_by_spec(&spec_node, SCALE_AREA_ACTIVE));
    ASSERT_EQ(refs.get_length(), 3u);
    EXPECT_EQ(refs[0].get(), 10);
    EXPECT_EQ(refs[1].get(), 65535);
    EXPECT_EQ(refs[2].get(), 11);
    EXPECT_EQ(a.get_scale_area(), SCALE_AREA_ACTIVE);
    EXPECT_EQ(err.str(), "");

    Attribute_list<Attribute_editable_object> editable("Editable");
    EXPECT_TRUE(editable._set_by_spec(&spec_node, SCALE_AREA_NONE));
    ASSERT_EQ(editable.get_length(), 1u);
    EXPECT_EQ(editable[0].get_oid(), 11);

    // No node: the items are dropped and the answer is false.
    EXPECT_FALSE(refs._set_by_spec(nullptr, SCALE_AREA_NONE));
    EXPECT_EQ(refs.get_length(), 0u);
    test::Fake_spec childless;
    EXPECT_TRUE(macros._set_by_spec(&childless, SCALE_AREA_NONE));
    EXPECT_EQ(macros.get_length(), 0u);
}

TEST(Attribute_lists, printing_and_source)
{
    test::Fake_spec spec_node;
    spec_node.shared().ids = {{"first", 5}, {"second", 6}};
    VT::Base::Number_variable_obj first(5, "first", 0), second(6, "second", 0);
    spec_node.shared().objects = {{"first", &first}, {"second", &second}};
    spec_node.add_child(test::Fake_spec("Child").set("refs", "first")).add_child(test::Fake_spec("Child").set("refs", "second"));
    Attribute_list<Attribute_object_id> refs("refs");
    refs._set_by_spec(&spec_node, SCALE_AREA_NONE);

    std::ostringstream code;
    refs.get_code_def("obj", code, 1);
    refs.get_code_body("obj", code, 1);
    refs.get_code_valref("obj", code, 0);
    refs.get_code_init("obj", code, 0);
    EXPECT_EQ(code.str(), "    /*obj*/Attribute_object_id obj_refs[2];\n"
                          "    obj_refs[0] =/*obj*/Attribute_object_id(Oids::first,\"refs\");\n"
                          "    obj_refs[1] =/*obj*/Attribute_object_id(Oids::second,\"refs\");\n"
                          "obj_refs");

    const Attribute_point points[] = {{1, 2}, {300, 4}};
    Attribute_list<Attribute_point> polygon("points", points, 2);
    std::ostringstream pcode;
    polygon.get_code_body("p", pcode, 0);
    EXPECT_EQ(pcode.str(), "p_points[0] =Attribute_point(1,2);\np_points[1] =Attribute_point(300,4);\n");

    std::ostringstream empty;
    Attribute_list<Attribute_point> none("none");
    none.get_code_def("p", empty, 0);
    none.get_code_body("p", empty, 0);
    none.get_code_valref("p", empty, 0);
    EXPECT_EQ(empty.str(), "NULL");

    // Object references list their ids; other lists print only their count.
    std::ostringstream os;
    refs.print_me(os, 1);
    const Attribute_event_macro macros[] = {{1, 2}};
    Attribute_list<Attribute_event_macro>("event_macro", macros, 1).print_me(os, 0);
    EXPECT_EQ(os.str(), "  Type: 10\tName: refs With 2 items\n"
                        "    Type: 23\tName: refs id: 5\n"
                        "    Type: 23\tName: refs id: 6\n"
                        "Type: 10\tName: event_macro With 1 items\n");
}

TEST(Attribute_lists, set_length_pads_with_null_references)
{
    Attribute_list<Attribute_object_placement> list("child_location", three_placements, 1);
    list.set_length(3);
    ASSERT_EQ(list.held(), 3u);
    EXPECT_EQ(list[0].get_object_id(), 0x0101);
    EXPECT_EQ(list[1].get_object_id(), 65535);
    EXPECT_EQ(list[2].get_object_id(), 65535);
    EXPECT_STREQ(list[2].name, "child_location");
    list.set_length(1);
    EXPECT_EQ(list.held(), 1u);
    EXPECT_EQ(list.num_bytes(), 6);
    EXPECT_EQ(list.item(1), nullptr);

    // Items given without a name take the list's.
    EXPECT_STREQ(list[0].name, "child_location");
}

TEST(Code_plane_ranges, byte_form_and_round_trip)
{
    const Attribute_code_plane_range ranges[] = {{0x0020, 0x007E}, {0x00A0, 0x00FF}};
    Attribute_code_plane_rangeset set(0, 2, ranges);
    const Bytes form{0x00, 0x02, 0x20, 0x00, 0x7E, 0x00, 0xA0, 0x00, 0xFF, 0x00};
    EXPECT_EQ(set.num_bytes(), 10);
    for (int piece = 1; piece <= 11; ++piece)
        EXPECT_EQ(test::attribute_in_pieces(set, piece), form) << piece;

    Attribute_code_plane_rangeset back;
    Bytes in = form;
    EXPECT_EQ(back.deserialise(0, in.data(), int(in.size()), nullptr), 10);
    EXPECT_TRUE(back == set);
    Attribute_code_plane_rangeset copy = set;
    EXPECT_TRUE(copy == set);
    EXPECT_FALSE(copy == Attribute_code_plane_rangeset(0, 1, ranges));

    // Without its count the set is one byte shorter.
    set.set_count_enabled(false);
    EXPECT_EQ(set.num_bytes(), 9);
    EXPECT_EQ(test::attribute_bytes(set), (Bytes{0x00, 0x20, 0x00, 0x7E, 0x00, 0xA0, 0x00, 0xFF, 0x00}));

    test::Fake_spec spec_node;
    spec_node.set("first_char", "1").set("code_plane", "3");
    EXPECT_FALSE(back._set_by_spec(&spec_node, SCALE_AREA_NONE));
    EXPECT_TRUE(back == Attribute_code_plane_rangeset(0, 2, ranges));
    Attribute_code_plane_range range(4, 5);
    EXPECT_FALSE(range._set_by_spec(&spec_node, SCALE_AREA_NONE));
    EXPECT_TRUE(range == Attribute_code_plane_range(4, 5));

    std::ostringstream code;
    Attribute_list<Attribute_code_plane_rangeset> sets("code_planes", &back, 1);
    sets.get_code_body("p", code, 0);
    Attribute_list<Attribute_code_plane_range>("ranges", ranges, 2).get_code_body("p", code, 0);
    EXPECT_EQ(code.str(), "p_code_planes[0] =Attribute_code_plane_rangeset(0,2);\n"
                          "p_ranges[0] =Attribute_code_plane_range(32,126);\n"
                          "p_ranges[1] =Attribute_code_plane_range(160,255);\n");
}

TEST(Code_plane_ranges, list_of_sets_checks_with_the_first_items_size)
{
    test::Dprint_capture dprint;
    Attribute_list<Attribute_code_plane_rangeset> sets("code_planes");
    sets.set_counters(2);
    uint8_t in[] = {0, 0, 1};
    EXPECT_EQ(sets.deserialise(0, in, 3, nullptr), 0);
    EXPECT_EQ(dprint.text, "Deser: Not enough data left for list. (2 items, 2 bytes per item, off 0, len 3)\n");

    // Two sets of different sizes read one after the other.
    uint8_t two[] = {0, 1, 0x41, 0, 0x5A, 0, 1, 0};
    EXPECT_EQ(sets.deserialise(0, two, 8, nullptr), 8);
    EXPECT_EQ(sets[0].get_ranges()[0].get_last_char(), 0x5A);
    EXPECT_EQ(sets[1].get_plane(), 1);
    EXPECT_EQ(sets[1].get_num_ranges(), 0);
}
