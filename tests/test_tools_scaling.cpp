// Scaling a pool for a terminal: each object by the ratio of the area it is drawn in.
#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include "process_support.h"
#include "test_support.h"
#include "tools/description/Description.h"
#include "tools/pool/Pool_file.h"
#include "tools/terminal/Scaling.h"

using namespace VT;

namespace {

const char* const screens = R"(<object_pool>
  <Data_mask name="dm" soft_key_mask="skm">
    <place object="box" x_location="100" y_location="50"/>
    <place object="frame" x_location="3" y_location="5"/>
  </Data_mask>
  <Container name="box" width="100" height="40">
    <place object="label" x_location="10" y_location="20"/>
  </Container>
  <Output_string name="label" width="80" height="20" string="a"/>
  <Rectangle name="frame" line_attributes="thick" width="10" height="10"/>
  <Line_attributes name="thick" line_width="3"/>
  <Soft_key_mask name="skm">
    <ref object="k"/>
  </Soft_key_mask>
  <Key name="k" key_code="1">
    <place object="key_label" x_location="6" y_location="8"/>
  </Key>
  <Output_string name="key_label" width="50" height="40" string="b"/>
</object_pool>)";

// Data-mask area designed for 200 x 200 shown at 400 x 400; soft keys designed for 60 x 60
// shown at 90 x 120.
const Scaling::Ratio mask{true, 400, 400, 200, 200};
const Scaling::Ratio key{true, 90, 120, 60, 60};

template <class T>
T* get(Object_pool& pool, const char* name)
{
    return dynamic_cast<T*>(pool.find(QByteArray(name)));
}

void expect_scaled(Object_pool& pool)
{
    auto* dm = get<Base::Data_mask_obj>(pool, "dm");
    ASSERT_NE(dm, nullptr);
    EXPECT_EQ(dm->get_child_location_x_location(0), 200);
    EXPECT_EQ(dm->get_child_location_y_location(0), 100);
    auto* box = get<Base::Container_obj>(pool, "box");
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->get_width(), 200);
    EXPECT_EQ(box->get_height(), 80);
    EXPECT_EQ(box->get_child_location_x_location(0), 20);
    EXPECT_EQ(box->get_child_location_y_location(0), 40);
    EXPECT_EQ(pool.find(QByteArray("label"))->get_width(), 160);
    EXPECT_EQ(pool.find(QByteArray("label"))->get_height(), 40);
    EXPECT_EQ(get<Base::Line_attributes_obj>(pool, "thick")->get_line_width(), 6);

    // What the soft keys show follows the key ratio: 1.5 across, 2 down.
    auto* k = get<Base::Key_obj>(pool, "k");
    ASSERT_NE(k, nullptr);
    EXPECT_EQ(k->get_child_location_x_location(0), 9);
    EXPECT_EQ(k->get_child_location_y_location(0), 16);
    EXPECT_EQ(pool.find(QByteArray("key_label"))->get_width(), 75);
    EXPECT_EQ(pool.find(QByteArray("key_label"))->get_height(), 80);
}

}

TEST(ToolsScaling, DescriptionObjectsScaleByTheAreaTheyAreUsedIn)
{
    Description d;
    Object_pool pool;
    ASSERT_TRUE(d.parse(screens, "scale.xml"));
    ASSERT_TRUE(d.build(pool)) << d.problems().join("\n").toStdString();
    EXPECT_EQ(pool.find(QByteArray("label"))->get_scale_area(), SCALE_AREA_ACTIVE);
    EXPECT_EQ(pool.find(QByteArray("key_label"))->get_scale_area(), SCALE_AREA_SOFT_KEY);
    Scaling::scale(pool, mask, key);
    expect_scaled(pool);
}

TEST(ToolsScaling, PoolFileObjectsLearnTheirAreasFromTheMasks)
{
    Description d;
    Object_pool built;
    ASSERT_TRUE(d.parse(screens, "scale.xml"));
    ASSERT_TRUE(d.build(built));
    QByteArray unscaled = Pool_file::write(built);

    Object_pool pool;
    QString error;
    ASSERT_TRUE(Pool_file::read(unscaled, pool, &error)) << error.toStdString();
    // Names from pool bytes are "<Type>_<id>": give the test's names back.
    for (VT_obj* obj : built.objects()) {
        VT_obj* twin = pool.find(obj->get_id());
        ASSERT_NE(twin, nullptr);
        EXPECT_EQ(twin->get_scale_area(), SCALE_AREA_NONE);
    }
    Scaling::propagate_areas(pool);
    EXPECT_EQ(pool.find(built.find(QByteArray("label"))->get_id())->get_scale_area(), SCALE_AREA_ACTIVE);
    EXPECT_EQ(pool.find(built.find(QByteArray("key_label"))->get_id())->get_scale_area(), SCALE_AREA_SOFT_KEY);
    EXPECT_EQ(pool.find(built.find(QByteArray("skm"))->get_id())->get_scale_area(), SCALE_AREA_NONE)
        << "a data mask's soft-key mask is not drawn in the data mask";

    Scaling::scale(pool, mask, key);
    Scaling::scale(built, mask, key);
    expect_scaled(built);
    EXPECT_EQ(Pool_file::write(pool), Pool_file::write(built));
}

TEST(ToolsScaling, NoRatioLeavesThePoolAlone)
{
    Description d;
    Object_pool pool;
    ASSERT_TRUE(d.parse(screens, "scale.xml"));
    ASSERT_TRUE(d.build(pool));
    QByteArray before = Pool_file::write(pool);
    Scaling::scale(pool, Scaling::Ratio(), Scaling::Ratio());
    EXPECT_EQ(Pool_file::write(pool), before);
    // Only the key ratio: the data mask keeps its layout.
    Scaling::scale(pool, Scaling::Ratio(), key);
    EXPECT_EQ(get<Base::Data_mask_obj>(pool, "dm")->get_child_location_x_location(0), 100);
    EXPECT_EQ(pool.find(QByteArray("key_label"))->get_width(), 75);
}

TEST(ToolsScaling, VtpoolScalesEachAreaByItsOwnRatio)
{
    // The data mask designed at 200 x 100 and shown at 400: 2 across, 4 down; the keys 1.5 and 2.
    Description d;
    Object_pool expected;
    ASSERT_TRUE(d.parse(screens, "scale.xml"));
    ASSERT_TRUE(d.build(expected));
    Scaling::scale(expected, {true, 400, 400, 200, 100}, key);
    EXPECT_EQ(get<Base::Container_obj>(expected, "box")->get_height(), 160);
    const QByteArray want = Pool_file::write(expected);

    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    auto file = [&](const char* name) { return tmp.filePath(QString::fromLatin1(name)); };
    auto vtpool = [](const QStringList& args) {
        QProcess p;
        p.start(QStringLiteral(VT_VTPOOL), args);
        return p.waitForFinished(60000) && p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0;
    };
    QFile xml(file("scale.xml"));
    ASSERT_TRUE(xml.open(QIODevice::WriteOnly) && xml.write(screens) > 0);
    xml.close();
    // The screens are no whole pool (no working set, texts without fonts): built unchecked.
    ASSERT_TRUE(vtpool({"build", file("scale.xml"), "-o", file("plain.iop"), "--no-check"}));
    // A pool file's objects learn their areas from the masks before they are scaled.
    for (const char* input : {"scale.xml", "plain.iop"}) {
        ASSERT_TRUE(vtpool({"build", file(input), "-o", file("scaled.iop"), "--design-size", "200x100", "--mask-size",
                            "400", "--design-key-size", "60x60", "--key-size", "90x120", "--no-check"}));
        QFile scaled(file("scaled.iop"));
        ASSERT_TRUE(scaled.open(QIODevice::ReadOnly));
        EXPECT_EQ(scaled.readAll(), want) << input;
    }
}

TEST(ToolsScaling, AnObjectDrawnInBothAreasIsNamedOnceWithTheAreaItIsScaledFor)
{
    // One font for a data-mask text and the texts of two keys: reached from both areas, three
    // times over.
    const char* const shared = R"(<object_pool>
  <Data_mask name="dm" soft_key_mask="skm">
    <place object="label" x_location="0" y_location="0"/>
  </Data_mask>
  <Output_string name="label" width="80" height="20" font_attributes="font" string="a"/>
  <Soft_key_mask name="skm"><ref object="k1"/><ref object="k2"/></Soft_key_mask>
  <Key name="k1" key_code="1"><place object="t1" x_location="0" y_location="0"/></Key>
  <Key name="k2" key_code="2"><place object="t2" x_location="0" y_location="0"/></Key>
  <Output_string name="t1" width="50" height="40" font_attributes="font" string="b"/>
  <Output_string name="t2" width="50" height="40" font_attributes="font" string="c"/>
  <Font_attributes name="font" font_size="3"/>
</object_pool>)";
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    const QString xml = tmp.filePath("shared.xml"), iop = tmp.filePath("shared.iop");
    QFile f(xml);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.write(shared) > 0);
    f.close();
    ASSERT_EQ(test::vtpool({"build", xml, "-o", iop, "--no-check"}).status, 0);
    const QStringList scaling{"--design-size", "200x200", "--mask-size", "400", "--design-key-size", "60x60",
                              "--key-size", "90", "--no-check"};
    struct
    {
        QString input, where;
    } const inputs[] = {{xml, xml + ":11: "}, {iop, QString()}};
    for (const auto& in : inputs) {
        SCOPED_TRACE(in.input.toStdString());
        const test::Outcome r = test::vtpool(QStringList{"build", in.input, "-o", tmp.filePath("out.iop")} + scaling);
        EXPECT_EQ(r.status, 0) << r.err.toStdString();
        EXPECT_FALSE(r.err.contains("WARNING")) << "the library's own lines stay back: " << r.err.toStdString();
        const QString font = in.where.isEmpty() ? QStringLiteral("'Font_attributes_") : QStringLiteral("'font' (Font_attributes");
        EXPECT_EQ(r.err.count(font), 1) << r.err.toStdString();
        EXPECT_TRUE(r.err.contains(in.where + font)) << r.err.toStdString();
        EXPECT_TRUE(r.err.contains("drawn both on a soft key and in the data mask: scaled, it takes the data-mask ratio only"))
            << r.err.toStdString();
    }
}
