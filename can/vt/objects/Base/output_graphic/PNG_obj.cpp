#include "can/vt/objects/Base/output_graphic/PNG_obj.h"

#include <climits>

#include "can/vt/objects/Base/output_graphic/Picture_pixels.h"

namespace VT::Base {

PNG_obj::PNG_obj(unsigned short id, const char* name, unsigned short w, unsigned short aw, unsigned short ah,
                 unsigned char f, unsigned int n_bytes, unsigned char n_macros, unsigned char* data,
                 Attribute_event_macro* macros)
    : VT_obj(id, TYPE_PNG, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), w, aw, ah, f, n_bytes, n_macros, data, macros);
    init_lists();
}

uint16_t PNG_obj::_get_height() const
{
    __check_locked();
    return Picture_pixels::scaled_height(width.get(), actual_width.get(), actual_height.get());
}

QImage& PNG_obj::get_qimage()
{
    const Lock guard(*this);
    if (image.isNull()) {
        unsigned n = held_bytes();
        if (n > 0 && n <= unsigned(INT_MAX))
            image.loadFromData(bytes.get_buf(), int(n), "PNG");
    }
    return image;
}

void PNG_obj::__print_me(std::ostream& os, int indent) const
{
    VT_obj::__print_me(os, indent);
    print_bytes_line(os, indent, bytes, held_bytes());
}

}
