#include "can/vt/objects/Base/aux/Auxiliary_type2_input_obj.h"

namespace VT {
namespace Base {

Auxiliary_type2_input_obj::Auxiliary_type2_input_obj(uint16_t id, const char* name, uint8_t background_colour_,
                                                     uint8_t function_attributes_, uint8_t num_objects_,
                                                     Attribute_object_placement* objects)
    : VT_obj(id, TYPE_AUXILIARY_TYPE2_INPUT, 3, aid_table_storage, 4, every_table_storage, 0, nullptr, name),
      background_colour(background_colour_, "background_colour"),
      function_attributes(0, 255, function_attributes_, "function_attributes"),
      child_location("child_location", objects, num_objects_)
{
    init_lists();
}

Auxiliary_type2_input_obj::Auxiliary_type2_input_obj(Spec_node* spec)
    : VT_obj(spec, TYPE_AUXILIARY_TYPE2_INPUT, 3, aid_table_storage, 4, every_table_storage, NO_NAME, NULL_ID),
      background_colour(0, "background_colour"), function_attributes(0, 255, 0, "function_attributes"),
      child_location("child_location")
{
    init_lists();
}

void Auxiliary_type2_input_obj::init_lists()
{
    set_table(aid_table_storage,
              {class_type_attribute<TYPE_AUXILIARY_TYPE2_INPUT>(), &background_colour, &function_attributes});
    set_table(every_table_storage, {&background_colour, &function_attributes, &num_objects, &child_location});
}

}
}
