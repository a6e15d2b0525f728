#ifndef CAN_VT_OBJECTS_BASE_OUTPUT_GRAPHIC_PICTURE_GRAPHIC_OBJ_H
#define CAN_VT_OBJECTS_BASE_OUTPUT_GRAPHIC_PICTURE_GRAPHIC_OBJ_H

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QString>

#include "can/vt/objects/Base/output_graphic/Picture_image.h"
#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Picture graphic (type 20): a raster picture in 1, 4 or 8 bits per pixel, optionally
// run-length coded. It decodes itself into an indexed QImage on the VT palette, reduces its
// pixel data on the fly for terminals of lower colour depth, and is sent as a PNG object to
// terminals that take those.
class Picture_graphic_obj : public VT_obj
{
public:
    enum { OPTION_TRANSPARENT = 1, OPTION_FLASHING = 2, OPTION_RUN_LENGTH = 4 };

    // One row of the table that maps object ids to PNG resources.
    struct png_range_t
    {
        uint16_t first;
        uint16_t end; // exclusive
        QByteArray name;
    };

    // The pixel format. On the wire it states the format the picture is sent in, and it
    // has the pixel data's byte count recomputed for that format before the count goes out.
    class Attribute_format : public Attribute_uint8
    {
    public:
        Attribute_format(unsigned char value, const char* name) : Attribute_uint8(0, 2, value, name) {}
        using Attribute_uint8::operator=;
        void set_picture(Picture_graphic_obj* p) { picture = p; }

        int serialise(int offset, uint8_t* buf, int len) const override;
        int serialise(const Serialisation_limits*, int offset, uint8_t* buf, int len) const override
        {
            return serialise(offset, buf, len);
        }
        // The format's enumerator name.
        void get_code_valref(const char* prefix, std::ostream& os, int indent) override;

    private:
        Picture_graphic_obj* picture = nullptr;
    };

    // The raw picture data. Its count (what the "num_bytes" attribute sends) follows the
    // format the picture is sent in; the data itself is kept as stored.
    class Attribute_array_pixel : public Attribute_array_uint8
    {
    public:
        explicit Attribute_array_pixel(const char* name) : Attribute_array_uint8(name) {}
        Attribute_array_pixel(unsigned char* data, int len, const char* name) : Attribute_array_uint8(data, len, name)
        {
        }

        // Binds the array to its picture and recomputes its count for the display format.
        void set_picture(Picture_graphic_obj* p);
        // The raw bytes actually stored.
        const unsigned char* stored() const { return buf; }
        uint32_t stored_bytes() const { return held_count(); }
        // Stored byte i, or the spare element past the end.
        const unsigned char& operator[](unsigned i) const { return element(i, stored_bytes()); }

        int num_bytes() const override;
        using Attribute::serialise;
        // With a null buf: the number of bytes the form takes.
        int serialise(int offset, uint8_t* out, int len) const override;
        // The whole data must come in one call; nothing is read otherwise.
        int deserialise(int offset, uint8_t* in, int len, Iso::Deserialise_results* res) override;

        // Reduction to monochrome: no pixel bytes are sent.
        int serialise_1_bit(int offset, uint8_t* out, int len) const;
        // Reduction of 8-bit data to 16 colours, plain or run-length coded.
        int serialise_4_bit(int offset, uint8_t* out, int len) const;
        // Expands the stored runs into `out`, which must hold H x W' pixels (W' = the width
        // rounded up to even), each remapped for `mode`. Rows of odd width end in a copy of
        // their last pixel; pixels that no run reaches read as palette index 255, remapped.
        void decompress_rle(unsigned char* out, format_t mode) const;
        // Emits one run (count, high << 4 | low), first using up `skip`, at most `room` bytes.
        static int write_4_bit_rle(unsigned char count, unsigned char high, unsigned char low, int& skip,
                                   unsigned char*& out, int& room);

    private:
        uint32_t colour_depth() const;

        Picture_graphic_obj* picture = nullptr;
    };

    // Borrows `bytes` (num_bytes bytes); the caller keeps it alive.
    Picture_graphic_obj(unsigned short id, const char* name, unsigned short width, unsigned short actual_width,
                        unsigned short actual_height, format_t format, unsigned char options,
                        unsigned char transparency_colour, unsigned int num_bytes, unsigned char num_macros,
                        unsigned char* bytes, Attribute_event_macro* macros);
    explicit Picture_graphic_obj(Spec_node* spec_node);
    ~Picture_graphic_obj() override;
    // A server object is sent exactly as stored, whatever the terminal.
    virtual bool is_server_obj() const { return false; }

    // Actual height scaled by width / actual width.
    uint16_t _get_height() const override;

    // Decodes the raw data to one byte per pixel, rows padded to 4 bytes with 255.
    // Null when the picture has no pixels or the buffer cannot be had.
    unsigned char* __get_uncompressed_buf(bool unused = false);
    // Size in bytes of the buffer that __get_uncompressed_buf filled last.
    size_t __get_uncompressed_size() const { return decoded_size; }
    void set_qimage();
    void _set_qimage();
    // The picture on the VT palette; unless `opaque`, a transparent picture's
    // transparency colour is fully transparent.
    QImage get_qimage(bool opaque);
    // Feeds every pixel of the raw data to `image`.
    bool get_picture(Picture_image& image);
    // The format the picture is sent in: no deeper than the terminal's colour depth.
    format_t get_display_format() const
    {
        const Lock guard(*this);
        return _get_display_format();
    }
    format_t _get_display_format() const;

    static void add_png_range(unsigned short first, unsigned short end, const char* name);
    static QList<png_range_t>& png_ranges();
    // The PNG resource of this picture, or a null string when its id is in no range.
    QString png_filename() const;
    void load_png();
    // Uses a caller's buffer as the PNG data; the caller keeps it alive.
    void set_png_buf(unsigned char* buf, unsigned size);
    // The picture as a PNG object record, or -1 when the terminal takes no PNG objects
    // or there is no PNG data.
    int serialise_png(int offset, unsigned char* buf, int len);

    int __num_bytes() const override;
    int __serialise(int offset, uint8_t* buf, int len) override;
    void __set_scale(uint16_t num_x, uint16_t num_y, uint16_t den_x, uint16_t den_y) override;
    void object_init() override;

private:
    bool png_capable() const;

    Attribute_uint16 width{0, 65535, 0, "width"};
    Attribute_uint16 actual_width{0, 65535, 0, "actual_width"};
    Attribute_uint16 actual_height{0, 65535, 0, "actual_height"};
    Attribute_format format{0, "format"};
    Attribute_uint8 options{0, 7, 0, "options"};
    Attribute_colour transparency_colour{0, "transparency_colour"};
    // The "num_bytes" attribute; named apart so that it does not hide num_bytes().
    Attribute_list_len<unsigned int> byte_count{"num_bytes", &bytes};
    Attribute_list_len<unsigned char> num_macros{"num_macros", &event_macro};
    Attribute_array_pixel bytes{"bytes"};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

    unsigned char* decoded = nullptr;
    size_t decoded_size = 0;
    QImage qimage;
    QImage opaque_image;
    unsigned char* png_buf = nullptr;
    uint32_t png_size = 0;
    uint8_t png_owned = 0;

public:
    VT_ATTRIBUTE_GETTERS(width, actual_width, actual_height, options, transparency_colour, num_macros)
    VT_GETTER(format_t, format, format.get())
    VT_GETTER(uint32_t, num_bytes, byte_count.get())
    VT_EVENT_MACRO_GETTERS(event_macro)
    VT_BYTES_GETTERS(bytes, bytes.stored_bytes())

    VT_OBJECT_TABLES(TYPE_PICTURE_GRAPHIC, (width, options, transparency_colour, actual_width, actual_height, format),
                     (width, actual_width, actual_height, format, options, transparency_colour, byte_count, num_macros,
                      bytes, event_macro))
};

}

#endif
