// Copies and moves on POSIX, where they are made of smaller calls, each of which can fail.
#include <gtest/gtest.h>
#include <stdio.h>
#include <sys/stat.h>
#include <sys/types.h>

#include <cerrno>
#include <filesystem>
#include <string>

#include "platform/platform.h"
#include "support/temp_dir.h"

namespace {

// What the next call of each fails with; 0 for nothing. Each failure comes once.
struct Failures {
    int rename = 0, unlink = 0, send = 0, chmod = 0;
    int sends_before = 0;  // how many calls succeed before `send` fails
};

Failures failures;

bool fails(int& failure) {
    errno = failure;
    failure = 0;
    return errno != 0;
}

}  // namespace

extern "C" {

int real_rename(const char* from, const char* to) asm("__real_rename");
int wrapped_rename(const char* from, const char* to) asm("__wrap_rename");
int wrapped_rename(const char* from, const char* to) {
    return fails(failures.rename) ? -1 : real_rename(from, to);
}

int real_unlink(const char* path) asm("__real_unlink");
int wrapped_unlink(const char* path) asm("__wrap_unlink");
int wrapped_unlink(const char* path) {
    return fails(failures.unlink) ? -1 : real_unlink(path);
}

// At most 1000 bytes go at once, as large files go in pieces.
ssize_t real_sendfile(int to, int from, off_t* offset, size_t size) asm("__real_sendfile");
ssize_t wrapped_sendfile(int to, int from, off_t* offset, size_t size) asm("__wrap_sendfile");
ssize_t wrapped_sendfile(int to, int from, off_t* offset, size_t size) {
    if (failures.sends_before == 0 && fails(failures.send)) {
        return -1;
    }
    failures.sends_before -= failures.sends_before > 0 ? 1 : 0;
    return real_sendfile(to, from, offset, size < 1000 ? size : 1000);
}

int real_fchmod(int file, mode_t mode) asm("__real_fchmod");
int wrapped_fchmod(int file, mode_t mode) asm("__wrap_fchmod");
int wrapped_fchmod(int file, mode_t mode) {
    return fails(failures.chmod) ? -1 : real_fchmod(file, mode);
}

}  // extern "C"

namespace {

using orvil::platform::copy_file;
using orvil::platform::move_file;
using orvil::test::read_file;
using orvil::test::TempDir;

namespace fs = std::filesystem;

class PosixCopy : public testing::Test {
protected:
    PosixCopy() : bytes(4500, 'b'), source(folder.write("source", bytes)), target(folder.path("target")) {
        failures = {};
    }

    const TempDir folder;
    const std::string bytes;
    const std::string source;
    const std::string target;
};

unsigned permissions(const std::string& path) {
    return static_cast<unsigned>(fs::status(path).permissions());
}

}  // namespace

TEST_F(PosixCopy, IsMadeInPiecesAndGoesOnAfterAnInterruption) {
    failures.send = EINTR;
    failures.sends_before = 2;
    EXPECT_TRUE(copy_file(source.c_str(), target.c_str(), true));
    EXPECT_EQ(failures.send, 0);
    EXPECT_EQ(read_file(target), bytes);
}

TEST_F(PosixCopy, UnfinishedTargetIsRemoved) {
    failures.send = ENOSPC;
    failures.sends_before = 2;
    EXPECT_FALSE(copy_file(source.c_str(), target.c_str(), false));
    EXPECT_FALSE(fs::exists(target));
}

TEST_F(PosixCopy, ReplacedTargetIsNotRemoved) {
    folder.write("target", "former");
    failures.send = ENOSPC;
    EXPECT_FALSE(copy_file(source.c_str(), target.c_str(), false));
    EXPECT_TRUE(fs::exists(target));
}

TEST_F(PosixCopy, PermissionsAreTheSourcesWithoutItsSpecialBits) {
    ASSERT_EQ(chmod(source.c_str(), 06541), 0);
    EXPECT_TRUE(copy_file(source.c_str(), target.c_str(), true));
    EXPECT_EQ(permissions(target), 0541u);
}

TEST_F(PosixCopy, IsWholeThoughPermissionsCannotBeSet) {
    ASSERT_EQ(chmod(source.c_str(), 0644), 0);
    failures.chmod = EPERM;
    EXPECT_TRUE(copy_file(source.c_str(), target.c_str(), true));
    EXPECT_EQ(failures.chmod, 0);
    EXPECT_EQ(permissions(target), 0600u);
    EXPECT_EQ(read_file(target), bytes);
}

TEST_F(PosixCopy, ReadOnlyTargetIsNotReplaced) {
    folder.write("target", "former");
    ASSERT_EQ(chmod(target.c_str(), 0444), 0);
    EXPECT_FALSE(copy_file(source.c_str(), target.c_str(), false));
    EXPECT_EQ(read_file(target), "former");
}

TEST_F(PosixCopy, OtherNameOfTheSourceIsTheSource) {
    fs::create_hard_link(source, target);
    EXPECT_FALSE(copy_file(source.c_str(), target.c_str(), false));
    fs::remove(target);
    fs::create_symlink(source, target);
    EXPECT_FALSE(copy_file(source.c_str(), target.c_str(), false));
    EXPECT_EQ(read_file(source), bytes);
}

TEST_F(PosixCopy, DevicesAndPipesAreNoFiles) {
    EXPECT_FALSE(copy_file("/dev/zero", target.c_str(), false));
    EXPECT_FALSE(copy_file(source.c_str(), "/dev/full", false));
    EXPECT_TRUE(fs::exists("/dev/full"));
    ASSERT_EQ(mkfifo(folder.path("pipe").c_str(), 0600), 0);
    EXPECT_FALSE(copy_file(folder.path("pipe").c_str(), target.c_str(), false));
    EXPECT_FALSE(copy_file(source.c_str(), folder.path("pipe").c_str(), false));
    EXPECT_FALSE(fs::exists(target));
}

TEST_F(PosixCopy, LinkToNowhereExists) {
    fs::create_symlink(folder.path("nowhere"), target);
    EXPECT_FALSE(copy_file(source.c_str(), target.c_str(), false));
    EXPECT_FALSE(move_file(source.c_str(), target.c_str()));
    EXPECT_TRUE(fs::is_symlink(target));
    EXPECT_EQ(read_file(source), bytes);
}

TEST_F(PosixCopy, FileIsMovedToAnotherDeviceByCopying) {
    failures.rename = EXDEV;
    EXPECT_TRUE(move_file(source.c_str(), target.c_str()));
    EXPECT_EQ(read_file(target), bytes);
    EXPECT_FALSE(fs::exists(source));
}

TEST_F(PosixCopy, FolderIsNotMovedToAnotherDevice) {
    fs::create_directory(folder.path("sub"));
    failures.rename = EXDEV;
    EXPECT_FALSE(move_file(folder.path("sub").c_str(), target.c_str()));
    EXPECT_FALSE(fs::exists(target));
}

TEST_F(PosixCopy, SourceThatCannotBeRemovedIsNotMoved) {
    failures.rename = EXDEV;
    failures.unlink = EACCES;
    EXPECT_FALSE(move_file(source.c_str(), target.c_str()));
    EXPECT_FALSE(fs::exists(target));
    EXPECT_EQ(read_file(source), bytes);
}

TEST_F(PosixCopy, OtherFailureOfTheMoveIsNoReasonToCopy) {
    failures.rename = EACCES;
    EXPECT_FALSE(move_file(source.c_str(), target.c_str()));
    EXPECT_FALSE(fs::exists(target));
    EXPECT_EQ(read_file(source), bytes);
}
