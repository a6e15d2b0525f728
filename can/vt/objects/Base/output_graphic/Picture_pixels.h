#ifndef CAN_VT_OBJECTS_BASE_OUTPUT_GRAPHIC_PICTURE_PIXELS_H
#define CAN_VT_OBJECTS_BASE_OUTPUT_GRAPHIC_PICTURE_PIXELS_H

#include <cstddef>
#include <cstdint>

#include "can/vt/objects/Colours.h"

// The pixel coding of picture graphics, apart from any object: raw data of a picture W pixels
// wide and H high in 1, 4 or 8 bits per pixel (one of the format_t values), plain or
// run-length coded as (count, value) byte pairs, decoded to one palette index per byte or
// reduced to 16 colours. Raw data is `raw`, n bytes; reading never passes its end.
namespace VT::Base::Picture_pixels {

// Plain data into `out`, rows `stride` bytes apart: every row starts on a byte boundary of the
// raw data. Pixels the data does not reach are left as they are.
void decode_plain(unsigned format, const uint8_t* raw, size_t n, uint32_t W, uint32_t H, size_t stride, uint8_t* out);

// Run-length coded data into the `size` bytes of `out`, rows `stride` bytes apart: each repetition
// of a value unpacks as one raw byte of the format, and a row end inside a repetition drops the
// rest of it. Returns false for a format that has no unpacking; `*reached` is where the runs
// ended, beyond `size` when they run past the picture.
bool decode_rle(unsigned format, const uint8_t* raw, size_t n, uint32_t W, size_t stride, uint8_t* out, size_t size,
                size_t* reached);

// Run-length coded 8-bit data expanded into `out`, which holds H rows of W' pixels (W' = W
// rounded up to even), each remapped for `mode`. Rows of odd width end in a copy of their last
// pixel; pixels that no run reaches read as palette index 255, remapped.
void expand_rle(const uint8_t* raw, size_t n, uint32_t W, uint32_t H, format_t mode, uint8_t* out);

// Plain 8-bit data reduced to 16 colours, two pixels a byte, rows padded to whole bytes: writes
// what fits of it from byte `offset` on into `out` and returns the count written; with a null
// `out`, returns the size of the whole form.
int reduce_plain_to_4_bit(const uint8_t* raw, size_t n, uint32_t W, uint32_t H, int offset, uint8_t* out, int len);

// Run-length coded 8-bit data reduced to 16 colours, as runs of equal pixel pairs of at most 255
// pairs each, laid out as expand_rle lays the pixels out: as reduce_plain_to_4_bit. Works run by
// run: no picture-sized buffer is needed whatever size the picture claims.
int reduce_rle_to_4_bit(const uint8_t* raw, size_t n, uint32_t W, uint32_t H, int offset, uint8_t* out, int len);

// Emits the two bytes of one 4-bit run record (count, packed pixel pair), first using up `skip`,
// at most `room` bytes; returns the count emitted. Without an output and with neither room nor
// skip, the record is only counted.
int emit_run(uint8_t count, uint8_t packed, int& skip, uint8_t*& out, int& room);

// 1, 4 or 8 for the three formats, 0 for any other.
int bits_per_pixel(unsigned format);

// A size kept within 0..INT_MAX.
int clamp_int(int64_t v);

// The height a picture is shown at: its actual height scaled by width / actual width.
uint16_t scaled_height(uint16_t width, uint16_t actual_width, uint16_t actual_height);

}

#endif
