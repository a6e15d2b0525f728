#ifndef CAN_VT_OBJECTS_BASE_OUTPUT_GRAPHIC_PICTURE_IMAGE_H
#define CAN_VT_OBJECTS_BASE_OUTPUT_GRAPHIC_PICTURE_IMAGE_H

// An image whose pixels are read and written as VT palette indices.
class Picture_image
{
public:
    // The palette index of pixel (x, y); `transparent_index` for a transparent pixel.
    virtual int get_vt_pixel(int x, int y, int transparent_index) = 0;
    // Stores a palette index at (x, y).
    virtual void set_vt_pixel(int x, int y, unsigned char colour) = 0;
    // Width in pixels.
    virtual int x() const = 0;
    // Height in pixels.
    virtual int y() const = 0;
    // Number of entries of the image's colour table.
    virtual int get_colourmap_size() = 0;
    virtual ~Picture_image();
};

#endif
