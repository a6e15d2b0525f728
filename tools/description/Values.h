#ifndef TOOLS_DESCRIPTION_VALUES_H
#define TOOLS_DESCRIPTION_VALUES_H

#include <QByteArray>
#include <cstring>

namespace VT {

// Reading the values of a description from their text, in place: numbers are read for every
// attribute, and byte strings hold picture data.
class Values
{
public:
    // Parses decimal or 0x-hexadecimal integers with an optional sign and surrounding whitespace,
    // and the symbols MONOCHROME, FOUR_BIT_COLOUR, EIGHT_BIT_COLOUR, false and true.
    static bool parse_integer(const QByteArray& raw, bool& negative, quint64& magnitude);

    // Decodes "A0 05 ff", "0xA0,0x05" or "A005ff" into bytes: tokens separated by whitespace or
    // commas, each an optional 0x and an even number of hexadecimal digits.
    static bool decode_hex(const QByteArray& text, QByteArray& out);

    // Whitespace as QByteArray::trimmed() and simplified() see it.
    static bool is_space(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

    // The value of a hexadecimal digit, -1 for other characters.
    static int hex_digit(char c) { return hex_digits.value[uchar(c)]; }

    // Whether `key` is the `len` bytes at `text`.
    static bool same_key(const QByteArray& key, const char* text, size_t len)
    {
        return size_t(key.size()) == len && memcmp(key.constData(), text, len) == 0;
    }

private:
    // The value of each hexadecimal digit, -1 for other characters (picture data is long).
    struct Hex_digits
    {
        signed char value[256];
        constexpr Hex_digits() : value()
        {
            for (int i = 0; i < 256; ++i)
                value[i] = -1;
            for (int i = 0; i < 10; ++i)
                value['0' + i] = char(i);
            for (int i = 0; i < 6; ++i)
                value['a' + i] = value['A' + i] = char(10 + i);
        }
    };
    static const Hex_digits hex_digits;
};

}

#endif
