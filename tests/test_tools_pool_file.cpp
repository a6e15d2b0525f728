// The host's pool container and the pool file reader and writer, with the objects reading leaves
// to be built when the pool is first looked at.
#include <gtest/gtest.h>

#include "every_type_pool.h"
#include "test_support.h"
#include "tool_test_support.h"
#include "tools/pool/Object_factory.h"
#include "tools/pool/Object_pool.h"
#include "tools/pool/Pool_file.h"

using VT::Object_pool;
using VT::Pool_file;

namespace {

QByteArray bytes(std::initializer_list<int> b)
{
    QByteArray out;
    for (int v : b)
        out.append(char(v));
    return out;
}

// Three variables: number 5000 = 1234, string 7 = "abc", number 9 = 0.
const QByteArray variables = bytes({0x88, 0x13, 0x15, 0xD2, 0x04, 0x00, 0x00,          //
                                    0x07, 0x00, 0x16, 0x03, 0x00, 0x61, 0x62, 0x63,    //
                                    0x09, 0x00, 0x15, 0x00, 0x00, 0x00, 0x00});

// Key 3 with key code 0, which its range turns into 1.
const QByteArray key_code_0 = bytes({0x03, 0x00, 0x05, 0x01, 0x00, 0x00, 0x00});

// Everything a read gives, and the pool it leaves as its objects show it.
struct Outcome
{
    bool ok;
    QString error;
    Pool_file::Read_report report;
    int not_built;
    QStringList objects; // name and type of each
    QByteArray written;
};

Outcome read(const QByteArray& input, bool defer, VT::Vt6_objects form = VT::Vt6_objects::legacy)
{
    test::Dprint_capture quiet;
    Object_pool pool;
    pool.set_vt6_objects(form);
    pool.set_defer_building(defer);
    Outcome o;
    o.report.keep_duplicate_ids = true;
    o.ok = Pool_file::read(input, pool, &o.error, &o.report);
    o.not_built = pool.not_built();
    for (VT::VT_obj* obj : pool.objects())
        o.objects.append(QString::fromLatin1(obj->get_name()) + " " + obj->get_type_string());
    o.written = Pool_file::write(pool);
    return o;
}

// Reading with and without leaving objects unbuilt gives the same pool and report.
void expect_same_either_way(const QByteArray& input, const QString& what,
                            VT::Vt6_objects form = VT::Vt6_objects::legacy)
{
    const Outcome later = read(input, true, form);
    const Outcome now = read(input, false, form);
    const std::string at = what.toStdString();
    EXPECT_EQ(now.not_built, 0) << at;
    EXPECT_EQ(later.ok, now.ok) << at;
    EXPECT_EQ(later.error, now.error) << at;
    EXPECT_EQ(later.report.objects, now.report.objects) << at;
    EXPECT_EQ(later.report.offsets, now.report.offsets) << at;
    EXPECT_EQ(later.report.clamped.join('\n').toStdString(), now.report.clamped.join('\n').toStdString()) << at;
    EXPECT_EQ(later.report.clamped_objects, now.report.clamped_objects) << at;
    EXPECT_EQ(later.report.duplicate_ids, now.report.duplicate_ids) << at;
    EXPECT_EQ(later.report.stopped_at, now.report.stopped_at) << at;
    EXPECT_EQ(later.report.library_notes.join('\n').toStdString(), now.report.library_notes.join('\n').toStdString())
        << at;
    EXPECT_EQ(later.objects.join('\n').toStdString(), now.objects.join('\n').toStdString()) << at;
    EXPECT_EQ(later.written, now.written) << at;
}

QString read_error(const QByteArray& b)
{
    test::Dprint_capture quiet;
    Object_pool pool;
    QString error;
    EXPECT_FALSE(Pool_file::read(b, pool, &error));
    return error;
}

}

TEST(ToolsObjectPool, OwnsObjectsAndFindsThemByIdAndName)
{
    Object_pool pool;
    auto* a = new VT::Base::Number_variable_obj(10, "a", 1);
    auto* b = new VT::Base::Number_variable_obj(11, "b", 2);
    ASSERT_TRUE(pool.add(a));
    ASSERT_TRUE(pool.add(b));
    EXPECT_EQ(pool.find(10), a);
    EXPECT_EQ(pool.find(QByteArray("b")), b);
    EXPECT_EQ(pool.find(12), nullptr);
    EXPECT_EQ(a->get_pool_helper(), &pool.helper());
    EXPECT_EQ(a->get_pool(), &pool);

    QString error;
    EXPECT_FALSE(pool.add(new VT::Base::Number_variable_obj(10, "c", 3), &error));
    EXPECT_EQ(error, "id 10 of 'c' is already used by 'a'");
    EXPECT_FALSE(pool.add(new VT::Base::Number_variable_obj(12, "a", 3), &error));
    EXPECT_EQ(error, "name 'a' is already used by object 10");
    EXPECT_FALSE(pool.add(new VT::Base::Number_variable_obj(65535, "n", 3), &error));
    EXPECT_EQ(error, "'n' has the NULL id 65535");
    EXPECT_EQ(pool.size(), 2);

    EXPECT_EQ(pool.lowest_free_id(), 0);
    EXPECT_EQ(pool.lowest_free_id(10), 12);

    VT::Attribute_object_placement place(11, 0, 0);
    EXPECT_EQ(pool.helper().find_object(place), b);
}

TEST(ToolsObjectPool, BuildsObjectsInItsOwnStorageAndFixesTheirNames)
{
    const VT::Object_factory::Entry* entry = VT::Object_factory::find_for_pool(VT::VT_obj_type::TYPE_NUMBER_VARIABLE);
    ASSERT_NE(entry, nullptr);
    Object_pool pool;
    // A discarded object gives its storage back to the next one.
    VT::VT_obj* first = pool.create(*entry);
    pool.discard(first);
    VT::VT_obj* again = pool.create(*entry);
    EXPECT_EQ(again, first);
    pool.discard(again);

    // Enough objects for several blocks of storage and several growths of the name index.
    auto fill = [&] {
        for (int i = 0; i < 3000; ++i) {
            VT::VT_obj* obj = pool.create(*entry);
            obj->set_id(uint16_t(i));
            obj->set_name(("v" + std::to_string(i)).c_str());
            ASSERT_TRUE(pool.add(obj));
        }
    };
    fill();
    QString error;
    VT::VT_obj* twin = pool.create(*entry);
    twin->set_id(7);
    EXPECT_FALSE(pool.add(twin, &error)); // ends the object it was given
    EXPECT_EQ(error, "id 7 of 'NO_NAME' is already used by 'v7'");
    for (int i : {0, 255, 256, 2999}) {
        EXPECT_EQ(pool.find(uint16_t(i)), pool.objects()[i]);
        EXPECT_EQ(pool.find(QByteArray("v") + QByteArray::number(i)), pool.objects()[i]);
    }
    EXPECT_EQ(pool.find(QByteArray("v3000")), nullptr);
    EXPECT_EQ(pool.find(QByteArray(40, 'v')), nullptr);

    // In the pool, an object keeps its name, so the index stays right.
    VT::VT_obj* v5 = pool.find(5);
    EXPECT_TRUE(v5->in_a_list());
    {
        test::Dprint_capture said;
        v5->set_name("renamed");
        EXPECT_EQ(said.text, "Cant set name while in a list\n");
    }
    EXPECT_STREQ(v5->get_name(), "v5");
    EXPECT_EQ(pool.find(QByteArray("v5")), v5);

    // Cleared, the pool fills the same storage again.
    VT::VT_obj* old_first = pool.objects()[0];
    pool.clear();
    EXPECT_EQ(pool.find(QByteArray("v1")), nullptr);
    EXPECT_EQ(pool.find(1), nullptr);
    fill();
    EXPECT_EQ(pool.objects()[0], old_first);
    EXPECT_EQ(pool.find(QByteArray("v2999")), pool.objects()[2999]);
}

// Objects named "<Type>_<id>" after themselves are found through their id, the others through
// the name index; a name is taken whichever way it was found.
TEST(ToolsObjectPool, FindsDefaultNamesThroughTheIdAndKeepsEveryNameUnique)
{
    Object_pool pool;
    auto variable = [](uint16_t id, const char* name) { return new VT::Base::Number_variable_obj(id, name, 0); };
    ASSERT_TRUE(pool.add(variable(5, "Number_variable_5")));
    // Looks like a default name, but of another id: indexed by name.
    ASSERT_TRUE(pool.add(variable(7, "Number_variable_9")));
    // A leading zero or another type's name is never a default name.
    ASSERT_TRUE(pool.add(variable(8, "Number_variable_08")));
    ASSERT_TRUE(pool.add(variable(6, "Rectangle_6")));
    EXPECT_EQ(pool.find(QByteArray("Number_variable_5")), pool.find(5));
    EXPECT_EQ(pool.find(QByteArray("Number_variable_9")), pool.find(7));
    EXPECT_EQ(pool.find(QByteArray("Number_variable_08")), pool.find(8));
    EXPECT_EQ(pool.find(QByteArray("Number_variable_8")), nullptr);
    EXPECT_EQ(pool.find(QByteArray("Rectangle_6")), pool.find(6));
    EXPECT_EQ(pool.find(QByteArray("Number_variable_6")), nullptr);
    EXPECT_EQ(pool.find(QByteArray("_5")), nullptr);
    EXPECT_EQ(pool.find(QByteArray("Number_variable_65535")), nullptr);

    QString error;
    // Object 9 would carry its own default name, which object 7 already has.
    EXPECT_FALSE(pool.add(variable(9, "Number_variable_9"), &error));
    EXPECT_EQ(error, "name 'Number_variable_9' is already used by object 7");
    // A name that is object 5's default name, taken by another id.
    EXPECT_FALSE(pool.add(variable(10, "Number_variable_5"), &error));
    EXPECT_EQ(error, "name 'Number_variable_5' is already used by object 5");

    // Type names too long for "<Type>_<id>" give "obj_<id>".
    char name[VT::VT_obj::NAME_LEN + 1];
    Object_pool::write_default_name("Auxiliary_type2_control_designator", 34, 40000, name);
    EXPECT_STREQ(name, "obj_40000");
    Object_pool::write_default_name(VT::VT_obj_type::TYPE_NUMBER_VARIABLE, 0, name);
    EXPECT_STREQ(name, "Number_variable_0");

    // A pool read from bytes indexes none of its names, yet finds every one.
    Object_pool read;
    ASSERT_TRUE(Pool_file::read(variables, read, &error)) << qPrintable(error);
    EXPECT_EQ(read.find(QByteArray("Number_variable_5000")), read.find(5000));
    EXPECT_EQ(read.find(QByteArray("String_variable_7")), read.find(7));
    EXPECT_FALSE(read.add(variable(11, "String_variable_7"), &error));
    EXPECT_EQ(error, "name 'String_variable_7' is already used by object 7");
    // Read into a pool where another object already has that name.
    Object_pool taken;
    ASSERT_TRUE(taken.add(variable(1, "String_variable_7")));
    EXPECT_FALSE(Pool_file::read(variables, taken, &error));
    EXPECT_TRUE(error.endsWith(": name 'String_variable_7' is already used by object 1")) << qPrintable(error);
}

TEST(ToolsObjectPool, HelperLocksRecursivelyAndRecordsUploads)
{
    Object_pool pool;
    auto* a = new VT::Base::Number_variable_obj(3, "a", 1);
    pool.add(a);
    Object_pool::Helper& h = pool.helper();
    EXPECT_EQ(h.lock_depth(), 0);
    a->lock();
    a->lock();
    EXPECT_EQ(h.lock_depth(), 2);
    EXPECT_EQ(a->_get_value(), 1u);
    a->unlock();
    a->unlock();
    EXPECT_EQ(h.lock_depth(), 0);
    EXPECT_EQ(a->get_value(), 1u); // the checked getter balances its lock
    EXPECT_EQ(h.lock_depth(), 0);
#ifndef NDEBUG
    EXPECT_DEATH(a->_get_value(), "without holding its pool's lock");
#endif

    int seen = 0;
    pool.set_upload_callback([&](VT::VT_obj* obj, bool flag) {
        EXPECT_EQ(obj, a);
        EXPECT_TRUE(flag);
        ++seen;
    });
    a->set_serialise_as_null_op(true);
    ASSERT_EQ(pool.uploads().size(), 1);
    EXPECT_EQ(pool.uploads()[0].id, 3);
    EXPECT_EQ(seen, 1);

    EXPECT_EQ(h.negotiated_version(), 255);
    pool.set_negotiated_version(4);
    EXPECT_EQ(h.negotiated_version(), 4);
    EXPECT_FALSE(h.obj_type_supported(21));
    pool.set_supported_types({21});
    EXPECT_TRUE(h.obj_type_supported(21));
    VT::Serialisation_limits l;
    l.colour_format = 1;
    l.small_font_mask = 3;
    pool.set_serialisation_limits(l);
    EXPECT_EQ(h.get_serialisation_limits()->colour_format, 1u);
    EXPECT_EQ(h.get_serialisation_limits()->small_font_mask, 3);
    EXPECT_TRUE(h.in_pool(pool));
}

TEST(ToolsPoolFile, ReadsAndWritesBackByteForByteInOneBufferOrInChunks)
{
    Object_pool pool;
    QString error;
    Pool_file::Read_report report;
    ASSERT_TRUE(Pool_file::read(variables, pool, &error, &report)) << error.toStdString();
    EXPECT_EQ(report.objects, 3);
    EXPECT_TRUE(report.clamped.isEmpty());
    ASSERT_EQ(pool.size(), 3);
    EXPECT_EQ(pool.objects()[1]->get_type(), VT::VT_obj_type::TYPE_STRING_VARIABLE);
    EXPECT_STREQ(pool.objects()[1]->get_name(), "String_variable_7");
    EXPECT_EQ(pool.find(QByteArray("Number_variable_5000")), pool.objects()[0]);

    EXPECT_EQ(Pool_file::write(pool), variables);
    for (int chunk : {1, 2, 3, 7, 8, 1785}) {
        std::vector<int> sizes;
        QByteArray streamed;
        Pool_file::write_chunks(pool, chunk, [&](const uint8_t* p, int n) {
            sizes.push_back(n);
            streamed.append(reinterpret_cast<const char*>(p), n);
        });
        EXPECT_EQ(streamed, variables) << "chunk " << chunk;
        for (size_t i = 0; i + 1 < sizes.size(); ++i)
            EXPECT_EQ(sizes[i], chunk) << "only the last buffer may be short";
    }
    // The pool is locked once around a write; an object that answers to another helper is
    // written under its own lock, and the pool's lock is given back either way.
    pool.objects()[1]->set_pool_helper(nullptr);
    EXPECT_EQ(Pool_file::write(pool), variables);
    EXPECT_EQ(Pool_file::write_streamed(pool, 4), variables);
    EXPECT_EQ(pool.helper().lock_depth(), 0);
}

TEST(ToolsPoolFile, WritesPoolsLargerThanItsFirstBufferWhole)
{
    // About 180 KB of strings: the output grows several times, objects straddle its ends.
    Object_pool pool;
    std::string text(80, 'x');
    QByteArray expected;
    for (int i = 0; i < 2000; ++i) {
        auto* s = new VT::Base::String_variable_obj(uint16_t(i), ("s" + std::to_string(i)).c_str(),
                                                    uint16_t(text.size() - i % 7), &text[0]);
        ASSERT_TRUE(pool.add(s));
        expected += Pool_file::object_bytes(*s);
    }
    ASSERT_GT(expected.size(), 160000);
    EXPECT_EQ(Pool_file::write(pool), expected);
    EXPECT_EQ(Pool_file::write_streamed(pool, 1785), expected);
    EXPECT_EQ(Pool_file::write_streamed(pool, 1), expected);
}

TEST(ToolsPoolFile, LeavesItsInputAsItWasAndReadsObjectsHoldingAFloatWhateverTheirSize)
{
    // An output number holds a float, which marks the bytes it reads; it is read from a private
    // copy of its bytes, even with all 255 event macros.
    QByteArray number = bytes({0x0A, 0x00, 0x0C, 0x10, 0x00, 0x08, 0x00, 0x01, 0xFF, 0xFF, 0x00, 0xFF, 0xFF, //
                               0x01, 0, 0, 0, 0, 0, 0, 0, 0x00, 0x00, 0x80, 0x3F, 0, 0, 0, 255});
    for (int i = 0; i < 255; ++i)
        number += bytes({1, 5});
    QByteArray input = variables + number + variables.left(7).replace(0, 2, bytes({0x0B, 0x00}));
    const QByteArray before(input.constData(), input.size()); // not sharing the input's bytes
    Object_pool pool;
    ASSERT_TRUE(Pool_file::read(input, pool, nullptr));
    EXPECT_EQ(input, before);
    EXPECT_EQ(pool.size(), 5);
    input[3] = 0x11; // the objects hold nothing of the caller's bytes
    EXPECT_EQ(Pool_file::write(pool), before);

    EXPECT_EQ(read_error(variables + number.left(100)),
              "object 3 (id 10, type 12 Output_number) at byte offset 22: attributes truncated or malformed "
              "(97 bytes left after the header)");
}

TEST(ToolsPoolFile, BadInputStopsWithAOneLineErrorNamingTheObject)
{
    EXPECT_EQ(read_error(QByteArray()), "empty pool: no objects");
    EXPECT_EQ(read_error(variables.left(variables.size() - 1)),
              "object 2 (id 9, type 21 Number_variable) at byte offset 15: attributes truncated or malformed "
              "(3 bytes left after the header)");
    EXPECT_EQ(read_error(variables + bytes({0x01, 0x02})),
              "object 3 at byte offset 22: truncated object header (2 bytes left, 3 needed)");
    EXPECT_EQ(read_error(bytes({0x01, 0x00, 0x63, 0, 0, 0})),
              "object 0 (id 1, type 99 UNKNOWN) at byte offset 0: unknown object type 99");
    EXPECT_EQ(read_error(bytes({0x01, 0x00, 0xF6, 0x09})),
              "object 0 (id 1, type 246 UNKNOWN) at byte offset 0: unknown configuration object kind 9");
    EXPECT_EQ(read_error(variables + variables.left(7)),
              "object 3 (id 5000, type 21 Number_variable) at byte offset 22: id 5000 is already used by an earlier "
              "object");
    EXPECT_EQ(read_error(bytes({0xFF, 0xFF, 0x15, 0, 0, 0, 0})),
              "object 0 (id 65535, type 21 Number_variable) at byte offset 0: object id 65535 is the NULL id");
    // A string whose length runs past the end of the input.
    EXPECT_EQ(read_error(bytes({0x07, 0x00, 0x16, 0xFF, 0xFF, 0x61})),
              "object 0 (id 7, type 22 String_variable) at byte offset 0: attributes truncated or malformed "
              "(3 bytes left after the header)");
}

TEST(ToolsPoolFile, SurvivesEveryTruncationAndCorruptionOfAPool)
{
    // Every prefix, and every single-byte change, either reads or fails cleanly.
    test::Dprint_capture quiet;
    for (int n = 0; n < variables.size(); ++n) {
        Object_pool pool;
        QString error;
        bool ok = Pool_file::read(variables.left(n), pool, &error);
        EXPECT_EQ(ok, n == 7 || n == 15) << n;
        if (!ok) {
            EXPECT_FALSE(error.isEmpty());
        }
    }
    for (int i = 0; i < variables.size(); ++i)
        for (int v : {0x00, 0x16, 0x7F, 0xFF}) {
            QByteArray b = variables;
            b[i] = char(v);
            Object_pool pool;
            QString error;
            if (!Pool_file::read(b, pool, &error)) {
                EXPECT_TRUE(error.startsWith("object ")) << error.toStdString();
            }
        }
}

TEST(ToolsDeferredReading, GivesThePoolAndReportOfReadingEveryObjectAtOnce)
{
    // One object of every type, in both forms of the version 6 objects, most of them plain.
    for (VT::Vt6_objects form : {VT::Vt6_objects::legacy, VT::Vt6_objects::iso}) {
        const QByteArray every = test::every_type_pool(nullptr, form);
        expect_same_either_way(every, "every type", form);
        EXPECT_GT(read(every, true, form).not_built, 30);
    }

    // Every truncation and single-byte change of it, which stops reading or clamps values
    // anywhere: objects after a bad one are never built.
    const QByteArray every = test::every_type_pool();
    for (int n = 0; n < every.size(); n += 7)
        expect_same_either_way(every.left(n), QStringLiteral("first %1 bytes").arg(n));
    for (int i = 0; i < every.size(); i += 5)
        for (int v : {0x00, 0x05, 0xFF}) {
            QByteArray changed = every;
            changed[i] = char(v);
            expect_same_either_way(changed, QStringLiteral("byte %1 = %2").arg(i).arg(v));
        }
    // Clamped values and ids used twice are reported as before.
    expect_same_either_way(variables + key_code_0 + variables.left(7), "clamped key, id twice");
    EXPECT_EQ(read(variables + key_code_0, true).report.clamped.size(), 1);

    const QStringList pools = test::real_pools();
    if (pools.isEmpty())
        GTEST_LOG_(INFO) << "no real pools in " VT_SHARED_POOLS_DIR ": only made-up pools compared";
    for (const QString& path : pools)
        expect_same_either_way(test::read_file(path), path);
}

TEST(ToolsDeferredReading, ALookAtThePoolBuildsEveryObjectInItsPlace)
{
    test::Dprint_capture quiet;
    QString error;
    {
        Object_pool pool;
        ASSERT_TRUE(Pool_file::read(variables, pool, &error));
        EXPECT_EQ(pool.not_built(), 3);
        EXPECT_EQ(pool.size(), 3);
        // Ids are known unbuilt.
        EXPECT_TRUE(pool.uses_id(7));
        EXPECT_FALSE(pool.uses_id(8));
        EXPECT_EQ(pool.lowest_free_id(7), 8);
        EXPECT_EQ(pool.not_built(), 3);

        VT::VT_obj* s = pool.find(7);
        ASSERT_NE(s, nullptr);
        EXPECT_EQ(pool.not_built(), 0);
        EXPECT_STREQ(s->get_name(), "String_variable_7");
        EXPECT_EQ(s->get_pool(), &pool);
        ASSERT_EQ(pool.objects().size(), 3);
        EXPECT_EQ(pool.objects()[0]->get_id(), 5000);
        EXPECT_EQ(pool.objects()[1], s);
        EXPECT_EQ(pool.find(QByteArray("Number_variable_9")), pool.objects()[2]);
    }
    {
        // Adding an object builds first, so a clash names the object it clashes with.
        Object_pool pool;
        ASSERT_TRUE(Pool_file::read(variables, pool, &error));
        EXPECT_FALSE(pool.add(new VT::Base::Number_variable_obj(9, "n", 3), &error));
        EXPECT_EQ(error, "id 9 of 'n' is already used by 'Number_variable_9'");
        EXPECT_EQ(pool.not_built(), 0);
    }
    {
        // Objects are built from a copy: borrowed bytes may change or go after reading.
        QByteArray mine = variables;
        Object_pool pool;
        ASSERT_TRUE(Pool_file::read(QByteArray::fromRawData(mine.constData(), mine.size()), pool, &error));
        mine.fill('\x55');
        mine.clear();
        EXPECT_EQ(Pool_file::write(pool), variables);
    }
    {
        // A pool is cleared and read again, unbuilt objects and all; one whose names are
        // indexed builds every object as it reads it.
        Object_pool pool;
        ASSERT_TRUE(Pool_file::read(variables, pool, &error));
        pool.clear();
        EXPECT_EQ(pool.size(), 0);
        EXPECT_FALSE(pool.uses_id(7));
        ASSERT_TRUE(pool.add(new VT::Base::Number_variable_obj(1, "named", 3)));
        ASSERT_TRUE(Pool_file::read(variables, pool, &error));
        EXPECT_EQ(pool.not_built(), 0);
        EXPECT_EQ(pool.size(), 4);
    }
    {
        // A value out of range is clamped at once and said, the rest waits.
        Object_pool pool;
        Pool_file::Read_report report;
        ASSERT_TRUE(Pool_file::read(variables + key_code_0, pool, &error, &report));
        EXPECT_EQ(pool.not_built(), 3);
        EXPECT_EQ(report.clamped_objects, QVector<int>{3});
        EXPECT_EQ(pool.find(3)->get_type(), VT::VT_obj_type::TYPE_KEY);
    }
}
