#ifndef CAN_VT_OBJECTS_BASE_AUX_AUXILIARY_TYPE2_OBJ_H
#define CAN_VT_OBJECTS_BASE_AUX_AUXILIARY_TYPE2_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// The layout that auxiliary type 2 functions and inputs share: background colour, function
// attributes and the placed children that draw the designator.
template <VT_obj_type::type_t TYPE>
class Auxiliary_type2_obj : public VT_obj
{
    Attribute_colour background_colour{0, "background_colour"};
    Attribute_uint8 function_attributes{0, 255, 0, "function_attributes"};
    Attribute_list_len<uint8_t> num_objects{"num_objects", &child_location};
    Attribute_list<Attribute_object_placement> child_location{"child_location"};

public:
    Auxiliary_type2_obj(uint16_t id, const char* name, uint8_t background_colour_, uint8_t function_attributes_,
                        uint8_t num_objects_, Attribute_object_placement* objects)
        : VT_obj(id, TYPE, tables, 0, nullptr, name)
    {
        set_values(every_attributes(), background_colour_, function_attributes_, num_objects_, objects);
        init_lists();
    }
    explicit Auxiliary_type2_obj(Spec_node* node) : VT_obj(node, TYPE, tables) { init_lists(); }

    VT_ATTRIBUTE_GETTERS(background_colour, function_attributes, num_objects)
    VT_CHILD_LOCATION_GETTERS(child_location)

    VT_OBJECT_TABLES(TYPE, (background_colour, function_attributes),
                     (background_colour, function_attributes, num_objects, child_location))
};

}

#endif
