#ifndef TOOLS_SOURCE_ID_HEADER_H
#define TOOLS_SOURCE_ID_HEADER_H

#include <QByteArray>
#include <QString>

#include "tools/pool/Object_pool.h"

namespace VT {

// A C or C++ header naming the id of every object of a pool, as application code needs them:
// one "#define NAME ID" per object, or "constexpr uint16_t NAME = ID;" in a namespace.
class Id_header
{
public:
    struct Options
    {
        bool as_constexpr = false;
        QString name_space; // the constants' namespace (constexpr only; empty: none)
        QString file;       // where the header goes: its include guard comes from the file name
        QString origin;     // the pool, named in the opening comment
        // Also declares NAME_SPACE::objects(), which source generated with the same namespace
        // defines (vtpool source --header).
        bool declares_objects = false;
        // Also declares the types of the language tables and language_table(), which source
        // generated for a pool in several languages defines.
        bool declares_languages = false;
    };

    // False (and `error`) when an object's name cannot be a C name.
    static bool write(const Object_pool& pool, const Options& options, QByteArray& out, QString* error);
};

}

#endif
