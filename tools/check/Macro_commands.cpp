#include "tools/check/Macro_commands.h"

#include "vt_core.h"

namespace VT {
namespace Check {

#define T(NAME) VT_obj_type::TYPE_##NAME

namespace {

constexpr Macro_field object(uint8_t at, Type_set accepted, const char* what)
{
    return {at, Macro_field::object, accepted, what};
}
constexpr Macro_field object_or_null(uint8_t at, Type_set accepted, const char* what)
{
    return {at, Macro_field::object_or_null, accepted, what};
}
// An object that has the attribute the command changes.
constexpr Macro_field having(uint8_t at, const char* attribute, const char* what)
{
    return {at, Macro_field::object, 0, what, attribute};
}
// Bytes first..last (inclusive) hold 0xFF.
constexpr uint16_t reserved(unsigned first, unsigned last)
{
    uint16_t bits = 0;
    for (unsigned b = first; b <= last; ++b)
        bits |= uint16_t(1u << b);
    return bits;
}

const Type_set INPUTS = types({T(INPUT_BOOLEAN), T(INPUT_STRING), T(INPUT_NUMBER), T(INPUT_LIST)});
const Type_set NUMERIC = (INPUTS & ~types({T(INPUT_STRING)})) |
                         types({T(OUTPUT_NUMBER), T(METER), T(LINEAR_BAR_GRAPH), T(ARCHED_BAR_GRAPH),
                                T(NUMBER_VARIABLE), T(OBJECT_POINTER), T(OUTPUT_LIST), T(EXTERNAL_OBJECT_POINTER),
                                T(ANIMATION)});
const Type_set MASKS = types({T(DATA_MASK), T(ALARM_MASK)});
const Type_set PICTURES = types({T(PICTURE_GRAPHIC), T(PNG)});

// Every VT command; those a macro may not hold say so. Lengths are those of the command's
// message; the fields not listed (values, colours, positions) may hold anything.
const Macro_command_fact commands[] = {
    {0x90, "Select Active Working Set", 9, 6, true, {}, 0},
    {0x92, "ESC", 8, 3, true, {}, reserved(1, 7)},
    {0xA0, "Hide/Show Object", 8, 2, true, {object(1, types({T(CONTAINER)}), "the object to hide or show")},
     reserved(4, 7)},
    {0xA1, "Enable/Disable Object", 8, 2, true,
     {object(1, INPUTS | types({T(BUTTON), T(ANIMATION)}), "the object to enable or disable")}, reserved(4, 7)},
    {0xA2, "Select Input Object", 8, 2, true, {object(1, INPUTS | types({T(KEY), T(BUTTON)}), "the object to select")},
     reserved(4, 7)},
    {0xA3, "Control Audio Signal", 8, 2, true, {}, 0},
    {0xA4, "Set Audio Volume", 8, 2, true, {}, reserved(2, 7)},
    {0xA5, "Change Child Location", 8, 2, true, {having(1, "child_location", "the parent"), object(3, 0, "the child")},
     reserved(7, 7)},
    {0xA6, "Change Size", 8, 2, true, {having(1, "width", "the object to resize")}, reserved(7, 7)},
    {0xA7, "Change Background Colour", 8, 2, true, {having(1, "background_colour", "the object to colour")},
     reserved(4, 7)},
    {0xA8, "Change Numeric Value", 8, 2, true, {object(1, NUMERIC, "the object whose value changes")}, reserved(3, 3)},
    {0xA9, "Change End Point", 8, 2, true, {object(1, types({T(LINE)}), "the line")}, 0},
    {0xAA, "Change Font Attributes", 8, 2, true, {object(1, types({T(FONT_ATTRIBUTES)}), "the font attributes")},
     reserved(7, 7)},
    {0xAB, "Change Line Attributes", 8, 2, true, {object(1, types({T(LINE_ATTRIBUTES)}), "the line attributes")},
     reserved(7, 7)},
    {0xAC, "Change Fill Attributes", 8, 2, true,
     {object(1, types({T(FILL_ATTRIBUTES)}), "the fill attributes"),
      object_or_null(5, types({T(PICTURE_GRAPHIC)}), "the fill pattern")},
     reserved(7, 7)},
    {0xAD, "Change Active Mask", 8, 2, true,
     {object(1, types({T(WORKING_SET)}), "the working set"), object(3, MASKS, "the new active mask")}, reserved(5, 7)},
    {0xAE, "Change Soft Key Mask", 8, 2, true,
     {object(2, MASKS, "the mask"), object_or_null(4, types({T(SOFT_KEY_MASK)}), "the new soft key mask")},
     reserved(6, 7)},
    {0xAF, "Change Attribute", 8, 2, true,
     {object(1, 0, "the object"), {3, Macro_field::attribute_id, 0, "the attribute id"}}, 0},
    {0xB0, "Change Priority", 8, 2, true, {object(1, types({T(ALARM_MASK)}), "the alarm mask")}, reserved(4, 7)},
    {0xB1, "Change List Item", 8, 2, true,
     {object(1, types({T(INPUT_LIST), T(OUTPUT_LIST)}), "the list"), object_or_null(4, 0, "the new item")},
     reserved(6, 7)},
    {0xB2, "Delete Object Pool", 8, 2, false, {}, 0},
    {0xB3, "Change String Value", 0, 2, true,
     {object(1, types({T(INPUT_STRING), T(OUTPUT_STRING), T(STRING_VARIABLE)}), "the object whose text changes")}, 0},
    {0xB4, "Change Child Position", 9, 3, true, {having(1, "child_location", "the parent"), object(3, 0, "the child")},
     0},
    {0xB5, "Change Object Label", 8, 4, true,
     {object(1, 0, "the labelled object"), object_or_null(3, types({T(STRING_VARIABLE)}), "the label"),
      object_or_null(6, PICTURES, "the label's picture")},
     0},
    {0xB6, "Change Polygon Point", 8, 4, true, {object(1, types({T(POLYGON)}), "the polygon")}, 0},
    {0xB7, "Change Polygon Scale", 8, 4, true, {object(1, types({T(POLYGON)}), "the polygon")}, reserved(7, 7)},
    {0xB8, "Graphics Context", 0, 4, true, {object(1, types({T(GRAPHICS_CONTEXT)}), "the graphics context")}, 0},
    {0xB9, "Get Attribute Value", 8, 4, false, {}, 0},
    {0xBA, "Select Colour Map", 8, 4, true, {object_or_null(1, types({T(COLOUR_MAP)}), "the colour map")},
     reserved(3, 7)},
    {0xBB, "Identify VT", 8, 4, false, {}, 0},
    {0xBC, "Execute Extended Macro", 8, 5, true, {object(1, types({T(MACRO)}), "the macro")}, reserved(3, 7)},
    {0xBD, "Lock/Unlock Mask", 8, 4, true, {object(2, types({T(DATA_MASK)}), "the data mask")}, reserved(6, 7)},
    {0xBE, "Execute Macro", 8, 4, true, {{1, Macro_field::macro_8, types({T(MACRO)}), "the macro"}}, reserved(2, 7)},
};

// Graphics sub-commands: the object they name sits at bytes 4-5.
const Graphics_command_fact graphics_commands[] = {
    {0, "Set Graphics Cursor", 8, {}},
    {1, "Move Graphics Cursor", 8, {}},
    {2, "Set Foreground Colour", 5, {}},
    {3, "Set Background Colour", 5, {}},
    {4, "Set Line Attributes Object ID", 6, object_or_null(4, types({T(LINE_ATTRIBUTES)}), "the line attributes")},
    {5, "Set Fill Attributes Object ID", 6, object_or_null(4, types({T(FILL_ATTRIBUTES)}), "the fill attributes")},
    {6, "Set Font Attributes Object ID", 6, object_or_null(4, types({T(FONT_ATTRIBUTES)}), "the font attributes")},
    {7, "Erase Rectangle", 8, {}},
    {8, "Draw Point", 8, {}},
    {9, "Draw Line", 8, {}},
    {10, "Draw Rectangle", 8, {}},
    {11, "Draw Closed Ellipse", 8, {}},
    {12, "Draw Polygon", 0, {}}, // 5 + 4 bytes per point, the count at byte 4
    {13, "Draw Text", 0, {}},    // 6 + the text, its length at byte 5
    {14, "Pan Viewport", 8, {}},
    {15, "Zoom Viewport", 8, {}},
    {16, "Pan and Zoom Viewport", 12, {}},
    {17, "Change Viewport Size", 8, {}},
    {18, "Draw VT Object", 6, object(4, 0, "the object to draw")},
    {19, "Copy Canvas to Picture Graphic", 6, object(4, types({T(PICTURE_GRAPHIC)}), "the picture")},
    {20, "Copy Viewport to Picture Graphic", 6, object(4, types({T(PICTURE_GRAPHIC)}), "the picture")},
};

}

const Macro_command_fact* Macro_commands::find(uint8_t code)
{
    for (const Macro_command_fact& c : commands)
        if (c.code == code)
            return &c;
    return nullptr;
}

const Graphics_command_fact* Macro_commands::find_graphics(uint8_t code)
{
    return code < sizeof graphics_commands / sizeof graphics_commands[0] ? &graphics_commands[code] : nullptr;
}

QVector<Macro_command> Macro_commands::decode(const uint8_t* bytes, int size)
{
    QVector<Macro_command> out;
    int p = 0;
    while (p < size) {
        if (bytes[p] == 0xFF) { // padding after a command shorter than a message
            ++p;
            continue;
        }
        Macro_command c;
        c.offset = p;
        c.fact = find(bytes[p]);
        const int left = size - p;
        auto at = [&](int i) { return i < left ? int(bytes[p + i]) : -1; };
        if (!c.fact) {
            c.length = c.wanted = 1;
            out.append(c);
            break;
        }
        int length = c.fact->length;
        if (c.fact->code == 0xB3) {
            length = at(4) < 0 ? 5 : 5 + (at(3) | at(4) << 8);
        } else if (c.fact->code == 0xB8) {
            c.graphics = at(3) < 0 ? nullptr : find_graphics(uint8_t(at(3)));
            if (at(3) >= 0 && !c.graphics) {
                c.unknown_graphics = true;
                c.length = c.wanted = 4;
                out.append(c);
                break;
            }
            length = c.graphics ? c.graphics->length : 4;
            if (c.graphics && c.graphics->code == 12)
                length = at(4) < 0 ? 5 : 5 + 4 * at(4);
            else if (c.graphics && c.graphics->code == 13)
                length = at(5) < 0 ? 6 : 6 + at(5);
        }
        c.truncated = length > left;
        c.wanted = length;
        c.length = std::min(length, left);
        out.append(c);
        if (c.truncated)
            break;
        p += c.length;
    }
    return out;
}

QByteArray Macro_commands::describe(const Macro_command& c)
{
    if (!c.fact)
        return QByteArray("an unknown command");
    QByteArray d = QByteArray(c.fact->name) + " (0x" + QByteArray::number(c.fact->code, 16).toUpper() + ")";
    if (c.graphics)
        d += ", " + QByteArray(c.graphics->name);
    return d;
}

#undef T

}
}
