#ifndef CAN_VT_OBJECTS_BASE_SHAPE_RECTANGLE_OBJ_H
#define CAN_VT_OBJECTS_BASE_SHAPE_RECTANGLE_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// Output rectangle (type 14): outlined with its line attributes, sides suppressed by bit,
// filled with its fill attributes.
class Rectangle_obj : public VT_obj
{
public:
    Rectangle_obj(unsigned short id, const char* name, unsigned short line_attributes, unsigned short width,
                  unsigned short height, unsigned char line_suppression, unsigned short fill_attributes,
                  unsigned char num_macros, Attribute_event_macro* event_macro);
    explicit Rectangle_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_RECTANGLE; }

    // A rectangle cannot be outlined without line attributes: a pool that leaves them out
    // is refused.
    bool __set_by_spec(scale_area_t area) override;
    // Scaling a rectangle reaches its line width.
    uint16_t __get_scaling_child() const override { return line_attributes; }
    uint16_t _get_width() const override
    {
        __check_locked();
        return width;
    }
    uint16_t _get_height() const override
    {
        __check_locked();
        return height;
    }

    VT_ATTRIBUTE_GETTER(unsigned short, line_attributes)
    VT_ATTRIBUTE_GETTER(unsigned char, line_suppression)
    VT_ATTRIBUTE_GETTER(unsigned short, fill_attributes)
    VT_ATTRIBUTE_GETTER(unsigned char, num_macros)
    VT_EVENT_MACRO_GETTERS(event_macro)

private:
    void init_lists();

    Attribute_object_id line_attributes{65535, "line_attributes"};
    Attribute_uint16 width{0, 65535, 0, "width"};
    Attribute_uint16 height{0, 65535, 0, "height"};
    Attribute_uint8 line_suppression{0, 15, 0, "line_suppression"};
    Attribute_object_id fill_attributes{65535, "fill_attributes"};
    Attribute_list_len<unsigned char> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};
    Attribute* aid_table_storage[6 + 1];
    Attribute* every_table_storage[7 + 1];
};

}
}

#endif
