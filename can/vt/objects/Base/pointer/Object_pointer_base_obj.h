#ifndef CAN_VT_OBJECTS_BASE_POINTER_OBJECT_POINTER_BASE_OBJ_H
#define CAN_VT_OBJECTS_BASE_POINTER_OBJECT_POINTER_BASE_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// Object pointer (type 27): shows the object its value refers to.
class Object_pointer_base_obj : public VT_obj
{
public:
    Object_pointer_base_obj(uint16_t id, const char* name, unsigned short value);
    explicit Object_pointer_base_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_OBJECT_POINTER; }

    VT_ATTRIBUTE_GETTER(uint16_t, value)

protected:
    Attribute_object_id value;

private:
    void init_lists();

    Attribute* aid_table_storage[2 + 1];
    Attribute* every_table_storage[1 + 1];
};

}
}

#endif
