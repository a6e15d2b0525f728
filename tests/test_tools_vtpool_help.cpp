// vtpool's version, and its help in the forms that are installed with it: the man page, drawn by
// groff, and the bash completion, run by bash; each is held against what vtpool --help says.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "process_support.h"
#include "vt_core_version.h"

namespace {

using test::Outcome;
using test::run_program;
using test::vtpool;

// The commands vtpool --help lists.
QStringList command_names()
{
    QStringList names;
    const QString help = vtpool({"--help"}).out;
    const QString commands = help.mid(help.indexOf("Commands:\n") + 10);
    for (const QString& line : commands.split('\n')) {
        if (!line.startsWith("  "))
            break;
        names.append(line.simplified().section(' ', 0, 0));
    }
    return names;
}

// A command as vtpool COMMAND --help shows it.
struct Help
{
    QString synopsis; // the usage line without "usage: "
    QString text;     // what the command does
    QStringList option_lines;
    QStringList option_helps;
    QStringList option_names; // every name, spelled: -o, --output
};

Help help_of(const QString& command)
{
    const QString out = vtpool({command, "--help"}).out;
    Help h;
    h.synopsis = out.section('\n', 0, 0).mid(int(strlen("usage: ")));
    const int options = out.indexOf("\nOptions:\n");
    h.text = out.mid(out.indexOf("\n\n") + 2, options < 0 ? -1 : options - out.indexOf("\n\n") - 2);
    if (options < 0)
        return h;
    for (const QString& line : out.mid(options + 10).split('\n', Qt::SkipEmptyParts)) {
        const QStringList columns = line.trimmed().split(QRegularExpression(" {3,}"));
        h.option_lines.append(columns.value(0));
        h.option_helps.append(columns.value(1));
        for (const QString& word : columns.value(0).split(QRegularExpression("[ ,]+")))
            if (word.startsWith('-'))
                h.option_names.append(word);
    }
    return h;
}

}

TEST(ToolsVtpoolHelp, VersionAndHelpAnswerInEverySpelling)
{
    for (const char* spelling : {"--version", "version"}) {
        const Outcome r = vtpool({spelling});
        EXPECT_EQ(r.status, 0) << spelling;
        EXPECT_EQ(r.out, "vtpool " VT_CORE_VERSION "\n") << spelling;
    }
    EXPECT_EQ(vtpool({"version", "extra"}).status, 2);

    EXPECT_TRUE(command_names().contains("version"));
    for (const char* c : {"render", "version"}) {
        const Outcome r = vtpool({"help", c});
        EXPECT_EQ(r.status, 0) << c;
        EXPECT_EQ(r.out, vtpool({c, "--help"}).out) << c;
    }
    EXPECT_EQ(vtpool({"help"}).out, vtpool({"--help"}).out);
    EXPECT_EQ(vtpool({"help", "frobnicate"}).status, 2);
    EXPECT_EQ(vtpool({"help", "build", "dump"}).status, 2);
}

TEST(ToolsVtpoolHelp, ManPageShowsEveryCommandWithItsHelpAndOptions)
{
    const Outcome page = vtpool({"help", "--man"});
    ASSERT_EQ(page.status, 0);
    // Long lines, no bold or underlining: the page as plain text, warnings on.
    const Outcome drawn = run_program("groff", {"-man", "-Tascii", "-P-cbou", "-rLL=200n", "-ww"}, page.out.toUtf8());
    if (drawn.status == -1)
        GTEST_SKIP() << "groff is not installed (Debian package groff-base)";
    ASSERT_EQ(drawn.status, 0);
    EXPECT_EQ(drawn.err, "") << "groff warns about the page";
    const QString text = drawn.out.simplified();
    EXPECT_TRUE(text.contains("vtpool - build, inspect")) << "the NAME line, which whatis and apropos read";
    EXPECT_TRUE(text.contains("EXIT STATUS 0 fine 1 a problem was found 2 bad usage"));

    const QStringList commands = command_names();
    ASSERT_GE(commands.size(), 8);
    for (const QString& c : commands) {
        const Help h = help_of(c);
        EXPECT_TRUE(text.contains(h.synopsis)) << h.synopsis.toStdString();
        EXPECT_TRUE(text.contains(h.text.simplified())) << h.text.toStdString();
        for (int i = 0; i < h.option_lines.size(); ++i) {
            EXPECT_TRUE(text.contains(h.option_lines[i] + " " + h.option_helps[i]))
                << c.toStdString() << ": " << h.option_lines[i].toStdString();
        }
    }
}

TEST(ToolsVtpoolHelp, BashCompletionOffersCommandsOptionsAndValues)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const Outcome script = vtpool({"help", "--bash-completion"});
    ASSERT_EQ(script.status, 0);
    const QString script_path = dir.filePath("vtpool.bash");
    {
        QFile f(script_path);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(script.out.toUtf8());
    }
    // What pressing Tab offers after `words`, the last being the word completed, in a folder
    // holding a file and a folder.
    const QString work = dir.filePath("work");
    ASSERT_TRUE(QDir().mkpath(work + "/masks"));
    QFile(work + "/pool.xml").open(QIODevice::WriteOnly);
    auto complete = [&](const QStringList& words) {
        QStringList args{"--norc", "--noprofile", "-c",
                         "cd \"$1\" && source \"$2\" && shift 2 && COMP_WORDS=(\"$@\") && COMP_CWORD=$(($# - 1)) && "
                         "_vtpool; printf '%s\\n' \"${COMPREPLY[@]}\"",
                         "bash", work, script_path};
        const Outcome r = run_program("bash", args + words);
        EXPECT_EQ(r.status, 0) << r.err.toStdString();
        QStringList offered = r.out.split('\n', Qt::SkipEmptyParts);
        offered.sort();
        return offered;
    };
    auto sorted = [](QStringList l) {
        l.sort();
        return l;
    };

    const QStringList commands = command_names();
    EXPECT_EQ(complete({"vtpool", ""}), sorted(commands + QStringList{"help", "--help", "--version"}));
    EXPECT_EQ(complete({"vtpool", "re"}), QStringList{"render"});
    EXPECT_EQ(complete({"vtpool", "help", "b"}), QStringList{"build"});
    // Each command offers exactly the options its help lists.
    for (const QString& c : commands)
        EXPECT_EQ(complete({"vtpool", c, "-"}), sorted(help_of(c).option_names + QStringList{"--help"}))
            << c.toStdString();
    EXPECT_EQ(complete({"vtpool", "render", "--sc"}), QStringList{"--scale"});

    // Values: listed ones, in both spellings; folders for a folder; files for a file or an
    // argument; nothing for a number or where no argument is taken.
    EXPECT_EQ(complete({"vtpool", "build", "x.xml", "--colours", ""}), sorted({"2", "16", "256"}));
    EXPECT_EQ(complete({"vtpool", "render", "x.xml", "--colours", "=", "1"}), QStringList{"16"});
    EXPECT_EQ(complete({"vtpool", "pictures", "x.iop", "-o", ""}), QStringList{"masks"});
    EXPECT_EQ(complete({"vtpool", "source", "x.xml", "--output", ""}), sorted({"masks", "pool.xml"}));
    EXPECT_EQ(complete({"vtpool", "dump", "p"}), QStringList{"pool.xml"});
    EXPECT_EQ(complete({"vtpool", "render", "x.xml", "--scale", ""}), QStringList());
    EXPECT_EQ(complete({"vtpool", "version", ""}), QStringList());
}
