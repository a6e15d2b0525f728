// Builds one object, prints it, dumps it with its bytes and shows the bytes it uploads.
#include <cstdio>
#include <iostream>
#include <vector>

#include "vt_core.h"

int main()
{
    VT::Base::Number_variable_obj speed(5000, "speed_kmh", 1234);
    speed.print_me(std::cout, 0);

    Debug::Text_dumper dumper(std::cout);
    speed.serialise(dumper, true);

    std::vector<uint8_t> bytes(size_t(speed.num_bytes()));
    int n = speed.serialise(0, bytes.data(), int(bytes.size()));
    std::cout << "object-pool bytes:";
    for (int i = 0; i < n; ++i)
        printf(" %02X", bytes[size_t(i)]);
    std::cout << std::endl;
    return 0;
}
