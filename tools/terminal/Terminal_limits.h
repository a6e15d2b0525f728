#ifndef TOOLS_TERMINAL_TERMINAL_LIMITS_H
#define TOOLS_TERMINAL_TERMINAL_LIMITS_H

#include "tools/terminal/Terminal.h"
#include "vt_core.h"

namespace VT {

// What the library serialises against for a terminal: its colour depth and fonts.
Serialisation_limits serialisation_limits(const Terminal& terminal);

}

#endif
