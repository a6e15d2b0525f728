#ifndef CAN_ISO_OBJECTS_ISO_OBJECT_BASE_H
#define CAN_ISO_OBJECTS_ISO_OBJECT_BASE_H

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "can/iso/objects/Iso_attribute.h"
#include "platform/Debug_dumper.h"
#include "util/Bugger.h"

namespace Iso {

// The generic object: an id, a type and two tables of attribute pointers, one indexed by
// attribute id (entry 0 the class-wide "type" attribute), one in byte order. Every
// whole-object operation walks these tables.
template <class TYPE_OBJ, class ATTR_OBJ, class ID_OBJ>
class Iso_object_base : public TYPE_OBJ
{
public:
    typedef typename TYPE_OBJ::type_t type_t;
    static const uint16_t NULL_ID = 65535;

    Iso_object_base(type_t type, uint8_t aid_count, ATTR_OBJ** aid_table, uint8_t every_count,
                    ATTR_OBJ** every_table, uint16_t id)
        : id(0, 65535, id, "object_id"), type(uint8_t(type)), aid_table(aid_table), aid_count(aid_count),
          every_table(every_table), every_count(every_count)
    {
    }

    virtual int __deserialise(int offset, uint8_t* buf, int len, Deserialise_results* res) = 0;
    virtual int __serialise(int offset, uint8_t* buf, int len) = 0;
    virtual ATTR_OBJ* get_attribute_by_aid(uint8_t aid) const { return aid < aid_count ? aid_table[aid] : nullptr; }
    virtual uint8_t get_num_attributes_by_aid() const { return aid_count; }
    virtual ATTR_OBJ* get_every_attribute(uint16_t i) const { return i < every_count ? every_table[i] : nullptr; }
    virtual uint16_t get_num_every_attribute() const { return every_count; }
    virtual void __get_name(char* dst, int len) const = 0;
    virtual void __set_name(const char* name) = 0;
    virtual void __check_locked() const {}
    virtual void __get_code_def(std::ostream& os, unsigned indent);
    virtual void __get_code_init(std::ostream& os, unsigned indent);
    virtual void __get_code_valref(std::ostream& os, unsigned indent);
    virtual void __get_code_body(std::ostream& os, unsigned indent);
    virtual void __print_me(std::ostream& os, int indent) const;
    virtual int num_bytes() const = 0;
    virtual const char* __get_relative_namespace() const { return ""; }
    virtual ~Iso_object_base() = default;
    virtual void lock() const {}
    virtual void unlock() const {}
    virtual const char* get_name() const = 0;
    virtual uint8_t _get_extended_type() const { return 0; }
    virtual uint8_t get_extended_type() const { return 0; }
    virtual const char* __get_type_string() const { return TYPE_OBJ::get_type_string(__get_type()); }
    // The class's full type; every object class answers with its own.
    virtual type_t get_ctype() const { return type_t(255); }

    // Holds an object's lock for the scope it is declared in.
    class Lock
    {
    public:
        explicit Lock(const Iso_object_base& locked) : object(locked) { object.lock(); }
        ~Lock() { object.unlock(); }
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;

    private:
        const Iso_object_base& object;
    };

    // Public entry points: each takes the object's lock around its virtual implementation.
    int serialise(int offset, uint8_t* buf, int len)
    {
        const Lock guard(*this);
        return __serialise(offset, buf, len);
    }
    int deserialise(int offset, uint8_t* buf, int len, Deserialise_results* res)
    {
        const Lock guard(*this);
        return __deserialise(offset, buf, len, res);
    }
    void serialise(Debug::Dumper& dumper, bool with_bytes);
    void print_me(std::ostream& os, int indent) const
    {
        const Lock guard(*this);
        __print_me(os, indent);
    }
    void get_code_def(std::ostream& os, unsigned indent)
    {
        const Lock guard(*this);
        __get_code_def(os, indent);
    }
    void get_code_init(std::ostream& os, unsigned indent)
    {
        const Lock guard(*this);
        __get_code_init(os, indent);
    }
    void get_code_valref(std::ostream& os, unsigned indent)
    {
        const Lock guard(*this);
        __get_code_valref(os, indent);
    }
    void get_code_body(std::ostream& os, unsigned indent)
    {
        const Lock guard(*this);
        __get_code_body(os, indent);
    }
    uint16_t get_id() const
    {
        const Lock guard(*this);
        return id;
    }
    void set_id(uint16_t v)
    {
        const Lock guard(*this);
        id = v;
    }
    void get_name(char* dst, int len) const
    {
        const Lock guard(*this);
        __get_name(dst, len);
    }
    void set_name(const char* name)
    {
        const Lock guard(*this);
        __set_name(name);
    }
    type_t get_type() const
    {
        const Lock guard(*this);
        return __get_type();
    }
    const char* get_type_string() const
    {
        const Lock guard(*this);
        return __get_type_string();
    }
    uint16_t __get_id() const { return id; }
    type_t __get_type() const { return type_t(type + 256u * _get_extended_type()); }

    static void code_indent(std::ostream& os, unsigned n)
    {
        for (unsigned i = 0; i < n; ++i)
            os << "    ";
    }
    // The bytes of the attributes, without the id and type.
    int get_attriutes_num_bytes() const;
    int find_attribute(ATTR_OBJ* a) const;
    int find_attribute(const char* name) const;
    int get_attribute_whole_id(int aid) const;
    // Ends the process when a reference that must be set holds the NULL id.
    void attribute_null_check(const ID_OBJ& a) const;
    void reassign_attribute_pointers(uint8_t new_aid_count, ATTR_OBJ** new_aid_table, uint8_t new_every_count,
                                     ATTR_OBJ** new_every_table)
    {
        aid_count = new_aid_count;
        aid_table = new_aid_table;
        every_count = new_every_count;
        every_table = new_every_table;
    }

protected:
    ID_OBJ id;
    uint8_t type;
    ATTR_OBJ** aid_table;
    uint8_t aid_count;
    ATTR_OBJ** every_table;
    uint8_t every_count;
};

template <class T, class A, class I>
void Iso_object_base<T, A, I>::serialise(Debug::Dumper& dumper, bool with_bytes)
{
    const Lock guard(*this);
    const char* obj_name = get_name();
    if (!dumper.open_group(obj_name))
        return;
    char text[32];
    snprintf(text, sizeof text, "%d", int(__get_id()));
    dumper.write("id", text);
    dumper.write("type", __get_type_string());
    if (with_bytes) {
        dumper.open_group("bytes");
        for (int offset = 0;; ++offset) {
            uint8_t byte = 0;
            if (__serialise(offset, &byte, 1) < 1)
                break;
            char key[16];
            snprintf(key, sizeof key, "%d", offset);
            snprintf(text, sizeof text, "%.02x", unsigned(byte));
            dumper.write(key, text);
        }
        dumper.close_group("bytes");
    }
    dumper.close_group(obj_name);
}

template <class T, class A, class I>
void Iso_object_base<T, A, I>::__print_me(std::ostream& os, int indent) const
{
    for (int i = 0; i < indent; ++i)
        os << "  ";
    os << __get_type_string() << "(" << __get_id() << ")" << std::endl;
    for (uint16_t i = 0; i < get_num_every_attribute(); ++i)
        if (A* a = get_every_attribute(i))
            a->print_me(os, indent + 1);
}

template <class T, class A, class I>
void Iso_object_base<T, A, I>::__get_code_def(std::ostream& os, unsigned indent)
{
    const char* n = get_name();
    for (uint16_t i = 0; i < get_num_every_attribute(); ++i)
        if (A* a = get_every_attribute(i))
            a->get_code_def(n, os, int(indent));
    code_indent(os, indent);
    os << __get_relative_namespace() << __get_type_string() << "_obj " << n << ";" << std::endl;
}

template <class T, class A, class I>
void Iso_object_base<T, A, I>::__get_code_init(std::ostream& os, unsigned indent)
{
    const char* n = get_name();
    for (uint16_t i = 0; i < get_num_every_attribute(); ++i)
        if (A* a = get_every_attribute(i))
            a->get_code_init(n, os, int(indent));
    code_indent(os, indent);
    os << n << "(Oids::" << n << ", \"" << n << "\", ";
    for (uint16_t i = 0; i < get_num_every_attribute(); ++i) {
        if (A* a = get_every_attribute(i)) {
            if (i)
                os << ", ";
            a->get_code_valref(n, os, int(indent));
        }
    }
    os << ")";
}

template <class T, class A, class I>
void Iso_object_base<T, A, I>::__get_code_valref(std::ostream& os, unsigned)
{
    os << "&" << get_name();
}

template <class T, class A, class I>
void Iso_object_base<T, A, I>::__get_code_body(std::ostream& os, unsigned indent)
{
    const char* n = get_name();
    for (uint16_t i = 0; i < get_num_every_attribute(); ++i)
        if (A* a = get_every_attribute(i))
            a->get_code_body(n, os, int(indent));
}

template <class T, class A, class I>
int Iso_object_base<T, A, I>::get_attriutes_num_bytes() const
{
    if (!aid_table || every_count == 0)
        return 0;
    // The registered byte-order table, as serialise and deserialise walk it (a class may
    // show more attributes through get_every_attribute than travel in its bytes); the sum
    // saturates rather than overflow on absurd counts.
    int64_t total = 0;
    for (uint16_t i = 0; i < every_count; ++i)
        if (A* a = every_table[i])
            total += a->num_bytes();
    return int(std::min<int64_t>(total, INT32_MAX - 3));
}

template <class T, class A, class I>
int Iso_object_base<T, A, I>::find_attribute(A* a) const
{
    for (int i = 0; i < aid_count; ++i)
        if (aid_table[i] == a)
            return i;
    return -1;
}

template <class T, class A, class I>
int Iso_object_base<T, A, I>::find_attribute(const char* attr_name) const
{
    if (!attr_name)
        return -1;
    for (uint16_t i = 0; i < get_num_every_attribute(); ++i) {
        A* a = get_every_attribute(i);
        if (a && a->name && strcmp(a->name, attr_name) == 0)
            return i;
    }
    return -1;
}

template <class T, class A, class I>
int Iso_object_base<T, A, I>::get_attribute_whole_id(int aid) const
{
    VT_ASSERT(aid != 0 && "AID 0 reserved for special 'type' ReadOnly attrib");
    // An aid equal to the count reads the table's trailing null slot.
    if (aid < 1 || aid > aid_count)
        return -1;
    if (every_count == 0 || !aid_table)
        return -1;
    A* wanted = aid_table[aid];
    if (!wanted)
        return -1;
    for (int i = 0; i < every_count; ++i)
        if (every_table[i] == wanted)
            return i;
    return -1;
}

template <class T, class A, class I>
void Iso_object_base<T, A, I>::attribute_null_check(const I& a) const
{
    if (uint16_t(a) != NULL_ID)
        return;
    std::cerr << "FATAL ERROR!  " << __get_type_string() << " '" << get_name() << "' has NULL attribute '"
              << (a.name ? a.name : "") << "'" << std::endl;
    exit(-122);
}

// Adds a fixed-size name, used for printing, dumps, generated source and description look-ups.
template <class TYPE_OBJ, class ATTR_OBJ, class ID_OBJ>
class Iso_object : public Iso_object_base<TYPE_OBJ, ATTR_OBJ, ID_OBJ>
{
    typedef Iso_object_base<TYPE_OBJ, ATTR_OBJ, ID_OBJ> base;

public:
    static const int NAME_LEN = 32;
    typedef typename base::type_t type_t;

    Iso_object(type_t type, uint8_t aid_count, ATTR_OBJ** aid_table, uint8_t every_count, ATTR_OBJ** every_table,
               const char* name, uint16_t id)
        : base(type, aid_count, aid_table, every_count, every_table, id)
    {
        memset(obj_name, 0, sizeof obj_name);
        if (name)
            store_name(name);
    }
    Iso_object(type_t type, uint8_t aid_count, ATTR_OBJ** aid_table, uint8_t every_count, ATTR_OBJ** every_table,
               const char*, const Iso_object& other)
        : base(type, aid_count, aid_table, every_count, every_table, other.__get_id())
    {
        memcpy(obj_name, other.obj_name, sizeof obj_name);
    }

    void __get_name(char* dst, int len) const override
    {
        if (!dst || len < 1)
            return;
        // At most len - 1 characters, the rest of dst zero-filled.
        size_t k = std::min(strnlen(obj_name, NAME_LEN), size_t(len) - 1);
        memcpy(dst, obj_name, k);
        memset(dst + k, 0, size_t(len) - k);
    }
    void __set_name(const char* name) override;
    const char* get_name() const override { return obj_name; }
    using base::get_name;
    virtual bool in_a_list() const = 0;

protected:
    // Keeps at most NAME_LEN characters, zero-filled and terminated.
    void store_name(const char* name)
    {
        size_t k = strnlen(name, NAME_LEN);
        memcpy(obj_name, name, k);
        memset(obj_name + k, 0, sizeof obj_name - k);
    }

    char obj_name[NAME_LEN + 1];
};

void print_cant_set_name();

template <class T, class A, class I>
void Iso_object<T, A, I>::__set_name(const char* name)
{
    if (in_a_list()) {
        print_cant_set_name();
        return;
    }
    if (!name)
        return;
    store_name(name);
}

}

#endif
