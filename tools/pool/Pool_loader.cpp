#include "tools/pool/Pool_loader.h"

#include <QFile>
#include <memory>

#include "tools/description/Description.h"
#include "tools/check/Read_diagnosis.h"
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

bool Pool_loader::looks_like_description(const QString& path, const QByteArray& head)
{
    return path.endsWith(".xml", Qt::CaseInsensitive) || looks_like_xml(head);
}

bool Pool_loader::load(const QString& path, Object_pool& pool, QStringList& problems, QStringList& warnings,
                       bool verbose, bool* is_description, Pool_file::Read_report* report, bool lenient,
                       Language_choice* languages)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        problems.append(QStringLiteral("%1: cannot open: %2").arg(path, f.errorString()));
        return false;
    }
    QByteArray content = f.readAll();
    bool xml = looks_like_description(path, content.left(64));
    if (is_description)
        *is_description = xml;
    if (xml) {
        // The objects keep the description's nodes: the description lives as long as the pool.
        auto d = std::make_shared<Description>();
        pool.keep_alive(d);
        d->set_verbose(verbose);
        d->set_lenient(lenient);
        if (languages) {
            d->set_language(languages->language);
            languages->translations = std::shared_ptr<const Translations>(d, &d->translations());
        }
        bool ok = d->parse(content, path) && d->build(pool);
        problems += d->problems();
        warnings += d->warnings();
        if (verbose)
            warnings += d->library_notes();
        return ok && problems.isEmpty();
    }
    if (languages && !languages->language.isEmpty()) {
        problems.append(QStringLiteral("%1: a pool file holds its texts in one language; only a description is "
                                       "built in '%2'")
                            .arg(path, QString::fromUtf8(languages->language)));
        return false;
    }
    QString error;
    Pool_file::Read_report own;
    Pool_file::Read_report& r = report ? *report : own;
    const bool read = Pool_file::read(content, pool, &error, &r);
    // Objects after one whose length is wrong are read from the wrong bytes: what was clamped
    // in them says nothing.
    Check::Suspect suspect;
    const bool suspected = !read && Check::Read_diagnosis::diagnose(content, r, &suspect);
    for (int i = 0; i < r.clamped.size(); ++i)
        if (!suspected || r.clamped_objects.value(i) <= suspect.index)
            warnings.append(path + ": " + r.clamped[i]);
    if (verbose)
        for (const QString& note : r.library_notes)
            warnings.append(path + ": " + note);
    if (!read) {
        problems.append(path + ": " + error);
        Vt6_objects other = Vt6_objects::legacy;
        if (Check::Read_diagnosis::reads_in_other_form(content, r, &other))
            problems.append(QStringLiteral("%1: the pool reads whole with types 46 to 48 in their %2 form: read it so "
                                           "(--vt6-objects %2)")
                                .arg(path, QString::fromLatin1(vt6_objects_name(other))));
        else if (suspected)
            problems.append(path + ": " + suspect.text());
        return false;
    }
    return true;
}

}
