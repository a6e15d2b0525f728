#ifndef CAN_VT_OBJECTS_POOL_HELPER_API_H
#define CAN_VT_OBJECTS_POOL_HELPER_API_H

#include <cstdint>

#include "can/vt/objects/Serialisation_limits.h"
#include "platform/Language.h"
#include "platform/Object_pool.h"

namespace VT {

class VT_obj;
class Attribute_object_placement;

// How an object reaches the pool that holds it. Every operation has a harmless default,
// so that an object works on its own; a host's pool supplies a derived helper.
class Pool_helper_api
{
public:
    virtual void lock() const;
    virtual void unlock() const;
    virtual void __check_locked() const;
    virtual void __set_pool(Object_pool* pool);
    virtual void set_pool(Object_pool* pool);
    virtual Object_pool* __get_pool();
    virtual Object_pool* get_pool();
    virtual bool in_pool(const Object_pool& pool);
    // The VT version agreed with the terminal; 255 when none was negotiated.
    virtual uint8_t negotiated_version() const;
    virtual bool obj_type_supported(uint8_t type) const;
    virtual VT_obj* find_object(const Attribute_object_placement& placement);
    virtual void upload(VT_obj* obj, bool flag);
    virtual const Serialisation_limits* get_serialisation_limits();
    virtual int set_language(Language::languages_t language);
    virtual bool has_pool();
    virtual ~Pool_helper_api();

    // The helper shared by every object that no pool has claimed.
    static Pool_helper_api* get_default();

protected:
    Serialisation_limits limits;
};

}

#endif
