#ifndef CAN_ISO_OBJECTS_ISO_ATTRIBUTE_H
#define CAN_ISO_OBJECTS_ISO_ATTRIBUTE_H

#include <cstdint>
#include <ostream>

namespace Iso {

// Passed to every deserialise; attributes report there what happened to the values read.
struct Deserialise_results
{
    enum : uint8_t { value_clamped = 0x01 };
    uint8_t flags = 0;
};

// Root of every attribute: a name and the byte-form, print and source-emission slots.
class Attribute
{
public:
    explicit Attribute(const char* name = nullptr) : name(name) {}
    Attribute(const Attribute&) = default;
    Attribute& operator=(const Attribute&) = default;
    virtual ~Attribute();

    virtual int num_bytes() const = 0;
    // Writes the bytes of the attribute's form from `offset` on, at most `len`; returns the count.
    virtual int serialise(int offset, uint8_t* buf, int len) const = 0;
    // Reads the attribute from `buf`; returns the bytes consumed.
    virtual int deserialise(int offset, uint8_t* buf, int len, Deserialise_results* res) = 0;
    virtual void construct(const char* n) { name = n; }
    virtual void get_code_def(const char* prefix, std::ostream& os, int indent);
    virtual void get_code_init(const char* prefix, std::ostream& os, int indent);
    virtual void get_code_valref(const char* prefix, std::ostream& os, int indent);
    virtual void get_code_body(const char* prefix, std::ostream& os, int indent);
    virtual void print_basic(std::ostream& os, int indent) const = 0;
    virtual void print_me(std::ostream& os, int indent) const;

    const char* name;
};

}

#endif
