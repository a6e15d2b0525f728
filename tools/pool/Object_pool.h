#ifndef TOOLS_POOL_OBJECT_POOL_H
#define TOOLS_POOL_OBJECT_POOL_H

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QString>
#include <QVector>
#include <functional>
#include <memory>
#include <vector>

#include "tools/pool/Object_factory.h"
#include "vt_core.h"

namespace VT {

// The host's pool container: owns its objects, finds them by id and by name, and gives every
// object it holds a pool helper through which the object reaches the pool (locking, the
// terminal's limits, the negotiated version, supported types, look-ups and uploads).
class Object_pool
{
public:
    // What the objects of this pool see of it.
    class Helper : public Pool_helper_api
    {
    public:
        explicit Helper(Object_pool& pool) : pool(pool) {}

        // A recursive lock: single-threaded, it only counts, so that unchecked accessors can
        // assert that the caller really holds it.
        void lock() const override;
        void unlock() const override;
        void __check_locked() const override;
        int lock_depth() const { return depth; }

        void __set_pool(Object_pool*) override {}
        void set_pool(Object_pool*) override {}
        Object_pool* __get_pool() override { return &pool; }
        Object_pool* get_pool() override { return &pool; }
        bool in_pool(const Object_pool& p) override { return &p == &pool; }
        bool has_pool() override { return true; }

        uint8_t negotiated_version() const override { return version; }
        void set_negotiated_version(uint8_t v) { version = v; }
        // In a pool of the ISO forms, type 46 is graphic data, which a picture graphic cannot
        // be sent as (it is sent as itself, as ISO 11783-6 has it towards every version).
        bool obj_type_supported(uint8_t type) const override
        {
            return supported.contains(type) && !(type == VT_obj_type::TYPE_PNG && form == Vt6_objects::iso);
        }
        void set_supported_types(const QSet<uint8_t>& types) { supported = types; }
        const QSet<uint8_t>& get_supported_types() const { return supported; }

        VT_obj* find_object(const Attribute_object_placement& placement) override;
        // Records the request and hands it to the pool's upload callback, if any.
        void upload(VT_obj* obj, bool flag) override;

        const Serialisation_limits* get_serialisation_limits() override { return &limits; }
        void set_serialisation_limits(const Serialisation_limits& l) { limits = l; }
        const Serialisation_limits& get_limits() const { return limits; }
        Vt6_objects vt6_objects() const { return form; }
        void set_vt6_objects(Vt6_objects f) { form = f; }

    private:
        Object_pool& pool;
        mutable int depth = 0;
        uint8_t version = 255;
        Vt6_objects form = Vt6_objects::legacy;
        QSet<uint8_t> supported;
    };

    struct Upload_request
    {
        uint16_t id;
        bool flag;
    };

    Object_pool();
    ~Object_pool();
    Object_pool(const Object_pool&) = delete;
    Object_pool& operator=(const Object_pool&) = delete;

    // Takes ownership of obj (also when it fails). Fails, with a reason in `error`, when the id
    // or the name is already taken; objects named VT_obj::NO_NAME or "" are not indexed by name.
    // Once added, an object counts as in a list: its name is fixed.
    bool add(VT_obj* obj, QString* error = nullptr);
    // add() for an object that carries its default name (see write_default_name), `name_len`
    // long, as every object read from pool bytes does: the name itself is not looked at.
    bool add_default_named(VT_obj* obj, size_t name_len, QString* error = nullptr);
    // Keeps an object whose id an earlier object already uses, as a pool read for inspection
    // holds it (a terminal would reject it): it is listed and written, but find() keeps
    // giving the earlier object, and its name is not indexed. Fails (and discards the
    // object) when no object uses the id yet.
    bool add_duplicate(VT_obj* obj);
    // Builds an object of the entry's class in the pool's own storage, not yet added: hand it
    // to add() or discard(). Objects made here cost no heap allocation of their own and lie
    // together in memory, which is what makes reading large pools fast.
    VT_obj* create(const Object_factory::Entry& entry, Spec_node* spec_node = nullptr);
    // Ends an object made by create() that was not added.
    void discard(VT_obj* obj);
    // Puts `replacement` (not yet added; it takes ownership) in the place of `old`, an object of
    // this pool with the same id, and deletes `old`: the same place in the order, and `old`'s
    // name, or when `old` carried its default name, the replacement's own default name. False,
    // with the replacement discarded, when the ids differ or `old` is not in this pool.
    bool replace(VT_obj* old, VT_obj* replacement, QString* error = nullptr);
    // Deletes every object. The storage of objects made by create() is kept for the objects
    // that follow (a host that reloads its pool reuses it); the destructor frees it.
    void clear();

    VT_obj* find(uint16_t id) const
    {
        build_deferred();
        return slot(id);
    }
    VT_obj* find(const QByteArray& name) const;
    // In the order they were added (the order they are written in).
    const QVector<VT_obj*>& objects() const
    {
        build_deferred();
        return list;
    }
    // Counts the objects not built yet too.
    int size() const { return list.size(); }
    bool is_empty() const { return list.isEmpty(); }
    // The lowest id from `from` on that no object uses (65535 when none is left).
    uint16_t lowest_free_id(uint16_t from = 0) const;

    Helper& helper() { return pool_helper; }
    const Helper& helper() const { return pool_helper; }
    void set_serialisation_limits(const Serialisation_limits& l) { pool_helper.set_serialisation_limits(l); }
    const Serialisation_limits& serialisation_limits() const { return pool_helper.get_limits(); }
    void set_negotiated_version(uint8_t v) { pool_helper.set_negotiated_version(v); }
    void set_supported_types(const QSet<uint8_t>& types) { pool_helper.set_supported_types(types); }
    // How the pool lays out the types VT version 6 added (Vt6_objects): what its bytes are read
    // as and the classes a description may use. Kept by clear().
    Vt6_objects vt6_objects() const { return pool_helper.vt6_objects(); }
    void set_vt6_objects(Vt6_objects form) { pool_helper.set_vt6_objects(form); }

    // Reading pool bytes leaves the objects whose bytes it could check unbuilt (Pool_file::read):
    // each holds its place in the order and its id, and all are built when the pool's objects are
    // first looked at (objects(), find(), add() and every other member that gives objects).
    // On by default; off, every object is built as it is read.
    void set_defer_building(bool on) { defer_building = on; }
    // Whether reading may leave objects unbuilt now: not while names are indexed, since an unbuilt
    // object's default name is not looked at.
    bool defers_building() const { return defer_building && by_name.empty(); }
    // For the reader: keeps a copy of pool bytes that objects are to be built from later, and
    // returns its number. Building the objects lets every copy go.
    int keep_bytes(const QByteArray& bytes);
    bool keeps_bytes(int source) const { return source >= 0 && size_t(source) < sources.size(); }
    // For the reader: the next place in the order goes to an object of `entry`'s class with this
    // id, to be built from the `size` bytes at `offset` of kept bytes `source`, which were checked
    // to read whole without clamping a value. False when the id is in use.
    bool defer(const Object_factory::Entry& entry, uint16_t id, int source, int offset, int size, bool marks_input);
    // How many objects are read but not built yet.
    int not_built() const { return int(deferred.size()); }
    // Whether an object, built or not, has this id.
    bool uses_id(uint16_t id) const { return slot(id) != nullptr; }
    // Builds the objects reading left unbuilt. A look at the pool does it first: the pool holds
    // the same objects before and after.
    void build_deferred() const
    {
        if (!deferred.empty())
            const_cast<Object_pool*>(this)->build_all_deferred();
    }

    // The name an object read from pool bytes is given: "<Type>_<id>", or "obj_<id>" when that
    // would not fit a name. `type` is the type's name, `type_len` its length. Returns the
    // name's length.
    static size_t write_default_name(const char* type, size_t type_len, uint16_t id, char (&out)[VT_obj::NAME_LEN + 1]);
    static size_t write_default_name(unsigned full_type, uint16_t id, char (&out)[VT_obj::NAME_LEN + 1]);

    // Keeps `owner` alive as long as the objects (for example the description whose nodes the
    // objects were built from).
    void keep_alive(std::shared_ptr<void> owner) { kept.push_back(std::move(owner)); }

    // Upload requests made by objects (for example when an object is switched to its NULL
    // placeholder); the callback, when set, sees each one as it happens.
    const QVector<Upload_request>& uploads() const { return upload_log; }
    void set_upload_callback(std::function<void(VT_obj*, bool)> cb) { on_upload = std::move(cb); }

private:
    friend class Helper;

    // Objects by name: open addressing over positions in the object list. The names themselves
    // stay in the objects (an object in the pool cannot be renamed), so a slot is 8 bytes.
    // Objects that carry the default name of their own type and id (every object read from
    // pool bytes) are not indexed: such a name leads to its object through the id.
    class Name_index
    {
    public:
        typedef QVector<VT_obj*> Objects;
        VT_obj* find(const char* name, size_t len, const Objects& objects) const;
        bool empty() const { return used == 0; }
        // The slot for `name`: its object when indexed, else where to put it (see insert).
        struct Probe
        {
            VT_obj* found;
            uint32_t slot;
            uint32_t hash;
        };
        Probe probe(const char* name, size_t len, const Objects& objects);
        // Records objects[position] at the slot an unsuccessful probe returned.
        void insert(const Probe& at, uint32_t position);
        void clear();

    private:
        struct Slot
        {
            uint32_t hash;
            uint32_t position; // in the object list, plus 1; 0: empty
        };
        static uint32_t hash_of(const char* s, size_t len);
        Probe lookup(const char* name, size_t len, const Objects& objects) const;
        void grow();

        std::vector<Slot> table; // a power of two in size, at most three quarters full
        size_t used = 0;
    };

    // Storage for the objects made by create(): large blocks, handed out in order.
    class Arena
    {
    public:
        void* allocate(size_t size);
        // Gives back the last allocation when `p` is it (a discarded object).
        void release_last(void* p);
        // Hands out the blocks already held again, from the first.
        void rewind();
        void release();

    private:
        struct Block
        {
            std::unique_ptr<unsigned char[]> memory;
            size_t size;
        };
        std::vector<Block> blocks;
        size_t reuse = 0; // the next held block to fill
        unsigned char* at = nullptr;
        size_t left = 0;
        void* last = nullptr;
    };

    // How add() files an object's name: not at all, under its own default name (found through
    // the id), or in the name index.
    enum class Naming { unnamed, own_default, indexed };
    bool admit(VT_obj* obj, const char* name, size_t name_len, Naming naming, QString* error);
    // The object whose default name `name` is, if it has that name.
    VT_obj* find_default_named(const char* name, size_t len) const;
    bool made_here(VT_obj* obj) const;
    void destroy(VT_obj* obj);

    // An object read but not built yet.
    struct Deferred
    {
        const Object_factory::Entry* entry;
        int position; // in the list
        int source;   // the kept bytes it is read from
        int offset;
        int size;
        uint16_t id;
        bool marks_input;
    };
    void build_all_deferred();
    // What the id index holds for an object not built yet; never looked into.
    static VT_obj* unbuilt_mark()
    {
        alignas(VT_obj) static char mark;
        return reinterpret_cast<VT_obj*>(&mark);
    }
    // The id index's entry, built or not.
    VT_obj* slot(uint16_t id) const
    {
        VT_obj* const* page = by_id[id >> ID_PAGE_BITS];
        return page ? page[id & (ID_PAGE_SIZE - 1)] : nullptr;
    }
    // The same, made when missing.
    VT_obj*& slot_made(uint16_t id);

    QVector<VT_obj*> list;
    // Objects by id: 256 pages of 256 entries, a page made when an id of it is first used and
    // kept until the pool ends (clear() empties only the entries its objects used).
    static const unsigned ID_PAGE_BITS = 8;
    static const unsigned ID_PAGE_SIZE = 1u << ID_PAGE_BITS;
    VT_obj** by_id[65536 / ID_PAGE_SIZE] = {};
    std::vector<std::unique_ptr<VT_obj*[]>> id_pages; // the storage of the pages made
    size_t indexed = 0;                                // entries set in the pages
    Name_index by_name;
    Arena arena;
    Helper pool_helper;
    QVector<Upload_request> upload_log;
    std::function<void(VT_obj*, bool)> on_upload;
    std::vector<std::shared_ptr<void>> kept; // released after the objects
    bool defer_building = true;
    std::vector<Deferred> deferred;
    std::vector<QByteArray> sources; // the bytes of the deferred objects
};

}

#endif
