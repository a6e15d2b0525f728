#ifndef CAN_VT_OBJECTS_VT_OBJ_H
#define CAN_VT_OBJECTS_VT_OBJ_H

#include <cstdint>

#include "can/iso/objects/Iso_object_base.h"
#include "can/vt/objects/Attribute_numbers.h"
#include "can/vt/objects/Pool_helper_api.h"
#include "can/vt/objects/Spec_node.h"
#include "can/vt/objects/VT_obj_type.h"

namespace VT {

template <class T>
class Attribute_list;
class Attribute_event_macro;
class Attribute_object_placement;

typedef Iso::Iso_object<VT_obj_type, Attribute, Attribute_uint16> VT_obj_base;

// Base of every VT object class: pool membership through a pool helper, locking,
// the object-pool serialiser and deserialiser, description input, scaling and justification.
class VT_obj : public VT_obj_base
{
public:
    static const char* const NO_NAME;

    VT_obj(uint16_t id, type_t type, uint8_t aid_count, Attribute** aid_table, uint8_t every_count,
           Attribute** every_table, uint8_t macro_value, Attribute_list<Attribute_event_macro>* macros,
           const char* name);
    // Takes ownership of `node`.
    VT_obj(Spec_node* node, type_t type, uint8_t aid_count, Attribute** aid_table, uint8_t every_count,
           Attribute** every_table, const char* name, uint16_t id);
    // The same two, given an object class's tables (an AID table and an every-table, both ending in
    // a null slot, as VT_OBJECT_TABLES makes them), whose counts come from their sizes.
    template <class Tables>
    VT_obj(uint16_t id, type_t type, Tables& tables, uint8_t macro_value, Attribute_list<Attribute_event_macro>* macros,
           const char* name)
        : VT_obj(id, type, table_count(tables.aid), tables.aid, table_count(tables.every), tables.every, macro_value,
                 macros, name)
    {
    }
    template <class Tables>
    VT_obj(Spec_node* node, type_t type, Tables& tables)
        : VT_obj(node, type, table_count(tables.aid), tables.aid, table_count(tables.every), tables.every, NO_NAME,
                 NULL_ID)
    {
    }
    VT_obj(const VT_obj&) = delete;
    VT_obj& operator=(const VT_obj&) = delete;
    ~VT_obj() override;

    bool in_a_list() const override;
    virtual void set_allow_serialise(bool allow);
    virtual bool get_allow_serialise() const;
    virtual void __set_pool(Object_pool* pool);
    virtual Object_pool* __get_pool();
    virtual uint16_t _get_width() const;
    virtual uint16_t _get_height() const;
    virtual void __set_numeric_value(uint32_t value);
    virtual void __set_child_location(uint16_t child, int16_t x, int16_t y);
    virtual bool __child_location_pending() const;
    // Entered with the lock held: reads every attribute from the object's description node.
    virtual bool __set_by_spec(scale_area_t area);
    virtual uint16_t __get_scaling_child() const;
    virtual void __set_scale(uint16_t num_x, uint16_t num_y, uint16_t den_x, uint16_t den_y);
    virtual void object_init();
    virtual int __num_bytes() const;
    virtual void check_scale_area(scale_area_t area);
    virtual int get_attribute_id_whole(attribute_general_t attribute);
    virtual bool aid_is_read_only(uint8_t aid) const;

    int __deserialise(int offset, uint8_t* buf, int len, Iso::Deserialise_results* res) override;
    int __serialise(int offset, uint8_t* buf, int len) override;
    void __check_locked() const override;
    int num_bytes() const override { return __num_bytes(); }
    void lock() const override;
    void unlock() const override;

    // The helper through which the object reaches its pool; null restores the shared default.
    void set_pool_helper(Pool_helper_api* helper);
    Pool_helper_api* get_pool_helper() const { return pool_helper; }
    void set_pool(Object_pool* pool);
    Object_pool* get_pool();
    void upload(bool flag);
    bool is_in_sync() const { return sync_words[0] == 242; }
    void set_serialise_as_null_op(bool on);
    bool get_serialise_as_null_op() const { return serialise_as_null_op; }
    uint16_t get_width() const;
    uint16_t get_height() const;
    // The scale area an object of this type defines for its children.
    scale_area_t __get_scale_area_type() const;
    scale_area_t get_scale_area() const { return scale_area; }
    void reset_scale_area() { scale_area = SCALE_AREA_NONE; }
    static int scale_attribute(int value, int num, int den);
    void set_transpose(int16_t dx, int16_t dy);
    void __set_transpose(int16_t dx, int16_t dy);
    void justify(Attribute_list<Attribute_object_placement>& list, int16_t width, int16_t height);
    void __check_scale_area(scale_area_t area);
    // Public entry to description input: takes the lock around __set_by_spec.
    bool set_by_spec(scale_area_t area);
    // Scales under the lock.
    void set_scale(uint16_t num_x, uint16_t num_y, uint16_t den_x, uint16_t den_y);
    Spec_node* get_spec_node() const { return spec_node; }
    // Intrusive list hooks, filled by the host's pool container.
    void** get_list_hook(int which) { return which ? list_hook_b : list_hook_a; }

protected:
    // __set_by_spec for an object whose description may declare how many entries `list` has
    // (under `count_name`) apart from the entries it lists: the declared count wins, entries not
    // listed becoming NULL references.
    bool __set_by_spec_counted(scale_area_t area, Attribute_list<Attribute_object_placement>& list,
                               const char* count_name);

    void* list_hook_a[6];
    void* list_hook_b[6];
    Spec_node* spec_node;
    scale_area_t scale_area;
    Attribute_list<Attribute_event_macro>* macro_list;
    uint8_t macro_value;
    uint16_t sync_words[2];
    Pool_helper_api* pool_helper;
    bool allow_serialise;
    bool serialise_as_null_op;

private:
    // The entries of a table of N slots, the last of which is its null end.
    template <size_t N>
    static constexpr uint8_t table_count(Attribute* (&)[N])
    {
        static_assert(N >= 1 && N <= 256, "a table holds up to 255 attributes and its null end");
        return uint8_t(N - 1);
    }
    void init_hooks();
};

}

#endif
