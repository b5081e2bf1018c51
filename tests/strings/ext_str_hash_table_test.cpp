// The table of a string hash: layout, buckets and nodes.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "hash_probe.h"
#include "orvil/runtime/heap.h"
#include "orvil/strings/ext_str_hash.h"
#include "support/array_probe.h"

namespace {

using orvil::test::HashProbe;
using orvil::test::show;

constexpr const char* kEnd = nullptr;  // ends a list of arguments

const char* text(const CExtStrHash& hash, const char* key) {
    return hash[key];
}

std::string pairs(const CExtStrHash& hash) {
    CExtStrArray array;
    EXPECT_TRUE(hash.MakeArray(array));
    return show(array);
}

// --- layout ----------------------------------------------------------------------------------------------------------

TEST(ExtStrHashLayout, MembersFollowTheVirtualTable) {
    HashProbe hash;
    const char* start = reinterpret_cast<const char*>(static_cast<CExtStrHash*>(&hash));
    EXPECT_EQ(sizeof(CExtStrHash), 40U);
    EXPECT_EQ(reinterpret_cast<const char*>(&hash.ignore_case_) - start, 8);
    EXPECT_EQ(reinterpret_cast<const char*>(&hash.count_) - start, 12);
    EXPECT_EQ(reinterpret_cast<const char*>(&hash.table_size_) - start, 16);
    EXPECT_EQ(reinterpret_cast<const char*>(&hash.buckets_) - start, 24);
    EXPECT_EQ(reinterpret_cast<const char*>(&hash.snapshot_) - start, 32);
}

TEST(ExtStrHashLayout, NodeIsNextBucketKeyLengthValue) {
    CExtStrHash_THashNode node;
    const char* start = reinterpret_cast<const char*>(&node);
    EXPECT_EQ(sizeof(node), 56U);
    EXPECT_EQ(reinterpret_cast<const char*>(&node.next) - start, 0);
    EXPECT_EQ(reinterpret_cast<const char*>(&node.bucket) - start, 8);
    EXPECT_EQ(reinterpret_cast<const char*>(&node.key) - start, 16);
    EXPECT_EQ(reinterpret_cast<const char*>(&node.key_length) - start, 24);
    EXPECT_EQ(reinterpret_cast<const char*>(&node.value) - start, 32);
}

TEST(ExtStrHashNode, StartsEmptyAndCopiesDeeply) {
    CExtStrHash_THashNode empty;
    EXPECT_EQ(empty.next, nullptr);
    EXPECT_EQ(empty.bucket, 0U);
    EXPECT_EQ(empty.key, nullptr);
    EXPECT_EQ(empty.key_length, 0U);
    EXPECT_TRUE(empty.value.IsEmpty());
    HashProbe hash;
    CExtStrHash_THashNode* node = hash.MakeItemNode("abc");
    node->value = "value";
    const CExtStrHash_THashNode copy(*node);
    empty = *node;
    EXPECT_STREQ(copy.key, "abc");
    EXPECT_NE(copy.key, node->key);
    EXPECT_EQ(copy.key_length, 3U);
    EXPECT_EQ(copy.bucket, node->bucket);
    EXPECT_STREQ(copy.value, "value");
    EXPECT_STREQ(empty.key, "abc");
    EXPECT_STREQ(empty.value, "value");
    empty = CExtStrHash_THashNode();
    EXPECT_EQ(empty.key, nullptr);
}

// --- buckets ---------------------------------------------------------------------------------------------------------

TEST(ExtStrHashBuckets, SumIsTimesThirtyThreePlusUnsignedByte) {
    const HashProbe hash;
    EXPECT_EQ(hash.CalcHashValue("a"), 97U % 37);
    EXPECT_EQ(hash.CalcHashValue("ab"), (97U * 33 + 98) % 37);
    EXPECT_EQ(hash.CalcHashValue("\x80"), 128U % 37);
    EXPECT_EQ(hash.CalcHashValue(""), 0U);
    EXPECT_EQ(hash.CalcHashValue(nullptr), 0U);
    EXPECT_EQ(hash.CalcHashValue("a long key that wraps around"), 25U);
    EXPECT_EQ(HashProbe(277).CalcHashValue("a long key that wraps around"), 56U);
}

TEST(ExtStrHashBuckets, IgnoringCaseSumsUpperCaseBytes) {
    const HashProbe hash(37, true);
    EXPECT_EQ(hash.CalcHashValue("ab"), (65U * 33 + 66) % 37);
    EXPECT_EQ(hash.CalcHashValue("A Long Key that wraps around"), 23U);
}

TEST(ExtStrHashBuckets, NoneUntilTheFirstEntryAndAfterTheLast) {
    HashProbe hash(5);
    EXPECT_EQ(hash.buckets_, nullptr);
    EXPECT_EQ(hash.table_size_, 5);
    st_dwMoreLargeSize = 0;
    EXPECT_TRUE(hash.SetAt("a", "1"));
    EXPECT_NE(hash.buckets_, nullptr);
    EXPECT_EQ(st_dwMoreLargeSize, 40U);
    EXPECT_TRUE(hash.RemoveKey("a"));
    EXPECT_EQ(hash.buckets_, nullptr);
    EXPECT_TRUE(hash.SetAt("b", "2"));
    EXPECT_STREQ(text(hash, "b"), "2");
    EXPECT_EQ(hash.table_size_, 5);
}

TEST(ExtStrHashBuckets, SizeBelowOneIsThirtySeven) {
    EXPECT_EQ(HashProbe().table_size_, 37);
    EXPECT_EQ(HashProbe(0).table_size_, 37);
    EXPECT_EQ(HashProbe(-5).table_size_, 37);
    HashProbe hash(3);
    EXPECT_TRUE(hash.InitializeHashTable(-1, true));
    EXPECT_EQ(hash.table_size_, 37);
}

TEST(ExtStrHashBuckets, NumberNeverChangesWithTheEntries) {
    HashProbe hash(3);
    for (int i = 0; i < 100; ++i) {
        hash.SetAt(i, "x");
    }
    EXPECT_EQ(hash.table_size_, 3);
    EXPECT_EQ(hash.GetCount(), 100);
    for (int i = 0; i < 100; ++i) {
        EXPECT_TRUE(hash.IsExistKey(i));
    }
}

TEST(ExtStrHashBuckets, InitializingReleasesTheEntries) {
    HashProbe hash(CExtStrHash("a", "1", "b", "2", kEnd));
    hash.OpenKeys();
    EXPECT_TRUE(hash.InitializeHashTable(7, true));
    EXPECT_EQ(hash.GetCount(), 0);
    EXPECT_EQ(hash.table_size_, 7);
    EXPECT_NE(hash.buckets_, nullptr);
    EXPECT_EQ(hash.KeyAt(0), nullptr);
    EXPECT_TRUE(hash.InitializeHashTable(9, false));
    EXPECT_EQ(hash.buckets_, nullptr);
    EXPECT_EQ(hash.table_size_, 7);
}

TEST(ExtStrHashBuckets, KeysComeByBucketAndNewestFirstInAChain) {
    CExtStrHash hash;  // buckets: o 0, p 1, a 23, < 23
    hash.SetAt("a", "1");
    hash.SetAt("p", "2");
    hash.SetAt("<", "3");
    hash.SetAt("o", "4");
    EXPECT_EQ(show(hash.Keys()), "[o][p][<][a]");
    hash.SetAt("a", "5");
    EXPECT_EQ(pairs(hash), "[o][4][p][2][<][3][a][5]");
}

// --- nodes -----------------------------------------------------------------------------------------------------------

TEST(ExtStrHashNodes, MakeItemNodeFindsOrMakes) {
    HashProbe hash;
    CExtStrHash_THashNode* node = hash.MakeItemNode("ab");
    EXPECT_STREQ(node->key, "ab");
    EXPECT_EQ(node->key_length, 2U);
    EXPECT_EQ(node->bucket, (97U * 33 + 98) % 37);
    EXPECT_TRUE(node->value.IsEmpty());
    EXPECT_EQ(hash.MakeItemNode("ab"), node);
    EXPECT_EQ(hash.GetCount(), 1);
}

TEST(ExtStrHashNodes, SearchTellsTheBucketInAnyCase) {
    HashProbe hash(CExtStrHash("a", "1", kEnd));
    std::uint32_t bucket = 99;
    EXPECT_EQ(hash.SearchNode("ab", bucket), nullptr);
    EXPECT_EQ(bucket, (97U * 33 + 98) % 37);
    EXPECT_STREQ(hash.SearchNode("a", bucket)->value, "1");
    EXPECT_EQ(bucket, 97U % 37);
    EXPECT_EQ(HashProbe().SearchNode("a", bucket), nullptr);
}

TEST(ExtStrHashNodes, NewNodeIsCountedAndFreedOneIsNot) {
    HashProbe hash;
    CExtStrHash_THashNode* node = hash.CreateNewNode();
    EXPECT_EQ(hash.GetCount(), 1);
    hash.FreeNode(node);
    EXPECT_EQ(hash.GetCount(), 0);
    hash.FreeNode(nullptr);
    EXPECT_EQ(hash.GetCount(), 0);
}

}  // namespace
