#include "tools/check/Rules.h"

#include "tools/check/Language_rules.h"
#include "tools/check/Rule_parts.h"

namespace VT {
namespace Check {

namespace Rule_parts {

#define T(NAME) VT_obj_type::TYPE_##NAME

unsigned type_of(const VT_obj* obj)
{
    return unsigned(obj->get_type());
}

bool number(const VT_obj* obj, const char* attribute, qint64& out)
{
    const int at = obj->find_attribute(attribute);
    const Attribute* a = at < 0 ? nullptr : obj->get_every_attribute(uint16_t(at));
    if (!a)
        return false;
    if (auto* v = dynamic_cast<const Attribute_uint8*>(a))
        out = v->get();
    else if (auto* v = dynamic_cast<const Attribute_uint16*>(a))
        out = v->get();
    else if (auto* v = dynamic_cast<const Attribute_uint32*>(a))
        out = v->get();
    else if (auto* v = dynamic_cast<const Attribute_int8*>(a))
        out = v->get();
    else if (auto* v = dynamic_cast<const Attribute_int16*>(a))
        out = v->get();
    else if (auto* v = dynamic_cast<const Attribute_int32*>(a))
        out = v->get();
    else
        return false;
    return true;
}

int count_of(const VT_obj* obj, const char* attribute)
{
    const int at = obj->find_attribute(attribute);
    auto* list = at < 0 ? nullptr : dynamic_cast<const _Attribute_list*>(obj->get_every_attribute(uint16_t(at)));
    return list ? int(list->get_length()) : -1;
}

uint16_t le16(const QByteArray& b, int at)
{
    return uint16_t(uchar(b[at]) | uchar(b[at + 1]) << 8);
}

QString a(const QString& name)
{
    return (QStringLiteral("AEIOU").contains(name.left(1)) ? QStringLiteral("an ") : QStringLiteral("a ")) + name;
}

QString hex(unsigned v)
{
    return QStringLiteral("0x") + QString::number(v, 16).toUpper().rightJustified(2, QLatin1Char('0'));
}

QVector<Named_reference> named(const QVector<Object_reference>& refs)
{
    static const char* const members[] = {"labelled_object", "string_variable", "graphic_representation"};
    QVector<Named_reference> out;
    out.reserve(refs.size());
    int member = 0;
    for (const Object_reference& r : refs) {
        if (r.attribute == "labelrefs")
            out.append({&r, r.attribute + "." + members[member++ % 3]});
        else
            out.append({&r, r.attribute});
    }
    return out;
}

bool is_foreign(unsigned owner, const QByteArray& attribute)
{
    // An external object pointer's value is an object of another working set's pool.
    return owner == T(EXTERNAL_OBJECT_POINTER) && attribute == "value";
}

#undef T

}

using namespace Rule_parts;

const std::vector<Rule>& rules()
{
    static const std::vector<Rule> all = {
        {"unique-id", Severity::error, "every object has an id of its own", unique_ids},
        {"one-working-set", Severity::error, "the pool has exactly one working set", one_working_set},
        {"missing-object", Severity::error, "every reference names an object of the pool", missing_objects},
        {"ref-type", Severity::error, "every reference names an object of a type its attribute accepts",
         reference_types},
        {"ref-required", Severity::error, "references an object cannot do without are not NULL", required_references},
        {"containment", Severity::error, "every child may be held by its parent", containment},
        {"cycle", Severity::error, "no object holds itself, through children or object pointers", cycles},
        {"event", Severity::error, "every event an object runs a macro on is one the object raises", events},
        {"macro-command", Severity::error, "every command of a macro is one a macro may hold, and whole",
         macro_commands},
        {"macro-target", Severity::error, "the objects a macro's commands name exist and fit the command",
         macro_targets},
        {"macro-reserved", Severity::warning, "reserved bytes of macro commands hold 0xFF", macro_reserved},
        {"range-order", Severity::error, "minimum values are not above maximum values", range_order},
        {"value-range", Severity::warning, "values lie inside their ranges, list indexes inside their lists",
         value_range},
        {"polygon-points", Severity::error, "polygons have at least 3 points", polygon_points},
        {"picture-size", Severity::error, "picture data fits the picture's size, format and run-length option",
         picture_size},
        {"language-code", Severity::error, "language codes are two lower-case letters", language_codes},
        {"text-missing", Severity::warning, "every text has a translation in each language the description declares",
         missing_texts},
        {"language-undeclared", Severity::warning, "the working set lists every language the description has "
                                                   "texts in", undeclared_languages},
        {"language-without-texts", Severity::warning, "every language the working set lists or the description "
                                                      "declares has texts", languages_without_texts},
        {"key-code", Severity::warning, "the keys of a soft key mask have key codes of their own", key_codes},
        {"unreachable", Severity::warning, "every object is reached from the working set, a mask, a macro or an "
                                           "auxiliary object", unreachable},
        {"vt-version", Severity::error, "nothing needs a VT version above the terminal's (--vt-version)", vt_version},
    };
    return all;
}

const Rule* find_rule(const QString& id)
{
    for (const Rule& r : rules())
        if (id == QLatin1String(r.id))
            return &r;
    return nullptr;
}

}
}
