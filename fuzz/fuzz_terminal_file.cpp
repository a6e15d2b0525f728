// Terminal files (INI or JSON): whatever the bytes, the reader either gives a terminal every
// tool can use or leaves the terminal as it was and says why.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "tools/terminal/Terminal_file.h"
#include "tools/terminal/Terminal_properties.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    VT::Terminal terminal;
    terminal.colours = 16;
    const VT::Terminal before = terminal;
    QString error;
    QStringList named;
    const bool ok = VT::Terminal_file::read(QByteArray(reinterpret_cast<const char*>(data), int(size)), "fuzz.ini",
                                            terminal, &error, &named);
    if (ok) {
        const bool usable = (terminal.vt_version == 0 || (terminal.vt_version >= 2 && terminal.vt_version <= 6)) &&
                            (terminal.colours == 2 || terminal.colours == 16 || terminal.colours == 256) &&
                            terminal.data_mask_width > 0 && terminal.data_mask_height > 0 && terminal.key_width > 0 &&
                            terminal.key_height > 0 && terminal.physical_soft_keys <= 64 &&
                            VT::terminal_problem(terminal).isEmpty() && error.isEmpty();
        if (!usable)
            abort();
        for (const QString& name : named)
            if (!VT::find_terminal_property(name))
                abort();
    } else if (error.isEmpty() || terminal.colours != before.colours || terminal.vt_version != before.vt_version ||
               terminal.small_fonts != before.small_fonts || terminal.data_mask_width != before.data_mask_width) {
        abort();
    }
    return 0;
}
