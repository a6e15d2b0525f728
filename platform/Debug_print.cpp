#include "platform/Debug_print.h"

#include <cstdarg>
#include <cstdio>
#include <vector>

namespace {
Debug_print::sink_t& current_sink()
{
    static Debug_print::sink_t sink;
    return sink;
}
}

int Debug_print::dprint(const char* fmt, ...)
{
    va_list args;
    va_start(args, fmt);
    va_list copy;
    va_copy(copy, args);
    int n = vsnprintf(nullptr, 0, fmt, copy);
    va_end(copy);
    if (n < 0) {
        va_end(args);
        return n;
    }
    std::vector<char> text(static_cast<size_t>(n) + 1);
    vsnprintf(text.data(), text.size(), fmt, args);
    va_end(args);
    if (current_sink())
        current_sink()(std::string(text.data(), static_cast<size_t>(n)));
    else
        fputs(text.data(), stderr);
    return n;
}

void Debug_print::set_sink(sink_t sink)
{
    current_sink() = std::move(sink);
}

Debug_print::sink_t Debug_print::get_sink()
{
    return current_sink();
}
