#include "can/vt/objects/Base/output/Output_number_obj.h"

#include <limits>

namespace VT {
namespace Base {

namespace {
const int32_t OFFSET_MIN = std::numeric_limits<int32_t>::min();
const int32_t OFFSET_MAX = std::numeric_limits<int32_t>::max();
}

Output_number_obj::Output_number_obj(uint16_t id, const char* name, unsigned short width_v, unsigned short height_v,
                                     unsigned char background_colour_v, unsigned short font_attributes_v,
                                     unsigned char options_v, unsigned short variable_reference_v,
                                     unsigned int value_v, int offset_v, float scale_v, unsigned char no_decimals_v,
                                     unsigned char format_v, unsigned char horizontal_justification_v,
                                     unsigned char num_macros_v, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_OUTPUT_NUMBER, 13, aid_table_storage, 14, every_table_storage, 0, &event_macro, name),
      width(0, 65535, width_v, "width"), height(0, 65535, height_v, "height"),
      background_colour(background_colour_v, "background_colour"),
      font_attributes(font_attributes_v, "font_attributes"), options(0, 15, options_v, "options"),
      variable_reference(variable_reference_v, "variable_reference"), value(0, 4294967295u, value_v, "value"),
      offset(OFFSET_MIN, OFFSET_MAX, offset_v, "offset"), scale("scale", scale_v),
      no_decimals(0, 7, no_decimals_v, "no_decimals"), format(0, 1, format_v, "format"),
      horizontal_justification(0, 15, horizontal_justification_v, "horizontal_justification"),
      num_macros("num_macros", &event_macro), event_macro("event_macro", macros, num_macros_v)
{
    init_lists();
}

// A description that gives no "offset" leaves it at the most negative value.
Output_number_obj::Output_number_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_OUTPUT_NUMBER, 13, aid_table_storage, 14, every_table_storage, NO_NAME, NULL_ID),
      width(0, 65535, 0, "width"), height(0, 65535, 0, "height"), background_colour(0, "background_colour"),
      font_attributes(65535, "font_attributes"), options(0, 15, 0, "options"),
      variable_reference(65535, "variable_reference"), value(0, 4294967295u, 0, "value"),
      offset(OFFSET_MIN, OFFSET_MAX, OFFSET_MIN, "offset"), scale("scale", 0.0f), no_decimals(0, 7, 0, "no_decimals"),
      format(0, 1, 0, "format"), horizontal_justification(0, 15, 0, "horizontal_justification"),
      num_macros("num_macros", &event_macro), event_macro("event_macro")
{
    init_lists();
}

// "value" comes seventh in byte order but was made addressable after the others: AID 12.
void Output_number_obj::init_lists()
{
    set_table(aid_table_storage,
              {class_type_attribute<TYPE_OUTPUT_NUMBER>(), &width, &height, &background_colour, &font_attributes,
               &options, &variable_reference, &offset, &scale, &no_decimals, &format, &horizontal_justification,
               &value});
    set_table(every_table_storage,
              {&width, &height, &background_colour, &font_attributes, &options, &variable_reference, &value, &offset,
               &scale, &no_decimals, &format, &horizontal_justification, &num_macros, &event_macro});
}

}
}
