#include "tools/check/Object_facts.h"

#include <QStringList>
#include <algorithm>
#include <cstring>

#include "tools/pool/Object_factory.h"
#include "vt_core.h"

namespace VT {
namespace Check {

// The name of each type number.
#define T(NAME) VT_obj_type::TYPE_##NAME

QString type_names(Type_set set)
{
    QStringList names;
    for (unsigned b = 0; b < TYPE_SET_BITS; ++b)
        if (set >> b & 1)
            names.append(QString::fromLatin1(Object_factory::type_name(bit_type(b))));
    if (names.size() < 2)
        return names.join(QString());
    const QString last = names.takeLast();
    return names.join(QStringLiteral(", ")) + QStringLiteral(" or ") + last;
}

// --- VT versions of object types -------------------------------------------------------------

int type_version(unsigned type)
{
    if (type <= T(AUXILIARY_INPUT))
        return 2;
    if (type <= T(AUXILIARY_TYPE2_CONTROL_DESIGNATOR))
        return 3;
    if (type <= T(OBJECT_LABELREF_LIST))
        return 4;
    if (type <= T(COLOUR_PALETTE))
        return 5;
    if (type <= T(SCALED_GRAPHIC))
        return 6;
    return 0;
}

// --- Where a terminal starts ---------------------------------------------------------------

bool is_root(unsigned type)
{
    static const Type_set roots =
        types({T(WORKING_SET), T(DATA_MASK), T(ALARM_MASK), T(WINDOW_MASK), T(KEY_GROUP), T(MACRO),
               T(AUXILIARY_FUNCTION), T(AUXILIARY_INPUT), T(AUXILIARY_TYPE2_FUNCTION), T(AUXILIARY_TYPE2_INPUT),
               T(EXTERNAL_OBJECT_DEFINITION), T(COLOUR_MAP), T(COLOUR_PALETTE), T(OBJECT_LABELREF_LIST),
               T(WORKING_SET_SPECIAL_CONTROLS), T(ISO_SPECIAL_CONTROLS)});
    // The system's own types, from the field on, all stand at the top of a pool (graphic data
    // is shown through the scaled graphics that name it).
    return holds(roots, type) || (type >= T(FIELD) && type != T(GRAPHIC_DATA) && type != T(ISO_SPECIAL_CONTROLS));
}

// --- References ---------------------------------------------------------------------------

namespace {

const Type_set FONT = types({T(FONT_ATTRIBUTES)});
const Type_set LINE = types({T(LINE_ATTRIBUTES)});
const Type_set FILL = types({T(FILL_ATTRIBUTES)});
const Type_set NUMBER = types({T(NUMBER_VARIABLE)});
const Type_set STRING = types({T(STRING_VARIABLE)});
const Type_set PICTURE = types({T(PICTURE_GRAPHIC), T(PNG)});
const Type_set TEXT = types({T(OUTPUT_STRING), T(OBJECT_POINTER)});

const char* const FONT_HINT = "name a Font_attributes object";
const char* const LINE_HINT = "name a Line_attributes object";
const char* const FILL_HINT = "name a Fill_attributes object, or 65535 for no filling";
const char* const NUMBER_HINT = "name a Number_variable, or 65535 to show the object's own value";
const char* const STRING_HINT = "name a String_variable, or 65535 to show the object's own text";

const Reference_fact reference_facts[] = {
    {T(WORKING_SET), "active_mask", types({T(DATA_MASK), T(ALARM_MASK)}), Null_rule::never,
     "name the Data_mask (or Alarm_mask) shown when the working set starts"},
    {T(DATA_MASK), "soft_key_mask", types({T(SOFT_KEY_MASK)}), Null_rule::allowed,
     "name a Soft_key_mask, or 65535 for no soft keys"},
    {T(ALARM_MASK), "soft_key_mask", types({T(SOFT_KEY_MASK)}), Null_rule::allowed,
     "name a Soft_key_mask, or 65535 for no soft keys"},
    {T(KEY_GROUP), "group_name", TEXT, Null_rule::never, "name the Output_string that names the group"},
    {T(KEY_GROUP), "key_group_icon", PICTURE, Null_rule::allowed, "name a Picture_graphic, or 65535"},

    {T(INPUT_BOOLEAN), "foreground_colour", FONT, Null_rule::never,
     "name the Font_attributes object whose colour draws the tick"},
    {T(INPUT_BOOLEAN), "variable_reference", NUMBER, Null_rule::allowed, NUMBER_HINT},
    {T(INPUT_STRING), "font_attributes", FONT, Null_rule::never, FONT_HINT},
    {T(INPUT_STRING), "input_attributes", types({T(INPUT_ATTRIBUTES), T(EXTENDED_INPUT_ATTRIBUTES)}),
     Null_rule::allowed, "name an Input_attributes or Extended_input_attributes object, or 65535"},
    {T(INPUT_STRING), "variable_reference", STRING, Null_rule::allowed, STRING_HINT},
    {T(INPUT_NUMBER), "font_attributes", FONT, Null_rule::never, FONT_HINT},
    {T(INPUT_NUMBER), "variable_reference", NUMBER, Null_rule::allowed, NUMBER_HINT},
    {T(INPUT_LIST), "variable_reference", NUMBER, Null_rule::allowed, NUMBER_HINT},
    {T(OUTPUT_STRING), "font_attributes", FONT, Null_rule::never, FONT_HINT},
    {T(OUTPUT_STRING), "variable_reference", STRING, Null_rule::allowed,
     "name a String_variable (a number is shown by an Output_number), or 65535"},
    {T(OUTPUT_NUMBER), "font_attributes", FONT, Null_rule::never, FONT_HINT},
    {T(OUTPUT_NUMBER), "variable_reference", NUMBER, Null_rule::allowed,
     "name a Number_variable (a text is shown by an Output_string), or 65535"},
    {T(OUTPUT_LIST), "variable_reference", NUMBER, Null_rule::allowed, NUMBER_HINT},

    {T(LINE), "line_attributes", LINE, Null_rule::never, LINE_HINT},
    {T(RECTANGLE), "line_attributes", LINE, Null_rule::never, LINE_HINT},
    {T(RECTANGLE), "fill_attributes", FILL, Null_rule::allowed, FILL_HINT},
    {T(ELLIPSE), "line_attributes", LINE, Null_rule::never, LINE_HINT},
    {T(ELLIPSE), "fill_attributes", FILL, Null_rule::allowed, FILL_HINT},
    {T(POLYGON), "line_attributes", LINE, Null_rule::never, LINE_HINT},
    {T(POLYGON), "fill_attributes", FILL, Null_rule::allowed, FILL_HINT},
    {T(SCALED_GRAPHIC), "value", types({T(GRAPHIC_DATA)}), Null_rule::allowed,
     "name a Graphic_data object, or 65535 to show nothing"},
    {T(ISO_SPECIAL_CONTROLS), "colour_map", types({T(COLOUR_MAP)}), Null_rule::allowed,
     "name a Colour_map, or 65535 for the standard colours"},
    {T(ISO_SPECIAL_CONTROLS), "colour_palette", types({T(COLOUR_PALETTE)}), Null_rule::allowed,
     "name a Colour_palette, or 65535 for the standard palette"},
    {T(FILL_ATTRIBUTES), "fill_pattern", types({T(PICTURE_GRAPHIC)}), Null_rule::not_with_pattern,
     "name the Picture_graphic to fill with, or use another fill type"},

    {T(METER), "variable_reference", NUMBER, Null_rule::allowed, NUMBER_HINT},
    {T(LINEAR_BAR_GRAPH), "variable_reference", NUMBER, Null_rule::allowed, NUMBER_HINT},
    {T(LINEAR_BAR_GRAPH), "target_variable_reference", NUMBER, Null_rule::allowed, NUMBER_HINT},
    {T(ARCHED_BAR_GRAPH), "variable_reference", NUMBER, Null_rule::allowed, NUMBER_HINT},
    {T(ARCHED_BAR_GRAPH), "target_value_reference", NUMBER, Null_rule::allowed, NUMBER_HINT},

    {T(GRAPHICS_CONTEXT), "font_attributes", FONT, Null_rule::allowed, FONT_HINT},
    {T(GRAPHICS_CONTEXT), "line_attributes", LINE, Null_rule::allowed, LINE_HINT},
    {T(GRAPHICS_CONTEXT), "fill_attributes", FILL, Null_rule::allowed, FILL_HINT},
    {T(WINDOW_MASK), "window_name", TEXT, Null_rule::allowed, "name an Output_string"},
    {T(WINDOW_MASK), "window_title", TEXT, Null_rule::allowed, "name an Output_string"},
    {T(WINDOW_MASK), "window_icon", types({T(PICTURE_GRAPHIC), T(PNG), T(OBJECT_POINTER)}), Null_rule::allowed,
     "name a Picture_graphic"},
    {T(AUXILIARY_TYPE2_CONTROL_DESIGNATOR), "auxiliary_object_id",
     types({T(AUXILIARY_TYPE2_FUNCTION), T(AUXILIARY_TYPE2_INPUT)}), Null_rule::allowed,
     "name an Auxiliary_type2_function or Auxiliary_type2_input"},
    {T(EXTERNAL_OBJECT_POINTER), "external_reference_name_id", types({T(EXTERNAL_REFERENCE_NAME)}),
     Null_rule::allowed, "name an External_reference_name"},
    {T(OBJECT_LABELREF_LIST), "labelrefs.string_variable", STRING, Null_rule::allowed,
     "name the String_variable that holds the label, or 65535"},
    {T(OBJECT_LABELREF_LIST), "labelrefs.graphic_representation", PICTURE, Null_rule::allowed,
     "name a Picture_graphic, or 65535"},
    {T(OBJECT_LABELREF_LIST), "labelrefs.labelled_object", 0, Null_rule::never, "name the object the label is for"},
};

}

const Reference_fact* reference_fact(unsigned owner_type, const char* attribute)
{
    for (const Reference_fact& f : reference_facts)
        if (f.owner == owner_type && strcmp(f.attribute, attribute) == 0)
            return &f;
    return nullptr;
}

// --- Events -------------------------------------------------------------------------------

namespace {

const char* const event_names[] = {
    nullptr,                               // 0 reserved
    "On Activate (1)",                     // the working set becomes active
    "On Deactivate (2)",                   // ... inactive
    "On Show (3)",                         // a mask is shown, a container made visible
    "On Hide (4)",                         // ... hidden
    "On Enable (5)",                       // an input, button or animation is enabled
    "On Disable (6)",                      // ... disabled
    "On Change Active Mask (7)",           // Change Active Mask command
    "On Change Soft Key Mask (8)",         // Change Soft Key Mask command
    "On Change Attribute (9)",             // Change Attribute command
    "On Change Background Colour (10)",    // Change Background Colour command
    "On Change Font Attributes (11)",      // Change Font Attributes command
    "On Change Line Attributes (12)",      // Change Line Attributes command
    "On Change Fill Attributes (13)",      // Change Fill Attributes command
    "On Change Child Location (14)",       // Change Child Location command
    "On Change Size (15)",                 // Change Size command
    "On Change Value (16)",                // Change Numeric Value or Change String Value command
    "On Change Priority (17)",             // Change Priority command
    "On Change End Point (18)",            // Change End Point command
    "On Input Field Selection (19)",       // an input, key or button gets the focus
    "On Input Field Deselection (20)",     // ... loses it
    "On ESC (21)",                         // input aborted
    "On Entry of Value (22)",              // input completed
    "On Entry of New Value (23)",          // input completed with a changed value
    "On Key Press (24)",                   // a soft key or button is pressed
    "On Key Release (25)",                 // ... released
    "On Change Child Position (26)",       // Change Child Position command
    "On Pointing Event Press (27)",        // the operator touches a mask
    "On Pointing Event Release (28)",      // ... and lets go
};
const unsigned LAST_EVENT = 28;

constexpr uint32_t events(std::initializer_list<unsigned> list)
{
    uint32_t s = 0;
    for (unsigned e : list)
        s |= uint32_t(1) << e;
    return s;
}

// The events each object raises. An object raises On Change Attribute when it has attributes
// that a Change Attribute command may change, and the event of every other command that may
// change it; masks and containers are shown and hidden, inputs, keys and buttons are operated.
const uint32_t CHANGE_ATTRIBUTE = events({9});
const uint32_t SIZE = events({15});
const uint32_t VALUE = events({16});
const uint32_t CHILDREN = events({14, 26});
const uint32_t COLOUR = events({10});
const uint32_t SHOWN = events({3, 4});
const uint32_t ENABLED = events({5, 6});
const uint32_t INPUT = events({19, 20, 21, 22, 23});
const uint32_t KEYED = events({19, 20, 24, 25});
const uint32_t POINTED = events({27, 28});

struct Event_fact
{
    unsigned type;
    uint32_t raised;
};

const Event_fact event_facts[] = {
    {T(WORKING_SET), events({1, 2, 7}) | CHANGE_ATTRIBUTE | COLOUR | CHILDREN},
    {T(DATA_MASK), SHOWN | events({8}) | CHANGE_ATTRIBUTE | COLOUR | CHILDREN | POINTED},
    {T(ALARM_MASK), SHOWN | events({8, 17}) | CHANGE_ATTRIBUTE | COLOUR | CHILDREN | POINTED},
    {T(CONTAINER), SHOWN | CHANGE_ATTRIBUTE | SIZE | CHILDREN},
    {T(SOFT_KEY_MASK), SHOWN | CHANGE_ATTRIBUTE | COLOUR},
    {T(KEY), KEYED | CHANGE_ATTRIBUTE | COLOUR | CHILDREN},
    {T(BUTTON), KEYED | ENABLED | CHANGE_ATTRIBUTE | COLOUR | SIZE | CHILDREN},
    {T(INPUT_BOOLEAN), INPUT | ENABLED | CHANGE_ATTRIBUTE | COLOUR | SIZE | VALUE},
    {T(INPUT_STRING), INPUT | ENABLED | CHANGE_ATTRIBUTE | COLOUR | SIZE | VALUE},
    {T(INPUT_NUMBER), INPUT | ENABLED | CHANGE_ATTRIBUTE | COLOUR | SIZE | VALUE},
    {T(INPUT_LIST), INPUT | ENABLED | CHANGE_ATTRIBUTE | SIZE | VALUE},
    {T(OUTPUT_STRING), CHANGE_ATTRIBUTE | COLOUR | SIZE | VALUE},
    {T(OUTPUT_NUMBER), CHANGE_ATTRIBUTE | COLOUR | SIZE | VALUE},
    {T(LINE), CHANGE_ATTRIBUTE | SIZE | events({18})},
    {T(RECTANGLE), CHANGE_ATTRIBUTE | SIZE},
    {T(ELLIPSE), CHANGE_ATTRIBUTE | SIZE},
    {T(POLYGON), CHANGE_ATTRIBUTE | SIZE},
    {T(METER), CHANGE_ATTRIBUTE | SIZE | VALUE},
    {T(LINEAR_BAR_GRAPH), CHANGE_ATTRIBUTE | SIZE | VALUE},
    {T(ARCHED_BAR_GRAPH), CHANGE_ATTRIBUTE | SIZE | VALUE},
    {T(PICTURE_GRAPHIC), CHANGE_ATTRIBUTE | SIZE},
    {T(NUMBER_VARIABLE), VALUE},
    {T(STRING_VARIABLE), VALUE},
    {T(FONT_ATTRIBUTES), CHANGE_ATTRIBUTE | events({11})},
    {T(LINE_ATTRIBUTES), CHANGE_ATTRIBUTE | events({12})},
    {T(FILL_ATTRIBUTES), CHANGE_ATTRIBUTE | events({13})},
    {T(INPUT_ATTRIBUTES), CHANGE_ATTRIBUTE | VALUE},
    {T(OBJECT_POINTER), VALUE},
    {T(WINDOW_MASK), SHOWN | CHANGE_ATTRIBUTE | COLOUR | CHILDREN},
    {T(KEY_GROUP), CHANGE_ATTRIBUTE},
    {T(OUTPUT_LIST), CHANGE_ATTRIBUTE | SIZE | VALUE},
    {T(ANIMATION), ENABLED | CHANGE_ATTRIBUTE | SIZE | VALUE | CHILDREN},
    {T(PNG), CHANGE_ATTRIBUTE | SIZE},
    {T(SCALED_GRAPHIC), CHANGE_ATTRIBUTE | SIZE | VALUE},
    {T(GRAPHIC_DATA), 0},
    {T(ISO_SPECIAL_CONTROLS), 0},
};

const Event_fact* event_fact(unsigned type)
{
    for (const Event_fact& f : event_facts)
        if (f.type == type)
            return &f;
    return nullptr;
}

}

Event_kind event_kind(unsigned event)
{
    if (event >= 1 && event <= LAST_EVENT)
        return Event_kind::defined;
    if (event >= 240 && event <= 254)
        return Event_kind::proprietary;
    if (event == 255)
        return Event_kind::extended_reference;
    return Event_kind::reserved;
}

const char* event_name(unsigned event)
{
    return event <= LAST_EVENT && event_names[event] ? event_names[event] : "a reserved event";
}

bool raises(unsigned type, unsigned event)
{
    if (event_kind(event) != Event_kind::defined)
        return event_kind(event) == Event_kind::proprietary;
    const Event_fact* f = event_fact(type);
    return !f || (f->raised >> event) & 1;
}

QString events_of(unsigned type)
{
    const Event_fact* f = event_fact(type);
    QStringList names;
    for (unsigned e = 1; f && e <= LAST_EVENT; ++e)
        if ((f->raised >> e) & 1)
            names.append(QString::fromLatin1(event_names[e]));
    return names.isEmpty() ? QStringLiteral("none") : names.join(QStringLiteral(", "));
}

// --- Number ranges ------------------------------------------------------------------------

const Range_fact range_facts[] = {
    {T(INPUT_NUMBER), "min_value", "max_value", {{"value", "variable_reference"}, {}}},
    {T(METER), "min_value", "max_value", {{"value", "variable_reference"}, {}}},
    {T(LINEAR_BAR_GRAPH), "min_value", "max_value",
     {{"value", "variable_reference"}, {"target_value", "target_variable_reference"}}},
    {T(ARCHED_BAR_GRAPH), "min_value", "max_value",
     {{"value", "variable_reference"}, {"target_value", "target_value_reference"}}},
    {T(ANIMATION), "first_child_index", "last_child_index", {}},
};
const int range_fact_count = int(sizeof range_facts / sizeof range_facts[0]);

const Index_fact index_facts[] = {
    {T(INPUT_LIST), "value", "child_objects", "variable_reference", 255},
    {T(OUTPUT_LIST), "value", "child_objects", "variable_reference", 255},
    {T(ANIMATION), "first_child_index", "child_location", nullptr, -1},
    {T(ANIMATION), "last_child_index", "child_location", nullptr, -1},
    {T(ANIMATION), "default_child_index", "child_location", nullptr, -1},
};
const int index_fact_count = int(sizeof index_facts / sizeof index_facts[0]);

// --- VT versions of attribute values -------------------------------------------------------

const Value_version value_versions[] = {
    {T(FONT_ATTRIBUTES), "font_style", Base::Font_attributes_obj::STYLE_PROPORTIONAL, 4,
     "a proportional font (font_style bit 7)"},
    {T(OUTPUT_STRING), "options", 0x04, 4, "wrapping on hyphens (options bit 2)"},
    {T(OUTPUT_NUMBER), "options", 0x08, 4, "truncating to the field (options bit 3)"},
    {T(INPUT_NUMBER), "options", 0x08, 4, "truncating to the field (options bit 3)"},
    {T(INPUT_NUMBER), "options2", 0x02, 4, "real-time editing (options2 bit 1)"},
    {T(INPUT_LIST), "options2", 0x02, 4, "real-time editing (options2 bit 1)"},
    {T(BUTTON), "options", 0x04, 4, "a suppressed border (options bit 2)"},
    {T(BUTTON), "options", 0x08, 4, "a transparent background (options bit 3)"},
    {T(BUTTON), "options", 0x10, 4, "a disabled button (options bit 4)"},
    {T(BUTTON), "options", 0x20, 4, "no border (options bit 5)"},
};
const int value_version_count = int(sizeof value_versions / sizeof value_versions[0]);

int value_version(unsigned type, const char* attribute, uint32_t bits)
{
    int version = 2;
    for (const Value_version& v : value_versions)
        if (v.type == type && (v.bits & bits) && !strcmp(v.attribute, attribute))
            version = std::max(version, v.version);
    return version;
}

#undef T

}
}
