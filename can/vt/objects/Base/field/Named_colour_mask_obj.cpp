#include "can/vt/objects/Base/field/Named_colour_mask_obj.h"

namespace VT {
namespace Base {

Named_colour_mask_obj::Named_colour_mask_obj(uint16_t id, const char* name, uint8_t num_pictures_,
                                             uint16_t data_length_, Attribute_identifier<unsigned short>* pictures_,
                                             uint8_t* data_)
    : VT_obj(id, TYPE_NAMED_COLOUR_MASK, 1, aid_table_storage, 4, every_table_storage, 0, nullptr, name),
      pictures("pictures", pictures_, num_pictures_), data(data_, data_length_, "data")
{
    init_lists();
}

Named_colour_mask_obj::Named_colour_mask_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_NAMED_COLOUR_MASK, 1, aid_table_storage, 4, every_table_storage, NO_NAME, NULL_ID),
      pictures("pictures"), data("data")
{
    init_lists();
}

void Named_colour_mask_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_NAMED_COLOUR_MASK>()});
    set_table(every_table_storage, {&num_pictures, &data_length, &pictures, &data});
}

}
}
