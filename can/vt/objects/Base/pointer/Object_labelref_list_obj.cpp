#include "can/vt/objects/Base/pointer/Object_labelref_list_obj.h"

namespace VT {
namespace Base {

Object_labelref_list_obj::Object_labelref_list_obj(uint16_t id, const char* name, unsigned short num_labelrefs_v,
                                                   Attribute_labelref* labelrefs_v)
    : VT_obj(id, TYPE_OBJECT_LABELREF_LIST, 2, aid_table_storage, 2, every_table_storage, 0, nullptr, name),
      num_labelrefs("num_labelrefs", &labelrefs), labelrefs("labelrefs", labelrefs_v, num_labelrefs_v)
{
    init_lists();
}

Object_labelref_list_obj::Object_labelref_list_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_OBJECT_LABELREF_LIST, 2, aid_table_storage, 2, every_table_storage, NO_NAME, NULL_ID),
      num_labelrefs("num_labelrefs", &labelrefs), labelrefs("labelrefs")
{
    init_lists();
}

void Object_labelref_list_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_OBJECT_LABELREF_LIST>(), &num_labelrefs});
    set_table(every_table_storage, {&num_labelrefs, &labelrefs});
}

}
}
