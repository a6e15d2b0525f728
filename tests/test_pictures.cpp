#include <QFile>
#include <QResource>
#include <map>
#include <tuple>

#include "picture_support.h"

using namespace VT;
using VT::Base::Picture_graphic_obj;
using test::Bytes;
using test::decoded;
using test::make_picture;
using test::Terminal;

namespace {

uint32_t le32(const Bytes& b, size_t at)
{
    return uint32_t(b[at]) | uint32_t(b[at + 1]) << 8 | uint32_t(b[at + 2]) << 16 | uint32_t(b[at + 3]) << 24;
}

// Byte offsets in a serialised picture without macros.
const size_t FORMAT_AT = 9, TRANSPARENCY_AT = 11, COUNT_AT = 12, DATA_AT = 17;

Bytes deserialise_into_new(const Bytes& whole, std::unique_ptr<Picture_graphic_obj>& out)
{
    out = std::make_unique<Picture_graphic_obj>(new test::Fake_spec());
    Bytes in(whole.begin() + 3, whole.end());
    Iso::Deserialise_results res;
    int n = out->deserialise(0, in.data(), int(in.size()), &res);
    EXPECT_EQ(n, int(in.size()));
    out->set_id(uint16_t(whole[0] | whole[1] << 8));
    return decoded(*out);
}

struct Recorder : Picture_image
{
    std::vector<std::tuple<int, int, int>> pixels;
    int get_vt_pixel(int, int, int) override { return 0; }
    void set_vt_pixel(int x, int y, unsigned char colour) override { pixels.emplace_back(x, y, colour); }
    int x() const override { return 0; }
    int y() const override { return 0; }
    int get_colourmap_size() override { return 0; }
};

}

TEST(Picture_decoding, plain_rows_start_on_byte_boundaries)
{
    // Monochrome 3 x 2: one byte a row, its five low bits unused; rows padded to 4 with 255.
    Bytes mono = {0xE0, 0xA0};
    EXPECT_EQ(decoded(*make_picture(3, 2, MONOCHROME, 0, mono)), (Bytes{1, 1, 1, 255, 1, 0, 1, 255}));

    // Monochrome 10 wide: the second byte of a row gives two pixels, its other bits are dropped.
    Bytes mono10 = {0xAA, 0xBF, 0x55, 0x40};
    EXPECT_EQ(decoded(*make_picture(10, 2, MONOCHROME, 0, mono10)),
              (Bytes{1, 0, 1, 0, 1, 0, 1, 0, 1, 0, 255, 255, 0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 255, 255}));

    // 4-bit, 5 wide: three bytes a row, high nibble first, the last low nibble ignored.
    Bytes four = {0x12, 0x34, 0x5F, 0xAB, 0xCD, 0xEF};
    EXPECT_EQ(decoded(*make_picture(5, 2, FOUR_BIT_COLOUR, 0, four)),
              (Bytes{1, 2, 3, 4, 5, 255, 255, 255, 10, 11, 12, 13, 14, 255, 255, 255}));

    // 8-bit with too few bytes: the pixels the data does not reach stay 255.
    Bytes eight = {9, 8, 7, 6, 5};
    EXPECT_EQ(decoded(*make_picture(3, 2, EIGHT_BIT_COLOUR, 0, eight)), (Bytes{9, 8, 7, 255, 6, 5, 255, 255}));
    Bytes none;
    EXPECT_EQ(decoded(*make_picture(2, 1, FOUR_BIT_COLOUR, 0, none)), (Bytes{255, 255, 255, 255}));
}

TEST(Picture_decoding, run_length_repetitions_restart_at_row_ends)
{
    const uint8_t RLE = Picture_graphic_obj::OPTION_RUN_LENGTH;
    // (2, 0xFF) on a 10-wide row: 8 pixels, then 2 with the other 6 bits dropped.
    Bytes mono = {2, 0xFF, 1, 0x0F};
    EXPECT_EQ(decoded(*make_picture(10, 2, MONOCHROME, RLE, mono)),
              (Bytes{1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 255, 255, 0, 0, 0, 0, 1, 1, 1, 1, 255, 255, 255, 255}));

    // 8-bit runs run on across row ends; a run of count 0 produces nothing.
    Bytes eight = {4, 7, 0, 9, 2, 8, 1, 5};
    EXPECT_EQ(decoded(*make_picture(3, 3, EIGHT_BIT_COLOUR, RLE, eight)),
              (Bytes{7, 7, 7, 255, 7, 8, 8, 255, 5, 255, 255, 255}));

    // 4-bit, 3 wide: a repetition that meets the row end loses its second pixel.
    Bytes four = {3, 0x12, 0, 0x77, 1, 0x34};
    EXPECT_EQ(decoded(*make_picture(3, 2, FOUR_BIT_COLOUR, RLE, four)), (Bytes{1, 2, 1, 255, 1, 2, 3, 255}));
}

TEST(Picture_decoding, corrupt_run_length_data_stays_inside_the_picture)
{
    const uint8_t RLE = Picture_graphic_obj::OPTION_RUN_LENGTH;
    {
        // A run that goes a whole row past the end is reported; the picture is still shown.
        test::Dprint_capture log;
        Bytes over = {6, 7};
        EXPECT_EQ(decoded(*make_picture(3, 1, EIGHT_BIT_COLOUR, RLE, over)), (Bytes{7, 7, 7, 255}));
        EXPECT_EQ(log.text, "WARNING: Incorrect RLE encoding: pic\n");
    }
    {
        // Runs that stop short of another full row are not an overrun.
        test::Dprint_capture log;
        Bytes near = {5, 7};
        EXPECT_EQ(decoded(*make_picture(3, 1, EIGHT_BIT_COLOUR, RLE, near)), (Bytes{7, 7, 7, 255}));
        EXPECT_EQ(log.text, "");
    }
    // Far more data than pixels, ending in a count without a value, in every format.
    Bytes junk(1001);
    for (size_t i = 0; i < junk.size(); ++i)
        junk[i] = i % 2 ? 0xA5 : 255;
    test::Dprint_capture log;
    EXPECT_EQ(decoded(*make_picture(5, 2, MONOCHROME, RLE, junk)),
              (Bytes{1, 0, 1, 0, 0, 255, 255, 255, 1, 0, 1, 0, 0, 255, 255, 255}));
    EXPECT_EQ(decoded(*make_picture(5, 2, FOUR_BIT_COLOUR, RLE, junk)),
              (Bytes{10, 5, 10, 5, 10, 255, 255, 255, 10, 5, 10, 5, 10, 255, 255, 255}));
    EXPECT_EQ(decoded(*make_picture(5, 2, EIGHT_BIT_COLOUR, RLE, junk)),
              (Bytes{0xA5, 0xA5, 0xA5, 0xA5, 0xA5, 255, 255, 255, 0xA5, 0xA5, 0xA5, 0xA5, 0xA5, 255, 255, 255}));
    EXPECT_EQ(decoded(*make_picture(5, 2, EIGHT_BIT_COLOUR, 0, junk)),
              (Bytes{255, 0xA5, 255, 0xA5, 255, 255, 255, 255, 0xA5, 255, 0xA5, 255, 0xA5, 255, 255, 255}));

    // A picture without pixels has no buffer.
    test::Dprint_capture empty_log;
    auto empty = make_picture(0, 4, EIGHT_BIT_COLOUR, 0, junk);
    EXPECT_EQ(empty->__get_uncompressed_buf(false), nullptr);
    EXPECT_TRUE(empty->get_qimage(true).isNull());
    EXPECT_NE(empty_log.text.find("Zero buffer size\n"), std::string::npos);
}

TEST(Picture_images, qimage_shows_the_palette_and_clears_the_transparency_colour)
{
    const QVector<unsigned int>& palette = Colours::get_standard_vt_colour_table();
    Bytes px = {0, 12, 231, 240};
    auto pic = make_picture(2, 2, EIGHT_BIT_COLOUR, Picture_graphic_obj::OPTION_TRANSPARENT, px, 12);

    QImage opaque = pic->get_qimage(true);
    ASSERT_EQ(opaque.format(), QImage::Format_Indexed8);
    EXPECT_EQ(opaque.size(), QSize(2, 2));
    EXPECT_EQ(opaque.colorTable(), palette);
    EXPECT_EQ(opaque.pixelIndex(1, 0), 12);
    EXPECT_EQ(opaque.pixel(1, 0), 0xFFFF0000u);
    EXPECT_EQ(opaque.pixel(0, 1), 0xFFFFFFFFu);

    QImage clear = pic->get_qimage(false);
    QVector<QRgb> table = clear.colorTable();
    ASSERT_EQ(table.size(), 256);
    for (int i = 0; i < 256; ++i)
        EXPECT_EQ(table[i], i == 12 ? 0u : palette[i]) << i;
    EXPECT_EQ(clear.pixel(1, 0), 0u);
    EXPECT_EQ(clear.pixel(0, 0), 0xFF000000u);

    // Without the transparent option the palette stays whole.
    auto plain = make_picture(2, 2, EIGHT_BIT_COLOUR, 0, px, 12);
    EXPECT_EQ(plain->get_qimage(false).colorTable(), palette);

    // A monochrome picture shows palette entries 0 and 1.
    Bytes mono = {0xE0, 0xA0};
    QImage m = make_picture(3, 2, MONOCHROME, 0, mono)->get_qimage(true);
    EXPECT_EQ(m.pixel(0, 0), 0xFFFFFFFFu);
    EXPECT_EQ(m.pixel(1, 1), 0xFF000000u);
}

TEST(Picture_images, get_picture_walks_the_raw_data_lowest_bits_first)
{
    using P = std::tuple<int, int, int>;
    Recorder mono;
    Bytes m = {0x05, 0x80};
    EXPECT_TRUE(make_picture(3, 6, MONOCHROME, 0, m)->get_picture(mono));
    std::vector<P> expected;
    for (int i = 0; i < 16; ++i)
        expected.emplace_back(i % 3, i / 3, i == 0 || i == 2 || i == 15 ? 1 : 0);
    EXPECT_EQ(mono.pixels, expected);

    Recorder four;
    Bytes f = {0x21, 0x43};
    make_picture(3, 2, FOUR_BIT_COLOUR, 0, f)->get_picture(four);
    EXPECT_EQ(four.pixels, (std::vector<P>{P(0, 0, 1), P(1, 0, 2), P(2, 0, 3), P(0, 1, 4)}));

    Recorder runs;
    Bytes r = {3, 9, 0, 5, 1, 4};
    make_picture(2, 2, EIGHT_BIT_COLOUR, Picture_graphic_obj::OPTION_RUN_LENGTH, r)->get_picture(runs);
    EXPECT_EQ(runs.pixels, (std::vector<P>{P(0, 0, 9), P(1, 0, 9), P(0, 1, 9), P(1, 1, 4)}));
}

TEST(Picture_serialising, round_trip_for_a_256_colour_terminal)
{
    Bytes plain(35);
    for (size_t i = 0; i < plain.size(); ++i)
        plain[i] = uint8_t(i * 37 + 5);
    Bytes runs = {10, 196, 0, 3, 7, 17, 17, 240, 1, 2};
    Attribute_event_macro macros[2] = {Attribute_event_macro(1, 5), Attribute_event_macro(2, 6)};
    for (uint8_t options : {0, 4, 5}) {
        Bytes& data = options & 4 ? runs : plain;
        Picture_graphic_obj pic(300, "pic", 14, 7, 5, EIGHT_BIT_COLOUR, options, 196, unsigned(data.size()), 2,
                                data.data(), macros);
        Bytes whole = test::serialise_whole(pic);
        ASSERT_EQ(int(whole.size()), pic.num_bytes());
        Bytes head = {0x2C, 0x01, 20, 14, 0, 7, 0, 5, 0, 2, options, 196, uint8_t(data.size()), 0, 0, 0, 2};
        EXPECT_EQ(Bytes(whole.begin(), whole.begin() + 17), head);
        EXPECT_EQ(Bytes(whole.begin() + 17, whole.end() - 4), data);
        EXPECT_EQ(Bytes(whole.end() - 4, whole.end()), (Bytes{1, 5, 2, 6}));

        std::unique_ptr<Picture_graphic_obj> back;
        Bytes image = deserialise_into_new(whole, back);
        EXPECT_EQ(image, decoded(pic));
        EXPECT_EQ(back->get_event_macro_macro_id(1), 6);
        EXPECT_EQ(test::serialise_whole(*back), whole);
    }
}

TEST(Picture_serialising, eight_bit_pictures_are_reduced_for_a_16_colour_terminal)
{
    Terminal vt(FOUR_BIT_COLOUR);
    Bytes plain = {196, 17, 240, 1, 2, 3, 255, 100, 5, 16, 231, 232, 60, 9, 14, 200, 45, 46, 47, 48, 49};
    Bytes runs = {5, 196, 3, 17, 0, 99, 9, 240, 4, 250};
    Bytes short_runs = {4, 30}; // the rest of the picture is never reached
    struct Case
    {
        Bytes* data;
        uint16_t w, h;
        uint8_t options;
    };
    for (const Case& c : {Case{&plain, 7, 3, 0}, Case{&runs, 7, 3, 4}, Case{&short_runs, 3, 3, 4},
                          Case{&plain, 4, 5, 0}, Case{&runs, 6, 3, 4}}) {
        SCOPED_TRACE(int(c.options) * 1000 + c.w);
        auto pic = make_picture(c.w, c.h, EIGHT_BIT_COLOUR, c.options, *c.data, 196);
        Bytes original = decoded(*pic);
        pic->set_pool_helper(&vt);
        Bytes whole = test::serialise_whole(*pic);
        ASSERT_EQ(int(whole.size()), pic->num_bytes());
        EXPECT_EQ(whole[FORMAT_AT], FOUR_BIT_COLOUR);
        EXPECT_EQ(whole[TRANSPARENCY_AT], 12);
        EXPECT_EQ(le32(whole, COUNT_AT), whole.size() - DATA_AT);

        // It decodes, as a 4-bit picture, to the remapped pixels of the original.
        std::unique_ptr<Picture_graphic_obj> back;
        Bytes reduced = deserialise_into_new(whole, back);
        EXPECT_EQ(back->get_format(), FOUR_BIT_COLOUR);
        Bytes expected = original;
        const size_t stride = (c.w + 3u) & ~3u;
        for (size_t i = 0; i < expected.size(); ++i)
            if (i % stride < c.w)
                expected[i] = Attribute_colour::remap_colour(expected[i], FOUR_BIT_COLOUR);
        EXPECT_EQ(reduced, expected);

        // Split across buffers of any size, the bytes are the same.
        for (int piece = 1; piece <= int(whole.size()) + 1; ++piece)
            ASSERT_EQ(test::serialise_in_pieces(*pic, piece), whole) << "piece " << piece;
    }

    // Odd widths pack a zero low nibble (plain) or repeat the row's last pixel (runs).
    Bytes odd = {196, 17, 240, 1, 2, 3};
    auto p = make_picture(3, 2, EIGHT_BIT_COLOUR, 0, odd);
    p->set_pool_helper(&vt);
    Bytes whole = test::serialise_whole(*p);
    EXPECT_EQ(Bytes(whole.begin() + DATA_AT, whole.end()), (Bytes{0xC0, 0x00, 0x12, 0x30}));
    Bytes odd_runs = {2, 196, 4, 16};
    auto r = make_picture(3, 2, EIGHT_BIT_COLOUR, 4, odd_runs);
    r->set_pool_helper(&vt);
    whole = test::serialise_whole(*r);
    EXPECT_EQ(Bytes(whole.begin() + DATA_AT, whole.end()), (Bytes{1, 0xCC, 3, 0x00}));

    // One colour over 289 pixel pairs: runs of at most 255 pairs.
    Bytes flat = {255, 196, 255, 196, 51, 196};
    auto f = make_picture(33, 17, EIGHT_BIT_COLOUR, 4, flat);
    f->set_pool_helper(&vt);
    whole = test::serialise_whole(*f);
    EXPECT_EQ(Bytes(whole.begin() + DATA_AT, whole.end()), (Bytes{255, 0xCC, 34, 0xCC}));

    // Pictures no deeper than the terminal go as stored.
    Bytes four = {0x12, 0x34, 0x5F, 0xAB, 0xCD, 0xEF};
    auto s = make_picture(5, 2, FOUR_BIT_COLOUR, 0, four);
    s->set_pool_helper(&vt);
    whole = test::serialise_whole(*s);
    EXPECT_EQ(Bytes(whole.begin() + DATA_AT, whole.end()), four);
}

TEST(Picture_serialising, monochrome_terminal_gets_no_pixel_bytes)
{
    Terminal vt(MONOCHROME);
    Bytes plain(21, 196);
    auto pic = make_picture(7, 3, EIGHT_BIT_COLOUR, 0, plain);
    pic->set_pool_helper(&vt);
    Bytes whole = test::serialise_whole(*pic);
    ASSERT_EQ(whole.size(), DATA_AT);
    EXPECT_EQ(whole[FORMAT_AT], MONOCHROME);
    EXPECT_EQ(whole[TRANSPARENCY_AT], 2);
    EXPECT_EQ(le32(whole, COUNT_AT), 3u); // the count still states one byte a row
    Bytes runs = {21, 196};
    auto rle = make_picture(7, 3, EIGHT_BIT_COLOUR, 4, runs);
    rle->set_pool_helper(&vt);
    whole = test::serialise_whole(*rle);
    ASSERT_EQ(whole.size(), DATA_AT);
    EXPECT_EQ(le32(whole, COUNT_AT), 0u);
}

TEST(Picture_serialising, pixel_data_must_arrive_whole)
{
    Bytes data = {1, 2, 3, 4, 5, 6};
    auto pic = make_picture(3, 2, EIGHT_BIT_COLOUR, 0, data);
    Bytes whole = test::serialise_whole(*pic);
    test::Dprint_capture log;
    Iso::Deserialise_results res;
    // Cut inside the pixel data.
    Picture_graphic_obj cut(new test::Fake_spec());
    Bytes in(whole.begin() + 3, whole.end() - 2);
    EXPECT_EQ(cut.deserialise(0, in.data(), int(in.size()), &res), -1);
    EXPECT_EQ(log.text.rfind("Deser: ", 0), 0u);
    // A count far beyond the data is not allocated for.
    Bytes huge(whole.begin() + 3, whole.end());
    huge[COUNT_AT - 3] = huge[COUNT_AT - 2] = huge[COUNT_AT - 1] = huge[COUNT_AT] = 0xFF;
    Picture_graphic_obj big(new test::Fake_spec());
    EXPECT_EQ(big.deserialise(0, huge.data(), int(huge.size()), &res), -1);
    EXPECT_EQ(decoded(big), (Bytes{255, 255, 255, 255, 255, 255, 255, 255}));
}

TEST(Picture_png, sent_as_a_png_object_to_terminals_that_take_them)
{
    QImage image(3, 2, QImage::Format_ARGB32);
    image.fill(qRgba(10, 20, 30, 255));
    image.setPixel(2, 1, qRgba(200, 100, 0, 128));
    Bytes png = test::png_of(image);
    ASSERT_GT(png.size(), 20u);
    Bytes data(6, 7);
    auto pic = make_picture(3, 2, EIGHT_BIT_COLOUR, 0, data, 0, 0x0123);
    pic->set_png_buf(png.data(), unsigned(png.size()));

    Terminal v6(EIGHT_BIT_COLOUR, 6, {46});
    pic->set_pool_helper(&v6);
    ASSERT_EQ(pic->num_bytes(), int(15 + png.size()));
    Bytes whole = test::serialise_whole(*pic);
    const uint32_t n = uint32_t(png.size());
    Bytes head = {0x23, 0x01, 46, 3, 0, 3, 0, 2, 0, 0, uint8_t(n), uint8_t(n >> 8), 0, 0, 0};
    EXPECT_EQ(Bytes(whole.begin(), whole.begin() + 15), head);
    EXPECT_EQ(Bytes(whole.begin() + 15, whole.end()), png);
    for (int piece : {1, 2, 7, 14, 15, 16, 40})
        EXPECT_EQ(test::serialise_in_pieces(*pic, piece), whole) << piece;

    // The record is a PNG object.
    Base::PNG_obj back(new test::Fake_spec());
    Iso::Deserialise_results res;
    EXPECT_EQ(back.deserialise(0, whole.data() + 3, int(whole.size() - 3), &res), int(whole.size() - 3));
    EXPECT_EQ(back.get_qimage().pixel(2, 1), image.pixel(2, 1));

    // Any other terminal gets the picture graphic.
    Terminal v5(EIGHT_BIT_COLOUR, 5, {46});
    Terminal no_png(EIGHT_BIT_COLOUR, 6, {20});
    for (Pool_helper_api* helper : {static_cast<Pool_helper_api*>(&v5), static_cast<Pool_helper_api*>(&no_png),
                                    Pool_helper_api::get_default()}) {
        pic->set_pool_helper(helper);
        Bytes generic = test::serialise_whole(*pic);
        EXPECT_EQ(generic.size(), DATA_AT + data.size());
        EXPECT_EQ(generic[2], 20);
    }
    // Without PNG data or a PNG resource, so does a PNG terminal.
    auto bare = make_picture(3, 2, EIGHT_BIT_COLOUR, 0, data, 0, 60000);
    bare->set_pool_helper(&v6);
    EXPECT_EQ(test::serialise_whole(*bare)[2], 20);
}

TEST(Picture_png, png_resources_by_id_range)
{
    Picture_graphic_obj::add_png_range(1000, 1100, "field");
    Picture_graphic_obj::add_png_range(1050, 1200, "other");
    Bytes data;
    auto name = [&](uint16_t id) { return make_picture(1, 1, MONOCHROME, 0, data, 0, id)->png_filename(); };
    EXPECT_EQ(name(1010), ":vt_graph_field_a.png");
    EXPECT_EQ(name(1000), ":vt_graph_field_0.png");
    EXPECT_EQ(name(1099), ":vt_graph_field_63.png");
    EXPECT_EQ(name(1050), ":vt_graph_field_32.png"); // first added wins
    EXPECT_EQ(name(1100), ":vt_graph_other_32.png"); // end is exclusive
    EXPECT_TRUE(name(999).isNull());
    EXPECT_TRUE(name(1200).isNull());

    // A resource that exists is loaded and sent.
    ASSERT_TRUE(QResource::registerResource(VT_TEST_DATA_DIR "/pictures.rcc"));
    Picture_graphic_obj::add_png_range(3000, 3010, "testpic");
    QFile file(":vt_graph_testpic_2.png");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray png = file.readAll();
    Terminal v6(EIGHT_BIT_COLOUR, 6, {46});
    Bytes pixels(6, 1);
    auto pic = make_picture(3, 2, EIGHT_BIT_COLOUR, 0, pixels, 0, 3002);
    pic->set_pool_helper(&v6);
    EXPECT_EQ(pic->num_bytes(), 15 + png.size());
    Bytes whole = test::serialise_whole(*pic);
    EXPECT_EQ(whole[2], 46);
    EXPECT_EQ(QByteArray(reinterpret_cast<const char*>(whole.data()) + 15, int(whole.size()) - 15), png);
    // An id whose resource does not exist falls back.
    auto missing = make_picture(3, 2, EIGHT_BIT_COLOUR, 0, pixels, 0, 3003);
    missing->set_pool_helper(&v6);
    EXPECT_EQ(test::serialise_whole(*missing)[2], 20);
}

TEST(Picture_geometry, scaling_keeps_wide_pictures_in_proportion)
{
    Bytes data;
    auto pic = [&](uint16_t w, uint16_t aw, uint16_t ah) {
        return std::make_unique<Picture_graphic_obj>(1, "p", w, aw, ah, EIGHT_BIT_COLOUR, 0, 0, 0, 0, data.data(),
                                                     nullptr);
    };
    auto wide = pic(601, 601, 100);
    wide->set_scale(234, 1, 240, 1); // deliberately untouched
    EXPECT_EQ(wide->get_width(), 601);
    wide->set_scale(1, 1, 3, 1); // 200, then ((200 * 100) / 601) * 601 / 100
    EXPECT_EQ(wide->get_width(), 198);
    auto square = pic(100, 100, 100);
    square->set_scale(1, 1, 3, 1);
    EXPECT_EQ(square->get_width(), 33);
    auto unscaled = pic(601, 601, 100);
    unscaled->set_scale(3, 3, 3, 3);
    EXPECT_EQ(unscaled->get_width(), 601);

    EXPECT_EQ(pic(50, 100, 30)->get_height(), 15);
    EXPECT_EQ(pic(50, 3, 2)->get_height(), 33);
    EXPECT_EQ(pic(50, 0, 2)->get_height(), 0);
}

TEST(Picture_spec, built_from_a_spec_node)
{
    auto* spec_node = new test::Fake_spec();
    spec_node->set("width", "6").set("actual_width", "3").set("actual_height", "2").set("format", "2");
    spec_node->set("options", "1").set("transparency_colour", "red").set("num_bytes", "6");
    spec_node->set("bytes", std::string("\x01\x00\x03\x04\x05\x06", 6));
    Picture_graphic_obj pic(spec_node);
    {
        test::Stream_capture out(std::cout);
        pic.set_by_spec(SCALE_AREA_NONE);
    }
    EXPECT_EQ(pic.get_transparency_colour(), 12);
    EXPECT_EQ(pic.get_num_bytes(), 6u);
    EXPECT_EQ(*pic.get_bytes(1), 0);
    EXPECT_EQ(*pic.get_bytes(6), 0); // past the end: the spare element
    unsigned char tail[8];
    EXPECT_TRUE(pic.get_bytes(4, tail, 8));
    EXPECT_EQ(tail[1], 6);
    EXPECT_FALSE(pic.get_bytes(6, tail, 8));
    EXPECT_EQ(decoded(pic), (Bytes{1, 0, 3, 255, 4, 5, 6, 255}));
    std::ostringstream code;
    pic.set_name("pic");
    pic.get_code_init(code, 0);
    EXPECT_NE(code.str().find("6U, 3U, 2U, EIGHT_BIT_COLOUR, 1U, 12U, 6, 0"), std::string::npos) << code.str();
}
