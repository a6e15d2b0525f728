#include "tools/reference/Attribute_meanings.h"

#include <QStringList>
#include <cstring>
#include <iterator>

#include "vt_core.h"

namespace VT {

namespace {

typedef VT_obj_type T;

// Sets of meanings that several attributes share.
const Value_meaning no_yes[] = {{0xFF, 0, "no"}, {0xFF, 1, "yes"}};
const Value_meaning shown_hidden[] = {{0xFF, 0, "shown"}, {0xFF, 1, "hidden"}};
const Value_meaning enabled[] = {{0xFF, 0, "disabled"}, {0xFF, 1, "enabled"}};
const Value_meaning justification[] = {
    {0x03, 0, "left"}, {0x03, 1, "centred horizontally"}, {0x03, 2, "right"},
    {0x0C, 0, "top"},  {0x0C, 4, "centred vertically"},   {0x0C, 8, "bottom"}};
const Value_meaning string_options[] = {{1, 1, "transparent"}, {2, 2, "auto-wrap"}, {4, 4, "wrap on hyphen"}};
const Value_meaning number_options[] = {
    {1, 1, "transparent"}, {2, 2, "leading zeros"}, {4, 4, "zero shown as blank"}, {8, 8, "truncated, not rounded"}};
const Value_meaning input_options2[] = {{1, 1, "enabled"}, {2, 2, "real-time editing"}};
const Value_meaning number_format[] = {{0xFF, 0, "fixed decimal"}, {0xFF, 1, "exponential"}};
const Value_meaning pixel_format[] = {
    {0xFF, 0, "monochrome"}, {0xFF, 1, "16 colours (4 bits per pixel)"}, {0xFF, 2, "256 colours (8 bits per pixel)"}};
const Value_meaning validation[] = {{0xFF, 0, "the characters listed are valid"},
                                    {0xFF, 1, "the characters listed are invalid"}};
const Value_meaning bar_options[] = {{1, 1, "border"},
                                     {2, 2, "target line"},
                                     {4, 4, "ticks"},
                                     {8, 8, "bar drawn as a line, not filled"},
                                     {16, 16, "horizontal"},
                                     {32, 32, "grows to the right or upwards"}};
const Value_meaning arched_options[] = {
    {1, 1, "border"}, {2, 2, "target line"}, {8, 8, "bar drawn as a line, not filled"}, {16, 16, "clockwise"}};
const Value_meaning meter_options[] = {{1, 1, "arc"}, {2, 2, "border"}, {4, 4, "ticks"}, {8, 8, "clockwise"}};
const Value_meaning button_options[] = {{1, 1, "latchable"},          {2, 2, "latched"},
                                        {4, 4, "border suppressed"},  {8, 8, "transparent background"},
                                        {16, 16, "disabled"},         {32, 32, "no border"}};
const Value_meaning picture_options[] = {{1, 1, "transparent"}, {2, 2, "flashing"}, {4, 4, "run-length coded"}};
const Value_meaning font_size[] = {
    {0xFF, 0, "6x8"},     {0xFF, 1, "8x8"},     {0xFF, 2, "8x12"},    {0xFF, 3, "12x16"},   {0xFF, 4, "16x16"},
    {0xFF, 5, "16x24"},   {0xFF, 6, "24x32"},   {0xFF, 7, "32x32"},   {0xFF, 8, "32x48"},   {0xFF, 9, "48x64"},
    {0xFF, 10, "64x64"},  {0xFF, 11, "64x96"},  {0xFF, 12, "96x128"}, {0xFF, 13, "128x128"}, {0xFF, 14, "128x192"}};
const Value_meaning font_type[] = {{0xFF, 0, "ISO 8859-1 (Latin 1)"}, {0xFF, 1, "ISO 8859-15 (Latin 9)"},
                                   {0xFF, 2, "ISO 8859-2 (Latin 2)"}, {0xFF, 4, "ISO 8859-4 (Latin 4)"},
                                   {0xFF, 5, "ISO 8859-5 (Cyrillic)"}, {0xFF, 7, "ISO 8859-7 (Greek)"}};
const Value_meaning font_style[] = {{1, 1, "bold"},
                                    {2, 2, "crossed out"},
                                    {4, 4, "underlined"},
                                    {8, 8, "italic"},
                                    {16, 16, "inverted"},
                                    {32, 32, "flashing inverted"},
                                    {64, 64, "flashing hidden"},
                                    {128, 128, "proportional (font_size is then the height in pixels)"}};
const Value_meaning line_direction[] = {{0xFF, 0, "top left to bottom right"}, {0xFF, 1, "bottom left to top right"}};
const Value_meaning line_suppression[] = {
    {1, 1, "no top line"}, {2, 2, "no right line"}, {4, 4, "no bottom line"}, {8, 8, "no left line"}};
const Value_meaning ellipse_type[] = {{0xFF, 0, "closed ellipse"},
                                      {0xFF, 1, "open arc from start_angle to end_angle"},
                                      {0xFF, 2, "closed segment"},
                                      {0xFF, 3, "closed section (pie slice)"}};
const Value_meaning polygon_type[] = {
    {0xFF, 0, "convex"}, {0xFF, 1, "non-convex"}, {0xFF, 2, "complex"}, {0xFF, 3, "open (a polyline)"}};
const Value_meaning fill_type[] = {{0xFF, 0, "no fill"},
                                   {0xFF, 1, "filled with the line colour"},
                                   {0xFF, 2, "filled with fill_colour"},
                                   {0xFF, 3, "filled with the fill_pattern picture"}};
const Value_meaning priority[] = {{0xFF, 0, "high (operator in danger or urgent malfunction)"},
                                  {0xFF, 1, "medium (normal alarm)"},
                                  {0xFF, 2, "low (information only)"}};
const Value_meaning acoustic_signal[] = {
    {0xFF, 0, "highest priority"}, {0xFF, 1, "medium priority"}, {0xFF, 2, "lowest priority"}, {0xFF, 3, "none"}};
const Value_meaning aux_function_type[] = {
    {0xFF, 0, "latching Boolean"}, {0xFF, 1, "analogue"}, {0xFF, 2, "non-latching Boolean"}};
// Bits 0-4 of an auxiliary function's or input's attributes name its kind of control; the three
// bits above them belong to functions only.
const int AUX2_KINDS = 15;
const Value_meaning aux2_function[] = {{0x1F, 0, "Boolean, latching"},
                                       {0x1F, 1, "analogue, keeps its position"},
                                       {0x1F, 2, "Boolean, non-latching"},
                                       {0x1F, 3, "analogue, returns to centre"},
                                       {0x1F, 4, "analogue, returns to its starting end"},
                                       {0x1F, 5, "dual Boolean, both latching"},
                                       {0x1F, 6, "dual Boolean, both non-latching"},
                                       {0x1F, 7, "dual Boolean, latching up"},
                                       {0x1F, 8, "dual Boolean, latching down"},
                                       {0x1F, 9, "analogue returning, with dual Boolean latching"},
                                       {0x1F, 10, "analogue keeping, with dual Boolean latching"},
                                       {0x1F, 11, "quadrature Boolean, non-latching"},
                                       {0x1F, 12, "quadrature analogue, keeps its position"},
                                       {0x1F, 13, "quadrature analogue, returns to centre"},
                                       {0x1F, 14, "bidirectional encoder"},
                                       {0x20, 0x20, "critical control"},
                                       {0x40, 0x40, "assignment restricted to inputs of its own type"},
                                       {0x80, 0x80, "single assignment"}};
const Value_meaning pointer_type[] = {{0xFF, 0, "the auxiliary object named"},
                                      {0xFF, 1, "the objects assigned to the auxiliary object named"},
                                      {0xFF, 2, "the working set of this pool"},
                                      {0xFF, 3, "the working set of the object assigned to the one named"}};
const Value_meaning window_type[] = {{0xFF, 0, "free form"},
                                     {0xFF, 1, "numeric output with units, 1x1"},
                                     {0xFF, 2, "numeric output without units, 1x1"},
                                     {0xFF, 3, "string output, 1x1"},
                                     {0xFF, 4, "numeric input with units, 1x1"},
                                     {0xFF, 5, "numeric input without units, 1x1"},
                                     {0xFF, 6, "string input, 1x1"},
                                     {0xFF, 7, "horizontal linear bar graph, 1x1"},
                                     {0xFF, 8, "single button, 1x1"},
                                     {0xFF, 9, "double button, 1x1"},
                                     {0xFF, 10, "numeric output with units, 2x1"},
                                     {0xFF, 11, "numeric output without units, 2x1"},
                                     {0xFF, 12, "string output, 2x1"},
                                     {0xFF, 13, "numeric input with units, 2x1"},
                                     {0xFF, 14, "numeric input without units, 2x1"},
                                     {0xFF, 15, "string input, 2x1"},
                                     {0xFF, 16, "horizontal linear bar graph, 2x1"},
                                     {0xFF, 17, "single button, 2x1"},
                                     {0xFF, 18, "double button, 2x1"}};
const Value_meaning available_transparent[] = {{1, 1, "available"}, {2, 2, "transparent"}};
const Value_meaning context_options[] = {{1, 1, "transparent"},
                                         {2, 2, "colours from the attribute objects, not the foreground colour"}};
const Value_meaning animation_options[] = {{1, 1, "loops (else plays once)"},
                                           {2, 2, "shows the default child when disabled (else pauses)"}};
const Value_meaning external_options[] = {{1, 1, "enabled"}};
struct Row
{
    unsigned type; // ANY_TYPE: every type
    const char* attribute;
    Attribute_meanings meanings;
};

const unsigned ANY_TYPE = ~0u;

#define BITS(set) {Attribute_meanings::BITS, set, int(std::size(set))}
#define VALUES(set) {Attribute_meanings::VALUES, set, int(std::size(set))}

const Row rows[] = {
    {ANY_TYPE, "horizontal_justification", BITS(justification)},
    {T::TYPE_WORKING_SET, "selectable", VALUES(no_yes)},
    {T::TYPE_ALARM_MASK, "priority", VALUES(priority)},
    {T::TYPE_ALARM_MASK, "acoustic_signal", VALUES(acoustic_signal)},
    {T::TYPE_CONTAINER, "hidden", VALUES(shown_hidden)},
    {T::TYPE_BUTTON, "options", BITS(button_options)},
    {T::TYPE_INPUT_BOOLEAN, "value", VALUES(no_yes)},
    {T::TYPE_INPUT_BOOLEAN, "enabled", VALUES(enabled)},
    {T::TYPE_INPUT_STRING, "options", BITS(string_options)},
    {T::TYPE_INPUT_STRING, "enabled", VALUES(enabled)},
    {T::TYPE_INPUT_NUMBER, "options", BITS(number_options)},
    {T::TYPE_INPUT_NUMBER, "options2", BITS(input_options2)},
    {T::TYPE_INPUT_NUMBER, "format", VALUES(number_format)},
    {T::TYPE_INPUT_LIST, "options2", BITS(input_options2)},
    {T::TYPE_OUTPUT_STRING, "options", BITS(string_options)},
    {T::TYPE_OUTPUT_NUMBER, "options", BITS(number_options)},
    {T::TYPE_OUTPUT_NUMBER, "format", VALUES(number_format)},
    {T::TYPE_LINE, "line_direction", VALUES(line_direction)},
    {T::TYPE_RECTANGLE, "line_suppression", BITS(line_suppression)},
    {T::TYPE_ELLIPSE, "ellipse_type", VALUES(ellipse_type)},
    {T::TYPE_POLYGON, "polygon_type", VALUES(polygon_type)},
    {T::TYPE_METER, "options", BITS(meter_options)},
    {T::TYPE_LINEAR_BAR_GRAPH, "options", BITS(bar_options)},
    {T::TYPE_ARCHED_BAR_GRAPH, "options", BITS(arched_options)},
    {T::TYPE_PICTURE_GRAPHIC, "format", VALUES(pixel_format)},
    {T::TYPE_PICTURE_GRAPHIC, "options", BITS(picture_options)},
    {T::TYPE_FONT_ATTRIBUTES, "font_size", VALUES(font_size)},
    {T::TYPE_FONT_ATTRIBUTES, "font_type", VALUES(font_type)},
    {T::TYPE_FONT_ATTRIBUTES, "font_style", BITS(font_style)},
    {T::TYPE_LINE_ATTRIBUTES, "line_art",
     {Attribute_meanings::BITS, nullptr, 0, "a pattern of 16 pixels repeated along the line, bit 15 first: 1 draws"}},
    {T::TYPE_FILL_ATTRIBUTES, "fill_type", VALUES(fill_type)},
    {T::TYPE_INPUT_ATTRIBUTES, "validation_type", VALUES(validation)},
    {T::TYPE_AUXILIARY_FUNCTION, "function_type", VALUES(aux_function_type)},
    {T::TYPE_AUXILIARY_INPUT, "function_type", VALUES(aux_function_type)},
    {T::TYPE_AUXILIARY_TYPE2_FUNCTION, "function_attributes", BITS(aux2_function)},
    {T::TYPE_AUXILIARY_TYPE2_INPUT, "function_attributes", {Attribute_meanings::BITS, aux2_function, AUX2_KINDS}},
    {T::TYPE_AUXILIARY_TYPE2_CONTROL_DESIGNATOR, "pointer_type", VALUES(pointer_type)},
    {T::TYPE_WINDOW_MASK, "window_type", VALUES(window_type)},
    {T::TYPE_WINDOW_MASK, "options", BITS(available_transparent)},
    {T::TYPE_KEY_GROUP, "options", BITS(available_transparent)},
    {T::TYPE_GRAPHICS_CONTEXT, "format", VALUES(pixel_format)},
    {T::TYPE_GRAPHICS_CONTEXT, "options", BITS(context_options)},
    {T::TYPE_EXTENDED_INPUT_ATTRIBUTES, "validation_type", VALUES(validation)},
    {T::TYPE_OBJECT_LABELREF_LIST, "labelrefs.font_type", VALUES(font_type)},
    {T::TYPE_EXTERNAL_OBJECT_DEFINITION, "options", BITS(external_options)},
    {T::TYPE_EXTERNAL_REFERENCE_NAME, "options", BITS(external_options)},
    {T::TYPE_ANIMATION, "enabled", VALUES(enabled)},
    {T::TYPE_ANIMATION, "options", BITS(animation_options)},
};

#undef BITS
#undef VALUES

// Bits first..last of a contiguous mask, or -1.
void bit_span(uint32_t mask, int& first, int& last)
{
    first = last = -1;
    for (int b = 0; b < 32; ++b)
        if (mask >> b & 1) {
            if (first < 0)
                first = b;
            last = b;
        }
}

}

QString Attribute_meanings::condition(const Value_meaning& m) const
{
    if (kind == VALUES)
        return QString::number(m.match);
    int first = 0, last = 0;
    bit_span(m.mask, first, last);
    if (first == last)
        return m.match ? QStringLiteral("bit %1").arg(first) : QStringLiteral("bit %1 clear").arg(first);
    return QStringLiteral("bits %1-%2 = %3").arg(first).arg(last).arg(m.match >> first);
}

QString Attribute_meanings::explain(uint32_t value) const
{
    if (count == 0)
        return QString();
    QStringList said;
    uint32_t named = 0; // bits that some entry speaks of
    for (int i = 0; i < count; ++i) {
        named |= entries[i].mask;
        if ((value & entries[i].mask) == entries[i].match)
            said.append(QString::fromLatin1(entries[i].text));
    }
    if (kind == VALUES)
        return said.isEmpty() ? QStringLiteral("(not defined)") : said.join(", ");
    for (int b = 0; b < 32; ++b)
        if ((value >> b & 1) && !(named >> b & 1))
            said.append(QStringLiteral("bit %1 (reserved)").arg(b));
    return said.isEmpty() ? QStringLiteral("none") : said.join(", ");
}

const Attribute_meanings* attribute_meanings(unsigned full_type, const char* name)
{
    if (!name)
        return nullptr;
    for (const Row& r : rows)
        if ((r.type == full_type || r.type == ANY_TYPE) && strcmp(r.attribute, name) == 0)
            return &r.meanings;
    return nullptr;
}

}
