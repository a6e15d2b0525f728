// Decoding and 16-colour reduction of a 480 x 480 8-bit picture, plain and run-length coded.

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstring>
#include <memory>
#include <vector>

#include "vt_core.h"

namespace {

using VT::Base::Picture_graphic_obj;

const int SIDE = 480;

// A drawn picture: colour bands, filled shapes and a thin grid, as pictures on a terminal
// tend to be.
std::vector<uint8_t> drawn_pixels()
{
    std::vector<uint8_t> px(size_t(SIDE) * SIDE);
    for (int y = 0; y < SIDE; ++y)
        for (int x = 0; x < SIDE; ++x) {
            uint8_t c = uint8_t(16 + (y / 16) % 216);
            for (int k = 0; k < 12; ++k) {
                int cx = 40 + (k * 97) % 400, cy = 40 + (k * 61) % 400, r = 20 + (k * 13) % 50;
                if ((x - cx) * (x - cx) + (y - cy) * (y - cy) < r * r)
                    c = uint8_t(k * 21 + 3);
            }
            if (x % 48 == 0 || y % 60 == 0)
                c = 0;
            px[size_t(y) * SIDE + size_t(x)] = c;
        }
    return px;
}

// 8-bit run-length coding: (count, value) pairs of at most 255, running on across rows.
std::vector<uint8_t> run_length(const std::vector<uint8_t>& px)
{
    std::vector<uint8_t> out;
    for (size_t i = 0; i < px.size();) {
        size_t j = i + 1;
        while (j < px.size() && j - i < 255 && px[j] == px[i])
            ++j;
        out.push_back(uint8_t(j - i));
        out.push_back(px[i]);
        i = j;
    }
    return out;
}

class Sixteen_colours : public VT::Pool_helper_api
{
public:
    Sixteen_colours() { limits.colour_format = VT::FOUR_BIT_COLOUR; }
};

struct Fixture
{
    std::vector<uint8_t> plain = drawn_pixels();
    std::vector<uint8_t> runs = run_length(plain);
    Sixteen_colours terminal;

    std::unique_ptr<Picture_graphic_obj> picture(bool rle)
    {
        std::vector<uint8_t>& data = rle ? runs : plain;
        return std::make_unique<Picture_graphic_obj>(1, "bench", SIDE, SIDE, SIDE, VT::EIGHT_BIT_COLOUR,
                                                     rle ? Picture_graphic_obj::OPTION_RUN_LENGTH : 0, 0,
                                                     unsigned(data.size()), 0, data.data(), nullptr);
    }
};

Fixture& fixture()
{
    static Fixture f;
    return f;
}

void report(benchmark::State& state, size_t raw_bytes)
{
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(raw_bytes));
    state.SetItemsProcessed(int64_t(state.iterations()) * SIDE * SIDE);
    state.counters["ns_per_pixel"] = benchmark::Counter(double(state.iterations()) * SIDE * SIDE,
                                                        benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void decode(benchmark::State& state, bool rle)
{
    auto pic = fixture().picture(rle);
    for (auto _ : state) {
        unsigned char* buf = pic->__get_uncompressed_buf(false);
        benchmark::DoNotOptimize(buf);
        benchmark::ClobberMemory();
    }
    report(state, rle ? fixture().runs.size() : fixture().plain.size());
}

// The pixel data alone, reduced to 16 colours (the serialise resumes at the data).
void reduce(benchmark::State& state, bool rle)
{
    auto pic = fixture().picture(rle);
    pic->set_pool_helper(&fixture().terminal);
    std::vector<uint8_t> out(size_t(pic->num_bytes()));
    const int data_at = 17;
    for (auto _ : state) {
        int n = pic->serialise(data_at, out.data(), int(out.size()));
        benchmark::DoNotOptimize(n);
        benchmark::ClobberMemory();
    }
    report(state, rle ? fixture().runs.size() : fixture().plain.size());
}

// The whole object for a 16-colour terminal, its size and count included.
void upload(benchmark::State& state, bool rle)
{
    auto pic = fixture().picture(rle);
    pic->set_pool_helper(&fixture().terminal);
    std::vector<uint8_t> out;
    for (auto _ : state) {
        out.resize(size_t(pic->num_bytes()));
        int n = pic->serialise(0, out.data(), int(out.size()));
        benchmark::DoNotOptimize(n);
        benchmark::ClobberMemory();
    }
    report(state, rle ? fixture().runs.size() : fixture().plain.size());
}

// The floor: copying the picture's pixels once.
void BM_picture_memcpy(benchmark::State& state)
{
    const std::vector<uint8_t>& from = fixture().plain;
    std::vector<uint8_t> to(from.size());
    for (auto _ : state) {
        memcpy(to.data(), from.data(), from.size());
        benchmark::ClobberMemory();
    }
    report(state, from.size());
}

void BM_decode_plain(benchmark::State& s) { decode(s, false); }
void BM_decode_rle(benchmark::State& s) { decode(s, true); }
void BM_reduce_4_bit_plain(benchmark::State& s) { reduce(s, false); }
void BM_reduce_4_bit_rle(benchmark::State& s) { reduce(s, true); }
void BM_upload_4_bit_plain(benchmark::State& s) { upload(s, false); }
void BM_upload_4_bit_rle(benchmark::State& s) { upload(s, true); }

void BM_qimage_rle(benchmark::State& state)
{
    auto pic = fixture().picture(true);
    for (auto _ : state) {
        QImage image = pic->get_qimage(true);
        benchmark::DoNotOptimize(image);
    }
    report(state, fixture().runs.size());
}

}

BENCHMARK(BM_picture_memcpy);
BENCHMARK(BM_decode_plain);
BENCHMARK(BM_decode_rle);
BENCHMARK(BM_reduce_4_bit_plain);
BENCHMARK(BM_reduce_4_bit_rle);
BENCHMARK(BM_upload_4_bit_plain);
BENCHMARK(BM_upload_4_bit_rle);
BENCHMARK(BM_qimage_rle);

BENCHMARK_MAIN();
