#ifndef CAN_VT_OBJECTS_BASE_OUTPUT_GRAPHIC_PNG_OBJ_H
#define CAN_VT_OBJECTS_BASE_OUTPUT_GRAPHIC_PNG_OBJ_H

#include <QImage>

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// PNG object (type 46): a whole PNG file as the object's data, decoded on demand.
class PNG_obj : public VT_obj
{
public:
    // Borrows `bytes` (num_bytes bytes); the caller keeps it alive.
    PNG_obj(unsigned short id, const char* name, unsigned short width, unsigned short actual_width,
            unsigned short actual_height, unsigned char format, unsigned int num_bytes, unsigned char num_macros,
            unsigned char* bytes, Attribute_event_macro* macros);
    explicit PNG_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_PNG; }

    VT_ATTRIBUTE_GETTER(uint16_t, width)
    VT_ATTRIBUTE_GETTER(uint16_t, actual_width)
    VT_ATTRIBUTE_GETTER(uint16_t, actual_height)
    VT_ATTRIBUTE_GETTER(uint8_t, format)
    VT_GETTER(uint32_t, num_bytes, byte_count.get())
    VT_ATTRIBUTE_GETTER(uint8_t, num_macros)
    VT_INDEXED_GETTER(uint8_t, event_macro_event_id, event_macro[i].get_event_id())
    VT_INDEXED_GETTER(uint8_t, event_macro_macro_id, event_macro[i].get_macro_id())
    const unsigned char* _get_bytes() const
    {
        __check_locked();
        return bytes.get_buf();
    }
    const unsigned char* get_bytes(unsigned i) const
    {
        lock();
        const unsigned char* b = _get_bytes(i);
        unlock();
        return b;
    }
    const unsigned char* _get_bytes(unsigned i) const
    {
        __check_locked();
        return &bytes[i];
    }
    bool get_bytes(unsigned offset, unsigned char* out, unsigned len) const
    {
        lock();
        bool r = _get_bytes(offset, out, len);
        unlock();
        return r;
    }
    bool _get_bytes(unsigned offset, unsigned char* out, unsigned len) const
    {
        __check_locked();
        return bytes.get_elements(offset, out, len) > 0;
    }

    // Actual height scaled by width / actual width.
    uint16_t _get_height() const override;

    // The decoded picture; null when the data is not a PNG. Decoded once and kept.
    QImage& get_qimage();

    void __print_me(std::ostream& os, int indent) const override;

private:
    void init_lists();
    // Number of data bytes really held (never more than num_bytes).
    unsigned held_bytes() const;

    Attribute_uint16 width;
    Attribute_uint16 actual_width;
    Attribute_uint16 actual_height;
    Attribute_uint8 format;
    // The "num_bytes" attribute; named apart so that it does not hide num_bytes().
    Attribute_list_len<unsigned int> byte_count;
    Attribute_list_len<unsigned char> num_macros;
    Attribute_array_uint8 bytes;
    Attribute_list<Attribute_event_macro> event_macro;
    Attribute* aid_table_storage[5 + 1];
    Attribute* every_table_storage[8 + 1];

    QImage image;
};

}
}

#endif
