#include "can/vt/objects/Base/field/Field_obj.h"

namespace VT {
namespace Base {

Field_obj::Field_obj(uint16_t id, const char* name, short camera_y_, short camera_z_, uint8_t swath_spacing_,
                     short eye_y_, short eye_z_, short rotation_, uint16_t centre_line_attributes_,
                     uint8_t completed_colour_, uint8_t incomplete_colour_, uint8_t tractor_x_, uint8_t tractor_y_,
                     uint16_t scale_, uint8_t num_swaths_, Attribute_object_id* swaths_)
    : VT_obj(id, TYPE_FIELD, 1, aid_table_storage, 14, every_table_storage, 0, nullptr, name),
      camera_y(-32767, 32767, camera_y_, "camera_y"), camera_z(-32767, 32767, camera_z_, "camera_z"),
      swath_spacing(0, 255, swath_spacing_, "swath_spacing"), eye_y(-32767, 32767, eye_y_, "eye_y"),
      eye_z(-32767, 32767, eye_z_, "eye_z"), rotation(-32767, 32767, rotation_, "rotation"),
      centre_line_attributes(centre_line_attributes_, "centre_line_attributes"),
      completed_colour(completed_colour_, "completed_colour"),
      incomplete_colour(incomplete_colour_, "incomplete_colour"),
      tractor_x(0, 255, tractor_x_, "tractor_x"), tractor_y(0, 255, tractor_y_, "tractor_y"),
      scale(0, 255, scale_, "scale"), swaths("swaths", swaths_, num_swaths_)
{
    init_lists();
}

Field_obj::Field_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_FIELD, 1, aid_table_storage, 14, every_table_storage, NO_NAME, NULL_ID),
      camera_y(-32767, 32767, 0, "camera_y"), camera_z(-32767, 32767, 0, "camera_z"),
      swath_spacing(0, 255, 0, "swath_spacing"), eye_y(-32767, 32767, 0, "eye_y"), eye_z(-32767, 32767, 0, "eye_z"),
      rotation(-32767, 32767, 0, "rotation"), centre_line_attributes(NULL_ID, "centre_line_attributes"),
      completed_colour(0, "completed_colour"), incomplete_colour(0, "incomplete_colour"),
      tractor_x(0, 255, 0, "tractor_x"), tractor_y(0, 255, 0, "tractor_y"), scale(0, 255, 0, "scale"),
      swaths("swaths")
{
    init_lists();
}

void Field_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_FIELD>()});
    set_table(every_table_storage,
              {&camera_y, &camera_z, &swath_spacing, &eye_y, &eye_z, &rotation, &centre_line_attributes,
               &completed_colour, &incomplete_colour, &tractor_x, &tractor_y, &scale, &num_swaths, &swaths});
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
        swath->lock();
        bool r = swath->__set_by_spec(area);
        swath->unlock();
        result = result && r;
        swaths[unsigned(i)] = swath->__get_id();
        swaths[unsigned(i)].set_referenced_name(swath->get_name());
    }
    return result;
}

void Field_obj::init(ds_field_settings& out)
{
    lock();
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
    unlock();
}

}
}
