#include "tools/description/Values.h"

#include <limits>

namespace VT {

namespace {

struct Symbol
{
    const char* name;
    int value;
};
// Symbolic values accepted wherever a number is.
const Symbol symbols[] = {
    {"MONOCHROME", 0}, {"FOUR_BIT_COLOUR", 1}, {"EIGHT_BIT_COLOUR", 2}, {"false", 0}, {"true", 1}};

}

// Built at compile time: the constructor is constexpr.
const Values::Hex_digits Values::hex_digits;

bool Values::parse_integer(const QByteArray& raw, bool& negative, quint64& magnitude)
{
    const char* p = raw.constData();
    const char* end = p + raw.size();
    while (p < end && is_space(*p))
        ++p;
    while (end > p && is_space(end[-1]))
        --end;
    const size_t len = size_t(end - p);
    for (const Symbol& s : symbols)
        if (strlen(s.name) == len && memcmp(s.name, p, len) == 0) {
            negative = false;
            magnitude = quint64(s.value);
            return true;
        }
    negative = false;
    if (p < end && (*p == '-' || *p == '+')) {
        negative = *p == '-';
        ++p;
    }
    unsigned base = 10;
    if (end - p >= 2 && p[0] == '0' && (p[1] == 'x' || p[1] == 'X')) {
        base = 16;
        p += 2;
    }
    if (p == end)
        return false;
    quint64 m = 0;
    for (; p < end; ++p) {
        int digit = base == 16 ? hex_digit(*p) : (*p >= '0' && *p <= '9' ? *p - '0' : -1);
        if (digit < 0)
            return false;
        if (m > (std::numeric_limits<quint64>::max() - quint64(digit)) / base)
            return false; // does not fit in 64 bits
        m = m * base + quint64(digit);
    }
    magnitude = m;
    return true;
}

// Decodes "A0 05 ff", "0xA0,0x05" or "A005ff" into bytes: tokens separated by whitespace or
// commas, each an optional 0x and an even number of hexadecimal digits.
bool Values::decode_hex(const QByteArray& text, QByteArray& out)
{
    QByteArray bytes(text.size() / 2, Qt::Uninitialized); // never more than this
    char* to = bytes.data();
    const char* p = text.constData();
    const char* end = p + text.size();
    while (p < end) {
        if (is_space(*p) || *p == ',') {
            ++p;
            continue;
        }
        const char* t = p;
        while (p < end && !is_space(*p) && *p != ',')
            ++p;
        if (p - t >= 2 && t[0] == '0' && (t[1] == 'x' || t[1] == 'X'))
            t += 2;
        if (t == p || (p - t) % 2)
            return false;
        for (; t < p; t += 2) {
            int high = hex_digit(t[0]);
            int low = hex_digit(t[1]);
            if (high < 0 || low < 0)
                return false;
            *to++ = char(high << 4 | low);
        }
    }
    bytes.truncate(int(to - bytes.constData()));
    out = bytes;
    return true;
}

}
