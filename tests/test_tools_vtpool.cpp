// The vtpool command line, run as a program, and the source it generates, compiled and run.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include "test_support.h"
#include "tool_test_support.h"
#include "tools/description/Description.h"
#include "tools/pool/Pool_file.h"
#include "tools/source/Source_generator.h"

#include <sstream>

using test::Outcome;
using test::read_file;
using test::vtpool;
using test::write_file;

TEST(ToolsVtpool, EveryCommandHasHelpAndBadUsageIsStatusTwo)
{
    for (const char* command : {"build", "dump", "source", "check", "pictures", "info", "render", "describe", "ids",
                                "attributes"}) {
        Outcome r = vtpool({command, "--help"});
        EXPECT_EQ(r.status, 0) << command;
        EXPECT_TRUE(r.out.startsWith(QStringLiteral("usage: vtpool %1").arg(command))) << r.out.toStdString();
        r = vtpool({command});
        EXPECT_EQ(r.status, 2) << command;
        r = vtpool({command, "x.xml", "--no-such-option"});
        EXPECT_EQ(r.status, 2) << command;
        EXPECT_TRUE(r.err.contains("unknown option --no-such-option")) << r.err.toStdString();
    }
    EXPECT_EQ(vtpool({"--help"}).status, 0);
    EXPECT_EQ(vtpool({}).status, 2);
    EXPECT_EQ(vtpool({"frobnicate"}).status, 2);
    EXPECT_EQ(vtpool({"build", "a.xml", "-o", "b.iop", "--colours", "7"}).status, 2);
    EXPECT_EQ(vtpool({"build", "a.xml", "-o", "b.iop", "--mask-size", "200"}).status, 2)
        << "a mask size needs the design size";
    EXPECT_EQ(vtpool({"build", "a.xml", "-o", "b.iop", "--design-size", "20"}).status, 2);
}

TEST(ToolsVtpool, BuildsDumpsAndChecksAndReportsProblemsWithStatusOne)
{
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    const QString xml = QStringLiteral(VT_TEST_DATA_DIR "/tools/variables.xml");
    const QString iop = tmp.filePath("pool.iop");

    // Variables alone make no pool a terminal shows: the check finds no working set, and the
    // build refuses unless told not to check.
    Outcome r = vtpool({"build", xml, "-o", iop});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains("the pool has no Working_set [one-working-set]")) << r.err.toStdString();
    EXPECT_FALSE(QFile::exists(iop));
    r = vtpool({"build", xml, "-o", iop, "--no-check"});
    ASSERT_EQ(r.status, 0) << r.err.toStdString();
    QByteArray built = read_file(iop);
    EXPECT_FALSE(built.isEmpty());
    // The pool written in buffers of any size is the same file.
    for (const char* chunk : {"1", "5", "64"}) {
        const QString other = tmp.filePath(QStringLiteral("pool_%1.iop").arg(chunk));
        ASSERT_EQ(vtpool({"build", xml, "-o", other, "--chunk", chunk, "--no-check"}).status, 0);
        EXPECT_EQ(read_file(other), built) << chunk;
    }
    // A pool file is written back as it was read.
    const QString again = tmp.filePath("again.iop");
    ASSERT_EQ(vtpool({"build", iop, "-o", again, "--no-check"}).status, 0);
    EXPECT_EQ(read_file(again), built);

    r = vtpool({"dump", iop, "--bytes"});
    EXPECT_EQ(r.status, 0);
    EXPECT_TRUE(r.out.contains("Number_variable(5000)")) << r.out.toStdString();
    EXPECT_TRUE(r.out.contains("bytes {")) << r.out.toStdString();
    r = vtpool({"check", xml});
    EXPECT_EQ(r.status, 1) << r.out.toStdString();
    EXPECT_TRUE(r.out.contains("3 objects: 1 error, 0 warnings")) << r.out.toStdString();
    EXPECT_TRUE(r.out.contains("needs VT version 2"));
    r = vtpool({"info", iop});
    EXPECT_EQ(r.status, 0);
    EXPECT_TRUE(r.out.contains("3 objects")) << r.out.toStdString();

    // Problems: a description with an unknown reference, and a truncated pool file.
    const QString bad = tmp.filePath("bad.xml");
    ASSERT_TRUE(write_file(bad, "<object_pool>\n  <Number_variable name=\"a\" value=\"oops\"/>\n</object_pool>\n"));
    r = vtpool({"build", bad, "-o", tmp.filePath("bad.iop")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains("bad.xml:2: 'oops' of 'value' is not a number")) << r.err.toStdString();
    const QString cut = tmp.filePath("cut.iop");
    ASSERT_TRUE(write_file(cut, built.left(built.size() - 2)));
    r = vtpool({"dump", cut});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains("object 2 (id 1, type 21 Number_variable) at byte offset 18")) << r.err.toStdString();
    EXPECT_EQ(vtpool({"check", tmp.filePath("missing.iop")}).status, 1);
}

TEST(ToolsVtpool, TerminalOptionsShapeTheBytesAndTheCheck)
{
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    const QString xml = tmp.filePath("terminal.xml");
    ASSERT_TRUE(write_file(xml, R"(<object_pool>
  <Data_mask name="dm" id="1" background_colour="#ff0000"/>
  <Font_attributes name="f" id="2" font_colour="#ff0000" font_size="6" font_style="0x03"/>
</object_pool>)"));
    auto build = [&](const QStringList& options) {
        const QString out = tmp.filePath("terminal.iop");
        QFile::remove(out);
        // A data mask and a font without a working set: checking would stop the build.
        Outcome r = vtpool(QStringList({"build", xml, "-o", out, "--no-check"}) + options);
        EXPECT_EQ(r.status, 0) << r.err.toStdString();
        return read_file(out);
    };
    // Data mask: id, type, colour at byte 3. Font attributes: colour, size, type, style at 3..6.
    QByteArray full = build({});
    ASSERT_EQ(full.size(), 8 + 8);
    EXPECT_EQ(uint8_t(full[3]), 196);
    EXPECT_EQ(uint8_t(full[8 + 4]), 6);
    QByteArray reduced = build({"--colours", "16", "--small-fonts", "0x0F", "--large-fonts", "0", "--font-styles", "1"});
    ASSERT_EQ(reduced.size(), 16);
    EXPECT_EQ(uint8_t(reduced[3]), 12) << "red on a 16-colour terminal";
    EXPECT_EQ(uint8_t(reduced[8 + 3]), 12);
    EXPECT_EQ(uint8_t(reduced[8 + 4]), 3) << "12x16, the largest size of mask 0x0F (6x8 to 12x16) below 24x32";
    EXPECT_EQ(uint8_t(reduced[8 + 6]), 1) << "styles the terminal lacks are dropped";
    QByteArray mono = build({"--colours", "2"});
    EXPECT_EQ(uint8_t(mono[3]), 0) << "red is dark: black";

    // The realistic example holds a PNG object: version 6.
    Outcome r = vtpool({"check", QStringLiteral(VT_EXAMPLES_DIR "/realistic.xml"), "--vt-version", "5"});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.out.contains("object type PNG needs VT version 6 (checking for 5)")) << r.out.toStdString();
    EXPECT_TRUE(r.out.contains("needs VT version 6, because of:"));
    EXPECT_EQ(vtpool({"check", QStringLiteral(VT_EXAMPLES_DIR "/realistic.xml"), "--vt-version", "6"}).status, 0);
}

TEST(ToolsVtpool, GeneratedSourceCompiledInWritesTheSamePool)
{
    // The build compiled vtpool's source for each example into a program that writes the pool.
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    for (const char* example : {"small", "realistic"}) {
        SCOPED_TRACE(example);
        const QString out = tmp.filePath(QStringLiteral("%1.iop").arg(example));
        QProcess p;
        p.start(QStringLiteral(VT_GENERATED_WRITER_DIR "/generated_%1_writer").arg(example), {out});
        ASSERT_TRUE(p.waitForFinished(60000));
        ASSERT_EQ(p.exitCode(), 0);
        QByteArray generated = read_file(out);

        VT::Description d;
        VT::Object_pool pool;
        ASSERT_TRUE(d.load_file(QStringLiteral(VT_EXAMPLES_DIR "/%1.xml").arg(example)));
        ASSERT_TRUE(d.build(pool)) << d.problems().join("\n").toStdString();
        EXPECT_TRUE(d.warnings().isEmpty()) << d.warnings().join("\n").toStdString();
        EXPECT_GT(generated.size(), 100);
        EXPECT_EQ(generated, VT::Pool_file::write(pool));
    }
}

TEST(ToolsVtpool, SourceNeedsIdentifiersAndNamedReferences)
{
    VT::Description d;
    VT::Object_pool pool;
    ASSERT_TRUE(d.parse(R"(<object_pool>
  <Output_number name="delete" variable_reference="v_value"/>
  <Number_variable name="v"/>
  <Number_variable name="v_value"/>
</object_pool>)",
                        "names.xml"));
    ASSERT_TRUE(d.build(pool)) << d.problems().join("\n").toStdString();
    std::ostringstream text;
    QString error;
    EXPECT_FALSE(VT::Source_generator::generate(pool, "names.xml", text, &error));
    EXPECT_EQ(error, "'delete' is not usable as a C++ name; "
                     "object name 'v_value' collides with the array of 'v' attribute 'value'");

    // References read from pool bytes carry ids only.
    VT::Object_pool from_bytes;
    ASSERT_TRUE(VT::Pool_file::read(VT::Pool_file::write(pool), from_bytes, &error));
    EXPECT_FALSE(VT::Source_generator::generate(from_bytes, "names.iop", text, &error));
    EXPECT_EQ(error, "1 references name no object ('Output_number_0' (Output_number 0): 'variable_reference' refers "
                     "to object 2), as in pool bytes; generated source needs a pool description");
}

using VT::Description;
using VT::Object_pool;
using VT::Pool_file;

TEST(ToolsVtpool, CheckExitsByWhatItFindsAndSpeaksJson)
{
    const QString data = QStringLiteral(VT_TEST_DATA_DIR "/check/");
    // Clean, warnings only (and --werror), errors, bad usage.
    Outcome r = vtpool({"check", QStringLiteral(VT_EXAMPLES_DIR "/small.xml")});
    EXPECT_EQ(r.status, 0) << r.out.toStdString();
    EXPECT_TRUE(r.out.contains("10 objects: 0 errors, 0 warnings")) << r.out.toStdString();
    const QString warned = data + "unreachable.output-string-nobody-shows.xml";
    r = vtpool({"check", warned});
    EXPECT_EQ(r.status, 0);
    EXPECT_TRUE(r.out.contains("warning: " + warned + ":9: 'lost' (Output_string 3): nothing reaches it")) << r.out.toStdString();
    EXPECT_TRUE(r.out.contains("  hint: show it somewhere, or leave it out of the pool"));
    EXPECT_EQ(vtpool({"check", warned, "--werror"}).status, 1);
    r = vtpool({"check", data + "macro-target.missing-object.xml"});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.out.contains("[macro-target]")) << r.out.toStdString();
    EXPECT_EQ(vtpool({"check", warned, "--format", "yaml"}).status, 2);
    EXPECT_EQ(vtpool({"check", warned, "--vt-version", "1"}).status, 2);

    // The JSON document of a pool file parses, with the finding's offset.
    r = vtpool({"check", data + "unique-id.variable-twice.iop", "--format", "json"});
    EXPECT_EQ(r.status, 1);
    QJsonParseError error;
    const QJsonObject doc = QJsonDocument::fromJson(r.out.toUtf8(), &error).object();
    ASSERT_EQ(error.error, QJsonParseError::NoError) << r.out.toStdString();
    const QJsonArray findings = doc["findings"].toArray();
    ASSERT_EQ(findings.size(), 1);
    EXPECT_EQ(findings[0].toObject()["rule"].toString(), "unique-id");
    EXPECT_EQ(findings[0].toObject()["location"].toObject()["offset"].toInt(), 68);
    // A pool that does not load is one error of the rule "load", in JSON too.
    r = vtpool({"check", data + "missing.iop", "--format", "json"});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(QJsonDocument::fromJson(r.out.toUtf8()).object()["findings"].toArray()[0].toObject()["rule"].toString(),
              "load");
}

TEST(ToolsVtpool, BuildRefusesWhatTheCheckFindsAndIdsUsedTwice)
{
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    const QString data = QStringLiteral(VT_TEST_DATA_DIR "/check/");
    const QString out = tmp.filePath("out.iop");
    // An error: no file; with --no-check, the pool is built as it is.
    Outcome r = vtpool({"build", data + "ref-type.font-is-line-attributes.xml", "-o", out});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains("[ref-type]")) << r.err.toStdString();
    EXPECT_TRUE(r.err.contains("not built: 1 error")) << r.err.toStdString();
    EXPECT_FALSE(QFile::exists(out));
    EXPECT_EQ(vtpool({"build", data + "ref-type.font-is-line-attributes.xml", "-o", out, "--no-check"}).status, 0);
    // Warnings do not stop a build; a terminal's version does.
    EXPECT_EQ(vtpool({"build", data + "unreachable.output-string-nobody-shows.xml", "-o", out}).status, 0);
    r = vtpool({"build", QStringLiteral(VT_EXAMPLES_DIR "/realistic.xml"), "-o", out, "--vt-version", "5"});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains("object type PNG needs VT version 6; the terminal speaks VT version 5")) << r.err.toStdString();

    // Two objects under one id: shown by dump, info and check, never built, not even unchecked.
    const QString twice = data + "unique-id.variable-twice.iop";
    r = vtpool({"dump", twice});
    EXPECT_EQ(r.status, 0) << r.err.toStdString();
    EXPECT_EQ(r.out.count("Number_variable(4)"), 2) << r.out.toStdString();
    EXPECT_TRUE(r.err.contains("'Number_variable_4' (Number_variable 4) at offset 68 has the id of "
                               "'Number_variable_4' (Number_variable 4) at offset 61"))
        << r.err.toStdString();
    EXPECT_EQ(vtpool({"info", twice}).status, 0);
    r = vtpool({"build", twice, "-o", out, "--no-check"});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains("id 4 is used by 'Number_variable_4' (Number_variable 4) at offset 61 and by "
                               "'Number_variable_4' (Number_variable 4) at offset 68"))
        << r.err.toStdString();
}

TEST(ToolsVtpool, TheLibrarySpeaksOnceNamingTheObject)
{
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    // An unknown variable and an option out of range, which the description reports in its
    // own words (the library says both as well).
    const QString xml = tmp.filePath("said.xml");
    ASSERT_TRUE(write_file(xml, R"(<object_pool>
  <Working_set name="ws" active_mask="main"/>
  <Data_mask name="main"><place object="out" x_location="0" y_location="0"/></Data_mask>
  <Output_string name="out" width="10" height="10" font_attributes="f" variable_reference="nothere" options="9"/>
  <Font_attributes name="f"/>
</object_pool>)"));
    Outcome r = vtpool({"check", xml});
    EXPECT_EQ(r.status, 1);
    const QString all = r.out + r.err;
    EXPECT_EQ(all.count("nothere"), 1) << all.toStdString();
    EXPECT_FALSE(all.contains("!WARNING!")) << all.toStdString();
    EXPECT_EQ(all.count("'options'"), 1) << all.toStdString();
    EXPECT_TRUE(all.contains(xml + ":4: 'options' of <Output_string name='out'> is 9, outside its range 0 to 7"))
        << all.toStdString();
    // Asked for, the library's own words come as well.
    r = vtpool({"check", xml, "--verbose"});
    EXPECT_TRUE((r.out + r.err).contains("!WARNING! Attribute 'variable_reference' refers to non-existant object 'nothere'"))
        << (r.out + r.err).toStdString();
    EXPECT_TRUE((r.out + r.err).contains("'options' 9 is above its maximum 7, so 7 was kept")) << (r.out + r.err).toStdString();

    // Pool bytes: a clamped value names the object, its offset and the attribute.
    Object_pool pool;
    Description d;
    ASSERT_TRUE(d.parse("<object_pool><Output_string name=\"s\" font_attributes=\"65535\"/></object_pool>", "s.xml"));
    ASSERT_TRUE(d.build(pool));
    QByteArray bytes = Pool_file::write(pool);
    bytes[10] = char(200); // options: 0..7
    const QString iop = tmp.filePath("clamped.iop");
    ASSERT_TRUE(write_file(iop, bytes));
    r = vtpool({"info", iop});
    EXPECT_EQ(r.err.trimmed().toStdString(), ("warning: " + iop +
                                              ": object 0 (id 0, type 11 Output_string) at byte offset 0: 'options' 200 "
                                              "is above its maximum 7, so 7 was kept")
                                                 .toStdString());
}

TEST(ToolsVtpool, HelpListsExactlyTheOptionsEachCommandAccepts)
{
    // The general help names every command; each command's help lists its options, and the
    // command accepts every option listed there and no other.
    const Outcome general = vtpool({"--help"});
    QStringList commands;
    for (const QString& line : general.out.split('\n'))
        if (line.startsWith("  ") && !line.startsWith("   "))
            commands.append(line.trimmed().section(' ', 0, 0));
    EXPECT_EQ(commands, QStringList({"build", "dump", "source", "check", "pictures", "render", "info", "describe",
                                     "ids", "types", "attributes", "version"}));
    for (const QString& command : commands) {
        SCOPED_TRACE(command.toStdString());
        const Outcome help = vtpool({command, "--help"});
        QStringList listed;
        for (const QString& line : help.out.split('\n')) {
            if (!line.startsWith("  -"))
                continue;
            // "  -o, --output FILE   text": the last name. The "1" after it is its value, or a
            // second positional argument for an option without one: bad usage, but not an
            // unknown option.
            const QStringList words = line.trimmed().split(' ', Qt::SkipEmptyParts);
            int last = 0;
            while (last + 1 < words.size() && words[last].endsWith(','))
                ++last;
            listed.append(words[last]);
            const Outcome r = vtpool({command, "x.xml", words[last], "1"});
            EXPECT_FALSE(r.err.contains("unknown option", Qt::CaseInsensitive))
                << words[last].toStdString() << ": " << r.err.toStdString();
        }
        for (const char* option : {"--output", "--colours", "--bytes", "--vt-version", "--chunk"})
            if (!listed.contains(option)) {
                const Outcome r = vtpool({command, "x.xml", option, "1"});
                EXPECT_EQ(r.status, 2) << option;
                EXPECT_TRUE(r.err.contains(QStringLiteral("unknown option %1").arg(option))) << r.err.toStdString();
            }
    }
}

TEST(ToolsVtpool, BadCommandLinesNameTheOptionAtFault)
{
    struct Case
    {
        QStringList args;
        const char* error;
    } const cases[] = {
        {{"build", "a.xml", "-o"}, "vtpool build: --output needs a value"},
        {{"build", "a.xml", "-o", "a.iop", "--output", "b.iop"}, "vtpool build: --output given twice"},
        {{"build", "a.xml"}, "vtpool build: -o POOL.iop is required"},
        {{"source", "a.xml"}, "vtpool source: -o FILE.cpp is required"},
        {{"pictures", "a.xml", "b.xml", "-o", "d"}, "vtpool pictures: give exactly one POOL"},
        {{"dump", "a.xml", "-x"}, "vtpool dump: unknown option -x"},
        {{"dump", "a.xml", "--bogus=3"}, "vtpool dump: unknown option --bogus"},
        {{"dump", "a.xml", "--bytes=1"}, "vtpool dump: --bytes takes no value"},
        {{"check", "a.xml", "--colours", "16"}, "vtpool check: unknown option --colours"},
        {{"check", "a.xml", "--vt-version", "1"}, "vtpool check: --vt-version takes a VT version from 2 to 6"},
        {{"build", "a.xml", "-o", "a.iop", "--key-size", "90x120"},
         "vtpool build: --key-size and --design-key-size go together"},
        {{"build", "a.xml", "-o", "a.iop", "--small-fonts", "0x100"},
         "vtpool build: --small-fonts takes a mask from 0 to 255"},
        {{"build", "a.xml", "-o", "a.iop", "--chunk", "0"}, "vtpool build: --chunk takes a positive number of bytes"},
    };
    for (const Case& c : cases) {
        const Outcome r = vtpool(c.args);
        EXPECT_EQ(r.status, 2) << c.error;
        EXPECT_TRUE(r.err.startsWith(QStringLiteral("%1\n(vtpool ").arg(c.error))) << r.err.toStdString();
    }
    // A value may follow its option after '=' or be the next argument, even one starting with '-'.
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    const QString xml = QStringLiteral(VT_TEST_DATA_DIR "/tools/variables.xml");
    EXPECT_EQ(vtpool({"build", xml, "--output=" + tmp.filePath("a.iop"), "--no-check"}).status, 0);
    EXPECT_EQ(vtpool({"build", "--chunk", "7", xml, "-o", tmp.filePath("-b.iop"), "--no-check"}).status, 0);
    EXPECT_EQ(read_file(tmp.filePath("a.iop")), read_file(tmp.filePath("-b.iop")));
}
