// An application with its pool compiled in (CMakeLists.txt: vt_core_add_pool). It writes the
// pool's bytes as it would upload them to a terminal, then sets a value through the ids that the
// generated header names, as application code does while it runs.
//   compiled_pool [POOL.iop]
#include <cstdio>
#include <vector>

#include "realistic.h"
#include "vt_core.h"

int main(int argc, char** argv)
{
    const std::vector<VT::VT_obj*>& objects = realistic::objects();
    std::vector<uint8_t> bytes;
    for (VT::VT_obj* obj : objects) {
        std::vector<uint8_t> one(size_t(obj->num_bytes()));
        const int n = obj->serialise(0, one.data(), int(one.size()));
        bytes.insert(bytes.end(), one.begin(), one.begin() + std::max(n, 0));
    }
    if (argc > 1) {
        FILE* out = fopen(argv[1], "wb");
        if (!out || fwrite(bytes.data(), 1, bytes.size(), out) != bytes.size() || fclose(out) != 0) {
            fprintf(stderr, "cannot write %s\n", argv[1]);
            return 1;
        }
    }
    printf("%zu objects, %zu bytes\n", objects.size(), bytes.size());

    // The speed the work mask shows, found by its id.
    for (VT::VT_obj* obj : objects)
        if (obj->get_id() == realistic::speed)
            if (auto* speed = dynamic_cast<VT::Base::Number_variable_obj*>(obj))
                printf("speed (id %u): %u\n", unsigned(realistic::speed), unsigned(speed->get_value()));
    return 0;
}
