#include "can/vt/objects/Base/palette/Colour_palette_obj.h"

namespace VT {
namespace Base {

Colour_palette_obj::Colour_palette_obj(uint16_t id, const char* name, uint8_t options_, uint8_t num_colours_,
                                       unsigned int* colours_)
    : VT_obj(id, TYPE_COLOUR_PALETTE, 2, aid_table_storage, 3, every_table_storage, 0, nullptr, name),
      options(0, 0, options_, "options"), colours(colours_, num_colours_, "colours")
{
    init_lists();
}

Colour_palette_obj::Colour_palette_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_COLOUR_PALETTE, 2, aid_table_storage, 3, every_table_storage, NO_NAME, NULL_ID),
      options(0, 0, 0, "options"), colours("colours")
{
    init_lists();
}

void Colour_palette_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_COLOUR_PALETTE>(), &options});
    set_table(every_table_storage, {&options, &num_colours, &colours});
}

}
}
