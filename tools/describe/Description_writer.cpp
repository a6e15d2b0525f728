#include "tools/describe/Description_writer.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <algorithm>
#include <cstring>

#include "tools/check/Object_facts.h"
#include "tools/description/Text_table.h"
#include "tools/describe/Xml_text.h"
#include "tools/pictures/Picture_encoder.h"
#include "tools/reference/Attribute_meanings.h"
#include "tools/reference/Class_facts.h"

namespace VT {

namespace {

const char* const pixel_formats[] = {"MONOCHROME", "FOUR_BIT_COLOUR", "EIGHT_BIT_COLOUR"};
// Longer byte strings are written this many bytes to a line.
const int HEX_PER_LINE = 32;

// The shortest text that reads back as exactly this float.
bool float_text(float f, QByteArray& out)
{
    for (int precision = 6; precision <= 9; ++precision) {
        QByteArray text = QByteArray::number(double(f), 'g', precision);
        bool ok = false;
        const float back = text.toFloat(&ok);
        if (ok && memcmp(&back, &f, sizeof f) == 0) {
            out = text;
            return true;
        }
    }
    return false;
}

// How a picture object travels: as an image file, or as its stored bytes (with the reason).
struct Picture_choice
{
    bool as_file = false;
    QByteArray file;
    QString why_not;
};

// A picture graphic becomes a PNG file when the description reader, reading that file back,
// stores exactly the bytes the picture has.
Picture_choice picture_graphic_choice(Base::Picture_graphic_obj& picture, const QByteArray& data)
{
    Picture_choice c;
    if (qint64(picture.get_actual_width()) * picture.get_actual_height() > Picture_encoder::MAX_PIXELS) {
        c.why_not = QStringLiteral("it is larger than a picture file may be");
        return c;
    }
    const unsigned format = picture.get_format();
    const uint8_t options = picture.get_options();
    QImage image = picture.get_qimage(false);
    if (image.isNull() || format > EIGHT_BIT_COLOUR || image.width() != picture.get_actual_width() ||
        image.height() != picture.get_actual_height()) {
        c.why_not = QStringLiteral("its data does not decode to a whole picture");
        return c;
    }
    QBuffer buffer(&c.file);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    QImage back;
    back.loadFromData(c.file);
    const unsigned char transparency = picture.get_transparency_colour();
    const bool run_length = options & Base::Picture_graphic_obj::OPTION_RUN_LENGTH;
    if (Picture_encoder::encode(back, format_t(format), run_length, transparency) == data)
        c.as_file = true;
    else
        c.why_not = QStringLiteral("coding its pixels again would not give the same bytes");
    return c;
}

// PNG data becomes its file when it is a PNG that decodes, of the size the object states (when it
// states one).
Picture_choice png_choice(const QByteArray& data, const QSize& stated)
{
    Picture_choice c;
    // The size from the file's header, before anything is decoded.
    QBuffer buffer(const_cast<QByteArray*>(&data));
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "PNG");
    const QSize size = data.startsWith("\x89PNG\r\n\x1a\n") ? reader.size() : QSize();
    QImage image;
    if (!size.isValid())
        c.why_not = QStringLiteral("its data is not a PNG file");
    else if (stated.isValid() && size != stated)
        c.why_not = QStringLiteral("its PNG is %1 x %2 while the object states %3 x %4")
                        .arg(size.width())
                        .arg(size.height())
                        .arg(stated.width())
                        .arg(stated.height());
    else if (qint64(size.width()) * size.height() > Picture_encoder::MAX_PIXELS)
        c.why_not = QStringLiteral("it is larger than a picture file may be");
    else if (!image.loadFromData(data, "PNG"))
        c.why_not = QStringLiteral("its PNG does not decode");
    else {
        c.as_file = true;
        c.file = data;
    }
    return c;
}

// What an event macro's event is, for the comment before it.
QByteArray event_text(unsigned type, unsigned event)
{
    switch (Check::event_kind(event)) {
    case Check::Event_kind::defined:
        return QByteArray(Check::event_name(event)) +
               (Check::raises(type, event) ? "" : ": an event this object does not raise");
    case Check::Event_kind::proprietary: return "a proprietary event";
    case Check::Event_kind::extended_reference: return "an extended macro reference";
    case Check::Event_kind::reserved: break;
    }
    return "a reserved event";
}

class Writer
{
public:
    Writer(Object_pool& pool, const Description_writer::Options& options, Written_description& out,
           QStringList& problems)
        : pool(pool), options(options), out(out), problems(problems)
    {
    }

    void write();

private:
    Xml_text object(VT_obj* obj, const Class_facts& facts);
    void scalar(VT_obj* obj, const Class_facts& facts, const Attribute_facts& f, const QByteArray& bytes,
                Xml_text& e, QStringList& explained);
    static void text(const Attribute_facts& f, const QByteArray& bytes, Xml_text& e);
    void list(VT_obj* obj, const Class_facts& facts, const Attribute_facts& f, Attribute* a, Xml_text& e);
    bool picture(VT_obj* obj, Xml_text& e, QSet<QByteArray>& left_out);
    void text_tables(const QByteArray& origin);

    QByteArray reference(VT_obj* obj, const QByteArray& attribute, uint16_t id);
    QByteArray macro(uint16_t id) const;
    QByteArray name_of(VT_obj* obj) const { return options.names.value(obj->get_id()); }
    void problem(VT_obj* obj, const QByteArray& attribute, const QString& text);
    QString file_for(VT_obj* obj);

    Object_pool& pool;
    const Description_writer::Options& options;
    Written_description& out;
    QStringList& problems;
    QSet<QString> files; // lower-cased, so that no two differ in case only
};

void Writer::problem(VT_obj* obj, const QByteArray& attribute, const QString& text)
{
    problems.append(QStringLiteral("'%1' (%2 %3): '%4' %5")
                        .arg(QString::fromUtf8(name_of(obj)), QString::fromLatin1(obj->get_type_string()))
                        .arg(obj->get_id())
                        .arg(QString::fromLatin1(attribute), text));
}

QByteArray Writer::reference(VT_obj* obj, const QByteArray& attribute, uint16_t id)
{
    if (id == VT_obj::NULL_ID)
        return QByteArrayLiteral("65535");
    if (!pool.find(id)) {
        problem(obj, attribute,
                QStringLiteral("refers to object %1, which the pool does not hold; a description names the objects "
                               "it refers to")
                    .arg(id));
        return QByteArray();
    }
    return options.names.value(id);
}

// Macros are named where the pool holds a macro of that id; other ids stay numbers.
QByteArray Writer::macro(uint16_t id) const
{
    VT_obj* m = pool.find(id);
    if (m && m->get_type() == VT_obj_type::TYPE_MACRO)
        return options.names.value(id);
    return QByteArray::number(id);
}

QString Writer::file_for(VT_obj* obj)
{
    // Names may hold characters that file systems do not take.
    QString base = QString::fromUtf8(name_of(obj));
    for (QChar& c : base)
        if (!(c.isLetterOrNumber() && c.unicode() < 128) && c != '_' && c != '-' && c != '.')
            c = '_';
    QString file = base;
    for (int n = 2; files.contains(file.toLower()); ++n)
        file = base + QStringLiteral("_%1").arg(n);
    files.insert(file.toLower());
    return options.pictures + "/" + file + ".png";
}

void Writer::scalar(VT_obj* obj, const Class_facts& facts, const Attribute_facts& f, const QByteArray& bytes,
                    Xml_text& e, QStringList& explained)
{
    const qint64 value = f.value_of(bytes);
    const quint64 raw = quint64(value);
    const Attribute_meanings* meanings = attribute_meanings(facts.type, f.name.constData());
    switch (f.atype) {
    case Attribute::ATTR_COLOUR:
        e.set(f.name, raw < uint64_t(Attribute_colour::num_named_colours)
                          ? QByteArray(Attribute_colour::list_named_colours[raw])
                          : QByteArray::number(raw));
        return;
    case Attribute::ATTR_OBJECT_ID: {
        const QByteArray name = reference(obj, f.name, uint16_t(raw));
        if (!name.isEmpty())
            e.set(f.name, name);
        return;
    }
    case Attribute::ATTR_FLOAT: {
        float v = 0;
        const uint32_t bits = uint32_t(raw);
        memcpy(&v, &bits, sizeof v);
        QByteArray t;
        if (float_text(v, t))
            e.set_verbatim(f.name, t);
        else
            problem(obj, f.name, QStringLiteral("holds a float (bits 0x%1) that no decimal number gives back")
                                     .arg(bits, 8, 16, QChar('0')));
        return;
    }
    default: break;
    }
    if (meanings && meanings->kind == Attribute_meanings::BITS)
        e.set_verbatim(f.name, "0x" + QByteArray::number(raw, 16).toUpper().rightJustified(2 * bytes.size(), '0'));
    else
        e.set_verbatim(f.name, QByteArray::number(value));
    if (meanings && meanings->count > 0)
        explained.append(QStringLiteral("%1 %2: %3")
                             .arg(QString::fromLatin1(f.name), QString::fromLatin1(e.attributes.last().second),
                                  meanings->explain(uint32_t(raw))));
}

void Writer::text(const Attribute_facts& f, const QByteArray& bytes, Xml_text& e)
{
    if (Xml_text::representable(bytes)) {
        e.set(f.name, bytes);
        return;
    }
    // Control characters and zero bytes (a UTF-16 text holds them) have no place in XML text.
    e.set_verbatim(f.name + ".hex", Xml_text::hex(bytes, HEX_PER_LINE, 8));
    QByteArray why = bytes.contains('\0') ? " holds zero bytes" : " holds control characters";
    if (bytes.startsWith("\xFF\xFE") && bytes.size() % 2 == 0) {
        // A UTF-16 text (little-endian, after its byte order mark), shown for the reader.
        const QString utf16 = QString::fromUtf16(reinterpret_cast<const char16_t*>(bytes.constData() + 2),
                                                 (bytes.size() - 2) / 2);
        // Only characters a comment can hold.
        const bool showable = std::all_of(utf16.begin(), utf16.end(), [](QChar c) {
            return c.unicode() >= 0x20 && !c.isSurrogate() && c.unicode() < 0xFFFE;
        });
        if (showable)
            why = " is the UTF-16 text \"" + utf16.toUtf8().replace("--", "- -") + "\"";
    }
    e.comment(f.name + why + ": given as hexadecimal bytes");
}

void Writer::list(VT_obj* obj, const Class_facts& facts, const Attribute_facts& f, Attribute* a, Xml_text& e)
{
    if (auto* places = dynamic_cast<Attribute_list<Attribute_object_placement>*>(a)) {
        for (uint32_t k = 0; k < places->held(); ++k) {
            const Attribute_object_placement& p = (*places)[k];
            Xml_text item("place");
            item.set("object", reference(obj, f.name, p.get_object_id()));
            item.set_verbatim("x_location", QByteArray::number(p.get_x()));
            item.set_verbatim("y_location", QByteArray::number(p.get_y()));
            e.add_child(item);
        }
    } else if (auto* ids = dynamic_cast<Attribute_list<Attribute_object_id>*>(a)) {
        // Items are named by "object"; the library reads the items of lists other than lists of
        // children from an attribute named as the list, except where the host reads them itself
        // (a window mask's references, a field's swaths).
        const bool by_object = f.name == "child_objects" || f.name == "layers" || f.name == "required_object_refs" ||
                               f.name == "swaths";
        const QByteArray key = by_object ? QByteArray("object") : f.name;
        for (uint32_t k = 0; k < ids->held(); ++k) {
            Xml_text item("ref");
            item.set(key, reference(obj, f.name, (*ids)[k].get()));
            e.add_child(item);
        }
    } else if (auto* macros = dynamic_cast<Attribute_list<Attribute_event_macro>*>(a)) {
        for (uint32_t k = 0; k < macros->held(); ++k) {
            const Attribute_event_macro& m = (*macros)[k];
            Xml_text item("Event_macro");
            item.set_verbatim("event_id", QByteArray::number(m.get_event_id()));
            item.set("macro_id", macro(m.get_macro_id()));
            item.comment(event_text(facts.type, m.get_event_id()));
            e.add_child(item);
        }
    } else if (auto* languages = dynamic_cast<Attribute_list<Attribute_lang>*>(a)) {
        for (uint32_t k = 0; k < languages->held(); ++k) {
            const Attribute_lang& l = (*languages)[k];
            Xml_text item("Language");
            const char code[] = {char(l.get_byte_1()), char(l.get_byte_2()), 0};
            if (isalpha(uchar(code[0])) && isalpha(uchar(code[1]))) {
                item.set_verbatim("code", code);
            } else {
                item.set_verbatim("byte_1", QByteArray::number(l.get_byte_1()));
                item.set_verbatim("byte_2", QByteArray::number(l.get_byte_2()));
            }
            e.add_child(item);
        }
    } else if (auto* pairs = dynamic_cast<Attribute_list<Attribute_language_pair>*>(a)) {
        for (uint32_t k = 0; k < pairs->held(); ++k) {
            const Attribute_language_pair& l = (*pairs)[k];
            Xml_text item("Language_pair");
            const char language[] = {char(l.get_language(0)), char(l.get_language(1)), 0};
            const char country[] = {char(l.get_country(0)), char(l.get_country(1)), 0};
            const bool letters = isalpha(uchar(language[0])) && isalpha(uchar(language[1])) &&
                                 isalpha(uchar(country[0])) && isalpha(uchar(country[1]));
            if (letters) {
                item.set_verbatim("language", language);
                item.set_verbatim("country", country);
            } else {
                const char* keys[] = {"language_1", "language_2", "country_1", "country_2"};
                const uint8_t bytes[] = {l.get_language(0), l.get_language(1), l.get_country(0), l.get_country(1)};
                for (int b = 0; b < 4; ++b)
                    item.set_verbatim(keys[b], QByteArray::number(bytes[b]));
            }
            e.add_child(item);
        }
    } else if (auto* points = dynamic_cast<Attribute_list<Attribute_point>*>(a)) {
        for (uint32_t k = 0; k < points->held(); ++k) {
            Xml_text item("Point");
            item.set_verbatim("point_x", QByteArray::number((*points)[k].get_x()));
            item.set_verbatim("point_y", QByteArray::number((*points)[k].get_y()));
            e.add_child(item);
        }
    } else if (auto* labels = dynamic_cast<Attribute_list<Attribute_labelref>*>(a)) {
        for (uint32_t k = 0; k < labels->held(); ++k) {
            const Attribute_labelref& l = (*labels)[k];
            Xml_text item("Labelref");
            item.set("labelled_object", reference(obj, f.name, l.get_labelled_object()));
            item.set("string_variable", reference(obj, f.name, l.get_string_variable()));
            item.set_verbatim("font_type", QByteArray::number(l.get_font_type()));
            item.set("graphic_representation", reference(obj, f.name, l.get_graphic_representation()));
            e.add_child(item);
        }
    } else if (auto* sets = dynamic_cast<Attribute_list<Attribute_code_plane_rangeset>*>(a)) {
        for (uint32_t k = 0; k < sets->held(); ++k) {
            const Attribute_code_plane_rangeset& s = (*sets)[k];
            Xml_text item("Code_plane_rangeset");
            item.set_verbatim("code_plane", QByteArray::number(s.get_plane()));
            for (uint32_t r = 0; r < s.get_ranges().held(); ++r) {
                Xml_text range("Code_plane_range");
                range.set_verbatim("first_char", QByteArray::number(s.get_ranges()[r].get_first_char()));
                range.set_verbatim("last_char", QByteArray::number(s.get_ranges()[r].get_last_char()));
                item.add_child(range);
            }
            e.add_child(item);
        }
    } else {
        // Lists without a byte form of their items (identifiers): only their count travels.
        auto* any = dynamic_cast<_Attribute_list*>(a);
        for (uint32_t k = 0; any && k < any->get_length(); ++k)
            e.add_child(Xml_text("ref"));
    }
}

// Decides how a picture graphic, PNG or graphic data object travels; true when it is written as
// a file, and then `left_out` holds the attributes the file gives.
bool Writer::picture(VT_obj* obj, Xml_text& e, QSet<QByteArray>& left_out)
{
    auto* graphic = dynamic_cast<Base::Picture_graphic_obj*>(obj);
    auto* png = dynamic_cast<Base::PNG_obj*>(obj);
    auto* graphic_data = dynamic_cast<Base::Graphic_data_obj*>(obj);
    if (!graphic && !png && !(graphic_data && graphic_data->get_format() == Base::Graphic_data_obj::FORMAT_PNG))
        return false;
    const int at = obj->find_attribute("bytes");
    const QByteArray data = at < 0 ? QByteArray() : attribute_bytes(*obj->get_every_attribute(uint16_t(at)));
    if (data.isEmpty())
        return false;
    const Picture_choice c = graphic ? picture_graphic_choice(*graphic, data)
                             : png   ? png_choice(data, QSize(png->get_actual_width(), png->get_actual_height()))
                                     : png_choice(data, QSize());
    if (!c.as_file) {
        e.comment(QStringLiteral("picture data as stored: %1").arg(c.why_not).toUtf8());
        return false;
    }
    const QString path = file_for(obj);
    out.files.append({path, c.file});
    e.set("file", path.toUtf8());
    // Graphic data is the file's bytes and nothing else.
    left_out = {"bytes"};
    if (graphic_data)
        return true;
    left_out += {"actual_width", "actual_height"};
    const uint16_t width = graphic ? graphic->get_width() : png->get_width();
    const uint16_t actual = graphic ? graphic->get_actual_width() : png->get_actual_width();
    if (width == actual)
        left_out.insert("width");
    return true;
}

Xml_text Writer::object(VT_obj* obj, const Class_facts& facts)
{
    Xml_text e(facts.name);
    e.set("name", name_of(obj));
    e.set_verbatim("id", QByteArray::number(obj->get_id()));
    if (options.languages && options.languages->growing.contains(obj->get_id()))
        e.set_verbatim("grow", "true");
    QSet<QByteArray> from_file;
    const bool file = picture(obj, e, from_file);
    QStringList explained;
    for (const Attribute_facts& f : facts.attributes) {
        Attribute* a = obj->get_every_attribute(uint16_t(f.index));
        if (!a || f.shape == Attribute_facts::COUNT || from_file.contains(f.name))
            continue;
        // A picture read from a file is coded in the format given, 8-bit when none is.
        const bool picture_format = facts.type == VT_obj_type::TYPE_PICTURE_GRAPHIC && f.name == "format";
        const QByteArray bytes = attribute_bytes(*a);
        if (bytes == f.default_bytes && !(file && picture_format) && f.shape != Attribute_facts::LIST)
            continue;
        switch (f.shape) {
        case Attribute_facts::SCALAR:
            if (picture_format && !bytes.isEmpty() && uchar(bytes[0]) <= EIGHT_BIT_COLOUR)
                e.set_verbatim(f.name, pixel_formats[uchar(bytes[0])]);
            else
                scalar(obj, facts, f, bytes, e, explained);
            break;
        case Attribute_facts::TEXT: text(f, bytes, e); break;
        case Attribute_facts::ARRAY:
            if (f.atype == Attribute::ATTR_ARRAY_OBJECT_ID)
                problem(obj, f.name, QStringLiteral("holds object ids, which a description cannot give"));
            else
                e.set_verbatim(f.name, Xml_text::hex(bytes, HEX_PER_LINE, 8));
            break;
        case Attribute_facts::LIST: list(obj, facts, f, a, e); break;
        case Attribute_facts::COUNT: break;
        }
    }
    if (!explained.isEmpty())
        e.comment(explained.join("; ").toUtf8());
    return e;
}

// A text table for each language but the default: object name = "text".
void Writer::text_tables(const QByteArray& origin)
{
    const Described_languages& l = *options.languages;
    // A line break in the file's name would end the comment.
    const QByteArray from = QByteArray(origin).replace('\n', ' ').replace('\r', ' ');
    for (const QByteArray& code : l.codes.mid(1)) {
        QByteArray table = "# '" + code + "' texts of " + from + ", written by vtpool describe: object name = \"text\"\n";
        for (const Described_languages::Text& t : l.texts.value(code))
            table += options.names.value(t.id) + " = " + Text_table::quoted(t.text).toUtf8() + "\n";
        out.files.append({options.texts + "/" + QString::fromUtf8(code) + ".txt", table});
    }
}

void Writer::write()
{
    QByteArray xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    // A comment cannot hold "--".
    const QByteArray origin = QFileInfo(options.origin).fileName().toUtf8().replace("--", "- -");
    xml += "<!-- Described by vtpool from " + origin + ": vtpool build gives its bytes again. -->\n<object_pool";
    // The form of types 46 to 48 is said only where it is not the default, so that the
    // descriptions of other pools stay as they were.
    if (pool.vt6_objects() == Vt6_objects::iso)
        xml += " vt6_objects=\"iso\"";
    if (options.languages) {
        xml += " languages=\"" + options.languages->codes.join(' ') + "\" texts=\"" + options.texts.toUtf8() + "/\"";
        text_tables(origin);
    }
    xml += ">\n";
    for (VT_obj* obj : pool.objects()) {
        const Class_facts* facts = class_facts(obj->get_type());
        if (!facts) {
            problem(obj, "type", QStringLiteral("is a type without a class in this build"));
            continue;
        }
        const VT_obj::Lock guard(*obj);
        xml += object(obj, *facts).render(2);
    }
    xml += "</object_pool>\n";
    out.xml = xml;
}

}

bool Description_writer::write(Object_pool& pool, const Options& options, Written_description& out,
                               QStringList& problems)
{
    const int before = problems.size();
    out = Written_description();
    Writer(pool, options, out, problems).write();
    return problems.size() == before;
}

}
