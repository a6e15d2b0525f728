#include "can/vt/objects/Base/output_graphic/PNG_obj.h"

#include <climits>
#include <cstdio>

namespace VT {
namespace Base {

PNG_obj::PNG_obj(unsigned short id, const char* name, unsigned short w, unsigned short aw, unsigned short ah,
                 unsigned char f, unsigned int n_bytes, unsigned char n_macros, unsigned char* data,
                 Attribute_event_macro* macros)
    : VT_obj(id, TYPE_PNG, 5, aid_table_storage, 8, every_table_storage, 0, &event_macro, name),
      width(0, 65535, w, "width"), actual_width(0, 65535, aw, "actual_width"),
      actual_height(0, 65535, ah, "actual_height"), format(0, 0, f, "format"), byte_count("num_bytes", &bytes),
      num_macros("num_macros", &event_macro), bytes(data, int(n_bytes), "bytes"),
      event_macro("event_macro", macros, n_macros)
{
    init_lists();
}

PNG_obj::PNG_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_PNG, 5, aid_table_storage, 8, every_table_storage, NO_NAME, NULL_ID),
      width(0, 65535, 0, "width"), actual_width(0, 65535, 0, "actual_width"),
      actual_height(0, 65535, 0, "actual_height"), format(0, 0, 0, "format"), byte_count("num_bytes", &bytes),
      num_macros("num_macros", &event_macro), bytes("bytes"), event_macro("event_macro")
{
    init_lists();
}

void PNG_obj::init_lists()
{
    set_table(aid_table_storage,
              {class_type_attribute<TYPE_PNG>(), &width, &actual_width, &actual_height, &format});
    set_table(every_table_storage,
              {&width, &actual_width, &actual_height, &format, &byte_count, &num_macros, &bytes, &event_macro});
}

uint16_t PNG_obj::_get_height() const
{
    __check_locked();
    if (actual_width.get() == 0)
        return 0;
    double h = double(actual_height.get()) * double(width.get()) / double(actual_width.get());
    return uint16_t(uint32_t(h));
}

unsigned PNG_obj::held_bytes() const
{
    unsigned n = bytes.get_length();
    unsigned char last;
    // The count may have been read without the data that it announces.
    if (n == 0 || bytes.get_elements(n - 1, &last, 1) == 1)
        return n;
    // Byte i is readable exactly when i is below the held count: find the first unreadable one.
    unsigned lo = 0, hi = n - 1;
    while (lo < hi) {
        unsigned mid = lo + (hi - lo) / 2;
        if (bytes.get_elements(mid, &last, 1) == 1)
            lo = mid + 1;
        else
            hi = mid;
    }
    return lo;
}

QImage& PNG_obj::get_qimage()
{
    lock();
    if (image.isNull()) {
        unsigned n = held_bytes();
        if (n > 0 && n <= unsigned(INT_MAX))
            image.loadFromData(bytes.get_buf(), int(n), "PNG");
    }
    unlock();
    return image;
}

void PNG_obj::__print_me(std::ostream& os, int indent) const
{
    VT_obj::__print_me(os, indent);
    for (int i = 0; i < indent + 1; ++i)
        os << "  ";
    os << "Bytes: ";
    const unsigned char* data = bytes.get_buf();
    unsigned n = held_bytes();
    for (unsigned i = 0; i < n; ++i) {
        char text[4];
        snprintf(text, sizeof text, "%02x", unsigned(data[i]));
        os << text << "  ";
    }
    os << std::endl << std::dec;
}

}
}
