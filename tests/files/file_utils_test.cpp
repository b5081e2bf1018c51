#include "orvil/files/file_utils.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <utime.h>

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <string>

#include "support/temp_dir.h"

namespace {

using orvil::test::read_file;
using orvil::test::TempDir;

namespace fs = std::filesystem;

constexpr std::uint32_t kNone = 0xFFFFFFFF;

class FileUtils : public testing::Test {
protected:
    FileUtils() : file(folder.write("file.txt", "12345")), none(folder.path("none.txt")) {}

    static void make_read_only(const std::string& path) {
        fs::permissions(path, fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                        fs::perm_options::remove);
    }

    const TempDir folder;
    const std::string file;
    const std::string none;
};

void set_times(const std::string& path, std::time_t accessed, std::time_t modified) {
    utimbuf times{};
    times.actime = accessed;
    times.modtime = modified;
    ASSERT_EQ(utime(path.c_str(), &times), 0);
}

std::time_t change_time(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(stat(path.c_str(), &status), 0);
    return status.st_ctime;
}

}  // namespace

// --- status ----------------------------------------------------------------------------------------------------------

TEST_F(FileUtils, Selector0IsTheAccessAnd2TheCreationAndAnyOtherTheModification) {
    set_times(file, 1000000000, 1100000000);
    EXPECT_EQ(orv_stattime(file.c_str(), 0), 1000000000u);
    EXPECT_EQ(orv_stattime(file.c_str(), 2), static_cast<std::uint32_t>(change_time(file)));
    for (int which : {1, 3, -1, 100}) {
        EXPECT_EQ(orv_stattime(file.c_str(), which), 1100000000u);
    }
}

TEST_F(FileUtils, TimesAreCutTo32Bits) {
    set_times(file, 1000000000, 0x80000001);
    EXPECT_EQ(orv_stattime(file.c_str(), 1), 0x80000001u);
}

TEST_F(FileUtils, FoldersHaveTimesToo) {
    fs::create_directory(folder.path("sub"));
    EXPECT_NE(orv_stattime(folder.path("sub").c_str(), 1), kNone);
}

TEST_F(FileUtils, WithoutAFileThereIsNoTime) {
    for (int which : {0, 1, 2}) {
        EXPECT_EQ(orv_stattime(none.c_str(), which), kNone);
        EXPECT_EQ(orv_stattime("", which), kNone);
        EXPECT_EQ(orv_stattime(nullptr, which), kNone);
    }
}

TEST_F(FileUtils, SizeIsInBytes) {
    EXPECT_EQ(orv_statsize(file.c_str()), 5u);
    EXPECT_EQ(orv_statsize(folder.write("empty", "").c_str()), 0u);
    EXPECT_EQ(orv_statsize(none.c_str()), kNone);
    EXPECT_EQ(orv_statsize(nullptr), kNone);
}

TEST_F(FileUtils, FileTooLargeFor31BitsHasNoStatus) {
    fs::resize_file(file, 0x7FFFFFFF);
    EXPECT_EQ(orv_statsize(file.c_str()), 0x7FFFFFFFu);
    EXPECT_EQ(orv_access(file.c_str(), 4), 0);
    fs::resize_file(file, 0x80000000);
    EXPECT_EQ(orv_statsize(file.c_str()), kNone);
    EXPECT_EQ(orv_stattime(file.c_str(), 1), kNone);
    EXPECT_EQ(orv_statmode(file.c_str()), 0u);
    EXPECT_EQ(orv_access(file.c_str(), 0), -1);
}

TEST_F(FileUtils, ModeTellsFilesFromFoldersAndReadOnlyOnes) {
    constexpr std::uint32_t kBits = 0x4000 | 0x8000 | 0x100 | 0x80;
    EXPECT_EQ(orv_statmode(file.c_str()) & kBits, 0x8180u);
    fs::create_directory(folder.path("sub"));
    EXPECT_EQ(orv_statmode(folder.path("sub").c_str()) & kBits, 0x4180u);
    make_read_only(file);
    EXPECT_EQ(orv_statmode(file.c_str()) & kBits, 0x8100u);
    EXPECT_EQ(orv_statmode(none.c_str()), 0u);
    EXPECT_EQ(orv_statmode(nullptr), 0u);
}

// --- access ----------------------------------------------------------------------------------------------------------

TEST_F(FileUtils, OrdinaryFileAllowsEverything) {
    for (int mode = 0; mode < 8; ++mode) {
        EXPECT_EQ(orv_access(file.c_str(), mode), 0) << mode;
    }
    EXPECT_EQ(orv_access(file.c_str(), -1), 0);
}

// Asking to read looks at the bit for writing.
TEST_F(FileUtils, ReadOnlyFileFailsToBeReadAndPassesToBeWritten) {
    make_read_only(file);
    for (int mode : {0, 1, 2, 3, 8}) {
        EXPECT_EQ(orv_access(file.c_str(), mode), 0) << mode;
    }
    for (int mode : {4, 5, 6, 7, -1}) {
        EXPECT_EQ(orv_access(file.c_str(), mode), -1) << mode;
    }
}

TEST_F(FileUtils, WithoutAFileNothingIsAllowed) {
    for (int mode : {0, 2, 4, 6}) {
        EXPECT_EQ(orv_access(none.c_str(), mode), -1);
        EXPECT_EQ(orv_access(nullptr, mode), -1);
    }
}

#ifndef _WIN32

// Asking to write looks at the bit for reading. On Windows every file has it.
TEST_F(FileUtils, FileThatCannotBeReadFailsToBeWritten) {
    fs::permissions(file, fs::perms::owner_write);
    for (int mode : {0, 1, 4, 5}) {
        EXPECT_EQ(orv_access(file.c_str(), mode), 0) << mode;
    }
    for (int mode : {2, 3, 6, 7}) {
        EXPECT_EQ(orv_access(file.c_str(), mode), -1) << mode;
    }
}

#endif

// --- copying ---------------------------------------------------------------------------------------------------------

TEST_F(FileUtils, CopyHasAllBytesAndTheTimeOfModification) {
    std::string bytes;
    for (int i = 0; i < 100000; ++i) {
        bytes += static_cast<char>(i % 251);
    }
    const std::string source = folder.write("source", bytes);
    set_times(source, 1000000000, 1100000000);
    EXPECT_TRUE(orv_copyfile(source.c_str(), none.c_str(), true));
    EXPECT_EQ(read_file(none), bytes);
    EXPECT_EQ(orv_stattime(none.c_str(), 1), 1100000000u);
    EXPECT_EQ(read_file(source), bytes);
}

TEST_F(FileUtils, EmptyFileIsCopied) {
    EXPECT_TRUE(orv_copyfile(folder.write("empty", "").c_str(), none.c_str(), false));
    EXPECT_EQ(orv_statsize(none.c_str()), 0u);
}

TEST_F(FileUtils, ReadOnlyFileGivesAReadOnlyCopy) {
    make_read_only(file);
    EXPECT_TRUE(orv_copyfile(file.c_str(), none.c_str(), true));
    EXPECT_EQ(read_file(none), "12345");
    EXPECT_EQ(orv_access(none.c_str(), 4), -1);
}

TEST_F(FileUtils, ExistingTargetIsReplacedOrSpared) {
    const std::string target = folder.write("target.txt", "a longer text");
    EXPECT_FALSE(orv_copyfile(file.c_str(), target.c_str(), true));
    EXPECT_EQ(read_file(target), "a longer text");
    EXPECT_TRUE(orv_copyfile(file.c_str(), target.c_str(), false));
    EXPECT_EQ(read_file(target), "12345");
}

TEST_F(FileUtils, CopyOntoItselfFailsAndLeavesTheFile) {
    EXPECT_FALSE(orv_copyfile(file.c_str(), file.c_str(), false));
    EXPECT_FALSE(orv_copyfile(file.c_str(), file.c_str(), true));
    EXPECT_EQ(read_file(file), "12345");
}

TEST_F(FileUtils, WhatCannotBeCopiedLeavesNoTarget) {
    EXPECT_FALSE(orv_copyfile(folder.path("other").c_str(), none.c_str(), false));
    EXPECT_FALSE(orv_copyfile(folder.path("").c_str(), none.c_str(), false));
    EXPECT_FALSE(orv_copyfile("", none.c_str(), false));
    EXPECT_FALSE(orv_copyfile(nullptr, none.c_str(), false));
    EXPECT_FALSE(fs::exists(none));
}

TEST_F(FileUtils, TargetThatCannotBeMadeFails) {
    EXPECT_FALSE(orv_copyfile(file.c_str(), folder.path("missing/file.txt").c_str(), false));
    EXPECT_FALSE(orv_copyfile(file.c_str(), folder.path("").c_str(), false));
    EXPECT_FALSE(orv_copyfile(file.c_str(), "", false));
    EXPECT_FALSE(orv_copyfile(file.c_str(), nullptr, false));
    EXPECT_EQ(read_file(file), "12345");
}

// --- moving ----------------------------------------------------------------------------------------------------------

TEST_F(FileUtils, MovedFileHasItsNewNameAlone) {
    EXPECT_TRUE(orv_movefile(file.c_str(), none.c_str()));
    EXPECT_EQ(read_file(none), "12345");
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(FileUtils, ReadOnlyFileIsMoved) {
    make_read_only(file);
    EXPECT_TRUE(orv_movefile(file.c_str(), none.c_str()));
    EXPECT_EQ(orv_access(none.c_str(), 4), -1);
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(FileUtils, FolderIsMovedWithWhatIsInIt) {
    fs::create_directory(folder.path("sub"));
    folder.write("sub/x", "inner");
    EXPECT_TRUE(orv_movefile(folder.path("sub").c_str(), folder.path("new").c_str()));
    EXPECT_EQ(read_file(folder.path("new/x")), "inner");
    EXPECT_FALSE(fs::exists(folder.path("sub")));
}

TEST_F(FileUtils, MovingOntoAnExistingFileOrFolderChangesNothing) {
    const std::string target = folder.write("target.txt", "kept");
    fs::create_directory(folder.path("sub"));
    EXPECT_FALSE(orv_movefile(file.c_str(), target.c_str()));
    EXPECT_FALSE(orv_movefile(file.c_str(), folder.path("sub").c_str()));
    EXPECT_FALSE(orv_movefile(file.c_str(), file.c_str()));
    EXPECT_EQ(read_file(target), "kept");
    EXPECT_EQ(read_file(file), "12345");
}

// Windows itself would change the case of the name.
TEST_F(FileUtils, OtherCaseOfTheNameExistsOnWindowsAlone) {
    const std::string upper = folder.path("FILE.TXT");
#ifdef _WIN32
    EXPECT_FALSE(orv_movefile(file.c_str(), upper.c_str()));
    EXPECT_EQ(fs::directory_iterator(folder.path(""))->path().filename().string(), "file.txt");
#else
    EXPECT_TRUE(orv_movefile(file.c_str(), upper.c_str()));
    EXPECT_EQ(read_file(upper), "12345");
#endif
}

// Its status cannot be had, so that it looks absent; it is not replaced all the same.
TEST_F(FileUtils, MovingOntoAFileOfMoreThan31BitsChangesNothing) {
    const std::string target = folder.write("large", "x");
    fs::resize_file(target, 0x80000000);
    EXPECT_FALSE(orv_movefile(file.c_str(), target.c_str()));
    EXPECT_EQ(fs::file_size(target), 0x80000000u);
    EXPECT_EQ(read_file(file), "12345");
}

TEST_F(FileUtils, WhatCannotBeMovedStays) {
    EXPECT_FALSE(orv_movefile(none.c_str(), folder.path("new").c_str()));
    EXPECT_FALSE(orv_movefile(nullptr, folder.path("new").c_str()));
    EXPECT_FALSE(orv_movefile(file.c_str(), folder.path("missing/new").c_str()));
    EXPECT_FALSE(orv_movefile(file.c_str(), nullptr));
    EXPECT_FALSE(orv_movefile(file.c_str(), ""));
    EXPECT_EQ(read_file(file), "12345");
    EXPECT_FALSE(fs::exists(folder.path("new")));
}
