// A value a description gives outside its attribute's range is an error naming file, line,
// object and attribute; lenient, a warning, and the value is taken into the range.
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "tools/description/Description.h"
#include "vtpool_support.h"

using namespace VT;

namespace {

const char* const out_of_range = R"(<object_pool>
  <Data_mask name="dm" background_colour="300"/>
  <Fill_attributes name="fill" fill_type="9"/>
  <Meter name="meter" width="50" start_angle="200" end_angle="180" options="15"/>
  <Fill_attributes name="wide" fill_type="300"/>
  <Data_mask name="fine" background_colour="255"/>
</object_pool>)";

}

TEST(Description_ranges, ValuesOutsideTheirRangeAreErrorsNamingWhereOrLenientlyClamped)
{
    Description strict;
    Object_pool pool;
    ASSERT_TRUE(strict.parse(out_of_range, "ranges.xml"));
    EXPECT_FALSE(strict.build(pool));
    EXPECT_EQ(strict.problems(),
              QStringList({"ranges.xml:2: 'background_colour' of <Data_mask name='dm'> is 300, outside its range 0 to "
                           "255 (--lenient takes the nearest value in range)",
                           "ranges.xml:3: 'fill_type' of <Fill_attributes name='fill'> is 9, outside its range 0 to 3 "
                           "(--lenient takes the nearest value in range)",
                           "ranges.xml:4: 'start_angle' of <Meter name='meter'> is 200, outside its range 0 to 180 "
                           "(--lenient takes the nearest value in range)",
                           // Too wide for its byte: reported once, where it is read.
                           "ranges.xml:5: '300' of 'fill_type' does not fit in 8 bits unsigned"}));

    Description lenient;
    lenient.set_lenient(true);
    Object_pool clamped;
    ASSERT_TRUE(lenient.parse(QByteArray(out_of_range).replace("fill_type=\"300\"", "fill_type=\"1\""), "ranges.xml"));
    EXPECT_TRUE(lenient.build(clamped)) << lenient.problems().join("\n").toStdString();
    EXPECT_EQ(lenient.warnings().size(), 3);
    EXPECT_TRUE(lenient.warnings().value(0).endsWith("is 300, outside its range 0 to 255; taken as 255"))
        << lenient.warnings().join("\n").toStdString();
    EXPECT_EQ(dynamic_cast<Base::Data_mask_obj*>(clamped.find(QByteArray("dm")))->get_background_colour(), 255)
        << "clamped, not cut to its low byte (44)";
    EXPECT_EQ(dynamic_cast<Base::Fill_attributes_obj*>(clamped.find(QByteArray("fill")))->get_fill_type(), 3);
    EXPECT_EQ(dynamic_cast<Base::Meter_obj*>(clamped.find(QByteArray("meter")))->get_start_angle(), 180);
}

TEST(Description_ranges, VtpoolRefusesOutOfRangeValuesUnlessLenient)
{
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    const QString xml = tmp.filePath("ranges.xml");
    ASSERT_TRUE(test::write_file(xml, R"(<object_pool>
  <Output_string name="out" width="10" height="10" font_attributes="f" options="9"/>
  <Working_set name="ws" active_mask="main"/>
  <Data_mask name="main"><place object="out" x_location="0" y_location="0"/></Data_mask>
  <Font_attributes name="f"/>
</object_pool>)"));
    const QString out = tmp.filePath("ranges.iop");
    test::Outcome r = test::run_vtpool({"build", xml, "-o", out});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains(QStringLiteral("error: %1:2: 'options' of <Output_string name='out'> is 9").arg(xml)))
        << r.err.toStdString();
    EXPECT_FALSE(QFile::exists(out));
    for (const char* command : {"build", "check", "source", "dump", "info"}) {
        QStringList args{command, xml, "--lenient"};
        if (QByteArray(command) == "build" || QByteArray(command) == "source")
            args << "-o" << tmp.filePath(QStringLiteral("out.%1").arg(command));
        r = test::run_vtpool(args);
        EXPECT_EQ(r.status, 0) << command << ": " << r.err.toStdString();
        // The check lists what loading found among its findings; the others warn.
        const QString said = r.out + r.err;
        EXPECT_TRUE(said.contains("warning") && said.contains("is 9, outside its range 0 to 7; taken as 7"))
            << command << ": " << said.toStdString();
    }
}
