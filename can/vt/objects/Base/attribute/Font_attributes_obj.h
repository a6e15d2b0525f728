#ifndef CAN_VT_OBJECTS_BASE_ATTRIBUTE_FONT_ATTRIBUTES_OBJ_H
#define CAN_VT_OBJECTS_BASE_ATTRIBUTE_FONT_ATTRIBUTES_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Font attributes (type 23): colour, size, type and style of the text of the objects that
// refer to it. Size and style are reduced on upload to what the terminal reports it has.
class Font_attributes_obj : public VT_obj
{
public:
    // Font sizes, by the size of their character cell in pixels.
    typedef unsigned char font_size_t;
    enum : font_size_t {
        FONT_6x8 = 0,
        FONT_8x8 = 1,
        FONT_8x12 = 2,
        FONT_12x16 = 3,
        FONT_16x16 = 4,
        FONT_16x24 = 5,
        FONT_24x32 = 6,
        FONT_32x32 = 7,
        FONT_32x48 = 8,
        FONT_48x64 = 9,
        FONT_64x64 = 10,
        FONT_64x96 = 11,
        FONT_96x128 = 12,
        FONT_128x128 = 13,
        FONT_128x192 = 14
    };
    // Style bit 7: the font is proportional.
    static const unsigned char STYLE_PROPORTIONAL = 0x80;

    // A byte of the font that is sent as what the terminal has of it, so that the byte depends
    // on the terminal: the form without limits must not be used.
    class Attribute_font_byte : public Attribute_uint8
    {
    public:
        Attribute_font_byte(const Font_attributes_obj* owner, unsigned char value, const char* name)
            : Attribute_uint8(0, 255, value, name), owner(owner)
        {
        }
        using Attribute_uint8::operator=;
        using Attribute_uint8::serialise;
        int serialise(int offset, uint8_t* buf, int len) const override;
        const Font_attributes_obj* get_owner() const { return owner; }

    protected:
        const Font_attributes_obj* owner;
    };

    // The font size, serialised as the largest size up to it that the terminal has.
    class Attribute_font_size : public Attribute_font_byte
    {
    public:
        using Attribute_font_byte::Attribute_font_byte;
        using Attribute_font_byte::operator=;
        using Attribute_font_byte::serialise;
        int serialise(const Serialisation_limits* limits, int offset, uint8_t* buf, int len) const override;
        // The byte sent for `size` to a terminal with `limits`.
        static uint8_t reduce(uint8_t size, uint8_t style, const Serialisation_limits* limits, bool has_owner);
    };

    // The font style, serialised without the styles the terminal lacks.
    class Attribute_font_style : public Attribute_font_byte
    {
    public:
        using Attribute_font_byte::Attribute_font_byte;
        using Attribute_font_byte::operator=;
        using Attribute_font_byte::serialise;
        int serialise(const Serialisation_limits* limits, int offset, uint8_t* buf, int len) const override;
    };

private:
    Attribute_colour font_colour{0, "font_colour"};
    Attribute_font_size font_size{this, 0, "font_size"};
    Attribute_uint8 font_type{0, 255, 0, "font_type"};
    Attribute_font_style font_style{this, 0, "font_style"};
    Attribute_list_len<unsigned char> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    Font_attributes_obj(unsigned short id, const char* name, unsigned char font_colour, font_size_t font_size,
                        unsigned char font_type, unsigned char font_style, unsigned char num_macros,
                        Attribute_event_macro* event_macro);
    explicit Font_attributes_obj(Spec_node* node) : VT_obj(node, TYPE_FONT_ATTRIBUTES, tables) { init_lists(); }

    VT_ATTRIBUTE_GETTERS(font_colour, font_size, font_type, font_style, num_macros)
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_FONT_ATTRIBUTES, (font_colour, font_size, font_type, font_style),
                     (font_colour, font_size, font_type, font_style, num_macros, event_macro))
};

}

#endif
