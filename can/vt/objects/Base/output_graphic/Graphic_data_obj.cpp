#include "can/vt/objects/Base/output_graphic/Graphic_data_obj.h"

#include <climits>

namespace VT::Base {

Graphic_data_obj::Graphic_data_obj(uint16_t id, const char* name, uint8_t format_v, uint32_t num_bytes_v,
                                   uint8_t* bytes_v)
    : VT_obj(id, TYPE_GRAPHIC_DATA, tables, 0, nullptr, name)
{
    set_values(every_attributes(), format_v, num_bytes_v, bytes_v);
    init_lists();
}

QImage& Graphic_data_obj::get_qimage()
{
    const Lock guard(*this);
    if (image.isNull()) {
        const unsigned n = held_bytes();
        if (n > 0 && n <= unsigned(INT_MAX))
            image.loadFromData(bytes.get_buf(), int(n), "PNG");
    }
    return image;
}

void Graphic_data_obj::__print_me(std::ostream& os, int indent) const
{
    VT_obj::__print_me(os, indent);
    print_bytes_line(os, indent, bytes, held_bytes());
}

}
