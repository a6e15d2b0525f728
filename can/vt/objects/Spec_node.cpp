#include "can/vt/objects/Spec_node.h"

Spec_node::~Spec_node() = default;
void Spec_node::reserved_14() {}
VT::VT_obj* Spec_node::get_object()
{
    return nullptr;
}
void Spec_node::reserved_21() {}
void Spec_node::reserved_22() {}
