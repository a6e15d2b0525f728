#ifndef VT_CORE_H
#define VT_CORE_H

// Every public header of the vt_core library.

#include "platform/Byte_packer.h"
#include "platform/Debug_dumper.h"
#include "platform/Debug_print.h"
#include "platform/Float_bytes.h"
#include "platform/Language.h"
#include "platform/Object_pool.h"
#include "platform/String_base.h"
#include "platform/Vexa_message.h"
#include "util/Bugger.h"

#include "can/iso/objects/Iso_attribute.h"
#include "can/iso/objects/Iso_object_base.h"

#include "can/vt/objects/Attribute.h"
#include "can/vt/objects/Attribute_array.h"
#include "can/vt/objects/Attribute_code_plane.h"
#include "can/vt/objects/Attribute_colour.h"
#include "can/vt/objects/Attribute_composite.h"
#include "can/vt/objects/Attribute_event_macro.h"
#include "can/vt/objects/Attribute_list.h"
#include "can/vt/objects/Attribute_numbers.h"
#include "can/vt/objects/Attribute_object_id.h"
#include "can/vt/objects/Attribute_object_placement.h"
#include "can/vt/objects/Colours.h"
#include "can/vt/objects/Object_class.h"
#include "can/vt/objects/Pool_helper_api.h"
#include "can/vt/objects/Serialisation_limits.h"
#include "can/vt/objects/Spec_node.h"
#include "can/vt/objects/VT_message.h"
#include "can/vt/objects/VT_obj.h"
#include "can/vt/objects/VT_obj_relationships.h"
#include "can/vt/objects/VT_obj_type.h"

#include "can/vt/objects/Base/output_graphic/PNG_obj.h"
#include "can/vt/objects/Base/output_graphic/Picture_graphic_obj.h"
#include "can/vt/objects/Base/output_graphic/Picture_image.h"
#include "can/vt/objects/Base/output_graphic/QT_image.h"
#include "can/vt/objects/Base/variable/Number_variable_obj.h"
#include "can/vt/objects/Base/variable/String_variable_obj.h"

#endif
