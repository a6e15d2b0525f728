#ifndef TOOLS_PICTURES_PICTURE_ENCODER_H
#define TOOLS_PICTURES_PICTURE_ENCODER_H

#include <QByteArray>
#include <QImage>

#include "vt_core.h"

namespace VT {

// Turns an image into the raw data of a picture graphic: one of the three pixel formats, rows
// starting on byte boundaries, optionally run-length coded as (count, value) pairs.
class Picture_encoder
{
public:
    // The most pixels a picture read from an image file may have.
    static constexpr qint64 MAX_PIXELS = qint64(1) << 24;

    // Pixels are mapped onto the VT palette; pixels that are (nearly) fully transparent become
    // `transparency_index`. 8-bit pictures use the palette's colour cube, 4-bit and monochrome
    // pictures the colour a 16- or 2-colour terminal has for the pixel (reduce_colour's rule,
    // tools/terminal/Colour_reduction.h). An image indexed on the VT palette (as vtpool writes
    // pictures) keeps its indexes, or at fewer colours the terminal's colour for each.
    static QByteArray encode(const QImage& image, format_t format, bool run_length, unsigned char transparency_index);
    // The raw bytes of the pixel rows, before run-length coding.
    static QByteArray pack_rows(const QImage& image, format_t format, unsigned char transparency_index);
    // Packs `width` x `height` palette indices, one byte each row by row, into rows of the
    // format (an index is taken modulo the format's colours).
    static QByteArray pack(const QByteArray& indices, int width, int height, format_t format);
    // (count, value) runs of at most 255; runs never cross the start of a row of `row_bytes` bytes
    // unless `row_bytes` is 0.
    static QByteArray run_length_code(const QByteArray& raw, int row_bytes);
    // run_length_code with the row rule of the format: 1- and 4-bit runs stay within their row.
    static QByteArray run_length_code(const QByteArray& raw, int width, format_t format);
    static int row_bytes(int width, format_t format);
};

}

#endif
