#ifndef TOOLS_TERMINAL_TERMINAL_FILE_H
#define TOOLS_TERMINAL_TERMINAL_FILE_H

#include <QByteArray>
#include <QString>
#include <QStringList>

#include "tools/terminal/Terminal.h"

namespace VT {

// A terminal described in a small file (examples/terminals/), one of two forms:
//
//   INI:  "name = value" lines, optionally under one "[terminal]" section; '#' or ';' starts a
//         comment line.
//   JSON: one object, {"colours": 16, "mask-size": "480x480", ...}; numbers or strings.
//
// The names are those of terminal_properties() ("vt-version", "colours", ...; underscores
// count as dashes). Properties the file does not name keep their value in `terminal`.
class Terminal_file
{
public:
    // Reads `content` (named `file_name` in messages) into `terminal`. False with `error`
    // ("file:line: 'name' takes ...") on the first bad line, unknown or repeated name, or a
    // terminal left without fonts; `terminal` is then unchanged. `named`, when given, receives
    // the names of the properties the file sets.
    static bool read(const QByteArray& content, const QString& file_name, Terminal& terminal, QString* error,
                     QStringList* named = nullptr);
    // The same for a file on disk.
    static bool load(const QString& path, Terminal& terminal, QString* error, QStringList* named = nullptr);
};

}

#endif
