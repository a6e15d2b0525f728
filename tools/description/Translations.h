#ifndef TOOLS_DESCRIPTION_TRANSLATIONS_H
#define TOOLS_DESCRIPTION_TRANSLATIONS_H

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVector>
#include <functional>

#include "tools/description/Xml_element.h"

namespace VT {

// The texts of a description in each of its languages (docs/description-format.md): the
// languages its root declares, the first being the default, and the translations of every
// object with a text, given inline (string.de="...") or in one table file per language.
class Translations
{
public:
    // A translation and where it was given.
    struct Text
    {
        QString text;
        QString file;
        int line = 0;
        QString where() const { return QStringLiteral("%1:%2").arg(file).arg(line); }
    };

    // An object whose text may be translated (output and input strings, string variables,
    // input attributes' validation strings).
    struct Object_texts
    {
        Xml_element* element = nullptr;
        QByteArray name;
        QString default_text; // a text given in hexadecimal reads as ISO 8859-1
        int length = 0;       // the default text's bytes: what a translation may fill
        uint8_t font_type = 0; // the code plane its translations are written in
        bool grows = false;    // a longer translation makes the object longer
        QHash<QByteArray, Text> texts; // by language; the default language's is the description's own
    };

    // Resolves the name or id an attribute gives to the element of that object, or null.
    typedef std::function<Xml_element*(const QByteArray&)> Finder;

    // Reads the languages of the description whose root is `root` and the texts of `objects`
    // (its object elements). Problems ("file:line: text") are what makes a build in any
    // language wrong: unknown names, over-long translations, characters outside the code plane.
    // Table files lie in the folder the root's `texts` names, relative to the description `file`.
    void read(Xml_element& root, const QVector<Xml_element*>& objects, const Finder& find, const QString& file,
              QStringList& problems);

    // The declared languages, the default first; empty when the description declares none.
    const QList<QByteArray>& languages() const { return codes; }
    QByteArray default_language() const { return codes.value(0); }
    const QVector<Object_texts>& objects() const { return texts; }
    // Whether any object has a text in `language` (the default has the description's own).
    bool has_texts(const QByteArray& language) const;
    // Whether a default text holds something to translate (a letter), rather than blanks,
    // digits or signs.
    static bool translatable(const QString& text);

    // The bytes of o's text in `language`, padded with blanks to its length (a validation
    // string is not: blanks would become valid characters); false when o has no translation
    // in that language.
    bool bytes_in(const Object_texts& o, const QByteArray& language, QByteArray& out) const;

    // ISO 11783-6 font types: the name of the code plane of `font_type` ("ISO 8859-1" for the
    // types without one of their own), and a text in that plane. False when a character of
    // `text` is not in it; `bad` is then that character.
    static QString code_plane_name(uint8_t font_type);
    static bool encode(const QString& text, uint8_t font_type, QByteArray& out, QString* bad = nullptr);
    // The text whose bytes in the code plane of `font_type` are `bytes`.
    static QString decode(const QByteArray& bytes, uint8_t font_type);

private:
    void read_languages(Xml_element& root, const QString& file, QStringList& problems);
    void read_table(const QByteArray& language, const QString& path, QStringList& problems);
    void add(Object_texts& o, const QByteArray& language, const Text& t, QStringList& problems);

    QList<QByteArray> codes;
    QVector<Object_texts> texts;
    QHash<QByteArray, int> by_name; // index into texts
};

}

#endif
