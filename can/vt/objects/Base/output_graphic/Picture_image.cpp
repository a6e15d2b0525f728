#include "can/vt/objects/Base/output_graphic/Picture_image.h"

Picture_image::~Picture_image() = default;
