// String arrays made from, or extended by, other collections.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "orvil/strings/ext_str_array.h"
#include "orvil/strings/ext_str_list.h"
#include "support/array_probe.h"
#include "support/temp_dir.h"

namespace {

using orvil::test::ArrayProbe;
using orvil::test::show;
using orvil::test::TempDir;

constexpr const char* kEnd = nullptr;  // ends a list of arguments

// --- construction ----------------------------------------------------------------------------------------------------

TEST(ExtStrArrayConstruct, FromArgumentsUpToTheNull) {
    EXPECT_EQ(show(CExtStrArray("a", "", "b", kEnd)), "[a][~][b]");
    EXPECT_EQ(show(CExtStrArray(kEnd)), "");
}

TEST(ExtStrArrayConstruct, CopyIsDeepAndKeepsEmptySlots) {
    ArrayProbe source({"a", "", "b"});
    ArrayProbe copy(static_cast<const ArrayProbe&>(source));
    EXPECT_EQ(show(copy), "[a][~][b]");
    EXPECT_NE(copy.slots_[0], source.slots_[0]);
    source.SetAt(0, "changed");
    EXPECT_STREQ(copy[0], "a");
}

TEST(ExtStrArrayConstruct, FromACArrayUpToTheCountOrTheNull) {
    const char* const texts[] = {"a", "", "c", nullptr, "e"};
    EXPECT_EQ(show(CExtStrArray(texts, 2)), "[a][~]");
    EXPECT_EQ(show(CExtStrArray(texts, -1)), "[a][~][c]");
    EXPECT_EQ(show(CExtStrArray(texts, 99)), "[a][~][c]");
    EXPECT_EQ(show(CExtStrArray(texts, 0)), "");
    EXPECT_EQ(show(CExtStrArray(texts + 3, 2)), "");
    EXPECT_EQ(show(CExtStrArray(static_cast<const char* const*>(nullptr), 2)), "");
}

TEST(ExtStrArrayCreate, FromStringsKeepsWhatIsThere) {
    CExtStrArray array("a", kEnd);
    EXPECT_TRUE(array.CreateFromStrings("b", "", "c", kEnd));
    EXPECT_TRUE(array.CreateFromStrings(kEnd));
    EXPECT_EQ(show(array), "[a][b][~][c]");
}

TEST(ExtStrArrayCreate, FromStringArrayKeepsWhatIsThere) {
    const char* const texts[] = {"b", "c", nullptr};
    CExtStrArray array("a", kEnd);
    EXPECT_FALSE(array.CreateFromStringArray(nullptr, 1));
    EXPECT_TRUE(array.CreateFromStringArray(texts + 2, 1));
    EXPECT_TRUE(array.CreateFromStringArray(texts, 1));
    EXPECT_TRUE(array.CreateFromStringArray(texts, -3));
    EXPECT_EQ(show(array), "[a][b][b][c]");
}

// --- many elements ---------------------------------------------------------------------------------------------------

TEST(ExtStrArrayConcat, AppendsEveryElement) {
    CExtStrArray array("a", kEnd);
    EXPECT_TRUE(array.ConcatArray(CExtStrArray("b", "", kEnd)));
    EXPECT_TRUE(array.ConcatArray(CExtStrArray()));
    EXPECT_EQ(show(array), "[a][b][~]");
}

TEST(ExtStrArrayConcat, AppendsItselfOnce) {
    CExtStrArray array("a", "", "c", kEnd);
    EXPECT_TRUE(array.ConcatArray(array));
    EXPECT_EQ(show(array), "[a][~][c][a][~][c]");
}

TEST(ExtStrArrayInsertArray, FillsTheGap) {
    CExtStrArray array("a", "b", kEnd);
    EXPECT_TRUE(array.InsertArray(1, CExtStrArray("x", "", "y", kEnd)));
    EXPECT_EQ(show(array), "[a][x][~][y][b]");
    EXPECT_TRUE(array.InsertArray(0, CExtStrArray()));
    EXPECT_EQ(array.GetSize(), 5);
}

TEST(ExtStrArrayInsertArray, AtTheEndIsRefused) {
    CExtStrArray array("a", kEnd);
    const CExtStrArray other("x", kEnd);
    EXPECT_FALSE(array.InsertArray(1, other));
    EXPECT_FALSE(array.InsertArray(-1, other));
    EXPECT_FALSE(CExtStrArray().InsertArray(0, other));
}

TEST(ExtStrArrayInsertArray, InsertsItselfAtAnyIndex) {
    for (int i = 0; i < 3; ++i) {
        CExtStrArray array("a", "", "c", kEnd);
        const CExtStrArray copy(array);
        CExtStrArray expected(array);
        expected.InsertArray(i, copy);
        EXPECT_TRUE(array.InsertArray(i, array));
        EXPECT_EQ(show(array), show(expected)) << i;
    }
    CExtStrArray array("a", "", "c", kEnd);
    array.InsertArray(1, array);
    EXPECT_EQ(show(array), "[a][a][~][c][~][c]");
}

TEST(ExtStrArrayCopy, ReplacesEverythingWithTheStatedCapacity) {
    ArrayProbe array({"x", "y"});
    array.ResizeArray(100);
    EXPECT_TRUE(array.CopyData(CExtStrArray("a", "", kEnd)));
    EXPECT_EQ(show(array), "[a][~]");
    EXPECT_EQ(array.capacity_, 16);
    EXPECT_TRUE(array.CopyData(CExtStrArray()));
    EXPECT_EQ(array.slots_, nullptr);
}

TEST(ExtStrArrayCopy, OntoItselfChangesNothing) {
    CExtStrArray array("a", kEnd);
    const CExtStrArray& self = array;
    EXPECT_TRUE(array.CopyData(self));
    EXPECT_EQ(&(array = self), &array);
    EXPECT_EQ(show(array), "[a]");
}

TEST(ExtStrArrayCopy, AssignmentCopiesDeeply) {
    CExtStrArray source("a", kEnd);
    CExtStrArray array("x", "y", kEnd);
    array = source;
    source.SetAt(0, "changed");
    EXPECT_EQ(show(array), "[a]");
}

// --- from a list -----------------------------------------------------------------------------------------------------

TEST(ExtStrArrayFromList, OneOrTwoTextsAreCopiedWhole) {
    EXPECT_EQ(show(CExtStrArray(CExtStrList("a", kEnd), nullptr, nullptr)), "[a]");
    EXPECT_EQ(show(CExtStrArray(CExtStrList("a", "b", kEnd), nullptr, nullptr)), "[a][b]");
    EXPECT_EQ(show(CExtStrArray(CExtStrList("a", "", kEnd), nullptr, nullptr)), "[a][~]");
}

TEST(ExtStrArrayFromList, OfThreeOrMoreOnlyTheFirstIsCopied) {
    CExtStrArray array("x", kEnd);
    EXPECT_TRUE(array.CreateFromListObject(CExtStrList("a", "b", "c", kEnd), nullptr, nullptr));
    EXPECT_EQ(show(array), "[x][a]");
}

TEST(ExtStrArrayFromList, WalkGoesOnOnlyOntoTheEndNode) {
    CExtStrList list("a", "b", "c", "d", kEnd);
    __pos* second = list.GetHeadPosition();
    list.GetNext(second);
    __pos* third = second;
    list.GetNext(third);
    EXPECT_EQ(show(CExtStrArray(list, second, third)), "[b][c]");
    EXPECT_EQ(show(CExtStrArray(list, second, nullptr)), "[b]");
    EXPECT_EQ(show(CExtStrArray(list, third, nullptr)), "[c][d]");
    EXPECT_EQ(show(CExtStrArray(list, second, second)), "[b]");
    EXPECT_EQ(show(CExtStrArray(list, third, second)), "[c]");
    EXPECT_EQ(show(CExtStrArray(list, nullptr, second)), "[a][b]");
    EXPECT_EQ(show(CExtStrArray(list, list.GetTailPosition(), nullptr)), "[d]");
}

TEST(ExtStrArrayFromList, EmptyListIsRefusedAtOnce) {
    CExtStrArray array;
    EXPECT_FALSE(array.CreateFromListObject(CExtStrList(), nullptr, nullptr));
    EXPECT_TRUE(array.IsEmpty());
}

// --- from a stream ---------------------------------------------------------------------------------------------------

struct StreamResult {
    bool created;
    std::string content;
};

StreamResult lines_of(const std::string& bytes, bool strip, bool cr_lf) {
    TempDir folder;
    FILE* fp = std::fopen(folder.write("lines.txt", bytes).c_str(), "rb");
    CExtStrArray array("x", kEnd);
    const bool created = array.CreateFromStream(fp, strip, cr_lf);
    std::fclose(fp);
    return {created, show(array)};
}

TEST(ExtStrArrayFromStream, EachLineIsAnElementAndAnEmptyLineAnEmptySlot) {
    const StreamResult result = lines_of("one\r\n\ntwo\n", true, false);
    EXPECT_TRUE(result.created);
    EXPECT_EQ(result.content, "[x][one][~][two]");
}

TEST(ExtStrArrayFromStream, FlagsArePassedOn) {
    EXPECT_EQ(lines_of("a\nb\r\n", false, false).content, "[x][a\n][b\n]");
    EXPECT_EQ(lines_of("a\nb\r\n", false, true).content, "[x][a\r\n][b\r\n]");
}

TEST(ExtStrArrayFromStream, LastLineWithoutALineEndIsLostBelowThirtyTwoBytes) {
    const std::string short_line(31, 's');
    const std::string long_line(32, 'l');
    EXPECT_EQ(lines_of("a\n" + short_line, true, false).content, "[x][a]");
    EXPECT_EQ(lines_of("a\n" + long_line, true, false).content, "[x][a][" + long_line + "]");
    EXPECT_TRUE(lines_of(long_line, true, false).created);
    EXPECT_FALSE(lines_of(short_line, true, false).created);
}

TEST(ExtStrArrayFromStream, NothingToReadGivesFalse) {
    EXPECT_FALSE(lines_of("", true, false).created);
    CExtStrArray array;
    EXPECT_FALSE(array.CreateFromStream(nullptr, true, false));
    TempDir folder;
    FILE* fp = std::fopen(folder.write("lines.txt", "a\n").c_str(), "rb");
    while (std::fgetc(fp) != EOF) {
    }
    EXPECT_FALSE(array.CreateFromStream(fp, true, false));
    EXPECT_TRUE(CExtStrArray(fp, true, false).IsEmpty());
    std::rewind(fp);
    EXPECT_EQ(show(CExtStrArray(fp, true, false)), "[a]");
    std::fclose(fp);
}

}  // namespace
