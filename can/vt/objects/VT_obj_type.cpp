#include "can/vt/objects/VT_obj_type.h"

#include <cstdio>

namespace VT {

namespace {
const char* const standard_names[] = {
    "Working_set", "Data_mask", "Alarm_mask", "Container", "Soft_key_mask", "Key", "Button",
    "Input_boolean", "Input_string", "Input_number", "Input_list", "Output_string", "Output_number",
    "Line", "Rectangle", "Ellipse", "Polygon", "Meter", "Linear_bar_graph", "Arched_bar_graph",
    "Picture_graphic", "Number_variable", "String_variable", "Font_attributes", "Line_attributes",
    "Fill_attributes", "Input_attributes", "Object_pointer", "Macro", "Auxiliary_function",
    "Auxiliary_input", "Auxiliary_type2_function", "Auxiliary_type2_input",
    "Auxiliary_type2_control_designator", "Window_mask", "Key_group", "Graphics_context",
    "Output_list", "Extended_input_attributes", "Colour_map", "Object_labelref_list",
    "External_object_definition", "External_reference_name", "External_object_pointer", "Animation",
    "Colour_palette", "PNG", "Working_set_special_controls",
};
const char* const own_names[] = {"Field", "Swath", "Named_colour", "Named_colour_mask", "Translatable_string"};
const char* const config_names[] = {"Config_icon", "Config_node", "Config_page", "Config_item", "Config_table"};
}

const char* VT_obj_type::get_type_string(type_t type)
{
    unsigned t = type;
    if (t < sizeof standard_names / sizeof *standard_names)
        return standard_names[t];
    if (t >= TYPE_FIELD && t <= TYPE_TRANSLATABLE_STRING)
        return own_names[t - TYPE_FIELD];
    if ((t & 0xFF) == 246 && t >= TYPE_CONFIG_ICON && t <= TYPE_CONFIG_TABLE)
        return config_names[(t >> 8) - 1];
    return "UNKNOWN";
}

QSet<VT_obj_type::type_t> VT_obj_type::create_type_all_set()
{
    QSet<type_t> set;
    for (unsigned t = TYPE_WORKING_SET; t <= TYPE_AUXILIARY_TYPE2_INPUT; ++t)
        set.insert(type_t(t));
    for (type_t t : {TYPE_CONFIG, TYPE_CONFIG_ICON, TYPE_CONFIG_NODE, TYPE_CONFIG_PAGE, TYPE_CONFIG_ITEM, TYPE_CONFIG_TABLE})
        set.insert(t);
    return set;
}

void VT_obj_type::print_types(const QSet<type_t>& types, const char* label)
{
    printf("TYPES %s (%d types):", label ? label : "", int(types.size()));
    for (type_t t : types)
        printf(" %d(%s)", int(t), get_type_string(t));
    printf("\n");
}

const QSet<VT_obj_type::type_t> VT_obj_type::types_all_mutable = VT_obj_type::create_type_all_set();
const QSet<VT_obj_type::type_t>& types_all_mutable = VT_obj_type::types_all_mutable;

}
