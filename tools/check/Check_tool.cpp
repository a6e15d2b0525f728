#include "tools/check/Check_tool.h"

#include "tools/check/Report.h"
#include "tools/check/Rules.h"
#include "tools/pool/Pool_loader.h"

namespace VT {
namespace Check {

Loaded load(const QString& path, Object_pool& pool, bool verbose, bool lenient, const QByteArray& language)
{
    Loaded l;
    Pool_file::Read_report report;
    report.keep_duplicate_ids = true;
    Language_choice languages{language, nullptr};
    l.ok = Pool_loader::load(path, pool, l.problems, l.warnings, verbose, &l.is_description, &report, lenient,
                             &languages);
    l.source.file = path;
    l.source.translations = languages.translations;
    if (!l.is_description)
        l.source.offsets = report.offsets;
    l.duplicates = report.duplicate_ids;
    return l;
}

int run_check(const Check_request& request, std::ostream& out)
{
    Object_pool pool;
    pool.set_vt6_objects(request.vt6_objects);
    const Loaded loaded = load(request.path, pool, request.verbose, request.lenient, request.language);
    Result r;
    if (loaded.ok)
        r = check(pool, loaded.source, request.options);
    else
        r.objects = pool.size();
    // What loading found is shown and counted with the findings, ahead of them.
    const QVector<Finding> load = Report::load_findings(request.path, loaded.problems, loaded.warnings);
    QVector<Finding> all;
    for (Severity s : {Severity::error, Severity::warning}) {
        for (const Finding& f : load)
            if (f.severity == s)
                all.append(f);
        for (const Finding& f : r.findings)
            if (f.severity == s)
                all.append(f);
    }
    r.findings = all;
    if (request.json)
        out << Report::json(request.path, r, request.options).toStdString();
    else
        Report::text(r, request.options, out);
    out.flush();
    const bool failed = r.count(Severity::error) > 0 || (request.werror && r.count(Severity::warning) > 0);
    return failed ? 1 : 0;
}

bool may_build(const Loaded& loaded, Object_pool& pool, int vt_version, bool rules, std::ostream& err)
{
    // Two objects under one id cannot both reach a terminal: the pool is never built so.
    for (const auto& d : loaded.duplicates) {
        const VT_obj* later = pool.objects()[d.first];
        const VT_obj* earlier = pool.objects()[d.second];
        err << "error: " << loaded.source.file.toStdString() << ": id " << later->get_id() << " is used by "
            << label(earlier).toStdString() << " at offset " << loaded.source.offsets.value(d.second) << " and by "
            << label(later).toStdString() << " at offset " << loaded.source.offsets.value(d.first) << "\n";
    }
    if (!loaded.duplicates.isEmpty()) {
        err << "not built: a terminal takes one object per id" << std::endl;
        return false;
    }
    if (!rules)
        return true;
    Options options;
    options.vt_version = vt_version;
    options.errors_only = true;
    const Result r = check(pool, loaded.source, options);
    if (r.findings.isEmpty())
        return true;
    for (const Finding& f : r.findings)
        Report::text(f, err);
    err << "not built: " << r.findings.size() << (r.findings.size() == 1 ? " error" : " errors")
        << " (vtpool check for the whole report, --no-check to build all the same)" << std::endl;
    return false;
}

}
}
