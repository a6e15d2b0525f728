// vtpool build: a description or pool file written as pool bytes for a terminal.
#include <QFile>
#include <iostream>

#include "tools/check/Check_tool.h"
#include "tools/output/Output_file.h"
#include "tools/pool/Pool_file.h"
#include "tools/vtpool/Terminal_options.h"

namespace Vtpool {

namespace {

int run(Invocation& in)
{
    Target target;
    if (!Terminal_options::read(in, target))
        return USAGE;
    unsigned chunk = 1785;
    if (in.is_set("chunk") && (!Invocation::parse_number(in.value("chunk"), 1 << 24, chunk) || chunk == 0))
        return in.usage_error("--chunk takes a positive number of bytes");

    Object_pool pool;
    bool is_description = false;
    VT::Check::Loaded loaded;
    if (!in.load(pool, false, &is_description, &loaded))
        return PROBLEM;
    // The pool as given: what is wrong whatever the terminal.
    const bool rules = !in.is_set("no-check");
    if (!VT::Check::may_build(loaded, pool, 0, rules, std::cerr))
        return PROBLEM;
    // A pool file written without terminal options is written back as it was read.
    if (is_description || target.named) {
        if (!Terminal_options::adapt(pool, target, is_description, in.is_set("downgrade")))
            return PROBLEM;
        // The pool as the terminal gets it, against the terminal's VT version.
        if (target.terminal.vt_version && !VT::Check::may_build(loaded, pool, target.terminal.vt_version, rules, std::cerr))
            return PROBLEM;
    }

    // The upload in buffers must give the bytes of the whole pool serialised at once; only
    // then is anything written.
    QByteArray streamed;
    VT::Pool_file::write_chunks(pool, int(chunk), [&](const uint8_t* p, int n) {
        streamed.append(reinterpret_cast<const char*>(p), n);
    });
    if (streamed != VT::Pool_file::write(pool)) {
        std::cerr << "error: the pool serialised in buffers of " << chunk
                  << " bytes differs from the pool serialised at once; nothing written" << std::endl;
        return PROBLEM;
    }
    const QString out_path = in.value("output");
    QString error;
    if (!VT::Output_file::write_file(out_path, streamed, &error)) {
        std::cerr << "error: " << error.toStdString() << std::endl;
        return PROBLEM;
    }
    if (!is_description && !target.named) {
        QFile input(in.argument());
        if (input.open(QIODevice::ReadOnly) && input.readAll() != streamed)
            std::cerr << "warning: the pool written differs from the pool read" << std::endl;
    }
    std::cout << "wrote " << pool.size() << " objects, " << streamed.size() << " bytes to " << out_path.toStdString()
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
            "the terminal's own; a pool file that uses an id twice is never built.\n",
            QVector<Option>{Option::output("POOL.iop", "where to write the pool")} + Terminal_options::all() +
                QVector<Option>{{{"downgrade"}, "", "replace what the terminal's VT version lacks where an older object "
                                                    "or value can stand for it, warning for each"},
                                {{"chunk"}, "N", "bytes per transfer buffer while writing (default 1785)"},
                                {{"no-check"}, "", "build even when the checks find errors"},
                                {{"verbose"}, "", "also show what the library said that is reported otherwise"},
                                Option::lenient()},
            run};
}

}
