// vtpool describe: a pool written as a description (and its pictures) that builds the same bytes.
#include <QDir>
#include <QFile>
#include <iostream>

#include "tools/describe/Describer.h"
#include "tools/describe/Language_pools.h"
#include "tools/pool/Pool_file.h"
#include "tools/vtpool/Command.h"

namespace Vtpool {

namespace {

// The pools --language CODE=FILE names; false after the usage error has been printed.
bool language_files(Invocation& in, QVector<QPair<QByteArray, QString>>& out)
{
    for (const QString& v : in.values("language")) {
        const int at = v.indexOf('=');
        if (at < 1 || at + 1 == v.size()) {
            in.usage_error(QStringLiteral("--language takes CODE=FILE (de=pool_de.iop), not '%1'").arg(v));
            return false;
        }
        out.append({v.left(at).toUtf8(), v.mid(at + 1)});
    }
    if (out.isEmpty() && in.is_set("default-language")) {
        in.usage_error(QStringLiteral("--default-language goes with --language CODE=FILE"));
        return false;
    }
    return true;
}

// The texts of the pool in the languages `files` names, read against the pool; false once the
// reason is printed.
bool read_languages(const Invocation& in, Object_pool& pool, const QByteArray& bytes,
                    const QVector<QPair<QByteArray, QString>>& files, VT::Described_languages& out)
{
    QVector<VT::Language_pools::Given> pools;
    for (const auto& file : files) {
        QFile f(file.second);
        if (!f.open(QIODevice::ReadOnly)) {
            std::cerr << "error: " << file.second.toStdString() << ": " << f.errorString().toStdString() << std::endl;
            return false;
        }
        pools.append({file.first, file.second, f.readAll()});
    }
    const QByteArray code = in.is_set("default-language") ? in.value("default-language").toUtf8()
                                                          : VT::Language_pools::default_language(pool);
    QStringList problems;
    if (!VT::Language_pools::read(pool, bytes, in.argument(), code, pools, out, problems)) {
        print_lines(problems, "error: ");
        return false;
    }
    return true;
}

int run(Invocation& in)
{
    VT::Object_names::By_id names;
    QStringList problems, warnings;
    if (in.is_set("names") && !VT::Object_names::read_header(in.value("names"), names, problems, warnings)) {
        print_lines(problems, "error: ");
        return PROBLEM;
    }
    QVector<QPair<QByteArray, QString>> language_pools;
    if (!language_files(in, language_pools))
        return USAGE;
    Object_pool pool;
    bool is_description = false;
    if (!in.load(pool, false, &is_description))
        return PROBLEM;
    // A description is described as it builds; a pool file must come back as the file is.
    QByteArray expected = VT::Pool_file::write(pool);
    if (!is_description) {
        QFile f(in.argument());
        const QByteArray file = f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
        if (file != expected) {
            const QString why = VT::Describer::first_difference(pool, file);
            if (!in.is_set("accept-changes")) {
                std::cerr << "error: " << in.argument().toStdString() << ": the pool as read differs from the file ("
                          << why.toStdString() << "); --accept-changes describes it as read" << std::endl;
                return PROBLEM;
            }
            warnings.append(QStringLiteral("%1: described as read, which differs from the file (%2)")
                                .arg(in.argument(), why));
        }
    }
    VT::Described_languages languages;
    const bool in_languages = !language_pools.isEmpty();
    if (in_languages && !read_languages(in, pool, expected, language_pools, languages))
        return PROBLEM;
    VT::Written_description text;
    const bool ok = VT::Describer::describe(pool, expected, {names, in.argument(), in_languages ? &languages : nullptr},
                                            text, problems, warnings);
    print_lines(warnings, "warning: ");
    if (!ok || !VT::Describer::save(text, in.value("output"), problems)) {
        print_lines(problems, "error: ");
        return PROBLEM;
    }
    const int tables = in_languages ? languages.codes.size() - 1 : 0;
    std::cout << "wrote " << QDir(in.value("output")).filePath("pool.xml").toStdString() << " (" << pool.size()
              << " objects) and " << text.files.size() - tables << " pictures";
    if (in_languages)
        std::cout << ", in " << languages.codes.join(' ').toStdString() << " with " << tables << " text tables";
    std::cout << std::endl;
    return OK;
}

}

Command describe_command()
{
    return {"describe",
            "write a pool as a description that builds the same bytes",
            {"POOL"},
            "Writes DIR/pool.xml, a description of POOL (a pool file or a description), and its\n"
            "pictures as DIR/pictures/*.png, such that vtpool build DIR/pool.xml gives POOL's\n"
            "bytes again: same ids, order and data. The description is built and compared before\n"
            "it is written; a pool it could not give back is refused, naming the objects.\n"
            "Objects are named <Type>_<id>, or as an ID header names them (--names).\n"
            "Given the pools of further languages (--language, whole pools or only the objects a\n"
            "language changes), the description declares the languages and their texts stand in\n"
            "DIR/texts/CODE.txt, such that vtpool build --language CODE gives each language's pool;\n"
            "objects that differ in more than their texts are refused (docs/description-format.md).\n",
            {Option::output("DIR", "the folder to write into, created if missing"),
             Invocation::names_option(),
             {{"accept-changes"}, "", "describe a pool whose values the reader had to clamp, as read"},
             {{"language"}, "CODE=FILE", "the pool in a further language (repeatable: de=pool_de.iop)", false, true},
             {{"default-language"}, "CODE", "POOL's language (default: the first its working set lists, else en)"},
             Invocation::vt6_objects_option()},
            run};
}

}
