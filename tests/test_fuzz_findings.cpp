// Inputs found by the fuzz targets (fuzz/) that broke the library, kept as regression tests,
// and the properties those targets check, on inputs of our own.

#include <random>

#include "fuzz_findings_support.h"
#include "picture_support.h"
#include "tools/description/Description.h"

using namespace VT;
using VT::Base::Picture_graphic_obj;
using test::Bytes;
using test::make_picture;
using test::Terminal;

namespace {

const size_t DATA_AT = 17; // pixel data of a serialised picture without macros

Bytes pixel_data(const Bytes& whole)
{
    return Bytes(whole.begin() + DATA_AT, whole.end());
}

}

// A run-length coded picture claiming 65535 x 65535 pixels in two bytes of data was reduced
// for a 16-colour terminal through a buffer of every pixel: 4 GB from a 19-byte object; and
// each transport chunk walked all the output before it again. The reduction now works run by
// run and skips whole records at once.
TEST(Fuzz_findings, huge_run_length_picture_reduces_without_a_picture_sized_buffer)
{
    if (!test::Largest_allocation::available())
        GTEST_SKIP() << "needs AddressSanitizer's allocator hooks";
    Terminal vt(FOUR_BIT_COLOUR);
    Bytes runs = {255, 5};
    auto pic = make_picture(65535, 65535, EIGHT_BIT_COLOUR, Picture_graphic_obj::OPTION_RUN_LENGTH, runs);
    pic->set_pool_helper(&vt);

    test::Largest_allocation largest;
    // 255 pixels of colour 5 and then index 255 up to 65536 x 65535 pixels (rows padded to
    // even): 127 pairs of 5, one mixed pair, and the rest pairs of 255 in runs of at most 255.
    const uint64_t rest = (uint64_t(65536) * 65535 - 256) / 2;
    const uint64_t records = 2 + (rest + 254) / 255;
    EXPECT_EQ(uint64_t(pic->num_bytes()), DATA_AT + 2 * records);
    Bytes first(1785);
    ASSERT_EQ(pic->serialise(0, first.data(), int(first.size())), 1785);
    const uint8_t five = Attribute_colour::remap_colour(5, FOUR_BIT_COLOUR);
    const uint8_t blank = Attribute_colour::remap_colour(255, FOUR_BIT_COLOUR);
    EXPECT_EQ(Bytes(first.begin() + DATA_AT, first.begin() + DATA_AT + 6),
              (Bytes{127, uint8_t(five << 4 | five), 1, uint8_t(five << 4 | blank), 255, uint8_t(blank << 4 | blank)}));
    // Resumed near the end, as the last transport chunk asks: the last record of 255-pairs runs
    // (the rest is a multiple of 255 pairs or not: its count is the remainder).
    const int total = pic->num_bytes();
    Bytes last(4);
    ASSERT_EQ(pic->serialise(total - 4, last.data(), 4), 4);
    const uint8_t tail = uint8_t(rest % 255 ? rest % 255 : 255);
    EXPECT_EQ(last, (Bytes{255, uint8_t(blank << 4 | blank), tail, uint8_t(blank << 4 | blank)}));
    EXPECT_LT(largest.get(), size_t(1) << 20);
}

// The reduction of run-length pictures, against the pixels the picture decodes to, on random
// pictures: odd and even widths, runs that stop short or overrun, zero counts, and any split
// of the bytes across buffers.
TEST(Fuzz_findings, run_length_reduction_matches_the_decoded_pixels)
{
    Terminal vt(FOUR_BIT_COLOUR);
    std::mt19937 rng(20261121);
    for (int round = 0; round < 200; ++round) {
        SCOPED_TRACE(round);
        const uint16_t w = uint16_t(1 + rng() % 23), h = uint16_t(1 + rng() % 9);
        Bytes runs(2 * (rng() % 40));
        for (size_t i = 0; i < runs.size(); i += 2) {
            runs[i] = uint8_t(rng() % 4 == 0 ? rng() % 256 : rng() % 6); // mostly short runs
            runs[i + 1] = uint8_t(rng() % 3 == 0 ? rng() % 256 : 16 + rng() % 4);
        }
        if (rng() % 4 == 0)
            runs.push_back(uint8_t(rng())); // an odd byte that is no run
        auto pic = make_picture(w, h, EIGHT_BIT_COLOUR, Picture_graphic_obj::OPTION_RUN_LENGTH, runs);

        // The pixels the runs make, in rows of even width (odd rows end in a copy of their last
        // pixel), remapped to 16 colours.
        Bytes pixels;
        const size_t padded = (w + 1u) & ~1u, total = padded * h;
        size_t col = 0;
        for (size_t i = 0; i + 1 < runs.size() && pixels.size() < total; i += 2)
            for (unsigned k = 0; k < runs[i] && pixels.size() < total; ++k) {
                pixels.push_back(Attribute_colour::remap_colour(runs[i + 1], FOUR_BIT_COLOUR));
                if (++col == w) {
                    if (w % 2)
                        pixels.push_back(pixels.back());
                    col = 0;
                }
            }
        pixels.resize(total, Attribute_colour::remap_colour(255, FOUR_BIT_COLOUR));
        Bytes expected;
        for (size_t i = 0; i < total;) {
            size_t j = i + 2;
            while (j < total && j - i < 510 && pixels[j] == pixels[i] && pixels[j + 1] == pixels[i + 1])
                j += 2;
            expected.push_back(uint8_t((j - i) / 2));
            expected.push_back(uint8_t(pixels[i] << 4 | pixels[i + 1]));
            i = j;
        }

        pic->set_pool_helper(&vt);
        Bytes whole = test::serialise_whole(*pic);
        ASSERT_EQ(int(whole.size()), pic->num_bytes());
        EXPECT_EQ(pixel_data(whole), expected);
        for (int piece : {1, 2, 3, 7, 18})
            ASSERT_EQ(test::serialise_in_pieces(*pic, piece), whole) << "piece " << piece;
    }
}

// Building a description hides the library's chatter on standard output and then gives the
// stream its buffer back. A host that had silenced the stream (no buffer at all) got back the
// builder's own buffer, destroyed by then: the next output, or the flush at exit, crashed.
TEST(Fuzz_findings, description_build_gives_standard_output_back_its_missing_buffer)
{
    std::streambuf* before = std::cout.rdbuf(nullptr);
    {
        VT::Object_pool pool;
        VT::Description d;
        test::Stream_capture err(std::cerr);
        ASSERT_TRUE(d.parse("<object_pool><Number_variable name=\"n\" value=\"3\"/></object_pool>", "t.xml"));
        EXPECT_TRUE(d.build(pool));
    }
    std::streambuf* after = std::cout.rdbuf(before);
    std::cout.clear();
    EXPECT_EQ(after, nullptr);
}

// A plain picture 65535 pixels wide with 80 bytes of data: every 1,785-byte transport chunk of
// its 16-colour form packed a whole row (and filled it with 255 first) to send a sliver of
// it, 36 times the work of the chunk. Chunks now pack only their own bytes; here, against the
// pixels computed apart, for a wide picture whose data runs out in its second row.
TEST(Fuzz_findings, wide_plain_picture_chunks_pack_only_their_own_bytes)
{
    Terminal vt(FOUR_BIT_COLOUR);
    const uint16_t w = 1001, h = 3;
    Bytes data(1500);
    for (size_t i = 0; i < data.size(); ++i)
        data[i] = uint8_t(i * 7 + 16);
    auto pic = make_picture(w, h, EIGHT_BIT_COLOUR, 0, data);
    pic->set_pool_helper(&vt);

    auto nibble = [&](size_t row, size_t col) {
        const size_t at = row * w + col;
        return Attribute_colour::remap_colour(at < data.size() ? data[at] : 255, FOUR_BIT_COLOUR) & 0x0F;
    };
    Bytes expected;
    for (size_t r = 0; r < h; ++r)
        for (size_t c = 0; c < w; c += 2)
            expected.push_back(uint8_t(nibble(r, c) << 4 | (c + 1 < w ? nibble(r, c + 1) : 0)));

    Bytes whole = test::serialise_whole(*pic);
    EXPECT_EQ(pixel_data(whole), expected);
    for (int piece : {1, 3, 250, 499, 501, 1785})
        ASSERT_EQ(test::serialise_in_pieces(*pic, piece), whole) << "piece " << piece;
}
