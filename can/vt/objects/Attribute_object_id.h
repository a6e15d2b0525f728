#ifndef CAN_VT_OBJECTS_ATTRIBUTE_OBJECT_ID_H
#define CAN_VT_OBJECTS_ATTRIBUTE_OBJECT_ID_H

#include <QByteArray>

#include "can/vt/objects/Attribute_numbers.h"

namespace VT {

class VT_obj;

// A reference to another object of the pool by id; keeps the referenced object's description name
// so that generated source can name it.
class Attribute_object_id : public Attribute_uint16
{
public:
    static constexpr bool is_object_reference = true;

    Attribute_object_id() : Attribute_uint16(0, 65535, 0, "Object_id") {}
    explicit Attribute_object_id(const char* name) : Attribute_uint16(0, 65535, 0, name) {}
    Attribute_object_id(unsigned short id, const char* name) : Attribute_uint16(0, 65535, id, name) {}
    using Attribute_uint16::operator=;

    const QByteArray& get_referenced_name() const { return referenced_name; }
    void set_referenced_name(const QByteArray& n) { referenced_name = n; }
    void set_null()
    {
        value = 65535;
        referenced_name.clear();
    }

    atype get_type() const override { return ATTR_OBJECT_ID; }
    int _set_by_spec(Spec_node* spec_node, scale_area_t area) override;
    void print_me(std::ostream& os, int indent) const override;
    void get_code_valref(const char* prefix, std::ostream& os, int indent) override;
    void get_code_def_for_list(const char* prefix, std::ostream& os, int indent);
    void get_code_valref_for_list(const char* prefix, std::ostream& os);
    // Nonzero when a referenced name is set; otherwise reports the NULL attribute of `owner`.
    int spec_null_check(const VT_obj& owner) const;
    static const char* search_string() { return "!Event_macro"; }

private:
    QByteArray referenced_name;
};

// Takes the object built from `node` (if any) as a reference target: checks its scale area
// under its lock and returns it.
VT_obj* adopt_inline_object(Spec_node* node, scale_area_t area);
// Looks up an object by name through `node` and checks its scale area under its lock.
void check_named_object(Spec_node* node, const char* name, scale_area_t area);

}

#endif
