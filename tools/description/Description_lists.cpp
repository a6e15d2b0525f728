// Values the library does not read from a description, or not whole: the host reads them from
// the elements itself, once the objects have read their own values.
#include <vector>

#include "tools/description/Description.h"
#include "tools/description/Values.h"

namespace VT {

namespace {

// The value of `key` of an item as a number up to `max`; false (and a problem) when absent or bad.
bool item_number(Description& d, Xml_element& e, const char* key, quint64 max, quint64& out)
{
    const QByteArray* text = e.attribute(key);
    bool negative = false;
    if (!text || !Values::parse_integer(*text, negative, out) || negative || out > max) {
        d.problem(&e, QStringLiteral("<%1> needs %2, a number from 0 to %3")
                          .arg(QString::fromUtf8(e.name), QString::fromLatin1(key))
                          .arg(max));
        return false;
    }
    e.mark_used(key);
    return true;
}

}

void Description::read_host_lists()
{
    for (Xml_element* e : object_elements) {
        VT_obj* obj = e->object;
        if (!obj)
            continue;
        auto attribute = [obj](const char* name) {
            const int at = obj->find_attribute(name);
            return at < 0 ? nullptr : obj->get_every_attribute(uint16_t(at));
        };
        if (auto* sets = dynamic_cast<Attribute_list<Attribute_code_plane_rangeset>*>(attribute("code_plane_rangesets")))
            read_code_planes(e, *sets);
        auto* refs = dynamic_cast<Attribute_list<Attribute_object_id>*>(attribute("required_object_refs"));
        auto* places = dynamic_cast<Attribute_list<Attribute_object_placement>*>(attribute("child_location"));
        if (refs && places)
            split_references(e, *refs, *places);
        if (auto* swaths = dynamic_cast<Attribute_list<Attribute_object_id>*>(attribute("swaths")))
            read_named_swaths(e, *swaths);
        // The library reads a text up to its first zero byte: texts given as bytes (a UTF-16
        // text holds zero bytes) are given their bytes whole.
        for (const Xml_supplied& given : e->supplied)
            if (given.binary && given.value.contains('\0'))
                if (auto* text = dynamic_cast<Attribute_array_char*>(attribute(given.key.constData()))) {
                    const VT_obj::Lock guard(*obj);
                    if (text->allocate(uint32_t(given.value.size())))
                        text->set_elements(0, given.value.constData(), unsigned(given.value.size()));
                }
    }
}

// A window mask keeps its required object references and its children in two lists, which the
// library both fills from every child element: <ref object=""/> elements are the references,
// <place> elements and objects defined inline the children.
void Description::split_references(Xml_element* e, Attribute_list<Attribute_object_id>& refs,
                                   Attribute_list<Attribute_object_placement>& places)
{
    std::vector<Attribute_object_id> kept_refs;
    std::vector<Attribute_object_placement> kept_places;
    uint32_t item = 0;
    for (const auto& child : e->children) {
        if (!child->is_object() && !child->is_list_item())
            continue;
        if (child->name == "ref") {
            const QByteArray* name = child->attribute("object");
            kept_refs.emplace_back(name ? reference_id(child.get(), *name) : VT_obj::NULL_ID, refs.name);
            if (name)
                kept_refs.back().set_referenced_name(*name);
        } else if (item < places.held()) {
            kept_places.push_back(places[item]);
        }
        ++item;
    }
    const VT_obj::Lock guard(*e->object);
    refs.set_items(kept_refs.empty() ? nullptr : kept_refs.data(), unsigned(kept_refs.size()));
    places.set_items(kept_places.empty() ? nullptr : kept_places.data(), unsigned(kept_places.size()));
}

// A field takes its swaths from the objects defined inside it; <ref object=""/> names a swath
// defined elsewhere (a pool read from bytes holds them as objects of their own).
void Description::read_named_swaths(Xml_element* e, Attribute_list<Attribute_object_id>& swaths)
{
    const VT_obj::Lock guard(*e->object);
    uint32_t item = 0;
    for (const auto& child : e->children) {
        const QByteArray* name = child->name == "ref" ? child->attribute("object") : nullptr;
        if (name && item < swaths.held()) {
            swaths[item] = reference_id(child.get(), *name);
            swaths[item].set_referenced_name(*name);
        }
        ++item;
    }
}

// The id an item's object name stands for; an unknown name is a problem.
uint16_t Description::reference_id(Xml_element* item, const QByteArray& name)
{
    item->mark_used("object");
    if (name == "65535")
        return VT_obj::NULL_ID;
    const uint16_t id = lookup_id(name);
    if (id == VT_obj::NULL_ID)
        note_unknown_reference(item, name);
    return id;
}

// <Code_plane_rangeset code_plane="0"><Code_plane_range first_char="32" last_char="126"/></...>
void Description::read_code_planes(Xml_element* e, Attribute_list<Attribute_code_plane_rangeset>& list)
{
    std::vector<Attribute_code_plane_rangeset> sets;
    for (const auto& child : e->children) {
        if (child->name != "Code_plane_rangeset")
            continue;
        quint64 plane = 0;
        if (!item_number(*this, *child, "code_plane", 255, plane))
            continue;
        std::vector<Attribute_code_plane_range> ranges;
        for (const auto& r : child->children) {
            quint64 first = 0, last = 0;
            if (item_number(*this, *r, "first_char", 65535, first) && item_number(*this, *r, "last_char", 65535, last))
                ranges.emplace_back(uint16_t(first), uint16_t(last));
        }
        if (ranges.size() > 255) {
            problem(child.get(), QStringLiteral("a code plane holds at most 255 ranges"));
            continue;
        }
        sets.emplace_back(uint8_t(plane), uint8_t(ranges.size()), ranges.empty() ? nullptr : ranges.data());
    }
    const VT_obj::Lock guard(*e->object);
    list.set_items(sets.empty() ? nullptr : sets.data(), unsigned(sets.size()));
}

}
