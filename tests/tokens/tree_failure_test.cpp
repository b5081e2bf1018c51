// Every allocating operation of trees, parser and writer with its 1st, 2nd, ... allocation refused.
#include <gtest/gtest.h>

#include <memory>

#include "platform/platform.h"
#include "support/failing_allocator.h"
#include "tokens/tree_support.h"

namespace orvil::test {
namespace {

// Compares without allocating.
bool same(const CLexTokenBlock& a, const CLexTokenBlock& b) {
    if (a.GetTokenKind() != b.GetTokenKind() || a.GetPureString() != b.GetPureString() ||
        a.QueryGrammerType() != b.QueryGrammerType() || a.IsNoWriteDelimiter() != b.IsNoWriteDelimiter() ||
        a.GetBlockCount() != b.GetBlockCount()) {
        return false;
    }
    for (int i = 0; i < a.GetBlockCount(); ++i) {
        if (a.GetAt(i)->GetParentBlock() != &a || !same(*a.GetAt(i), *b.GetAt(i))) {
            return false;
        }
    }
    return true;
}

// Deeper than what the library's stacks hold within themselves.
CLexTokenBlock deep_sample() {
    CLexTokenBlock block = empty_block("Inner");
    block.InsertBlockEntityBlock(assignment("x", 1));
    for (int i = 0; i < 30; ++i) {
        CLexTokenBlock outer = empty_block("Outer");
        outer.InsertBlockEntityBlock(block);
        block = outer;
    }
    return block;
}

TEST(TreeFailure, CopiesAreWholeOrDoNotHappen) {
    const CLexTokenBlock source = deep_sample();
    const CLexTokenBlock fresh;
    sweep_allocation_failures([&](auto failed) {
        CLexTokenBlock copy(source);
        EXPECT_TRUE(same(copy, source) || (failed() && same(copy, fresh)));
        const std::unique_ptr<CLexTokenBlock> heap(source.GetCopy());
        EXPECT_TRUE(heap == nullptr ? failed() : same(*heap, source));
    });
}

TEST(TreeFailure, CopyDataLeavesTheTargetAsItWas) {
    const CLexTokenBlock source = deep_sample();
    const CLexTokenBlock old = assignment("old", 2);
    CLexTokenBlock target(old);
    sweep_allocation_failures([&](auto failed) {
        const bool copied = target.CopyData(source);
        EXPECT_TRUE(copied ? same(target, source) : failed() && (same(target, old) || same(target, source)));
        target.CopyData(old);
    });
}

TEST(TreeFailure, AddingAndInsertingLeaveTheNodeAsItWas) {
    const CLexTokenBlock entry = assignment("x", 1);
    const CLexTokenBlock closed = empty_block("View");
    const CLexTokenBlock fresh;
    sweep_allocation_failures([&](auto failed) {
        CLexTokenBlock open;
        const int added = open.AddBlock(entry);
        EXPECT_TRUE(added == 0 || (failed() && same(open, fresh)));
        const int before = open.GetBlockCount();
        EXPECT_TRUE(open.AddToken(entry) == before || (failed() && open.GetBlockCount() == before));
        CLexTokenBlock block(closed);
        const bool usable = block.GetBlockCount() == 2;
        const int inserted = block.InsertBlockEntityBlock(entry);
        EXPECT_TRUE(inserted == 1 || (failed() && (!usable || same(block, closed))));
        EXPECT_TRUE(bt_add_block_assign(block, "y", "text", true) || failed());
        EXPECT_TRUE(bt_add_listing_item(open, 1.5) || failed());
    });
}

TEST(TreeFailure, FormsAreMadeWholeOrTheNodeIsClearedAndOpen) {
    const CLexTokenBlock fresh;
    sweep_allocation_failures([&](auto failed) {
        CLexTokenBlock block;
        EXPECT_TRUE(block.SetupBlockTypeFactor("View") || (failed() && same(block, fresh)));
        CLexTokenBlock value;
        EXPECT_TRUE(value.SetupAssignmentDouble("x", 1e300, "%.6lf") || (failed() && same(value, fresh)));
        EXPECT_TRUE(!value.IsInvalidType() || value.AddToken(fresh) == 0 || failed());
    });
}

TEST(TreeFailure, MasterBlockIsMadeWholeOrNotAtAll) {
    CLexTokenBlock expected;
    ASSERT_TRUE(bt_make_master_block(expected, "view.txt", "a\nlonger line"));
    const CLexTokenBlock old = assignment("old", 2);
    CLexTokenBlock block(old);
    sweep_allocation_failures([&](auto failed) {
        const bool made = bt_make_master_block(block, "view.txt", "a\nlonger line");
        EXPECT_TRUE(made ? same(block, expected) : failed());
    });
}

TEST(TreeFailure, ParseIsTrueForTheWholeTreeOnly) {
    const TempDir folder;
    std::string text =
        "#one\nView { x = 1; Grid { y = 'a\\tb' 2 ; } 3 } ; /* c */ long_name = 'a text of some length'; ";
    for (int i = 0; i < 30; ++i) {
        text += "Level {";
    }
    for (int i = 0; i < 30; ++i) {
        text += "}";
    }
    const std::string path = folder.write("in.txt", text);
    CLexTokenBlock expected;
    ASSERT_TRUE(bt_input_file(path.c_str(), expected));
    sweep_allocation_failures([&](auto failed) {
        CLexTokenBlock root;
        CExtString message;
        const bool read = bt_input_file(path.c_str(), root, message);
        EXPECT_TRUE(read ? same(root, expected) : failed());
    });
}

// Each text of the file with the messages that a refused allocation can give.
TEST(TreeFailure, ParseNamesTheTokenOrTheEntryThatCannotBeStored) {
    struct Case {
        const char* bytes;
        const char* token_message;
        const char* entry_message;
    };
    const TempDir folder;
    for (const Case& test : {Case{"x = 1;", "Memory Error. parsed[=]\n", "Memory Error. parsed [x]\n"},
                             Case{"View { }", "Memory Error. parsed[{]\n", "Memory Error. parsed [View]\n"},
                             Case{"12 ", "Memory Error. parsed[12]\n", "Memory Error. parsed[]\n"},
                             Case{"; ", "Memory Error. parsed[;]\n", "Memory Error. parsed[]\n"}}) {
        SCOPED_TRACE(test.bytes);
        const std::string path = folder.write("in.txt", test.bytes);
        bool seen_token = false;
        bool seen_entry = false;
        sweep_allocation_failures([&](auto failed) {
            CTokenParser parser(path.c_str(), false);
            CLexTokenBlock root;
            EXPECT_TRUE(parser.DoParse(root) || failed());
            seen_token = seen_token || parser.GetErrorMessage() == test.token_message;
            seen_entry = seen_entry || parser.GetErrorMessage() == test.entry_message;
        });
        EXPECT_TRUE(seen_token);
        EXPECT_TRUE(seen_entry);
    }
}

TEST(TreeFailure, ClosingCommentIsAddedOrNothingIsWritten) {
    const TempDir folder;
    const std::string path = folder.path("out.txt");
    CLexTokenBlock source = node("Root", eGrammerBlock);
    source.AddBlock(assignment("x", 1));
    const CLexTokenBlock fresh;
    sweep_allocation_failures([&](auto failed) {
        CLexTokenBlock root(source);
        const bool whole = same(root, source);
        const bool done = bt_output_file(path.c_str(), root, false);
        EXPECT_TRUE(done ? !whole || root.GetBlockCount() == 2 : failed());
    });
}

TEST(TreeFailure, WriteIsTrueForTheWholeTextOnly) {
    const TempDir folder;
    const std::string path = folder.path("out.txt");
    CLexTokenBlock root = node("Root", eGrammerBlock);
    root.AddBlock(deep_sample());
    for (int i = 0; i < 300; ++i) {
        root.AddBlock(assignment("some_name", i));
    }
    const auto expected = static_cast<std::int64_t>(written(root).size());
    sweep_allocation_failures([&](auto failed) {
        CTokenRegister writer(path.c_str(), true, 4);
        const bool done = writer.DoRegist(root, false);
        platform::FileStatus status;
        EXPECT_TRUE(done ? platform::file_status(path.c_str(), status) && status.size == expected : failed());
    });
}

TEST(TreeFailure, DescriptionsEndWhereMemoryDoes) {
    const CLexTokenBlock block = deep_sample();
    CExtString whole;
    block.MakeDumpString(whole, 0);
    sweep_allocation_failures([&](auto failed) {
        CExtString out;
        block.MakeDumpString(out, 0);
        EXPECT_TRUE(out == whole || failed());
        EXPECT_TRUE(block.QueryInformationString() == "Outer { ... Token(3) ... }" || failed());
    });
}

TEST(TreeFailure, SearchesFindNothingWithoutMemoryForTheirStack) {
    const CLexTokenBlock block = deep_sample();
    sweep_allocation_failures(
        [&](auto failed) { EXPECT_TRUE(block.FindAssignmentBlockEntity("x") != nullptr || failed()); });
}

TEST(TreeFailure, ReleasingTakesNoMemory) {
    auto block = std::make_unique<CLexTokenBlock>(deep_sample());
    CLexTokenBlock cleared(*block);
    start_counting_allocations();
    cleared.DeleteAllBlocks();
    block.reset();
    EXPECT_EQ(stop_counting_allocations(), 0);
}

}  // namespace
}  // namespace orvil::test
