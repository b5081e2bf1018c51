// Texts of parsed nodes that are replaced, grown, copied and released. Short ones need no block of their own, and
// nothing of that shows.
#include <gtest/gtest.h>

#include <string>

#include "orvil/runtime/heap.h"
#include "tokens/tree_support.h"

namespace orvil::test {
namespace {

const std::string kLong(5000, 'x');

class NodeText : public testing::Test {
protected:
    void parse(const std::string& text) {
        const TempDir folder;
        ASSERT_TRUE(bt_input_file(folder.write("file.cfg", text).c_str(), root_));
    }

    // The first child of the first entry.
    CLexTokenBlock& leaf() { return *root_.GetAt(0)->GetAt(1); }

    CLexTokenBlock root_;
};

TEST_F(NodeText, TextsOfEveryLengthAreRead) {
    std::string file = "key = ";
    std::string expected = "B 0:[A n:key[m:= ";
    for (std::size_t length = 1; length <= 40; ++length) {
        const std::string word = "w" + std::string(length - 1, 'y');
        file += word + " \"" + word + "\" ";
        expected += "n:" + word + " s:" + word + " ";
    }
    EXPECT_EQ(parsed_tree(file + ";"), expected + "m:;]]");
}

TEST_F(NodeText, AShortTextIsReplacedByALongOneAndBack) {
    parse("key = x;");
    CLexTokenBlock& value = leaf();
    ASSERT_TRUE(value.Create(kLong.c_str(), 1, 2, false, eTokenString));
    EXPECT_EQ(kLong, value.GetString());
    ASSERT_TRUE(value.Create("y", 1, 2, false, eTokenSymbol));
    EXPECT_STREQ(value.GetString(), "y");
    ASSERT_TRUE(value.Initialize());
    EXPECT_STREQ(value.GetString(), "");
    EXPECT_EQ(describe(root_), "B 0:[A n:key[m:= 0: m:;]]");
}

TEST_F(NodeText, TheTextOfANodeIsCopiedIntoAnother) {
    parse("key = seven77 eight888;");
    CLexTokenBlock& shorter = *root_.GetAt(0)->GetAt(1);
    CLexTokenBlock& longer = *root_.GetAt(0)->GetAt(2);
    const CLexToken kept(shorter);
    static_cast<CLexToken&>(shorter) = longer;
    static_cast<CLexToken&>(longer) = kept;
    EXPECT_EQ(describe(root_), "B 0:[A n:key[m:= n:eight888 n:seven77 m:;]]");
}

TEST_F(NodeText, AParsedNodeTakesTheContentOfAnother) {
    parse("key = 1; View { inner = 2; }");
    CLexTokenBlock& view = *root_.GetAt(1);
    const CLexTokenBlock copy(view);
    view = *root_.GetAt(0);
    *root_.GetAt(0) = copy;
    EXPECT_EQ(describe(root_), "B 0:[B n:View[m:{ A n:inner[m:= d:2 m:;] m:}] A n:key[m:= d:1 m:;]]");
    EXPECT_TRUE(parents_are_right(root_));
}

TEST_F(NodeText, AParsedNodeBecomesAnAssignment) {
    parse("key = 1;");
    ASSERT_TRUE(leaf().SetupAssignmentString("Title", kLong.c_str()));
    EXPECT_EQ(describe(root_), "B 0:[A n:key[m:= A! n:Title[m:= s:" + kLong + " m:;] m:;]]");
}

TEST_F(NodeText, ACopyOutlivesTheTree) {
    parse("key = x zzzzzzzzzzzzzzzz;");
    const CLexTokenBlock copy(root_);
    root_.DeleteAllBlocks();
    EXPECT_EQ(describe(copy), "B 0:[A n:key[m:= n:x n:zzzzzzzzzzzzzzzz m:;]]");
}

// How far reading `count` values of one letter raises the high-water mark of the books, which a text large enough
// reaches before.
std::uint64_t raised_by_values(int count) {
    static int fillers = 0;
    const CExtString filler('x', ++fillers << 20);
    const std::uint64_t before = st_dwMostLargeSize;
    std::string text = "key = ";
    for (int i = 0; i < count; ++i) {
        text += "x ";
    }
    const TempDir folder;
    CLexTokenBlock root;
    EXPECT_TRUE(bt_input_file(folder.write("file.cfg", text + ";").c_str(), root));
    return st_dwMostLargeSize - before;
}

TEST_F(NodeText, TheBooksCountAShortTextAsABufferOfEightBytesAndATerminator) {
    raised_by_values(1);
    const std::uint64_t some = raised_by_values(1000);
    EXPECT_EQ(raised_by_values(3000) - some, 2000U * 9U);
}

}  // namespace
}  // namespace orvil::test
