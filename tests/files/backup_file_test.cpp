// Backups under plain and numbered names.
#include <gtest/gtest.h>

#include <climits>
#include <filesystem>
#include <string>

#include "orvil/files/file_utils.h"
#include "support/temp_dir.h"
#include "support/working_folder.h"

namespace {

using orvil::test::InFolder;
using orvil::test::read_file;
using orvil::test::TempDir;

namespace fs = std::filesystem;

constexpr int kUntouched = -77;

// The working folder has the file "plan" and the backups plan.1.bak and plan.2.bak.
class BackupFile : public testing::Test {
protected:
    BackupFile() : inside(folder.path("")) {
        folder.write("plan", "new");
        folder.write("plan.1.bak", "first");
        folder.write("plan.2.bak", "second");
    }

    // What is called for must be false and store that number, and make no file.
    static void expect_refused(const char* pattern, int limit, int expected_number) {
        const auto before = count_files();
        int number = kUntouched;
        EXPECT_FALSE(orv_backupfile("plan", pattern, &number, limit)) << pattern;
        EXPECT_EQ(number, expected_number) << pattern;
        EXPECT_EQ(count_files(), before) << pattern;
    }

    // A copy must be made under that name, and that number stored.
    static void expect_copied(const char* pattern, int limit, const char* name, int expected_number) {
        int number = kUntouched;
        EXPECT_TRUE(orv_backupfile("plan", pattern, &number, limit)) << pattern;
        EXPECT_EQ(number, expected_number) << pattern;
        EXPECT_EQ(read_file(name), "new");
    }

    const TempDir folder;
    const InFolder inside;

private:
    static std::ptrdiff_t count_files() { return std::distance(fs::directory_iterator("."), fs::directory_iterator()); }
};

}  // namespace

// --- numbered names --------------------------------------------------------------------------------------------------

TEST_F(BackupFile, FirstFreeNumberIsTaken) {
    expect_copied("plan.%d.bak", 0, "plan.3.bak", 3);
    expect_copied("plan.%d.bak", -1, "plan.4.bak", 4);
    expect_copied("other%d", 0, "other1", 1);
    EXPECT_EQ(read_file("plan.1.bak"), "first");
    EXPECT_EQ(read_file("plan.2.bak"), "second");
}

TEST_F(BackupFile, GapIsFilled) {
    folder.write("plan.4.bak", "fourth");
    fs::remove("plan.1.bak");
    expect_copied("plan.%d.bak", 0, "plan.1.bak", 1);
    expect_copied("plan.%d.bak", 0, "plan.3.bak", 3);
    expect_copied("plan.%d.bak", 0, "plan.5.bak", 5);
}

TEST_F(BackupFile, LimitIsTheFirstNumberThatIsNotTried) {
    expect_refused("plan.%d.bak", 3, 3);
    expect_copied("plan.%d.bak", 4, "plan.3.bak", 3);
    expect_refused("plan.%d.bak", 4, 4);
}

TEST_F(BackupFile, TheFirstNumberIsTriedInAnyCase) {
    expect_refused("plan.%d.bak", 2, 2);
    expect_refused("plan.%d.bak", 1, 2);
    fs::remove("plan.1.bak");
    expect_copied("plan.%d.bak", 1, "plan.1.bak", 1);
}

TEST_F(BackupFile, LargestLimitIsNoTrouble) {
    expect_copied("plan.%d.bak", INT_MAX, "plan.3.bak", 3);
    expect_copied("plan.%d.bak", INT_MIN, "plan.4.bak", 4);
}

TEST_F(BackupFile, FolderTakesItsName) {
    fs::create_directory("plan.3.bak");
    expect_copied("plan.%d.bak", 0, "plan.4.bak", 4);
}

TEST_F(BackupFile, NumberNeedNotBeAskedFor) {
    EXPECT_TRUE(orv_backupfile("plan", "plan.%d.bak", nullptr, 0));
    EXPECT_EQ(read_file("plan.3.bak"), "new");
    EXPECT_FALSE(orv_backupfile("plan", "plan.%d.bak", nullptr, 2));
    EXPECT_TRUE(orv_backupfile("plan", "plain", nullptr, 0));
}

TEST_F(BackupFile, NumberIsStoredThoughTheCopyFails) {
    expect_refused("missing/plan.%d", 0, 1);
    expect_refused("missing/plan", 0, -1);
}

// Its status cannot be had, so that it looks free.
TEST_F(BackupFile, FileOfMoreThan31BitsIsReplaced) {
    fs::resize_file("plan.2.bak", 0x80000000);
    expect_copied("plan.%d.bak", 0, "plan.2.bak", 2);
}

// --- percent signs ---------------------------------------------------------------------------------------------------

TEST_F(BackupFile, TwoPercentSignsAreOne) {
    expect_copied("100%% of %d", 0, "100% of 1", 1);
    expect_copied("%%%d%%", 0, "%1%", 1);
}

TEST_F(BackupFile, PercentSignBeforeADIsNoNumber) {
    expect_copied("x%%d", 0, "x%d", 1);
    expect_refused("x%%d", 0, 2);
    expect_refused("x%%d", -5, 2);
    expect_refused("x%%d", 1, 2);
    expect_refused("x%%d", 2, 2);
    expect_refused("x%%d", 9, 9);
    expect_refused("x%%d", INT_MAX, INT_MAX);
}

TEST_F(BackupFile, OtherConversionsBesideTheNumberAreRefused) {
    for (const char* pattern : {"%s%d", "%d%s", "%d%d", "%d%", "%n%d", "%d%5d", "%*d%d", "%%d%s", "%d %% %x"}) {
        expect_refused(pattern, 0, kUntouched);
    }
}

// Only "%d" makes a pattern; anything else is a plain name.
TEST_F(BackupFile, OtherConversionsAloneArePlainNames) {
    expect_copied("x%02d", 0, "x%02d", -1);
    expect_copied("x%s", 0, "x%s", -1);
    expect_copied("100%%", 0, "100%%", -1);
    expect_copied("y%D%", 0, "y%D%", -1);
}

// --- plain names -----------------------------------------------------------------------------------------------------

TEST_F(BackupFile, PlainNameReplacesWhatIsThere) {
    expect_copied("plan.1.bak", 0, "plan.1.bak", -1);
    expect_copied("copy", 1, "copy", -1);
}

TEST_F(BackupFile, EmptyNameIsAPlainNameThatCannotBeCopiedTo) {
    expect_refused("", 0, -1);
}

TEST_F(BackupFile, FileIsNotItsOwnBackup) {
    expect_refused("plan", 0, -1);
    EXPECT_EQ(read_file("plan"), "new");
}

// --- what is refused -------------------------------------------------------------------------------------------------

TEST_F(BackupFile, SourceMustExist) {
    int number = kUntouched;
    EXPECT_FALSE(orv_backupfile("none", "copy%d", &number, 0));
    EXPECT_FALSE(orv_backupfile("", "copy", &number, 0));
    EXPECT_FALSE(orv_backupfile(nullptr, "copy", &number, 0));
    EXPECT_EQ(number, kUntouched);
    EXPECT_FALSE(fs::exists("copy"));
}

TEST_F(BackupFile, SourceOfMoreThan31BitsIsRefused) {
    fs::resize_file("plan", 0x80000000);
    expect_refused("copy%d", 0, kUntouched);
}

TEST_F(BackupFile, FolderIsNotCopied) {
    fs::create_directory("folder");
    int number = kUntouched;
    EXPECT_FALSE(orv_backupfile("folder", "copy%d", &number, 0));
    EXPECT_EQ(number, 1);
    EXPECT_FALSE(fs::exists("copy1"));
}

TEST_F(BackupFile, WithoutAPatternNothingIsDone) {
    expect_refused(nullptr, 0, kUntouched);
}
