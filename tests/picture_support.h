#ifndef TESTS_PICTURE_SUPPORT_H
#define TESTS_PICTURE_SUPPORT_H

// Helpers of the picture and PNG tests: a pool helper with a chosen terminal, and pictures
// built in one line.

#include <QBuffer>
#include <QImage>
#include <set>

#include "test_support.h"

namespace test {

// A terminal of a given colour depth, VT version and supported object types.
class Terminal : public VT::Pool_helper_api
{
public:
    explicit Terminal(uint32_t depth, uint8_t version = 255, std::set<uint8_t> types = {})
        : version(version), types(std::move(types))
    {
        limits.colour_format = depth;
    }
    uint8_t negotiated_version() const override { return version; }
    bool obj_type_supported(uint8_t type) const override { return types.count(type) != 0; }

    uint8_t version;
    std::set<uint8_t> types;
};

inline std::unique_ptr<VT::Base::Picture_graphic_obj> make_picture(uint16_t w, uint16_t h, VT::format_t format,
                                                                   uint8_t options, Bytes& data,
                                                                   uint8_t transparency = 0, uint16_t id = 20)
{
    return std::make_unique<VT::Base::Picture_graphic_obj>(id, "pic", w, w, h, format, options, transparency,
                                                           unsigned(data.size()), 0, data.data(), nullptr);
}

// The decoded buffer of a picture (rows padded to 4 bytes).
inline Bytes decoded(VT::Base::Picture_graphic_obj& pic)
{
    unsigned char* b = pic.__get_uncompressed_buf(false);
    return b ? Bytes(b, b + pic.__get_uncompressed_size()) : Bytes();
}

// A PNG file of `image`.
inline Bytes png_of(const QImage& image)
{
    QByteArray data;
    QBuffer out(&data);
    out.open(QIODevice::WriteOnly);
    image.save(&out, "PNG");
    return Bytes(data.begin(), data.end());
}

}

#endif
