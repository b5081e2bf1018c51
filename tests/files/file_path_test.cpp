// The object CFilePath: how it is made, what it hands out, how it compares.
#include "orvil/files/file_path.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "files/file_path_probe.h"
#include "orvil/strings/ext_str_array.h"

namespace {

using orvil::test::InternalSeparators;
using orvil::test::Path;

std::string parts_of(const CFilePath& path) {
    Path copy;
    copy.CopyData(path);
    return copy.parts();
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

}  // namespace

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
    const Copy* table = nullptr;
    std::memcpy(&table, static_cast<const CFilePath*>(&original), sizeof table);
    const std::unique_ptr<CFilePath> made(table[2](&original));
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
