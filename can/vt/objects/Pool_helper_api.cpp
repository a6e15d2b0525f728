#include "can/vt/objects/Pool_helper_api.h"

namespace VT {

void Pool_helper_api::lock() const {}
void Pool_helper_api::unlock() const {}
void Pool_helper_api::__check_locked() const {}
void Pool_helper_api::__set_pool(Object_pool*) {}
void Pool_helper_api::set_pool(Object_pool*) {}
Object_pool* Pool_helper_api::__get_pool()
{
    return nullptr;
}
Object_pool* Pool_helper_api::get_pool()
{
    return nullptr;
}
bool Pool_helper_api::in_pool(const Object_pool&)
{
    return false;
}
uint8_t Pool_helper_api::negotiated_version() const
{
    return 255;
}
bool Pool_helper_api::obj_type_supported(uint8_t) const
{
    return false;
}
VT_obj* Pool_helper_api::find_object(const Attribute_object_placement&)
{
    return nullptr;
}
void Pool_helper_api::upload(VT_obj*, bool) {}
const Serialisation_limits* Pool_helper_api::get_serialisation_limits()
{
    return &limits;
}
int Pool_helper_api::set_language(Language::languages_t)
{
    return 0;
}
bool Pool_helper_api::has_pool()
{
    return false;
}
Pool_helper_api::~Pool_helper_api() = default;

Pool_helper_api* Pool_helper_api::get_default()
{
    static Pool_helper_api helper;
    return &helper;
}

}
