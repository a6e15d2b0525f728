#include "can/vt/objects/Base/attribute/Fill_attributes_obj.h"

namespace VT {
namespace Base {

Fill_attributes_obj::Fill_attributes_obj(unsigned short id, const char* name, unsigned char type,
                                         unsigned char colour, unsigned short pattern, unsigned char n_macros,
                                         Attribute_event_macro* macros)
    : VT_obj(id, TYPE_FILL_ATTRIBUTES, 4, aid_table_storage, 5, every_table_storage, 0, &event_macro, name),
      fill_type(0, 3, type, "fill_type"), fill_colour(colour, "fill_colour"), fill_pattern(pattern, "fill_pattern"),
      event_macro("event_macro", macros, n_macros)
{
    init_lists();
}

Fill_attributes_obj::Fill_attributes_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_FILL_ATTRIBUTES, 4, aid_table_storage, 5, every_table_storage, NO_NAME, NULL_ID)
{
    init_lists();
}

void Fill_attributes_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_FILL_ATTRIBUTES>(), &fill_type, &fill_colour, &fill_pattern});
    set_table(every_table_storage, {&fill_type, &fill_colour, &fill_pattern, &num_macros, &event_macro});
}

}
}
