#include "util/Bugger.h"

#include <cstdio>
#include <cstdlib>

void Bugger::report_bug(const char* text)
{
    printf("BUG: %s\r\n", text ? text : "");
    fflush(stdout);
    abort();
}
