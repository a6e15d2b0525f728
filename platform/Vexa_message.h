#ifndef PLATFORM_VEXA_MESSAGE_H
#define PLATFORM_VEXA_MESSAGE_H

#include <cstdint>
#include <vector>

// The host's CAN message classes, reduced to what a VT message needs: a header with the
// 29-bit identifier fields and the data length, and a data buffer of that length.
struct Vexa_header
{
    uint8_t priority = 7;
    uint32_t pgn = 0;
    uint8_t source = 0xFE;
    uint8_t destination = 0xFF;
    unsigned len = 8;
};

class Vexa_base_message
{
public:
    Vexa_base_message() = default;
    Vexa_base_message(const Vexa_header& h, const uint8_t* data);
    explicit Vexa_base_message(unsigned len);
    virtual ~Vexa_base_message() = default;

    const Vexa_header& get_header() const { return header; }
    unsigned get_msg_len() const { return header.len; }
    unsigned get_data_len() const { return unsigned(data.size()); }
    uint8_t* get_data() { return data.data(); }
    const uint8_t* get_data() const { return data.data(); }

    // Indexed data access; reads past the end give 0xFF (an unused CAN data byte),
    // writes past the end are dropped.
    uint8_t operator[](unsigned i) const { return i < data.size() ? data[i] : 0xFF; }
    void set_byte(unsigned i, uint8_t v)
    {
        if (i < data.size())
            data[i] = v;
    }

protected:
    Vexa_header header;
    std::vector<uint8_t> data;
};

class Vexa_message : public Vexa_base_message
{
public:
    Vexa_message() : Vexa_base_message(8u) {}
    Vexa_message(const Vexa_header& h, uint8_t* data) : Vexa_base_message(h, data) {}
    // A copy of another message; with `reply` set the source and destination swap,
    // so the copy answers the original.
    Vexa_message(Vexa_message& other, bool reply);
    explicit Vexa_message(int len) : Vexa_base_message(len < 0 ? 0u : unsigned(len)) {}
    Vexa_message(const Vexa_message&) = default;
    Vexa_message& operator=(const Vexa_message&) = default;

    // Sets the message length and the data buffer's length to len.
    void set_msg_len(unsigned len);
};

#endif
