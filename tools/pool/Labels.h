#ifndef TOOLS_POOL_LABELS_H
#define TOOLS_POOL_LABELS_H

#include <QString>

#include "vt_core.h"

namespace VT {

// How messages of the host name an object: "'name' (Type id)", or "(none)" for no object.
QString object_label(VT_obj* obj);
// The catalogue's name of a full type.
QString type_name(unsigned full_type);

}

#endif
