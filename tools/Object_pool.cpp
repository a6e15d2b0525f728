#include "tools/Object_pool.h"

#include <cassert>
#include <algorithm>
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
    by_id.reset();
    by_name.clear();
    for (VT_obj* obj : old)
        delete obj;
}

uint32_t Object_pool::Name_index::hash_of(const char* s, size_t len)
{
    // Eight bytes at a time, multiplied and folded.
    uint64_t h = 0x9E3779B97F4A7C15ull ^ len;
    size_t i = 0;
    for (; i + 8 <= len; i += 8) {
        uint64_t w;
        memcpy(&w, s + i, 8);
        h = (h ^ w) * 0xFF51AFD7ED558CCDull;
        h ^= h >> 32;
    }
    if (i < len) {
        uint64_t w = 0;
        memcpy(&w, s + i, len - i);
        h = (h ^ w) * 0xFF51AFD7ED558CCDull;
        h ^= h >> 32;
    }
    return uint32_t(h);
}

const Object_pool::Name_index::Slot* Object_pool::Name_index::lookup(const char* name, size_t len, uint32_t h) const
{
    const size_t mask = table.size() - 1;
    for (size_t i = h & mask;; i = (i + 1) & mask) {
        const Slot& s = table[i];
        if (!s.key || (s.hash == h && s.len == len && memcmp(s.key, name, len) == 0))
            return &s;
    }
}

VT_obj* Object_pool::Name_index::find(const char* name, size_t len) const
{
    if (used == 0)
        return nullptr;
    const Slot* s = lookup(name, len, hash_of(name, len));
    return s->key ? s->obj : nullptr;
}

const char* Object_pool::Name_index::keep(const char* s, size_t len)
{
    const size_t BLOCK = 16384;
    if (len > block_left) {
        const size_t size = std::max(BLOCK, len);
        blocks.emplace_back(new char[size]);
        block_at = blocks.back().get();
        block_left = size;
    }
    char* at = block_at;
    if (len)
        memcpy(at, s, len);
    block_at += len;
    block_left -= len;
    return at;
}

void Object_pool::Name_index::grow()
{
    std::vector<Slot> old(std::max<size_t>(64, table.size() * 2));
    old.swap(table);
    const size_t mask = table.size() - 1;
    for (const Slot& s : old) {
        if (!s.key)
            continue;
        size_t i = s.hash & mask;
        while (table[i].key)
            i = (i + 1) & mask;
        table[i] = s;
    }
}

void Object_pool::Name_index::insert(const char* name, size_t len, VT_obj* obj)
{
    if (2 * (used + 1) > table.size())
        grow();
    const uint32_t h = hash_of(name, len);
    Slot& s = const_cast<Slot&>(*lookup(name, len, h));
    s.key = keep(name, len);
    s.len = uint32_t(len);
    s.hash = h;
    s.obj = obj;
    ++used;
}

void Object_pool::Name_index::clear()
{
    table.clear();
    used = 0;
    blocks.clear();
    block_left = 0;
    block_at = nullptr;
}

bool Object_pool::add(VT_obj* obj, QString* error)
{
    if (!obj) {
        if (error)
            *error = QStringLiteral("no object");
        return false;
    }
    uint16_t id = obj->get_id();
    const char* name = obj->VT_obj_base::get_name();
    const size_t name_len = strlen(name);
    auto fail = [&](const QString& why) {
        if (error)
            *error = why;
        delete obj;
        return false;
    };
    if (id == VT_obj::NULL_ID)
        return fail(QStringLiteral("'%1' has the NULL id 65535").arg(QString::fromUtf8(name)));
    if (VT_obj* other = find(id))
        return fail(QStringLiteral("id %1 of '%2' is already used by '%3'")
                        .arg(id)
                        .arg(QString::fromUtf8(name))
                        .arg(QString::fromUtf8(other->VT_obj_base::get_name())));
    bool named = name_len > 0 && strcmp(name, VT_obj::NO_NAME) != 0;
    if (named)
        if (VT_obj* other = by_name.find(name, name_len))
            return fail(QStringLiteral("name '%1' is already used by object %2")
                            .arg(QString::fromUtf8(name))
                            .arg(other->__get_id()));
    obj->set_pool_helper(&pool_helper);
    list.append(obj);
    if (!by_id) {
        by_id.reset(new VT_obj*[65536]);
        std::fill(by_id.get(), by_id.get() + 65536, nullptr);
    }
    by_id[id] = obj;
    if (named)
        by_name.insert(name, name_len, obj);
    return true;
}

uint16_t Object_pool::lowest_free_id(uint16_t from) const
{
    for (uint32_t id = from; id < 65535; ++id)
        if (!find(uint16_t(id)))
            return uint16_t(id);
    return 65535;
}

}
