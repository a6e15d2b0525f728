#include "core_test_helpers.h"

#include <unistd.h>

using namespace VT;
using test::Bytes;
using Unresolved = Resolve_colour::List<Resolve_colour::Attribute_node>;

namespace {

// An object with one colour, built from a Spec_node the way the host builds its objects.
class Painted_obj : public VT_obj
{
public:
    explicit Painted_obj(Spec_node* spec_node)
        : VT_obj(spec_node, TYPE_FILL_ATTRIBUTES, 2, aids, 1, every, NO_NAME, NULL_ID)
    {
        set_table(aids, {class_type_attribute<TYPE_FILL_ATTRIBUTES>(), &fill_colour});
        set_table(every, {&fill_colour});
    }
    Attribute_colour fill_colour{0, "fill_colour"};
    Attribute* aids[3];
    Attribute* every[2];
};

unsigned char colour_of(const char* text)
{
    unsigned char c = 99;
    EXPECT_TRUE(Attribute_colour::get_colour_val(text, c)) << text;
    return c;
}

}

TEST(Colour_texts, parse_names_numbers_and_rgb)
{
    EXPECT_EQ(colour_of("#FF0000"), 196); // the cube's red, not the standard 12
    EXPECT_EQ(colour_of("#000000"), 16);
    EXPECT_EQ(colour_of("#808080"), 145);
    EXPECT_EQ(colour_of("#ffffff"), 231);
    // Each component goes to the nearest of the six levels 0, 0x33, ... 0xFF.
    EXPECT_EQ(colour_of("#193366"), 16 + 36 * 0 + 6 * 1 + 2);
    EXPECT_EQ(colour_of("#1A3366"), 16 + 36 * 1 + 6 * 1 + 2);
    for (const char* red : {"red", "RED", "Red", "12", "0x0C", "014"})
        EXPECT_EQ(colour_of(red), 12) << red;
    EXPECT_EQ(colour_of("300"), 44); // truncated to 8 bits
    EXPECT_EQ(colour_of("black"), 0);
    EXPECT_EQ(colour_of("NAVY"), 15);
    EXPECT_EQ(colour_of("0"), 0);

    unsigned char untouched = 77;
    for (const char* bad : {"mauve", "", "#12", "#GG0000", "redish", " red"})
        EXPECT_FALSE(Attribute_colour::get_colour_val(bad, untouched)) << bad;
    EXPECT_FALSE(Attribute_colour::get_colour_val(nullptr, untouched));
    EXPECT_EQ(untouched, 77);

    EXPECT_EQ(Attribute_colour::num_named_colours, 16);
    EXPECT_STREQ(Attribute_colour::list_named_colours[8], "grey");
    EXPECT_STREQ(Attribute_colour::list_named_colours[15], "navy");
}

TEST(Colour_depths, remap_for_smaller_terminals)
{
    EXPECT_EQ(Attribute_colour::remap_colour(196, FOUR_BIT_COLOUR), 12);
    EXPECT_EQ(Attribute_colour::remap_colour(240, FOUR_BIT_COLOUR), 0);
    EXPECT_EQ(Attribute_colour::remap_colour(249, FOUR_BIT_COLOUR), 9);
    EXPECT_EQ(Attribute_colour::remap_colour(5, FOUR_BIT_COLOUR), 5);
    EXPECT_EQ(Attribute_colour::remap_colour(231, FOUR_BIT_COLOUR), 1);
    EXPECT_EQ(Attribute_colour::remap_colour(16, FOUR_BIT_COLOUR), 0);
    // Cells where the reduction is not symmetric in r, g and b.
    auto cube = [](int r, int g, int b) { return uint8_t(16 + 36 * r + 6 * g + b); };
    EXPECT_EQ(Attribute_colour::remap_colour(cube(3, 4, 4), FOUR_BIT_COLOUR), 7);
    EXPECT_EQ(Attribute_colour::remap_colour(cube(4, 3, 4), FOUR_BIT_COLOUR), 7);
    EXPECT_EQ(Attribute_colour::remap_colour(cube(4, 3, 5), FOUR_BIT_COLOUR), 1);
    EXPECT_EQ(Attribute_colour::remap_colour(cube(4, 4, 2), FOUR_BIT_COLOUR), 1);
    EXPECT_EQ(Attribute_colour::remap_colour(cube(4, 4, 3), FOUR_BIT_COLOUR), 7);
    EXPECT_EQ(Attribute_colour::remap_colour(cube(5, 3, 4), FOUR_BIT_COLOUR), 1);
    EXPECT_EQ(Attribute_colour::remap_colour(cube(2, 0, 5), FOUR_BIT_COLOUR), 9);
    EXPECT_EQ(Attribute_colour::remap_colour(cube(0, 2, 2), FOUR_BIT_COLOUR), 3);
    EXPECT_EQ(Attribute_colour::remap_colour(cube(5, 2, 4), FOUR_BIT_COLOUR), 13);
    for (int c = 0; c < 256; ++c) {
        EXPECT_EQ(Attribute_colour::remap_colour(uint8_t(c), MONOCHROME), 2);
        EXPECT_EQ(Attribute_colour::remap_colour(uint8_t(c), EIGHT_BIT_COLOUR), c);
        EXPECT_EQ(Attribute_colour::remap_colour(uint8_t(c), format_t(3)), 1);
        EXPECT_LT(Attribute_colour::remap_colour(uint8_t(c), FOUR_BIT_COLOUR), 16);
    }

    Attribute_colour colour(196, "colour");
    EXPECT_EQ(colour.get_type(), Attribute::ATTR_COLOUR);
    Serialisation_limits limits;
    uint8_t out[2] = {0xEE, 0xEE};
    EXPECT_EQ(colour.serialise(&limits, 0, out, 2), 1);
    EXPECT_EQ(out[0], 196);
    limits.colour_format = FOUR_BIT_COLOUR;
    EXPECT_EQ(colour.serialise(&limits, 0, out, 2), 1);
    EXPECT_EQ(out[0], 12);
    EXPECT_EQ(colour.serialise(nullptr, 0, out, 2), 1);
    EXPECT_EQ(out[0], 196);
    EXPECT_EQ(colour.serialise(&limits, 1, out, 2), 0);
    EXPECT_EQ(colour.serialise(&limits, 0, out, 0), 0);
    EXPECT_EQ(test::attribute_bytes(colour), (Bytes{196}));
}

TEST(Palette, entries)
{
    unsigned a, r, g, b;
    auto rgb = [&](int index) {
        Colours::get_vt_colour(index, a, r, g, b);
        EXPECT_EQ(a, 255u) << index;
        return r << 16 | g << 8 | b;
    };
    const unsigned standard[16] = {0x000000, 0xFFFFFF, 0x009900, 0x009999, 0x990000, 0x990099, 0x999900, 0xCCCCCC,
                                   0x999999, 0x0000FF, 0x00FF00, 0x00FFFF, 0xFF0000, 0xFF00FF, 0xFFFF00, 0x000099};
    for (int i = 0; i < 16; ++i)
        EXPECT_EQ(rgb(i), standard[i]) << i;
    EXPECT_EQ(rgb(16), 0x000000u);
    EXPECT_EQ(rgb(17), 0x000033u);
    EXPECT_EQ(rgb(16 + 6), 0x003300u);
    EXPECT_EQ(rgb(196), 0xFF0000u);
    EXPECT_EQ(rgb(145), 0x999999u);
    EXPECT_EQ(rgb(230), 0xFFFFCCu);
    EXPECT_EQ(rgb(231), 0xFFFFFFu);
    EXPECT_EQ(rgb(232), 0x000001u);
    EXPECT_EQ(rgb(236), 0x666666u);
    EXPECT_EQ(rgb(241), 0xFFFFCCu);
    EXPECT_EQ(rgb(249), 0x9D1624u);
    EXPECT_EQ(rgb(250), 0x000000u);
    EXPECT_EQ(rgb(255), 0x000000u);
    EXPECT_EQ(rgb(256), 0x000000u);
    EXPECT_EQ(rgb(-1), 0x000000u);

    const QVector<unsigned int>& table = Colours::get_standard_vt_colour_table();
    ASSERT_EQ(table.size(), 256);
    EXPECT_EQ(&table, &Colours::get_standard_vt_colour_table());
    EXPECT_EQ(table[0], 0xFF000000u);
    EXPECT_EQ(table[12], 0xFFFF0000u);
    EXPECT_EQ(table[249], 0xFF9D1624u);
    QColor q;
    Colours::get_vt_colour(2, q);
    EXPECT_EQ(q, QColor(0, 0x99, 0, 255));

    unsigned int pixel = 0xFFFF0000;
    EXPECT_EQ(Colours::set_vt_colour_trans(pixel, 12), 0u); // the transparency colour itself becomes 0
    EXPECT_EQ(pixel, 0u);
    pixel = 0xFFFFFFFF;
    EXPECT_EQ(Colours::set_vt_colour_trans(pixel, 12), 0x0000FFFFu);
}

TEST(Colour_set_by_spec, parse_now_or_queue)
{
    test::Fake_spec spec_node;
    spec_node.set("fill", "Lime").set("line", "#00FF00").set("odd", "mauve").set(
        "long", "a_colour_name_that_runs_far_past_thirty_one_characters");
    Attribute_colour fill(9, "fill");
    EXPECT_EQ(fill._set_by_spec(&spec_node, SCALE_AREA_NONE), 1);
    EXPECT_EQ(fill.get(), 10);
    Attribute_colour line(0, "line");
    EXPECT_EQ(line.set_by_spec(&spec_node, false), 1);
    EXPECT_EQ(line.get(), 16 + 6 * 5);

    // Absent text: black, and false. No node: nothing changes.
    Attribute_colour absent(9, "absent");
    EXPECT_EQ(absent._set_by_spec(&spec_node, SCALE_AREA_NONE), 0);
    EXPECT_EQ(absent.get(), 0);
    Attribute_colour none(9, "none");
    EXPECT_EQ(none._set_by_spec(nullptr, SCALE_AREA_NONE), 0);
    EXPECT_EQ(none.get(), 9);

    test::Dprint_capture dprint;
    Attribute_colour odd(9, "odd");
    EXPECT_EQ(odd.set_by_spec(&spec_node, false), 0);
    EXPECT_EQ(odd.get(), 0);
    EXPECT_EQ(dprint.text, "WARNING: Could not parse colour 'mauve'\n");
    EXPECT_EQ(Unresolved::unresolved.get_count(), 0);

    // Deferred: queued with a copy of the text and the node it came from.
    {
        Attribute_colour later(9, "odd");
        EXPECT_EQ(later._set_by_spec(&spec_node, SCALE_AREA_NONE), 1);
        EXPECT_EQ(later.get(), 0);
        ASSERT_EQ(Unresolved::unresolved.get_count(), 1);
        EXPECT_EQ(Unresolved::unresolved.get_head(), &later.get_node());
        EXPECT_STREQ(later.get_node().get_name(), "mauve");
        EXPECT_EQ(later.get_node().get_spec_node(), &spec_node);
        // Read again, it is still queued once; read as a colour, it leaves the queue.
        EXPECT_EQ(later._set_by_spec(&spec_node, SCALE_AREA_NONE), 1);
        EXPECT_EQ(Unresolved::unresolved.get_count(), 1);
        EXPECT_EQ(later.set_by_spec(&spec_node, true), 1);
        EXPECT_EQ(Unresolved::unresolved.get_count(), 1);
        test::Fake_spec plain;
        plain.set("odd", "yellow");
        EXPECT_EQ(later._set_by_spec(&plain, SCALE_AREA_NONE), 1);
        EXPECT_EQ(later.get(), 14);
        EXPECT_EQ(Unresolved::unresolved.get_count(), 0);
        EXPECT_EQ(later._set_by_spec(&spec_node, SCALE_AREA_NONE), 1);
        EXPECT_EQ(Unresolved::unresolved.get_count(), 1);

        Attribute_colour truncated(9, "long");
        EXPECT_EQ(truncated._set_by_spec(&spec_node, SCALE_AREA_NONE), 1);
        EXPECT_STREQ(truncated.get_node().get_name(), "a_colour_name_that_runs_far_pas");
        EXPECT_EQ(Unresolved::unresolved.get_count(), 2);
    }
    // Attributes that go away leave the queue.
    EXPECT_EQ(Unresolved::unresolved.get_count(), 0);
    EXPECT_EQ(Unresolved::unresolved.get_head(), nullptr);
}

namespace {
std::vector<std::string> seen;
unsigned char by_name(Resolve_colour::Attribute_node& node)
{
    char where[64];
    node.get_spec_node()->describe(where, sizeof where);
    seen.push_back(std::string(node.get_name()) + "@" + where);
    return std::string(node.get_name()) == "orange" ? 208 : 200;
}
}

TEST(Colour_set_by_spec, resolved_after_the_objects_are_built)
{
    auto* first = new test::Fake_spec("Fill_one");
    first->set("fill_colour", "orange");
    auto* second = new test::Fake_spec("Fill_two");
    second->set("fill_colour", "sunset");
    Painted_obj a(first), b(second);
    EXPECT_TRUE(a.set_by_spec(SCALE_AREA_NONE));
    EXPECT_TRUE(b.set_by_spec(SCALE_AREA_NONE));
    EXPECT_EQ(Unresolved::unresolved.get_count(), 2);
    EXPECT_EQ(test::hex(test::serialise_whole(a)), "FF FF 19 00");

    EXPECT_FALSE(Unresolved::unresolved.resolve_colours(nullptr));
    EXPECT_EQ(Unresolved::unresolved.get_count(), 2);

    // Resolution goes through the range-limited assignment.
    b.fill_colour = Attribute_colour(0, 100, 0, "fill_colour");
    seen.clear();
    test::Stream_capture err(std::cerr);
    EXPECT_TRUE(Unresolved::unresolved.resolve_colours(by_name));
    EXPECT_EQ(seen, (std::vector<std::string>{"orange@<Fill_one>", "sunset@<Fill_two>"}));
    EXPECT_EQ(a.fill_colour.get(), 208);
    EXPECT_EQ(b.fill_colour.get(), 100);
    EXPECT_EQ(err.str(), "WARNING: attempt to set 'fill_colour' to 200, maximum is 100\n");
    EXPECT_EQ(Unresolved::unresolved.get_count(), 0);
    EXPECT_EQ(a.fill_colour.get_node().get_name(), nullptr);
    EXPECT_FALSE(a.fill_colour.get_node().in_list());
    EXPECT_EQ(test::hex(test::serialise_whole(a)), "FF FF 19 D0");

    // An empty queue resolves at once.
    EXPECT_TRUE(Unresolved::unresolved.resolve_colours(by_name));
    EXPECT_EQ(seen.size(), 2u);

    // A node can be queued again once it has been resolved.
    a.fill_colour.get_node().add_to_unresolved_list("again");
    EXPECT_EQ(Unresolved::unresolved.get_count(), 1);
    EXPECT_TRUE(Unresolved::unresolved.resolve_colours(by_name));
    EXPECT_EQ(a.fill_colour.get(), 200);
}

namespace {
Attribute_identifier<unsigned char> target;
VT_obj* referenced = nullptr;
bool attribute_found = false;
unsigned char to_attribute(Resolve_colour::Attribute_node& node)
{
    attribute_found = node.set_attribute(target, referenced);
    return 0;
}
}

TEST(Colour_set_by_spec, colours_that_name_attributes_of_other_objects)
{
    Base::Number_variable_obj speed(0x0405, "speed", 0);
    class Working_set_like : public VT_obj
    {
    public:
        Working_set_like() : VT_obj(3, TYPE_WORKING_SET, 1, aids, 0, every, 0, nullptr, "ws")
        {
            set_table(aids, {class_type_attribute<TYPE_WORKING_SET>()});
            set_table(every, {});
        }
        Attribute* aids[2];
        Attribute* every[1];
    } ws;
    test::Fake_spec spec_node("Named_colour");
    test::Dprint_capture dprint;
    auto resolve = [&](const char* text, VT_obj* obj) {
        spec_node.set("c", text);
        Attribute_colour c(0, "c");
        c._set_by_spec(&spec_node, SCALE_AREA_NONE);
        referenced = obj;
        target = Attribute_identifier<unsigned char>(1, 1);
        Unresolved::unresolved.resolve_colours(to_attribute);
        return attribute_found;
    };

    EXPECT_TRUE(resolve("value", &speed));
    EXPECT_EQ(target.get_oid(), 0x0405);
    EXPECT_EQ(target.get_identifier(), 1); // the attribute id of "value"
    EXPECT_EQ(dprint.text, "");

    EXPECT_FALSE(resolve("value", nullptr));
    EXPECT_EQ(dprint.text, "WARNING: Could not find object <Named_colour>\n");
    dprint.text.clear();
    EXPECT_FALSE(resolve("speed_limit", &speed));
    EXPECT_EQ(dprint.text, "WARNING: Could not find attribute in object <Named_colour>\n");
    EXPECT_EQ(target.get_oid(), 1);

    // An object of type 0 stands for itself: attribute id 0.
    dprint.text.clear();
    EXPECT_TRUE(resolve("anything", &ws));
    EXPECT_EQ(target.get_oid(), 3);
    EXPECT_EQ(target.get_identifier(), 0);
    EXPECT_EQ(dprint.text, "");
}

TEST(Colour_set_by_spec, queueing_a_node_twice_is_a_bug)
{
    Attribute_colour c(0, "c");
    c.get_node().add_to_unresolved_list("first");
    EXPECT_DEATH(
        {
            fflush(stdout);
            dup2(fileno(stderr), fileno(stdout)); // the report goes to standard output
            c.get_node().add_to_unresolved_list("second");
        },
        "BUG: sl_list::push, already in a list\\.");
    EXPECT_EQ(Unresolved::unresolved.get_count(), 1);
}
