// For fuzz targets that build descriptions: the library ends the process on configuration
// errors that make a pool unusable (a key code of 0, a NULL attribute that must be set, ...),
// after its "FATAL ERROR!" line. Such an ending is the expected answer to that input, not a
// finding. So each description is first built in a child process: when the library ends the
// child for it, the input is done; otherwise the target builds it again itself, where
// libFuzzer sees its coverage, crashes and leaks.
//
// Include it in the one source file of a target: it defines exit().
#ifndef FUZZ_FUZZ_EXIT_H
#define FUZZ_FUZZ_EXIT_H

#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <sstream>

namespace fuzz {

// Exit statuses of the child.
const int CHILD_BUILT = 0, CHILD_ENDED = 97, CHILD_ENDED_SILENTLY = 98;

inline bool& in_child()
{
    static bool flag = false;
    return flag;
}
inline std::ostringstream& child_errors()
{
    static std::ostringstream errors;
    return errors;
}

// Whether `build` ends the process.
inline bool ends_the_process(const std::function<void()>& build)
{
    fflush(stdout);
    fflush(stderr);
    const pid_t pid = fork();
    if (pid < 0) {
        perror("fork");
        abort();
    }
    if (pid == 0) {
        in_child() = true;
        std::cerr.rdbuf(child_errors().rdbuf());
        std::cout.rdbuf(child_errors().rdbuf());
        build();
        _exit(CHILD_BUILT);
    }
    int status = 0;
    while (waitpid(pid, &status, 0) < 0) {
    }
    if (WIFEXITED(status) && WEXITSTATUS(status) == CHILD_ENDED_SILENTLY) {
        fprintf(stderr, "the library ended the process without saying why\n");
        abort();
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == CHILD_ENDED;
}

}

// In the child, the library's exit() ends it with a status the parent reads; elsewhere it is
// the C library's.
extern "C" void exit(int status) noexcept
{
    if (fuzz::in_child()) {
        // The configuration checks (-1, -122) say why on standard error; the image loader
        // (-113 to -115) on standard output.
        const bool said = fuzz::child_errors().str().find("FATAL ERROR!") != std::string::npos ||
                          (status != -1 && status != -122);
        _exit(said ? fuzz::CHILD_ENDED : fuzz::CHILD_ENDED_SILENTLY);
    }
    fflush(nullptr);
    using Exit = void (*)(int);
    static Exit real = reinterpret_cast<Exit>(dlsym(RTLD_NEXT, "exit"));
    real(status);
    __builtin_unreachable();
}

#endif
