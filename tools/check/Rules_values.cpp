#include "tools/check/Rule_parts.h"

namespace VT {
namespace Check {
namespace Rule_parts {

#define T(NAME) VT_obj_type::TYPE_##NAME

namespace {

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

namespace {

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
}
}
