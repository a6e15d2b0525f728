#include "can/vt/objects/Base/palette/Working_set_special_controls_obj.h"

namespace VT {
namespace Base {

Working_set_special_controls_obj::Working_set_special_controls_obj(uint16_t id, const char* name,
                                                                   uint16_t num_bytes_, uint8_t* bytes_)
    : VT_obj(id, TYPE_WORKING_SET_SPECIAL_CONTROLS, 1, aid_table_storage, 2, every_table_storage, 0, nullptr, name),
      bytes(bytes_, num_bytes_, "bytes")
{
    init_lists();
}

Working_set_special_controls_obj::Working_set_special_controls_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_WORKING_SET_SPECIAL_CONTROLS, 1, aid_table_storage, 2, every_table_storage, NO_NAME, NULL_ID),
      bytes("bytes")
{
    init_lists();
}

void Working_set_special_controls_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_WORKING_SET_SPECIAL_CONTROLS>()});
    set_table(every_table_storage, {&num_bytes_count, &bytes});
}

}
}
