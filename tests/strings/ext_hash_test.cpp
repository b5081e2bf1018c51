#include "orvil/strings/ext_hash.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

#include "support/array_probe.h"

namespace {

using orvil::test::show;

struct IntHash : CExtHash<int> {
    using CExtHash<int>::buckets_;
    using CExtHash<int>::CalcHashValue;
    using CExtHash<int>::CExtHash;
    using CExtHash<int>::count_;
    using CExtHash<int>::ignore_case_;
    using CExtHash<int>::snapshot_;
    using CExtHash<int>::table_size_;
};

TEST(ExtHash, LayoutIsThatOfTheStringHash) {
    IntHash hash;
    const char* start = reinterpret_cast<const char*>(static_cast<CExtHash<int>*>(&hash));
    EXPECT_EQ(sizeof(CExtHash<int>), 40U);
    EXPECT_EQ(reinterpret_cast<const char*>(&hash.ignore_case_) - start, 8);
    EXPECT_EQ(reinterpret_cast<const char*>(&hash.count_) - start, 12);
    EXPECT_EQ(reinterpret_cast<const char*>(&hash.table_size_) - start, 16);
    EXPECT_EQ(reinterpret_cast<const char*>(&hash.buckets_) - start, 24);
    EXPECT_EQ(reinterpret_cast<const char*>(&hash.snapshot_) - start, 32);
}

TEST(ExtHash, BucketsAreThoseOfTheStringHash) {
    EXPECT_EQ(IntHash().CalcHashValue("ab"), (97U * 33 + 98) % 37);
    EXPECT_EQ(IntHash(37, true).CalcHashValue("ab"), (65U * 33 + 66) % 37);
    IntHash hash;  // buckets: o 0, a 23, < 23
    hash.SetAt("a", 1);
    hash.SetAt("<", 2);
    hash.SetAt("o", 3);
    EXPECT_EQ(show(hash.Keys()), "[o][<][a]");
}

TEST(ExtHash, BucketsComeWithTheFirstEntryAndGoWithTheLast) {
    IntHash hash(277);
    EXPECT_EQ(hash.buckets_, nullptr);
    hash.SetAt(1, 1);
    EXPECT_NE(hash.buckets_, nullptr);
    EXPECT_TRUE(hash.RemoveKey(1));
    EXPECT_EQ(hash.buckets_, nullptr);
    EXPECT_EQ(hash.table_size_, 277);
    EXPECT_EQ(IntHash(0).table_size_, 37);
}

TEST(ExtHash, StoresReplacesAndLooksUp) {
    CExtHash<int> hash;
    int value = 9;
    EXPECT_TRUE(hash.IsEmpty());
    EXPECT_FALSE(hash.Lookup("a", value));
    EXPECT_EQ(value, 9);
    EXPECT_TRUE(hash.SetAt("a", 1));
    EXPECT_TRUE(hash.SetAt("a", 2));
    EXPECT_TRUE(hash.Lookup("a", value));
    EXPECT_EQ(value, 2);
    EXPECT_EQ(hash.GetCount(), 1);
}

TEST(ExtHash, BracketsMakeADefaultValue) {
    CExtHash<int> hash;
    EXPECT_EQ(hash["a"], 0);
    hash["a"] = 5;
    EXPECT_EQ(hash["a"], 5);
    EXPECT_EQ(hash.GetCount(), 1);
    CExtHash<int*> pointers;
    EXPECT_EQ(pointers[7], nullptr);
}

template <typename Key>
void expect_all_operations_on(Key key) {
    CExtHash<int> hash;
    int value = 0;
    EXPECT_FALSE(hash.IsExistKey(key));
    EXPECT_FALSE(hash.Lookup(key, value));
    EXPECT_TRUE(hash.SetAt(key, 3));
    EXPECT_TRUE(hash.Lookup(key, value));
    EXPECT_EQ(value, 3);
    EXPECT_EQ(hash[key], 3);
    EXPECT_TRUE(hash.IsExistKey(key));
    EXPECT_TRUE(hash.RemoveKey(key));
    EXPECT_FALSE(hash.RemoveKey(key));
}

TEST(ExtHash, EveryOperationTakesEveryKind) {
    int object = 0;
    expect_all_operations_on("text");
    expect_all_operations_on(static_cast<const char*>(nullptr));
    expect_all_operations_on(7U);
    expect_all_operations_on(-7);
    expect_all_operations_on(2.5);
    expect_all_operations_on(static_cast<void*>(&object));
}

TEST(ExtHash, KindsNeverMeet) {
    CExtHash<int> hash;
    hash.SetAt(5, 1);
    hash.SetAt(5U, 2);
    hash.SetAt("5", 3);
    hash.SetAt(5.0, 4);
    EXPECT_EQ(hash.GetCount(), 4);
    EXPECT_EQ(hash["\xFF\xFFs\xFF\xFF"
                   "0x00000005"],
              1);
}

TEST(ExtHash, CaseIsIgnoredOnDemand) {
    CExtHash<int> hash(37, true);
    hash.SetAt("Name", 1);
    hash.SetAt("NAME", 2);
    EXPECT_EQ(show(hash.Keys()), "[Name]");
    EXPECT_TRUE(hash.ChangeHashKeyCalculator(false));
    EXPECT_TRUE(hash.IsEmpty());
}

TEST(ExtHash, SnapshotClosesWhenAnEntryComesOrGoes) {
    CExtHash<int> hash;
    hash.SetAt("a", 1);
    hash.SetAt("o", 2);
    EXPECT_EQ(hash.OpenKeys(), 2);
    EXPECT_STREQ(hash.KeyAt(0), "o");
    EXPECT_STREQ(hash.KeyAt(1), "a");
    EXPECT_EQ(hash.KeyAt(2), nullptr);
    hash.SetAt("a", 5);
    EXPECT_STREQ(hash.KeyAt(0), "o");
    hash.SetAt("b", 3);
    EXPECT_EQ(hash.KeyAt(0), nullptr);
    EXPECT_EQ(hash.OpenKeys(), 3);
    EXPECT_TRUE(hash.CloseKeys());
    EXPECT_EQ(hash.KeyAt(0), nullptr);
}

TEST(ExtHash, CopyTakesEntriesOnly) {
    CExtHash<int> source(5, true);
    source.SetAt("a", 1);
    CExtHash<int> assigned(7);
    assigned.SetAt("x", 9);
    EXPECT_EQ(&(assigned = source), &assigned);
    EXPECT_EQ(show(assigned.Keys()), "[a]");
    const CExtHash<int>& self = assigned;
    assigned = self;
    EXPECT_EQ(assigned["a"], 1);
    CExtHash<int> constructed(source);
    EXPECT_EQ(constructed.GetCount(), 1);
    EXPECT_FALSE(constructed.IsExistKey("A"));
    EXPECT_TRUE(constructed.IsExistKey("a"));
}

TEST(ExtHash, ValuesMayBeContainers) {
    CExtHash<CExtStrArray> lists;
    lists["a"].Add("1");
    lists["a"].Add("2");
    CExtHash<CExtStrArray> copy(lists);
    lists["a"].Add("3");
    EXPECT_EQ(show(copy["a"]), "[1][2]");
    CExtStrArray value;
    EXPECT_TRUE(lists.Lookup("a", value));
    EXPECT_EQ(show(value), "[1][2][3]");
}

TEST(ExtHash, PointeesAreNotDeleted) {
    int object = 5;
    {
        CExtHash<int*> hash;
        hash.SetAt("a", &object);
        hash.RemoveKey("a");
        hash.SetAt("b", &object);
    }
    EXPECT_EQ(object, 5);
}

TEST(ExtHash, RandomStepsAgreeWithAMap) {
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    CExtHash<int> hash(7);
    std::map<int, int> model;
    for (int step = 0; step < 10000; ++step) {
        const int key = static_cast<int>(random() % 60) - 30;
        if (random() % 2 == 0) {
            ASSERT_TRUE(hash.SetAt(key, step));
            model[key] = step;
        } else {
            ASSERT_EQ(hash.RemoveKey(key), model.erase(key) == 1);
        }
        int value = -1;
        ASSERT_EQ(hash.GetCount(), static_cast<int>(model.size()));
        ASSERT_EQ(hash.Lookup(key, value), model.count(key) == 1);
        ASSERT_TRUE(model.count(key) == 0 || model[key] == value);
    }
}

}  // namespace
