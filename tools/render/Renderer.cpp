#include "tools/render/Renderer.h"

#include <QImage>
#include <algorithm>
#include <cstring>

#include "tools/pool/Object_pool.h"
#include "tools/render/Text.h"
#include "tools/terminal/Colour_reduction.h"
#include "vt_core.h"

namespace VT {
namespace Render {

using namespace Base;

namespace {

const uint16_t NULL_ID = 65535;
// Bounds on the work one drawing may take, whatever the pool asks for.
const int MAX_DEPTH = 32;
const int MAX_DRAWS = 20000;
const uint64_t PIXELS_PER_CANVAS_PIXEL = 64;
const uint64_t MIN_PIXEL_BUDGET = 4u << 20;
// Pictures of more pixels are not decoded (4096 x 4096).
const uint64_t MAX_PICTURE_PIXELS = 1u << 24;
// Marks the pixels of a shape that is filled with a pattern; no drawn pixel is transparent.
const uint32_t PATTERN_MARK = 0x00FF00FFu;

// Option bits.
const uint8_t TRANSPARENT_BACKGROUND = 0x01; // output and input fields
const uint8_t AUTO_WRAP = 0x02;
const uint8_t WRAP_ON_HYPHEN = 0x04;
const uint8_t BUTTON_LATCHED = 0x02;  // with latchable (0x01)
const uint8_t BUTTON_SUPPRESS_BORDER = 0x04;
const uint8_t BUTTON_TRANSPARENT = 0x08;
const uint8_t BUTTON_NO_BORDER = 0x20;
const int BUTTON_BORDER = 4;

template <class T>
T* as(VT_obj* obj)
{
    return dynamic_cast<T*>(obj);
}

// Angle in our units from a 2-degree attribute value.
int attribute_angle(uint8_t value)
{
    return int(value) * 2 * DEGREE;
}

// The sweep from `start` to `end` (2-degree units) in the given direction: its first angle
// anticlockwise and its span; equal ends sweep the whole circle.
Arc sweep(uint8_t start, uint8_t end, bool clockwise)
{
    const int full = 360 * DEGREE;
    const int s = attribute_angle(start), e = attribute_angle(end);
    int span = ((clockwise ? s - e : e - s) % full + full) % full;
    if (span == 0)
        span = full;
    return Arc{clockwise ? s - span : s, span};
}

// How far along [min, max] `value` lies, in 1/65536.
int64_t fraction(int64_t value, int64_t min, int64_t max)
{
    if (max <= min)
        return 0;
    value = std::max(min, std::min(max, value));
    return (value - min) * 65536 / (max - min);
}

// The angle `part` (1/65536) of the way along a sweep drawn from `start`.
int sweep_angle(const Arc& arc, bool clockwise, int64_t part)
{
    const int offset = int(int64_t(arc.span) * part / 65536);
    return clockwise ? arc.start + arc.span - offset : arc.start + offset;
}

std::string variable_text(VT_obj* variable)
{
    auto* v = as<String_variable_obj>(variable);
    if (!v)
        return std::string();
    std::string s(v->get_length(), '\0');
    if (!s.empty())
        v->get_string(0, &s[0], unsigned(s.size()));
    return s;
}

}

Renderer::Renderer(const Terminal& terminal, Lookup lookup, VT_obj* working_set)
    : terminal(terminal), lookup(std::move(lookup)), working_set(working_set)
{
    for (int i = 0; i < 256; ++i)
        palette[i] = terminal_rgb(uint8_t(i), terminal.colours);
}

Renderer::Renderer(const Terminal& terminal, const Object_pool& pool)
    : Renderer(terminal, [&pool](uint16_t id) { return pool.find(id); }, working_set_of(pool))
{
}

VT_obj* Renderer::working_set_of(const Object_pool& pool)
{
    for (VT_obj* obj : pool.objects())
        if (obj->get_ctype() == VT_obj_type::TYPE_WORKING_SET)
            return obj;
    return nullptr;
}

VT_obj* Renderer::active_mask(const Object_pool& pool)
{
    auto* ws = as<Working_set_obj>(working_set_of(pool));
    return ws ? pool.find(ws->get_active_mask()) : nullptr;
}

QVector<VT_obj*> Renderer::masks(const Object_pool& pool)
{
    QVector<VT_obj*> out;
    for (VT_obj* obj : pool.objects()) {
        const auto type = obj->get_ctype();
        if (type == VT_obj_type::TYPE_DATA_MASK || type == VT_obj_type::TYPE_ALARM_MASK ||
            type == VT_obj_type::TYPE_WINDOW_MASK)
            out.append(obj);
    }
    return out;
}

uint32_t Renderer::colour(uint8_t index) const
{
    return palette[index];
}

VT_obj* Renderer::find(uint16_t id) const
{
    return id == NULL_ID ? nullptr : lookup(id);
}

int Renderer::key_column_width() const
{
    return terminal.physical_soft_keys ? terminal.key_width + 2 * KEY_MARGIN : 0;
}

Canvas Renderer::start(int width, int height, uint32_t fill)
{
    cut_short = false;
    draws = 0;
    stack.clear();
    if (width > size_limit || height > size_limit)
        cut_short = true;
    width = std::max(1, std::min(width, size_limit));
    height = std::max(1, std::min(height, size_limit));
    pixel_budget = std::max(MIN_PIXEL_BUDGET, PIXELS_PER_CANVAS_PIXEL * uint64_t(width) * uint64_t(height));
    return Canvas(width, height, fill);
}

bool Renderer::enter(VT_obj* obj)
{
    if (cut_short)
        return false;
    if (++draws > MAX_DRAWS || canvas->written() > pixel_budget || stack.size() >= size_t(MAX_DEPTH)) {
        cut_short = true;
        return false;
    }
    if (std::find(stack.begin(), stack.end(), obj) != stack.end())
        return false; // an object inside itself: a terminal refuses such a pool
    stack.push_back(obj);
    return true;
}

void Renderer::leave()
{
    stack.pop_back();
}

Rect Renderer::object_size(VT_obj* obj)
{
    if (!obj)
        return Rect{};
    const int key_w = terminal.key_width, key_h = terminal.key_height;
    switch (obj->get_ctype()) {
    case VT_obj_type::TYPE_WORKING_SET:
    case VT_obj_type::TYPE_KEY:
    case VT_obj_type::TYPE_AUXILIARY_FUNCTION:
    case VT_obj_type::TYPE_AUXILIARY_INPUT:
    case VT_obj_type::TYPE_AUXILIARY_TYPE2_FUNCTION:
    case VT_obj_type::TYPE_AUXILIARY_TYPE2_INPUT:
    case VT_obj_type::TYPE_AUXILIARY_TYPE2_CONTROL_DESIGNATOR:
        return Rect{0, 0, key_w, key_h};
    case VT_obj_type::TYPE_DATA_MASK:
    case VT_obj_type::TYPE_ALARM_MASK:
        return Rect{0, 0, terminal.data_mask_width, terminal.data_mask_height};
    case VT_obj_type::TYPE_SOFT_KEY_MASK:
        return Rect{0, 0, terminal.key_width + 2 * KEY_MARGIN, terminal.data_mask_height};
    case VT_obj_type::TYPE_KEY_GROUP:
        return Rect{0, 0, terminal.key_width + 2 * KEY_MARGIN, 4 * (key_h + 2 * KEY_MARGIN)};
    case VT_obj_type::TYPE_WINDOW_MASK: {
        auto* w = as<Window_mask_obj>(obj);
        return w ? Rect{0, 0, w->get_width_columns() * key_w, w->get_height_rows() * key_h} : Rect{};
    }
    case VT_obj_type::TYPE_METER:
    case VT_obj_type::TYPE_INPUT_BOOLEAN:
        return Rect{0, 0, obj->get_width(), obj->get_width()};
    case VT_obj_type::TYPE_GRAPHICS_CONTEXT: {
        auto* g = as<Graphics_context_obj>(obj);
        return g ? Rect{0, 0, g->get_viewport_width(), g->get_viewport_height()} : Rect{};
    }
    case VT_obj_type::TYPE_OBJECT_POINTER:
    case VT_obj_type::TYPE_EXTERNAL_OBJECT_POINTER: {
        uint16_t target = NULL_ID;
        if (auto* p = as<Object_pointer_base_obj>(obj))
            target = p->get_value();
        else if (auto* e = as<External_object_pointer_obj>(obj))
            target = e->get_default_object_id();
        VT_obj* to = find(target);
        if (!to || std::find(stack.begin(), stack.end(), to) != stack.end() || stack.size() >= size_t(MAX_DEPTH))
            return Rect{};
        stack.push_back(obj);
        const Rect r = object_size(to);
        stack.pop_back();
        return r;
    }
    case VT_obj_type::TYPE_CONTAINER:
    case VT_obj_type::TYPE_BUTTON:
    case VT_obj_type::TYPE_INPUT_STRING:
    case VT_obj_type::TYPE_INPUT_NUMBER:
    case VT_obj_type::TYPE_INPUT_LIST:
    case VT_obj_type::TYPE_OUTPUT_STRING:
    case VT_obj_type::TYPE_OUTPUT_NUMBER:
    case VT_obj_type::TYPE_OUTPUT_LIST:
    case VT_obj_type::TYPE_LINE:
    case VT_obj_type::TYPE_RECTANGLE:
    case VT_obj_type::TYPE_ELLIPSE:
    case VT_obj_type::TYPE_POLYGON:
    case VT_obj_type::TYPE_LINEAR_BAR_GRAPH:
    case VT_obj_type::TYPE_ARCHED_BAR_GRAPH:
    case VT_obj_type::TYPE_PICTURE_GRAPHIC:
    case VT_obj_type::TYPE_PNG:
    case VT_obj_type::TYPE_ANIMATION:
        // A line may be flat: it still takes a row.
        return Rect{0, 0, std::max<int>(1, obj->get_width()), std::max<int>(1, obj->get_height())};
    default:
        return Rect{};
    }
}

Canvas Renderer::render_object(VT_obj* obj)
{
    const Rect size = object_size(obj);
    Canvas out = start(size.w, size.h, colour(0));
    canvas = &out;
    draw(obj, 0, 0);
    canvas = nullptr;
    return out;
}

Canvas Renderer::render_screen(VT_obj* mask)
{
    uint16_t soft_keys = NULL_ID;
    if (auto* d = as<Data_mask_obj>(mask))
        soft_keys = d->get_soft_key_mask();
    else if (auto* a = as<Alarm_mask_obj>(mask))
        soft_keys = a->get_soft_key_mask();
    else
        return render_object(mask);
    const int mask_w = terminal.data_mask_width, mask_h = terminal.data_mask_height;
    const int keys = terminal.physical_soft_keys;
    const int slot = terminal.key_height + 2 * KEY_MARGIN;
    const int column_h = std::max(mask_h, keys * slot);
    Canvas out = start(mask_w + key_column_width(), column_h, colour(0));
    canvas = &out;
    draw_in(mask, Rect{0, 0, mask_w, mask_h});
    if (keys)
        draw_soft_keys(find(soft_keys), mask_w, 0, column_h);
    canvas = nullptr;
    return out;
}

void Renderer::draw_in(VT_obj* obj, const Rect& area)
{
    const Rect outer = canvas->clip();
    canvas->set_clip(outer.intersected(area));
    if (!canvas->clip().empty())
        draw(obj, area.x, area.y);
    canvas->set_clip(outer);
}

template <class T>
void Renderer::draw_placed_in(const T& parent, const Rect& area)
{
    const Rect outer = canvas->clip();
    canvas->set_clip(outer.intersected(area));
    const unsigned n = parent.get_num_objects();
    for (unsigned i = 0; i < n && !cut_short && !canvas->clip().empty(); ++i)
        draw(find(parent.get_child_location_object_id(i)), area.x + parent.get_child_location_x_location(i),
             area.y + parent.get_child_location_y_location(i));
    canvas->set_clip(outer);
}

template <class T>
void Renderer::draw_panel(const T& parent, const Rect& area)
{
    canvas->fill_rect(area.x, area.y, area.w, area.h, colour(parent.get_background_colour()));
    draw_placed_in(parent, area);
}

// The soft-key column: the soft-key mask's colour, and as many of its keys as the terminal has
// physical keys, one under another, spread over the column's height.
void Renderer::draw_soft_keys(VT_obj* soft_key_mask, int x, int y, int height)
{
    auto* mask = as<Soft_key_mask_obj>(soft_key_mask);
    const int width = terminal.key_width + 2 * KEY_MARGIN;
    canvas->fill_rect(x, y, width, height, colour(mask ? mask->get_background_colour() : 0));
    if (!mask || !enter(soft_key_mask))
        return;
    const int keys = std::max(1, int(terminal.physical_soft_keys));
    const int slot = std::max(terminal.key_height + 2 * KEY_MARGIN, height / keys);
    const unsigned n = std::min<unsigned>(mask->get_num_objects(), unsigned(keys));
    for (unsigned i = 0; i < n; ++i)
        draw_key_slot(find(mask->get_child_objects(i)), x + KEY_MARGIN,
                      y + int(i) * slot + (slot - terminal.key_height) / 2);
    leave();
}

void Renderer::draw_key_slot(VT_obj* key, int x, int y)
{
    draw_in(key, Rect{x, y, terminal.key_width, terminal.key_height});
}

void Renderer::draw(VT_obj* obj, int x, int y)
{
    if (!obj || !enter(obj))
        return;
    const int key_w = terminal.key_width, key_h = terminal.key_height;
    switch (obj->get_ctype()) {
    case VT_obj_type::TYPE_WORKING_SET:
        if (auto* o = as<Working_set_obj>(obj))
            draw_panel(*o, Rect{x, y, key_w, key_h});
        break;
    case VT_obj_type::TYPE_DATA_MASK:
        if (auto* o = as<Data_mask_obj>(obj))
            draw_panel(*o, Rect{x, y, terminal.data_mask_width, terminal.data_mask_height});
        break;
    case VT_obj_type::TYPE_ALARM_MASK:
        if (auto* o = as<Alarm_mask_obj>(obj))
            draw_panel(*o, Rect{x, y, terminal.data_mask_width, terminal.data_mask_height});
        break;
    case VT_obj_type::TYPE_CONTAINER:
        if (auto* o = as<Container_obj>(obj)) {
            if (!o->get_hidden())
                draw_placed_in(*o, Rect{x, y, o->get_width(), o->get_height()});
        }
        break;
    case VT_obj_type::TYPE_SOFT_KEY_MASK:
        leave();
        draw_soft_keys(obj, x, y, terminal.data_mask_height);
        return;
    case VT_obj_type::TYPE_KEY:
        if (auto* o = as<Key_obj>(obj))
            draw_panel(*o, Rect{x, y, key_w, key_h});
        break;
    case VT_obj_type::TYPE_KEY_GROUP:
        if (auto* o = as<Key_group_obj>(obj)) {
            const int slot = key_h + 2 * KEY_MARGIN;
            const unsigned n = std::min<unsigned>(o->get_num_objects(), 4);
            for (unsigned i = 0; i < n; ++i)
                draw_key_slot(find(o->get_child_objects(i)), x + KEY_MARGIN, y + int(i) * slot + KEY_MARGIN);
        }
        break;
    case VT_obj_type::TYPE_BUTTON:
        draw_button(obj, x, y);
        break;
    case VT_obj_type::TYPE_INPUT_BOOLEAN:
        draw_input_boolean(obj, x, y);
        break;
    case VT_obj_type::TYPE_INPUT_STRING:
    case VT_obj_type::TYPE_OUTPUT_STRING:
        draw_string(obj, x, y);
        break;
    case VT_obj_type::TYPE_INPUT_NUMBER:
    case VT_obj_type::TYPE_OUTPUT_NUMBER:
        draw_number(obj, x, y);
        break;
    case VT_obj_type::TYPE_INPUT_LIST:
    case VT_obj_type::TYPE_OUTPUT_LIST:
        draw_list(obj, x, y);
        break;
    case VT_obj_type::TYPE_LINE:
        draw_line(obj, x, y);
        break;
    case VT_obj_type::TYPE_RECTANGLE:
        draw_rectangle(obj, x, y);
        break;
    case VT_obj_type::TYPE_ELLIPSE:
        draw_ellipse(obj, x, y);
        break;
    case VT_obj_type::TYPE_POLYGON:
        draw_polygon(obj, x, y);
        break;
    case VT_obj_type::TYPE_METER:
        draw_meter(obj, x, y);
        break;
    case VT_obj_type::TYPE_LINEAR_BAR_GRAPH:
        draw_linear_bar_graph(obj, x, y);
        break;
    case VT_obj_type::TYPE_ARCHED_BAR_GRAPH:
        draw_arched_bar_graph(obj, x, y);
        break;
    case VT_obj_type::TYPE_PICTURE_GRAPHIC:
        draw_picture(obj, x, y);
        break;
    case VT_obj_type::TYPE_PNG:
        draw_png(obj, x, y);
        break;
    case VT_obj_type::TYPE_OBJECT_POINTER:
        if (auto* o = as<Object_pointer_base_obj>(obj))
            draw(find(o->get_value()), x, y);
        break;
    case VT_obj_type::TYPE_EXTERNAL_OBJECT_POINTER:
        // The other working set is not there: the default object stands in for it.
        if (auto* o = as<External_object_pointer_obj>(obj))
            draw(find(o->get_default_object_id()), x, y);
        break;
    case VT_obj_type::TYPE_AUXILIARY_FUNCTION:
    case VT_obj_type::TYPE_AUXILIARY_INPUT:
    case VT_obj_type::TYPE_AUXILIARY_TYPE2_FUNCTION:
    case VT_obj_type::TYPE_AUXILIARY_TYPE2_INPUT: {
        // An auxiliary designator, at key size.
        const Rect area{x, y, key_w, key_h};
        if (auto* a = as<Auxiliary_function_obj>(obj))
            draw_panel(*a, area);
        else if (auto* b = as<Auxiliary_input_obj>(obj))
            draw_panel(*b, area);
        else if (auto* c = as<Auxiliary_type2_function_obj>(obj))
            draw_panel(*c, area);
        else if (auto* d = as<Auxiliary_type2_input_obj>(obj))
            draw_panel(*d, area);
        break;
    }
    case VT_obj_type::TYPE_AUXILIARY_TYPE2_CONTROL_DESIGNATOR:
        draw_designator_pointer(obj, x, y);
        break;
    case VT_obj_type::TYPE_WINDOW_MASK:
        draw_window_mask(obj, x, y);
        break;
    case VT_obj_type::TYPE_GRAPHICS_CONTEXT:
        // The canvas holds what the working set drew at run time; at rest, its background.
        if (auto* o = as<Graphics_context_obj>(obj)) {
            if (!(o->get_options() & TRANSPARENT_BACKGROUND))
                canvas->fill_rect(x, y, o->get_viewport_width(), o->get_viewport_height(),
                                  colour(o->get_background_colour()));
        }
        break;
    case VT_obj_type::TYPE_ANIMATION:
        // At rest an animation shows its default child.
        if (auto* o = as<Animation_obj>(obj)) {
            const unsigned i = o->get_default_child_index();
            if (i < o->get_num_objects()) {
                const Rect outer = canvas->clip();
                canvas->set_clip(outer.intersected(Rect{x, y, o->get_width(), o->get_height()}));
                draw(find(o->get_child_location_object_id(i)), x + o->get_child_location_x_location(i),
                     y + o->get_child_location_y_location(i));
                canvas->set_clip(outer);
            }
        }
        break;
    default:
        break;
    }
    leave();
}

void Renderer::draw_button(VT_obj* obj, int x, int y)
{
    auto* b = as<Button_obj>(obj);
    if (!b)
        return;
    const int w = b->get_width(), h = b->get_height();
    const uint8_t options = b->get_options();
    const uint32_t border = colour(b->get_border_colour());
    if (!(options & BUTTON_TRANSPARENT))
        canvas->fill_rect(x, y, w, h, colour(b->get_background_colour()));
    const bool has_border = !(options & BUTTON_NO_BORDER);
    if (has_border && !(options & BUTTON_SUPPRESS_BORDER)) {
        // A raised key, or a pressed one when latched down: a frame in the border colour, lit
        // on two sides and shaded on the other two.
        const bool down = (options & 0x03) == (0x01 | BUTTON_LATCHED);
        const uint32_t light = colour(1), shade = border;
        const int t = BUTTON_BORDER - 1;
        canvas->fill_rect(x + 1, y + 1, w - 2, t, down ? shade : light);
        canvas->fill_rect(x + 1, y + 1, t, h - 2, down ? shade : light);
        canvas->fill_rect(x + 1, y + h - 1 - t, w - 2, t, down ? light : shade);
        canvas->fill_rect(x + w - 1 - t, y + 1, t, h - 2, down ? light : shade);
        canvas->fill_rect(x, y, w, 1, border);
        canvas->fill_rect(x, y + h - 1, w, 1, border);
        canvas->fill_rect(x, y, 1, h, border);
        canvas->fill_rect(x + w - 1, y, 1, h, border);
    }
    // The children sit on the face, inside the border's room.
    const int inset = has_border ? BUTTON_BORDER : 0;
    draw_placed_in(*b, Rect{x + inset, y + inset, w - 2 * inset, h - 2 * inset});
}

void Renderer::draw_input_boolean(VT_obj* obj, int x, int y)
{
    auto* b = as<Input_boolean_obj>(obj);
    if (!b)
        return;
    const int w = b->get_width();
    const Font f = font(b->get_foreground_colour());
    canvas->fill_rect(x, y, w, w, colour(b->get_background_colour()));
    // A box with a tick when true, in the colour of the foreground font.
    canvas->fill_rect(x, y, w, 1, f.colour);
    canvas->fill_rect(x, y + w - 1, w, 1, f.colour);
    canvas->fill_rect(x, y, 1, w, f.colour);
    canvas->fill_rect(x + w - 1, y, 1, w, f.colour);
    if (number_value(b->get_variable_reference(), b->get_value()) == 0)
        return;
    const int t = std::max(1, w / 10);
    const Point a{x + w * 2 / 10, y + w * 5 / 10}, m{x + w * 4 / 10, y + w * 7 / 10}, e{x + w * 8 / 10, y + w * 25 / 100};
    canvas->line(a.x, a.y, m.x, m.y, t, 0xFFFF, f.colour);
    canvas->line(m.x, m.y, e.x, e.y, t, 0xFFFF, f.colour);
}

Font Renderer::font(uint16_t font_attributes) const
{
    Font f{font_metrics(0), colour(0), 0, 0};
    if (auto* a = as<Font_attributes_obj>(find(font_attributes))) {
        f.metrics = font_metrics(terminal_font_size(a->get_font_size(), a->get_font_style(), terminal));
        f.colour = colour(a->get_font_colour());
        f.type = a->get_font_type();
        // Flashing draws steady; proportional fonts draw in their cells.
        f.style = a->get_font_style() & terminal.font_styles &
                  (STYLE_BOLD | STYLE_CROSSED_OUT | STYLE_UNDERLINED | STYLE_ITALIC | STYLE_INVERTED);
    }
    return f;
}

uint32_t Renderer::number_value(uint16_t variable, uint32_t own) const
{
    if (variable == NULL_ID)
        return own;
    auto* v = as<Number_variable_obj>(find(variable));
    return v ? v->get_value() : own;
}

void Renderer::draw_string(VT_obj* obj, int x, int y)
{
    int w = 0, h = 0;
    uint8_t background = 0, options = 0, justification = 0;
    uint16_t font_id = NULL_ID, variable = NULL_ID;
    std::string text;
    if (auto* s = as<Output_string_obj>(obj)) {
        w = s->get_width();
        h = s->get_height();
        background = s->get_background_colour();
        options = s->get_options();
        justification = s->get_horizontal_justification();
        font_id = s->get_font_attributes();
        variable = s->get_variable_reference();
        String_base own;
        s->get_string(own);
        text = own.get();
    } else if (auto* i = as<Input_string_obj>(obj)) {
        w = i->get_width();
        h = i->get_height();
        background = i->get_background_colour();
        options = i->get_options();
        justification = i->get_horizontal_justification();
        font_id = i->get_font_attributes();
        variable = i->get_variable_reference();
        text.assign(i->get_length(), '\0');
        if (!text.empty())
            i->get_string(0, &text[0], unsigned(text.size()));
    } else {
        return;
    }
    if (variable != NULL_ID)
        text = variable_text(find(variable));
    if (!(options & TRANSPARENT_BACKGROUND))
        canvas->fill_rect(x, y, w, h, colour(background));
    Text_layout layout;
    layout.justification = justification;
    layout.wrap = options & AUTO_WRAP;
    layout.wrap_on_hyphen = options & WRAP_ON_HYPHEN;
    draw_text(*canvas, Rect{x, y, w, h}, text, font(font_id), layout, colour(background));
}

void Renderer::draw_number(VT_obj* obj, int x, int y)
{
    int w = 0, h = 0;
    uint8_t background = 0, justification = 0;
    uint16_t font_id = NULL_ID;
    Number_format n;
    auto read = [&](const auto* o) {
        w = o->get_width();
        h = o->get_height();
        background = o->get_background_colour();
        justification = o->get_horizontal_justification();
        font_id = o->get_font_attributes();
        n.value = number_value(o->get_variable_reference(), o->get_value());
        n.offset = o->get_offset();
        n.scale = o->get_scale();
        n.decimals = o->get_no_decimals();
        n.format = o->get_format();
        n.options = o->get_options();
    };
    if (auto* out = as<Output_number_obj>(obj))
        read(out);
    else if (auto* in = as<Input_number_obj>(obj))
        read(in);
    else
        return;
    const Font f = font(font_id);
    n.columns = w / f.metrics.cell_width;
    if (!(n.options & TRANSPARENT_BACKGROUND))
        canvas->fill_rect(x, y, w, h, colour(background));
    Text_layout layout;
    layout.justification = justification;
    draw_text(*canvas, Rect{x, y, w, h}, format_number(n), f, layout, colour(background));
}

void Renderer::draw_list(VT_obj* obj, int x, int y)
{
    int w = 0, h = 0;
    unsigned index = 0, items = 0;
    uint16_t item = NULL_ID;
    if (auto* o = as<Output_list_obj>(obj)) {
        w = o->get_width();
        h = o->get_height();
        items = o->get_num_list_items();
        index = number_value(o->get_variable_reference(), o->get_value());
        if (index < items)
            item = o->get_child_objects_val(index);
    } else if (auto* i = as<Input_list_obj>(obj)) {
        w = i->get_width();
        h = i->get_height();
        items = i->get_num_list_items();
        index = number_value(i->get_variable_reference(), i->get_value());
        if (index < items)
            item = i->get_child_objects_val(index);
    }
    draw_in(find(item), Rect{x, y, w, h});
}

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

void Renderer::draw_png(VT_obj* obj, int x, int y)
{
    auto* p = as<PNG_obj>(obj);
    if (!p)
        return;
    const int w = p->get_width(), h = p->get_height();
    // The size its header states, before anything is decoded: the signature, then the IHDR
    // chunk (length, "IHDR", width and height big-endian).
    unsigned char head[24];
    if (p->get_num_bytes() < sizeof head || !p->get_bytes(0, head, sizeof head) ||
        memcmp(head, "\x89PNG\r\n\x1a\n", 8) != 0 || memcmp(head + 12, "IHDR", 4) != 0)
        return;
    auto big_endian = [&](int at) {
        return uint32_t(head[at]) << 24 | uint32_t(head[at + 1]) << 16 | uint32_t(head[at + 2]) << 8 | head[at + 3];
    };
    const uint64_t stated_w = big_endian(16), stated_h = big_endian(20);
    if (stated_w == 0 || stated_h == 0 || stated_w * stated_h > MAX_PICTURE_PIXELS) {
        cut_short = cut_short || (stated_w && stated_h);
        return;
    }
    const QImage& decoded = p->get_qimage();
    if (decoded.isNull() || w <= 0 || h <= 0)
        return;
    const QImage image = decoded.convertToFormat(QImage::Format_ARGB32);
    const int aw = image.width(), ah = image.height();
    const Rect area = Rect{x, y, w, h}.intersected(canvas->clip());
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

void Renderer::draw_window_mask(VT_obj* obj, int x, int y)
{
    auto* m = as<Window_mask_obj>(obj);
    if (!m)
        return;
    // A window is laid out in cells of the soft-key designator's size.
    const int w = m->get_width_columns() * terminal.key_width, h = m->get_height_rows() * terminal.key_height;
    if (m->get_window_type() == 0) {
        draw_panel(*m, Rect{x, y, w, h}); // free form
        return;
    }
    canvas->fill_rect(x, y, w, h, colour(m->get_background_colour()));
    // A window of a given kind shows the objects it requires; here one under another.
    const Rect outer = canvas->clip();
    canvas->set_clip(outer.intersected(Rect{x, y, w, h}));
    int top = y;
    const unsigned n = m->get_num_required_object_refs();
    for (unsigned i = 0; i < n && !cut_short; ++i) {
        VT_obj* o = find(m->get_required_object_refs(i));
        draw(o, x, top);
        top += object_size(o).h;
    }
    canvas->set_clip(outer);
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
