// Pool descriptions: XML text parsed and built into a pool, which is then written out.
// Relative picture files resolve against examples/, so the example descriptions work as starting inputs.
//
// The library ends the process on configuration errors that make a pool unusable (a key code
// of 0, a NULL attribute that must be set, ...), after its "FATAL ERROR!" line. Such an ending
// is the expected answer to that input, not a finding. So each description is first built in
// a child process: when the library ends the child for it, the input is done; otherwise it is
// built again here, where libFuzzer sees its coverage, crashes and leaks.
#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <iostream>
#include <sstream>

#include "fuzz/fuzz_support.h"
#include "tools/description/Description.h"
#include "tools/pool/Pool_file.h"

namespace {

// Exit statuses of the child.
const int CHILD_BUILT = 0, CHILD_ENDED = 97, CHILD_ENDED_SILENTLY = 98;

bool in_child = false;
std::ostringstream child_errors;

bool parse(const uint8_t* data, size_t size, VT::Description& d)
{
    return d.parse(QByteArray(reinterpret_cast<const char*>(data), int(size)),
                   QStringLiteral(VT_EXAMPLES_DIR "/fuzz.xml"));
}

// Whether the library ends the process while building this description.
bool ends_the_process(const uint8_t* data, size_t size)
{
    fflush(stdout);
    fflush(stderr);
    const pid_t pid = fork();
    if (pid < 0) {
        perror("fork");
        abort();
    }
    if (pid == 0) {
        in_child = true;
        std::cerr.rdbuf(child_errors.rdbuf());
        std::cout.rdbuf(child_errors.rdbuf());
        VT::Object_pool pool;
        auto d = std::make_shared<VT::Description>();
        pool.keep_alive(d);
        if (parse(data, size, *d))
            d->build(pool);
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
    if (in_child) {
        // The configuration checks (-1, -122) say why on standard error; the image loader
        // (-113 to -115) on standard output.
        const bool said = child_errors.str().find("FATAL ERROR!") != std::string::npos ||
                          (status != -1 && status != -122);
        _exit(said ? CHILD_ENDED : CHILD_ENDED_SILENTLY);
    }
    fflush(nullptr);
    using Exit = void (*)(int);
    static Exit real = reinterpret_cast<Exit>(dlsym(RTLD_NEXT, "exit"));
    real(status);
    __builtin_unreachable();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::quiet();
    if (size > (256u << 10))
        return 0;
    VT::Object_pool pool;
    auto d = std::make_shared<VT::Description>();
    pool.keep_alive(d);
    const bool parsed = parse(data, size, *d);
    FUZZ_CHECK(parsed || !d->problems().isEmpty());
    if (!parsed || ends_the_process(data, size))
        return 0;
    const bool built = d->build(pool);
    FUZZ_CHECK(built || !d->problems().isEmpty());
    QByteArray once = VT::Pool_file::write(pool);
    FUZZ_CHECK(VT::Pool_file::write_streamed(pool, 13) == once);
    return 0;
}
