#ifndef CAN_VT_OBJECTS_BASE_OUTPUT_GRAPHIC_GRAPHIC_DATA_OBJ_H
#define CAN_VT_OBJECTS_BASE_OUTPUT_GRAPHIC_GRAPHIC_DATA_OBJ_H

#include <QImage>

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Graphic data (type 46 as ISO 11783-6 lays it out for VT version 6): an image file, PNG the
// only format so far, that scaled graphics show. Pools choose this form or PNG_obj for type 46.
class Graphic_data_obj : public VT_obj
{
    Attribute_uint8 format{0, 0, 0, "format"};
    // The "num_bytes" attribute; named apart so that it does not hide num_bytes().
    Attribute_list_len<uint32_t> byte_count{"num_bytes", &bytes};
    Attribute_array_uint8 bytes{"bytes"};
    QImage image;

    // Number of data bytes really held (never more than num_bytes).
    unsigned held_bytes() const { return std::min(bytes.get_length(), bytes.held_count()); }

public:
    enum { FORMAT_PNG = 0 };
    VT_OWN_TYPE_NAME("Graphic_data")

    // Borrows `bytes` (num_bytes bytes); the caller keeps it alive.
    Graphic_data_obj(uint16_t id, const char* name, uint8_t format, uint32_t num_bytes, uint8_t* bytes);
    explicit Graphic_data_obj(Spec_node* node) : VT_obj(node, TYPE_GRAPHIC_DATA, tables) { init_lists(); }
    uint8_t _get_extended_type() const override { return 1; }
    uint8_t get_extended_type() const override { return 1; }

    VT_ATTRIBUTE_GETTERS(format)
    VT_GETTER(uint32_t, num_bytes, byte_count.get())
    VT_BYTES_GETTERS(bytes, held_bytes())

    // The decoded image; null when the data is no PNG image. Decoded once and kept.
    QImage& get_qimage();

    void __print_me(std::ostream& os, int indent) const override;

    VT_OBJECT_TABLES(TYPE_GRAPHIC_DATA, (format), (format, byte_count, bytes))
};

}

#endif
