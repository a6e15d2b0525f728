#include "tools/pool/Object_references.h"

namespace VT {

QVector<Object_reference> object_references(VT_obj& obj)
{
    QVector<Object_reference> out;
    const VT_obj::Lock guard(obj);
    for (uint16_t i = 0; i < obj.get_num_every_attribute(); ++i) {
        Attribute* a = obj.get_every_attribute(i);
        if (!a)
            continue;
        // Only these kinds of attribute hold references: the others skip the casts below.
        const Attribute::atype kind = a->get_type();
        if (kind != Attribute::ATTR_OBJECT_ID && kind != Attribute::ATTR_LIST &&
            kind != Attribute::ATTR_ARRAY_OBJECT_ID)
            continue;
        // The attribute's name, made once it is needed (most attributes refer to nothing).
        QByteArray name;
        auto add = [&](Object_reference::Kind kind, uint16_t id) {
            if (name.isNull())
                name = QByteArray(a->name ? a->name : "");
            out.append({kind, name, int(i), id});
        };
        if (auto* single = dynamic_cast<Attribute_object_id*>(a)) {
            add(Object_reference::REFERENCE, single->get());
        } else if (auto* places = dynamic_cast<Attribute_list<Attribute_object_placement>*>(a)) {
            for (uint32_t k = 0; k < places->held(); ++k)
                add(Object_reference::CHILD, (*places)[k].get_object_id());
        } else if (auto* list = dynamic_cast<Attribute_list<Attribute_object_id>*>(a)) {
            for (uint32_t k = 0; k < list->held(); ++k)
                add(Object_reference::CHILD, (*list)[k].get());
        } else if (auto* array = dynamic_cast<Attribute_array_object_id*>(a)) {
            for (uint32_t k = 0; k < array->get_length(); ++k)
                add(Object_reference::CHILD, (*array)[k]);
        } else if (auto* labels = dynamic_cast<Attribute_list<Attribute_labelref>*>(a)) {
            for (uint32_t k = 0; k < labels->held(); ++k) {
                const Attribute_labelref& l = (*labels)[k];
                add(Object_reference::CHILD, l.get_labelled_object());
                add(Object_reference::REFERENCE, l.get_string_variable());
                add(Object_reference::REFERENCE, l.get_graphic_representation());
            }
        } else if (auto* macros = dynamic_cast<Attribute_list<Attribute_event_macro>*>(a)) {
            for (uint32_t k = 0; k < macros->held(); ++k)
                add(Object_reference::MACRO, (*macros)[k].get_macro_id());
        }
    }
    return out;
}

}
