#include "tools/description/Attribute_names.h"

#include <algorithm>
#include <vector>

#include "tools/reference/Class_facts.h"

namespace VT {

namespace {

// ISO 11783-6 names of attributes that the classes name otherwise, as an author writes them.
const Attribute_names::Alias alias_table[] = {
    {"Input_number", "number_of_decimals", "no_decimals"},
    {"Input_number", "justification", "horizontal_justification"},
    {"Input_number", "minimum_value", "min_value"},
    {"Input_number", "maximum_value", "max_value"},
    {"Output_number", "number_of_decimals", "no_decimals"},
    {"Output_number", "justification", "horizontal_justification"},
    {"Input_string", "justification", "horizontal_justification"},
    {"Input_string", "value", "string"},
    {"Output_string", "justification", "horizontal_justification"},
    {"Output_string", "value", "string"},
    {"String_variable", "value", "string"},
    {"Input_attributes", "validation_string", "string"},
    {"Input_list", "options", "options2"},
    {"Meter", "number_of_ticks", "no_ticks"},
    {"Meter", "minimum_value", "min_value"},
    {"Meter", "maximum_value", "max_value"},
    {"Linear_bar_graph", "colour", "fill_colour"},
    {"Linear_bar_graph", "number_of_ticks", "no_ticks"},
    {"Linear_bar_graph", "minimum_value", "min_value"},
    {"Linear_bar_graph", "maximum_value", "max_value"},
    {"Linear_bar_graph", "target_value_variable_reference", "target_variable_reference"},
    {"Arched_bar_graph", "colour", "fill_colour"},
    {"Arched_bar_graph", "minimum_value", "min_value"},
    {"Arched_bar_graph", "maximum_value", "max_value"},
    {"Arched_bar_graph", "target_value_variable_reference", "target_value_reference"},
    {"Picture_graphic", "raw_data", "bytes"},
    {"Macro", "commands", "bytes"},
    {"Window_mask", "width", "width_columns"},
    {"Window_mask", "height", "height_rows"},
    {"External_object_pointer", "external_object_id", "value"},
    {"Point", "x", "point_x"},
    {"Point", "y", "point_y"},
};

// What the items of lists are read from (Description_node, the attribute classes).
const struct
{
    const char* element;
    std::vector<const char*> keys;
} item_keys[] = {
    {"place", {"object", "x_location", "y_location", "justification"}},
    {"ref", {"object"}},
    {"Event_macro", {"event_id", "macro_id"}},
    {"Language", {"code", "byte_1", "byte_2"}},
    {"Language_pair", {"language", "country", "language_1", "language_2", "country_1", "country_2"}},
    {"Point", {"point_x", "point_y"}},
    {"Labelref", {"labelled_object", "string_variable", "font_type", "graphic_representation"}},
    {"Code_plane_rangeset", {"code_plane"}},
    {"Code_plane_range", {"first_char", "last_char"}},
    {"Editable", {"object"}},
    {"colour", {"name", "value"}},
    {"object_pool", {"mask_size", "key_size", "languages", "texts", "vt6_objects"}},
    // Texts that may become longer in a translation (Translations).
    {"Output_string", {"grow"}},
    {"Input_string", {"grow"}},
    {"String_variable", {"grow"}},
    {"Input_attributes", {"grow"}},
};

int distance(const QByteArray& a, const QByteArray& b)
{
    std::vector<int> row(size_t(b.size()) + 1);
    for (int j = 0; j <= b.size(); ++j)
        row[size_t(j)] = j;
    for (int i = 1; i <= a.size(); ++i) {
        int diagonal = row[0];
        row[0] = i;
        for (int j = 1; j <= b.size(); ++j) {
            const int above = row[size_t(j)];
            row[size_t(j)] = std::min({above + 1, row[size_t(j) - 1] + 1, diagonal + (a[i - 1] != b[j - 1])});
            diagonal = above;
        }
    }
    return row[size_t(b.size())];
}

}

const QList<Attribute_names::Alias>& Attribute_names::aliases()
{
    static const QList<Alias> all(std::begin(alias_table), std::end(alias_table));
    return all;
}

QList<QByteArray> Attribute_names::aliases_of(const QByteArray& element, const QByteArray& name)
{
    QList<QByteArray> out;
    for (const Alias& a : alias_table)
        if (element == a.element && name == a.name)
            out.append(a.alias);
    return out;
}

QStringList Attribute_names::resolve(Xml_element& e)
{
    QStringList problems;
    for (const Alias& a : alias_table) {
        if (e.name != a.element)
            continue;
        Xml_attribute* given = e.find_attribute(a.alias, strlen(a.alias));
        if (!given)
            continue;
        if (e.find_attribute(a.name, strlen(a.name)))
            problems.append(QStringLiteral("'%1' and '%2' name the same attribute of <%3>; give one of them")
                                .arg(a.alias, a.name, QString::fromUtf8(e.name)));
        else
            given->key = a.name;
    }
    return problems;
}

QList<QByteArray> Attribute_names::known(const QByteArray& element, bool with_aliases)
{
    QList<QByteArray> names;
    for (const auto& item : item_keys)
        if (element == item.element)
            for (const char* k : item.keys)
                names.append(k);
    if (const Class_facts* facts = class_facts(element)) {
        names << "name"
              << "id";
        if (facts->type == VT_obj_type::TYPE_PICTURE_GRAPHIC || facts->type == VT_obj_type::TYPE_PNG ||
            facts->type == VT_obj_type::TYPE_GRAPHIC_DATA)
            names << "file";
        for (const Attribute_facts& f : facts->attributes)
            names.append(f.name);
    }
    for (const Alias& a : alias_table)
        if (with_aliases && element == a.element)
            names.append(a.alias);
    return names;
}

QString Attribute_names::suggestion(const QByteArray& element, const QByteArray& key)
{
    const QByteArray bare = key.endsWith(".hex") ? key.left(key.size() - 4) : key;
    QByteArray best;
    int best_distance = std::max(2, int(bare.size()) / 3) + 1;
    for (const QByteArray& name : known(element)) {
        const int d = distance(bare.toLower(), name);
        if (d < best_distance) {
            best = name;
            best_distance = d;
        }
    }
    if (best.isEmpty() || best == bare)
        return QString();
    for (const Alias& a : alias_table)
        if (element == a.element && best == a.alias)
            best = a.name;
    return QStringLiteral(" (did you mean '%1'?)").arg(QString::fromUtf8(best));
}

}
