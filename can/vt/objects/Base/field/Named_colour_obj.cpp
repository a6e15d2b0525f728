#include "can/vt/objects/Base/field/Named_colour_obj.h"

namespace VT {
namespace Base {

Named_colour_obj::Named_colour_obj(uint16_t id, const char* name, uint16_t num_refs_,
                                   Attribute_identifier<unsigned char>* refs_, uint16_t pictures_)
    : VT_obj(id, TYPE_NAMED_COLOUR, 1, aid_table_storage, 3, every_table_storage, 0, nullptr, name),
      refs("refs", refs_, num_refs_), pictures(pictures_, "pictures")
{
    init_lists();
}

Named_colour_obj::Named_colour_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_NAMED_COLOUR, 1, aid_table_storage, 3, every_table_storage, NO_NAME, NULL_ID), refs("refs"),
      pictures(NULL_ID, "pictures")
{
    init_lists();
}

void Named_colour_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_NAMED_COLOUR>()});
    set_table(every_table_storage, {&num_refs, &refs, &pictures});
}

}
}
