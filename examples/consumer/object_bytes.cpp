// One object of the library and its object-pool bytes, in a program built with pkg-config alone:
//   g++ object_bytes.cpp $(pkg-config --cflags --libs vt_core) -o object_bytes
#include <cstdio>
#include <vector>

#include "vt_core.h"

int main()
{
    VT::Base::Number_variable_obj speed(5000, "speed_kmh", 1234);
    std::vector<uint8_t> bytes(size_t(speed.num_bytes()));
    const int n = speed.serialise(0, bytes.data(), int(bytes.size()));
    // Id 5000, type 21, value 1234, little-endian.
    const std::vector<uint8_t> expected{0x88, 0x13, 0x15, 0xD2, 0x04, 0x00, 0x00};
    printf("vt_core %s:", VT_CORE_VERSION);
    for (int i = 0; i < n; ++i)
        printf(" %02X", bytes[size_t(i)]);
    printf("\n");
    return n == int(expected.size()) && bytes == expected ? 0 : 1;
}
