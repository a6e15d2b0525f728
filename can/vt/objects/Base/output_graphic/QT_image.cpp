#include "can/vt/objects/Base/output_graphic/QT_image.h"

#include <QString>
#include <cstdio>
#include <cstdlib>
#include <sys/stat.h>

QT_image::QT_image(const char* path, VT::VT_obj* obj)
{
    init(path, obj);
}

QT_image::QT_image(QImage img) : image(img) {}

QT_image::~QT_image() = default;

QMap<VT::VT_obj*, QByteArray>& QT_image::get_all_loaded_images()
{
    static QMap<VT::VT_obj*, QByteArray> loaded;
    return loaded;
}

void QT_image::read_file(const char* path)
{
    image.load(QString::fromLocal8Bit(path));
}

int QT_image::init(const char* path, VT::VT_obj* obj)
{
    // A missing or empty image is fatal to the tools that use this loader.
    struct stat st;
    if (!path || stat(path, &st) != 0) {
        perror("stat");
        printf("Can't find image file '%s'\n", path ? path : "");
        fflush(stdout);
        exit(-113);
    }
    if (st.st_size == 0) {
        printf("Cannot load 0 length file '%s' as image!\n", path);
        fflush(stdout);
        exit(-114);
    }
    try {
        read_file(path);
    } catch (...) {
        printf("Could not read '%s'\r\n", path);
        fflush(stdout);
        exit(-115);
    }
    if (obj)
        get_all_loaded_images().insert(obj, QByteArray(path));
    int size = get_colourmap_size();
    transparent_found = 0;
    return size;
}

int QT_image::get_vt_pixel(int x, int y, int transparent_index)
{
    QRgb argb = image.pixel(x, y);
    if (image.hasAlphaChannel() && argb < 0x81000000u) {
        transparent_found = 1;
        return transparent_index;
    }
    // Nearest level of the 6 x 6 x 6 cube (palette entries 16..231) per component.
    auto level = [](int c) { return (c + 25) / 51; };
    return 16 + 36 * level(qRed(argb)) + 6 * level(qGreen(argb)) + level(qBlue(argb));
}

void QT_image::set_vt_pixel(int, int, unsigned char) {}

int QT_image::x() const
{
    return image.width();
}

int QT_image::y() const
{
    return image.height();
}

int QT_image::get_colourmap_size()
{
    try {
        return image.colorTable().size();
    } catch (...) {
        return 256;
    }
}
