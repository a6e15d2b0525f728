#include "can/vt/objects/Base/window/Window_mask_obj.h"

namespace VT::Base {

Window_mask_obj::Window_mask_obj(uint16_t id, const char* name, uint8_t width_columns_, uint8_t height_rows_,
                                 uint8_t window_type_, uint8_t background_colour_, uint8_t options_,
                                 uint16_t window_name_, uint16_t window_title_, uint16_t window_icon_,
                                 uint8_t num_required_object_refs_, uint8_t num_objects_, uint8_t num_macros_,
                                 Attribute_object_id* required_object_refs_, Attribute_object_placement* objects,
                                 Attribute_event_macro* macros)
    : VT_obj(id, TYPE_WINDOW_MASK, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), width_columns_, height_rows_, window_type_, background_colour_, options_,
               window_name_, window_title_, window_icon_, num_required_object_refs_, num_objects_, num_macros_,
               required_object_refs_, objects, macros);
    init_lists();
}

}
