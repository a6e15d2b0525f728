#include "tools/check/Report.h"

#include <cstring>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace VT {
namespace Check {

namespace {

QJsonValue location_json(const Location& l)
{
    QJsonObject o{{"file", l.file}};
    if (l.line > 0)
        o.insert("line", l.line);
    if (l.offset >= 0)
        o.insert("offset", l.offset);
    return o;
}

QString plural(int n, const char* one, const char* many)
{
    return QStringLiteral("%1 %2").arg(n).arg(QLatin1String(n == 1 ? one : many));
}

}

QVector<Finding> Report::load_findings(const QString& file, const QStringList& problems, const QStringList& warnings)
{
    QVector<Finding> out;
    auto add = [&](const QString& line, Severity s) {
        Finding f;
        f.rule = QStringLiteral("load");
        f.severity = s;
        f.location.file = file;
        f.message = line;
        // "file:12: text" names a line of a description; "file: text" the file alone.
        if (line.startsWith(file + QLatin1Char(':'))) {
            const QString rest = line.mid(file.size() + 1);
            static const QRegularExpression numbered(QStringLiteral("^(\\d+): (.*)$"),
                                                     QRegularExpression::DotMatchesEverythingOption);
            const QRegularExpressionMatch m = numbered.match(rest);
            if (m.hasMatch()) {
                f.location.line = m.captured(1).toInt();
                f.message = m.captured(2);
            } else {
                f.message = rest.trimmed();
            }
        }
        out.append(f);
    };
    for (const QString& p : problems)
        add(p, Severity::error);
    for (const QString& w : warnings)
        add(w, Severity::warning);
    return out;
}

void Report::text(const Finding& f, std::ostream& os)
{
    QString line = QStringLiteral("%1: %2: ").arg(QLatin1String(severity_name(f.severity)), f.location.text());
    if (f.object_id >= 0)
        line += f.object_label() + QStringLiteral(": ");
    line += f.message + QStringLiteral(" [") + f.rule + QLatin1Char(']');
    os << line.toStdString() << "\n";
    if (!f.hint.isEmpty())
        os << "  hint: " << f.hint.toStdString() << "\n";
}

void Report::text(const Result& r, const Options& options, std::ostream& os, int shown)
{
    for (const Finding& f : r.findings)
        text(f, os);
    os << plural(r.objects, "object", "objects").toStdString() << ": "
       << plural(r.count(Severity::error), "error", "errors").toStdString() << ", "
       << plural(r.count(Severity::warning), "warning", "warnings").toStdString();
    if (options.vt_version > 0)
        os << " (checked for VT version " << options.vt_version << ")";
    os << "\n";
    if (r.vt6_objects)
        os << "version 6 objects (types 46 to 48) in the " << r.vt6_objects << " form"
           << (strcmp(r.vt6_objects, "iso") == 0 ? " of ISO 11783-6" : " of this library (PNG, special controls as bytes)")
           << "\n";
    needed_version(r, os, shown);
}

void Report::needed_version(const Result& r, std::ostream& os, int shown)
{
    if (!r.needed_version)
        return;
    os << "needs VT version " << r.needed_version;
    // Version 2 is where every terminal starts: every object would be a reason.
    if (r.needed_version <= 2) {
        os << "\n";
        return;
    }
    os << ", because of:\n";
    for (int i = 0; i < r.deciding.size() && i < shown; ++i) {
        const Need& n = r.deciding[i];
        os << "  " << n.location.text().toStdString() << ": " << n.object.toStdString() << ": " << n.reason.toStdString()
           << "\n";
    }
    if (r.deciding.size() > shown)
        os << "  ... and " << r.deciding.size() - shown << " more\n";
}

QByteArray Report::json(const QString& file, const Result& r, const Options& options)
{
    QJsonArray findings;
    for (const Finding& f : r.findings) {
        QJsonObject o{{"rule", f.rule},
                      {"severity", QLatin1String(severity_name(f.severity))},
                      {"location", location_json(f.location)},
                      {"message", f.message}};
        o.insert("object", f.object_id < 0 ? QJsonValue()
                                           : QJsonObject{{"id", f.object_id}, {"name", f.object_name}, {"type", f.object_type}});
        o.insert("attribute", f.attribute.isEmpty() ? QJsonValue() : QJsonValue(f.attribute));
        o.insert("value", f.value.isEmpty() ? QJsonValue() : QJsonValue(f.value));
        o.insert("hint", f.hint.isEmpty() ? QJsonValue() : QJsonValue(f.hint));
        findings.append(o);
    }
    QJsonArray deciding;
    for (const Need& n : r.deciding)
        deciding.append(QJsonObject{{"object", n.object}, {"reason", n.reason}, {"location", location_json(n.location)}});
    QJsonObject version{{"needed", r.needed_version ? QJsonValue(r.needed_version) : QJsonValue()},
                        {"checked_for", options.vt_version > 0 ? QJsonValue(options.vt_version) : QJsonValue()},
                        {"because", deciding}};
    QJsonObject doc{{"file", file},
                    {"objects", r.objects},
                    {"errors", r.count(Severity::error)},
                    {"warnings", r.count(Severity::warning)},
                    {"findings", findings},
                    {"vt_version", version}};
    if (r.vt6_objects)
        doc.insert("vt6_objects", QLatin1String(r.vt6_objects));
    return QJsonDocument(doc).toJson(QJsonDocument::Indented);
}

}
}
