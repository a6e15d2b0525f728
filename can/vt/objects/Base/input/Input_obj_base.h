#ifndef CAN_VT_OBJECTS_BASE_INPUT_INPUT_OBJ_BASE_H
#define CAN_VT_OBJECTS_BASE_INPUT_INPUT_OBJ_BASE_H

namespace VT {

class VT_obj;

// The input side of the input objects that carry an options-2 byte (input number and
// input list): lets a caller that holds only the input reach that byte and the object.
class Input_obj_base
{
public:
    virtual ~Input_obj_base() = default;

    // The "options2" value, under the object's lock.
    virtual unsigned char get_options2() const = 0;
    // The attribute id under which a change of options 2 is addressed.
    virtual unsigned char get_options2_aid() = 0;
    virtual VT_obj* get_vt_obj() = 0;
    // Options 2 is not changed through this interface.
    virtual void set_options2(unsigned char) {}
};

}

#endif
