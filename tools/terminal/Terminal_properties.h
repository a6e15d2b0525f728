#ifndef TOOLS_TERMINAL_TERMINAL_PROPERTIES_H
#define TOOLS_TERMINAL_TERMINAL_PROPERTIES_H

#include <QString>
#include <vector>

#include "tools/terminal/Terminal.h"

namespace VT {

// The properties of a Terminal by name, as a terminal file and vtpool's options give them:
// "vt-version", "colours", "mask-size", "key-size", "soft-keys", "small-fonts", "large-fonts",
// "font-styles". Each reads its value from text and says what it takes when the text is bad.
struct Terminal_property
{
    const char* name;
    const char* value_name; // "N", "WxH", "MASK", ...
    const char* help;       // one line, for the command line's help
    // Sets the property from `text`; false when the text is not a value it takes.
    bool (*set)(Terminal& terminal, const QString& text);
    const char* takes; // what a good value looks like: "takes 2, 16 or 256"
};

// Every property, in the order help texts list them.
const std::vector<Terminal_property>& terminal_properties();
// The property of that name (underscores count as dashes), or null.
const Terminal_property* find_terminal_property(const QString& name);

// What makes the terminal as a whole unusable (no font size at all), or an empty string.
QString terminal_problem(const Terminal& terminal);

// Numbers as a terminal's values are written: decimal or 0x-hexadecimal, up to `max`; sizes N
// (square) or WIDTHxHEIGHT, each side 1 to `max`.
bool parse_terminal_number(const QString& text, unsigned max, unsigned& out);
bool parse_terminal_size(const QString& text, unsigned max, unsigned& width, unsigned& height, bool square_allowed);

}

#endif
