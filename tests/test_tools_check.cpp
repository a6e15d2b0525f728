// Checking a pool: containment rules, references, and the VT version it needs, as the check
// words them.
#include <gtest/gtest.h>

#include "test_support.h"
#include "tools/check/Checker.h"
#include "tools/description/Description.h"
#include "tools/pool/Pool_file.h"

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

// "'object': message [rule]" of the findings of the rules named.
QStringList findings(const Check::Result& r, const QStringList& rules)
{
    QStringList out;
    for (const Check::Finding& f : r.findings)
        if (rules.contains(f.rule))
            out.append(f.object_label() + ": " + f.message + " [" + f.rule + "]");
    return out;
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

    Check::Source source;
    Check::Result r = Check::check(pool, source);
    EXPECT_EQ(findings(r, {"containment"}),
              QStringList({"'outer' (Data_mask 0): 'child_location' holds 'inner' (Data_mask 1), which a Data_mask may "
                           "not hold [containment]",
                           "'keys' (Soft_key_mask 3): 'child_objects' holds 'text' (Output_string 5), which a "
                           "Soft_key_mask may not hold [containment]"}));
    // A graphics context under a data mask, and the object type itself, need version 4; an
    // input list may hold the NULL object.
    EXPECT_EQ(r.needed_version, 4);
    ASSERT_EQ(r.deciding.size(), 2);
    EXPECT_EQ(r.deciding[0].object + ": " + r.deciding[0].reason, "'outer' (Data_mask 0): holding 'gc' (Graphics_context 2)");
    EXPECT_EQ(r.deciding[1].object + ": " + r.deciding[1].reason,
              "'gc' (Graphics_context 2): object type Graphics_context");

    Check::Options v3;
    v3.vt_version = 3;
    r = Check::check(pool, source, v3);
    EXPECT_EQ(findings(r, {"vt-version"}),
              QStringList({"'outer' (Data_mask 0): holding 'gc' (Graphics_context 2) needs VT version 4 (checking for 3) "
                           "[vt-version]",
                           "'gc' (Graphics_context 2): object type Graphics_context needs VT version 4 (checking for 3) "
                           "[vt-version]"}));
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
    Check::Result r = Check::check(pool, Check::Source());
    EXPECT_EQ(findings(r, {"missing-object", "ref-type"}),
              QStringList({"'Output_number_0' (Output_number 0): 'variable_reference' names object 2, which is not in "
                           "the pool [missing-object]",
                           "'Output_number_0' (Output_number 0): an event runs macro 1, which is not in the pool "
                           "[missing-object]"}));

    // A macro id that names an object of another type.
    Object_pool wrong;
    QByteArray with_variable = out_only + bytes.right(7);
    with_variable[with_variable.size() - 7] = 1; // the variable takes the macro's id
    ASSERT_TRUE(Pool_file::read(with_variable, wrong, &error)) << error.toStdString();
    r = Check::check(wrong, Check::Source());
    EXPECT_TRUE(findings(r, {"ref-type"})
                    .contains("'Output_number_0' (Output_number 0): an event runs 'Number_variable_1' (Number_variable 1), "
                              "which is not a Macro [ref-type]"))
        << findings(r, {"ref-type"}).join("\n").toStdString();
}
