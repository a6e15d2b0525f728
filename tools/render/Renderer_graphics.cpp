#include "tools/render/Renderer.h"

#include <QImage>
#include <cstring>

#include "tools/render/Drawing.h"
#include "tools/terminal/Colour_reduction.h"

namespace VT {
namespace Render {

using namespace Base;
using namespace Drawing;

Renderer::Pen Renderer::pen(uint16_t line_attributes) const
{
    auto* a = as<Line_attributes_obj>(find(line_attributes));
    if (!a)
        return Pen{colour(0), 0, 0};
    return Pen{colour(a->get_line_colour()), a->get_line_width(), a->get_line_art()};
}

void Renderer::fill_shape(uint16_t fill_attributes, uint16_t line_attributes, const Rect& box,
                          const std::function<void(uint32_t)>& paint)
{
    auto* f = as<Fill_attributes_obj>(find(fill_attributes));
    if (!f)
        return;
    switch (f->get_fill_type()) {
    case 1:
        paint(pen(line_attributes).colour);
        return;
    case 2:
        paint(colour(f->get_fill_colour()));
        return;
    case 3:
        break;
    default:
        return;
    }
    auto* pattern = as<Picture_graphic_obj>(find(f->get_fill_pattern()));
    const bool decodable =
        pattern && uint64_t(pattern->get_actual_width()) * pattern->get_actual_height() <= MAX_PICTURE_PIXELS;
    QImage image = decodable ? pattern->get_qimage(true) : QImage();
    if (image.isNull() || image.format() != QImage::Format_Indexed8) {
        paint(colour(f->get_fill_colour()));
        return;
    }
    // Mark the shape's pixels, then lay the pattern over them from the box's corner on, leaving
    // the pattern's transparent pixels as they were.
    const Rect area = box.intersected(canvas->clip());
    if (area.empty())
        return;
    std::vector<uint32_t> before(size_t(area.w) * size_t(area.h));
    for (int r = 0; r < area.h; ++r)
        std::copy_n(canvas->row(area.y + r) + area.x, area.w, before.begin() + int64_t(r) * area.w);
    paint(PATTERN_MARK);
    const bool transparent = pattern->get_options() & 0x01;
    const uint8_t clear = pattern->get_transparency_colour();
    const int pw = image.width(), ph = image.height();
    for (int r = 0; r < area.h; ++r) {
        uint32_t* row = canvas->row(area.y + r) + area.x;
        const uchar* source = image.constScanLine((area.y + r - box.y) % ph);
        for (int c = 0; c < area.w; ++c) {
            if (row[c] != PATTERN_MARK)
                continue;
            const uint8_t index = source[(area.x + c - box.x) % pw];
            row[c] = transparent && index == clear ? before[size_t(r) * size_t(area.w) + size_t(c)] : colour(index);
        }
    }
}

void Renderer::draw_line(VT_obj* obj, int x, int y)
{
    auto* l = as<Line_obj>(obj);
    if (!l)
        return;
    const Pen p = pen(l->get_line_attributes());
    const int w = l->get_width(), h = l->get_height();
    // The line runs corner to corner inside its box, its width included.
    const bool flat = w >= h;
    const int right = flat ? std::max(0, w - 1) : std::max(0, w - p.width);
    const int bottom = flat ? std::max(0, h - p.width) : std::max(0, h - 1);
    if (l->get_line_direction() == 0)
        canvas->line(x, y, x + right, y + bottom, p.width, p.art, p.colour);
    else
        canvas->line(x, y + bottom, x + right, y, p.width, p.art, p.colour);
}

void Renderer::draw_rectangle(VT_obj* obj, int x, int y)
{
    auto* r = as<Rectangle_obj>(obj);
    if (!r)
        return;
    const int w = r->get_width(), h = r->get_height();
    const Rect box{x, y, w, h};
    fill_shape(r->get_fill_attributes(), r->get_line_attributes(), box,
               [&](uint32_t c) { canvas->fill_rect(x, y, w, h, c); });
    // The outline lies inside the rectangle; bits 0-3 of the suppression leave out the top,
    // right, bottom and left side.
    const Pen p = pen(r->get_line_attributes());
    if (p.width <= 0 || w <= 0 || h <= 0)
        return;
    const uint8_t suppressed = r->get_line_suppression();
    const int t = std::min(p.width, std::min(w, h));
    if (!(suppressed & 1))
        canvas->line(x, y, x + w - 1, y, t, p.art, p.colour);
    if (!(suppressed & 2))
        canvas->line(x + w - t, y, x + w - t, y + h - 1, t, p.art, p.colour);
    if (!(suppressed & 4))
        canvas->line(x, y + h - t, x + w - 1, y + h - t, t, p.art, p.colour);
    if (!(suppressed & 8))
        canvas->line(x, y, x, y + h - 1, t, p.art, p.colour);
}

void Renderer::draw_ellipse(VT_obj* obj, int x, int y)
{
    auto* e = as<Ellipse_obj>(obj);
    if (!e)
        return;
    const int w = e->get_width(), h = e->get_height();
    const uint8_t type = e->get_ellipse_type();
    // Type 0 is closed, 1 an open arc, 2 a segment closed by its chord, 3 a section closed by
    // two radii; the arc runs anticlockwise from the start angle to the end angle.
    const Arc arc = type == 0 ? Arc{} : sweep(e->get_start_angle(), e->get_end_angle(), false);
    if (type != 1)
        fill_shape(e->get_fill_attributes(), e->get_line_attributes(), Rect{x, y, w, h},
                   [&](uint32_t c) { canvas->fill_ellipse(x, y, w, h, arc, type == 2, c); });
    const Pen p = pen(e->get_line_attributes());
    if (p.width <= 0 || p.art == 0)
        return;
    canvas->ellipse_band(x, y, w, h, p.width, arc, p.colour);
    if (arc.whole() || type < 2)
        return;
    const Point from = Canvas::ellipse_point(x, y, w, h, arc.start);
    const Point to = Canvas::ellipse_point(x, y, w, h, arc.start + arc.span);
    if (type == 2) {
        canvas->line(from.x, from.y, to.x, to.y, p.width, p.art, p.colour);
    } else {
        const Point centre = Canvas::ellipse_point(x, y, w, h, 0, 0);
        canvas->line(centre.x, centre.y, from.x, from.y, p.width, p.art, p.colour);
        canvas->line(centre.x, centre.y, to.x, to.y, p.width, p.art, p.colour);
    }
}

void Renderer::draw_polygon(VT_obj* obj, int x, int y)
{
    auto* p = as<Polygon_obj>(obj);
    if (!p)
        return;
    std::vector<Point> points;
    const unsigned n = p->get_num_points();
    for (unsigned i = 0; i < n; ++i)
        points.push_back(Point{x + p->get_points_point_x(i), y + p->get_points_point_y(i)});
    const bool open = p->get_polygon_type() == 3;
    if (!open)
        fill_shape(p->get_fill_attributes(), p->get_line_attributes(), Rect{x, y, p->get_width(), p->get_height()},
                   [&](uint32_t c) { canvas->fill_polygon(points, c); });
    const Pen line = pen(p->get_line_attributes());
    for (size_t i = 0; i + 1 < points.size() + (open ? 0 : 1); ++i) {
        const Point& a = points[i];
        const Point& b = points[(i + 1) % points.size()];
        canvas->line(a.x, a.y, b.x, b.y, line.width, line.art, line.colour);
    }
}

void Renderer::draw_meter(VT_obj* obj, int x, int y)
{
    auto* m = as<Meter_obj>(obj);
    if (!m)
        return;
    const int d = m->get_width();
    const uint8_t options = m->get_options();
    const bool clockwise = options & 0x08;
    const Arc arc = sweep(m->get_start_angle(), m->get_end_angle(), clockwise);
    const uint32_t marks = colour(m->get_arc_and_tick_colour());
    if (options & 0x02) // border
        canvas->ellipse_band(x, y, d, d, 1, Arc{}, colour(m->get_border_colour()));
    const int inset = 3;
    if (options & 0x01) // arc
        canvas->ellipse_band(x + inset, y + inset, d - 2 * inset, d - 2 * inset, 1, arc, marks);
    const unsigned ticks = m->get_no_ticks();
    if ((options & 0x04) && ticks > 0) {
        for (unsigned i = 0; i < ticks; ++i) {
            const int64_t part = ticks == 1 ? 0 : int64_t(i) * 65536 / (ticks - 1);
            const int angle = sweep_angle(arc, clockwise, part);
            const Point a = Canvas::ellipse_point(x + inset, y + inset, d - 2 * inset, d - 2 * inset, angle, 850);
            const Point b = Canvas::ellipse_point(x + inset, y + inset, d - 2 * inset, d - 2 * inset, angle, 1000);
            canvas->line(a.x, a.y, b.x, b.y, 1, 0xFFFF, marks);
        }
    }
    const uint32_t value = number_value(m->get_variable_reference(), m->get_value());
    const int angle = sweep_angle(arc, clockwise, fraction(value, m->get_min_value(), m->get_max_value()));
    const Point centre = Canvas::ellipse_point(x, y, d, d, 0, 0);
    const Point tip = Canvas::ellipse_point(x + inset, y + inset, d - 2 * inset, d - 2 * inset, angle, 900);
    const uint32_t needle = colour(m->get_needle_colour());
    canvas->line(centre.x, centre.y, tip.x, tip.y, std::max(1, d / 75), 0xFFFF, needle);
    canvas->fill_ellipse(centre.x - d / 30, centre.y - d / 30, 2 * (d / 30) + 1, 2 * (d / 30) + 1, Arc{}, false, needle);
}

void Renderer::draw_linear_bar_graph(VT_obj* obj, int x, int y)
{
    auto* g = as<Linear_bar_graph_obj>(obj);
    if (!g)
        return;
    const int w = g->get_width(), h = g->get_height();
    const uint8_t options = g->get_options();
    const uint32_t bar = colour(g->get_fill_colour());
    // Bits: 0 border, 1 target line, 2 ticks, 3 a line at the value instead of a filled bar,
    // 4 horizontal, 5 growing to the left or downwards.
    const bool horizontal = options & 0x10, reversed = options & 0x20;
    if (options & 0x01) {
        canvas->fill_rect(x, y, w, 1, bar);
        canvas->fill_rect(x, y + h - 1, w, 1, bar);
        canvas->fill_rect(x, y, 1, h, bar);
        canvas->fill_rect(x + w - 1, y, 1, h, bar);
    }
    const int inset = options & 0x01 ? 1 : 0;
    const Rect in{x + inset, y + inset, w - 2 * inset, h - 2 * inset};
    if (in.empty())
        return;
    const int length = horizontal ? in.w : in.h;
    const int64_t min = g->get_min_value(), max = g->get_max_value();
    // The part of the bar from its base up to `part` (1/65536 of the length), as a rectangle.
    auto stretch = [&](int64_t part, int thickness) {
        const int n = int(int64_t(length) * part / 65536);
        const int from = thickness ? std::min(n, length - thickness) : 0;
        const int size = thickness ? thickness : n;
        if (horizontal)
            return Rect{reversed ? in.x + in.w - from - size : in.x + from, in.y, size, in.h};
        return Rect{in.x, reversed ? in.y + from : in.y + in.h - from - size, in.w, size};
    };
    const uint32_t value = number_value(g->get_variable_reference(), g->get_value());
    const Rect filled = stretch(fraction(value, min, max), options & 0x08 ? 1 : 0);
    canvas->fill_rect(filled.x, filled.y, filled.w, filled.h, bar);
    const unsigned ticks = g->get_no_ticks();
    if ((options & 0x04) && ticks > 0) {
        const int across = std::max(2, (horizontal ? in.h : in.w) / 4);
        for (unsigned i = 0; i < ticks; ++i) {
            const Rect t = stretch(ticks == 1 ? 0 : int64_t(i) * 65536 / (ticks - 1), 1);
            if (horizontal)
                canvas->fill_rect(t.x, t.y, 1, across, bar);
            else
                canvas->fill_rect(t.x, t.y, across, 1, bar);
        }
    }
    if (options & 0x02) {
        const uint32_t target = number_value(g->get_target_variable_reference(), g->get_target_value());
        const Rect t = stretch(fraction(target, min, max), 1);
        canvas->fill_rect(t.x, t.y, t.w, t.h, colour(g->get_target_line_colour()));
    }
}

void Renderer::draw_arched_bar_graph(VT_obj* obj, int x, int y)
{
    auto* g = as<Arched_bar_graph_obj>(obj);
    if (!g)
        return;
    const int w = g->get_width(), h = g->get_height();
    const uint8_t options = g->get_options();
    const bool clockwise = options & 0x10;
    const Arc arc = sweep(g->get_start_angle(), g->get_end_angle(), clockwise);
    const uint32_t bar = colour(g->get_fill_colour());
    const int band = std::max(1, std::min<int>(g->get_bar_graph_width(), std::min(w, h) / 2));
    const int64_t min = g->get_min_value(), max = g->get_max_value();
    // The part of the arc from its start to `part`.
    auto part_of = [&](int64_t part) {
        const int span = int(int64_t(arc.span) * part / 65536);
        return Arc{clockwise ? arc.start + arc.span - span : arc.start, span};
    };
    // The radius at `angle` between the inner and the outer edge of the band.
    auto radius = [&](int angle, uint32_t c) {
        const Point a = Canvas::ellipse_point(x + band, y + band, w - 2 * band, h - 2 * band, angle);
        const Point b = Canvas::ellipse_point(x, y, w, h, angle);
        canvas->line(a.x, a.y, b.x, b.y, 1, 0xFFFF, c);
    };
    const uint32_t value = number_value(g->get_variable_reference(), g->get_value());
    const int64_t part = fraction(value, min, max);
    if (options & 0x08) {
        radius(sweep_angle(arc, clockwise, part), bar);
    } else if (part > 0) {
        canvas->ellipse_band(x, y, w, h, band, part_of(part), bar);
    }
    if (options & 0x01) {
        canvas->ellipse_band(x, y, w, h, 1, arc, bar);
        canvas->ellipse_band(x + band - 1, y + band - 1, w - 2 * band + 2, h - 2 * band + 2, 1, arc, bar);
        if (!arc.whole()) {
            radius(arc.start, bar);
            radius(arc.start + arc.span, bar);
        }
    }
    if (options & 0x02) {
        const uint32_t target = number_value(g->get_target_value_reference(), g->get_target_value());
        radius(sweep_angle(arc, clockwise, fraction(target, min, max)), colour(g->get_target_line_colour()));
    }
}

void Renderer::draw_picture(VT_obj* obj, int x, int y)
{
    auto* p = as<Picture_graphic_obj>(obj);
    if (!p)
        return;
    const int w = p->get_width(), h = p->get_height();
    if (uint64_t(p->get_actual_width()) * p->get_actual_height() > MAX_PICTURE_PIXELS) {
        cut_short = true;
        return;
    }
    QImage image = p->get_qimage(true);
    if (image.isNull() || image.format() != QImage::Format_Indexed8 || w <= 0 || h <= 0)
        return;
    const bool transparent = p->get_options() & 0x01;
    const uint8_t clear = p->get_transparency_colour();
    const int aw = image.width(), ah = image.height();
    // Shown at its width, its pixels repeated or left out evenly to fit.
    const Rect area = Rect{x, y, w, h}.intersected(canvas->clip());
    for (int r = area.y; r < area.y + area.h; ++r) {
        const uchar* source = image.constScanLine(int(int64_t(r - y) * ah / h));
        uint32_t* row = canvas->row(r);
        for (int c = area.x; c < area.x + area.w; ++c) {
            const uint8_t index = source[int64_t(c - x) * aw / w];
            if (!(transparent && index == clear))
                row[c] = colour(index);
        }
    }
}

namespace {

// Whether the PNG data of a PNG or graphic data object states a size in its header that can be
// drawn, before anything is decoded: the signature, then the IHDR chunk (length, "IHDR", width
// and height big-endian). `too_large` is set for a stated size beyond what is drawn.
template <class P>
bool drawable_png(const P& p, bool& too_large)
{
    unsigned char head[24];
    if (p.get_num_bytes() < sizeof head || !p.get_bytes(0, head, sizeof head) ||
        memcmp(head, "\x89PNG\r\n\x1a\n", 8) != 0 || memcmp(head + 12, "IHDR", 4) != 0)
        return false;
    auto big_endian = [&](int at) {
        return uint32_t(head[at]) << 24 | uint32_t(head[at + 1]) << 16 | uint32_t(head[at + 2]) << 8 | head[at + 3];
    };
    const uint64_t stated_w = big_endian(16), stated_h = big_endian(20);
    if (stated_w == 0 || stated_h == 0 || stated_w * stated_h > MAX_PICTURE_PIXELS) {
        too_large = too_large || (stated_w && stated_h);
        return false;
    }
    return true;
}

}

void Renderer::draw_png(VT_obj* obj, int x, int y)
{
    auto* p = as<PNG_obj>(obj);
    if (!p || !drawable_png(*p, cut_short))
        return;
    draw_image(p->get_qimage(), Rect{x, y, p->get_width(), p->get_height()});
}

void Renderer::draw_scaled_graphic(VT_obj* obj, int x, int y)
{
    auto* p = as<Scaled_graphic_obj>(obj);
    auto* data = p ? as<Graphic_data_obj>(find(p->get_value())) : nullptr;
    if (!data || data->get_format() != Graphic_data_obj::FORMAT_PNG || !drawable_png(*data, cut_short))
        return;
    const QImage& decoded = data->get_qimage();
    if (decoded.isNull())
        return;
    Scaled_graphic_obj::Placement at;
    {
        const VT_obj::Lock guard(*p);
        at = p->_place(decoded.width(), decoded.height());
    }
    // The image stays inside the object's own box.
    const Rect outer = canvas->clip();
    canvas->set_clip(outer.intersected(Rect{x, y, p->get_width(), p->get_height()}));
    draw_image(decoded, Rect{x + at.x, y + at.y, at.width, at.height});
    canvas->set_clip(outer);
}

void Renderer::draw_image(const QImage& decoded, const Rect& to)
{
    if (decoded.isNull() || to.w <= 0 || to.h <= 0)
        return;
    const QImage image = decoded.convertToFormat(QImage::Format_ARGB32);
    const int aw = image.width(), ah = image.height();
    const int x = to.x, y = to.y, w = to.w, h = to.h;
    const Rect area = to.intersected(canvas->clip());
    for (int r = area.y; r < area.y + area.h; ++r) {
        const QRgb* source = reinterpret_cast<const QRgb*>(image.constScanLine(int(int64_t(r - y) * ah / h)));
        for (int c = area.x; c < area.x + area.w; ++c) {
            const QRgb s = source[int64_t(c - x) * aw / w];
            const uint32_t alpha = uint32_t(qAlpha(s));
            if (terminal.colours == 256) {
                canvas->blend(c, r, alpha << 24 | (s & 0xFFFFFFu));
            } else if (alpha > 0x80) {
                // A terminal of few colours shows each pixel in one of its colours, or not at all
                // (transparent at an alpha of 0x80 or less, as the library reads pixels).
                canvas->plot(c, r, 0xFF000000u | reduce_rgb(s, terminal.colours));
            }
        }
    }
}

void Renderer::draw_designator_pointer(VT_obj* obj, int x, int y)
{
    auto* p = as<Auxiliary_type2_control_designator_obj>(obj);
    if (!p)
        return;
    // Pointer types: 0 the auxiliary object's designator, 2 the working set's; 1 and 3 show
    // what an operator assigned, which no pool says.
    switch (p->get_pointer_type()) {
    case 0:
        draw(find(p->get_auxiliary_object_id()), x, y);
        break;
    case 2:
        draw(working_set, x, y);
        break;
    default:
        break;
    }
}

}
}
