#ifndef PLATFORM_FLOAT_BYTES_H
#define PLATFORM_FLOAT_BYTES_H

#include <cstdint>

// Four little-endian bytes holding an IEEE 754 single-precision value.
float bytes_to_float_ieee754(const uint8_t* bytes);

#endif
