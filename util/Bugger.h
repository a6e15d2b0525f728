#ifndef UTIL_BUGGER_H
#define UTIL_BUGGER_H

// Internal-error reporting: prints "BUG: <text>\r\n" and stops the process.
class Bugger
{
public:
    [[noreturn]] static void report_bug(const char* text);
};

#endif
