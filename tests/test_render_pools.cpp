// The renderer on whole pools: the example against its golden images, every real pool and
// example drawn without trouble, and vtpool render as a user runs it.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>

#include "test_support.h"
#include "tool_test_support.h"
#include "tools/pool/Pool_loader.h"
#include "tools/terminal/Colour_reduction.h"
#include "tools/render/Png_writer.h"
#include "tools/render/Renderer.h"

using test::Outcome;
using test::read_file;
using test::vtpool;
using VT::Object_pool;
using VT::Render::Renderer;

namespace {

const char* const GOLDEN_DIR = VT_TEST_DATA_DIR "/../golden";

bool load(const QString& path, Object_pool& pool)
{
    QStringList problems, warnings;
    test::Stream_capture err(std::cerr);
    const bool ok = VT::Pool_loader::load(path, pool, problems, warnings);
    EXPECT_TRUE(ok) << path.toStdString() << ": " << problems.join("\n").toStdString();
    return ok;
}

QSize png_size(const QString& path)
{
    return QImage(path, "PNG").size();
}

}

// The drawings of the example, byte for byte. When a change is meant to change them, run
// scripts/update-golden.sh, look at the new images and commit them.
TEST(RenderPools, ExampleMasksMatchTheirGoldenImages)
{
    Object_pool pool;
    ASSERT_TRUE(load(QStringLiteral(VT_EXAMPLES_DIR "/realistic.xml"), pool));
    const QVector<VT::VT_obj*> masks = Renderer::masks(pool);
    ASSERT_EQ(masks.size(), 3);
    for (int colours : {256, 16}) {
        VT::Terminal terminal;
        terminal.colours = colours;
        Renderer renderer(terminal, pool);
        for (VT::VT_obj* mask : masks) {
            const QString golden =
                QStringLiteral("%1/realistic-%2/%3.png").arg(GOLDEN_DIR).arg(colours).arg(mask->get_name());
            SCOPED_TRACE(golden.toStdString());
            const QByteArray expected = read_file(golden);
            ASSERT_FALSE(expected.isEmpty()) << "missing: run scripts/update-golden.sh";
            // Drawn twice: the same bytes every time.
            const QByteArray drawn = VT::Render::encode_png(renderer.render_screen(mask));
            EXPECT_EQ(VT::Render::encode_png(renderer.render_screen(mask)), drawn);
            EXPECT_TRUE(drawn == expected) << "the drawing changed; if that is meant, run scripts/update-golden.sh";
            EXPECT_FALSE(renderer.truncated());
        }
    }
}

TEST(RenderPools, EveryMaskAndObjectOfTheRealPoolsAndExamplesDraws)
{
    QStringList paths;
    for (const QString& f : QDir(QStringLiteral(VT_EXAMPLES_DIR)).entryList({"*.xml"}, QDir::Files, QDir::Name))
        paths.append(QStringLiteral(VT_EXAMPLES_DIR "/") + f);
    const QDir shared(QStringLiteral(VT_SHARED_POOLS_DIR));
    const QStringList real = shared.entryList({"*.iop"}, QDir::Files, QDir::Name);
    if (real.isEmpty())
        std::cout << "[ SKIPPED  ] no real pools in " << VT_SHARED_POOLS_DIR << "; drawing the examples only"
                  << std::endl;
    for (const QString& f : real)
        paths.append(shared.filePath(f));
    for (const QString& path : paths) {
        SCOPED_TRACE(path.toStdString());
        Object_pool pool;
        if (!load(path, pool))
            continue;
        for (int colours : {256, 16, 2}) {
            VT::Terminal terminal;
            terminal.colours = colours;
            Renderer renderer(terminal, pool);
            QSet<uint32_t> allowed;
            for (int i = 0; i < colours; ++i)
                allowed.insert(VT::terminal_rgb(uint8_t(i), 256));
            const QVector<VT::VT_obj*> masks = Renderer::masks(pool);
            EXPECT_FALSE(masks.isEmpty());
            for (VT::VT_obj* mask : masks) {
                const VT::Render::Canvas c = renderer.render_screen(mask);
                EXPECT_FALSE(renderer.truncated()) << mask->get_name();
                EXPECT_GE(c.width(), terminal.data_mask_width);
                // Nothing on the screen lies outside the terminal's colours.
                if (colours == 256)
                    continue;
                QSet<uint32_t> shown;
                for (int y = 0; y < c.height(); ++y)
                    for (int x = 0; x < c.width(); ++x)
                        shown.insert(c.pixel(x, y));
                for (uint32_t rgb : shown)
                    EXPECT_TRUE(allowed.contains(rgb)) << mask->get_name() << std::hex << " shows " << rgb;
            }
            for (VT::VT_obj* obj : pool.objects()) {
                const VT::Render::Rect size = renderer.object_size(obj);
                if (size.empty())
                    continue;
                const VT::Render::Canvas c = renderer.render_object(obj);
                EXPECT_EQ(c.width(), size.w);
                EXPECT_FALSE(renderer.truncated()) << obj->get_name();
            }
        }
    }
}

TEST(RenderPools, VtpoolRenderDrawsMasksAndObjectsOrSaysWhatItCannotFind)
{
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    const QString example = QStringLiteral(VT_EXAMPLES_DIR "/realistic.xml");

    // The active mask with the soft-key column beside it (6 keys of 60 x 60 plus margins).
    Outcome r = vtpool({"render", example, "-o", tmp.filePath("work.png")});
    ASSERT_EQ(r.status, 0) << r.err.toStdString();
    EXPECT_TRUE(r.out.contains("'work'")) << r.out.toStdString();
    EXPECT_EQ(png_size(tmp.filePath("work.png")), QSize(480 + 68, 480));
    EXPECT_EQ(read_file(tmp.filePath("work.png")), read_file(QStringLiteral("%1/realistic-256/work.png").arg(GOLDEN_DIR)));

    r = vtpool({"render", example, "--mask", "2000", "--scale", "2", "--mask-size", "200", "--key-size", "40x30",
                "--soft-keys", "2", "--colours", "16", "-o", tmp.filePath("settings.png")});
    ASSERT_EQ(r.status, 0) << r.err.toStdString();
    EXPECT_EQ(png_size(tmp.filePath("settings.png")), QSize(2 * (200 + 48), 2 * 200));

    r = vtpool({"render", example, "--object", "tractor", "-o", tmp.filePath("tractor.png")});
    ASSERT_EQ(r.status, 0) << r.err.toStdString();
    EXPECT_EQ(png_size(tmp.filePath("tractor.png")).width(), 80);

    // Every mask, and a page that shows them with their names.
    r = vtpool({"render", example, "--all", "-o", tmp.filePath("all")});
    ASSERT_EQ(r.status, 0) << r.err.toStdString();
    const QString index = QString::fromUtf8(read_file(tmp.filePath("all/index.html")));
    for (const char* name : {"work", "settings", "overspeed"}) {
        EXPECT_TRUE(index.contains(QStringLiteral("src=\"%1.png\"").arg(name))) << name;
        EXPECT_TRUE(index.contains(QStringLiteral(">%1 (").arg(name))) << name;
        EXPECT_FALSE(png_size(tmp.filePath(QStringLiteral("all/%1.png").arg(name))).isEmpty()) << name;
    }

    // What cannot be drawn: status 1, a message, no file.
    const struct
    {
        QStringList args;
        const char* message;
    } refused[] = {
        {{"--mask", "nothing_like_it"}, "no mask 'nothing_like_it'"},
        {{"--mask", "title"}, "is not a data, alarm or window mask"},
        {{"--object", "12345"}, "no object '12345'"},
        {{"--object", "speed"}, "has nothing to draw"},
    };
    for (const auto& c : refused) {
        r = vtpool(QStringList{"render", example, "-o", tmp.filePath("refused.png")} + c.args);
        EXPECT_EQ(r.status, 1) << c.message;
        EXPECT_TRUE(r.err.contains(c.message)) << r.err.toStdString();
        EXPECT_FALSE(QFile::exists(tmp.filePath("refused.png"))) << c.message;
    }
    r = vtpool({"render", example, "-o", tmp.filePath("no/such/folder/x.png")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains("cannot write")) << r.err.toStdString();
    EXPECT_EQ(QDir(tmp.path()).entryList(QDir::Files).filter(".png").size(), 3) << "no stray temporary files";

    // Bad usage: status 2.
    for (const QStringList& args : {QStringList{"--all"}, QStringList{"--scale", "0"}, QStringList{"--colours", "8"},
                                    QStringList{"--mask", "work", "--object", "title"},
                                    QStringList{"--key-size", "0x60"}, QStringList{"--soft-keys", "65"}})
        EXPECT_EQ(vtpool(QStringList{"render", example} + args).status, 2) << args.join(" ").toStdString();
}
