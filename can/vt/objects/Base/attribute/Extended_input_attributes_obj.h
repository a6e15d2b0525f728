#ifndef CAN_VT_OBJECTS_BASE_ATTRIBUTE_EXTENDED_INPUT_ATTRIBUTES_OBJ_H
#define CAN_VT_OBJECTS_BASE_ATTRIBUTE_EXTENDED_INPUT_ATTRIBUTES_OBJ_H

#include "can/vt/objects/Attribute_code_plane.h"
#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Extended input attributes (type 38): the characters an input string accepts (validation
// type 0) or rejects (1), as ranges per Unicode code plane.
class Extended_input_attributes_obj : public VT_obj
{
    Attribute_uint8 validation_type{0, 1, 0, "validation_type"};
    Attribute_list_len<unsigned char> num_code_plane_rangesets{"num_code_plane_rangesets", &code_plane_rangesets};
    Attribute_list<Attribute_code_plane_rangeset> code_plane_rangesets{"code_plane_rangesets"};

public:
    Extended_input_attributes_obj(unsigned short id, const char* name, unsigned char validation_type,
                                  unsigned char num_code_plane_rangesets,
                                  Attribute_code_plane_rangeset* code_plane_rangesets);
    explicit Extended_input_attributes_obj(Spec_node* node) : VT_obj(node, TYPE_EXTENDED_INPUT_ATTRIBUTES, tables)
    {
        init_lists();
    }

    VT_ATTRIBUTE_GETTERS(validation_type, num_code_plane_rangesets)
    VT_INDEXED_GETTER(unsigned char, code_plane_rangesets_code_plane, code_plane_rangesets[i].get_plane())
    VT_INDEXED_GETTER(unsigned char, code_plane_rangesets_num_ranges, code_plane_rangesets[i].get_num_ranges())
    // Range r of code-plane set i (an empty range when either index is out of bounds).
    Attribute_code_plane_range get_code_plane_range(unsigned int i, unsigned int r) const
    {
        const Lock guard(*this);
        return _get_code_plane_range(i, r);
    }
    Attribute_code_plane_range _get_code_plane_range(unsigned int i, unsigned int r) const
    {
        __check_locked();
        return code_plane_rangesets[i].get_ranges()[r];
    }

    VT_OBJECT_TABLES(TYPE_EXTENDED_INPUT_ATTRIBUTES, (validation_type),
                     (validation_type, num_code_plane_rangesets, code_plane_rangesets))
};

}

#endif
