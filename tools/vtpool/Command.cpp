#include "tools/vtpool/Command.h"

#include <algorithm>
#include <cstring>
#include <iostream>

#include <QFile>

#include "tools/describe/Describer.h"
#include "tools/output/Output_file.h"
#include "tools/pool/Labels.h"
#include "tools/pool/Pool_loader.h"

namespace Vtpool {

Option Option::output(const QString& value_name, const QString& help)
{
    return {{"o", "output"}, value_name, help, true};
}

Option Option::lenient()
{
    return {{"lenient"}, "", "values of a description outside their range: warn and clamp instead of failing"};
}

QString Option::spelled(const QString& name)
{
    return (name.size() == 1 ? "-" : "--") + name;
}

QString Option::spelled() const
{
    QString longest;
    for (const QString& n : names)
        if (n.size() > longest.size())
            longest = n;
    return spelled(longest);
}

Invocation::Invocation(const Command& command, const QStringList& args) : cmd(command), args(args)
{
    // -name is read as --name, so that "-x" reports the unknown option as it was written.
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    for (const Option& o : cmd.options)
        parser.addOption(o.value_name.isEmpty() ? QCommandLineOption(o.names, o.help)
                                                : QCommandLineOption(o.names, o.help, o.value_name));
}

bool Invocation::read()
{
    // The parser takes the program's name first.
    if (!parser.parse(QStringList(QStringLiteral("vtpool")) + args)) {
        usage_error(diagnose_parse_error());
        return false;
    }
    for (const Option& o : cmd.options)
        if (!o.value_name.isEmpty() && !o.repeatable && parser.values(o.names.first()).size() > 1) {
            usage_error(QStringLiteral("%1 given twice").arg(o.spelled()));
            return false;
        }
    positional = parser.positionalArguments();
    if (positional.size() != cmd.arguments.size()) {
        if (cmd.arguments.isEmpty())
            usage_error(QStringLiteral("takes no arguments"));
        else if (cmd.arguments.size() == 1)
            usage_error(QStringLiteral("give exactly one %1").arg(cmd.arguments.first()));
        else
            usage_error(QStringLiteral("give exactly %1").arg(cmd.arguments.join(" and ")));
        return false;
    }
    for (const Option& o : cmd.options)
        if (o.required && !parser.isSet(o.names.first())) {
            usage_error(QStringLiteral("%1 %2 is required").arg(Option::spelled(o.names.first()), o.value_name));
            return false;
        }
    VT::Vt6_objects form;
    if (is_set("vt6-objects") && !VT::parse_vt6_objects(value("vt6-objects").toUtf8(), form)) {
        usage_error(QStringLiteral("--vt6-objects takes iso or legacy, not '%1'").arg(value("vt6-objects")));
        return false;
    }
    return true;
}

VT::Vt6_objects Invocation::vt6_objects() const
{
    VT::Vt6_objects form = VT::Vt6_objects::legacy;
    if (is_set("vt6-objects"))
        VT::parse_vt6_objects(value("vt6-objects").toUtf8(), form);
    return form;
}

Option Invocation::vt6_objects_option()
{
    return {{"vt6-objects"}, "iso|legacy",
            "how a pool file lays out types 46 to 48: as ISO 11783-6 (iso) or this library's PNG and special "
            "controls (legacy, the default); a description says it itself"};
}

// The parser says what went wrong only in a sentence of its own; the command line tells which
// option it was.
QString Invocation::diagnose_parse_error() const
{
    auto option_of = [&](const QString& arg) {
        const QString name = arg.mid(arg.startsWith("--") ? 2 : 1);
        return option(name.left(name.indexOf('=')));
    };
    for (int i = 0; i < args.size(); ++i) {
        const QString& arg = args[i];
        if (arg == "--")
            break;
        if (!arg.startsWith('-') || arg.size() < 2)
            continue;
        const Option* o = option_of(arg);
        if (!o)
            return QStringLiteral("unknown option %1").arg(arg.left(arg.indexOf('=')));
        const bool takes_value = !o->value_name.isEmpty();
        if (!takes_value && arg.contains('='))
            return QStringLiteral("%1 takes no value").arg(o->spelled());
        if (takes_value && !arg.contains('=') && ++i == args.size())
            return QStringLiteral("%1 needs a value").arg(o->spelled());
    }
    return parser.errorText();
}

const Option* Invocation::option(const QString& name) const
{
    for (const Option& o : cmd.options)
        if (o.names.contains(name))
            return &o;
    return nullptr;
}

bool Invocation::declares(const QString& name) const
{
    return option(name) != nullptr;
}

bool Invocation::is_set(const QString& name) const
{
    return declares(name) && parser.isSet(name);
}

QString Invocation::value(const QString& name) const
{
    return declares(name) ? parser.value(name) : QString();
}

QStringList Invocation::values(const QString& name) const
{
    return declares(name) ? parser.values(name) : QStringList();
}

int Invocation::usage_error(const QString& text) const
{
    std::cerr << "vtpool " << cmd.name << ": " << text.toStdString() << "\n"
              << "(vtpool " << cmd.name << " --help for usage)" << std::endl;
    return USAGE;
}

bool Invocation::load(Object_pool& pool, bool verbose, bool* is_description, VT::Check::Loaded* loaded) const
{
    pool.set_vt6_objects(vt6_objects());
    // --language chooses the language of a description where it takes a code (describe's
    // names language pools instead).
    const Option* chosen = option("language");
    const QByteArray code = !language.isEmpty()                              ? language
                            : chosen && chosen->value_name == "CODE" ? value("language").toUtf8()
                                                                     : QByteArray();
    VT::Check::Loaded l =
        VT::Check::load(argument(), pool, verbose || (declares("verbose") && is_set("verbose")), is_set("lenient"), code);
    for (const auto& d : l.duplicates)
        l.warnings.append(QStringLiteral("%1: %2 at offset %3 has the id of %4 at offset %5")
                              .arg(argument(), VT::object_label(pool.objects()[d.first]))
                              .arg(l.source.offsets.value(d.first))
                              .arg(VT::object_label(pool.objects()[d.second]))
                              .arg(l.source.offsets.value(d.second)));
    print_once(l.warnings, "warning: ");
    print_lines(l.problems, "error: ");
    if (is_description)
        *is_description = l.is_description;
    if (loaded)
        *loaded = l;
    return l.ok;
}

void Invocation::print_once(const QStringList& lines, const char* prefix) const
{
    // Only what an earlier call printed is left out: lines one call repeats are shown as given.
    QStringList fresh;
    for (const QString& l : lines)
        if (!printed.contains(prefix + l))
            fresh.append(l);
    for (const QString& l : fresh)
        printed.insert(prefix + l);
    print_lines(fresh, prefix);
}

bool Invocation::load_named(Object_pool& pool, bool* is_description) const
{
    if (is_description) {
        QFile f(argument());
        *is_description = f.open(QIODevice::ReadOnly) && VT::Pool_loader::looks_like_description(argument(), f.read(64));
    }
    QStringList problems, warnings;
    pool.set_vt6_objects(vt6_objects());
    VT::Object_names::By_id names;
    bool ok = !is_set("names") || VT::Object_names::read_header(value("names"), names, problems, warnings);
    ok = ok && VT::Describer::load_named(argument(), names, pool, problems, warnings, is_set("lenient"));
    print_once(warnings, "warning: ");
    print_lines(problems, "error: ");
    return ok;
}

Option Invocation::names_option()
{
    return {{"names"}, "IDS.h", "object names from an ID header (#define NAME ID lines)"};
}

Option Invocation::language_option()
{
    return {{"language"}, "CODE", "a description's texts in this language (one it declares) instead of the default"};
}

bool Invocation::write_output(const QString& path, const QByteArray& bytes)
{
    QString error;
    if (VT::Output_file::write_file(path, bytes, &error))
        return true;
    std::cerr << "error: " << error.toStdString() << std::endl;
    return false;
}

bool Invocation::parse_number(const QString& text, unsigned max, unsigned& out)
{
    bool ok = false;
    unsigned v = text.startsWith("0x") ? text.mid(2).toUInt(&ok, 16) : text.toUInt(&ok, 10);
    if (!ok || v > max)
        return false;
    out = v;
    return true;
}

bool Invocation::parse_size(const QString& text, unsigned& width, unsigned& height)
{
    QStringList parts = text.toLower().split('x');
    return parts.size() == 2 && parse_number(parts[0], 65535, width) && parse_number(parts[1], 65535, height) &&
           width > 0 && height > 0;
}

const char* const program_summary = "build, inspect, check and draw ISO 11783-6 object pools";
const char* const input_note = "POOL and INPUT are a pool description (XML) or a pool file (ISO 11783-6 bytes).";

const std::vector<Exit_meaning>& exit_meanings()
{
    static const std::vector<Exit_meaning> meanings{{OK, "fine"}, {PROBLEM, "a problem was found"}, {USAGE, "bad usage"}};
    return meanings;
}

QString command_synopsis(const Command& command)
{
    // The synopsis names the arguments, the required options and, when there are few, the others.
    QString synopsis = QStringLiteral("vtpool %1").arg(command.name);
    for (const QString& a : command.arguments)
        synopsis += " " + a;
    QStringList optional;
    for (const Option& o : command.options) {
        const QString written = Option::spelled(o.names.first()) + (o.value_name.isEmpty() ? "" : " " + o.value_name);
        if (o.required)
            synopsis += " " + written;
        else
            optional.append("[" + written + "]");
    }
    if (optional.size() > 2)
        optional = QStringList(QStringLiteral("[options]"));
    if (!optional.isEmpty())
        synopsis += " " + optional.join(' ');
    return synopsis;
}

QString command_help(const Command& command)
{
    QStringList left;
    int width = 0;
    for (const Option& o : command.options) {
        QStringList names;
        for (const QString& n : o.names)
            names.append(Option::spelled(n));
        left.append(names.join(", ") + (o.value_name.isEmpty() ? "" : " " + o.value_name));
        width = std::max(width, int(left.last().size()));
    }
    QString text = "usage: " + command_synopsis(command) + "\n\n" + command.help;
    if (!command.options.isEmpty())
        text += "\nOptions:\n";
    for (int i = 0; i < command.options.size(); ++i) {
        const Option& o = command.options[i];
        text += "  " + left[i].leftJustified(width + 3) + o.help + (o.required ? " (required)" : "") + "\n";
    }
    return text;
}

QString general_help()
{
    int width = 0;
    for (const Command& c : commands())
        width = std::max(width, int(strlen(c.name)));
    QString text = QStringLiteral("usage: vtpool COMMAND [ARGS] (vtpool COMMAND --help for details)\n\n"
                                  "vtpool: %1.\n\nCommands:\n")
                       .arg(program_summary);
    for (const Command& c : commands())
        text += "  " + QString::fromLatin1(c.name).leftJustified(width + 2) + c.summary + "\n";
    QStringList statuses;
    for (const Exit_meaning& e : exit_meanings())
        statuses.append(QStringLiteral("%1 %2").arg(e.status).arg(e.meaning));
    text += QStringLiteral("\n%1\nExit status: %2.\n").arg(input_note, statuses.join(", "));
    return text;
}

void print_languages(const VT::Check::Loaded& loaded, const QByteArray& built, std::ostream& out)
{
    const VT::Translations* t = loaded.source.translations.get();
    if (!t || t->languages().isEmpty())
        return;
    QStringList shown;
    for (const QByteArray& code : t->languages()) {
        QStringList notes;
        if (code == t->default_language())
            notes.append(QStringLiteral("default"));
        if (code == (built.isEmpty() ? t->default_language() : built))
            notes.append(QStringLiteral("built"));
        shown.append(QString::fromUtf8(code) + (notes.isEmpty() ? QString() : " (" + notes.join(", ") + ")"));
    }
    out << "languages: " << shown.join(", ").toStdString() << std::endl;
}

void print_lines(const QStringList& lines, const char* prefix)
{
    for (const QString& l : lines)
        std::cerr << prefix << l.toStdString() << std::endl;
}

}
