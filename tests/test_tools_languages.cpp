// Descriptions in several languages: the text tables, the builds per language, the partial
// pools of a language change, and the checks on languages.
#include <gtest/gtest.h>

#include <QHash>
#include <QTemporaryDir>
#include <memory>

#include "test_support.h"
#include "language_test_support.h"
#include "tool_test_support.h"
#include "tools/check/Check_tool.h"
#include "tools/description/Description.h"
#include "tools/description/Text_table.h"
#include "tools/pool/Partial_pool.h"
#include "tools/pool/Pool_file.h"

using namespace VT;
using test::build;
using test::Build;
using test::Files;
using test::three_languages;

namespace {

// The bytes of each object of a pool, by id.
QHash<uint16_t, QByteArray> objects_of(Object_pool& pool)
{
    QHash<uint16_t, QByteArray> out;
    for (VT_obj* obj : pool.objects())
        out.insert(obj->get_id(), Pool_file::object_bytes(*obj));
    return out;
}

// The names of the objects whose bytes differ between two builds of one description.
QStringList differing(Build& a, Build& b)
{
    QStringList names;
    const QHash<uint16_t, QByteArray> before = objects_of(a.pool);
    for (VT_obj* obj : b.pool.objects())
        if (before.value(obj->get_id()) != Pool_file::object_bytes(*obj))
            names.append(obj->get_name());
    return names;
}

// The bytes of an object's text, as many as its length counts.
QByteArray text_of(Object_pool& pool, const char* name)
{
    VT_obj* obj = pool.find(QByteArray(name));
    const int at = obj ? obj->find_attribute("string") : -1;
    auto* text = at < 0 ? nullptr : dynamic_cast<Attribute_array_char*>(obj->get_every_attribute(uint16_t(at)));
    return text ? QByteArray(text->c_str(), int(text->get_length())) : QByteArray("(no text)");
}

}

TEST(ToolsLanguages, TextTablesReadTheirLinesAndNameWhatDoesNotRead)
{
    QStringList problems;
    const QVector<Text_table::Entry> entries = Text_table::read(
        "\xEF\xBB\xBF# comment\r\n\n  title = \"Men\xC3\xBC \\\"A\\\" \\\\ \\n2\"  \r\nunit=\"\"\n"
        "bad \"x\"\nnoquote = x\nopen = \"abc\nesc = \"\\t\"\ntail = \"a\" b\ntitle = \"again\"\n"
        "latin = \"\xFC\"\n",
        "de.txt", problems);
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(entries[0].name, "title");
    EXPECT_EQ(entries[0].text, QString::fromUtf8("Men\xC3\xBC \"A\" \\ \n2"));
    EXPECT_EQ(entries[0].line, 3);
    EXPECT_EQ(entries[1].name, "unit");
    EXPECT_EQ(entries[1].text, "");
    EXPECT_EQ(problems, QStringList({"de.txt:5: '=' must follow the name 'bad'",
                                     "de.txt:6: the text of 'noquote' must be in double quotes",
                                     "de.txt:7: the text of 'open' has no closing quote",
                                     "de.txt:8: unknown escape in the text of 'esc' (\\\", \\\\ and \\n are known)",
                                     "de.txt:9: only blanks may follow the text of 'tail'",
                                     "de.txt:10: 'title' has a text at line 3 already",
                                     "de.txt:11: the text of 'latin' is not UTF-8"}));
    // What quoted() writes reads back as it was.
    const QString text = QString::fromUtf8("a \"b\" \\ \n\xC3\xA9");
    problems.clear();
    const auto again = Text_table::read(("x = " + Text_table::quoted(text)).toUtf8(), "q.txt", problems);
    ASSERT_EQ(again.size(), 1) << problems.join("\n").toStdString();
    EXPECT_EQ(again[0].text, text);
}

TEST(ToolsLanguages, EachLanguageChangesOnlyTheTranslatedTextsAndItsPartialPoolGivesTheFullPool)
{
    Files files(three_languages, {{"de", "title = \"Menge\"\nunit = \"Liter\"\n"},
                                  {"fr", "# French\ntitle = \"D\xC3\xA9\x62it\"\nunit = \"litres/ha\"\n"}});
    auto en = build(files.path("pool.xml"));
    auto de = build(files.path("pool.xml"), "de");
    auto fr = build(files.path("pool.xml"), "fr");
    for (Build* b : {en.get(), de.get(), fr.get()})
        ASSERT_TRUE(b->ok) << b->problems().toStdString();
    // "en" is the default: asking for it builds the same pool.
    EXPECT_EQ(build(files.path("pool.xml"), "en")->bytes, en->bytes);

    EXPECT_EQ(differing(*en, *de), QStringList({"title", "unit"}));
    EXPECT_EQ(differing(*en, *fr), QStringList({"title", "unit"}));
    EXPECT_EQ(text_of(en->pool, "title"), "Amount");
    // A shorter translation keeps the object's length, padded with blanks ...
    EXPECT_EQ(text_of(de->pool, "title"), "Menge ");
    EXPECT_EQ(text_of(de->pool, "unit"), "Liter ");
    // ... and one of an object marked to grow may be longer. Texts are ISO 8859-1 bytes.
    EXPECT_EQ(text_of(fr->pool, "title"), "D\xE9" "bit ");
    EXPECT_EQ(text_of(fr->pool, "unit"), "litres/ha");
    // The working set keeps its languages in every build.
    EXPECT_EQ(objects_of(de->pool).value(0), objects_of(en->pool).value(0));

    for (Build* b : {de.get(), fr.get()}) {
        QByteArray partial, applied;
        QString error;
        int count = 0;
        ASSERT_TRUE(Partial_pool::differing(en->bytes, b->bytes, partial, &error, &count)) << error.toStdString();
        EXPECT_EQ(count, 2);
        ASSERT_TRUE(Partial_pool::apply(en->bytes, partial, applied, &error)) << error.toStdString();
        EXPECT_EQ(applied, b->bytes);
    }
    // Between equal pools nothing differs, and nothing applied changes nothing.
    QByteArray none, same;
    QString error;
    ASSERT_TRUE(Partial_pool::differing(en->bytes, en->bytes, none, &error));
    EXPECT_TRUE(none.isEmpty());
    ASSERT_TRUE(Partial_pool::apply(en->bytes, none, same, &error));
    EXPECT_EQ(same, en->bytes);
    EXPECT_FALSE(Partial_pool::apply(en->bytes, "\x01\x02", same, &error));
    EXPECT_TRUE(error.startsWith("the partial pool does not read")) << error.toStdString();
}

TEST(ToolsLanguages, BadTranslationsAreProblemsWithTheirFileAndLine)
{
    Files files(three_languages,
                {{"de", "title = \"Durchflussmenge\"\nnobody = \"x\"\nmain = \"y\"\n"},
                 {"fr", "\n\ntitle = \"\xE2\x82\xAC\"\nunit = \"\xE2\x82\xAC a very long text indeed\"\n"}});
    auto b = build(files.path("pool.xml"));
    EXPECT_FALSE(b->ok);
    const QString de = files.path("texts/de.txt"), fr = files.path("texts/fr.txt");
    EXPECT_EQ(b->d->problems(),
              QStringList({de + ":1: the 'de' text of 'title' (Output_string) is 15 characters long, longer than its "
                                "length 6 (the default text's; grow=\"true\" on the object lets it grow)",
                           de + ":2: the description has no object 'nobody' with a text",
                           de + ":3: the description has no object 'main' with a text",
                           fr + ":3: the 'fr' text of 'title' (Output_string) holds '\u20AC', which is not in "
                                "ISO 8859-1 (font type 0)",
                           fr + ":4: the 'fr' text of 'unit' (String_variable) holds '\u20AC', which is not in "
                                "ISO 8859-1 (font type 0)"}))
        << b->problems().toStdString();

    // A table that is missing, a language asked for that is not declared, a bad declaration.
    Files missing(three_languages, {{"de", ""}});
    b = build(missing.path("pool.xml"), "it");
    EXPECT_TRUE(b->problems().contains(missing.path("texts/fr.txt") + ": cannot read the 'fr' texts: "))
        << b->problems().toStdString();
    EXPECT_TRUE(b->problems().contains("pool.xml:1: 'it' is not among the description's languages (en de fr)"));
    Files bad(QByteArray(three_languages).replace("en de fr", "en DE en"), {});
    b = build(bad.path("pool.xml"));
    EXPECT_TRUE(b->problems().contains("pool.xml:1: language 'DE' is not a two-letter lower-case code such as en or de"));
    EXPECT_TRUE(b->problems().contains("pool.xml:1: language 'en' is declared twice"));
}

TEST(ToolsLanguages, TranslationsTakeTheCodePlaneOfTheirFontAndMayStandInline)
{
    // Font type 5 is ISO 8859-5: Cyrillic letters fit, where ISO 8859-1 letters beyond ASCII
    // do not. The variable is shown in that font, so its text is written in that plane too.
    QByteArray xml = three_languages;
    xml.replace("languages=\"en de fr\" texts=\"texts\"", "languages=\"en ru de\"")
        .replace("<Font_attributes name=\"font\"", "<Font_attributes name=\"font\" font_type=\"5\"")
        .replace("string=\"Amount\"", "string=\"Amount\" string.ru=\"\xD0\x9D\xD0\xBE\xD1\x80\xD0\xBC\xD0\xB0\"")
        .replace("string=\"litres\"", "string=\"litres\" string.ru=\"\xC3\xA4\"");
    Files files(xml, {});
    auto b = build(files.path("pool.xml"), "ru");
    EXPECT_FALSE(b->ok);
    EXPECT_EQ(b->problems().toStdString(),
              (files.path("pool.xml") + ":11: the 'ru' text of 'unit' (String_variable) holds '\u00E4', which is "
                                        "not in ISO 8859-5 (font type 5)")
                  .toStdString());
    xml.replace("string.ru=\"\xC3\xA4\"", "");
    Files fixed(xml, {});
    b = build(fixed.path("pool.xml"), "ru");
    ASSERT_TRUE(b->ok) << b->problems().toStdString();
    EXPECT_EQ(text_of(b->pool, "title"), "\xBD\xDE\xE0\xDC\xD0 ");
    // Building a language that lacks a text says so where the object stands, and keeps the
    // default text.
    EXPECT_EQ(b->d->warnings(), QStringList({fixed.path("pool.xml") +
                                             ":11: 'unit' has no 'ru' text; the default \"litres\" is used"}));
    b = build(fixed.path("pool.xml"), "de");
    ASSERT_TRUE(b->ok);
    EXPECT_EQ(text_of(b->pool, "title"), "Amount");
}

TEST(ToolsLanguages, CheckReportsMissingTextsAndLanguagesTheWorkingSetDoesNotMatch)
{
    QByteArray xml = three_languages;
    xml.replace("<Language code=\"fr\"/>", "<Language code=\"it\"/>");
    Files files(xml, {{"de", "title = \"Menge\"\n"}, {"fr", "# nothing yet\n"}});
    Object_pool pool;
    const Check::Loaded loaded = Check::load(files.path("pool.xml"), pool, false);
    ASSERT_TRUE(loaded.ok) << loaded.problems.join("\n").toStdString();
    const Check::Result r = Check::check(pool, loaded.source);
    QStringList lines;
    for (const Check::Finding& f : r.findings)
        lines.append(QStringLiteral("%1: %2: %3 [%4]").arg(f.location.text(), f.object_label(), f.message, f.rule));
    const QString at = files.path("pool.xml");
    EXPECT_EQ(lines, QStringList({at + ":2: 'ws' (Working_set 0): the working set lists 'it', in which the description "
                                       "has no texts (its languages are en de fr): a terminal in 'it' shows the default "
                                       "texts [language-without-texts]",
                                  at + ":2: 'ws' (Working_set 0): 'fr' is among the description's languages, but no "
                                       "object has a 'fr' text [language-without-texts]",
                                  at + ":9: 'title' (Output_string 2): no 'fr' text: a terminal in that language shows "
                                       "the default \"Amount\" [text-missing]",
                                  at + ":11: 'unit' (String_variable 4): no 'de' text: a terminal in that language "
                                       "shows the default \"litres\" [text-missing]",
                                  at + ":11: 'unit' (String_variable 4): no 'fr' text: a terminal in that language "
                                       "shows the default \"litres\" [text-missing]"}))
        << lines.join("\n").toStdString();

    // Texts in a language the working set does not list.
    xml = three_languages;
    xml.replace("<Language code=\"de\"/>", "");
    Files undeclared(xml, {{"de", "title = \"Menge\"\nunit = \"Liter\"\n"}, {"fr", "title = \"Taux\"\nunit = \"l\"\n"}});
    Object_pool other;
    const Check::Loaded again = Check::load(undeclared.path("pool.xml"), other, false);
    ASSERT_TRUE(again.ok);
    const Check::Result r2 = Check::check(other, again.source);
    ASSERT_EQ(r2.findings.size(), 1);
    EXPECT_EQ(r2.findings[0].rule, "language-undeclared");
    EXPECT_EQ(r2.findings[0].value, "de");
}

TEST(ToolsLanguages, VtpoolBuildsEveryLanguageOrWritesNothing)
{
    QTemporaryDir out;
    const QString example = QStringLiteral(VT_EXAMPLES_DIR "/realistic_languages.xml");
    test::Outcome r = test::vtpool({"build", example, "--all-languages", "-o", out.path()});
    ASSERT_EQ(r.status, 0) << r.err.toStdString();
    const QByteArray en = test::read_file(out.filePath("realistic_languages_en.iop"));
    ASSERT_FALSE(en.isEmpty());
    EXPECT_FALSE(QFile::exists(out.filePath("realistic_languages_en_partial.iop")));
    for (const QString code : {"de", "fr"}) {
        const QByteArray full = test::read_file(out.filePath("realistic_languages_" + code + ".iop"));
        const QByteArray partial = test::read_file(out.filePath("realistic_languages_" + code + "_partial.iop"));
        QByteArray applied;
        QString error;
        ASSERT_TRUE(Partial_pool::apply(en, partial, applied, &error)) << error.toStdString();
        EXPECT_EQ(applied, full) << code.toStdString();
        EXPECT_LT(partial.size(), full.size() / 4);
        // The single builds give the same bytes.
        r = test::vtpool({"build", example, "--partial-language", code, "-o", out.filePath("one.iop")});
        ASSERT_EQ(r.status, 0) << r.err.toStdString();
        EXPECT_EQ(test::read_file(out.filePath("one.iop")), partial);
        r = test::vtpool({"build", example, "--language", code, "-o", out.filePath("one.iop")});
        EXPECT_EQ(test::read_file(out.filePath("one.iop")), full);
    }

    // The other commands take the language too.
    r = test::vtpool({"info", example, "--language", "de"});
    EXPECT_TRUE(r.out.startsWith("languages: en (default), de (built), fr\n")) << r.out.toStdString();
    for (const QString code : {"en", "de"})
        ASSERT_EQ(test::vtpool({"render", example, "--language", code, "-o", out.filePath(code + ".png")}).status, 0);
    EXPECT_NE(test::read_file(out.filePath("en.png")), test::read_file(out.filePath("de.png")));

    // Usage, a default language asked for as partial, and a pool file asked for a language.
    EXPECT_EQ(test::vtpool({"build", example, "--language", "de", "--all-languages", "-o", out.path()}).status, 2);
    r = test::vtpool({"build", example, "--partial-language", "en", "-o", out.filePath("x.iop")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains("'en' is the default language")) << r.err.toStdString();
    r = test::vtpool({"build", out.filePath("realistic_languages_en.iop"), "--language", "de", "-o", out.filePath("x.iop")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains("a pool file holds its texts in one language")) << r.err.toStdString();

    // A bad translation stops every build: no file at all.
    Files broken(three_languages, {{"de", "title = \"Menge\"\n"}, {"fr", "title = \"far too long for it\"\n"}});
    QTemporaryDir none;
    r = test::vtpool({"build", broken.path("pool.xml"), "--all-languages", "-o", none.path()});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains("texts/fr.txt:1: the 'fr' text of 'title'")) << r.err.toStdString();
    EXPECT_TRUE(QDir(none.path()).isEmpty());
}
