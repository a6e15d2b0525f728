// The renderer on small hand-made pools: pixels where each kind of object puts them.
#include <gtest/gtest.h>

#include <QImage>
#include <QTemporaryDir>
#include <memory>

#include "test_support.h"
#include "tools/description/Description.h"
#include "tools/terminal/Colour_reduction.h"
#include "tools/render/Png_writer.h"
#include "tools/render/Renderer.h"
#include "tools/render/Text.h"

using namespace VT;
using namespace VT::Render;

namespace {

const uint32_t BLACK = 0xFF000000u, WHITE = 0xFFFFFFFFu, RED = 0xFFFF0000u, GREEN = 0xFF009900u,
               BLUE = 0xFF0000FFu, YELLOW = 0xFFFFFF00u;

struct Scene
{
    VT::Object_pool pool;
    bool ok = false;
    QString problems;
};

// A pool from a description; every object of it is at hand by name.
std::unique_ptr<Scene> scene(const QByteArray& xml)
{
    auto s = std::make_unique<Scene>();
    auto d = std::make_shared<VT::Description>();
    s->pool.keep_alive(d);
    test::Stream_capture err(std::cerr);
    s->ok = d->parse(xml, "test.xml") && d->build(s->pool);
    s->problems = d->problems().join("\n");
    return s;
}

// A terminal with a 100 x 100 data mask and no soft keys.
VT::Terminal small_terminal(int colours = 256)
{
    VT::Terminal t;
    t.data_mask_width = t.data_mask_height = 100;
    t.physical_soft_keys = 0;
    t.colours = colours;
    return t;
}

Canvas draw(Scene& s, const char* name, const VT::Terminal& t = small_terminal())
{
    Renderer r(t, s.pool);
    VT::VT_obj* obj = s.pool.find(QByteArray(name));
    EXPECT_NE(obj, nullptr) << name;
    return r.render_object(obj);
}

// A data mask of the given colour holding `content` (place elements).
QByteArray mask(const char* content, const char* background = "white")
{
    return QByteArray("<object_pool><Data_mask name=\"m\" background_colour=\"") + background + "\">" + content +
           "</Data_mask></object_pool>";
}

int count(const Canvas& c, const Rect& r, uint32_t colour)
{
    int n = 0;
    for (int y = r.y; y < r.y + r.h; ++y)
        for (int x = r.x; x < r.x + r.w; ++x)
            n += c.pixel(x, y) == colour;
    return n;
}

}

TEST(Render, RectangleIsFilledInsideAndOutlinedOnItsUnsuppressedSides)
{
    auto s = scene(mask(R"(
      <place x_location="10" y_location="10">
        <Rectangle name="r" width="20" height="10" line_attributes="pen" fill_attributes="red_fill"/>
      </place>
      <place x_location="50" y_location="10">
        <Rectangle name="open_top" width="20" height="10" line_attributes="wide_pen" line_suppression="5"
                   fill_attributes="red_fill"/>
      </place>
      <Line_attributes name="pen" line_colour="black" line_width="1" line_art="0xFFFF"/>
      <Line_attributes name="wide_pen" line_colour="blue" line_width="2" line_art="0xFFFF"/>
      <Fill_attributes name="red_fill" fill_type="2" fill_colour="red"/>)"));
    ASSERT_TRUE(s->ok) << s->problems.toStdString();
    const Canvas c = draw(*s, "m");
    // Inside: the fill; the outermost ring: the outline; around it: the mask.
    EXPECT_EQ(count(c, Rect{11, 11, 18, 8}, RED), 18 * 8);
    EXPECT_EQ(count(c, Rect{10, 10, 20, 1}, BLACK), 20);
    EXPECT_EQ(count(c, Rect{10, 19, 20, 1}, BLACK), 20);
    EXPECT_EQ(count(c, Rect{10, 10, 1, 10}, BLACK), 10);
    EXPECT_EQ(count(c, Rect{29, 10, 1, 10}, BLACK), 10);
    EXPECT_EQ(count(c, Rect{9, 9, 22, 1}, WHITE), 22);
    EXPECT_EQ(count(c, Rect{9, 20, 22, 1}, WHITE), 22);
    EXPECT_EQ(c.pixel(30, 15), WHITE);

    // Suppression 5 leaves out the top and the bottom: the fill reaches them; the 2-pixel
    // sides stay inside the rectangle.
    EXPECT_EQ(count(c, Rect{52, 10, 16, 1}, RED), 16);
    EXPECT_EQ(count(c, Rect{52, 19, 16, 1}, RED), 16);
    EXPECT_EQ(count(c, Rect{50, 10, 2, 10}, BLUE), 20);
    EXPECT_EQ(count(c, Rect{68, 10, 2, 10}, BLUE), 20);
    EXPECT_EQ(c.pixel(49, 15), WHITE);
    EXPECT_EQ(c.pixel(70, 15), WHITE);
}

TEST(Render, FillsTakeTheLineColourOrTileAPatternFromTheShapesCorner)
{
    // The pattern: red, transparent (white), blue in a row.
    auto s = scene(mask(R"(
      <place x_location="0" y_location="0">
        <Rectangle name="lined" width="10" height="10" line_attributes="no_pen" fill_attributes="by_line"/>
      </place>
      <place x_location="21" y_location="0">
        <Rectangle name="patterned" width="7" height="2" line_attributes="no_pen" fill_attributes="by_pattern"/>
      </place>
      <place x_location="40" y_location="0">
        <Ellipse name="round" width="30" height="30" line_attributes="no_pen" fill_attributes="by_pattern"/>
      </place>
      <Line_attributes name="no_pen" line_colour="green" line_width="0" line_art="0xFFFF"/>
      <Fill_attributes name="by_line" fill_type="1" fill_colour="red"/>
      <Fill_attributes name="by_pattern" fill_type="3" fill_colour="yellow" fill_pattern="tile"/>
      <Picture_graphic name="tile" width="3" actual_width="3" actual_height="1" format="2" options="1"
                       transparency_colour="1" bytes="0C 01 09"/>)", "black"));
    ASSERT_TRUE(s->ok) << s->problems.toStdString();
    const Canvas c = draw(*s, "m");
    EXPECT_EQ(count(c, Rect{0, 0, 10, 10}, GREEN), 100);
    const uint32_t row[7] = {RED, BLACK, BLUE, RED, BLACK, BLUE, RED};
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 7; ++x)
            EXPECT_EQ(c.pixel(21 + x, y), row[x]) << x << "," << y;
    // Inside the ellipse the pattern, from the ellipse's box corner; outside it nothing.
    EXPECT_EQ(c.pixel(40 + 15, 15), RED);
    EXPECT_EQ(c.pixel(40 + 16, 15), BLACK);
    EXPECT_EQ(c.pixel(40 + 17, 15), BLUE);
    EXPECT_EQ(count(c, Rect{40, 0, 4, 4}, BLACK), 16);
    EXPECT_EQ(count(c, Rect{40, 0, 30, 30}, YELLOW), 0);
}

TEST(Render, LineRunsCornerToCornerWithItsWidthAndDashes)
{
    auto s = scene(mask(R"(
      <place x_location="5" y_location="5"><Line name="down" width="10" height="4" line_attributes="pen"/></place>
      <place x_location="5" y_location="20"><Line name="up" width="10" height="4" line_direction="1" line_attributes="pen"/></place>
      <place x_location="5" y_location="40"><Line name="flat" width="32" height="0" line_attributes="dashes"/></place>
      <place x_location="5" y_location="50"><Line name="thick" width="20" height="1" line_attributes="thick_pen"/></place>
      <place x_location="5" y_location="70"><Line name="none" width="20" height="5" line_attributes="nothing"/></place>
      <Line_attributes name="pen" line_colour="black" line_width="1" line_art="0xFFFF"/>
      <Line_attributes name="dashes" line_colour="black" line_width="1" line_art="0xF0F0"/>
      <Line_attributes name="thick_pen" line_colour="black" line_width="3" line_art="0xFFFF"/>
      <Line_attributes name="nothing" line_colour="black" line_width="0" line_art="0xFFFF"/>)"));
    ASSERT_TRUE(s->ok) << s->problems.toStdString();
    const Canvas c = draw(*s, "m");
    EXPECT_EQ(c.pixel(5, 5), BLACK);
    EXPECT_EQ(c.pixel(14, 8), BLACK);
    EXPECT_EQ(c.pixel(14, 5), WHITE);
    EXPECT_EQ(count(c, Rect{5, 5, 10, 4}, BLACK), 10) << "one pixel a column";
    EXPECT_EQ(c.pixel(5, 23), BLACK);
    EXPECT_EQ(c.pixel(14, 20), BLACK);
    EXPECT_EQ(c.pixel(5, 20), WHITE);
    // 0xF0F0 from its high bit: four on, four off.
    for (int x = 0; x < 32; ++x)
        EXPECT_EQ(c.pixel(5 + x, 40), (x / 4) % 2 == 0 ? BLACK : WHITE) << x;
    // A width of 3 in a box 1 high: three rows, all of them.
    EXPECT_EQ(count(c, Rect{5, 50, 20, 3}, BLACK), 60);
    EXPECT_EQ(count(c, Rect{0, 65, 100, 15}, BLACK), 0);
}

TEST(Render, BarGraphsFillTheShareOfTheirValue)
{
    auto s = scene(mask(R"(
      <place x_location="0" y_location="0">
        <Linear_bar_graph name="up" width="10" height="100" fill_colour="blue" options="0"
                          min_value="0" max_value="200" variable_reference="level" value="0"/>
      </place>
      <place x_location="20" y_location="0">
        <Linear_bar_graph name="left" width="80" height="10" fill_colour="blue" target_line_colour="red"
                          options="0x32" min_value="100" max_value="180" value="120" target_value="160"/>
      </place>
      <place x_location="20" y_location="20">
        <Linear_bar_graph name="framed_line" width="42" height="10" fill_colour="green" options="0x19"
                          min_value="0" max_value="40" value="40"/>
      </place>
      <Number_variable name="level" value="50"/>)"));
    ASSERT_TRUE(s->ok) << s->problems.toStdString();
    const Canvas c = draw(*s, "m");
    // 50 of 200: the lowest 25 rows, from the variable rather than the value.
    EXPECT_EQ(count(c, Rect{0, 75, 10, 25}, BLUE), 250);
    EXPECT_EQ(count(c, Rect{0, 0, 10, 75}, BLUE), 0);
    // Horizontal, growing leftwards: 20 of 80 is 20 columns from the right; the target line at
    // 60 of 80 is the column 60 from the right.
    EXPECT_EQ(count(c, Rect{80, 0, 20, 10}, BLUE), 200);
    EXPECT_EQ(count(c, Rect{20, 0, 60, 10}, BLUE), 0);
    EXPECT_EQ(count(c, Rect{39, 0, 1, 10}, RED), 10);
    // Border and a line at the value instead of a bar: the full value puts the line at the
    // inner end.
    EXPECT_EQ(count(c, Rect{20, 20, 42, 1}, GREEN), 42);
    EXPECT_EQ(count(c, Rect{60, 21, 1, 8}, GREEN), 8);
    EXPECT_EQ(count(c, Rect{21, 21, 39, 8}, GREEN), 0);
}

TEST(Render, OutputNumberShowsTheGlyphsOfItsTextWhereJustified)
{
    auto s = scene(mask(R"(
      <place x_location="0" y_location="0">
        <Output_number name="n" width="60" height="16" background_colour="white" font_attributes="f"
                       value="125" offset="0" scale="0.1" no_decimals="1" horizontal_justification="6"/>
      </place>
      <Font_attributes name="f" font_colour="black" font_size="0"/>)", "yellow"));
    ASSERT_TRUE(s->ok) << s->problems.toStdString();
    const Canvas c = draw(*s, "m");
    // "12.5" in 6x8 cells, right-justified (60 - 4 * 6 = 36) and vertically centred
    // ((16 - 8) / 2 = 4); each 5 x 8 glyph sits at the left of its cell.
    const Glyph_set& set = glyph_sets[font_metrics(0).glyph_set];
    const uint16_t* page = code_page(0);
    const std::string text = "12.5";
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 60; ++x) {
            bool ink = false;
            const int column = x - 36, row = y - 4;
            if (column >= 0 && row >= 0 && row < 8 && column % 6 < set.width) {
                const uint8_t* bits = set.glyph(page[uint8_t(text[size_t(column / 6)])]);
                ink = bits[row * set.row_bytes] >> (7 - column % 6) & 1;
            }
            ASSERT_EQ(c.pixel(x, y), ink ? BLACK : WHITE) << x << "," << y;
        }
    }
    EXPECT_EQ(c.pixel(60, 0), YELLOW);
}

TEST(Render, NumbersAreFormattedAsTheirOptionsSay)
{
    auto f = [](uint32_t value, int32_t offset, float scale, int decimals, uint8_t options = 0, int format = 0,
                int columns = 8) {
        Number_format n;
        n.value = value;
        n.offset = offset;
        n.scale = scale;
        n.decimals = uint8_t(decimals);
        n.options = options;
        n.format = uint8_t(format);
        n.columns = columns;
        return format_number(n);
    };
    EXPECT_EQ(f(125, 0, 0.1f, 1), "12.5");
    EXPECT_EQ(f(125, 0, 0.1f, 0), "13") << "rounds half away from zero";
    EXPECT_EQ(f(125, 0, 0.1f, 0, 0x08), "12") << "truncates";
    EXPECT_EQ(f(7, 0, 0.7f, 1, 0x08), "4.9") << "the float scale's last bit does not cut a digit";
    EXPECT_EQ(f(5, -10, 1.0f, 2), "-5.00");
    EXPECT_EQ(f(3, 0, 0.01f, 3), "0.030");
    EXPECT_EQ(f(42, 0, 1.0f, 0, 0x02, 0, 6), "000042");
    EXPECT_EQ(f(0, -42, 1.0f, 0, 0x02, 0, 6), "-00042");
    EXPECT_EQ(f(0, 0, 1.0f, 1, 0x04), "") << "zero shown blank";
    EXPECT_EQ(f(1, 0, 0.01f, 1, 0x04), "") << "blank when it shows as zero";
    EXPECT_EQ(f(1, 0, 0.1f, 1, 0x04), "0.1");
    EXPECT_EQ(f(12345, 0, 1.0f, 2, 0, 1), "1.23e+04");
    EXPECT_EQ(f(4000000000u, 0, 1e30f, 0), "4e+39") << "too large for fixed notation";
}

TEST(Render, TextBreaksAtLineEndsAndWrapsAtSpacesOrHyphens)
{
    Text_layout plain, wrap, hyphen;
    wrap.wrap = true;
    hyphen.wrap = hyphen.wrap_on_hyphen = true;
    typedef std::vector<std::string> Lines;
    EXPECT_EQ(text_lines("one two three", 7, plain), (Lines{"one two three"}));
    EXPECT_EQ(text_lines("one two three", 7, wrap), (Lines{"one two", "three"}));
    EXPECT_EQ(text_lines("one  two", 4, wrap), (Lines{"one", "two"}));
    EXPECT_EQ(text_lines("abcdefghij", 4, wrap), (Lines{"abcd", "efgh", "ij"}));
    EXPECT_EQ(text_lines("well-known fact", 6, wrap), (Lines{"well-k", "nown", "fact"}));
    EXPECT_EQ(text_lines("well-known fact", 6, hyphen), (Lines{"well-", "known", "fact"}));
    EXPECT_EQ(text_lines("a\r\nb\n\rc\rd\ne", 10, plain), (Lines{"a", "b", "c", "d", "e"}));
    EXPECT_EQ(text_lines("a\n\nb", 10, plain), (Lines{"a", "", "b"}));

    // Drawn: wrapped lines centred in the field, each line on its own.
    Canvas c(40, 20, WHITE);
    Font f{font_metrics(0), BLACK, 0, 0};
    Text_layout centre = wrap;
    centre.justification = 1;
    draw_text(c, Rect{0, 0, 40, 20}, "ab cdefg", f, centre, WHITE);
    // "ab" is 12 pixels wide: columns 14 to 25 in the first row of cells, "cdefg" 30 wide: 5 to 34.
    EXPECT_GT(count(c, Rect{14, 0, 12, 8}, BLACK), 0);
    EXPECT_EQ(count(c, Rect{0, 0, 14, 8}, BLACK) + count(c, Rect{26, 0, 14, 8}, BLACK), 0);
    EXPECT_GT(count(c, Rect{5, 8, 30, 8}, BLACK), 0);
    EXPECT_EQ(count(c, Rect{0, 16, 40, 4}, BLACK), 0);

    // Inverted and underlined: the cells take the font colour, the glyphs and the underline the
    // field's.
    Canvas inv(12, 8, WHITE);
    f.style = STYLE_INVERTED | STYLE_UNDERLINED;
    draw_text(inv, Rect{0, 0, 12, 8}, "  ", f, plain, GREEN);
    EXPECT_EQ(count(inv, Rect{0, 0, 12, 7}, BLACK), 12 * 7);
    EXPECT_EQ(count(inv, Rect{0, 7, 12, 1}, GREEN), 12);
}

TEST(Render, PictureShowsItsPixelsScaledAndLeavesTransparentOnesAlone)
{
    // A 4 x 2 8-bit picture, red and blue above yellow and the transparency colour (white).
    auto s = scene(mask(R"(
      <place x_location="0" y_location="0">
        <Picture_graphic name="p" width="4" actual_width="4" actual_height="2" format="2" options="1"
                         transparency_colour="1" bytes="0C 0C 09 09 0E 01 01 0E"/>
      </place>
      <place x_location="10" y_location="0">
        <Picture_graphic name="wide" width="8" actual_width="4" actual_height="2" format="2" options="0"
                         transparency_colour="1" bytes="0C 0C 09 09 0E 01 01 0E"/>
      </place>
      <place x_location="30" y_location="0">
        <Picture_graphic name="runs" width="4" actual_width="4" actual_height="2" format="1" options="4"
                         bytes="02 C9 02 E1"/>
      </place>)", "green"));
    ASSERT_TRUE(s->ok) << s->problems.toStdString();
    const Canvas c = draw(*s, "m");
    const uint32_t expected[2][4] = {{RED, RED, BLUE, BLUE}, {YELLOW, GREEN, GREEN, YELLOW}};
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 4; ++x)
            EXPECT_EQ(c.pixel(x, y), expected[y][x]) << x << "," << y;
    // Twice as wide (the height follows): each pixel twice across and down; not transparent.
    EXPECT_EQ(count(c, Rect{10, 0, 4, 2}, RED), 8);
    EXPECT_EQ(count(c, Rect{12, 2, 4, 2}, WHITE), 8);
    EXPECT_EQ(c.pixel(18, 0), GREEN);
    // Run-length coded 4-bit pixels: two of (red, blue), two of (yellow, white).
    const uint32_t runs[2][4] = {{RED, BLUE, RED, BLUE}, {YELLOW, WHITE, YELLOW, WHITE}};
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 4; ++x)
            EXPECT_EQ(c.pixel(30 + x, y), runs[y][x]) << x << "," << y;
}

TEST(Render, HiddenContainerDrawsNothingAndAVisibleOneClipsItsChildren)
{
    auto s = scene(mask(R"(
      <place x_location="10" y_location="10">
        <Container name="hidden" width="30" height="30" hidden="1">
          <place x_location="0" y_location="0">
            <Rectangle name="r" width="30" height="30" line_attributes="pen" fill_attributes="fill"/>
          </place>
        </Container>
      </place>
      <place x_location="50" y_location="10">
        <Container name="shown" width="20" height="20" hidden="0">
          <place x_location="10" y_location="10"><Object_pointer name="to_r" value="r"/></place>
        </Container>
      </place>
      <Line_attributes name="pen" line_colour="black" line_width="1" line_art="0xFFFF"/>
      <Fill_attributes name="fill" fill_type="2" fill_colour="red"/>)"));
    ASSERT_TRUE(s->ok) << s->problems.toStdString();
    const Canvas c = draw(*s, "m");
    EXPECT_EQ(count(c, Rect{0, 0, 50, 100}, WHITE), 50 * 100);
    // Through the pointer, the rectangle's corner shows in the container's lower right
    // quarter and no further.
    EXPECT_EQ(c.pixel(60, 60 - 40), BLACK);
    EXPECT_EQ(count(c, Rect{61, 21, 9, 9}, RED), 81);
    EXPECT_EQ(count(c, Rect{70, 10, 30, 90}, WHITE), 30 * 90);
    EXPECT_EQ(count(c, Rect{50, 30, 20, 70}, WHITE), 20 * 70);
}

TEST(Render, EllipsesAndPolygonsFillTheirShape)
{
    auto s = scene(mask(R"(
      <place x_location="0" y_location="0">
        <Ellipse name="e" width="20" height="10" line_attributes="pen" ellipse_type="0" fill_attributes="fill"/>
      </place>
      <place x_location="30" y_location="0">
        <Ellipse name="quarter" width="21" height="21" line_attributes="pen" ellipse_type="3"
                 start_angle="0" end_angle="45" fill_attributes="fill"/>
      </place>
      <place x_location="60" y_location="0">
        <Ellipse name="arc" width="21" height="21" line_attributes="pen" ellipse_type="1"
                 start_angle="0" end_angle="90" fill_attributes="fill"/>
      </place>
      <place x_location="0" y_location="40">
        <Polygon name="p" width="20" height="20" line_attributes="pen" fill_attributes="fill" polygon_type="0">
          <Point point_x="0" point_y="19"/><Point point_x="10" point_y="0"/><Point point_x="19" point_y="19"/>
        </Polygon>
      </place>
      <Line_attributes name="pen" line_colour="black" line_width="1" line_art="0xFFFF"/>
      <Fill_attributes name="fill" fill_type="2" fill_colour="red"/>)"));
    ASSERT_TRUE(s->ok) << s->problems.toStdString();
    const Canvas c = draw(*s, "m");
    // Closed ellipse: the middle filled, the ends of its axes outlined, the box's corners not.
    EXPECT_EQ(c.pixel(10, 5), RED);
    EXPECT_EQ(c.pixel(0, 4), BLACK);
    EXPECT_EQ(c.pixel(19, 5), BLACK);
    EXPECT_EQ(c.pixel(9, 0), BLACK);
    EXPECT_EQ(c.pixel(0, 0), WHITE);
    EXPECT_EQ(c.pixel(19, 9), WHITE);
    // A section of 0 to 90 degrees (angles count in 2 degrees): only the upper right quarter.
    EXPECT_EQ(c.pixel(30 + 15, 5), RED);
    EXPECT_EQ(c.pixel(30 + 5, 5), WHITE);
    EXPECT_EQ(c.pixel(30 + 15, 15), WHITE);
    EXPECT_EQ(c.pixel(30 + 5, 15), WHITE);
    // An open arc from 0 to 180 degrees: the upper half of the outline, no fill.
    EXPECT_EQ(c.pixel(60 + 10, 0), BLACK);
    EXPECT_EQ(c.pixel(60 + 10, 20), WHITE);
    EXPECT_EQ(count(c, Rect{60, 0, 21, 21}, RED), 0);
    // The triangle: filled inside, its corners outlined, outside untouched.
    EXPECT_EQ(c.pixel(10, 55), RED);
    EXPECT_EQ(c.pixel(0, 59), BLACK);
    EXPECT_EQ(c.pixel(10, 40), BLACK);
    EXPECT_EQ(c.pixel(2, 42), WHITE);
    EXPECT_EQ(c.pixel(18, 42), WHITE);
}

TEST(Render, SixteenAndTwoColourTerminalsReduceEveryColour)
{
    EXPECT_EQ(reduce_colour(12, 16), 12);
    EXPECT_EQ(reduce_colour(196, 16), 12) << "#ff0000 of the cube is red";
    EXPECT_EQ(reduce_colour(236, 16), 8) << "#666666 is nearest grey";
    EXPECT_EQ(reduce_colour(16 + 36 * 5 + 6 * 5 + 0, 16), 14) << "#ffff00 is yellow";
    EXPECT_EQ(reduce_colour(196, 256), 196);
    EXPECT_EQ(reduce_colour(7, 2), 1) << "silver is light";
    EXPECT_EQ(reduce_colour(15, 2), 0) << "navy is dark";
    EXPECT_EQ(reduce_rgb(0x123456, 256), 0x123456u);
    EXPECT_EQ(reduce_rgb(0xF00000, 16), 0xFF0000u);
    EXPECT_EQ(reduce_rgb(0xF0F0F0, 2), 0xFFFFFFu);

    // The mask colour #cc6600 (cube 16 + 36 * 4 + 6 * 2) and a 4-bit picture's colours, drawn
    // for 16 colours, come out as standard colours only.
    auto s = scene(mask(R"(
      <place x_location="0" y_location="0">
        <Picture_graphic name="p" width="2" actual_width="2" actual_height="1" format="2" options="0"
                         bytes="C4 E7"/>
      </place>)", "#cc6600"));
    ASSERT_TRUE(s->ok) << s->problems.toStdString();
    const Canvas c16 = draw(*s, "m", small_terminal(16));
    EXPECT_EQ(c16.pixel(50, 50), terminal_rgb(reduce_colour(16 + 36 * 4 + 6 * 2, 16), 256));
    EXPECT_EQ(c16.pixel(0, 0), terminal_rgb(reduce_colour(0xC4, 16), 256));
    EXPECT_EQ(c16.pixel(1, 0), terminal_rgb(reduce_colour(0xE7, 16), 256));
    const Canvas c2 = draw(*s, "m", small_terminal(2));
    for (int x : {0, 1, 50})
        EXPECT_TRUE(c2.pixel(x, 0) == BLACK || c2.pixel(x, 0) == WHITE) << x;
}

TEST(Render, ScreenShowsThePhysicalSoftKeysOfTheMaskBesideIt)
{
    auto s = scene(R"(<object_pool>
      <Working_set name="ws" background_colour="white" active_mask="m"/>
      <Data_mask name="m" background_colour="white" soft_key_mask="keys"/>
      <Soft_key_mask name="keys" background_colour="grey">
        <ref object="k1"/><ref object="k2"/><ref object="k3"/>
      </Soft_key_mask>
      <Key name="k1" background_colour="red" key_code="1"/>
      <Key name="k2" background_colour="blue" key_code="2"/>
      <Key name="k3" background_colour="yellow" key_code="3"/>
    </object_pool>)");
    ASSERT_TRUE(s->ok) << s->problems.toStdString();
    VT::Terminal t = small_terminal();
    t.physical_soft_keys = 2;
    t.key_width = t.key_height = 20;
    Renderer r(t, s->pool);
    ASSERT_EQ(Renderer::active_mask(s->pool), s->pool.find(QByteArray("m")));
    const Canvas c = r.render_screen(Renderer::active_mask(s->pool));
    ASSERT_EQ(c.width(), 100 + 20 + 2 * Renderer::KEY_MARGIN);
    ASSERT_EQ(c.height(), 100);
    // Two slots of 50 rows, each key in the middle of its slot; the third key has no place.
    const int x = 100 + Renderer::KEY_MARGIN;
    EXPECT_EQ(count(c, Rect{x, 15, 20, 20}, RED), 400);
    EXPECT_EQ(count(c, Rect{x, 65, 20, 20}, BLUE), 400);
    EXPECT_EQ(count(c, Rect{100, 0, c.width() - 100, 100}, YELLOW), 0);
    EXPECT_EQ(c.pixel(100, 0), 0xFF999999u);
    EXPECT_FALSE(r.truncated());
}

TEST(Render, CyclesMissingObjectsRunawayNestingAndHugePicturesDrawSafely)
{
    // A container that shows itself through a pointer, a pointer to nothing, and a chain of
    // containers each holding the next one twice (2^40 paths).
    QByteArray chain;
    for (int i = 0; i < 40; ++i)
        chain += QStringLiteral("<Container name=\"c%1\" width=\"100\" height=\"100\">"
                                "<place object=\"c%2\" x_location=\"0\" y_location=\"0\"/>"
                                "<place object=\"c%2\" x_location=\"1\" y_location=\"0\"/></Container>")
                     .arg(i)
                     .arg(i + 1)
                     .toUtf8();
    chain += "<Container name=\"c40\" width=\"1\" height=\"1\"/>";
    auto s = scene("<object_pool>"
                   "<Data_mask name=\"m\" background_colour=\"white\">"
                   "<place object=\"self\" x_location=\"0\" y_location=\"0\"/></Data_mask>"
                   "<Container name=\"self\" width=\"10\" height=\"10\">"
                   "<place object=\"back\" x_location=\"1\" y_location=\"1\"/>"
                   "<place object=\"nowhere\" x_location=\"1\" y_location=\"1\"/></Container>"
                   "<Object_pointer name=\"back\" value=\"self\"/>"
                   "<Object_pointer name=\"nowhere\" value=\"65535\"/>" +
                   chain + "</object_pool>");
    ASSERT_TRUE(s->ok) << s->problems.toStdString();
    Renderer r(small_terminal(), s->pool);
    const Canvas c = r.render_object(s->pool.find(QByteArray("m")));
    EXPECT_EQ(count(c, Rect{0, 0, 100, 100}, WHITE), 100 * 100);
    EXPECT_FALSE(r.truncated());
    r.render_object(s->pool.find(QByteArray("c0")));
    EXPECT_TRUE(r.truncated());
    EXPECT_TRUE(r.object_size(s->pool.find(QByteArray("back"))).w == 10);

    // A picture that claims 65535 x 65535 pixels is not decoded (4 GB).
    auto huge = scene(mask(R"(<place x_location="0" y_location="0">
        <Picture_graphic name="p" width="50" actual_width="65535" actual_height="65535" format="2" bytes="0C"/>
      </place>)"));
    ASSERT_TRUE(huge->ok) << huge->problems.toStdString();
    Renderer h(small_terminal(), huge->pool);
    EXPECT_EQ(count(h.render_object(huge->pool.find(QByteArray("m"))), Rect{0, 0, 100, 100}, WHITE), 100 * 100);
    EXPECT_TRUE(h.truncated());
}

TEST(Render, PngHoldsThePixelsAndIsWrittenWholeOrNotAtAll)
{
    Canvas c(3, 2, WHITE);
    c.plot(0, 0, RED);
    c.plot(2, 1, BLUE);
    const QByteArray png = encode_png(c, 2);
    EXPECT_EQ(png, encode_png(c, 2));
    QImage image = QImage::fromData(png, "PNG").convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(image.size(), QSize(6, 4));
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 6; ++x)
            EXPECT_EQ(uint32_t(image.pixel(x, y)), c.pixel(x / 2, y / 2)) << x << "," << y;

    // More than 256 colours: RGB.
    Canvas many(300, 1);
    for (int x = 0; x < 300; ++x)
        many.plot(x, 0, 0xFF000000u | uint32_t(x * 50000));
    image = QImage::fromData(encode_png(many), "PNG").convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(image.width(), 300);
    EXPECT_EQ(uint32_t(image.pixel(299, 0)), many.pixel(299, 0));

    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    QString error;
    EXPECT_TRUE(write_png(c, tmp.filePath("a.png"), 1, &error)) << error.toStdString();
    EXPECT_FALSE(write_png(c, tmp.filePath("missing/b.png"), 1, &error));
    EXPECT_TRUE(error.contains("missing/b.png")) << error.toStdString();
    EXPECT_EQ(QDir(tmp.path()).entryList(QDir::Files), QStringList{"a.png"});
}
