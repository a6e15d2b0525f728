#ifndef CAN_VT_OBJECTS_BASE_AUX_AUXILIARY_TYPE2_OBJ_H
#define CAN_VT_OBJECTS_BASE_AUX_AUXILIARY_TYPE2_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// The layout that auxiliary type 2 functions and inputs share: background colour, function
// attributes and the placed children that draw the designator.
template <VT_obj_type::type_t TYPE>
class Auxiliary_type2_obj : public VT_obj
{
public:
    Auxiliary_type2_obj(uint16_t id, const char* name, uint8_t background_colour_, uint8_t function_attributes_,
                        uint8_t num_objects_, Attribute_object_placement* objects)
        : VT_obj(id, TYPE, 3, aid_table_storage, 4, every_table_storage, 0, nullptr, name),
          background_colour(background_colour_, "background_colour"),
          function_attributes(0, 255, function_attributes_, "function_attributes"),
          child_location("child_location", objects, num_objects_)
    {
        init_lists();
    }
    explicit Auxiliary_type2_obj(Spec_node* spec_node)
        : VT_obj(spec_node, TYPE, 3, aid_table_storage, 4, every_table_storage, NO_NAME, NULL_ID),
          background_colour(0, "background_colour"), function_attributes(0, 255, 0, "function_attributes"),
          child_location("child_location")
    {
        init_lists();
    }
    type_t get_ctype() const override { return TYPE; }

    VT_ATTRIBUTE_GETTER(uint8_t, background_colour)
    VT_ATTRIBUTE_GETTER(uint8_t, function_attributes)
    VT_ATTRIBUTE_GETTER(uint8_t, num_objects)
    VT_CHILD_LOCATION_GETTERS(child_location)

private:
    void init_lists()
    {
        set_table(aid_table_storage, {class_type_attribute<TYPE>(), &background_colour, &function_attributes});
        set_table(every_table_storage, {&background_colour, &function_attributes, &num_objects, &child_location});
    }

    Attribute_colour background_colour;
    Attribute_uint8 function_attributes;
    Attribute_list_len<uint8_t> num_objects{"num_objects", &child_location};
    Attribute_list<Attribute_object_placement> child_location;
    Attribute* aid_table_storage[3 + 1];
    Attribute* every_table_storage[4 + 1];
};

}
}

#endif
