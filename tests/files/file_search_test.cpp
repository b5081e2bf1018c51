// How a search goes through a directory, and what it tells of an entry.
#include "orvil/files/file_search.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "files/file_search_probe.h"
#include "orvil/files/file_path.h"
#include "orvil/strings/regex.h"
#include "support/temp_dir.h"
#include "support/working_folder.h"

namespace {

using orvil::test::find_name;
using orvil::test::found_by;
using orvil::test::InFolder;
using orvil::test::Search;
using orvil::test::TempDir;
using orvil::test::working_folder;
using Names = std::vector<std::string>;

namespace fs = std::filesystem;

// The working folder has two plans, a note and a folder with a third plan.
class FileSearch : public testing::Test {
protected:
    FileSearch() : inside(folder.path("")) {
        folder.write("one.plan", "12345");
        folder.write("two.plan", "");
        folder.write("note.txt", "");
        fs::create_directory("more.plan");
        folder.write("more.plan/three.plan", "");
    }
    ~FileSearch() override { CFilePath::SetDispInternalSeparator(false); }

    const TempDir folder;
    const InFolder inside;
    const Names plans{"more.plan", "one.plan", "two.plan"};
};

std::string with_separator(std::string path, char separator) {
    for (char& c : path) {
        c = c == '/' || c == '\\' ? separator : c;
    }
    return path;
}

// The path that a search gives to an entry of the working folder.
std::string path_here(const std::string& name, char separator = '\\') {
    return with_separator(working_folder() + "/" + name, separator);
}

}  // namespace

// --- going through the directory -------------------------------------------------------------------------------------

TEST_F(FileSearch, FindsNothingBeforeItIsSetUp) {
    CFileSearch search;
    EXPECT_FALSE(search.FindNext());
}

TEST_F(FileSearch, FindsFilesAndFoldersButNotWhatIsInThem) {
    CFileSearch search;
    ASSERT_TRUE(search.Setup("*.plan"));
    EXPECT_EQ(found_by(search), plans);
}

TEST_F(FileSearch, TheEndStaysTheEnd) {
    CFileSearch search;
    ASSERT_TRUE(search.Setup("one.plan"));
    EXPECT_TRUE(search.FindNext());
    EXPECT_FALSE(search.FindNext());
    EXPECT_FALSE(search.FindNext());
    EXPECT_STREQ(search.GetFileName(), "");
}

TEST_F(FileSearch, GoesOnInItsDirectoryWhenTheWorkingDirectoryChanges) {
    CFileSearch search;
    ASSERT_TRUE(search.Setup("*.plan"));
    const std::string before = working_folder();
    {
        const InFolder elsewhere("more.plan");
        const std::string there = working_folder();
        ASSERT_TRUE(search.FindNext());
        EXPECT_EQ(working_folder(), there);
    }
    Names found{search.GetFileName()};
    for (const std::string& name : found_by(search)) {
        found.push_back(name);
    }
    std::sort(found.begin(), found.end());
    EXPECT_EQ(found, plans);
    EXPECT_EQ(working_folder(), before);
}

TEST_F(FileSearch, SettingUpAgainBeginsInTheNewWorkingDirectory) {
    CFileSearch search;
    ASSERT_TRUE(search.Setup("*.plan"));
    ASSERT_TRUE(search.FindNext());
    const InFolder elsewhere("more.plan");
    ASSERT_TRUE(search.Setup("*.plan"));
    EXPECT_STREQ(search.GetFileName(), "");
    EXPECT_EQ(found_by(search), Names{"three.plan"});
}

TEST_F(FileSearch, TwoAtOnceDoNotDisturbEachOther) {
    CFileSearch plan_search;
    CFileSearch all_search;
    ASSERT_TRUE(plan_search.Setup("*.plan"));
    ASSERT_TRUE(all_search.RegexSetup("/./"));
    Names found_plans;
    Names found_all;
    while (all_search.FindNext()) {
        found_all.emplace_back(all_search.GetFileName());
        if (plan_search.FindNext()) {
            found_plans.emplace_back(plan_search.GetFileName());
        }
    }
    std::sort(found_plans.begin(), found_plans.end());
    std::sort(found_all.begin(), found_all.end());
    EXPECT_EQ(found_plans, plans);
    EXPECT_EQ(found_all, (Names{".", "..", "more.plan", "note.txt", "one.plan", "two.plan"}));
}

TEST_F(FileSearch, DirectoryThatIsGoneHasNothing) {
    CFileSearch search;
    {
        const InFolder elsewhere("more.plan");
        ASSERT_TRUE(search.Setup("*"));
    }
    fs::remove_all("more.plan");
    const std::string before = working_folder();
    EXPECT_FALSE(search.FindNext());
    EXPECT_EQ(working_folder(), before);
}

TEST_F(FileSearch, FindsNothingOnceItIsClosed) {
    CFileSearch search;
    ASSERT_TRUE(search.Setup("*"));
    ASSERT_TRUE(search.FindNext());
    search.Close();
    EXPECT_STREQ(search.GetFileName(), "");
    EXPECT_STREQ(search.GetFilePath(), "");
    EXPECT_FALSE(search.FindNext());
    search.Close();
}

TEST_F(FileSearch, CleaningUpThePatternsEndsIt) {
    CFileSearch search;
    ASSERT_TRUE(search.Setup("*"));
    ASSERT_TRUE(search.FindNext());
    regex_cleanup();
    EXPECT_FALSE(search.FindNext());
    EXPECT_STREQ(search.GetFileName(), "");
}

// --- the current entry -----------------------------------------------------------------------------------------------

TEST_F(FileSearch, WithoutAnEntryTextsAreEmptyAndQuestionsFalse) {
    CFileSearch search;
    for (int i = 0; i < 2; ++i) {
        EXPECT_STREQ(search.GetFileName(), "");
        EXPECT_STREQ(search.GetFilePath(), "");
        EXPECT_FALSE(search.StatMask(0xFFFF));
        EXPECT_FALSE(search.IsDirectory());
        EXPECT_FALSE(search.IsReadOnly());
        EXPECT_FALSE(search.IsDots());
        ASSERT_TRUE(search.Setup("more.plan"));
        ASSERT_TRUE(search.FindNext());
        ASSERT_TRUE(search.IsDirectory());
        ASSERT_FALSE(search.FindNext());
    }
}

TEST_F(FileSearch, PathsHaveBackslashesUnlessTheSwitchIsOn) {
    CFileSearch search;
    for (bool internal : {false, true}) {
        CFilePath::SetDispInternalSeparator(internal);
        ASSERT_TRUE(search.Setup("note.txt"));
        ASSERT_TRUE(search.FindNext());
        EXPECT_EQ(search.GetFilePath(), path_here("note.txt", internal ? '/' : '\\'));
    }
}

TEST_F(FileSearch, TheSwitchCountsWhenTheEntryIsFound) {
    CFileSearch search;
    ASSERT_TRUE(search.Setup("note.txt"));
    ASSERT_TRUE(search.FindNext());
    CFilePath::SetDispInternalSeparator(true);
    EXPECT_EQ(search.GetFilePath(), path_here("note.txt"));
}

TEST_F(FileSearch, DotsHaveThePathsThatTheyStandFor) {
    const std::string around = working_folder();
    const InFolder elsewhere("more.plan");
    CFileSearch search;
    ASSERT_TRUE(search.Setup("."));
    ASSERT_TRUE(search.FindNext());
    EXPECT_EQ(search.GetFilePath(), with_separator(working_folder(), '\\'));
    EXPECT_TRUE(search.IsDots());
    EXPECT_TRUE(search.IsDirectory());
    ASSERT_TRUE(search.Setup(".."));
    ASSERT_TRUE(search.FindNext());
    EXPECT_EQ(search.GetFilePath(), with_separator(around, '\\'));
    EXPECT_TRUE(search.IsDots());
}

TEST_F(FileSearch, OnlyOneAndTwoPointsAreDots) {
    folder.write(".a", "");
    folder.write("...b", "");
    for (const char* name : {".a", "...b", "note.txt"}) {
        CFileSearch search;
        ASSERT_TRUE(search.Setup(name));
        ASSERT_TRUE(search.FindNext());
        EXPECT_FALSE(search.IsDots());
    }
}

TEST_F(FileSearch, RootDirectoryAddsNoSecondSeparator) {
    CFileSearch search;
    const fs::path root = fs::current_path().root_path();
    const fs::path expected = root / fs::current_path().relative_path().begin()->string();
    const InFolder elsewhere(root);
    ASSERT_TRUE(search.Setup(expected.filename().string().c_str()));
    ASSERT_TRUE(search.FindNext());
    EXPECT_EQ(search.GetFilePath(), with_separator(expected.string(), '\\'));
    EXPECT_TRUE(search.IsDirectory());
}

TEST_F(FileSearch, StatusIsTheEntrys) {
    Search search;
    ASSERT_TRUE(search.Setup("one.plan"));
    ASSERT_TRUE(search.FindNext());
    EXPECT_FALSE(search.IsDirectory());
    EXPECT_FALSE(search.IsReadOnly());
    EXPECT_TRUE(search.StatMask(0x8000));
    EXPECT_TRUE(search.StatMask(0xC000));
    EXPECT_FALSE(search.StatMask(0x4000));
    EXPECT_FALSE(search.StatMask(0));
    EXPECT_EQ(search.status_.size, 5);
    EXPECT_EQ(search.status_.links, 1);
    EXPECT_EQ(search.status_.device, search.status_.drive);
}

TEST_F(FileSearch, StatusIsThatOfTheCurrentEntryOnly) {
    CFileSearch search;
    ASSERT_TRUE(search.Setup("*.plan"));
    for (int i = 0; i < 3; ++i) {
        ASSERT_TRUE(search.FindNext());
        EXPECT_EQ(search.IsDirectory(), search.GetFileName() == std::string("more.plan"));
    }
}

TEST_F(FileSearch, TimesAreTheEntrys) {
    const auto old = fs::file_time_type::clock::now() - std::chrono::hours(1000);
    Search search;
    ASSERT_TRUE(search.Setup("*.plan"));
    ASSERT_TRUE(find_name(search, "one.plan"));
    const auto recent = search.status_.modified;
    fs::last_write_time("two.plan", old);
    ASSERT_TRUE(search.Setup("*.plan"));
    ASSERT_TRUE(find_name(search, "two.plan"));
    EXPECT_NEAR(static_cast<double>(recent - search.status_.modified), 3600000.0, 60.0);
}

TEST_F(FileSearch, ReadOnlyIsReadableAndNotWritable) {
    fs::permissions("two.plan", fs::perms::owner_read, fs::perm_options::replace);
    CFileSearch search;
    ASSERT_TRUE(search.Setup("two.plan"));
    ASSERT_TRUE(search.FindNext());
    EXPECT_TRUE(search.IsReadOnly());
    EXPECT_TRUE(search.StatMask(0x100));
    EXPECT_FALSE(search.StatMask(0x80));
}

TEST_F(FileSearch, FileTooLargeForThirtyTwoBitsIsFoundWithoutStatus) {
    fs::resize_file("one.plan", 0x7FFFFFFF);
    fs::resize_file("two.plan", 0x80000000);
    CFileSearch search;
    ASSERT_TRUE(search.Setup("one.plan"));
    ASSERT_TRUE(search.FindNext());
    EXPECT_TRUE(search.StatMask(0x8000));
    ASSERT_TRUE(search.Setup("two.plan"));
    ASSERT_TRUE(search.FindNext());
    EXPECT_FALSE(search.StatMask(0xFFFF));
    EXPECT_EQ(search.GetFilePath(), path_here("two.plan"));
}

TEST_F(FileSearch, PathOf259BytesIsWholeAndItsStatusIsHad) {
    const std::string name(259 - working_folder().size() - 1, 'n');
    folder.write(name, "");
    CFileSearch search;
    ASSERT_TRUE(search.Setup("nn*"));
    ASSERT_TRUE(search.FindNext());
    EXPECT_EQ(search.GetFileName(), name);
    EXPECT_EQ(search.GetFilePath(), path_here(name));
    EXPECT_TRUE(search.StatMask(0x8000));
}

// On Windows paths end at 259 bytes: the entry is a match all the same.
TEST_F(FileSearch, NameOf255BytesIsWhole) {
    const std::string name = std::string(250, 'n') + ".long";
    folder.write(name, "");
    CFileSearch search;
    ASSERT_TRUE(search.Setup("n*.LONG"));
    ASSERT_TRUE(search.FindNext());
    EXPECT_EQ(search.GetFileName(), name);
#ifdef _WIN32
    EXPECT_STREQ(search.GetFilePath(), "");
    EXPECT_FALSE(search.StatMask(0xFFFF));
#else
    EXPECT_EQ(search.GetFilePath(), path_here(name));
    EXPECT_TRUE(search.StatMask(0x8000));
#endif
}

// --- copies ----------------------------------------------------------------------------------------------------------

TEST_F(FileSearch, CopyHasTheEntryAndBeginsAgain) {
    CFileSearch search;
    ASSERT_TRUE(search.Setup("*.plan"));
    ASSERT_TRUE(find_name(search, "more.plan"));
    CFileSearch copy(search);
    search.Close();
    EXPECT_STREQ(copy.GetFileName(), "more.plan");
    EXPECT_EQ(copy.GetFilePath(), path_here("more.plan"));
    EXPECT_TRUE(copy.IsDirectory());
    EXPECT_EQ(found_by(copy), plans);
}

TEST_F(FileSearch, OriginalGoesOnBesideItsCopy) {
    CFileSearch search;
    ASSERT_TRUE(search.Setup("*.plan"));
    ASSERT_TRUE(search.FindNext());
    {
        CFileSearch copy(search);
        EXPECT_EQ(found_by(copy), plans);
    }
    EXPECT_EQ(found_by(search).size(), 2u);
}

TEST_F(FileSearch, CopyOfACopyKeepsTheEntry) {
    CFileSearch search;
    ASSERT_TRUE(search.Setup("note.txt"));
    ASSERT_TRUE(search.FindNext());
    const CFileSearch copy(search);
    const CFileSearch again(copy);
    EXPECT_STREQ(again.GetFileName(), "note.txt");
}

TEST_F(FileSearch, CopySearchesWhereTheOriginalWasSetUp) {
    CFileSearch search;
    ASSERT_TRUE(search.Setup("*.plan"));
    const InFolder elsewhere("more.plan");
    CFileSearch copy(search);
    EXPECT_EQ(found_by(copy), plans);
}

TEST_F(FileSearch, AssignmentEndsWhatWasGoingOn) {
    CFileSearch search;
    ASSERT_TRUE(search.Setup("note.*"));
    CFileSearch other;
    ASSERT_TRUE(other.Setup("*.plan"));
    ASSERT_TRUE(other.FindNext());
    other = search;
    EXPECT_STREQ(other.GetFileName(), "");
    EXPECT_EQ(found_by(other), Names{"note.txt"});
    other = CFileSearch();
    EXPECT_FALSE(other.FindNext());
}

TEST_F(FileSearch, AssignedToItselfItGoesOn) {
    CFileSearch search;
    ASSERT_TRUE(search.Setup("*.plan"));
    ASSERT_TRUE(search.FindNext());
    const CFileSearch& same = search;
    search = same;
    EXPECT_EQ(found_by(search).size(), 2u);
}

// --- matching --------------------------------------------------------------------------------------------------------

TEST_F(FileSearch, MatchingNeedsAnEntryAndAValidPatternIfAny) {
    Search search;
    EXPECT_FALSE(search.MatchPattern());
    ASSERT_TRUE(search.Setup("note.txt"));
    EXPECT_FALSE(search.MatchPattern());
    ASSERT_TRUE(search.FindNext());
    EXPECT_TRUE(search.MatchPattern());
    search.handle_ = nullptr;
    EXPECT_TRUE(search.MatchPattern());
    search.handle_ = regex_compile("/plan/");
    EXPECT_FALSE(search.MatchPattern());
    search.handle_ = &search;
    EXPECT_FALSE(search.MatchPattern());
}

TEST_F(FileSearch, MatchingLooksAtTheLengthOfTheName) {
    Search search;
    ASSERT_TRUE(search.Setup("note.txt"));
    ASSERT_TRUE(search.FindNext());
    search.entry_->d_reclen = 4;
    search.handle_ = regex_compile("/^note$/");
    EXPECT_TRUE(search.MatchPattern());
}

TEST_F(FileSearch, WithTextButNoCompiledPatternEverythingIsFound) {
    Search search;
    ASSERT_TRUE(search.Setup("note.txt"));
    search.handle_ = nullptr;
    EXPECT_EQ(found_by(search).size(), 6u);
}

TEST_F(FileSearch, SetUpItKeepsDirectoryTextAndPatternAndOpensNothing) {
    Search search;
    ASSERT_TRUE(search.Setup("a?b*.c"));
    EXPECT_STREQ(search.pattern_, "|^a.b.*\\.c$|i");
    EXPECT_EQ(search.directory_, working_folder());
    EXPECT_TRUE(regex_check(search.handle_));
    EXPECT_EQ(search.stream_, nullptr);
    EXPECT_EQ(search.entry_, nullptr);
}
