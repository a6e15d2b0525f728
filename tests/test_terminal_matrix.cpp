// Every example description and every real pool, built for terminals of 2, 16 and 256 colours
// and VT versions 2 to 6, with and without scaling, the way vtpool build does it: each output
// reads back, checks clean for its VT version and holds only what its terminal has, and every
// picture in it decodes to an image of its declared size. Monochrome pictures must equal a
// reduction computed here, by luminance, from the pictures of the source. Then vtpool itself,
// with each terminal option and file: what it writes, its own info and check read for that
// terminal without an error.
#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <functional>
#include <map>

#include "tool_test_support.h"
#include "tools/check/Checker.h"
#include "tools/check/Object_facts.h"
#include "tools/pool/Pool_file.h"
#include "tools/pool/Pool_loader.h"
#include "tools/terminal/Terminal_adaptation.h"
#include "vt_core.h"

using namespace VT;

namespace {

// Black or white for a palette colour, by luminance 0.299 R + 0.587 G + 0.114 B against 128.
int black_or_white(int index)
{
    unsigned a = 0, r = 0, g = 0, b = 0;
    Colours::get_vt_colour(index, a, r, g, b);
    return (299 * r + 587 * g + 114 * b) / 1000 >= 128 ? 1 : 0;
}

// The monochrome picture expected from a source picture's pixels: each pixel black or white.
// Where the picture has transparent pixels, they take the colour fewer opaque pixels have (the
// transparency colour's when as many are black as white), and opaque pixels the other one.
std::vector<int> expected_monochrome(const std::vector<int>& source, bool transparent, int transparency)
{
    bool any = false;
    int whites = 0, blacks = 0;
    for (int p : source) {
        any = any || (transparent && p == transparency);
        if (p != transparency)
            ++(black_or_white(p) ? whites : blacks);
    }
    const int clear = whites < blacks ? 1 : blacks < whites ? 0 : black_or_white(transparency);
    std::vector<int> out;
    for (int p : source) {
        const int bw = black_or_white(p);
        out.push_back(any && p == transparency ? clear : any && bw == clear ? 1 - clear : bw);
    }
    return out;
}

// A PNG's pixels as the palette's colour cube has them, -1 for transparent ones.
std::vector<int> cube_pixels_of(Base::PNG_obj& png)
{
    const QImage image = png.get_qimage().convertToFormat(QImage::Format_ARGB32);
    auto level = [](int c) { return (c + 25) / 51; };
    std::vector<int> out;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QRgb p = image.pixel(x, y);
            out.push_back(qAlpha(p) <= 0x80 ? -1 : 16 + 36 * level(qRed(p)) + 6 * level(qGreen(p)) + level(qBlue(p)));
        }
    return out;
}

std::vector<int> pixels_of(Base::Picture_graphic_obj& p)
{
    const QImage image = p.get_qimage(true);
    std::vector<int> out;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            out.push_back(image.pixelIndex(x, y));
    return out;
}

// Whether a picture's data is exactly its rows: as many bytes as the rows take, or runs that
// give exactly that many (count, value) bytes, no more and no fewer.
QString data_problem(Base::Picture_graphic_obj& p)
{
    const int w = p.get_actual_width(), h = p.get_actual_height();
    const int bits = p.get_format() == MONOCHROME ? 1 : p.get_format() == FOUR_BIT_COLOUR ? 4 : 8;
    const uint64_t row_bytes = (uint64_t(w) * bits + 7) / 8;
    const uint32_t n = p.get_num_bytes();
    if (!(p.get_options() & Base::Picture_graphic_obj::OPTION_RUN_LENGTH))
        return n == row_bytes * h ? QString() : QStringLiteral("%1 bytes for %2 rows of %3").arg(n).arg(h).arg(row_bytes);
    if (n % 2)
        return QStringLiteral("an odd count of run-length bytes");
    uint64_t expanded = 0;
    for (uint32_t i = 0; i < n; i += 2)
        expanded += *p.get_bytes(i);
    return expanded == row_bytes * h ? QString() : QStringLiteral("runs of %1 bytes for %2").arg(expanded).arg(row_bytes * h);
}

struct Source
{
    QString path;
    bool description;
};

struct Configuration
{
    int colours;
    int version;
    bool scaled;
    QString name() const
    {
        return QStringLiteral("%1 colours, VT%2%3").arg(colours).arg(version).arg(scaled ? ", scaled" : "");
    }
};

// Whether every object of a type later than `version` can be downgraded to it (PNG objects).
bool downgradable(Object_pool& pool, int version)
{
    for (VT_obj* obj : pool.objects())
        if (Check::type_version(obj->get_type() & 0xFF) > version && obj->get_type() != VT_obj_type::TYPE_PNG)
            return false;
    return true;
}

// The examples' descriptions.
QStringList examples()
{
    const QDir dir(QStringLiteral(VT_EXAMPLES_DIR));
    QStringList out;
    for (const QString& f : dir.entryList({"*.xml"}, QDir::Files))
        out.append(dir.filePath(f));
    return out;
}

bool load(const Source& s, Object_pool& pool)
{
    QStringList problems, warnings;
    const bool ok = Pool_loader::load(s.path, pool, problems, warnings);
    EXPECT_TRUE(ok) << s.path.toStdString() << ": " << problems.join("\n").toStdString();
    return ok;
}

// Builds `source` for every terminal; counts in `compared` the pictures compared with their
// expected monochrome form.
void build_for_every_terminal(const Source& source, int& compared)
{
    SCOPED_TRACE(source.path.toStdString());
    Object_pool original;
    if (!load(source, original))
        return;
    const int needed = Check::check(original, Check::Source()).needed_version;
    for (int colours : {2, 16, 256})
        for (int version : {2, 3, 4, 5, 6})
            for (bool scaled : {false, true}) {
                const Configuration c{colours, version, scaled};
                SCOPED_TRACE(c.name().toStdString());
                Object_pool pool;
                if (!load(source, pool))
                    return;
                Terminal terminal;
                terminal.vt_version = version;
                terminal.colours = colours;
                terminal.small_fonts = 0x3F; // 6x8 to 16x24
                terminal.large_fonts = 0x00;
                terminal.font_styles = version >= 4 ? 0xFF : 0x7F;
                Design_size design;
                if (scaled) {
                    design = {480, 480, 60, 60};
                    terminal.data_mask_width = terminal.data_mask_height = 320;
                    terminal.key_width = terminal.key_height = 40;
                    if (!source.description)
                        Scaling::propagate_areas(pool);
                }
                // A pool that needs a later version than the terminal speaks is built with
                // --downgrade; what cannot be downgraded is refused, named.
                QStringList problems, warnings;
                const bool adapted = Terminal_adaptation::adapt(pool, terminal, {design, needed > version}, problems, warnings);
                if (!downgradable(original, version)) {
                    EXPECT_FALSE(adapted);
                    EXPECT_FALSE(problems.isEmpty());
                    for (const QString& p : problems)
                        EXPECT_TRUE(p.contains(QStringLiteral("; the terminal speaks VT version %1").arg(version)))
                            << p.toStdString();
                    continue;
                }
                ASSERT_TRUE(adapted) << problems.join("\n").toStdString();
                const QByteArray bytes = Pool_file::write(pool);

                Object_pool back;
                back.set_vt6_objects(pool.vt6_objects());
                QString error;
                ASSERT_TRUE(Pool_file::read(bytes, back, &error)) << error.toStdString();
                EXPECT_EQ(Pool_file::write(back), bytes) << "read back, the pool writes the same bytes";
                Check::Options options;
                options.vt_version = version;
                const Check::Result check = Check::check(back, Check::Source(), options);
                for (const Check::Finding& f : check.findings)
                    EXPECT_NE(f.severity, Check::Severity::error) << f.object_label().toStdString() << ": "
                                                                  << f.message.toStdString();

                for (VT_obj* obj : back.objects()) {
                    SCOPED_TRACE(obj->get_name());
                    for (uint16_t i = 0; i < obj->get_num_every_attribute(); ++i) {
                        auto* a = dynamic_cast<Attribute_uint8*>(obj->get_every_attribute(i));
                        if (a && a->get_type() == Attribute::ATTR_COLOUR) {
                            EXPECT_LT(a->get(), colours) << a->name;
                        }
                    }
                    auto* font = dynamic_cast<Base::Font_attributes_obj*>(obj);
                    if (font && !(font->get_font_style() & 0x80)) {
                        EXPECT_LE(font->get_font_size(), 5) << "a size the terminal has";
                    }
                    if (auto* map = dynamic_cast<Base::Colour_map_obj*>(obj)) {
                        EXPECT_EQ(map->get_num_colours(), colours);
                    }
                    if (auto* picture = dynamic_cast<Base::Picture_graphic_obj*>(obj)) {
                        EXPECT_EQ(data_problem(*picture), QString());
                        EXPECT_EQ(picture->get_qimage(true).size(),
                                  QSize(picture->get_actual_width(), picture->get_actual_height()));
                        EXPECT_LE(picture->get_format(), colours == 2 ? 0 : colours == 16 ? 1 : 2);
                        if (colours == 2) {
                            VT_obj* from = original.find(obj->get_id());
                            std::vector<int> expected;
                            if (auto* p = dynamic_cast<Base::Picture_graphic_obj*>(from)) {
                                expected = expected_monochrome(pixels_of(*p), p->get_options() & 1,
                                                               p->get_transparency_colour());
                            } else if (auto* png = dynamic_cast<Base::PNG_obj*>(from)) {
                                // Downgraded: 8-bit pixels of the cube, transparent ones colour 0.
                                std::vector<int> cube = cube_pixels_of(*png);
                                for (int& p : cube)
                                    p = std::max(p, 0);
                                expected = expected_monochrome(cube, true, 0);
                            }
                            ASSERT_FALSE(expected.empty()) << "a picture from a picture or a PNG object";
                            EXPECT_EQ(pixels_of(*picture), expected);
                            ++compared;
                        }
                    }
                    if (auto* png = dynamic_cast<Base::PNG_obj*>(obj)) {
                        const QImage image = png->get_qimage().convertToFormat(QImage::Format_ARGB32);
                        EXPECT_EQ(image.size(), QSize(png->get_actual_width(), png->get_actual_height()));
                        if (colours == 2) {
                            auto* from = dynamic_cast<Base::PNG_obj*>(original.find(obj->get_id()));
                            ASSERT_NE(from, nullptr);
                            const QImage source_image = from->get_qimage().convertToFormat(QImage::Format_ARGB32);
                            for (int y = 0; y < image.height(); ++y)
                                for (int x = 0; x < image.width(); ++x) {
                                    const QRgb s = source_image.pixel(x, y);
                                    const bool light = (299 * qRed(s) + 587 * qGreen(s) + 114 * qBlue(s)) / 1000 >= 128;
                                    const QRgb expected = qAlpha(s) <= 0x80 ? 0u : light ? 0xFFFFFFFFu : 0xFF000000u;
                                    ASSERT_EQ(image.pixel(x, y), expected) << x << "," << y;
                                }
                            ++compared;
                        }
                    }
                }
            }
}

}

TEST(Terminal_matrix, EveryExampleBuildsForEveryTerminal)
{
    const QStringList files = examples();
    ASSERT_FALSE(files.isEmpty());
    int compared = 0;
    for (const QString& f : files)
        build_for_every_terminal({f, true}, compared);
    EXPECT_GT(compared, 0) << "monochrome pictures compared";
}

TEST(Terminal_matrix, EveryRealPoolBuildsForEveryTerminal)
{
    const QStringList files = test::real_pools();
    if (files.isEmpty())
        GTEST_SKIP() << "no real pools at " VT_SHARED_POOLS_DIR;
    int compared = 0;
    for (const QString& f : files)
        build_for_every_terminal({f, false}, compared);
    EXPECT_GT(compared, 0) << "monochrome pictures compared";
}

namespace {


// vtpool build of each source for terminals given by options and files, every colour depth,
// VT version, scaling of both areas, font masks without the proportional style: a build
// refuses only a pool holding a type its VT version lacks and no downgrade replaces, naming
// it and writing nothing; what it writes, vtpool info reads and finds needing no later VT
// version, and vtpool check for the same terminal finds without an error. Every process counts
// (the full product of sources and terminals is the matrix above): source i takes terminal j
// where i + j is a multiple of `share`, so that each terminal is taken by some source.
void build_with_vtpool(const QStringList& inputs, int share)
{
    const QString terminals = QStringLiteral(VT_EXAMPLES_DIR "/terminals/");
    struct Terminal_line
    {
        QStringList build; // the terminal options of the build
        QStringList check; // those the check takes: the VT version or the file
        int version;
    } const lines[] = {
        {{"--colours", "2", "--vt-version", "2", "--downgrade"}, {"--vt-version", "2"}, 2},
        {{"--colours", "16", "--vt-version", "3", "--downgrade", "--mask-size", "240", "--design-size", "480x480",
          "--key-size", "40", "--design-key-size", "60x60"},
         {"--vt-version", "3"},
         3},
        {{"--colours", "256", "--vt-version", "4", "--downgrade", "--small-fonts", "0x0C", "--large-fonts", "0"},
         {"--vt-version", "4"},
         4},
        {{"--vt-version", "5", "--downgrade", "--font-styles", "0x7F", "--mask-size", "320x200", "--design-size",
          "480x480"},
         {"--vt-version", "5"},
         5},
        {{"--vt-version", "6", "--colours", "16", "--mask-size", "800", "--design-size", "480x480"}, {"--vt-version", "6"}, 6},
        {{"--terminal", terminals + "monochrome-vt3.ini", "--downgrade", "--design-size", "480x480", "--design-key-size",
          "60x60"},
         {"--terminal", terminals + "monochrome-vt3.ini"},
         3},
        {{"--terminal", terminals + "colour-vt4.json", "--downgrade"}, {"--terminal", terminals + "colour-vt4.json"}, 4},
        {{"--terminal", terminals + "colour-vt6.json", "--colours", "2"}, {"--terminal", terminals + "colour-vt6.json"}, 6},
    };
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    const QString out = tmp.filePath("out.iop");
    const QRegularExpression needs(QStringLiteral("needs VT version ([0-9]+)"));
    int built = 0, refused = 0;
    const int line_count = int(sizeof lines / sizeof lines[0]);
    ASSERT_GE(inputs.size() * line_count / share, line_count) << "every terminal taken";
    for (int i = 0; i < inputs.size(); ++i) {
        const QString& input = inputs[i];
        Object_pool original;
        if (!load({input, input.endsWith(".xml")}, original))
            continue;
        for (int j = 0; j < line_count; ++j) {
            if ((i + j) % share)
                continue;
            const Terminal_line& line = lines[j];
            const QString what = QFileInfo(input).fileName() + " " + line.build.join(' ').replace(terminals, "");
            SCOPED_TRACE(what.toStdString());
            QFile::remove(out);
            const test::Outcome b = test::vtpool(QStringList{"build", input, "-o", out} + line.build);
            if (!downgradable(original, line.version)) {
                EXPECT_EQ(b.status, 1) << b.err.toStdString();
                EXPECT_TRUE(b.err.contains(QStringLiteral("; the terminal speaks VT version %1").arg(line.version)))
                    << b.err.toStdString();
                EXPECT_FALSE(QFile::exists(out));
                ++refused;
                continue;
            }
            ASSERT_EQ(b.status, 0) << b.err.toStdString();
            ++built;
            // The pool file is read in the form its description chose.
            const QStringList form{"--vt6-objects", QString::fromLatin1(vt6_objects_name(original.vt6_objects()))};
            const test::Outcome info = test::vtpool(QStringList{"info", out} + form);
            EXPECT_EQ(info.status, 0) << info.err.toStdString();
            EXPECT_TRUE(info.err.isEmpty()) << info.err.toStdString();
            const QRegularExpressionMatch m = needs.match(info.out);
            EXPECT_TRUE(m.hasMatch() && m.captured(1).toInt() <= line.version) << info.out.toStdString();
            const test::Outcome check = test::vtpool(QStringList{"check", out} + line.check + form);
            EXPECT_EQ(check.status, 0) << check.out.toStdString() << check.err.toStdString();
            EXPECT_TRUE(check.out.contains(QStringLiteral(" 0 errors, "))) << check.out.toStdString();
            EXPECT_TRUE(check.out.contains(QStringLiteral("(checked for VT version %1)").arg(line.version)))
                << check.out.toStdString();
        }
    }
    EXPECT_GT(built, 0);
    ::testing::Test::RecordProperty("built", built);
    ::testing::Test::RecordProperty("refused", refused);
}

}

TEST(Terminal_matrix, VtpoolBuildsEveryExampleForEachTerminalOptionAndChecksItClean)
{
    const QStringList inputs = examples();
    ASSERT_FALSE(inputs.isEmpty());
    build_with_vtpool(inputs, 2);
}

TEST(Terminal_matrix, VtpoolBuildsEveryRealPoolForEachTerminalOptionAndChecksItClean)
{
    const QStringList inputs = test::real_pools();
    if (inputs.isEmpty())
        GTEST_SKIP() << "no real pools at " VT_SHARED_POOLS_DIR;
    build_with_vtpool(inputs, 4);
}
