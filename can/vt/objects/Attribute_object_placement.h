#ifndef CAN_VT_OBJECTS_ATTRIBUTE_OBJECT_PLACEMENT_H
#define CAN_VT_OBJECTS_ATTRIBUTE_OBJECT_PLACEMENT_H

#include <QByteArray>
#include <algorithm>

#include "can/vt/objects/Attribute_numbers.h"

namespace VT {

// A child placement: object id and position (6 bytes), plus a justification used for layout.
class Attribute_object_placement : public Attribute
{
public:
    // Justification bits: 0-1 horizontal, 2-3 vertical.
    enum { JUSTIFY_LEFT = 1, JUSTIFY_H_CENTRE = 2, JUSTIFY_RIGHT = 3, JUSTIFY_TOP = 4, JUSTIFY_V_CENTRE = 8, JUSTIFY_BOTTOM = 12 };

    Attribute_object_placement() : Attribute_object_placement(nullptr) {}
    explicit Attribute_object_placement(const char* name);
    Attribute_object_placement(unsigned short id, short x, short y);
    Attribute_object_placement(unsigned short id, short x, short y, unsigned char justification);
    bool operator==(const Attribute_object_placement& o) const
    {
        return object_id.get() == o.object_id.get() && x_location.get() == o.x_location.get() &&
               y_location.get() == o.y_location.get();
    }

    uint16_t get_object_id() const { return object_id; }
    int16_t get_x() const { return x_location; }
    int16_t get_y() const { return y_location; }
    uint8_t get_justification() const { return justification; }
    void set_object_id(uint16_t id) { object_id = id; }
    void set_x(int v) { x_location = int16_t(std::clamp(v, -32768, 32767)); }
    void set_y(int v) { y_location = int16_t(std::clamp(v, -32768, 32767)); }
    void set_justification(uint8_t j) { justification = j; }
    const QByteArray& get_referenced_name() const { return referenced_name; }
    void set_null()
    {
        object_id = 65535;
        referenced_name.clear();
    }
    // Parses a justification text ("bottom_right", "center", "top-left", ...), case-insensitively.
    static uint8_t parse_justification(const char* text);
    // Lays the child of size w x h out in the available area according to the justification.
    void justify(unsigned short w, unsigned short h, short avail_w, short avail_h);

    int num_bytes() const override { return 6; }
    int serialise(int offset, uint8_t* buf, int len) const override;
    int serialise(const Serialisation_limits*, int offset, uint8_t* buf, int len) const override
    {
        return Attribute_object_placement::serialise(offset, buf, len);
    }
    int deserialise(int offset, uint8_t* buf, int len, Iso::Deserialise_results* res) override;
    atype get_type() const override { return ATTR_OBJECT_PLACEMENT; }
    int _set_by_spec(Spec_node* spec_node, scale_area_t area) override;
    void print_me(std::ostream& os, int indent) const override;
    void get_code_def_for_list(const char* prefix, std::ostream& os, int indent);
    void get_code_valref_for_list(const char* prefix, std::ostream& os);

private:
    Attribute_uint16 object_id;
    Attribute_int16 x_location;
    Attribute_int16 y_location;
    uint8_t justification = 0;
    QByteArray referenced_name;
};

// A polygon point: x then y, 2 bytes each.
class Attribute_point : public Attribute
{
public:
    Attribute_point() : Attribute_point(0, 0) {}
    Attribute_point(unsigned short x, unsigned short y)
        : Attribute("point"), point_x(0, 65535, x, "point_x"), point_y(0, 65535, y, "point_y")
    {
    }
    bool operator==(const Attribute_point& o) const { return point_x.get() == o.point_x.get() && point_y.get() == o.point_y.get(); }
    uint16_t get_x() const { return point_x; }
    uint16_t get_y() const { return point_y; }
    void set_x(uint16_t v) { point_x = v; }
    void set_y(uint16_t v) { point_y = v; }

    int num_bytes() const override { return 4; }
    int serialise(int offset, uint8_t* buf, int len) const override;
    int serialise(const Serialisation_limits*, int offset, uint8_t* buf, int len) const override
    {
        return Attribute_point::serialise(offset, buf, len);
    }
    int deserialise(int offset, uint8_t* buf, int len, Iso::Deserialise_results* res) override;
    atype get_type() const override { return ATTR_POINT; }
    int _set_by_spec(Spec_node* spec_node, scale_area_t area) override;
    void print_me(std::ostream& os, int indent) const override;
    void get_code_def_for_list(const char* prefix, std::ostream& os, int indent);
    void get_code_valref_for_list(const char* prefix, std::ostream& os);
    static const char* search_string() { return "Point"; }

private:
    Attribute_uint16 point_x;
    Attribute_uint16 point_y;
};

}

#endif
