#include "platform/Vexa_message.h"

Vexa_base_message::Vexa_base_message(const Vexa_header& h, const uint8_t* bytes) : header(h), data(h.len, 0xFF)
{
    if (bytes)
        data.assign(bytes, bytes + h.len);
}

Vexa_base_message::Vexa_base_message(unsigned len) : data(len, 0xFF)
{
    header.len = len;
}

Vexa_message::Vexa_message(Vexa_message& other, bool reply) : Vexa_base_message(other)
{
    if (reply) {
        header.source = other.header.destination;
        header.destination = other.header.source;
    }
}

void Vexa_message::set_msg_len(unsigned len)
{
    header.len = len;
    data.resize(len, 0xFF);
}
