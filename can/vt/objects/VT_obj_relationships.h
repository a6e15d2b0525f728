#ifndef CAN_VT_OBJECTS_VT_OBJ_RELATIONSHIPS_H
#define CAN_VT_OBJECTS_VT_OBJ_RELATIONSHIPS_H

#include "can/vt/objects/VT_obj_type.h"

namespace VT {
namespace Base {

// Which object types may be children of which parents, and from which VT version.
class VT_obj_relationships
{
public:
    // 0 when `child` may not appear under `parent`; otherwise the VT version (2 to 6) that allows
    // it. Child 255 stands for the NULL reference; `context` matters only for it.
    static int get_child_allowed(VT_obj_type::type_t parent, VT_obj_type::type_t child, unsigned int context);
    static const char* get_name(VT_obj_type::type_t type);
};

}
}

#endif
