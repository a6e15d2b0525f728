#ifndef CAN_VT_OBJECTS_BASE_PALETTE_ISO_SPECIAL_CONTROLS_OBJ_H
#define CAN_VT_OBJECTS_BASE_PALETTE_ISO_SPECIAL_CONTROLS_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Working set special controls (type 47 as ISO 11783-6 lays it out for VT version 6): the
// colour map and colour palette the working set starts with, and the languages with the
// countries it offers. Pools choose this form or Working_set_special_controls_obj for type 47.
class Iso_special_controls_obj : public VT_obj
{
    Attribute_object_id colour_map{65535, "colour_map"};
    Attribute_object_id colour_palette{65535, "colour_palette"};
    Attribute_list_len<uint8_t> num_language_pairs{"num_language_pairs", &language_pairs};
    Attribute_list<Attribute_language_pair> language_pairs{"language_pairs"};

public:
    VT_OWN_TYPE_NAME("Iso_special_controls")
    Iso_special_controls_obj(uint16_t id, const char* name, uint16_t colour_map, uint16_t colour_palette,
                             uint8_t num_language_pairs, Attribute_language_pair* language_pairs);
    explicit Iso_special_controls_obj(Spec_node* node) : VT_obj(node, TYPE_ISO_SPECIAL_CONTROLS, tables)
    {
        init_lists();
    }
    uint8_t _get_extended_type() const override { return 1; }
    uint8_t get_extended_type() const override { return 1; }

    VT_ATTRIBUTE_GETTERS(colour_map, colour_palette, num_language_pairs)
    VT_INDEXED_GETTER(uint8_t, language_pairs_language_1, language_pairs[i].get_language(0))
    VT_INDEXED_GETTER(uint8_t, language_pairs_language_2, language_pairs[i].get_language(1))
    VT_INDEXED_GETTER(uint8_t, language_pairs_country_1, language_pairs[i].get_country(0))
    VT_INDEXED_GETTER(uint8_t, language_pairs_country_2, language_pairs[i].get_country(1))

    VT_OBJECT_TABLES(TYPE_ISO_SPECIAL_CONTROLS, (colour_map, colour_palette),
                     (colour_map, colour_palette, num_language_pairs, language_pairs))
};

}

#endif
