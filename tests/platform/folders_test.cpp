// Reading folders on POSIX, where the C library may fail at any step.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/platform.h"
#include "support/temp_dir.h"
#include "support/working_folder.h"

namespace {

int reads_left = -1;  // the reads before the end of every folder; negative for as many as there are
int closed = 0;

}  // namespace

extern "C" {

void* real_readdir64(void* folder) asm("__real_readdir64");
void* wrapped_readdir64(void* folder) asm("__wrap_readdir64");
void* wrapped_readdir64(void* folder) {
    if (reads_left == 0) {
        return nullptr;
    }
    --reads_left;
    return real_readdir64(folder);
}

int real_closedir(void* folder) asm("__real_closedir");
int wrapped_closedir(void* folder) asm("__wrap_closedir");
int wrapped_closedir(void* folder) {
    ++closed;
    return real_closedir(folder);
}

}  // extern "C"

namespace {

using namespace orvil::platform;

class PosixFolder : public testing::Test {
protected:
    PosixFolder() : inside(folder.path("")), record(static_cast<FindRecord*>(std::calloc(1, find_record_size()))) {
        reads_left = -1;
        closed = 0;
    }
    ~PosixFolder() override {
        reads_left = -1;
        std::free(record);
    }

    const orvil::test::TempDir folder;
    const orvil::test::InFolder inside;
    FindRecord* record;
};

}  // namespace

TEST_F(PosixFolder, HasTwoEntriesAtLeast) {
    const std::int64_t find = find_first(*record);
    ASSERT_NE(find, kNoFind);
    const std::string first = found_name(*record);
    EXPECT_TRUE(find_next(find, *record));
    EXPECT_EQ(first.size() + std::string(found_name(*record)).size(), 3u);
    EXPECT_FALSE(find_next(find, *record));
    EXPECT_STREQ(found_name(*record), "");
    EXPECT_EQ(closed, 0);
    find_close(find);
    EXPECT_EQ(closed, 1);
}

TEST_F(PosixFolder, WithoutAFirstEntryIsClosedAgain) {
    reads_left = 0;
    EXPECT_EQ(find_first(*record), kNoFind);
    EXPECT_EQ(closed, 1);
}

TEST_F(PosixFolder, PathMustFit) {
    const std::string path = orvil::test::working_folder();
    std::string buffer(path.size() + 1, '\0');
    EXPECT_TRUE(working_folder(buffer.data(), path.size() + 1));
    EXPECT_STREQ(buffer.c_str(), path.c_str());
    EXPECT_FALSE(working_folder(buffer.data(), path.size()));
}

TEST_F(PosixFolder, OnlyFoldersAreGoneTo) {
    EXPECT_FALSE(change_folder(nullptr));
    EXPECT_FALSE(change_folder(folder.write("file", "").c_str()));
    EXPECT_FALSE(change_folder("none"));
}
