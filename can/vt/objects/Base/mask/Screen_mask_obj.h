#ifndef CAN_VT_OBJECTS_BASE_MASK_SCREEN_MASK_OBJ_H
#define CAN_VT_OBJECTS_BASE_MASK_SCREEN_MASK_OBJ_H

namespace VT {

// A mask that shows a soft-key mask beside it. The host switches the soft-key mask of
// whatever mask is on screen through this interface; masks without one ignore the call.
class Screen_mask_obj
{
public:
    virtual ~Screen_mask_obj() = default;
    virtual void set_soft_key_mask(unsigned short) {}
};

}

#endif
