#include "can/vt/objects/VT_obj.h"

#include <algorithm>
#include <iostream>

#include "can/vt/objects/Attribute_event_macro.h"
#include "can/vt/objects/Attribute_list.h"
#include "can/vt/objects/Attribute_object_placement.h"
#include "platform/Debug_print.h"
#include "util/Bugger.h"

template class Iso::Iso_object_base<VT::VT_obj_type, VT::Attribute, VT::Attribute_uint16>;
template class Iso::Iso_object<VT::VT_obj_type, VT::Attribute, VT::Attribute_uint16>;

namespace VT {

const char* const VT_obj::NO_NAME = "NO_NAME";

VT_obj::VT_obj(uint16_t id, type_t type, uint8_t aid_count, Attribute** aid_table, uint8_t every_count,
               Attribute** every_table, uint8_t macro_value, Attribute_list<Attribute_event_macro>* macros,
               const char* name)
    : VT_obj_base(type, aid_count, aid_table, every_count, every_table, name, id), spec_node(nullptr),
      scale_area(SCALE_AREA_NONE), macro_list(macros), macro_value(macro_value), sync_words{242, 242},
      pool_helper(Pool_helper_api::get_default()), allow_serialise(true), serialise_as_null_op(false)
{
    init_hooks();
}

VT_obj::VT_obj(Spec_node* node, type_t type, uint8_t aid_count, Attribute** aid_table, uint8_t every_count,
               Attribute** every_table, const char* name, uint16_t id)
    : VT_obj_base(type, aid_count, aid_table, every_count, every_table, name, id), spec_node(node),
      scale_area(SCALE_AREA_NONE), macro_list(nullptr), macro_value(0), sync_words{242, 242},
      pool_helper(Pool_helper_api::get_default()), allow_serialise(true), serialise_as_null_op(false)
{
    init_hooks();
}

void VT_obj::init_hooks()
{
    for (int i = 0; i < 5; ++i)
        list_hook_a[i] = list_hook_b[i] = nullptr;
    list_hook_a[5] = this;
    list_hook_b[5] = this;
}

VT_obj::~VT_obj()
{
    delete spec_node;
}

bool VT_obj::in_a_list() const
{
    return list_hook_a[0] != nullptr || list_hook_b[0] != nullptr;
}

void VT_obj::set_allow_serialise(bool allow)
{
    allow_serialise = allow;
}

bool VT_obj::get_allow_serialise() const
{
    return allow_serialise;
}

void VT_obj::__set_pool(Object_pool* pool)
{
    pool_helper->__set_pool(pool);
}

Object_pool* VT_obj::__get_pool()
{
    return pool_helper->__get_pool();
}

uint16_t VT_obj::_get_width() const
{
    return 0;
}

uint16_t VT_obj::_get_height() const
{
    return 0;
}

void VT_obj::__set_numeric_value(uint32_t)
{
    VT_ASSERT(false);
}

void VT_obj::__set_child_location(uint16_t, int16_t, int16_t)
{
    VT_ASSERT(false);
}

bool VT_obj::__child_location_pending() const
{
    VT_ASSERT(false);
    return false;
}

bool VT_obj::__set_by_spec(scale_area_t area)
{
    unlock();
    bool all = true;
    for (uint16_t i = 0; i < get_num_every_attribute(); ++i)
        if (Attribute* a = get_every_attribute(i))
            all = a->_set_by_spec(spec_node, area) && all;
    lock();
    return all;
}

bool VT_obj::__set_by_spec_counted(scale_area_t area, Attribute_list<Attribute_object_placement>& list,
                                   const char* count_name)
{
    uint8_t declared = 0;
    if (!spec_node || !spec_node->get_uint8(&declared, count_name))
        return VT_obj::__set_by_spec(area);
    list.set_length(declared);
    const bool all = VT_obj::__set_by_spec(area);
    // Reading the listed entries reset the count to what was listed.
    list.set_length(declared);
    return all;
}

uint16_t VT_obj::__get_scaling_child() const
{
    return NULL_ID;
}

void VT_obj::__set_scale(uint16_t num_x, uint16_t num_y, uint16_t den_x, uint16_t den_y)
{
    int i = find_attribute("child_location");
    if (i >= 0)
        if (auto* list = dynamic_cast<Attribute_list<Attribute_object_placement>*>(get_every_attribute(uint16_t(i))))
            for (uint32_t k = 0; k < list->held(); ++k) {
                Attribute_object_placement& p = (*list)[k];
                p.set_x(int32_t(num_x) * p.get_x() / den_x);
                p.set_y(int32_t(num_y) * p.get_y() / den_y);
            }
    auto scale = [&](const char* attr_name, int num, int den) {
        int at = find_attribute(attr_name);
        if (at < 0)
            return;
        if (auto* a = dynamic_cast<Attribute_uint16*>(get_every_attribute(uint16_t(at))))
            *a = uint16_t(scale_attribute(a->get(), num, den));
    };
    scale("width", num_x, den_x);
    scale("height", num_y, den_y);
}

void VT_obj::object_init() {}

int VT_obj::__num_bytes() const
{
    return 3 + get_attriutes_num_bytes();
}

void VT_obj::check_scale_area(scale_area_t area)
{
    const Lock guard(*this);
    __check_scale_area(area);
}

int VT_obj::get_attribute_id_whole(attribute_general_t)
{
    return -1;
}

bool VT_obj::aid_is_read_only(uint8_t) const
{
    return true;
}

int VT_obj::__serialise(int offset, uint8_t* buf, int len)
{
    if (!allow_serialise || !aid_table || len < 1)
        return 0;
    int total = id.serialise(offset, buf, len);
    int remaining = total ? 0 : std::max(offset - 2, 0);
    buf += total;
    len -= total;
    if (len < 1)
        return total;
    if (serialise_as_null_op) {
        // Replaced by a NULL object pointer: its type, value 65535.
        static const uint8_t placeholder[3] = {uint8_t(TYPE_OBJECT_POINTER), 0xFF, 0xFF};
        int k = 0;
        for (int i = remaining; i < 3 && k < len; ++i)
            buf[k++] = placeholder[i];
        return total + k;
    }
    if (remaining == 0) {
        *buf++ = type;
        --len;
        ++total;
    }
    int attr_offset = std::max(remaining - 1, 0);
    // The terminal's limits, asked once per call rather than once per attribute.
    const Serialisation_limits* limits = pool_helper ? pool_helper->get_serialisation_limits() : nullptr;
    // The record is the registered every-table: a class that shows more attributes to the
    // walks (get_every_attribute) does not change its byte form.
    // Held in locals: the attributes' calls cannot be seen to leave the tables alone.
    Attribute* const* const table = every_table;
    const uint16_t count = every_count;
    uint16_t i = 0;
    // Resuming inside the record: an attribute wholly before the offset writes nothing and
    // uses up its size of the offset.
    for (; i < count && len > 0 && attr_offset > 0; ++i) {
        Attribute* a = table[i];
        if (!a)
            continue;
        const int size = a->num_bytes();
        if (attr_offset >= size) {
            attr_offset -= size;
            continue;
        }
        int written = a->serialise(limits, attr_offset, buf, len);
        attr_offset = 0;
        buf += written;
        len -= written;
        total += written;
    }
    // From there on every attribute is written from its first byte.
    for (; i < count && len > 0; ++i) {
        if (Attribute* a = table[i]) {
            int written = a->serialise(limits, 0, buf, len);
            buf += written;
            len -= written;
            total += written;
        }
    }
    return total;
}

namespace {
// Attributes whose deserialise checks the input it is given and reads nothing when it is short.
bool measures_input(Attribute::atype t)
{
    switch (t) {
    case Attribute::ATTR_FLOAT:
    case Attribute::ATTR_LIST:
    case Attribute::ATTR_ARRAY_UINT8:
    case Attribute::ATTR_ARRAY_CHAR:
    case Attribute::ATTR_ARRAY_OBJECT_ID:
    case Attribute::ATTR_ARRAY_ARGB:
    case Attribute::ATTR_EVENT_MACRO:
        return true;
    default:
        return false;
    }
}
}

int VT_obj::__deserialise(int offset, uint8_t* buf, int len, Iso::Deserialise_results* res)
{
    if (!aid_table)
        return -1;
    VT_ASSERT(offset == 0 && "offsets not fully implemented for deserialise");
    int remaining = len;
    int total = 0;
    uint16_t count = every_count;
    uint16_t i = 0;
    for (; i < count && remaining >= 0; ++i) {
        Attribute* a = every_table[i];
        if (!a)
            continue;
        int r = a->deserialise(0, buf, remaining, res);
        if (r < 0) {
            Debug_print::dprint(
                "Deser: obj ID %hu, type '%s' (%d), attrib [%d] ('%s' %d) deser from (%d, %p, %d) failed: %d\n",
                __get_id(), __get_type_string(), int(__get_type()), int(i), a->name ? a->name : "", int(a->get_type()),
                0, static_cast<void*>(buf), remaining, r);
            return -1;
        }
        int need = a->num_bytes();
        if (r < need || r > remaining) {
            // Fixed-size attributes read their bytes without looking at the length, so the
            // input simply runs out under them; attributes that measure their input first
            // (lists, arrays, event macros, floats) report reading too little.
            if (r > remaining || (remaining < need && !measures_input(a->get_type()))) {
                Debug_print::dprint("Deser: not enough data for all attributes!\n");
                return -1;
            }
            Debug_print::dprint("Deser: Obj attrib [%d] num_bytes %d but ser_len only %d\n", int(i), need, r);
            return -1;
        }
        buf += r;
        total += r;
        remaining -= r;
    }
    if (i < count) {
        Debug_print::dprint("Deser: not enough data for all attributes!\n");
        return -1;
    }
    return total;
}

void VT_obj::__check_locked() const
{
    pool_helper->__check_locked();
}

void VT_obj::lock() const
{
    pool_helper->lock();
}

void VT_obj::unlock() const
{
    pool_helper->unlock();
}

void VT_obj::set_pool_helper(Pool_helper_api* helper)
{
    pool_helper = helper ? helper : Pool_helper_api::get_default();
}

void VT_obj::set_pool(Object_pool* pool)
{
    pool_helper->set_pool(pool);
}

Object_pool* VT_obj::get_pool()
{
    return pool_helper->get_pool();
}

void VT_obj::upload(bool flag)
{
    const Lock guard(*this);
    pool_helper->upload(this, flag);
}

void VT_obj::set_serialise_as_null_op(bool on)
{
    bool changed;
    {
        const Lock guard(*this);
        changed = serialise_as_null_op != on;
        serialise_as_null_op = on;
    }
    if (changed)
        upload(true);
}

uint16_t VT_obj::get_width() const
{
    const Lock guard(*this);
    return _get_width();
}

uint16_t VT_obj::get_height() const
{
    const Lock guard(*this);
    return _get_height();
}

scale_area_t VT_obj::__get_scale_area_type() const
{
    switch (type) {
    case TYPE_SOFT_KEY_MASK:
    case TYPE_KEY:
        return SCALE_AREA_SOFT_KEY;
    case TYPE_DATA_MASK:
        return SCALE_AREA_ACTIVE;
    default:
        return SCALE_AREA_NONE;
    }
}

int VT_obj::scale_attribute(int value, int num, int den)
{
    if (value == 0)
        return 0;
    // The product wraps like the 32-bit arithmetic it stands for instead of overflowing.
    int64_t product = int64_t(int32_t(uint32_t(num) * uint32_t(value)));
    int scaled = int((product / den) & 0xFFFF);
    return scaled == 0 ? value : scaled;
}

void VT_obj::set_transpose(int16_t dx, int16_t dy)
{
    const Lock guard(*this);
    __set_transpose(dx, dy);
}

void VT_obj::__set_transpose(int16_t dx, int16_t dy)
{
    __check_locked();
    int i = find_attribute("child_location");
    if (i < 0)
        return;
    auto* list = dynamic_cast<Attribute_list<Attribute_object_placement>*>(get_every_attribute(uint16_t(i)));
    if (!list)
        return;
    for (uint32_t k = 0; k < list->held(); ++k) {
        Attribute_object_placement& p = (*list)[k];
        if (p.get_justification()) {
            Debug_print::dprint("Not moving object %i because it will break justification\n", int(__get_id()));
            continue;
        }
        if (dx)
            p.set_x(p.get_x() + dx);
        if (dy)
            p.set_y(p.get_y() + dy);
    }
}

void VT_obj::justify(Attribute_list<Attribute_object_placement>& list, int16_t width, int16_t height)
{
    for (uint32_t k = 0; k < list.held(); ++k) {
        Attribute_object_placement& p = list[k];
        VT_obj* child = pool_helper->find_object(p);
        if (child)
            p.justify(child->_get_width(), child->_get_height(), width, height);
    }
}

void VT_obj::__check_scale_area(scale_area_t area)
{
    if (scale_area == SCALE_AREA_NONE) {
        scale_area = area;
        return;
    }
    if ((scale_area == SCALE_AREA_ACTIVE && area == SCALE_AREA_SOFT_KEY) ||
        (scale_area == SCALE_AREA_SOFT_KEY && area == SCALE_AREA_ACTIVE)) {
        char n[NAME_LEN + 1];
        __get_name(n, sizeof n);
        std::cerr << "WARNING:  '" << n << "' is used in a soft key area and is also used in the active area."
                  << std::endl
                  << "\tThis may cause problems if they are scaled at different rates." << std::endl;
    }
}

bool VT_obj::set_by_spec(scale_area_t area)
{
    const Lock guard(*this);
    return __set_by_spec(area);
}

void VT_obj::set_scale(uint16_t num_x, uint16_t num_y, uint16_t den_x, uint16_t den_y)
{
    const Lock guard(*this);
    __set_scale(num_x, num_y, den_x, den_y);
}

}
