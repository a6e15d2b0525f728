// The ISO forms of the object types VT version 6 added: graphic data, special controls and
// scaled graphics, their bytes, their pools and their descriptions.
#include <QTemporaryDir>
#include <sstream>
#include <gtest/gtest.h>

#include "picture_support.h"
#include "tools/check/Checker.h"
#include "tools/check/Read_diagnosis.h"
#include "tools/description/Description.h"
#include "tools/pool/Pool_file.h"
#include "tools/render/Renderer.h"

using namespace VT;
using Base::Graphic_data_obj;
using Base::Iso_special_controls_obj;
using Base::Scaled_graphic_obj;
using test::Bytes;

namespace {

// Reads `whole` (an object's bytes with its header) into `into`; the count read, or -1.
int read_back(VT_obj& into, const Bytes& whole, Iso::Deserialise_results* res = nullptr)
{
    Iso::Deserialise_results own;
    Bytes copy(whole.begin() + 3, whole.end());
    return into.deserialise(0, copy.data(), int(copy.size()), res ? res : &own);
}

// Every shorter piece of an object's attribute bytes fails to read.
void expect_truncation_fails(VT_obj& blank, const Bytes& whole)
{
    test::Dprint_capture quiet;
    for (size_t n = 3; n < whole.size(); ++n) {
        Bytes cut(whole.begin() + 3, whole.begin() + long(n));
        Iso::Deserialise_results res;
        const int r = blank.deserialise(0, cut.data(), int(cut.size()), &res);
        EXPECT_TRUE(r < 0 || r > int(cut.size())) << "read " << r << " of " << cut.size() << " bytes";
    }
}

}

TEST(Graphic_data_obj, lays_out_format_count_and_data_and_reads_back)
{
    const Bytes png = test::png_of(QImage(3, 2, QImage::Format_ARGB32));
    Bytes data = png;
    Graphic_data_obj obj(0x1234, "g", 0, uint32_t(data.size()), data.data());
    EXPECT_EQ(obj.get_type(), VT_obj_type::TYPE_GRAPHIC_DATA);
    EXPECT_STREQ(obj.get_type_string(), "Graphic_data");
    const Bytes whole = test::serialise_whole(obj);
    const uint32_t n = uint32_t(png.size());
    EXPECT_EQ(Bytes(whole.begin(), whole.begin() + 8),
              (Bytes{0x34, 0x12, 46, 0, uint8_t(n), uint8_t(n >> 8), uint8_t(n >> 16), uint8_t(n >> 24)}));
    EXPECT_EQ(Bytes(whole.begin() + 8, whole.end()), png);

    Graphic_data_obj back(new test::Fake_spec());
    EXPECT_EQ(read_back(back, whole), int(whole.size() - 3));
    back.set_id(0x1234);
    EXPECT_EQ(test::serialise_whole(back), whole);
    EXPECT_EQ(back.get_qimage().size(), QSize(3, 2));
    expect_truncation_fails(*std::make_unique<Graphic_data_obj>(new test::Fake_spec()), whole);

    // Format 0 is the only one: 1 is clamped on reading, and says so.
    Bytes other = whole;
    other[3] = 1;
    Graphic_data_obj clamped(new test::Fake_spec());
    Iso::Deserialise_results res;
    test::Dprint_capture quiet;
    EXPECT_EQ(read_back(clamped, other, &res), int(whole.size() - 3));
    EXPECT_TRUE(res.flags & Iso::Deserialise_results::value_clamped);
    EXPECT_EQ(clamped.get_format(), 0);
}

TEST(Scaled_graphic_obj, lays_out_its_box_scaling_and_graphic_at_their_limits)
{
    Attribute_event_macro macros[2] = {Attribute_event_macro(9, 3), Attribute_event_macro(9, 255)};
    Scaled_graphic_obj obj(7, "s", 65535, 0, 127, 1, 65535, 2, macros);
    const Bytes whole = test::serialise_whole(obj);
    EXPECT_EQ(whole, (Bytes{7, 0, 48, 0xFF, 0xFF, 0, 0, 127, 1, 0xFF, 0xFF, 2, 9, 3, 9, 255}));
    Scaled_graphic_obj back(new test::Fake_spec());
    EXPECT_EQ(read_back(back, whole), int(whole.size() - 3));
    back.set_id(7);
    EXPECT_EQ(test::serialise_whole(back), whole);
    EXPECT_EQ(back.get_event_macro_macro_id(1), 255);
    expect_truncation_fails(*std::make_unique<Scaled_graphic_obj>(new test::Fake_spec()), whole);

    // The class names its type, and generated source its class, while the type catalogue and
    // its containment table keep type 48 unknown.
    EXPECT_STREQ(obj.get_type_string(), "Scaled_graphic");
    std::ostringstream source;
    obj.get_code_def(source, 0);
    EXPECT_NE(source.str().find("Scaled_graphic_obj"), std::string::npos) << source.str();
    EXPECT_STREQ(VT_obj_type::get_type_string(VT_obj_type::TYPE_SCALED_GRAPHIC), "UNKNOWN");
    EXPECT_EQ(Base::VT_obj_relationships::get_child_allowed(VT_obj_type::TYPE_DATA_MASK,
                                                            VT_obj_type::TYPE_SCALED_GRAPHIC, 0),
              0);

    // The top bit of the scale type and the other option bits are reserved.
    Bytes reserved = whole;
    reserved[7] = 0x80;
    reserved[8] = 2;
    Scaled_graphic_obj clamped(new test::Fake_spec());
    Iso::Deserialise_results res;
    test::Dprint_capture quiet;
    read_back(clamped, reserved, &res);
    EXPECT_TRUE(res.flags & Iso::Deserialise_results::value_clamped);
}

TEST(Scaled_graphic_obj, places_an_image_in_its_box_as_its_scale_type_says)
{
    auto place = [](uint8_t scale_type, int iw, int ih) {
        Scaled_graphic_obj s(1, "s", 100, 50, scale_type, 0, 2, 0, nullptr);
        const VT_obj::Lock guard(s);
        const Scaled_graphic_obj::Placement p = s._place(iw, ih);
        return std::vector<int>{p.x, p.y, p.width, p.height};
    };
    EXPECT_EQ(place(0, 20, 10), (std::vector<int>{0, 0, 20, 10}));
    EXPECT_EQ(place(1, 20, 10), (std::vector<int>{0, 0, 100, 50}));
    EXPECT_EQ(place(1, 10, 20), (std::vector<int>{0, 0, 100, 200})); // the box clips it
    EXPECT_EQ(place(2, 10, 20), (std::vector<int>{0, 0, 25, 50}));
    EXPECT_EQ(place(3, 10, 20), (std::vector<int>{0, 0, 100, 50}));
    EXPECT_EQ(place(4, 10, 20), (std::vector<int>{0, 0, 25, 50}));
    EXPECT_EQ(place(4, 40, 10), (std::vector<int>{0, 0, 100, 25}));
    // Centred (bits 3-4 = 1, bits 5-6 = 1) and at the far end (2, 2).
    EXPECT_EQ(place(4 | 1 << 3 | 1 << 5, 10, 20), (std::vector<int>{37, 0, 25, 50}));
    EXPECT_EQ(place(4 | 2 << 3 | 2 << 5, 40, 10), (std::vector<int>{0, 25, 100, 25}));
    // Reserved scale types draw the image at its own size; an empty image stays empty.
    EXPECT_EQ(place(7, 20, 10), (std::vector<int>{0, 0, 20, 10}));
    EXPECT_EQ(place(1, 0, 10), (std::vector<int>{0, 0, 0, 10}));
}

TEST(Iso_special_controls_obj, lays_out_colour_references_and_language_pairs)
{
    Attribute_language_pair pairs[2] = {Attribute_language_pair("en", "GB"), Attribute_language_pair(0, 255, 1, 254)};
    Iso_special_controls_obj obj(300, "w", 0, 65535, 2, pairs);
    EXPECT_EQ(obj.get_type(), VT_obj_type::TYPE_ISO_SPECIAL_CONTROLS);
    const Bytes whole = test::serialise_whole(obj);
    EXPECT_EQ(whole, (Bytes{44, 1, 47, 0, 0, 0xFF, 0xFF, 2, 'e', 'n', 'G', 'B', 0, 255, 1, 254}));
    Iso_special_controls_obj back(new test::Fake_spec());
    EXPECT_EQ(read_back(back, whole), int(whole.size() - 3));
    back.set_id(300);
    EXPECT_EQ(test::serialise_whole(back), whole);
    EXPECT_EQ(back.get_language_pairs_country_1(0), 'G');
    EXPECT_EQ(back.get_language_pairs_country_2(1), 254);
    expect_truncation_fails(*std::make_unique<Iso_special_controls_obj>(new test::Fake_spec()), whole);
}

TEST(Vt6_objects, a_pool_reads_types_46_to_48_in_its_own_form_only)
{
    // Graphic data 10 (empty), scaled graphic 11 showing it, special controls 12 without pairs.
    const QByteArray iso = QByteArray::fromHex("0a002e0000000000"
                                               "0b00301000200004000a0000"
                                               "0c002fffffffff00");
    Object_pool pool;
    pool.set_vt6_objects(Vt6_objects::iso);
    QString error;
    ASSERT_TRUE(Pool_file::read(iso, pool, &error)) << error.toStdString();
    EXPECT_EQ(pool.find(10)->get_type(), VT_obj_type::TYPE_GRAPHIC_DATA);
    EXPECT_EQ(pool.find(11)->get_type(), VT_obj_type::TYPE_SCALED_GRAPHIC);
    EXPECT_EQ(pool.find(12)->get_type(), VT_obj_type::TYPE_ISO_SPECIAL_CONTROLS);
    EXPECT_EQ(pool.find(QByteArray("Graphic_data_10")), pool.find(10));
    EXPECT_EQ(Pool_file::write(pool), iso);

    // Read as this library's own forms (the default), the graphic data is a PNG object with
    // another layout, and type 48 is not one of them.
    test::Dprint_capture quiet;
    Object_pool legacy;
    Pool_file::Read_report report;
    EXPECT_FALSE(Pool_file::read(iso, legacy, &error, &report));
    EXPECT_EQ(report.vt6_objects, Vt6_objects::legacy);
    Vt6_objects other = Vt6_objects::legacy;
    EXPECT_TRUE(Check::Read_diagnosis::reads_in_other_form(iso, report, &other));
    EXPECT_EQ(other, Vt6_objects::iso);
    const QByteArray only_48 = iso.mid(8, 12);
    Object_pool legacy_48;
    EXPECT_FALSE(Pool_file::read(only_48, legacy_48, &error));
    EXPECT_TRUE(error.contains("read only in a pool of the iso form")) << error.toStdString();

    // A PNG object is not read in a pool of the ISO forms, but the picture graphic stays itself.
    Object_pool iso_helper;
    iso_helper.set_vt6_objects(Vt6_objects::iso);
    iso_helper.set_supported_types({20, 46, 48});
    EXPECT_FALSE(iso_helper.helper().obj_type_supported(46));
    EXPECT_TRUE(iso_helper.helper().obj_type_supported(48));
}
