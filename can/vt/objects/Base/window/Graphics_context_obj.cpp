#include "can/vt/objects/Base/window/Graphics_context_obj.h"

namespace VT {
namespace Base {

Graphics_context_obj::Graphics_context_obj(uint16_t id, const char* name, uint16_t viewport_width_,
                                           uint16_t viewport_height_, short viewport_x_, short viewport_y_,
                                           uint16_t canvas_width_, uint16_t canvas_height_, float viewport_zoom_,
                                           short graphics_cursor_x_, short graphics_cursor_y_,
                                           uint8_t foreground_colour_, uint8_t background_colour_,
                                           uint16_t font_attributes_, uint16_t line_attributes_,
                                           uint16_t fill_attributes_, uint8_t format_, uint8_t options_,
                                           uint8_t transparency_colour_)
    : VT_obj(id, TYPE_GRAPHICS_CONTEXT, 18, aid_table_storage, 17, every_table_storage, 0, nullptr, name),
      viewport_width(0, 32767, viewport_width_, "viewport_width"),
      viewport_height(0, 32767, viewport_height_, "viewport_height"),
      viewport_x(-32768, 32767, viewport_x_, "viewport_x"), viewport_y(-32768, 32767, viewport_y_, "viewport_y"),
      canvas_width(0, 32767, canvas_width_, "canvas_width"), canvas_height(0, 32767, canvas_height_, "canvas_height"),
      viewport_zoom("viewport_zoom", viewport_zoom_),
      graphics_cursor_x(-32768, 32767, graphics_cursor_x_, "graphics_cursor_x"),
      graphics_cursor_y(-32768, 32767, graphics_cursor_y_, "graphics_cursor_y"),
      foreground_colour(foreground_colour_, "foreground_colour"),
      background_colour(background_colour_, "background_colour"), font_attributes(font_attributes_, "font_attributes"),
      line_attributes(line_attributes_, "line_attributes"), fill_attributes(fill_attributes_, "fill_attributes"),
      format(0, 2, format_, "format"), options(0, 3, options_, "options"),
      transparency_colour(transparency_colour_, "transparency_colour")
{
    init_lists();
}

Graphics_context_obj::Graphics_context_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_GRAPHICS_CONTEXT, 18, aid_table_storage, 17, every_table_storage, NO_NAME, NULL_ID),
      viewport_width(0, 32767, 0, "viewport_width"), viewport_height(0, 32767, 0, "viewport_height"),
      viewport_x(-32768, 32767, 0, "viewport_x"), viewport_y(-32768, 32767, 0, "viewport_y"),
      canvas_width(0, 32767, 0, "canvas_width"), canvas_height(0, 32767, 0, "canvas_height"),
      viewport_zoom("viewport_zoom", 0.0f), graphics_cursor_x(-32768, 32767, 0, "graphics_cursor_x"),
      graphics_cursor_y(-32768, 32767, 0, "graphics_cursor_y"), foreground_colour(0, "foreground_colour"),
      background_colour(0, "background_colour"), font_attributes(NULL_ID, "font_attributes"),
      line_attributes(NULL_ID, "line_attributes"), fill_attributes(NULL_ID, "fill_attributes"),
      format(0, 2, 0, "format"), options(0, 3, 0, "options"), transparency_colour(0, "transparency_colour")
{
    init_lists();
}

void Graphics_context_obj::init_lists()
{
    set_table(aid_table_storage,
              {class_type_attribute<TYPE_GRAPHICS_CONTEXT>(), &viewport_width, &viewport_height, &viewport_x,
               &viewport_y, &canvas_width, &canvas_height, &viewport_zoom, &graphics_cursor_x, &graphics_cursor_y,
               &foreground_colour, &background_colour, &font_attributes, &line_attributes, &fill_attributes, &format,
               &options, &transparency_colour});
    set_table(every_table_storage,
              {&viewport_width, &viewport_height, &viewport_x, &viewport_y, &canvas_width, &canvas_height,
               &viewport_zoom, &graphics_cursor_x, &graphics_cursor_y, &foreground_colour, &background_colour,
               &font_attributes, &line_attributes, &fill_attributes, &format, &options, &transparency_colour});
}

}
}
