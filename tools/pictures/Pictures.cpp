#include "tools/pictures/Pictures.h"

#include <QBuffer>
#include <QDir>
#include <QSet>

#include "tools/output/Output_file.h"
#include "tools/pool/Labels.h"
#include "tools/pool/Library_output.h"

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

QStringList Pictures::write_all(Object_pool& pool, const QString& dir, QStringList& problems, QStringList* warnings)
{
    QStringList written;
    QSet<QString> names;
    Library_output said;
    for (VT_obj* obj : pool.objects()) {
        QImage image;
        if (auto* picture = dynamic_cast<Base::Picture_graphic_obj*>(obj))
            image = picture->get_qimage(false); // transparent where the picture is
        else if (auto* png = dynamic_cast<Base::PNG_obj*>(obj))
            image = png->get_qimage();
        else
            continue;
        QString name = QString::fromUtf8(obj->get_name());
        for (int n = 2; names.contains(name); ++n)
            name = QStringLiteral("%1_%2").arg(QString::fromUtf8(obj->get_name())).arg(n);
        names.insert(name);
        // The problems below say in their own words what the library says of pictures that
        // do not decode.
        for (const Library_output::Line& line : said.take())
            if (warnings && !Library_output::restated_by_tool(line.text))
                warnings->append(object_label(obj) + QStringLiteral(": ") + line.text);
        QString path = QDir(dir).filePath(name + ".png");
        if (image.isNull())
            problems.append(QStringLiteral("'%1' (id %2) holds no picture that can be decoded").arg(name).arg(obj->get_id()));
        else if (write_image(image, path, problems))
            written.append(path);
    }
    return written;
}

}
