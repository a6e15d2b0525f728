#ifndef TOOLS_SOURCE_SOURCE_GENERATOR_H
#define TOOLS_SOURCE_SOURCE_GENERATOR_H

#include <QString>
#include <ostream>

#include "tools/pool/Object_pool.h"
#include "tools/source/Language_tables.h"

namespace VT {

// C++ source that compiles a pool in: an Oids enumeration of the object ids, struct Pool_data
// with the arrays and struct Pool with the objects and the list Pool::objects.
class Source_generator
{
public:
    struct Options
    {
        // With a namespace, everything is inside it and the source defines
        // NAME_SPACE::objects(), the pool's objects in pool order, built on the first call.
        QString name_space;
        QString header; // a header to include first (the ID header that declares objects())
        // A pool in several languages: each language's table and language_table(), after the
        // pool (the types of the tables are the header's when there is one). Empty: none.
        QVector<Language_tables::Table> languages;
    };

    // False (and `error`) when the names cannot be C++ identifiers or references carry no names
    // (pool bytes); `origin` is named in the text's opening comment.
    static bool generate(Object_pool& pool, const QString& origin, std::ostream& os, QString* error,
                         const Options& options = Options());
};

}

#endif
