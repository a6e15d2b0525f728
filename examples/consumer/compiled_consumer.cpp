// The example pool compiled in with vt_core_add_pool: its objects, serialised one after the other,
// must give the bytes that vtpool built from the same description.
//   compiled_consumer POOL.iop
#include <cstdio>
#include <fstream>
#include <iterator>
#include <vector>

#include "small.h"
#include "vt_core.h"

int main(int argc, char** argv)
{
    if (argc != 2) {
        fprintf(stderr, "usage: compiled_consumer POOL.iop\n");
        return 2;
    }
    std::ifstream in(argv[1], std::ios::binary);
    const std::vector<uint8_t> built{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    std::vector<uint8_t> compiled;
    for (VT::VT_obj* obj : small::objects()) {
        std::vector<uint8_t> one(size_t(obj->num_bytes()));
        const int n = obj->serialise(0, one.data(), int(one.size()));
        compiled.insert(compiled.end(), one.begin(), one.begin() + (n > 0 ? n : 0));
    }
    const bool same = !built.empty() && compiled == built;
    printf("vt_core %s: %zu objects compiled in, %zu bytes, %s\n", VT_CORE_VERSION, small::objects().size(),
           compiled.size(), same ? "the same as vtpool built" : "NOT the same as vtpool built");
    return same ? 0 : 1;
}
