#ifndef TOOLS_SOURCE_LANGUAGE_TABLES_H
#define TOOLS_SOURCE_LANGUAGE_TABLES_H

#include <QByteArray>
#include <QPair>
#include <QString>
#include <QVector>
#include <ostream>

namespace VT {

// What generated source carries for a pool in several languages, so that an application
// switches the terminal's language at run time without being built again: for every language,
// the default included, a table of the objects that differ between any two of the languages,
// as that language has them. Sent to the terminal (an object pool transfer), a table's objects
// replace those of their ids, and whatever language the terminal held, it then holds the pool
// in the table's language.
class Language_tables
{
public:
    struct Language
    {
        QByteArray code;
        QByteArray pool; // the whole pool in this language
    };

    struct Table
    {
        QByteArray code;
        QByteArray bytes; // the objects, one after the other
        struct Object
        {
            uint16_t id;
            int offset; // where its bytes start in `bytes`
            int size;
        };
        QVector<Object> objects;
    };

    // The tables of `languages`, the default first. False, with `error` set, when a pool does
    // not read, or when a table put over the pool in another language does not give the pool
    // in its own (the languages' pools must hold the same objects in the same order).
    static bool make(const QVector<Language>& languages, QVector<Table>& out, QString* error);

    // The C++ types of the tables: written once, in the source or in the header it includes.
    static const char* types();
    // The declaration of language_table(), for the header.
    static const char* lookup_declaration();
    // The tables and language_table() (with the types when `with_types`).
    static void write(const QVector<Table>& tables, bool with_types, std::ostream& os);
};

}

#endif
