#include "core_test_helpers.h"

using namespace VT;
using VT::Base::Number_variable_obj;
using VT::Base::String_variable_obj;
using test::Bytes;

namespace {

// An attribute whose deserialise fails outright.
class Broken_attribute : public Attribute_uint8
{
public:
    Broken_attribute() : Attribute_uint8(0, 255, "broken") {}
    int deserialise(int, uint8_t*, int, Iso::Deserialise_results*) override { return -5; }
};

// An object of any type with one byte attribute (and optionally a broken one after it).
class Typed_obj : public VT_obj
{
public:
    Typed_obj(uint16_t id, type_t type, bool broken = false)
        : VT_obj(id, type, 2, aid_table_storage, broken ? 2 : 1, every_table_storage, 0, nullptr, "typed")
    {
        set_table(aid_table_storage, {class_type_attribute<255>(), &value});
        set_table(every_table_storage, {&value, &bad});
    }
    Attribute_uint8 value{0, 255, 1, "value"};
    Broken_attribute bad;
    Attribute* aid_table_storage[3];
    Attribute* every_table_storage[3];
};

char abc[] = {'a', 'b', 'c'};

}

TEST(Variables, documented_byte_forms)
{
    Number_variable_obj n(5, "n", 300);
    EXPECT_EQ(n.num_bytes(), 7);
    EXPECT_EQ(test::hex(test::serialise_whole(n)), "05 00 15 2C 01 00 00");
    String_variable_obj s(7, "s", 3, abc);
    EXPECT_EQ(s.num_bytes(), 8);
    EXPECT_EQ(test::hex(test::serialise_whole(s)), "07 00 16 03 00 61 62 63");
    EXPECT_EQ(n.get_ctype(), VT_obj_type::TYPE_NUMBER_VARIABLE);
    EXPECT_EQ(s.get_type(), VT_obj_type::TYPE_STRING_VARIABLE);
    EXPECT_EQ(n.get_value(), 300u);
    EXPECT_EQ(s.get_length(), 3);

    char dst[10] = {};
    EXPECT_EQ(s.get_string(1, dst, 10), 1);
    EXPECT_EQ(std::string(dst), "bc");
    EXPECT_EQ(s.get_string(3), '\0');
    EXPECT_EQ(s.get_string(0), 'a');
    EXPECT_EQ(s.get_string(3, dst, 2), 0);
    EXPECT_EQ(*s._get_string(9), '\0');
    EXPECT_EQ(std::string(s._get_string(), 3), "abc");
    EXPECT_STREQ(String_variable_obj(8, "e", 0, nullptr)._get_string(), "");
}

TEST(Variables, serialise_in_pieces_of_every_size)
{
    Number_variable_obj n(0xBEEF, "n", 0x01020304);
    String_variable_obj s(0x1234, "s", 3, abc);
    for (VT_obj* obj : std::initializer_list<VT_obj*>{&n, &s}) {
        const Bytes whole = test::serialise_whole(*obj);
        ASSERT_EQ(int(whole.size()), obj->num_bytes());
        for (int piece = 1; piece <= int(whole.size()) + 1; ++piece)
            EXPECT_EQ(test::serialise_in_pieces(*obj, piece), whole) << "piece " << piece;
        // Every offset of the frame resumes with exactly the bytes from there on.
        for (int offset = 0; offset <= int(whole.size()); ++offset) {
            Bytes out(32, 0xEE);
            int k = obj->serialise(offset, out.data(), 32);
            EXPECT_EQ(Bytes(out.begin(), out.begin() + k), Bytes(whole.begin() + offset, whole.end())) << offset;
        }
    }
    uint8_t b[4];
    EXPECT_EQ(n.serialise(2, b, 1), 1);
    EXPECT_EQ(b[0], 0x15); // offset 2 is the type byte
    EXPECT_EQ(n.serialise(3, b, 2), 2);
    EXPECT_EQ(Bytes(b, b + 2), (Bytes{0x04, 0x03}));
    EXPECT_EQ(n.serialise(0, b, 0), 0);
    n.set_allow_serialise(false);
    EXPECT_EQ(n.serialise(0, b, 4), 0);
}

TEST(Variables, deserialise_into_a_fresh_object)
{
    Number_variable_obj n(5, "n", 0xCAFEF00D);
    Bytes bytes = test::serialise_whole(n);
    Number_variable_obj fresh(5, "n", 0);
    Iso::Deserialise_results res;
    EXPECT_EQ(fresh.deserialise(0, bytes.data() + 3, int(bytes.size()) - 3, &res), 4);
    EXPECT_EQ(fresh.get_value(), 0xCAFEF00Du);
    EXPECT_EQ(test::serialise_whole(fresh), bytes);

    char mine[] = {'x', 'y', 'z', 'w', 'v'};
    String_variable_obj s(7, "s", 5, mine);
    Bytes sbytes = test::serialise_whole(s);
    String_variable_obj from_node(new test::Fake_spec());
    from_node.set_id(7);
    EXPECT_EQ(from_node.deserialise(0, sbytes.data() + 3, int(sbytes.size()) - 3, &res), 7);
    EXPECT_EQ(test::serialise_whole(from_node), sbytes);
    EXPECT_EQ(from_node.get_string(4), 'v');

    // Reading into an object that borrowed its text leaves the caller's buffer alone.
    char borrowed[] = {'a', 'b'};
    String_variable_obj b(9, "b", 2, borrowed);
    EXPECT_EQ(b.deserialise(0, sbytes.data() + 3, int(sbytes.size()) - 3, &res), 7);
    EXPECT_EQ(std::string(borrowed, 2), "ab");
    EXPECT_EQ(b.get_length(), 5);
    EXPECT_EQ(res.flags, 0);
}

TEST(Variables, deserialise_failures_are_reported)
{
    test::Dprint_capture dprint;
    Number_variable_obj n(5, "n", 1);
    uint8_t three[] = {1, 2, 3};
    EXPECT_EQ(n.deserialise(0, three, 3, nullptr), -1);
    EXPECT_EQ(n.get_value(), 1u);
    EXPECT_EQ(dprint.text, "Deser: not enough data for all attributes!\n");

    dprint.text.clear();
    String_variable_obj s(7, "s", 3, abc);
    uint8_t counted[] = {3, 0, 'x', 'y'};
    EXPECT_EQ(s.deserialise(0, counted, 4, nullptr), -1);
    EXPECT_EQ(dprint.text, "Deser: Obj attrib [1] num_bytes 3 but ser_len only 0\n");
    dprint.text.clear();
    EXPECT_EQ(s.deserialise(0, counted, 1, nullptr), -1);
    EXPECT_EQ(dprint.text, "Deser: not enough data for all attributes!\n");

    dprint.text.clear();
    Typed_obj broken(0x0203, VT_obj_type::TYPE_MACRO, true);
    uint8_t two[] = {1, 2};
    EXPECT_EQ(broken.deserialise(0, two, 2, nullptr), -1);
    EXPECT_EQ(dprint.text.rfind("Deser: obj ID 515, type 'Macro' (28), attrib [1] ('broken' 0) deser from (0, ", 0), 0u)
        << dprint.text;
    EXPECT_NE(dprint.text.find(", 1) failed: -5\n"), std::string::npos) << dprint.text;

    // An object without tables reads nothing.
    Typed_obj untabled(1, VT_obj_type::TYPE_MACRO);
    untabled.reassign_attribute_pointers(0, nullptr, 0, nullptr);
    EXPECT_EQ(untabled.deserialise(0, two, 2, nullptr), -1);
    EXPECT_EQ(untabled.serialise(0, two, 2), 0);
    EXPECT_EQ(untabled.num_bytes(), 3);
}

TEST(Variables, set_by_spec_needs_every_value)
{
    auto* spec_node = new test::Fake_spec();
    spec_node->set("value", "300");
    Number_variable_obj n(spec_node);
    EXPECT_EQ(n.get_id(), 65535);
    EXPECT_STREQ(n.get_name(), "NO_NAME");
    EXPECT_EQ(n.get_spec_node(), spec_node);
    EXPECT_EQ(n.get_value(), 0u);
    EXPECT_TRUE(n.set_by_spec(SCALE_AREA_NONE));
    EXPECT_EQ(n.get_value(), 300u);

    Number_variable_obj empty(new test::Fake_spec());
    EXPECT_FALSE(empty.set_by_spec(SCALE_AREA_NONE));

    auto* text = new test::Fake_spec();
    text->set("string", "hello");
    String_variable_obj partial(text);
    EXPECT_FALSE(partial.set_by_spec(SCALE_AREA_NONE)); // "length" was not given: still reads the rest
    EXPECT_EQ(partial.get_length(), 5);
    text->set("length", "5");
    EXPECT_TRUE(partial.set_by_spec(SCALE_AREA_NONE));
    EXPECT_EQ(test::hex(test::serialise_whole(partial)), "FF FF 16 05 00 68 65 6C 6C 6F");
}

TEST(Object_base, attribute_lookups)
{
    Number_variable_obj n(5, "n", 300);
    String_variable_obj s(7, "s", 3, abc);
    EXPECT_EQ(n.get_attribute_whole_id(1), 0);
    EXPECT_EQ(n.get_attribute_whole_id(2), -1); // the trailing null slot
    EXPECT_EQ(n.get_attribute_whole_id(3), -1);
    EXPECT_EQ(n.get_attribute_whole_id(-1), -1);
    EXPECT_EQ(s.get_attribute_whole_id(1), -1);
    EXPECT_EQ(n.find_attribute("value"), 0);
    EXPECT_EQ(n.find_attribute("Value"), -1);
    EXPECT_EQ(n.find_attribute(static_cast<const char*>(nullptr)), -1);
    EXPECT_EQ(s.find_attribute("string"), 1);
    EXPECT_EQ(n.find_attribute(n.get_every_attribute(0)), 1);
    EXPECT_EQ(n.find_attribute(s.get_every_attribute(0)), -1);
    EXPECT_EQ(n.get_num_attributes_by_aid(), 2);
    EXPECT_STREQ(n.get_attribute_by_aid(0)->name, "type");
    EXPECT_EQ(static_cast<Attribute_uint8*>(n.get_attribute_by_aid(0))->get(), 21);
    EXPECT_EQ(n.get_attribute_by_aid(2), nullptr);
    EXPECT_EQ(n.get_every_attribute(1), nullptr);
    EXPECT_EQ(s.get_attriutes_num_bytes(), 5);

    // An AID that exists but is not serialised has no place in the byte order.
    Typed_obj t(1, VT_obj_type::TYPE_MACRO);
    t.reassign_attribute_pointers(2, t.aid_table_storage, 1, t.every_table_storage + 1);
    EXPECT_EQ(t.get_attribute_whole_id(1), -1);

    EXPECT_DEATH(n.get_attribute_whole_id(0), "Assertion `aid != 0 && \"AID 0 reserved for special 'type' ReadOnly attrib\"' failed");
}

TEST(Object_base, names)
{
    Number_variable_obj n(1, "a_name_of_forty_characters_1234567890abc", 0);
    EXPECT_EQ(std::string(n.get_name()), "a_name_of_forty_characters_12345");
    char five[5];
    n.get_name(five, 5);
    EXPECT_STREQ(five, "a_na");
    n.set_name("other");
    EXPECT_STREQ(n.get_name(), "other");
    n.set_name(nullptr);
    EXPECT_STREQ(n.get_name(), "other");
    Number_variable_obj anonymous(2, nullptr, 0);
    EXPECT_STREQ(anonymous.get_name(), "");

    // While a pool's list holds the object its name is fixed.
    test::Dprint_capture dprint;
    n.get_list_hook(1)[0] = &n;
    EXPECT_TRUE(n.in_a_list());
    n.set_name("renamed");
    EXPECT_STREQ(n.get_name(), "other");
    EXPECT_EQ(dprint.text, "Cant set name while in a list\n");
    n.get_list_hook(1)[0] = nullptr;
    EXPECT_FALSE(n.in_a_list());
    EXPECT_EQ(n.get_list_hook(0)[5], &n);
}

TEST(Object_base, print_dump_and_source)
{
    Number_variable_obj n(5, "n", 300);
    String_variable_obj s(7, "s", 3, abc);
    std::ostringstream os;
    n.print_me(os, 0);
    s.print_me(os, 1);
    EXPECT_EQ(os.str(), "Number_variable(5)\n"
                        "  Type: 2\tName: value Value: 300\n"
                        "  String_variable(7)\n"
                        "    Type: 17\tName: length Value: 3\n"
                        "    Type: 13\tName: string Value: abc\n");

    std::ostringstream dump;
    Debug::Text_dumper dumper(dump);
    n.serialise(dumper, true);
    s.serialise(dumper, false);
    EXPECT_EQ(dump.str(), "n {\n  id: 5\n  type: Number_variable\n  bytes {\n"
                          "    0: 05\n    1: 00\n    2: 15\n    3: 2c\n    4: 01\n    5: 00\n    6: 00\n"
                          "  }\n}\n"
                          "s {\n  id: 7\n  type: String_variable\n}\n");

    struct Refusing : Debug::Dumper
    {
        int open_group(const char*) override { return 0; }
        void close_group(const char*) override { ++calls; }
        void write(const char*, const char*) override { ++calls; }
        int calls = 0;
    } refusing;
    n.serialise(refusing, true);
    EXPECT_EQ(refusing.calls, 0);

    std::ostringstream code;
    n.get_code_def(code, 1);
    n.get_code_init(code, 1);
    code << ";\n";
    n.get_code_valref(code, 0);
    n.get_code_body(code, 1);
    code << "\n";
    s.get_code_def(code, 0);
    s.get_code_init(code, 0);
    code << ";\n";
    s.get_code_body(code, 0);
    EXPECT_EQ(code.str(), "    Number_variable_obj n;\n"
                          "    n(Oids::n, \"n\", 300U);\n"
                          "&n\n"
                          "char_t s_string[3];\n"
                          "String_variable_obj s;\n"
                          "s(Oids::s, \"s\", 3, s_string);\n"
                          "static const char_t _s_string[] = { 97, 98, 99};\n"
                          "memcpy((void*)s_string,(const void*)_s_string, 3 * sizeof(char_t));\n");
}

TEST(VT_objects, null_placeholder_and_uploads)
{
    test::Recording_pool_helper helper;
    Number_variable_obj n(0x0102, "n", 300);
    n.set_pool_helper(&helper);
    n.set_serialise_as_null_op(true);
    ASSERT_EQ(helper.uploads.size(), 1u);
    EXPECT_EQ(helper.uploads[0], std::make_pair(static_cast<VT_obj*>(&n), true));
    n.set_serialise_as_null_op(true); // unchanged: no upload
    EXPECT_EQ(helper.uploads.size(), 1u);
    EXPECT_EQ(test::hex(test::serialise_whole(n)), "02 01 1B FF FF");
    for (int piece = 1; piece <= 6; ++piece)
        EXPECT_EQ(test::hex(test::serialise_in_pieces(n, piece)), "02 01 1B FF FF");
    n.set_serialise_as_null_op(false);
    EXPECT_EQ(helper.uploads.size(), 2u);
    EXPECT_EQ(test::hex(test::serialise_whole(n)), "02 01 15 2C 01 00 00");

    n.upload(false);
    EXPECT_EQ(helper.uploads.back(), std::make_pair(static_cast<VT_obj*>(&n), false));
    EXPECT_EQ(helper.locks, helper.unlocks);
    int before = helper.locks;
    EXPECT_EQ(n.get_value(), 300u);
    EXPECT_EQ(helper.locks, before + 1);
    EXPECT_EQ(helper.unlocks, before + 1);

    n.set_pool_helper(nullptr);
    EXPECT_EQ(n.get_pool_helper(), Pool_helper_api::get_default());
    EXPECT_TRUE(n.is_in_sync());
    EXPECT_EQ(n.get_width(), 0);
    EXPECT_EQ(n.get_height(), 0);
    EXPECT_EQ(n.get_pool(), nullptr);
}

TEST(VT_objects, scale_areas)
{
    Number_variable_obj n(1, "shared_var", 0);
    test::Stream_capture err(std::cerr);
    n.check_scale_area(SCALE_AREA_NONE);
    EXPECT_EQ(n.get_scale_area(), SCALE_AREA_NONE);
    n.check_scale_area(SCALE_AREA_ACTIVE);
    n.check_scale_area(SCALE_AREA_ACTIVE);
    EXPECT_EQ(err.str(), "");
    n.check_scale_area(SCALE_AREA_SOFT_KEY);
    n.check_scale_area(SCALE_AREA_SOFT_KEY);
    EXPECT_EQ(n.get_scale_area(), SCALE_AREA_ACTIVE);
    const std::string warning = "WARNING:  'shared_var' is used in a soft key area and is also used in the active area.\n"
                                "\tThis may cause problems if they are scaled at different rates.\n";
    EXPECT_EQ(err.str(), warning + warning);
    n.reset_scale_area();
    n.check_scale_area(SCALE_AREA_SOFT_KEY);
    n.check_scale_area(SCALE_AREA_ACTIVE);
    EXPECT_EQ(n.get_scale_area(), SCALE_AREA_SOFT_KEY);
    EXPECT_EQ(err.str(), warning + warning + warning);

    EXPECT_EQ(Typed_obj(1, VT_obj_type::TYPE_SOFT_KEY_MASK).__get_scale_area_type(), SCALE_AREA_SOFT_KEY);
    EXPECT_EQ(Typed_obj(1, VT_obj_type::TYPE_KEY).__get_scale_area_type(), SCALE_AREA_SOFT_KEY);
    EXPECT_EQ(Typed_obj(1, VT_obj_type::TYPE_DATA_MASK).__get_scale_area_type(), SCALE_AREA_ACTIVE);
    EXPECT_EQ(Typed_obj(1, VT_obj_type::TYPE_ALARM_MASK).__get_scale_area_type(), SCALE_AREA_NONE);
    EXPECT_EQ(Typed_obj(1, VT_obj_type::TYPE_CONTAINER).__get_scale_area_type(), SCALE_AREA_NONE);
}

TEST(VT_objects, scaling_transposing_and_justifying)
{
    EXPECT_EQ(VT_obj::scale_attribute(1, 1, 2), 1);
    EXPECT_EQ(VT_obj::scale_attribute(0, 5, 1), 0);
    EXPECT_EQ(VT_obj::scale_attribute(100, 3, 2), 150);
    EXPECT_EQ(VT_obj::scale_attribute(7, 2, 3), 4);
    EXPECT_EQ(VT_obj::scale_attribute(-100, 3, 2), 65536 - 150); // the low 16 bits
    EXPECT_EQ(VT_obj::scale_attribute(65535, 65535, 1), 1);      // the 32-bit product wraps

    const Attribute_object_placement kids[] = {{10, 1, -3}, {11, 100, 50, 10}, {12, 7, 7}};
    test::Box_obj box(1, "box", 200, 1, 3, kids);
    box.set_scale(1, 3, 2, 7);
    EXPECT_EQ(box.width.get(), 100);
    EXPECT_EQ(box.height.get(), 1); // a size never scales to nothing
    EXPECT_EQ(box.child_location[0].get_x(), 0); // positions may
    EXPECT_EQ(box.child_location[0].get_y(), -1); // truncated toward zero
    EXPECT_EQ(box.child_location[1].get_x(), 50);
    EXPECT_EQ(box.child_location[1].get_y(), 21);

    test::Dprint_capture dprint;
    box.set_transpose(5, 0);
    EXPECT_EQ(box.child_location[0].get_x(), 5);
    EXPECT_EQ(box.child_location[0].get_y(), -1);
    EXPECT_EQ(box.child_location[1].get_x(), 50); // justified: left alone
    EXPECT_EQ(box.child_location[2].get_x(), 8);
    EXPECT_EQ(dprint.text, "Not moving object 1 because it will break justification\n");
    box.set_transpose(0, -2);
    EXPECT_EQ(box.child_location[2].get_y(), 1);

    // Justification asks the pool for each child's size; children it cannot find stay put.
    test::Recording_pool_helper helper;
    test::Box_obj wide(11, "wide", 20, 10);
    helper.objects[11] = &wide;
    const Attribute_object_placement layout[] = {{11, 0, 0, 10}, {12, 3, 3, 10}};
    test::Box_obj parent(2, "parent", 100, 50, 2, layout);
    parent.set_pool_helper(&helper);
    parent.justify(parent.child_location, 100, 50);
    EXPECT_EQ(parent.child_location[0].get_x(), 40);
    EXPECT_EQ(parent.child_location[0].get_y(), 20);
    EXPECT_EQ(parent.child_location[1].get_x(), 3);
    // A child without a size of its own is not moved.
    Number_variable_obj sizeless(12, "sizeless", 0);
    helper.objects[12] = &sizeless;
    parent.justify(parent.child_location, 100, 50);
    EXPECT_EQ(parent.child_location[1].get_x(), 3);
}

TEST(VT_objects, serialise_against_the_terminals_limits)
{
    // A colour attribute is written for the terminal's colour depth.
    struct Coloured : VT_obj
    {
        Coloured() : VT_obj(3, VT_obj_type::TYPE_FILL_ATTRIBUTES, 2, aids, 1, every, 0, nullptr, "c")
        {
            set_table(aids, {class_type_attribute<VT_obj_type::TYPE_FILL_ATTRIBUTES>(), &colour});
            set_table(every, {&colour});
        }
        Attribute_colour colour{196, "colour"};
        Attribute* aids[3];
        Attribute* every[2];
    } c;
    EXPECT_EQ(test::hex(test::serialise_whole(c)), "03 00 19 C4");
    test::Recording_pool_helper helper;
    helper.limits.colour_format = FOUR_BIT_COLOUR;
    c.set_pool_helper(&helper);
    EXPECT_EQ(test::hex(test::serialise_whole(c)), "03 00 19 0C");
    helper.limits.colour_format = MONOCHROME;
    EXPECT_EQ(test::hex(test::serialise_whole(c)), "03 00 19 02");
}

TEST(VT_objects, programming_errors_stop_the_process)
{
    Number_variable_obj n(1, "n", 0);
    EXPECT_DEATH(n.__set_numeric_value(3), "Assertion `false' failed");
    EXPECT_DEATH(n.__set_child_location(1, 2, 3), "Assertion `false' failed");
    EXPECT_DEATH(n.__child_location_pending(), "Assertion `false' failed");
    uint8_t bytes[4] = {};
    EXPECT_DEATH(n.deserialise(1, bytes, 4, nullptr), "offsets not fully implemented for deserialise");

    Attribute_object_id font(65535, "font");
    EXPECT_EXIT(n.attribute_null_check(font), ::testing::ExitedWithCode(134),
                "FATAL ERROR!  Number_variable 'n' has NULL attribute 'font'");
    n.attribute_null_check(Attribute_object_id(4, "set")); // a set reference passes
}
