// Description::read_plain: a reader of its own for plain descriptions.
#include <cstring>
#include <iterator>
#include <string_view>
#include <unordered_map>

#include "tools/description/Description.h"
#include "tools/description/Values.h"

namespace VT {

namespace {

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
                if ((root && open.empty()) || open.size() >= size_t(Xml_element::MAX_DEPTH))
                    return nullptr; // a second root, or nested too deeply: left to the full reader
                // Inside the root, whitespace before a tag is a token ending where the tag begins.
                auto element = std::make_unique<Xml_element>();
                element->line = open.empty() ? token_line : line;
                bool empty = false;
                if (!start_tag(*element, empty))
                    return nullptr;
                Xml_element* raw = Xml_element::adopt(std::move(element), root, open);
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
            const int d = base == 16 ? Values::hex_digit(*p) : (*p >= '0' && *p <= '9' ? *p - '0' : -1);
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
            const bool fine = k == 0 ? text == "1.0"
                : k == 1             ? text.toLower() == "utf-8"
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

}

std::unique_ptr<Xml_element> Description::read_plain(const QByteArray& xml)
{
    return Plain_xml_reader(xml).read();
}

}
