#ifndef CAN_VT_OBJECTS_BASE_OUTPUT_GRAPHIC_QT_IMAGE_H
#define CAN_VT_OBJECTS_BASE_OUTPUT_GRAPHIC_QT_IMAGE_H

#include <QByteArray>
#include <QImage>
#include <QMap>
#include <cstdint>

#include "can/vt/objects/Base/output_graphic/Picture_image.h"

namespace VT {
class VT_obj;
}

// An image file read through Qt, whose true-colour pixels are read as the nearest colour of
// the VT palette's colour cube. Read-only: set_vt_pixel leaves the image alone.
class QT_image : public Picture_image
{
public:
    // Loads `path` (see init); ends the process when the file is missing or empty.
    QT_image(const char* path, VT::VT_obj* obj);
    // Takes a copy of `image`; no file is involved.
    explicit QT_image(QImage image);
    ~QT_image() override;

    // Loads the file at `path` and, when `obj` is given, records the path for it.
    // Returns the number of entries of the loaded image's colour table.
    int init(const char* path, VT::VT_obj* obj);

    int get_vt_pixel(int x, int y, int transparent_index) override;
    void set_vt_pixel(int x, int y, unsigned char colour) override;
    int x() const override;
    int y() const override;
    int get_colourmap_size() override;

    // Whether any pixel read so far was transparent.
    bool transparency_detected() const { return transparent_found != 0; }
    const QImage& get_qimage() const { return image; }

    // Which image file was loaded for which object, for the whole life of the process.
    static QMap<VT::VT_obj*, QByteArray>& get_all_loaded_images();

protected:
    // Reads the file into the image (format guessed from its content). May throw.
    virtual void read_file(const char* path);

private:
    QImage image;
    uint8_t transparent_found = 0;
};

#endif
