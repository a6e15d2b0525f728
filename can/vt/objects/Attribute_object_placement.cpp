#include "can/vt/objects/Attribute_object_placement.h"

#include <QByteArray>
#include <cstring>

#include "can/vt/objects/Attribute_composite.h"
#include "can/vt/objects/Attribute_object_id.h"
#include "can/vt/objects/VT_obj.h"

namespace VT {

Attribute_object_placement::Attribute_object_placement(const char* name)
    : Attribute(name), object_id(0, 65535, 0, "object_id"), x_location(-32767, 32767, 0, "x_location"),
      y_location(-32767, 32767, 0, "y_location")
{
}

Attribute_object_placement::Attribute_object_placement(unsigned short id, short x, short y)
    : Attribute_object_placement(id, x, y, 0)
{
}

Attribute_object_placement::Attribute_object_placement(unsigned short id, short x, short y, unsigned char j)
    : Attribute(nullptr), object_id(0, 65535, id, "object_id"), x_location(-32767, 32767, x, "x_location"),
      y_location(-32767, 32767, y, "y_location"), justification(j)
{
}

int Attribute_object_placement::serialise(int offset, uint8_t* buf, int len) const
{
    if (offset == 0 && len >= 6) // the whole placement at once, the common case
        return object_id.serialise(0, buf, 2) + x_location.serialise(0, buf + 2, 2) + y_location.serialise(0, buf + 4, 2);
    return serialise_members({&object_id, &x_location, &y_location}, offset, buf, len);
}

int Attribute_object_placement::deserialise(int offset, uint8_t* buf, int len, Iso::Deserialise_results* res)
{
    if (offset == 0 && len >= 6)
        return object_id.deserialise(0, buf, 2, res) + x_location.deserialise(0, buf + 2, 2, res) +
               y_location.deserialise(0, buf + 4, 2, res);
    return deserialise_members({&object_id, &x_location, &y_location}, offset, buf, len, res);
}

uint8_t Attribute_object_placement::parse_justification(const char* text)
{
    QByteArray t = QByteArray(text).toLower();
    auto vertical = [](const QByteArray& w) -> uint8_t {
        return w == "top" ? 4 : w == "center" ? 8 : w == "bottom" ? 12 : 0;
    };
    auto horizontal = [](const QByteArray& w) -> uint8_t {
        return w == "left" ? 1 : w == "center" ? 2 : w == "right" ? 3 : 0;
    };
    for (char sep : {' ', '-', '_'}) {
        int at = t.indexOf(sep);
        if (at >= 0)
            return uint8_t(vertical(t.left(at)) + horizontal(t.mid(at + 1)));
    }
    if (t == "top")
        return 4;
    if (t == "center")
        return 10;
    if (t == "bottom")
        return 12;
    if (t == "left")
        return 1;
    if (t == "right")
        return 3;
    return 0;
}

int Attribute_object_placement::_set_by_spec(Spec_node* spec_node, scale_area_t area)
{
    if (!spec_node)
        return false;
    object_id = 65535;
    int rx = x_location._set_by_spec(spec_node, area);
    int ry = y_location._set_by_spec(spec_node, area);
    char text[256];
    if (spec_node->get_text(text, sizeof text, "justification")) {
        text[255] = 0;
        justification = parse_justification(text);
    }
    if (spec_node->get_text(text, sizeof text, "object")) {
        text[255] = 0;
        object_id = spec_node->lookup_object_id(text);
        referenced_name = text;
        return rx && ry;
    }
    Spec_node* child = spec_node->get_child(0, nullptr);
    VT_obj* obj = adopt_inline_object(child, area);
    delete child;
    if (!obj)
        return false;
    object_id = obj->__get_id();
    referenced_name = obj->VT_obj_base::get_name();
    return true;
}

void Attribute_object_placement::justify(unsigned short w, unsigned short h, short avail_w, short avail_h)
{
    if (justification == 0 || (w == 0 && h == 0))
        return;
    int32_t dx = int32_t(avail_w) - int32_t(w);
    int32_t dy = int32_t(avail_h) - int32_t(h);
    switch (justification & 3) {
    case 1: x_location = 0; break;
    case 2: x_location = int16_t(std::clamp(dx >> 1, -32768, 32767)); break;
    case 3: x_location = int16_t(std::clamp(dx, -32768, 32767)); break;
    default: break;
    }
    switch (justification & 12) {
    case 4: y_location = 0; break;
    case 8: y_location = int16_t(std::clamp(dy >> 1, -32768, 32767)); break;
    case 12: y_location = int16_t(std::clamp(dy, -32768, 32767)); break;
    default: break;
    }
}

void Attribute_object_placement::print_me(std::ostream& os, int indent) const
{
    print_indent(os, indent);
    print_basic(os, indent);
    os << std::endl;
    print_members({&object_id, &x_location, &y_location}, os, indent + 1);
}

void Attribute_object_placement::get_code_def_for_list(const char*, std::ostream& os, int indent)
{
    code_indent_attr(os, indent);
    os << "Attribute_object_placement";
}

void Attribute_object_placement::get_code_valref_for_list(const char*, std::ostream& os)
{
    os << "Oids::" << referenced_name.constData() << "/**/," << x_location.get() << "," << y_location.get();
    if (justification)
        os << "," << int(justification);
}

int Attribute_point::serialise(int offset, uint8_t* buf, int len) const
{
    if (offset == 0 && len >= 4)
        return point_x.serialise(0, buf, 2) + point_y.serialise(0, buf + 2, 2);
    return serialise_members({&point_x, &point_y}, offset, buf, len);
}

int Attribute_point::deserialise(int offset, uint8_t* buf, int len, Iso::Deserialise_results* res)
{
    if (offset == 0 && len >= 4)
        return point_x.deserialise(0, buf, 2, res) + point_y.deserialise(0, buf + 2, 2, res);
    return deserialise_members({&point_x, &point_y}, offset, buf, len, res);
}

int Attribute_point::_set_by_spec(Spec_node* spec_node, scale_area_t area)
{
    int rx = point_x._set_by_spec(spec_node, area);
    int ry = point_y._set_by_spec(spec_node, area);
    return rx && ry;
}

void Attribute_point::print_me(std::ostream& os, int indent) const
{
    print_indent(os, indent);
    print_basic(os, indent);
    os << std::endl;
    print_members({&point_x, &point_y}, os, indent + 1);
}

void Attribute_point::get_code_def_for_list(const char*, std::ostream& os, int indent)
{
    code_indent_attr(os, indent);
    os << "Attribute_point";
}

void Attribute_point::get_code_valref_for_list(const char*, std::ostream& os)
{
    os << point_x.get() << "," << point_y.get();
}

}
