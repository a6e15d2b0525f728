// vtpool: builds, inspects and checks ISO 11783-6 object pools from pool descriptions (XML)
// or pool files. Exit status: 0 fine, 1 a problem was found, 2 bad usage.
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QStringList>
#include <cstdio>
#include <fstream>
#include <functional>
#include <iostream>
#include <sstream>

#include "tools/Object_pool.h"
#include "tools/Pictures.h"
#include "tools/Pool_file.h"
#include "tools/Pool_tools.h"
#include "tools/check/Check_tool.h"
#include "tools/check/Rules.h"

using namespace VT;

namespace {

const int OK = 0;
const int PROBLEM = 1;
const int USAGE = 2;

const char* const general_help =
    "usage: vtpool COMMAND [ARGS] (vtpool COMMAND --help for details)\n"
    "\n"
    "Commands:\n"
    "  build     build a description or pool file into pool bytes for a terminal\n"
    "  dump      print every object of a pool\n"
    "  source    generate C++ source that compiles the pool in\n"
    "  check     check the pool against what terminals expect; report the VT version needed\n"
    "  pictures  write the pool's pictures as PNG files\n"
    "  info      objects and bytes per type, the largest objects\n"
    "\n"
    "POOL and INPUT are a pool description (XML) or a pool file (ISO 11783-6 bytes).\n"
    "Exit status: 0 fine, 1 a problem was found, 2 bad usage.\n";

const QMap<QString, QString>& command_help()
{
    static const QMap<QString, QString> help{
        {"build",
         "usage: vtpool build INPUT -o POOL.iop [options]\n"
         "\n"
         "Builds INPUT (a description or a pool file) and writes its bytes as they would be\n"
         "uploaded to a terminal with the given properties. Without terminal options a pool\n"
         "file is written back as it was read.\n"
         "\n"
         "  -o, --output FILE        where to write the pool (required)\n"
         "  --colours 2|16|256       the terminal's colours (default 256)\n"
         "  --small-fonts MASK       small font sizes it supports (bits 0-6, default 255)\n"
         "  --large-fonts MASK       large font sizes it supports (default 255)\n"
         "  --font-styles MASK       font styles it supports (default 255)\n"
         "  --vt-version N           the VT version it speaks (2-6)\n"
         "  --design-size WxH        the data-mask size the pool was designed for\n"
         "  --mask-size N            the terminal's data-mask size (needs --design-size)\n"
         "  --design-key-size WxH    the soft-key size the pool was designed for\n"
         "  --key-size WxH           the terminal's soft-key size (needs --design-key-size)\n"
         "  --chunk N                bytes per transfer buffer while writing (default 1785)\n"
         "  --no-check               build even when the checks find errors\n"
         "  --verbose                also show what the library said that is reported otherwise\n"
         "\n"
         "The pool is checked first (the error rules of vtpool check, with --vt-version when\n"
         "given) and not built when an error is found; a pool file using an id twice is\n"
         "never built.\n"},
        {"dump",
         "usage: vtpool dump POOL [--bytes] [--verbose]\n"
         "\n"
         "Prints every object with its attributes (objects sharing an id all of them).\n"
         "  --bytes   add each object's bytes\n"},
        {"source",
         "usage: vtpool source DESCRIPTION -o FILE.cpp\n"
         "\n"
         "Writes C++ source that re-creates the pool: an Oids enumeration of the object ids,\n"
         "struct Pool_data with the arrays and struct Pool with the objects and the list\n"
         "Pool::objects. Object names must be C++ identifiers.\n"
         "  -o, --output FILE   where to write the source (required)\n"},
        {"check",
         "usage: vtpool check POOL [--vt-version N] [--format text|json] [--werror] [--verbose]\n"
         "\n"
         "Checks the pool against what terminals expect of it: references, containment,\n"
         "ids, macros, events, ranges, pictures and more (the rules are listed below).\n"
         "Prints one line per finding, errors first, then a summary and the lowest VT\n"
         "version the pool needs with the objects that decide it.\n"
         "  --vt-version N     also report, as errors, what VT version N lacks\n"
         "  --format json      one JSON document instead (docs/check-format.md)\n"
         "  --werror           exit with status 1 on warnings too\n"
         "  --verbose          also show what the library said that is reported otherwise\n"
         "Exit status: 0 no errors, 1 errors (or warnings with --werror), 2 bad usage.\n"},
        {"pictures",
         "usage: vtpool pictures POOL -o DIR [--verbose]\n"
         "\n"
         "Writes every picture graphic and PNG object as DIR/<name>.png.\n"
         "  -o, --output DIR   the folder to write into (created if missing)\n"},
        {"info",
         "usage: vtpool info POOL [--verbose]\n"
         "\n"
         "Objects and bytes per type, and the largest objects.\n"},
    };
    return help;
}

int usage_error(const QString& command, const QString& text)
{
    std::cerr << "vtpool " << command.toStdString() << ": " << text.toStdString() << "\n"
              << "(vtpool " << command.toStdString() << " --help for usage)" << std::endl;
    return USAGE;
}

// Command line of one command: positional arguments and options with values.
struct Arguments
{
    QStringList positional;
    QMap<QString, QString> options;
    QStringList flags;
    QString error;
};

Arguments parse_arguments(const QStringList& args, const QStringList& with_value, const QStringList& flags)
{
    Arguments a;
    for (int i = 0; i < args.size(); ++i) {
        QString arg = args[i];
        if (arg == "-o")
            arg = "--output";
        if (arg.startsWith("--")) {
            QString value;
            int eq = arg.indexOf('=');
            if (eq > 0) {
                value = arg.mid(eq + 1);
                arg = arg.left(eq);
            }
            if (with_value.contains(arg)) {
                if (eq < 0) {
                    if (i + 1 >= args.size()) {
                        a.error = QStringLiteral("%1 needs a value").arg(arg);
                        return a;
                    }
                    value = args[++i];
                }
                if (a.options.contains(arg)) {
                    a.error = QStringLiteral("%1 given twice").arg(arg);
                    return a;
                }
                a.options.insert(arg, value);
            } else if (flags.contains(arg) && eq < 0) {
                a.flags.append(arg);
            } else {
                a.error = QStringLiteral("unknown option %1").arg(arg);
                return a;
            }
        } else if (arg.startsWith('-') && arg.size() > 1) {
            a.error = QStringLiteral("unknown option %1").arg(arg);
            return a;
        } else {
            a.positional.append(arg);
        }
    }
    return a;
}

bool parse_number(const QString& text, unsigned max, unsigned& out)
{
    bool ok = false;
    unsigned v = text.startsWith("0x") ? text.mid(2).toUInt(&ok, 16) : text.toUInt(&ok, 10);
    if (!ok || v > max)
        return false;
    out = v;
    return true;
}

bool parse_size(const QString& text, unsigned& w, unsigned& h)
{
    QStringList parts = text.toLower().split('x');
    return parts.size() == 2 && parse_number(parts[0], 65535, w) && parse_number(parts[1], 65535, h) && w > 0 && h > 0;
}

void print_lines(const QStringList& lines, const char* prefix = "")
{
    for (const QString& l : lines)
        std::cerr << prefix << l.toStdString() << std::endl;
}

// Loads POOL for a command; prints problems and warnings. Objects of pool files whose id is
// taken are kept, so that they can be shown.
bool load_pool(const QString& path, Object_pool& pool, bool verbose = false, Check::Loaded* loaded = nullptr)
{
    Check::Loaded l = Check::load(path, pool, verbose);
    for (const auto& d : l.duplicates)
        l.warnings.append(QStringLiteral("%1: %2 at offset %3 has the id of %4 at offset %5")
                              .arg(path, Pool_tools::label(pool.objects()[d.first]))
                              .arg(l.source.offsets.value(d.first))
                              .arg(Pool_tools::label(pool.objects()[d.second]))
                              .arg(l.source.offsets.value(d.second)));
    print_lines(l.warnings, "warning: ");
    print_lines(l.problems, "error: ");
    if (loaded)
        *loaded = l;
    return l.ok;
}

int cmd_build(const QStringList& args)
{
    Arguments a = parse_arguments(args,
                                  {"--output", "--colours", "--small-fonts", "--large-fonts", "--font-styles",
                                   "--vt-version", "--design-size", "--mask-size", "--design-key-size", "--key-size",
                                   "--chunk"},
                                  {"--verbose", "--no-check"});
    if (!a.error.isEmpty())
        return usage_error("build", a.error);
    if (a.positional.size() != 1)
        return usage_error("build", "give exactly one INPUT");
    if (!a.options.contains("--output"))
        return usage_error("build", "-o POOL.iop is required");

    Serialisation_limits limits;
    bool terminal = false;
    if (a.options.contains("--colours")) {
        QString c = a.options["--colours"];
        if (c == "2")
            limits.colour_format = MONOCHROME;
        else if (c == "16")
            limits.colour_format = FOUR_BIT_COLOUR;
        else if (c == "256")
            limits.colour_format = EIGHT_BIT_COLOUR;
        else
            return usage_error("build", "--colours takes 2, 16 or 256");
        terminal = true;
    }
    struct Mask_option
    {
        const char* name;
        uint8_t* field;
    } masks[] = {{"--small-fonts", &limits.small_font_mask},
                 {"--large-fonts", &limits.large_font_mask},
                 {"--font-styles", &limits.font_style_mask}};
    for (const Mask_option& m : masks)
        if (a.options.contains(m.name)) {
            unsigned v = 0;
            if (!parse_number(a.options[m.name], 255, v))
                return usage_error("build", QStringLiteral("%1 takes a mask from 0 to 255").arg(m.name));
            *m.field = uint8_t(v);
            terminal = true;
        }
    unsigned version = 0;
    if (a.options.contains("--vt-version")) {
        if (!parse_number(a.options["--vt-version"], 255, version) || version < 2)
            return usage_error("build", "--vt-version takes a VT version such as 3 or 6");
        terminal = true;
    }
    Pool_tools::Ratio mask_ratio, key_ratio;
    if (a.options.contains("--mask-size") != a.options.contains("--design-size"))
        return usage_error("build", "--mask-size and --design-size go together");
    if (a.options.contains("--key-size") != a.options.contains("--design-key-size"))
        return usage_error("build", "--key-size and --design-key-size go together");
    if (a.options.contains("--mask-size")) {
        unsigned n = 0, w = 0, h = 0;
        if (!parse_number(a.options["--mask-size"], 65535, n) || n == 0)
            return usage_error("build", "--mask-size takes the data-mask size in pixels");
        if (!parse_size(a.options["--design-size"], w, h))
            return usage_error("build", "--design-size takes WIDTHxHEIGHT");
        mask_ratio = {true, uint16_t(n), uint16_t(n), uint16_t(w), uint16_t(h)};
        terminal = true;
    }
    if (a.options.contains("--key-size")) {
        unsigned w = 0, h = 0, dw = 0, dh = 0;
        if (!parse_size(a.options["--key-size"], w, h))
            return usage_error("build", "--key-size takes WIDTHxHEIGHT");
        if (!parse_size(a.options["--design-key-size"], dw, dh))
            return usage_error("build", "--design-key-size takes WIDTHxHEIGHT");
        key_ratio = {true, uint16_t(w), uint16_t(h), uint16_t(dw), uint16_t(dh)};
        terminal = true;
    }
    unsigned chunk = 1785;
    if (a.options.contains("--chunk") && (!parse_number(a.options["--chunk"], 1 << 24, chunk) || chunk == 0))
        return usage_error("build", "--chunk takes a positive number of bytes");

    Object_pool pool;
    Check::Loaded loaded;
    if (!load_pool(a.positional[0], pool, a.flags.contains("--verbose"), &loaded))
        return PROBLEM;
    const bool is_description = loaded.is_description;
    if (!Check::may_build(loaded, pool, int(version), !a.flags.contains("--no-check"), std::cerr))
        return PROBLEM;
    pool.set_serialisation_limits(limits);
    if (version) {
        pool.set_negotiated_version(uint8_t(version));
        QSet<uint8_t> types;
        for (unsigned t = 0; t < 48; ++t)
            if (Pool_tools::type_version(t) <= int(version))
                types.insert(uint8_t(t));
        pool.set_supported_types(types);
    }
    if (mask_ratio.active || key_ratio.active) {
        if (!is_description)
            Pool_tools::propagate_areas(pool);
        Pool_tools::scale(pool, mask_ratio, key_ratio);
    }

    QString out_path = a.options["--output"];
    QFile out(out_path);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        std::cerr << "error: cannot write '" << out_path.toStdString() << "': " << out.errorString().toStdString()
                  << std::endl;
        return PROBLEM;
    }
    qint64 written = 0;
    bool write_failed = false;
    QByteArray streamed;
    Pool_file::write_chunks(pool, int(chunk), [&](const uint8_t* p, int n) {
        streamed.append(reinterpret_cast<const char*>(p), n);
        if (out.write(reinterpret_cast<const char*>(p), n) != n)
            write_failed = true;
        written += n;
    });
    out.close();
    if (write_failed || out.error() != QFile::NoError) {
        std::cerr << "error: writing '" << out_path.toStdString() << "' failed" << std::endl;
        return PROBLEM;
    }
    // The upload in buffers must give the bytes of the whole pool serialised at once.
    if (streamed != Pool_file::write(pool)) {
        std::cerr << "error: the pool serialised in buffers of " << chunk
                  << " bytes differs from the pool serialised at once" << std::endl;
        return PROBLEM;
    }
    if (!is_description && !terminal) {
        QFile in(a.positional[0]);
        if (in.open(QIODevice::ReadOnly) && in.readAll() != streamed)
            std::cerr << "warning: the pool written differs from the pool read" << std::endl;
    }
    std::cout << "wrote " << pool.size() << " objects, " << written << " bytes to " << out_path.toStdString()
              << std::endl;
    return OK;
}

int cmd_dump(const QStringList& args)
{
    Arguments a = parse_arguments(args, {}, {"--bytes", "--verbose"});
    if (!a.error.isEmpty())
        return usage_error("dump", a.error);
    if (a.positional.size() != 1)
        return usage_error("dump", "give exactly one POOL");
    Object_pool pool;
    bool ok = load_pool(a.positional[0], pool, a.flags.contains("--verbose"));
    Debug::Text_dumper dumper(std::cout);
    for (VT_obj* obj : pool.objects()) {
        obj->print_me(std::cout, 0);
        if (a.flags.contains("--bytes"))
            obj->serialise(dumper, true);
    }
    std::cout.flush();
    return ok ? OK : PROBLEM;
}

int cmd_source(const QStringList& args)
{
    Arguments a = parse_arguments(args, {"--output"}, {});
    if (!a.error.isEmpty())
        return usage_error("source", a.error);
    if (a.positional.size() != 1)
        return usage_error("source", "give exactly one DESCRIPTION");
    if (!a.options.contains("--output"))
        return usage_error("source", "-o FILE.cpp is required");
    Object_pool pool;
    Check::Loaded loaded;
    if (!load_pool(a.positional[0], pool, false, &loaded) || !Check::may_build(loaded, pool, 0, false, std::cerr))
        return PROBLEM;
    std::ostringstream text;
    QString error;
    if (!Pool_tools::generate_source(pool, a.positional[0], text, &error)) {
        std::cerr << "error: " << error.toStdString() << std::endl;
        return PROBLEM;
    }
    QString out_path = a.options["--output"];
    QFile out(out_path);
    std::string s = text.str();
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate) || out.write(s.data(), qint64(s.size())) != qint64(s.size())) {
        std::cerr << "error: cannot write '" << out_path.toStdString() << "'" << std::endl;
        return PROBLEM;
    }
    return OK;
}

int cmd_check(const QStringList& args)
{
    Arguments a = parse_arguments(args, {"--vt-version", "--format"}, {"--werror", "--verbose"});
    if (!a.error.isEmpty())
        return usage_error("check", a.error);
    if (a.positional.size() != 1)
        return usage_error("check", "give exactly one POOL");
    Check::Check_request request;
    request.path = a.positional[0];
    unsigned version = 0;
    if (a.options.contains("--vt-version") && (!parse_number(a.options["--vt-version"], 255, version) || version < 2))
        return usage_error("check", "--vt-version takes a VT version such as 3 or 6");
    request.options.vt_version = int(version);
    const QString format = a.options.value("--format", "text");
    if (format != "text" && format != "json")
        return usage_error("check", "--format takes text or json");
    request.json = format == "json";
    request.werror = a.flags.contains("--werror");
    request.verbose = a.flags.contains("--verbose");
    return Check::run_check(request, std::cout);
}

int cmd_pictures(const QStringList& args)
{
    Arguments a = parse_arguments(args, {"--output"}, {"--verbose"});
    if (!a.error.isEmpty())
        return usage_error("pictures", a.error);
    if (a.positional.size() != 1)
        return usage_error("pictures", "give exactly one POOL");
    if (!a.options.contains("--output"))
        return usage_error("pictures", "-o DIR is required");
    Object_pool pool;
    if (!load_pool(a.positional[0], pool, a.flags.contains("--verbose")))
        return PROBLEM;
    QString dir = a.options["--output"];
    if (!QDir().mkpath(dir)) {
        std::cerr << "error: cannot create '" << dir.toStdString() << "'" << std::endl;
        return PROBLEM;
    }
    QStringList problems, warnings;
    QStringList written = Pictures::write_all(pool, dir, problems, &warnings);
    for (const QString& w : written)
        std::cout << w.toStdString() << "\n";
    print_lines(warnings, "warning: ");
    print_lines(problems, "error: ");
    std::cout << written.size() << " pictures written" << std::endl;
    return problems.isEmpty() ? OK : PROBLEM;
}

int cmd_info(const QStringList& args)
{
    Arguments a = parse_arguments(args, {}, {"--verbose"});
    if (!a.error.isEmpty())
        return usage_error("info", a.error);
    if (a.positional.size() != 1)
        return usage_error("info", "give exactly one POOL");
    Object_pool pool;
    if (!load_pool(a.positional[0], pool, a.flags.contains("--verbose")))
        return PROBLEM;
    Pool_tools::info(pool, std::cout);
    std::cout.flush();
    return OK;
}

}

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QStringList args;
    for (int i = 1; i < argc; ++i)
        args.append(QString::fromLocal8Bit(argv[i]));
    if (args.isEmpty()) {
        std::cerr << general_help;
        return USAGE;
    }
    QString command = args.takeFirst();
    if (command == "--help" || command == "-h" || command == "help") {
        std::cout << general_help;
        return OK;
    }
    static const QMap<QString, std::function<int(const QStringList&)>> commands{
        {"build", cmd_build}, {"dump", cmd_dump},         {"source", cmd_source},
        {"check", cmd_check}, {"pictures", cmd_pictures}, {"info", cmd_info},
    };
    if (!commands.contains(command)) {
        std::cerr << "vtpool: unknown command '" << command.toStdString() << "'\n\n" << general_help;
        return USAGE;
    }
    if (args.contains("--help") || args.contains("-h")) {
        std::cout << command_help().value(command).toStdString();
        if (command == "check") {
            std::cout << "\nRules:\n";
            for (const Check::Rule& r : Check::rules())
                std::cout << "  " << QString::fromLatin1(r.id).leftJustified(16).toStdString()
                          << (r.severity == Check::Severity::error ? "error    " : "warning  ") << r.summary << "\n";
        }
        return OK;
    }
    return commands.value(command)(args);
}
