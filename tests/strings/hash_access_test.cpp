#include "strings/hash_access.h"

#include <gtest/gtest.h>

#include "orvil/strings/ext_hash.h"
#include "orvil/strings/ext_str_hash.h"
#include "support/failing_allocator.h"

namespace orvil::test {
namespace {

using orvil::detail::HashAccess;

void fill(CExtHash<int>& hash, int count) {
    for (int i = 0; i < count; ++i) {
        hash.SetAt(i, i);
    }
}

bool holds_all(const CExtHash<int>& hash, int count) {
    bool all = hash.GetCount() == count;
    for (int i = 0; all && i < count; ++i) {
        int value = -1;
        all = hash.Lookup(i, value) && value == i;
    }
    return all;
}

TEST(HashAccess, TellsTheNumberOfBuckets) {
    EXPECT_EQ(HashAccess::buckets(CExtHash<int>()), 37);
    EXPECT_EQ(HashAccess::buckets(CExtStrHash(5)), 5);
}

TEST(HashAccess, ChainsBelowEightOnTheAverageStay) {
    CExtHash<int> hash(3);
    HashAccess::keep_chains_short(hash);
    fill(hash, 31);
    HashAccess::keep_chains_short(hash);
    EXPECT_EQ(HashAccess::buckets(hash), 3);
}

TEST(HashAccess, LongChainsAreSpreadOverEightTimesTheBuckets) {
    CExtHash<int> hash(3);
    fill(hash, 32);
    EXPECT_EQ(hash.OpenKeys(), 32);
    HashAccess::keep_chains_short(hash);
    EXPECT_EQ(HashAccess::buckets(hash), 24);
    EXPECT_EQ(hash.KeyAt(0), nullptr);
    EXPECT_TRUE(holds_all(hash, 32));
}

TEST(HashAccess, SpreadHashGoesOnAsAnyOther) {
    CExtHash<int> hash(3);
    fill(hash, 32);
    HashAccess::keep_chains_short(hash);
    fill(hash, 40);
    EXPECT_TRUE(holds_all(hash, 40));
    EXPECT_EQ(hash.Keys().GetSize(), 40);
    for (int i = 0; i < 40; ++i) {
        EXPECT_TRUE(hash.RemoveKey(i));
    }
    EXPECT_TRUE(hash.IsEmpty());
    EXPECT_EQ(hash.Keys().GetSize(), 0);
}

TEST(HashAccess, CaseIsIgnoredAsBefore) {
    CExtStrHash hash(1, true);
    for (const char* key : {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l", "m", "n", "o", "p"}) {
        hash.SetAt(key, key);
    }
    HashAccess::keep_chains_short(hash);
    EXPECT_EQ(HashAccess::buckets(hash), 8);
    EXPECT_TRUE(hash.IsExistKey("P"));
    EXPECT_TRUE(hash.IsExistKey("A"));
    EXPECT_FALSE(hash.IsExistKey("Q"));
}

TEST(HashAccess, WithoutMemoryEverythingStays) {
    CExtHash<int> hash(3);
    fill(hash, 32);
    {
        const AllocationFailure failure(1);
        HashAccess::keep_chains_short(hash);
        EXPECT_TRUE(failure.happened());
    }
    EXPECT_EQ(HashAccess::buckets(hash), 3);
    EXPECT_TRUE(holds_all(hash, 32));
}

}  // namespace
}  // namespace orvil::test
