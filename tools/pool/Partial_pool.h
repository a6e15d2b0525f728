#ifndef TOOLS_POOL_PARTIAL_POOL_H
#define TOOLS_POOL_PARTIAL_POOL_H

#include <QByteArray>
#include <QString>
#include <QVector>
#include <cstdint>

namespace VT {

// A partial pool: objects that replace the objects of the same id in a pool a terminal
// holds, as an implement uploads them when the operator changes the terminal's language.
class Partial_pool
{
public:
    // One object of pool bytes: its id and its bytes.
    struct Object_bytes
    {
        uint16_t id;
        QByteArray bytes;
    };

    // Pool bytes cut into their objects, as the pool reader finds them; `which` names the pool
    // in `error` ("the base pool does not read: ...").
    static bool split(const QByteArray& bytes, const char* which, QVector<Object_bytes>& out, QString* error);

    // The objects of pool bytes `changed` whose bytes differ from the object of the same id in
    // `base` (or that `base` lacks), in the order of `changed`. False, with `error` set, when
    // either does not read as pool bytes; `count` receives the number of objects.
    static bool differing(const QByteArray& base, const QByteArray& changed, QByteArray& out, QString* error,
                          int* count = nullptr);

    // `base` with every object of `partial` in place of the object of the same id; objects
    // `base` lacks follow at the end. False, with `error` set, when either does not read.
    static bool apply(const QByteArray& base, const QByteArray& partial, QByteArray& out, QString* error);
};

}

#endif
