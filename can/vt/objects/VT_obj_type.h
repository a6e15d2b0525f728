#ifndef CAN_VT_OBJECTS_VT_OBJ_TYPE_H
#define CAN_VT_OBJECTS_VT_OBJ_TYPE_H

#include <QSet>

namespace VT {

// The catalogue of object types. The low byte of a type is the ISO 11783-6 type byte;
// the high byte is an extended type: the kind of a configuration object (type byte 246), or 1
// for the ISO forms of types 46 and 47.
class VT_obj_type
{
public:
    enum type_t : unsigned int {
        TYPE_WORKING_SET = 0,
        TYPE_DATA_MASK = 1,
        TYPE_ALARM_MASK = 2,
        TYPE_CONTAINER = 3,
        TYPE_SOFT_KEY_MASK = 4,
        TYPE_KEY = 5,
        TYPE_BUTTON = 6,
        TYPE_INPUT_BOOLEAN = 7,
        TYPE_INPUT_STRING = 8,
        TYPE_INPUT_NUMBER = 9,
        TYPE_INPUT_LIST = 10,
        TYPE_OUTPUT_STRING = 11,
        TYPE_OUTPUT_NUMBER = 12,
        TYPE_LINE = 13,
        TYPE_RECTANGLE = 14,
        TYPE_ELLIPSE = 15,
        TYPE_POLYGON = 16,
        TYPE_METER = 17,
        TYPE_LINEAR_BAR_GRAPH = 18,
        TYPE_ARCHED_BAR_GRAPH = 19,
        TYPE_PICTURE_GRAPHIC = 20,
        TYPE_NUMBER_VARIABLE = 21,
        TYPE_STRING_VARIABLE = 22,
        TYPE_FONT_ATTRIBUTES = 23,
        TYPE_LINE_ATTRIBUTES = 24,
        TYPE_FILL_ATTRIBUTES = 25,
        TYPE_INPUT_ATTRIBUTES = 26,
        TYPE_OBJECT_POINTER = 27,
        TYPE_MACRO = 28,
        TYPE_AUXILIARY_FUNCTION = 29,
        TYPE_AUXILIARY_INPUT = 30,
        TYPE_AUXILIARY_TYPE2_FUNCTION = 31,
        TYPE_AUXILIARY_TYPE2_INPUT = 32,
        TYPE_AUXILIARY_TYPE2_CONTROL_DESIGNATOR = 33,
        TYPE_WINDOW_MASK = 34,
        TYPE_KEY_GROUP = 35,
        TYPE_GRAPHICS_CONTEXT = 36,
        TYPE_OUTPUT_LIST = 37,
        TYPE_EXTENDED_INPUT_ATTRIBUTES = 38,
        TYPE_COLOUR_MAP = 39,
        TYPE_OBJECT_LABELREF_LIST = 40,
        TYPE_EXTERNAL_OBJECT_DEFINITION = 41,
        TYPE_EXTERNAL_REFERENCE_NAME = 42,
        TYPE_EXTERNAL_OBJECT_POINTER = 43,
        TYPE_ANIMATION = 44,
        TYPE_COLOUR_PALETTE = 45,
        TYPE_PNG = 46,
        TYPE_WORKING_SET_SPECIAL_CONTROLS = 47,
        TYPE_SCALED_GRAPHIC = 48,
        TYPE_FIELD = 241,
        TYPE_SWATH = 242,
        TYPE_NAMED_COLOUR = 243,
        TYPE_NAMED_COLOUR_MASK = 244,
        TYPE_TRANSLATABLE_STRING = 245,
        TYPE_CONFIG = 246,
        TYPE_CONFIG_ICON = 246 + 1 * 256,
        TYPE_CONFIG_NODE = 246 + 2 * 256,
        TYPE_CONFIG_PAGE = 246 + 3 * 256,
        TYPE_CONFIG_ITEM = 246 + 4 * 256,
        TYPE_CONFIG_TABLE = 246 + 5 * 256,
        // Types 46 and 47 as ISO 11783-6 lays them out for VT version 6, in pools that choose
        // those forms: the same type byte, told apart from PNG and Working_set_special_controls
        // by extended type 1, which is not serialised.
        TYPE_GRAPHIC_DATA = 46 + 1 * 256,
        TYPE_ISO_SPECIAL_CONTROLS = 47 + 1 * 256,
    };

    // Attributes that many types share, for callers that address them without knowing the class.
    enum attribute_general_t {
        ATTRIBUTE_GENERAL_WIDTH,
        ATTRIBUTE_GENERAL_HEIGHT,
        ATTRIBUTE_GENERAL_BACKGROUND_COLOUR,
        ATTRIBUTE_GENERAL_VALUE,
        ATTRIBUTE_GENERAL_HIDDEN,
    };

    // Types the system treats as mutable; filled once when the library loads.
    static const QSet<type_t> types_all_mutable;

    static const char* get_type_string(type_t type);
    static QSet<type_t> create_type_all_set();
    static void print_types(const QSet<type_t>& types, const char* label);
};

// VT_obj_type::types_all_mutable under its earlier name.
extern const QSet<VT_obj_type::type_t>& types_all_mutable;

inline uint qHash(VT_obj_type::type_t t, uint salt = 0)
{
    return ::qHash(static_cast<unsigned int>(t), salt);
}

}

#endif
