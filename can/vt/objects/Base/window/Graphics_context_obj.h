#ifndef CAN_VT_OBJECTS_BASE_WINDOW_GRAPHICS_CONTEXT_OBJ_H
#define CAN_VT_OBJECTS_BASE_WINDOW_GRAPHICS_CONTEXT_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Graphics context (type 36): a drawing canvas seen through a viewport, with its cursor,
// colours and drawing attributes. Every attribute is addressable; it has no macros.
class Graphics_context_obj : public VT_obj
{
    // The sizes keep to 0..32767 although they travel in 16 unsigned bits.
    Attribute_uint16 viewport_width{0, 32767, 0, "viewport_width"};
    Attribute_uint16 viewport_height{0, 32767, 0, "viewport_height"};
    Attribute_int16 viewport_x{-32768, 32767, 0, "viewport_x"};
    Attribute_int16 viewport_y{-32768, 32767, 0, "viewport_y"};
    Attribute_uint16 canvas_width{0, 32767, 0, "canvas_width"};
    Attribute_uint16 canvas_height{0, 32767, 0, "canvas_height"};
    Attribute_float viewport_zoom{"viewport_zoom", 0.0f};
    Attribute_int16 graphics_cursor_x{-32768, 32767, 0, "graphics_cursor_x"};
    Attribute_int16 graphics_cursor_y{-32768, 32767, 0, "graphics_cursor_y"};
    Attribute_colour foreground_colour{0, "foreground_colour"};
    Attribute_colour background_colour{0, "background_colour"};
    Attribute_object_id font_attributes{65535, "font_attributes"};
    Attribute_object_id line_attributes{65535, "line_attributes"};
    Attribute_object_id fill_attributes{65535, "fill_attributes"};
    Attribute_uint8 format{0, 2, 0, "format"};
    Attribute_uint8 options{0, 3, 0, "options"};
    Attribute_colour transparency_colour{0, "transparency_colour"};

public:
    Graphics_context_obj(uint16_t id, const char* name, uint16_t viewport_width, uint16_t viewport_height,
                         short viewport_x, short viewport_y, uint16_t canvas_width, uint16_t canvas_height,
                         float viewport_zoom, short graphics_cursor_x, short graphics_cursor_y,
                         uint8_t foreground_colour, uint8_t background_colour, uint16_t font_attributes,
                         uint16_t line_attributes, uint16_t fill_attributes, uint8_t format, uint8_t options,
                         uint8_t transparency_colour);
    explicit Graphics_context_obj(Spec_node* node) : VT_obj(node, TYPE_GRAPHICS_CONTEXT, tables) { init_lists(); }

    VT_ATTRIBUTE_GETTERS(viewport_width, viewport_height, viewport_x, viewport_y, canvas_width, canvas_height,
                         viewport_zoom, graphics_cursor_x, graphics_cursor_y, foreground_colour, background_colour,
                         font_attributes, line_attributes, fill_attributes, format, options, transparency_colour)

    VT_OBJECT_TABLES(TYPE_GRAPHICS_CONTEXT,
                     (viewport_width, viewport_height, viewport_x, viewport_y, canvas_width, canvas_height,
                      viewport_zoom, graphics_cursor_x, graphics_cursor_y, foreground_colour, background_colour,
                      font_attributes, line_attributes, fill_attributes, format, options, transparency_colour),
                     (viewport_width, viewport_height, viewport_x, viewport_y, canvas_width, canvas_height,
                      viewport_zoom, graphics_cursor_x, graphics_cursor_y, foreground_colour, background_colour,
                      font_attributes, line_attributes, fill_attributes, format, options, transparency_colour))
};

}

#endif
