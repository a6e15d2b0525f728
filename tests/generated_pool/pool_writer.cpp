// Writes the bytes of a pool compiled in from source that vtpool generated.
#include <cstdio>
#include <vector>

#include GENERATED_POOL_SOURCE

int main(int argc, char** argv)
{
    if (argc != 2) {
        fprintf(stderr, "usage: %s OUTPUT\n", argv[0]);
        return 2;
    }
    Pool pool;
    FILE* out = fopen(argv[1], "wb");
    if (!out)
        return 1;
    for (VT::VT_obj* obj : pool.objects) {
        std::vector<uint8_t> buf(size_t(obj->num_bytes()));
        int n = obj->serialise(0, buf.data(), int(buf.size()));
        if (n > 0 && fwrite(buf.data(), 1, size_t(n), out) != size_t(n))
            return 1;
    }
    return fclose(out) == 0 ? 0 : 1;
}
