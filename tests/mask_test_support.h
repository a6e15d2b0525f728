#ifndef TESTS_MASK_TEST_SUPPORT_H
#define TESTS_MASK_TEST_SUPPORT_H

// Helpers for the object-class tests: a pool helper with chosen terminal limits and a
// lookup of child objects, names that description nodes resolve to built objects, and
// description nodes for list items.

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "test_support.h"

namespace test {

// Answers with the limits of a chosen terminal and finds the objects added to it by id.
class Limits_pool_helper : public VT::Pool_helper_api
{
public:
    explicit Limits_pool_helper(uint32_t colour_format = 2, uint8_t small_fonts = 255, uint8_t large_fonts = 255,
                                uint8_t font_styles = 255)
    {
        own.colour_format = colour_format;
        own.small_font_mask = small_fonts;
        own.large_font_mask = large_fonts;
        own.font_style_mask = font_styles;
    }
    const VT::Serialisation_limits* get_serialisation_limits() override { return &own; }
    VT::VT_obj* find_object(const VT::Attribute_object_placement& p) override
    {
        auto it = objects.find(p.get_object_id());
        return it == objects.end() ? nullptr : it->second;
    }
    void add(VT::VT_obj& obj) { objects[obj.get_id()] = &obj; }

    VT::Serialisation_limits own;
    std::map<uint16_t, VT::VT_obj*> objects;
};

// Names that references in a description resolve to: each is given an id and a stand-in object.
class Pool_names
{
public:
    Pool_names() : world(std::make_shared<Fake_spec::World>()) {}
    Pool_names& name(const std::string& n, uint16_t id)
    {
        stand_ins.push_back(std::make_unique<VT::Base::Number_variable_obj>(id, n.c_str(), 0));
        world->ids[n] = id;
        world->objects[n] = stand_ins.back().get();
        return *this;
    }
    Fake_spec node(const std::string& element = "node") const { return Fake_spec(element, world); }

    std::shared_ptr<Fake_spec::World> world;

private:
    std::vector<std::unique_ptr<VT::VT_obj>> stand_ins;
};

inline Fake_spec placement_node(const std::string& object, int x, int y, const std::string& justification = "")
{
    Fake_spec n("Object");
    n.set("object", object).set("x_location", std::to_string(x)).set("y_location", std::to_string(y));
    if (!justification.empty())
        n.set("justification", justification);
    return n;
}

inline Fake_spec macro_node(int event, int macro)
{
    return Fake_spec("Event_macro").set("event_id", std::to_string(event)).set("macro_id", std::to_string(macro));
}

inline Fake_spec reference_node(const std::string& object)
{
    return Fake_spec("Object").set("object", object);
}

inline Fake_spec point_node(int x, int y)
{
    return Fake_spec("Point").set("point_x", std::to_string(x)).set("point_y", std::to_string(y));
}

// Builds an object of class T from a description node (taking a copy of it) and reads it.
template <class T>
std::unique_ptr<T> build_described(const Fake_spec& node, uint16_t id, const char* name = "described")
{
    auto obj = std::make_unique<T>(new Fake_spec(node));
    obj->set_id(id);
    obj->set_name(name);
    obj->set_by_spec(VT::SCALE_AREA_NONE);
    return obj;
}

// Reads an object's serialised bytes (id and type included) into `obj`.
inline int deserialise_bytes(VT::VT_obj& obj, const Bytes& bytes)
{
    if (bytes.size() < 3)
        return -1;
    obj.set_id(uint16_t(bytes[0] | bytes[1] << 8));
    Bytes attributes(bytes.begin() + 3, bytes.end());
    Iso::Deserialise_results res;
    return obj.deserialise(0, attributes.data(), int(attributes.size()), &res);
}

}

#endif
