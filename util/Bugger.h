#ifndef UTIL_BUGGER_H
#define UTIL_BUGGER_H

// Internal-error reporting: prints "BUG: <text>\r\n" and stops the process.
class Bugger
{
public:
    [[noreturn]] static void report_bug(const char* text);
    // Writes "<file>:<line>: <function>: Assertion `<expr>' failed." to standard error and
    // stops the process. Used by VT_ASSERT, which stays active in release builds.
    [[noreturn]] static void assertion_failed(const char* expr, const char* file, int line, const char* function);
};

// An assertion that is never compiled out: the conditions it guards are programming errors
// after which the object model cannot go on.
#define VT_ASSERT(expr) ((expr) ? (void)0 : Bugger::assertion_failed(#expr, __FILE__, __LINE__, __func__))

#endif
