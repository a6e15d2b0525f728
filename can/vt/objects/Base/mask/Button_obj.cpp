#include "can/vt/objects/Base/mask/Button_obj.h"

#include "can/vt/objects/Base/mask/Container_obj.h"

namespace VT {
namespace Base {

Button_obj::Button_obj(unsigned short id, const char* name, unsigned short w, unsigned short h, unsigned char bg,
                       unsigned char border, unsigned char code, unsigned char opts, unsigned char n_objects,
                       unsigned char n_macros, Attribute_object_placement* placements, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_BUTTON, 7, aid_table_storage, 10, every_table_storage, 0, &event_macro, name),
      width(0, 65535, w, "width"), height(0, 65535, h, "height"), background_colour(bg, "background_colour"),
      border_colour(border, "border_colour"), key_code(0, 255, code, "key_code"), options(0, 63, opts, "options"),
      child_location("child_location", placements, n_objects), event_macro("event_macro", macros, n_macros)
{
    init_lists();
}

Button_obj::Button_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_BUTTON, 7, aid_table_storage, 10, every_table_storage, NO_NAME, NULL_ID)
{
    init_lists();
}

void Button_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_BUTTON>(), &width, &height, &background_colour,
                                  &border_colour, &key_code, &options});
    set_table(every_table_storage, {&width, &height, &background_colour, &border_colour, &key_code, &options,
                                    &num_objects, &num_macros, &child_location, &event_macro});
}

void Button_obj::justify_placements()
{
    lock();
    __justify_placements();
    unlock();
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
}
