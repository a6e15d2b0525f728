// vtpool build: a description or pool file written as pool bytes for a terminal.
#include <QFile>
#include <QSet>
#include <iostream>

#include "tools/check/Object_facts.h"
#include "tools/pool/Pool_file.h"
#include "tools/terminal/Terminal_limits.h"
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
    const VT::Terminal& terminal = target.terminal;
    if (!VT::Check::may_build(loaded, pool, terminal.vt_version, !in.is_set("no-check"), std::cerr))
        return PROBLEM;
    pool.set_serialisation_limits(VT::serialisation_limits(terminal));
    if (terminal.vt_version) {
        pool.set_negotiated_version(uint8_t(terminal.vt_version));
        QSet<uint8_t> types;
        for (unsigned t = 0; t < 256; ++t)
            if (int needs = VT::Check::type_version(t))
                if (needs <= terminal.vt_version)
                    types.insert(uint8_t(t));
        pool.set_supported_types(types);
    }
    Terminal_options::scale(pool, target, is_description);

    QString out_path = in.value("output");
    QFile out(out_path);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        std::cerr << "error: cannot write '" << out_path.toStdString() << "': " << out.errorString().toStdString()
                  << std::endl;
        return PROBLEM;
    }
    qint64 written = 0;
    bool write_failed = false;
    QByteArray streamed;
    VT::Pool_file::write_chunks(pool, int(chunk), [&](const uint8_t* p, int n) {
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
    if (streamed != VT::Pool_file::write(pool)) {
        std::cerr << "error: the pool serialised in buffers of " << chunk
                  << " bytes differs from the pool serialised at once" << std::endl;
        return PROBLEM;
    }
    if (!is_description && !target.named) {
        QFile input(in.argument());
        if (input.open(QIODevice::ReadOnly) && input.readAll() != streamed)
            std::cerr << "warning: the pool written differs from the pool read" << std::endl;
    }
    std::cout << "wrote " << pool.size() << " objects, " << written << " bytes to " << out_path.toStdString()
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
            "uploaded to a terminal with the given properties. Without terminal options a pool\n"
            "file is written back as it was read.\n"
            "The pool is checked first (the error rules of vtpool check, with --vt-version when\n"
            "given) and not built when an error is found; a pool file that uses an id twice is\n"
            "never built.\n",
            QVector<Option>{Option::output("POOL.iop", "where to write the pool")} + Terminal_options::all() +
                QVector<Option>{{{"chunk"}, "N", "bytes per transfer buffer while writing (default 1785)"},
                                {{"no-check"}, "", "build even when the checks find errors"},
                                {{"verbose"}, "", "also show what the library said that is reported otherwise"}},
            run};
}

}
