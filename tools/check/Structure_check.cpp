#include "tools/check/Structure_check.h"

#include <QHash>
#include <QMap>

#include "tools/pool/Labels.h"
#include "tools/pool/Object_references.h"

namespace VT {

namespace {

// Whether any child is allowed under a parent type: parents without rules are not checked.
bool has_rules(unsigned parent)
{
    static QHash<unsigned, bool> cache;
    auto it = cache.constFind(parent);
    if (it != cache.constEnd())
        return *it;
    bool any = false;
    for (unsigned child = 0; child < 256 && !any; ++child)
        for (unsigned context = 0; context < 16 && !any; ++context)
            any = Base::VT_obj_relationships::get_child_allowed(VT_obj_type::type_t(parent), VT_obj_type::type_t(child),
                                                                context) != 0;
    // The configuration objects share one type byte: each kind is a type of its own.
    for (unsigned kind = VT_obj_type::TYPE_CONFIG_ICON; kind <= VT_obj_type::TYPE_CONFIG_TABLE && !any; kind += 256)
        any = Base::VT_obj_relationships::get_child_allowed(VT_obj_type::type_t(parent), VT_obj_type::type_t(kind),
                                                            0) != 0;
    cache.insert(parent, any);
    return any;
}

}

int Structure_check::type_version(unsigned type)
{
    // Each version added the types numbered after the last type of the version before.
    if (type <= VT_obj_type::TYPE_AUXILIARY_INPUT)
        return 2;
    if (type <= VT_obj_type::TYPE_AUXILIARY_TYPE2_CONTROL_DESIGNATOR)
        return 3;
    if (type <= VT_obj_type::TYPE_OBJECT_LABELREF_LIST)
        return 4;
    if (type <= VT_obj_type::TYPE_COLOUR_PALETTE)
        return 5;
    if (type <= VT_obj_type::TYPE_WORKING_SET_SPECIAL_CONTROLS)
        return 6;
    return 0;
}

Structure_check::Check_result Structure_check::check(Object_pool& pool, int vt_version)
{
    Check_result r;
    QHash<uint16_t, VT_obj*> seen;
    QMap<int, QStringList> needs; // version -> reasons
    for (VT_obj* obj : pool.objects()) {
        uint16_t id = obj->get_id();
        if (seen.contains(id))
            r.problems.append(
                QStringLiteral("%1 and %2 share id %3").arg(object_label(seen.value(id)), object_label(obj)).arg(id));
        seen.insert(id, obj);

        unsigned parent_type = obj->get_type();
        if (int v = type_version(parent_type & 0xFF))
            needs[v].append(QStringLiteral("%1: object type %2").arg(object_label(obj), type_name(parent_type)));
        bool rules = has_rules(parent_type);
        for (const Object_reference& ref : object_references(*obj)) {
            VT_obj* target = ref.id == VT_obj::NULL_ID ? nullptr : pool.find(ref.id);
            if (ref.kind == Object_reference::MACRO) {
                if (!target)
                    r.problems.append(QStringLiteral("%1: event macro refers to missing macro %2")
                                          .arg(object_label(obj))
                                          .arg(ref.id));
                else if (target->get_type() != VT_obj_type::TYPE_MACRO)
                    r.problems.append(QStringLiteral("%1: event macro refers to %2, which is not a macro")
                                          .arg(object_label(obj), object_label(target)));
                continue;
            }
            if (ref.id != VT_obj::NULL_ID && !target) {
                r.problems.append(QStringLiteral("%1: '%2' refers to missing object %3")
                                      .arg(object_label(obj), QString::fromUtf8(ref.attribute))
                                      .arg(ref.id));
                continue;
            }
            if (ref.kind != Object_reference::CHILD || !rules)
                continue;
            unsigned child_type = target ? unsigned(target->get_type()) : 255u;
            int allowed = Base::VT_obj_relationships::get_child_allowed(
                VT_obj_type::type_t(parent_type), VT_obj_type::type_t(child_type), unsigned(ref.attribute_index));
            if (allowed == 0) {
                r.problems.append(QStringLiteral("%1: %2 may not be a child of %3 (in '%4')")
                                      .arg(object_label(obj),
                                           target ? object_label(target) : QStringLiteral("the NULL object"),
                                           type_name(parent_type), QString::fromUtf8(ref.attribute)));
                continue;
            }
            needs[allowed].append(
                QStringLiteral("%1: child %2").arg(object_label(obj), target ? object_label(target) : "NULL"));
        }
    }
    if (!needs.isEmpty()) {
        r.needed_version = needs.lastKey();
        // One line per object, with everything that makes it need that version.
        QMap<QString, QStringList> per_object;
        QStringList order;
        for (const QString& reason : needs.last()) {
            int colon = reason.indexOf(QStringLiteral("): "));
            QString who = reason.left(colon + 1);
            if (!per_object.contains(who))
                order.append(who);
            per_object[who].append(reason.mid(colon + 3));
        }
        for (const QString& who : order)
            r.needing.append(who + ": " + per_object[who].join(", "));
    }
    if (vt_version > 0)
        for (auto it = needs.constBegin(); it != needs.constEnd(); ++it)
            if (it.key() > vt_version)
                for (const QString& reason : it.value())
                    r.problems.append(QStringLiteral("%1 needs VT version %2 (checking for %3)")
                                          .arg(reason)
                                          .arg(it.key())
                                          .arg(vt_version));
    return r;
}

}
