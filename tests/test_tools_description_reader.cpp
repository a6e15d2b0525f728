// The quick reader of plain descriptions against the general XML reader, and the number and
// byte-string readers of description values.
#include <gtest/gtest.h>

#include <QFile>
#include <memory>
#include <string>

#include "test_support.h"
#include "tools/description/Description.h"

using VT::Description;
using VT::Xml_element;

namespace {

// The tree as text: one line per element with its line number and attributes, children indented.
std::string dump(const Xml_element* e, int depth = 0)
{
    std::string out = std::string(size_t(depth) * 2, ' ') + e->name.toStdString() + "@" + std::to_string(e->line);
    for (const auto& a : e->attributes)
        out += " " + a.key.toStdString() + "=[" + a.value.toHex(' ').toStdString() + "]";
    out += "\n";
    for (const auto& c : e->children) {
        EXPECT_EQ(c->parent, e);
        out += dump(c.get(), depth + 1);
    }
    return out;
}

std::string full_reader_dump(const QByteArray& xml)
{
    Description d;
    d.set_full_xml_reader(true);
    if (!d.parse(xml, "x.xml") || !d.root_element())
        return "not read: " + d.problems().join("; ").toStdString();
    return dump(d.root_element());
}

}

TEST(ToolsDescriptionReader, ReadsPlainTextsAsTheFullReaderDoes)
{
    const char* const texts[] = {
        // Lines: the root takes the line where the declaration or a comment before it ends.
        "<object_pool/>",
        "\n\n<object_pool>\n  <A x=\"1\"/>\n</object_pool>\n",
        "<?xml version=\"1.0\"?>\n\n<object_pool>\n<A/></object_pool>",
        "<?xml version='1.0'\n   encoding='utf-8' standalone=\"no\" ?>\n<object_pool/>",
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!-- one\n two -->\n\n<object_pool/>\n<!-- after -->\n",
        "<p><A/><B\n  x='1'\n/><C/>\n\n<D><!--\n--><E/></D>\n</p >",
        // Values: entities, character references, tabs and line breaks, UTF-8, quotes.
        "<p a=\"&lt;&gt;&amp;&quot;&apos;\" b='&#65;&#x42;&#xe9;&#8364;&#x1F600;' c=\"x\ty\nz\" "
        "d='&#9;&#10;&#13;' e=\"'\" f='\"' g=\"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\xC2\x80\" h=\"\" i='\x7F>'/>",
        "<p>\n\t<q   k = \"v\"\t/>\n</p>",
        "<p>\n<!-- a comment with -single- dashes, <tags> & \xC3\xA9 -->\n<q/></p>",
    };
    for (const char* text : texts) {
        const QByteArray xml(text);
        std::unique_ptr<Xml_element> quick = Description::read_plain(xml);
        ASSERT_NE(quick.get(), nullptr) << text;
        EXPECT_EQ(dump(quick.get()), full_reader_dump(xml)) << text;
    }

    // The example descriptions and the tools' test data.
    for (const QString& path : {QStringLiteral(VT_EXAMPLES_DIR "/small.xml"), QStringLiteral(VT_EXAMPLES_DIR "/realistic.xml"),
                                QStringLiteral(VT_TEST_DATA_DIR "/tools/variables.xml")}) {
        QFile f(path);
        ASSERT_TRUE(f.open(QIODevice::ReadOnly)) << path.toStdString();
        const QByteArray xml = f.readAll();
        std::unique_ptr<Xml_element> quick = Description::read_plain(xml);
        ASSERT_NE(quick.get(), nullptr) << path.toStdString();
        EXPECT_EQ(dump(quick.get()), full_reader_dump(xml)) << path.toStdString();
    }

    // Element kinds are decided as the elements are read.
    std::unique_ptr<Xml_element> pool = Description::read_plain(
        "<object_pool><colour/><Number_variable/><place/><ref/><Point/><attr_font/></object_pool>");
    ASSERT_NE(pool.get(), nullptr);
    const Xml_element::Kind kinds[] = {Xml_element::COLOUR, Xml_element::OBJECT, Xml_element::LIST_ITEM,
                                       Xml_element::LIST_ITEM, Xml_element::ITEM, Xml_element::ATTR_WRAPPER};
    EXPECT_EQ(pool->kind, Xml_element::POOL);
    ASSERT_EQ(pool->children.size(), 6u);
    for (size_t i = 0; i < 6; ++i)
        EXPECT_EQ(pool->children[i]->kind, kinds[i]) << pool->children[i]->name.constData();
}

TEST(ToolsDescriptionReader, LeavesEverythingElseToTheFullReader)
{
    QByteArray deep;
    for (int i = 0; i < 65; ++i)
        deep += "<a>";
    for (int i = 0; i < 65; ++i)
        deep += "</a>";
    const QByteArray texts[] = {
        "",
        "   ",
        "<p>\r\n</p>",                             // carriage returns
        "\xEF\xBB\xBF<p/>",                        // byte order mark
        "<?xml version=\"1.1\"?><p/>",
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><p/>",
        "<?xml encoding=\"UTF-8\" version=\"1.0\"?><p/>",
        "<?xml?><p/>",
        " <?xml version=\"1.0\"?><p/>",
        "<!DOCTYPE p><p/>",
        "<p><![CDATA[x]]></p>",
        "<p><?pi x?></p>",
        "<p xmlns=\"urn:x\"/>",
        "<x:p xmlns:x=\"urn:x\"/>",
        "<p a:b=\"1\"/>",
        "<p>text</p>",
        "<p>&amp;</p>",
        "<p a=\"&nbsp;\"/>",
        "<p a=\"&#0;\"/>",
        "<p a=\"&#xD800;\"/>",
        "<p a=\"&#xFFFE;\"/>",
        "<p a=\"&#;\"/>",
        "<p a=\"&#99999999;\"/>",
        "<p a=\"&amp\"/>",
        "<p a=\"\xC3\"/>",                         // cut short
        "<p a=\"\xC0\x80\"/>",                     // overlong
        "<p a=\"\xED\xA0\x80\"/>",                 // surrogate
        "<p a=\"\xEF\xBF\xBE\"/>",                 // not a character
        "<p a=\"\x01\"/>",
        "<p a=\"<\"/>",
        "<p a=\"1\" a=\"2\"/>",
        "<p a=\"1\"b=\"2\"/>",
        "<p a=1/>",
        "<p a/>",
        "<p a=\"1/>",
        "<p/><q/>",
        "<p></q>",
        "<p><q></p></q>",
        "<p>",
        "<p/ >",
        "</p>",
        "<p><!-- a -- b --></p>",
        "<p><!-- a ---></p>",
        "<p><!-- \x02 --></p>",
        "<p><!-- open",
        "<1p/>",
        "<p\xC3\xA9/>",
        deep,
    };
    for (const QByteArray& xml : texts)
        EXPECT_EQ(Description::read_plain(xml).get(), nullptr) << xml.constData();

    // Such texts still reach the general reader, which reports its own error with its line.
    Description d;
    EXPECT_FALSE(d.parse("<object_pool>\n<A a=\"1\"\n   a=\"2\"/>\n</object_pool>", "dup.xml"));
    ASSERT_EQ(d.problems().size(), 1);
    EXPECT_TRUE(d.problems()[0].startsWith("dup.xml:3: XML error: ")) << d.problems()[0].toStdString();
}

TEST(ToolsDescriptionReader, ReadsNumbersAndByteStringsFromTheValueText)
{
    Description d;
    VT::Object_pool pool;
    ASSERT_TRUE(d.parse(R"(<object_pool>
  <String_variable name="s" string="x" a=" 42	" b="+7" c="0X1f" d="18446744073709551615" e="18446744073709551616"
      f="-9223372036854775808" g="0x" h="-" i="1 2" j="0x-1" k="true" l=" false " m="EIGHT_BIT_COLOUR"/>
  <Macro name="m1" bytes=""/>
  <Macro name="m2" bytes=" 0x0a0B ,, 0C&#10;0d "/>
  <Macro name="m3" bytes="A0 5"/>
  <Macro name="m4" bytes="0xG0"/>
  <Macro name="m5" bytes="A0 0x"/>
</object_pool>)",
                        "n.xml"));
    {
        test::Stream_capture out(std::cout);
        test::Stream_capture err(std::cerr);
        d.build(pool);
    }
    Xml_element* root = d.root_element();
    std::unique_ptr<Spec_node> s(d.make_node(root->children.at(0).get()));

    uint64_t u64 = 0;
    int64_t i64 = 0;
    EXPECT_EQ(s->get_uint64(&u64, "a"), 1);
    EXPECT_EQ(u64, 42u) << "whitespace around a number is ignored";
    EXPECT_EQ(s->get_uint64(&u64, "b"), 1);
    EXPECT_EQ(u64, 7u);
    EXPECT_EQ(s->get_uint64(&u64, "c"), 1);
    EXPECT_EQ(u64, 31u);
    EXPECT_EQ(s->get_uint64(&u64, "d"), 1);
    EXPECT_EQ(u64, 18446744073709551615u);
    EXPECT_EQ(s->get_int64(&i64, "f"), 1);
    EXPECT_EQ(i64, INT64_MIN);
    for (const char* key : {"e", "g", "h", "i", "j"})
        EXPECT_EQ(s->get_uint64(&u64, key), 0) << key;
    uint8_t u8 = 9;
    EXPECT_EQ(s->get_uint8(&u8, "k"), 1);
    EXPECT_EQ(u8, 1);
    EXPECT_EQ(s->get_uint8(&u8, "l"), 1);
    EXPECT_EQ(u8, 0);
    EXPECT_EQ(s->get_uint8(&u8, "m"), 1);
    EXPECT_EQ(u8, 2);
    EXPECT_TRUE(d.problems().contains("n.xml:2: '18446744073709551616' of 'e' is not a number"));
    EXPECT_TRUE(d.problems().contains("n.xml:2: '0x' of 'g' is not a number"));

    // Byte strings: separators may repeat, and a line break separates too.
    std::unique_ptr<Spec_node> m1(d.make_node(root->children.at(1).get()));
    EXPECT_EQ(m1->get_value_length("bytes", VT::SCALE_AREA_NONE), 0);
    std::unique_ptr<Spec_node> m2(d.make_node(root->children.at(2).get()));
    char buf[8] = {};
    ASSERT_EQ(m2->get_value_length("bytes", VT::SCALE_AREA_NONE), 4);
    EXPECT_EQ(m2->get_text(buf, sizeof buf, "bytes"), 1);
    EXPECT_EQ(test::hex(test::Bytes(buf, buf + 5)), "0A 0B 0C 0D 00");
    for (int line : {6, 7, 8})
        EXPECT_TRUE(d.problems().contains(
            QStringLiteral("n.xml:%1: 'bytes' must be hexadecimal bytes such as \"A0 05 FF\"").arg(line)))
            << line << "\n"
            << d.problems().join("\n").toStdString();
}
