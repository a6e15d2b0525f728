#include "tools/pool/Object_factory.h"

#include <QHash>
#include <QSet>
#include <QVector>
#include <cstring>
#include <new>

namespace VT {

namespace {

template <class X>
VT_obj* make(Spec_node* spec_node)
{
    return new X(spec_node);
}

template <class X>
VT_obj* make_at(void* place, Spec_node* spec_node)
{
    return new (place) X(spec_node);
}

#define VT_ENTRY(TYPE, CLASS, FORMS, OWN_NAME) \
    {VT_obj_type::TYPE, &make<Base::CLASS>, &make_at<Base::CLASS>, sizeof(Base::CLASS), FORMS, OWN_NAME}
#define VT_CLASS(TYPE, CLASS) VT_ENTRY(TYPE, CLASS, 3, nullptr)
#define VT_LEGACY_FORM(TYPE, CLASS) VT_ENTRY(TYPE, CLASS, 1, nullptr)
#define VT_ISO_FORM(TYPE, CLASS) VT_ENTRY(TYPE, CLASS, 2, Base::CLASS::TYPE_NAME)
#define VT_DESCRIPTION_ONLY(TYPE, CLASS) VT_ENTRY(TYPE, CLASS, 0, nullptr)

// Every object class of the library.
const Object_factory::Entry classes[] = {
    VT_CLASS(TYPE_WORKING_SET, Working_set_obj),
    VT_CLASS(TYPE_DATA_MASK, Data_mask_obj),
    VT_CLASS(TYPE_ALARM_MASK, Alarm_mask_obj),
    VT_CLASS(TYPE_CONTAINER, Container_obj),
    VT_CLASS(TYPE_SOFT_KEY_MASK, Soft_key_mask_obj),
    VT_CLASS(TYPE_KEY, Key_obj),
    VT_CLASS(TYPE_BUTTON, Button_obj),
    VT_CLASS(TYPE_INPUT_BOOLEAN, Input_boolean_obj),
    VT_CLASS(TYPE_INPUT_STRING, Input_string_obj),
    VT_CLASS(TYPE_INPUT_NUMBER, Input_number_obj),
    VT_CLASS(TYPE_INPUT_LIST, Input_list_obj),
    VT_CLASS(TYPE_OUTPUT_STRING, Output_string_obj),
    VT_CLASS(TYPE_OUTPUT_NUMBER, Output_number_obj),
    VT_CLASS(TYPE_LINE, Line_obj),
    VT_CLASS(TYPE_RECTANGLE, Rectangle_obj),
    VT_CLASS(TYPE_ELLIPSE, Ellipse_obj),
    VT_CLASS(TYPE_POLYGON, Polygon_obj),
    VT_CLASS(TYPE_METER, Meter_obj),
    VT_CLASS(TYPE_LINEAR_BAR_GRAPH, Linear_bar_graph_obj),
    VT_CLASS(TYPE_ARCHED_BAR_GRAPH, Arched_bar_graph_obj),
    VT_CLASS(TYPE_PICTURE_GRAPHIC, Picture_graphic_obj),
    VT_CLASS(TYPE_NUMBER_VARIABLE, Number_variable_obj),
    VT_CLASS(TYPE_STRING_VARIABLE, String_variable_obj),
    VT_CLASS(TYPE_FONT_ATTRIBUTES, Font_attributes_obj),
    VT_CLASS(TYPE_LINE_ATTRIBUTES, Line_attributes_obj),
    VT_CLASS(TYPE_FILL_ATTRIBUTES, Fill_attributes_obj),
    VT_CLASS(TYPE_INPUT_ATTRIBUTES, Input_attributes_obj),
    VT_CLASS(TYPE_OBJECT_POINTER, Object_pointer_obj),
    VT_CLASS(TYPE_MACRO, Macro_obj),
    VT_CLASS(TYPE_AUXILIARY_FUNCTION, Auxiliary_function_obj),
    VT_CLASS(TYPE_AUXILIARY_INPUT, Auxiliary_input_obj),
    VT_CLASS(TYPE_AUXILIARY_TYPE2_FUNCTION, Auxiliary_type2_function_obj),
    VT_CLASS(TYPE_AUXILIARY_TYPE2_INPUT, Auxiliary_type2_input_obj),
    VT_CLASS(TYPE_AUXILIARY_TYPE2_CONTROL_DESIGNATOR, Auxiliary_type2_control_designator_obj),
    VT_CLASS(TYPE_WINDOW_MASK, Window_mask_obj),
    VT_CLASS(TYPE_KEY_GROUP, Key_group_obj),
    VT_CLASS(TYPE_GRAPHICS_CONTEXT, Graphics_context_obj),
    VT_CLASS(TYPE_OUTPUT_LIST, Output_list_obj),
    VT_CLASS(TYPE_EXTENDED_INPUT_ATTRIBUTES, Extended_input_attributes_obj),
    VT_CLASS(TYPE_COLOUR_MAP, Colour_map_obj),
    VT_CLASS(TYPE_OBJECT_LABELREF_LIST, Object_labelref_list_obj),
    VT_CLASS(TYPE_EXTERNAL_OBJECT_DEFINITION, External_object_definition_obj),
    VT_CLASS(TYPE_EXTERNAL_REFERENCE_NAME, External_reference_name_obj),
    VT_CLASS(TYPE_EXTERNAL_OBJECT_POINTER, External_object_pointer_obj),
    VT_CLASS(TYPE_ANIMATION, Animation_obj),
    VT_CLASS(TYPE_COLOUR_PALETTE, Colour_palette_obj),
    VT_LEGACY_FORM(TYPE_PNG, PNG_obj),
    VT_LEGACY_FORM(TYPE_WORKING_SET_SPECIAL_CONTROLS, Working_set_special_controls_obj),
    VT_ISO_FORM(TYPE_GRAPHIC_DATA, Graphic_data_obj),
    VT_ISO_FORM(TYPE_ISO_SPECIAL_CONTROLS, Iso_special_controls_obj),
    VT_ISO_FORM(TYPE_SCALED_GRAPHIC, Scaled_graphic_obj),
    VT_CLASS(TYPE_FIELD, Field_obj),
    VT_DESCRIPTION_ONLY(TYPE_SWATH, Swath_obj), // travels as a polygon
    VT_CLASS(TYPE_NAMED_COLOUR, Named_colour_obj),
    VT_CLASS(TYPE_NAMED_COLOUR_MASK, Named_colour_mask_obj),
    VT_CLASS(TYPE_CONFIG_ICON, Config_icon_obj),
    VT_CLASS(TYPE_CONFIG_NODE, Config_node_obj),
    VT_CLASS(TYPE_CONFIG_PAGE, Config_page_obj),
    VT_CLASS(TYPE_CONFIG_ITEM, Config_item_obj),
    VT_CLASS(TYPE_CONFIG_TABLE, Config_table_obj),
};

#undef VT_CLASS
#undef VT_LEGACY_FORM
#undef VT_ISO_FORM
#undef VT_DESCRIPTION_ONLY
#undef VT_ENTRY

struct Index
{
    QList<const Object_factory::Entry*> entries;
    QHash<QString, const Object_factory::Entry*> by_name;
    QHash<QByteArray, const Object_factory::Entry*> by_utf8_name;
    // Reading a pool looks up every object's type: type bytes index an array per form (the ISO
    // forms of types 46 and 47 under their type byte), the few configuration types are searched.
    const Object_factory::Entry* by_type[2][256] = {};
    QVector<const Object_factory::Entry*> extended;
    QHash<unsigned, const char*> own_names;

    Index()
    {
        for (const Object_factory::Entry& e : classes) {
            entries.append(&e);
            by_name.insert(QString::fromLatin1(e.name()), &e);
            by_utf8_name.insert(QByteArray(e.name()), &e);
            if (e.own_name)
                own_names.insert(unsigned(e.type), e.own_name);
            if ((unsigned(e.type) & 0xFF) == VT_obj_type::TYPE_CONFIG && unsigned(e.type) >= 256) {
                extended.append(&e);
                continue;
            }
            for (Vt6_objects form : {Vt6_objects::legacy, Vt6_objects::iso})
                if (e.in_form(form))
                    by_type[unsigned(form)][e.type & 0xFF] = &e;
        }
    }
};

const Index& index()
{
    static const Index i;
    return i;
}

}

const Object_factory::Entry* Object_factory::find(const QString& type_name)
{
    return index().by_name.value(type_name, nullptr);
}

const Object_factory::Entry* Object_factory::find(const QByteArray& type_name)
{
    return index().by_utf8_name.value(type_name, nullptr);
}

const char* vt6_objects_name(Vt6_objects form)
{
    return form == Vt6_objects::iso ? "iso" : "legacy";
}

bool parse_vt6_objects(const QByteArray& text, Vt6_objects& out)
{
    for (Vt6_objects form : {Vt6_objects::legacy, Vt6_objects::iso})
        if (text == vt6_objects_name(form)) {
            out = form;
            return true;
        }
    return false;
}

const Object_factory::Entry* Object_factory::find_for_pool(unsigned full_type, Vt6_objects form)
{
    const Index& i = index();
    if (full_type < 256)
        return i.by_type[form == Vt6_objects::iso ? 1 : 0][full_type];
    for (const Object_factory::Entry* e : i.extended)
        if (unsigned(e->type) == full_type)
            return e;
    return nullptr;
}

const QList<const Object_factory::Entry*>& Object_factory::all()
{
    return index().entries;
}

const char* Object_factory::type_name(unsigned full_type)
{
    if (const char* own = index().own_names.value(full_type, nullptr))
        return own;
    return VT_obj_type::get_type_string(VT_obj_type::type_t(full_type));
}

bool Object_factory::catalogue_knows(unsigned full_type)
{
    return strcmp(type_name(full_type), "UNKNOWN") != 0;
}

bool Object_factory::catalogue_knows(const QByteArray& type_name)
{
    // Full types are a type byte and an extended type byte: every one is asked once.
    static const QSet<QByteArray> names = [] {
        QSet<QByteArray> known;
        for (unsigned t = 0; t <= 0xFFFF; ++t)
            if (catalogue_knows(t))
                known.insert(QByteArray(Object_factory::type_name(t)));
        return known;
    }();
    return names.contains(type_name);
}

}
