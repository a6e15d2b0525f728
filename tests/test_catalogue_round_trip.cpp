// One table for the whole catalogue: every class the factory knows is built from a
// description node that gives a value to each of its attributes, serialised whole and in
// 1-byte pieces, read back into a fresh object of the same class and serialised again.

#include "test_support.h"
#include "tools/pool/Object_factory.h"

using namespace VT;
using test::Bytes;
using test::Fake_spec;

namespace {

// A description node with a value for every attribute the object reads, plus list items.
Fake_spec describe(VT_obj& blank, const std::shared_ptr<Fake_spec::World>& world)
{
    Fake_spec node("object", world);
    for (uint16_t i = 0; i < blank.get_num_every_attribute(); ++i) {
        Attribute* a = blank.get_every_attribute(i);
        if (!a || !a->name || std::string(a->name) == "extended_type")
            continue;
        switch (a->get_type()) {
        case Attribute::ATTR_COLOUR: node.set(a->name, "red"); break;
        case Attribute::ATTR_OBJECT_ID: node.set(a->name, "target"); break;
        case Attribute::ATTR_FLOAT: node.set(a->name, "1.5"); break;
        case Attribute::ATTR_ARRAY_CHAR: node.set(a->name, "hello"); break;
        case Attribute::ATTR_ARRAY_UINT8: node.set(a->name, "AB"); break;
        case Attribute::ATTR_LIST_LEN: break; // counts follow their lists
        default:
            if (a->get_type() <= Attribute::ATTR_INT64)
                node.set(a->name, "1");
        }
    }
    node.add_child(Fake_spec("Event_macro").set("event_id", "1").set("macro_id", "2"));
    node.add_child(Fake_spec("place").set("object", "target").set("x_location", "3").set("y_location", "4"));
    // This node's "!Event_macro" filter also matches points and languages, so they are given
    // only to the classes that have such lists.
    if (blank.find_attribute("points") >= 0)
        node.add_child(Fake_spec("Point").set("point_x", "5").set("point_y", "6"));
    if (blank.find_attribute("languages") >= 0)
        node.add_child(Fake_spec("Language").set("byte_1", "101").set("byte_2", "110"));
    return node;
}

}

TEST(Catalogue_round_trip, every_class_reads_back_its_own_bytes)
{
    test::Stream_capture out(std::cout); // byte arrays trace what they read
    test::Stream_capture err(std::cerr);
    auto world = std::make_shared<Fake_spec::World>();
    Base::Number_variable_obj target(7, "target", 0);
    world->ids["target"] = 7;
    world->objects["target"] = &target;

    int classes = 0;
    for (const Object_factory::Entry* entry : Object_factory::all()) {
        SCOPED_TRACE(entry->name());
        std::unique_ptr<VT_obj> blank(entry->make(nullptr));
        std::unique_ptr<VT_obj> obj(entry->make(new Fake_spec(describe(*blank, world))));
        obj->set_id(0x0102);
        obj->set_by_spec(SCALE_AREA_NONE);

        Bytes whole = test::serialise_whole(*obj);
        ASSERT_GE(whole.size(), 3u);
        EXPECT_EQ(int(whole.size()), obj->num_bytes());
        EXPECT_EQ(whole[0], 0x02);
        EXPECT_EQ(whole[1], 0x01);
        EXPECT_EQ(whole[2], uint8_t(obj->get_ctype() & 0xFF));
        EXPECT_EQ(test::serialise_in_pieces(*obj, 1), whole);

        std::unique_ptr<VT_obj> fresh(entry->make(nullptr));
        const Bytes record(whole.begin() + 3, whole.end());
        Bytes input = record;
        Iso::Deserialise_results res;
        EXPECT_EQ(fresh->deserialise(0, input.data(), int(input.size()), &res), int(input.size()));
        // A float marks the bytes it read; nothing else writes to its input, which the pool file
        // reader relies on to read other objects straight from the caller's bytes.
        bool holds_float = false;
        for (uint16_t i = 0; i < fresh->get_num_every_attribute(); ++i)
            if (Attribute* a = fresh->get_every_attribute(i))
                holds_float = holds_float || a->get_type() == Attribute::ATTR_FLOAT;
        EXPECT_EQ(input != record, holds_float);
        fresh->set_id(0x0102);
        EXPECT_EQ(test::serialise_whole(*fresh), whole);
        ++classes;
    }
    EXPECT_GE(classes, 56);
}
