// Directory streams from the inside: what only a record shows, and what happens when memory runs out.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "files/directory_names.h"
#include "files/directory_record.h"
#include "orvil/files/current_directory.h"
#include "platform/platform.h"
#include "support/failing_allocator.h"
#include "support/lost_memory.h"
#include "support/temp_dir.h"
#include "support/working_folder.h"

namespace {

using orvil::test::Names;
using orvil::test::rest_of;
using orvil::test::sorted;
using orvil::test::sweep_allocation_failures;
using orvil::test::TempDir;
using orvil::test::working_folder;

}  // namespace

TEST(DirectoryRecord, BeginsUnreadWithTheWorkingDirectoryAndACopyOfThePath) {
    DIR* stream = opendir("some path");
    EXPECT_EQ(stream->find, -1);
    EXPECT_EQ(stream->count, 0);
    EXPECT_EQ(stream->state, 0);
    EXPECT_EQ(stream->working_directory, working_folder());
    EXPECT_STREQ(stream->path, "some path");
    EXPECT_STREQ(stream->entry->d_name, "");
    closedir(stream);
}

TEST(DirectoryRecord, NothingIsReadWhileTheStateIsNotZero) {
    DIR* stream = opendir(".");
    stream->state = 1;
    EXPECT_EQ(readdir(stream), nullptr);
    EXPECT_EQ(stream->find, -1);
    stream->state = 0;
    EXPECT_NE(readdir(stream), nullptr);
    closedir(stream);
}

TEST(DirectoryRecord, TheCountWrapsAroundAndThePositionKeepsItsSign) {
    DIR* stream = opendir(".");
    stream->count = 32766;
    EXPECT_EQ(readdir(stream)->d_off, 32767);
    EXPECT_EQ(readdir(stream)->d_off, -32768);
    EXPECT_EQ(readdir(stream)->d_off, -32767);
    EXPECT_EQ(stream->entry->d_ino, 1);
    closedir(stream);
}

TEST(DirectoryRecord, TheNameIsClearedAtTheEnd) {
    DIR* stream = opendir(".");
    rest_of(stream);
    EXPECT_STREQ(stream->entry->d_name, "");
    closedir(stream);
}

TEST(DirectoryRecord, NamesAreCutTo257Bytes) {
    DIR* stream = opendir(".");
    for (std::size_t length :
         {std::size_t{0}, std::size_t{256}, std::size_t{257}, std::size_t{258}, std::size_t{259}}) {
        const std::string name(length, 'n');
        orvil::detail::show_entry(*stream, name.c_str());
        EXPECT_EQ(stream->entry->d_name, name.substr(0, 257));
        EXPECT_EQ(stream->entry->d_reclen, (std::min)(length, std::size_t{257}));
    }
    closedir(stream);
}

TEST(DirectoryStreamWithoutMemory, IsNotOpenedOrReadsEverything) {
    const TempDir folder;
    folder.write("x", "");
    const std::string path = folder.path("");
    const std::string before = working_folder();
    sweep_allocation_failures([&](auto failed) {
        DIR* stream = opendir(path.c_str());
        EXPECT_EQ(stream == nullptr, failed());
        int count = 0;
        while (readdir(stream) != nullptr) {
            ++count;
        }
        EXPECT_EQ(count, stream == nullptr ? 0 : 3);
        closedir(stream);
    });
    EXPECT_EQ(working_folder(), before);
}

// All that is lost is the stream that it opens.
TEST(DirectoryStreamWithoutMemory, RewindingEndsTheStream) {
    const orvil::test::LostMemory lost;
    sweep_allocation_failures([](auto) {
        DIR* stream = opendir(".");
        readdir(stream);
        rewinddir(stream);
    });
}

TEST(CurrentDirectoryWithoutMemory, IsLeftAsItIs) {
    const TempDir folder;
    const std::string path = folder.path("");
    const std::string before = working_folder();
    sweep_allocation_failures([&](auto failed) {
        {
            const CCurrentDirectory here;
            orvil::platform::change_folder(path.c_str());
        }
        char after[4096] = "";
        orvil::platform::working_folder(after, sizeof after);
        EXPECT_EQ(after == before, !failed());
        orvil::platform::change_folder(before.c_str());
    });
}
