#include "can/vt/objects/Attribute_composite.h"

#include <algorithm>

namespace VT {

int serialise_members(std::initializer_list<const Attribute*> members, int offset, uint8_t* buf, int len)
{
    int total = 0;
    for (const Attribute* m : members) {
        if (len < 1)
            break;
        int written = m->serialise(offset, buf, len);
        if (written < 0)
            return total;
        offset = written == 0 ? std::max(offset - m->num_bytes(), 0) : 0;
        buf += written;
        len -= written;
        total += written;
    }
    return total;
}

int deserialise_members(std::initializer_list<Attribute*> members, int offset, uint8_t* buf, int len,
                        Iso::Deserialise_results* res)
{
    int total = 0;
    for (Attribute* m : members) {
        int r = m->deserialise(offset, buf, len, res);
        if (r < 0)
            return r;
        if (r == 0 && m->num_bytes() > 0)
            break;
        offset = 0;
        buf += r;
        len -= r;
        total += r;
    }
    return total;
}

void print_members(std::initializer_list<const Attribute*> members, std::ostream& os, int indent)
{
    for (const Attribute* m : members)
        m->print_me(os, indent);
}

}
