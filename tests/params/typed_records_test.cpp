// Making sets, adding and deleting records.
#include "orvil/params/typed_records.h"

#include <gtest/gtest.h>

#include <cstring>

#include "params/record_support.h"

namespace orvil::test {
namespace {

TEST(RecordSetInit, GivesAnEmptySetWithAPoolOfWholeBlocks) {
    RecordSet set(16, 8);
    EXPECT_EQ(0, vpr_count(set));
    EXPECT_EQ(8, set.set.block_size);
    EXPECT_EQ(16, set.set.pool_count);
    EXPECT_EQ(16, adl_count(&set.set.free_list));
    EXPECT_EQ(0, adl_count(&set.set.records));
    EXPECT_EQ(nullptr, set.set.tree.node);
}

struct PoolRow {
    int initial_count, block_size, expected_block, expected_pool;
};

TEST(RecordSetInit, RaisesTheBlockSizeToFourAndThePoolToEight) {
    const PoolRow rows[] = {{0, 0, 4, 8},   {-5, -5, 4, 8}, {8, 4, 4, 8},    {9, 4, 4, 12},    {0, 5, 5, 10},
                            {10, 5, 5, 10}, {11, 5, 5, 15}, {1, 20, 20, 20}, {21, 20, 20, 40}, {8, 3, 4, 8}};
    for (const PoolRow& row : rows) {
        RecordSet set(row.initial_count, row.block_size);
        EXPECT_EQ(row.expected_block, set.set.block_size) << row.initial_count << " " << row.block_size;
        EXPECT_EQ(row.expected_pool, set.set.pool_count) << row.initial_count << " " << row.block_size;
    }
}

TEST(RecordSetInit, NullGivesOne) {
    EXPECT_EQ(1, vpr_init(nullptr, 8, 8));
}

TEST(RecordSetClear, ReturnsTheRecordsToThePool) {
    RecordSet set(8, 4);
    set.with("i", 1).with("s", "text").with("d", 2.5);
    EXPECT_STREQ("1", vpr_get_str(set, "i", nullptr));  // a string in the cache goes, too
    EXPECT_EQ(0, vpr_clear(set));
    EXPECT_EQ(0, vpr_count(set));
    EXPECT_EQ("", show(set));
    EXPECT_EQ(8, set.set.pool_count);
    EXPECT_EQ(8, adl_count(&set.set.free_list));
    EXPECT_EQ(0, vpr_type(set, "i"));
}

TEST(RecordSetClear, ClearedSetTakesRecordsAgain) {
    RecordSet set(8, 4);
    for (int round = 0; round < 3; ++round) {
        set.with("b", round).with("a", "x");
        EXPECT_EQ("b=i" + std::to_string(round) + " a=sx", show(set));
        vpr_clear(set);
    }
    EXPECT_EQ(8, set.set.pool_count);
}

TEST(RecordSetDestroy, ReleasesThePoolAndLeavesAnEmptySet) {
    RecordSet set;
    set.with("i", 1).with("s", "text");
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(0, vpr_destroy(set));
        EXPECT_EQ(0, vpr_count(set));
        EXPECT_EQ(0, set.set.pool_count);
        EXPECT_EQ(nullptr, set.set.blocks);
    }
    EXPECT_EQ(0, vpr_add_int(set, "n", 4));
    EXPECT_EQ("n=i4", show(set));
    EXPECT_EQ(8, set.set.pool_count);
}

TEST(RecordSetDestroy, SetOfZerosIsAnEmptySetThatTakesNothing) {
    vpr_set_t set{};
    EXPECT_EQ(0, vpr_clear(&set));
    EXPECT_EQ(1, vpr_add_int(&set, "n", 4));
    EXPECT_EQ(1, vpr_delete(&set, "n"));
    EXPECT_EQ("", show(&set));
    EXPECT_EQ(0, vpr_copy(&set, &set));
    EXPECT_EQ(0, vpr_destroy(&set));
}

TEST(RecordSetNull, ClearAndDestroyGiveMinusOneAndCountZero) {
    EXPECT_EQ(-1, vpr_clear(nullptr));
    EXPECT_EQ(-1, vpr_destroy(nullptr));
    EXPECT_EQ(0, vpr_count(nullptr));
}

TEST(RecordAdd, TakesTheThreeTypes) {
    RecordSet set;
    const int i = -7;
    const double d = 0.25;
    EXPECT_EQ(0, vpr_add(set, "i", 'i', &i));
    EXPECT_EQ(0, vpr_add(set, "d", 'd', &d));
    EXPECT_EQ(0, vpr_add(set, "s", 's', "text"));
    EXPECT_EQ("i=i-7 d=d0.25 s=stext", show(set));
    EXPECT_EQ(3, vpr_count(set));
}

TEST(RecordAdd, CopiesNameAndString) {
    RecordSet set;
    char name[] = "name";
    char text[] = "text";
    EXPECT_EQ(0, vpr_add_str(set, name, text));
    name[0] = text[0] = '?';
    EXPECT_EQ("name=stext", show(set));
}

TEST(RecordAdd, NullStringIsEmpty) {
    RecordSet set;
    EXPECT_EQ(0, vpr_add(set, "a", 's', nullptr));
    EXPECT_EQ(0, vpr_add_str(set, "b", nullptr));
    EXPECT_EQ("a=s b=s", show(set));
}

TEST(RecordAdd, NullIntOrDoubleGivesMinusOneAndChangesNothing) {
    RecordSet set;
    set.with("n", 5);
    EXPECT_EQ(-1, vpr_add(set, "n", 'i', nullptr));
    EXPECT_EQ(-1, vpr_add(set, "n", 'd', nullptr));
    EXPECT_EQ("n=i5", show(set));
}

TEST(RecordAdd, BadArgumentsGiveMinusOne) {
    RecordSet set;
    const int v = 1;
    EXPECT_EQ(-1, vpr_add(nullptr, "n", 'i', &v));
    EXPECT_EQ(-1, vpr_add(set, nullptr, 'i', &v));
    EXPECT_EQ(-1, vpr_add(set, "", 'i', &v));
    EXPECT_EQ(-1, vpr_add(set, "", 'q', &v));
    EXPECT_EQ(-1, vpr_add_int(nullptr, "n", 1));
    EXPECT_EQ(-1, vpr_add_dbl(set, "", 1.5));
    EXPECT_EQ(-1, vpr_add_str(set, nullptr, "x"));
    EXPECT_EQ(0, vpr_count(set));
}

TEST(RecordAdd, InvalidLetterGivesOneAfterTheOldRecordIsGone) {
    const int v = 1;
    for (char letter : {'q', '\0', 'I', 'D', 'S', 'u', '\xFF'}) {
        RecordSet set;
        set.with("x", 5).with("y", 6);
        EXPECT_EQ(1, vpr_add(set, "x", letter, &v));
        EXPECT_EQ(1, vpr_add(set, "new", letter, nullptr));
        EXPECT_EQ("y=i6", show(set));
        EXPECT_EQ(1, vpr_count(set));
    }
}

TEST(RecordAdd, InvalidLetterGrowsAPoolThatIsUsedUp) {
    RecordSet set(8, 4);
    for (int i = 0; i < 8; ++i) {
        set.with(std::to_string(i).c_str(), i);
    }
    EXPECT_EQ(1, vpr_add(set, "x", 'q', nullptr));
    EXPECT_EQ(12, set.set.pool_count);
    EXPECT_EQ(8, vpr_count(set));
}

TEST(RecordAdd, ExistingNameIsReplacedAndGoesToTheEnd) {
    RecordSet set;
    set.with("n", 5).with("m", 6).with("n", 2.5);
    EXPECT_EQ('d', vpr_type(set, "n"));
    EXPECT_EQ(2, vpr_count(set));
    EXPECT_EQ("m=i6 n=d2.5", show(set));
    set.with("m", "now a string");
    EXPECT_EQ("n=d2.5 m=snow a string", show(set));
}

TEST(RecordAdd, NameAndValueMayLieInTheRecordThatIsReplaced) {
    RecordSet set;
    set.with("n", "a text of some length").with("m", 1);
    EXPECT_EQ(0, vpr_add_str(set, "n", vpr_ref_str(set, "n")));
    EXPECT_EQ("m=i1 n=sa text of some length", show(set));
    EXPECT_EQ(0, vpr_add_strf(set, "n", "<%s>", vpr_ref_str(set, "n")));
    EXPECT_EQ("m=i1 n=s<a text of some length>", show(set));
    EXPECT_EQ(0, vpr_add_str(set, "m", vpr_get_str(set, "m", nullptr)));
    EXPECT_EQ("n=s<a text of some length> m=s1", show(set));
}

TEST(RecordAdd, NameOfTheRecordItselfMayBeUsedWhileItIsVisited) {
    RecordSet set;
    set.with("a", "one").with("b", "two");
    const auto replace = [](const char* name, const __aVPRESTVITEM_t* item, void* user) {
        return vpr_add(static_cast<vpr_set_t*>(user), name, 's', item->value.s);
    };
    EXPECT_EQ(0, vpr_traverse(set, 1, replace, &set.set));
    EXPECT_EQ("a=sone b=stwo", show(set));
}

TEST(RecordAdd, NamesDifferInCaseAndInEveryByte) {
    RecordSet set;
    set.with("name", 1).with("Name", 2).with("name ", 3).with("nam", 4);
    EXPECT_EQ(4, vpr_count(set));
    EXPECT_EQ(1, vpr_ref_int(set, "name"));
    EXPECT_EQ(2, vpr_ref_int(set, "Name"));
    EXPECT_EQ(3, vpr_ref_int(set, "name "));
    EXPECT_EQ(4, vpr_ref_int(set, "nam"));
}

TEST(RecordAdd, GrowsThePoolByABlockWhenItIsUsedUp) {
    RecordSet set(8, 4);
    for (int i = 0; i < 8; ++i) {
        set.with(std::to_string(i).c_str(), i);
    }
    EXPECT_EQ(8, set.set.pool_count);
    set.with("one more", 1);
    EXPECT_EQ(12, set.set.pool_count);
    EXPECT_EQ(3, adl_count(&set.set.free_list));
    EXPECT_EQ(9, adl_count(&set.set.records));
}

TEST(RecordAddFormat, AddsThePrintedText) {
    RecordSet set;
    EXPECT_EQ(0, vpr_add_strf(set, "a", "%d-%s", 5, "x"));
    EXPECT_EQ(0, vpr_add_strf(set, "b", "plain"));
    EXPECT_EQ("a=s5-x b=splain", show(set));
}

TEST(RecordAddFormat, BadArgumentsGiveMinusOne) {
    RecordSet set;
    EXPECT_EQ(-1, vpr_add_strf(nullptr, "a", "%d", 5));
    EXPECT_EQ(-1, vpr_add_strf(set, nullptr, "%d", 5));
    EXPECT_EQ(-1, vpr_add_strf(set, "", "%d", 5));
    const char* no_format = nullptr;
    EXPECT_EQ(-1, vpr_add_strf(set, "a", no_format, 5));
    EXPECT_EQ(0, vpr_count(set));
}

TEST(RecordDelete, GivesZeroOneOrMinusOne) {
    RecordSet set;
    set.with("a", 1).with("b", "x");
    EXPECT_EQ(1, vpr_delete(set, "c"));
    EXPECT_EQ(0, vpr_delete(set, "b"));
    EXPECT_EQ(1, vpr_delete(set, "b"));
    EXPECT_EQ(-1, vpr_delete(nullptr, "a"));
    EXPECT_EQ(-1, vpr_delete(set, nullptr));
    EXPECT_EQ(-1, vpr_delete(set, ""));
    EXPECT_EQ("a=i1", show(set));
}

TEST(RecordDelete, ReturnsTheRecordToThePool) {
    RecordSet set(8, 4);
    for (int i = 0; i < 100; ++i) {
        set.with("n", "text");
        EXPECT_EQ(0, vpr_delete(set, "n"));
    }
    EXPECT_EQ(8, set.set.pool_count);
    EXPECT_EQ(8, adl_count(&set.set.free_list));
}

TEST(RecordText, AllocGivesZerosAndFreeTakesNull) {
    auto* block = static_cast<unsigned char*>(vpr_alloc(100));
    ASSERT_NE(nullptr, block);
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(0, block[i]);
    }
    vpr_free(block);
    vpr_free(nullptr);
    EXPECT_EQ(nullptr, vpr_alloc(SIZE_MAX / 2));
}

TEST(RecordText, StrdupCopies) {
    const char text[] = "text";
    char* copy = vpr_strdup(text);
    EXPECT_STREQ(text, copy);
    EXPECT_NE(text, copy);
    vpr_free(copy);
    EXPECT_EQ(nullptr, vpr_strdup(nullptr));
}

TEST(RecordText, StrfPrintsAnyLength) {
    for (int length : {0, 1, 7, 8, 513, 514, 515, 100000}) {
        const std::string expected(static_cast<std::size_t>(length), 'x');
        char* text = vpr_strf("%s%d", expected.c_str(), length);
        EXPECT_EQ(expected + std::to_string(length), text);
        vpr_free(text);
    }
}

TEST(RecordText, StrfLeavesTwoZerosBehindTheText) {
    char* text = vpr_strf("%s", "abc");
    EXPECT_EQ(0, std::memcmp("abc\0", text, 5));
    vpr_free(text);
}

TEST(RecordText, NullFormatGivesNull) {
    const char* no_format = nullptr;
    EXPECT_EQ(nullptr, vpr_strf(no_format));
}

}  // namespace
}  // namespace orvil::test
