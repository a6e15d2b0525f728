#include "can/iso/objects/Iso_object_base.h"

#include "platform/Debug_print.h"

namespace Iso {

void print_cant_set_name()
{
    Debug_print::dprint("Cant set name while in a list\n");
}

}
