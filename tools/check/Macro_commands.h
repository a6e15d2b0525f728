#ifndef TOOLS_CHECK_MACRO_COMMANDS_H
#define TOOLS_CHECK_MACRO_COMMANDS_H

#include <QByteArray>
#include <QVector>
#include <cstdint>

#include "tools/check/Object_facts.h"

// The commands a macro may hold, each as the terminal reads it: its command byte, its length,
// the bytes that name objects (and which objects they may name) and the bytes reserved to
// hold 0xFF. One table; Macro_commands::decode cuts a macro's bytes into commands by it.
namespace VT {
namespace Check {

struct Macro_field
{
    enum Kind : uint8_t {
        object,         // a 2-byte object id, little-endian
        object_or_null, // the same, or 65535
        macro_8,        // a 1-byte macro id
        attribute_id,   // an AID of the object named at byte 1
        reserved,       // 0xFF
    };
    uint8_t offset;
    Kind kind;
    Type_set accepted; // object kinds: 0 for any object
    const char* what;  // what the byte stands for ("the mask", ...)
    // Object kinds: when set, the object must have this attribute instead (a background colour,
    // a size, children placed at positions): the library's own tables say which objects do.
    const char* with_attribute = nullptr;
};

struct Macro_command_fact
{
    uint8_t code;
    const char* name;
    // Whole length in bytes; 0 when it follows from the bytes (strings, graphics commands).
    uint8_t length;
    uint8_t version;    // the first VT version that knows it
    bool in_macros;     // whether a macro may hold it
    Macro_field fields[3]; // those in use first; offset 0 ends them
    uint16_t reserved;  // bit n set: byte n holds 0xFF
};

// A sub-command of the graphics context command (command byte 0xB8, sub-command at byte 3).
struct Graphics_command_fact
{
    uint8_t code;
    const char* name;
    // Whole length of the command, 0xB8 included; 0 when it follows from a count.
    uint8_t length;
    // The object it names (at bytes 4-5); offset 0 when it names none.
    Macro_field object;
};

// One command of a macro, as decode() found it.
struct Macro_command
{
    int offset = 0;                              // in the macro's bytes
    int length = 0;                              // bytes it takes (what is there, when truncated)
    int wanted = 0;                              // bytes it should take
    const Macro_command_fact* fact = nullptr;    // null: a command byte no terminal knows
    const Graphics_command_fact* graphics = nullptr;
    bool truncated = false;                      // the bytes end inside it
    bool unknown_graphics = false;               // a graphics sub-command no terminal knows
};

class Macro_commands
{
public:
    static const Macro_command_fact* find(uint8_t code);
    static const Graphics_command_fact* find_graphics(uint8_t code);
    // Cuts the bytes into commands. 0xFF bytes between commands pad the shorter ones to the
    // 8 bytes of a message and are skipped. Stops after a command it cannot measure (an unknown
    // command byte, a truncated command).
    static QVector<Macro_command> decode(const uint8_t* bytes, int size);
    static QVector<Macro_command> decode(const QByteArray& bytes)
    {
        return decode(reinterpret_cast<const uint8_t*>(bytes.constData()), bytes.size());
    }
    // "Change Numeric Value (0xA8)"
    static QByteArray describe(const Macro_command& c);
};

}
}

#endif
