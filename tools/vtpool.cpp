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
#include "tools/render/Png_writer.h"
#include "tools/render/Renderer.h"
#include "tools/terminal/Terminal.h"

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
    "  check     check containment rules, references and ids; report the VT version needed\n"
    "  pictures  write the pool's pictures as PNG files\n"
    "  info      objects and bytes per type, the largest objects\n"
    "  render    draw masks and objects as a terminal shows them, to PNG files\n"
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
         "  --verbose                show the library's chatter while building\n"},
        {"dump",
         "usage: vtpool dump POOL [--bytes]\n"
         "\n"
         "Prints every object with its attributes.\n"
         "  --bytes   add each object's bytes\n"},
        {"source",
         "usage: vtpool source DESCRIPTION -o FILE.cpp\n"
         "\n"
         "Writes C++ source that re-creates the pool: an Oids enumeration of the object ids,\n"
         "struct Pool_data with the arrays and struct Pool with the objects and the list\n"
         "Pool::objects. Object names must be C++ identifiers.\n"
         "  -o, --output FILE   where to write the source (required)\n"},
        {"check",
         "usage: vtpool check POOL [--vt-version N]\n"
         "\n"
         "Checks every parent/child pair against the containment rules, every reference,\n"
         "and that ids are unique; reports the lowest VT version the pool needs and the\n"
         "objects that need it.\n"
         "  --vt-version N   also report what VT version N lacks\n"},
        {"pictures",
         "usage: vtpool pictures POOL -o DIR\n"
         "\n"
         "Writes every picture graphic and PNG object as DIR/<name>.png.\n"
         "  -o, --output DIR   the folder to write into (created if missing)\n"},
        {"render",
         "usage: vtpool render POOL [-o FILE.png] [options]\n"
         "       vtpool render POOL --all -o DIR [options]\n"
         "\n"
         "Draws the working set's active mask as a terminal with the given properties shows\n"
         "it: the mask at the data-mask size, the soft keys of its soft-key mask beside it.\n"
         "Without -o the picture goes to POOL's name with .png in the current folder.\n"
         "\n"
         "  -o, --output FILE|DIR    the PNG file, or with --all the folder (created if missing)\n"
         "  --mask NAME|ID           draw this data, alarm or window mask instead\n"
         "  --object NAME|ID         draw this object alone, at its own size\n"
         "  --all                    draw every mask into DIR, with an index.html showing them\n"
         "  --scale N                enlarge N times (each pixel repeated; 1-16, default 1)\n"
         "  --colours 2|16|256       the terminal's colours (default 256)\n"
         "  --mask-size N|WxH        its data-mask size in pixels (default 480)\n"
         "  --key-size WxH           its soft-key designator size (default 60x60)\n"
         "  --soft-keys N            its physical soft keys beside the mask (0-64, default 6)\n"
         "  --small-fonts MASK       small font sizes it supports (bit 0 6x8 .. bit 7 32x32)\n"
         "  --large-fonts MASK       large font sizes it supports (bit 0 32x48 .. bit 6 128x192)\n"
         "  --font-styles MASK       font styles it supports (bit 0 bold, 1 crossed out, ...)\n"},
        {"info",
         "usage: vtpool info POOL\n"
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

// Loads POOL for a command; prints problems and warnings.
bool load_pool(const QString& path, Object_pool& pool, bool verbose = false, bool* is_description = nullptr)
{
    QStringList problems, warnings;
    bool ok = Pool_tools::load(path, pool, problems, warnings, verbose, is_description);
    print_lines(warnings, "warning: ");
    print_lines(problems, "error: ");
    return ok;
}

int cmd_build(const QStringList& args)
{
    Arguments a = parse_arguments(args,
                                  {"--output", "--colours", "--small-fonts", "--large-fonts", "--font-styles",
                                   "--vt-version", "--design-size", "--mask-size", "--design-key-size", "--key-size",
                                   "--chunk"},
                                  {"--verbose"});
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
    bool is_description = false;
    if (!load_pool(a.positional[0], pool, a.flags.contains("--verbose"), &is_description))
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
    Arguments a = parse_arguments(args, {}, {"--bytes"});
    if (!a.error.isEmpty())
        return usage_error("dump", a.error);
    if (a.positional.size() != 1)
        return usage_error("dump", "give exactly one POOL");
    Object_pool pool;
    bool ok = load_pool(a.positional[0], pool);
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
    if (!load_pool(a.positional[0], pool))
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
    Arguments a = parse_arguments(args, {"--vt-version"}, {});
    if (!a.error.isEmpty())
        return usage_error("check", a.error);
    if (a.positional.size() != 1)
        return usage_error("check", "give exactly one POOL");
    unsigned version = 0;
    if (a.options.contains("--vt-version") && (!parse_number(a.options["--vt-version"], 255, version) || version < 2))
        return usage_error("check", "--vt-version takes a VT version such as 3 or 6");
    Object_pool pool;
    if (!load_pool(a.positional[0], pool))
        return PROBLEM;
    Pool_tools::Check_result r = Pool_tools::check(pool, int(version));
    for (const QString& p : r.problems)
        std::cout << "problem: " << p.toStdString() << "\n";
    std::cout << pool.size() << " objects, " << r.problems.size() << " problems\n";
    if (r.needed_version) {
        std::cout << "needs VT version " << r.needed_version << ", because of:\n";
        const int shown = 20;
        for (int i = 0; i < r.needing.size() && i < shown; ++i)
            std::cout << "  " << r.needing[i].toStdString() << "\n";
        if (r.needing.size() > shown)
            std::cout << "  ... and " << r.needing.size() - shown << " more objects\n";
    }
    std::cout.flush();
    return r.problems.isEmpty() ? OK : PROBLEM;
}

int cmd_pictures(const QStringList& args)
{
    Arguments a = parse_arguments(args, {"--output"}, {});
    if (!a.error.isEmpty())
        return usage_error("pictures", a.error);
    if (a.positional.size() != 1)
        return usage_error("pictures", "give exactly one POOL");
    if (!a.options.contains("--output"))
        return usage_error("pictures", "-o DIR is required");
    Object_pool pool;
    if (!load_pool(a.positional[0], pool))
        return PROBLEM;
    QString dir = a.options["--output"];
    if (!QDir().mkpath(dir)) {
        std::cerr << "error: cannot create '" << dir.toStdString() << "'" << std::endl;
        return PROBLEM;
    }
    QStringList problems;
    QStringList written = Pictures::write_all(pool, dir, problems);
    for (const QString& w : written)
        std::cout << w.toStdString() << "\n";
    print_lines(problems, "error: ");
    std::cout << written.size() << " pictures written" << std::endl;
    return problems.isEmpty() ? OK : PROBLEM;
}

int cmd_info(const QStringList& args)
{
    Arguments a = parse_arguments(args, {}, {});
    if (!a.error.isEmpty())
        return usage_error("info", a.error);
    if (a.positional.size() != 1)
        return usage_error("info", "give exactly one POOL");
    Object_pool pool;
    if (!load_pool(a.positional[0], pool))
        return PROBLEM;
    Pool_tools::info(pool, std::cout);
    std::cout.flush();
    return OK;
}

// The object a NAME|ID option names: by name first, then by id.
VT_obj* find_named(Object_pool& pool, const QString& text)
{
    if (VT_obj* obj = pool.find(text.toUtf8()))
        return obj;
    unsigned id = 0;
    return parse_number(text, 65534, id) ? pool.find(uint16_t(id)) : nullptr;
}

// A file name from an object name: letters, digits, '-' and '_' kept, anything else '_'.
QString file_name_for(const QString& name)
{
    QString out;
    for (QChar c : name)
        out += (c.isLetterOrNumber() && c.unicode() < 128) || c == '-' || c == '_' ? c : QChar('_');
    return out.isEmpty() ? QStringLiteral("object") : out;
}

QString html_escaped(const QString& text)
{
    return text.toHtmlEscaped();
}

int cmd_render(const QStringList& args)
{
    Arguments a = parse_arguments(args,
                                  {"--output", "--mask", "--object", "--scale", "--colours", "--mask-size",
                                   "--key-size", "--soft-keys", "--small-fonts", "--large-fonts", "--font-styles"},
                                  {"--all"});
    if (!a.error.isEmpty())
        return usage_error("render", a.error);
    if (a.positional.size() != 1)
        return usage_error("render", "give exactly one POOL");
    const bool all = a.flags.contains("--all");
    if (int(all) + int(a.options.contains("--mask")) + int(a.options.contains("--object")) > 1)
        return usage_error("render", "--all, --mask and --object exclude each other");
    if (all && !a.options.contains("--output"))
        return usage_error("render", "--all needs -o DIR");

    Terminal terminal;
    unsigned scale = 1;
    if (a.options.contains("--scale") && (!parse_number(a.options["--scale"], 16, scale) || scale == 0))
        return usage_error("render", "--scale takes a whole number from 1 to 16");
    if (a.options.contains("--colours")) {
        const QString c = a.options["--colours"];
        if (c != "2" && c != "16" && c != "256")
            return usage_error("render", "--colours takes 2, 16 or 256");
        terminal.colours = c.toInt();
    }
    if (a.options.contains("--mask-size")) {
        unsigned w = 0, h = 0;
        const QString size = a.options["--mask-size"];
        if (parse_number(size, 8192, w) && w > 0)
            h = w;
        else if (!parse_size(size, w, h) || w > 8192 || h > 8192)
            return usage_error("render", "--mask-size takes N or WIDTHxHEIGHT (at most 8192)");
        terminal.data_mask_width = uint16_t(w);
        terminal.data_mask_height = uint16_t(h);
    }
    if (a.options.contains("--key-size")) {
        unsigned w = 0, h = 0;
        if (!parse_size(a.options["--key-size"], w, h) || w > 8192 || h > 8192)
            return usage_error("render", "--key-size takes WIDTHxHEIGHT (at most 8192)");
        terminal.key_width = uint16_t(w);
        terminal.key_height = uint16_t(h);
    }
    if (a.options.contains("--soft-keys")) {
        unsigned n = 0;
        if (!parse_number(a.options["--soft-keys"], 64, n))
            return usage_error("render", "--soft-keys takes a number from 0 to 64");
        terminal.physical_soft_keys = uint8_t(n);
    }
    struct Mask_option
    {
        const char* name;
        uint8_t* field;
    } masks[] = {{"--small-fonts", &terminal.small_fonts},
                 {"--large-fonts", &terminal.large_fonts},
                 {"--font-styles", &terminal.font_styles}};
    for (const Mask_option& m : masks)
        if (a.options.contains(m.name)) {
            unsigned v = 0;
            if (!parse_number(a.options[m.name], 255, v))
                return usage_error("render", QStringLiteral("%1 takes a mask from 0 to 255").arg(m.name));
            *m.field = uint8_t(v);
        }

    Object_pool pool;
    if (!load_pool(a.positional[0], pool))
        return PROBLEM;
    Render::Renderer renderer(terminal, pool);
    auto report_cut = [&renderer](VT_obj* obj) {
        if (renderer.truncated())
            std::cerr << "warning: " << Pool_tools::label(obj).toStdString()
                      << " asks for more drawing than a picture may take; the drawing stops early" << std::endl;
    };
    QString error;

    if (all) {
        const QString dir = a.options["--output"];
        if (!QDir().mkpath(dir)) {
            std::cerr << "error: cannot create '" << dir.toStdString() << "'" << std::endl;
            return PROBLEM;
        }
        const QVector<VT_obj*> list = Render::Renderer::masks(pool);
        QString html = QStringLiteral("<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>%1</title>\n"
                                      "<style>body{font-family:sans-serif} figure{display:inline-block;"
                                      "margin:8px;vertical-align:top} img{border:1px solid #888;"
                                      "image-rendering:pixelated}</style></head><body>\n<h1>%1</h1>\n")
                           .arg(html_escaped(QFileInfo(a.positional[0]).fileName()));
        QSet<QString> used;
        for (VT_obj* mask : list) {
            const QString name = QString::fromUtf8(mask->VT_obj_base::get_name());
            QString file = file_name_for(name);
            if (used.contains(file))
                file += QStringLiteral("_%1").arg(mask->get_id());
            used.insert(file);
            file += ".png";
            const Render::Canvas picture = renderer.render_screen(mask);
            report_cut(mask);
            if (!Render::write_png(picture, QDir(dir).filePath(file), int(scale), &error)) {
                std::cerr << "error: " << error.toStdString() << std::endl;
                return PROBLEM;
            }
            std::cout << QDir(dir).filePath(file).toStdString() << "\n";
            html += QStringLiteral("<figure><img src=\"%1\" alt=\"%2\"><figcaption>%2 (%3 %4)</figcaption></figure>\n")
                        .arg(html_escaped(file), html_escaped(name),
                             QString::fromLatin1(mask->get_type_string()))
                        .arg(mask->get_id());
        }
        html += QStringLiteral("</body></html>\n");
        if (!Render::write_file_atomically(html.toUtf8(), QDir(dir).filePath("index.html"), &error)) {
            std::cerr << "error: " << error.toStdString() << std::endl;
            return PROBLEM;
        }
        std::cout << list.size() << " masks drawn" << std::endl;
        return OK;
    }

    VT_obj* target = nullptr;
    Render::Canvas picture(1, 1);
    if (a.options.contains("--object")) {
        target = find_named(pool, a.options["--object"]);
        if (!target) {
            std::cerr << "error: no object '" << a.options["--object"].toStdString() << "' in the pool" << std::endl;
            return PROBLEM;
        }
        if (renderer.object_size(target).empty()) {
            std::cerr << "error: " << Pool_tools::label(target).toStdString() << " has nothing to draw" << std::endl;
            return PROBLEM;
        }
        picture = renderer.render_object(target);
    } else {
        if (a.options.contains("--mask")) {
            target = find_named(pool, a.options["--mask"]);
            if (!target) {
                std::cerr << "error: no mask '" << a.options["--mask"].toStdString() << "' in the pool" << std::endl;
                return PROBLEM;
            }
            if (!Render::Renderer::masks(pool).contains(target)) {
                std::cerr << "error: " << Pool_tools::label(target).toStdString()
                          << " is not a data, alarm or window mask" << std::endl;
                return PROBLEM;
            }
        } else {
            target = Render::Renderer::active_mask(pool);
            if (!target) {
                std::cerr << "error: the pool has no working set with an active mask; name one with --mask"
                          << std::endl;
                return PROBLEM;
            }
        }
        picture = renderer.render_screen(target);
    }
    report_cut(target);
    const QString out = a.options.value("--output", QFileInfo(a.positional[0]).completeBaseName() + ".png");
    if (!Render::write_png(picture, out, int(scale), &error)) {
        std::cerr << "error: " << error.toStdString() << std::endl;
        return PROBLEM;
    }
    std::cout << "drew " << Pool_tools::label(target).toStdString() << " to " << out.toStdString() << std::endl;
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
        {"render", cmd_render},
    };
    if (!commands.contains(command)) {
        std::cerr << "vtpool: unknown command '" << command.toStdString() << "'\n\n" << general_help;
        return USAGE;
    }
    if (args.contains("--help") || args.contains("-h")) {
        std::cout << command_help().value(command).toStdString();
        return OK;
    }
    return commands.value(command)(args);
}
