#include "orvil/files/file_path.h"

#include <gtest/gtest.h>

#include <clocale>
#include <filesystem>
#include <memory>
#include <ostream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "orvil/strings/ext_str_array.h"

namespace {

// Reaches the protected members, as a derived class of a host does.
class Path : public CFilePath {
public:
    using CFilePath::AnalyzeDirectoryList;
    using CFilePath::AnalyzePathParts;
    using CFilePath::CFilePath;
    using CFilePath::CheckDriveName;
    using CFilePath::DivideDriveDir;
    using CFilePath::InvalidObject;
    using CFilePath::IsSameDriveMap;
    using CFilePath::MakeAbsoluteFullPath;
    using CFilePath::ReplaceSeparateCharacters;
    using CFilePath::sm_bDispInternalSeparator;

    Path() = default;
    Path(const char* drive, const char* directory, const char* name) {
        drive_ = drive;
        directory_ = directory;
        file_name_ = name;
    }
    // "drive|directory|name" as stored.
    std::string parts() const {
        return std::string(drive_) + "|" + directory_.GetString() + "|" + file_name_.GetString();
    }
};

std::string parts_of(const CFilePath& path) {
    return Path(static_cast<const Path&>(path)).parts();
}

// Turns the process-wide switch on for a test.
class InternalSeparators {
public:
    InternalSeparators() { CFilePath::SetDispInternalSeparator(true); }
    ~InternalSeparators() { CFilePath::SetDispInternalSeparator(false); }
    InternalSeparators(const InternalSeparators&) = delete;
    InternalSeparators& operator=(const InternalSeparators&) = delete;
};

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

std::vector<std::string> directories(const char* directory) {
    CExtStrArray list;
    EXPECT_TRUE(list.Add("old"));
    EXPECT_TRUE(Path("", directory, "").AnalyzeDirectoryList(list));
    std::vector<std::string> names;
    for (int i = 0; i < list.GetSize(); ++i) {
        names.emplace_back(list.GetAt(i) == nullptr ? "" : list.GetAt(i));
    }
    return names;
}

// The drive that the system puts before "/a": a letter on Windows, nothing elsewhere.
std::string here() {
    CExtString full;
    EXPECT_TRUE(Path::MakeAbsoluteFullPath("/a", full));
    return full.Left(full.GetLength() - 2).GetString();
}

#ifdef _WIN32
// Code page 932 for the length of a test. In it "\x83\x5C" is one character whose second byte is a backslash.
class CodePage932 {
public:
    CodePage932() { EXPECT_NE(std::setlocale(LC_CTYPE, "Japanese_Japan.932"), nullptr); }
    ~CodePage932() { std::setlocale(LC_CTYPE, "C"); }
    CodePage932(const CodePage932&) = delete;
    CodePage932& operator=(const CodePage932&) = delete;
};
#endif

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

#ifdef _WIN32

TEST(FilePathSeparators, ASecondByteIsLeftAlone) {
    CodePage932 japanese;
    EXPECT_EQ(replaced("\x83\x5C\\\x83\x5C", true), "\x83\x5C/\x83\x5C");
    CExtString text("\x83\x5C\\x");
    EXPECT_TRUE(Path::ReplaceSeparateCharacters(text, true));
    EXPECT_EQ(text, "\x83\x5C/x");
}

TEST(FilePathSeparators, OutsideTheCodePageTheSameByteIsASeparator) {
    EXPECT_EQ(replaced("\x83\x5C\\", true), "\x83//");
}

TEST(FilePathSeparators, ALeadByteAtTheEndIsNotSteppedOver) {
    CodePage932 japanese;
    char text[] = "a\\\x83\0\\b";
    EXPECT_TRUE(Path::ReplaceSeparateCharacters(text, true));
    EXPECT_EQ(std::string(text, sizeof text - 1), std::string("a/\x83\0\\b", 6));
}

// The system's own code page may be another, to which the second bytes are separators: none stands beside a real one.
TEST(FilePathSeparators, AnAbsolutePathKeepsItsDoubleByteNames) {
    CodePage932 japanese;
    Path path;
    ASSERT_TRUE(path.CreateFromFullPath("C:\\a\\\x83\x5Cg\\x\x83\x5C.txt"));
    EXPECT_EQ(path.parts(), "C:|/a/\x83\x5Cg|x\x83\x5C.txt");
    EXPECT_EQ(path.QueryDirectoryName(), "\\a\\\x83\x5Cg");
    EXPECT_EQ(path.MakeFullPath(false), "C:\\a\\\x83\x5Cg\\x\x83\x5C.txt");
}

#endif

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

// --- construction ----------------------------------------------------------------------------------------------------

TEST(FilePath, ANewOneIsEmpty) {
    EXPECT_EQ(Path().parts(), "||");
}

TEST(FilePath, TheSwitchIsOffAtFirst) {
    EXPECT_FALSE(CFilePath::IsDispInternalSeparator());
    EXPECT_FALSE(Path::sm_bDispInternalSeparator);
}

TEST(FilePath, TheSwitchIsTheExportedMember) {
    InternalSeparators on;
    EXPECT_TRUE(CFilePath::IsDispInternalSeparator());
    EXPECT_TRUE(Path::sm_bDispInternalSeparator);
}

TEST(FilePath, TheVirtualTableHoldsTheDestructorThenTheCopy) {
    Path original("C:", "/a", "x");
    using Copy = CFilePath* (*)(const CFilePath*);
    // A virtual destructor takes two entries of the table.
    const Copy copy = (*reinterpret_cast<Copy* const*>(static_cast<CFilePath*>(&original)))[2];
    const std::unique_ptr<CFilePath> made(copy(&original));
    EXPECT_TRUE(original == *made);
}

TEST(FilePathCreate, AFullPathIsTakenApart) {
    Path path;
    EXPECT_TRUE(path.CreateFromFullPath("/a/b/f.txt"));
    EXPECT_EQ(path.parts(), here() + "|/a/b|f.txt");
    EXPECT_EQ(parts_of(Path(CExtString("/a/b/f.txt"))), here() + "|/a/b|f.txt");
}

TEST(FilePathCreate, ARelativeNameIsResolvedAgainstTheWorkingFolder) {
    Path path;
    ASSERT_TRUE(path.CreateFromFullPath("f.txt"));
    EXPECT_EQ(path.MakeFullPath(true).GetString(), std::filesystem::current_path().generic_string() + "/f.txt");
    EXPECT_EQ(path.QueryDirectoryName().Find('/'), -1);
}

TEST(FilePathCreate, PointsAreFolded) {
    Path path;
    EXPECT_TRUE(path.CreateFromFullPath("/a/./b/../c/f.txt"));
    EXPECT_EQ(path.parts(), here() + "|/a/c|f.txt");
}

TEST(FilePathCreate, ASeparatorAtTheEndGivesAnEmptyName) {
    Path path;
    EXPECT_TRUE(path.CreateFromFullPath("/a/b/"));
    EXPECT_EQ(path.parts(), here() + "|/a/b|");
}

TEST(FilePathCreate, ANetworkPathKeepsItsShareAsTheDrive) {
    Path path;
    EXPECT_TRUE(path.CreateFromFullPath("//srv/share/x/y"));
    EXPECT_EQ(path.parts(), "//srv/share|/x|y");
}

TEST(FilePathCreate, ANetworkShareAloneFails) {
    Path path("C:", "/a", "x");
    EXPECT_FALSE(path.CreateFromFullPath("//srv/share"));
    EXPECT_EQ(path.parts(), "||");
}

TEST(FilePathCreate, AnEmptyPathEmptiesTheParts) {
    Path path("C:", "/a", "x");
    EXPECT_FALSE(path.CreateFromFullPath(""));
    EXPECT_EQ(path.parts(), "||");
}

TEST(FilePathCreate, APathThatIsTooLongEmptiesTheParts) {
    Path path("C:", "/a", "x");
    EXPECT_FALSE(path.CreateFromFullPath(("/" + std::string(3000, 'x')).c_str()));
    EXPECT_EQ(path.parts(), "||");
}

TEST(FilePathCreate, DirectoryAndNameAreJoined) {
    Path path;
    EXPECT_TRUE(path.CreateFromPathName("/a/b", "f.txt"));
    EXPECT_EQ(path.parts(), here() + "|/a/b|f.txt");
    EXPECT_EQ(parts_of(Path(CExtString("/a/b"), CExtString("f.txt"))), here() + "|/a/b|f.txt");
}

TEST(FilePathCreate, ASlashBehindTheDirectoryDoesNoHarm) {
    Path path;
    EXPECT_TRUE(path.CreateFromPathName("/a/b/", "f.txt"));
    EXPECT_EQ(path.parts(), here() + "|/a/b|f.txt");
}

TEST(FilePathCreate, TheNameMayHoldDirectories) {
    Path path;
    EXPECT_TRUE(path.CreateFromPathName("/a/b", "../c/f.txt"));
    EXPECT_EQ(path.parts(), here() + "|/a/c|f.txt");
}

TEST(FilePathCreate, AnEmptyDirectoryOrNameFails) {
    Path path("C:", "/a", "x");
    EXPECT_FALSE(path.CreateFromPathName("", "f.txt"));
    EXPECT_EQ(path.parts(), "||");
    path = Path("C:", "/a", "x");
    EXPECT_FALSE(path.CreateFromPathName("/a", ""));
    EXPECT_EQ(path.parts(), "||");
}

TEST(FilePathCreate, ThreePiecesAreJoined) {
    Path path;
    EXPECT_TRUE(path.CreateFromDriveDirName("//srv/share", "/a", "f.txt"));
    EXPECT_EQ(path.parts(), "//srv/share|/a|f.txt");
    EXPECT_EQ(parts_of(CFilePath("//srv/share", "/a", "f.txt")), "//srv/share|/a|f.txt");
}

TEST(FilePathCreate, AnyEmptyPieceOfThreeFails) {
    for (const auto& pieces : {std::vector{"", "/a", "x"}, {"//s/t", "", "x"}, {"//s/t", "/a", ""}}) {
        Path path("C:", "/a", "x");
        EXPECT_FALSE(path.CreateFromDriveDirName(pieces[0], pieces[1], pieces[2]));
        EXPECT_EQ(path.parts(), "||");
    }
}

#ifdef _WIN32

TEST(FilePathCreate, ADriveLetterIsTheDrive) {
    Path path;
    EXPECT_TRUE(path.CreateFromDriveDirName("C:", "\\a\\b", "f.txt"));
    EXPECT_EQ(path.parts(), "C:|/a/b|f.txt");
}

TEST(FilePathCreate, TheSystemDropsAPointAtTheEnd) {
    Path path;
    EXPECT_TRUE(path.CreateFromFullPath("C:\\archive."));
    EXPECT_EQ(path.parts(), "C:|/|archive");
}

#endif

TEST(FilePathCopy, AllThreePartsAreCopied) {
    const Path original("C:", "/a", "x");
    Path copy(original);
    EXPECT_EQ(copy.parts(), "C:|/a|x");
    Path assigned("D:", "/b", "y");
    EXPECT_EQ(&(assigned = original), &assigned);
    EXPECT_EQ(assigned.parts(), "C:|/a|x");
    EXPECT_TRUE(copy.CopyData(Path()));
    EXPECT_EQ(copy.parts(), "||");
}

TEST(FilePathCopy, OntoItselfChangesNothing) {
    Path path("C:", "/a", "x");
    EXPECT_TRUE(path.CopyData(path));
    EXPECT_EQ(path.parts(), "C:|/a|x");
}

TEST(FilePathCopy, AnInstanceIsTheCallers) {
    Path original("C:", "/a", "x");
    const std::unique_ptr<CFilePath> copy(original.GetCopyInstance());
    original.Initialize();
    EXPECT_EQ(copy->MakeFullPath(true), "C:/a/x");
}

TEST(FilePathInitialize, ThePartsAreEmptied) {
    Path path("C:", "/a", "x");
    EXPECT_TRUE(path.Initialize());
    EXPECT_EQ(path.parts(), "||");
    path = Path("C:", "/a", "x");
    path.InvalidObject();
    EXPECT_EQ(path.parts(), "||");
}

// --- queries ---------------------------------------------------------------------------------------------------------

TEST(FilePathQuery, DriveAndDirectoryHaveBackslashesWhileTheSwitchIsOff) {
    const Path path("//srv/share", "/a/b", "x/y");
    EXPECT_EQ(path.QueryDriveName(), "\\\\srv\\share");
    EXPECT_EQ(path.QueryDirectoryName(), "\\a\\b");
    EXPECT_EQ(path.QueryFileName(), "x/y");
}

TEST(FilePathQuery, TheSwitchKeepsTheSlashes) {
    const Path path("//srv/share", "/a/b", "x");
    InternalSeparators on;
    EXPECT_EQ(path.QueryDriveName(), "//srv/share");
    EXPECT_EQ(path.QueryDirectoryName(), "/a/b");
    EXPECT_EQ(path.MakeDirPath(false), "//srv/share/a/b");
    EXPECT_EQ(path.MakeFullPath(false), "//srv/share/a/b/x");
    EXPECT_EQ(path.MakeDirectory(false), "/a/b");
    EXPECT_EQ(path.MakeShortFullPath(100, false), "//srv/share/a/b/x");
    EXPECT_EQ(path.MakeShortFullPath(1, false), "//srv/share/.../x");
}

TEST(FilePathQuery, TheNameHasABaseAndAnExtension) {
    const Path path("C:", "/a.b", "f.old.txt");
    EXPECT_EQ(path.GetFileBaseName(), "f.old");
    EXPECT_EQ(path.GetFileExtension(), "txt");
}

TEST(FilePathMake, TheDirectoryPathIsDriveAndDirectory) {
    EXPECT_EQ(Path("C:", "/a/b", "x").MakeDirPath(true), "C:/a/b");
    EXPECT_EQ(Path("C:", "/a/b", "x").MakeDirPath(false), "C:\\a\\b");
    EXPECT_EQ(Path("C:", "/", "x").MakeDirPath(true), "C:/");
    EXPECT_EQ(Path("", "", "x").MakeDirPath(true), "");
}

TEST(FilePathMake, TheFullPathHasASeparatorBeforeTheName) {
    EXPECT_EQ(Path("C:", "/a/b", "x").MakeFullPath(true), "C:/a/b/x");
    EXPECT_EQ(Path("C:", "/a/b", "x").MakeFullPath(false), "C:\\a\\b\\x");
    EXPECT_EQ(Path("", "/a", "x").MakeFullPath(true), "/a/x");
}

TEST(FilePathMake, AFileInTheRootHasNoDoubledSlash) {
    EXPECT_EQ(Path("C:", "/", "x").MakeFullPath(true), "C:/x");
}

TEST(FilePathMake, AnEmptyNameLeavesTheSeparatorAtTheEnd) {
    EXPECT_EQ(Path("C:", "/a", "").MakeFullPath(true), "C:/a/");
    EXPECT_EQ(Path("C:", "/", "").MakeFullPath(true), "C:/");
}

TEST(FilePathMake, ANameAloneIsNotUsed) {
    EXPECT_EQ(Path("", "", "x").MakeFullPath(true), "");
}

TEST(FilePathMake, ADriveAloneIsFollowedByASeparator) {
    EXPECT_EQ(Path("C:", "", "x").MakeFullPath(true), "C:/x");
}

TEST(FilePathMake, TheDirectoryIsWhole) {
    EXPECT_EQ(Path("C:", "/a/b/c", "x").MakeDirectory(true), "/a/b/c");
    EXPECT_EQ(Path("C:", "/a/b/c", "x").MakeDirectory(false), "\\a\\b\\c");
    EXPECT_EQ(Path("C:", "/", "x").MakeDirectory(false), "\\");
    EXPECT_EQ(Path().MakeDirectory(false), "");
}

TEST(FilePathRoot, OnlyASingleSlashIsTheRoot) {
    EXPECT_TRUE(CFilePath::IsRootDir(Path("C:", "/", "x")));
    EXPECT_FALSE(CFilePath::IsRootDir(Path("C:", "/a", "x")));
    EXPECT_FALSE(CFilePath::IsRootDir(Path()));
}

// --- AnalyzeDirectoryList, MakeShortFullPath -------------------------------------------------------------------------

TEST(FilePathDirectories, StandInOrder) {
    EXPECT_EQ(directories("/usr/local/lib"), (std::vector<std::string>{"usr", "local", "lib"}));
    EXPECT_EQ(directories("/a"), std::vector<std::string>{"a"});
}

TEST(FilePathDirectories, TheRootHasNone) {
    EXPECT_TRUE(directories("/").empty());
    EXPECT_TRUE(directories("").empty());
}

TEST(FilePathShort, ALengthThatSufficesGivesTheFullPath) {
    const Path path("C:", "/aa/bb/cc", "f.txt");  // 17 bytes
    EXPECT_EQ(path.MakeShortFullPath(17, true), "C:/aa/bb/cc/f.txt");
    EXPECT_EQ(path.MakeShortFullPath(17, false), "C:\\aa\\bb\\cc\\f.txt");
    EXPECT_EQ(path.MakeShortFullPath(1000, true), "C:/aa/bb/cc/f.txt");
}

TEST(FilePathShort, AsManyLastDirectoriesAsFitAreKept) {
    const Path path("C:", "/long/bb/cc", "f.txt");  // 19 bytes; 12, 15, 18 with none, one, two directories
    EXPECT_EQ(path.MakeShortFullPath(18, true), "C:/.../bb/cc/f.txt");
    EXPECT_EQ(path.MakeShortFullPath(17, true), "C:/.../cc/f.txt");
    EXPECT_EQ(path.MakeShortFullPath(15, true), "C:/.../cc/f.txt");
    EXPECT_EQ(path.MakeShortFullPath(14, true), "C:/.../f.txt");
    EXPECT_EQ(path.MakeShortFullPath(14, false), "C:\\...\\f.txt");
}

TEST(FilePathShort, ADirectoryThatDoesNotFitEndsTheChoice) {
    EXPECT_EQ(Path("C:", "/a/b/longest/c", "f").MakeShortFullPath(13, true), "C:/.../c/f");
}

TEST(FilePathShort, TheNameIsNeverCut) {
    const Path path("C:", "/aa/bb", "f.txt");
    EXPECT_EQ(path.MakeShortFullPath(11, true), "C:/.../f.txt");
    EXPECT_EQ(path.MakeShortFullPath(0, true), "C:/.../f.txt");
    EXPECT_EQ(path.MakeShortFullPath(-2147483647 - 1, true), "C:/.../f.txt");
}

TEST(FilePathShort, AFileInTheRootTakesTheLeastFormToo) {
    EXPECT_EQ(Path("C:", "/", "f.txt").MakeShortFullPath(3, true), "C:/.../f.txt");
}

TEST(FilePathShort, NothingStaysEmpty) {
    EXPECT_EQ(Path().MakeShortFullPath(-1, true), "");
}

// --- comparing -------------------------------------------------------------------------------------------------------

TEST(FilePathCompare, CaseIsIgnoredInAllThreeParts) {
    const Path left("C:", "/A", "b.TXT");
    const Path right("c:", "/a", "B.txt");
    EXPECT_TRUE(left.Compare(right));
    EXPECT_TRUE(left == right);
    EXPECT_FALSE(left != right);
    EXPECT_TRUE(left.CompareNoChkDrivemap(right));
}

TEST(FilePathCompare, EachPartCounts) {
    const Path path("C:", "/a", "x");
    for (const Path& other : {Path("D:", "/a", "x"), Path("C:", "/b", "x"), Path("C:", "/a", "y"), Path()}) {
        EXPECT_FALSE(path.Compare(other));
        EXPECT_FALSE(path == other);
        EXPECT_TRUE(path != other);
    }
}

TEST(FilePathCompare, TheDriveIsComparedWhateverTheNameSays) {
    EXPECT_FALSE(Path("C:", "/a", "x").CompareNoChkDrivemap(Path("D:", "/a", "x")));
}

TEST(FilePathCompare, EmptyPartsAreEmptyTexts) {
    EXPECT_TRUE(Path() == Path("", "", ""));
    EXPECT_FALSE(Path() == Path("", "/", ""));
}
