#include "tools/render/Canvas.h"

#include <algorithm>
#include <cmath>

namespace VT {
namespace Render {

namespace {

// sin of 0..90 whole degrees, times 65536.
const int32_t sine_table[91] = {
    0,     1144,  2287,  3430,  4572,  5712,  6850,  7987,  9121,  10252, 11380, 12505, 13626, 14742,
    15855, 16962, 18064, 19161, 20252, 21336, 22415, 23486, 24550, 25607, 26656, 27697, 28729, 29753,
    30767, 31772, 32768, 33754, 34729, 35693, 36647, 37590, 38521, 39441, 40348, 41243, 42126, 42995,
    43852, 44695, 45525, 46341, 47143, 47930, 48703, 49461, 50203, 50931, 51643, 52339, 53020, 53684,
    54332, 54963, 55578, 56175, 56756, 57319, 57865, 58393, 58903, 59396, 59870, 60326, 60764, 61183,
    61584, 61966, 62328, 62672, 62997, 63303, 63589, 63856, 64104, 64332, 64540, 64729, 64898, 65048,
    65177, 65287, 65376, 65446, 65496, 65526, 65536};

// sin of 0..90 degrees (in 1/64 degree), linearly between whole degrees.
int32_t quarter_sine(int a)
{
    const int d = a / DEGREE, f = a % DEGREE;
    if (d >= 90)
        return sine_table[90];
    return sine_table[d] + (sine_table[d + 1] - sine_table[d]) * f / DEGREE;
}

int64_t floor_div(int64_t a, int64_t b)
{
    int64_t q = a / b;
    return (a % b != 0 && ((a < 0) != (b < 0))) ? q - 1 : q;
}

uint64_t isqrt(uint64_t v)
{
    uint64_t r = uint64_t(std::sqrt(double(v)));
    while (r > 0 && r * r > v)
        --r;
    while ((r + 1) * (r + 1) <= v)
        ++r;
    return r;
}

typedef __int128 wide;

// Which pixels of an ellipse an arc takes in, in the ellipse's own (circle-like) coordinates:
// a pixel's direction is (2px + 1 - W) * H, (H - 2py - 1) * W, which makes the ellipse a
// circle of radius W * H.
struct Arc_test
{
    bool whole;
    bool wide_arc; // more than half the ellipse
    int64_t sx, sy, ex, ey; // directions of the ends, times 65536
    Arc_test(const Arc& arc)
    {
        whole = arc.whole();
        wide_arc = arc.span > 180 * DEGREE;
        sx = cos_fixed(arc.start);
        sy = sin_fixed(arc.start);
        ex = cos_fixed(arc.start + arc.span);
        ey = sin_fixed(arc.start + arc.span);
    }
    bool contains(int64_t vx, int64_t vy) const
    {
        if (whole || (vx == 0 && vy == 0))
            return true;
        const wide from_start = wide(sx) * vy - wide(sy) * vx; // >= 0: v lies anticlockwise of the start
        const wide to_end = wide(vx) * ey - wide(vy) * ex;     // >= 0: the end lies anticlockwise of v
        return wide_arc ? (from_start >= 0 || to_end >= 0) : (from_start >= 0 && to_end >= 0);
    }
};

}

Rect Rect::intersected(const Rect& o) const
{
    const int x0 = std::max(x, o.x), y0 = std::max(y, o.y);
    const int x1 = int(std::min<int64_t>(int64_t(x) + w, int64_t(o.x) + o.w));
    const int y1 = int(std::min<int64_t>(int64_t(y) + h, int64_t(o.y) + o.h));
    return Rect{x0, y0, std::max(0, x1 - x0), std::max(0, y1 - y0)};
}

int32_t sin_fixed(int angle)
{
    const int full = 360 * DEGREE;
    angle %= full;
    if (angle < 0)
        angle += full;
    const int quarter = 90 * DEGREE;
    if (angle <= quarter)
        return quarter_sine(angle);
    if (angle <= 2 * quarter)
        return quarter_sine(2 * quarter - angle);
    if (angle <= 3 * quarter)
        return -quarter_sine(angle - 2 * quarter);
    return -quarter_sine(full - angle);
}

int32_t cos_fixed(int angle)
{
    return sin_fixed(angle + 90 * DEGREE);
}

Canvas::Canvas(int width, int height, uint32_t colour)
    : w(std::max(0, width)), h(std::max(0, height)), px(size_t(w) * size_t(h), colour), clip_rect{0, 0, w, h}
{
}

void Canvas::set_clip(const Rect& r)
{
    clip_rect = r.intersected(Rect{0, 0, w, h});
}

void Canvas::plot(int x, int y, uint32_t colour)
{
    const Rect& c = clip_rect;
    if (x < c.x || y < c.y || x >= c.x + c.w || y >= c.y + c.h)
        return;
    px[size_t(y) * size_t(w) + size_t(x)] = colour;
    ++work;
}

void Canvas::blend(int x, int y, uint32_t argb)
{
    const uint32_t a = argb >> 24;
    if (a == 0)
        return;
    const Rect& c = clip_rect;
    if (x < c.x || y < c.y || x >= c.x + c.w || y >= c.y + c.h)
        return;
    uint32_t& p = px[size_t(y) * size_t(w) + size_t(x)];
    uint32_t out = 0xFF000000u;
    for (int shift : {16, 8, 0}) {
        const uint32_t s = argb >> shift & 0xFF, d = p >> shift & 0xFF;
        out |= ((s * a + d * (255 - a) + 127) / 255) << shift;
    }
    p = out;
    ++work;
}

void Canvas::span(int x0, int x1, int y, uint32_t colour)
{
    const Rect& c = clip_rect;
    if (y < c.y || y >= c.y + c.h)
        return;
    x0 = std::max(x0, c.x);
    x1 = std::min(x1, c.x + c.w - 1);
    if (x0 > x1)
        return;
    std::fill(px.begin() + int64_t(y) * w + x0, px.begin() + int64_t(y) * w + x1 + 1, colour);
    work += uint64_t(x1 - x0 + 1);
}

void Canvas::fill_rect(int x, int y, int rw, int rh, uint32_t colour)
{
    const Rect r = Rect{x, y, rw, rh}.intersected(clip_rect);
    for (int row = r.y; row < r.y + r.h; ++row)
        span(r.x, r.x + r.w - 1, row, colour);
}

void Canvas::line(int x0, int y0, int x1, int y1, int thickness, uint16_t art, uint32_t colour)
{
    if (thickness <= 0 || art == 0)
        return;
    const int dx = std::abs(x1 - x0), dy = std::abs(y1 - y0);
    const int sx = x0 < x1 ? 1 : -1, sy = y0 < y1 ? 1 : -1;
    const bool flat = dx >= dy;
    const int steps = flat ? dx : dy;
    int err = (flat ? dx : dy) / 2;
    int x = x0, y = y0;
    for (int i = 0; i <= steps; ++i) {
        if (art == 0xFFFF || (art >> (15 - i % 16) & 1)) {
            if (flat)
                fill_rect(x, y, 1, thickness, colour);
            else
                span(x, x + thickness - 1, y, colour);
        }
        if (flat) {
            x += sx;
            err -= dy;
            if (err < 0) {
                y += sy;
                err += dx;
            }
        } else {
            y += sy;
            err -= dx;
            if (err < 0) {
                x += sx;
                err += dy;
            }
        }
    }
}

template <class F>
void Canvas::ellipse_rows(int x, int y, int ew, int eh, F f) const
{
    if (ew <= 0 || eh <= 0)
        return;
    const uint64_t W = uint64_t(ew), H = uint64_t(eh);
    const int first = std::max(y, clip_rect.y);
    const int last = int(std::min<int64_t>(int64_t(y) + eh, int64_t(clip_rect.y) + clip_rect.h));
    for (int row = first; row < last; ++row) {
        const int64_t v = 2 * int64_t(row - y) + 1 - int64_t(H);
        const wide r = wide(W * W) * (H * H) - wide(v * v) * (W * W);
        if (r < 0)
            continue;
        const uint64_t m = isqrt(uint64_t(r / wide(H * H)));
        const int64_t a = floor_div(int64_t(W) - 1 - int64_t(m) + 1, 2);
        const int64_t b = floor_div(int64_t(W) - 1 + int64_t(m), 2);
        if (a <= b)
            f(row, int(x + a), int(x + b));
    }
}

void Canvas::fill_ellipse(int x, int y, int ew, int eh, const Arc& arc, bool chord, uint32_t colour)
{
    const Arc_test test(arc);
    const int64_t W = ew, H = eh;
    // The chord's ends on the circle of radius W * H, times 65536.
    const wide k = wide(W) * H;
    const wide csx = test.sx * k, csy = test.sy * k, cex = test.ex * k, cey = test.ey * k;
    ellipse_rows(x, y, ew, eh, [&](int row, int a, int b) {
        if (test.whole) {
            span(a, b, row, colour);
            return;
        }
        const int64_t vy = (H - 2 * int64_t(row - y) - 1) * W;
        for (int c = std::max(a, clip_rect.x); c <= b && c < clip_rect.x + clip_rect.w; ++c) {
            const int64_t vx = (2 * int64_t(c - x) + 1 - W) * H;
            bool inside;
            if (chord) {
                // The arc lies to the right of the chord from its start to its end.
                const wide ux = wide(vx) * 65536, uy = wide(vy) * 65536;
                inside = (cex - csx) * (uy - csy) - (cey - csy) * (ux - csx) <= 0;
            } else {
                inside = test.contains(vx, vy);
            }
            if (inside)
                plot(c, row, colour);
        }
    });
}

void Canvas::ellipse_band(int x, int y, int ew, int eh, int thickness, const Arc& arc, uint32_t colour)
{
    if (thickness <= 0)
        return;
    const Arc_test test(arc);
    const int iw = ew - 2 * thickness, ih = eh - 2 * thickness;
    // Inner spans by row, when there is an inner ellipse.
    std::vector<std::pair<int, int>> inner(size_t(std::max(0, eh)), {1, 0});
    if (iw > 0 && ih > 0)
        ellipse_rows(x + thickness, y + thickness, iw, ih,
                     [&](int row, int a, int b) { inner[size_t(row - y)] = {a, b}; });
    const int64_t W = ew, H = eh;
    auto part = [&](int row, int a, int b) {
        if (a > b)
            return;
        if (test.whole) {
            span(a, b, row, colour);
            return;
        }
        const int64_t vy = (H - 2 * int64_t(row - y) - 1) * W;
        for (int c = std::max(a, clip_rect.x); c <= b && c < clip_rect.x + clip_rect.w; ++c)
            if (test.contains((2 * int64_t(c - x) + 1 - W) * H, vy))
                plot(c, row, colour);
    };
    ellipse_rows(x, y, ew, eh, [&](int row, int a, int b) {
        const std::pair<int, int>& in = inner[size_t(row - y)];
        if (in.first > in.second) {
            part(row, a, b);
        } else {
            part(row, a, in.first - 1);
            part(row, in.second + 1, b);
        }
    });
}

Point Canvas::ellipse_point(int x, int y, int ew, int eh, int angle, int permille)
{
    const int64_t rx = int64_t(std::max(0, ew - 1)) * cos_fixed(angle) * permille / 1000;
    const int64_t ry = int64_t(std::max(0, eh - 1)) * sin_fixed(angle) * permille / 1000;
    const int64_t unit = 65536;
    return Point{int(x + floor_div(int64_t(std::max(0, ew - 1)) * unit + rx + unit, 2 * unit)),
                 int(y + floor_div(int64_t(std::max(0, eh - 1)) * unit - ry + unit, 2 * unit))};
}

void Canvas::fill_polygon(const std::vector<Point>& points, uint32_t colour)
{
    if (points.size() < 3)
        return;
    int top = points[0].y, bottom = points[0].y;
    for (const Point& p : points) {
        top = std::min(top, p.y);
        bottom = std::max(bottom, p.y);
    }
    top = std::max(top, clip_rect.y);
    bottom = std::min(bottom, clip_rect.y + clip_rect.h - 1);
    // Crossings of the row through the pixel centres, in doubled coordinates: x = num / den.
    struct Crossing
    {
        int64_t num, den;
    };
    std::vector<Crossing> crossings;
    for (int row = top; row <= bottom; ++row) {
        const int64_t sample = 2 * int64_t(row) + 1;
        crossings.clear();
        for (size_t i = 0; i < points.size(); ++i) {
            const Point& p = points[i];
            const Point& q = points[(i + 1) % points.size()];
            int64_t y0 = 2 * int64_t(p.y) + 1, y1 = 2 * int64_t(q.y) + 1;
            int64_t x0 = 2 * int64_t(p.x) + 1, x1 = 2 * int64_t(q.x) + 1;
            if (y0 == y1)
                continue;
            if (y0 > y1) {
                std::swap(y0, y1);
                std::swap(x0, x1);
            }
            if (sample < y0 || sample >= y1)
                continue;
            crossings.push_back({x0 * (y1 - y0) + (sample - y0) * (x1 - x0), y1 - y0});
        }
        std::sort(crossings.begin(), crossings.end(),
                  [](const Crossing& a, const Crossing& b) { return wide(a.num) * b.den < wide(b.num) * a.den; });
        for (size_t i = 0; i + 1 < crossings.size(); i += 2) {
            // Pixels whose centre 2c + 1 lies between the two crossings.
            const Crossing& a = crossings[i];
            const Crossing& b = crossings[i + 1];
            const int64_t first = -floor_div(-(a.num - a.den), 2 * a.den);
            const int64_t last = floor_div(b.num - b.den, 2 * b.den);
            if (first <= last)
                span(int(std::max<int64_t>(first, INT32_MIN / 2)), int(std::min<int64_t>(last, INT32_MAX / 2)), row,
                     colour);
        }
    }
}

}
}
