#include "can/vt/objects/Base/window/Graphics_context_obj.h"

namespace VT::Base {

Graphics_context_obj::Graphics_context_obj(uint16_t id, const char* name, uint16_t viewport_width_,
                                           uint16_t viewport_height_, short viewport_x_, short viewport_y_,
                                           uint16_t canvas_width_, uint16_t canvas_height_, float viewport_zoom_,
                                           short graphics_cursor_x_, short graphics_cursor_y_,
                                           uint8_t foreground_colour_, uint8_t background_colour_,
                                           uint16_t font_attributes_, uint16_t line_attributes_,
                                           uint16_t fill_attributes_, uint8_t format_, uint8_t options_,
                                           uint8_t transparency_colour_)
    : VT_obj(id, TYPE_GRAPHICS_CONTEXT, tables, 0, nullptr, name)
{
    set_values(every_attributes(), viewport_width_, viewport_height_, viewport_x_, viewport_y_, canvas_width_,
               canvas_height_, viewport_zoom_, graphics_cursor_x_, graphics_cursor_y_, foreground_colour_,
               background_colour_, font_attributes_, line_attributes_, fill_attributes_, format_, options_,
               transparency_colour_);
    init_lists();
}

}
