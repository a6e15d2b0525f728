#ifndef CAN_VT_OBJECTS_BASE_WINDOW_GRAPHICS_CONTEXT_OBJ_H
#define CAN_VT_OBJECTS_BASE_WINDOW_GRAPHICS_CONTEXT_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// Graphics context (type 36): a drawing canvas seen through a viewport, with its cursor,
// colours and drawing attributes. Every attribute is addressable; it has no macros.
class Graphics_context_obj : public VT_obj
{
public:
    Graphics_context_obj(uint16_t id, const char* name, uint16_t viewport_width, uint16_t viewport_height,
                         short viewport_x, short viewport_y, uint16_t canvas_width, uint16_t canvas_height,
                         float viewport_zoom, short graphics_cursor_x, short graphics_cursor_y,
                         uint8_t foreground_colour, uint8_t background_colour, uint16_t font_attributes,
                         uint16_t line_attributes, uint16_t fill_attributes, uint8_t format, uint8_t options,
                         uint8_t transparency_colour);
    explicit Graphics_context_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_GRAPHICS_CONTEXT; }

    VT_ATTRIBUTE_GETTER(uint16_t, viewport_width)
    VT_ATTRIBUTE_GETTER(uint16_t, viewport_height)
    VT_ATTRIBUTE_GETTER(short, viewport_x)
    VT_ATTRIBUTE_GETTER(short, viewport_y)
    VT_ATTRIBUTE_GETTER(uint16_t, canvas_width)
    VT_ATTRIBUTE_GETTER(uint16_t, canvas_height)
    VT_ATTRIBUTE_GETTER(float, viewport_zoom)
    VT_ATTRIBUTE_GETTER(short, graphics_cursor_x)
    VT_ATTRIBUTE_GETTER(short, graphics_cursor_y)
    VT_ATTRIBUTE_GETTER(uint8_t, foreground_colour)
    VT_ATTRIBUTE_GETTER(uint8_t, background_colour)
    VT_ATTRIBUTE_GETTER(uint16_t, font_attributes)
    VT_ATTRIBUTE_GETTER(uint16_t, line_attributes)
    VT_ATTRIBUTE_GETTER(uint16_t, fill_attributes)
    VT_ATTRIBUTE_GETTER(uint8_t, format)
    VT_ATTRIBUTE_GETTER(uint8_t, options)
    VT_ATTRIBUTE_GETTER(uint8_t, transparency_colour)

private:
    void init_lists();

    // The sizes keep to 0..32767 although they travel in 16 unsigned bits.
    Attribute_uint16 viewport_width;
    Attribute_uint16 viewport_height;
    Attribute_int16 viewport_x;
    Attribute_int16 viewport_y;
    Attribute_uint16 canvas_width;
    Attribute_uint16 canvas_height;
    Attribute_float viewport_zoom;
    Attribute_int16 graphics_cursor_x;
    Attribute_int16 graphics_cursor_y;
    Attribute_colour foreground_colour;
    Attribute_colour background_colour;
    Attribute_object_id font_attributes;
    Attribute_object_id line_attributes;
    Attribute_object_id fill_attributes;
    Attribute_uint8 format;
    Attribute_uint8 options;
    Attribute_colour transparency_colour;
    Attribute* aid_table_storage[18 + 1];
    Attribute* every_table_storage[17 + 1];
};

}
}

#endif
