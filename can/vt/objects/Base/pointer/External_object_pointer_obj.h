#ifndef CAN_VT_OBJECTS_BASE_POINTER_EXTERNAL_OBJECT_POINTER_OBJ_H
#define CAN_VT_OBJECTS_BASE_POINTER_EXTERNAL_OBJECT_POINTER_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// External object pointer (type 43): shows an object of another working set (named by an
// external reference name object), or a default object of this one.
class External_object_pointer_obj : public VT_obj
{
public:
    External_object_pointer_obj(uint16_t id, const char* name, unsigned short default_object_id,
                                unsigned short external_reference_name_id, unsigned short value);
    explicit External_object_pointer_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_EXTERNAL_OBJECT_POINTER; }

    VT_ATTRIBUTE_GETTER(uint16_t, default_object_id)
    VT_ATTRIBUTE_GETTER(uint16_t, external_reference_name_id)
    VT_ATTRIBUTE_GETTER(uint16_t, value)

private:
    void init_lists();

    Attribute_object_id default_object_id;
    Attribute_object_id external_reference_name_id;
    Attribute_object_id value;
    Attribute* aid_table_storage[4 + 1];
    Attribute* every_table_storage[3 + 1];
};

}
}

#endif
