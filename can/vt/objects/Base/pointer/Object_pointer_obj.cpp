#include "can/vt/objects/Base/pointer/Object_pointer_obj.h"

#include <algorithm>

namespace VT::Base {

Object_pointer_obj::Object_pointer_obj(uint16_t id, const char* name, unsigned char num_dynamic_v,
                                       unsigned short* dynamic_children_v, unsigned short value_v)
    : Object_pointer_base_obj(id, name, value_v)
{
    set_values(dynamic_attributes(), num_dynamic_v, dynamic_children_v);
    init_lists();
}

Object_pointer_obj::Object_pointer_obj(Spec_node* spec_node) : Object_pointer_base_obj(spec_node)
{
    init_lists();
}

void Object_pointer_obj::init_lists()
{
    fill_table(dynamic_table_storage, dynamic_attributes());
}

Attribute* Object_pointer_obj::get_every_attribute(uint16_t i) const
{
    if (i < DYNAMIC)
        return dynamic_table_storage[i];
    return Object_pointer_base_obj::get_every_attribute(uint16_t(i - DYNAMIC));
}

int Object_pointer_obj::_get_dynamic_children(unsigned int start, unsigned short* out, unsigned int max) const
{
    __check_locked();
    uint32_t count = dynamic_children.get_length();
    if (start >= count)
        return 0;
    // n counts bytes: a run of n ids yields its first n bytes.
    uint32_t n = std::min(count - start, max);
    uint8_t* dst = reinterpret_cast<uint8_t*>(out);
    for (uint32_t k = 0; k < n; ++k) {
        unsigned short id = dynamic_children[start + k / 2];
        dst[k] = reinterpret_cast<const uint8_t*>(&id)[k % 2];
    }
    return n ? 1 : 0;
}

}
