#include "can/vt/objects/Attribute_colour.h"

#include <QByteArray>
#include <cctype>
#include <cstdlib>
#include <cstring>

#include "can/vt/objects/VT_obj.h"
#include "platform/Debug_print.h"
#include "util/Bugger.h"

namespace VT {

namespace Resolve_colour {

Node* end_marker()
{
    static Node marker;
    return &marker;
}

Node::~Node()
{
    nuke_name();
}

void Node::nuke_name()
{
    delete[] name;
    name = nullptr;
}

void Node::add_to_unresolved_list(const char* text)
{
    nuke_name();
    size_t n = text ? strlen(text) : 0;
    name = new char[n + 1];
    if (n)
        memcpy(name, text, n);
    name[n] = 0;
    List<Attribute_node>::unresolved.push(static_cast<Attribute_node*>(this));
}

Attribute_node::~Attribute_node()
{
    if (in_list())
        List<Attribute_node>::unresolved.remove(this);
}

void Attribute_node::set_resolved_colour(unsigned char colour)
{
    if (attribute)
        *attribute = colour;
}

bool Attribute_node::set_attribute(Attribute_identifier<unsigned char>& target, VT_obj* obj)
{
    char description[256] = "";
    if (spec_node)
        spec_node->describe(description, 256);
    description[255] = 0;
    if (!obj) {
        Debug_print::dprint("WARNING: Could not find object %s\n", description);
        return false;
    }
    int aid = -1;
    int index = obj->find_attribute(name);
    if (index >= 0)
        aid = obj->find_attribute(obj->get_every_attribute(uint16_t(index)));
    if (aid < 0 && obj->__get_type() != VT_obj_type::TYPE_WORKING_SET) {
        Debug_print::dprint("WARNING: Could not find attribute in object %s\n", description);
        return false;
    }
    target.set_oid(obj->__get_id());
    target.set_identifier(uint8_t(aid < 0 ? 0 : aid));
    return true;
}

template <class N>
List<N> List<N>::unresolved;

template <class N>
void List<N>::push(N* node)
{
    if (node->in_list())
        Bugger::report_bug("sl_list::push, already in a list.\n");
    node->next = end_marker();
    if (tail)
        tail->next = node;
    else
        head = node;
    tail = node;
    ++count;
}

template <class N>
N* List<N>::pop()
{
    N* node = head;
    if (!node)
        return nullptr;
    head = node->next == end_marker() ? nullptr : static_cast<N*>(node->next);
    if (!head)
        tail = nullptr;
    node->next = nullptr;
    --count;
    return node;
}

template <class N>
void List<N>::remove(N* node)
{
    N* prev = nullptr;
    for (N* cur = head; cur; cur = cur->next == end_marker() ? nullptr : static_cast<N*>(cur->next)) {
        if (cur != node) {
            prev = cur;
            continue;
        }
        N* after = cur->next == end_marker() ? nullptr : static_cast<N*>(cur->next);
        if (prev)
            prev->next = after ? static_cast<Node*>(after) : end_marker();
        else
            head = after;
        if (tail == cur)
            tail = prev;
        cur->next = nullptr;
        --count;
        return;
    }
}

template <class N>
bool List<N>::resolve_colours(unsigned char (*resolve)(N&))
{
    if (!resolve)
        return false;
    while (N* node = pop()) {
        node->set_resolved_colour(resolve(*node));
        node->nuke_name();
    }
    return true;
}

template class List<Attribute_node>;

}

const char Attribute_colour::list_named_colours[16][8] = {"black", "white", "green",  "teal",    "maroon", "purple",
                                                          "olive", "silver", "grey",  "blue",    "lime",   "cyan",
                                                          "red",   "magenta", "yellow", "navy"};

namespace {
// Indices 16..231 to the sixteen standard colours, by cube levels r, g, b.
const unsigned char colour_map_4_bit[216] = {
    0,  0,  15, 15, 9,  9,  0,  0,  15, 15, 9,  9,  2,  2,  3,  3,  3,  3,  2,  2,  3,  3,  3,  3,  10, 10, 11,
    11, 11, 11, 10, 10, 11, 11, 11, 11, // r0
    0,  0,  15, 15, 9,  9,  0,  0,  15, 15, 9,  9,  2,  2,  3,  3,  3,  3,  2,  2,  3,  3,  3,  3,  10, 10, 11,
    11, 11, 11, 10, 10, 11, 11, 11, 11, // r1
    4,  4,  4,  5,  5,  9,  4,  4,  4,  5,  5,  9,  6,  6,  8,  8,  8,  8,  6,  6,  8,  8,  8,  8,  10, 10, 10,
    10, 1,  1,  10, 10, 10, 10, 1,  1, // r2
    4,  4,  4,  5,  5,  9,  4,  4,  4,  5,  5,  9,  6,  6,  8,  8,  8,  8,  6,  6,  8,  8,  8,  8,  10, 10, 10,
    10, 7,  1,  10, 10, 10, 10, 1,  1, // r3
    12, 12, 12, 13, 13, 13, 12, 12, 12, 13, 13, 13, 14, 14, 8,  8,  13, 13, 14, 14, 8,  8,  7,  1,  14, 14, 1,
    7,  7,  7,  14, 14, 1,  1,  7,  1, // r4
    12, 12, 12, 13, 13, 13, 12, 12, 12, 13, 13, 13, 14, 14, 8,  8,  13, 13, 14, 14, 8,  8,  1,  1,  14, 14, 1,
    1,  7,  1,  14, 14, 1,  1,  1,  1, // r5
};

int hex_pair(const char* p)
{
    auto digit = [](char c) -> int {
        if (c >= '0' && c <= '9')
            return c - '0';
        c = char(tolower(c));
        return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
    };
    int hi = digit(p[0]);
    int lo = hi < 0 ? -1 : digit(p[1]);
    return hi < 0 || lo < 0 ? -1 : hi * 16 + lo;
}
}

bool Attribute_colour::get_colour_val(const char* text, unsigned char& out)
{
    if (!text)
        return false;
    if (text[0] == '#') {
        int rgb[3];
        for (int i = 0; i < 3; ++i) {
            const char* p = text + 1 + 2 * i;
            if (!p[0] || !p[1] || (rgb[i] = hex_pair(p)) < 0)
                return false;
        }
        out = uint8_t(16 + 36 * ((rgb[0] + 25) / 51) + 6 * ((rgb[1] + 25) / 51) + (rgb[2] + 25) / 51);
        return true;
    }
    if (isdigit(static_cast<unsigned char>(text[0]))) {
        out = uint8_t(strtoul(text, nullptr, 0));
        return true;
    }
    for (int i = 0; i < num_named_colours; ++i)
        if (strcasecmp(text, list_named_colours[i]) == 0) {
            out = uint8_t(i);
            return true;
        }
    return false;
}

unsigned char Attribute_colour::remap_colour(unsigned char c, format_t f)
{
    switch (f) {
    case EIGHT_BIT_COLOUR:
        return c;
    case FOUR_BIT_COLOUR:
        if (c < 16)
            return c;
        if (c > 231)
            return c & 15;
        return colour_map_4_bit[c - 16];
    case MONOCHROME:
        return 2;
    }
    return 1;
}

int Attribute_colour::set_by_spec(Spec_node* spec_node, bool defer)
{
    if (!spec_node)
        return false;
    *this = uint8_t(0);
    char text[32];
    if (!spec_node->get_text(text, sizeof text, name))
        return false;
    text[31] = 0;
    unsigned char index;
    // A text read again replaces any earlier one still waiting for resolution.
    if (node.in_list()) {
        Resolve_colour::List<Resolve_colour::Attribute_node>::unresolved.remove(&node);
        node.nuke_name();
    }
    if (get_colour_val(text, index)) {
        *this = index;
        return true;
    }
    if (defer) {
        node.set_spec_node(spec_node);
        node.add_to_unresolved_list(text);
        return true;
    }
    Debug_print::dprint("WARNING: Could not parse colour '%s'\n", text);
    return false;
}

int Attribute_colour::serialise(const Serialisation_limits* limits, int offset, uint8_t* buf, int len) const
{
    if (offset != 0 || len < 1)
        return 0;
    // A 256-colour terminal takes every colour as it is.
    const bool as_is = !limits || limits->colour_format == EIGHT_BIT_COLOUR;
    buf[0] = as_is ? get() : remap_colour(get(), format_t(limits->colour_format));
    return 1;
}

}
