#include "tools/check/Rule_parts.h"

namespace VT {
namespace Check {
namespace Rule_parts {

#define T(NAME) VT_obj_type::TYPE_##NAME

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
    // The library's containment table knows no scaled graphic (type 48, ISO form only): it may
    // stand wherever a graphic data object (type 46) may.
    if (child == T(SCALED_GRAPHIC))
        child = T(PNG);
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

#undef T

}
}
}
