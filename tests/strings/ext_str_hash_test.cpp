#include "orvil/strings/ext_str_hash.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <unordered_map>

#include "hash_probe.h"
#include "orvil/runtime/heap.h"
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
