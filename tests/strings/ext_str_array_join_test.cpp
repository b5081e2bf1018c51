// String arrays as one text and as a file.
#include <gtest/gtest.h>

#include <string>

#include "orvil/strings/ext_str_array.h"
#include "support/array_probe.h"
#include "support/temp_dir.h"

namespace {

using orvil::test::ArrayProbe;
using orvil::test::read_file;
using orvil::test::TempDir;

constexpr const char* kEnd = nullptr;  // ends a list of arguments

#ifdef _WIN32
constexpr const char* kLineEnd = "\r\n";
#else
constexpr const char* kLineEnd = "\n";
#endif

TEST(ExtStrArrayJoin, SeparatorStandsOnlyBehindSomething) {
    EXPECT_STREQ(CExtStrArray("", "", "a", "", "b", kEnd).Join(","), "a,,b");
    EXPECT_STREQ(CExtStrArray("a", "", "", kEnd).Join(", "), "a, , ");
    EXPECT_STREQ(CExtStrArray("", "", kEnd).Join(","), "");
    EXPECT_STREQ(CExtStrArray().Join(","), "");
}

TEST(ExtStrArrayJoin, EmptyOrNullSeparatorIsNone) {
    const CExtStrArray array("", "a", "", "b", kEnd);
    EXPECT_STREQ(array.Join(""), "ab");
    EXPECT_STREQ(array.Join(nullptr), "ab");
}

TEST(ExtStrArrayJoin, CombinedStringReplacesTheOutput) {
    CExtString out = "before";
    EXPECT_TRUE(CExtStrArray("a", "", "bc", kEnd).MakeCombinedString(out));
    EXPECT_STREQ(out, "abc");
    EXPECT_TRUE(CExtStrArray().MakeCombinedString(out));
    EXPECT_STREQ(out, "");
}

TEST(ExtStrArrayFile, WithoutASeparatorEachElementIsALine) {
    TempDir folder;
    const std::string path = folder.path("out.txt");
    const std::string expected = std::string("a") + kLineEnd + "(null)" + kLineEnd + "b" + kLineEnd + kLineEnd;
    const CExtStrArray array("a", "", "b\n", kEnd);
    EXPECT_TRUE(array.WriteJoinedFile(path.c_str(), ""));
    EXPECT_EQ(read_file(path), expected);
    EXPECT_TRUE(array.WriteJoinedFile(path.c_str(), nullptr));
    EXPECT_EQ(read_file(path), expected);
}

TEST(ExtStrArrayFile, WithASeparatorItFollowsEveryElement) {
    TempDir folder;
    const std::string path = folder.path("out.txt");
    EXPECT_TRUE(CExtStrArray("a", "", "b", kEnd).WriteJoinedFile(path.c_str(), ","));
    EXPECT_EQ(read_file(path), "a,(null),b,");
    EXPECT_TRUE(CExtStrArray("a", "b", kEnd).WriteJoinedFile(path.c_str(), ";\n"));
    EXPECT_EQ(read_file(path), std::string("a;") + kLineEnd + "b;" + kLineEnd);
}

TEST(ExtStrArrayFile, ElementWithAnEmptyTextIsWrittenAsNothing) {
    TempDir folder;
    ArrayProbe array({"a"});
    array.slots_[0]->Empty();
    EXPECT_TRUE(array.WriteJoinedFile(folder.path("out.txt").c_str(), ","));
    EXPECT_EQ(read_file(folder.path("out.txt")), ",");
}

TEST(ExtStrArrayFile, EmptyArrayMakesAnEmptyFile) {
    TempDir folder;
    const std::string path = folder.write("out.txt", "former");
    EXPECT_TRUE(CExtStrArray().WriteJoinedFile(path.c_str(), ","));
    EXPECT_EQ(read_file(path), "");
}

TEST(ExtStrArrayFile, PathThatCannotBeOpenedGivesFalse) {
    TempDir folder;
    EXPECT_FALSE(CExtStrArray("a", kEnd).WriteJoinedFile(folder.path("none/out.txt").c_str(), ","));
    EXPECT_FALSE(CExtStrArray("a", kEnd).WriteJoinedFile(nullptr, ","));
}

}  // namespace
