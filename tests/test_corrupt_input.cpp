// Truncated and corrupted object bytes: deserialise must fail cleanly (-1) or read a valid
// object, never touch memory outside the input, and leave an object that still serialises.
// Run under the sanitizer build, where any stray access ends the test run.

#include "core_test_helpers.h"

#include <functional>
#include <memory>
#include <random>

using namespace VT;
using test::Bytes;

namespace {

// Counts of every width ahead of variable-size lists and arrays, a float and a 64-bit value.
class Mixed_obj : public VT_obj
{
public:
    explicit Mixed_obj(uint16_t id = 1)
        : VT_obj(id, TYPE_EXTENDED_INPUT_ATTRIBUTES, 2, aids, 11, every, 0, nullptr, "mixed")
    {
        set_table(aids, {class_type_attribute<TYPE_EXTENDED_INPUT_ATTRIBUTES>(), &zoom});
        set_table(every, {&zoom, &colour, &num_sets, &num_data, &num_ids, &big, &num_macros, &sets, &data, &ids,
                          &macros});
    }
    void fill()
    {
        zoom = 1.25f;
        big = uint64_t(0); // 64-bit values are not read back; 0 survives the round trip
        colour = uint8_t(200);
        const Attribute_code_plane_range r[] = {{0x20, 0x7E}, {0xA0, 0xFF}};
        const Attribute_code_plane_rangeset s[] = {Attribute_code_plane_rangeset(0, 2, r),
                                                   Attribute_code_plane_rangeset(1, 1, r + 1)};
        sets.set_items(s, 2);
        data_bytes = {1, 2, 3, 4, 5};
        data.set_buf(data_bytes.data(), 5);
        const Attribute_identifier<unsigned char> i[] = {{1, 2}};
        ids.set_items(i, 1);
        const Attribute_event_macro m[] = {{1, 2}, {3, 4}};
        macros.set_items(m, 2);
    }

    Attribute_float zoom{"zoom"};
    Attribute_colour colour{0, "colour"};
    Attribute_list_len<uint8_t> num_sets{"num_sets", &sets};
    Attribute_list_len<uint32_t> num_data{"num_data", &data};
    Attribute_list_len<uint16_t> num_ids{"num_ids", &ids};
    Attribute_uint64 big{0, 1000, 7, "big"};
    Attribute_list_len<uint8_t> num_macros{"num_macros", &macros};
    Attribute_list<Attribute_code_plane_rangeset> sets{"sets"};
    Attribute_array_uint8 data{"data"};
    Attribute_list<Attribute_identifier<unsigned char>> ids{"ids"};
    Attribute_list<Attribute_event_macro> macros{"event_macro"};
    Bytes data_bytes;
    Attribute* aids[3];
    Attribute* every[12];
};

char text[] = {'h', 'e', 'l', 'l', 'o', '!'};

struct Sample
{
    const char* what;
    std::function<std::unique_ptr<VT_obj>()> make;
    Bytes attributes; // the bytes after id and type
};

std::vector<Sample> samples()
{
    std::vector<Sample> out;
    auto add = [&](const char* what, std::function<std::unique_ptr<VT_obj>()> make, VT_obj& valid) {
        Bytes whole = test::serialise_whole(valid);
        out.push_back({what, std::move(make), Bytes(whole.begin() + 3, whole.end())});
    };
    Base::Number_variable_obj n(1, "n", 0x12345678);
    add("number variable", [] { return std::make_unique<Base::Number_variable_obj>(2, "n", 0); }, n);
    Base::String_variable_obj s(1, "s", 6, text);
    add("string variable", [] { return std::make_unique<Base::String_variable_obj>(new test::Fake_spec()); }, s);
    const Attribute_object_placement kids[] = {{10, 1, 2}, {11, -3, 4}, {12, 5, 6}};
    test::Box_obj box(1, "box", 100, 50, 3, kids);
    add("box", [] { return std::make_unique<test::Box_obj>(new test::Fake_spec()); }, box);
    Mixed_obj mixed;
    mixed.fill();
    add("mixed", [] { return std::make_unique<Mixed_obj>(); }, mixed);
    return out;
}

// Deserialises exactly `input` from a heap block of its own size; checks the outcome.
int read_back(VT_obj& obj, const Bytes& input)
{
    std::unique_ptr<uint8_t[]> block(new uint8_t[input.size()]);
    if (!input.empty())
        memcpy(block.get(), input.data(), input.size());
    Iso::Deserialise_results res;
    int r = obj.deserialise(0, input.empty() ? nullptr : block.get(), int(input.size()), &res);
    EXPECT_TRUE(r == -1 || (r >= 0 && r <= int(input.size()))) << r;
    // Whatever happened, the object serialises within the room it is given.
    Bytes out(512, 0xEE);
    int n = obj.serialise(0, out.data(), 500);
    EXPECT_TRUE(n >= 3 && n <= 500) << n;
    EXPECT_EQ(out[500], 0xEE);
    if (r >= 0 && obj.num_bytes() <= 500) {
        EXPECT_EQ(n, obj.num_bytes());
    }
    return r;
}

}

TEST(Corrupt_input, every_prefix_fails_cleanly_and_the_whole_reads_back)
{
    test::Dprint_capture quiet;
    test::Stream_capture err(std::cerr);
    for (const Sample& s : samples()) {
        SCOPED_TRACE(s.what);
        for (size_t len = 0; len < s.attributes.size(); ++len) {
            auto obj = s.make();
            EXPECT_EQ(read_back(*obj, Bytes(s.attributes.begin(), s.attributes.begin() + long(len))), -1)
                << "prefix " << len;
        }
        auto obj = s.make();
        EXPECT_EQ(read_back(*obj, s.attributes), int(s.attributes.size()));
        Bytes again = test::serialise_whole(*obj);
        EXPECT_EQ(Bytes(again.begin() + 3, again.end()), s.attributes);
    }
}

TEST(Corrupt_input, random_corruption_never_escapes_the_input)
{
    test::Dprint_capture quiet;
    test::Stream_capture err(std::cerr);
    std::mt19937 rng(20260611);
    for (const Sample& s : samples()) {
        SCOPED_TRACE(s.what);
        for (int round = 0; round < 3000; ++round) {
            Bytes input = s.attributes;
            int flips = 1 + int(rng() % 4);
            for (int k = 0; k < flips && !input.empty(); ++k)
                input[rng() % input.size()] = uint8_t(rng());
            if (rng() % 3 == 0) // counts of all ones ask for the most
                for (size_t k = 0; k < std::min<size_t>(input.size(), 12); ++k)
                    if (rng() % 2)
                        input[k] = 0xFF;
            input.resize(rng() % (input.size() + 8));
            auto obj = s.make();
            read_back(*obj, input);
        }
    }
}

TEST(Corrupt_input, absurd_counts_are_not_allocated)
{
    test::Dprint_capture dprint;
    test::Stream_capture err(std::cerr);
    // A 32-bit count of 4 billion data bytes, followed by almost nothing.
    Mixed_obj obj;
    Bytes input{0, 0, 0x80, 0x3F, 1, 0, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    EXPECT_EQ(read_back(obj, input), -1);
    EXPECT_EQ(obj.data.get_length(), 0xFFFFFFFFu);
    EXPECT_EQ(dprint.text, "Deser: Obj attrib [8] num_bytes 1073741823 but ser_len only 0\n");

    // 65535 identifiers have no bytes to check against; they are read, and add no bytes.
    Mixed_obj ids;
    Bytes many{0, 0, 0x80, 0x3F, 1, 0, 0, 0, 0, 0, 0xFF, 0xFF, 0, 0, 0, 0, 0, 0, 0, 0, 1, 7, 8};
    EXPECT_EQ(read_back(ids, many), int(many.size()));
    EXPECT_EQ(ids.ids.held(), 65535u);
    EXPECT_EQ(ids.num_bytes(), 3 + int(many.size()));
}
