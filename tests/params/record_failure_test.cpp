// Record sets without memory, and with records that no public function makes.
#include <gtest/gtest.h>

#include <climits>
#include <functional>

#include "orvil/params/var_resource.h"
#include "params/record_set.h"
#include "params/record_support.h"
#include "support/failing_allocator.h"

namespace orvil::test {
namespace {

using detail::Record;

Record& record(vpr_set_t* set, const char* name) {
    return *detail::find_record(set, name);
}

// Runs an operation on a set of `records` records, eight of which fill its pool, with its 1st, 2nd, ... allocation
// refused. `check(set, result, refused)` sees what came of it.
void sweep(const std::function<int(vpr_set_t*)>& operation, const std::function<void(vpr_set_t*, int, bool)>& check,
           int records = 8) {
    for (bool and_all_later : {false, true}) {
        bool refused = true;
        for (int nth = 1; refused; ++nth) {
            RecordSet set(8, 4);
            for (int i = 0; i < records; ++i) {
                set.with(std::string(1, static_cast<char>('a' + i)).c_str(), "text");
            }
            int result = 0;
            {
                const AllocationFailure failure(nth, and_all_later);
                result = operation(set);
                refused = failure.happened();
            }
            check(set, result, refused);
        }
    }
}

TEST(RecordSetFailure, InitWithoutMemoryGivesTwoAndAnEmptySet) {
    for (int nth = 1; nth <= 3; ++nth) {
        AllocationFailure failure(nth);
        vpr_set_t set;
        EXPECT_EQ(2, vpr_init(&set, 12, 4)) << nth;
        EXPECT_EQ(0, vpr_count(&set));
        EXPECT_EQ(0, set.pool_count);
        EXPECT_EQ(nullptr, set.blocks);
        EXPECT_EQ(0, vpr_add_int(&set, "n", 1));
        EXPECT_EQ(4, set.pool_count);
        EXPECT_EQ(0, vpr_destroy(&set));
    }
}

TEST(RecordSetFailure, PoolNeverHoldsMoreThanAnIntCounts) {
    RecordSet set;
    set.set.pool_count = INT_MAX - 7;
    EXPECT_FALSE(detail::grow_pool(set.set));
    EXPECT_EQ(INT_MAX - 7, set.set.pool_count);
}

TEST(RecordAddFailure, WithoutMemoryGivesOneOrLeavesTheNameOut) {
    int without_name = 0;
    sweep([](vpr_set_t* set) { return vpr_add_str(set, "new", "value"); },
          [&without_name](vpr_set_t* set, int result, bool refused) {
              const bool added = vpr_count(set) == 9;
              EXPECT_EQ(added ? 0 : 1, result);
              EXPECT_TRUE(added || refused);
              const bool named = vpr_type(set, "new") == 's';
              without_name += added && !named;
              EXPECT_TRUE(!added || named || refused);
              EXPECT_EQ(adl_count(&set->records), vpr_count(set));
              EXPECT_EQ(set->pool_count, adl_count(&set->records) + adl_count(&set->free_list));
          });
    EXPECT_EQ(2, without_name);
}

TEST(RecordAddFailure, RecordWithoutNameReadsAsEmpty) {
    RecordSet set;
    {
        AllocationFailure failure(1);
        EXPECT_EQ(0, vpr_add_int(set, "n", 5));
    }
    EXPECT_EQ(1, vpr_count(set));
    EXPECT_EQ("=i5", show(set));
    EXPECT_EQ(0, vpr_type(set, "n"));
    RecordSet copy;
    EXPECT_EQ(0, vpr_copy(copy, set));
    EXPECT_EQ(0, vpr_update(copy, set));
    EXPECT_EQ("=i5", show(copy));
    EXPECT_EQ(0, vpr_clear(set));
}

TEST(RecordAddFailure, ReplacedRecordIsGoneWhenTheStringCannotBeCopied) {
    RecordSet set;
    set.with("n", 5).with("m", 6);
    AllocationFailure failure(1);
    EXPECT_EQ(1, vpr_add_str(set, "n", "text"));
    EXPECT_EQ("m=i6", show(set));
}

TEST(RecordAddFailure, ReplacedRecordStaysWhenTheTextCannotBePrinted) {
    RecordSet set;
    set.with("n", 5);
    AllocationFailure failure(1);
    EXPECT_EQ(1, vpr_add_strf(set, "n", "%d", 7));
    EXPECT_EQ("n=i5", show(set));
}

TEST(RecordAddFailure, PrintedTextIsReleasedWhateverFails) {
    sweep([](vpr_set_t* set) { return vpr_add_strf(set, "new", "%s", "value"); },
          [](vpr_set_t* set, int result, bool refused) {
              EXPECT_EQ(vpr_count(set) == 9 ? 0 : 1, result);
              EXPECT_TRUE(refused || result == 0);
          });
}

TEST(RecordTextFailure, GivesNull) {
    AllocationFailure failure(1, true);
    EXPECT_EQ(nullptr, vpr_alloc(1));
    EXPECT_EQ(nullptr, vpr_strdup("text"));
    EXPECT_EQ(nullptr, vpr_strf("%d", 5));
}

TEST(RecordCopyFailure, KeepsTheCopiesMadeSoFar) {
    RecordSet src;
    src.with("x", "one").with("y", 2).with("z", "three");
    sweep([&src](vpr_set_t* set) { return vpr_copy(set, src); },
          [](vpr_set_t* set, int result, bool refused) {
              EXPECT_EQ(vpr_count(set) == 3 ? 0 : 1, result);
              EXPECT_TRUE(refused || show(set) == "x=sone y=i2 z=sthree");
              EXPECT_EQ(adl_count(&set->records), vpr_count(set));
          },
          2);
}

TEST(RecordCopyFailure, WithoutAWorkCopyOfTheMaskNothingChanges) {
    RecordSet src, dst;
    src.with("x", 1);
    dst.with("old", 2);
    AllocationFailure failure(1);
    EXPECT_EQ(6, vpr_masked_copy(dst, src, "x", ';'));
    EXPECT_EQ("old=i2", show(dst));
}

TEST(RecordCopyFailure, MaskedCopyReleasesTheWorkCopy) {
    RecordSet src;
    src.with("x", "one").with("y", 2);
    sweep([&src](vpr_set_t* set) { return vpr_masked_copy(set, src, "y;x", ';'); },
          [](vpr_set_t* set, int result, bool refused) {
              EXPECT_TRUE(result == 0 || result == 1 || (result == 6 && vpr_count(set) == 2));
              EXPECT_TRUE(refused || show(set) == "y=i2 x=sone");
          },
          2);
}

TEST(RecordUpdateFailure, KeepsTheOtherRecords) {
    RecordSet src;
    src.with("a", "one").with("z", 2);
    sweep([&src](vpr_set_t* set) { return vpr_update(set, src); },
          [](vpr_set_t* set, int result, bool refused) {
              EXPECT_EQ('s', vpr_type(set, "b"));
              EXPECT_TRUE(result == 0 || result == 1);
              EXPECT_TRUE(refused || show(set) == "b=stext a=sone z=i2");
          },
          2);
}

TEST(RecordGetFailure, StringThatCannotBeConvertedIsEmptyAndTriedAgain) {
    RecordSet set;
    set.with("d", 2.5);
    EXPECT_EQ(2, vpr_get_int(set, "d", nullptr));
    {
        AllocationFailure failure(1);
        EXPECT_STREQ("", vpr_get_str(set, "d", nullptr));
    }
    EXPECT_EQ('i', record(set, "d").cache_type);
    EXPECT_STREQ("2.500000000000000", vpr_get_str(set, "d", nullptr));
}

TEST(RecordCacheFields, HoldTheLastConversion) {
    RecordSet set;
    set.with("s", "0x10");
    EXPECT_EQ(0, record(set, "s").cache_type);
    vpr_get_str(set, "s", nullptr);
    EXPECT_EQ(0, record(set, "s").cache_type);
    vpr_get_int(set, "s", nullptr);
    EXPECT_EQ('i', record(set, "s").cache_type);
    EXPECT_EQ(16, record(set, "s").cache.i);
    record(set, "s").cache.i = 99;  // it is the cache that answers
    EXPECT_EQ(99, vpr_get_int(set, "s", nullptr));
    vpr_get_dbl(set, "s", nullptr);
    EXPECT_EQ('d', record(set, "s").cache_type);
    record(set, "s").cache.d = 99.5;
    EXPECT_EQ(99.5, vpr_get_dbl(set, "s", nullptr));
}

TEST(RecordFields, FreeRecordHasNoTypeNameOrCache) {
    RecordSet set;
    set.with("n", "1");
    Record& each = record(set, "n");
    vpr_get_int(set, "n", nullptr);
    EXPECT_EQ(detail::kInUse, each.flags);
    EXPECT_EQ(&set.set, each.set);
    vpr_delete(set, "n");
    EXPECT_EQ(0, each.flags & detail::kInUse);
    EXPECT_EQ(0, each.type);
    EXPECT_EQ(0, each.cache_type);
    EXPECT_EQ(nullptr, each.name);
}

// A record whose type no function would have stored.
struct BadSource : RecordSet {
    BadSource() {
        with("a", 1).with("b", 2).with("c", 3);
        record(*this, "b").type = 'q';
    }
};

TEST(RecordInvalidType, CopyGivesOneAndKeepsTheCopiesMadeSoFar) {
    BadSource src;
    RecordSet dst;
    EXPECT_EQ(1, vpr_copy(dst, src));
    EXPECT_EQ("a=i1", show(dst));
    EXPECT_EQ(1, vpr_masked_copy(dst, src, "c;b;a", ';'));
    EXPECT_EQ("c=i3", show(dst));
}

TEST(RecordInvalidType, UpdateGivesMinusOneAndKeepsTheOldRecord) {
    BadSource src;
    RecordSet dst;
    dst.with("b", 7).with("a", 8);
    EXPECT_EQ(-1, vpr_update(dst, src));
    EXPECT_EQ("b=i7 a=i1", show(dst));
}

TEST(RecordWithoutString, ReadsAsEmpty) {
    RecordSet set;
    set.with("s", "");
    vpr_free(record(set, "s").value.s);
    record(set, "s").value.s = nullptr;
    EXPECT_STREQ("", vpr_ref_str(set, "s"));
    EXPECT_STREQ("", vpr_get_str(set, "s", nullptr));
    EXPECT_EQ(0, vpr_get_int(set, "s", nullptr));
    EXPECT_EQ(0.0, vpr_get_dbl(set, "s", nullptr));
    EXPECT_EQ("s=s", show(set));
}

TEST(RecordPool, NoAllocationForARecordButNameAndText) {
    RecordSet set(64, 8);
    start_counting_allocations();
    for (int i = 0; i < 64; ++i) {
        const char name[] = {static_cast<char>('A' + i), '\0'};
        vpr_add_str(set, name, "text");
    }
    EXPECT_EQ(2 * 64, stop_counting_allocations());
    vpr_clear(set);
    start_counting_allocations();
    vpr_add_int(set, "one", 1);
    vpr_add_dbl(set, "two", 2);
    vpr_add_int(set, "one", 3);
    EXPECT_EQ(2, stop_counting_allocations());
    start_counting_allocations();
    EXPECT_EQ(3, vpr_ref_int(set, "one"));
    EXPECT_EQ(3.0, vpr_get_dbl(set, "one", nullptr));
    show(set);
    vpr_delete(set, "one");
    EXPECT_LE(stop_counting_allocations(), 4);  // the text that shows the set
}

// An object for which there is no memory.
struct NoResource : CVarResource {
    NoResource() : CVarResource(Refused().block_size, 8) {}

private:
    struct Refused {
        AllocationFailure failure{1};
        int block_size = 4;
    };
};

TEST(VarResourceWithoutSet, ChangesNothingAndReadsNothing) {
    NoResource none;
    CVarResource other;
    other.AddInt("a", 1);
    const int five = 5;
    EXPECT_FALSE(none.Clear());
    EXPECT_FALSE(none.Copy(other));
    EXPECT_FALSE(none.MaskedCopy(other, "a", ','));
    EXPECT_FALSE(none.Update(other));
    EXPECT_FALSE(other.Copy(none));
    EXPECT_FALSE(other.MaskedCopy(none, "a", ','));
    EXPECT_FALSE(other.Update(none));
    EXPECT_FALSE(none.Add("a", 'i', &five));
    EXPECT_FALSE(none.AddInt("a", 1));
    EXPECT_FALSE(none.AddStrFormat("a", "%d", 1));
    EXPECT_FALSE(none.Delete("a"));
    EXPECT_EQ(1, other.Count());
}

TEST(VarResourceWithoutSet, ReadsEmptyValues) {
    const NoResource none;
    char type = '?';
    EXPECT_EQ(0, none.Count());
    EXPECT_EQ(0, none.Type("a"));
    EXPECT_EQ(0, none.RefInt("a"));
    EXPECT_EQ(0.0, none.RefDbl("a"));
    EXPECT_STREQ("", none.RefStr("a"));
    EXPECT_EQ(0, none.GetInt("a", &type));
    EXPECT_EQ(0, type);
    EXPECT_EQ(0.0, none.GetDbl("a", nullptr));
    EXPECT_STREQ("", none.GetStr("a", nullptr));
    EXPECT_EQ(-1, none.Traverse(0, append_item, nullptr));
}

}  // namespace
}  // namespace orvil::test
