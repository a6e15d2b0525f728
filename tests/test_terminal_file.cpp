// The terminal a build targets: read from an INI or JSON file, from vtpool's options, or both
// (the options override the file), and refused with the property named when a value is bad.
#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "tools/terminal/Terminal_file.h"
#include "tools/terminal/Terminal_properties.h"
#include "vtpool_support.h"

using VT::Terminal;
using VT::Terminal_file;

namespace {

bool same(const Terminal& a, const Terminal& b)
{
    return a.vt_version == b.vt_version && a.colours == b.colours && a.data_mask_width == b.data_mask_width &&
        a.data_mask_height == b.data_mask_height && a.key_width == b.key_width && a.key_height == b.key_height &&
        a.physical_soft_keys == b.physical_soft_keys && a.small_fonts == b.small_fonts &&
        a.large_fonts == b.large_fonts && a.font_styles == b.font_styles;
}

Terminal expected_terminal()
{
    Terminal t;
    t.vt_version = 4;
    t.colours = 16;
    t.data_mask_width = 320;
    t.data_mask_height = 240;
    t.key_width = t.key_height = 40;
    t.physical_soft_keys = 10;
    t.small_fonts = 0x3F;
    t.large_fonts = 0x01;
    t.font_styles = 0x9F;
    return t;
}

}

TEST(Terminal_file, IniAndJsonGiveEveryPropertyAndTheExamplesRead)
{
    const QByteArray ini = "# a comment\n[terminal]\nvt-version = 4\n; another\n  colours=16  \nmask-size = 320x240\n"
                           "key_size = 40\nsoft-keys = 10\nsmall-fonts = 0x3F\nlarge-fonts = 1\nfont-styles = 0x9f\n";
    const QByteArray json = R"({"vt-version": 4, "colours": "1\u0036", "mask_size": "320x240", "key-size": 4e1,
        "soft-keys": 10, "small-fonts": "0x3F", "large-fonts": 1, "font-styles": 159})";
    for (const QByteArray& text : {ini, json}) {
        Terminal t;
        QString error;
        QStringList named;
        ASSERT_TRUE(Terminal_file::read(text, "t", t, &error, &named)) << error.toStdString();
        EXPECT_TRUE(same(t, expected_terminal())) << text.toStdString();
        EXPECT_EQ(named.size(), 8);
    }
    // Properties a file leaves out keep their values.
    Terminal t;
    ASSERT_TRUE(Terminal_file::read("colours = 2\n", "t", t, nullptr));
    Terminal only_colours;
    only_colours.colours = 2;
    EXPECT_TRUE(same(t, only_colours));

    const QDir examples(QStringLiteral(VT_EXAMPLES_DIR "/terminals"));
    const QStringList files = examples.entryList({"*.ini", "*.json"}, QDir::Files);
    EXPECT_GE(files.size(), 2);
    for (const QString& f : files) {
        Terminal from_file;
        QString error;
        EXPECT_TRUE(Terminal_file::load(examples.filePath(f), from_file, &error)) << error.toStdString();
        EXPECT_GE(from_file.vt_version, 2) << f.toStdString() << ": an example names its VT version";
    }
}

TEST(Terminal_file, BadFilesNameTheLineAndThePropertyAndChangeNothing)
{
    struct Case
    {
        QByteArray text;
        const char* error;
    } const cases[] = {
        {"colours = 8\n", "t:1: 'colours' takes 2, 16 or 256, not '8'"},
        {"\n\nvt-version = 7\n", "t:3: 'vt-version' takes a VT version from 2 to 6, not '7'"},
        {"vt-version = 1\n", "t:1: 'vt-version' takes a VT version"},
        {"small-fonts = 256\n", "t:1: 'small-fonts' takes a mask from 0 to 255"},
        {"font-styles = -1\n", "t:1: 'font-styles' takes a mask"},
        {"mask-size = 0\n", "t:1: 'mask-size' takes the data-mask size"},
        {"key-size = 60x0\n", "t:1: 'key-size' takes the soft-key size"},
        {"mask-size = 9000\n", "t:1: 'mask-size' takes"},
        {"soft-keys = 65\n", "t:1: 'soft-keys' takes a number from 0 to 64"},
        {"colour = 16\n", "t:1: 'colour' is not a terminal property (known: vt-version, colours,"},
        {"colours = 16\ncolours = 2\n", "t:2: 'colours' is given twice"},
        {"[display]\n", "t:1: a terminal file holds one section"},
        {"colours 16\n", "t:1: expected 'name = value'"},
        {"small-fonts = 0\nlarge-fonts = 0\n",
         "t: small-fonts and large-fonts leave the terminal without any font size"},
        {R"({"colours": 8})", "t:1: 'colours' takes 2, 16 or 256, not '8'"},
        {"{\n  \"colours\": 16,\n  \"vt_version\": 9\n}", "t:3: 'vt-version' takes a VT version from 2 to 6, not '9'"},
        {R"({"colours": 16, "colours": 2})", "t:1: 'colours' is given twice"},
        {"{\n\"colours\": }", "t:2: "},
        {R"({"soft-keys": 4.5})", "t:1: 'soft-keys' takes a number from 0 to 64, not '4.5'"},
        {R"({"soft-keys": [6]})", "t:1: 'soft-keys' takes a number"},
        {R"({"bold": true})", "t:1: 'bold' is not a terminal property"},
        // A repeated name whose first value is an object: the file once leaked that object.
        {"{\"soft-keys\": 6,\n\"key-size\": {\"a\": [\"]\", {}]},\n\"key-size\": 80}",
         "t:2: 'key-size' takes the soft-key size"},
        {"{\"colours\": 16,\n\"soft-keys\": [1, {\"a\": 2]}\n}", "t:2: brackets do not match"},
        {"{\"colours\": 16, \"soft-keys\": [[[", "t:1: an array or object is not closed"},
        {"{\"colours\": \"16", "t:1: a string is not closed"},
        {"{\"colours\": \"1\\x\"}", "t:1: an unknown escape"},
        {"{\"colours\": \"\\u00\"}", "t:1: \\u needs four hexadecimal digits"},
        {"{\"colours\": \"1\t6\"}", "t:1: a control character"},
        {"{\"colours\" 16}", "t:1: expected ':' after the name"},
        {"{colours: 16}", "t:1: expected a name in double quotes"},
        {"{\"colours\": 16 \"soft-keys\": 6}", "t:1: expected ',' or '}'"},
        {"{\"colours\": 1.}", "t:1: a number needs digits after its point"},
        {"{\"colours\": 16}\n{}", "t:2: text after the object"},
    };
    for (const Case& c : cases) {
        Terminal t;
        t.colours = 16;
        const Terminal before = t;
        QString error;
        EXPECT_FALSE(Terminal_file::read(c.text, "t", t, &error)) << c.text.toStdString();
        EXPECT_TRUE(error.startsWith(c.error)) << c.text.toStdString() << " gave: " << error.toStdString();
        EXPECT_TRUE(same(t, before)) << c.text.toStdString();
    }
    QString error;
    Terminal t;
    EXPECT_FALSE(Terminal_file::load("/no/such/terminal.ini", t, &error));
    EXPECT_TRUE(error.startsWith("/no/such/terminal.ini: cannot read")) << error.toStdString();
}

TEST(Terminal_file, VtpoolTakesTheFileWithOptionsOverridingItAndRefusesBadOnesWithStatusTwo)
{
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    const QString xml = tmp.filePath("red.xml");
    ASSERT_TRUE(test::write_file(xml, R"(<object_pool>
  <Data_mask name="dm" id="1" background_colour="red"/>
  <Working_set name="ws" id="2" active_mask="dm"/>
</object_pool>)"));
    const QString sixteen = tmp.filePath("sixteen.json");
    ASSERT_TRUE(test::write_file(sixteen, R"({"colours": 16, "vt-version": 4, "mask-size": 240})"));
    const QString out = tmp.filePath("red.iop");
    auto background = [&](const QStringList& options) {
        QFile::remove(out);
        const test::Outcome r = test::run_vtpool(QStringList{"build", xml, "-o", out} + options);
        EXPECT_EQ(r.status, 0) << r.err.toStdString();
        const QByteArray bytes = test::read_file(out);
        return bytes.size() > 3 ? int(uint8_t(bytes[3])) : -1;
    };
    EXPECT_EQ(background({"--terminal", sixteen}), 12) << "red of the standard colours";
    EXPECT_EQ(background({"--terminal", sixteen, "--colours", "2"}), 0) << "the option overrides the file";
    // The file's data-mask size is the terminal's: the design size scales to it.
    EXPECT_EQ(test::run_vtpool({"build", xml, "-o", out, "--terminal", sixteen, "--design-size", "480x480"}).status, 0);

    const QString bad = tmp.filePath("bad.ini");
    ASSERT_TRUE(test::write_file(bad, "[terminal]\ncolours = 12\n"));
    struct Case
    {
        QStringList options;
        QString error;
    } const cases[] = {
        {{"--terminal", bad}, QStringLiteral("vtpool build: %1:2: 'colours' takes 2, 16 or 256, not '12'").arg(bad)},
        {{"--terminal", tmp.filePath("none.ini")},
         QStringLiteral("vtpool build: %1: cannot read").arg(tmp.filePath("none.ini"))},
        {{"--vt-version", "7"}, "vtpool build: --vt-version takes a VT version from 2 to 6"},
        {{"--vt-version", "255"}, "vtpool build: --vt-version takes a VT version from 2 to 6"},
        {{"--mask-size", "0", "--design-size", "480x480"}, "vtpool build: --mask-size takes the data-mask size"},
        {{"--key-size", "0x0", "--design-key-size", "60x60"}, "vtpool build: --key-size takes the soft-key size"},
        {{"--small-fonts", "0", "--large-fonts", "0"},
         "vtpool build: small-fonts and large-fonts leave the terminal without any font size"},
        {{"--design-size", "480x480"}, "vtpool build: --design-size needs the terminal's --mask-size"},
        {{"--terminal", sixteen, "--design-key-size", "60x60"},
         "vtpool build: --design-key-size needs the terminal's --key-size"},
    };
    for (const Case& c : cases) {
        QFile::remove(out);
        const test::Outcome r = test::run_vtpool(QStringList{"build", xml, "-o", out} + c.options);
        EXPECT_EQ(r.status, 2) << c.options.join(' ').toStdString();
        EXPECT_TRUE(r.err.startsWith(c.error)) << r.err.toStdString();
        EXPECT_FALSE(QFile::exists(out));
    }
    // The same options and file for the other commands that target a terminal.
    EXPECT_EQ(test::run_vtpool({"check", xml, "--terminal", bad}).status, 2);
    EXPECT_EQ(test::run_vtpool({"render", xml, "-o", tmp.filePath("red.png"), "--terminal", sixteen}).status, 0);
}

TEST(Terminal_file, TheReadmesFirstBuildIsCleanForTheTerminalItNames)
{
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    const QString root = QStringLiteral(VT_EXAMPLES_DIR "/..");
    QString line;
    for (const QString& l : QString::fromUtf8(test::read_file(root + "/README.md")).split('\n'))
        if (l.startsWith("vtpool build ")) {
            line = l.section('#', 0, 0).trimmed();
            break;
        }
    ASSERT_FALSE(line.isEmpty());
    // The command as written, run from the checkout, with its output in the temporary folder;
    // then the check for the terminal the command names.
    QStringList build = line.split(' ', Qt::SkipEmptyParts).mid(1);
    QStringList check{"check", tmp.filePath("pool.iop")};
    for (QString& arg : build)
        if (arg.startsWith("examples/"))
            arg = root + "/" + arg;
    for (int i = 0; i < build.size(); ++i) {
        if (build[i] == "-o" && i + 1 < build.size())
            build[i + 1] = tmp.filePath("pool.iop");
        if ((build[i] == "--terminal" || build[i] == "--vt-version") && i + 1 < build.size())
            check << build[i] << build[i + 1];
    }
    EXPECT_GE(check.size(), 4) << "the command names a terminal: " << line.toStdString();
    test::Outcome r = test::run_vtpool(build);
    ASSERT_EQ(r.status, 0) << line.toStdString() << "\n" << r.err.toStdString();
    r = test::run_vtpool(check);
    EXPECT_EQ(r.status, 0) << r.out.toStdString();
    EXPECT_TRUE(r.out.contains(": 0 errors, 0 warnings")) << r.out.toStdString();
}
