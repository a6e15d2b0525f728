#include "tools/description/Xml_element.h"

#include "tools/description/Values.h"

namespace VT {

namespace {

// Elements that are parts of an object rather than objects.
const char* const item_names[] = {"place",    "ref",      "Event_macro",      "Language",
                                  "Language_pair", "Point", "Labelref", "Code_plane_range",
                                  "Code_plane_rangeset", "Editable"};

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

}

Xml_element* Xml_element::adopt(std::unique_ptr<Xml_element> element, std::unique_ptr<Xml_element>& root,
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

Xml_element::Kind Xml_element::kind_of(const QByteArray& name)
{
    if (name == "place" || name == "ref")
        return LIST_ITEM;
    if (is_item_name(name))
        return ITEM;
    if (is_attr_wrapper(name))
        return ATTR_WRAPPER;
    if (name == "colour")
        return COLOUR;
    if (name == "object_pool")
        return POOL;
    return OBJECT;
}

void Xml_element::set_name(const QByteArray& element_name)
{
    name = element_name;
    kind = kind_of(name);
}

const Xml_attribute* Xml_element::find_attribute(const char* key, size_t len) const
{
    for (const Xml_attribute& a : attributes)
        if (Values::same_key(a.key, key, len))
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
        if (Values::same_key(s.key, key, len)) {
            s.value = value;
            s.binary = binary;
            return;
        }
    supplied.push_back({QByteArray(key, int(len)), value, binary});
}

}
