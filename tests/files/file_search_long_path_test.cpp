// Paths that are longer than a search has room for. Windows has none that are so long.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "orvil/files/file_path.h"
#include "orvil/files/file_search.h"
#include "support/temp_dir.h"
#include "support/working_folder.h"

namespace {

using orvil::test::InFolder;
using orvil::test::TempDir;
using orvil::test::working_folder;

namespace fs = std::filesystem;

class LongPath : public testing::Test {
protected:
    LongPath() : inside(folder.path("")) { CFilePath::SetDispInternalSeparator(true); }
    ~LongPath() override { CFilePath::SetDispInternalSeparator(false); }

    const TempDir folder;
    const InFolder inside;
};

// Makes folders in folders, and goes into them, until the working folder's path has so many bytes.
void go_down_to(std::size_t length) {
    while (working_folder().size() < length) {
        const std::size_t missing = length - working_folder().size();
        std::string name((std::min)(missing - 1, std::size_t{200}), 'd');
        // What is left has to be a slash and at least one byte.
        name.resize(missing == name.size() + 2 ? name.size() - 1 : name.size());
        fs::create_directory(name);
        fs::current_path(name);
    }
}

// The path that a search gives to the only folder in the working folder.
std::string found_folder(CFileSearch& search) {
    EXPECT_TRUE(search.Setup("f*"));
    EXPECT_TRUE(search.FindNext());
    EXPECT_TRUE(search.IsDirectory());
    return search.GetFilePath();
}

}  // namespace

TEST_F(LongPath, IsCutTo1027Bytes) {
    go_down_to(1020);
    const std::string around = working_folder() + "/";
    for (const char* name : {"f23456", "f234567"}) {
        fs::create_directory(name);
        CFileSearch search;
        EXPECT_EQ(found_folder(search), (around + name).substr(0, 1027));
        EXPECT_STREQ(search.GetFileName(), name);
        fs::remove(name);
    }
}

TEST_F(LongPath, ThatCannotBeTakenApartIsEmptyAndTheEntryAMatch) {
    go_down_to(2045);
    CFileSearch search;
    fs::create_directory("f2345");
    EXPECT_EQ(found_folder(search).size(), 1027u);
    fs::remove("f2345");
    fs::create_directory("f23456");
    EXPECT_EQ(found_folder(search), "");
    EXPECT_STREQ(search.GetFileName(), "f23456");
}

// The internal form takes every backslash for a separator; the status is the entry's all the same.
TEST_F(LongPath, BackslashInANameDoesNotHideTheStatus) {
    fs::create_directory("f\\x");
    CFileSearch search;
    EXPECT_EQ(found_folder(search), working_folder() + "/f/x");
}
