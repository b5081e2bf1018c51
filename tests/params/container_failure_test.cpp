// Container trees without memory, and records of no known type.
#include <gtest/gtest.h>

#include "params/container_support.h"
#include "params/record_set.h"
#include "params/record_support.h"
#include "support/failing_allocator.h"

namespace orvil::test {
namespace {

TEST(ContainerFailure, NoContainerWithoutAllItsMemory) {
    sweep_allocation_failures([](auto failed) {
        Root root;
        const vpdp_cont_t* cont = vpdp_add_cont(root, "name", nullptr, nullptr);
        EXPECT_EQ(failed(), cont == nullptr);
        EXPECT_EQ(cont, vpdp_search_cont(root, "name"));
        EXPECT_EQ(cont == nullptr ? 0 : 1, adl_count(&root.root.list));
        EXPECT_EQ(cont == nullptr ? 0 : 1, root.root.tree.count);
    });
}

// Runs an operation on a container with its 1st, 2nd, ... allocation refused: it gives null, or an entry.
template <typename Operation>
void sweep_entry(Operation operation) {
    bool refused = true;
    for (int nth = 1; refused; ++nth) {
        Root root;
        vpdp_cont_t* cont = root.add("name");
        const AllocationFailure failure(nth);
        const vpdpc_entry_t* entry = operation(cont);
        refused = failure.happened();
        EXPECT_EQ(refused, entry == nullptr);
        EXPECT_EQ(refused, vpdp_is_empty_items(cont));
    }
}

TEST(ContainerFailure, NoEntryWithoutAllItsMemory) {
    sweep_entry([](vpdp_cont_t* cont) { return vpdpc_add_label(cont, "label"); });
    sweep_entry([](vpdp_cont_t* cont) { return vpdpc_add_labelf(cont, "%d", 5); });
    sweep_entry([](vpdp_cont_t* cont) { return vpdpc_add_value(cont, "label", "value"); });
    sweep_entry([](vpdp_cont_t* cont) { return vpdpc_add_valuef(cont, "label", "%d", 5); });
}

TEST(ContainerFailure, CaptionWithoutMemoryStays) {
    Root root;
    vpdp_cont_t* cont = root.add("name");
    AllocationFailure failure(1);
    vpdp_set_cont_params(cont, 7, "First", 8, "Second");
    EXPECT_STREQ("Label", cont->caption1);
    EXPECT_STREQ("Second", cont->caption2);
    EXPECT_EQ(7, cont->width1);
    EXPECT_EQ(8, cont->width2);
}

TEST(ContainerFailure, EntriesOfRecordsAreMissing) {
    sweep_allocation_failures([](auto failed) {
        Root root;
        vpr_set_t set;
        vpr_init(&set, 8, 4);
        vpr_add_int(&set, "n", 5);
        vpdp_cont_t* cont = vpdp_add_cont(root, "name", nullptr, nullptr);
        vpdpc_build_vpres(cont, "Title", &set, nullptr);
        EXPECT_TRUE(failed() || adl_count(&cont->entries) == 2);
        vpr_destroy(&set);
    });
}

TEST(ContainerFromRecords, UnknownTypeShowsNumberAndLetter) {
    Root root;
    vpdp_cont_t* cont = root.add("name");
    RecordSet set;
    set.with("n", 5);
    detail::find_record(set, "n")->type = 'q';
    vpdpc_build_vpres(cont, nullptr, set, nullptr);
    EXPECT_EQ("n| ==> (unknown:113/q) [-]\n", entries(cont));
}

TEST(ContainerFromRecords, RecordWithoutNameHasAnEmptyLabel) {
    Root root;
    vpdp_cont_t* cont = root.add("name");
    RecordSet set;
    {
        AllocationFailure failure(1);
        vpr_add_int(set, "n", 5);
    }
    vpdpc_build_vpres(cont, nullptr, set, nullptr);
    EXPECT_EQ("| ==> (Int) [5]\n", entries(cont));
}

}  // namespace
}  // namespace orvil::test
