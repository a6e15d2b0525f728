#ifndef CAN_VT_OBJECTS_ATTRIBUTE_COLOUR_H
#define CAN_VT_OBJECTS_ATTRIBUTE_COLOUR_H

#include "can/vt/objects/Attribute_event_macro.h"
#include "can/vt/objects/Attribute_numbers.h"
#include "can/vt/objects/Colours.h"

namespace VT {

class Attribute_colour;
class VT_obj;

// Deferred resolution of colour texts that name colours defined elsewhere in a description.
namespace Resolve_colour {

class Node
{
public:
    Node() = default;
    Node(const Node&) : Node() {}
    Node& operator=(const Node&) { return *this; }
    virtual ~Node();

    // Copies the text and appends the node to the process-wide unresolved list.
    void add_to_unresolved_list(const char* text);
    void nuke_name();
    const char* get_name() const { return name; }
    bool in_list() const { return next != nullptr; }

    Node* next = nullptr; // null when not in a list; the list's end marker for its last node
    char* name = nullptr;
};

class Attribute_node : public Node
{
public:
    explicit Attribute_node(Attribute_colour* attribute) : attribute(attribute) {}
    ~Attribute_node() override;
    Spec_node* get_spec_node() const { return spec_node; }
    void set_spec_node(Spec_node* s) { spec_node = s; }
    Attribute_colour* get_attribute() const { return attribute; }
    void rebind(Attribute_colour* a) { attribute = a; }
    virtual void set_resolved_colour(unsigned char colour);
    // Resolves a text that names an attribute of `obj` into an object id and attribute id.
    bool set_attribute(Attribute_identifier<unsigned char>& target, VT_obj* obj);

private:
    Attribute_colour* attribute;
    Spec_node* spec_node = nullptr;
};

template <class N>
class List
{
public:
    static List unresolved;

    void push(N* node);
    N* pop();
    // Takes the node out wherever it stands (a destroyed attribute leaves the list).
    void remove(N* node);
    // Hands every queued node to `resolve` and assigns what it returns; empties the list.
    bool resolve_colours(unsigned char (*resolve)(N&));
    int get_count() const { return count; }
    N* get_head() const { return head; }

private:
    N* head = nullptr;
    N* tail = nullptr;
    int count = 0;
};

Node* end_marker();

}

// A palette index (1 byte) that may be given in a description by name, number or "#rrggbb".
class Attribute_colour : public Attribute_uint8
{
public:
    static const char list_named_colours[16][8];
    static constexpr int num_named_colours = 16;

    explicit Attribute_colour(const char* name) : Attribute_colour(0, name) {}
    Attribute_colour(unsigned char value, const char* name) : Attribute_uint8(0, 255, value, name), node(this) {}
    Attribute_colour(unsigned char minimum, unsigned char maximum, unsigned char value, const char* name)
        : Attribute_uint8(minimum, maximum, value, name), node(this)
    {
    }
    Attribute_colour(const Attribute_colour& o) : Attribute_uint8(o), node(this) {}
    Attribute_colour& operator=(const Attribute_colour& o)
    {
        Attribute_uint8::operator=(o);
        return *this;
    }
    using Attribute_uint8::operator=;

    // Parses "#rrggbb" (nearest cube colour), a number (any base) or one of the sixteen names.
    static bool get_colour_val(const char* text, unsigned char& out);
    // The colour shown on a terminal of colour depth `format`.
    static unsigned char remap_colour(unsigned char colour, format_t format);

    int set_by_spec(Spec_node* spec_node, bool defer);
    int _set_by_spec(Spec_node* spec_node, scale_area_t) override { return set_by_spec(spec_node, true); }
    atype get_type() const override { return ATTR_COLOUR; }
    using Attribute_uint8::serialise;
    int serialise(const Serialisation_limits* limits, int offset, uint8_t* buf, int len) const override;
    Resolve_colour::Attribute_node& get_node() { return node; }

private:
    Resolve_colour::Attribute_node node;
};

}

#endif
