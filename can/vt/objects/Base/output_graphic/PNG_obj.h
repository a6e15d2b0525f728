#ifndef CAN_VT_OBJECTS_BASE_OUTPUT_GRAPHIC_PNG_OBJ_H
#define CAN_VT_OBJECTS_BASE_OUTPUT_GRAPHIC_PNG_OBJ_H

#include <QImage>

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// PNG object (type 46): a whole PNG file as the object's data, decoded on demand.
class PNG_obj : public VT_obj
{
    Attribute_uint16 width{0, 65535, 0, "width"};
    Attribute_uint16 actual_width{0, 65535, 0, "actual_width"};
    Attribute_uint16 actual_height{0, 65535, 0, "actual_height"};
    Attribute_uint8 format{0, 0, 0, "format"};
    // The "num_bytes" attribute; named apart so that it does not hide num_bytes().
    Attribute_list_len<unsigned int> byte_count{"num_bytes", &bytes};
    Attribute_list_len<unsigned char> num_macros{"num_macros", &event_macro};
    Attribute_array_uint8 bytes{"bytes"};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};
    QImage image;

    // Number of data bytes really held (never more than num_bytes).
    unsigned held_bytes() const { return std::min(bytes.get_length(), bytes.held_count()); }

public:
    // Borrows `bytes` (num_bytes bytes); the caller keeps it alive.
    PNG_obj(unsigned short id, const char* name, unsigned short width, unsigned short actual_width,
            unsigned short actual_height, unsigned char format, unsigned int num_bytes, unsigned char num_macros,
            unsigned char* bytes, Attribute_event_macro* macros);
    explicit PNG_obj(Spec_node* node) : VT_obj(node, TYPE_PNG, tables) { init_lists(); }

    VT_ATTRIBUTE_GETTERS(width, actual_width, actual_height, format, num_macros)
    VT_GETTER(uint32_t, num_bytes, byte_count.get())
    VT_EVENT_MACRO_GETTERS(event_macro)
    VT_BYTES_GETTERS(bytes, held_bytes())

    // Actual height scaled by width / actual width.
    uint16_t _get_height() const override;

    // The decoded picture; null when the data is not a PNG. Decoded once and kept.
    QImage& get_qimage();

    void __print_me(std::ostream& os, int indent) const override;

    VT_OBJECT_TABLES(TYPE_PNG, (width, actual_width, actual_height, format),
                     (width, actual_width, actual_height, format, byte_count, num_macros, bytes, event_macro))
};

}

#endif
