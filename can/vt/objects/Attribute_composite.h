#ifndef CAN_VT_OBJECTS_ATTRIBUTE_COMPOSITE_H
#define CAN_VT_OBJECTS_ATTRIBUTE_COMPOSITE_H

#include <initializer_list>

#include "can/vt/objects/Attribute.h"

namespace VT {

// Partial serialise of an attribute made of members in byte order: the offset passes from
// member to member, a member that writes nothing consuming its own width from it.
int serialise_members(std::initializer_list<const Attribute*> members, int offset, uint8_t* buf, int len);
// Reads the members one after the other; a member that reads nothing ends the read.
int deserialise_members(std::initializer_list<Attribute*> members, int offset, uint8_t* buf, int len,
                        Iso::Deserialise_results* res);
void print_members(std::initializer_list<const Attribute*> members, std::ostream& os, int indent);

}

#endif
