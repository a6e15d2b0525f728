#include "tools/terminal/Terminal_adaptation.h"

#include <QBuffer>
#include <QImage>
#include <QSet>

#include "tools/check/Macro_commands.h"
#include "tools/check/Object_facts.h"
#include "tools/pictures/Picture_encoder.h"
#include "tools/pool/Labels.h"
#include "tools/pool/Library_output.h"
#include "tools/terminal/Colour_reduction.h"
#include "tools/terminal/Font_sizes.h"

namespace VT {

namespace {

// The attribute of that name, as the class that holds it, or null.
template <class A>
A* attribute(VT_obj* obj, const char* name)
{
    const int at = obj->find_attribute(name);
    return at < 0 ? nullptr : dynamic_cast<A*>(obj->get_every_attribute(uint16_t(at)));
}

// Replaces the elements of a byte array attribute.
bool set_bytes(Attribute_array<unsigned char>* array, const QByteArray& bytes)
{
    if (!array || !array->allocate(uint32_t(bytes.size())))
        return false;
    if (!bytes.isEmpty())
        array->set_elements(0, reinterpret_cast<const unsigned char*>(bytes.constData()), unsigned(bytes.size()));
    return true;
}

format_t format_of(int colours)
{
    return colours == 2 ? MONOCHROME : colours == 16 ? FOUR_BIT_COLOUR : EIGHT_BIT_COLOUR;
}

// A dimension scaled by num/den, rounded down.
int scaled(int value, uint16_t num, uint16_t den)
{
    return den ? int(int64_t(value) * num / den) : value;
}

void reduce_picture(Base::Picture_graphic_obj& picture, int colours)
{
    const int w = picture.get_actual_width(), h = picture.get_actual_height();
    const QImage decoded = picture.get_qimage(true);
    if (decoded.isNull() || decoded.format() != QImage::Format_Indexed8 || w <= 0 || h <= 0)
        return;
    QByteArray pixels(w * h, '\0');
    for (int y = 0; y < h; ++y)
        memcpy(pixels.data() + y * w, decoded.constScanLine(y), size_t(w));

    uint8_t options = picture.get_options();
    const uint8_t transparency = picture.get_transparency_colour();
    const bool transparent = (options & Base::Picture_graphic_obj::OPTION_TRANSPARENT) &&
                             pixels.contains(char(transparency));
    // A transparent picture without a pixel of its transparency colour shows every pixel: it
    // stays so without the option, whatever colour the transparency colour becomes.
    options &= uint8_t(~(transparent ? 0 : Base::Picture_graphic_obj::OPTION_TRANSPARENT));

    const format_t target = format_of(colours);
    if (picture.get_format() > target) {
        // Transparent pixels take the terminal's colour for the transparency colour, and no opaque
        // pixel may. With only black and white, the transparency colour is rather the one
        // fewer opaque pixels have, so that fewest must take the other.
        int count[256] = {};
        for (char c : pixels)
            ++count[uint8_t(c)];
        uint8_t reduced_transparency = reduce_colour(transparency, colours);
        if (transparent && colours == 2) {
            int white = 0, black = 0;
            for (int v = 0; v < 256; ++v)
                if (v != transparency)
                    (reduce_colour(uint8_t(v), 2) ? white : black) += count[v];
            if (white != black)
                reduced_transparency = white < black ? 1 : 0;
        }
        // The colours the picture has, each mapped once.
        uint8_t terminal_colour[256] = {};
        for (int v = 0; v < 256; ++v)
            if (count[v])
                terminal_colour[v] = !transparent ? reduce_colour(uint8_t(v), colours)
                                     : v == transparency
                                         ? reduced_transparency
                                         : reduce_colour_avoiding(uint8_t(v), colours, reduced_transparency);
        for (char& c : pixels)
            c = char(terminal_colour[uint8_t(c)]);
        QByteArray data = Picture_encoder::pack(pixels, w, h, target);
        if (options & Base::Picture_graphic_obj::OPTION_RUN_LENGTH) {
            const QByteArray runs = Picture_encoder::run_length_code(data, w, target);
            if (runs.size() < data.size())
                data = runs;
            else
                options &= uint8_t(~Base::Picture_graphic_obj::OPTION_RUN_LENGTH);
        }
        if (auto* format = attribute<Attribute_uint8>(&picture, "format"))
            *format = uint8_t(target);
        if (auto* t = attribute<Attribute_uint8>(&picture, "transparency_colour"))
            *t = reduced_transparency;
        set_bytes(attribute<Attribute_array<unsigned char>>(&picture, "bytes"), data);
    }
    if (auto* o = attribute<Attribute_uint8>(&picture, "options"))
        *o = options;
}

// A PNG object's (or graphic data object's) image as 32-bit ARGB; null when its bytes are no
// PNG image.
template <class Png>
QImage png_image(Png& png)
{
    QByteArray bytes(int(std::min<uint32_t>(png.get_num_bytes(), 1u << 30)), '\0');
    if (bytes.isEmpty() || !png.get_bytes(0, reinterpret_cast<unsigned char*>(bytes.data()), unsigned(bytes.size())))
        return QImage();
    return QImage::fromData(bytes, "PNG").convertToFormat(QImage::Format_ARGB32);
}

// Pixels of alpha 0x80 or less are transparent, as the library reads them.
bool is_transparent(QRgb pixel)
{
    return qAlpha(pixel) <= 0x80;
}

// Gives a PNG object's (or graphic data object's) image the terminal's colours, where it has
// others; false when its bytes are no PNG image, or its image cannot be encoded again.
template <class Png>
bool reduce_png(Png& png, int colours)
{
    QImage image = png_image(png);
    if (image.isNull())
        return false;
    bool changed = false, any_transparent = false;
    QVector<QRgb> table;
    for (int y = 0; y < image.height(); ++y) {
        QRgb* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QRgb p = row[x];
            const QRgb q = is_transparent(p) ? 0u : 0xFF000000u | reduce_rgb(p, colours);
            changed = changed || q != p;
            any_transparent = any_transparent || q == 0;
            row[x] = q;
            if (!table.contains(q)) // at most the terminal's colours and transparency
                table.append(q);
        }
    }
    if (!changed)
        return true;
    // With the few colours left, a palette image: 1 bit when only black and white remain.
    const bool mono = colours == 2 && !any_transparent;
    QImage coded = image.convertToFormat(mono ? QImage::Format_Mono : QImage::Format_Indexed8, table,
                                         Qt::ThresholdDither | Qt::AvoidDither);
    coded.setDotsPerMeterX(0); // no physical size chunk: the terminal draws pixels
    coded.setDotsPerMeterY(0);
    QByteArray out;
    QBuffer buffer(&out);
    buffer.open(QIODevice::WriteOnly);
    if (!coded.save(&buffer, "PNG"))
        return false;
    set_bytes(attribute<Attribute_array<unsigned char>>(&png, "bytes"), out);
    return true;
}

// A picture graphic showing a PNG object's image, with its id, name, size and macros: 8-bit
// pixels of the palette's colour cube, transparent pixels in colour 0 (which the cube never
// gives), run-length coded when that is shorter. Null when the PNG does not decode.
Base::Picture_graphic_obj* picture_of_png(Base::PNG_obj& png)
{
    const QImage image = png_image(png);
    if (image.isNull() || image.width() > 65535 || image.height() > 65535)
        return nullptr;
    bool transparent = false;
    for (int y = 0; y < image.height() && !transparent; ++y)
        for (int x = 0; x < image.width() && !transparent; ++x)
            transparent = is_transparent(image.pixel(x, y));
    const QByteArray plain = Picture_encoder::encode(image, EIGHT_BIT_COLOUR, false, 0);
    const QByteArray runs = Picture_encoder::run_length_code(plain, image.width(), EIGHT_BIT_COLOUR);
    const bool run_length = runs.size() < plain.size();
    const uint8_t options = uint8_t((transparent ? Base::Picture_graphic_obj::OPTION_TRANSPARENT : 0) |
                                    (run_length ? Base::Picture_graphic_obj::OPTION_RUN_LENGTH : 0));
    auto* picture = new Base::Picture_graphic_obj(png.get_id(), png.get_name(), png.get_width(), uint16_t(image.width()),
                                                  uint16_t(image.height()), EIGHT_BIT_COLOUR, options, 0, 0, 0, nullptr,
                                                  nullptr);
    set_bytes(attribute<Attribute_array<unsigned char>>(picture, "bytes"), run_length ? runs : plain);
    auto* macros = attribute<Attribute_list<Attribute_event_macro>>(picture, "event_macro");
    auto* png_macros = attribute<Attribute_list<Attribute_event_macro>>(&png, "event_macro");
    if (macros && png_macros)
        macros->copy_from(*png_macros);
    return picture;
}

}

void Terminal_adaptation::fit_version(Object_pool& pool, const Terminal& terminal, bool downgrade,
                                      QStringList& problems, QStringList& warnings)
{
    if (!terminal.vt_version)
        return;
    // A copy of the list: replacing an object changes the pool's.
    const QVector<VT_obj*> objects = pool.objects();
    for (VT_obj* obj : objects) {
        const unsigned type = obj->get_type();
        const int needs = Check::type_version(type & 0xFF);
        if (needs <= terminal.vt_version)
            continue;
        auto* png = dynamic_cast<Base::PNG_obj*>(obj);
        const QString label = object_label(obj);
        const QString lacks = QStringLiteral("%1: object type %2 needs VT version %3; the terminal speaks VT version %4")
                                  .arg(label, QString::fromLatin1(obj->get_type_string()))
                                  .arg(needs)
                                  .arg(terminal.vt_version);
        if (!png) {
            problems.append(lacks);
        } else if (!downgrade) {
            problems.append(lacks + " (--downgrade sends it as a Picture_graphic)");
        } else if (Base::Picture_graphic_obj* picture = picture_of_png(*png)) {
            QString error;
            if (pool.replace(obj, picture, &error))
                warnings.append(QStringLiteral("%1: sent as a Picture_graphic: PNG needs VT version %2").arg(label).arg(needs));
            else
                problems.append(label + ": " + error);
        } else {
            problems.append(lacks + "; its image does not decode, so it cannot be sent as a Picture_graphic");
        }
    }
    // Attribute values a later version added: what the attribute asks for is named.
    for (VT_obj* obj : pool.objects()) {
        QStringList cleared;
        for (int f = 0; f < Check::value_version_count; ++f) {
            const Check::Value_version& v = Check::value_versions[f];
            if (v.version <= terminal.vt_version || obj->get_type() != v.type)
                continue;
            auto* value = attribute<Attribute_uint8>(obj, v.attribute);
            if (!value || !(value->get() & v.bits))
                continue;
            if (!downgrade) {
                problems.append(QStringLiteral("%1: '%2' asks for %3, which needs VT version %4; the terminal speaks VT "
                                               "version %5 (--downgrade does without it)")
                                    .arg(object_label(obj), QString::fromLatin1(v.attribute),
                                         QString::fromLatin1(v.meaning))
                                    .arg(v.version)
                                    .arg(terminal.vt_version));
                continue;
            }
            *value = uint8_t(value->get() & ~v.bits);
            cleared.append(QStringLiteral("%1, which needs VT version %2").arg(QString::fromLatin1(v.meaning)).arg(v.version));
        }
        if (!cleared.isEmpty())
            warnings.append(QStringLiteral("%1: left out %2").arg(object_label(obj), cleared.join("; ")));
    }
}

Serialisation_limits Terminal_adaptation::serialisation_limits()
{
    Serialisation_limits limits;
    limits.colour_format = EIGHT_BIT_COLOUR;
    limits.small_font_mask = limits.large_font_mask = limits.font_style_mask = 0xFF;
    return limits;
}

namespace {

// The size and style a font takes on the terminal where it is used in an area of ratio `r`;
// false for a fixed size above 14, which is no size at all.
bool fit_font(const Terminal& terminal, const Scaling::Ratio& r, uint8_t& size, uint8_t& style)
{
    if (style & Font_sizes::STYLE_PROPORTIONAL) {
        int height = r.active ? scaled(size, r.num_y, r.den_y) : size;
        height = std::min(255, std::max(int(Font_sizes::MIN_PROPORTIONAL_HEIGHT), height));
        if (Font_sizes::proportional(terminal)) {
            size = uint8_t(height);
        } else {
            style &= uint8_t(~Font_sizes::STYLE_PROPORTIONAL);
            size = Font_sizes::supported(terminal, Font_sizes::for_height(height));
        }
    } else {
        if (size >= Font_sizes::COUNT)
            return false;
        if (r.active) {
            const Font_sizes::Cell cell = Font_sizes::cell(size);
            size = Font_sizes::fitting(scaled(cell.width, r.num_x, r.den_x), scaled(cell.height, r.num_y, r.den_y));
        }
        size = Font_sizes::supported(terminal, size);
    }
    style &= terminal.font_styles;
    return true;
}

QString no_font_size(const QString& where, int size)
{
    return QStringLiteral("%1: font size %2 is none of the fixed sizes 0 to 14, and the font is not proportional")
        .arg(where)
        .arg(size);
}

}

void Terminal_adaptation::fit_fonts(Object_pool& pool, const Terminal& terminal, const Scaling::Ratio& mask,
                                   const Scaling::Ratio& key, QStringList& problems)
{
    for (VT_obj* obj : pool.objects()) {
        auto* font = dynamic_cast<Base::Font_attributes_obj*>(obj);
        if (!font)
            continue;
        uint8_t size = font->get_font_size();
        uint8_t style = font->get_font_style();
        if (!fit_font(terminal, Scaling::ratio_for(*obj, mask, key), size, style)) {
            problems.append(no_font_size(object_label(obj), size));
            continue;
        }
        if (auto* a = attribute<Attribute_uint8>(obj, "font_size"))
            *a = size;
        if (auto* a = attribute<Attribute_uint8>(obj, "font_style"))
            *a = style;
    }
}

void Terminal_adaptation::adapt_macros(Object_pool& pool, const Terminal& terminal, const Scaling::Ratio& mask,
                                       const Scaling::Ratio& key, QStringList& problems)
{
    const int colours = terminal.colours == 2 || terminal.colours == 16 ? terminal.colours : 256;
    for (VT_obj* obj : pool.objects()) {
        if (obj->get_type() != VT_obj_type::TYPE_MACRO)
            continue;
        auto* bytes = attribute<Attribute_array<unsigned char>>(obj, "bytes");
        if (!bytes || !bytes->get_length())
            continue;
        QByteArray b(int(bytes->get_length()), '\0');
        b.resize(int(bytes->get_elements(0, reinterpret_cast<unsigned char*>(b.data()), unsigned(b.size()))));
        uint8_t* p = reinterpret_cast<uint8_t*>(b.data());
        auto colour_at = [&](int at) { p[at] = reduce_colour(p[at], colours); };
        for (const Check::Macro_command& c : Check::Macro_commands::decode(b)) {
            if (!c.fact || c.truncated || c.length < 5)
                continue;
            const int at = c.offset;
            VT_obj* target = pool.find(uint16_t(p[at + 1] | p[at + 2] << 8));
            switch (c.fact->code) {
            case 0xA7: // Change Background Colour: the colour at byte 3
            case 0xAB: // Change Line Attributes: the colour at byte 3
                colour_at(at + 3);
                break;
            case 0xAC: // Change Fill Attributes: the colour at byte 4
                colour_at(at + 4);
                break;
            case 0xAA: { // Change Font Attributes: colour, size, type, style at bytes 3 to 6
                colour_at(at + 3);
                uint8_t size = p[at + 4], style = p[at + 6];
                if (!fit_font(terminal, target ? Scaling::ratio_for(*target, mask, key) : mask, size, style))
                    problems.append(no_font_size(QStringLiteral("%1: Change Font Attributes at byte %2")
                                                     .arg(object_label(obj))
                                                     .arg(at),
                                                 size));
                p[at + 4] = size;
                p[at + 6] = style;
                break;
            }
            case 0xAF: { // Change Attribute: the AID at byte 3, a colour's value at byte 4
                Attribute* a = target ? target->get_attribute_by_aid(p[at + 3]) : nullptr;
                if (a && a->get_type() == Attribute::ATTR_COLOUR)
                    colour_at(at + 4);
                break;
            }
            case 0xB8: // Graphics Context: Set Foreground (2) or Background (3) Colour at byte 4
                if (c.graphics && (c.graphics->code == 2 || c.graphics->code == 3))
                    colour_at(at + 4);
                break;
            }
        }
        bytes->set_elements(0, reinterpret_cast<const unsigned char*>(b.constData()), unsigned(b.size()));
    }
}

void Terminal_adaptation::reduce_pictures(Object_pool& pool, const Terminal& terminal, QStringList& problems,
                                          QStringList& warnings)
{
    if (terminal.colours != 2 && terminal.colours != 16)
        return;
    // What the library says while decoding a picture (data that overruns it, ...) concerns that
    // picture.
    Library_output said;
    for (VT_obj* obj : pool.objects()) {
        if (auto* picture = dynamic_cast<Base::Picture_graphic_obj*>(obj)) {
            reduce_picture(*picture, terminal.colours);
        } else if (auto* png = dynamic_cast<Base::PNG_obj*>(obj)) {
            if (!reduce_png(*png, terminal.colours))
                problems.append(object_label(obj) + ": holds no PNG image that can be given the terminal's colours");
        } else if (auto* data = dynamic_cast<Base::Graphic_data_obj*>(obj)) {
            if (!reduce_png(*data, terminal.colours))
                problems.append(object_label(obj) + ": holds no PNG image that can be given the terminal's colours");
        }
        for (const Library_output::Line& line : said.take())
            if (!line.chatter)
                warnings.append(object_label(obj) + ": " + line.text);
    }
}

void Terminal_adaptation::reduce_colour_maps(Object_pool& pool, const Terminal& terminal)
{
    const int n = terminal.colours == 2 || terminal.colours == 16 ? terminal.colours : 256;
    for (VT_obj* obj : pool.objects()) {
        if (obj->get_type() != VT_obj_type::TYPE_COLOUR_MAP)
            continue;
        auto* entries = attribute<Attribute_array<unsigned char>>(obj, "colours");
        if (!entries)
            continue;
        const unsigned held = entries->get_length();
        QByteArray map(n, '\0');
        bool same = held == unsigned(n);
        for (int i = 0; i < n; ++i) {
            map[i] = char(reduce_colour(unsigned(i) < held ? (*entries)[unsigned(i)] : uint8_t(i), n));
            same = same && uint8_t(map[i]) == (*entries)[unsigned(i)];
        }
        if (!same)
            set_bytes(entries, map);
    }
}

void Terminal_adaptation::reduce_colours(Object_pool& pool, const Terminal& terminal)
{
    if (terminal.colours != 2 && terminal.colours != 16)
        return;
    for (VT_obj* obj : pool.objects())
        for (uint16_t i = 0; i < obj->get_num_every_attribute(); ++i) {
            Attribute* a = obj->get_every_attribute(i);
            if (a && a->get_type() == Attribute::ATTR_COLOUR)
                if (auto* colour = dynamic_cast<Attribute_uint8*>(a))
                    *colour = reduce_colour(colour->get(), terminal.colours);
        }
}

bool Terminal_adaptation::adapt(Object_pool& pool, const Terminal& terminal, const Options& options,
                                QStringList& problems, QStringList& warnings)
{
    const int before = problems.size();
    const Scaling::Ratio mask = Scaling::mask_ratio(terminal, options.design);
    const Scaling::Ratio key = Scaling::key_ratio(terminal, options.design);
    if (mask.active || key.active)
        Scaling::scale(pool, mask, key);
    // Fonts first: where the terminal has no proportional fonts (as before VT version 4) a
    // proportional font becomes a fixed one, which is no downgrade but the font rule.
    fit_fonts(pool, terminal, mask, key, problems);
    fit_version(pool, terminal, options.downgrade, problems, warnings);
    reduce_pictures(pool, terminal, problems, warnings);
    reduce_colour_maps(pool, terminal);
    reduce_colours(pool, terminal);
    adapt_macros(pool, terminal, mask, key, problems);

    pool.set_serialisation_limits(serialisation_limits());
    if (terminal.vt_version) {
        pool.set_negotiated_version(uint8_t(terminal.vt_version));
        QSet<uint8_t> types;
        for (unsigned t = 0; t < 256; ++t)
            if (int needs = Check::type_version(t))
                if (needs <= terminal.vt_version)
                    types.insert(uint8_t(t));
        pool.set_supported_types(types);
    }
    return problems.size() == before;
}

}
