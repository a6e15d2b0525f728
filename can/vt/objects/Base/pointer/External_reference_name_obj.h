#ifndef CAN_VT_OBJECTS_BASE_POINTER_EXTERNAL_REFERENCE_NAME_OBJ_H
#define CAN_VT_OBJECTS_BASE_POINTER_EXTERNAL_REFERENCE_NAME_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// External reference name (type 42): names another working set by its 64-bit name, held as
// name0 (low 32 bits) and name1 (high 32 bits).
class External_reference_name_obj : public VT_obj
{
public:
    External_reference_name_obj(uint16_t id, const char* name, unsigned char options, unsigned int name0,
                                unsigned int name1);
    explicit External_reference_name_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_EXTERNAL_REFERENCE_NAME; }

    VT_ATTRIBUTE_GETTER(uint8_t, options)
    VT_ATTRIBUTE_GETTER(uint32_t, name0)
    VT_ATTRIBUTE_GETTER(uint32_t, name1)

private:
    void init_lists();

    Attribute_uint8 options;
    Attribute_uint32 name0;
    Attribute_uint32 name1;
    Attribute* aid_table_storage[4 + 1];
    Attribute* every_table_storage[3 + 1];
};

}
}

#endif
