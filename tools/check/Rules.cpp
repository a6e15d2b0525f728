#include "tools/check/Rules.h"

#include <QMap>
#include <QSet>
#include <algorithm>
#include <cstring>

#include "tools/check/Language_rules.h"
#include "tools/check/Object_facts.h"

namespace VT {
namespace Check {

namespace {

#define T(NAME) VT_obj_type::TYPE_##NAME

unsigned type_of(const VT_obj* obj)
{
    return unsigned(obj->get_type());
}

// The value of a numeric attribute, by name.
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

// How many items a list or array attribute counts, -1 when the object has no such attribute.
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

// "a Container", "an Output_string"
QString a(const QString& name)
{
    return (QStringLiteral("AEIOU").contains(name.left(1)) ? QStringLiteral("an ") : QStringLiteral("a ")) + name;
}

// "0x0A"
QString hex(unsigned v)
{
    return QStringLiteral("0x") + QString::number(v, 16).toUpper().rightJustified(2, QLatin1Char('0'));
}

// A reference's attribute as the fact tables name it: the members of a label reference
// (labelled object, label, picture, in that order) as "labelrefs.<member>".
struct Named_reference
{
    const Object_reference* ref;
    QByteArray name;
};
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

// --- The rules ----------------------------------------------------------------------------

void unique_ids(Context& c)
{
    QHash<uint16_t, int> first;
    first.reserve(c.size());
    for (int i = 0; i < c.size() && !c.full(); ++i) {
        const uint16_t id = c.objects[i]->get_id();
        auto it = first.constFind(id);
        if (it == first.constEnd()) {
            first.insert(id, i);
            continue;
        }
        c.report(i, QString(), QString::number(id),
                 QStringLiteral("id %1 is already used by %2 (%3)").arg(id).arg(label(c.objects[*it]), c.location(*it).text()),
                 QStringLiteral("give each object an id of its own"));
    }
}

void missing_objects(Context& c)
{
    for (int i = 0; i < c.size() && !c.full(); ++i)
        for (const Object_reference& r : c.references(i)) {
            if (r.id == VT_obj::NULL_ID || c.find(r.id) || is_foreign(type_of(c.objects[i]), r.attribute))
                continue;
            const QString name = QString::fromUtf8(r.attribute);
            if (r.kind == Object_reference::MACRO)
                c.report(i, name, QString::number(r.id),
                         QStringLiteral("an event runs macro %1, which is not in the pool").arg(r.id),
                         QStringLiteral("add the macro, or remove the event"));
            else
                c.report(i, name, QString::number(r.id),
                         QStringLiteral("'%1' names object %2, which is not in the pool").arg(name).arg(r.id),
                         QStringLiteral("add the object, or name one that is in the pool"));
        }
}

void reference_types(Context& c)
{
    for (int i = 0; i < c.size() && !c.full(); ++i) {
        const unsigned owner = type_of(c.objects[i]);
        for (const Named_reference& n : named(c.references(i))) {
            VT_obj* target = c.find(n.ref->id);
            if (!target)
                continue;
            const QString name = QString::fromUtf8(n.name);
            if (n.ref->kind == Object_reference::MACRO) {
                if (type_of(target) != T(MACRO))
                    c.report(i, name, label(target), QStringLiteral("an event runs %1, which is not a Macro").arg(label(target)),
                             QStringLiteral("name a Macro object"));
                continue;
            }
            const Reference_fact* fact = reference_fact(owner, n.name.constData());
            if (fact && fact->accepted && !holds(fact->accepted, type_of(target)))
                c.report(i, name, label(target),
                         QStringLiteral("'%1' names %2, which is not %3").arg(name, label(target), a(type_names(fact->accepted))),
                         QString::fromLatin1(fact->hint));
        }
    }
}

void required_references(Context& c)
{
    for (int i = 0; i < c.size() && !c.full(); ++i) {
        const VT_obj* obj = c.objects[i];
        const unsigned owner = type_of(obj);
        for (const Named_reference& n : named(c.references(i))) {
            if (n.ref->id != VT_obj::NULL_ID || n.ref->kind == Object_reference::MACRO)
                continue;
            const Reference_fact* fact = reference_fact(owner, n.name.constData());
            if (!fact || fact->null == Null_rule::allowed)
                continue;
            const QString name = QString::fromUtf8(n.name);
            qint64 fill_type = 0;
            if (fact->null == Null_rule::not_with_pattern) {
                if (number(obj, "fill_type", fill_type) && fill_type == 3)
                    c.report(i, name, QStringLiteral("65535"),
                             QStringLiteral("fill_type 3 fills with a pattern, but '%1' names none").arg(name),
                             QString::fromLatin1(fact->hint));
                continue;
            }
            c.report(i, name, QStringLiteral("65535"),
                     QStringLiteral("'%1' names no object; %2 needs one").arg(name, a(type_name(owner))),
                     QString::fromLatin1(fact->hint));
        }
    }
}

// Whether the containment rules say anything about children of this type.
bool has_child_rules(unsigned parent)
{
    static QHash<unsigned, bool> known;
    auto it = known.constFind(parent);
    if (it != known.constEnd())
        return *it;
    bool any = false;
    const unsigned contexts[] = {0, 6, 7};
    for (unsigned child = 0; child < 256 && !any; ++child)
        for (unsigned context : contexts)
            any = any || Base::VT_obj_relationships::get_child_allowed(VT_obj_type::type_t(parent),
                                                                        VT_obj_type::type_t(child), context) != 0;
    for (unsigned kind = 1; kind <= 5 && !any; ++kind)
        any = Base::VT_obj_relationships::get_child_allowed(VT_obj_type::type_t(parent),
                                                            VT_obj_type::type_t(T(CONFIG) + 256 * kind), 0) != 0;
    known.insert(parent, any);
    return any;
}

int child_allowed(unsigned parent, unsigned child, const Object_reference& r)
{
    return Base::VT_obj_relationships::get_child_allowed(VT_obj_type::type_t(parent), VT_obj_type::type_t(child),
                                                         unsigned(r.attribute_index));
}

void containment(Context& c)
{
    for (int i = 0; i < c.size() && !c.full(); ++i) {
        const unsigned parent = type_of(c.objects[i]);
        if (!has_child_rules(parent))
            continue;
        for (const Object_reference& r : c.references(i)) {
            if (r.kind != Object_reference::CHILD)
                continue;
            VT_obj* child = c.find(r.id);
            if (!child && r.id != VT_obj::NULL_ID)
                continue; // not in the pool: missing-object says so
            const QString name = QString::fromUtf8(r.attribute);
            auto what = [&] { return child ? label(child) : QStringLiteral("the NULL object"); };
            if (child_allowed(parent, child ? type_of(child) : 255u, r) == 0) {
                c.report(i, name, what(),
                         QStringLiteral("'%1' holds %2, which %3 may not hold").arg(name, what(), a(type_name(parent))),
                         QStringLiteral("move it into an object that may hold it"));
                continue;
            }
            // An object pointer shows the object it points at in its place.
            auto* pointer = child && type_of(child) == T(OBJECT_POINTER) ? dynamic_cast<Base::Object_pointer_base_obj*>(child)
                                                                          : nullptr;
            VT_obj* shown = pointer ? c.find(pointer->get_value()) : nullptr;
            if (shown && child_allowed(parent, type_of(shown), r) == 0)
                c.report(i, name, label(shown),
                         QStringLiteral("'%1' holds %2, which points at %3, which %4 may not hold")
                             .arg(name, what(), label(shown), a(type_name(parent))),
                         QStringLiteral("point at an object %1 may hold").arg(a(type_name(parent))));
        }
    }
}

void one_working_set(Context& c)
{
    int first = -1;
    for (int i = 0; i < c.size() && !c.full(); ++i) {
        if (type_of(c.objects[i]) != T(WORKING_SET))
            continue;
        if (first < 0)
            first = i;
        else
            c.report(i, QString(), QString(),
                     QStringLiteral("a second Working_set; %1 (%2) is the first").arg(label(c.objects[first]), c.location(first).text()),
                     QStringLiteral("keep one working set: a terminal shows a pool through exactly one"));
    }
    if (first < 0)
        c.report(-1, QString(), QString(), QStringLiteral("the pool has no Working_set"),
                 QStringLiteral("add one: a terminal shows a pool through its working set and its active mask"));
}

// The objects an object holds or shows in its place: its children, and what its object
// pointers point at.
QVector<int> held_by(Context& c, int i)
{
    QVector<int> out;
    const unsigned type = type_of(c.objects[i]);
    for (const Object_reference& r : c.references(i)) {
        const bool holds_it = r.kind == Object_reference::CHILD ||
                              (type == T(OBJECT_POINTER) && r.attribute == "value") ||
                              (type == T(EXTERNAL_OBJECT_POINTER) && r.attribute == "default_object_id");
        if (VT_obj* target = holds_it ? c.find(r.id) : nullptr)
            out.append(c.index_of(target));
    }
    return out;
}

void cycles(Context& c)
{
    enum : char { unseen, open, done };
    QVector<char> state(c.size(), unseen);
    QSet<int> reported;
    struct Frame
    {
        int object;
        QVector<int> next;
        int at;
    };
    for (int root = 0; root < c.size(); ++root) {
        if (state[root] != unseen)
            continue;
        QVector<Frame> stack{{root, held_by(c, root), 0}};
        state[root] = open;
        while (!stack.isEmpty()) {
            Frame& f = stack.last();
            if (f.at == f.next.size()) {
                state[f.object] = done;
                stack.removeLast();
                continue;
            }
            const int n = f.next[f.at++];
            if (state[n] == unseen) {
                state[n] = open;
                stack.append({n, held_by(c, n), 0});
            } else if (state[n] == open && !reported.contains(n)) {
                // The path from n down the stack and back to n.
                QStringList path;
                bool on = false;
                for (const Frame& s : stack) {
                    on = on || s.object == n;
                    if (on)
                        path.append(label(c.objects[s.object]));
                }
                path.append(label(c.objects[n]));
                reported.insert(n);
                c.report(n, QString(), path.join(QStringLiteral(" > ")),
                         QStringLiteral("holds itself: %1").arg(path.join(QStringLiteral(" > "))),
                         QStringLiteral("a terminal cannot draw an object inside itself: break the loop"));
            }
        }
    }
}

void unreachable(Context& c)
{
    int working_sets = 0;
    for (VT_obj* obj : c.objects)
        working_sets += type_of(obj) == T(WORKING_SET);
    if (working_sets != 1)
        return; // one-working-set speaks for the pool
    QVector<char> reached(c.size(), 0);
    QVector<int> todo;
    auto reach = [&](VT_obj* obj) {
        const int n = obj ? c.index_of(obj) : -1;
        if (n >= 0 && !reached[n]) {
            reached[n] = 1;
            todo.append(n);
        }
    };
    for (VT_obj* obj : c.objects)
        if (is_root(type_of(obj)))
            reach(obj);
    while (!todo.isEmpty()) {
        const int i = todo.takeLast();
        for (const Object_reference& r : c.references(i))
            if (!is_foreign(type_of(c.objects[i]), r.attribute))
                reach(c.find(r.id));
        const QByteArray& bytes = c.macro_bytes(i);
        for (const Macro_command& m : c.commands(i)) {
            for (int f = 0; m.fact && f < 3 && m.fact->fields[f].offset; ++f) {
                const Macro_field& field = m.fact->fields[f];
                const int at = m.offset + field.offset;
                if (field.kind == Macro_field::macro_8 && at < bytes.size())
                    reach(c.find(uchar(bytes[at])));
                else if (field.kind != Macro_field::attribute_id && at + 1 < m.offset + m.length)
                    reach(c.find(le16(bytes, at)));
            }
            if (m.graphics && m.graphics->object.offset && m.offset + 5 < m.offset + m.length)
                reach(c.find(le16(bytes, m.offset + 4)));
        }
    }
    for (int i = 0; i < c.size() && !c.full(); ++i)
        // An object sharing its id with an earlier one cannot be reached by it: unique-id
        // speaks for it.
        if (!reached[i] && c.find(c.objects[i]->get_id()) == c.objects[i])
            c.report(i, QString(), QString(),
                     QStringLiteral("nothing reaches it from the working set, a mask, a macro or an auxiliary object"),
                     QStringLiteral("show it somewhere, or leave it out of the pool"));
}

void events(Context& c)
{
    for (int i = 0; i < c.size() && !c.full(); ++i) {
        VT_obj* obj = c.objects[i];
        const int at = obj->find_attribute("event_macro");
        auto* list = at < 0 ? nullptr
                            : dynamic_cast<Attribute_list<Attribute_event_macro>*>(obj->get_every_attribute(uint16_t(at)));
        for (uint32_t k = 0; list && k < list->held(); ++k) {
            const unsigned e = (*list)[k].get_event_id();
            const QString value = QString::number(e);
            switch (event_kind(e)) {
            case Event_kind::reserved:
                c.report(i, QStringLiteral("event_macro"), value, QStringLiteral("event %1 is reserved: no terminal raises it").arg(e),
                         QStringLiteral("use one of the events 1 to 28, or a proprietary one (240 to 254)"));
                break;
            case Event_kind::extended_reference:
                c.report(i, QStringLiteral("event_macro"), value,
                         QStringLiteral("event 255 starts an extended macro reference (a 16-bit macro id), which "
                                        "event entries of 2 bytes cannot hold"),
                         QStringLiteral("give the macro an id below 256 and name the event itself"));
                break;
            case Event_kind::defined:
                if (!raises(type_of(obj), e))
                    c.report(i, QStringLiteral("event_macro"), value,
                             QStringLiteral("%1 never raises %2").arg(a(type_name(type_of(obj))), QString::fromLatin1(event_name(e))),
                             QStringLiteral("%1 raises: %2").arg(a(type_name(type_of(obj))), events_of(type_of(obj))));
                break;
            case Event_kind::proprietary:
                break;
            }
        }
    }
}

void macro_commands(Context& c)
{
    for (int i = 0; i < c.size() && !c.full(); ++i) {
        const QByteArray& bytes = c.macro_bytes(i);
        for (const Macro_command& m : c.commands(i)) {
            if (m.fact && m.fact->in_macros && !m.unknown_graphics && !m.truncated)
                continue;
            const QString value = hex(uchar(bytes[m.offset]));
            const QString command =
                QStringLiteral("%1 at byte %2").arg(QString::fromLatin1(Macro_commands::describe(m))).arg(m.offset);
            if (!m.fact)
                c.report(i, QStringLiteral("bytes"), value,
                         QStringLiteral("byte %1: %2 is no command a terminal knows").arg(m.offset).arg(value),
                         QStringLiteral("start each command with its command byte (0xA0 to 0xBE)"));
            else if (!m.fact->in_macros)
                c.report(i, QStringLiteral("bytes"), value, QStringLiteral("%1: a macro may not hold this command").arg(command),
                         QStringLiteral("send it from the implement instead"));
            else if (m.unknown_graphics)
                c.report(i, QStringLiteral("bytes"), hex(uchar(bytes[m.offset + 3])),
                         QStringLiteral("%1: sub-command %2 is none a terminal knows").arg(command, hex(uchar(bytes[m.offset + 3]))),
                         QStringLiteral("use a sub-command from 0 to 20"));
            else if (m.truncated)
                c.report(i, QStringLiteral("bytes"), value,
                         QStringLiteral("%1: only %2 of its %3 bytes are there").arg(command).arg(m.length).arg(m.wanted),
                         QStringLiteral("complete the command (8 bytes for most, padded with 0xFF)"));
        }
    }
}

void macro_targets(Context& c)
{
    for (int i = 0; i < c.size() && !c.full(); ++i) {
        const QByteArray& bytes = c.macro_bytes(i);
        for (const Macro_command& m : c.commands(i)) {
            if (!m.fact || m.truncated || !m.fact->in_macros)
                continue;
            auto command = [&] {
                return QStringLiteral("%1 at byte %2").arg(QString::fromLatin1(Macro_commands::describe(m))).arg(m.offset);
            };
            auto check = [&](const Macro_field& field, VT_obj* first) {
                const int at = m.offset + field.offset;
                const QLatin1String what(field.what);
                if (field.kind == Macro_field::attribute_id) {
                    const unsigned aid = uchar(bytes[at]);
                    if (first && (aid == 0 || aid >= first->get_num_attributes_by_aid()))
                        c.report(i, QStringLiteral("bytes"), QString::number(aid),
                                 QStringLiteral("%1: %2 is %3, which %4 does not have")
                                     .arg(command(), what)
                                     .arg(aid)
                                     .arg(label(first)),
                                 QStringLiteral("%1 has attribute ids 1 to %2")
                                     .arg(a(type_name(type_of(first))))
                                     .arg(int(first->get_num_attributes_by_aid()) - 1));
                    return first;
                }
                const uint16_t id = field.kind == Macro_field::macro_8 ? uchar(bytes[at]) : le16(bytes, at);
                if (id == VT_obj::NULL_ID && field.kind == Macro_field::object_or_null)
                    return first;
                VT_obj* target = c.find(id);
                if (!target) {
                    c.report(i, QStringLiteral("bytes"), QString::number(id),
                             QStringLiteral("%1: %2 is object %3, which is not in the pool").arg(command(), what).arg(id),
                             QStringLiteral("name an object of the pool"));
                    return first;
                }
                const bool fits = field.with_attribute ? target->find_attribute(field.with_attribute) >= 0
                                                       : !field.accepted || holds(field.accepted, type_of(target));
                if (!fits)
                    c.report(i, QStringLiteral("bytes"), label(target),
                             QStringLiteral("%1: %2 is %3, but the command takes %4")
                                 .arg(command(), what, label(target),
                                      field.with_attribute ? QStringLiteral("an object with a %1").arg(field.with_attribute)
                                                           : a(type_names(field.accepted))),
                             QStringLiteral("name an object the command can change"));
                return first ? first : target;
            };
            VT_obj* first = nullptr;
            for (int f = 0; f < 3 && m.fact->fields[f].offset; ++f)
                first = check(m.fact->fields[f], first);
            if (m.graphics && m.graphics->object.offset)
                check(m.graphics->object, first);
        }
    }
}

void macro_reserved(Context& c)
{
    for (int i = 0; i < c.size() && !c.full(); ++i) {
        const QByteArray& bytes = c.macro_bytes(i);
        for (const Macro_command& m : c.commands(i)) {
            if (!m.fact || m.truncated)
                continue;
            for (int b = 1; b < m.length; ++b) {
                const uchar v = uchar(bytes[m.offset + b]);
                if ((m.fact->reserved >> b & 1) && v != 0xFF)
                    c.report(i, QStringLiteral("bytes"), hex(v),
                             QStringLiteral("%1 at byte %2: byte %3 is %4, but it is reserved and holds 0xFF")
                                 .arg(QString::fromLatin1(Macro_commands::describe(m)))
                                 .arg(m.offset)
                                 .arg(m.offset + b)
                                 .arg(hex(v)),
                             QStringLiteral("set it to FF"));
            }
        }
    }
}

// The value an object shows: its variable's, when it names one.
bool shown_value(Context& c, const VT_obj* obj, const char* value, const char* variable, qint64& out, QString& whose)
{
    qint64 ref = VT_obj::NULL_ID;
    const VT_obj* var = variable && number(obj, variable, ref) ? c.find(uint16_t(ref)) : nullptr;
    if (var && type_of(var) == T(NUMBER_VARIABLE) && number(var, "value", out)) {
        whose = QStringLiteral("its variable %1 holds").arg(label(var));
        return true;
    }
    whose = QStringLiteral("'%1' is").arg(QString::fromLatin1(value));
    return value && !var && number(obj, value, out);
}

void range_order(Context& c)
{
    for (int i = 0; i < c.size() && !c.full(); ++i)
        for (int f = 0; f < range_fact_count; ++f) {
            const Range_fact& r = range_facts[f];
            qint64 low = 0, high = 0;
            if (type_of(c.objects[i]) == r.type && number(c.objects[i], r.min, low) && number(c.objects[i], r.max, high) &&
                low > high)
                c.report(i, QString::fromLatin1(r.min), QString::number(low),
                         QStringLiteral("%1 %2 is above %3 %4").arg(r.min).arg(low).arg(r.max).arg(high),
                         QStringLiteral("swap them"));
        }
}

void value_range(Context& c)
{
    for (int i = 0; i < c.size() && !c.full(); ++i) {
        const VT_obj* obj = c.objects[i];
        for (int f = 0; f < range_fact_count; ++f) {
            const Range_fact& r = range_facts[f];
            qint64 low = 0, high = 0;
            if (type_of(obj) != r.type || !number(obj, r.min, low) || !number(obj, r.max, high) || low > high)
                continue;
            for (const Shown_value& s : r.shown) {
                qint64 v = 0;
                QString whose;
                if (s.value && shown_value(c, obj, s.value, s.variable, v, whose) && (v < low || v > high))
                    c.report(i, QString::fromLatin1(s.value), QString::number(v),
                             QStringLiteral("%1 %2, outside %3..%4").arg(whose).arg(v).arg(low).arg(high),
                             QStringLiteral("keep the value between %1 and %2").arg(r.min, r.max));
            }
        }
        for (int f = 0; f < index_fact_count; ++f) {
            const Index_fact& x = index_facts[f];
            qint64 v = 0;
            QString whose;
            const int items = type_of(obj) == x.type ? count_of(obj, x.list) : -1;
            if (items < 0 || !shown_value(c, obj, x.index, x.variable, v, whose) || v < items || v == x.none)
                continue;
            c.report(i, QString::fromLatin1(x.index), QString::number(v),
                     QStringLiteral("%1 %2, but '%3' holds %4 items").arg(whose).arg(v).arg(x.list).arg(items),
                     x.none >= 0 ? QStringLiteral("name an item from 0 to %1, or %2 for none").arg(items - 1).arg(x.none)
                                 : QStringLiteral("name an item from 0 to %1").arg(items - 1));
        }
    }
}

void polygon_points(Context& c)
{
    for (int i = 0; i < c.size() && !c.full(); ++i) {
        const int points = type_of(c.objects[i]) == T(POLYGON) ? count_of(c.objects[i], "points") : 3;
        if (points >= 0 && points < 3)
            c.report(i, QStringLiteral("points"), QString::number(points),
                     QStringLiteral("a polygon of %1 point%2; a terminal draws polygons of 3 or more").arg(points).arg(points == 1 ? "" : "s"),
                     QStringLiteral("give it at least 3 points, or draw a Line"));
    }
}

void picture_size(Context& c)
{
    for (int i = 0; i < c.size() && !c.full(); ++i) {
        VT_obj* obj = c.objects[i];
        if (auto* p = dynamic_cast<Base::Picture_graphic_obj*>(obj)) {
            const unsigned w = p->get_actual_width(), h = p->get_actual_height(), format = p->get_format();
            const bool runs = p->get_options() & 4;
            const qint64 n = p->get_num_bytes();
            if (w == 0 || h == 0) {
                c.report(i, QString::fromLatin1(w ? "actual_height" : "actual_width"), QStringLiteral("0"),
                         QStringLiteral("a picture of %1 x %2 pixels").arg(w).arg(h),
                         QStringLiteral("give the picture its size"));
                continue;
            }
            // Every row starts a fresh byte (or, run-length coded, a fresh run value), whatever
            // the pixels of the row before left over.
            const unsigned per_byte = format == 0 ? 8 : format == 1 ? 2 : 1;
            const qint64 per_row = (w + per_byte - 1) / per_byte;
            const QString shape = QStringLiteral("%1 x %2 at %3 bits a pixel").arg(w).arg(h).arg(8 / per_byte);
            if (!runs) {
                if (n != per_row * h)
                    c.report(i, QStringLiteral("num_bytes"), QString::number(n),
                             QStringLiteral("holds %1 bytes of pixels; %2 takes %3").arg(n).arg(shape).arg(per_row * h),
                             QStringLiteral("make the data fit the picture's size and format"));
                continue;
            }
            if (n % 2) {
                c.report(i, QStringLiteral("num_bytes"), QString::number(n),
                         QStringLiteral("run-length coded data of %1 bytes: runs are pairs of bytes").arg(n),
                         QStringLiteral("end the data on a whole run (count, value)"));
                continue;
            }
            const unsigned char* d = p->get_bytes();
            qint64 repeats = 0;
            for (qint64 k = 0; d && k + 1 < n; k += 2)
                repeats += d[k];
            if (repeats != per_row * h)
                c.report(i, QStringLiteral("bytes"), QString::number(repeats),
                         QStringLiteral("its runs give %1 rows and %2 pixels; %3 takes %4 rows")
                             .arg(repeats / per_row)
                             .arg(repeats % per_row * per_byte)
                             .arg(shape)
                             .arg(h),
                         QStringLiteral("encode the picture again"));
        } else if (auto* png = dynamic_cast<Base::PNG_obj*>(obj)) {
            const QByteArray data(reinterpret_cast<const char*>(png->get_bytes(0)), int(png->get_num_bytes()));
            static const QByteArray signature("\x89PNG\r\n\x1a\n", 8);
            if (!data.startsWith(signature) || data.size() < 24 || data.mid(12, 4) != "IHDR") {
                c.report(i, QStringLiteral("bytes"), QString::number(data.size()),
                         QStringLiteral("its %1 bytes are not a PNG file").arg(data.size()),
                         QStringLiteral("give it the bytes of a PNG file"));
                continue;
            }
            auto be32 = [&](int at) {
                return quint32(uchar(data[at])) << 24 | quint32(uchar(data[at + 1])) << 16 | quint32(uchar(data[at + 2])) << 8 |
                       quint32(uchar(data[at + 3]));
            };
            if (be32(16) != png->get_actual_width() || be32(20) != png->get_actual_height())
                c.report(i, QStringLiteral("actual_width"), QStringLiteral("%1 x %2").arg(png->get_actual_width()).arg(png->get_actual_height()),
                         QStringLiteral("its PNG is %1 x %2 pixels, not the %3 x %4 it states")
                             .arg(be32(16))
                             .arg(be32(20))
                             .arg(png->get_actual_width())
                             .arg(png->get_actual_height()),
                         QStringLiteral("state the PNG's own size"));
        }
    }
}

void language_codes(Context& c)
{
    for (int i = 0; i < c.size() && !c.full(); ++i) {
        auto* ws = dynamic_cast<Base::Working_set_obj*>(c.objects[i]);
        for (unsigned k = 0; ws && k < ws->get_num_languages(); ++k) {
            const char code[3] = {char(ws->get_languages_byte_1(k)), char(ws->get_languages_byte_2(k)), 0};
            auto lower = [](char ch) { return ch >= 'a' && ch <= 'z'; };
            if (!lower(code[0]) || !lower(code[1]))
                c.report(i, QStringLiteral("languages"), QString::fromLatin1(code, 2),
                         QStringLiteral("language %1 is '%2', not two lower-case letters").arg(k + 1).arg(QString::fromLatin1(code, 2)),
                         QStringLiteral("use the ISO 639 code in lower case, such as en or de"));
        }
    }
}

void key_codes(Context& c)
{
    for (int i = 0; i < c.size() && !c.full(); ++i) {
        auto* mask = dynamic_cast<Base::Soft_key_mask_obj*>(c.objects[i]);
        QMap<unsigned, VT_obj*> seen;
        for (unsigned k = 0; mask && k < mask->get_num_objects(); ++k) {
            VT_obj* key = c.find(mask->get_child_objects(k));
            if (auto* pointer = dynamic_cast<Base::Object_pointer_base_obj*>(key))
                key = c.find(pointer->get_value());
            auto* as_key = dynamic_cast<Base::Key_obj*>(key);
            if (!as_key)
                continue;
            const unsigned code = as_key->get_key_code();
            if (VT_obj* other = seen.value(code, nullptr)) {
                if (other != key)
                    c.report(i, QStringLiteral("child_objects"), QString::number(code),
                             QStringLiteral("%1 and %2 both have key code %3").arg(label(other), label(key)).arg(code),
                             QStringLiteral("give each key of a soft key mask its own key code"));
            } else {
                seen.insert(code, key);
            }
        }
    }
}

// Every reason object i needs a VT version for: its type, the children it holds, the values of
// its attributes, the commands in its bytes. `need` is given the version, the attribute (or
// null) and how to say why, which is asked only when the reason is shown.
template <class Need>
void needs_of(Context& c, int i, Need&& need)
{
    const VT_obj* obj = c.objects[i];
    const unsigned type = type_of(obj);
    if (int v = type_version(type & 0xFF))
        need(v, nullptr, [&] { return QStringLiteral("object type %1").arg(type_name(type)); });
    if (has_child_rules(type))
        for (const Object_reference& r : c.references(i)) {
            VT_obj* child = c.find(r.id);
            if (r.kind != Object_reference::CHILD || (!child && r.id != VT_obj::NULL_ID))
                continue;
            if (int v = child_allowed(type, child ? type_of(child) : 255u, r))
                need(v, r.attribute.constData(), [&] {
                    return QStringLiteral("holding %1").arg(child ? label(child) : QStringLiteral("the NULL object"));
                });
        }
    for (int f = 0; f < value_version_count; ++f) {
        const Value_version& v = value_versions[f];
        qint64 value = 0;
        if (v.type == type && number(obj, v.attribute, value) && (value & v.bits))
            need(v.version, v.attribute, [&] { return QString::fromLatin1(v.meaning); });
    }
    for (const Macro_command& m : c.commands(i))
        if (m.fact && m.fact->in_macros)
            need(m.fact->version, "bytes",
                 [&] { return QStringLiteral("%1 in its bytes").arg(QString::fromLatin1(Macro_commands::describe(m))); });
}

void vt_version(Context& c)
{
    int needed = 0;
    for (int i = 0; i < c.size(); ++i)
        needs_of(c, i, [&](int v, const char*, const auto&) { needed = std::max(needed, v); });
    c.result.needed_version = needed;
    const int terminal = c.options.vt_version;
    for (int i = 0; i < c.size() && !c.full(); ++i) {
        // What decides the version, one entry per object with all its reasons (not for version
        // 2, where every object would be one), and what the terminal lacks.
        QStringList reasons;
        needs_of(c, i, [&](int v, const char* attribute, const auto& why) {
            if (v == needed && needed > 2 && !reasons.contains(why()))
                reasons.append(why());
            if (terminal > 0 && v > terminal)
                c.report(i, QString::fromLatin1(attribute), QString::number(v),
                         QStringLiteral("%1 needs VT version %2 (checking for %3)").arg(why()).arg(v).arg(terminal),
                         QStringLiteral("leave it out for this terminal, or build for a terminal of VT version %1").arg(v));
        });
        if (!reasons.isEmpty())
            c.result.deciding.append({needed, label(c.objects[i]), reasons.join(QStringLiteral(", ")), c.location(i)});
    }
}

#undef T

}

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
