#include "can/vt/objects/Base/palette/Colour_map_obj.h"

namespace VT {
namespace Base {

Colour_map_obj::Colour_map_obj(uint16_t id, const char* name, uint16_t num_colours_, uint8_t* colours_)
    : VT_obj(id, TYPE_COLOUR_MAP, 1, aid_table_storage, 2, every_table_storage, 0, nullptr, name),
      colours(colours_, num_colours_, "colours")
{
    init_lists();
}

Colour_map_obj::Colour_map_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_COLOUR_MAP, 1, aid_table_storage, 2, every_table_storage, NO_NAME, NULL_ID),
      colours("colours")
{
    init_lists();
}

void Colour_map_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_COLOUR_MAP>()});
    set_table(every_table_storage, {&num_colours, &colours});
}

}
}
