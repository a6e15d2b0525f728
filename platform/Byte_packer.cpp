#include "platform/Byte_packer.h"

void Byte_packer::push(uint8_t nibble)
{
    nibble &= 0x0F;
    if (!half) {
        pending = uint8_t(nibble << 4);
        half = true;
        return;
    }
    pending |= nibble;
    half = false;
    if (written < capacity)
        out[written] = pending;
    ++written;
}

int Byte_packer::flush()
{
    if (half) {
        if (written < capacity)
            out[written] = pending;
        ++written;
        half = false;
    }
    return written;
}
