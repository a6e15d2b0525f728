#ifndef CAN_VT_OBJECTS_BASE_FIELD_FIELD_OBJ_H
#define CAN_VT_OBJECTS_BASE_FIELD_FIELD_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Field (type 241): a perspective view of a worked field drawn by the host from its swaths,
// with camera, eye, tractor position and the colours of completed and incomplete work.
// Nothing beyond AID 0 is addressable.
class Field_obj : public VT_obj
{
    Attribute_int16 camera_y{-32767, 32767, 0, "camera_y"};
    Attribute_int16 camera_z{-32767, 32767, 0, "camera_z"};
    Attribute_uint8 swath_spacing{0, 255, 0, "swath_spacing"};
    Attribute_int16 eye_y{-32767, 32767, 0, "eye_y"};
    Attribute_int16 eye_z{-32767, 32767, 0, "eye_z"};
    Attribute_int16 rotation{-32767, 32767, 0, "rotation"};
    Attribute_object_id centre_line_attributes{65535, "centre_line_attributes"};
    Attribute_colour completed_colour{0, "completed_colour"};
    Attribute_colour incomplete_colour{0, "incomplete_colour"};
    Attribute_uint8 tractor_x{0, 255, 0, "tractor_x"};
    Attribute_uint8 tractor_y{0, 255, 0, "tractor_y"};
    // Two bytes on the wire, but no more than 255.
    Attribute_uint16 scale{0, 255, 0, "scale"};
    Attribute_list_len<uint8_t> num_swaths{"num_swaths", &swaths};
    Attribute_list<Attribute_object_id> swaths{"swaths"};

public:
    // What a renderer needs of a field, taken in one go under the lock.
    struct ds_field_settings
    {
        int16_t camera_y;
        int16_t camera_z;
        double swath_width; // scale x swath spacing / 100
        int16_t eye_y;
        int16_t eye_z;
        int16_t rotation;
        uint8_t num_swaths;
        uint8_t completed_colour;
        uint8_t incomplete_colour;
        uint8_t tractor_x;
        uint8_t tractor_y;
        uint16_t scale;
    };

    Field_obj(uint16_t id, const char* name, short camera_y, short camera_z, uint8_t swath_spacing, short eye_y,
              short eye_z, short rotation, uint16_t centre_line_attributes, uint8_t completed_colour,
              uint8_t incomplete_colour, uint8_t tractor_x, uint8_t tractor_y, uint16_t scale, uint8_t num_swaths,
              Attribute_object_id* swaths);
    explicit Field_obj(Spec_node* node) : VT_obj(node, TYPE_FIELD, tables) { init_lists(); }
    const char* __get_type_string() const override { return "Field"; }

    // Reads the field, then lets each swath child configure itself and records the swaths in
    // child order (65535 for a child that describes no object).
    bool __set_by_spec(scale_area_t area) override;
    void init(ds_field_settings& out);

    VT_ATTRIBUTE_GETTERS(camera_y, camera_z, swath_spacing, eye_y, eye_z, rotation, centre_line_attributes,
                         completed_colour, incomplete_colour, tractor_x, tractor_y, scale, num_swaths)
    VT_INDEXED_GETTER(uint16_t, swaths, swaths[i].get())

    VT_OBJECT_TABLES(TYPE_FIELD, (),
                     (camera_y, camera_z, swath_spacing, eye_y, eye_z, rotation, centre_line_attributes,
                      completed_colour, incomplete_colour, tractor_x, tractor_y, scale, num_swaths, swaths))
};

}

#endif
