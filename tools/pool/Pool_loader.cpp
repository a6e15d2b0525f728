#include "tools/pool/Pool_loader.h"

#include <QFile>
#include <memory>

#include "tools/description/Description.h"
#include "tools/pool/Pool_file.h"

namespace VT {

namespace {

bool looks_like_xml(const QByteArray& head)
{
    for (char c : head) {
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n')
            continue;
        return c == '<';
    }
    return false;
}

}

bool Pool_loader::load(const QString& path, Object_pool& pool, QStringList& problems, QStringList& warnings,
                       bool verbose, bool* is_description, bool lenient)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        problems.append(QStringLiteral("%1: cannot open: %2").arg(path, f.errorString()));
        return false;
    }
    QByteArray content = f.readAll();
    bool xml = path.endsWith(".xml", Qt::CaseInsensitive) || looks_like_xml(content.left(64));
    if (is_description)
        *is_description = xml;
    if (xml) {
        // The objects keep the description's nodes: the description lives as long as the pool.
        auto d = std::make_shared<Description>();
        pool.keep_alive(d);
        d->set_verbose(verbose);
        d->set_lenient(lenient);
        bool ok = d->parse(content, path) && d->build(pool);
        problems += d->problems();
        warnings += d->warnings();
        return ok && problems.isEmpty();
    }
    QString error;
    Pool_file::Read_report report;
    if (!Pool_file::read(content, pool, &error, &report)) {
        problems.append(path + ": " + error);
        return false;
    }
    for (const QString& c : report.clamped)
        warnings.append(path + ": " + c + ": a value lay outside its range and was clamped");
    return true;
}

}
