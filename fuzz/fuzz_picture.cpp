// Picture graphics: bytes 0-1 width, 2-3 height (little-endian), 4 format, 5 options, the rest
// the pixel data. Decoded to an image, and serialised for a 16-colour terminal (reduced to
// 4 bits) and for a monochrome one.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "fuzz/fuzz_support.h"

using VT::Base::Picture_graphic_obj;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::quiet();
    if (size < 6 || size > (1u << 20))
        return 0;
    const unsigned width = data[0] | (data[1] << 8);
    const unsigned height = data[2] | (data[3] << 8);
    // The decoded image takes width x height bytes whatever the data: keep it within the run's
    // memory limit.
    if (uint64_t(width) * height > (16u << 20))
        return 0;
    const uint8_t format = data[4] % 3;
    const uint8_t options = data[5];
    std::vector<uint8_t> pixels(data + 6, data + size);

    Picture_graphic_obj pic(1, "fuzz", uint16_t(width), uint16_t(width), uint16_t(height), VT::format_t(format),
                            options, 0, unsigned(pixels.size()), 0, pixels.empty() ? nullptr : pixels.data(),
                            nullptr);
    QImage image = pic.get_qimage(false);
    FUZZ_CHECK(image.isNull() || (unsigned(image.width()) == width && unsigned(image.height()) == height));
    QImage opaque = pic.get_qimage(true);
    (void)opaque;

    fuzz::Small_terminal sixteen;
    pic.set_pool_helper(&sixteen);
    fuzz::serialise_checked(pic, 1785);
    fuzz::serialise_checked(pic, 3);

    struct Mono : VT::Pool_helper_api
    {
        Mono() { limits.colour_format = VT::MONOCHROME; }
    } monochrome;
    pic.set_pool_helper(&monochrome);
    fuzz::serialise_checked(pic, 1785);
    pic.set_pool_helper(nullptr);
    return 0;
}
