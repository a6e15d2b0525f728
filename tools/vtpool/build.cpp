// vtpool build: a description or pool file written as pool bytes for a terminal.
#include <QFile>
#include <iostream>

#include "tools/check/Check_tool.h"
#include "tools/output/Output_file.h"
#include "tools/pool/Pool_file.h"
#include "tools/vtpool/Language_builds.h"
#include "tools/vtpool/Terminal_options.h"

namespace Vtpool {

namespace {

// One pool built from INPUT (a description in `language`, empty for its default) as it is
// uploaded: checked, made the terminal's, serialised. False once the reason is printed.
bool make_pool(Invocation& in, Target& target, unsigned chunk, const QByteArray& language, QByteArray& bytes,
               int& objects, bool& is_description, std::shared_ptr<const VT::Translations>* translations = nullptr)
{
    Object_pool pool;
    VT::Check::Loaded loaded;
    in.set_language(language);
    if (!in.load(pool, false, &is_description, &loaded))
        return false;
    if (translations)
        *translations = loaded.source.translations;
    // The pool as given: what is wrong whatever the terminal.
    const bool rules = !in.is_set("no-check");
    if (!VT::Check::may_build(loaded, pool, 0, rules, std::cerr))
        return false;
    // A pool file written without terminal options is written back as it was read.
    if (is_description || target.named) {
        if (!Terminal_options::adapt(in, pool, target, is_description, in.is_set("downgrade")))
            return false;
        // The pool as the terminal gets it, against the terminal's VT version.
        if (target.terminal.vt_version && !VT::Check::may_build(loaded, pool, target.terminal.vt_version, rules, std::cerr))
            return false;
    }

    // The upload in buffers must give the bytes of the whole pool serialised at once.
    bytes.clear();
    VT::Pool_file::write_chunks(pool, int(chunk), [&](const uint8_t* p, int n) {
        bytes.append(reinterpret_cast<const char*>(p), n);
    });
    if (bytes != VT::Pool_file::write(pool)) {
        std::cerr << "error: the pool serialised in buffers of " << chunk
                  << " bytes differs from the pool serialised at once; nothing written" << std::endl;
        return false;
    }
    objects = pool.size();
    return true;
}

int run(Invocation& in)
{
    Target target;
    if (!Terminal_options::read(in, target))
        return USAGE;
    unsigned chunk = 1785;
    if (in.is_set("chunk") && (!Invocation::parse_number(in.value("chunk"), 1 << 24, chunk) || chunk == 0))
        return in.usage_error("--chunk takes a positive number of bytes");
    if (in.is_set("language") + in.is_set("partial-language") + in.is_set("all-languages") > 1)
        return in.usage_error("give one of --language, --partial-language and --all-languages");
    if (in.is_set("partial-language") || in.is_set("all-languages"))
        return Language_builds::run(in, [&](const QByteArray& language, QByteArray& bytes, int& objects,
                                            std::shared_ptr<const VT::Translations>* translations) {
            bool is_description = false;
            return make_pool(in, target, chunk, language, bytes, objects, is_description, translations);
        });

    QByteArray streamed;
    int objects = 0;
    bool is_description = false;
    if (!make_pool(in, target, chunk, in.value("language").toUtf8(), streamed, objects, is_description))
        return PROBLEM;
    const QString out_path = in.value("output");
    if (!Invocation::write_output(out_path, streamed))
        return PROBLEM;
    if (!is_description && !target.named) {
        QFile input(in.argument());
        if (input.open(QIODevice::ReadOnly) && input.readAll() != streamed)
            std::cerr << "warning: the pool written differs from the pool read" << std::endl;
    }
    std::cout << "wrote " << objects << " objects, " << streamed.size() << " bytes to " << out_path.toStdString()
              << std::endl;
    return OK;
}

}

Command build_command()
{
    return {"build",
            "build a description or pool file into pool bytes for a terminal",
            {"INPUT"},
            "Builds INPUT (a description or a pool file) and writes its bytes as they would be\n"
            "uploaded to a terminal with the given properties: colours, pictures, colour maps and\n"
            "fonts become the terminal's own (docs/terminals.md), or the build fails naming the\n"
            "objects in the way and writes nothing. Without terminal options a pool file is\n"
            "written back as it was read.\n"
            "The pool is checked first (the error rules of vtpool check) and not built when an\n"
            "error is found, and checked again against the terminal's VT version once it is made\n"
            "the terminal's own; a pool file that uses an id twice is never built.\n"
            "A description that declares languages is built in its default language, or in the one\n"
            "--language names; --partial-language writes only the objects that language changes,\n"
            "--all-languages a full and a partial pool of every language (docs/description-format.md).\n",
            QVector<Option>{Option::output("POOL.iop", "where to write the pool (a folder with --all-languages)")} +
                Terminal_options::all() + Language_builds::options() +
                QVector<Option>{{{"downgrade"}, "", "replace what the terminal's VT version lacks where an older object "
                                                    "or value can stand for it, warning for each"},
                                {{"chunk"}, "N", "bytes per transfer buffer while writing (default 1785)"},
                                {{"no-check"}, "", "build even when the checks find errors"},
                                {{"verbose"}, "", "also show what the library said that is reported otherwise"},
                                Option::lenient(), Invocation::vt6_objects_option()},
            run};
}

}
