// A pool made one its terminal loads and shows as designed: fonts that fit the scaled screen and
// that the terminal has, colours and pictures with the terminal's colours, colour maps of the
// terminal's size.
#include <gtest/gtest.h>

#include <QImage>
#include <QTemporaryDir>

#include "tools/description/Description.h"
#include "tools/pool/Pool_file.h"
#include "tools/terminal/Font_sizes.h"
#include "tools/terminal/Terminal_adaptation.h"
#include "vtpool_support.h"

using namespace VT;

namespace {

struct Built
{
    Object_pool pool;
    Description description;
};

std::unique_ptr<Built> build(const QByteArray& xml)
{
    auto b = std::make_unique<Built>();
    EXPECT_TRUE(b->description.parse(xml, "adapt.xml"));
    EXPECT_TRUE(b->description.build(b->pool)) << b->description.problems().join("\n").toStdString();
    return b;
}

Terminal terminal(int colours, uint8_t small_fonts = 0xFF, uint8_t large_fonts = 0x7F, uint8_t styles = 0xFF,
                  int version = 6)
{
    Terminal t;
    t.vt_version = version;
    t.colours = colours;
    t.small_fonts = small_fonts;
    t.large_fonts = large_fonts;
    t.font_styles = styles;
    return t;
}

template <class T>
T* object(Object_pool& pool, const char* name)
{
    T* obj = dynamic_cast<T*>(pool.find(QByteArray(name)));
    EXPECT_NE(obj, nullptr) << name;
    return obj;
}

// Every pixel of a picture as its palette index, row by row.
std::vector<int> pixels(Base::Picture_graphic_obj* p)
{
    const QImage image = p->get_qimage(true);
    std::vector<int> out;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            out.push_back(image.pixelIndex(x, y));
    return out;
}

// The object of the pool read back that has the id of object `name` of the pool built.
template <class T>
T* sent_object(Object_pool& back, Object_pool& built, const char* name)
{
    VT_obj* obj = built.find(QByteArray(name));
    EXPECT_NE(obj, nullptr) << name;
    T* found = obj ? dynamic_cast<T*>(back.find(obj->get_id())) : nullptr;
    EXPECT_NE(found, nullptr) << name;
    return found;
}

// The pool written for the terminal and read back, as the terminal would receive it.
std::unique_ptr<Object_pool> sent(Object_pool& pool)
{
    auto back = std::make_unique<Object_pool>();
    QString error;
    EXPECT_TRUE(Pool_file::read(Pool_file::write(pool), *back, &error)) << error.toStdString();
    return back;
}

const char* const fonts_xml = R"(<object_pool>
  <Data_mask name="dm" soft_key_mask="skm">
    <place object="big" x_location="0" y_location="0"/>
    <place object="tall" x_location="0" y_location="100"/>
  </Data_mask>
  <Output_string name="big" width="200" height="40" font_attributes="f24x32" string="a"/>
  <Output_string name="tall" width="200" height="60" font_attributes="p40" string="b"/>
  <Font_attributes name="f24x32" font_size="6" font_style="0x01"/>
  <Font_attributes name="p40" font_size="40" font_style="0x81"/>
  <Soft_key_mask name="skm"><ref object="k"/></Soft_key_mask>
  <Key name="k" key_code="1"><place object="key_text" x_location="0" y_location="0"/></Key>
  <Output_string name="key_text" width="60" height="20" font_attributes="f12x16" string="c"/>
  <Font_attributes name="f12x16" font_size="3"/>
</object_pool>)";

}

TEST(Terminal_adaptation, FontSizesAreTheLargestThatFitThenTheNearestTheTerminalHas)
{
    // The size rule on its own: never a size the terminal lacks, 6x8 only where it has it.
    const Terminal up_to_12x16 = terminal(256, 0x0F, 0x00);
    EXPECT_EQ(Font_sizes::supported(up_to_12x16, 6), 3) << "24x32 becomes 12x16";
    const Terminal from_16x16 = terminal(256, 0x30, 0x00);
    EXPECT_EQ(Font_sizes::supported(from_16x16, 0), 4) << "no 6x8: the smallest size it has";
    EXPECT_EQ(Font_sizes::supported(from_16x16, 7), 5);
    EXPECT_EQ(Font_sizes::supported(terminal(256, 0x00, 0x01), 2), 8) << "only 32x48";
    EXPECT_EQ(Font_sizes::fitting(12, 16), 3);
    EXPECT_EQ(Font_sizes::fitting(11, 16), 2) << "8x12: 12x16 is a pixel too wide";
    EXPECT_EQ(Font_sizes::fitting(3, 3), 0);
    EXPECT_EQ(Font_sizes::for_height(40), 7) << "32x32, the tallest cell up to 40 pixels";

    struct Case
    {
        const char* what;
        Terminal t;
        Design_size design;
        int f24x32, f12x16, p40, p40_style;
    } const cases[] = {
        {"no scaling, every size", terminal(256), {}, 6, 3, 40, 0x81},
        {"half the mask, two thirds of the key", terminal(256), {480, 480, 60, 60}, 3, 1, 20, 0x81},
        {"scaled, 8x8 missing", terminal(256, 0xFD), {480, 480, 60, 60}, 3, 0, 20, 0x81},
        {"scaled, sizes 16x16 and up only", terminal(256, 0xF0), {480, 480, 60, 60}, 4, 4, 20, 0x81},
        // Without proportional fonts: the fixed size of the height, the style bit cleared.
        {"no proportional style", terminal(256, 0xFF, 0x7F, 0x7F), {}, 6, 3, 7, 0x01},
        {"VT version 3", terminal(256, 0xFF, 0x7F, 0xFF, 3), {480, 480, 60, 60}, 3, 1, 4, 0x01},
        {"no styles at all", terminal(256, 0xFF, 0x7F, 0x00), {}, 6, 3, 7, 0x00},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        auto b = build(fonts_xml);
        Terminal t = c.t;
        t.data_mask_width = t.data_mask_height = 240;
        t.key_width = t.key_height = 40;
        QStringList problems, warnings;
        ASSERT_TRUE(Terminal_adaptation::adapt(b->pool, t, {c.design}, problems, warnings)) << problems.join("\n").toStdString();
        auto back = sent(b->pool);
        EXPECT_EQ(sent_object<Base::Font_attributes_obj>(*back, b->pool, "f24x32")->get_font_size(), c.f24x32);
        EXPECT_EQ(sent_object<Base::Font_attributes_obj>(*back, b->pool, "f12x16")->get_font_size(), c.f12x16);
        auto* p = sent_object<Base::Font_attributes_obj>(*back, b->pool, "p40");
        EXPECT_EQ(p->get_font_size(), c.p40);
        EXPECT_EQ(p->get_font_style(), c.p40_style & t.font_styles);
    }

    // A fixed font of a size that does not exist is refused, named.
    auto b = build(R"(<object_pool><Font_attributes name="odd" font_size="20"/></object_pool>)");
    QStringList problems, warnings;
    EXPECT_FALSE(Terminal_adaptation::adapt(b->pool, terminal(16), {}, problems, warnings));
    EXPECT_EQ(problems.join("\n"),
              "'odd' (Font_attributes 0): font size 20 is none of the fixed sizes 0 to 14, and the font is not proportional");
}

TEST(Terminal_adaptation, ColoursAndColourMapsTakeTheTerminalsColours)
{
    const char* const xml = R"(<object_pool>
  <Data_mask name="red" background_colour="#ff0000"/>
  <Data_mask name="silver" background_colour="silver"/>
  <Data_mask name="navy" background_colour="navy"/>
  <Data_mask name="grey" background_colour="236"/>
  <Line_attributes name="line" line_colour="#ffff00"/>
  <Colour_map name="map256" colours="%1"/>
  <Colour_map name="map16" colours="00 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F"/>
</object_pool>)";
    // A 256-entry map that sends every colour to the next one.
    QByteArray shifted;
    for (int i = 0; i < 256; ++i)
        shifted += QByteArray::number((i + 1) & 0xFF, 16).rightJustified(2, '0') + " ";
    const QByteArray description = QString::fromLatin1(xml).arg(QString::fromLatin1(shifted)).toLatin1();

    struct Case
    {
        int colours;
        int red, silver, navy, grey, yellow;
    } const cases[] = {
        {256, 196, 7, 15, 236, 226},
        {16, 12, 7, 15, 8, 14},
        // Black below a luminance of 128, white from there.
        {2, 0, 1, 0, 0, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.colours);
        auto b = build(description);
        QStringList problems, warnings;
        ASSERT_TRUE(Terminal_adaptation::adapt(b->pool, terminal(c.colours), {}, problems, warnings));
        auto back = sent(b->pool);
        auto background = [&](const char* name) { return object<Base::Data_mask_obj>(*back, name)->get_background_colour(); };
        EXPECT_EQ(background("Data_mask_0"), c.red);
        EXPECT_EQ(background("Data_mask_1"), c.silver);
        EXPECT_EQ(background("Data_mask_2"), c.navy);
        EXPECT_EQ(background("Data_mask_3"), c.grey);
        EXPECT_EQ(object<Base::Line_attributes_obj>(*back, "Line_attributes_4")->get_line_colour(), c.yellow);
        // Colour maps: as many entries as the terminal has colours, each one of its colours.
        for (const char* name : {"Colour_map_5", "Colour_map_6"}) {
            auto* map = object<Base::Colour_map_obj>(*back, name);
            ASSERT_EQ(map->get_num_colours(), c.colours) << name;
            for (int i = 0; i < c.colours; ++i) {
                const int in_design = name == std::string("Colour_map_5") ? (i + 1) & 0xFF : i;
                const int expected = c.colours == 256 ? in_design
                                     : c.colours == 16 ? (in_design < 16 ? in_design : -1)
                                                       : (in_design == 1 ? 1 : 0);
                if (expected >= 0) {
                    EXPECT_EQ(map->get_colours(unsigned(i)), expected) << name << " entry " << i;
                }
                EXPECT_LT(map->get_colours(unsigned(i)), c.colours) << name << " entry " << i;
            }
        }
    }
}

TEST(Terminal_adaptation, PicturesAreRecodedForTheTerminalAndKeepTheirTransparentPixels)
{
    // 8-bit pixels: red 196, white 231, black 16, grey 8 (153: light), silver 7, pale 230.
    const char* const xml = R"(<object_pool>
  <Picture_graphic name="plain" width="4" actual_width="4" actual_height="2" format="2" options="0"
                   bytes="C4 E7 10 08 07 E6 C4 C4"/>
  <Picture_graphic name="clear" width="4" actual_width="4" actual_height="2" format="2" options="1"
                   transparency_colour="231" bytes="C4 E7 10 08 07 E6 C4 C4"/>
  <Picture_graphic name="unused" width="2" actual_width="2" actual_height="1" format="2" options="1"
                   transparency_colour="200" bytes="C4 10"/>
  <Picture_graphic name="flat" width="64" actual_width="64" actual_height="2" format="2" options="4"
                   bytes="40 E7 40 E7"/>
  <Picture_graphic name="narrow" width="8" actual_width="8" actual_height="1" format="2" options="4"
                   bytes="01 E7 01 10 01 E7 01 10 01 E7 01 10 01 E7 01 10"/>
  <Picture_graphic name="four" width="3" actual_width="3" actual_height="1" format="1" options="0"
                   bytes="C1 00"/>
  <Picture_graphic name="icon" width="4" actual_width="4" actual_height="1" format="2" options="1"
                   transparency_colour="16" bytes="10 C4 C4 E7"/>
</object_pool>)";
    struct Expected
    {
        const char* name;
        int format, options;
        std::vector<int> pixels;
        const char* data; // the bytes sent, in hexadecimal
    };
    const std::vector<Expected> mono = {
        {"Picture_graphic_0", 0, 0, {0, 1, 0, 1, 1, 1, 0, 0}, "50 C0"},
        // White is transparent; grey, silver and pale would be white too, so they take black.
        {"Picture_graphic_1", 0, 1, {0, 1, 0, 0, 0, 0, 0, 0}, "40 00"},
        // No pixel had the transparency colour: the picture stays opaque.
        {"Picture_graphic_2", 0, 0, {0, 0}, "00"},
        // Run-length coded when that is shorter (2 runs against 16 bytes), plain when it is not.
        {"Picture_graphic_3", 0, 4, std::vector<int>(128, 1), "08 FF 08 FF"},
        {"Picture_graphic_4", 0, 0, {1, 0, 1, 0, 1, 0, 1, 0}, "AA"},
        {"Picture_graphic_5", 0, 0, {0, 1, 0}, "40"},
        // Black is transparent, but most opaque pixels are black too: white becomes the
        // transparency colour, and the one white pixel black.
        {"Picture_graphic_6", 0, 1, {1, 0, 0, 0}, "80"},
    };
    const std::vector<Expected> sixteen = {
        {"Picture_graphic_0", 1, 0, {12, 1, 0, 8, 7, 1, 12, 12}, "C1 08 71 CC"},
        {"Picture_graphic_1", 1, 1, {12, 1, 0, 8, 7, 7, 12, 12}, "C1 08 77 CC"},
        {"Picture_graphic_2", 1, 0, {12, 0}, "C0"},
        {"Picture_graphic_3", 1, 4, std::vector<int>(128, 1), "20 11 20 11"},
        {"Picture_graphic_4", 1, 4, {1, 0, 1, 0, 1, 0, 1, 0}, "04 10"},
        // A 4-bit picture on a 16-colour terminal is sent as it is.
        {"Picture_graphic_5", 1, 0, {12, 1, 0}, "C1 00"},
        {"Picture_graphic_6", 1, 1, {0, 12, 12, 1}, "0C C1"},
    };
    for (int colours : {2, 16}) {
        SCOPED_TRACE(colours);
        auto b = build(xml);
        QStringList problems, warnings;
        ASSERT_TRUE(Terminal_adaptation::adapt(b->pool, terminal(colours), {}, problems, warnings));
        auto back = sent(b->pool);
        for (const Expected& e : colours == 2 ? mono : sixteen) {
            auto* p = object<Base::Picture_graphic_obj>(*back, e.name);
            ASSERT_NE(p, nullptr);
            EXPECT_EQ(p->get_format(), e.format) << e.name;
            EXPECT_EQ(p->get_options(), e.options) << e.name;
            EXPECT_EQ(pixels(p), e.pixels) << e.name;
            QByteArray data(reinterpret_cast<const char*>(p->get_bytes()), int(p->get_num_bytes()));
            EXPECT_EQ(data.toHex(' ').toUpper(), QByteArray(e.data)) << e.name;
        }
        // What shows transparent is exactly what did.
        auto* clear = object<Base::Picture_graphic_obj>(*back, "Picture_graphic_1");
        const QImage shown = clear->get_qimage(false);
        for (int x = 0; x < 4; ++x)
            for (int y = 0; y < 2; ++y)
                EXPECT_EQ(qAlpha(shown.pixel(x, y)) == 0, x == 1 && y == 0) << x << "," << y;
    }
}

TEST(Terminal_adaptation, PngImagesTakeTheTerminalsColours)
{
    auto b = build("<object_pool><PNG name=\"tractor\" file=\"" VT_EXAMPLES_DIR "/images/tractor.png\"/></object_pool>");
    const QImage source = QImage(VT_EXAMPLES_DIR "/images/tractor.png").convertToFormat(QImage::Format_ARGB32);
    ASSERT_FALSE(source.isNull());
    QStringList problems, warnings;
    ASSERT_TRUE(Terminal_adaptation::adapt(b->pool, terminal(2), {}, problems, warnings));
    auto back = sent(b->pool);
    auto* png = object<Base::PNG_obj>(*back, "PNG_0");
    const QImage sent_image = png->get_qimage().convertToFormat(QImage::Format_ARGB32);
    ASSERT_EQ(sent_image.size(), source.size());
    for (int y = 0; y < source.height(); ++y)
        for (int x = 0; x < source.width(); ++x) {
            const QRgb s = source.pixel(x, y);
            const int luminance = (299 * qRed(s) + 587 * qGreen(s) + 114 * qBlue(s)) / 1000;
            const QRgb expected = qAlpha(s) <= 0x80 ? 0u : luminance >= 128 ? 0xFFFFFFFFu : 0xFF000000u;
            ASSERT_EQ(sent_image.pixel(x, y), expected) << x << "," << y;
        }
}

TEST(Terminal_adaptation, TypesALaterVersionAddedAreRefusedOrWithDowngradeReplaced)
{
    const QByteArray xml = "<object_pool>\n"
                           "  <Data_mask name=\"dm\"><place object=\"tractor\" x_location=\"0\" y_location=\"0\"/></Data_mask>\n"
                           "  <PNG name=\"tractor\" id=\"19\" width=\"80\" file=\"" VT_EXAMPLES_DIR "/images/tractor.png\">\n"
                           "    <Event_macro event_id=\"3\" macro_id=\"7\"/>\n"
                           "  </PNG>\n"
                           "  <Macro name=\"m\" id=\"7\" bytes=\"A8 20 4E 00 00 00 00 FF\"/>\n"
                           "  <Colour_palette name=\"palette\" id=\"30\"/>\n"
                           "</object_pool>";
    {
        auto b = build(xml);
        QStringList problems, warnings;
        EXPECT_FALSE(Terminal_adaptation::adapt(b->pool, terminal(256, 0xFF, 0x7F, 0xFF, 4), {}, problems, warnings));
        EXPECT_EQ(problems, QStringList({"'tractor' (PNG 19): object type PNG needs VT version 6; the terminal speaks VT "
                                         "version 4 (--downgrade sends it as a Picture_graphic)",
                                         "'palette' (Colour_palette 30): object type Colour_palette needs VT version 5; "
                                         "the terminal speaks VT version 4"}));
    }
    auto b = build(QByteArray(xml).replace("  <Colour_palette name=\"palette\" id=\"30\"/>\n", ""));
    const QImage image(VT_EXAMPLES_DIR "/images/tractor.png");
    QStringList problems, warnings;
    Terminal_adaptation::Options downgrade;
    downgrade.downgrade = true;
    ASSERT_TRUE(Terminal_adaptation::adapt(b->pool, terminal(256, 0xFF, 0x7F, 0xFF, 4), downgrade, problems, warnings))
        << problems.join("\n").toStdString();
    EXPECT_EQ(warnings, QStringList({"'tractor' (PNG 19): sent as a Picture_graphic: PNG needs VT version 6"}));
    // The same id, name, size and macros, found by both.
    auto* picture = dynamic_cast<Base::Picture_graphic_obj*>(b->pool.find(QByteArray("tractor")));
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(b->pool.find(19), picture);
    EXPECT_EQ(picture->get_width(), 80);
    EXPECT_EQ(picture->get_qimage(true).size(), image.size());
    EXPECT_EQ(picture->get_num_macros(), 1);
    EXPECT_EQ(picture->get_event_macro_macro_id(0), 7);
    auto back = sent(b->pool);
    EXPECT_EQ(back->find(19)->get_type(), VT_obj_type::TYPE_PICTURE_GRAPHIC);
    // Its pixels are the colour cube's for the image's colours.
    const QImage shown = dynamic_cast<Base::Picture_graphic_obj*>(back->find(19))->get_qimage(false);
    for (int y = 0; y < image.height(); y += 7)
        for (int x = 0; x < image.width(); x += 5) {
            const QRgb p = image.pixel(x, y);
            const int cube = 16 + 36 * ((qRed(p) + 25) / 51) + 6 * ((qGreen(p) + 25) / 51) + (qBlue(p) + 25) / 51;
            EXPECT_EQ(shown.pixelIndex(x, y), qAlpha(p) > 0x80 ? cube : 0) << x << "," << y;
        }

    // Values only a later version understands: named, or with --downgrade left out.
    auto buttons = build(R"(<object_pool>
  <Button name="b" width="50" height="20" key_code="1" options="0x13"/>
  <Font_attributes name="p" font_size="20" font_style="0x80"/>
</object_pool>)");
    problems.clear();
    warnings.clear();
    EXPECT_FALSE(Terminal_adaptation::adapt(buttons->pool, terminal(256, 0xFF, 0x7F, 0xFF, 3), {}, problems, warnings));
    EXPECT_EQ(problems, QStringList({"'b' (Button 0): 'options' asks for a disabled button (options bit 4), which needs "
                                     "VT version 4; the terminal speaks VT version 3 (--downgrade does without it)"}))
        << "a proportional font becomes a fixed one: the font rule, no downgrade";
    ASSERT_TRUE(Terminal_adaptation::adapt(buttons->pool, terminal(256, 0xFF, 0x7F, 0xFF, 3), downgrade, problems, warnings));
    EXPECT_EQ(warnings, QStringList({"'b' (Button 0): left out a disabled button (options bit 4), which needs VT version 4"}));
    EXPECT_EQ(dynamic_cast<Base::Button_obj*>(buttons->pool.find(QByteArray("b")))->get_options(), 0x03);

    // An object read from pool bytes carries its type in its name: the picture takes its own.
    Object_pool from_bytes;
    QString error;
    ASSERT_TRUE(Pool_file::read(Pool_file::write(build(xml.left(xml.indexOf("  <Colour_palette")) + "</object_pool>")->pool),
                                from_bytes, &error));
    ASSERT_TRUE(Terminal_adaptation::adapt(from_bytes, terminal(16, 0xFF, 0x7F, 0xFF, 3), downgrade, problems, warnings));
    EXPECT_EQ(from_bytes.find(QByteArray("Picture_graphic_19")), from_bytes.find(19));
    EXPECT_EQ(from_bytes.find(QByteArray("PNG_19")), nullptr);
}

TEST(Terminal_adaptation, InfoAndCheckNameWhatDecidesTheVersionAPoolNeeds)
{
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    const QString xml = tmp.filePath("button.xml");
    ASSERT_TRUE(test::write_file(xml, R"(<object_pool>
  <Working_set name="ws" active_mask="m"/>
  <Data_mask name="m"><place object="b" x_location="0" y_location="0"/></Data_mask>
  <Button name="b" width="50" height="20" key_code="1" options="0x10"/>
</object_pool>)"));
    for (const char* command : {"info", "check"}) {
        const test::Outcome r = test::run_vtpool({command, xml});
        EXPECT_EQ(r.status, 0) << command << ": " << r.err.toStdString();
        EXPECT_TRUE(r.out.contains(QStringLiteral("needs VT version 4, because of:\n  %1:4: 'b' (Button 2): a disabled "
                                                  "button (options bit 4)\n")
                                       .arg(xml)))
            << command << ": " << r.out.toStdString();
    }
}

TEST(Terminal_adaptation, MacrosSetTheTerminalsColoursAndFonts)
{
    // Change Background Colour to red; Change Font Attributes to red, 24x32, bold; Change
    // Attribute of the mask's background colour (AID 1) to red and of its soft-key mask (AID 2,
    // an object id, left alone); the graphics context's foreground colour to red.
    auto b = build(R"(<object_pool>
  <Data_mask name="dm" id="1"/>
  <Font_attributes name="f" id="2" font_size="1"/>
  <Graphics_context name="gc" id="5" width="10" height="10" canvas_width="10" canvas_height="10"/>
  <Macro name="m" id="9" bytes="A7 01 00 C4 FF FF FF FF  AA 02 00 C4 06 00 01 FF  AF 01 00 01 C4 00 00 00
                                AF 01 00 02 C4 00 00 00  B8 05 00 02 C4 FF FF FF"/>
</object_pool>)");
    QStringList problems, warnings;
    ASSERT_TRUE(Terminal_adaptation::adapt(b->pool, terminal(2, 0x0F, 0x00), {}, problems, warnings))
        << problems.join("\n").toStdString();
    auto back = sent(b->pool);
    auto* macro = dynamic_cast<Base::Macro_obj*>(back->find(9));
    ASSERT_NE(macro, nullptr);
    QByteArray bytes;
    for (unsigned i = 0; i < macro->get_num_bytes(); ++i)
        bytes.append(char(macro->get_bytes(i)));
    EXPECT_EQ(bytes.toHex(' ').toUpper(), QByteArray("A7 01 00 00 FF FF FF FF AA 02 00 00 03 00 01 FF AF 01 00 01 00 00 00 "
                                                     "00 AF 01 00 02 C4 00 00 00 B8 05 00 02 00 FF FF FF"));
}
