#ifndef TOOLS_RENDER_CANVAS_H
#define TOOLS_RENDER_CANVAS_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace VT {
namespace Render {

struct Rect
{
    int x = 0, y = 0, w = 0, h = 0;

    bool empty() const { return w <= 0 || h <= 0; }
    Rect intersected(const Rect& o) const;
};

struct Point
{
    int x, y;
};

// Angles are counted anticlockwise from three o'clock in 1/64 degree.
const int DEGREE = 64;
// sin and cos of an angle, times 65536; the same on every machine (integer table).
int32_t sin_fixed(int angle);
int32_t cos_fixed(int angle);

// The part of an ellipse between two angles, anticlockwise from `start` over `span`
// (a span of 360 degrees or more, or of 0, is the whole ellipse).
struct Arc
{
    int start = 0;
    int span = 360 * DEGREE;
    bool whole() const { return span <= 0 || span >= 360 * DEGREE; }
};

// An RGB picture (0xFFRRGGBB per pixel) and the raster operations the renderer draws with.
// Every operation stays inside the clip rectangle and uses integer arithmetic only, so that a
// drawing comes out the same, pixel for pixel, on every machine.
class Canvas
{
public:
    Canvas(int width, int height, uint32_t colour = 0xFF000000u);

    int width() const { return w; }
    int height() const { return h; }
    uint32_t pixel(int x, int y) const { return px[size_t(y) * size_t(w) + size_t(x)]; }
    const uint32_t* row(int y) const { return px.data() + size_t(y) * size_t(w); }
    uint32_t* row(int y) { return px.data() + size_t(y) * size_t(w); }
    // Pixels written so far (a measure of the work done).
    uint64_t written() const { return work; }

    const Rect& clip() const { return clip_rect; }
    // Limited to the canvas.
    void set_clip(const Rect& r);

    void plot(int x, int y, uint32_t colour);
    // Lays an 8-bit alpha colour (0xAARRGGBB) over the pixel.
    void blend(int x, int y, uint32_t argb);
    void fill_rect(int x, int y, int rw, int rh, uint32_t colour);
    // A line of `thickness` pixels from (x0, y0) to (x1, y1): each step of the line sets
    // `thickness` pixels across it, to the right of a steep line and below a flat one. The dash
    // pattern `art` is read from its high bit, one bit a step; a 0 bit leaves its step undrawn.
    void line(int x0, int y0, int x1, int y1, int thickness, uint16_t art, uint32_t colour);
    // The ellipse inside the box (x, y, ew, eh), filled within `arc`: `chord` fills the segment
    // cut off by the chord between the arc's ends, otherwise the section between the radii.
    void fill_ellipse(int x, int y, int ew, int eh, const Arc& arc, bool chord, uint32_t colour);
    // A band `thickness` pixels wide along the inside of the ellipse's edge, within `arc`.
    void ellipse_band(int x, int y, int ew, int eh, int thickness, const Arc& arc, uint32_t colour);
    // The point of the ellipse's edge at `angle`, shrunk towards the centre to `permille` / 1000
    // of the radius.
    static Point ellipse_point(int x, int y, int ew, int eh, int angle, int permille = 1000);
    // Fills the polygon (even-odd rule, pixel centres inside).
    void fill_polygon(const std::vector<Point>& points, uint32_t colour);

private:
    void span(int x0, int x1, int y, uint32_t colour); // x0..x1 inclusive, clipped
    // Calls f(row, first, last) for each row of the ellipse (x, y, ew, eh) inside the clip.
    template <class F>
    void ellipse_rows(int x, int y, int ew, int eh, F f) const;

    int w, h;
    std::vector<uint32_t> px;
    Rect clip_rect;
    uint64_t work = 0;
};

}
}

#endif
