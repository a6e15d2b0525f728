#ifndef TESTS_EVERY_TYPE_POOL_H
#define TESTS_EVERY_TYPE_POOL_H

// Pool bytes holding one object of every type that travels in pool files, with every attribute
// at a value other than the one a description leaves it at: made from the classes' own facts,
// so that a class or attribute added later is covered without a word here.

#include <QByteArray>
#include <QHash>
#include <cstring>

#include "tools/reference/Class_facts.h"

namespace test {

inline void append_le(QByteArray& out, quint64 v, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        out.append(char(v >> (8 * i)));
}

// Texts that XML must escape: one with a character from above ASCII, one with a control
// character that XML cannot hold at all, one in UTF-16 (zero bytes).
inline QByteArray every_type_text(unsigned type)
{
    switch (type % 4) {
    case 0: return QByteArray("\xFF\xFEH\x00i\x00", 6);
    case 3: return QByteArray("Say \"hi\" & <go>\tcaf\xE9\n");
    default: return QByteArray("bell\x07 ok");
    }
}

// `starts`, when given, receives where each object begins. The classes are those a pool of
// the form reads.
inline QByteArray every_type_pool(QVector<int>* starts = nullptr, VT::Vt6_objects form = VT::Vt6_objects::legacy)
{
    QVector<const VT::Class_facts*> classes;
    for (const VT::Class_facts* c : VT::all_class_facts())
        if (c->entry->in_form(form))
            classes.append(c);
    const int n = classes.size();
    auto id_of = [](int i) { return uint16_t(100 + i); };
    uint16_t macro = 0;
    for (int i = 0; i < n; ++i)
        if (classes[i]->type == VT::VT_obj_type::TYPE_MACRO)
            macro = id_of(i);

    QByteArray out;
    for (int i = 0; i < n; ++i) {
        const VT::Class_facts& c = *classes[i];
        // Another object of the pool for each reference, never the NULL id.
        int next_ref = i;
        auto reference = [&]() { return id_of(++next_ref % n); };
        // How many items each list, array and text gets: what its count says.
        QHash<QByteArray, int> items;
        for (const VT::Attribute_facts& f : c.attributes) {
            if (f.shape == VT::Attribute_facts::TEXT)
                items[f.name] = every_type_text(c.type).size();
            else if (f.shape == VT::Attribute_facts::ARRAY)
                items[f.name] = f.atype == VT::Attribute::ATTR_ARRAY_OBJECT_ID ? 0 : 6;
            else if (f.shape == VT::Attribute_facts::LIST)
                items[f.name] = 2;
        }
        for (const VT::Attribute_facts& f : c.attributes)
            if (f.shape == VT::Attribute_facts::COUNT && f.size == 0)
                items[f.counts] = 0; // a count that is not sent: its list stays empty

        if (starts)
            starts->append(out.size());
        append_le(out, id_of(i), 2);
        out.append(char(c.type & 0xFF));
        for (const VT::Attribute_facts& f : c.attributes) {
            if (!f.travels)
                continue;
            switch (f.shape) {
            case VT::Attribute_facts::COUNT: append_le(out, quint64(items.value(f.counts)), f.size); break;
            case VT::Attribute_facts::TEXT: out += every_type_text(c.type); break;
            case VT::Attribute_facts::ARRAY:
                for (int k = 0; k < items.value(f.name) * f.size; ++k)
                    out.append(char(0x11 * (k + 1)));
                break;
            case VT::Attribute_facts::LIST:
                for (int k = 0; k < items.value(f.name); ++k) {
                    if (f.item_element == "place") {
                        append_le(out, reference(), 2);
                        append_le(out, quint64(5 + k), 2);
                        append_le(out, quint64(-3 - k), 2);
                    } else if (f.item_element == "Event_macro") {
                        out.append(char(k ? 24 : 3));
                        out.append(char(k ? macro : 7));
                    } else if (f.item_element == "Language") {
                        out += k ? "de" : "en";
                    } else if (f.item_element == "Point") {
                        append_le(out, quint64(1 + k), 2);
                        append_le(out, quint64(40 - k), 2);
                    } else if (f.item_element == "Labelref") {
                        append_le(out, reference(), 2);
                        append_le(out, reference(), 2);
                        out.append(char(1 + k));
                        append_le(out, reference(), 2);
                    } else if (f.item_element == "Code_plane_rangeset") {
                        out.append(char(k));
                        out.append(char(1));
                        append_le(out, 0x20, 2);
                        append_le(out, quint64(0x7E - k), 2);
                    } else if (f.size == 2) {
                        append_le(out, reference(), 2); // an object id
                    }
                }
                break;
            case VT::Attribute_facts::SCALAR: {
                quint64 v = quint64(f.value_of(f.default_bytes));
                if (f.name == "extended_type") {
                    v = c.type >> 8; // the configuration objects' kind is their type
                } else if (c.type == VT::VT_obj_type::TYPE_PICTURE_GRAPHIC && f.name == "options") {
                    v = 0x05; // transparent and run-length coded: the data's length is its own
                } else if (f.atype == VT::Attribute::ATTR_OBJECT_ID) {
                    v = reference();
                } else if (f.atype == VT::Attribute::ATTR_FLOAT) {
                    const float x = 1.25f;
                    uint32_t bits = 0;
                    memcpy(&bits, &x, sizeof bits);
                    v = bits;
                } else if (!f.has_range || f.min < f.max) {
                    // The default plus one, or minus one at the top of the range (a range of one
                    // value leaves no other).
                    const qint64 s = f.value_of(f.default_bytes);
                    v = quint64(f.has_range && s + 1 > f.max ? s - 1 : s + 1);
                }
                append_le(out, v, f.size);
                break;
            }
            }
        }
    }
    return out;
}

}

#endif
