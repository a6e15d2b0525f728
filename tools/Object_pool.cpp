#include "tools/Object_pool.h"

#include <cassert>
#include <cstring>

namespace VT {

void Object_pool::Helper::lock() const
{
    ++depth;
}

void Object_pool::Helper::unlock() const
{
    assert(depth > 0 && "pool unlocked more often than locked");
    if (depth > 0)
        --depth;
}

void Object_pool::Helper::__check_locked() const
{
    assert(depth > 0 && "object accessed without holding its pool's lock");
}

VT_obj* Object_pool::Helper::find_object(const Attribute_object_placement& placement)
{
    return pool.find(placement.get_object_id());
}

void Object_pool::Helper::upload(VT_obj* obj, bool flag)
{
    pool.upload_log.append({obj ? obj->__get_id() : uint16_t(65535), flag});
    if (pool.on_upload)
        pool.on_upload(obj, flag);
}

Object_pool::Object_pool() : pool_helper(*this) {}

Object_pool::~Object_pool()
{
    clear();
    kept.clear();
}

void Object_pool::clear()
{
    QVector<VT_obj*> old;
    old.swap(list);
    by_id.clear();
    by_name.clear();
    for (VT_obj* obj : old)
        delete obj;
}

bool Object_pool::add(VT_obj* obj, QString* error)
{
    if (!obj) {
        if (error)
            *error = QStringLiteral("no object");
        return false;
    }
    uint16_t id = obj->get_id();
    QByteArray name(obj->VT_obj_base::get_name());
    auto fail = [&](const QString& why) {
        if (error)
            *error = why;
        delete obj;
        return false;
    };
    if (id == VT_obj::NULL_ID)
        return fail(QStringLiteral("'%1' has the NULL id 65535").arg(QString::fromUtf8(name)));
    if (by_id.contains(id))
        return fail(QStringLiteral("id %1 of '%2' is already used by '%3'")
                        .arg(id)
                        .arg(QString::fromUtf8(name))
                        .arg(QString::fromUtf8(by_id.value(id)->VT_obj_base::get_name())));
    bool named = !name.isEmpty() && name != VT_obj::NO_NAME;
    if (named && by_name.contains(name))
        return fail(QStringLiteral("name '%1' is already used by object %2")
                        .arg(QString::fromUtf8(name))
                        .arg(by_name.value(name)->__get_id()));
    obj->set_pool_helper(&pool_helper);
    list.append(obj);
    by_id.insert(id, obj);
    if (named)
        by_name.insert(name, obj);
    return true;
}

uint16_t Object_pool::lowest_free_id(uint16_t from) const
{
    for (uint32_t id = from; id < 65535; ++id)
        if (!by_id.contains(uint16_t(id)))
            return uint16_t(id);
    return 65535;
}

}
