// Checking a pool: containment rules, references, ids, and the VT version it needs.
#include <gtest/gtest.h>

#include "test_support.h"
#include "tools/description/Description.h"
#include "tools/pool/Pool_file.h"
#include "tools/check/Structure_check.h"

using namespace VT;

namespace {

QByteArray build_bytes(const char* xml)
{
    Description d;
    Object_pool pool;
    EXPECT_TRUE(d.parse(xml, "check.xml"));
    EXPECT_TRUE(d.build(pool)) << d.problems().join("\n").toStdString();
    return Pool_file::write(pool);
}

}

TEST(ToolsCheck, ReportsChildrenTheRulesForbidAndTheVersionNeeded)
{
    Description d;
    Object_pool pool;
    ASSERT_TRUE(d.parse(R"(<object_pool>
  <Data_mask name="outer">
    <place object="inner" x_location="0" y_location="0"/>
    <place object="gc" x_location="0" y_location="0"/>
  </Data_mask>
  <Data_mask name="inner"/>
  <Graphics_context name="gc"/>
  <Soft_key_mask name="keys">
    <ref object="k"/>
    <ref object="text"/>
  </Soft_key_mask>
  <Key name="k" key_code="1"/>
  <Output_string name="text"/>
  <Input_list name="choices">
    <ref object="text"/>
    <ref object="65535"/>
  </Input_list>
</object_pool>)",
                        "check.xml"));
    ASSERT_TRUE(d.build(pool)) << d.problems().join("\n").toStdString();

    Structure_check::Check_result r = Structure_check::check(pool, 0);
    EXPECT_EQ(r.problems, QStringList({"'outer' (Data_mask 0): 'inner' (Data_mask 1) may not be a child of Data_mask "
                                       "(in 'child_location')",
                                       "'keys' (Soft_key_mask 3): 'text' (Output_string 5) may not be a child of "
                                       "Soft_key_mask (in 'child_objects')"}));
    // A graphics context under a data mask, and the object type itself, need version 4; an
    // input list may hold the NULL object.
    EXPECT_EQ(r.needed_version, 4);
    EXPECT_EQ(r.needing, QStringList({"'outer' (Data_mask 0): child 'gc' (Graphics_context 2)",
                                      "'gc' (Graphics_context 2): object type Graphics_context"}));

    r = Structure_check::check(pool, 3);
    EXPECT_EQ(r.problems.size(), 4);
    EXPECT_TRUE(r.problems.contains("'gc' (Graphics_context 2): object type Graphics_context needs VT version 4 "
                                    "(checking for 3)"));
}

TEST(ToolsCheck, ReportsMissingObjectsAndMacros)
{
    // An output number that shows variable 2 and runs macro 1: pool bytes without either.
    QByteArray bytes = build_bytes(R"(<object_pool>
  <Output_number name="out" variable_reference="v">
    <Event_macro event_id="16" macro_id="m"/>
  </Output_number>
  <Macro name="m" bytes="A0"/>
  <Number_variable name="v"/>
</object_pool>)");
    QByteArray out_only = bytes.left(bytes.size() - 7 - 6);
    Object_pool pool;
    QString error;
    ASSERT_TRUE(Pool_file::read(out_only, pool, &error)) << error.toStdString();
    Structure_check::Check_result r = Structure_check::check(pool, 0);
    EXPECT_EQ(r.problems,
              QStringList({"'Output_number_0' (Output_number 0): 'variable_reference' refers to missing object 2",
                           "'Output_number_0' (Output_number 0): event macro refers to missing macro 1"}));

    // A macro id that names an object of another type.
    Object_pool wrong;
    QByteArray with_variable = out_only + bytes.right(7);
    with_variable[with_variable.size() - 7] = 1; // the variable takes the macro's id
    ASSERT_TRUE(Pool_file::read(with_variable, wrong, &error)) << error.toStdString();
    r = Structure_check::check(wrong, 0);
    EXPECT_TRUE(r.problems.contains("'Output_number_0' (Output_number 0): event macro refers to "
                                    "'Number_variable_1' (Number_variable 1), which is not a macro"))
        << r.problems.join("\n").toStdString();
}
