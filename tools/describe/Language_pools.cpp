#include "tools/describe/Language_pools.h"

#include <QHash>
#include <cctype>

#include "tools/description/Translations.h"
#include "tools/pool/Labels.h"
#include "tools/pool/Partial_pool.h"
#include "tools/pool/Pool_file.h"
#include "tools/reference/Class_facts.h"

namespace VT {

namespace {

bool has_text(unsigned type)
{
    return type == VT_obj_type::TYPE_OUTPUT_STRING || type == VT_obj_type::TYPE_INPUT_STRING ||
           type == VT_obj_type::TYPE_STRING_VARIABLE || type == VT_obj_type::TYPE_INPUT_ATTRIBUTES;
}

// The object an object-id attribute of `obj` names, or null.
VT_obj* referenced(Object_pool& pool, VT_obj* obj, const char* attribute)
{
    const int at = obj->find_attribute(attribute);
    auto* id = at < 0 ? nullptr : dynamic_cast<Attribute_object_id*>(obj->get_every_attribute(uint16_t(at)));
    return id ? pool.find(id->get()) : nullptr;
}

// The bytes of an attribute of `obj`, or empty.
QByteArray bytes_of(VT_obj* obj, const char* attribute)
{
    const int at = obj->find_attribute(attribute);
    Attribute* a = at < 0 ? nullptr : obj->get_every_attribute(uint16_t(at));
    return a ? attribute_bytes(*a) : QByteArray();
}

// The code plane of each text, as the description reader decides it: an output or input
// string's font's, and a variable's or validation string's the font of the first string
// (in pool order) that shows it.
QHash<uint16_t, uint8_t> font_types(Object_pool& pool)
{
    QHash<uint16_t, uint8_t> types;
    for (VT_obj* obj : pool.objects()) {
        const unsigned type = obj->get_type();
        if (type != VT_obj_type::TYPE_OUTPUT_STRING && type != VT_obj_type::TYPE_INPUT_STRING)
            continue;
        const VT_obj::Lock guard(*obj);
        VT_obj* font = referenced(pool, obj, "font_attributes");
        uint8_t font_type = 0;
        if (font && font->get_type() == VT_obj_type::TYPE_FONT_ATTRIBUTES) {
            const VT_obj::Lock font_guard(*font);
            const QByteArray t = bytes_of(font, "font_type");
            font_type = t.isEmpty() ? 0 : uint8_t(t[0]);
        }
        types.insert(obj->get_id(), font_type);
        for (const char* key : {"variable_reference", "input_attributes"})
            if (VT_obj* shown = referenced(pool, obj, key))
                if (!types.contains(shown->get_id()))
                    types.insert(shown->get_id(), font_type);
    }
    return types;
}

// Reads one language's pool against the default pool.
class Language_reader
{
public:
    Language_reader(Object_pool& pool, const QByteArray& bytes, const QString& file, QStringList& problems)
        : pool(pool), pool_bytes(bytes), file(file), problems(problems), planes(font_types(pool))
    {
    }

    bool read(const Language_pools::Given& given, Described_languages& out);

private:
    bool same_but_text(VT_obj* base, VT_obj* other, const Language_pools::Given& given);
    bool text_of(VT_obj* base, VT_obj* other, const Language_pools::Given& given, Described_languages& out);
    void problem(VT_obj* obj, const Language_pools::Given& given, const QString& text)
    {
        problems.append(QStringLiteral("%1 %2 (between %3 and %4)").arg(object_label(obj), text, file, given.file));
    }

    Object_pool& pool;
    const QByteArray& pool_bytes;
    const QString& file;
    QStringList& problems;
    const QHash<uint16_t, uint8_t> planes;
};

// Whether `other` differs from `base` (same id) in its text alone; a problem otherwise.
bool Language_reader::same_but_text(VT_obj* base, VT_obj* other, const Language_pools::Given& given)
{
    if (base->get_type() != other->get_type()) {
        problem(base, given, QStringLiteral("is a %1 in %2").arg(type_name(other->get_type()), given.file));
        return false;
    }
    const Class_facts* facts = class_facts(base->get_type());
    if (!facts || !has_text(base->get_type())) {
        problem(base, given, QStringLiteral("differs, and only texts may differ between languages"));
        return false;
    }
    for (const Attribute_facts& f : facts->attributes) {
        if (f.name == "string" || f.counts == "string")
            continue;
        Attribute* a = base->get_every_attribute(uint16_t(f.index));
        Attribute* b = other->get_every_attribute(uint16_t(f.index));
        if (a && b && attribute_bytes(*a) != attribute_bytes(*b)) {
            problem(base, given, QStringLiteral("differs in '%1', and only texts may differ between languages")
                                     .arg(QString::fromLatin1(f.name)));
            return false;
        }
    }
    return true;
}

// The translation `other` holds of base's text, as a table gives it back; false with a
// problem when no table line gives these bytes.
bool Language_reader::text_of(VT_obj* base, VT_obj* other, const Language_pools::Given& given,
                              Described_languages& out)
{
    const QByteArray before = bytes_of(base, "string");
    QByteArray after = bytes_of(other, "string");
    const bool validation = base->get_type() == VT_obj_type::TYPE_INPUT_ATTRIBUTES;
    const QString language = QString::fromUtf8(given.code);
    if (after.size() < before.size() && !validation) {
        problem(base, given, QStringLiteral("has a '%1' text of %2 bytes, shorter than its text of %3: a translation "
                                            "is padded with blanks to the default text's length")
                                 .arg(language)
                                 .arg(after.size())
                                 .arg(before.size()));
        return false;
    }
    if (after.size() > before.size())
        out.growing.insert(base->get_id());
    // Blanks that pad it to the default's length come back as padding.
    else if (!validation)
        while (after.endsWith(' '))
            after.chop(1);
    // The text whose bytes these are in the plane: encoded again it must give them back.
    const uint8_t plane = planes.value(base->get_id(), 0);
    const QString text = Translations::decode(after, plane);
    QByteArray encoded;
    bool control = false;
    for (QChar c : text)
        control = control || (c.unicode() < 0x20 && c != '\n' && c != '\t');
    if (control || !Translations::encode(text, plane, encoded) || encoded != after) {
        problem(base, given, QStringLiteral("has a '%1' text that a text table cannot give (%2)")
                                 .arg(language, control ? QStringLiteral("control characters")
                                                        : QStringLiteral("bytes that are no characters of %1")
                                                              .arg(Translations::code_plane_name(plane))));
        return false;
    }
    out.texts[given.code].append({base->get_id(), text});
    return true;
}

bool Language_reader::read(const Language_pools::Given& given, Described_languages& out)
{
    const int before = problems.size();
    // A partial pool of a language that changes nothing holds no object.
    if (given.bytes.isEmpty()) {
        out.pools.insert(given.code, pool_bytes);
        return true;
    }
    Object_pool other;
    other.set_vt6_objects(pool.vt6_objects()); // one implement's pools share their form
    QString error;
    if (!Pool_file::read(given.bytes, other, &error)) {
        problems.append(QStringLiteral("%1: does not read as the '%2' pool: %3")
                            .arg(given.file, QString::fromUtf8(given.code), error));
        return false;
    }
    if (Pool_file::write(other) != given.bytes) {
        problems.append(QStringLiteral("%1: the pool as read differs from the file (values out of range)").arg(given.file));
        return false;
    }
    // A whole pool holds every object of the default pool, in the same order.
    bool whole = other.size() == pool.size();
    for (VT_obj* obj : other.objects())
        whole = whole && pool.find(obj->get_id());
    for (int i = 0; whole && i < pool.size(); ++i)
        if (pool.objects()[i]->get_id() != other.objects()[i]->get_id()) {
            problems.append(QStringLiteral("%1 holds as many objects as %2, in another order (object %3 is %4, not %5); "
                                           "a language's pool keeps the order of the default pool")
                                .arg(given.file, file)
                                .arg(i)
                                .arg(object_label(other.objects()[i]), object_label(pool.objects()[i])));
            return false;
        }
    for (VT_obj* obj : other.objects()) {
        VT_obj* base = pool.find(obj->get_id());
        if (!base) {
            problems.append(QStringLiteral("%1 holds %2, which %3 lacks; a language's pool changes objects of the "
                                           "default pool")
                                .arg(given.file, object_label(obj), file));
            continue;
        }
        if (Pool_file::object_bytes(*base) == Pool_file::object_bytes(*obj))
            continue;
        const VT_obj::Lock guard(*base);
        const VT_obj::Lock other_guard(*obj);
        if (same_but_text(base, obj, given))
            text_of(base, obj, given, out);
    }
    if (problems.size() > before)
        return false;
    QByteArray full = given.bytes;
    if (!whole && !Partial_pool::apply(pool_bytes, given.bytes, full, &error)) {
        problems.append(given.file + ": " + error);
        return false;
    }
    out.pools.insert(given.code, full);
    return true;
}

}

bool Language_pools::valid_code(const QByteArray& code)
{
    return code.size() == 2 && std::islower(uchar(code[0])) && std::islower(uchar(code[1]));
}

QByteArray Language_pools::default_language(Object_pool& pool)
{
    for (VT_obj* obj : pool.objects()) {
        if (obj->get_type() != VT_obj_type::TYPE_WORKING_SET)
            continue;
        const VT_obj::Lock guard(*obj);
        for (uint16_t i = 0; i < obj->get_num_every_attribute(); ++i)
            if (auto* list = dynamic_cast<Attribute_list<Attribute_lang>*>(obj->get_every_attribute(i)))
                if (list->held() > 0) {
                    const char bytes[] = {char((*list)[0].get_byte_1()), char((*list)[0].get_byte_2())};
                    const QByteArray code(bytes, 2);
                    if (valid_code(code))
                        return code;
                }
        break;
    }
    return "en";
}

bool Language_pools::read(Object_pool& pool, const QByteArray& bytes, const QString& file,
                          const QByteArray& default_code, const QVector<Given>& given, Described_languages& out,
                          QStringList& problems)
{
    const int before = problems.size();
    out = Described_languages();
    out.codes.append(default_code);
    if (!valid_code(default_code))
        problems.append(QStringLiteral("the default language '%1' is not two lower-case letters such as en or de")
                            .arg(QString::fromUtf8(default_code)));
    for (const Given& g : given) {
        if (!valid_code(g.code))
            problems.append(QStringLiteral("%1: the language '%2' is not two lower-case letters such as en or de")
                                .arg(g.file, QString::fromUtf8(g.code)));
        else if (out.codes.contains(g.code))
            problems.append(QStringLiteral("%1: the language '%2' is %3 already")
                                .arg(g.file, QString::fromUtf8(g.code),
                                     g.code == default_code ? QStringLiteral("the default language")
                                                            : QStringLiteral("given")));
        out.codes.append(g.code);
    }
    if (problems.size() > before)
        return false;
    Language_reader reader(pool, bytes, file, problems);
    for (const Given& g : given)
        reader.read(g, out);
    return problems.size() == before;
}

}
