#include "tools/terminal/Terminal_properties.h"

#include <QStringList>

namespace VT {

namespace {

// The largest data-mask or soft-key side accepted, in pixels.
const unsigned MAX_SIDE = 8192;

bool set_vt_version(Terminal& t, const QString& text)
{
    unsigned v = 0;
    if (!parse_terminal_number(text, 6, v) || v < 2)
        return false;
    t.vt_version = int(v);
    return true;
}

bool set_colours(Terminal& t, const QString& text)
{
    const QString c = text.trimmed();
    if (c != "2" && c != "16" && c != "256")
        return false;
    t.colours = c.toInt();
    return true;
}

// A size N (square) or WxH into a width and a height field.
template <uint16_t Terminal::*width, uint16_t Terminal::*height>
bool set_size(Terminal& t, const QString& text)
{
    unsigned w = 0, h = 0;
    if (!parse_terminal_size(text, MAX_SIDE, w, h, true))
        return false;
    t.*width = uint16_t(w);
    t.*height = uint16_t(h);
    return true;
}

bool set_soft_keys(Terminal& t, const QString& text)
{
    unsigned n = 0;
    if (!parse_terminal_number(text, 64, n))
        return false;
    t.physical_soft_keys = uint8_t(n);
    return true;
}

template <uint8_t Terminal::*field>
bool set_mask(Terminal& t, const QString& text)
{
    unsigned v = 0;
    if (!parse_terminal_number(text, 255, v))
        return false;
    t.*field = uint8_t(v);
    return true;
}

}

bool parse_terminal_number(const QString& text, unsigned max, unsigned& out)
{
    const QString t = text.trimmed();
    bool ok = false;
    const bool hex = t.startsWith("0x") || t.startsWith("0X");
    // Digits only: no sign, no blanks inside.
    const QString digits = hex ? t.mid(2) : t;
    if (digits.isEmpty())
        return false;
    for (QChar c : digits)
        if (!(hex ? c.isDigit() || QStringLiteral("abcdefABCDEF").contains(c) : c.isDigit()) || c.unicode() > 127)
            return false;
    const qulonglong v = digits.toULongLong(&ok, hex ? 16 : 10);
    if (!ok || v > max)
        return false;
    out = unsigned(v);
    return true;
}

bool parse_terminal_size(const QString& text, unsigned max, unsigned& width, unsigned& height, bool square_allowed)
{
    const QStringList parts = text.trimmed().toLower().split('x');
    if (parts.size() == 1 && square_allowed) {
        if (!parse_terminal_number(parts[0], max, width) || width == 0)
            return false;
        height = width;
        return true;
    }
    return parts.size() == 2 && parse_terminal_number(parts[0], max, width) &&
           parse_terminal_number(parts[1], max, height) && width > 0 && height > 0;
}

const std::vector<Terminal_property>& terminal_properties()
{
    static const std::vector<Terminal_property> table{
        {"vt-version", "N", "the VT version the terminal speaks (2-6)", set_vt_version, "takes a VT version from 2 to 6"},
        {"colours", "2|16|256", "the terminal's colours (default 256)", set_colours, "takes 2, 16 or 256"},
        {"mask-size", "N|WxH", "the terminal's data-mask size in pixels (default 480)",
         set_size<&Terminal::data_mask_width, &Terminal::data_mask_height>,
         "takes the data-mask size in pixels: N or WIDTHxHEIGHT, from 1 to 8192"},
        {"key-size", "N|WxH", "the terminal's soft-key size in pixels (default 60x60)",
         set_size<&Terminal::key_width, &Terminal::key_height>,
         "takes the soft-key size in pixels: N or WIDTHxHEIGHT, from 1 to 8192"},
        {"soft-keys", "N", "the soft keys the terminal shows beside the mask (0-64, default 6)", set_soft_keys,
         "takes a number from 0 to 64"},
        {"small-fonts", "MASK", "small font sizes the terminal has: bit 0 6x8 .. bit 7 32x32 (default 0xFF)",
         set_mask<&Terminal::small_fonts>, "takes a mask from 0 to 255"},
        {"large-fonts", "MASK", "large font sizes the terminal has: bit 0 32x48 .. bit 6 128x192 (default 0xFF)",
         set_mask<&Terminal::large_fonts>, "takes a mask from 0 to 255"},
        {"font-styles", "MASK", "font styles the terminal has: bit 0 bold .. bit 7 proportional (default 0xFF)",
         set_mask<&Terminal::font_styles>, "takes a mask from 0 to 255"},
    };
    return table;
}

const Terminal_property* find_terminal_property(const QString& name)
{
    QString spelled = name.trimmed();
    spelled.replace('_', '-');
    for (const Terminal_property& p : terminal_properties())
        if (spelled == QLatin1String(p.name))
            return &p;
    return nullptr;
}

QString terminal_problem(const Terminal& terminal)
{
    // Bit 7 of the large-font mask stands for no size.
    if (terminal.small_fonts == 0 && (terminal.large_fonts & 0x7F) == 0)
        return QStringLiteral("small-fonts and large-fonts leave the terminal without any font size");
    return QString();
}

}
