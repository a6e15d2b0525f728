// A pool in several languages through the other tools: the language tables of generated
// source, describe writing the languages' texts back as tables, and builds of every language
// that warn once.
#include <gtest/gtest.h>

#include <QProcess>
#include <QTemporaryDir>

#include "language_test_support.h"
#include "tool_test_support.h"
#include "tools/describe/Language_pools.h"
#include "tools/description/Text_table.h"
#include "tools/pool/Partial_pool.h"
#include "tools/pool/Pool_file.h"
#include "tools/source/Language_tables.h"

using namespace VT;

namespace {

const QStringList codes = {"en", "de", "fr"};

// `base` with the objects of `table` in place of those of their ids.
QByteArray applied(const QByteArray& base, const QByteArray& table)
{
    QByteArray out;
    QString error;
    EXPECT_TRUE(Partial_pool::apply(base, table, out, &error)) << error.toStdString();
    return out;
}

// realistic_languages.xml built in every language into `dir`: NAME_CODE.iop, NAME_CODE_partial.iop.
QHash<QString, QByteArray> example_pools(const QTemporaryDir& dir)
{
    const test::Outcome r =
        test::vtpool({"build", QStringLiteral(VT_EXAMPLES_DIR "/realistic_languages.xml"), "--all-languages", "-o",
                      dir.path()});
    EXPECT_EQ(r.status, 0) << r.err.toStdString();
    QHash<QString, QByteArray> pools;
    for (const QString& code : codes)
        pools.insert(code, test::read_file(dir.filePath("realistic_languages_" + code + ".iop")));
    return pools;
}

}

TEST(ToolsLanguageRoundTrips, EachLanguageTableGivesItsPoolOverThePoolInAnyLanguage)
{
    // German translates only the title, French only the unit: each table must carry both, or
    // going from French to German would keep the French unit.
    test::Files files(test::three_languages, {{"de", "title = \"Menge\"\n"}, {"fr", "unit = \"litres/ha\"\n"}});
    QVector<Language_tables::Language> languages;
    for (const QString& code : codes) {
        auto b = test::build(files.path("pool.xml"), code.toUtf8());
        ASSERT_TRUE(b->ok) << b->problems().toStdString();
        languages.append({code.toUtf8(), b->bytes});
    }
    QVector<Language_tables::Table> tables;
    QString error;
    ASSERT_TRUE(Language_tables::make(languages, tables, &error)) << error.toStdString();
    ASSERT_EQ(tables.size(), 3);
    for (int to = 0; to < 3; ++to) {
        EXPECT_EQ(tables[to].code, languages[to].code);
        ASSERT_EQ(tables[to].objects.size(), 2);
        EXPECT_EQ(tables[to].objects[0].id, 2); // title, then the unit variable
        EXPECT_EQ(tables[to].objects[1].id, 4);
        EXPECT_EQ(tables[to].objects[1].offset, tables[to].objects[0].size);
        for (int from = 0; from < 3; ++from)
            EXPECT_EQ(applied(languages[from].pool, tables[to].bytes), languages[to].pool) << from << " to " << to;
    }

    // Pools that hold their objects in another order cannot be switched by replacing objects.
    QVector<Partial_pool::Object_bytes> objects;
    ASSERT_TRUE(Partial_pool::split(languages[1].pool, "de", objects, &error));
    std::swap(objects[0], objects[1]);
    languages[1].pool.clear();
    for (const Partial_pool::Object_bytes& o : objects)
        languages[1].pool += o.bytes;
    EXPECT_FALSE(Language_tables::make(languages, tables, &error));
    EXPECT_TRUE(error.startsWith("the 'de' objects put over the pool in 'en' do not give the pool in 'de'"))
        << error.toStdString();
    languages[1].pool = "\x01";
    EXPECT_FALSE(Language_tables::make(languages, tables, &error));
    EXPECT_TRUE(error.startsWith("the 'de' pool does not read")) << error.toStdString();
}

TEST(ToolsLanguageRoundTrips, GeneratedSourceCompiledInCarriesEveryLanguage)
{
    // The build compiled the source of realistic_languages.xml into a program that writes the
    // pool and each language's table.
    QTemporaryDir out, built;
    QProcess p;
    p.start(QStringLiteral(VT_LANGUAGES_WRITER), {out.path()});
    ASSERT_TRUE(p.waitForFinished(60000));
    ASSERT_EQ(p.exitCode(), 0) << p.readAllStandardError().toStdString();
    const QHash<QString, QByteArray> pools = example_pools(built);
    EXPECT_EQ(test::read_file(out.filePath("POOL.iop")), pools.value("en"));
    for (const QString& to : codes) {
        const QByteArray table = test::read_file(out.filePath(to + ".iop"));
        EXPECT_GT(table.size(), 200) << to.toStdString();
        for (const QString& from : codes)
            EXPECT_EQ(applied(pools.value(from), table), pools.value(to))
                << from.toStdString() << " to " << to.toStdString();
    }

    // A description in one language gets no tables.
    const QString source = out.filePath("one.cpp");
    ASSERT_EQ(test::vtpool({"source", QStringLiteral(VT_EXAMPLES_DIR "/realistic.xml"), "-o", source}).status, 0);
    EXPECT_FALSE(test::read_file(source).contains("Language"));
}

TEST(ToolsLanguageRoundTrips, DescribeWritesTheTextsOfEachLanguageAndTheirBuildsGiveThePoolsBack)
{
    QTemporaryDir built, out;
    const QHash<QString, QByteArray> pools = example_pools(built);
    const QString en = built.filePath("realistic_languages_en.iop");
    const QString de = built.filePath("realistic_languages_de.iop");
    const QString fr_partial = built.filePath("realistic_languages_fr_partial.iop");
    // German as a whole pool, French as the objects it changes.
    test::Outcome r =
        test::vtpool({"describe", en, "--language", "de=" + de, "--language", "fr=" + fr_partial, "-o", out.path()});
    ASSERT_EQ(r.status, 0) << r.err.toStdString();
    const QByteArray xml = test::read_file(out.filePath("pool.xml"));
    EXPECT_TRUE(xml.contains("<object_pool languages=\"en de fr\" texts=\"texts/\">")) << xml.left(300).toStdString();
    QStringList problems;
    const auto german = Text_table::read(test::read_file(out.filePath("texts/de.txt")), "de.txt", problems);
    EXPECT_TRUE(problems.isEmpty()) << problems.join("\n").toStdString();
    ASSERT_EQ(german.size(), 9);
    EXPECT_EQ(german[0].name, "Output_string_2");
    EXPECT_EQ(german[0].text, "Spritzen");
    EXPECT_EQ(german[6].text, QString::fromUtf8("Zu schnell f\xC3\xBCr die Menge!"));
    for (const QString& code : codes) {
        const QString again = out.filePath(code + ".iop");
        r = test::vtpool({"build", out.filePath("pool.xml"), "--language", code, "-o", again});
        ASSERT_EQ(r.status, 0) << r.err.toStdString();
        EXPECT_EQ(test::read_file(again), pools.value(code)) << code.toStdString();
        EXPECT_FALSE(r.err.contains("warning")) << r.err.toStdString();
    }

    // An object that differs in more than its text, and one the default pool lacks.
    QByteArray partial = test::read_file(fr_partial);
    partial[3] = char(partial[3] + 1); // the title's width
    const QString changed = built.filePath("changed.iop");
    ASSERT_TRUE(test::write_file(changed, partial));
    r = test::vtpool({"describe", en, "--language", "fr=" + changed, "-o", out.filePath("x")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains("(Output_string 2) differs in 'width', and only texts may differ between languages "
                               "(between " + en + " and " + changed + ")"))
        << r.err.toStdString();
    partial = test::read_file(fr_partial);
    partial[0] = char(0xE7); // id 999
    partial[1] = 3;
    ASSERT_TRUE(test::write_file(changed, partial));
    r = test::vtpool({"describe", en, "--language", "fr=" + changed, "-o", out.filePath("x")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains(changed + " holds '")) << r.err.toStdString();
    EXPECT_TRUE(r.err.contains("(Output_string 999), which " + en + " lacks")) << r.err.toStdString();
    EXPECT_FALSE(QFile::exists(out.filePath("x/pool.xml")));

    // Codes: not CODE=FILE, the default again, and --default-language alone.
    EXPECT_EQ(test::vtpool({"describe", en, "--language", de, "-o", out.filePath("x")}).status, 2);
    r = test::vtpool({"describe", en, "--language", "en=" + de, "-o", out.filePath("x")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains("the language 'en' is the default language already")) << r.err.toStdString();
    r = test::vtpool({"describe", en, "--default-language", "de", "--language", "DE=" + de, "-o", out.filePath("x")});
    EXPECT_TRUE(r.err.contains("the language 'DE' is not two lower-case letters")) << r.err.toStdString();
    EXPECT_EQ(test::vtpool({"describe", en, "--default-language", "de", "-o", out.filePath("x")}).status, 2);
}

TEST(ToolsLanguageRoundTrips, TheDefaultLanguageIsTheWorkingSetsFirstAndTextsMustFitTheirObjects)
{
    QByteArray xml = test::three_languages;
    xml.replace("<Language code=\"en\"/><Language code=\"de\"/>", "<Language code=\"de\"/><Language code=\"en\"/>");
    test::Files files(xml, {{"de", "title = \"Menge\"\nunit = \"Liter\"\n"}, {"fr", "title = \"D\xC3\xA9\x62it\"\n"}});
    auto en = test::build(files.path("pool.xml"));
    auto fr = test::build(files.path("pool.xml"), "fr");
    ASSERT_TRUE(en->ok && fr->ok) << en->problems().toStdString() << fr->problems().toStdString();
    EXPECT_EQ(Language_pools::default_language(en->pool), "de");
    Object_pool empty;
    EXPECT_EQ(Language_pools::default_language(empty), "en");

    Described_languages out;
    QStringList problems;
    ASSERT_TRUE(Language_pools::read(en->pool, en->bytes, "en.iop", "en", {{"fr", "fr.iop", fr->bytes}}, out,
                                     problems))
        << problems.join("\n").toStdString();
    ASSERT_EQ(out.texts.value("fr").size(), 1);
    // Read from the ISO 8859-1 bytes, with the blank that pads it to "Amount"'s length left out.
    EXPECT_EQ(out.texts.value("fr")[0].text, QString::fromUtf8("D\xC3\xA9\x62it"));
    EXPECT_TRUE(out.growing.isEmpty());
    EXPECT_EQ(out.pools.value("fr"), fr->bytes);
    // A partial pool of a language that changes nothing holds no object.
    ASSERT_TRUE(Language_pools::read(en->pool, en->bytes, "en.iop", "en", {{"fr", "fr.iop", ""}}, out, problems));
    EXPECT_TRUE(out.texts.isEmpty());
    EXPECT_EQ(out.pools.value("fr"), en->bytes);

    // A text shorter than the default's cannot come back: the reader pads translations.
    QByteArray shorter = fr->bytes;
    const int at = shorter.indexOf("D\xE9" "bit ");
    ASSERT_GT(at, 0);
    shorter.remove(at + 5, 1);
    shorter[at - 2] = char(shorter[at - 2] - 1); // its length
    EXPECT_FALSE(Language_pools::read(en->pool, en->bytes, "en.iop", "en", {{"fr", "fr.iop", shorter}}, out,
                                      problems));
    EXPECT_TRUE(problems.join("\n").contains("'title' (Output_string 2) has a 'fr' text of 5 bytes, shorter than its "
                                             "text of 6"))
        << problems.join("\n").toStdString();
    problems.clear();
    EXPECT_FALSE(Language_pools::read(en->pool, en->bytes, "en.iop", "en", {{"fr", "fr.iop", "\x01\x02"}}, out,
                                      problems));
    EXPECT_TRUE(problems.join("\n").startsWith("fr.iop: does not read as the 'fr' pool")) << problems.join("\n").toStdString();
}

TEST(ToolsLanguageRoundTrips, BuildingEveryLanguageWarnsOnce)
{
    QByteArray xml = test::three_languages;
    xml.replace("string=\"Amount\"", "string=\"Amount\" colour=\"red\"");
    test::Files files(xml, {{"de", "title = \"Menge\"\nunit = \"Liter\"\n"}, {"fr", "title = \"Taux\"\n"}});
    QTemporaryDir out;
    const test::Outcome r = test::vtpool({"build", files.path("pool.xml"), "--all-languages", "-o", out.path()});
    ASSERT_EQ(r.status, 0) << r.err.toStdString();
    EXPECT_EQ(r.err.count("attribute 'colour' of <Output_string> is not used"), 1) << r.err.toStdString();
    // What only one language lacks is said for it.
    EXPECT_EQ(r.err.count("'unit' has no 'fr' text"), 1) << r.err.toStdString();
}
