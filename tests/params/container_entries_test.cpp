// The entries of a container.
#include <gtest/gtest.h>

#include "orvil/params/container_tree.h"
#include "params/container_support.h"
#include "params/record_support.h"

namespace orvil::test {
namespace {

TEST(ContainerEntries, AreAppendedInOrderAndReturned) {
    Root root;
    vpdp_cont_t* cont = root.add("name");
    vpdpc_entry_t* first = vpdpc_add_label(cont, "first");
    vpdpc_entry_t* second = vpdpc_add_value(cont, "second", "2");
    EXPECT_EQ("first\nsecond|2\n", entries(cont));
    EXPECT_EQ(&first->link, cont->entries.next);
    EXPECT_EQ(&second->link, cont->entries.prev);
    EXPECT_EQ(nullptr, first->value);
    EXPECT_FALSE(vpdp_is_empty_items(cont));
}

TEST(ContainerEntries, CopyTheirTexts) {
    Root root;
    vpdp_cont_t* cont = root.add("name");
    char label[] = "label";
    char value[] = "value";
    vpdpc_add_value(cont, label, value);
    label[0] = value[0] = '?';
    EXPECT_EQ("label|value\n", entries(cont));
}

TEST(ContainerEntries, ArePrintedByFormats) {
    Root root;
    vpdp_cont_t* cont = root.add("name");
    vpdpc_add_labelf(cont, "%s %d", "number", 5);
    vpdpc_add_valuef(cont, "50%", "%.1f%%", 50.0);
    EXPECT_EQ("number 5\n50%|50.0%\n", entries(cont));
}

TEST(ContainerEntries, NullTextsAreEmpty) {
    Root root;
    vpdp_cont_t* cont = root.add("name");
    vpdpc_add_label(cont, nullptr);
    vpdpc_add_value(cont, nullptr, nullptr);
    vpdpc_add_valuef(cont, nullptr, "%d", 1);
    EXPECT_EQ("\n|\n|1\n", entries(cont));
}

TEST(ContainerEntries, EqualLabelsAreAllKept) {
    Root root;
    vpdp_cont_t* cont = root.add("name");
    vpdpc_add_label(cont, "a");
    vpdpc_add_label(cont, "a");
    EXPECT_EQ("a\na\n", entries(cont));
}

TEST(ContainerEntries, NullContainerOrFormatGivesNull) {
    Root root;
    vpdp_cont_t* cont = root.add("name");
    const char* no_format = nullptr;
    EXPECT_EQ(nullptr, vpdpc_add_label(nullptr, "a"));
    EXPECT_EQ(nullptr, vpdpc_add_labelf(nullptr, "%d", 1));
    EXPECT_EQ(nullptr, vpdpc_add_labelf(cont, no_format));
    EXPECT_EQ(nullptr, vpdpc_add_value(nullptr, "a", "b"));
    EXPECT_EQ(nullptr, vpdpc_add_valuef(nullptr, "a", "%d", 1));
    EXPECT_EQ(nullptr, vpdpc_add_valuef(cont, "a", no_format));
    EXPECT_TRUE(vpdp_is_empty_items(cont));
}

TEST(ContainerEntries, ClearRemovesThemAll) {
    Root root;
    vpdp_cont_t* cont = root.add("name");
    for (int i = 0; i < 3; ++i) {
        vpdpc_add_valuef(cont, "label", "%d", i);
        vpdpc_add_label(cont, "label");
    }
    vpdp_clear_cont(cont);
    EXPECT_TRUE(vpdp_is_empty_items(cont));
    EXPECT_EQ("", entries(cont));
    vpdpc_add_label(cont, "again");
    EXPECT_EQ("again\n", entries(cont));
}

TEST(ContainerFromRecords, ShowsTheRecordsInAscendingOrderOfNames) {
    Root root;
    vpdp_cont_t* cont = root.add("name");
    RecordSet set;
    set.with("s", "x").with("n", 5).with("d", 2.5).with("A", -1);
    vpdpc_build_vpres(cont, nullptr, set, nullptr);
    EXPECT_EQ("A| ==> (Int) [-1]\nd| ==> (Dbl) [2.500000]\nn| ==> (Int) [5]\ns| ==> (Str) [x]\n", entries(cont));
}

TEST(ContainerFromRecords, TitleShowsCountAndArgument) {
    Root root;
    RecordSet set;
    set.with("n", 5).with("m", 6);
    char argument[] = "pens";
    const char* titles[][2] = {
        {"Parameters (%d)", "Parameters (2)"}, {"%d of %s", "2 of pens"}, {"Title", "Title"}, {"100%%", "100%"}};
    for (const auto& title : titles) {
        vpdp_cont_t* cont = root.add(title[0]);
        vpdpc_build_vpres(cont, title[0], set, argument);
        EXPECT_EQ(title[1] + std::string("\nm| ==> (Int) [6]\nn| ==> (Int) [5]\n"), entries(cont));
        EXPECT_EQ(nullptr, entry_of(cont->entries.next)->value);
    }
}

TEST(ContainerFromRecords, EmptyTitleIsNone) {
    Root root;
    vpdp_cont_t* cont = root.add("name");
    RecordSet set;
    vpdpc_build_vpres(cont, "", set, nullptr);
    EXPECT_TRUE(vpdp_is_empty_items(cont));
    vpdpc_build_vpres(cont, "Title of %d", set, nullptr);
    EXPECT_EQ("Title of 0\n", entries(cont));
}

TEST(ContainerFromRecords, AppendsToWhatIsThere) {
    Root root;
    vpdp_cont_t* cont = root.add("name");
    vpdpc_add_label(cont, "before");
    RecordSet set;
    set.with("n", 5);
    vpdpc_build_vpres(cont, nullptr, set, nullptr);
    EXPECT_EQ("before\nn| ==> (Int) [5]\n", entries(cont));
}

TEST(ContainerFromRecords, NullSetShowsTheTitleAndNullContainerNothing) {
    Root root;
    vpdp_cont_t* cont = root.add("name");
    vpdpc_build_vpres(cont, "Title %d", nullptr, nullptr);
    EXPECT_EQ("Title 0\n", entries(cont));
    RecordSet set;
    vpdpc_build_vpres(nullptr, "Title", set, nullptr);
}

TEST(ContainerFromRecords, BuildCallbackCanFillItOnDemand) {
    Root root;
    RecordSet set;
    set.with("n", 5);
    const auto build = [](vpdp_cont_t* cont, void* argument, void*, void*, int) {
        vpdp_clear_cont(cont);
        vpdpc_build_vpres(cont, nullptr, static_cast<vpr_set_t*>(argument), nullptr);
        return 0;
    };
    vpdp_cont_t* cont = vpdp_add_cont(root, "name", build, &set.set);
    for (int round = 0; round < 2; ++round) {
        vpdp_build_cont(cont, nullptr, nullptr);
        EXPECT_EQ("n| ==> (Int) [5]\n", entries(cont));
    }
}

}  // namespace
}  // namespace orvil::test
