#include "can/vt/objects/Base/aux/Auxiliary_function_obj.h"

namespace VT::Base {

Auxiliary_function_obj::Auxiliary_function_obj(uint16_t id, const char* name, uint8_t background_colour_,
                                               uint8_t function_type_, uint8_t num_objects_,
                                               Attribute_object_placement* objects)
    : VT_obj(id, TYPE_AUXILIARY_FUNCTION, tables, 0, nullptr, name)
{
    set_values(every_attributes(), background_colour_, function_type_, num_objects_, objects);
    init_lists();
}

}
