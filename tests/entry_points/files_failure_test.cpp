// Paths, searches and files.
#include <gtest/gtest.h>

#include "entry_points/entry_points.h"
#include "orvil/files/current_directory.h"
#include "orvil/files/file_path.h"
#include "orvil/files/file_search.h"
#include "orvil/files/file_utils.h"
#include "support/temp_dir.h"
#include "support/working_folder.h"

namespace orvil::test {
namespace {

struct Path : CFilePath {
    using CFilePath::CFilePath;
    using CFilePath::CheckDriveName;
    using CFilePath::InvalidObject;
    using CFilePath::IsSameDriveMap;
    using CFilePath::ReplaceSeparateCharacters;
    using CFilePath::sm_bDispInternalSeparator;
};

struct Search : CFileSearch {
    using CFileSearch::MatchPattern;
};

class EntryPointsOfFiles : public testing::Test {
protected:
    EntryPointsOfFiles() { folder.write("drawing.plt", "PU;"); }

    TempDir folder;
    InFolder inside{folder.path(".")};
};

TEST_F(EntryPointsOfFiles, PathsAreMadeTakenApartAndCompared) {
    sweep_each(
        [] {
            const CFilePath whole(CExtString("a/drawing.plt"));
            const CFilePath two(CExtString("/folder"), CExtString("drawing.plt"));
            const CFilePath three(CExtString("C:"), CExtString("/folder"), CExtString("drawing.plt"));
            Path path;
            path.CreateFromPathName("/folder", "drawing.plt");
            Path second;
            second.CopyData(whole);
            const CFilePath third(two);
            CFilePath copy;
            copy = three;
            EXPECT_EQ(copy != three, !copy.Compare(three));
            copy.CompareNoChkDrivemap(whole);
            copy.QueryDriveName();
            copy.QueryFileName();
            copy.MakeDirectory(true);
            CFilePath::CheckDriveType(copy);
            CFilePath::IsRootDir(copy);
            Path().Initialize();
        },
        [] {
            Path path(CExtString("/a/long/folder/of/many/parts"), CExtString("drawing.plt"));
            CExtString text;
            path.MakeShortFullPath(20, true);
            Path::ReplaceSeparateCharacters(text, false);
            char bytes[] = "a/b";
            Path::ReplaceSeparateCharacters(bytes, true);
            Path::CheckDriveName("C:");
            Path::IsSameDriveMap("C:", "c:");
            Path().InvalidObject();
        },
        [] {
            CFilePath::DivideBaseName("drawing.plt");
            CFilePath::DivideExtension("drawing.plt");
            CFilePath::SetDispInternalSeparator(CFilePath::IsDispInternalSeparator());
            EXPECT_EQ(Path::sm_bDispInternalSeparator, CFilePath::IsDispInternalSeparator());
        });
}

TEST_F(EntryPointsOfFiles, SearchesAreCopiedAndAsked) {
    sweep_each([] {
        Search search;
        search.Setup("*.plt");
        if (search.FindNext()) {
            const CFileSearch copy(search);
            EXPECT_FALSE(search.IsDirectory() || search.IsReadOnly() || search.IsDots());
            search.MatchPattern();
        }
        search.Close();
    });
}

TEST_F(EntryPointsOfFiles, FilesAreCopiedMovedAndAsked) {
    sweep_each([] {
        const CCurrentDirectory back;
        orv_copyfile("drawing.plt", "copy.plt", false);
        orv_movefile("copy.plt", "moved.plt");
        EXPECT_EQ(orv_access("drawing.plt", 0), 0);
        EXPECT_EQ(orv_statsize("drawing.plt"), 3u);
        EXPECT_NE(orv_statmode("drawing.plt"), 0u);
        EXPECT_NE(orv_stattime("drawing.plt", 1), 0u);
    });
}

}  // namespace
}  // namespace orvil::test
