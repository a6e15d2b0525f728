// The Spec_node through which the library reads the values of a description's elements
// (Description::make_node).
#include <QString>
#include <cstring>
#include <limits>

#include "tools/description/Description.h"
#include "tools/description/Values.h"

namespace VT {

namespace {

// The library's view of one element of a description.
class Description_node : public Spec_node
{
public:
    Description_node(Description& d, Xml_element* e) : d(d), e(e) {}

    Xml_element* element() const { return e; }

    int get_uint8(uint8_t* out, const char* n) override { return number(out, n, true); }
    int get_uint16(uint16_t* out, const char* n) override { return number(out, n, true); }
    int get_uint32(uint32_t* out, const char* n) override { return number(out, n, false); }
    int get_uint64(uint64_t* out, const char* n) override { return number(out, n, false); }
    int get_int8(int8_t* out, const char* n) override { return number(out, n, false); }
    int get_int16(int16_t* out, const char* n) override { return number(out, n, false); }
    int get_int32(int32_t* out, const char* n) override { return number(out, n, false); }
    int get_int64(int64_t* out, const char* n) override { return number(out, n, false); }

    int get_float(float* out, const char* n) override
    {
        const QByteArray* v = value(n);
        if (!v)
            return 0;
        bool ok = false;
        float f = v->trimmed().toFloat(&ok);
        if (!ok) {
            d.problem(e, QStringLiteral("'%1' of '%2' is not a number").arg(QString::fromUtf8(*v), QString(n)));
            return 0;
        }
        *out = f;
        return 1;
    }

    int get_text(char* buf, int size, const char* n) override
    {
        QByteArray bytes;
        if (!bytes_of(n, bytes) || !buf || size < 1)
            return 0;
        int k = std::min(bytes.size(), size - 1);
        memcpy(buf, bytes.constData(), size_t(k));
        buf[k] = 0;
        return 1;
    }

    int get_value_length(const char* n, scale_area_t) override
    {
        QByteArray bytes;
        return bytes_of(n, bytes) ? bytes.size() : -1;
    }

    bool has_value(const char* n, scale_area_t) override { return value(n) != nullptr; }

    void describe(char* buf, int size) override
    {
        if (!buf || size < 1)
            return;
        QByteArray text = d.where(e).toUtf8() + ": <" + e->name;
        if (const QByteArray* name = e->attribute("name"))
            text += " name='" + *name + "'";
        text += ">";
        int k = std::min(text.size(), size - 1);
        memcpy(buf, text.constData(), size_t(k));
        buf[k] = 0;
    }

    int count_children(const char* filter) override
    {
        int count = 0;
        for (const auto& c : e->children)
            count += matches(*c, filter);
        return count;
    }

    Spec_node* get_child(int index, const char* filter) override
    {
        if (index < 0)
            return nullptr;
        for (const auto& c : e->children)
            if (matches(*c, filter) && index-- == 0)
                return new Description_node(d, c.get());
        return nullptr;
    }

    uint16_t lookup_object_id(const char* n) override
    {
        QByteArray name(n ? n : "");
        if (name == "65535")
            return VT_obj::NULL_ID;
        uint16_t id = d.lookup_id(name);
        if (id == VT_obj::NULL_ID)
            d.note_unknown_reference(e, name);
        return id;
    }

    VT_obj* find_object(const char* n) override { return d.find_object(QByteArray(n ? n : "")); }

    VT_obj* get_object() override
    {
        if (e->object)
            return e->object;
        // A list item or attribute wrapper stands for the object defined inside it.
        if (e->is_list_item() || e->kind == Xml_element::ATTR_WRAPPER)
            for (const auto& c : e->children)
                if (c->is_object())
                    return c->object;
        return nullptr;
    }

    // The unknown name is reported where it is looked up (lookup_object_id).
    void report_unresolved() override {}

private:
    // "!Event_macro" (any "!" filter) selects the children that are objects or place/ref items;
    // a name selects the children of that element name; no filter selects all.
    static bool matches(const Xml_element& c, const char* filter)
    {
        if (!filter)
            return true;
        if (filter[0] == '!')
            return (c.is_object() || c.is_list_item()) && c.name != filter + 1;
        return c.name == filter;
    }

    // The value of `n`: a supplied one before the XML attribute; the attribute counts as used.
    const QByteArray* value(const char* n, bool* binary = nullptr)
    {
        const char* key = n ? n : "";
        const size_t len = strlen(key);
        Xml_attribute* a = e->find_attribute(key, len);
        if (a)
            a->used = true;
        for (const Xml_supplied& s : e->supplied)
            if (Values::same_key(s.key, key, len)) {
                if (binary)
                    *binary = s.binary;
                return &s.value;
            }
        if (binary)
            *binary = false;
        return a ? &a->value : nullptr;
    }

    // The bytes of a value: raw for byte strings and picture data, ISO 8859-1 for texts.
    bool bytes_of(const char* n, QByteArray& out)
    {
        bool binary = false;
        const QByteArray* v = value(n, &binary);
        if (!v)
            return false;
        // Raw bytes, and texts of plain ASCII (the same in UTF-8 and ISO 8859-1), are shared as
        // they are. A NUL ends a converted text, so texts holding one take the long way.
        bool plain = true;
        if (!binary)
            for (char c : *v)
                if (uchar(c) - 1u >= 0x7Fu) {
                    plain = false;
                    break;
                }
        if (plain) {
            out = *v;
            return true;
        }
        QString text = QString::fromUtf8(*v);
        for (QChar c : text)
            if (c.unicode() > 0xFF) {
                d.problem(e, QStringLiteral("text '%1' of '%2' has characters outside ISO 8859-1")
                                 .arg(text, QString(n)));
                break;
            }
        out = text.toLatin1();
        return true;
    }

    template <class T>
    int number(T* out, const char* n, bool names)
    {
        const char* key = n ? n : "";
        const QByteArray* v = value(key);
        // A language item gives its two characters as one code.
        if (!v && e->name == "Language" && (strcmp(key, "byte_1") == 0 || strcmp(key, "byte_2") == 0))
            if (const QByteArray* code = value("code")) {
                if (code->size() != 2) {
                    d.problem(e, QStringLiteral("language code '%1' must be two letters").arg(QString::fromUtf8(*code)));
                    return 0;
                }
                *out = T(uchar((*code)[key[5] == '1' ? 0 : 1]));
                return 1;
            }
        // A language pair gives each pair of characters as one code.
        if (!v && e->name == "Language_pair" && (strncmp(key, "language_", 9) == 0 || strncmp(key, "country_", 8) == 0))
            if (const QByteArray* code = value(key[0] == 'l' ? "language" : "country")) {
                if (code->size() != 2) {
                    d.problem(e, QStringLiteral("%1 code '%2' must be two letters")
                                     .arg(QString::fromLatin1(key[0] == 'l' ? "language" : "country"), QString::fromUtf8(*code)));
                    return 0;
                }
                *out = T(uchar((*code)[key[strlen(key) - 1] == '1' ? 0 : 1]));
                return 1;
            }
        if (!v)
            return 0;
        bool negative = false;
        quint64 magnitude = 0;
        if (!Values::parse_integer(*v, negative, magnitude)) {
            uint16_t id = names ? d.lookup_id(v->trimmed()) : VT_obj::NULL_ID;
            if (id == VT_obj::NULL_ID) {
                d.problem(e, QStringLiteral("'%1' of '%2' is not a number%3")
                                 .arg(QString::fromUtf8(*v), QString(key), names ? " nor an object name" : ""));
                return 0;
            }
            negative = false;
            magnitude = id;
        }
        typedef std::numeric_limits<T> lim;
        bool fits = negative ? (lim::is_signed && magnitude <= quint64(-(lim::min() + 1)) + 1)
                             : magnitude <= quint64(lim::max());
        if (!fits) {
            d.problem(e, QStringLiteral("'%1' of '%2' does not fit in %3 bits%4")
                             .arg(QString::fromUtf8(*v), QString(key))
                             .arg(int(sizeof(T) * 8))
                             .arg(lim::is_signed ? "" : " unsigned"));
            return 0;
        }
        *out = negative ? T(-qint64(magnitude - 1) - 1) : T(magnitude);
        return 1;
    }

    Description& d;
    Xml_element* e;
};

}

Spec_node* Description::make_node(Xml_element* e)
{
    return new Description_node(*this, e);
}

}
