#include "util/Bugger.h"

#include <cstdio>
#include <cstdlib>

void Bugger::report_bug(const char* text)
{
    printf("BUG: %s\r\n", text ? text : "");
    fflush(stdout);
    assertion_failed("false", __FILE__, __LINE__, __func__);
}

void Bugger::assertion_failed(const char* expr, const char* file, int line, const char* function)
{
    fflush(stdout);
    fprintf(stderr, "%s:%d: %s: Assertion `%s' failed.\n", file, line, function, expr);
    fflush(stderr);
    abort();
}
