#include "can/vt/objects/Base/pointer/Macro_obj.h"

#include <iomanip>

namespace VT {
namespace Base {

Macro_obj::Macro_obj(uint16_t id, const char* name, unsigned short num_bytes_v, unsigned char* bytes_v)
    : VT_obj(id, TYPE_MACRO, 1, aid_table_storage, 2, every_table_storage, 0, nullptr, name),
      byte_count("num_bytes", &bytes), bytes(bytes_v, num_bytes_v, "bytes")
{
    init_lists();
}

Macro_obj::Macro_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_MACRO, 1, aid_table_storage, 2, every_table_storage, NO_NAME, NULL_ID),
      byte_count("num_bytes", &bytes), bytes("bytes")
{
    init_lists();
}

void Macro_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_MACRO>()});
    set_table(every_table_storage, {&byte_count, &bytes});
}

void Macro_obj::__print_me(std::ostream& os, int depth) const
{
    VT_obj::__print_me(os, depth);
    for (int i = 0; i < depth + 1; ++i)
        os << "  ";
    os << "Bytes: ";
    char fill = os.fill('0');
    for (uint32_t i = 0; i < bytes.get_length(); ++i)
        os << std::hex << std::setw(2) << unsigned(bytes[i]) << "  ";
    os.fill(fill);
    os << std::endl << std::dec;
}

}
}
