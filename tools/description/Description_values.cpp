// A description's values on their way into the objects: byte strings, pictures and graphic
// data turned into attribute values, what the library says while reading them, and values outside their
// attribute's range.
#include "tools/description/Description.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <limits>
#include <type_traits>

#include "tools/description/Values.h"
#include "tools/pictures/Picture_encoder.h"
#include "tools/pool/Labels.h"

namespace VT {

namespace {

// Attributes given as hexadecimal byte strings.
bool is_byte_string(const QByteArray& key)
{
    return key == "bytes" || key == "colours" || key == "data";
}

}

void Description::prepare_values(Xml_element* e)
{
    bool picture = e->name == "Picture_graphic" || e->name == "PNG";
    if (picture && e->attribute("file")) {
        prepare_picture(e, e->name == "PNG");
        return;
    }
    if (e->name == "Graphic_data" && e->attribute("file")) {
        prepare_graphic_data(e);
        return;
    }
    for (auto& a : e->attributes) {
        // "string.hex" gives the bytes of a text that XML cannot hold as text.
        const bool hex_text = a.key.endsWith(".hex");
        if (!is_byte_string(a.key) && !hex_text)
            continue;
        QByteArray bytes;
        if (!Values::decode_hex(a.value, bytes)) {
            problem(e, QStringLiteral("'%1' must be hexadecimal bytes such as \"A0 05 FF\"").arg(QString::fromUtf8(a.key)));
            continue;
        }
        a.used = a.used || hex_text;
        e->supplied.push_back({hex_text ? a.key.left(a.key.size() - 4) : a.key, bytes, true});
    }
}

bool Description::read_file(Xml_element* e, QString& path, QByteArray& content)
{
    e->mark_used("file");
    path = QString::fromUtf8(*e->attribute("file"));
    if (QFileInfo(path).isRelative())
        path = QDir(base_dir).filePath(path);
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        problem(e, QStringLiteral("cannot read picture '%1': %2").arg(path, f.errorString()));
        return false;
    }
    content = f.readAll();
    return true;
}

void Description::prepare_picture(Xml_element* e, bool png)
{
    QString path;
    QByteArray content;
    if (!read_file(e, path, content))
        return;
    QImage image;
    if (content.isEmpty() || !image.loadFromData(content)) {
        problem(e, QStringLiteral("'%1' is not an image this tool can read").arg(path));
        return;
    }
    if (image.width() > 65535 || image.height() > 65535 || qint64(image.width()) * image.height() > Picture_encoder::MAX_PIXELS) {
        problem(e, QStringLiteral("picture '%1' is too large (%2 x %3)").arg(path).arg(image.width()).arg(image.height()));
        return;
    }
    auto supply = [&](const char* key, const QByteArray& v) {
        if (e->attribute(key) && strcmp(key, "width") != 0)
            warning(e, QStringLiteral("'%1' is taken from the picture file; the value given is ignored").arg(key));
        e->supply(key, v, false);
    };
    if (!e->attribute("width"))
        supply("width", QByteArray::number(image.width()));
    supply("actual_width", QByteArray::number(image.width()));
    supply("actual_height", QByteArray::number(image.height()));
    QByteArray data;
    if (png) {
        data = content;
    } else {
        unsigned format = EIGHT_BIT_COLOUR;
        unsigned options = 0;
        unsigned char transparency = 0;
        std::unique_ptr<Spec_node> node(make_node(e));
        uint8_t v = 0;
        if (node->get_uint8(&v, "format")) {
            if (v > EIGHT_BIT_COLOUR)
                problem(e, QStringLiteral("format %1 is not 0 to 2").arg(v));
            format = std::min<unsigned>(v, EIGHT_BIT_COLOUR);
        }
        if (node->get_uint8(&v, "options"))
            options = v;
        if (const QByteArray* t = e->attribute("transparency_colour"))
            if (!Attribute_colour::get_colour_val(t->constData(), transparency) && !declared_colour(*t, transparency))
                problem(e, QStringLiteral("unknown colour '%1'").arg(QString::fromUtf8(*t)));
        data = Picture_encoder::encode(image, format_t(format),
                                       (options & 4) != 0, transparency);
        // Symbolic formats reach the library as numbers.
        e->supply("format", QByteArray::number(format), false);
    }
    supply("num_bytes", QByteArray::number(data.size()));
    supply("bytes", data);
    e->supply("bytes", data, true);
}

void Description::prepare_graphic_data(Xml_element* e)
{
    QString path;
    QByteArray content;
    if (!read_file(e, path, content))
        return;
    // The only format graphic data has so far is PNG: the file goes out as it is.
    if (!content.startsWith("\x89PNG\r\n\x1a\n")) {
        problem(e, QStringLiteral("'%1' is not a PNG file, the only format graphic data holds").arg(path));
        return;
    }
    for (const char* key : {"num_bytes", "bytes"})
        if (e->attribute(key))
            warning(e, QStringLiteral("'%1' is taken from the picture file; the value given is ignored").arg(key));
    e->supply("num_bytes", QByteArray::number(content.size()), false);
    e->supply("bytes", content, false);
    e->supply("bytes", content, true);
}

void Description::read_values(Library_output& said)
{
    QSet<Xml_element*> done;
    auto process = [&](Xml_element* e, scale_area_t area) {
        done.insert(e);
        said.set_context([this, e]() { return where(e) + QStringLiteral(": ") + object_label(e->object); });
        e->object->set_by_spec(area);
        const QSet<QString> reported = check_ranges(e);
        if (said.any())
            hear(said, e, object_label(e->object), reported);
    };
    QVector<Xml_element*> built;
    for (Xml_element* e : object_elements)
        if (e->object)
            built.append(e);
    // Masks first, so that the areas they are drawn in reach their children before those read
    // their own values; then whatever has learned its area; then the rest.
    for (Xml_element* e : built)
        if (e->object->get_type() == VT_obj_type::TYPE_DATA_MASK)
            process(e, SCALE_AREA_ACTIVE);
    for (Xml_element* e : built) {
        unsigned t = e->object->get_type();
        if (t == VT_obj_type::TYPE_SOFT_KEY_MASK || t == VT_obj_type::TYPE_KEY)
            process(e, SCALE_AREA_SOFT_KEY);
    }
    for (bool progress = true; progress;) {
        progress = false;
        for (Xml_element* e : built)
            if (!done.contains(e) && e->object->get_scale_area() != SCALE_AREA_NONE) {
                process(e, e->object->get_scale_area());
                progress = true;
            }
    }
    for (Xml_element* e : built)
        if (!done.contains(e))
            process(e, SCALE_AREA_NONE);
}

void Description::hear(Library_output& said, const Xml_element* e, const QString& who, const QSet<QString>& ranges)
{
    for (const Library_output::Line& line : said.take()) {
        const QString clamp = Library_output::clamp_detail(line.text);
        const QString text = clamp.isEmpty() ? line.text : clamp;
        const QString about = who.isEmpty() ? text : who + QStringLiteral(": ") + text;
        // A clamp of a value check_ranges reported is said in the description's own words.
        const bool range_reported = !clamp.isEmpty() && ranges.contains(clamp.section('\'', 1, 1));
        if (line.chatter || Library_output::restated_by_tool(line.text) || range_reported)
            note_list.append(where(e) + QStringLiteral(": ") + about);
        else
            warning(e, about);
    }
}

namespace {

// A numeric attribute's range and the range of its type (a colour is a byte); false for
// other attributes.
struct Range
{
    qint64 min, max;        // the attribute's
    qint64 type_min, type_max;
};

template <class T, Attribute::atype A>
bool numeric_range(Attribute* a, Range& r)
{
    auto* n = dynamic_cast<Attribute_numbers_template<T, A>*>(a);
    if (!n)
        return false;
    // 64-bit values are compared up to the largest signed value.
    const qint64 top = std::numeric_limits<qint64>::max();
    r.min = qint64(n->get_min());
    r.type_min = qint64(std::numeric_limits<T>::min());
    if constexpr (std::is_same<T, uint64_t>::value) {
        r.max = n->get_max() > uint64_t(top) ? top : qint64(n->get_max());
        r.type_max = top;
    } else {
        r.max = qint64(n->get_max());
        r.type_max = qint64(std::numeric_limits<T>::max());
    }
    return true;
}

bool range_of(Attribute* a, Range& r)
{
    return numeric_range<uint8_t, Attribute::ATTR_UINT8>(a, r) || numeric_range<uint16_t, Attribute::ATTR_UINT16>(a, r) ||
           numeric_range<uint32_t, Attribute::ATTR_UINT32>(a, r) || numeric_range<uint64_t, Attribute::ATTR_UINT64>(a, r) ||
           numeric_range<int8_t, Attribute::ATTR_INT8>(a, r) || numeric_range<int16_t, Attribute::ATTR_INT16>(a, r) ||
           numeric_range<int32_t, Attribute::ATTR_INT32>(a, r) || numeric_range<int64_t, Attribute::ATTR_INT64>(a, r);
}

// Whether the text's value lies in [min, max].
bool within(bool negative, quint64 magnitude, qint64 min, qint64 max)
{
    if (negative)
        return min < 0 && magnitude <= quint64(-(min + 1)) + 1;
    return max >= 0 && magnitude <= quint64(max);
}

}

// The library clamps a value outside its attribute's range (and cuts a colour number to its
// low byte): a description names where it gave one. Returns the names of the attributes
// reported.
QSet<QString> Description::check_ranges(Xml_element* e)
{
    QSet<QString> reported;
    VT_obj* obj = e->object;
    for (uint16_t i = 0; i < obj->get_num_every_attribute(); ++i) {
        Attribute* a = obj->get_every_attribute(i);
        const QByteArray* text = a && a->name ? e->attribute(a->name) : nullptr;
        Range r{};
        bool negative = false;
        quint64 magnitude = 0;
        if (!text || !range_of(a, r) || !Values::parse_integer(*text, negative, magnitude) ||
            within(negative, magnitude, r.min, r.max))
            continue;
        // A number too wide for the attribute's type was reported when it was read; a colour is
        // read as text and cut to its low byte.
        const bool colour = a->get_type() == Attribute::ATTR_COLOUR;
        if (!colour && !within(negative, magnitude, r.type_min, r.type_max))
            continue;
        const qint64 clamped = negative ? r.min : r.max;
        const QString what = QStringLiteral("'%1' of <%2 name='%3'> is %4, outside its range %5 to %6")
                                 .arg(QString::fromUtf8(a->name), QString::fromUtf8(e->name),
                                      QString::fromUtf8(obj->get_name()), QString::fromUtf8(text->trimmed()))
                                 .arg(r.min)
                                 .arg(r.max);
        reported.insert(QString::fromUtf8(a->name));
        if (!lenient) {
            problem(e, what + " (--lenient takes the nearest value in range)");
            continue;
        }
        warning(e, what + QStringLiteral("; taken as %1").arg(clamped));
        if (auto* c = colour ? dynamic_cast<Attribute_uint8*>(a) : nullptr)
            *c = uint8_t(clamped);
    }
    return reported;
}

}
