#ifndef CAN_VT_OBJECTS_BASE_WINDOW_WINDOW_MASK_OBJ_H
#define CAN_VT_OBJECTS_BASE_WINDOW_WINDOW_MASK_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Window mask (type 34): a user-layout window of width_columns x height_rows cells, with the
// objects it requires, its placed children and its macros. Only the background colour, the
// options and the window name are addressable.
class Window_mask_obj : public VT_obj
{
    Attribute_uint8 width_columns{1, 2, 1, "width_columns"};
    Attribute_uint8 height_rows{1, 6, 1, "height_rows"};
    Attribute_uint8 window_type{0, 18, 0, "window_type"};
    Attribute_colour background_colour{0, "background_colour"};
    Attribute_uint8 options{0, 3, 0, "options"};
    Attribute_object_id window_name{65535, "window_name"};
    Attribute_object_id window_title{65535, "window_title"};
    Attribute_object_id window_icon{65535, "window_icon"};
    Attribute_list_len<uint8_t> num_required_object_refs{"num_required_object_refs", &required_object_refs};
    Attribute_list_len<uint8_t> num_objects{"num_objects", &child_location};
    Attribute_list_len<uint8_t> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_object_id> required_object_refs{"required_object_refs"};
    Attribute_list<Attribute_object_placement> child_location{"child_location"};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    Window_mask_obj(uint16_t id, const char* name, uint8_t width_columns, uint8_t height_rows, uint8_t window_type,
                    uint8_t background_colour, uint8_t options, uint16_t window_name, uint16_t window_title,
                    uint16_t window_icon, uint8_t num_required_object_refs, uint8_t num_objects, uint8_t num_macros,
                    Attribute_object_id* required_object_refs, Attribute_object_placement* objects,
                    Attribute_event_macro* macros);
    explicit Window_mask_obj(Spec_node* node) : VT_obj(node, TYPE_WINDOW_MASK, tables) { init_lists(); }

    VT_ATTRIBUTE_GETTERS(width_columns, height_rows, window_type, background_colour, options, window_name, window_title,
                         window_icon, num_required_object_refs, num_objects, num_macros)
    VT_INDEXED_GETTER(uint16_t, required_object_refs, required_object_refs[i].get())
    VT_CHILD_LOCATION_GETTERS(child_location)
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_WINDOW_MASK, (background_colour, options, window_name),
                     (width_columns, height_rows, window_type, background_colour, options, window_name, window_title,
                      window_icon, num_required_object_refs, num_objects, num_macros, required_object_refs,
                      child_location, event_macro))
};

}

#endif
