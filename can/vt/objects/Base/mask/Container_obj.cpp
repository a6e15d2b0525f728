#include "can/vt/objects/Base/mask/Container_obj.h"

namespace VT {
namespace Base {

Container_obj::Container_obj(unsigned short id, const char* name, unsigned short w, unsigned short h,
                             unsigned char hide, unsigned char n_objects, unsigned char n_macros,
                             Attribute_object_placement* placements, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_CONTAINER, 4, aid_table_storage, 7, every_table_storage, 0, &event_macro, name),
      width(0, 65535, w, "width"), height(0, 65535, h, "height"), hidden(0, 1, hide, "hidden"),
      child_location("child_location", placements, n_objects), event_macro("event_macro", macros, n_macros)
{
    init_lists();
}

Container_obj::Container_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_CONTAINER, 4, aid_table_storage, 7, every_table_storage, NO_NAME, NULL_ID)
{
    init_lists();
}

void Container_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_CONTAINER>(), &width, &height, &hidden});
    set_table(every_table_storage,
              {&width, &height, &hidden, &num_objects, &num_macros, &child_location, &event_macro});
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
    lock();
    __justify_placements();
    unlock();
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
}
