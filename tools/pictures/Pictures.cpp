#include "tools/pictures/Pictures.h"

#include <QDir>
#include <QSet>

#include "tools/pool/Library_output.h"
#include "tools/pool/Labels.h"

namespace VT {

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
        else if (!image.save(path, "PNG"))
            problems.append(QStringLiteral("cannot write '%1'").arg(path));
        else
            written.append(path);
    }
    return written;
}

}
