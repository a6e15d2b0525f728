#include "tools/Description.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QXmlStreamReader>
#include <cstring>
#include <iostream>
#include <iterator>
#include <limits>
#include <sstream>
#include <string_view>
#include <unordered_map>

#include "tools/Object_factory.h"
#include "tools/Picture_encoder.h"
#include "tools/Pool_tools.h"

namespace VT {

namespace {

const int MAX_DEPTH = 64;
const uint16_t NULL_ID = 65535; // the NULL object id

// Elements that are parts of an object rather than objects.
const char* const item_names[] = {"place", "ref", "Event_macro", "Language", "Point", "Labelref",
                                  "Code_plane_range", "Code_plane_rangeset", "Editable"};

// Hangs a freshly read element into the tree: the root when nothing is open, else the last
// child of the innermost open element. Returns the element, now owned by the tree.
Xml_element* adopt(std::unique_ptr<Xml_element> element, std::unique_ptr<Xml_element>& root,
                   const std::vector<Xml_element*>& open)
{
    Xml_element* raw = element.get();
    if (open.empty()) {
        root = std::move(element);
    } else {
        raw->parent = open.back();
        open.back()->children.push_back(std::move(element));
    }
    return raw;
}

bool is_item_name(const QByteArray& n)
{
    for (const char* item : item_names)
        if (n == item)
            return true;
    return false;
}

bool is_attr_wrapper(const QByteArray& n)
{
    return n.startsWith("attr_");
}

// Attributes given as hexadecimal byte strings.
bool is_byte_string(const QByteArray& key)
{
    return key == "bytes" || key == "colours" || key == "data";
}

bool is_type_name(const QByteArray& n)
{
    for (unsigned t = 0; t < 48; ++t)
        if (n == VT_obj_type::get_type_string(VT_obj_type::type_t(t)))
            return true;
    for (unsigned t : {241u, 242u, 243u, 244u, 245u, 246u + 256, 246u + 512, 246u + 768, 246u + 1024, 246u + 1280})
        if (n == VT_obj_type::get_type_string(VT_obj_type::type_t(t)))
            return true;
    return false;
}

struct Symbol
{
    const char* name;
    int value;
};
// Symbolic values accepted wherever a number is.
const Symbol symbols[] = {{"MONOCHROME", 0}, {"FOUR_BIT_COLOUR", 1}, {"EIGHT_BIT_COLOUR", 2},
                          {"false", 0},      {"true", 1}};

// Whitespace as QByteArray::trimmed() and simplified() see it.
inline bool is_space(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// The value of each hexadecimal digit, -1 for other characters (picture data is long).
struct Hex_digits
{
    signed char value[256];
    constexpr Hex_digits() : value()
    {
        for (int i = 0; i < 256; ++i)
            value[i] = -1;
        for (int i = 0; i < 10; ++i)
            value['0' + i] = char(i);
        for (int i = 0; i < 6; ++i)
            value['a' + i] = value['A' + i] = char(10 + i);
    }
};
constexpr Hex_digits hex_digits;

inline int hex_digit(char c)
{
    return hex_digits.value[uchar(c)];
}

// Parses decimal or 0x-hexadecimal integers with an optional sign and surrounding whitespace,
// and the symbols above. Works on the bytes in place: numbers are read for every attribute.
bool parse_integer(const QByteArray& raw, bool& negative, quint64& magnitude)
{
    const char* p = raw.constData();
    const char* end = p + raw.size();
    while (p < end && is_space(*p))
        ++p;
    while (end > p && is_space(end[-1]))
        --end;
    const size_t len = size_t(end - p);
    for (const Symbol& s : symbols)
        if (strlen(s.name) == len && memcmp(s.name, p, len) == 0) {
            negative = false;
            magnitude = quint64(s.value);
            return true;
        }
    negative = false;
    if (p < end && (*p == '-' || *p == '+')) {
        negative = *p == '-';
        ++p;
    }
    unsigned base = 10;
    if (end - p >= 2 && p[0] == '0' && (p[1] == 'x' || p[1] == 'X')) {
        base = 16;
        p += 2;
    }
    if (p == end)
        return false;
    quint64 m = 0;
    for (; p < end; ++p) {
        int digit = base == 16 ? hex_digit(*p) : (*p >= '0' && *p <= '9' ? *p - '0' : -1);
        if (digit < 0)
            return false;
        if (m > (std::numeric_limits<quint64>::max() - quint64(digit)) / base)
            return false; // does not fit in 64 bits
        m = m * base + quint64(digit);
    }
    magnitude = m;
    return true;
}

// Decodes "A0 05 ff", "0xA0,0x05" or "A005ff" into bytes: tokens separated by whitespace or
// commas, each an optional 0x and an even number of hexadecimal digits.
bool decode_hex(const QByteArray& text, QByteArray& out)
{
    QByteArray bytes(text.size() / 2, Qt::Uninitialized); // never more than this
    char* to = bytes.data();
    const char* p = text.constData();
    const char* end = p + text.size();
    while (p < end) {
        if (is_space(*p) || *p == ',') {
            ++p;
            continue;
        }
        const char* t = p;
        while (p < end && !is_space(*p) && *p != ',')
            ++p;
        if (p - t >= 2 && t[0] == '0' && (t[1] == 'x' || t[1] == 'X'))
            t += 2;
        if (t == p || (p - t) % 2)
            return false;
        for (; t < p; t += 2) {
            int high = hex_digit(t[0]);
            int low = hex_digit(t[1]);
            if (high < 0 || low < 0)
                return false;
            *to++ = char(high << 4 | low);
        }
    }
    bytes.truncate(int(to - bytes.constData()));
    out = bytes;
    return true;
}

inline bool same_key(const QByteArray& key, const char* text, size_t len)
{
    return size_t(key.size()) == len && memcmp(key.constData(), text, len) == 0;
}

// Characters that stand for themselves in any XML attribute value: printable ASCII apart from
// quotes, '&' and '<'.
struct Plain_chars
{
    bool plain[256];
    constexpr Plain_chars() : plain()
    {
        for (int c = 0x20; c < 0x80; ++c)
            plain[c] = c != '"' && c != '\'' && c != '&' && c != '<';
    }
};
constexpr Plain_chars plain_chars;

// A reader for the plain XML that descriptions are written in: UTF-8, an optional XML
// declaration, elements with attributes, whitespace between them and comments. It gives the
// same elements, values and lines as QXmlStreamReader, only without its detour through UTF-16,
// and gives up (null) on everything else: other encodings, DOCTYPE, CDATA, processing
// instructions, namespaces, text, carriage returns, entities beyond the predefined five, and
// every error. The text is then read again with QXmlStreamReader, so what it reports stays
// exactly what the general reader says.
class Plain_xml_reader
{
public:
    explicit Plain_xml_reader(const QByteArray& xml) : p(xml.constData()), end(p + xml.size()) {}

    std::unique_ptr<Xml_element> read()
    {
        if (!declaration())
            return nullptr;
        // Whitespace outside the root element is no token of its own, so the root is given the
        // line where the token before it (declaration or comment) ended.
        int token_line = line;
        std::unique_ptr<Xml_element> root;
        std::vector<Xml_element*> open;
        while (true) {
            skip_space();
            if (p == end)
                break;
            if (*p != '<' || end - p < 2)
                return nullptr;
            if (p[1] == '!') {
                if (!comment())
                    return nullptr;
                token_line = line;
            } else if (p[1] == '/') {
                if (open.empty() || !end_tag(open.back()->name))
                    return nullptr;
                open.pop_back();
            } else {
                if ((root && open.empty()) || open.size() >= size_t(MAX_DEPTH))
                    return nullptr; // a second root, or nested too deeply: left to the full reader
                // Inside the root, whitespace before a tag is a token ending where the tag begins.
                auto element = std::make_unique<Xml_element>();
                element->line = open.empty() ? token_line : line;
                bool empty = false;
                if (!start_tag(*element, empty))
                    return nullptr;
                Xml_element* raw = adopt(std::move(element), root, open);
                if (!empty)
                    open.push_back(raw);
            }
        }
        return open.empty() ? std::move(root) : nullptr;
    }

private:
    static bool is_name_start(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }
    static bool is_name_char(char c) { return is_name_start(c) || (c >= '0' && c <= '9') || c == '-' || c == '.'; }

    void skip_space()
    {
        for (; p < end && (*p == ' ' || *p == '\n' || *p == '\t'); ++p)
            line += *p == '\n';
    }

    bool starts_with(const char* text) const
    {
        const size_t n = strlen(text);
        return size_t(end - p) >= n && memcmp(p, text, n) == 0;
    }

    // A name as read, and the kind of element it names once that is known.
    struct Name
    {
        QByteArray text;
        int kind = -1;
    };

    // A plain ASCII name; names of elements and keys repeat, so each is held once.
    Name* name()
    {
        const char* start = p;
        if (p == end || !is_name_start(*p))
            return nullptr;
        while (p < end && is_name_char(*p))
            ++p;
        const std::string_view text(start, size_t(p - start));
        auto it = names.find(text);
        if (it == names.end())
            it = names.emplace(text, Name{QByteArray(start, int(text.size()))}).first;
        return &it->second;
    }

    // The length of the UTF-8 sequence at `s` when it encodes a character XML allows, else 0.
    static int utf8_length(const char* s, const char* limit)
    {
        const uchar c = uchar(*s);
        int n = c >= 0xF0 ? 4 : c >= 0xE0 ? 3 : c >= 0xC0 ? 2 : 0;
        if (n == 0 || c > 0xF4 || limit - s < n)
            return 0;
        uint32_t code = c & (0x7F >> n);
        for (int i = 1; i < n; ++i) {
            const uchar k = uchar(s[i]);
            if ((k & 0xC0) != 0x80)
                return 0;
            code = code << 6 | (k & 0x3F);
        }
        static const uint32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
        return code >= least[n] && allowed(code) ? n : 0;
    }

    static bool allowed(uint32_t code)
    {
        return code == 0x9 || code == 0xA || code == 0xD || (code >= 0x20 && code <= 0xD7FF) ||
               (code >= 0xE000 && code <= 0xFFFD) || (code >= 0x10000 && code <= 0x10FFFF);
    }

    // "&...;" at p, appended decoded.
    bool entity(QByteArray& out)
    {
        static const struct
        {
            const char* text;
            char c;
        } predefined[] = {{"&lt;", '<'}, {"&gt;", '>'}, {"&amp;", '&'}, {"&quot;", '"'}, {"&apos;", '\''}};
        for (const auto& e : predefined)
            if (starts_with(e.text)) {
                out += e.c;
                p += strlen(e.text);
                return true;
            }
        if (!starts_with("&#"))
            return false;
        p += 2;
        unsigned base = 10;
        if (p < end && *p == 'x') {
            base = 16;
            ++p;
        }
        uint32_t code = 0;
        int digits = 0;
        for (; p < end && *p != ';'; ++p, ++digits) {
            const int d = base == 16 ? hex_digit(*p) : (*p >= '0' && *p <= '9' ? *p - '0' : -1);
            if (d < 0 || digits >= 7)
                return false;
            code = code * base + uint32_t(d);
        }
        if (p == end || digits == 0 || !allowed(code))
            return false;
        ++p;
        const uint ucs4 = code;
        out += QString::fromUcs4(&ucs4, 1).toUtf8();
        return true;
    }

    // A quoted attribute value; tabs and line breaks in it read as spaces.
    bool value(QByteArray& out)
    {
        const char quote = *p++;
        const char* start = p;
        while (p < end && plain_chars.plain[uchar(*p)])
            ++p;
        out = QByteArray(start, int(p - start));
        while (p < end && *p != quote) {
            const char c = *p;
            if (c == '"' || c == '\'') {
                out += c; // the other quote
                ++p;
            } else if (c == '&') {
                if (!entity(out))
                    return false;
            } else if (c == '\t' || c == '\n') {
                line += c == '\n';
                out += ' ';
                ++p;
            } else if (uchar(c) >= 0x80) {
                const int n = utf8_length(p, end);
                if (n == 0)
                    return false;
                out.append(p, n);
                p += n;
            } else if (c == '<' || uchar(c) < 0x20) {
                return false;
            } else {
                out += c;
                ++p;
            }
        }
        if (p == end)
            return false;
        ++p;
        return true;
    }

    bool start_tag(Xml_element& e, bool& empty)
    {
        ++p;
        Name* element_name = name();
        if (!element_name)
            return false;
        if (element_name->kind < 0) {
            e.set_name(element_name->text);
            element_name->kind = e.kind;
        } else {
            e.name = element_name->text;
            e.kind = Xml_element::Kind(element_name->kind);
        }
        // Collected apart, so that each element's own list is allocated once at its size.
        std::vector<Xml_attribute>& list = attributes;
        list.clear();
        while (true) {
            const char* before = p;
            skip_space();
            if (p == end)
                return false;
            if (*p == '>' || *p == '/') {
                empty = *p == '/';
                p += empty ? 1 : 0;
                if (p == end || *p++ != '>')
                    return false;
                e.attributes.assign(std::make_move_iterator(list.begin()), std::make_move_iterator(list.end()));
                return true;
            }
            Xml_attribute a;
            // Attributes are set apart by whitespace; names starting "xml" may be namespace
            // declarations, which the full reader handles.
            const Name* key = p == before ? nullptr : name();
            if (!key || key->text.startsWith("xml"))
                return false;
            a.key = key->text;
            skip_space();
            if (p == end || *p != '=')
                return false;
            ++p;
            skip_space();
            if (p == end || (*p != '"' && *p != '\'') || !value(a.value))
                return false;
            for (const Xml_attribute& other : list)
                if (other.key == a.key)
                    return false;
            list.push_back(std::move(a));
        }
    }

    bool end_tag(const QByteArray& open_name)
    {
        p += 2;
        const size_t n = size_t(open_name.size());
        if (size_t(end - p) < n || memcmp(p, open_name.constData(), n) != 0)
            return false;
        p += n;
        skip_space();
        return p < end && *p++ == '>';
    }

    // "<!--" ... "-->" with no "--" inside and only characters XML allows.
    bool comment()
    {
        if (!starts_with("<!--"))
            return false;
        for (p += 4; p < end;) {
            const char c = *p;
            if (c == '-' && end - p >= 2 && p[1] == '-') {
                if (end - p < 3 || p[2] != '>')
                    return false;
                p += 3;
                return true;
            }
            if (uchar(c) >= 0x80) {
                const int n = utf8_length(p, end);
                if (n == 0)
                    return false;
                p += n;
            } else {
                if (uchar(c) < 0x20 && c != '\t' && c != '\n')
                    return false;
                line += c == '\n';
                ++p;
            }
        }
        return false;
    }

    // An optional '<?xml version="1.0" [encoding="UTF-8"] [standalone="yes|no"]?>' at the start.
    bool declaration()
    {
        if (!starts_with("<?"))
            return true;
        if (!starts_with("<?xml") || end - p < 6 || (p[5] != ' ' && p[5] != '\t' && p[5] != '\n'))
            return false;
        p += 5;
        static const char* const keys[] = {"version", "encoding", "standalone"};
        int next = 0; // the keys come in this order, version first
        while (true) {
            const char* before = p;
            skip_space();
            if (starts_with("?>")) {
                p += 2;
                return next > 0;
            }
            const Name* key = p == before ? nullptr : name();
            if (!key)
                return false;
            int k = next;
            while (k < 3 && key->text != keys[k])
                ++k;
            if (k == 3 || (next == 0 && k != 0))
                return false;
            next = k + 1;
            skip_space();
            if (p == end || *p++ != '=')
                return false;
            skip_space();
            if (p == end || (*p != '"' && *p != '\''))
                return false;
            const char quote = *p++;
            const char* start = p;
            while (p < end && *p != quote && (is_name_char(*p)))
                ++p;
            if (p == end || *p != quote)
                return false;
            const QByteArray text = QByteArray::fromRawData(start, int(p++ - start));
            const bool fine = k == 0   ? text == "1.0"
                              : k == 1 ? text.toLower() == "utf-8"
                                       : text == "yes" || text == "no";
            if (!fine)
                return false;
        }
    }

    const char* p;
    const char* const end;
    int line = 1;
    std::unordered_map<std::string_view, Name> names;
    std::vector<Xml_attribute> attributes; // of the start tag being read
};

Description* current_description = nullptr;

}

void Xml_element::set_name(const QByteArray& element_name)
{
    name = element_name;
    if (name == "place" || name == "ref")
        kind = LIST_ITEM;
    else if (is_item_name(name))
        kind = ITEM;
    else if (is_attr_wrapper(name))
        kind = ATTR_WRAPPER;
    else if (name == "colour")
        kind = COLOUR;
    else if (name == "object_pool")
        kind = POOL;
    else
        kind = OBJECT;
}

const Xml_attribute* Xml_element::find_attribute(const char* key, size_t len) const
{
    for (const Xml_attribute& a : attributes)
        if (same_key(a.key, key, len))
            return &a;
    return nullptr;
}

Xml_attribute* Xml_element::find_attribute(const char* key, size_t len)
{
    return const_cast<Xml_attribute*>(static_cast<const Xml_element*>(this)->find_attribute(key, len));
}

const QByteArray* Xml_element::attribute(const char* key) const
{
    const Xml_attribute* a = find_attribute(key, strlen(key));
    return a ? &a->value : nullptr;
}

void Xml_element::mark_used(const char* key)
{
    if (Xml_attribute* a = find_attribute(key, strlen(key)))
        a->used = true;
}

void Xml_element::supply(const char* key, const QByteArray& value, bool binary)
{
    const size_t len = strlen(key);
    for (Xml_supplied& s : supplied)
        if (same_key(s.key, key, len)) {
            s.value = value;
            s.binary = binary;
            return;
        }
    supplied.push_back({QByteArray(key, int(len)), value, binary});
}

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
            return NULL_ID;
        uint16_t id = d.lookup_id(name);
        if (id == NULL_ID)
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
            if (same_key(s.key, key, len)) {
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
        if (!v)
            return 0;
        bool negative = false;
        quint64 magnitude = 0;
        if (!parse_integer(*v, negative, magnitude)) {
            uint16_t id = names ? d.lookup_id(v->trimmed()) : NULL_ID;
            if (id == NULL_ID) {
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

Description::Description() = default;
Description::~Description() = default;

QString Description::where(const Xml_element* e) const
{
    return e ? QStringLiteral("%1:%2").arg(file).arg(e->line) : file;
}

void Description::problem(const Xml_element* e, const QString& text)
{
    QString line = where(e) + ": " + text;
    if (!problem_list.contains(line))
        problem_list.append(line);
}

void Description::warning(const Xml_element* e, const QString& text)
{
    QString line = where(e) + ": " + text;
    if (!warning_list.contains(line))
        warning_list.append(line);
}

Spec_node* Description::make_node(Xml_element* e)
{
    return new Description_node(*this, e);
}

bool Description::load_file(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        file = path;
        problem_list.append(QStringLiteral("%1: cannot open: %2").arg(path, f.errorString()));
        return false;
    }
    return parse(f.readAll(), path);
}

bool Description::parse(const QByteArray& xml, const QString& file_name)
{
    file = file_name;
    base_dir = QFileInfo(file_name).absolutePath();
    root.reset();
    if (!full_xml_reader) {
        root = read_plain(xml);
        if (root)
            return problem_list.isEmpty();
    }
    QXmlStreamReader reader(xml);
    std::vector<Xml_element*> stack;
    while (!reader.atEnd()) {
        // Text between tokens is a token of its own, so this is the line a start tag begins on
        // (the reader reports where it ends).
        qint64 start_line = reader.lineNumber();
        QXmlStreamReader::TokenType t = reader.readNext();
        if (t == QXmlStreamReader::StartElement) {
            if (stack.size() >= size_t(MAX_DEPTH)) {
                problem_list.append(QStringLiteral("%1:%2: elements nested more than %3 deep")
                                        .arg(file)
                                        .arg(reader.lineNumber())
                                        .arg(MAX_DEPTH));
                root.reset();
                return false;
            }
            auto element = std::make_unique<Xml_element>();
            element->set_name(reader.name().toUtf8());
            element->line = int(std::max<qint64>(start_line, 1));
            for (const QXmlStreamAttribute& a : reader.attributes())
                element->attributes.push_back({a.qualifiedName().toUtf8(), a.value().toUtf8()});
            stack.push_back(adopt(std::move(element), root, stack));
        } else if (t == QXmlStreamReader::EndElement) {
            if (!stack.empty())
                stack.pop_back();
        } else if (t == QXmlStreamReader::Characters && !reader.isWhitespace() && !stack.empty()) {
            problem(stack.back(), QStringLiteral("unexpected text '%1' in <%2>")
                                      .arg(reader.text().toString().trimmed().left(40),
                                           QString::fromUtf8(stack.back()->name)));
        }
    }
    if (reader.hasError()) {
        problem_list.append(
            QStringLiteral("%1:%2: XML error: %3").arg(file).arg(reader.lineNumber()).arg(reader.errorString()));
        root.reset();
        return false;
    }
    if (!root) {
        problem_list.append(QStringLiteral("%1: no root element").arg(file));
        return false;
    }
    return problem_list.isEmpty();
}

std::unique_ptr<Xml_element> Description::read_plain(const QByteArray& xml)
{
    return Plain_xml_reader(xml).read();
}

const Xml_element* Description::element_of(Spec_node* node) const
{
    if (!node)
        return nullptr;
    for (Xml_element* e : object_elements)
        if (e->object && e->object->get_spec_node() == node)
            return e;
    return nullptr;
}

uint16_t Description::lookup_id(const QByteArray& name) const
{
    Xml_element* e = by_name.value(name, nullptr);
    return e && e->id >= 0 ? uint16_t(e->id) : NULL_ID;
}

VT_obj* Description::find_object(const QByteArray& name) const
{
    Xml_element* e = by_name.value(name, nullptr);
    return e ? e->object : nullptr;
}

void Description::note_unknown_reference(const Xml_element* e, const QByteArray& name)
{
    QPair<const Xml_element*, QByteArray> key(e, name);
    if (unknown_seen.contains(key))
        return;
    unknown_seen.insert(key);
    // Items of lists are reported at the element that holds them, with the item's own line.
    const Xml_element* owner = e;
    while (owner && !owner->is_object())
        owner = owner->parent;
    QString whose;
    if (owner) {
        const QByteArray* owner_name = owner->attribute("name");
        whose = QStringLiteral(" (in %1 '%2')")
                    .arg(QString::fromUtf8(owner->name), owner_name ? QString::fromUtf8(*owner_name) : QString());
    }
    problem(e, QStringLiteral("unknown object '%1'%2").arg(QString::fromUtf8(name), whose));
}

bool Description::declared_colour(const QByteArray& name, unsigned char& out) const
{
    QByteArray text = name;
    // Declarations may name other declarations; a short chain only, so loops end.
    for (int depth = 0; depth < 8; ++depth) {
        auto it = colours.constFind(text);
        if (it == colours.constEnd())
            return false;
        unsigned char c = 0;
        if (Attribute_colour::get_colour_val(it->value.constData(), c)) {
            out = c;
            return true;
        }
        text = it->value;
    }
    return false;
}

void Description::collect(Xml_element* e, int depth)
{
    if (e->name == "colour") {
        const QByteArray* name = e->attribute("name");
        const QByteArray* value = e->attribute("value");
        if (!name || name->isEmpty() || !value) {
            problem(e, QStringLiteral("<colour> needs a name and a value"));
            return;
        }
        e->mark_used("name");
        e->mark_used("value");
        if (colours.contains(*name)) {
            problem(e, QStringLiteral("colour '%1' is already declared at line %2")
                           .arg(QString::fromUtf8(*name))
                           .arg(colours.value(*name).element->line));
            return;
        }
        unsigned char c = 0;
        if (Attribute_colour::get_colour_val(name->constData(), c))
            warning(e, QStringLiteral("colour '%1' reads as a standard colour or number; the declaration is never used")
                           .arg(QString::fromUtf8(*name)));
        colours.insert(*name, {*value, e});
        return;
    }
    if (!e->is_object()) {
        problem(e, QStringLiteral("<%1> is not allowed here").arg(QString::fromUtf8(e->name)));
        return;
    }
    const Object_factory::Entry* entry = Object_factory::find(e->name);
    if (!entry) {
        if (is_type_name(e->name))
            problem(e, QStringLiteral("object type '%1' is not available in this build").arg(QString::fromUtf8(e->name)));
        else
            problem(e, QStringLiteral("unknown object type '%1'").arg(QString::fromUtf8(e->name)));
    }
    e->mark_used("name");
    e->mark_used("id");
    const QByteArray* name = e->attribute("name");
    if (!name || name->isEmpty()) {
        problem(e, QStringLiteral("<%1> has no name").arg(QString::fromUtf8(e->name)));
    } else if (name->size() > VT_obj::NAME_LEN) {
        problem(e, QStringLiteral("name '%1' is longer than %2 characters")
                       .arg(QString::fromUtf8(*name))
                       .arg(VT_obj::NAME_LEN));
    } else if (*name == "65535" || *name == VT_obj::NO_NAME) {
        problem(e, QStringLiteral("'%1' cannot be used as a name").arg(QString::fromUtf8(*name)));
    } else if (by_name.contains(*name)) {
        problem(e, QStringLiteral("name '%1' is already used at line %2")
                       .arg(QString::fromUtf8(*name))
                       .arg(by_name.value(*name)->line));
    } else {
        by_name.insert(*name, e);
    }
    if (const QByteArray* id_text = e->attribute("id")) {
        bool negative = false;
        quint64 id = 0;
        if (!parse_integer(*id_text, negative, id) || negative || id >= NULL_ID) {
            problem(e, QStringLiteral("id '%1' is not an object id (0 to 65534)").arg(QString::fromUtf8(*id_text)));
        } else if (by_id.contains(uint16_t(id))) {
            problem(e, QStringLiteral("id %1 is already used at line %2").arg(id).arg(by_id.value(uint16_t(id))->line));
        } else {
            by_id.insert(uint16_t(id), e);
            e->id = int(id);
        }
    }
    object_elements.append(e);
    check_children(e, depth + 1);
}

void Description::check_children(Xml_element* e, int depth)
{
    for (const auto& child : e->children) {
        Xml_element* c = child.get();
        if (depth > MAX_DEPTH) {
            problem(c, QStringLiteral("objects nested too deeply"));
            return;
        }
        if (c->is_object()) {
            collect(c, depth); // an inline object of a plain reference list
        } else if (c->is_list_item() || c->kind == Xml_element::ATTR_WRAPPER) {
            int objects = 0;
            for (const auto& inner : c->children) {
                if (inner->is_object() && objects++ == 0)
                    collect(inner.get(), depth + 1);
                else
                    problem(inner.get(), QStringLiteral("<%1> holds one object definition only")
                                             .arg(QString::fromUtf8(c->name)));
            }
            if (c->kind == Xml_element::ATTR_WRAPPER && objects == 0)
                problem(c, QStringLiteral("<%1> holds no object definition").arg(QString::fromUtf8(c->name)));
        } else if (c->name == "colour") {
            problem(c, QStringLiteral("<colour> declarations belong directly under <object_pool>"));
        } else {
            for (const auto& inner : c->children)
                problem(inner.get(), QStringLiteral("<%1> has no child elements").arg(QString::fromUtf8(c->name)));
        }
    }
}

void Description::assign_ids()
{
    uint32_t next = 0;
    auto take_lowest = [&](Xml_element* e) {
        while (next < NULL_ID && by_id.contains(uint16_t(next)))
            ++next;
        if (next >= NULL_ID) {
            problem(e, QStringLiteral("no object id left"));
            return;
        }
        by_id.insert(uint16_t(next), e);
        e->id = int(next);
    };
    // A working set prefers id 0.
    for (Xml_element* e : object_elements)
        if (e->id < 0 && !e->attribute("id") && e->name == "Working_set") {
            if (!by_id.contains(0)) {
                by_id.insert(0, e);
                e->id = 0;
            } else {
                take_lowest(e);
            }
        }
    for (Xml_element* e : object_elements)
        if (e->id < 0 && !e->attribute("id"))
            take_lowest(e);
}

void Description::prepare_values(Xml_element* e)
{
    bool picture = e->name == "Picture_graphic" || e->name == "PNG";
    if (picture && e->attribute("file")) {
        prepare_picture(e, e->name == "PNG");
        return;
    }
    for (const auto& a : e->attributes) {
        if (!is_byte_string(a.key))
            continue;
        QByteArray bytes;
        if (!decode_hex(a.value, bytes)) {
            problem(e, QStringLiteral("'%1' must be hexadecimal bytes such as \"A0 05 FF\"").arg(QString::fromUtf8(a.key)));
            continue;
        }
        e->supplied.push_back({a.key, bytes, true});
    }
}

void Description::prepare_picture(Xml_element* e, bool png)
{
    e->mark_used("file");
    QString path = QString::fromUtf8(*e->attribute("file"));
    if (QFileInfo(path).isRelative())
        path = QDir(base_dir).filePath(path);
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        problem(e, QStringLiteral("cannot read picture '%1': %2").arg(path, f.errorString()));
        return;
    }
    QByteArray content = f.readAll();
    QImage image;
    if (content.isEmpty() || !image.loadFromData(content)) {
        problem(e, QStringLiteral("'%1' is not an image this tool can read").arg(path));
        return;
    }
    if (image.width() > 65535 || image.height() > 65535 || qint64(image.width()) * image.height() > (1 << 24)) {
        problem(e, QStringLiteral("picture '%1' is too large (%2 x %3)").arg(path).arg(image.width()).arg(image.height()));
        return;
    }
    auto supply = [&](const char* key, const QByteArray& v) {
        if (e->attribute(key) && strcmp(key, "width") != 0)
            warning(e, QStringLiteral("'%1' is taken from the picture file; the value given is ignored").arg(key));
        e->supply(key, v, false);
    };
    if (!e->attribute("width"))
        supply("width", QByteArray::number(image.width()));
    supply("actual_width", QByteArray::number(image.width()));
    supply("actual_height", QByteArray::number(image.height()));
    QByteArray data;
    if (png) {
        data = content;
    } else {
        unsigned format = EIGHT_BIT_COLOUR;
        unsigned options = 0;
        unsigned char transparency = 0;
        Description_node node(*this, e);
        uint8_t v = 0;
        if (node.get_uint8(&v, "format")) {
            if (v > EIGHT_BIT_COLOUR)
                problem(e, QStringLiteral("format %1 is not 0 to 2").arg(v));
            format = std::min<unsigned>(v, EIGHT_BIT_COLOUR);
        }
        if (node.get_uint8(&v, "options"))
            options = v;
        if (const QByteArray* t = e->attribute("transparency_colour"))
            if (!Attribute_colour::get_colour_val(t->constData(), transparency) && !declared_colour(*t, transparency))
                problem(e, QStringLiteral("unknown colour '%1'").arg(QString::fromUtf8(*t)));
        data = Picture_encoder::encode(image.convertToFormat(QImage::Format_ARGB32), format_t(format),
                                       (options & 4) != 0, transparency);
        // Symbolic formats reach the library as numbers.
        e->supply("format", QByteArray::number(format), false);
    }
    supply("num_bytes", QByteArray::number(data.size()));
    supply("bytes", data);
    e->supply("bytes", data, true);
}

void Description::read_values(Library_output& said)
{
    QSet<Xml_element*> done;
    auto process = [&](Xml_element* e, scale_area_t area) {
        done.insert(e);
        said.set_context([this, e]() { return where(e) + QStringLiteral(": ") + Pool_tools::label(e->object); });
        e->object->set_by_spec(area);
        if (said.any())
            hear(said, e, Pool_tools::label(e->object));
    };
    QVector<Xml_element*> built;
    for (Xml_element* e : object_elements)
        if (e->object)
            built.append(e);
    // Masks first, so that the areas they are drawn in reach their children before those read
    // their own values; then whatever has learned its area; then the rest.
    for (Xml_element* e : built)
        if (e->object->get_type() == VT_obj_type::TYPE_DATA_MASK)
            process(e, SCALE_AREA_ACTIVE);
    for (Xml_element* e : built) {
        unsigned t = e->object->get_type();
        if (t == VT_obj_type::TYPE_SOFT_KEY_MASK || t == VT_obj_type::TYPE_KEY)
            process(e, SCALE_AREA_SOFT_KEY);
    }
    for (bool progress = true; progress;) {
        progress = false;
        for (Xml_element* e : built)
            if (!done.contains(e) && e->object->get_scale_area() != SCALE_AREA_NONE) {
                process(e, e->object->get_scale_area());
                progress = true;
            }
    }
    for (Xml_element* e : built)
        if (!done.contains(e))
            process(e, SCALE_AREA_NONE);
}

void Description::hear(Library_output& said, const Xml_element* e, const QString& who)
{
    for (const Library_output::Line& line : said.take()) {
        const QString clamp = Library_output::clamp_detail(line.text);
        const QString text = clamp.isEmpty() ? line.text : clamp;
        const QString about = who.isEmpty() ? text : who + QStringLiteral(": ") + text;
        if (line.chatter || Library_output::restated_by_tool(line.text))
            note_list.append(where(e) + QStringLiteral(": ") + about);
        else
            warning(e, about);
    }
}

namespace {
unsigned char resolve_declared_colour(Resolve_colour::Attribute_node& node)
{
    Description* d = current_description;
    const char* text = node.get_name() ? node.get_name() : "";
    unsigned char colour = 0;
    if (d && d->declared_colour(QByteArray(text), colour))
        return colour;
    // Only nodes of this description are looked into; others may belong to anyone.
    const Xml_element* e = d ? d->element_of(node.get_spec_node()) : nullptr;
    if (d && e)
        d->problem(e, QStringLiteral("unknown colour '%1'").arg(QString::fromUtf8(text)));
    return 0;
}
}

void Description::resolve_colours()
{
    current_description = this;
    Resolve_colour::List<Resolve_colour::Attribute_node>::unresolved.resolve_colours(&resolve_declared_colour);
    current_description = nullptr;
}

bool Description::root_size(const char* key, int& w, int& h)
{
    const QByteArray* v = root->attribute(key);
    if (!v)
        return false;
    root->mark_used(key);
    QList<QByteArray> parts = v->toLower().split('x');
    bool ok_w = false, ok_h = false;
    if (parts.size() == 1)
        parts.append(parts[0]);
    if (parts.size() == 2) {
        w = parts[0].trimmed().toInt(&ok_w);
        h = parts[1].trimmed().toInt(&ok_h);
    }
    if (!ok_w || !ok_h || w < 1 || h < 1 || w > 32767 || h > 32767) {
        problem(root.get(), QStringLiteral("%1 must be a size such as 480 or 60x60, not '%2'").arg(key, QString::fromUtf8(*v)));
        return false;
    }
    return true;
}

void Description::justify()
{
    int mask_w = 0, mask_h = 0, key_w = 0, key_h = 0;
    bool have_mask = root_size("mask_size", mask_w, mask_h);
    bool have_key = root_size("key_size", key_w, key_h);
    for (Xml_element* e : object_elements) {
        VT_obj* obj = e->object;
        if (!obj)
            continue;
        int at = obj->find_attribute("child_location");
        auto* list = at < 0 ? nullptr
                            : dynamic_cast<Attribute_list<Attribute_object_placement>*>(obj->get_every_attribute(uint16_t(at)));
        if (!list)
            continue;
        bool justified = false;
        for (uint32_t i = 0; i < list->held(); ++i)
            justified = justified || (*list)[i].get_justification() != 0;
        if (!justified)
            continue;
        // The area the children are laid out in: the object's own size (a button keeps 4 pixels
        // of border on each side), or the size of the mask or key area it is shown in.
        int w = obj->get_width(), h = obj->get_height();
        unsigned type = obj->get_type();
        if (type == VT_obj_type::TYPE_BUTTON) {
            w -= 8;
            h -= 8;
        } else if (type == VT_obj_type::TYPE_DATA_MASK || type == VT_obj_type::TYPE_ALARM_MASK) {
            if (!have_mask) {
                problem(e, QStringLiteral("justified children need mask_size on <object_pool>"));
                continue;
            }
            w = mask_w;
            h = mask_h;
        } else if (type == VT_obj_type::TYPE_KEY) {
            if (!have_key) {
                problem(e, QStringLiteral("justified children need key_size on <object_pool>"));
                continue;
            }
            w = key_w;
            h = key_h;
        } else if (w <= 0 && h <= 0) {
            problem(e, QStringLiteral("<%1> has no size to justify its children in").arg(QString::fromUtf8(e->name)));
            continue;
        }
        obj->lock();
        obj->justify(*list, int16_t(std::max(w, 0)), int16_t(std::max(h, 0)));
        obj->unlock();
    }
}

void Description::report_unused(const Xml_element* e)
{
    if (e == root.get()) {
        for (const auto& a : e->attributes)
            if (a.key != "mask_size" && a.key != "key_size")
                warning(e, QStringLiteral("attribute '%1' of <object_pool> is not used").arg(QString::fromUtf8(a.key)));
    } else if (e->name != "colour")
        for (const auto& a : e->attributes)
            if (!a.used) {
                const Xml_element* owner = e;
                while (owner && !owner->is_object())
                    owner = owner->parent;
                warning(e, QStringLiteral("attribute '%1' of <%2> is not used%3")
                               .arg(QString::fromUtf8(a.key), QString::fromUtf8(e->name),
                                    owner && owner->object ? "" : " (its object was not built)"));
            }
    for (const auto& c : e->children)
        report_unused(c.get());
}

bool Description::build(Object_pool& target)
{
    pool = &target;
    if (!root) {
        if (problem_list.isEmpty())
            problem_list.append(QStringLiteral("%1: nothing to build").arg(file));
        return false;
    }
    if (root->name != "object_pool") {
        problem(root.get(), QStringLiteral("the root element must be <object_pool>, not <%1>").arg(QString::fromUtf8(root->name)));
        return false;
    }
    for (const auto& c : root->children)
        collect(c.get(), 1);
    assign_ids();
    if (!problem_list.isEmpty())
        return false;

    for (Xml_element* e : object_elements)
        prepare_values(e);
    for (Xml_element* e : object_elements) {
        const Object_factory::Entry* entry = Object_factory::find(e->name);
        VT_obj* obj = pool->create(*entry, new Description_node(*this, e));
        obj->set_id(uint16_t(e->id));
        obj->set_name(e->attribute("name")->constData());
        QString why;
        if (pool->add(obj, &why))
            e->object = obj;
        else
            problem(e, why);
    }
    // What the library says while the objects take their values is filed under their elements.
    Library_output said(verbose);
    read_values(said);
    // Children placed by name learn their area from the masks only through their references.
    said.set_context(nullptr);
    Pool_tools::propagate_areas(*pool);
    hear(said, nullptr, QString());
    resolve_colours();
    hear(said, nullptr, QString());
    justify();
    hear(said, nullptr, QString());
    report_unused(root.get());
    return problem_list.isEmpty();
}

}
