#include "can/vt/objects/Base/mask/Container_obj.h"

namespace VT::Base {

Container_obj::Container_obj(unsigned short id, const char* name, unsigned short w, unsigned short h,
                             unsigned char hide, unsigned char n_objects, unsigned char n_macros,
                             Attribute_object_placement* placements, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_CONTAINER, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), w, h, hide, n_objects, n_macros, placements, macros);
    init_lists();
}

bool Container_obj::__set_by_spec(scale_area_t area)
{
    uint8_t declared = 0;
    if (!spec_node || !spec_node->get_uint8(&declared, num_objects.name))
        return VT_obj::__set_by_spec(area);
    child_location.set_length(declared);
    bool r = VT_obj::__set_by_spec(area);
    // Reading the listed children reset the count to what was listed.
    child_location.set_length(declared);
    return r;
}

void Container_obj::justify_placements()
{
    const Lock guard(*this);
    __justify_placements();
}

void Container_obj::__justify_placements()
{
    __check_locked();
    justify(child_location, int16_t(_get_width()), int16_t(_get_height()));
}

int Container_obj::__get_child_loc(unsigned short id) const
{
    return find_child_location(child_location, id);
}

int find_child_location(const Attribute_list<Attribute_object_placement>& list, unsigned short id)
{
    for (uint32_t i = 0; i < list.held(); ++i)
        if (list[i].get_object_id() == id)
            return int(i);
    return -1;
}

}
