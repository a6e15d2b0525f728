#include "can/vt/objects/Base/pointer/Macro_obj.h"

namespace VT::Base {

Macro_obj::Macro_obj(uint16_t id, const char* name, unsigned short num_bytes_v, unsigned char* bytes_v)
    : VT_obj(id, TYPE_MACRO, tables, 0, nullptr, name)
{
    set_values(every_attributes(), num_bytes_v, bytes_v);
    init_lists();
}

void Macro_obj::__print_me(std::ostream& os, int depth) const
{
    VT_obj::__print_me(os, depth);
    print_bytes_line(os, depth, bytes, bytes.get_length());
}

}
