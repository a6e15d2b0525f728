#include "tools/describe/Object_names.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include "tools/description/Values.h"

namespace VT {

namespace {

const char* const cpp_keywords[] = {
    "alignas", "alignof", "and", "and_eq", "asm", "auto", "bitand", "bitor", "bool", "break", "case", "catch", "char",
    "char16_t", "char32_t", "class", "compl", "const", "constexpr", "const_cast", "continue", "decltype", "default",
    "delete", "do", "double", "dynamic_cast", "else", "enum", "explicit", "export", "extern", "false", "float", "for",
    "friend", "goto", "if", "inline", "int", "long", "mutable", "namespace", "new", "noexcept", "not", "not_eq",
    "nullptr", "operator", "or", "or_eq", "private", "protected", "public", "register", "reinterpret_cast", "return",
    "short", "signed", "sizeof", "static", "static_assert", "static_cast", "struct", "switch", "template", "this",
    "thread_local", "throw", "true", "try", "typedef", "typeid", "typename", "union", "unsigned", "using", "virtual",
    "void", "volatile", "wchar_t", "while", "xor", "xor_eq",
    // names that generated source itself uses
    "Pool", "Pool_data", "Oids", "objects", "VT", "Base", "NULL", "memcpy", "std"};

// The value of a #define: a number, maybe in parentheses, maybe with an unsigned suffix.
bool parse_id(QByteArray text, uint16_t& id)
{
    text = text.trimmed();
    while (text.startsWith('(') && text.endsWith(')'))
        text = text.mid(1, text.size() - 2).trimmed();
    while (!text.isEmpty() && (text.endsWith('u') || text.endsWith('U')))
        text.chop(1);
    bool negative = false;
    quint64 v = 0;
    if (text.isEmpty() || !(text[0] >= '0' && text[0] <= '9') || !Values::parse_integer(text, negative, v) ||
        v >= VT_obj::NULL_ID)
        return false;
    id = uint16_t(v);
    return true;
}

}

Object_names::By_id Object_names::parse_header(const QByteArray& text, const QString& file, QStringList& warnings)
{
    static const QRegularExpression define(QStringLiteral("^\\s*#\\s*define\\s+([A-Za-z_][A-Za-z0-9_]*)\\s+([^/]*)"));
    static const QRegularExpression constant(
        QStringLiteral("^\\s*(?:static\\s+)?constexpr\\s+[A-Za-z_:0-9 ]+\\s([A-Za-z_][A-Za-z0-9_]*)\\s*=\\s*([^;]*);"));
    By_id names;
    QHash<uint16_t, int> line_of;
    const QList<QByteArray> lines = text.split('\n');
    for (int i = 0; i < lines.size(); ++i) {
        const QString line = QString::fromUtf8(lines[i]);
        QRegularExpressionMatch m = define.match(line);
        if (!m.hasMatch())
            m = constant.match(line);
        uint16_t id = 0;
        if (!m.hasMatch() || !parse_id(m.captured(2).toUtf8(), id))
            continue;
        const QByteArray name = m.captured(1).toUtf8();
        if (names.contains(id)) {
            warnings.append(QStringLiteral("%1:%2: '%3' names id %4, which '%5' (line %6) already names; '%5' is kept")
                                .arg(file)
                                .arg(i + 1)
                                .arg(QString::fromUtf8(name))
                                .arg(id)
                                .arg(QString::fromUtf8(names.value(id)))
                                .arg(line_of.value(id)));
            continue;
        }
        names.insert(id, name);
        line_of.insert(id, i + 1);
    }
    return names;
}

bool Object_names::read_header(const QString& path, By_id& names, QStringList& problems, QStringList& warnings)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        problems.append(QStringLiteral("%1: cannot open: %2").arg(path, f.errorString()));
        return false;
    }
    names = parse_header(f.readAll(), path, warnings);
    if (names.isEmpty())
        warnings.append(QStringLiteral("%1: no '#define NAME ID' lines").arg(path));
    return true;
}

bool Object_names::usable(const QByteArray& name)
{
    if (name.isEmpty() || name.size() > VT_obj::NAME_LEN || name == VT_obj::NO_NAME)
        return false;
    for (char c : name)
        if (uchar(c) < 0x20 || c == 0x7F)
            return false;
    bool negative = false;
    quint64 v = 0;
    return !Values::parse_integer(name, negative, v) && name.trimmed() == name;
}

bool Object_names::is_identifier(const QByteArray& n)
{
    if (n.isEmpty() || !(isalpha(uchar(n[0])) || n[0] == '_'))
        return false;
    for (char c : n)
        if (!(isalnum(uchar(c)) || c == '_'))
            return false;
    for (const char* k : cpp_keywords)
        if (n == k)
            return false;
    return true;
}

Object_names::By_id Object_names::choose(const Object_pool& pool, const By_id& given, QStringList& warnings)
{
    By_id chosen;
    QSet<QByteArray> taken;
    auto label = [](VT_obj* obj) {
        return QStringLiteral("%1 %2").arg(QString::fromLatin1(obj->get_type_string())).arg(obj->get_id());
    };
    // The names of the header and the objects' own names first, so that a default name, which
    // only says what the object is, gives way to them.
    QVector<VT_obj*> later;
    for (VT_obj* obj : pool.objects()) {
        const uint16_t id = obj->get_id();
        char fallback[VT_obj::NAME_LEN + 1];
        Object_pool::write_default_name(obj->get_type(), id, fallback);
        QByteArray name = given.value(id);
        if (!name.isEmpty() && (!usable(name) || taken.contains(name))) {
            warnings.append(QStringLiteral("'%1' cannot name %2: %3")
                                .arg(QString::fromUtf8(name), label(obj),
                                     usable(name) ? "another object has that name" : "it is not usable as a name"));
            name.clear();
        }
        if (name.isEmpty()) {
            name = obj->VT_obj_base::get_name();
            if (name == fallback || !usable(name) || taken.contains(name)) {
                later.append(obj);
                continue;
            }
        }
        taken.insert(name);
        chosen.insert(id, name);
    }
    for (VT_obj* obj : later) {
        char fallback[VT_obj::NAME_LEN + 1];
        Object_pool::write_default_name(obj->get_type(), obj->get_id(), fallback);
        QByteArray name(fallback);
        for (int n = 2; taken.contains(name); ++n)
            name = QByteArray(fallback).left(VT_obj::NAME_LEN - 4) + "_" + QByteArray::number(n);
        if (name != fallback || !given.value(obj->get_id()).isEmpty())
            warnings.append(QStringLiteral("%1 is named '%2'").arg(label(obj), QString::fromUtf8(name)) +
                            (name != fallback ? QStringLiteral(": '%1' is taken").arg(QString::fromUtf8(fallback))
                                              : QString()));
        taken.insert(name);
        chosen.insert(obj->get_id(), name);
    }
    return chosen;
}

}
