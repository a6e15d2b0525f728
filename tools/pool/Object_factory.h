#ifndef TOOLS_POOL_OBJECT_FACTORY_H
#define TOOLS_POOL_OBJECT_FACTORY_H

#include <QByteArray>
#include <QList>
#include <QString>

#include "vt_core.h"

namespace VT {

// Which class builds an object of a given type. One table of entries; adding a class is one
// line there. Type names are those of VT_obj_type::get_type_string.
class Object_factory
{
public:
    struct Entry
    {
        VT_obj_type::type_t type; // full type (configuration objects carry their extended type)
        VT_obj* (*make)(Spec_node* spec_node);
        // Builds the object in `size` bytes of storage at `place` (aligned for any object);
        // it is then ended with its destructor, never with delete.
        VT_obj* (*make_at)(void* place, Spec_node* spec_node);
        size_t size;
        bool in_pool_files;       // false: built only from descriptions (travels as another type)
        const char* name() const { return VT_obj_type::get_type_string(type); }
    };

    // The entry for a type name of a description, or null.
    static const Entry* find(const QString& type_name);
    static const Entry* find(const QByteArray& type_name); // UTF-8, as descriptions are read
    // The entry that reads objects of this full type from pool bytes, or null.
    static const Entry* find_for_pool(unsigned full_type);
    static const QList<const Entry*>& all();

    // Whether the type catalogue knows a type of this full type or name, whether or not this
    // build has a class for it.
    static bool catalogue_knows(unsigned full_type);
    static bool catalogue_knows(const QByteArray& type_name);
};

}

#endif
