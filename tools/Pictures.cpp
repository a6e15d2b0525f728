#include "tools/Pictures.h"

namespace VT {

QStringList Pictures::write_all(Object_pool& pool, const QString&, QStringList& problems)
{
    for (VT_obj* obj : pool.objects()) {
        unsigned t = obj->get_type();
        if (t == VT_obj_type::TYPE_PICTURE_GRAPHIC || t == VT_obj_type::TYPE_PNG)
            problems.append(QStringLiteral("'%1': pictures are not available in this build")
                                .arg(QString::fromUtf8(obj->VT_obj_base::get_name())));
    }
    return {};
}

}
