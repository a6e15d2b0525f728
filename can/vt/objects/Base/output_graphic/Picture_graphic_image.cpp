#include "can/vt/objects/Base/output_graphic/Picture_graphic_obj.h"

#include <QImage>
#include <cassert>
#include <cstdlib>
#include <cstring>

#include "can/vt/objects/Base/output_graphic/Picture_pixels.h"
#include "platform/Debug_print.h"

// The picture decoded: to one byte per pixel, to Qt images on the VT palette, to a picture image.

namespace VT::Base {

unsigned char* Picture_graphic_obj::__get_uncompressed_buf(bool)
{
    const uint32_t W = actual_width.get(), H = actual_height.get();
    const size_t stride = (size_t(W) + 3) & ~size_t(3);
    const size_t size = stride * H;
    decoded_size = size;
    if (size == 0) {
        Debug_print::dprint("Zero buffer size\n");
        return nullptr;
    }
    void* grown = realloc(decoded, size);
    if (!grown) {
        decoded_size = 0;
        return nullptr;
    }
    decoded = static_cast<unsigned char*>(grown);
    // Pixels that the data does not reach, and the row padding, read as palette index 255.
    memset(decoded, 255, size);
    const uint8_t* raw = bytes.stored();
    const size_t n = bytes.stored_bytes();
    const unsigned fmt = format.get();
    if (!(options.get() & OPTION_RUN_LENGTH)) {
        Picture_pixels::decode_plain(fmt, raw, n, W, H, stride, decoded);
        return decoded;
    }
    size_t reached = 0;
    if (!Picture_pixels::decode_rle(fmt, raw, n, W, stride, decoded, size, &reached)) {
        Debug_print::dprint("MODE ERROR\n");
        return decoded;
    }
    if (reached > size)
        Debug_print::dprint("WARNING: Incorrect RLE encoding: %s\n", get_name());
    return decoded;
}

void Picture_graphic_obj::set_qimage()
{
    const Lock guard(*this);
    _set_qimage();
}

void Picture_graphic_obj::_set_qimage()
{
    unsigned char* data = __get_uncompressed_buf(false);
    opaque_image = QImage();
    if (!data) {
        qimage = QImage();
        return;
    }
    const int W = actual_width.get(), H = actual_height.get();
    const int stride = (W + 3) & ~3;
    qimage = QImage(data, W, H, stride, QImage::Format_Indexed8).copy();
    if (qimage.isNull())
        return;
    assert(qimage.format() == QImage::Format_Indexed8);
    qimage.setColorCount(256);
    qimage.setColorTable(Colours::get_standard_vt_colour_table());
}

QImage Picture_graphic_obj::get_qimage(bool opaque)
{
    const Lock guard(*this);
    if (qimage.isNull() || !is_server_obj())
        _set_qimage();
    QImage result;
    if (!(options.get() & OPTION_TRANSPARENT) || opaque) {
        if (opaque_image.isNull()) {
            opaque_image = qimage.copy();
            if (!opaque_image.isNull())
                opaque_image.setColorTable(Colours::get_standard_vt_colour_table());
        }
        result = opaque_image;
    } else if (!qimage.isNull()) {
        result = qimage.copy();
        result.setColorTable(Colours::get_standard_vt_colour_table());
        result.setColor(transparency_colour.get(), 0);
    }
    return result;
}

bool Picture_graphic_obj::get_picture(Picture_image& image)
{
    const Lock guard(*this);
    const uint32_t W = actual_width.get();
    const unsigned fmt = format.get();
    const uint8_t* raw = bytes.stored();
    const size_t n = bytes.stored_bytes();
    // No per-row byte alignment here, and the bits are taken lowest first.
    int col = 0, row = 0;
    auto put = [&](uint8_t colour) {
        image.set_vt_pixel(col, row, colour);
        if (uint32_t(++col) >= W) {
            col = 0;
            ++row;
        }
    };
    auto unpack = [&](uint8_t b) {
        switch (fmt) {
        case MONOCHROME:
            for (int bit = 0; bit < 8; ++bit)
                put(uint8_t((b >> bit) & 1));
            break;
        case FOUR_BIT_COLOUR:
            put(uint8_t(b & 0x0F));
            put(uint8_t(b >> 4));
            break;
        case EIGHT_BIT_COLOUR:
            put(b);
            break;
        default:
            break;
        }
    };
    if (!(options.get() & OPTION_RUN_LENGTH)) {
        for (size_t i = 0; i < n; ++i)
            unpack(raw[i]);
    } else {
        for (size_t i = 0; i + 1 < n; i += 2)
            for (unsigned k = 0; k < raw[i]; ++k)
                unpack(raw[i + 1]);
    }
    return true;
}

}
