#include "tools/terminal/Terminal_file.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSet>

#include "tools/terminal/Terminal_properties.h"

namespace VT {

namespace {

int line_at(const QByteArray& content, int offset)
{
    return 1 + int(content.left(std::max(0, offset)).count('\n'));
}

// Sets one property; false with the error naming where, which and what it takes.
bool apply(Terminal& t, const QString& where, const QString& name, const QString& value, QSet<QString>& seen,
           QString* error)
{
    const Terminal_property* p = find_terminal_property(name);
    auto fail = [&](const QString& text) {
        if (error)
            *error = where + ": " + text;
        return false;
    };
    if (!p)
        return fail(QStringLiteral("'%1' is not a terminal property (known: %2)")
                        .arg(name, [] {
                            QStringList names;
                            for (const Terminal_property& q : terminal_properties())
                                names.append(QLatin1String(q.name));
                            return names.join(", ");
                        }()));
    if (seen.contains(QLatin1String(p->name)))
        return fail(QStringLiteral("'%1' is given twice").arg(p->name));
    seen.insert(QLatin1String(p->name));
    if (!p->set(t, value))
        return fail(QStringLiteral("'%1' %2, not '%3'").arg(p->name, p->takes, value));
    return true;
}

bool read_ini(const QByteArray& content, const QString& file, Terminal& t, QSet<QString>& seen, QString* error)
{
    bool section_seen = false;
    const QList<QByteArray> lines = content.split('\n');
    for (int i = 0; i < lines.size(); ++i) {
        const QString where = QStringLiteral("%1:%2").arg(file).arg(i + 1);
        const QString line = QString::fromUtf8(lines[i]).trimmed();
        if (line.isEmpty() || line.startsWith('#') || line.startsWith(';'))
            continue;
        if (line.startsWith('[')) {
            if (line != "[terminal]" || section_seen) {
                if (error)
                    *error = where + ": a terminal file holds one section, [terminal], at its start";
                return false;
            }
            section_seen = true;
            continue;
        }
        const int eq = line.indexOf('=');
        if (eq <= 0) {
            if (error)
                *error = where + ": expected 'name = value'";
            return false;
        }
        if (!apply(t, where, line.left(eq).trimmed(), line.mid(eq + 1).trimmed(), seen, error))
            return false;
    }
    return true;
}

bool read_json(const QByteArray& content, const QString& file, Terminal& t, QSet<QString>& seen, QString* error)
{
    QJsonParseError parse_error;
    const QJsonDocument doc = QJsonDocument::fromJson(content, &parse_error);
    if (parse_error.error != QJsonParseError::NoError || !doc.isObject()) {
        if (error)
            *error = QStringLiteral("%1:%2: %3")
                         .arg(file)
                         .arg(line_at(content, parse_error.offset))
                         .arg(parse_error.error != QJsonParseError::NoError ? parse_error.errorString()
                                                                             : QStringLiteral("expected one object"));
        return false;
    }
    // The parser keeps the last of repeated names and forgets where each stood: both are found
    // in the text.
    const QString text = QString::fromUtf8(content);
    const QJsonObject object = doc.object();
    for (auto it = object.constBegin(); it != object.constEnd(); ++it) {
        const QRegularExpression at(QStringLiteral("\"%1\"\\s*:").arg(QRegularExpression::escape(it.key())));
        QRegularExpressionMatchIterator matches = at.globalMatch(text);
        int first = -1, count = 0;
        while (matches.hasNext()) {
            const int start = matches.next().capturedStart();
            first = first < 0 ? start : first;
            ++count;
        }
        const QString where = QStringLiteral("%1:%2").arg(file).arg(1 + text.leftRef(std::max(first, 0)).count('\n'));
        if (count > 1) {
            if (error)
                *error = where + QStringLiteral(": '%1' is given twice").arg(it.key());
            return false;
        }
        QString value;
        if (it->isString())
            value = it->toString();
        else if (it->isDouble())
            value = QString::number(it->toDouble(), 'g', 17);
        else if (it->isBool())
            value = it->toBool() ? "true" : "false";
        else
            value = it->isArray() ? "[...]" : it->isObject() ? "{...}" : "null";
        if (!apply(t, where, it.key(), value, seen, error))
            return false;
    }
    return true;
}

}

bool Terminal_file::read(const QByteArray& content, const QString& file_name, Terminal& terminal, QString* error,
                         QStringList* named)
{
    Terminal t = terminal;
    QSet<QString> seen;
    const QByteArray start = content.trimmed();
    const bool ok = start.startsWith('{') ? read_json(content, file_name, t, seen, error)
                                           : read_ini(content, file_name, t, seen, error);
    if (!ok)
        return false;
    const QString problem = terminal_problem(t);
    if (!problem.isEmpty()) {
        if (error)
            *error = file_name + ": " + problem;
        return false;
    }
    terminal = t;
    if (named)
        *named = seen.values();
    return true;
}

bool Terminal_file::load(const QString& path, Terminal& terminal, QString* error, QStringList* named)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        if (error)
            *error = QStringLiteral("%1: cannot read: %2").arg(path, f.errorString());
        return false;
    }
    // A terminal file is a few lines; anything large is not one.
    const QByteArray content = f.read(1 << 16);
    if (!f.atEnd()) {
        if (error)
            *error = path + ": too large for a terminal file";
        return false;
    }
    return read(content, path, terminal, error, named);
}

}
