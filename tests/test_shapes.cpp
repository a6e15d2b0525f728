#include "mask_test_support.h"

using namespace VT;
using namespace VT::Base;
using test::Fake_spec;

TEST(Shapes, polygon_scales_its_points_and_its_box)
{
    Attribute_point points[] = {{10, 20}, {300, 5}};
    Polygon_obj polygon(1, "p", 300, 20, 2, 3, 0, 2, 0, points, nullptr);
    polygon.set_scale(3, 1, 2, 3);
    EXPECT_EQ(polygon.get_points_point_x(0), 15);
    EXPECT_EQ(polygon.get_points_point_y(0), 6);
    EXPECT_EQ(polygon.get_points_point_x(1), 450);
    EXPECT_EQ(polygon.get_points_point_y(1), 1);
    EXPECT_EQ(polygon.get_width(), 450);
    EXPECT_EQ(polygon.get_height(), 6);
    EXPECT_EQ(test::hex(test::serialise_whole(polygon)),
              "01 00 10 C2 01 06 00 02 00 03 00 00 02 00 0F 00 06 00 C2 01 01 00");

    // Large coordinates are multiplied in full before the division.
    Attribute_point far[] = {{60000, 65535}};
    Polygon_obj big(2, "big", 100, 100, 2, 3, 0, 1, 0, far, nullptr);
    big.set_scale(3, 2, 4, 2);
    EXPECT_EQ(big.get_points_point_x(0), 45000);
    EXPECT_EQ(big.get_points_point_y(0), 65535);

    Polygon_obj empty(3, "empty", 40, 10, 2, 3, 0, 0, 0, nullptr, nullptr);
    empty.set_scale(3, 1, 2, 3);
    EXPECT_EQ(empty.get_width(), 60);
    EXPECT_EQ(empty.get_height(), 3);
    EXPECT_EQ(empty.get_num_points(), 0);
}

TEST(Shapes, lines_and_rectangles_need_line_attributes)
{
    test::Pool_names world;
    world.name("fill", 9);
    Fake_spec without = world.node().set("width", "10").set("height", "10").set("fill_attributes", "fill");
    EXPECT_EXIT(test::build_described<Rectangle_obj>(without, 1, "r"), ::testing::ExitedWithCode(134),
                "FATAL ERROR!  Rectangle 'r' has NULL attribute 'line_attributes'\n");
    EXPECT_EXIT(test::build_described<Line_obj>(without, 2, "l"), ::testing::ExitedWithCode(134),
                "FATAL ERROR!  Line 'l' has NULL attribute 'line_attributes'\n");
    // Named but unknown: still NULL.
    Fake_spec unknown = Fake_spec(without).set("line_attributes", "nowhere");
    EXPECT_EXIT(test::build_described<Rectangle_obj>(unknown, 1, "r2"), ::testing::ExitedWithCode(134),
                "has NULL attribute 'line_attributes'");

    auto ellipse = test::build_described<Ellipse_obj>(without, 3, "e");
    EXPECT_EQ(ellipse->get_line_attributes(), 65535);
    EXPECT_EQ(ellipse->get_fill_attributes(), 9);
    auto polygon = test::build_described<Polygon_obj>(without, 4, "p");
    EXPECT_EQ(polygon->get_line_attributes(), 65535);

    world.name("lines", 8);
    auto rectangle = test::build_described<Rectangle_obj>(Fake_spec(without).set("line_attributes", "lines"), 5, "r");
    EXPECT_EQ(rectangle->get_line_attributes(), 8);
}

TEST(Shapes, default_line_and_scaling_children)
{
    Line_obj line(new Fake_spec());
    EXPECT_EQ(test::hex(test::serialise_whole(line)), "FF FF 0D FF FF 00 00 00 00 00 00");
    EXPECT_EQ(line.__get_scaling_child(), 65535);

    Line_obj l(1, "l", 7, 10, 20, 0, 0, nullptr);
    Rectangle_obj r(2, "r", 8, 30, 40, 0, 9, 0, nullptr);
    Ellipse_obj e(3, "e", 10, 50, 60, 0, 0, 0, 9, 0, nullptr);
    Polygon_obj p(4, "p", 70, 80, 11, 9, 0, 0, 0, nullptr, nullptr);
    const VT_obj* shapes[] = {&l, &r, &e, &p};
    const uint16_t line_attributes[] = {7, 8, 10, 11};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(shapes[i]->__get_scaling_child(), line_attributes[i]) << i;
        EXPECT_EQ(shapes[i]->get_width(), 10 + 20 * i) << i;
        EXPECT_EQ(shapes[i]->get_height(), 20 + 20 * i) << i;
    }
}
