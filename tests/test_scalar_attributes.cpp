#include "core_test_helpers.h"

#include <cmath>
#include <limits>

using namespace VT;
using test::Bytes;

TEST(Scalar_attributes, range_checked_assignment_warns_and_clamps)
{
    test::Stream_capture err(std::cerr);
    Attribute_uint8 x(10, 20, "x");
    EXPECT_EQ(x.get(), 10);
    x = 25;
    EXPECT_EQ(x.get(), 20);
    x = 5;
    EXPECT_EQ(x.get(), 10);
    Attribute_int16 anonymous(-5, 5, nullptr);
    anonymous = int16_t(-9);
    EXPECT_EQ(anonymous.get(), -5);
    Attribute_int8 small(-3, 3, int8_t(100), "s");
    EXPECT_EQ(small.get(), 3);
    Attribute_uint8 wide(0, 100, "w");
    wide = uint8_t(200); // an 8-bit value is written as a number, not a character
    Attribute_uint64 big(0, 10, "big");
    big = std::numeric_limits<uint64_t>::max();
    Attribute_int64 neg(-2, 2, "neg");
    neg = std::numeric_limits<int64_t>::min();
    Attribute_uint32 in_range(0, 100, 50, "r");
    EXPECT_EQ(in_range.get(), 50u);
    EXPECT_EQ(err.str(), "WARNING: attempt to set 'x' to 25, maximum is 20\n"
                         "WARNING: attempt to set 'x' to 5, minimum is 10\n"
                         "WARNING: attempt to set 'ATTR_UNKNOWN' to -9, minimum is -5\n"
                         "WARNING: attempt to set 's' to 100, maximum is 3\n"
                         "WARNING: attempt to set 'w' to 200, maximum is 100\n"
                         "WARNING: attempt to set 'big' to 18446744073709551615, maximum is 10\n"
                         "WARNING: attempt to set 'neg' to -9223372036854775808, minimum is -2\n");
    // The (min, max, name) form starts at the minimum.
    EXPECT_EQ(Attribute_int32(-7, 7, "m").get(), -7);
}

// Every width, every offset and every room: the bytes written are the slice of the
// little-endian form that starts at the offset and fits the room.
template <class A, class T>
void check_partial_serialise(T value, const Bytes& full)
{
    A a(std::numeric_limits<T>::min(), std::numeric_limits<T>::max(), value, "v");
    const int width = int(full.size());
    ASSERT_EQ(a.num_bytes(), width);
    for (int offset = -1; offset <= width + 1; ++offset)
        for (int room = 0; room <= width + 1; ++room) {
            Bytes out(16, 0xEE);
            int n = a.serialise(offset, out.data(), room);
            Bytes expected;
            if (offset >= 0 && room >= 1)
                for (int i = offset; i < width && int(expected.size()) < room; ++i)
                    expected.push_back(full[size_t(i)]);
            ASSERT_EQ(n, int(expected.size())) << "offset " << offset << " room " << room;
            EXPECT_EQ(Bytes(out.begin(), out.begin() + n), expected);
            EXPECT_EQ(out[size_t(n)], 0xEE) << "wrote past its count";
        }
}

TEST(Scalar_attributes, partial_serialise_at_every_offset_and_room)
{
    check_partial_serialise<Attribute_uint8, uint8_t>(0xA5, {0xA5});
    check_partial_serialise<Attribute_int8, int8_t>(-2, {0xFE});
    check_partial_serialise<Attribute_uint16, uint16_t>(0x1234, {0x34, 0x12});
    check_partial_serialise<Attribute_int16, int16_t>(-2, {0xFE, 0xFF});
    check_partial_serialise<Attribute_uint32, uint32_t>(0x12345678, {0x78, 0x56, 0x34, 0x12});
    check_partial_serialise<Attribute_int32, int32_t>(-3, {0xFD, 0xFF, 0xFF, 0xFF});
    // 64-bit values travel as their low 32 bits: the high four bytes are always zero.
    check_partial_serialise<Attribute_uint64, uint64_t>(uint64_t(5) << 32 | 3, {3, 0, 0, 0, 0, 0, 0, 0});
    check_partial_serialise<Attribute_int64, int64_t>(-1, {0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0});
}

TEST(Scalar_attributes, float_serialises_its_bit_pattern_partially)
{
    Attribute_float f("zoom", 1.5f); // 0x3FC00000
    EXPECT_EQ(f.num_bytes(), 4);
    EXPECT_EQ(test::attribute_bytes(f), (Bytes{0x00, 0x00, 0xC0, 0x3F}));
    EXPECT_EQ(test::attribute_in_pieces(f, 1), (Bytes{0x00, 0x00, 0xC0, 0x3F}));
    uint8_t out[4] = {0xEE, 0xEE, 0xEE, 0xEE};
    EXPECT_EQ(f.serialise(2, out, 1), 1);
    EXPECT_EQ(out[0], 0xC0);
    EXPECT_EQ(f.serialise(4, out, 4), 0);
    EXPECT_EQ(f.serialise(0, out, 0), 0);
}

TEST(Scalar_attributes, deserialise_clamps_flags_and_reports_offsets)
{
    test::Stream_capture err(std::cerr);
    test::Dprint_capture dprint;
    Iso::Deserialise_results res;

    Attribute_uint8 small(0, 3, "small");
    uint8_t seven[] = {7};
    EXPECT_EQ(small.deserialise(0, seven, 1, &res), 1);
    EXPECT_EQ(small.get(), 3);
    EXPECT_TRUE(res.flags & Iso::Deserialise_results::value_clamped);
    EXPECT_EQ(err.str(), "WARNING: attempt to set 'small' to 7, maximum is 3\n");

    // An in-range read never clears the flag.
    uint8_t two[] = {2};
    EXPECT_EQ(small.deserialise(0, two, 1, &res), 1);
    EXPECT_EQ(small.get(), 2);
    EXPECT_TRUE(res.flags & Iso::Deserialise_results::value_clamped);

    Iso::Deserialise_results fresh;
    Attribute_int16 s16(-32768, 32767, "s16");
    uint8_t le[] = {0x34, 0xF2, 0x99};
    EXPECT_EQ(s16.deserialise(0, le, 3, &fresh), 2);
    EXPECT_EQ(s16.get(), int16_t(0xF234));
    Attribute_uint32 u32(0, 0xFFFFFFFF, "u32");
    uint8_t four[] = {1, 2, 3, 4};
    EXPECT_EQ(u32.deserialise(0, four, 4, &fresh), 4);
    EXPECT_EQ(u32.get(), 0x04030201u);
    EXPECT_EQ(fresh.flags, 0);

    // A nonzero offset is reported and then read as if it were 0.
    EXPECT_EQ(s16.deserialise(3, le, 3, &fresh), 2);
    EXPECT_EQ(dprint.text, "WARNING: Attribute_numbers_template::deserialise offset != 0, actually = 3\n");

    // Too little input: nothing is read and the value stays.
    EXPECT_EQ(u32.deserialise(0, four, 3, &fresh), 0);
    EXPECT_EQ(u32.get(), 0x04030201u);
}

// Bytes below a minimum that is not 0 (the signed range that leaves out -32768, a byte that
// must not be 0) are read as the minimum, flagged and warned about, like bytes above the maximum.
TEST(Scalar_attributes, deserialise_clamps_below_a_nonzero_minimum)
{
    test::Stream_capture err(std::cerr);
    Iso::Deserialise_results res;
    Attribute_int16 coordinate(-32767, 32767, "coordinate");
    uint8_t most_negative[] = {0x00, 0x80};
    EXPECT_EQ(coordinate.deserialise(0, most_negative, 2, &res), 2);
    EXPECT_EQ(coordinate.get(), -32767);
    EXPECT_TRUE(res.flags & Iso::Deserialise_results::value_clamped);

    Iso::Deserialise_results fresh;
    Attribute_uint8 code(1, 255, 7, "code");
    uint8_t zero[] = {0};
    EXPECT_EQ(code.deserialise(0, zero, 1, &fresh), 1);
    EXPECT_EQ(code.get(), 1);
    EXPECT_TRUE(fresh.flags & Iso::Deserialise_results::value_clamped);
    EXPECT_EQ(err.str(), "WARNING: attempt to set 'coordinate' to -32768, minimum is -32767\n"
                         "WARNING: attempt to set 'code' to 0, minimum is 1\n");
}

TEST(Scalar_attributes, sixty_four_bit_deserialise_reads_nothing)
{
    uint8_t bytes[8] = {9, 9, 9, 9, 9, 9, 9, 9};
    Iso::Deserialise_results res;
    Attribute_uint64 u(0, 100, 42, "u");
    EXPECT_EQ(u.deserialise(0, bytes, 8, &res), 8);
    EXPECT_EQ(u.get(), 0u);
    EXPECT_EQ(res.flags, 0);

    test::Stream_capture err(std::cerr);
    Attribute_int64 i(5, 10, "i");
    EXPECT_EQ(i.deserialise(0, bytes, 8, &res), 8);
    EXPECT_EQ(i.get(), 5);
    EXPECT_TRUE(res.flags & Iso::Deserialise_results::value_clamped);
    EXPECT_EQ(err.str(), "WARNING: attempt to set 'i' to 0, minimum is 5\n");
    EXPECT_EQ(bytes[0], 9);
}

TEST(Scalar_attributes, float_deserialise_leaves_its_mark_in_the_input)
{
    Attribute_float f("f");
    Iso::Deserialise_results res;
    res.flags = 0x80;
    uint8_t bytes[] = {0xFE, 0x00, 0xC0, 0x3F};
    EXPECT_EQ(f.deserialise(0, bytes, 4, &res), 4);
    EXPECT_EQ(bytes[0], 0x02); // 0xFE + 4, modulo 256
    EXPECT_EQ(res.flags, 0x80);
    uint32_t bits = 0x3FC000FE;
    float expected;
    memcpy(&expected, &bits, 4);
    EXPECT_EQ(f.get(), expected);

    uint8_t other[] = {0, 0, 0x80, 0x3F};
    EXPECT_EQ(f.deserialise(1, other, 4, &res), 0);
    EXPECT_EQ(f.deserialise(0, other, 3, &res), 0);
    EXPECT_EQ(other[0], 0);
    EXPECT_EQ(f.get(), expected);
}

TEST(Scalar_attributes, set_by_spec_reads_own_name_and_clamps)
{
    test::Fake_spec spec_node;
    spec_node.set("level", "250").set("offset", "-5").set("mask", "0x1F").set("zoom", "2.5").set("huge", "0x100000003");

    test::Stream_capture err(std::cerr);
    Attribute_uint8 level(0, 200, 7, "level");
    EXPECT_EQ(level._set_by_spec(&spec_node, SCALE_AREA_NONE), 1);
    EXPECT_EQ(level.get(), 200);
    EXPECT_EQ(err.str(), "WARNING: attempt to set 'level' to 250, maximum is 200\n");

    Attribute_int8 offset(-3, 3, "offset");
    EXPECT_EQ(offset._set_by_spec(&spec_node, SCALE_AREA_ACTIVE), 1);
    EXPECT_EQ(offset.get(), -3);
    EXPECT_EQ(err.str(), "WARNING: attempt to set 'level' to 250, maximum is 200\n"
                         "WARNING: attempt to set 'offset' to -5, minimum is -3\n");

    Attribute_uint16 mask(0, 65535, "mask");
    EXPECT_EQ(mask._set_by_spec(&spec_node, SCALE_AREA_NONE), 1);
    EXPECT_EQ(mask.get(), 0x1F);

    Attribute_uint64 huge(0, std::numeric_limits<uint64_t>::max(), "huge");
    EXPECT_EQ(huge._set_by_spec(&spec_node, SCALE_AREA_NONE), 1);
    EXPECT_EQ(huge.get(), 0x100000003u);

    Attribute_float zoom("zoom", 1.0f);
    EXPECT_EQ(zoom._set_by_spec(&spec_node, SCALE_AREA_NONE), 1);
    EXPECT_EQ(zoom.get(), 2.5f);

    // Absent value or absent node: nothing changes.
    Attribute_uint32 missing(0, 10, 4, "missing");
    EXPECT_EQ(missing._set_by_spec(&spec_node, SCALE_AREA_NONE), 0);
    EXPECT_EQ(missing.get(), 4u);
    EXPECT_EQ(missing._set_by_spec(nullptr, SCALE_AREA_NONE), 0);
    Attribute_float no_zoom("nothing", 3.0f);
    EXPECT_EQ(no_zoom._set_by_spec(&spec_node, SCALE_AREA_NONE), 0);
    EXPECT_EQ(no_zoom.get(), 3.0f);
}

TEST(Scalar_attributes, printing_and_source_values)
{
    std::ostringstream os;
    Attribute_uint8(0, 255, 65, "letter").print_me(os, 1);
    Attribute_int16(-100, 100, -42, "dx").print_me(os, 0);
    Attribute_float("zoom", 0.25f).print_me(os, 2);
    EXPECT_EQ(os.str(), "  Type: 0\tName: letter Value: 65\n"
                        "Type: 5\tName: dx Value: -42\n"
                        "    Type: 8\tName: zoom Value: 0.25\n");

    std::ostringstream code;
    Attribute_uint16(0, 65535, 200, "a").get_code_valref("p", code, 0);
    code << " ";
    Attribute_uint8(0, 255, 7, "b").get_code_valref("p", code, 0);
    code << " ";
    Attribute_uint64(0, std::numeric_limits<uint64_t>::max(), std::numeric_limits<uint64_t>::max(), "c")
        .get_code_valref("p", code, 0);
    code << " ";
    Attribute_int32(-10, 10, -3, "d").get_code_valref("p", code, 0);
    code << " ";
    Attribute_float("e", 1.5f).get_code_valref("p", code, 0);
    EXPECT_EQ(code.str(), "200U 7U 18446744073709551615U -3 1.5");

    // Scalars have no definitions, initialisers or bodies of their own.
    std::ostringstream none;
    Attribute_uint16 quiet(0, 10, 3, "quiet");
    quiet.get_code_def("p", none, 1);
    quiet.get_code_init("p", none, 1);
    quiet.get_code_body("p", none, 1);
    EXPECT_EQ(none.str(), "");

    // A nameless attribute leaves the stream failed, as inserting a null text does.
    std::ostringstream failed;
    Attribute_uint8(0, 1, nullptr).print_me(failed, 0);
    EXPECT_TRUE(failed.bad());
}
