#include "tools/description/Translations.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextCodec>
#include <cctype>

#include "tools/description/Text_table.h"
#include "tools/description/Values.h"

namespace VT {

namespace {

// The object types whose text a description may translate; all of them name it "string".
bool has_text(const QByteArray& type)
{
    return type == "Output_string" || type == "Input_string" || type == "String_variable" ||
           type == "Input_attributes";
}

// The object an attribute of `e` refers to, by name or id, or defined inside it as
// <attr_KEY>.
Xml_element* referenced(Xml_element* e, const char* key, const Translations::Finder& find)
{
    if (const QByteArray* v = e->attribute(key))
        return find(v->trimmed());
    const QByteArray wrapper = QByteArray("attr_") + key;
    for (const auto& c : e->children)
        if (c->name == wrapper)
            for (const auto& inner : c->children)
                if (inner->is_object())
                    return inner.get();
    return nullptr;
}

uint8_t font_type_of(const Xml_element* font)
{
    const QByteArray* v = font && font->name == "Font_attributes" ? font->attribute("font_type") : nullptr;
    bool negative = false;
    quint64 type = 0;
    if (!v || !Values::parse_integer(*v, negative, type) || negative || type > 255)
        return 0;
    return uint8_t(type);
}

bool true_value(const QByteArray* v)
{
    bool negative = false;
    quint64 n = 0;
    return v && Values::parse_integer(*v, negative, n) && n != 0;
}

}

QString Translations::code_plane_name(uint8_t font_type)
{
    switch (font_type) {
    case 1:
        return QStringLiteral("ISO 8859-15");
    case 2:
        return QStringLiteral("ISO 8859-2");
    case 4:
        return QStringLiteral("ISO 8859-4");
    case 5:
        return QStringLiteral("ISO 8859-5");
    case 7:
        return QStringLiteral("ISO 8859-7");
    default: // reserved and proprietary types read as ISO 8859-1
        return QStringLiteral("ISO 8859-1");
    }
}

namespace {

// "ISO 8859-5" is the codec "ISO-8859-5".
QTextCodec* codec_of(uint8_t font_type)
{
    return QTextCodec::codecForName("ISO-" + Translations::code_plane_name(font_type).mid(4).toLatin1());
}

}

QString Translations::decode(const QByteArray& bytes, uint8_t font_type)
{
    QTextCodec* codec = codec_of(font_type);
    return codec ? codec->toUnicode(bytes) : QString::fromLatin1(bytes);
}

bool Translations::encode(const QString& text, uint8_t font_type, QByteArray& out, QString* bad)
{
    QTextCodec* codec = codec_of(font_type);
    if (!codec)
        return false;
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    out = codec->fromUnicode(text.constData(), text.size(), &state);
    if (state.invalidChars == 0)
        return true;
    if (bad)
        for (int i = 0; i < text.size(); ++i) {
            // A character beyond 16 bits is a pair of halves, shown together.
            const int n = text[i].isHighSurrogate() && i + 1 < text.size() ? 2 : 1;
            if (!codec->canEncode(text.mid(i, n))) {
                *bad = text.mid(i, n);
                break;
            }
            i += n - 1;
        }
    return false;
}

bool Translations::translatable(const QString& text)
{
    for (QChar c : text)
        if (c.isLetter())
            return true;
    return false;
}

bool Translations::has_texts(const QByteArray& language) const
{
    if (language == default_language())
        return true;
    for (const Object_texts& o : texts)
        if (o.texts.contains(language))
            return true;
    return false;
}

bool Translations::bytes_in(const Object_texts& o, const QByteArray& language, QByteArray& out) const
{
    auto it = o.texts.constFind(language);
    if (it == o.texts.constEnd() || !encode(it->text, o.font_type, out))
        return false;
    if (out.size() < o.length && o.element->name != "Input_attributes")
        out += QByteArray(o.length - out.size(), ' ');
    return true;
}

void Translations::read_languages(Xml_element& root, const QString& file, QStringList& problems)
{
    const QString where = QStringLiteral("%1:%2: ").arg(file).arg(root.line);
    const QByteArray* list = root.attribute("languages");
    if (!list)
        return;
    root.mark_used("languages");
    for (QByteArray code : list->simplified().replace(',', ' ').split(' ')) {
        if (code.isEmpty())
            continue;
        if (code.size() != 2 || !std::islower(uchar(code[0])) || !std::islower(uchar(code[1])))
            problems.append(where + QStringLiteral("language '%1' is not a two-letter lower-case code such as en or de")
                                        .arg(QString::fromUtf8(code)));
        else if (codes.contains(code))
            problems.append(where + QStringLiteral("language '%1' is declared twice").arg(QString::fromUtf8(code)));
        else
            codes.append(code);
    }
    if (codes.isEmpty())
        problems.append(where + QStringLiteral("languages declares no language"));
}

void Translations::add(Object_texts& o, const QByteArray& language, const Text& t, QStringList& problems)
{
    const QString at = t.where() + QStringLiteral(": ");
    const QString who = QStringLiteral("'%1' (%2)").arg(QString::fromUtf8(o.name), QString::fromUtf8(o.element->name));
    auto given = o.texts.constFind(language);
    if (given != o.texts.constEnd()) {
        problems.append(at + QStringLiteral("%1 has a '%2' text at %3 already")
                                 .arg(who, QString::fromUtf8(language), given->where()));
        return;
    }
    QByteArray bytes;
    QString bad;
    if (!encode(t.text, o.font_type, bytes, &bad)) {
        problems.append(at + QStringLiteral("the '%1' text of %2 holds '%3', which is not in %4 (font type %5)")
                                 .arg(QString::fromUtf8(language), who, bad, code_plane_name(o.font_type))
                                 .arg(o.font_type));
        return;
    }
    if (bytes.size() > o.length && !o.grows) {
        problems.append(at + QStringLiteral("the '%1' text of %2 is %3 characters long, longer than its length %4 "
                                            "(the default text's; grow=\"true\" on the object lets it grow)")
                                 .arg(QString::fromUtf8(language), who)
                                 .arg(bytes.size())
                                 .arg(o.length));
        return;
    }
    o.texts.insert(language, t);
}

void Translations::read_table(const QByteArray& language, const QString& path, QStringList& problems)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        problems.append(QStringLiteral("%1: cannot read the '%2' texts: %3")
                            .arg(path, QString::fromUtf8(language), f.errorString()));
        return;
    }
    for (const Text_table::Entry& entry : Text_table::read(f.readAll(), path, problems)) {
        const int at = by_name.value(entry.name, -1);
        if (at < 0) {
            problems.append(QStringLiteral("%1:%2: the description has no object '%3' with a text")
                                .arg(path)
                                .arg(entry.line)
                                .arg(QString::fromUtf8(entry.name)));
            continue;
        }
        add(texts[at], language, {entry.text, path, entry.line}, problems);
    }
}

void Translations::read(Xml_element& root, const QVector<Xml_element*>& objects, const Finder& find,
                        const QString& file, QStringList& problems)
{
    read_languages(root, file, problems);
    // The code plane of a text is its font's; a variable's or a validation string's is that of
    // the first string that shows it.
    QHash<const Xml_element*, uint8_t> font_types;
    for (Xml_element* e : objects) {
        if (e->name != "Output_string" && e->name != "Input_string")
            continue;
        const uint8_t type = font_type_of(referenced(e, "font_attributes", find));
        font_types.insert(e, type);
        for (const char* key : {"variable_reference", "input_attributes"})
            if (Xml_element* shown = referenced(e, key, find))
                if (!font_types.contains(shown))
                    font_types.insert(shown, type);
    }
    for (Xml_element* e : objects) {
        if (!has_text(e->name) || !e->attribute("name"))
            continue;
        Object_texts o;
        o.element = e;
        o.name = *e->attribute("name");
        o.font_type = font_types.value(e, 0);
        o.grows = true_value(e->attribute("grow"));
        e->mark_used("grow");
        QByteArray hex_bytes;
        if (const QByteArray* hex = e->attribute("string.hex")) {
            if (Values::decode_hex(*hex, hex_bytes))
                o.default_text = QString::fromLatin1(hex_bytes);
            o.length = hex_bytes.size();
        } else if (const QByteArray* text = e->attribute("string")) {
            o.default_text = QString::fromUtf8(*text);
            o.length = o.default_text.size();
        }
        by_name.insert(o.name, texts.size());
        texts.append(o);
    }
    // Inline translations: string.de="...".
    for (Object_texts& o : texts)
        for (Xml_attribute& a : o.element->attributes) {
            if (!a.key.startsWith("string.") || a.key == "string.hex")
                continue;
            a.used = true;
            const QByteArray language = a.key.mid(7);
            const QString at = QStringLiteral("%1:%2: ").arg(file).arg(o.element->line);
            if (!codes.contains(language))
                problems.append(at + QStringLiteral("'%1': '%2' is not among the languages <object_pool> declares")
                                         .arg(QString::fromUtf8(a.key), QString::fromUtf8(language)));
            else if (language == default_language())
                problems.append(at + QStringLiteral("'%1': the default language's text is 'string' itself")
                                         .arg(QString::fromUtf8(a.key)));
            else
                add(o, language, {QString::fromUtf8(a.value), file, o.element->line}, problems);
        }
    const QByteArray* folder = root.attribute("texts");
    if (!folder)
        return;
    root.mark_used("texts");
    if (codes.isEmpty()) {
        problems.append(QStringLiteral("%1:%2: texts needs the languages they are in (languages=\"en de\")")
                            .arg(file)
                            .arg(root.line));
        return;
    }
    // Tables are named as the description is, so that messages show paths the user knows.
    const QDir dir(QDir(QFileInfo(file).path()).filePath(QString::fromUtf8(*folder)));
    for (const QByteArray& language : codes.mid(1))
        read_table(language, dir.filePath(QString::fromUtf8(language) + ".txt"), problems);
}

}
