// Writes starting inputs for the fuzz targets from real pools and descriptions:
//   fuzz_corpus OUT_DIR FILE...
// Pool files (.iop and others) are read with the pool reader and descriptions (.xml) built;
// each object becomes a starting input for fuzz_object (its type byte and attribute bytes), each
// picture graphic one for fuzz_picture (its size, format, options and data), and each whole pool
// one for fuzz_render (its pool bytes), and the example in several languages ones for
// fuzz_describe (a pool and its German pool).
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <cstdio>
#include <memory>

#include "fuzz/fuzz_support.h"
#include "tests/every_type_pool.h"
#include "tools/description/Description.h"
#include "tools/pool/Partial_pool.h"
#include "tools/pool/Pool_file.h"
#include "tools/pool/Pool_loader.h"

namespace {

void write_input(const QString& dir, const QByteArray& bytes)
{
    QDir().mkpath(dir);
    QFile f(dir + "/" + QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex());
    if (f.open(QIODevice::WriteOnly))
        f.write(bytes);
}

QByteArray picture_input(VT::Base::Picture_graphic_obj& pic)
{
    QByteArray s;
    const uint16_t w = pic.get_actual_width(), h = pic.get_actual_height();
    s.append(char(w & 0xFF)).append(char(w >> 8)).append(char(h & 0xFF)).append(char(h >> 8));
    s.append(char(pic.get_format())).append(char(pic.get_options()));
    const unsigned char* b = pic.get_bytes();
    if (b)
        s.append(reinterpret_cast<const char*>(b), int(pic.get_num_bytes()));
    return s;
}

}

int main(int argc, char** argv)
{
    fuzz::quiet();
    if (argc < 3) {
        fprintf(stderr, "usage: %s OUT_DIR FILE...\n", argv[0]);
        return 2;
    }
    const QString out = QString::fromLocal8Bit(argv[1]);
    int objects = 0, pictures = 0;
    for (int i = 2; i < argc; ++i) {
        const QString path = QString::fromLocal8Bit(argv[i]);
        VT::Object_pool pool;
        QString error;
        if (path.endsWith(".xml")) {
            auto d = std::make_shared<VT::Description>();
            pool.keep_alive(d);
            if (!d->load_file(path))
                continue;
            d->build(pool);
        } else if (!VT::Pool_file::read_file(path, pool, &error)) {
            fprintf(stderr, "%s: %s\n", argv[i], qPrintable(error));
            continue;
        }
        write_input(out + "/fuzz_render", VT::Pool_file::write(pool));
        write_input(out + "/fuzz_describe", VT::Pool_file::write(pool));
        for (VT::VT_obj* obj : pool.objects()) {
            QByteArray bytes = VT::Pool_file::object_bytes(*obj);
            if (bytes.size() > 2) {
                write_input(out + "/fuzz_object", bytes.mid(2));
                ++objects;
            }
            if (auto* pic = dynamic_cast<VT::Base::Picture_graphic_obj*>(obj)) {
                write_input(out + "/fuzz_picture", picture_input(*pic));
                ++pictures;
            }
        }
    }
    write_input(out + "/fuzz_describe", test::every_type_pool());
    // The default and German pools of the example in several languages, as fuzz_describe takes
    // a pool and its German pool: whole, and only the objects German changes.
    QByteArray pools[2];
    for (int i = 0; i < 2; ++i) {
        VT::Object_pool pool;
        QStringList problems, warnings;
        VT::Language_choice choice{i ? QByteArray("de") : QByteArray(), nullptr};
        if (VT::Pool_loader::load(QStringLiteral(VT_EXAMPLES_DIR "/realistic_languages.xml"), pool, problems, warnings,
                                  false, nullptr, nullptr, false, &choice))
            pools[i] = VT::Pool_file::write(pool);
    }
    QByteArray partial;
    if (!pools[0].isEmpty() && !pools[1].isEmpty() && VT::Partial_pool::differing(pools[0], pools[1], partial, nullptr)) {
        write_input(out + "/fuzz_describe", pools[0] + fuzz::LANGUAGE_MARK + pools[1]);
        write_input(out + "/fuzz_describe", pools[0] + fuzz::LANGUAGE_MARK + partial);
    }
    // A pool of the ISO forms of types 46 to 48, for the readers that take either form.
    const QByteArray iso = test::every_type_pool(nullptr, VT::Vt6_objects::iso);
    for (const char* target : {"fuzz_pool_file", "fuzz_check", "fuzz_render", "fuzz_describe"})
        // Those readers take the ISO forms for inputs of odd length: a number variable (7 bytes)
        // makes the length odd where it is not.
        write_input(out + "/" + target, iso.size() % 2 ? iso : iso + QByteArray::fromHex("e8fd1500000000"));
    printf("starting inputs: %d objects, %d pictures\n", objects, pictures);
    return 0;
}
