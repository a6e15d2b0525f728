#include "can/vt/objects/Attribute_object_id.h"

#include <cstring>
#include <iostream>

#include "can/vt/objects/VT_obj.h"

namespace VT {

VT_obj* adopt_inline_object(Spec_node* node, scale_area_t area)
{
    VT_obj* obj = node ? node->get_object() : nullptr;
    if (obj) {
        const VT_obj::Lock guard(*obj);
        obj->check_scale_area(area);
    }
    return obj;
}

void check_named_object(Spec_node* node, const char* name, scale_area_t area)
{
    VT_obj* obj = node->find_object(name);
    if (!obj) {
        // The host promised an object for a name it knows; carry on without the check.
        std::cerr << "!WARNING! Object '" << name << "' is known by name but was not built" << std::endl;
        return;
    }
    const VT_obj::Lock guard(*obj);
    obj->check_scale_area(area);
}

int Attribute_object_id::_set_by_spec(Spec_node* spec_node, scale_area_t area)
{
    if (!spec_node)
        return false;
    value = 65535;
    const char* key = name;
    if (name && (strcmp(name, "child_objects") == 0 || strcmp(name, "layers") == 0)) {
        key = "object";
        char probe[256];
        if (!spec_node->get_text(probe, sizeof probe, "object")) {
            if (VT_obj* obj = adopt_inline_object(spec_node, area)) {
                value = obj->__get_id();
                referenced_name = obj->VT_obj_base::get_name();
                return true;
            }
            std::cerr << "NO OBJECT" << std::endl;
            key = name;
        }
    }
    char text[256];
    int r = spec_node->get_text(text, sizeof text, key);
    if (r) {
        text[255] = 0;
        referenced_name = text;
        value = spec_node->lookup_object_id(text);
        if (strcmp(text, "65535") == 0) {
            referenced_name.clear();
            return r;
        }
        if (value != 65535) {
            check_named_object(spec_node, text, area);
            return r;
        }
        spec_node->report_unresolved();
        std::cerr << "!WARNING! Attribute '" << (name ? name : "") << "' refers to non-existant object '" << text
                  << "'" << std::endl;
        return false;
    }
    char child_name[256];
    snprintf(child_name, sizeof child_name, "attr_%s", name ? name : "");
    Spec_node* outer = spec_node->get_child(0, child_name);
    if (!outer)
        return false;
    Spec_node* inner = outer->get_child(0, nullptr);
    delete outer;
    if (!inner)
        return false;
    VT_obj* obj = adopt_inline_object(inner, area);
    delete inner;
    if (!obj)
        return false;
    value = obj->__get_id();
    referenced_name = obj->VT_obj_base::get_name();
    return true;
}

void Attribute_object_id::print_me(std::ostream& os, int indent) const
{
    print_indent(os, indent);
    print_basic(os, indent);
    os << " id: " << value << std::endl;
}

void Attribute_object_id::get_code_valref(const char*, std::ostream& os, int)
{
    if (!referenced_name.isEmpty())
        os << "Oids::" << referenced_name.constData();
    else
        os << "VT_obj::NULL_ID";
}

void Attribute_object_id::get_code_def_for_list(const char* prefix, std::ostream& os, int indent)
{
    code_indent_attr(os, indent);
    os << "/*" << prefix << "*/" << "Attribute_object_id";
}

void Attribute_object_id::get_code_valref_for_list(const char* prefix, std::ostream& os)
{
    get_code_valref(prefix, os, 0);
    os << ",\"" << (name ? name : "") << "\"";
}

int Attribute_object_id::spec_null_check(const VT_obj& owner) const
{
    if (!referenced_name.isEmpty())
        return 1;
    std::cerr << "FATAL ERROR!  " << owner.__get_type_string() << " '" << owner.VT_obj_base::get_name()
              << "' has NULL attribute '" << (name ? name : "") << "'" << std::endl;
    return 0;
}

}
