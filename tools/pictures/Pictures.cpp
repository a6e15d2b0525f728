#include "tools/pictures/Pictures.h"

#include <QDir>

namespace VT {

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
        else if (!image.save(path, "PNG"))
            problems.append(QStringLiteral("cannot write '%1'").arg(path));
        else
            written.append(path);
    }
    return written;
}

}
