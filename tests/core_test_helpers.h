#ifndef TESTS_CORE_TEST_HELPERS_H
#define TESTS_CORE_TEST_HELPERS_H

// Helpers for the foundation tests: a pool helper double that finds objects and counts
// uploads, and a small object class with a size and placed children, the shape that
// scaling, transposing and justification work on.

#include <map>
#include <vector>

#include "test_support.h"

namespace test {

class Recording_pool_helper : public VT::Pool_helper_api
{
public:
    VT::VT_obj* find_object(const VT::Attribute_object_placement& p) override
    {
        auto it = objects.find(p.get_object_id());
        return it == objects.end() ? nullptr : it->second;
    }
    void upload(VT::VT_obj* obj, bool flag) override { uploads.push_back({obj, flag}); }
    const VT::Serialisation_limits* get_serialisation_limits() override { return &limits; }
    void lock() const override { ++locks; }
    void unlock() const override { ++unlocks; }

    std::map<uint16_t, VT::VT_obj*> objects;
    std::vector<std::pair<VT::VT_obj*, bool>> uploads;
    mutable int locks = 0;
    mutable int unlocks = 0;
    using VT::Pool_helper_api::limits;
};

// A container-like object: width, height, then its placed children.
class Box_obj : public VT::VT_obj
{
public:
    Box_obj(uint16_t id, const char* name, uint16_t w, uint16_t h, uint8_t n = 0,
            const VT::Attribute_object_placement* children = nullptr)
        : VT_obj(id, TYPE_CONTAINER, 5, aid_table_storage, 4, every_table_storage, 0, nullptr, name),
          width(0, 65535, w, "width"), height(0, 65535, h, "height"), num_objects("num_objects", &child_location),
          child_location("child_location", children, n)
    {
        VT::set_table(aid_table_storage, {VT::class_type_attribute<TYPE_CONTAINER>(), &width, &height, &num_objects,
                                          &child_location});
        VT::set_table(every_table_storage, {&width, &height, &num_objects, &child_location});
    }
    explicit Box_obj(Spec_node* spec_node)
        : VT_obj(spec_node, TYPE_CONTAINER, 5, aid_table_storage, 4, every_table_storage, NO_NAME, NULL_ID),
          width(0, 65535, 0, "width"), height(0, 65535, 0, "height"), num_objects("num_objects", &child_location),
          child_location("child_location")
    {
        VT::set_table(aid_table_storage, {VT::class_type_attribute<TYPE_CONTAINER>(), &width, &height, &num_objects,
                                          &child_location});
        VT::set_table(every_table_storage, {&width, &height, &num_objects, &child_location});
    }
    type_t get_ctype() const override { return TYPE_CONTAINER; }
    uint16_t _get_width() const override { return width; }
    uint16_t _get_height() const override { return height; }

    VT::Attribute_uint16 width;
    VT::Attribute_uint16 height;
    VT::Attribute_list_len<uint8_t> num_objects;
    VT::Attribute_list<VT::Attribute_object_placement> child_location;
    VT::Attribute* aid_table_storage[5 + 1];
    VT::Attribute* every_table_storage[4 + 1];
};

// Serialises one attribute whole.
inline Bytes attribute_bytes(const VT::Attribute& a, int room = 64)
{
    Bytes out(size_t(room), 0xEE);
    int n = a.serialise(0, out.data(), room);
    out.resize(size_t(n > 0 ? n : 0));
    return out;
}

// Serialises one attribute piece by piece, resuming at each offset.
inline Bytes attribute_in_pieces(const VT::Attribute& a, int piece)
{
    Bytes out;
    for (int offset = 0;;) {
        Bytes chunk(size_t(piece), 0xEE);
        int n = a.serialise(offset, chunk.data(), piece);
        if (n <= 0)
            break;
        out.insert(out.end(), chunk.begin(), chunk.begin() + n);
        offset += n;
    }
    return out;
}

}

#endif
