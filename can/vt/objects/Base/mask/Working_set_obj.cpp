#include "can/vt/objects/Base/mask/Working_set_obj.h"

namespace VT::Base {

Working_set_obj::Working_set_obj(unsigned short id, const char* name, unsigned char bg, unsigned char sel,
                                 unsigned short active, unsigned char n_objects, unsigned char n_macros,
                                 unsigned char n_languages, Attribute_object_placement* placements,
                                 Attribute_event_macro* macros, Attribute_lang* langs)
    : VT_obj(id, TYPE_WORKING_SET, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), bg, sel, active, n_objects, n_macros, n_languages, placements, macros, langs);
    init_lists();
}

}
