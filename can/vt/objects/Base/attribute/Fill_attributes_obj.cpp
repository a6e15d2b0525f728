#include "can/vt/objects/Base/attribute/Fill_attributes_obj.h"

namespace VT::Base {

Fill_attributes_obj::Fill_attributes_obj(unsigned short id, const char* name, unsigned char type, unsigned char colour,
                                         unsigned short pattern, unsigned char n_macros, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_FILL_ATTRIBUTES, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), type, colour, pattern, n_macros, macros);
    init_lists();
}

}
