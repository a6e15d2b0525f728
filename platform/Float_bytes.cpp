#include "platform/Float_bytes.h"

#include <cstring>

float bytes_to_float_ieee754(const uint8_t* bytes)
{
    uint32_t bits = uint32_t(bytes[0]) | uint32_t(bytes[1]) << 8 | uint32_t(bytes[2]) << 16 |
                    uint32_t(bytes[3]) << 24;
    float f;
    std::memcpy(&f, &bits, sizeof f);
    return f;
}
