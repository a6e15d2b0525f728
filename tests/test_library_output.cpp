// The capture of what the library says: lines with their object, the end of the process
// announced at once, and the streams and debug sink given back as they were.
#include <gtest/gtest.h>

#include "test_support.h"
#include "tools/pool/Library_output.h"

using VT::Library_output;

TEST(LibraryOutput, CollectsLinesWithTheirObjectAndGivesEverythingBack)
{
    test::Dprint_capture outer;
    test::Stream_capture err(std::cerr);
    std::streambuf* const silenced = std::cout.rdbuf(nullptr);
    {
        Library_output said;
        int asked = 0;
        said.set_context([&]() {
            ++asked;
            return QStringLiteral("p.xml:3: 'k' (Key 5)");
        });
        EXPECT_FALSE(said.any());
        EXPECT_EQ(asked, 0) << "naming the object costs nothing while all is quiet";
        Debug_print::dprint("Deser: not enough data %s", "for all attributes!\n");
        std::cerr << "WARNING: attempt to set 'key_code' to 0, minimum is 1" << std::endl;
        std::cout << "bytes[2] = a0 5 " << std::endl; // chatter, not kept
        std::cerr << "FATAL ERROR!  Key 'k' has a key code of 0" << std::endl;
        std::cerr << "no line end";
        const QVector<Library_output::Line> lines = said.take();
        ASSERT_EQ(lines.size(), 4);
        EXPECT_EQ(lines[0].text, "Deser: not enough data for all attributes!");
        EXPECT_EQ(lines[1].context, "p.xml:3: 'k' (Key 5)");
        EXPECT_EQ(Library_output::clamp_detail(lines[1].text), "'key_code' 0 is below its minimum 1, so 1 was kept");
        EXPECT_EQ(lines[3].text, "no line end");
        EXPECT_TRUE(Library_output::restated_by_tool(lines[0].text));
        EXPECT_FALSE(Library_output::restated_by_tool(lines[1].text));
        EXPECT_TRUE(Library_output::clamp_detail(lines[2].text).isEmpty());
        EXPECT_TRUE(said.take().isEmpty());
    }
    // Only the end of the process went through, at once, with the object; the streams and the
    // sink are those of before, the silenced one included.
    EXPECT_EQ(err.str(), "p.xml:3: 'k' (Key 5): FATAL ERROR!  Key 'k' has a key code of 0\n");
    EXPECT_EQ(std::cout.rdbuf(silenced), nullptr);
    std::cout.clear();
    Debug_print::dprint("after\n");
    EXPECT_EQ(outer.text, "after\n");
}
