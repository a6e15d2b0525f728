#include "tools/render/Renderer.h"

#include "tools/render/Drawing.h"
#include "tools/render/Text.h"

namespace VT {
namespace Render {

using namespace Base;
using namespace Drawing;

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

}
}
