#include "tools/pictures/Pictures.h"

#include <QBuffer>
#include <QDir>

#include "tools/output/Output_file.h"

namespace VT {

namespace {

bool write_image(const QImage& image, const QString& path, QStringList& problems)
{
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    QString error;
    if (!image.save(&buffer, "PNG"))
        error = QStringLiteral("cannot encode '%1' as PNG").arg(path);
    else if (Output_file::write_file(path, png, &error))
        return true;
    problems.append(error);
    return false;
}

}

QStringList Pictures::write_all(Object_pool& pool, const QString& dir, QStringList& problems)
{
    QStringList written;
    for (VT_obj* obj : pool.objects()) {
        QImage image;
        if (auto* picture = dynamic_cast<Base::Picture_graphic_obj*>(obj))
            image = picture->get_qimage(false); // transparent where the picture is
        else if (auto* png = dynamic_cast<Base::PNG_obj*>(obj))
            image = png->get_qimage();
        else
            continue;
        QString name = QString::fromUtf8(obj->get_name());
        QString path = QDir(dir).filePath(name + ".png");
        if (image.isNull())
            problems.append(QStringLiteral("'%1' (id %2) holds no picture that can be decoded").arg(name).arg(obj->get_id()));
        else if (write_image(image, path, problems))
            written.append(path);
    }
    return written;
}

}
