#ifndef TOOLS_POOL_OBJECT_FACTORY_H
#define TOOLS_POOL_OBJECT_FACTORY_H

#include <QByteArray>
#include <QList>
#include <QString>

#include "vt_core.h"

namespace VT {

// How a pool lays out the object types VT version 6 added: this library's own forms of types 46
// and 47 (PNG_obj, Working_set_special_controls_obj; the default), or those of ISO 11783-6
// (Graphic_data_obj, Iso_special_controls_obj, and Scaled_graphic_obj for type 48). Pool bytes
// cannot tell them apart, so each pool says which it holds.
enum class Vt6_objects : uint8_t { legacy, iso };

// "legacy", "iso"; parsing gives false for any other text.
const char* vt6_objects_name(Vt6_objects form);
bool parse_vt6_objects(const QByteArray& text, Vt6_objects& out);

// Which class builds an object of a given type. One table of entries; adding a class is one
// line there. Type names are those of VT_obj_type::get_type_string, and for the ISO forms of the
// version 6 objects, which the catalogue leaves unnamed, the names their classes give.
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
        // The forms of pool in whose files objects of this class stand (bit 0 legacy, bit 1 iso);
        // 0: built only from descriptions (travels as another type).
        uint8_t pool_forms;
        bool in_pool_files() const { return pool_forms != 0; }
        bool in_form(Vt6_objects form) const { return pool_forms >> unsigned(form) & 1; }
        // The name of a type the catalogue leaves unnamed (the ISO forms), else null.
        const char* own_name;
        const char* name() const { return own_name ? own_name : VT_obj_type::get_type_string(type); }
    };

    // The entry for a type name of a description, or null.
    static const Entry* find(const QString& type_name);
    static const Entry* find(const QByteArray& type_name); // UTF-8, as descriptions are read
    // The entry that reads objects of this full type from pool bytes of a pool of the form, or
    // null. The full type is the type byte, and for configuration objects their kind above it.
    static const Entry* find_for_pool(unsigned full_type, Vt6_objects form = Vt6_objects::legacy);
    static const QList<const Entry*>& all();
    // The name of a full type: its class's, else the catalogue's ("UNKNOWN" for types neither
    // knows).
    static const char* type_name(unsigned full_type);

    // Whether a type of this full type or name is known, to the catalogue or by a class, whether
    // or not this build has a class for it.
    static bool catalogue_knows(unsigned full_type);
    static bool catalogue_knows(const QByteArray& type_name);
};

}

#endif
