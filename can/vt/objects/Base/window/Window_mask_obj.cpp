#include "can/vt/objects/Base/window/Window_mask_obj.h"

namespace VT {
namespace Base {

Window_mask_obj::Window_mask_obj(uint16_t id, const char* name, uint8_t width_columns_, uint8_t height_rows_,
                                 uint8_t window_type_, uint8_t background_colour_, uint8_t options_,
                                 uint16_t window_name_, uint16_t window_title_, uint16_t window_icon_,
                                 uint8_t num_required_object_refs_, uint8_t num_objects_, uint8_t num_macros_,
                                 Attribute_object_id* required_object_refs_, Attribute_object_placement* objects,
                                 Attribute_event_macro* macros)
    : VT_obj(id, TYPE_WINDOW_MASK, 4, aid_table_storage, 14, every_table_storage, 0, &event_macro, name),
      width_columns(1, 2, width_columns_, "width_columns"), height_rows(1, 6, height_rows_, "height_rows"),
      window_type(0, 18, window_type_, "window_type"), background_colour(background_colour_, "background_colour"),
      options(0, 3, options_, "options"), window_name(window_name_, "window_name"),
      window_title(window_title_, "window_title"), window_icon(window_icon_, "window_icon"),
      required_object_refs("required_object_refs", required_object_refs_, num_required_object_refs_),
      child_location("child_location", objects, num_objects_), event_macro("event_macro", macros, num_macros_)
{
    init_lists();
}

Window_mask_obj::Window_mask_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_WINDOW_MASK, 4, aid_table_storage, 14, every_table_storage, NO_NAME, NULL_ID),
      width_columns(1, 2, 1, "width_columns"), height_rows(1, 6, 1, "height_rows"),
      window_type(0, 18, 0, "window_type"),
      background_colour(0, "background_colour"), options(0, 3, 0, "options"), window_name(NULL_ID, "window_name"),
      window_title(NULL_ID, "window_title"), window_icon(NULL_ID, "window_icon"),
      required_object_refs("required_object_refs"), child_location("child_location"), event_macro("event_macro")
{
    init_lists();
}

void Window_mask_obj::init_lists()
{
    set_table(aid_table_storage,
              {class_type_attribute<TYPE_WINDOW_MASK>(), &background_colour, &options, &window_name});
    set_table(every_table_storage,
              {&width_columns, &height_rows, &window_type, &background_colour, &options, &window_name, &window_title,
               &window_icon, &num_required_object_refs, &num_objects, &num_macros, &required_object_refs,
               &child_location, &event_macro});
}

}
}
