#include "bench_support.h"

#include <cstdio>
#include <cstdlib>
#include <map>

namespace bench {

namespace {

// One block of 14 objects; `b` makes its names unique.
void append_block(QByteArray& x, int b, int count)
{
    const QByteArray n = QByteArray::number(b);
    // A 32 x 32 picture in 8 bits, drawn as a gradient with a frame.
    static const QByteArray picture_bytes = [] {
        QByteArray hex;
        for (int y = 0; y < 32; ++y)
            for (int px = 0; px < 32; ++px) {
                int c = (px == 0 || y == 0 || px == 31 || y == 31) ? 0 : 16 + (px + y) % 216;
                hex += QByteArray::number(c, 16).rightJustified(2, '0');
            }
        return hex;
    }();
    const QByteArray text64 = "Application rate " + n.rightJustified(8, '0') + " litres per hectare, boom  ";
    const QByteArray lines[] = {
        "<Number_variable name=\"nv" + n + "\" value=\"" + QByteArray::number(b * 7) + "\"/>",
        "<String_variable name=\"sv" + n + "\" string=\"" + text64.left(64) + "\"/>",
        "<Font_attributes name=\"fa" + n + "\" font_colour=\"black\" font_size=\"" + QByteArray::number(b % 15) +
            "\" font_type=\"0\" font_style=\"" + QByteArray::number(b % 4) + "\"/>",
        "<Fill_attributes name=\"fi" + n + "\" fill_type=\"2\" fill_colour=\"" + QByteArray::number(b % 256) +
            "\" fill_pattern=\"65535\"/>",
        "<Line_attributes name=\"la" + n + "\" line_colour=\"navy\" line_width=\"1\" line_art=\"0xFFFF\"/>",
        "<Output_string name=\"os" + n + "\" width=\"200\" height=\"20\" background_colour=\"white\" font_attributes=\"fa" +
            n + "\" options=\"1\" horizontal_justification=\"1\" string=\"Section " + n.rightJustified(6, '0') +
            " of the left boom\"/>",
        "<Output_number name=\"on" + n + "\" width=\"100\" height=\"20\" background_colour=\"white\" font_attributes=\"fa" +
            n + "\" variable_reference=\"nv" + n + "\" offset=\"0\" scale=\"0.1\" no_decimals=\"1\"/>",
        "<Rectangle name=\"re" + n + "\" line_attributes=\"la" + n + "\" width=\"80\" height=\"40\" fill_attributes=\"fi" +
            n + "\"/>",
        "<Container name=\"co" + n + "\" width=\"240\" height=\"120\" hidden=\"0\">"
        "<place object=\"os" + n + "\" x_location=\"0\" y_location=\"0\"/>"
        "<place object=\"on" + n + "\" x_location=\"0\" y_location=\"24\"/>"
        "<place object=\"re" + n + "\" x_location=\"120\" y_location=\"24\"/>"
        "<place object=\"pg" + n + "\" x_location=\"200\" y_location=\"24\"/>"
        "<place object=\"in" + n + "\" x_location=\"0\" y_location=\"48\"/>"
        "<place object=\"po" + n + "\" x_location=\"120\" y_location=\"48\"/>"
        "<place object=\"os" + n + "\" x_location=\"0\" y_location=\"72\"/>"
        "<place object=\"on" + n + "\" x_location=\"0\" y_location=\"96\"/></Container>",
        "<Data_mask name=\"dm" + n + "\" background_colour=\"silver\">"
        "<place object=\"co" + n + "\" x_location=\"0\" y_location=\"0\"/>"
        "<place object=\"os" + n + "\" x_location=\"0\" y_location=\"130\"/>"
        "<place object=\"on" + n + "\" x_location=\"0\" y_location=\"160\"/>"
        "<place object=\"re" + n + "\" x_location=\"240\" y_location=\"0\"/>"
        "<place object=\"pg" + n + "\" x_location=\"240\" y_location=\"60\"/>"
        "<place object=\"in" + n + "\" x_location=\"240\" y_location=\"100\"/>"
        "<place object=\"po" + n + "\" x_location=\"240\" y_location=\"140\"/>"
        "<place object=\"co" + n + "\" x_location=\"0\" y_location=\"200\"/>"
        "<place object=\"os" + n + "\" x_location=\"240\" y_location=\"200\"/>"
        "<place object=\"on" + n + "\" x_location=\"240\" y_location=\"230\"/></Data_mask>",
        "<Input_number name=\"in" + n + "\" width=\"100\" height=\"20\" background_colour=\"white\" font_attributes=\"fa" +
            n + "\" variable_reference=\"nv" + n +
            "\" value=\"0\" min_value=\"0\" max_value=\"1000\" offset=\"0\" scale=\"1.0\" no_decimals=\"0\" "
            "format=\"0\" options2=\"1\"/>",
        "<Picture_graphic name=\"pg" + n + "\" width=\"32\" actual_width=\"32\" actual_height=\"32\" "
            "format=\"EIGHT_BIT_COLOUR\" options=\"0\" transparency_colour=\"0\" bytes=\"" + picture_bytes + "\"/>",
        "<Macro name=\"ma" + n + "\" bytes=\"A8 20 4E 00 00 00 00 FF AD 00 00 E8 03 FF FF FF\"/>",
        "<Polygon name=\"po" + n + "\" width=\"40\" height=\"40\" line_attributes=\"la" + n + "\" fill_attributes=\"fi" +
            n + "\" polygon_type=\"0\"><Point point_x=\"0\" point_y=\"40\"/><Point point_x=\"20\" point_y=\"0\"/>"
            "<Point point_x=\"40\" point_y=\"40\"/><Point point_x=\"30\" point_y=\"20\"/>"
            "<Point point_x=\"10\" point_y=\"20\"/><Point point_x=\"0\" point_y=\"40\"/></Polygon>",
    };
    for (int i = 0; i < count; ++i)
        x += lines[i] + "\n";
}

}

const int BLOCK = 14;

QByteArray mixed_description(int objects)
{
    QByteArray x = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<object_pool mask_size=\"480\">\n";
    x += "<Working_set name=\"ws\" background_colour=\"white\" selectable=\"1\" active_mask=\"dm0\">"
         "<Language code=\"en\"/></Working_set>\n";
    int left = objects - 1;
    for (int b = 0; left > 0; ++b) {
        append_block(x, b, std::min(left, BLOCK));
        left -= BLOCK;
    }
    x += "</object_pool>\n";
    return x;
}

void build_description(const QByteArray& xml, VT::Object_pool& pool)
{
    auto d = std::make_shared<VT::Description>();
    pool.keep_alive(d);
    if (!d->parse(xml, QStringLiteral("generated.xml")) || !d->build(pool)) {
        for (const QString& p : d->problems())
            fprintf(stderr, "%s\n", qPrintable(p));
        abort();
    }
}

const QByteArray& mixed_pool_bytes(int objects)
{
    static std::map<int, QByteArray> made;
    QByteArray& bytes = made[objects];
    if (bytes.isEmpty()) {
        VT::Object_pool pool;
        build_description(mixed_description(objects), pool);
        bytes = VT::Pool_file::write(pool);
    }
    return bytes;
}

VT::Serialisation_limits sixteen_colours_reduced_fonts()
{
    VT::Serialisation_limits l;
    l.colour_format = VT::FOUR_BIT_COLOUR;
    l.small_font_mask = 0x15; // sizes 1, 3 and 5
    l.large_font_mask = 0x02;
    l.font_style_mask = 0x03; // bold and crossed out only
    return l;
}

void report(benchmark::State& state, int64_t bytes, int64_t objects)
{
    const double n = double(state.iterations());
    state.SetBytesProcessed(int64_t(n) * bytes);
    state.counters["objects/s"] = benchmark::Counter(n * double(objects), benchmark::Counter::kIsRate);
    // Seconds per object, printed with its unit prefix (45.2n is 45.2 ns).
    state.counters["time/object"] =
        benchmark::Counter(n * double(objects), benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

}
