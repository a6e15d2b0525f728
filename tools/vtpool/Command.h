#ifndef TOOLS_VTPOOL_COMMAND_H
#define TOOLS_VTPOOL_COMMAND_H

#include <QCommandLineParser>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>
#include <ostream>
#include <vector>

#include "tools/check/Check_tool.h"
#include "tools/pool/Object_pool.h"

// The vtpool program: its commands and what they share.
namespace Vtpool {

using VT::Object_pool;

// Exit statuses of vtpool.
enum Exit_status { OK = 0, PROBLEM = 1, USAGE = 2 };

// One option of a command, as its help shows it and its parser reads it.
struct Option
{
    QStringList names;  // "o", "output": one letter is written -o, longer names --output
    QString value_name; // shown in the help ("FILE"); empty for an option that takes no value
    QString help;
    bool required = false;
    bool repeatable = false; // may be given more than once (Invocation::values)

    // -o VALUE, which every command that writes a file or folder requires.
    static Option output(const QString& value_name, const QString& help);
    // --lenient, which every command that reads a description accepts.
    static Option lenient();
    // A name as written on the command line: "-o", "--output".
    static QString spelled(const QString& name);
    // The longest name, spelled; options are named so in messages.
    QString spelled() const;
};

class Invocation;

// One command of vtpool: everything its help, its parser and its checks come from.
struct Command
{
    const char* name;
    const char* summary;   // one line in vtpool --help
    QStringList arguments; // the positional arguments, each given exactly once ("POOL")
    const char* help;      // what the command does, for vtpool COMMAND --help
    QVector<Option> options;
    int (*run)(Invocation& in); // called once the command line has been read and checked
};

// The commands of vtpool, in the order vtpool --help lists them (vtpool/main.cpp).
const std::vector<Command>& commands();

// One run of a command: its command line read and checked, and what every command does
// with it (report bad usage, load its input).
class Invocation
{
public:
    Invocation(const Command& command, const QStringList& args);

    // Reads the command line: unknown options, options given twice or without their value,
    // the count of positional arguments and required options. False after the usage error has
    // been printed.
    bool read();

    const Command& command() const { return cmd; }
    // The n-th positional argument.
    QString argument(int n = 0) const { return positional.value(n); }
    // The command's option of this name (without dashes), or null; whether the command has
    // one, and whether it was given.
    const Option* option(const QString& name) const;
    bool declares(const QString& name) const;
    bool is_set(const QString& name) const;
    QString value(const QString& name) const;
    // Every value of a repeatable option, in the order given.
    QStringList values(const QString& name) const;

    // Prints "vtpool COMMAND: text" and where to find the usage; returns USAGE.
    int usage_error(const QString& text) const;

    // Loads the first positional argument, a description or pool file, printing its problems
    // and warnings; false when it could not be built cleanly. Objects of a pool file whose id
    // an earlier object uses are kept, with a warning, so that they can be shown; `loaded`
    // receives what else the loading found. With the command's --verbose, what the library
    // said that the tool reports in its own words is shown as well.
    bool load(Object_pool& pool, bool verbose = false, bool* is_description = nullptr,
              VT::Check::Loaded* loaded = nullptr) const;
    // The language a description is loaded in from now on (empty: its default language, or
    // the command's --language).
    void set_language(const QByteArray& code) { language = code; }
    // Prints those of `lines` this invocation has not printed yet, each after `prefix`: a
    // description loaded once per language warns once.
    void print_once(const QStringList& lines, const char* prefix) const;
    // Loads it with its objects named as describe names them (and as --names gives them, where
    // the command has that option): a pool file goes through its description, so that its
    // references carry names.
    bool load_named(Object_pool& pool, bool* is_description = nullptr) const;

    // Writes a whole output file: to a temporary file beside it, renamed into place once written;
    // false after the error has been printed.
    static bool write_output(const QString& path, const QByteArray& bytes);

    // The option that names objects from an ID header.
    static Option names_option();
    // The option that chooses a description's language (docs/description-format.md).
    static Option language_option();
    // The option that says how a pool file lays out types 46 to 48 (Vt6_objects).
    static Option vt6_objects_option();
    // The form it gives (the default when the command has no such option or it was not given).
    VT::Vt6_objects vt6_objects() const;

    // Values of options: a decimal or 0x-hexadecimal number up to `max`, a size WIDTHxHEIGHT.
    static bool parse_number(const QString& text, unsigned max, unsigned& out);
    static bool parse_size(const QString& text, unsigned& width, unsigned& height);

private:
    QString diagnose_parse_error() const;

    const Command& cmd;
    QStringList args;
    QCommandLineParser parser;
    QStringList positional;
    QByteArray language;
    mutable QSet<QString> printed; // by print_once
};

// What vtpool is, what its POOL and INPUT arguments are, and what its exit statuses mean: said
// once here for its help and its manual.
extern const char* const program_summary;
extern const char* const input_note;
struct Exit_meaning
{
    Exit_status status;
    const char* meaning;
};
const std::vector<Exit_meaning>& exit_meanings();

// The help of one command, its first line without "usage: ", and the help of vtpool as a whole.
QString command_help(const Command& command);
QString command_synopsis(const Command& command);
QString general_help();

// "languages: en (default), de (built), fr" for a description that declares languages, built
// in `built` (empty: its default).
void print_languages(const VT::Check::Loaded& loaded, const QByteArray& built, std::ostream& out);

// Prints lines on the standard error stream, each after `prefix`.
void print_lines(const QStringList& lines, const char* prefix = "");

}

#endif
