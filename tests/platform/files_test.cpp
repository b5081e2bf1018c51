// What the files of the library ask of the system.
#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <filesystem>
#include <string>

#include "platform/platform.h"
#include "support/temp_dir.h"

namespace {

using orvil::platform::file_status;
using orvil::platform::FileStatus;
using orvil::platform::full_path;
using orvil::test::TempDir;

// With "/" between the components and, on Windows, without the drive of a path that names none.
std::string full(const char* path) {
    char buffer[2052];
    if (!full_path(path, buffer, sizeof buffer)) {
        return "failed";
    }
    std::string result = buffer;
#ifdef _WIN32
    for (char& c : result) {
        c = c == '\\' ? '/' : c;
    }
    if (result.substr(1, 1) == ":") {
        result.erase(0, 2);
    }
#endif
    return result;
}

std::string working_folder() {
    std::string folder = std::filesystem::current_path().generic_string();
#ifdef _WIN32
    folder.erase(0, 2);
#endif
    return folder;
}

}  // namespace

TEST(FullPath, AnAbsolutePathStays) {
    EXPECT_EQ(full("/a/b/f.txt"), "/a/b/f.txt");
}

TEST(FullPath, TheRootStays) {
    EXPECT_EQ(full("/"), "/");
}

TEST(FullPath, ARelativePathIsAppendedToTheWorkingFolder) {
    EXPECT_EQ(full("sub/none.txt"), working_folder() + "/sub/none.txt");
}

TEST(FullPath, OnePointIsTheWorkingFolder) {
    EXPECT_EQ(full("."), working_folder());
}

TEST(FullPath, TwoPointsClimbOutOfTheWorkingFolder) {
    EXPECT_EQ(full("../x") + "|", std::filesystem::path(working_folder()).parent_path().generic_string() + "/x|");
}

TEST(FullPath, PointsAreFolded) {
    EXPECT_EQ(full("/a/./b/../c/f.txt"), "/a/c/f.txt");
    EXPECT_EQ(full("/a/b/.."), "/a");
    EXPECT_EQ(full("/a/b/../../../../c"), "/c");
    EXPECT_EQ(full("/a/.."), "/");
}

TEST(FullPath, ATrailingSeparatorStays) {
    EXPECT_EQ(full("/a/b/"), "/a/b/");
    EXPECT_EQ(full("/a/../"), "/");
}

TEST(FullPath, RepeatedSeparatorsCountOnce) {
    EXPECT_EQ(full("/a//b///c"), "/a/b/c");
}

TEST(FullPath, NamesThatBeginWithPointsAreOrdinary) {
    EXPECT_EQ(full("/a/.b/..c/...d"), "/a/.b/..c/...d");
}

TEST(FullPath, TwoLeadingSeparatorsNameAServer) {
    EXPECT_EQ(full("//srv/share/x/../y"), "//srv/share/y");
}

TEST(FullPath, NullFails) {
    char buffer[64];
    EXPECT_FALSE(full_path(nullptr, buffer, sizeof buffer));
}

TEST(FullPath, TheResultNeedsRoomForItsTerminator) {
    char found[64];
    ASSERT_TRUE(full_path("/abc/def", found, sizeof found));
    const std::size_t needed = std::strlen(found) + 1;
    char exact[64];
    EXPECT_TRUE(full_path("/abc/def", exact, needed));
    EXPECT_STREQ(exact, found);
    EXPECT_FALSE(full_path("/abc/def", exact, needed - 1));
}

#ifndef _WIN32

TEST(FullPath, AComponentThatIsFoldedAwayNeedsNoRoom) {
    char buffer[8];
    ASSERT_TRUE(full_path(("/" + std::string(5000, 'x') + "/../ab").c_str(), buffer, sizeof buffer));
    EXPECT_STREQ(buffer, "/ab");
}

TEST(FullPath, NoBufferAtAllFails) {
    EXPECT_FALSE(full_path("/a", nullptr, 0));
}

TEST(FullPath, ThreeLeadingSeparatorsAreTheRoot) {
    EXPECT_EQ(full("///a"), "/a");
    EXPECT_EQ(full("//"), "//");
    EXPECT_EQ(full("//.."), "//");
}

TEST(FullPath, ARemovedWorkingFolderFails) {
    const auto before = std::filesystem::current_path();
    TempDir folder;
    std::filesystem::create_directory(folder.path("gone"));
    std::filesystem::current_path(folder.path("gone"));
    std::filesystem::remove(folder.path("gone"));
    EXPECT_EQ(full("x"), "failed");
    EXPECT_EQ(full("/x"), "/x");
    std::filesystem::current_path(before);
}

#else

TEST(FullPath, ADriveLetterStays) {
    char buffer[64];
    ASSERT_TRUE(full_path("C:/a/./b.txt", buffer, sizeof buffer));
    EXPECT_STREQ(buffer, "C:\\a\\b.txt");
}

#endif

TEST(FileStatus, AFileHasItsSizeAndBits) {
    TempDir folder;
    FileStatus status;
    ASSERT_TRUE(file_status(folder.write("f.txt", "12345").c_str(), status));
    EXPECT_EQ(status.size, 5);
    EXPECT_EQ(status.mode & 0xC180u, 0x8180u);
}

TEST(FileStatus, AFolderHasTheFolderBit) {
    TempDir folder;
    FileStatus status;
    std::filesystem::create_directory(folder.path("d"));
    ASSERT_TRUE(file_status(folder.path("d").c_str(), status));
    EXPECT_EQ(status.mode & 0xC000u, 0x4000u);
}

TEST(FileStatus, TheTimesAreSecondsSince1970) {
    TempDir folder;
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(now).count();
    FileStatus status;
    ASSERT_TRUE(file_status(folder.write("f.txt", "").c_str(), status));
    for (const std::int64_t time : {status.accessed, status.modified, status.created}) {
        EXPECT_NEAR(static_cast<double>(time), static_cast<double>(seconds), 60);
    }
}

TEST(FileStatus, TheModificationTimeIsNotTheAccessTime) {
    TempDir folder;
    const std::string path = folder.write("f.txt", "");
    using Clock = std::filesystem::file_time_type::clock;
    std::filesystem::last_write_time(path, Clock::now() - std::chrono::hours(1000));
    FileStatus status;
    ASSERT_TRUE(file_status(path.c_str(), status));
    EXPECT_GT(status.accessed - status.modified, 3500000);
    EXPECT_LT(status.accessed - status.modified, 3700000);
}

TEST(FileStatus, NothingAndNullFail) {
    TempDir folder;
    FileStatus status;
    EXPECT_FALSE(file_status(folder.path("none").c_str(), status));
    EXPECT_FALSE(file_status("", status));
    EXPECT_FALSE(file_status(nullptr, status));
}

TEST(FileStatus, ThirtyOneBitsOfSizeAreTheMost) {
    TempDir folder;
    const std::string path = folder.write("f.bin", "");
    FileStatus status;
    std::filesystem::resize_file(path, 0x7FFFFFFF);
    ASSERT_TRUE(file_status(path.c_str(), status));
    EXPECT_EQ(status.size, 0x7FFFFFFF);
    std::filesystem::resize_file(path, 0x80000000u);
    EXPECT_FALSE(file_status(path.c_str(), status));
}
