// Searches among files with double-byte names: "\x83\x5C" is one character, whose second byte is a backslash, and
// "\x83\x5B" one whose second byte is a bracket. On Windows the process's code page has to be 932 as well, which Wine
// takes from the locale.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "files/directory_names.h"
#include "files/file_search_probe.h"
#include "orvil/files/file_utils.h"
#include "support/code_page_932.h"
#include "support/temp_dir.h"
#include "support/working_folder.h"

namespace {

using orvil::test::find_name;
using orvil::test::found_by;
using orvil::test::InFolder;
using orvil::test::Names;
using orvil::test::rest_of;
using orvil::test::sorted;
using orvil::test::TempDir;
using orvil::test::working_folder;

constexpr const char* kSo = "\x83\x5C.cfg";
constexpr const char* kZe = "\x83\x5B.cfg";

// The C++ library would take the names for Unicode on Windows.
void make_file(const char* name) {
    std::FILE* file = std::fopen(name, "wb");
    ASSERT_NE(file, nullptr);
    std::fputs("12345", file);
    std::fclose(file);
}

// The working folder has two files with such names and an ordinary one.
class DoubleByteFiles : public testing::Test {
protected:
    DoubleByteFiles() : inside(folder.path("")) {
        make_file(kSo);
        make_file(kZe);
        make_file("abc.cfg");
    }

    // With the separators that a search gives.
    static std::string path_here(const std::string& name) {
        std::string path = working_folder() + "/";
        for (char& c : path) {
            c = c == '/' ? '\\' : c;
        }
        return path + name;
    }

    const TempDir folder;
    const InFolder inside;
    const orvil::test::CodePage932 code_page;
};

}  // namespace

TEST_F(DoubleByteFiles, StreamsYieldTheirBytes) {
    DIR* stream = opendir(".");
    EXPECT_EQ(sorted(rest_of(stream)), sorted({".", "..", kSo, kZe, "abc.cfg"}));
    closedir(stream);
}

TEST_F(DoubleByteFiles, AreFoundByWildcard) {
    CFileSearch search;
    ASSERT_TRUE(search.Setup("*.CFG"));
    EXPECT_EQ(found_by(search), (sorted({kSo, kZe, "abc.cfg"})));
}

TEST_F(DoubleByteFiles, HavePathAndStatus) {
    CFileSearch search;
    for (const char* name : {kSo, kZe}) {
        ASSERT_TRUE(search.Setup("*.cfg"));
        ASSERT_TRUE(find_name(search, name));
        EXPECT_EQ(search.GetFilePath(), path_here(name));
        EXPECT_TRUE(search.StatMask(0x8000));
    }
}

TEST_F(DoubleByteFiles, CharacterIsTwoBytesToAWildcard) {
    CFileSearch search;
    ASSERT_TRUE(search.Setup("??.cfg"));
    EXPECT_EQ(found_by(search), sorted({kSo, kZe}));
    ASSERT_TRUE(search.Setup("?.cfg"));
    EXPECT_EQ(found_by(search), Names{});
}

// A second byte out of the set is escaped like any other, and stands for itself.
TEST_F(DoubleByteFiles, BracketAsSecondByteStandsForItself) {
    CFileSearch search;
    ASSERT_TRUE(search.Setup(kZe));
    EXPECT_EQ(found_by(search), Names{kZe});
}

// A second byte that is a backslash keeps its meaning: here it takes the one of the star's point away.
TEST_F(DoubleByteFiles, BackslashAsSecondByteKeepsItsMeaning) {
    CFileSearch search;
    ASSERT_TRUE(search.Setup("\x83\x5C*"));
    EXPECT_EQ(found_by(search), Names{});
    ASSERT_TRUE(search.Setup("\x83\x5C\x5C*"));
    EXPECT_EQ(found_by(search), Names{kSo});
}

TEST_F(DoubleByteFiles, AreBackedUpUnderANumber) {
    int number = 0;
    EXPECT_EQ(orv_statsize(kSo), 5u);
    EXPECT_TRUE(orv_backupfile(kSo, "\x83\x5C.%d", &number, 0));
    EXPECT_TRUE(orv_backupfile(kSo, "\x83\x5C.%d", &number, 0));
    EXPECT_EQ(number, 2);
    EXPECT_EQ(orv_statsize("\x83\x5C.2"), 5u);
    EXPECT_TRUE(orv_movefile(kZe, "\x83\x5C\x83\x5B"));
    EXPECT_EQ(orv_statsize("\x83\x5C\x83\x5B"), 5u);
}
