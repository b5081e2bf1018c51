// How CFilePath takes texts apart.
#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>
#include <string>

#include "files/file_path_probe.h"

namespace {

using orvil::test::InternalSeparators;
using orvil::test::Path;

std::string analyse(const std::string& full) {
    CExtString drive("old");
    CExtString directory("old");
    CExtString name("old");
    if (!Path::AnalyzePathParts(full.c_str(), drive, directory, name)) {
        return "false";
    }
    return std::string(drive) + "|" + directory.GetString() + "|" + name.GetString();
}

std::string divide(const char* path) {
    CExtString drive("old");
    CExtString directory("old");
    if (!Path::DivideDriveDir(path, drive, directory)) {
        return "false";
    }
    return std::string(drive) + "|" + directory.GetString();
}

std::string replaced(std::string text, bool to_internal) {
    EXPECT_TRUE(Path::ReplaceSeparateCharacters(text.data(), to_internal));
    return text;
}

}  // namespace

// --- CheckDriveName --------------------------------------------------------------------------------------------------

struct DriveCase {
    const char* text;
    EDriveType type;
};

std::ostream& operator<<(std::ostream& out, const DriveCase& row) {
    return out << '"' << row.text << '"';
}

class FilePathDriveName : public testing::TestWithParam<DriveCase> {};

TEST_P(FilePathDriveName, HasItsType) {
    EXPECT_EQ(Path::CheckDriveName(GetParam().text), GetParam().type);
}

const DriveCase kDriveCases[] = {
    {"", EDT_NONE},
    {"x", EDT_NONE},
    {"name.txt", EDT_NONE},
    {"1:", EDT_NONE},
    {"1:/x", EDT_NONE},
    {":", EDT_NONE},
    {"_:/", EDT_NONE},
    {"@:/", EDT_NONE},
    {"[:/", EDT_NONE},
    {"`:/", EDT_NONE},
    {"{:/", EDT_NONE},
    {"\xE9:/", EDT_NONE},
    {"ab:/", EDT_NONE},
    {" C:/", EDT_NONE},
    {"\\", EDT_NONE},
    {"\\x", EDT_NONE},
    {"\\\\srv\\x", EDT_NONE},
    {"//", EDT_NONE},
    {"///", EDT_NONE},
    {"///x", EDT_NONE},
    {"///x/y", EDT_NONE},
    {"//server", EDT_NONE},
    {"//server/", EDT_NONE},
    {"/", EDT_ROOT},
    {"/x", EDT_ROOT},
    {"/\\", EDT_ROOT},
    {"/x//y", EDT_ROOT},
    {"C:", EDT_LETTER},
    {"c:", EDT_LETTER},
    {"A:x", EDT_LETTER},
    {"z:/x", EDT_LETTER},
    {"Z:\\x", EDT_LETTER},
    {"C::", EDT_LETTER},
    {"//s/x", EDT_NETWORK},
    {"//srv/share", EDT_NETWORK},
    {"//srv//", EDT_NETWORK},
    {"//srv/share/x", EDT_NETWORK},
};
INSTANTIATE_TEST_SUITE_P(Texts, FilePathDriveName, testing::ValuesIn(kDriveCases));

TEST(FilePathDriveType, TheFourTypesAreZeroToThree) {
    EXPECT_EQ(EDT_NONE, 0);
    EXPECT_EQ(EDT_ROOT, 1);
    EXPECT_EQ(EDT_LETTER, 2);
    EXPECT_EQ(EDT_NETWORK, 3);
}

TEST(FilePathDriveType, ALetterIsOneInBothSeparatorForms) {
    EXPECT_EQ(CFilePath::CheckDriveType(Path("C:", "/a", "x")), EDT_LETTER);
    InternalSeparators on;
    EXPECT_EQ(CFilePath::CheckDriveType(Path("C:", "/a", "x")), EDT_LETTER);
}

TEST(FilePathDriveType, ANetworkDriveHasNoneWhileTheSwitchIsOff) {
    EXPECT_EQ(CFilePath::CheckDriveType(Path("//srv/share", "/a", "x")), EDT_NONE);
    InternalSeparators on;
    EXPECT_EQ(CFilePath::CheckDriveType(Path("//srv/share", "/a", "x")), EDT_NETWORK);
}

TEST(FilePathDriveType, NoDriveHasNone) {
    EXPECT_EQ(CFilePath::CheckDriveType(Path("", "/a", "x")), EDT_NONE);
}

// --- AnalyzePathParts ------------------------------------------------------------------------------------------------

struct PartsCase {
    const char* full;
    const char* parts;
};

std::ostream& operator<<(std::ostream& out, const PartsCase& row) {
    return out << '"' << row.full << '"';
}

class FilePathParts : public testing::TestWithParam<PartsCase> {};

TEST_P(FilePathParts, AreDividedAsStated) {
    EXPECT_EQ(analyse(GetParam().full), GetParam().parts);
}

const PartsCase kPartsCases[] = {
    {"C:/a/b/f.txt", "C:|/a/b|f.txt"},
    {"C:/f.txt", "C:|/|f.txt"},
    {"//srv/share/x/y", "//srv/share|/x|y"},
    {"C:/a/b/", "C:|/a/b|"},
    {"C:/", "C:|/|"},
    {"C:", "C:|/|"},
    {"/", "|/|"},
    {"/x", "|/|x"},
    {"/a/b/c", "|/a/b|c"},
    {"//srv/share/", "//srv/share|/|"},
    {"//srv/share/x", "//srv/share|/|x"},
    {"//srv/share", "false"},
    {"//srv/", "false"},
    {"//srv", "false"},
    {"", "false"},
    {"a/b", "false"},
    {"\\a\\b", "false"},
    {"C:x", "C:|/|"},
    {"C:xy", "C:|/|y"},
    {"C:xy/z", "C:|/y|z"},
    {"C://x", "C:|/|x"},
    {"C:/a//b", "C:|/a/|b"},
    {"C:/a//", "C:|/a/|"},
    {"//srv//x/y", "//srv/|/x|y"},
    {"C:/a\\b/c\\d", "C:|/a\\b|c\\d"},
};
INSTANTIATE_TEST_SUITE_P(Texts, FilePathParts, testing::ValuesIn(kPartsCases));

TEST(FilePathAnalysis, AFailureLeavesTheOutputsEmpty) {
    for (const char* full : {"", "name", "//srv/share"}) {
        CExtString drive("old");
        CExtString directory("old");
        CExtString name("old");
        EXPECT_FALSE(Path::AnalyzePathParts(full, drive, directory, name)) << full;
        EXPECT_TRUE(directory.IsEmpty() && name.IsEmpty()) << full;
    }
}

TEST(FilePathAnalysis, AnOutputThatIsTheInputIsEmptiedFirst) {
    CExtString text("C:/a/b");
    CExtString directory;
    CExtString name;
    EXPECT_FALSE(Path::AnalyzePathParts(text, text, directory, name));
    EXPECT_TRUE(text.IsEmpty());
}

TEST(FilePathAnalysis, APathOfAMillionDirectoriesIsDividedAtOnce) {
    std::string directory;
    for (int i = 0; i < 1000000; ++i) {
        directory += "/d";
    }
    EXPECT_EQ(analyse("C:" + directory + "/name"), "C:|" + directory + "|name");
}

// --- DivideDriveDir --------------------------------------------------------------------------------------------------

TEST(FilePathDriveDir, TheRestIsTheDirectory) {
    EXPECT_EQ(divide("C:/a/b"), "C:|/a/b");
    EXPECT_EQ(divide("/a/b"), "|/a/b");
    EXPECT_EQ(divide("//srv/share/x"), "//srv/share|/x");
}

TEST(FilePathDriveDir, TrailingSlashesAreDropped) {
    EXPECT_EQ(divide("C:/a/b/"), "C:|/a/b");
    EXPECT_EQ(divide("C:/a/b///"), "C:|/a/b");
}

TEST(FilePathDriveDir, TheRootIsASlash) {
    EXPECT_EQ(divide("C:/"), "C:|/");
    EXPECT_EQ(divide("C:"), "C:|/");
    EXPECT_EQ(divide("/"), "|/");
    EXPECT_EQ(divide("//srv/share/"), "//srv/share|/");
}

TEST(FilePathDriveDir, TextsWithoutATypeFail) {
    EXPECT_EQ(divide(""), "false");
    EXPECT_EQ(divide("a/b"), "false");
    EXPECT_EQ(divide("//srv"), "false");
    EXPECT_EQ(divide("//srv/share"), "false");
}

// --- MakeAbsoluteFullPath --------------------------------------------------------------------------------------------

TEST(FilePathAbsolute, ARelativeNameIsResolvedAgainstTheWorkingFolder) {
    CExtString full;
    ASSERT_TRUE(Path::MakeAbsoluteFullPath("sub/none.txt", full));
    EXPECT_EQ(full.GetString(), std::filesystem::current_path().generic_string() + "/sub/none.txt");
}

TEST(FilePathAbsolute, BackslashesBecomeSlashes) {
    CExtString full;
    ASSERT_TRUE(Path::MakeAbsoluteFullPath("a\\b", full));
    EXPECT_EQ(full.GetString(), std::filesystem::current_path().generic_string() + "/a/b");
}

TEST(FilePathAbsolute, NullFailsAndLeavesTheOutput) {
    CExtString full("old");
    EXPECT_FALSE(Path::MakeAbsoluteFullPath(nullptr, full));
    EXPECT_EQ(full, "old");
}

TEST(FilePathAbsolute, APathBeyondTheBufferFails) {
    CExtString full("old");
    EXPECT_FALSE(Path::MakeAbsoluteFullPath(("/" + std::string(2051, 'x')).c_str(), full));
    EXPECT_EQ(full, "old");
}

#ifndef _WIN32
TEST(FilePathAbsolute, TwoThousandAndFiftyOneBytesFit) {
    CExtString full;
    const std::string path = "/" + std::string(2050, 'x');
    ASSERT_TRUE(Path::MakeAbsoluteFullPath(path.c_str(), full));
    EXPECT_EQ(full.GetString(), path);
}
#endif

// --- ReplaceSeparateCharacters ---------------------------------------------------------------------------------------

TEST(FilePathSeparators, EachDirectionLeavesTheOther) {
    EXPECT_EQ(replaced("a\\b/c\\", true), "a/b/c/");
    EXPECT_EQ(replaced("a\\b/c/", false), "a\\b\\c\\");
    EXPECT_EQ(replaced("plain", true), "plain");
}

TEST(FilePathSeparators, AStringIsChangedInPlace) {
    CExtString text("\\a\\b");
    EXPECT_TRUE(Path::ReplaceSeparateCharacters(text, true));
    EXPECT_EQ(text, "/a/b");
    EXPECT_TRUE(Path::ReplaceSeparateCharacters(text, false));
    EXPECT_EQ(text, "\\a\\b");
}

TEST(FilePathSeparators, AnEmptyTextFails) {
    CExtString empty;
    char none[] = "";
    EXPECT_FALSE(Path::ReplaceSeparateCharacters(empty, true));
    EXPECT_FALSE(Path::ReplaceSeparateCharacters(none, false));
    EXPECT_FALSE(Path::ReplaceSeparateCharacters(static_cast<char*>(nullptr), false));
}

TEST(FilePathSeparators, WithoutDoubleByteCharactersEachByteCounts) {
    EXPECT_EQ(replaced("\x83\x5C\\", true), "\x83//");
}

// --- the static texts ------------------------------------------------------------------------------------------------

TEST(FilePathDivideName, TheLastPointDivides) {
    EXPECT_EQ(CFilePath::DivideBaseName("a.b.txt"), "a.b");
    EXPECT_EQ(CFilePath::DivideExtension("a.b.txt"), "txt");
}

TEST(FilePathDivideName, WithoutAPointAllIsBaseName) {
    EXPECT_EQ(CFilePath::DivideBaseName("noext"), "noext");
    EXPECT_EQ(CFilePath::DivideExtension("noext"), "");
}

TEST(FilePathDivideName, APointAtTheEndGivesAnEmptyExtension) {
    EXPECT_EQ(CFilePath::DivideBaseName("archive."), "archive");
    EXPECT_EQ(CFilePath::DivideExtension("archive."), "");
}

TEST(FilePathDivideName, APointAtTheStartGivesAnEmptyBaseName) {
    EXPECT_EQ(CFilePath::DivideBaseName(".profile"), "");
    EXPECT_EQ(CFilePath::DivideExtension(".profile"), "profile");
    EXPECT_EQ(CFilePath::DivideBaseName("."), "");
}

TEST(FilePathDivideName, AnEmptyTextGivesEmptyTexts) {
    EXPECT_EQ(CFilePath::DivideBaseName(""), "");
    EXPECT_EQ(CFilePath::DivideExtension(""), "");
}

TEST(FilePathMakeName, OnePointJoins) {
    EXPECT_EQ(CFilePath::MakeFileName("a", "txt"), "a.txt");
    EXPECT_EQ(CFilePath::MakeFileName("a", ".txt"), "a.txt");
    EXPECT_EQ(CFilePath::MakeFileName("a.", "txt"), "a.txt");
    EXPECT_EQ(CFilePath::MakeFileName("a.", ".txt"), "a.txt");
}

TEST(FilePathMakeName, OnlyOnePointOfTheExtensionIsDropped) {
    EXPECT_EQ(CFilePath::MakeFileName("a", "..txt"), "a..txt");
    EXPECT_EQ(CFilePath::MakeFileName("a..", "txt"), "a..txt");
}

TEST(FilePathMakeName, AnEmptyExtensionLeavesThePoint) {
    EXPECT_EQ(CFilePath::MakeFileName("a", ""), "a.");
    EXPECT_EQ(CFilePath::MakeFileName("a", "."), "a.");
    EXPECT_EQ(CFilePath::MakeFileName("a.", ""), "a.");
}

TEST(FilePathMakeName, AnEmptyBaseGivesAnEmptyText) {
    EXPECT_EQ(CFilePath::MakeFileName("", "txt"), "");
}

TEST(FilePathDriveMap, CaseIsIgnored) {
    EXPECT_TRUE(Path::IsSameDriveMap("C:", "c:"));
    EXPECT_TRUE(Path::IsSameDriveMap("", ""));
    EXPECT_FALSE(Path::IsSameDriveMap("C:", "D:"));
    EXPECT_FALSE(Path::IsSameDriveMap("C:", ""));
}
