#ifndef CAN_VT_OBJECTS_BASE_POINTER_OBJECT_LABELREF_LIST_OBJ_H
#define CAN_VT_OBJECTS_BASE_POINTER_OBJECT_LABELREF_LIST_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Object label reference list (type 40): labels (text, font type, graphic) for objects.
class Object_labelref_list_obj : public VT_obj
{
    // The count itself is addressable (AID::num_labelrefs).
    Attribute_list_len<uint16_t> num_labelrefs{"num_labelrefs", &labelrefs};
    Attribute_list<Attribute_labelref> labelrefs{"labelrefs"};

public:
    // Copies num_labelrefs entries of `labelrefs`.
    Object_labelref_list_obj(uint16_t id, const char* name, unsigned short num_labelrefs,
                             Attribute_labelref* labelrefs);
    explicit Object_labelref_list_obj(Spec_node* node) : VT_obj(node, TYPE_OBJECT_LABELREF_LIST, tables)
    {
        init_lists();
    }

    VT_ATTRIBUTE_GETTERS(num_labelrefs)
    VT_INDEXED_GETTER(uint16_t, labelrefs_labelled_object, labelrefs[i].get_labelled_object())
    VT_INDEXED_GETTER(uint16_t, labelrefs_string_variable, labelrefs[i].get_string_variable())
    VT_INDEXED_GETTER(uint8_t, labelrefs_font_type, labelrefs[i].get_font_type())
    VT_INDEXED_GETTER(uint16_t, labelrefs_graphic_representation, labelrefs[i].get_graphic_representation())

    VT_OBJECT_TABLES(TYPE_OBJECT_LABELREF_LIST, (num_labelrefs), (num_labelrefs, labelrefs))
};

}

#endif
