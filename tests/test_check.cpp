// The check: every rule against a corpus of pools each broken in one way, the examples and
// real pools, the fact tables against the object classes, the VT version at every boundary of
// the type table, the JSON report, and the diagnosis of pool bytes that stop reading.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QTemporaryDir>
#include <map>
#include <sstream>
#include <set>

#include "test_support.h"
#include "tools/check/Check_tool.h"
#include "tools/check/Macro_commands.h"
#include "tools/check/Object_facts.h"
#include "tools/check/Read_diagnosis.h"
#include "tools/check/Report.h"
#include "tools/check/Rules.h"
#include "tools/description/Description.h"
#include "tools/pool/Labels.h"
#include "tools/pool/Object_factory.h"
#include "tools/pool/Object_references.h"
#include "tools/pool/Pool_file.h"
#include "tools/pool/Pool_loader.h"

using namespace VT;
using namespace VT::Check;

namespace {

// The rules (and severities) a pool's findings come from, with the objects they name.
struct Checked
{
    Loaded loaded;
    Result result;
    std::set<std::string> rules() const
    {
        std::set<std::string> out;
        for (const Finding& f : result.findings)
            out.insert(f.rule.toStdString());
        return out;
    }
    std::string text() const
    {
        std::string out;
        for (const Finding& f : result.findings)
            out += (f.location.text() + ": " + f.object_label() + ": " + f.message + " [" + f.rule + "]\n").toStdString();
        return out;
    }
};

std::unique_ptr<Checked> check_file(const QString& path, const Options& options = Options())
{
    auto c = std::make_unique<Checked>();
    auto pool = std::make_shared<Object_pool>();
    c->loaded = load(path, *pool, false);
    EXPECT_TRUE(c->loaded.ok) << c->loaded.problems.join("\n").toStdString();
    c->result = check(*pool, c->loaded.source, options);
    return c;
}

Result check_xml(const char* xml, const Options& options = Options())
{
    Object_pool pool;
    auto d = std::make_shared<Description>();
    pool.keep_alive(d);
    EXPECT_TRUE(d->parse(xml, "t.xml"));
    EXPECT_TRUE(d->build(pool)) << d->problems().join("\n").toStdString();
    Source source;
    source.file = "t.xml";
    return check(pool, source, options);
}

QStringList files_in(const QString& dir, const QStringList& patterns)
{
    QStringList out;
    for (const QString& f : QDir(dir).entryList(patterns, QDir::Files, QDir::Name))
        out.append(QDir(dir).filePath(f));
    return out;
}

}

TEST(Check, EveryCaseOfTheCorpusIsFoundByExactlyTheRuleMeant)
{
    // Each file is a pool a terminal would show but for one fault; its name starts with the
    // rule that finds it ("ref-type.font-is-line-attributes.xml").
    const QStringList corpus = files_in(QStringLiteral(VT_TEST_DATA_DIR "/check"), {"*.xml", "*.iop"});
    ASSERT_GE(corpus.size(), 40);
    std::set<std::string> covered;
    for (const QString& path : corpus) {
        SCOPED_TRACE(path.toStdString());
        const std::string rule = QFileInfo(path).fileName().section('.', 0, 0).toStdString();
        ASSERT_NE(find_rule(QString::fromStdString(rule)), nullptr) << "no rule " << rule;
        auto c = check_file(path);
        EXPECT_EQ(c->rules(), std::set<std::string>{rule}) << c->text();
        for (const Finding& f : c->result.findings) {
            // Every finding names its object and where it came from; only the pool as a whole
            // has no working set.
            EXPECT_TRUE(f.object_id >= 0 || rule == "one-working-set") << c->text();
            EXPECT_TRUE(f.location.line > 0 || f.location.offset >= 0 || f.object_id < 0) << c->text();
            EXPECT_FALSE(f.message.isEmpty());
        }
        covered.insert(rule);
    }
    // Every rule has a case, but the version rule, which needs a terminal (see below).
    for (const Rule& r : rules())
        if (std::string(r.id) != "vt-version") {
            EXPECT_TRUE(covered.count(r.id)) << "no case for " << r.id;
        }
}

TEST(Check, ExamplesAreClean)
{
    for (const QString& path : files_in(QStringLiteral(VT_EXAMPLES_DIR), {"*.xml"})) {
        SCOPED_TRACE(path.toStdString());
        auto c = check_file(path);
        EXPECT_TRUE(c->result.findings.isEmpty()) << c->text();
        EXPECT_TRUE(c->loaded.warnings.isEmpty()) << c->loaded.warnings.join("\n").toStdString();
    }
}

TEST(Check, RealPoolsHaveNoErrorsAndTheseWarnings)
{
    const QStringList pools = files_in(QStringLiteral(VT_SHARED_POOLS_DIR), {"*.iop"});
    if (pools.isEmpty())
        GTEST_SKIP() << "no real pools in " << VT_SHARED_POOLS_DIR;
    // What the pools break that a terminal takes all the same: a designer that gives every
    // key code 1, and objects a test pool carries without showing them.
    const std::map<std::string, std::multiset<std::string>> expected = {
        {"easy_example_counter.iop", {"key-code 4000", "key-code 4000", "key-code 4000"}},
        {"vt3_test_pool.iop", {"unreachable 22002", "unreachable 11005"}},
    };
    for (const QString& path : pools) {
        SCOPED_TRACE(path.toStdString());
        auto c = check_file(path);
        std::multiset<std::string> warnings;
        for (const Finding& f : c->result.findings) {
            EXPECT_EQ(f.severity, Severity::warning) << c->text();
            warnings.insert(QStringLiteral("%1 %2").arg(f.rule).arg(f.object_id).toStdString());
        }
        auto it = expected.find(QFileInfo(path).fileName().toStdString());
        EXPECT_EQ(warnings, it == expected.end() ? std::multiset<std::string>() : it->second) << c->text();
    }
}

TEST(Check, TheFactTablesNameAttributesTheClassesHave)
{
    // A misspelt attribute in a table would make its rule silently check nothing.
    std::map<unsigned, VT_obj*> made;
    std::vector<std::unique_ptr<VT_obj>> keep;
    for (const Object_factory::Entry* e : Object_factory::all()) {
        keep.emplace_back(e->make(nullptr));
        made[unsigned(e->type)] = keep.back().get();
    }
    auto has = [&](unsigned type, const char* attribute) {
        return made.count(type) && made[type]->find_attribute(attribute) >= 0;
    };
    for (int i = 0; i < range_fact_count; ++i) {
        const Range_fact& r = range_facts[i];
        EXPECT_TRUE(has(r.type, r.min) && has(r.type, r.max)) << r.type << " " << r.min;
        for (const Shown_value& s : r.shown) {
            EXPECT_TRUE(!s.value || has(r.type, s.value)) << r.type << " " << s.value;
            EXPECT_TRUE(!s.variable || has(r.type, s.variable)) << r.type << " " << s.variable;
        }
    }
    for (int i = 0; i < index_fact_count; ++i)
        EXPECT_TRUE(has(index_facts[i].type, index_facts[i].index) && has(index_facts[i].type, index_facts[i].list))
            << index_facts[i].type;
    for (int i = 0; i < value_version_count; ++i)
        EXPECT_TRUE(has(value_versions[i].type, value_versions[i].attribute)) << value_versions[i].attribute;
    // Every object reference of every class: its fact, when there is one, is found under the
    // name the reference walk gives it; and every class with events has its events listed.
    int references_with_facts = 0;
    for (auto& m : made) {
        for (const Object_reference& r : object_references(*m.second))
            references_with_facts += reference_fact(m.first, r.attribute.constData()) != nullptr;
        if (m.first < 64 && m.second->find_attribute("event_macro") >= 0) {
            EXPECT_NE(events_of(m.first), QStringLiteral("none")) << m.first;
        }
    }
    EXPECT_GE(references_with_facts, 35);
    // The commands: fields and reserved bytes inside each command's length, and every command
    // byte of a macro known.
    for (int code = 0; code < 256; ++code) {
        const Macro_command_fact* f = Macro_commands::find(uint8_t(code));
        if (!f)
            continue;
        const int length = f->length ? f->length : 8;
        for (const Macro_field& field : f->fields)
            if (field.offset) {
                EXPECT_LE(field.offset + (field.kind == Macro_field::object || field.kind == Macro_field::object_or_null ? 2 : 1),
                          length)
                    << f->name;
            }
        EXPECT_EQ(f->reserved >> length, 0) << f->name;
        EXPECT_EQ(f->reserved & 1, 0) << f->name;
    }
}

TEST(Check, MacroBytesAreCutIntoCommandsOfTheirOwnLengths)
{
    // Change String Value of 2 characters (7 bytes) padded to 8, a polygon of 2 points (13), a
    // text of 3 characters (9), then a Change Size cut short.
    const QVector<Macro_command> c = Macro_commands::decode(QByteArray::fromHex(
        "B3050002004F4BFF"
        "B806000C020100020003000400"
        "B806000D0003414243"
        "A60500"));
    ASSERT_EQ(c.size(), 4);
    EXPECT_EQ(c[0].length, 7);
    EXPECT_EQ(c[1].offset, 8);
    EXPECT_EQ(c[1].length, 13);
    EXPECT_STREQ(c[1].graphics->name, "Draw Polygon");
    EXPECT_EQ(c[2].offset, 21);
    EXPECT_EQ(c[2].length, 9);
    EXPECT_EQ(c[3].offset, 30);
    EXPECT_TRUE(c[3].truncated);
    EXPECT_EQ(c[3].length, 3);
    EXPECT_EQ(c[3].wanted, 8);
    // An unknown byte ends the walk: nothing after it can be measured.
    const QVector<Macro_command> unknown = Macro_commands::decode(QByteArray::fromHex("12A0"));
    ASSERT_EQ(unknown.size(), 1);
    EXPECT_EQ(unknown[0].fact, nullptr);
}

TEST(Check, TheVersionOfEachTypeAtEveryBoundaryOfTheTypeTable)
{
    // The last type of each version and the first of the next, each alone in a pool: the
    // version the check says it needs, and that it names the object.
    const std::pair<unsigned, int> boundaries[] = {{30, 2}, {31, 3}, {33, 3}, {34, 4}, {40, 4},
                                                   {41, 5}, {45, 5}, {46, 6}, {47, 6}};
    for (const auto& b : boundaries) {
        SCOPED_TRACE(b.first);
        EXPECT_EQ(type_version(b.first), b.second);
        const Object_factory::Entry* entry = Object_factory::find_for_pool(b.first);
        ASSERT_NE(entry, nullptr);
        Object_pool pool;
        VT_obj* obj = pool.create(*entry);
        obj->set_id(7);
        ASSERT_TRUE(pool.add(obj));
        const Result r = check(pool, Source());
        EXPECT_EQ(r.needed_version, b.second);
        // Version 2 every object decides: no object is named for it.
        ASSERT_EQ(r.deciding.size(), b.second > 2 ? 1 : 0);
        if (b.second > 2) {
            EXPECT_EQ(r.deciding[0].object, object_label(obj));
            EXPECT_TRUE(r.deciding[0].reason.startsWith("object type ")) << r.deciding[0].reason.toStdString();
        }
    }
    // 48, the scaled graphic, is read only in pools of the ISO forms; 49 is no type at all.
    EXPECT_EQ(type_version(48), 6);
    EXPECT_EQ(type_version(49), 0);
    EXPECT_EQ(Object_factory::find_for_pool(48), nullptr);
    EXPECT_NE(Object_factory::find_for_pool(48, Vt6_objects::iso), nullptr);
}

TEST(Check, VersionsOfAttributeValuesAndCommandsAndWhatATerminalLacks)
{
    const char* pool = R"(<object_pool>
  <Working_set name="ws" active_mask="main"/>
  <Data_mask name="main">
    <place object="text" x_location="0" y_location="0"/>
  </Data_mask>
  <Output_string name="text" id="5" width="100" height="20" font_attributes="font" string="Hello"/>
  <Font_attributes name="font" font_size="2" font_style="0x80"/>
  <Macro name="m" bytes="BC 05 00 FF FF FF FF FF"/>
</object_pool>)";
    Result r = check_xml(pool);
    // The proportional font needs 4, the extended macro (whose target is no macro) 5.
    EXPECT_EQ(r.needed_version, 5);
    ASSERT_EQ(r.deciding.size(), 1);
    EXPECT_EQ(r.deciding[0].object, "'m' (Macro 3)");
    EXPECT_EQ(r.deciding[0].reason, "Execute Extended Macro (0xBC) in its bytes");
    EXPECT_EQ(r.deciding[0].location.text(), "t.xml:8");

    Options v3;
    v3.vt_version = 3;
    r = check_xml(pool, v3);
    QStringList versions;
    for (const Finding& f : r.findings)
        if (f.rule == "vt-version")
            versions.append(f.object_name + ": " + f.message);
    EXPECT_EQ(versions, QStringList({"font: a proportional font (font_style bit 7) needs VT version 4 (checking for 3)",
                                     "m: Execute Extended Macro (0xBC) in its bytes needs VT version 5 (checking for 3)"}));
    // No version named: what the pool needs is said, and nothing is an error for it.
    r = check_xml(pool);
    for (const Finding& f : r.findings)
        EXPECT_NE(f.rule, "vt-version");
}

TEST(Check, TheJsonReportParsesAndCarriesEveryField)
{
    auto c = check_file(QStringLiteral(VT_TEST_DATA_DIR "/check/missing-object.variable-not-in-the-pool.iop"));
    Options options;
    options.vt_version = 4;
    const QByteArray json = Report::json("pool.iop", c->result, options);
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(json, &error);
    ASSERT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
    const QJsonObject top = doc.object();
    EXPECT_EQ(top["file"].toString(), "pool.iop");
    EXPECT_EQ(top["objects"].toInt(), 4);
    EXPECT_EQ(top["errors"].toInt(), 1);
    EXPECT_EQ(top["warnings"].toInt(), 0);
    EXPECT_EQ(top["vt_version"].toObject()["needed"].toInt(), 2);
    EXPECT_EQ(top["vt_version"].toObject()["checked_for"].toInt(), 4);
    const QJsonArray findings = top["findings"].toArray();
    ASSERT_EQ(findings.size(), 1);
    const QJsonObject f = findings[0].toObject();
    EXPECT_EQ(f["rule"].toString(), "missing-object");
    EXPECT_EQ(f["severity"].toString(), "error");
    EXPECT_EQ(f["object"].toObject()["id"].toInt(), 2);
    EXPECT_EQ(f["object"].toObject()["name"].toString(), "Output_number_2");
    EXPECT_EQ(f["object"].toObject()["type"].toString(), "Output_number");
    EXPECT_EQ(f["attribute"].toString(), "variable_reference");
    EXPECT_EQ(f["value"].toString(), "4");
    EXPECT_EQ(f["location"].toObject()["offset"].toInt(), 24);
    EXPECT_FALSE(f["location"].toObject().contains("line"));
    EXPECT_TRUE(f["message"].toString().contains("not in the pool"));
    EXPECT_FALSE(f["hint"].toString().isEmpty());

    // A description's findings carry the line; the pool as a whole has no object.
    Result none = check_xml("<object_pool>\n  <Number_variable name=\"n\"/>\n</object_pool>");
    const QJsonObject whole = QJsonDocument::fromJson(Report::json("t.xml", none, Options())).object();
    bool pool_wide = false, with_line = false;
    for (const QJsonValue& v : whole["findings"].toArray()) {
        const QJsonObject o = v.toObject();
        pool_wide = pool_wide || (o["object"].isNull() && o["rule"] == "one-working-set");
        with_line = with_line || o["location"].toObject()["line"].toInt() == 2;
    }
    EXPECT_TRUE(pool_wide);
    EXPECT_FALSE(with_line) << "the variable breaks no rule of its own";
    EXPECT_TRUE(whole["vt_version"].toObject()["checked_for"].isNull());
}

TEST(Check, LoadProblemsBecomeFindingsWithTheirLines)
{
    const QVector<Finding> f = Report::load_findings("a.xml", {"a.xml:3: 'x' of 'width' is not a number", "a.xml: nothing"},
                                                     {"a.xml:9: attribute 'q' of <Key> is not used"});
    ASSERT_EQ(f.size(), 3);
    EXPECT_EQ(f[0].location.line, 3);
    EXPECT_EQ(f[0].message, "'x' of 'width' is not a number");
    EXPECT_EQ(f[1].location.line, 0);
    EXPECT_EQ(f[1].message, "nothing");
    EXPECT_EQ(f[2].severity, Severity::warning);
    EXPECT_EQ(f[2].rule, "load");
}

namespace {

// A working set, a graphics context, and a mask holding it and six output numbers after it:
// in bytes, the context can be made longer or shorter than its layout.
QByteArray pool_with_a_graphics_context(int* context_offset, int* context_length)
{
    QByteArray xml = R"(<object_pool>
  <Working_set name="ws" active_mask="main"/>
  <Graphics_context name="gc" id="36000" viewport_width="10" viewport_height="10" canvas_width="10" canvas_height="10"/>
  <Data_mask name="main"><place object="gc" x_location="0" y_location="0"/>)";
    for (int i = 0; i < 6; ++i)
        xml += QStringLiteral("<place object=\"n%1\" x_location=\"0\" y_location=\"0\"/>").arg(i).toUtf8();
    xml += "</Data_mask>\n";
    for (int i = 0; i < 6; ++i)
        xml += QStringLiteral("<Output_number name=\"n%1\" width=\"50\" height=\"10\" font_attributes=\"font\" "
                              "variable_reference=\"v\" scale=\"1.0\"/>\n")
                   .arg(i)
                   .toUtf8();
    xml += "<Font_attributes name=\"font\"/><Number_variable name=\"v\"/></object_pool>";
    Object_pool pool;
    Description d;
    EXPECT_TRUE(d.parse(xml, "gc.xml"));
    EXPECT_TRUE(d.build(pool)) << d.problems().join("\n").toStdString();
    const QByteArray bytes = Pool_file::write(pool);
    *context_offset = Pool_file::object_bytes(*pool.objects()[0]).size();
    *context_length = Pool_file::object_bytes(*pool.objects()[1]).size();
    return bytes;
}

}

TEST(Check, ReadingThatStopsNamesTheObjectWhoseLengthIsWrong)
{
    test::Dprint_capture quiet;
    int at = 0, length = 0;
    const QByteArray good = pool_with_a_graphics_context(&at, &length);
    ASSERT_EQ(length, 34);
    // Four bytes more in the graphics context, and two fewer.
    for (int change : {4, -2}) {
        SCOPED_TRACE(change);
        QByteArray bad = good;
        if (change > 0)
            bad.insert(at + length, QByteArray(change, '\x01'));
        else
            bad.remove(at + length + change, -change);
        Object_pool pool;
        QString error;
        Pool_file::Read_report report;
        ASSERT_FALSE(Pool_file::read(bad, pool, &error, &report));
        Suspect s;
        ASSERT_TRUE(Read_diagnosis::diagnose(bad, report, &s)) << error.toStdString();
        EXPECT_EQ(s.index, 1);
        EXPECT_EQ(s.offset, at);
        EXPECT_EQ(s.read_length, 34);
        EXPECT_EQ(s.fitting_length, 34 + change);
        EXPECT_TRUE(s.text().startsWith(QStringLiteral("Graphics_context 36000 at offset %1 is probably %2 bytes long, not 34")
                                            .arg(at)
                                            .arg(34 + change)))
            << s.text().toStdString();
    }
    // Bytes that stop at their last object, cut short, have no earlier object to blame.
    Object_pool pool;
    Pool_file::Read_report report;
    const QByteArray cut = good.left(good.size() - 2);
    ASSERT_FALSE(Pool_file::read(cut, pool, nullptr, &report));
    EXPECT_FALSE(Read_diagnosis::diagnose(cut, report, nullptr));
}

TEST(Check, ObjectsSharingAnIdAreKeptAndFound)
{
    test::Dprint_capture quiet;
    const QString path = QStringLiteral(VT_TEST_DATA_DIR "/check/unique-id.variable-twice.iop");
    Object_pool pool;
    const Loaded l = load(path, pool, false);
    ASSERT_TRUE(l.ok) << l.problems.join("\n").toStdString();
    ASSERT_EQ(pool.size(), 6);
    ASSERT_EQ(l.duplicates.size(), 1);
    EXPECT_EQ(l.duplicates[0], qMakePair(5, 4));
    // The first keeps the id; both are written.
    EXPECT_EQ(pool.find(4), pool.objects()[4]);
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(Pool_file::write(pool), f.readAll());
    // Without asking, reading stops there as before.
    Object_pool strict;
    QString error;
    f.seek(0);
    EXPECT_FALSE(Pool_file::read(f.readAll(), strict, &error));
    EXPECT_TRUE(error.endsWith("id 4 is already used by an earlier object")) << error.toStdString();
}

TEST(Check, TheTextReportGroupsBySeverityAndSaysWhatDecidesTheVersion)
{
    Result r;
    r.objects = 1;
    Finding warning;
    warning.rule = "unreachable";
    warning.severity = Severity::warning;
    warning.object_id = 3;
    warning.object_name = "lost";
    warning.object_type = "Output_string";
    warning.location = {"p.xml", 9, -1};
    warning.message = "nothing reaches it";
    Finding error;
    error.rule = "one-working-set";
    error.location.file = "p.xml";
    error.message = "the pool has no Working_set";
    error.hint = "add one";
    r.findings = {error, warning};
    r.needed_version = 4;
    for (int i = 0; i < 3; ++i)
        r.deciding.append({4, QStringLiteral("'gc%1' (Graphics_context %1)").arg(i), "object type Graphics_context",
                           Location{"p.iop", 0, 10 * i}});
    Options options;
    options.vt_version = 3;
    std::ostringstream text;
    Report::text(r, options, text, 2);
    EXPECT_EQ(text.str(), "error: p.xml: the pool has no Working_set [one-working-set]\n"
                          "  hint: add one\n"
                          "warning: p.xml:9: 'lost' (Output_string 3): nothing reaches it [unreachable]\n"
                          "1 object: 1 error, 1 warning (checked for VT version 3)\n"
                          "needs VT version 4, because of:\n"
                          "  p.iop, offset 0: 'gc0' (Graphics_context 0): object type Graphics_context\n"
                          "  p.iop, offset 10: 'gc1' (Graphics_context 1): object type Graphics_context\n"
                          "  ... and 1 more\n");
}

TEST(Check, TheLoaderNamesTheObjectAtFaultAndDropsWhatWasMisread)
{
    test::Dprint_capture quiet;
    int at = 0, length = 0;
    QByteArray bytes = pool_with_a_graphics_context(&at, &length);
    // Four bytes more in the graphics context, which read as the header of an input string
    // (id 42, type 8) whose options, read from the next object's bytes, are out of range.
    bytes.insert(at + length, QByteArray::fromHex("2A000807"));
    {
        Object_pool misread;
        Pool_file::Read_report report;
        EXPECT_FALSE(Pool_file::read(bytes, misread, nullptr, &report));
        ASSERT_EQ(report.clamped.size(), 1);
        EXPECT_TRUE(report.clamped[0].endsWith("'options' 160 is above its maximum 7, so 7 was kept"))
            << report.clamped[0].toStdString();
    }
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    const QString path = tmp.filePath("gc.iop");
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size());
    f.close();
    Object_pool pool;
    QStringList problems, warnings;
    EXPECT_FALSE(Pool_loader::load(path, pool, problems, warnings));
    ASSERT_EQ(problems.size(), 2) << problems.join("\n").toStdString();
    EXPECT_EQ(problems[1].toStdString(),
              (path + QStringLiteral(": Graphics_context 36000 at offset %1 is probably %2 bytes long, not %3: with that "
                                     "length the rest of the pool reads")
                          .arg(at)
                          .arg(length + 4)
                          .arg(length))
                  .toStdString());
    EXPECT_TRUE(warnings.isEmpty()) << "what was clamped in misread objects says nothing: "
                                    << warnings.join("\n").toStdString();
}
