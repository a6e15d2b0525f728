#include <QFile>
#include <QTemporaryDir>
#include <stdexcept>
#include <unistd.h>

#include "picture_support.h"

using namespace VT;
using VT::Base::PNG_obj;
using test::Bytes;

namespace {

QImage sample_image()
{
    QImage image(4, 2, QImage::Format_ARGB32);
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 4; ++x)
            image.setPixel(x, y, qRgba(x * 60, y * 100, 7, 255 - x * 40));
    return image;
}

std::string save(const QTemporaryDir& dir, const char* name, const QImage& image)
{
    QString path = dir.filePath(name);
    EXPECT_TRUE(image.save(path, "PNG"));
    return path.toStdString();
}

// An image whose file cannot be read without an exception.
class Throwing_image : public QT_image
{
public:
    Throwing_image() : QT_image(QImage()) {}

protected:
    void read_file(const char*) override { throw std::runtime_error("unreadable"); }
};

}

TEST(PNG_obj, carries_a_png_file_and_decodes_it_on_demand)
{
    QImage image = sample_image();
    Bytes png = test::png_of(image);
    Attribute_event_macro macros[1] = {Attribute_event_macro(3, 9)};
    PNG_obj obj(0x0A0B, "png", 8, 4, 2, 0, unsigned(png.size()), 1, png.data(), macros);
    EXPECT_EQ(obj.get_ctype(), 46);
    EXPECT_EQ(obj.get_height(), 4);
    EXPECT_EQ(obj.get_event_macro_macro_id(0), 9);

    Bytes whole = test::serialise_whole(obj);
    const uint32_t n = uint32_t(png.size());
    Bytes head = {0x0B, 0x0A, 46, 8, 0, 4, 0, 2, 0, 0, uint8_t(n), uint8_t(n >> 8), 0, 0, 1};
    EXPECT_EQ(Bytes(whole.begin(), whole.begin() + 15), head);
    EXPECT_EQ(Bytes(whole.begin() + 15, whole.end() - 2), png);
    EXPECT_EQ(Bytes(whole.end() - 2, whole.end()), (Bytes{3, 9}));

    QImage& decoded = obj.get_qimage();
    ASSERT_FALSE(decoded.isNull());
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 4; ++x)
            EXPECT_EQ(decoded.pixel(x, y), image.pixel(x, y));
    EXPECT_EQ(&obj.get_qimage(), &decoded);

    // Read back into an object built from a description node.
    PNG_obj back(new test::Fake_spec());
    Iso::Deserialise_results res;
    EXPECT_EQ(back.deserialise(0, whole.data() + 3, int(whole.size() - 3), &res), int(whole.size() - 3));
    back.set_id(0x0A0B);
    EXPECT_EQ(test::serialise_whole(back), whole);
    EXPECT_EQ(back.get_qimage().pixel(3, 1), image.pixel(3, 1));
    EXPECT_EQ(back.get_height(), 4);
}

TEST(PNG_obj, bad_or_missing_data_gives_a_null_image)
{
    Bytes junk = {1, 2, 3};
    PNG_obj obj(1, "png", 1, 1, 1, 0, 3, 0, junk.data(), nullptr);
    EXPECT_TRUE(obj.get_qimage().isNull());
    EXPECT_EQ(PNG_obj(2, "w", 5, 0, 9, 0, 0, 0, nullptr, nullptr).get_height(), 0);

    // A count the input does not hold: nothing is read, nothing is decoded.
    Bytes in = {1, 0, 1, 0, 1, 0, 0, 0xFF, 0xFF, 0, 0, 0, 0x89, 0x50}; // 2 of 65535 data bytes
    test::Dprint_capture log;
    PNG_obj cut(new test::Fake_spec());
    Iso::Deserialise_results res;
    EXPECT_EQ(cut.deserialise(0, in.data(), int(in.size()), &res), -1);
    EXPECT_EQ(cut.get_num_bytes(), 0xFFFFu);
    EXPECT_TRUE(cut.get_qimage().isNull());
    std::ostringstream os;
    cut.print_me(os, 0);
    EXPECT_NE(os.str().find("  Bytes: \n"), std::string::npos);
}

TEST(PNG_obj, prints_its_data_bytes_in_hexadecimal)
{
    Bytes data = {0x89, 0x0a, 0xff};
    PNG_obj obj(7, "png", 1, 1, 1, 0, 3, 0, data.data(), nullptr);
    std::ostringstream os;
    obj.print_me(os, 1);
    os << 255;
    const std::string text = os.str();
    EXPECT_EQ(text.rfind("  PNG(7)\n", 0), 0u) << text;
    const std::string tail = "    Bytes: 89  0a  ff  \n255";
    ASSERT_GE(text.size(), tail.size());
    EXPECT_EQ(text.substr(text.size() - tail.size()), tail);
}

TEST(QT_image, maps_pixels_onto_the_colour_cube)
{
    QImage image(6, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, qRgba(0, 0, 0, 255));
    image.setPixel(1, 0, qRgba(255, 255, 255, 255));
    image.setPixel(2, 0, qRgba(25, 26, 76, 255));
    image.setPixel(3, 0, qRgba(255, 0, 0, 0x81));
    image.setPixel(4, 0, qRgba(255, 0, 0, 0x80));
    image.setPixel(5, 0, qRgba(130, 180, 230, 255));
    QT_image q(image);
    EXPECT_EQ(q.x(), 6);
    EXPECT_EQ(q.y(), 1);
    EXPECT_EQ(q.get_vt_pixel(0, 0, 99), 16);
    EXPECT_EQ(q.get_vt_pixel(1, 0, 99), 231);
    EXPECT_EQ(q.get_vt_pixel(2, 0, 99), 23);
    EXPECT_EQ(q.get_vt_pixel(5, 0, 99), 16 + 36 * 3 + 6 * 4 + 5);
    EXPECT_EQ(q.get_vt_pixel(3, 0, 99), 196);
    EXPECT_FALSE(q.transparency_detected());
    EXPECT_EQ(q.get_vt_pixel(4, 0, 99), 99);
    EXPECT_TRUE(q.transparency_detected());
    // Read-only through the pixel interface.
    q.set_vt_pixel(0, 0, 5);
    EXPECT_EQ(q.get_vt_pixel(0, 0, 99), 16);

    // An image without alpha never reports transparency.
    QImage rgb(2, 1, QImage::Format_RGB32);
    rgb.fill(qRgb(0, 0, 0));
    QT_image opaque(rgb);
    EXPECT_EQ(opaque.get_vt_pixel(1, 0, 99), 16);
    EXPECT_FALSE(opaque.transparency_detected());
}

TEST(QT_image, loads_files_and_remembers_the_last_one_per_object)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    QImage indexed(2, 2, QImage::Format_Indexed8);
    indexed.setColorTable({qRgb(0, 0, 0), qRgb(255, 0, 0), qRgb(0, 255, 0), qRgb(0, 0, 255)});
    for (int i = 0; i < 4; ++i)
        indexed.setPixel(i % 2, i / 2, uint(i));
    const std::string first = save(dir, "a.png", indexed);
    const std::string second = save(dir, "b.png", sample_image());

    Base::Number_variable_obj owner(5, "n", 0);
    auto& loaded = QT_image::get_all_loaded_images();
    const int before = loaded.size();
    QT_image a(first.c_str(), &owner);
    EXPECT_EQ(a.get_colourmap_size(), 4);
    EXPECT_EQ(a.get_vt_pixel(1, 0, 0), 196);
    EXPECT_EQ(a.get_vt_pixel(0, 1, 0), 16 + 6 * 5);
    EXPECT_EQ(loaded.value(&owner), QByteArray(first.c_str()));

    QT_image b(second.c_str(), &owner);
    EXPECT_EQ(b.get_colourmap_size(), 0);
    EXPECT_EQ(b.x(), 4);
    EXPECT_EQ(loaded.size(), before + 1);
    EXPECT_EQ(loaded.value(&owner), QByteArray(second.c_str()));
    // The flag starts clear again on each load.
    EXPECT_EQ(b.get_vt_pixel(3, 0, 0), 16 + 36 * 4);
    EXPECT_EQ(b.init(second.c_str(), nullptr), 0);
    EXPECT_FALSE(b.transparency_detected());
    EXPECT_EQ(loaded.size(), before + 1);
}

TEST(QT_image_death, missing_empty_and_unreadable_files_end_the_process)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const std::string missing = dir.filePath("none.png").toStdString();
    // The messages go to standard output; the child sends that to standard error for matching.
    EXPECT_EXIT(
        {
            fflush(stdout);
            dup2(2, 1);
            QT_image image(missing.c_str(), nullptr);
        },
        ::testing::ExitedWithCode(256 - 113), "stat: No such file or directory\nCan't find image file '.*none.png'\n");

    const std::string empty = dir.filePath("empty.png").toStdString();
    QFile(QString::fromStdString(empty)).open(QIODevice::WriteOnly);
    EXPECT_EXIT(
        {
            fflush(stdout);
            dup2(2, 1);
            QT_image image(empty.c_str(), nullptr);
        },
        ::testing::ExitedWithCode(256 - 114), "Cannot load 0 length file '.*empty.png' as image!\n");

    const std::string good = save(dir, "good.png", sample_image());
    EXPECT_EXIT(
        {
            fflush(stdout);
            dup2(2, 1);
            Throwing_image image;
            image.init(good.c_str(), nullptr);
        },
        ::testing::ExitedWithCode(256 - 115), "Could not read '.*good.png'\r\n");
}
