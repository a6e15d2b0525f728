#include "tools/reference/Class_facts.h"

#include <QHash>
#include <memory>

#include "tools/check/Object_facts.h"

namespace VT {

namespace {

// A description node with no values and no children: what a class reads from an element
// that gives none of its attributes.
class Empty_node : public Spec_node
{
public:
    int get_uint8(uint8_t*, const char*) override { return 0; }
    int get_uint16(uint16_t*, const char*) override { return 0; }
    int get_uint32(uint32_t*, const char*) override { return 0; }
    int get_uint64(uint64_t*, const char*) override { return 0; }
    int get_int8(int8_t*, const char*) override { return 0; }
    int get_int16(int16_t*, const char*) override { return 0; }
    int get_int32(int32_t*, const char*) override { return 0; }
    int get_int64(int64_t*, const char*) override { return 0; }
    int get_float(float*, const char*) override { return 0; }
    int get_text(char*, int, const char*) override { return 0; }
    int get_value_length(const char*, scale_area_t) override { return -1; }
    bool has_value(const char*, scale_area_t) override { return false; }
    void describe(char* buf, int size) override
    {
        if (buf && size > 0)
            buf[0] = 0;
    }
    int count_children(const char*) override { return 0; }
    Spec_node* get_child(int, const char*) override { return nullptr; }
    uint16_t lookup_object_id(const char*) override { return VT_obj::NULL_ID; }
    VT_obj* find_object(const char*) override { return nullptr; }
    void report_unresolved() override {}
};

template <class A>
bool range_of(const Attribute* a, Attribute_facts& f)
{
    auto* n = dynamic_cast<const A*>(a);
    if (!n)
        return false;
    f.has_range = true;
    f.min = qint64(n->get_min());
    f.max = qint64(n->get_max());
    f.is_signed = std::is_signed<decltype(n->get())>::value;
    return true;
}

void read_range(const Attribute* a, Attribute_facts& f)
{
    range_of<Attribute_uint8>(a, f) || range_of<Attribute_uint16>(a, f) || range_of<Attribute_uint32>(a, f) ||
        range_of<Attribute_int8>(a, f) || range_of<Attribute_int16>(a, f) || range_of<Attribute_int32>(a, f) ||
        range_of<Attribute_uint64>(a, f) || range_of<Attribute_int64>(a, f);
}

// The value a count attribute holds (the length of its list), or -1.
qint64 count_value(const Attribute* a)
{
    if (auto* c = dynamic_cast<const Attribute_list_len<uint8_t>*>(a))
        return c->get();
    if (auto* c = dynamic_cast<const Attribute_list_len<uint16_t>*>(a))
        return c->get();
    if (auto* c = dynamic_cast<const Attribute_list_len<uint32_t>*>(a))
        return c->get();
    return -1;
}

// The child element a list's items are written as in a description.
QByteArray item_element(const Attribute* a)
{
    if (dynamic_cast<const Attribute_list<Attribute_object_placement>*>(a))
        return "place";
    if (dynamic_cast<const Attribute_list<Attribute_event_macro>*>(a))
        return "Event_macro";
    if (dynamic_cast<const Attribute_list<Attribute_lang>*>(a))
        return "Language";
    if (dynamic_cast<const Attribute_list<Attribute_language_pair>*>(a))
        return "Language_pair";
    if (dynamic_cast<const Attribute_list<Attribute_point>*>(a))
        return "Point";
    if (dynamic_cast<const Attribute_list<Attribute_labelref>*>(a))
        return "Labelref";
    if (dynamic_cast<const Attribute_list<Attribute_code_plane_rangeset>*>(a))
        return "Code_plane_rangeset";
    return "ref";
}

Attribute_facts::Shape shape_of(Attribute::atype t)
{
    switch (t) {
    case Attribute::ATTR_LIST_LEN: return Attribute_facts::COUNT;
    case Attribute::ATTR_LIST: return Attribute_facts::LIST;
    case Attribute::ATTR_ARRAY_UINT8:
    case Attribute::ATTR_ARRAY_ARGB:
    case Attribute::ATTR_ARRAY_OBJECT_ID: return Attribute_facts::ARRAY;
    case Attribute::ATTR_ARRAY_CHAR: return Attribute_facts::TEXT;
    default: return Attribute_facts::SCALAR;
    }
}

QByteArray object_bytes(VT_obj& obj)
{
    QByteArray out(obj.num_bytes(), '\0');
    out.resize(std::max(obj.__serialise(0, reinterpret_cast<uint8_t*>(out.data()), out.size()), 0));
    return out;
}

// Whether an attribute is part of the object's bytes: a class may show attributes that are not
// sent. An attribute that changes (another value within its range, or an item for its list)
// while the object's bytes stay as they were is not sent; one whose change cannot be seen is
// taken to be.
bool travels(VT_obj& obj, Attribute& a, const Attribute_facts& f)
{
    const QByteArray before = object_bytes(obj);
    const QByteArray own = attribute_bytes(a);
    if (auto* list = dynamic_cast<_Attribute_list*>(&a)) {
        list->set_counters(1);
        const bool seen = attribute_bytes(a) != own;
        const bool sent = object_bytes(obj) != before;
        list->set_counters(0);
        return sent || !seen;
    }
    if (own.isEmpty())
        return false;
    QByteArray other = own;
    if (f.shape == Attribute_facts::COUNT) {
        other[0] = 1;
    } else if (f.has_range) {
        if (f.min == f.max)
            return true; // no other value to give it
        const qint64 v = f.value_of(own);
        other = f.bytes_of(v < f.max ? v + 1 : v - 1);
    } else {
        other[0] = char(other[0] ^ 1);
    }
    QByteArray restore = own;
    a.deserialise(0, reinterpret_cast<uint8_t*>(other.data()), other.size(), nullptr);
    const bool seen = attribute_bytes(a) != own;
    const bool sent = object_bytes(obj) != before;
    a.deserialise(0, reinterpret_cast<uint8_t*>(restore.data()), restore.size(), nullptr);
    return sent || !seen;
}

std::unique_ptr<Class_facts> read_class(const Object_factory::Entry& entry)
{
    auto facts = std::make_unique<Class_facts>();
    facts->entry = &entry;
    facts->type = entry.type;
    facts->name = entry.name();
    facts->vt_version = Check::type_version(entry.type & 0xFF);
    std::unique_ptr<VT_obj> obj(entry.make(nullptr));
    const VT_obj::Lock guard(*obj);
    Empty_node empty;
    const uint16_t n = obj->get_num_every_attribute();
    for (uint16_t i = 0; i < n; ++i)
        if (Attribute* a = obj->get_every_attribute(i))
            a->_set_by_spec(&empty, SCALE_AREA_NONE);

    for (uint16_t i = 0; i < n; ++i) {
        Attribute* a = obj->get_every_attribute(i);
        if (!a)
            continue;
        Attribute_facts f;
        f.name = a->name ? a->name : "";
        f.index = i;
        f.atype = a->get_type();
        f.shape = shape_of(f.atype);
        for (uint8_t aid = 1; aid < obj->get_num_attributes_by_aid(); ++aid)
            if (obj->get_attribute_by_aid(aid) == a)
                f.aid = aid;
        f.default_bytes = attribute_bytes(*a);
        if (f.shape == Attribute_facts::SCALAR || f.shape == Attribute_facts::COUNT)
            f.size = a->num_bytes();
        read_range(a, f);
        f.travels = travels(*obj, *a, f);
        facts->attributes.append(f);
    }

    // What each count counts, and the size of one item: a list counted as holding items it does
    // not have sends default items, so one counted item shows both.
    for (Attribute_facts& f : facts->attributes) {
        if (f.shape == Attribute_facts::SCALAR || f.shape == Attribute_facts::COUNT)
            continue;
        auto* list = dynamic_cast<_Attribute_list*>(obj->get_every_attribute(uint16_t(f.index)));
        if (!list)
            continue;
        list->set_counters(1);
        f.size = obj->get_every_attribute(uint16_t(f.index))->num_bytes();
        // Arrays hold elements of a fixed width, whatever a picture makes of its count.
        if (f.atype == Attribute::ATTR_ARRAY_UINT8 || f.atype == Attribute::ATTR_ARRAY_CHAR)
            f.size = 1;
        else if (f.atype == Attribute::ATTR_ARRAY_OBJECT_ID)
            f.size = 2;
        else if (f.atype == Attribute::ATTR_ARRAY_ARGB)
            f.size = 4;
        if (f.shape == Attribute_facts::LIST)
            f.item_element = item_element(list);
        for (Attribute_facts& c : facts->attributes)
            if (c.shape == Attribute_facts::COUNT && c.counts.isEmpty() &&
                count_value(obj->get_every_attribute(uint16_t(c.index))) == 1) {
                // A count is sent with its list (a picture's count follows its format, not
                // what was set).
                c.counts = f.name;
                c.travels = f.travels;
            }
        list->set_counters(0);
    }

    // Where each attribute starts, up to the first list, and the bytes of an object whose lists
    // are empty.
    int at = 3; // the id and the type byte
    bool fixed = true;
    for (Attribute_facts& f : facts->attributes) {
        if (!f.travels)
            continue;
        f.offset = fixed ? at : -1;
        at += f.default_bytes.size();
        fixed = fixed && (f.shape == Attribute_facts::SCALAR || f.shape == Attribute_facts::COUNT);
    }
    facts->fixed_bytes = at;
    return facts;
}

struct Catalogue
{
    std::vector<std::unique_ptr<Class_facts>> owned;
    QVector<const Class_facts*> all;
    QHash<unsigned, const Class_facts*> by_type;
    QHash<QByteArray, const Class_facts*> by_name;

    Catalogue()
    {
        for (const Object_factory::Entry* e : Object_factory::all()) {
            owned.push_back(read_class(*e));
            const Class_facts* f = owned.back().get();
            all.append(f);
            by_type.insert(f->type, f);
            by_name.insert(f->name, f);
        }
    }
};

const Catalogue& catalogue()
{
    static const Catalogue c;
    return c;
}

}

QByteArray attribute_bytes(const Attribute& a)
{
    static const Serialisation_limits limits;
    const int n = a.num_bytes();
    QByteArray out(std::max(n, 0), '\0');
    const int written = n > 0 ? a.serialise(&limits, 0, reinterpret_cast<uint8_t*>(out.data()), n) : 0;
    out.resize(std::max(written, 0));
    return out;
}

qint64 Attribute_facts::value_of(const QByteArray& bytes) const
{
    quint64 raw = 0;
    for (int i = 0; i < bytes.size() && i < 8; ++i)
        raw |= quint64(uchar(bytes[i])) << (8 * i);
    qint64 v = qint64(raw);
    if (is_signed && bytes.size() > 0 && bytes.size() < 8 && (raw >> (8 * bytes.size() - 1)) & 1)
        v -= qint64(1) << (8 * bytes.size());
    return v;
}

QByteArray Attribute_facts::bytes_of(qint64 value) const
{
    QByteArray out(size, '\0');
    for (int i = 0; i < size && i < 8; ++i)
        out[i] = char(quint64(value) >> (8 * i));
    return out;
}

QString Attribute_facts::kind() const
{
    switch (shape) {
    case COUNT:
        return size == 0 ? QStringLiteral("count of %1 (not sent)").arg(QString::fromLatin1(counts))
                         : QStringLiteral("count of %1").arg(QString::fromLatin1(counts));
    case TEXT: return QStringLiteral("text");
    case ARRAY:
        if (atype == Attribute::ATTR_ARRAY_ARGB)
            return QStringLiteral("colours, %1 bytes each").arg(size);
        if (atype == Attribute::ATTR_ARRAY_OBJECT_ID)
            return QStringLiteral("object ids");
        return QStringLiteral("bytes");
    case LIST: {
        static const QHash<QByteArray, QString> items{
            {"place", "placements"},          {"ref", "object ids"}, {"Event_macro", "event macros"},
            {"Language", "language codes"},   {"Point", "points"},   {"Labelref", "label references"},
            {"Code_plane_rangeset", "code plane range sets"}, {"Language_pair", "language and country codes"}};
        const QString what = items.value(item_element, QStringLiteral("items"));
        if (item_element == "Code_plane_rangeset")
            return QStringLiteral("list of %1").arg(what);
        if (size == 0)
            return QStringLiteral("list of %1 (not sent)").arg(what);
        return QStringLiteral("list of %1-byte %2").arg(size).arg(what);
    }
    case SCALAR: break;
    }
    switch (atype) {
    case Attribute::ATTR_COLOUR: return QStringLiteral("colour");
    case Attribute::ATTR_OBJECT_ID: return QStringLiteral("object id");
    case Attribute::ATTR_FLOAT: return QStringLiteral("float");
    default: return QStringLiteral("%1int%2").arg(is_signed ? "" : "u").arg(size * 8);
    }
}

const Attribute_facts* Class_facts::find(const QByteArray& attribute) const
{
    for (const Attribute_facts& a : attributes)
        if (a.name == attribute)
            return &a;
    return nullptr;
}

const Class_facts* class_facts(unsigned full_type)
{
    return catalogue().by_type.value(full_type, nullptr);
}

const Class_facts* class_facts(const QByteArray& type_name)
{
    return catalogue().by_name.value(type_name, nullptr);
}

const QVector<const Class_facts*>& all_class_facts()
{
    return catalogue().all;
}

}
