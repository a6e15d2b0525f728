// Writes what source generated for a pool in several languages holds: the pool in its default
// language (POOL.iop) and each language's table (CODE.iop), into the folder OUTPUT. The pool is
// compiled in twice: through its ID header and namespace, as vt_core_add_pool compiles it, and
// as plain source included here; both must hold the same tables.
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "realistic_languages.h"
#include PLAIN_POOL_SOURCE

namespace {

bool write(const std::string& path, const unsigned char* bytes, size_t size)
{
    FILE* out = fopen(path.c_str(), "wb");
    if (!out)
        return false;
    const bool written = size == 0 || fwrite(bytes, 1, size, out) == size;
    return fclose(out) == 0 && written;
}

// Whether a table's objects cover its bytes, one after the other, and equal the plain table's.
bool consistent(const realistic_languages::Language_table& t, const ::Language_table* plain)
{
    unsigned int at = 0;
    for (unsigned int i = 0; i < t.count; ++i) {
        if (t.objects[i].offset != at || at + t.objects[i].size > t.size)
            return false;
        // An object's bytes start with its id, little-endian.
        if ((t.bytes[at] | t.bytes[at + 1] << 8) != t.objects[i].id)
            return false;
        at += t.objects[i].size;
    }
    return at == t.size && plain && plain->size == t.size && plain->count == t.count &&
           std::memcmp(plain->bytes, t.bytes, t.size) == 0;
}

}

int main(int argc, char** argv)
{
    if (argc != 2) {
        fprintf(stderr, "usage: %s OUTPUT\n", argv[0]);
        return 2;
    }
    const std::string folder = argv[1];
    std::vector<unsigned char> pool;
    for (VT::VT_obj* obj : realistic_languages::objects()) {
        std::vector<uint8_t> one(size_t(obj->num_bytes()));
        const int n = obj->serialise(0, one.data(), int(one.size()));
        pool.insert(pool.end(), one.begin(), one.begin() + (n > 0 ? n : 0));
    }
    if (!write(folder + "/POOL.iop", pool.data(), pool.size()))
        return 1;
    if (realistic_languages::language_table("it") || realistic_languages::language_table(nullptr))
        return 1;
    for (const char* code : {"en", "de", "fr"}) {
        const realistic_languages::Language_table* t = realistic_languages::language_table(code);
        if (!t || std::strcmp(t->code, code) != 0 || !consistent(*t, language_table(code))) {
            fprintf(stderr, "the '%s' table is missing or inconsistent\n", code);
            return 1;
        }
        if (!write(folder + "/" + code + ".iop", t->bytes, t->size))
            return 1;
    }
    return 0;
}
