#include "tools/render/Text.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace VT {
namespace Render {

namespace {

const uint8_t NUMBER_LEADING_ZEROS = 0x02;
const uint8_t NUMBER_BLANK_ZERO = 0x04;
const uint8_t NUMBER_TRUNCATE = 0x08;

// Splits one line (no line ends in it) at the field's width.
void wrap_line(const std::string& line, size_t columns, const Text_layout& layout, std::vector<std::string>& out)
{
    if (!layout.wrap || line.size() <= columns) {
        out.push_back(line);
        return;
    }
    size_t start = 0;
    while (line.size() - start > columns) {
        // The last break opportunity within the first columns + 1 characters.
        size_t cut = std::string::npos;
        bool drop = false;
        for (size_t i = start + columns; i > start; --i) {
            const char c = line[i];
            if (c == ' ') {
                cut = i;
                drop = true;
                break;
            }
            if (layout.wrap_on_hyphen && line[i - 1] == '-' && i - start <= columns) {
                cut = i;
                break;
            }
        }
        if (cut == std::string::npos)
            cut = start + columns;
        size_t end = cut;
        while (drop && end > start && line[end - 1] == ' ')
            --end;
        out.push_back(line.substr(start, end - start));
        start = cut + (drop ? 1 : 0);
        while (drop && start < line.size() && line[start] == ' ')
            ++start;
    }
    if (start < line.size())
        out.push_back(line.substr(start));
}

}

std::vector<std::string> text_lines(const std::string& text, int columns, const Text_layout& layout)
{
    std::vector<std::string> out;
    const size_t width = size_t(std::max(1, columns));
    size_t start = 0;
    for (size_t i = 0; i <= text.size(); ++i) {
        if (i < text.size() && text[i] != '\r' && text[i] != '\n')
            continue;
        wrap_line(text.substr(start, i - start), width, layout, out);
        if (i + 1 < text.size() && (text[i] ^ text[i + 1]) == ('\r' ^ '\n'))
            ++i; // CR LF or LF CR: one line end
        start = i + 1;
    }
    return out;
}

void draw_text(Canvas& canvas, const Rect& field, const std::string& text, const Font& font,
               const Text_layout& layout, uint32_t background)
{
    const Rect outer = canvas.clip();
    const Rect clip = outer.intersected(field);
    if (clip.empty())
        return;
    canvas.set_clip(clip);
    const Font_metrics& m = font.metrics;
    const Glyph_set& set = glyph_sets[m.glyph_set];
    const uint16_t* page = code_page(font.type);
    const std::vector<std::string> lines = text_lines(text, field.w / m.cell_width, layout);
    const int text_height = int(lines.size()) * m.cell_height;
    int y = field.y;
    switch (layout.justification >> 2 & 3) {
    case 1:
        y += (field.h - text_height) / 2;
        break;
    case 2:
        y += field.h - text_height;
        break;
    }
    const bool inverted = font.style & STYLE_INVERTED;
    const uint32_t ink = inverted ? background : font.colour;
    const int glyph_w = set.width * m.scale_x, glyph_h = set.height * m.scale_y;
    const int inset_x = (m.cell_width - glyph_w) / 2, inset_y = (m.cell_height - glyph_h) / 2;
    const int bold = font.style & STYLE_BOLD ? m.scale_x : 0;
    for (const std::string& line : lines) {
        if (y >= clip.y + clip.h)
            break;
        const int line_width = int(line.size()) * m.cell_width;
        int x = field.x;
        switch (layout.justification & 3) {
        case 1:
            x += (field.w - line_width) / 2;
            break;
        case 2:
            x += field.w - line_width;
            break;
        }
        if (y + m.cell_height > clip.y) {
            if (inverted)
                canvas.fill_rect(x, y, line_width, m.cell_height, font.colour);
            for (size_t i = 0; i < line.size(); ++i) {
                const int cx = x + int(i) * m.cell_width;
                if (cx >= clip.x + clip.w)
                    break;
                const uint16_t g = page[uint8_t(line[i])];
                if (g == NO_GLYPH || cx + m.cell_width + glyph_w <= clip.x)
                    continue;
                const uint8_t* bits = set.glyph(g);
                const int gx = cx + inset_x, gy = y + inset_y;
                for (int r = 0; r < set.height; ++r) {
                    const uint8_t* row = bits + r * set.row_bytes;
                    const int slant = font.style & STYLE_ITALIC ? (set.height - 1 - r) / 4 * m.scale_x : 0;
                    // Runs of set pixels, each one rectangle.
                    for (int c = 0; c < set.width;) {
                        if (!(row[c >> 3] >> (7 - (c & 7)) & 1)) {
                            ++c;
                            continue;
                        }
                        int end = c + 1;
                        while (end < set.width && (row[end >> 3] >> (7 - (end & 7)) & 1))
                            ++end;
                        canvas.fill_rect(gx + slant + c * m.scale_x, gy + r * m.scale_y, (end - c) * m.scale_x + bold,
                                         m.scale_y, ink);
                        c = end;
                    }
                }
            }
            if (font.style & STYLE_UNDERLINED)
                canvas.fill_rect(x, y + inset_y + glyph_h - m.scale_y, line_width, m.scale_y, ink);
            if (font.style & STYLE_CROSSED_OUT)
                canvas.fill_rect(x, y + inset_y + glyph_h / 2, line_width, m.scale_y, ink);
        }
        y += m.cell_height;
    }
    canvas.set_clip(outer);
}

std::string format_number(const Number_format& n)
{
    const double shown = double(int64_t(n.value) + n.offset) * double(n.scale);
    const int decimals = std::min<int>(n.decimals, 7);
    std::string text;
    bool zero = false;
    if (!std::isfinite(shown)) {
        text = "*";
    } else if (n.format == 1 || std::fabs(shown) * std::pow(10.0, decimals) >= 1e18) {
        char buf[64];
        std::snprintf(buf, sizeof buf, "%.*e", decimals, shown);
        text = buf;
        zero = shown == 0.0;
    } else {
        const double x = shown * std::pow(10.0, decimals);
        int64_t units;
        if (n.options & NUMBER_TRUNCATE) {
            // The scale is a float: allow for its last bit before cutting the decimals off.
            units = int64_t(x + std::copysign(std::fabs(x) * 2e-7, x));
        } else {
            units = std::llround(x);
        }
        zero = units == 0;
        std::string digits = std::to_string(units < 0 ? -units : units);
        if (decimals > 0) {
            if (digits.size() <= size_t(decimals))
                digits.insert(0, size_t(decimals) + 1 - digits.size(), '0');
            digits.insert(digits.size() - size_t(decimals), 1, '.');
        }
        text = (units < 0 ? "-" : "") + digits;
    }
    if (zero && (n.options & NUMBER_BLANK_ZERO))
        return std::string();
    if ((n.options & NUMBER_LEADING_ZEROS) && int(text.size()) < n.columns) {
        const size_t sign = text[0] == '-' ? 1 : 0;
        text.insert(sign, size_t(n.columns) - text.size(), '0');
    }
    return text;
}

}
}
