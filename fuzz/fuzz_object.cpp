// One object's attributes: the first byte is the object type, the rest the bytes that follow
// the object header in a pool (for type 246 the first of them is the configuration kind).
#include <cstddef>
#include <cstdint>
#include <vector>

#include "fuzz/fuzz_support.h"
#include "tools/pool/Object_factory.h"

namespace {

const VT::Object_factory::Entry* entry_for(unsigned full_type)
{
    for (const VT::Object_factory::Entry* e : VT::Object_factory::all())
        if (unsigned(e->type) == full_type)
            return e;
    return nullptr;
}

}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::quiet();
    if (size < 1 || size > (1u << 20))
        return 0;
    unsigned full_type = data[0];
    const size_t header = 1;
    if (full_type == VT::VT_obj_type::TYPE_CONFIG) {
        if (size < 2)
            return 0;
        full_type += 256u * data[1];
    }
    // Types 46 and 47 have a class in each form of version 6 objects: the input goes to both.
    for (unsigned type : {full_type, full_type + 256u}) {
        if (type != full_type && full_type != VT::VT_obj_type::TYPE_PNG &&
            full_type != VT::VT_obj_type::TYPE_WORKING_SET_SPECIAL_CONTROLS)
            break;
        const VT::Object_factory::Entry* entry = entry_for(type);
        if (!entry)
            continue;

        // The object reads from a copy of its own, exactly as long as the input (some attributes
        // mark the bytes they read).
        std::vector<uint8_t> in(data + header, data + size);
        std::unique_ptr<VT::VT_obj> obj(entry->make(nullptr));
        obj->set_id(1);
        Iso::Deserialise_results res;
        const int len = int(in.size());
        const int consumed = obj->deserialise(0, in.empty() ? nullptr : in.data(), len, &res);
        FUZZ_CHECK(consumed <= len);
        if (consumed < 0)
            continue;

        fuzz::serialise_checked(*obj, 5);
        fuzz::Small_terminal terminal;
        obj->set_pool_helper(&terminal);
        fuzz::serialise_checked(*obj, 3);
        obj->set_pool_helper(nullptr);
    }
    return 0;
}
