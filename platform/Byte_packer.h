#ifndef PLATFORM_BYTE_PACKER_H
#define PLATFORM_BYTE_PACKER_H

#include <cstdint>

// Packs 4-bit pixels two to a byte, the first pixel of each pair in the high nibble.
class Byte_packer
{
public:
    Byte_packer(uint8_t* out, int capacity) : out(out), capacity(capacity) {}
    void push(uint8_t nibble);
    // Writes a pending half-filled byte (low nibble 0); returns the bytes written so far.
    int flush();
    int size() const { return written; }

private:
    uint8_t* out;
    int capacity;
    int written = 0;
    bool half = false;
    uint8_t pending = 0;
};

#endif
