#include "orvil/strings/ext_str_hash.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>
#include <unordered_map>

#include "orvil/runtime/heap.h"
#include "orvil/strings/ext_str_list.h"
#include "support/array_probe.h"

namespace {

using orvil::test::show;

constexpr const char* kEnd = nullptr;  // ends a list of arguments

class HashProbe : public CExtStrHash {
public:
    explicit HashProbe(int size = 37, bool ignoreCase = false) : CExtStrHash(size, ignoreCase) {}
    explicit HashProbe(const CExtStrHash& pairs) { CopyData(pairs); }

    using CExtStrHash::buckets_;
    using CExtStrHash::CalcHashValue;
    using CExtStrHash::count_;
    using CExtStrHash::CreateNewNode;
    using CExtStrHash::FreeNode;
    using CExtStrHash::ignore_case_;
    using CExtStrHash::IsExistItem;
    using CExtStrHash::IsValueExist;
    using CExtStrHash::LookupItem;
    using CExtStrHash::MakeItemNode;
    using CExtStrHash::RemoveItem;
    using CExtStrHash::SearchNode;
    using CExtStrHash::SetAtItem;
    using CExtStrHash::snapshot_;
    using CExtStrHash::table_size_;
};

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

// --- one entry -------------------------------------------------------------------------------------------------------

TEST(ExtStrHashEntry, SetAtStoresOrReplaces) {
    CExtStrHash hash;
    EXPECT_TRUE(hash.IsEmpty());
    EXPECT_TRUE(hash.SetAt("a", "1"));
    EXPECT_TRUE(hash.SetAt("a", "2"));
    EXPECT_TRUE(hash.SetAt("b", nullptr));
    EXPECT_EQ(hash.GetCount(), 2);
    EXPECT_STREQ(text(hash, "a"), "2");
    EXPECT_STREQ(text(hash, "b"), "");
    EXPECT_FALSE(hash.IsEmpty());
}

TEST(ExtStrHashEntry, LookupLeavesTheOutputAloneWhenMissing) {
    const CExtStrHash hash("a", "1", kEnd);
    CExtString value = "before";
    EXPECT_FALSE(hash.Lookup("b", value));
    EXPECT_STREQ(value, "before");
    EXPECT_TRUE(hash.Lookup("a", value));
    EXPECT_STREQ(value, "1");
    EXPECT_FALSE(CExtStrHash().Lookup("a", value));
}

TEST(ExtStrHashEntry, BracketsReadAConstantHashAndMakeEntriesInAnother) {
    CExtStrHash hash;
    EXPECT_EQ(text(hash, "a"), nullptr);
    EXPECT_EQ(hash.GetCount(), 0);
    hash["a"] = "1";
    EXPECT_STREQ(hash["a"], "1");
    EXPECT_TRUE(hash["b"].IsEmpty());
    EXPECT_EQ(hash.GetCount(), 2);
}

TEST(ExtStrHashEntry, RemoveKeyTakesAnyNodeOfAChain) {
    CExtStrHash hash(1);
    hash.SetAt("a", "1");
    hash.SetAt("b", "2");
    hash.SetAt("c", "3");
    EXPECT_TRUE(hash.RemoveKey("b"));
    EXPECT_FALSE(hash.RemoveKey("b"));
    EXPECT_TRUE(hash.RemoveKey("c"));
    EXPECT_EQ(pairs(hash), "[a][1]");
    EXPECT_TRUE(hash.RemoveKey("a"));
    EXPECT_FALSE(hash.RemoveKey("a"));
    EXPECT_TRUE(hash.IsEmpty());
}

TEST(ExtStrHashEntry, PrefixesAreOtherKeys) {
    CExtStrHash hash(1);
    hash.SetAt("ab", "1");
    EXPECT_FALSE(hash.IsExistKey("a"));
    EXPECT_FALSE(hash.IsExistKey("abc"));
    EXPECT_FALSE(hash.IsExistKey("ac"));
    EXPECT_TRUE(hash.IsExistKey("ab"));
}

TEST(ExtStrHashEntry, NullKeyIsTheEmptyKeyInBucketZero) {
    HashProbe hash;
    EXPECT_TRUE(hash.SetAt(static_cast<const char*>(nullptr), "1"));
    EXPECT_STREQ(text(hash, ""), "1");
    EXPECT_STREQ(hash.buckets_[0]->key, "");
    EXPECT_TRUE(hash.IsExistKey(static_cast<const char*>(nullptr)));
    EXPECT_TRUE(hash.RemoveKey(static_cast<const char*>(nullptr)));
    EXPECT_TRUE(hash.IsEmpty());
}

TEST(ExtStrHashEntry, OwnTextsMayBeArguments) {
    CExtStrHash hash("a", "value", kEnd);
    EXPECT_TRUE(hash.SetAt("a", text(hash, "a") + 1));
    EXPECT_TRUE(hash.SetAt(text(hash, "a"), text(hash, "a")));
    EXPECT_STREQ(text(hash, "alue"), "alue");
    hash.OpenKeys();
    EXPECT_TRUE(hash.RemoveKey(hash.KeyAt(0)));
    EXPECT_EQ(hash.GetCount(), 1);
}

TEST(ExtStrHashCase, IgnoredOrNot) {
    CExtStrHash ignoring(37, true);
    ignoring.SetAt("Name", "1");
    ignoring.SetAt("NAME", "2");
    EXPECT_EQ(pairs(ignoring), "[Name][2]");
    EXPECT_TRUE(ignoring.IsExistKey("nAmE"));
    EXPECT_TRUE(ignoring.RemoveKey("name"));
    CExtStrHash heeding;
    heeding.SetAt("Name", "1");
    heeding.SetAt("NAME", "2");
    EXPECT_EQ(heeding.GetCount(), 2);
    EXPECT_FALSE(heeding.IsExistKey("name"));
}

TEST(ExtStrHashCase, SwitchingEmptiesATableWithEntriesEvenToTheSameMode) {
    HashProbe hash(CExtStrHash("a", "1", kEnd));
    EXPECT_TRUE(hash.ChangeHashKeyCalculator(false));
    EXPECT_TRUE(hash.IsEmpty());
    EXPECT_EQ(hash.buckets_, nullptr);
    EXPECT_TRUE(hash.ChangeHashKeyCalculator(true));
    hash.SetAt("A", "1");
    EXPECT_TRUE(hash.IsExistKey("a"));
}

// --- key kinds -------------------------------------------------------------------------------------------------------

TEST(ExtStrHashKeys, ReservedFormsAreStatedBytes) {
    char buffer[64];
    EXPECT_EQ(CExtStrHash::KeyToStr(buffer, -2), buffer);
    EXPECT_EQ(std::string(buffer),
              "\xFF\xFFs\xFF\xFF"
              "0xFFFFFFFE");
    EXPECT_EQ(std::string(CExtStrHash::KeyToStr(buffer, 0xABCU)),
              "\xFF\xFFu\xFF\xFF"
              "0x00000ABC");
    EXPECT_EQ(std::string(CExtStrHash::KeyToStr(buffer, 0.1)),
              "\xFF\xFF"
              "d\xFF\xFF"
              "0.1");
    EXPECT_EQ(std::string(CExtStrHash::KeyToStr(buffer, 1.0 / 3)),
              "\xFF\xFF"
              "d\xFF\xFF"
              "0.333333333333333");
    EXPECT_EQ(std::string(CExtStrHash::KeyToStr(buffer, 1e100)),
              "\xFF\xFF"
              "d\xFF\xFF"
              "1e+100");
}

TEST(ExtStrHashKeys, PointerFormIsThatOfTheStringFormat) {
    char buffer[64];
    int object = 0;
    CExtString expected;
    expected.Format("%p", static_cast<void*>(&object));
    EXPECT_EQ(std::string(CExtStrHash::KeyToStr(buffer, static_cast<void*>(&object))),
              std::string("\xFF\xFFp\xFF\xFF") + expected.GetString());
}

TEST(ExtStrHashKeys, IntegerFormTakesAnyLetterAndRefusesANullBuffer) {
    char buffer[64];
    EXPECT_TRUE(CExtStrHash::__Key_Format_I32_to_String(buffer, 5, 'z'));
    EXPECT_EQ(std::string(buffer),
              "\xFF\xFFz\xFF\xFF"
              "0x00000005");
    EXPECT_FALSE(CExtStrHash::__Key_Format_I32_to_String(nullptr, 5, 's'));
    EXPECT_EQ(CExtStrHash::KeyToStr(nullptr, 5), nullptr);
    EXPECT_EQ(CExtStrHash::KeyToStr(nullptr, 0.5), nullptr);
    EXPECT_EQ(CExtStrHash::KeyToStr(nullptr, static_cast<void*>(nullptr)), nullptr);
}

TEST(ExtStrHashKeys, KindsNeverMeet) {
    CExtStrHash hash;
    void* pointer = reinterpret_cast<void*>(std::uintptr_t{5});
    hash.SetAt(5, "int");
    hash.SetAt(5U, "unsigned");
    hash.SetAt("5", "text");
    hash.SetAt(5.0, "double");
    hash.SetAt(pointer, "pointer");
    EXPECT_EQ(hash.GetCount(), 5);
    const CExtStrHash& constant = hash;
    EXPECT_STREQ(constant[5], "int");
    EXPECT_STREQ(constant[5U], "unsigned");
    EXPECT_STREQ(constant["5"], "text");
    EXPECT_STREQ(constant[5.0], "double");
    EXPECT_STREQ(constant[pointer], "pointer");
}

template <typename Key>
void expect_all_operations_on(Key key) {
    CExtStrHash hash;
    const CExtStrHash& constant = hash;
    CExtString value;
    EXPECT_FALSE(hash.IsExistKey(key));
    EXPECT_EQ(constant[key], nullptr);
    EXPECT_FALSE(hash.Lookup(key, value));
    EXPECT_TRUE(hash.SetAt(key, "1"));
    EXPECT_TRUE(hash.IsExistKey(key));
    EXPECT_TRUE(hash.Lookup(key, value));
    EXPECT_STREQ(value, "1");
    hash[key] = "2";
    EXPECT_STREQ(constant[key], "2");
    EXPECT_TRUE(hash.RemoveKey(key));
    EXPECT_FALSE(hash.RemoveKey(key));
    EXPECT_TRUE(hash[key].IsEmpty());
    EXPECT_EQ(hash.GetCount(), 1);
}

TEST(ExtStrHashKeys, EveryOperationTakesEveryKind) {
    int object = 0;
    expect_all_operations_on("text");
    expect_all_operations_on(7U);
    expect_all_operations_on(-7);
    expect_all_operations_on(2.5);
    expect_all_operations_on(static_cast<void*>(&object));
}

TEST(ExtStrHashKeys, TextEqualToAReservedFormIsThatEntry) {
    CExtStrHash hash;
    hash.SetAt(5, "int");
    EXPECT_STREQ(text(hash,
                      "\xFF\xFFs\xFF\xFF"
                      "0x00000005"),
                 "int");
    EXPECT_EQ(show(hash.Keys()),
              "[\xFF\xFFs\xFF\xFF"
              "0x00000005]");
}

TEST(ExtStrHashKeys, DoublesMeetAtFifteenDigitsAndZerosDiffer) {
    CExtStrHash hash;
    hash.SetAt(0.1 + 0.2, "sum");
    EXPECT_TRUE(hash.IsExistKey(0.3));
    hash.SetAt(0.0, "plus");
    EXPECT_FALSE(hash.IsExistKey(-0.0));
}

// --- all entries -----------------------------------------------------------------------------------------------------

TEST(ExtStrHashValues, FoundByteWiseOrWithoutCase) {
    const HashProbe hash(CExtStrHash("a", "One", "b", "", kEnd));
    EXPECT_TRUE(hash.IsExistValue("One"));
    EXPECT_FALSE(hash.IsExistValue("one"));
    EXPECT_TRUE(hash.IsExistValueNC("oNE"));
    EXPECT_FALSE(hash.IsExistValueNC("two"));
    EXPECT_TRUE(hash.IsExistValue(""));
    EXPECT_TRUE(hash.IsExistValue(nullptr));
    EXPECT_FALSE(CExtStrHash().IsExistValue(""));
}

TEST(ExtStrHashValues, MakeArrayReplacesTheArrayAndIsReadBack) {
    CExtStrArray array("before", kEnd);
    const CExtStrHash hash("p", "2", "o", "", kEnd);
    EXPECT_TRUE(hash.MakeArray(array));
    EXPECT_EQ(show(array), "[o][~][p][2]");
    EXPECT_EQ(pairs(CExtStrHash(array)), "[o][~][p][2]");
    EXPECT_TRUE(CExtStrHash().MakeArray(array));
    EXPECT_TRUE(array.IsEmpty());
}

TEST(ExtStrHashSnapshot, KeysInOrderThenNull) {
    HashProbe hash(CExtStrHash("a", "1", "o", "2", kEnd));
    st_dwMoreLargeSize = 0;
    EXPECT_EQ(hash.OpenKeys(), 2);
    EXPECT_EQ(st_dwMoreLargeSize, 24U);
    EXPECT_STREQ(hash.KeyAt(0), "o");
    EXPECT_STREQ(hash.KeyAt(1), "a");
    EXPECT_EQ(hash.KeyAt(2), nullptr);
    EXPECT_EQ(hash.KeyAt(-1), nullptr);
    EXPECT_EQ(hash.snapshot_[2], nullptr);
    EXPECT_EQ(hash.OpenKeys(), 2);
    EXPECT_TRUE(hash.CloseKeys());
    EXPECT_TRUE(hash.CloseKeys());
    EXPECT_EQ(hash.KeyAt(0), nullptr);
}

TEST(ExtStrHashSnapshot, EmptyTableHoldsOnlyTheNull) {
    HashProbe hash;
    EXPECT_EQ(hash.OpenKeys(), 0);
    ASSERT_NE(hash.snapshot_, nullptr);
    EXPECT_EQ(hash.snapshot_[0], nullptr);
    EXPECT_EQ(hash.KeyAt(0), nullptr);
}

TEST(ExtStrHashSnapshot, ClosesWhenAnEntryComesOrGoesOnly) {
    HashProbe hash(CExtStrHash("a", "1", "b", "2", kEnd));
    hash.OpenKeys();
    hash.SetAt("a", "changed");
    EXPECT_NE(hash.KeyAt(0), nullptr);
    hash.RemoveKey("none");
    EXPECT_NE(hash.KeyAt(0), nullptr);
    hash.SetAt("c", "3");
    EXPECT_EQ(hash.KeyAt(0), nullptr);
    hash.OpenKeys();
    hash.RemoveKey("c");
    EXPECT_EQ(hash.KeyAt(0), nullptr);
    hash.OpenKeys();
    hash.RemoveAll();
    EXPECT_EQ(hash.snapshot_, nullptr);
}

TEST(ExtStrHashRemoveAll, ReleasesBucketsAndKeepsTheSize) {
    HashProbe hash(5);
    hash.SetAt("a", "1");
    EXPECT_TRUE(hash.RemoveAll());
    EXPECT_EQ(hash.buckets_, nullptr);
    EXPECT_EQ(hash.table_size_, 5);
    EXPECT_EQ(hash.GetCount(), 0);
    EXPECT_TRUE(hash.RemoveAll());
}

// --- construction and copies -----------------------------------------------------------------------------------------

TEST(ExtStrHashConstruct, FromPairs) {
    const char* const texts[] = {"a", "1", "o", "2", nullptr};
    EXPECT_EQ(pairs(CExtStrHash("a", "1", "o", "2", kEnd)), "[o][2][a][1]");
    EXPECT_EQ(pairs(CExtStrHash(kEnd)), "");
    EXPECT_EQ(pairs(CExtStrHash(texts, -1)), "[o][2][a][1]");
    EXPECT_EQ(pairs(CExtStrHash(CExtStrArray("a", "1", "o", "2", kEnd))), "[o][2][a][1]");
    EXPECT_EQ(pairs(CExtStrHash(CExtStrList("a", "1", "o", "2", kEnd))), "[o][2][a][1]");
    EXPECT_EQ(HashProbe(CExtStrHash("a", "1", kEnd)).table_size_, 37);
}

TEST(ExtStrHashConstruct, CopyHasThirtySevenBucketsAndHeedsCase) {
    HashProbe source(5, true);
    source.SetAt("a", "1");
    HashProbe copy(source);
    EXPECT_EQ(copy.table_size_, 37);
    EXPECT_FALSE(copy.ignore_case_);
    source.SetAt("a", "changed");
    EXPECT_EQ(pairs(copy), "[a][1]");
}

TEST(ExtStrHashCopy, TakesEntriesOnly) {
    HashProbe hash(5, true);
    hash.SetAt("x", "before");
    EXPECT_TRUE(hash.CopyData(CExtStrHash("a", "1", "b", "2", kEnd)));
    EXPECT_EQ(hash.table_size_, 5);
    EXPECT_TRUE(hash.ignore_case_);
    EXPECT_EQ(hash.GetCount(), 2);
    EXPECT_STREQ(text(hash, "B"), "2");
    EXPECT_FALSE(hash.IsExistKey("x"));
}

TEST(ExtStrHashCopy, OntoItselfChangesNothing) {
    CExtStrHash hash("a", "1", kEnd);
    const CExtStrHash& self = hash;
    EXPECT_TRUE(hash.CopyData(self));
    EXPECT_EQ(&(hash = self), &hash);
    EXPECT_EQ(pairs(hash), "[a][1]");
}

TEST(ExtStrHashCreate, FirstEmptyKeyEndsThePairs) {
    CExtStrHash hash("x", "before", kEnd);
    EXPECT_TRUE(hash.CreateFromArray(CExtStrArray("a", "1", "", "2", "b", "3", kEnd)));
    EXPECT_EQ(pairs(hash), "[a][1]");
    EXPECT_TRUE(hash.CreateFromList(CExtStrList("c", "4", "", "5", kEnd)));
    EXPECT_EQ(pairs(hash), "[c][4]");
    const char* const texts[] = {"d", "6", "", "7", nullptr};
    EXPECT_TRUE(hash.CreateFromStringArray(texts, -1));
    EXPECT_EQ(pairs(hash), "[d][6]");
    EXPECT_TRUE(hash.CreateFromStrings("e", "8", "", "9", kEnd));
    EXPECT_EQ(pairs(hash), "[e][8]");
    hash = CExtStrArray("f", "10", kEnd);
    EXPECT_EQ(pairs(hash), "[f][10]");
}

TEST(ExtStrHashCreate, LastKeyWithoutAValueGetsAnEmptyOne) {
    CExtStrHash hash;
    const char* const texts[] = {"a", "1", "b", "2"};
    EXPECT_TRUE(hash.CreateFromArray(CExtStrArray("a", kEnd)));
    EXPECT_EQ(pairs(hash), "[a][~]");
    EXPECT_TRUE(hash.CreateFromList(CExtStrList("a", kEnd)));
    EXPECT_EQ(pairs(hash), "[a][~]");
    EXPECT_TRUE(hash.CreateFromStringArray(texts, 3));
    EXPECT_EQ(pairs(hash), "[a][1][b][~]");
    EXPECT_TRUE(hash.CreateFromStrings("a", kEnd));
    EXPECT_EQ(pairs(hash), "[a][~]");
}

TEST(ExtStrHashCreate, EmptyValueDoesNotEndThePairs) {
    EXPECT_EQ(pairs(CExtStrHash("o", "", "a", "1", kEnd)), "[o][~][a][1]");
    const char* const texts[] = {"o", "", "a", "1"};
    EXPECT_EQ(pairs(CExtStrHash(texts, 4)), "[o][~][a][1]");
}

TEST(ExtStrHashCreate, NothingToReadEmptiesTheHash) {
    CExtStrHash hash("x", "before", kEnd);
    EXPECT_FALSE(hash.CreateFromStringArray(nullptr, 1));
    EXPECT_TRUE(hash.IsEmpty());
    hash.SetAt("x", "before");
    EXPECT_TRUE(hash.CreateFromStrings(kEnd));
    EXPECT_TRUE(hash.IsEmpty());
}

// --- model -----------------------------------------------------------------------------------------------------------

TEST(ExtStrHashModel, RandomStepsAgreeWithAnUnorderedMap) {
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    HashProbe hash(7);
    std::unordered_map<std::string, std::string> model;
    for (int step = 0; step < 20000; ++step) {
        const std::string key(random() % 4, static_cast<char>('a' + random() % 20));
        const std::string value = std::to_string(random() % 100);
        if (random() % 2 == 0) {
            ASSERT_TRUE(hash.SetAt(key.c_str(), value.c_str()));
            model[key] = value;
        } else {
            ASSERT_EQ(hash.RemoveKey(key.c_str()), model.erase(key) == 1);
        }
        ASSERT_EQ(hash.GetCount(), static_cast<int>(model.size()));
        ASSERT_EQ(hash.buckets_ == nullptr, model.empty());
        const auto found = model.find(key);
        const char* stored = text(hash, key.c_str());
        ASSERT_EQ(stored == nullptr, found == model.end());
        ASSERT_TRUE(stored == nullptr || found->second == stored);
    }
    ASSERT_EQ(hash.Keys().GetSize(), static_cast<int>(model.size()));
}

}  // namespace
