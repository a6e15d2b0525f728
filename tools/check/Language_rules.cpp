#include "tools/check/Language_rules.h"

#include "tools/check/Rules.h"

namespace VT {
namespace Check {

namespace {

const Translations* translations(const Context& c)
{
    const Translations* t = c.source.translations.get();
    return t && !t->languages().isEmpty() ? t : nullptr;
}

// The first working set and the languages it lists; -1 when the pool has none.
int working_set(const Context& c, QList<QByteArray>& codes)
{
    for (int i = 0; i < c.size(); ++i)
        if (auto* ws = dynamic_cast<Base::Working_set_obj*>(c.objects[i])) {
            for (unsigned k = 0; k < ws->get_num_languages(); ++k) {
                const char two[2] = {char(ws->get_languages_byte_1(k)), char(ws->get_languages_byte_2(k))};
                codes.append(QByteArray(two, 2));
            }
            return i;
        }
    return -1;
}

QString code(const QByteArray& language)
{
    return QString::fromLatin1(language);
}

}

void missing_texts(Context& c)
{
    const Translations* t = translations(c);
    if (!t)
        return;
    for (const Translations::Object_texts& o : t->objects()) {
        const int i = c.index_of(c.pool.find(o.name));
        if (i < 0 || !Translations::translatable(o.default_text))
            continue;
        for (const QByteArray& language : t->languages().mid(1))
            if (!o.texts.contains(language) && !c.full())
                c.report(i, QStringLiteral("string"), code(language),
                         QStringLiteral("no '%1' text: a terminal in that language shows the default \"%2\"")
                             .arg(code(language), o.default_text),
                         QStringLiteral("give it a line in the '%1' table: %2 = \"...\"")
                             .arg(code(language), QString::fromUtf8(o.name)));
    }
}

void undeclared_languages(Context& c)
{
    const Translations* t = translations(c);
    QList<QByteArray> listed;
    const int ws = t ? working_set(c, listed) : -1;
    if (ws < 0)
        return;
    for (const QByteArray& language : t->languages())
        if (!listed.contains(language) && t->has_texts(language) && !c.full())
            c.report(ws, QStringLiteral("languages"), code(language),
                     QStringLiteral("the description has '%1' texts, but the working set does not list '%1' among "
                                    "its languages")
                         .arg(code(language)),
                     QStringLiteral("add <Language code=\"%1\"/> to the working set").arg(code(language)));
}

void languages_without_texts(Context& c)
{
    const Translations* t = translations(c);
    if (!t)
        return;
    QList<QByteArray> listed;
    const int ws = working_set(c, listed);
    for (const QByteArray& language : listed)
        if (!t->languages().contains(language) && !c.full())
            c.report(ws, QStringLiteral("languages"), code(language),
                     QStringLiteral("the working set lists '%1', in which the description has no texts (its languages "
                                    "are %2): a terminal in '%1' shows the default texts")
                         .arg(code(language), QString::fromLatin1(t->languages().join(' '))),
                     QStringLiteral("add '%1' to languages on <object_pool>, with its table, or drop it from the "
                                    "working set")
                         .arg(code(language)));
    for (const QByteArray& language : t->languages())
        if (!t->has_texts(language) && !c.full())
            c.report(ws, QStringLiteral("languages"), code(language),
                     QStringLiteral("'%1' is among the description's languages, but no object has a '%1' text")
                         .arg(code(language)),
                     QStringLiteral("translate the texts into '%1', or drop it from languages on <object_pool>")
                         .arg(code(language)));
}

}
}
