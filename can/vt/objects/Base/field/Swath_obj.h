#ifndef CAN_VT_OBJECTS_BASE_FIELD_SWATH_OBJ_H
#define CAN_VT_OBJECTS_BASE_FIELD_SWATH_OBJ_H

#include "can/vt/objects/Base/shape/Polygon_obj.h"

namespace VT::Base {

// Swath: one worked strip of a field, a polygon whose points the host places as work goes
// on. It travels as a polygon (type 16): its bytes are exactly the polygon's, while
// "maximum_points" leads the attribute list that prints, emits source and reads descriptions.
class Swath_obj : public Polygon_obj
{
public:
    Swath_obj(uint16_t id, const char* name, uint8_t maximum_points, uint16_t width, uint16_t height,
              uint16_t line_attributes, uint16_t fill_attributes, uint8_t polygon_type, uint8_t num_points,
              uint8_t num_macros, Attribute_point* points, Attribute_event_macro* macros);
    explicit Swath_obj(Spec_node* spec_node);
    const char* __get_type_string() const override { return "Swath"; }

    Attribute* get_every_attribute(uint16_t i) const override { return i < EVERY ? every_table_storage[i] : nullptr; }
    uint16_t get_num_every_attribute() const override { return EVERY; }
    // Sizes the point list from "num_points" (all points at 0,0, for the host to move) and
    // makes the polygon open.
    bool __set_by_spec(scale_area_t area) override;
    void object_init() override;
    // Remembers the scaling so that points placed later can be scaled alike.
    void __set_scale(uint16_t x_mul, uint16_t y_mul, uint16_t x_div, uint16_t y_div) override;

    uint8_t get_max_points() const { return get_maximum_points(); }
    VT_ATTRIBUTE_GETTER(uint8_t, maximum_points)
    VT_GETTER(uint16_t, scale_x_mul, scale_x_mul)
    VT_GETTER(uint16_t, scale_y_mul, scale_y_mul)
    VT_GETTER(uint16_t, scale_x_div, scale_x_div)
    VT_GETTER(uint16_t, scale_y_div, scale_y_div)

private:
    // "maximum_points", then the polygon's serialised attributes.
    static constexpr uint16_t EVERY = 1 + Polygon_obj::NUM_EVERY;
    void init_lists();

    Attribute_uint8 maximum_points{0, 255, 0, "maximum_points"};
    uint16_t scale_x_mul = 1;
    uint16_t scale_y_mul = 1;
    uint16_t scale_x_div = 1;
    uint16_t scale_y_div = 1;
    Attribute* every_table_storage[EVERY + 1];
};

}

#endif
