#ifndef CAN_VT_OBJECTS_VT_MESSAGE_H
#define CAN_VT_OBJECTS_VT_MESSAGE_H

#include <cstdint>

#include "platform/Vexa_message.h"

namespace VT {

// A typed view of a Virtual Terminal CAN message: data byte 0 is the VT function code.
class VT_message : public Vexa_message
{
public:
    typedef uint8_t function_t;

    VT_message(const Vexa_header& header, uint8_t* data) : Vexa_message(header, data) {}
    VT_message(Vexa_message& other, bool reply) : Vexa_message(other, reply) {}
    // A message of `len` data bytes, never fewer than a full CAN frame of 8.
    explicit VT_message(int len) : Vexa_message(len < 8 ? 8 : len) {}
    VT_message& operator=(const Vexa_message& other)
    {
        Vexa_message::operator=(other);
        return *this;
    }

    uint8_t get_function() const { return (*this)[0]; }
    uint8_t get_command() const { return get_function() >> 4; }
    uint8_t get_parameter() const { return get_function() & 0x0F; }
    bool is_type(function_t f) const { return get_function() == f; }
    // The function group of the code in data byte 0 (8 when it belongs to none).
    int get_function_group() const;
};

}

class Binary_message
{
public:
    static void setup(const uint8_t* data, int len);
};

#endif
