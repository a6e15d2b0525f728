// Pictures from image files: pixel data in the three formats, run-length coding, picture and
// PNG objects built from descriptions, and pictures written back as files.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include "test_support.h"
#include "tools/description/Description.h"
#include "tools/pictures/Picture_encoder.h"
#include "tools/pictures/Pictures.h"
#include "tools/pool/Pool_file.h"

using namespace VT;

namespace {

std::string hex(const QByteArray& b)
{
    return test::hex(test::Bytes(b.begin(), b.end()));
}

// Rows: red white black / transparent red red.
QImage sample()
{
    QImage image(3, 2, QImage::Format_ARGB32);
    image.setPixel(0, 0, qRgb(255, 0, 0));
    image.setPixel(1, 0, qRgb(255, 255, 255));
    image.setPixel(2, 0, qRgb(0, 0, 0));
    image.setPixel(0, 1, qRgba(0, 0, 0, 0));
    image.setPixel(1, 1, qRgb(255, 0, 0));
    image.setPixel(2, 1, qRgb(255, 0, 0));
    return image;
}

}

TEST(ToolsPictures, ImagesBecomePixelDataInEachFormat)
{
    // 8 bits: the colour cube (red 196, white 231, black 16), transparent pixels the given index.
    EXPECT_EQ(hex(Picture_encoder::encode(sample(), EIGHT_BIT_COLOUR, false, 7)), "C4 E7 10 07 C4 C4");
    // 4 bits, high nibble first, rows on byte boundaries: red 12, white 1, black 0.
    EXPECT_EQ(hex(Picture_encoder::encode(sample(), FOUR_BIT_COLOUR, false, 5)), "C1 00 5C C0");
    // 1 bit, first pixel in the top bit: light 1, dark 0; transparent takes the index's low bit.
    EXPECT_EQ(hex(Picture_encoder::encode(sample(), MONOCHROME, false, 1)), "40 80");
    EXPECT_EQ(hex(Picture_encoder::encode(sample(), MONOCHROME, false, 0)), "40 00");

    // Run-length coding: 8-bit runs may go on into the next row, 4-bit runs stay in theirs.
    EXPECT_EQ(hex(Picture_encoder::encode(sample(), EIGHT_BIT_COLOUR, true, 7)), "01 C4 01 E7 01 10 01 07 02 C4");
    QImage flat(5, 2, QImage::Format_RGB32);
    flat.fill(qRgb(0, 0, 255));
    EXPECT_EQ(hex(Picture_encoder::encode(flat, EIGHT_BIT_COLOUR, true, 0)), "0A 15");
    EXPECT_EQ(hex(Picture_encoder::encode(flat, FOUR_BIT_COLOUR, true, 0)), "02 99 01 90 02 99 01 90");
    // Runs stop at 255.
    QImage wide(300, 1, QImage::Format_RGB32);
    wide.fill(qRgb(0, 0, 0));
    EXPECT_EQ(hex(Picture_encoder::encode(wide, EIGHT_BIT_COLOUR, true, 0)), "FF 10 2D 10");
}

TEST(ToolsPictures, DescriptionsLoadPicturesAndPngFilesAndWriteThemBack)
{
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    ASSERT_TRUE(sample().save(tmp.filePath("sample.png")));
    QByteArray png_bytes;
    {
        QFile f(tmp.filePath("sample.png"));
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        png_bytes = f.readAll();
    }
    const QString xml = tmp.filePath("pictures.xml");
    {
        QFile f(xml);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(R"(<object_pool>
  <Picture_graphic name="pic" id="1" file="sample.png" format="EIGHT_BIT_COLOUR" options="1" transparency_colour="7"/>
  <Picture_graphic name="small" id="2" file="sample.png" format="FOUR_BIT_COLOUR" options="4" width="6"/>
  <PNG name="raw" id="3" file="sample.png"/>
  <Picture_graphic name="missing" id="4" file="nowhere.png"/>
</object_pool>)");
    }
    Description d;
    Object_pool pool;
    ASSERT_TRUE(d.load_file(xml));
    EXPECT_FALSE(d.build(pool));
    ASSERT_EQ(d.problems().size(), 1);
    EXPECT_TRUE(d.problems()[0].startsWith(xml + ":5: cannot read picture '")) << d.problems()[0].toStdString();

    // Picture 1: width 3 (from the file), actual 3 x 2, 8-bit, transparent, colour 7, 6 bytes.
    EXPECT_EQ(hex(Pool_file::object_bytes(*pool.find(1))),
              "01 00 14 03 00 03 00 02 00 02 01 07 06 00 00 00 00 C4 E7 10 07 C4 C4");
    // Picture 2: displayed 6 wide, 4-bit, run-length coded: 1 C1, 1 00, 1 0C, 1 C0.
    EXPECT_EQ(hex(Pool_file::object_bytes(*pool.find(2))),
              "02 00 14 06 00 03 00 02 00 01 04 00 08 00 00 00 00 01 C1 01 00 01 0C 01 C0");
    // The PNG object carries the file as it is.
    QByteArray raw = Pool_file::object_bytes(*pool.find(3));
    EXPECT_EQ(hex(raw.left(15)), hex(QByteArray::fromHex("03002e030003000200") + QByteArray(1, 0) +
                                     QByteArray(1, char(png_bytes.size() & 0xFF)) +
                                     QByteArray(1, char(png_bytes.size() >> 8)) + QByteArray(2, 0) +
                                     QByteArray(1, 0)));
    EXPECT_EQ(raw.mid(15), png_bytes);

    // Written back as files: the pixels come back on the VT palette.
    QStringList problems;
    test::Dprint_capture quiet;
    QStringList written = Pictures::write_all(pool, tmp.filePath("out"), problems);
    EXPECT_TRUE(written.isEmpty());
    ASSERT_EQ(problems.size(), 4) << "the folder does not exist";
    EXPECT_TRUE(problems[0].startsWith("cannot write '")) << problems[0].toStdString();
    problems.clear();
    QDir().mkpath(tmp.filePath("out"));
    written = Pictures::write_all(pool, tmp.filePath("out"), problems);
    EXPECT_EQ(written.size(), 3);
    EXPECT_EQ(problems, QStringList({"'missing' (id 4) holds no picture that can be decoded"}));
    QImage pic(tmp.filePath("out/pic.png"));
    ASSERT_FALSE(pic.isNull());
    EXPECT_EQ(pic.pixel(0, 0), 0xFFFF0000u);
    EXPECT_EQ(pic.pixel(1, 0), 0xFFFFFFFFu);
    EXPECT_EQ(qAlpha(pic.pixel(0, 1)), 0) << "the transparency colour is transparent";
    QImage small(tmp.filePath("out/small.png"));
    ASSERT_FALSE(small.isNull());
    EXPECT_EQ(small.pixel(0, 0), 0xFFFF0000u) << "16-colour red";
    EXPECT_EQ(small.pixel(2, 0), 0xFF000000u);
    QImage raw_image(tmp.filePath("out/raw.png"));
    EXPECT_EQ(raw_image.size(), QSize(3, 2));
}

TEST(ToolsPictures, PicturesSharingAnIdAreBothWrittenAndOverrunsNamed)
{
    // Two pictures under id 1 (as pool bytes may hold them), the second with run-length data
    // for more rows than it has.
    Object_pool built;
    Description d;
    ASSERT_TRUE(d.parse(R"(<object_pool>
  <Picture_graphic name="a" id="1" width="2" actual_width="2" actual_height="1" format="2" options="0" bytes="05 06"/>
  <Picture_graphic name="b" id="2" width="2" actual_width="2" actual_height="1" format="2" options="4" bytes="08 07"/>
</object_pool>)",
                        "p.xml"));
    ASSERT_TRUE(d.build(built));
    QByteArray bytes = Pool_file::write(built);
    bytes[Pool_file::object_bytes(*built.objects()[0]).size()] = 1; // b takes a's id
    Object_pool pool;
    Pool_file::Read_report report;
    report.keep_duplicate_ids = true;
    ASSERT_TRUE(Pool_file::read(bytes, pool, nullptr, &report));
    ASSERT_EQ(pool.size(), 2);

    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    QStringList problems, warnings;
    test::Dprint_capture quiet;
    const QStringList written = Pictures::write_all(pool, tmp.path(), problems, &warnings);
    EXPECT_EQ(written, QStringList({tmp.filePath("Picture_graphic_1.png"), tmp.filePath("Picture_graphic_1_2.png")}));
    EXPECT_TRUE(problems.isEmpty()) << problems.join("\n").toStdString();
    EXPECT_EQ(warnings, QStringList({"'Picture_graphic_1' (Picture_graphic 1): WARNING: Incorrect RLE encoding: "
                                     "Picture_graphic_1"}));
    EXPECT_EQ(quiet.text, "") << "the library's words went to the warnings";
}
