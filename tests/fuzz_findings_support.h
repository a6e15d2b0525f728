#ifndef TESTS_FUZZ_FINDINGS_SUPPORT_H
#define TESTS_FUZZ_FINDINGS_SUPPORT_H

// The largest single allocation made while a Largest_allocation lives, seen through the
// AddressSanitizer allocator's hooks; tests of it skip in builds without AddressSanitizer.

#include <cstddef>

#if defined(__SANITIZE_ADDRESS__)
#define VT_TEST_HAS_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VT_TEST_HAS_ASAN 1
#endif
#endif

#ifdef VT_TEST_HAS_ASAN
// From the sanitizer runtime (gcc does not install its header).
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*malloc_hook)(const volatile void*, size_t),
                                                         void (*free_hook)(const volatile void*));
#endif

namespace test {

class Largest_allocation
{
public:
    Largest_allocation()
    {
#ifdef VT_TEST_HAS_ASAN
        static const bool installed = __sanitizer_install_malloc_and_free_hooks(&on_malloc, &on_free) != 0;
        (void)installed;
#endif
        largest() = 0;
        active() = true;
    }
    ~Largest_allocation() { active() = false; }
    static bool available()
    {
#ifdef VT_TEST_HAS_ASAN
        return true;
#else
        return false;
#endif
    }
    size_t get() const { return largest(); }

private:
    static size_t& largest()
    {
        static size_t n = 0;
        return n;
    }
    static bool& active()
    {
        static bool on = false;
        return on;
    }
    static void on_malloc(const volatile void*, size_t size)
    {
        if (active() && size > largest())
            largest() = size;
    }
    static void on_free(const volatile void*) {}
};

}

#endif
