#include "can/vt/objects/Base/mask/Working_set_obj.h"

namespace VT {
namespace Base {

Working_set_obj::Working_set_obj(unsigned short id, const char* name, unsigned char bg, unsigned char sel,
                                 unsigned short active, unsigned char n_objects, unsigned char n_macros,
                                 unsigned char n_languages, Attribute_object_placement* placements,
                                 Attribute_event_macro* macros, Attribute_lang* langs)
    : VT_obj(id, TYPE_WORKING_SET, 4, aid_table_storage, 9, every_table_storage, 0, &event_macro, name),
      background_colour(bg, "background_colour"), selectable(0, 1, sel, "selectable"),
      active_mask(active, "active_mask"), child_location("child_location", placements, n_objects),
      event_macro("event_macro", macros, n_macros), languages("languages", langs, n_languages)
{
    init_lists();
}

Working_set_obj::Working_set_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_WORKING_SET, 4, aid_table_storage, 9, every_table_storage, NO_NAME, NULL_ID)
{
    init_lists();
}

void Working_set_obj::init_lists()
{
    set_table(aid_table_storage,
              {class_type_attribute<TYPE_WORKING_SET>(), &background_colour, &selectable, &active_mask});
    set_table(every_table_storage, {&background_colour, &selectable, &active_mask, &num_objects, &num_macros,
                                    &num_languages, &child_location, &event_macro, &languages});
}

}
}
