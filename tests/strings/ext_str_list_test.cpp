#include "orvil/strings/ext_str_list.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdio>
#include <iterator>
#include <list>
#include <random>
#include <string>

#include "orvil/strings/ext_str_array.h"
#include "support/temp_dir.h"

namespace {

using orvil::test::read_file;
using orvil::test::TempDir;

constexpr const char* kEnd = nullptr;  // ends a list of arguments

#ifdef _WIN32
constexpr const char* kLineEnd = "\r\n";
#else
constexpr const char* kLineEnd = "\n";
#endif

class ListProbe : public CExtStrList {
public:
    using CExtStrList::count_;
    using CExtStrList::FreeNode;
    using CExtStrList::head_;
    using CExtStrList::NewNode;
    using CExtStrList::tail_;
};

// The texts in brackets, walked from the head; the walk from the tail must give the same, and both the count.
std::string show(const CExtStrList& list) {
    std::string forth;
    std::string back;
    int count = 0;
    for (__pos* pos = list.GetHeadPosition(); pos != nullptr; ++count) {
        forth += std::string("[") + list.GetNext(pos) + "]";
    }
    for (__pos* pos = list.GetTailPosition(); pos != nullptr;) {
        back.insert(0, std::string("[") + list.GetPrev(pos) + "]");
    }
    EXPECT_EQ(forth, back);
    EXPECT_EQ(count, list.GetCount());
    return forth;
}

__pos* position(const CExtStrList& list, int i) {
    __pos* pos = list.GetHeadPosition();
    while (i-- > 0) {
        list.GetNext(pos);
    }
    return pos;
}

// --- layout ----------------------------------------------------------------------------------------------------------

TEST(ExtStrListLayout, MembersFollowTheVirtualTable) {
    ListProbe list;
    const char* start = reinterpret_cast<const char*>(static_cast<CExtStrList*>(&list));
    EXPECT_EQ(sizeof(CExtStrList), 32U);
    EXPECT_EQ(reinterpret_cast<const char*>(&list.head_) - start, 8);
    EXPECT_EQ(reinterpret_cast<const char*>(&list.tail_) - start, 16);
    EXPECT_EQ(reinterpret_cast<const char*>(&list.count_) - start, 24);
}

TEST(ExtStrListLayout, NodeIsNextPreviousValueAndItsAddressIsThePosition) {
    CExtStrList list("a", "b", kEnd);
    auto* node = reinterpret_cast<CExtStrList_ListNode*>(list.GetHeadPosition());
    EXPECT_EQ(sizeof(CExtStrList_ListNode), 40U);
    EXPECT_STREQ(node->value, "a");
    EXPECT_EQ(node->prev, nullptr);
    EXPECT_EQ(reinterpret_cast<__pos*>(node->next), list.GetTailPosition());
    EXPECT_EQ(reinterpret_cast<char*>(&node->next), reinterpret_cast<char*>(node));
    EXPECT_EQ(reinterpret_cast<char*>(&node->prev), reinterpret_cast<char*>(node) + 8);
    EXPECT_EQ(reinterpret_cast<char*>(&node->value), reinterpret_cast<char*>(node) + 16);
}

TEST(ExtStrListNode, CopiesTakeTheLinksAndADeepValue) {
    CExtStrList_ListNode other;
    EXPECT_EQ(other.next, nullptr);
    EXPECT_EQ(other.prev, nullptr);
    EXPECT_TRUE(other.value.IsEmpty());
    CExtStrList_ListNode node;
    node.next = &other;
    node.prev = &node;
    node.value = "a";
    const CExtStrList_ListNode copy(node);
    other = node;
    node.value = "changed";
    EXPECT_EQ(copy.next, &other);
    EXPECT_EQ(copy.prev, &node);
    EXPECT_STREQ(copy.value, "a");
    EXPECT_EQ(other.prev, &node);
    EXPECT_STREQ(other.value, "a");
}

TEST(ExtStrListNode, NewNodeHasTheLinksAndIsCountedButNotLinked) {
    ListProbe list;
    list.AddTail("a");
    CExtStrList_ListNode* node = list.NewNode(list.tail_, nullptr);
    EXPECT_EQ(node->prev, list.tail_);
    EXPECT_EQ(node->next, nullptr);
    EXPECT_TRUE(node->value.IsEmpty());
    EXPECT_EQ(list.GetCount(), 2);
    EXPECT_EQ(list.tail_->next, nullptr);
    EXPECT_TRUE(list.FreeNode(node));
    EXPECT_EQ(show(list), "[a]");
}

TEST(ExtStrListNode, FreeingNoNodeCountsDown) {
    ListProbe list;
    EXPECT_TRUE(list.FreeNode(nullptr));
    EXPECT_EQ(list.GetCount(), -1);
    EXPECT_TRUE(list.IsEmpty());
}

// --- construction ----------------------------------------------------------------------------------------------------

TEST(ExtStrListConstruct, NewListIsEmpty) {
    const CExtStrList list;
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(list.GetCount(), 0);
    EXPECT_EQ(list.GetHeadPosition(), nullptr);
    EXPECT_EQ(list.GetTailPosition(), nullptr);
    EXPECT_EQ(list.GetHead(), nullptr);
    EXPECT_EQ(list.GetTail(), nullptr);
}

TEST(ExtStrListConstruct, FromArgumentsUpToTheNull) {
    EXPECT_EQ(show(CExtStrList("a", "", "b", kEnd)), "[a][][b]");
    EXPECT_EQ(show(CExtStrList(kEnd)), "");
}

TEST(ExtStrListConstruct, CopyIsDeep) {
    CExtStrList source("a", "", kEnd);
    const CExtStrList copy(source);
    source.SetAt(source.GetHeadPosition(), "changed");
    EXPECT_EQ(show(copy), "[a][]");
}

TEST(ExtStrListConstruct, FromACArrayUpToTheCountOrTheNull) {
    const char* const texts[] = {"a", "", "c", nullptr, "e"};
    EXPECT_EQ(show(CExtStrList(texts, 2)), "[a][]");
    EXPECT_EQ(show(CExtStrList(texts, -1)), "[a][][c]");
    EXPECT_EQ(show(CExtStrList(texts, 99)), "[a][][c]");
    EXPECT_EQ(show(CExtStrList(texts, 0)), "");
    EXPECT_EQ(show(CExtStrList(texts + 3, 2)), "");
}

TEST(ExtStrListCreate, TextsAreAppended) {
    const char* const texts[] = {"c", nullptr};
    CExtStrList list("a", kEnd);
    EXPECT_TRUE(list.CreateFromStrings("b", "", kEnd));
    EXPECT_TRUE(list.CreateFromStrings(kEnd));
    EXPECT_TRUE(list.CreateFromStringArray(texts, 1));
    EXPECT_TRUE(list.CreateFromStringArray(texts + 1, 1));
    EXPECT_FALSE(list.CreateFromStringArray(nullptr, 1));
    EXPECT_EQ(show(list), "[a][b][][c]");
}

// --- reading ---------------------------------------------------------------------------------------------------------

TEST(ExtStrListWalk, NextOfTheTailIsItsTextAndNoPosition) {
    const CExtStrList list("a", "b", kEnd);
    __pos* pos = list.GetTailPosition();
    EXPECT_STREQ(list.GetNext(pos), "b");
    EXPECT_EQ(pos, nullptr);
    EXPECT_EQ(list.GetNext(pos), nullptr);
    EXPECT_EQ(pos, nullptr);
}

TEST(ExtStrListWalk, PreviousOfTheHeadIsItsTextAndNoPosition) {
    const CExtStrList list("a", "b", kEnd);
    __pos* pos = list.GetHeadPosition();
    EXPECT_STREQ(list.GetPrev(pos), "a");
    EXPECT_EQ(pos, nullptr);
    EXPECT_EQ(list.GetPrev(pos), nullptr);
}

TEST(ExtStrListWalk, EmptyTextIsTheStaticEmptyText) {
    const CExtStrList list("", kEnd);
    __pos* pos = list.GetHeadPosition();
    EXPECT_EQ(list.GetAt(pos), CExtString::sm_pszNull);
    EXPECT_EQ(list.GetNext(pos), CExtString::sm_pszNull);
    pos = list.GetHeadPosition();
    EXPECT_EQ(list.GetPrev(pos), CExtString::sm_pszNull);
    EXPECT_EQ(list.GetHead(), CExtString::sm_pszNull);
}

TEST(ExtStrListWalk, AtAPositionOrNone) {
    const CExtStrList list("a", "b", kEnd);
    EXPECT_STREQ(list.GetAt(list.GetTailPosition()), "b");
    EXPECT_EQ(list.GetAt(nullptr), nullptr);
    EXPECT_STREQ(list.GetHead(), "a");
    EXPECT_STREQ(list.GetTail(), "b");
}

TEST(ExtStrListPositionOf, FirstEqualText) {
    const CExtStrList list("a", "", "B", "b", "", kEnd);
    EXPECT_EQ(list.PositionOf("b"), position(list, 3));
    EXPECT_EQ(list.PositionOf("b", true), position(list, 2));
    EXPECT_EQ(list.PositionOf(""), position(list, 1));
    EXPECT_EQ(list.PositionOf(nullptr), position(list, 1));
    EXPECT_EQ(list.PositionOf("A"), nullptr);
    EXPECT_EQ(CExtStrList("a", kEnd).PositionOf(""), nullptr);
}

// --- changing --------------------------------------------------------------------------------------------------------

TEST(ExtStrListSetAt, ReplacesTheText) {
    CExtStrList list("abc", "b", kEnd);
    EXPECT_TRUE(list.SetAt(list.GetHeadPosition(), list.GetHead() + 1));
    EXPECT_TRUE(list.SetAt(list.GetTailPosition(), nullptr));
    EXPECT_FALSE(list.SetAt(nullptr, "x"));
    EXPECT_EQ(show(list), "[bc][]");
}

TEST(ExtStrListAdd, EndsGrowAndPositionsAreReturned) {
    CExtStrList list;
    __pos* b = list.AddTail("b");
    __pos* a = list.AddHead("a");
    __pos* empty = list.AddTail(static_cast<const char*>(nullptr));
    EXPECT_EQ(show(list), "[a][b][]");
    EXPECT_EQ(list.GetHeadPosition(), a);
    EXPECT_EQ(position(list, 1), b);
    EXPECT_EQ(list.GetTailPosition(), empty);
}

TEST(ExtStrListInsert, WithoutAPositionAtTheEnds) {
    CExtStrList list;
    __pos* first = list.InsertBefore(nullptr, "b");
    EXPECT_EQ(list.GetHeadPosition(), first);
    EXPECT_EQ(list.GetTailPosition(), first);
    list.InsertBefore(nullptr, "a");
    list.InsertAfter(nullptr, "c");
    EXPECT_EQ(show(list), "[a][b][c]");
    CExtStrList other;
    other.InsertAfter(nullptr, "x");
    EXPECT_EQ(show(other), "[x]");
}

TEST(ExtStrListInsert, BeforeAndAfterAnyNode) {
    CExtStrList list("b", kEnd);
    __pos* b = list.GetHeadPosition();
    EXPECT_STREQ(list.GetAt(list.InsertBefore(b, "a")), "a");
    EXPECT_STREQ(list.GetAt(list.InsertAfter(b, "d")), "d");
    list.InsertAfter(b, "c");
    list.InsertBefore(b, "ab");
    EXPECT_EQ(show(list), "[a][ab][b][c][d]");
}

TEST(ExtStrListRemove, AnyNodeAndTheEnds) {
    CExtStrList list("a", "b", "c", "d", kEnd);
    EXPECT_TRUE(list.RemoveAt(position(list, 1)));
    EXPECT_EQ(show(list), "[a][c][d]");
    EXPECT_TRUE(list.RemoveHead());
    EXPECT_TRUE(list.RemoveTail());
    EXPECT_EQ(show(list), "[c]");
    EXPECT_TRUE(list.RemoveAt(list.GetHeadPosition()));
    EXPECT_EQ(list.GetHeadPosition(), nullptr);
    EXPECT_EQ(list.GetTailPosition(), nullptr);
}

TEST(ExtStrListRemove, NothingToRemoveGivesFalse) {
    CExtStrList list;
    EXPECT_FALSE(list.RemoveHead());
    EXPECT_FALSE(list.RemoveTail());
    EXPECT_FALSE(list.RemoveAt(nullptr));
    EXPECT_EQ(list.GetCount(), 0);
}

TEST(ExtStrListRemove, OtherPositionsStayValid) {
    CExtStrList list("a", "b", "c", kEnd);
    __pos* last = list.GetTailPosition();
    list.RemoveHead();
    list.RemoveHead();
    EXPECT_STREQ(list.GetAt(last), "c");
}

TEST(ExtStrListRemove, AllLeavesAnEmptyList) {
    CExtStrList list("a", "b", kEnd);
    EXPECT_TRUE(list.RemoveAll());
    EXPECT_TRUE(list.RemoveAll());
    EXPECT_EQ(list.GetTailPosition(), nullptr);
    EXPECT_EQ(show(list), "");
}

// --- many texts ------------------------------------------------------------------------------------------------------

TEST(ExtStrListConcat, BothEndsKeepTheOrder) {
    CExtStrList list("m", kEnd);
    const CExtStrList other("a", "", "b", kEnd);
    EXPECT_TRUE(list.AddTail(other));
    EXPECT_TRUE(list.AddHead(other));
    EXPECT_TRUE(list.AddTail(CExtStrList()));
    EXPECT_TRUE(list.AddHead(CExtStrList()));
    EXPECT_EQ(show(list), "[a][][b][m][a][][b]");
}

TEST(ExtStrListConcat, ItselfIsAddedOnce) {
    CExtStrList list("a", "b", kEnd);
    EXPECT_TRUE(list.AddTail(list));
    EXPECT_EQ(show(list), "[a][b][a][b]");
    CExtStrList other("a", "b", "c", kEnd);
    EXPECT_TRUE(other.AddHead(other));
    EXPECT_EQ(show(other), "[a][b][c][a][b][c]");
}

TEST(ExtStrListCopy, ReplacesEverything) {
    CExtStrList list("x", kEnd);
    EXPECT_TRUE(list.CopyData(CExtStrList("a", "b", kEnd)));
    EXPECT_EQ(show(list), "[a][b]");
    EXPECT_EQ(&(list = CExtStrList("c", kEnd)), &list);
    EXPECT_EQ(show(list), "[c]");
}

TEST(ExtStrListCopy, OntoItselfChangesNothing) {
    CExtStrList list("a", kEnd);
    const CExtStrList& self = list;
    __pos* pos = list.GetHeadPosition();
    EXPECT_TRUE(list.CopyData(self));
    list = self;
    EXPECT_EQ(list.GetHeadPosition(), pos);
    EXPECT_EQ(show(list), "[a]");
}

TEST(ExtStrListOperators, Append) {
    CExtStrList list;
    list += "a";
    list += CExtStrList("b", "c", kEnd);
    EXPECT_EQ(show(list), "[a][b][c]");
}

TEST(ExtStrListFromArray, EmptyElementEndsTheCopy) {
    EXPECT_EQ(show(CExtStrList(CExtStrArray("a", "", "b", kEnd), 0, -1)), "[a]");
    CExtStrList list("x", kEnd);
    EXPECT_TRUE(list.CreateFromArrayObject(CExtStrArray("", "b", kEnd), 0, -1));
    EXPECT_EQ(show(list), "[x]");
}

TEST(ExtStrListFromArray, EndIsExclusiveAndRangesAreMet) {
    const CExtStrArray array("a", "b", "c", kEnd);
    EXPECT_EQ(show(CExtStrList(array, 0, 2)), "[a][b]");
    EXPECT_EQ(show(CExtStrList(array, 1, -1)), "[b][c]");
    EXPECT_EQ(show(CExtStrList(array, 1, 99)), "[b][c]");
    EXPECT_EQ(show(CExtStrList(array, 2, 2)), "");
    EXPECT_EQ(show(CExtStrList(array, 3, -1)), "");
    EXPECT_EQ(show(CExtStrList(array, -1, 3)), "");
    EXPECT_EQ(show(CExtStrList(CExtStrArray(), 0, 5)), "");
}

TEST(ExtStrListFromArray, ResultIsTrueWhateverIsCopied) {
    CExtStrList list;
    EXPECT_TRUE(list.CreateFromArrayObject(CExtStrArray(), 0, 3));
    EXPECT_TRUE(list.CreateFromArrayObject(CExtStrArray("a", kEnd), 5, 2));
    EXPECT_TRUE(list.CreateFromArrayObject(CExtStrArray("a", kEnd), 0, 0));
    EXPECT_TRUE(list.CreateFromArrayObject(CExtStrArray("a", kEnd), -3, -1));
    EXPECT_TRUE(list.CreateFromArrayObject(CExtStrArray("a", kEnd), 0, -1));
    EXPECT_EQ(show(list), "[a]");
}

std::string lines_of(const std::string& bytes, bool strip, bool cr_lf) {
    TempDir folder;
    FILE* fp = std::fopen(folder.write("lines.txt", bytes).c_str(), "rb");
    CExtStrList list("x", kEnd);
    EXPECT_FALSE(list.CreateFromStream(fp, strip, cr_lf));
    std::rewind(fp);
    const CExtStrList constructed(fp, strip, cr_lf);
    std::fclose(fp);
    EXPECT_EQ(list.GetCount(), constructed.GetCount() + 1);
    return show(list);
}

TEST(ExtStrListFromStream, LinesAreAddedAndTheResultIsFalse) {
    EXPECT_EQ(lines_of("one\r\n\nthree\n", true, false), "[x][one][][three]");
    EXPECT_EQ(lines_of("a\nb\r\n", false, true), "[x][a\r\n][b\r\n]");
    EXPECT_EQ(lines_of("", true, false), "[x]");
}

TEST(ExtStrListFromStream, LastLineWithoutALineEndIsLostBelowThirtyTwoBytes) {
    const std::string long_line(32, 'l');
    EXPECT_EQ(lines_of("a\n" + std::string(31, 's'), true, false), "[x][a]");
    EXPECT_EQ(lines_of("a\n" + long_line, true, false), "[x][a][" + long_line + "]");
    CExtStrList list;
    EXPECT_FALSE(list.CreateFromStream(nullptr, true, false));
}

// --- joining ---------------------------------------------------------------------------------------------------------

TEST(ExtStrListJoin, SeparatorStandsOnlyBehindSomething) {
    const CExtStrList list("", "a", "", "b", kEnd);
    EXPECT_STREQ(list.Join(","), "a,,b");
    EXPECT_STREQ(list.Join(""), "ab");
    EXPECT_STREQ(list.Join(nullptr), "ab");
    EXPECT_STREQ(CExtStrList("a", "", kEnd).Join(", "), "a, ");
    EXPECT_STREQ(CExtStrList().Join(","), "");
}

TEST(ExtStrListJoin, CombinedStringReplacesTheOutput) {
    CExtString out = "before";
    EXPECT_TRUE(CExtStrList("a", "", "bc", kEnd).MakeCombinedString(out));
    EXPECT_STREQ(out, "abc");
    EXPECT_TRUE(CExtStrList().MakeCombinedString(out));
    EXPECT_STREQ(out, "");
}

TEST(ExtStrListFile, LinesOrSeparatorsAndNothingForAnEmptyText) {
    TempDir folder;
    const std::string path = folder.path("out.txt");
    const CExtStrList list("a", "", "b\n", kEnd);
    const std::string end = kLineEnd;
    EXPECT_TRUE(list.WriteJoinedFile(path.c_str(), nullptr));
    EXPECT_EQ(read_file(path), "a" + end + end + "b" + end + end);
    EXPECT_TRUE(list.WriteJoinedFile(path.c_str(), ""));
    EXPECT_EQ(read_file(path), "a" + end + end + "b" + end + end);
    EXPECT_TRUE(list.WriteJoinedFile(path.c_str(), ","));
    EXPECT_EQ(read_file(path), "a,,b" + end + ",");
}

TEST(ExtStrListFile, EmptyListMakesAnEmptyFileAndABadPathNone) {
    TempDir folder;
    const std::string path = folder.write("out.txt", "former");
    EXPECT_TRUE(CExtStrList().WriteJoinedFile(path.c_str(), ","));
    EXPECT_EQ(read_file(path), "");
    EXPECT_FALSE(CExtStrList().WriteJoinedFile(folder.path("none/out.txt").c_str(), ","));
    EXPECT_FALSE(CExtStrList().WriteJoinedFile(nullptr, ","));
}

// --- model -----------------------------------------------------------------------------------------------------------

void random_step(CExtStrList& list, std::list<std::string>& model, std::mt19937& random) {
    const std::string text = random() % 4 == 0 ? "" : std::to_string(random() % 50);
    const auto i = static_cast<int>(random() % (model.size() + 1));
    const bool in_range = i < static_cast<int>(model.size());
    const auto at = std::next(model.begin(), i);
    __pos* pos = position(list, i);
    switch (random() % 7) {
        case 0:
            list.AddHead(text.c_str());
            model.push_front(text);
            break;
        case 1:
            list.AddTail(text.c_str());
            model.push_back(text);
            break;
        case 2:
            list.InsertBefore(pos, text.c_str());
            model.insert(in_range ? at : model.begin(), text);
            break;
        case 3:
            list.InsertAfter(pos, text.c_str());
            model.insert(in_range ? std::next(at) : model.end(), text);
            break;
        case 4:
        case 5:
            ASSERT_EQ(list.RemoveAt(pos), in_range);
            if (in_range) {
                model.erase(at);
            }
            break;
        default:
            ASSERT_EQ(list.SetAt(pos, text.c_str()), in_range);
            if (in_range) {
                *at = text;
            }
    }
}

TEST(ExtStrListModel, RandomStepsAgreeWithAList) {
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    CExtStrList list;
    std::list<std::string> model;
    for (int step = 0; step < 3000 && !testing::Test::HasFatalFailure(); ++step) {
        random_step(list, model, random);
        std::string expected;
        for (const std::string& text : model) {
            expected += "[" + text + "]";
        }
        ASSERT_EQ(show(list), expected);
    }
}

}  // namespace
