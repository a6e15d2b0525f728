#include "core_test_helpers.h"

#include <array>
#include <set>

using namespace VT;
using Base::VT_obj_relationships;
using T = VT_obj_type;

namespace {

// "3, 6-20, 27" as a set of type numbers.
std::set<unsigned> types(const char* text)
{
    std::set<unsigned> out;
    for (const char* p = text; *p;) {
        char* end;
        unsigned first = unsigned(strtoul(p, &end, 10)), last = first;
        if (*end == '-')
            last = unsigned(strtoul(end + 1, &end, 10));
        for (unsigned t = first; t <= last; ++t)
            out.insert(t);
        p = end;
        while (*p == ',' || *p == ' ')
            ++p;
    }
    return out;
}

// The containment table: per parent, the children admitted from each VT version 2..6.
// Child 255 (the NULL reference) is listed where it needs no context value.
const std::map<unsigned, std::array<const char*, 5>> containment = {
    {0, {"11-16, 20", "", "3, 17-19, 27, 36, 37", "", "46"}},
    {1, {"3, 6-20, 27", "0, 31-33", "36, 37", "43, 44", "46"}},
    {2, {"3, 11-20, 27", "0, 31-33", "36, 37", "43, 44", "46"}},
    {3, {"3, 6-20, 27", "0, 31-33", "36, 37", "43, 44", "46"}},
    {4, {"5, 27", "", "", "43", ""}},
    {5, {"3, 11-16, 20, 27", "", "0, 17-19, 36, 37", "43, 44", "46"}},
    {6, {"3, 11-16, 20, 27", "", "0, 17-19, 36, 37", "43, 44", "46"}},
    {10, {"11, 12, 20", "", "0, 3, 13-19, 27, 36, 37", "43", "46"}},
    {29, {"11-16, 20", "", "", "", "46"}},
    {30, {"11-16, 20", "", "", "", "46"}},
    {31, {"", "3, 11-20, 27", "36, 37", "", "46"}},
    {32, {"", "3, 11-20, 27", "36, 37", "", "46"}},
    {34, {"", "", "0, 3, 6-20, 27, 31-33, 36, 37", "43, 44", "46"}},
    {35, {"", "", "5, 27", "43", ""}},
    {37, {"", "", "0, 3, 6-20, 27, 31-33, 36, 37", "43, 44", "46"}},
    {40, {"", "", "0-20, 31, 32, 34-37", "", "45-47"}},
    {44, {"", "", "", "3, 11-20, 27, 36, 37", "46"}},
    {502, {"3, 11-16, 20, 27, 255", "", "0, 17-19, 36, 37", "", "46"}},
    {758, {"255, 758, 1014", "", "", "", ""}},
    {1014, {"3, 6-20, 27, 255, 1270", "0, 31-33", "36, 37", "", "46"}},
    {1270, {"7-12, 255", "", "37, 1526", "", ""}},
    {1526, {"1270", "", "", "", ""}},
};

int expected_version(unsigned parent, unsigned child, unsigned context)
{
    if (child == 255 && parent == 10)
        return context == 7 ? 2 : 0;
    if (child == 255 && parent == 37)
        return context == 6 ? 2 : 0;
    auto it = containment.find(parent);
    if (it == containment.end())
        return 0;
    for (int v = 0; v < 5; ++v)
        if (types(it->second[size_t(v)]).count(child))
            return v + 2;
    return 0;
}

std::vector<unsigned> all_types()
{
    std::vector<unsigned> out;
    for (unsigned t = 0; t <= 50; ++t)
        out.push_back(t);
    for (unsigned t : {241u, 242u, 243u, 244u, 245u, 246u, 247u, 255u, 502u, 758u, 1014u, 1270u, 1526u, 1782u})
        out.push_back(t);
    return out;
}

}

TEST(Type_catalogue, names)
{
    const char* standard[] = {
        "Working_set", "Data_mask", "Alarm_mask", "Container", "Soft_key_mask", "Key", "Button", "Input_boolean",
        "Input_string", "Input_number", "Input_list", "Output_string", "Output_number", "Line", "Rectangle",
        "Ellipse", "Polygon", "Meter", "Linear_bar_graph", "Arched_bar_graph", "Picture_graphic", "Number_variable",
        "String_variable", "Font_attributes", "Line_attributes", "Fill_attributes", "Input_attributes",
        "Object_pointer", "Macro", "Auxiliary_function", "Auxiliary_input", "Auxiliary_type2_function",
        "Auxiliary_type2_input", "Auxiliary_type2_control_designator", "Window_mask", "Key_group",
        "Graphics_context", "Output_list", "Extended_input_attributes", "Colour_map", "Object_labelref_list",
        "External_object_definition", "External_reference_name", "External_object_pointer", "Animation",
        "Colour_palette", "PNG", "Working_set_special_controls"};
    for (unsigned t = 0; t < 48; ++t) {
        EXPECT_STREQ(T::get_type_string(T::type_t(t)), standard[t]) << t;
        EXPECT_STREQ(VT_obj_relationships::get_name(T::type_t(t)), standard[t]) << t;
    }
    std::map<unsigned, const char*> own = {{241, "Field"},        {242, "Swath"},
                                           {243, "Named_colour"}, {244, "Named_colour_mask"},
                                           {245, "Translatable_string"}, {502, "Config_icon"},
                                           {758, "Config_node"},  {1014, "Config_page"},
                                           {1270, "Config_item"}, {1526, "Config_table"}};
    for (auto& [t, name] : own)
        EXPECT_STREQ(T::get_type_string(T::type_t(t)), name) << t;
    // Everything else, including the configuration base and other high bytes, is unknown.
    for (unsigned t : {48u, 100u, 240u, 246u, 247u, 255u, 256u, 257u, 501u, 1782u, 65535u})
        EXPECT_STREQ(T::get_type_string(T::type_t(t)), "UNKNOWN") << t;
}

TEST(Type_catalogue, mutable_types)
{
    QSet<T::type_t> expected;
    for (unsigned t = 0; t <= 32; ++t)
        expected.insert(T::type_t(t));
    for (unsigned t : {246u, 502u, 758u, 1014u, 1270u, 1526u})
        expected.insert(T::type_t(t));
    EXPECT_EQ(expected.size(), 39);
    EXPECT_EQ(T::create_type_all_set(), expected);
    EXPECT_EQ(types_all_mutable, expected);
    // The catalogue's set and the namespace-level name are one object.
    EXPECT_EQ(&T::types_all_mutable, &types_all_mutable);
    EXPECT_TRUE(types_all_mutable.contains(T::TYPE_AUXILIARY_TYPE2_INPUT));
    EXPECT_FALSE(types_all_mutable.contains(T::TYPE_AUXILIARY_TYPE2_CONTROL_DESIGNATOR));
    EXPECT_FALSE(types_all_mutable.contains(T::TYPE_FIELD));

    testing::internal::CaptureStdout();
    T::print_types(QSet<T::type_t>(), nullptr);
    T::print_types(QSet<T::type_t>{T::TYPE_NUMBER_VARIABLE}, "vars");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "TYPES  (0 types):\nTYPES vars (1 types): 21(Number_variable)\n");
}

TEST(Containment, every_listed_parent_against_every_child)
{
    for (unsigned parent : all_types())
        for (unsigned child : all_types())
            for (unsigned context : {0u, 6u, 7u})
                ASSERT_EQ(VT_obj_relationships::get_child_allowed(T::type_t(parent), T::type_t(child), context),
                          expected_version(parent, child, context))
                    << "parent " << parent << " child " << child << " context " << context;
}

TEST(Containment, documented_cases_and_asymmetries)
{
    auto allowed = [](unsigned parent, unsigned child, unsigned context = 0) {
        return VT_obj_relationships::get_child_allowed(T::type_t(parent), T::type_t(child), context);
    };
    EXPECT_EQ(allowed(4, 5), 2);
    EXPECT_EQ(allowed(4, 6), 0);
    EXPECT_EQ(allowed(4, 43), 5);
    EXPECT_EQ(allowed(10, 255, 7), 2);
    EXPECT_EQ(allowed(10, 255, 6), 0);
    EXPECT_EQ(allowed(37, 255, 6), 2);
    EXPECT_EQ(allowed(37, 255, 7), 0);
    EXPECT_EQ(allowed(502, 255, 0), 2);
    EXPECT_EQ(allowed(1, 255, 7), 0);
    EXPECT_EQ(allowed(0, 0), 0);
    // A working set as a child: 3 under masks, containers and configuration pages, 4 elsewhere.
    for (unsigned p : {1u, 2u, 3u, 1014u})
        EXPECT_EQ(allowed(p, 0), 3) << p;
    for (unsigned p : {5u, 6u, 10u, 34u, 37u, 502u, 40u})
        EXPECT_EQ(allowed(p, 0), 4) << p;
    // The alarm mask refuses buttons and input fields that the data mask accepts.
    for (unsigned c = 6; c <= 10; ++c) {
        EXPECT_EQ(allowed(2, c), 0) << c;
        EXPECT_EQ(allowed(1, c), 2) << c;
    }
    for (unsigned c : {21u, 30u, 33u, 38u, 44u})
        EXPECT_EQ(allowed(40, c), 0) << c;
    for (unsigned c = 0; c < 2000; ++c) {
        EXPECT_EQ(allowed(246, c), 0);
        EXPECT_EQ(allowed(47, c), 0);
    }
}

TEST(VT_messages, lengths_and_fields)
{
    EXPECT_EQ(VT_message(3).get_data_len(), 8u);
    EXPECT_EQ(VT_message(-4).get_data_len(), 8u);
    EXPECT_EQ(VT_message(20).get_data_len(), 20u);
    EXPECT_EQ(VT_message(20).get_msg_len(), 20u);

    VT_message m(8);
    m.set_byte(0, 0xA7);
    EXPECT_EQ(m.get_function(), 0xA7);
    EXPECT_EQ(m.get_command(), 10);
    EXPECT_EQ(m.get_parameter(), 7);
    EXPECT_EQ(m.get_function_group(), 3);
    EXPECT_TRUE(m.is_type(0xA7));
    EXPECT_FALSE(m.is_type(0xA8));

    uint8_t data[3] = {0xFE, 1, 2};
    Vexa_header h;
    h.len = 3;
    h.source = 0x26;
    h.destination = 0x80;
    VT_message from_data(h, data);
    EXPECT_EQ(from_data.get_function_group(), 4);
    EXPECT_EQ(from_data[2], 2);
    Vexa_message original(h, data);
    VT_message reply(original, true);
    EXPECT_EQ(reply.get_header().source, 0x80);
    EXPECT_EQ(reply.get_header().destination, 0x26);
    VT_message assigned(8);
    assigned = original;
    EXPECT_EQ(assigned.get_function(), 0xFE);
    EXPECT_EQ(assigned.get_data_len(), 3u);
    assigned.set_msg_len(12);
    EXPECT_EQ(assigned.get_msg_len(), 12u);
    EXPECT_EQ(assigned.get_data_len(), 12u);
}

TEST(VT_messages, function_groups)
{
    std::map<int, std::vector<int>> groups = {
        {5, {0, 5, 10}},
        {0, {17, 18}},
        {6, {32, 35, 39}},
        {3, {146, 160, 175, 190, 253}},
        {1, {192, 195, 197, 199}},
        {2, {208, 214, 223, 224}},
        {4, {254, 255}},
    };
    VT_message m(8);
    testing::internal::CaptureStdout();
    for (auto& [group, codes] : groups)
        for (int code : codes) {
            m.set_byte(0, uint8_t(code));
            EXPECT_EQ(m.get_function_group(), group) << code;
        }
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");

    std::string expected;
    for (int code : {11, 16, 19, 31, 40, 145, 147, 159, 191, 198, 200, 207, 215, 222, 225, 252}) {
        m.set_byte(0, uint8_t(code));
        testing::internal::CaptureStdout();
        EXPECT_EQ(m.get_function_group(), 8) << code;
        EXPECT_EQ(testing::internal::GetCapturedStdout(),
                  "Unknown message function group for function id " + std::to_string(code) + "\n");
    }
}

TEST(Pool_helpers, the_default_does_nothing)
{
    Pool_helper_api* helper = Pool_helper_api::get_default();
    ASSERT_NE(helper, nullptr);
    EXPECT_EQ(helper, Pool_helper_api::get_default());
    const Serialisation_limits* limits = helper->get_serialisation_limits();
    ASSERT_NE(limits, nullptr);
    EXPECT_EQ(limits->colour_format, 2u);
    EXPECT_EQ(limits->small_font_mask, 255);
    EXPECT_EQ(limits->large_font_mask, 255);
    EXPECT_EQ(limits->font_style_mask, 255);
    EXPECT_EQ(helper->negotiated_version(), 255);
    EXPECT_FALSE(helper->obj_type_supported(21));
    EXPECT_EQ(helper->find_object(Attribute_object_placement(1, 0, 0)), nullptr);
    EXPECT_FALSE(helper->has_pool());
    EXPECT_EQ(helper->get_pool(), nullptr);
    EXPECT_EQ(helper->__get_pool(), nullptr);
    EXPECT_EQ(helper->set_language(Language::LANG_DE), 0);

    // A new object uses it until a pool installs its own.
    Base::Number_variable_obj n(1, "n", 0);
    EXPECT_EQ(n.get_pool_helper(), helper);
}

TEST(Platform, debug_print_goes_to_standard_error_unless_a_sink_is_installed)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(Debug_print::dprint("value %d of %s\n", 5, "x"), 13);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "value 5 of x\n");
    testing::internal::CaptureStderr();
    {
        test::Dprint_capture sink;
        Debug_print::dprint("to the sink %u\n", 7u);
        EXPECT_EQ(sink.text, "to the sink 7\n");
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(Platform, stand_ins)
{
    uint8_t packed[2] = {0xEE, 0xEE};
    Byte_packer packer(packed, 2);
    for (uint8_t n : {1, 2, 3, 0x1F, 5})
        packer.push(n);
    EXPECT_EQ(packer.flush(), 3); // counts what did not fit
    EXPECT_EQ(packed[0], 0x12);
    EXPECT_EQ(packed[1], 0x3F);

    const uint8_t one_and_a_half[] = {0x00, 0x00, 0xC0, 0x3F};
    EXPECT_EQ(bytes_to_float_ieee754(one_and_a_half), 1.5f);

    String_base out;
    out.set("abcdef", 3);
    EXPECT_EQ(out.get(), "abc");
    out.set(nullptr, 3);
    EXPECT_EQ(out.get(), "");
}
