#include "test_support.h"

using namespace VT;
using test::Bytes;

TEST(Scalar_attributes, range_checked_assignment_warns_and_clamps)
{
    test::Stream_capture err(std::cerr);
    Attribute_uint8 x(10, 20, "x");
    EXPECT_EQ(x.get(), 10);
    x = 25;
    EXPECT_EQ(x.get(), 20);
    x = 5;
    EXPECT_EQ(x.get(), 10);
    Attribute_int16 anonymous(-5, 5, nullptr);
    anonymous = int16_t(-9);
    EXPECT_EQ(anonymous.get(), -5);
    Attribute_int8 small(-3, 3, int8_t(100), "s");
    EXPECT_EQ(small.get(), 3);
    EXPECT_EQ(err.str(), "WARNING: attempt to set 'x' to 25, maximum is 20\n"
                         "WARNING: attempt to set 'x' to 5, minimum is 10\n"
                         "WARNING: attempt to set 'ATTR_UNKNOWN' to -9, minimum is -5\n"
                         "WARNING: attempt to set 's' to 100, maximum is 3\n");
}
