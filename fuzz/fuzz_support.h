// Shared pieces of the fuzz targets: quiet library output, terminals of lower depth, and the
// checks every target makes on an object that was accepted.
#ifndef FUZZ_FUZZ_SUPPORT_H
#define FUZZ_FUZZ_SUPPORT_H

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <vector>

#include "vt_core.h"

namespace fuzz {

// A finding that no sanitizer sees: libFuzzer records the input as a crash.
#define FUZZ_CHECK(cond)                                                              \
    do {                                                                              \
        if (!(cond)) {                                                                \
            fprintf(stderr, "%s:%d: check failed: %s\n", __FILE__, __LINE__, #cond); \
            abort();                                                                  \
        }                                                                             \
    } while (0)

// In an input of fuzz_describe, what parts the default pool (before it) from the German pool
// (after it).
const char* const LANGUAGE_MARK = "\n==de==\n";

// Drops the library's debug chatter and its warnings on the standard streams (values clamped,
// ...), which would only slow the run down. Findings are still reported: the sanitizers and
// FUZZ_CHECK write to the standard error file directly.
inline void quiet()
{
    static bool done = false;
    if (!done) {
        Debug_print::set_sink([](const std::string&) {});
        std::cout.rdbuf(nullptr);
        std::cerr.rdbuf(nullptr);
        done = true;
    }
}

// A terminal with 16 colours and only some fonts.
class Small_terminal : public VT::Pool_helper_api
{
public:
    Small_terminal()
    {
        limits.colour_format = VT::FOUR_BIT_COLOUR;
        limits.small_font_mask = 0x15;
        limits.large_font_mask = 0x02;
        limits.font_style_mask = 0x03;
    }
};

// Serialises `obj` whole, then again in pieces of `piece` bytes resumed at each offset; both
// must give the same bytes, and no call may claim more than it was given room for. Objects
// over 4 KB go in transport-sized pieces (1785 bytes): every piece re-walks the object.
inline std::vector<uint8_t> serialise_checked(VT::VT_obj& obj, int piece)
{
    const int total = obj.num_bytes();
    FUZZ_CHECK(total >= 0);
    if (total > 4096)
        piece = 1785;
    std::vector<uint8_t> whole(size_t(total) + 1, 0);
    const int n = obj.serialise(0, whole.data(), total);
    FUZZ_CHECK(n <= total);
    whole.resize(size_t(n > 0 ? n : 0));
    std::vector<uint8_t> pieces;
    std::vector<uint8_t> buf(static_cast<size_t>(piece));
    for (int offset = 0; offset < total;) {
        int k = obj.serialise(offset, buf.data(), std::min(piece, total - offset));
        FUZZ_CHECK(k <= std::min(piece, total - offset));
        if (k <= 0)
            break;
        pieces.insert(pieces.end(), buf.begin(), buf.begin() + k);
        offset += k;
    }
    FUZZ_CHECK(pieces == whole);
    return whole;
}

}

#endif
