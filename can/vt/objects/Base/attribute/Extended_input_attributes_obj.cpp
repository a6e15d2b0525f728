#include "can/vt/objects/Base/attribute/Extended_input_attributes_obj.h"

namespace VT {
namespace Base {

Extended_input_attributes_obj::Extended_input_attributes_obj(unsigned short id, const char* name,
                                                             unsigned char validation, unsigned char n_sets,
                                                             Attribute_code_plane_rangeset* sets)
    : VT_obj(id, TYPE_EXTENDED_INPUT_ATTRIBUTES, 2, aid_table_storage, 3, every_table_storage, 0, nullptr, name),
      validation_type(0, 1, validation, "validation_type"), code_plane_rangesets("code_plane_rangesets", sets, n_sets)
{
    init_lists();
}

Extended_input_attributes_obj::Extended_input_attributes_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_EXTENDED_INPUT_ATTRIBUTES, 2, aid_table_storage, 3, every_table_storage, NO_NAME, NULL_ID)
{
    init_lists();
}

void Extended_input_attributes_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_EXTENDED_INPUT_ATTRIBUTES>(), &validation_type});
    set_table(every_table_storage, {&validation_type, &num_code_plane_rangesets, &code_plane_rangesets});
}

}
}
