#include "tools/check/Rule_parts.h"

namespace VT {
namespace Check {
namespace Rule_parts {

#define T(NAME) VT_obj_type::TYPE_##NAME

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

#undef T

}
}
}
