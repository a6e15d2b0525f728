#ifndef TOOLS_RENDER_PNG_WRITER_H
#define TOOLS_RENDER_PNG_WRITER_H

#include <QByteArray>
#include <QString>

#include "tools/render/Canvas.h"

namespace VT {
namespace Render {

// PNG files of a canvas, each pixel repeated `scale` times across and down. The bytes depend on
// the pixels alone: a canvas of at most 256 colours is written with a palette in the order the
// colours first appear, any other as RGB; rows unfiltered; one zlib stream at a fixed level;
// no time stamp or other ancillary chunk.
QByteArray encode_png(const Canvas& canvas, int scale = 1);

// Writes the PNG as `path`, whole or not at all (Output_file). False with `error` on failure.
bool write_png(const Canvas& canvas, const QString& path, int scale, QString* error);

}
}

#endif
