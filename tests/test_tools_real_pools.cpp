// Real object pools made by other tools: read, written back, checked.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <sstream>

#include "test_support.h"
#include "tool_test_support.h"
#include "tools/pool/Object_pool.h"
#include "tools/pool/Pool_file.h"
#include "tools/check/Checker.h"
#include "tools/pool/Labels.h"

using VT::Object_pool;
using VT::Pool_file;

TEST(ToolsRealPools, ReadAndWriteBackObjectByObject)
{
    QStringList pools = test::real_pools();
    if (pools.isEmpty())
        GTEST_SKIP() << "no real pools in " << VT_SHARED_POOLS_DIR;
    for (const QString& path : pools) {
        SCOPED_TRACE(path.toStdString());
        QFile f(path);
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        const QByteArray input = f.readAll();
        Object_pool pool;
        QString error;
        Pool_file::Read_report report;
        ASSERT_TRUE(Pool_file::read(input, pool, &error, &report)) << error.toStdString();
        ASSERT_EQ(report.objects, pool.size());
        // Every value of these pools lies inside its attribute's range: nothing is clamped.
        EXPECT_TRUE(report.clamped.isEmpty()) << report.clamped.join("\n").toStdString();

        // A 256-colour terminal that supports every font is what the default limits describe.
        for (int i = 0; i < pool.size(); ++i) {
            int begin = report.offsets[i];
            int end = i + 1 < pool.size() ? report.offsets[i + 1] : input.size();
            EXPECT_EQ(Pool_file::object_bytes(*pool.objects()[i]), input.mid(begin, end - begin))
                << VT::object_label(pool.objects()[i]).toStdString();
        }
        EXPECT_EQ(Pool_file::write(pool), input);
        EXPECT_EQ(Pool_file::write_streamed(pool, 1785), input);
        EXPECT_EQ(Pool_file::write_streamed(pool, 8), input);

        const VT::Check::Result check = VT::Check::check(pool, VT::Check::Source());
        EXPECT_EQ(check.count(VT::Check::Severity::error), 0);
        EXPECT_GE(check.needed_version, 2);

        std::ostringstream dump;
        for (VT::VT_obj* obj : pool.objects())
            obj->print_me(dump, 0);
        EXPECT_GT(dump.str().size(), size_t(pool.size()) * 10);
    }
}

TEST(ToolsRealPools, DamagedCopiesReadOrFailCleanly)
{
    QStringList pools = test::real_pools();
    if (pools.isEmpty())
        GTEST_SKIP() << "no real pools in " << VT_SHARED_POOLS_DIR;
    test::Dprint_capture quiet;
    test::Stream_capture err(std::cerr);
    uint32_t state = 12345;
    auto next = [&state]() {
        state = state * 1103515245u + 12345u;
        return state >> 8;
    };
    for (const QString& path : pools) {
        QFile f(path);
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        const QByteArray input = f.readAll();
        int failed = 0;
        auto attempt = [&](const QByteArray& damaged) {
            Object_pool pool;
            QString error;
            if (!Pool_file::read(damaged, pool, &error)) {
                ++failed;
                EXPECT_TRUE(error.startsWith("object ") || error.startsWith("empty")) << error.toStdString();
                return;
            }
            // What was read can be written again.
            EXPECT_GT(Pool_file::write(pool).size(), 0);
        };
        for (int cut = 0; cut < input.size(); cut += 997)
            attempt(input.left(cut));
        for (int i = 0; i < 300; ++i) {
            QByteArray damaged = input;
            for (int k = 0; k < 4; ++k)
                damaged[int(next() % uint32_t(damaged.size()))] = char(next() & 0xFF);
            attempt(damaged);
        }
        EXPECT_GT(failed, 0) << path.toStdString();
    }
}
