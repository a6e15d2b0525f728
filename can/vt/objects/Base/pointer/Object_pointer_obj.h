#ifndef CAN_VT_OBJECTS_BASE_POINTER_OBJECT_POINTER_OBJ_H
#define CAN_VT_OBJECTS_BASE_POINTER_OBJECT_POINTER_OBJ_H

#include <QList>

#include "can/vt/objects/Base/pointer/Object_pointer_base_obj.h"

namespace VT::Base {

// An object pointer that also keeps a set of dynamic children for the host. The dynamic
// children are seen by the walks over all attributes (print, source, description input, look-up by
// name) but are not part of the object-pool record, which holds only "value".
class Object_pointer_obj : public Object_pointer_base_obj
{
public:
    // Borrows `dynamic_children` (num_dynamic ids); the caller keeps it alive.
    Object_pointer_obj(uint16_t id, const char* name, unsigned char num_dynamic, unsigned short* dynamic_children,
                       unsigned short value);
    explicit Object_pointer_obj(Spec_node* spec_node);

    // Walk order: "num_dynamic", "dynamic_children", then "value".
    Attribute* get_every_attribute(uint16_t i) const override;
    uint16_t get_num_every_attribute() const override
    {
        return uint16_t(DYNAMIC + Object_pointer_base_obj::get_num_every_attribute());
    }

    VT_ATTRIBUTE_GETTER(uint8_t, num_dynamic)
    VT_INDEXED_GETTER(uint16_t, dynamic_children, dynamic_children[i])
    // Copies a run from entry `start`: min(count - start, max) BYTES (not ids) go to `out`.
    // Returns 1 when something was copied, else 0.
    int get_dynamic_children(unsigned int start, unsigned short* out, unsigned int max) const
    {
        const Lock guard(*this);
        return _get_dynamic_children(start, out, max);
    }
    int _get_dynamic_children(unsigned int start, unsigned short* out, unsigned int max) const;
    const Attribute_array_object_id& _get_dynamic_children() const
    {
        __check_locked();
        return dynamic_children;
    }
    Attribute_array_object_id& _get_dynamic_children()
    {
        __check_locked();
        return dynamic_children;
    }
    // Child objects the host attaches; starts empty.
    QList<VT_obj*>& _get_child_objects()
    {
        __check_locked();
        return child_objects;
    }

private:
    void init_lists();
    auto dynamic_attributes() { return std::tie(num_dynamic, dynamic_children); }

    Attribute_list_len<uint8_t> num_dynamic{"num_dynamic", &dynamic_children};
    Attribute_array_object_id dynamic_children{"dynamic_children"};
    static constexpr uint16_t DYNAMIC = 2;
    Attribute* dynamic_table_storage[DYNAMIC + 1];
    QList<VT_obj*> child_objects;
};

}

#endif
