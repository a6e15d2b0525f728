#ifndef TESTS_OBJECT_TEST_SUPPORT_H
#define TESTS_OBJECT_TEST_SUPPORT_H

// Helpers for the object class tests: hex input, a set of named reference targets shared by
// description nodes, and child nodes for list items.

#include "test_support.h"

namespace test {

inline Bytes from_hex(const char* text)
{
    Bytes out;
    for (const char* p = text; *p;) {
        if (*p == ' ') {
            ++p;
            continue;
        }
        out.push_back(uint8_t(std::strtoul(std::string(p, 2).c_str(), nullptr, 16)));
        p += 2;
    }
    return out;
}

// Objects that references in a description can name: "font" 0x0102, "inattr" 0x0103, "var" 0x1234,
// "item_a" 0x0201, "item_b" 0x0202, "ern" 0x012A.
struct Reference_world
{
    Reference_world() : world(std::make_shared<Fake_spec::World>())
    {
        add("font", 0x0102);
        add("inattr", 0x0103);
        add("var", 0x1234);
        add("item_a", 0x0201);
        add("item_b", 0x0202);
        add("ern", 0x012A);
    }
    void add(const char* name, uint16_t id)
    {
        targets.emplace_back(new VT::Base::Number_variable_obj(id, name, 0));
        world->ids[name] = id;
        world->objects[name] = targets.back().get();
    }
    Fake_spec node() { return Fake_spec("node", world); }

    std::shared_ptr<Fake_spec::World> world;
    std::vector<std::unique_ptr<VT::Base::Number_variable_obj>> targets;
};

inline Fake_spec macro(const char* event, const char* macro_id)
{
    return Fake_spec("Event_macro").set("event_id", event).set("macro_id", macro_id);
}

// An item of a list of object references.
inline Fake_spec item(const char* name)
{
    return Fake_spec("Object").set("object", name);
}

}

#endif
