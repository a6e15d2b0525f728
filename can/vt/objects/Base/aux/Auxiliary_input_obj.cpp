#include "can/vt/objects/Base/aux/Auxiliary_input_obj.h"

namespace VT {
namespace Base {

Auxiliary_input_obj::Auxiliary_input_obj(uint16_t id, const char* name, uint8_t background_colour_,
                                         uint8_t function_type_, uint8_t input_id_, uint8_t num_objects_,
                                         Attribute_object_placement* objects)
    : VT_obj(id, TYPE_AUXILIARY_INPUT, 1, aid_table_storage, 5, every_table_storage, 0, nullptr, name),
      background_colour(background_colour_, "background_colour"),
      function_type(0, 255, function_type_, "function_type"), input_id(0, 250, input_id_, "input_id"),
      child_location("child_location", objects, num_objects_)
{
    init_lists();
}

Auxiliary_input_obj::Auxiliary_input_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_AUXILIARY_INPUT, 1, aid_table_storage, 5, every_table_storage, NO_NAME, NULL_ID),
      background_colour(0, "background_colour"), function_type(0, 255, 0, "function_type"),
      input_id(0, 250, 0, "input_id"), child_location("child_location")
{
    init_lists();
}

void Auxiliary_input_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_AUXILIARY_INPUT>()});
    set_table(every_table_storage, {&background_colour, &function_type, &input_id, &num_objects, &child_location});
}

}
}
