// vtpool render: masks and objects drawn as a terminal shows them, as PNG files.
#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <iostream>

#include "tools/output/Output_file.h"
#include "tools/pool/Labels.h"
#include "tools/render/Png_writer.h"
#include "tools/render/Renderer.h"
#include "tools/vtpool/Terminal_options.h"

namespace Vtpool {

namespace {

using VT::Render::Canvas;
using VT::Render::Renderer;
using VT::VT_obj;
using VT::VT_obj_base;

// An object by name, or by id when no object has that name.
VT_obj* find_named(Object_pool& pool, const QString& text)
{
    if (VT_obj* obj = pool.find(text.toUtf8()))
        return obj;
    unsigned id = 0;
    return Invocation::parse_number(text, 65534, id) ? pool.find(uint16_t(id)) : nullptr;
}

// A mask's name made safe as a file name.
QString file_name_for(const QString& name)
{
    QString out;
    for (QChar c : name)
        out += (c.isLetterOrNumber() && c.unicode() < 128) || c == '-' || c == '_' ? c : QChar('_');
    return out.isEmpty() ? QStringLiteral("object") : out;
}

int fail(const QString& text)
{
    std::cerr << "error: " << text.toStdString() << std::endl;
    return PROBLEM;
}

void report_cut(const Renderer& renderer, VT_obj* obj)
{
    if (renderer.truncated())
        std::cerr << "warning: " << VT::object_label(obj).toStdString()
                  << " asks for more drawing than a picture may take; the drawing stops early" << std::endl;
}

// Every mask into DIR, and an index.html that shows them with their names.
int render_all(Renderer& renderer, Object_pool& pool, const QString& source, const QString& dir, int scale)
{
    if (!QDir().mkpath(dir))
        return fail(QStringLiteral("cannot create '%1'").arg(dir));
    const QVector<VT_obj*> list = Renderer::masks(pool);
    QString html = QStringLiteral("<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>%1</title>\n"
                                  "<style>body{font-family:sans-serif} figure{display:inline-block;"
                                  "margin:8px;vertical-align:top} img{border:1px solid #888;"
                                  "image-rendering:pixelated}</style></head><body>\n<h1>%1</h1>\n")
                       .arg(QFileInfo(source).fileName().toHtmlEscaped());
    QSet<QString> used;
    QString error;
    for (VT_obj* mask : list) {
        const QString name = QString::fromUtf8(mask->VT_obj_base::get_name());
        QString file = file_name_for(name);
        if (used.contains(file))
            file += QStringLiteral("_%1").arg(mask->get_id());
        used.insert(file);
        file += ".png";
        const Canvas picture = renderer.render_screen(mask);
        report_cut(renderer, mask);
        if (!VT::Render::write_png(picture, QDir(dir).filePath(file), scale, &error))
            return fail(error);
        std::cout << QDir(dir).filePath(file).toStdString() << "\n";
        html += QStringLiteral("<figure><img src=\"%1\" alt=\"%2\"><figcaption>%2 (%3 %4)</figcaption></figure>\n")
                    .arg(file.toHtmlEscaped(), name.toHtmlEscaped(), QString::fromLatin1(mask->get_type_string()))
                    .arg(mask->get_id());
    }
    html += QStringLiteral("</body></html>\n");
    if (!VT::Output_file::write_file(QDir(dir).filePath("index.html"), html.toUtf8(), &error))
        return fail(error);
    std::cout << list.size() << " masks drawn" << std::endl;
    return OK;
}

int run(Invocation& in)
{
    const bool all = in.is_set("all");
    if (int(all) + int(in.is_set("mask")) + int(in.is_set("object")) > 1)
        return in.usage_error("--all, --mask and --object exclude each other");
    if (all && !in.is_set("output"))
        return in.usage_error("--all needs -o DIR");
    unsigned scale = 1;
    if (in.is_set("scale") && (!Invocation::parse_number(in.value("scale"), 16, scale) || scale == 0))
        return in.usage_error("--scale takes a whole number from 1 to 16");
    Target target;
    if (!Terminal_options::read(in, target))
        return USAGE;

    Object_pool pool;
    if (!in.load(pool))
        return PROBLEM;
    Renderer renderer(target.terminal, pool);
    if (all)
        return render_all(renderer, pool, in.argument(), in.value("output"), int(scale));

    VT_obj* drawn = nullptr;
    Canvas picture(1, 1);
    if (in.is_set("object")) {
        drawn = find_named(pool, in.value("object"));
        if (!drawn)
            return fail(QStringLiteral("no object '%1' in the pool").arg(in.value("object")));
        if (renderer.object_size(drawn).empty())
            return fail(QStringLiteral("%1 has nothing to draw").arg(VT::object_label(drawn)));
        picture = renderer.render_object(drawn);
    } else {
        if (in.is_set("mask")) {
            drawn = find_named(pool, in.value("mask"));
            if (!drawn)
                return fail(QStringLiteral("no mask '%1' in the pool").arg(in.value("mask")));
            if (!Renderer::masks(pool).contains(drawn))
                return fail(QStringLiteral("%1 is not a data, alarm or window mask").arg(VT::object_label(drawn)));
        } else {
            drawn = Renderer::active_mask(pool);
            if (!drawn)
                return fail("the pool has no working set with an active mask; name one with --mask");
        }
        picture = renderer.render_screen(drawn);
    }
    report_cut(renderer, drawn);
    const QString out = in.is_set("output") ? in.value("output") : QFileInfo(in.argument()).completeBaseName() + ".png";
    QString error;
    if (!VT::Render::write_png(picture, out, int(scale), &error))
        return fail(error);
    std::cout << "drew " << VT::object_label(drawn).toStdString() << " to " << out.toStdString() << std::endl;
    return OK;
}

}

Command render_command()
{
    return {"render",
            "draw masks and objects as a terminal shows them, to PNG files",
            {"POOL"},
            "Draws the working set's active mask as a terminal with the given properties shows\n"
            "it: the mask at the data-mask size, the soft keys of its soft-key mask beside it.\n"
            "Without -o the picture goes to POOL's name with .png in the current folder.\n"
            "With --all, every mask goes into the folder -o names, with an index.html showing them:\n"
            "  vtpool render POOL --all -o DIR [options]\n",
            QVector<Option>{{{"o", "output"}, "FILE|DIR", "the PNG file, or with --all the folder (created if missing)"},
                            {{"mask"}, "NAME|ID", "draw this data, alarm or window mask instead"},
                            {{"object"}, "NAME|ID", "draw this object alone, at its own size"},
                            {{"all"}, "", "draw every mask into DIR, with an index.html showing them"},
                            {{"scale"}, "N", "enlarge N times (each pixel repeated; 1-16, default 1)"},
                            Invocation::language_option()} +
                Terminal_options::only({"colours", "mask-size", "key-size", "soft-keys", "small-fonts", "large-fonts",
                                        "font-styles"}) +
                QVector<Option>{Option::lenient(), Invocation::vt6_objects_option()},
            run};
}

}
