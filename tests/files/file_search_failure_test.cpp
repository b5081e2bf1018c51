// Searches and backups when memory runs out.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "files/file_search_probe.h"
#include "orvil/files/file_utils.h"
#include "orvil/strings/regex.h"
#include "support/failing_allocator.h"
#include "support/temp_dir.h"
#include "support/working_folder.h"

namespace {

using orvil::test::InFolder;
using orvil::test::Search;
using orvil::test::sweep_allocation_failures;
using orvil::test::TempDir;

class SearchWithoutMemory : public testing::Test {
protected:
    SearchWithoutMemory() : inside(folder.path("")) { folder.write("plan.txt", "12345"); }

    // A search that stands at its only match.
    void find(Search& search) const {
        ASSERT_TRUE(search.Setup("plan*"));
        ASSERT_TRUE(search.FindNext());
    }

    const TempDir folder;
    const InFolder inside;
};

bool is_closed(const Search& search) {
    return search.stream_ == nullptr && search.entry_ == nullptr && search.directory_ == nullptr &&
           search.handle_ == nullptr && search.pattern_ == nullptr && *search.GetFilePath() == '\0';
}

}  // namespace

TEST_F(SearchWithoutMemory, IsSetUpOrClosed) {
    sweep_allocation_failures([](auto failed) {
        regex_cleanup();
        Search search;
        const bool is_set_up = search.Setup("plan*");
        EXPECT_TRUE(is_set_up || failed());
        EXPECT_EQ(is_closed(search), !is_set_up);
        EXPECT_EQ(search.pattern_ != nullptr && search.directory_ != nullptr, is_set_up);
    });
}

TEST_F(SearchWithoutMemory, WithoutAPatternItKnowsItsDirectoryOrIsClosed) {
    sweep_allocation_failures([](auto failed) {
        Search search;
        const bool is_set_up = search.RegexSetup(nullptr);
        EXPECT_EQ(is_set_up, !failed());
        EXPECT_EQ(is_closed(search), !is_set_up);
    });
}

TEST_F(SearchWithoutMemory, FailedSetupClosesWhatWasGoingOn) {
    sweep_allocation_failures([&](auto failed) {
        Search search;
        if (search.Setup("plan*") && search.FindNext() && !search.Setup("other*")) {
            EXPECT_TRUE(failed());
            EXPECT_TRUE(is_closed(search));
        }
    });
}

// A match is found with its whole path or an empty one; without a stream nothing is.
TEST_F(SearchWithoutMemory, MatchIsFoundOrNothing) {
    Search model;
    find(model);
    const std::string path = model.GetFilePath();
    sweep_allocation_failures([&](auto failed) {
        Search search(model);
        const bool is_found = search.FindNext();
        EXPECT_TRUE(is_found || failed());
        EXPECT_TRUE(path == search.GetFilePath() || (failed() && *search.GetFilePath() == '\0'));
        EXPECT_EQ(std::string_view(search.GetFileName()) == "plan.txt", is_found);
        EXPECT_TRUE(search.StatMask(0x8000) || failed());
    });
}

TEST_F(SearchWithoutMemory, CopyIsWholeOrClosed) {
    Search model;
    find(model);
    sweep_allocation_failures([&](auto failed) {
        const Search copy(model);
        EXPECT_EQ(is_closed(copy), failed());
        EXPECT_STREQ(copy.GetFileName(), failed() ? "" : "plan.txt");
        EXPECT_EQ(copy.StatMask(0x8000), !failed());
    });
}

TEST_F(SearchWithoutMemory, AssignedCopyIsWholeOrClosed) {
    Search model;
    find(model);
    sweep_allocation_failures([&](auto failed) {
        Search copy;
        copy = model;
        EXPECT_EQ(is_closed(copy), failed());
    });
}

TEST_F(SearchWithoutMemory, BackupIsMadeOrNot) {
    const std::string pattern = std::string(100, 'b') + "%d";
    const std::string first = std::string(100, 'b') + "1";
    sweep_allocation_failures([&](auto failed) {
        int number = 0;
        const bool is_made = orv_backupfile("plan.txt", pattern.c_str(), &number, 0);
        EXPECT_EQ(is_made, !failed());
        EXPECT_EQ(number, 1);
        EXPECT_EQ(std::remove(first.c_str()) == 0, is_made);
    });
}
