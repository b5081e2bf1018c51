// Double-byte characters in paths: "\x83\x5C" is one character, whose second byte is a backslash.
#include <gtest/gtest.h>

#include <string>

#include "files/file_path_probe.h"
#include "support/code_page_932.h"

using orvil::test::Path;

namespace {

class DoubleBytePath : public testing::Test {
protected:
    const orvil::test::CodePage932 code_page;
};

std::string replaced(std::string text, bool to_internal) {
    EXPECT_TRUE(Path::ReplaceSeparateCharacters(text.data(), to_internal));
    return text;
}

}  // namespace

TEST_F(DoubleBytePath, SecondByteIsNoSeparator) {
    EXPECT_EQ(replaced("\x83\x5C\\\x83\x5C", true), "\x83\x5C/\x83\x5C");
    EXPECT_EQ(replaced("\x83\x83\\", true), "\x83\x83/");
    EXPECT_EQ(replaced("\x83//", false), "\x83/\\");
    CExtString text("\x83\x5C\\x");
    EXPECT_TRUE(Path::ReplaceSeparateCharacters(text, true));
    EXPECT_EQ(text, "\x83\x5C/x");
}

TEST_F(DoubleBytePath, LeadByteAtTheEndIsNotSteppedOver) {
    char text[] = "a\\\x83\0\\b";
    EXPECT_TRUE(Path::ReplaceSeparateCharacters(text, true));
    EXPECT_EQ(std::string(text, sizeof text - 1), std::string("a/\x83\0\\b", 6));
}

// The system's own code page may be another, to which the second bytes are separators: none stands beside a real one.
TEST_F(DoubleBytePath, NamesOfAnAbsolutePathAreKept) {
#ifdef _WIN32
    const std::string drive = "C:";
#else
    const std::string drive;
#endif
    Path path;
    ASSERT_TRUE(path.CreateFromFullPath((drive + "/a/\x83\x5Cg/x\x83\x5C.txt").c_str()));
    EXPECT_EQ(path.parts(), drive + "|/a/\x83\x5Cg|x\x83\x5C.txt");
    EXPECT_EQ(path.QueryDirectoryName(), "\\a\\\x83\x5Cg");
    EXPECT_EQ(path.MakeFullPath(false), (drive + "\\a\\\x83\x5Cg\\x\x83\x5C.txt").c_str());
}
