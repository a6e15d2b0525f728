#include "can/vt/objects/Base/mask/Button_obj.h"

#include "can/vt/objects/Base/mask/Container_obj.h"

namespace VT::Base {

Button_obj::Button_obj(unsigned short id, const char* name, unsigned short w, unsigned short h, unsigned char bg,
                       unsigned char border, unsigned char code, unsigned char opts, unsigned char n_objects,
                       unsigned char n_macros, Attribute_object_placement* placements, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_BUTTON, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), w, h, bg, border, code, opts, n_objects, n_macros, placements, macros);
    init_lists();
}

void Button_obj::justify_placements()
{
    const Lock guard(*this);
    __justify_placements();
}

void Button_obj::__justify_placements()
{
    __check_locked();
    justify(child_location, int16_t(_get_width() - 8), int16_t(_get_height() - 8));
}

int Button_obj::__get_child_loc(unsigned short id) const
{
    return find_child_location(child_location, id);
}

}
