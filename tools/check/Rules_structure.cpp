#include "tools/check/Rule_parts.h"

namespace VT {
namespace Check {
namespace Rule_parts {

#define T(NAME) VT_obj_type::TYPE_##NAME

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

namespace {

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

#undef T

}
}
}
