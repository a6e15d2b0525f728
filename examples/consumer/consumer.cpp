// Reads a pool file with an installed vt_core and its host library, and writes it back: the
// bytes must come out as they went in.
//   consumer POOL.iop
#include <QFile>
#include <iostream>

#include "tools/pool/Pool_file.h"
#include "vt_core.h"

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: consumer POOL.iop" << std::endl;
        return 2;
    }
    QFile file(QString::fromLocal8Bit(argv[1]));
    if (!file.open(QIODevice::ReadOnly)) {
        std::cerr << "cannot read " << argv[1] << std::endl;
        return 1;
    }
    const QByteArray bytes = file.readAll();
    VT::Object_pool pool;
    QString error;
    if (!VT::Pool_file::read(bytes, pool, &error)) {
        std::cerr << error.toStdString() << std::endl;
        return 1;
    }
    const bool same = VT::Pool_file::write(pool) == bytes;
    std::cout << "vt_core " VT_CORE_VERSION ": " << pool.size() << " objects, " << bytes.size() << " bytes, "
              << (same ? "written back unchanged" : "written back CHANGED") << std::endl;
    return same ? 0 : 1;
}
