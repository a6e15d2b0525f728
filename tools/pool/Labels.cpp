#include "tools/pool/Labels.h"

#include "tools/pool/Object_factory.h"

namespace VT {

QString object_label(VT_obj* obj)
{
    if (!obj)
        return QStringLiteral("(none)");
    return QStringLiteral("'%1' (%2 %3)")
        .arg(QString::fromUtf8(obj->VT_obj_base::get_name()), QString::fromLatin1(obj->get_type_string()))
        .arg(obj->get_id());
}

QString type_name(unsigned full_type)
{
    return QString::fromLatin1(Object_factory::type_name(full_type));
}

}
