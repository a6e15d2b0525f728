#ifndef PLATFORM_DEBUG_PRINT_H
#define PLATFORM_DEBUG_PRINT_H

#include <functional>
#include <string>

// printf-style debug output of the host. Lines go to standard error unless a sink
// is installed, in which case the sink receives each formatted piece instead.
class Debug_print
{
public:
    using sink_t = std::function<void(const std::string&)>;

    static int dprint(const char* fmt, ...) __attribute__((format(printf, 1, 2)));

    // Install a sink (an empty function restores standard error).
    static void set_sink(sink_t sink);
    // The sink installed now (empty: standard error), so that a temporary one can be undone.
    static sink_t get_sink();
};

#endif
