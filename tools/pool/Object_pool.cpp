#include "tools/pool/Object_pool.h"

#include <cassert>
#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iostream>

#include "tools/pool/Object_factory.h"

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
    arena.release();
    kept.clear();
}

// Objects made by create() carry the arena in the second word of their first list hook.
bool Object_pool::made_here(VT_obj* obj) const
{
    return obj->get_list_hook(0)[1] == &arena;
}

void Object_pool::destroy(VT_obj* obj)
{
    if (made_here(obj))
        obj->~VT_obj();
    else
        delete obj;
}

void Object_pool::clear()
{
    QVector<VT_obj*> old;
    old.swap(list);
    // The entries of the objects' ids are emptied one by one; should an object's id have
    // changed while it was held, its entry is not found so, and every page is emptied.
    size_t emptied = 0;
    for (const Deferred& d : deferred) {
        slot_made(d.id) = nullptr;
        ++emptied;
    }
    deferred.clear();
    sources.clear();
    for (VT_obj* obj : old) {
        if (!obj)
            continue;
        const uint16_t id = obj->__get_id();
        VT_obj** page = by_id[id >> ID_PAGE_BITS];
        if (page && page[id & (ID_PAGE_SIZE - 1)] == obj) {
            page[id & (ID_PAGE_SIZE - 1)] = nullptr;
            ++emptied;
        }
    }
    if (emptied != indexed)
        for (const auto& page : id_pages)
            std::fill(page.get(), page.get() + ID_PAGE_SIZE, nullptr);
    indexed = 0;
    by_name.clear();
    for (VT_obj* obj : old)
        if (obj)
            destroy(obj);
    // The list keeps its capacity for the objects that follow, as the arena keeps its blocks.
    old.resize(0);
    if (list.isEmpty())
        list.swap(old);
    arena.rewind();
}

VT_obj* Object_pool::create(const Object_factory::Entry& entry, Spec_node* spec_node)
{
    VT_obj* obj = entry.make_at(arena.allocate(entry.size), spec_node);
    obj->get_list_hook(0)[1] = &arena;
    return obj;
}

void Object_pool::discard(VT_obj* obj)
{
    if (!obj)
        return;
    const bool mine = made_here(obj);
    destroy(obj);
    if (mine)
        arena.release_last(obj);
}

void* Object_pool::Arena::allocate(size_t size)
{
    const size_t ALIGN = alignof(std::max_align_t);
    size = (size + ALIGN - 1) & ~(ALIGN - 1);
    if (size > left) {
        // Blocks kept from before a clear() are filled again first.
        while (reuse < blocks.size() && blocks[reuse].size < size)
            ++reuse;
        if (reuse < blocks.size()) {
            at = blocks[reuse].memory.get();
            left = blocks[reuse].size;
            ++reuse;
        } else {
            // Blocks of 16 KiB, each twice the one before up to 256 KiB: a small pool takes
            // little, a large one needs few blocks and leaves little unused.
            const size_t block = std::max((size_t(16) << 10) << std::min<size_t>(blocks.size(), 4), size);
            blocks.push_back({std::unique_ptr<unsigned char[]>(new unsigned char[block]), block});
            reuse = blocks.size();
            at = blocks.back().memory.get();
            left = block;
        }
    }
    void* p = at;
    at += size;
    left -= size;
    last = p;
    return p;
}

void Object_pool::Arena::release_last(void* p)
{
    if (p != last || blocks.empty())
        return;
    unsigned char* start = static_cast<unsigned char*>(p);
    left += size_t(at - start);
    at = start;
    last = nullptr;
}

void Object_pool::Arena::rewind()
{
    // The first block is used again from its start; the others are filled after it in order.
    reuse = 0;
    at = nullptr;
    left = 0;
    last = nullptr;
}

void Object_pool::Arena::release()
{
    blocks.clear();
    rewind();
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

Object_pool::Name_index::Probe Object_pool::Name_index::lookup(const char* name, size_t len,
                                                              const Objects& objects) const
{
    const uint32_t h = hash_of(name, len);
    const size_t mask = table.size() - 1;
    for (size_t i = h & mask;; i = (i + 1) & mask) {
        const Slot& s = table[i];
        if (s.position == 0)
            return {nullptr, uint32_t(i), h};
        if (s.hash == h) {
            VT_obj* obj = objects[int(s.position - 1)];
            const char* key = obj->VT_obj_base::get_name();
            if (memcmp(key, name, len) == 0 && key[len] == '\0')
                return {obj, uint32_t(i), h};
        }
    }
}

Object_pool::Name_index::Probe Object_pool::Name_index::probe(const char* name, size_t len, const Objects& objects)
{
    // Grown before looking, so that the free slot found stays valid for insert().
    if (4 * (used + 1) > 3 * table.size())
        grow();
    return lookup(name, len, objects);
}

VT_obj* Object_pool::Name_index::find(const char* name, size_t len, const Objects& objects) const
{
    if (used == 0)
        return nullptr;
    // A name longer than any object's cannot be indexed (and must not be compared past the
    // names kept in the objects).
    if (len > size_t(VT_obj::NAME_LEN))
        return nullptr;
    return lookup(name, len, objects).found;
}

void Object_pool::Name_index::insert(const Probe& at, uint32_t position)
{
    table[at.slot] = {at.hash, position + 1};
    ++used;
}

void Object_pool::Name_index::grow()
{
    std::vector<Slot> old(std::max<size_t>(64, table.size() * 2), Slot{0, 0});
    old.swap(table);
    const size_t mask = table.size() - 1;
    for (const Slot& s : old) {
        if (s.position == 0)
            continue;
        size_t i = s.hash & mask;
        while (table[i].position)
            i = (i + 1) & mask;
        table[i] = s;
    }
}

void Object_pool::Name_index::clear()
{
    table.clear();
    table.shrink_to_fit();
    used = 0;
}

namespace {

// The id a default name ends in: "_" and the id in decimal without leading zeros; -1 when the
// name does not end so. `prefix_len` receives the length before the "_".
int trailing_id(const char* name, size_t len, size_t* prefix_len)
{
    size_t i = len;
    unsigned id = 0;
    unsigned scale = 1;
    while (i > 0 && len - i < 5 && name[i - 1] >= '0' && name[i - 1] <= '9') {
        id += unsigned(name[i - 1] - '0') * scale;
        scale *= 10;
        --i;
    }
    const size_t digits = len - i;
    if (digits == 0 || i < 2 || name[i - 1] != '_' || (name[i] == '0' && digits > 1) || id >= VT_obj::NULL_ID)
        return -1;
    *prefix_len = i - 1;
    return int(id);
}

// Whether `name` is the default name of an object of this full type and id.
bool is_default_name(const char* name, size_t len, unsigned full_type, uint16_t id)
{
    size_t prefix = 0;
    if (trailing_id(name, len, &prefix) != int(id))
        return false;
    const char* type = Object_factory::type_name(full_type);
    // strncmp stops at the end of a shorter type name; the name then differs there.
    if (strncmp(name, type, prefix) == 0 && type[prefix] == '\0')
        return true;
    // Type names too long for "<Type>_<id>" give "obj_<id>".
    return prefix == 3 && memcmp(name, "obj", 3) == 0 &&
           strnlen(type, VT_obj::NAME_LEN + 1) + (len - prefix) > size_t(VT_obj::NAME_LEN);
}

}

size_t Object_pool::write_default_name(const char* type, size_t type_len, uint16_t id,
                                       char (&out)[VT_obj::NAME_LEN + 1])
{
    unsigned v = id;
    const size_t n = v < 10 ? 1 : v < 100 ? 2 : v < 1000 ? 3 : v < 10000 ? 4 : 5;
    if (type_len + 1 + n > size_t(VT_obj::NAME_LEN)) {
        type = "obj";
        type_len = 3;
    }
    memcpy(out, type, type_len);
    out[type_len] = '_';
    // The digits go in back to front, straight into place.
    char* end = out + type_len + 1 + n;
    *end = '\0';
    do {
        *--end = char('0' + v % 10);
        v /= 10;
    } while (v);
    return type_len + 1 + n;
}

size_t Object_pool::write_default_name(unsigned full_type, uint16_t id, char (&out)[VT_obj::NAME_LEN + 1])
{
    const char* type = Object_factory::type_name(full_type);
    return write_default_name(type, strnlen(type, VT_obj::NAME_LEN + 1), id, out);
}

VT_obj* Object_pool::find_default_named(const char* name, size_t len) const
{
    size_t prefix = 0;
    const int id = trailing_id(name, len, &prefix);
    VT_obj* obj = id < 0 ? nullptr : find(uint16_t(id));
    if (!obj)
        return nullptr;
    const char* key = obj->VT_obj_base::get_name();
    return memcmp(key, name, len) == 0 && key[len] == '\0' ? obj : nullptr;
}

VT_obj* Object_pool::find(const QByteArray& name) const
{
    build_deferred();
    const size_t len = size_t(name.size());
    if (len > size_t(VT_obj::NAME_LEN))
        return nullptr;
    if (VT_obj* obj = find_default_named(name.constData(), len))
        return obj;
    return by_name.find(name.constData(), len, list);
}

bool Object_pool::add(VT_obj* obj, QString* error)
{
    build_deferred();
    if (!obj) {
        if (error)
            *error = QStringLiteral("no object");
        return false;
    }
    const char* name = obj->VT_obj_base::get_name();
    const size_t name_len = strnlen(name, VT_obj::NAME_LEN + 1);
    static const size_t no_name_len = strlen(VT_obj::NO_NAME);
    const bool named = name_len > 0 && !(name_len == no_name_len && memcmp(name, VT_obj::NO_NAME, name_len) == 0);
    Naming naming = Naming::unnamed;
    if (named)
        naming = is_default_name(name, name_len, obj->__get_type(), obj->__get_id()) ? Naming::own_default : Naming::indexed;
    return admit(obj, name, name_len, naming, error);
}

bool Object_pool::add_default_named(VT_obj* obj, size_t name_len, QString* error)
{
    if (!obj) {
        if (error)
            *error = QStringLiteral("no object");
        return false;
    }
    const char* name = obj->VT_obj_base::get_name();
    assert(is_default_name(name, name_len, obj->__get_type(), obj->__get_id()) && "not the object's default name");
    return admit(obj, name, name_len, Naming::own_default, error);
}

bool Object_pool::add_duplicate(VT_obj* obj)
{
    if (!obj)
        return false;
    if (!find(obj->__get_id())) {
        discard(obj);
        return false;
    }
    obj->set_pool_helper(&pool_helper);
    obj->get_list_hook(0)[0] = this;
    list.append(obj);
    return true;
}

bool Object_pool::admit(VT_obj* obj, const char* name, size_t name_len, Naming naming, QString* error)
{
    const uint16_t id = obj->__get_id();
    auto fail = [&](const QString& why) {
        if (error)
            *error = why;
        discard(obj);
        return false;
    };
    if (id == VT_obj::NULL_ID)
        return fail(QStringLiteral("'%1' has the NULL id 65535").arg(QString::fromUtf8(name)));
    VT_obj* other = slot(id);
    if (other == unbuilt_mark()) {
        build_deferred();
        other = slot(id);
    }
    if (other)
        return fail(QStringLiteral("id %1 of '%2' is already used by '%3'")
                        .arg(id)
                        .arg(QString::fromUtf8(name))
                        .arg(QString::fromUtf8(other->VT_obj_base::get_name())));
    // An object with its own default name goes unindexed; the id check above already made sure
    // that no other object has that name through its id, so only the index is asked.
    Name_index::Probe slot{nullptr, 0, 0};
    if (naming == Naming::indexed) {
        slot = by_name.probe(name, name_len, list);
        if (!slot.found)
            slot.found = find_default_named(name, name_len);
    } else if (naming == Naming::own_default) {
        slot.found = by_name.find(name, name_len, list);
    }
    if (slot.found)
        return fail(QStringLiteral("name '%1' is already used by object %2")
                        .arg(QString::fromUtf8(name))
                        .arg(slot.found->__get_id()));
    obj->set_pool_helper(&pool_helper);
    // The first word of the object's first list hook names the pool holding it.
    obj->get_list_hook(0)[0] = this;
    if (naming == Naming::indexed)
        by_name.insert(slot, uint32_t(list.size()));
    list.append(obj);
    slot_made(id) = obj;
    ++indexed;
    return true;
}

VT_obj*& Object_pool::slot_made(uint16_t id)
{
    VT_obj**& page = by_id[id >> ID_PAGE_BITS];
    if (!page) {
        id_pages.emplace_back(new VT_obj*[ID_PAGE_SIZE]());
        page = id_pages.back().get();
    }
    return page[id & (ID_PAGE_SIZE - 1)];
}

int Object_pool::keep_bytes(const QByteArray& bytes)
{
    // A copy of its own: the caller's bytes may be borrowed (QByteArray::fromRawData) and gone by
    // the time the objects are built.
    sources.emplace_back(bytes.constData(), bytes.size());
    return int(sources.size() - 1);
}

bool Object_pool::defer(const Object_factory::Entry& entry, uint16_t id, int source, int offset, int size,
                        bool marks_input)
{
    VT_obj*& entry_slot = slot_made(id);
    if (entry_slot || id == VT_obj::NULL_ID)
        return false;
    entry_slot = unbuilt_mark();
    ++indexed;
    // Room for a small pool at once, rather than growing through every size below it.
    if (deferred.capacity() == 0) {
        deferred.reserve(32);
        list.reserve(list.size() + 32);
    }
    deferred.push_back({&entry, list.size(), source, offset, size, id, marks_input});
    list.append(nullptr);
    return true;
}

void Object_pool::build_all_deferred()
{
    std::vector<Deferred> todo;
    todo.swap(deferred);
    std::vector<uint8_t> copy;
    for (const Deferred& d : todo) {
        VT_obj* obj = create(*d.entry);
        obj->set_id(d.id);
        char name[VT_obj::NAME_LEN + 1];
        const char* type = d.entry->name();
        write_default_name(type, strnlen(type, VT_obj::NAME_LEN + 1), d.id, name);
        obj->set_name(name);
        const uint8_t* at = reinterpret_cast<const uint8_t*>(sources[size_t(d.source)].constData()) + d.offset;
        // An object that marks its bytes reads a copy, so that the kept bytes stay as they were read.
        uint8_t* from = const_cast<uint8_t*>(at);
        if (d.marks_input) {
            copy.assign(at, at + d.size);
            from = copy.data();
        }
        Iso::Deserialise_results res;
        const int consumed = obj->deserialise(0, from, d.size, &res);
        if (consumed != d.size || res.flags)
            std::cerr << "internal error: object " << d.id << " (" << d.entry->name()
                      << ") read otherwise than its bytes were checked to read" << std::endl;
        obj->set_pool_helper(&pool_helper);
        obj->get_list_hook(0)[0] = this;
        list[d.position] = obj;
        slot_made(d.id) = obj;
    }
    sources.clear();
}

bool Object_pool::replace(VT_obj* old, VT_obj* replacement, QString* error)
{
    build_deferred();
    const int position = old ? list.indexOf(old) : -1;
    if (!replacement || position < 0 || replacement->__get_id() != old->__get_id()) {
        if (error)
            *error = QStringLiteral("only an object of the pool can be replaced, by one of the same id");
        discard(replacement);
        return false;
    }
    // The name index finds the object at the old position by the name it holds: the name stays,
    // but for a default name, which follows the type.
    const char* name = old->VT_obj_base::get_name();
    const size_t name_len = strnlen(name, VT_obj::NAME_LEN + 1);
    if (is_default_name(name, name_len, old->__get_type(), old->__get_id())) {
        char own[VT_obj::NAME_LEN + 1];
        write_default_name(replacement->__get_type(), replacement->__get_id(), own);
        replacement->set_name(own);
    } else {
        replacement->set_name(name);
    }
    replacement->set_pool_helper(&pool_helper);
    replacement->get_list_hook(0)[0] = this;
    list[position] = replacement;
    by_id[old->__get_id() >> 8][old->__get_id() & 0xFF] = replacement;
    destroy(old);
    return true;
}

uint16_t Object_pool::lowest_free_id(uint16_t from) const
{
    for (uint32_t id = from; id < 65535; ++id)
        if (!uses_id(uint16_t(id)))
            return uint16_t(id);
    return 65535;
}

}
