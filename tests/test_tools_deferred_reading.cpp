// Objects that reading leaves to be built when the pool is first looked at.
#include <gtest/gtest.h>

#include "every_type_pool.h"
#include "test_support.h"
#include "tool_test_support.h"
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

// Number variable 5000 = 1234, string variable 7 = "abc", number variable 9 = 0.
const QByteArray variables = bytes({0x88, 0x13, 0x15, 0xD2, 0x04, 0x00, 0x00, //
                                    0x07, 0x00, 0x16, 0x03, 0x00, 0x61, 0x62, 0x63, //
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
