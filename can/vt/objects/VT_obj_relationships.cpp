#include "can/vt/objects/VT_obj_relationships.h"

#include <initializer_list>

namespace VT {
namespace Base {

namespace {

// One rule: children `first`..`last` are allowed from VT version `version`.
struct Span
{
    unsigned first;
    unsigned last;
};

struct Rule
{
    unsigned parent;
    int version;
    std::initializer_list<Span> children;
};

// Child 255 (NULL) is listed only where it is allowed without condition.
const Rule rules[] = {
    {0, 2, {{11, 16}, {20, 20}}},
    {0, 4, {{3, 3}, {17, 19}, {27, 27}, {36, 37}}},
    {0, 6, {{46, 46}}},

    {1, 2, {{3, 3}, {6, 20}, {27, 27}}},
    {1, 3, {{0, 0}, {31, 33}}},
    {1, 4, {{36, 37}}},
    {1, 5, {{43, 44}}},
    {1, 6, {{46, 46}}},

    {2, 2, {{3, 3}, {11, 20}, {27, 27}}},
    {2, 3, {{0, 0}, {31, 33}}},
    {2, 4, {{36, 37}}},
    {2, 5, {{43, 44}}},
    {2, 6, {{46, 46}}},

    {3, 2, {{3, 3}, {6, 20}, {27, 27}}},
    {3, 3, {{0, 0}, {31, 33}}},
    {3, 4, {{36, 37}}},
    {3, 5, {{43, 44}}},
    {3, 6, {{46, 46}}},

    {4, 2, {{5, 5}, {27, 27}}},
    {4, 5, {{43, 43}}},

    {5, 2, {{3, 3}, {11, 16}, {20, 20}, {27, 27}}},
    {5, 4, {{0, 0}, {17, 19}, {36, 37}}},
    {5, 5, {{43, 44}}},
    {5, 6, {{46, 46}}},

    {6, 2, {{3, 3}, {11, 16}, {20, 20}, {27, 27}}},
    {6, 4, {{0, 0}, {17, 19}, {36, 37}}},
    {6, 5, {{43, 44}}},
    {6, 6, {{46, 46}}},

    {10, 2, {{11, 12}, {20, 20}}},
    {10, 4, {{0, 0}, {3, 3}, {13, 19}, {27, 27}, {36, 37}}},
    {10, 5, {{43, 43}}},
    {10, 6, {{46, 46}}},

    {29, 2, {{11, 16}, {20, 20}}},
    {29, 6, {{46, 46}}},
    {30, 2, {{11, 16}, {20, 20}}},
    {30, 6, {{46, 46}}},

    {31, 3, {{3, 3}, {11, 20}, {27, 27}}},
    {31, 4, {{36, 37}}},
    {31, 6, {{46, 46}}},
    {32, 3, {{3, 3}, {11, 20}, {27, 27}}},
    {32, 4, {{36, 37}}},
    {32, 6, {{46, 46}}},

    {34, 4, {{0, 0}, {3, 3}, {6, 20}, {27, 27}, {31, 33}, {36, 37}}},
    {34, 5, {{43, 44}}},
    {34, 6, {{46, 46}}},

    {35, 4, {{5, 5}, {27, 27}}},
    {35, 5, {{43, 43}}},

    {37, 4, {{0, 0}, {3, 3}, {6, 20}, {27, 27}, {31, 33}, {36, 37}}},
    {37, 5, {{43, 44}}},
    {37, 6, {{46, 46}}},

    {40, 4, {{0, 20}, {31, 32}, {34, 37}}},
    {40, 6, {{45, 47}}},

    {44, 5, {{3, 3}, {11, 20}, {27, 27}, {36, 37}}},
    {44, 6, {{46, 46}}},

    {502, 2, {{3, 3}, {11, 16}, {20, 20}, {27, 27}, {255, 255}}},
    {502, 4, {{0, 0}, {17, 19}, {36, 37}}},
    {502, 6, {{46, 46}}},

    {758, 2, {{255, 255}, {758, 758}, {1014, 1014}}},

    {1014, 2, {{3, 3}, {6, 20}, {27, 27}, {255, 255}, {1270, 1270}}},
    {1014, 3, {{0, 0}, {31, 33}}},
    {1014, 4, {{36, 37}}},
    {1014, 6, {{46, 46}}},

    {1270, 2, {{7, 12}, {255, 255}}},
    {1270, 4, {{37, 37}, {1526, 1526}}},

    {1526, 2, {{1270, 1270}}},
};

}

int VT_obj_relationships::get_child_allowed(VT_obj_type::type_t parent, VT_obj_type::type_t child, unsigned int context)
{
    // The NULL child is allowed in an input list only for context 7, in an output list only for 6.
    if (child == 255 && parent == VT_obj_type::TYPE_INPUT_LIST)
        return context == 7 ? 2 : 0;
    if (child == 255 && parent == VT_obj_type::TYPE_OUTPUT_LIST)
        return context == 6 ? 2 : 0;
    for (const Rule& rule : rules) {
        if (rule.parent != parent)
            continue;
        for (const Span& span : rule.children)
            if (child >= span.first && child <= span.last)
                return rule.version;
    }
    return 0;
}

const char* VT_obj_relationships::get_name(VT_obj_type::type_t type)
{
    return VT_obj_type::get_type_string(type);
}

}
}
