#include "can/vt/objects/Base/attribute/Line_attributes_obj.h"

namespace VT {
namespace Base {

Line_attributes_obj::Line_attributes_obj(unsigned short id, const char* name, unsigned char colour,
                                         unsigned char width, unsigned short art, unsigned char n_macros,
                                         Attribute_event_macro* macros)
    : VT_obj(id, TYPE_LINE_ATTRIBUTES, 4, aid_table_storage, 5, every_table_storage, 0, &event_macro, name),
      line_colour(colour, "line_colour"), line_width(0, 255, width, "line_width"),
      line_art(0, 65535, art, "line_art"), event_macro("event_macro", macros, n_macros)
{
    init_lists();
}

Line_attributes_obj::Line_attributes_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_LINE_ATTRIBUTES, 4, aid_table_storage, 5, every_table_storage, NO_NAME, NULL_ID)
{
    init_lists();
}

void Line_attributes_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_LINE_ATTRIBUTES>(), &line_colour, &line_width, &line_art});
    set_table(every_table_storage, {&line_colour, &line_width, &line_art, &num_macros, &event_macro});
}

void Line_attributes_obj::__set_scale(uint16_t x_mul, uint16_t y_mul, uint16_t x_div, uint16_t y_div)
{
    VT_obj::__set_scale(x_mul, y_mul, x_div, y_div);
    line_width = uint8_t(scale_attribute(line_width, y_mul, y_div));
}

void Line_attributes_obj::check_scale_area(scale_area_t area)
{
    if (line_width.get() == 0)
        reset_scale_area();
    lock();
    __check_scale_area(area);
    unlock();
}

}
}
