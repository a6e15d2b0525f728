#include "can/vt/objects/VT_message.h"

#include <cstdio>

namespace VT {

int VT_message::get_function_group() const
{
    unsigned f = get_function();
    if (f <= 10)
        return 5; // activation messages
    if (f == 17 || f == 18)
        return 0; // object pool transfer and end of object pool
    if (f >= 32 && f <= 39)
        return 6; // auxiliary control
    if (f == 146 || (f >= 160 && f <= 190) || f == 253)
        return 3; // commands
    if ((f >= 192 && f <= 197) || f == 199)
        return 1; // technical data
    if ((f >= 208 && f <= 214) || f == 223 || f == 224)
        return 2; // version storage
    if (f >= 254)
        return 4; // status and maintenance
    printf("Unknown message function group for function id %hhu\n", static_cast<unsigned char>(f));
    return 8;
}

}

void Binary_message::setup(const uint8_t*, int) {}
