// vtpool build: a description or pool file written as pool bytes for a terminal.
#include <QFile>
#include <QSet>
#include <iostream>

#include "tools/check/Structure_check.h"
#include "tools/output/Output_file.h"
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
    if (!in.load(pool, in.is_set("verbose"), &is_description))
        return PROBLEM;
    const VT::Terminal& terminal = target.terminal;
    pool.set_serialisation_limits(VT::serialisation_limits(terminal));
    if (terminal.vt_version) {
        pool.set_negotiated_version(uint8_t(terminal.vt_version));
        QSet<uint8_t> types;
        for (unsigned t = 0; t < 256; ++t)
            if (int needs = VT::Structure_check::type_version(t))
                if (needs <= terminal.vt_version)
                    types.insert(uint8_t(t));
        pool.set_supported_types(types);
    }
    const VT::Scaling::Ratio mask_ratio = VT::Scaling::mask_ratio(terminal, target.design);
    const VT::Scaling::Ratio key_ratio = VT::Scaling::key_ratio(terminal, target.design);
    if (mask_ratio.active || key_ratio.active) {
        if (!is_description)
            VT::Scaling::propagate_areas(pool);
        VT::Scaling::scale(pool, mask_ratio, key_ratio);
    }

    const QString out_path = in.value("output");
    VT::Output_file out(out_path);
    qint64 written = 0;
    QByteArray streamed;
    if (out.open())
        VT::Pool_file::write_chunks(pool, int(chunk), [&](const uint8_t* p, int n) {
            streamed.append(reinterpret_cast<const char*>(p), n);
            out.write(p, size_t(n));
            written += n;
        });
    if (!out.commit()) {
        std::cerr << "error: " << out.error().toStdString() << std::endl;
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
            "file is written back as it was read.\n",
            QVector<Option>{Option::output("POOL.iop", "where to write the pool")} + Terminal_options::all() +
                QVector<Option>{{{"chunk"}, "N", "bytes per transfer buffer while writing (default 1785)"},
                                {{"verbose"}, "", "show the library's chatter while building"}},
            run};
}

}
