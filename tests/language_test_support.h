#ifndef TESTS_LANGUAGE_TEST_SUPPORT_H
#define TESTS_LANGUAGE_TEST_SUPPORT_H

// Descriptions in several languages for the tests: one with its text tables in a folder of its
// own, and its build in one language.

#include <QDir>
#include <QHash>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <iostream>
#include <memory>

#include "test_support.h"
#include "tool_test_support.h"
#include "tools/description/Description.h"
#include "tools/pool/Pool_file.h"

namespace test {

// A working set with two texts and a variable, in English, German and French.
inline const char* const three_languages = R"(<object_pool languages="en de fr" texts="texts">
  <Working_set name="ws" active_mask="main">
    <Language code="en"/><Language code="de"/><Language code="fr"/>
  </Working_set>
  <Data_mask name="main">
    <place object="title" x_location="0" y_location="0"/>
    <place object="unit_out" x_location="0" y_location="40"/>
  </Data_mask>
  <Output_string name="title" width="100" height="20" font_attributes="font" string="Amount"/>
  <Output_string name="unit_out" width="60" height="20" font_attributes="font" variable_reference="unit"/>
  <String_variable name="unit" string="litres" grow="true"/>
  <Font_attributes name="font" font_size="2"/>
</object_pool>
)";

// A description and its tables in a folder of their own.
struct Files
{
    QTemporaryDir dir;
    QString path(const QString& name) const { return dir.filePath(name); }
    Files(const QByteArray& xml, const QHash<QString, QByteArray>& tables)
    {
        QDir(dir.path()).mkdir("texts");
        EXPECT_TRUE(write_file(path("pool.xml"), xml));
        for (auto it = tables.begin(); it != tables.end(); ++it)
            EXPECT_TRUE(write_file(path("texts/" + it.key() + ".txt"), it.value()));
    }
};

struct Build
{
    VT::Object_pool pool;
    std::shared_ptr<VT::Description> d = std::make_shared<VT::Description>();
    bool ok = false;
    QByteArray bytes;
    QString problems() const { return d->problems().join("\n"); }
};

inline std::unique_ptr<Build> build(const QString& path, const QByteArray& language = QByteArray())
{
    auto b = std::make_unique<Build>();
    b->pool.keep_alive(b->d);
    b->d->set_language(language);
    Stream_capture out(std::cout);
    b->ok = b->d->load_file(path) && b->d->build(b->pool);
    b->bytes = VT::Pool_file::write(b->pool);
    return b;
}

}

#endif
