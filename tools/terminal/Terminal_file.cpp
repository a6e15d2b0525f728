#include "tools/terminal/Terminal_file.h"

#include <algorithm>
#include <cctype>
#include <cstring>

#include <QFile>
#include <QSet>
#include <QVector>

#include "tools/terminal/Terminal_properties.h"

namespace VT {

namespace {

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
        return fail(QStringLiteral("'%1' is not a terminal property (known: %2)").arg(name, [] {
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

// One "name": value member of a JSON terminal file, with the line its name stands on. Values
// are given as text: strings as they are, numbers as the shortest exact decimal, arrays and
// objects as "[...]" and "{...}" (no property takes those).
struct Member
{
    QString name;
    QString value;
    int line;
};

// Reads the one flat object a JSON terminal file holds. Qt's JSON reader is not used for it: it
// keeps only the last of repeated names, forgets where each stood, and in Qt 5.15 loses the
// memory of an object or array that a repeated name replaces.
class Json_members
{
public:
    explicit Json_members(const QByteArray& text) : s_(text) {}

    // False with `what` ("LINE: what was wrong") at the first fault.
    bool read(QVector<Member>& members, QString& what)
    {
        skip_space();
        if (!eat('{'))
            return fail(what, "expected one object");
        skip_space();
        if (!eat('}')) {
            do {
                skip_space();
                Member m;
                m.line = line();
                const bool quoted = peek() == '"';
                if (!string(m.name))
                    return fail(what, quoted ? what_ : QStringLiteral("expected a name in double quotes"));
                skip_space();
                if (!eat(':'))
                    return fail(what, "expected ':' after the name");
                skip_space();
                if (!value(m.value))
                    return fail(what, what_);
                members.append(m);
                skip_space();
            } while (eat(','));
            if (!eat('}'))
                return fail(what, "expected ',' or '}'");
        }
        skip_space();
        if (i_ < s_.size())
            return fail(what, "text after the object");
        return true;
    }

private:
    char peek() const { return i_ < s_.size() ? s_[i_] : '\0'; }
    bool eat(char c)
    {
        if (i_ >= s_.size() || s_[i_] != c)
            return false;
        ++i_;
        return true;
    }
    void skip_space()
    {
        while (i_ < s_.size() && (s_[i_] == ' ' || s_[i_] == '\t' || s_[i_] == '\n' || s_[i_] == '\r'))
            ++i_;
    }
    // Counts on from where it last counted: reading only moves forward.
    int line()
    {
        line_ += int(std::count(s_.begin() + counted_, s_.begin() + i_, '\n'));
        counted_ = i_;
        return line_;
    }
    bool fail(QString& what, const QString& text)
    {
        what = QStringLiteral("%1: %2").arg(line()).arg(text);
        return false;
    }
    bool fault(const char* text)
    {
        what_ = QLatin1String(text);
        return false;
    }

    bool string(QString& out)
    {
        if (!eat('"'))
            return false;
        QByteArray run; // UTF-8 bytes since the last escape
        while (i_ < s_.size() && s_[i_] != '"') {
            const char c = s_[i_++];
            if (uchar(c) < 0x20)
                return fault("a control character in a string");
            if (c != '\\') {
                run.append(c);
                continue;
            }
            out += QString::fromUtf8(run);
            run.clear();
            const char e = i_ < s_.size() ? s_[i_++] : '\0';
            static const char plain[] = "\"\\/bfnrt", meant[] = "\"\\/\b\f\n\r\t";
            if (const char* p = e ? std::strchr(plain, e) : nullptr) {
                out += QLatin1Char(meant[p - plain]);
            } else if (e == 'u') {
                const QByteArray hex = s_.mid(i_, 4);
                if (hex.size() != 4 ||
                    !std::all_of(hex.begin(), hex.end(), [](char h) { return std::isxdigit(uchar(h)); }))
                    return fault("\\u needs four hexadecimal digits");
                out += QChar(ushort(hex.toUShort(nullptr, 16)));
                i_ += 4;
            } else {
                return fault("an unknown escape in a string");
            }
        }
        if (!eat('"'))
            return fault("a string is not closed");
        out += QString::fromUtf8(run);
        return true;
    }

    bool value(QString& out)
    {
        const char c = peek();
        if (c == '"')
            return string(out);
        if (c == '[' || c == '{')
            return nested(out);
        for (const char* word : {"true", "false", "null"})
            if (s_.mid(i_, int(std::strlen(word))) == word) {
                i_ += int(std::strlen(word));
                out = QLatin1String(word);
                return true;
            }
        return number(out);
    }

    bool number(QString& out)
    {
        const int from = i_;
        auto digits = [&] {
            const int first = i_;
            while (i_ < s_.size() && s_[i_] >= '0' && s_[i_] <= '9')
                ++i_;
            return i_ > first;
        };
        eat('-');
        if (!(eat('0') || digits()))
            return fault("expected a value");
        if (eat('.') && !digits())
            return fault("a number needs digits after its point");
        if ((eat('e') || eat('E')) && !((eat('+') || eat('-') || true) && digits()))
            return fault("a number needs digits in its exponent");
        out = QString::number(s_.mid(from, i_ - from).toDouble(), 'g', 17);
        return true;
    }

    // Steps over an array or object, strings in it included, without recursing.
    bool nested(QString& out)
    {
        out = peek() == '[' ? QStringLiteral("[...]") : QStringLiteral("{...}");
        QByteArray closers;
        do {
            const char c = s_[i_];
            if (c == '"') {
                QString ignored;
                if (!string(ignored))
                    return false;
                continue;
            }
            ++i_;
            if (c == '[' || c == '{')
                closers.append(c == '[' ? ']' : '}');
            else if (c == ']' || c == '}') {
                if (c != closers.back())
                    return fault("brackets do not match");
                closers.chop(1);
            }
        } while (!closers.isEmpty() && i_ < s_.size());
        return closers.isEmpty() || fault("an array or object is not closed");
    }

    const QByteArray& s_;
    int i_ = 0;
    int line_ = 1, counted_ = 0;
    QString what_;
};

bool read_json(const QByteArray& content, const QString& file, Terminal& t, QSet<QString>& seen, QString* error)
{
    QVector<Member> members;
    QString what;
    if (!Json_members(content).read(members, what)) {
        if (error)
            *error = file + ":" + what;
        return false;
    }
    for (const Member& m : members)
        if (!apply(t, QStringLiteral("%1:%2").arg(file).arg(m.line), m.name, m.value, seen, error))
            return false;
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
