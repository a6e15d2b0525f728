#include "can/vt/objects/Base/field/Field_obj.h"

namespace VT::Base {

Field_obj::Field_obj(uint16_t id, const char* name, short camera_y_, short camera_z_, uint8_t swath_spacing_,
                     short eye_y_, short eye_z_, short rotation_, uint16_t centre_line_attributes_,
                     uint8_t completed_colour_, uint8_t incomplete_colour_, uint8_t tractor_x_, uint8_t tractor_y_,
                     uint16_t scale_, uint8_t num_swaths_, Attribute_object_id* swaths_)
    : VT_obj(id, TYPE_FIELD, tables, 0, nullptr, name)
{
    set_values(every_attributes(), camera_y_, camera_z_, swath_spacing_, eye_y_, eye_z_, rotation_,
               centre_line_attributes_, completed_colour_, incomplete_colour_, tractor_x_, tractor_y_, scale_,
               num_swaths_, swaths_);
    init_lists();
}

bool Field_obj::__set_by_spec(scale_area_t area)
{
    bool result = VT_obj::__set_by_spec(area);
    if (!spec_node)
        return result;
    int n = spec_node->count_children(nullptr);
    for (int i = 0; i < n; ++i) {
        Spec_node* child = spec_node->get_child(i, nullptr);
        if (!child)
            break;
        VT_obj* swath = child->get_object();
        delete child;
        if (uint32_t(i) >= swaths.get_length())
            swaths.set_length(uint32_t(i) + 1);
        if (!swath) {
            swaths[unsigned(i)].set_null();
            continue;
        }
        // Each swath configures itself in the same pass.
        bool r;
        {
            const Lock guard(*swath);
            r = swath->__set_by_spec(area);
        }
        result = result && r;
        swaths[unsigned(i)] = swath->__get_id();
        swaths[unsigned(i)].set_referenced_name(swath->get_name());
    }
    return result;
}

void Field_obj::init(ds_field_settings& out)
{
    const Lock guard(*this);
    out.camera_y = camera_y;
    out.camera_z = camera_z;
    out.swath_width = scale.get() * swath_spacing.get() / 100.0;
    out.eye_y = eye_y;
    out.eye_z = eye_z;
    out.rotation = rotation;
    out.num_swaths = num_swaths;
    out.completed_colour = completed_colour;
    out.incomplete_colour = incomplete_colour;
    out.tractor_x = tractor_x;
    out.tractor_y = tractor_y;
    out.scale = scale;
}

}
