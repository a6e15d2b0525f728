#ifndef CAN_VT_OBJECTS_BASE_VARIABLE_STRING_VARIABLE_OBJ_H
#define CAN_VT_OBJECTS_BASE_VARIABLE_STRING_VARIABLE_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// String variable (type 22): a fixed-width text that other objects display.
class String_variable_obj : public VT_obj
{
public:
    // Borrows `string` (length bytes); the caller keeps it alive.
    String_variable_obj(uint16_t id, const char* name, uint16_t length, char* string);
    explicit String_variable_obj(Spec_node* spec);
    type_t get_ctype() const override { return TYPE_STRING_VARIABLE; }

    VT_GETTER(uint16_t, length, string.get_length())
    const char* _get_string() const
    {
        __check_locked();
        return string.c_str();
    }
    char get_string(unsigned i) const
    {
        lock();
        char c = *_get_string(i);
        unlock();
        return c;
    }
    const char* _get_string(unsigned i) const
    {
        __check_locked();
        return i < string.get_length() ? &string[i] : "";
    }
    int get_string(unsigned i, char* dst, unsigned n) const
    {
        lock();
        int r = _get_string(i, dst, n);
        unlock();
        return r;
    }
    int _get_string(unsigned i, char* dst, unsigned n) const
    {
        __check_locked();
        return string.get_elements(i, dst, n) > 0 ? 1 : 0;
    }

private:
    void init_lists();

    Attribute_list_len<uint16_t> length;
    Attribute_array_char string;
    Attribute* aid_table_storage[1 + 1];
    Attribute* every_table_storage[2 + 1];
};

}
}

#endif
