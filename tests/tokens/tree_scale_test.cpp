// Files nested a million deep, blocks of many entries, tokens of many megabytes, and random bytes.
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <random>
#include <string>

#include "support/small_stack.h"
#include "tokens/tree_support.h"

namespace orvil::test {
namespace {

constexpr int kDepth = 1000000;

std::string repeated(const std::string& piece, int count) {
    std::string result;
    result.reserve(piece.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        result += piece;
    }
    return result;
}

// The number of blocks from the last entry of the root inwards.
int depth_of(const CLexTokenBlock& root) {
    int depth = 0;
    const CLexTokenBlock* node = &root;
    for (;;) {
        const CLexTokenBlock* inner = nullptr;
        for (int i = 0; i < node->GetBlockCount(); ++i) {
            inner = node->GetAt(i)->IsBlockType() ? node->GetAt(i) : inner;
        }
        if (inner == nullptr) {
            return depth;
        }
        node = inner;
        ++depth;
    }
}

// What a million levels are written as, without indentation, behind the line of the root.
std::string written_blocks(int depth, const std::string& innermost) {
    return "\r\n" + repeated("\r\nx {\r\n", depth) + innermost + repeated("}\r\n", depth);
}

void expect_deep_file_is_handled_whole() {
    const TempDir folder;
    const std::string path =
        folder.write("deep.txt", repeated("x{", kDepth) + "y = 7;" + repeated("}", kDepth) + "z = 8;");
    CLexTokenBlock root;
    ASSERT_TRUE(bt_input_file(path.c_str(), root));
    ASSERT_EQ(depth_of(root), kDepth);
    ASSERT_EQ(root.GetBlockCount(), 2);

    int value = 0;
    EXPECT_TRUE(bt_get_block_assign(root, "y", value) && value == 7);
    EXPECT_TRUE(bt_get_block_assign(root, "z", value) && value == 8);
    EXPECT_FALSE(bt_get_block_assign(root, "none", value));

    CLexTokenBlock copy(root);
    ASSERT_EQ(depth_of(copy), kDepth);
    EXPECT_TRUE(root.DeleteAllBlocks());
    EXPECT_EQ(root.GetBlockCount(), 0);

    const std::string out = folder.path("out.txt");
    ASSERT_TRUE(copy.Create("", 0, 0, false, eTokenSymbol));
    ASSERT_TRUE(CTokenRegister(out.c_str(), false, 0).DoRegist(copy, false));
    EXPECT_TRUE(read_file(out) == written_blocks(kDepth, "y = 7;\r\n") + "z = 8;\r\n");
}

TEST(TreeScale, MillionDeepFileIsParsedSearchedCopiedWrittenAndFreedOnASmallStack) {
    run_on_small_stack(expect_deep_file_is_handled_whole);
}

// Deep enough to end a small stack by recursion, whatever the size of a frame.
constexpr int kBeyondRecursion = 100000;

void expect_deep_parts_are_taken_over() {
    const TempDir folder;
    CLexTokenBlock root;
    const std::string path =
        folder.write("deep.txt", repeated("x{", kBeyondRecursion) + repeated("}", kBeyondRecursion));
    ASSERT_TRUE(bt_input_file(path.c_str(), root));
    root = *root.GetAt(0);
    EXPECT_EQ(depth_of(root), kBeyondRecursion - 1);
    CLexTokenBlock target = node("", eGrammerBlock);
    EXPECT_EQ(target.AddBlock(root), 0);
    EXPECT_EQ(depth_of(target), kBeyondRecursion);
    const std::unique_ptr<CLexTokenBlock> copy(target.GetAt(0)->GetCopy());
    EXPECT_EQ(depth_of(*copy), kBeyondRecursion - 1);
    CLexTokenBlock closed = empty_block("Outer");
    EXPECT_EQ(closed.InsertBlockEntityBlock(*copy), 1);
    EXPECT_EQ(depth_of(closed), kBeyondRecursion);
}

TEST(TreeScale, DeepPartsAreAssignedAddedInsertedAndTakenFromTheirOwnTree) {
    run_on_small_stack(expect_deep_parts_are_taken_over);
}

void expect_cut_off_files_are_handled() {
    const TempDir folder;
    CLexTokenBlock root;
    const std::string blocks = repeated("x{", kBeyondRecursion);
    ASSERT_TRUE(bt_input_file(folder.write("in.txt", blocks).c_str(), root));
    EXPECT_EQ(depth_of(root), kBeyondRecursion);
    ASSERT_TRUE(bt_input_file(folder.write("in.txt", blocks + "\n").c_str(), root));
    EXPECT_EQ(depth_of(root), kBeyondRecursion - 1);
    ASSERT_TRUE(bt_input_file(folder.write("in.txt", blocks + "y = 1\n").c_str(), root));
    EXPECT_EQ(depth_of(root), kBeyondRecursion - 1);
}

TEST(TreeScale, DeepFileThatIsCutOffKeepsWhatTheRulesKeep) {
    run_on_small_stack(expect_cut_off_files_are_handled);
}

void expect_faults_are_handled() {
    const TempDir folder;
    CLexTokenBlock root;
    const std::string faults = repeated("left 1 ", kBeyondRecursion / 2);
    ASSERT_TRUE(bt_input_file(folder.write("in.txt", repeated("x{", kBeyondRecursion) + faults).c_str(), root));
    EXPECT_EQ(depth_of(root), 1) << "each fault drops a block with all that it holds and ends the one around it";
}

TEST(TreeScale, FaultsAtEveryLevelOfADeepFileEndTwoLevelsEach) {
    const TempDir folder;
    CLexTokenBlock root;
    ASSERT_TRUE(bt_input_file(folder.write("in.txt", "x{x{x{x{left 1 left 1 }").c_str(), root));
    EXPECT_EQ(describe(root), "B 0:[B n:x[m:{] m:}]");
    run_on_small_stack(expect_faults_are_handled);
}

void expect_deep_dump_has_its_size(int depth) {
    CLexTokenBlock root = node("x", eGrammerBlock);
    CLexTokenBlock* innermost = &root;
    for (int i = 1; i < depth; ++i) {
        innermost->AddBlock(node("x", eGrammerBlock));
        innermost = innermost->GetAt(0);
    }
    CExtString out;
    root.MakeDumpString(out, 0);
    const std::int64_t line = 40 + 1 + static_cast<std::int64_t>(std::string("x { ... Token(1) ... }\n").size());
    EXPECT_EQ(out.GetLength(), std::int64_t{4} * depth * (depth + 1) + depth * line);
}

TEST(TreeScale, DumpOfADeepTreeIsQuadraticInItsDepthOnly) {
    run_on_small_stack([] { expect_deep_dump_has_its_size(3000); });
}

// Quadratic work on this many entries would take minutes.
TEST(TreeScale, ManyEntriesInOneBlockTakeLinearTime) {
    constexpr int kEntries = 200000;
    const auto start = std::chrono::steady_clock::now();
    CLexTokenBlock block = empty_block("Wide");
    for (int i = 0; i < kEntries; ++i) {
        ASSERT_TRUE(bt_add_block_assign(block, "name", i));
    }
    CLexTokenBlock root = node("", eGrammerBlock);
    ASSERT_EQ(root.AddBlock(block), 0);
    const TempDir folder;
    const std::string path = folder.path("wide.txt");
    ASSERT_TRUE(CTokenRegister(path.c_str(), true, 4).DoRegist(root, false));
    CLexTokenBlock read;
    ASSERT_TRUE(bt_input_file(path.c_str(), read));
    EXPECT_EQ(read.GetAt(0)->GetBlockCount(), kEntries + 2);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(40));
}

TEST(TreeScale, ManyStraysTakeLinearTime) {
    const auto start = std::chrono::steady_clock::now();
    const TempDir folder;
    CLexTokenBlock root;
    CExtString message;
    ASSERT_TRUE(bt_input_file(folder.write("in.txt", repeated(";}", 300000)).c_str(), root, message));
    EXPECT_EQ(root.GetBlockCount(), 600000);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(40));
}

TEST(TreeScale, TokenOfAHundredMegabytesIsReadAndWritten) {
    constexpr int kLength = 100 * 1000 * 1000;
    const TempDir folder;
    const std::string path = folder.path("out.txt");
    {
        CLexTokenBlock root = node("", eGrammerBlock);
        CLexTokenBlock value;
        ASSERT_TRUE(value.SetupAssignmentString("x", std::string(kLength, 'q').c_str()));
        ASSERT_EQ(root.AddBlock(value), 0);
        ASSERT_TRUE(CTokenRegister(path.c_str(), true, 4).DoRegist(root, false));
    }
    CLexTokenBlock root;
    ASSERT_TRUE(bt_input_file(path.c_str(), root));
    EXPECT_EQ(root.GetAt(0)->GetAt(1)->GetPureString().GetLength(), kLength);
}

TEST(TreeScale, RandomBytesAlwaysEnd) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const TempDir folder;
    static const std::string kUsual = "xyz= {};'\"\\/*#\n 019.";
    for (int round = 0; round < 200; ++round) {
        std::string bytes(random() % 5000, '\0');
        for (char& c : bytes) {
            c = round % 2 == 0 ? static_cast<char>(random() & 0xFF) : kUsual[random() % kUsual.size()];
        }
        const std::string path = folder.write("in.txt", bytes);
        for (const bool keep_comments : {false, true}) {
            CTokenParser parser(path.c_str(), keep_comments);
            CLexTokenBlock root;
            const bool result = parser.DoParse(root);
            EXPECT_EQ(root.IsBlockType(), result);
            EXPECT_TRUE(parents_are_right(root));
        }
    }
}

}  // namespace
}  // namespace orvil::test
