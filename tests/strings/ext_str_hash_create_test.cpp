// String hashes made from other collections.
#include <gtest/gtest.h>

#include <string>

#include "hash_probe.h"
#include "orvil/strings/ext_str_hash.h"
#include "orvil/strings/ext_str_list.h"
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
    const char* const behind[] = {"a", nullptr, "b", "2", nullptr};
    EXPECT_TRUE(hash.CreateFromStringArray(behind, -1));
    EXPECT_EQ(pairs(hash), "[a][~]");
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

}  // namespace
