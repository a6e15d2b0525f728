#ifndef TOOLS_CHECK_RULE_PARTS_H
#define TOOLS_CHECK_RULE_PARTS_H

// The rules of the check, by what they look at, and what they share. Rules.cpp lists them
// and holds the helpers below; each rule is in the file its comment names.

#include <QMap>
#include <QSet>
#include <algorithm>
#include <cstring>

#include "tools/check/Object_facts.h"
#include "tools/check/Rules.h"

namespace VT {
namespace Check {
namespace Rule_parts {

unsigned type_of(const VT_obj* obj);
// The value of a numeric attribute, by name.
bool number(const VT_obj* obj, const char* attribute, qint64& out);
// How many items a list or array attribute counts, -1 when the object has no such attribute.
int count_of(const VT_obj* obj, const char* attribute);
uint16_t le16(const QByteArray& b, int at);
// "a Container", "an Output_string"
QString a(const QString& name);
// "0x0A"
QString hex(unsigned v);

// A reference's attribute as the fact tables name it: the members of a label reference
// (labelled object, label, picture, in that order) as "labelrefs.<member>".
struct Named_reference
{
    const Object_reference* ref;
    QByteArray name;
};
QVector<Named_reference> named(const QVector<Object_reference>& refs);
// Whether a reference names an object of another working set's pool.
bool is_foreign(unsigned owner, const QByteArray& attribute);
// Whether the containment rules say anything about children of this type, and what they say
// of a child of type `child` held through reference `r` (Rules_references.cpp).
bool has_child_rules(unsigned parent);
int child_allowed(unsigned parent, unsigned child, const Object_reference& r);

// Rules_references.cpp: ids and references.
void unique_ids(Context& c);
void missing_objects(Context& c);
void reference_types(Context& c);
void required_references(Context& c);
void containment(Context& c);
// Rules_structure.cpp: the shape of the pool as a whole.
void one_working_set(Context& c);
void cycles(Context& c);
void unreachable(Context& c);
// Rules_macros.cpp: events and macros.
void events(Context& c);
void macro_commands(Context& c);
void macro_targets(Context& c);
void macro_reserved(Context& c);
// Rules_values.cpp: values, pictures, language and key codes, VT versions.
void range_order(Context& c);
void value_range(Context& c);
void polygon_points(Context& c);
void picture_size(Context& c);
void language_codes(Context& c);
void key_codes(Context& c);
void vt_version(Context& c);

}
}
}

#endif
