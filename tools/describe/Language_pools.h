#ifndef TOOLS_DESCRIBE_LANGUAGE_POOLS_H
#define TOOLS_DESCRIBE_LANGUAGE_POOLS_H

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

#include "tools/describe/Description_writer.h"

namespace VT {

// The texts of a pool in further languages, read from the pools of those languages: each a
// whole pool or a partial one (only the objects it changes). A language's pool may change the
// texts of output and input strings, string variables and input attributes and nothing else;
// anything else that differs is a problem naming the object and both files.
class Language_pools
{
public:
    struct Given
    {
        QByteArray code; // two lower-case letters
        QString file;    // named in problems
        QByteArray bytes;
    };

    // The pool's default language: the first language its working set lists, or "en".
    static QByteArray default_language(Object_pool& pool);

    // The texts of `pool` (its bytes `bytes`, read from `file`) in each given language, with
    // the default language `default_code`. False, with `problems`, when a language cannot be
    // described: a code used twice or not two lower-case letters, a pool that does not read,
    // objects that differ in more than their texts, or texts a description cannot give back.
    static bool read(Object_pool& pool, const QByteArray& bytes, const QString& file, const QByteArray& default_code,
                     const QVector<Given>& given, Described_languages& out, QStringList& problems);

    // Whether a language code is two lower-case letters.
    static bool valid_code(const QByteArray& code);
};

}

#endif
