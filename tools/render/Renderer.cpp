#include "tools/render/Renderer.h"

#include <algorithm>

#include "tools/pool/Object_pool.h"
#include "tools/render/Drawing.h"
#include "tools/render/Text.h"
#include "tools/terminal/Colour_reduction.h"

namespace VT {
namespace Render {

using namespace Base;
using namespace Drawing;

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
    case VT_obj_type::TYPE_SCALED_GRAPHIC:
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
    case VT_obj_type::TYPE_SCALED_GRAPHIC:
        draw_scaled_graphic(obj, x, y);
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

}
}
