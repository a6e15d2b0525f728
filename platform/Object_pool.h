#ifndef PLATFORM_OBJECT_POOL_H
#define PLATFORM_OBJECT_POOL_H

// The pool container belongs to the host (see tools/Object_pool.h); objects reach it only
// through VT::Pool_helper_api and handle it by pointer.
namespace VT {
class Object_pool;
}

#endif
