#include "tools/check/Checker.h"

#include <algorithm>

#include "tools/check/Rules.h"

namespace VT {
namespace Check {

const char* severity_name(Severity s)
{
    return s == Severity::error ? "error" : "warning";
}

QString Location::text() const
{
    if (line > 0)
        return QStringLiteral("%1:%2").arg(file).arg(line);
    if (offset >= 0)
        return QStringLiteral("%1, offset %2").arg(file).arg(offset);
    return file;
}

QString Finding::object_label() const
{
    if (object_id < 0)
        return QString();
    return QStringLiteral("'%1' (%2 %3)").arg(object_name, object_type).arg(object_id);
}

int Result::count(Severity s) const
{
    return int(std::count_if(findings.begin(), findings.end(), [s](const Finding& f) { return f.severity == s; }));
}

QString label(const VT_obj* obj)
{
    return object_label(const_cast<VT_obj*>(obj));
}

Context::Context(Object_pool& pool, const Source& source, const Options& options)
    : pool(pool), source(source), options(options), objects(pool.objects())
{
    refs.resize(size_t(objects.size()));
}

int Context::index_of(const VT_obj* obj)
{
    if (positions.isEmpty()) {
        positions.reserve(size());
        for (int i = 0; i < size(); ++i)
            positions.insert(objects[i], i);
    }
    return positions.value(obj, -1);
}

const QVector<Object_reference>& Context::references(int i)
{
    std::unique_ptr<QVector<Object_reference>>& r = refs[size_t(i)];
    if (!r)
        r.reset(new QVector<Object_reference>(object_references(*objects[i])));
    return *r;
}

const QByteArray& Context::macro_bytes(int i)
{
    auto it = macros.find(i);
    if (it != macros.end())
        return *it;
    QByteArray bytes;
    if (auto* macro = dynamic_cast<Base::Macro_obj*>(objects[i])) {
        bytes.resize(macro->get_num_bytes());
        for (int k = 0; k < bytes.size(); ++k)
            bytes[k] = char(macro->get_bytes(unsigned(k)));
    }
    return *macros.insert(i, bytes);
}

const QVector<Macro_command>& Context::commands(int i)
{
    auto it = decoded.find(i);
    if (it != decoded.end())
        return *it;
    return *decoded.insert(i, Macro_commands::decode(macro_bytes(i)));
}

Location Context::location(int i) const
{
    Location l;
    l.file = source.file;
    if (i < 0)
        return l;
    if (i < source.offsets.size()) {
        l.offset = source.offsets[i];
        return l;
    }
    // An object built from a description knows its element: "file:line: <Type ...>".
    if (Spec_node* node = objects[i]->get_spec_node()) {
        char text[1024] = {0};
        node->describe(text, int(sizeof text));
        const QString where = QString::fromUtf8(text);
        const int end = where.indexOf(QLatin1String(": <"));
        const int colon = where.lastIndexOf(QLatin1Char(':'), end - 1);
        bool ok = false;
        const int line = end > 0 && colon > 0 ? where.mid(colon + 1, end - colon - 1).toInt(&ok) : 0;
        if (ok) {
            l.file = where.left(colon);
            l.line = line;
        }
    }
    return l;
}

void Context::report(int i, const QString& attribute, const QString& value, const QString& message, const QString& hint)
{
    if (full())
        return;
    Finding f;
    f.rule = QString::fromLatin1(running->id);
    f.severity = running->severity;
    if (i >= 0) {
        const VT_obj* obj = objects[i];
        f.object_id = obj->get_id();
        f.object_name = QString::fromUtf8(obj->VT_obj_base::get_name());
        f.object_type = QString::fromLatin1(obj->get_type_string());
    }
    f.attribute = attribute;
    f.value = value;
    f.location = location(i);
    f.message = message;
    f.hint = hint;
    result.findings.append(f);
    finding_at.append(i);
}

Result check(Object_pool& pool, const Source& source, const Options& options)
{
    Context c(pool, source, options);
    for (const Rule& rule : rules()) {
        if ((options.errors_only && rule.severity != Severity::error) || c.full())
            continue;
        c.set_rule(&rule);
        rule.run(c);
    }
    c.result.objects = pool.size();
    // Errors before warnings; within each, the pool as a whole first, then pool order.
    QVector<int> order(c.result.findings.size());
    for (int k = 0; k < order.size(); ++k)
        order[k] = k;
    const QVector<int>& at = c.finding_objects();
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        const Finding& fa = c.result.findings[a];
        const Finding& fb = c.result.findings[b];
        if (fa.severity != fb.severity)
            return fa.severity == Severity::error;
        return at[a] < at[b];
    });
    Result out;
    out.objects = c.result.objects;
    out.needed_version = c.result.needed_version;
    out.deciding = c.result.deciding;
    for (const VT_obj* obj : pool.objects()) {
        const unsigned byte = unsigned(obj->get_type()) & 0xFF;
        if (byte >= VT_obj_type::TYPE_PNG && byte <= VT_obj_type::TYPE_SCALED_GRAPHIC)
            out.vt6_objects = vt6_objects_name(pool.vt6_objects());
    }
    for (int k : order)
        out.findings.append(c.result.findings[k]);
    return out;
}

}
}
