#include "tools/pool/Pool_file.h"

#include <QFile>
#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>
#include <vector>

#include "tools/pool/Library_output.h"
#include "tools/pool/Object_factory.h"
#include "tools/pool/Plain_layout.h"

namespace VT {

namespace {

// Holds the pool's lock for a whole write, so that each object is serialised under it without
// taking it again; an object that answers to another helper still takes its own.
class Write_lock
{
public:
    explicit Write_lock(Object_pool& pool) : helper(pool.helper()) { helper.lock(); }
    ~Write_lock() { helper.unlock(); }
    Write_lock(const Write_lock&) = delete;
    Write_lock& operator=(const Write_lock&) = delete;

    int serialise(VT_obj* obj, int offset, uint8_t* buf, int len) const
    {
        if (obj->get_pool_helper() == &helper)
            return obj->__serialise(offset, buf, len);
        return obj->serialise(offset, buf, len);
    }

private:
    Object_pool::Helper& helper;
};

// True when the object holds a float attribute, the one kind that writes to the bytes it reads.
bool holds_float(const VT_obj& obj)
{
    for (uint16_t i = 0; i < obj.get_num_every_attribute(); ++i) {
        const Attribute* a = obj.get_every_attribute(i);
        if (a && a->get_type() == Attribute::ATTR_FLOAT)
            return true;
    }
    return false;
}

// What reading needs to know of each plain (not extended) type, found once per process: its
// name and the name's length, the class that reads it in a pool of the legacy form, whether its
// objects mark the bytes they read, and the layout of its bytes when they can be checked
// without building the object.
struct Plain_type
{
    const char* name;
    size_t name_len;
    const Object_factory::Entry* entry;
    bool marks_input;
    std::unique_ptr<Plain_layout> layout;
};

struct Plain_types
{
    Plain_type types[256];

    Plain_types()
    {
        for (unsigned t = 0; t < 256; ++t) {
            Plain_type& p = types[t];
            p.name = Object_factory::type_name(t);
            p.name_len = strnlen(p.name, VT_obj::NAME_LEN + 1);
            p.entry = Object_factory::find_for_pool(t);
            p.marks_input = false;
            if (p.entry) {
                std::unique_ptr<VT_obj> sample(p.entry->make(nullptr));
                p.marks_input = holds_float(*sample);
                p.layout = Plain_layout::of(*sample);
            }
        }
    }
};

const Plain_types& plain_types()
{
    static const Plain_types types;
    return types;
}

// Reads an object that writes to its input from a copy of the first bytes of `at`. The first
// copy holds 1024 bytes, more than the largest well-formed object holding a float takes (an
// input number with 255 event macros, 548 bytes); only when the object fails to read from a
// copy shorter than the input is it read again, from a fresh object made by `make`, out of a
// copy eight times as long. `obj` is left pointing at the last object made.
template <class Make>
int read_marking(Object_pool& pool, VT_obj*& obj, const Make& make, const uint8_t* at, int len,
                 std::vector<uint8_t>& scratch, Iso::Deserialise_results* res)
{
    for (int window = std::min(len, 1024);; window = int(std::min<int64_t>(len, int64_t(window) * 8))) {
        scratch.assign(at, at + window);
        *res = Iso::Deserialise_results();
        const int consumed = obj->deserialise(0, scratch.data(), window, res);
        if ((consumed >= 0 && consumed <= window) || window == len)
            return consumed;
        pool.discard(obj);
        obj = make();
    }
}

// Leaves the objects from `offset` on to be built when the pool is first looked at, as long as
// their bytes check out (reading them then can neither fail nor clamp, so there is nothing to
// report now), and returns the offset of the first object it did not take, counting them in
// `index`. `source` is the pool's copy of the input, made at the first such object.
int defer_plain(const QByteArray& input, int offset, Object_pool& pool, int& source, int& index,
                Pool_file::Read_report* report)
{
    const uint8_t* data = reinterpret_cast<const uint8_t*>(input.constData());
    const int size = input.size();
    const Vt6_objects form = pool.vt6_objects();
    const Plain_type* types = plain_types().types;
    while (size - offset >= 3) {
        const uint8_t* at = data + offset;
        const uint16_t id = uint16_t(at[0] | (at[1] << 8));
        const unsigned type = at[2];
        const Plain_type& plain = types[type];
        // Configuration objects and the types whose class depends on the pool's form are
        // left to the general way, as are ids in use and the NULL id, which it reports.
        if (!plain.layout || type == VT_obj_type::TYPE_CONFIG ||
            plain.entry != Object_factory::find_for_pool(type, form) || id == VT_obj::NULL_ID || pool.uses_id(id))
            break;
        const int n = plain.layout->check(at + 3, size - offset - 3);
        if (n < 0)
            break;
        if (!pool.keeps_bytes(source))
            source = pool.keep_bytes(input);
        pool.defer(*plain.entry, id, source, offset + 3, n, plain.marks_input);
        if (report) {
            report->objects = index + 1;
            report->offsets.append(offset);
        }
        offset += 3 + n;
        ++index;
    }
    return offset;
}

}

QByteArray Pool_file::default_name(unsigned full_type, uint16_t id)
{
    char name[VT_obj::NAME_LEN + 1];
    Object_pool::write_default_name(full_type, id, name);
    return QByteArray(name);
}

bool Pool_file::read(const QByteArray& input, Object_pool& pool, QString* error, Read_report* report)
{
    // Objects read straight from the caller's bytes, which deserialise never writes, except for
    // those holding a float: the float marks the bytes it read, so such an object reads a
    // private copy of its own bytes (read_marking).
    uint8_t* data = const_cast<uint8_t*>(reinterpret_cast<const uint8_t*>(input.constData()));
    const int size = input.size();
    std::vector<uint8_t> scratch;
    Library_output said;
    int offset = 0;
    auto fail = [&](const QString& text) {
        if (error)
            *error = text;
        if (report)
            report->stopped_at = offset;
        return false;
    };
    if (report)
        report->vt6_objects = pool.vt6_objects();
    if (size == 0)
        return fail(QStringLiteral("empty pool: no objects"));

    int index = 0;
    int source = -1; // the pool's copy of the input while objects are left to be built from it
    for (; offset < size; ++index) {
        if (pool.defers_building()) {
            offset = defer_plain(input, offset, pool, source, index, report);
            if (offset == size)
                break;
            // The check of the object that stopped it read list items as the object would
            // (warning of a clamped value, say): the object itself says it again below.
            if (said.any())
                said.take();
        }
        int remaining = size - offset;
        if (remaining < 3)
            return fail(QStringLiteral("object %1 at byte offset %2: truncated object header (%3 bytes left, 3 needed)")
                            .arg(index)
                            .arg(offset)
                            .arg(remaining));
        uint8_t* at = data + offset;
        uint16_t id = uint16_t(at[0] | (at[1] << 8));
        unsigned type = at[2];
        unsigned full_type = type;
        if (type == VT_obj_type::TYPE_CONFIG && remaining > 3)
            full_type = type + 256u * at[3];
        const Vt6_objects form = pool.vt6_objects();
        const Object_factory::Entry* entry = Object_factory::find_for_pool(full_type, form);
        const unsigned named_type = entry ? unsigned(entry->type) : full_type;
        auto where = [&]() {
            return QStringLiteral("object %1 (id %2, type %3 %4) at byte offset %5")
                .arg(index)
                .arg(id)
                .arg(type)
                .arg(QString::fromLatin1(Object_factory::type_name(named_type)))
                .arg(offset);
        };
        if (!entry) {
            if (type == VT_obj_type::TYPE_CONFIG)
                return fail(where() + QStringLiteral(": unknown configuration object kind %1")
                                          .arg(remaining > 3 ? int(at[3]) : -1));
            const Vt6_objects other = form == Vt6_objects::iso ? Vt6_objects::legacy : Vt6_objects::iso;
            if (Object_factory::find_for_pool(full_type, other))
                return fail(where() + QStringLiteral(": object type %1 is read only in a pool of the %2 form of version 6 "
                                                     "objects, and this pool is read in the %3 form")
                                          .arg(type)
                                          .arg(QString::fromLatin1(vt6_objects_name(other)),
                                               QString::fromLatin1(vt6_objects_name(form))));
            if (Object_factory::catalogue_knows(full_type))
                return fail(where() + QStringLiteral(": object type %1 is not available in this build").arg(type));
            return fail(where() + QStringLiteral(": unknown object type %1").arg(type));
        }
        const bool duplicate = pool.uses_id(id);
        if (duplicate && !(report && report->keep_duplicate_ids))
            return fail(where() + QStringLiteral(": id %1 is already used by an earlier object").arg(id));
        if (id == VT_obj::NULL_ID)
            return fail(where() + QStringLiteral(": object id 65535 is the NULL id"));

        char name[VT_obj::NAME_LEN + 1];
        size_t name_len = 0;
        const Plain_type* plain = named_type < 256 ? &plain_types().types[named_type] : nullptr;
        if (plain) {
            name_len = Object_pool::write_default_name(plain->name, plain->name_len, id, name);
        } else {
            name_len = Object_pool::write_default_name(named_type, id, name);
        }
        auto make = [&]() {
            VT_obj* made = pool.create(*entry);
            made->set_id(id);
            made->set_name(name);
            return made;
        };
        VT_obj* obj = make();
        const bool marks = plain ? plain->marks_input : holds_float(*obj);
        Iso::Deserialise_results res;
        int consumed = marks ? read_marking(pool, obj, make, at + 3, remaining - 3, scratch, &res)
                             : obj->deserialise(0, at + 3, remaining - 3, &res);
        // What the library said about this object: what it clamped joins the report's line
        // for the object; the rest the report keeps as notes.
        QStringList clamps;
        if (said.any())
            for (const Library_output::Line& line : said.take()) {
                const QString clamp = Library_output::clamp_detail(line.text);
                if (!clamp.isEmpty())
                    clamps.append(clamp);
                else if (report)
                    report->library_notes.append(where() + QStringLiteral(": ") + line.text);
            }
        if (consumed < 0 || consumed > remaining - 3) {
            pool.discard(obj);
            return fail(where() + QStringLiteral(": attributes truncated or malformed (%1 bytes left after the header)")
                                      .arg(remaining - 3));
        }
        if (report && (res.flags & Iso::Deserialise_results::value_clamped)) {
            report->clamped.append(where() + QStringLiteral(": ") +
                                   (clamps.isEmpty() ? QStringLiteral("a value lay outside its range and was clamped")
                                                     : clamps.join(QStringLiteral("; "))));
            report->clamped_objects.append(index);
        }
        QString why;
        if (duplicate) {
            VT_obj* earlier = pool.find(id);
            if (!pool.add_duplicate(obj))
                return fail(where() + QStringLiteral(": id %1 could not be kept").arg(id));
            report->duplicate_ids.append({index, int(pool.objects().indexOf(earlier))});
        } else if (!pool.add_default_named(obj, name_len, &why)) {
            return fail(where() + QStringLiteral(": ") + why);
        }
        if (report) {
            report->objects = index + 1;
            report->offsets.append(offset);
        }
        offset += 3 + consumed;
    }
    return true;
}

bool Pool_file::read_file(const QString& path, Object_pool& pool, QString* error, Read_report* report)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = QStringLiteral("cannot open '%1': %2").arg(path, file.errorString());
        return false;
    }
    return read(file.readAll(), pool, error, report);
}

QByteArray Pool_file::object_bytes(VT_obj& obj)
{
    int n = obj.num_bytes();
    if (n <= 0)
        return QByteArray();
    QByteArray out(n, '\0');
    int written = obj.serialise(0, reinterpret_cast<uint8_t*>(out.data()), n);
    out.resize(written > 0 ? written : 0);
    return out;
}

QByteArray Pool_file::write(Object_pool& pool)
{
    // Each object is serialised once, straight into the output: into the room left, and when
    // it fills that room, on from where it stopped after the output has grown. Sizing the
    // objects first would walk every object twice.
    const QVector<VT_obj*>& objects = pool.objects();
    const int LIMIT = std::numeric_limits<int>::max() / 2;
    QByteArray out(std::min(std::max(64 << 10, objects.size() * 128), LIMIT), Qt::Uninitialized);
    int at = 0;
    // The buffer's address, asked again only when it grows.
    uint8_t* data = reinterpret_cast<uint8_t*>(out.data());
    const Write_lock lock(pool);
    for (VT_obj* obj : objects) {
        for (int offset = 0;;) {
            const int room = out.size() - at;
            const int n = std::max(lock.serialise(obj, offset, data + at, room), 0);
            at += n;
            offset += n;
            if (n < room)
                break;
            if (out.size() >= LIMIT) {
                Debug_print::dprint("Pool is too large to write in one buffer\n");
                return QByteArray();
            }
            out.resize(std::min(out.size(), LIMIT / 2) * 2);
            data = reinterpret_cast<uint8_t*>(out.data());
        }
    }
    out.resize(at);
    return out;
}

void Pool_file::write_chunks(Object_pool& pool, int chunk, const std::function<void(const uint8_t*, int)>& sink)
{
    if (chunk < 1)
        chunk = 1;
    std::vector<uint8_t> buf(size_t(chunk), 0);
    int used = 0;
    const Write_lock lock(pool);
    for (VT_obj* obj : pool.objects()) {
        // Resumes the object at each offset, as the next transport buffer would, until it
        // writes less than the room it was given.
        for (int offset = 0;;) {
            const int room = chunk - used;
            const int n = std::max(lock.serialise(obj, offset, buf.data() + used, room), 0);
            offset += n;
            used += n;
            if (used == chunk) {
                sink(buf.data(), used);
                used = 0;
            }
            if (n < room)
                break;
        }
    }
    if (used > 0)
        sink(buf.data(), used);
}

QByteArray Pool_file::write_streamed(Object_pool& pool, int chunk)
{
    QByteArray out;
    write_chunks(pool, chunk, [&](const uint8_t* p, int n) { out.append(reinterpret_cast<const char*>(p), n); });
    return out;
}

}
