// CFilePath when memory runs out: false or an empty text, or the stated result.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "orvil/files/file_path.h"
#include "orvil/strings/ext_str_array.h"
#include "support/failing_allocator.h"

namespace {

using orvil::test::sweep_allocation_failures;

class Path : public CFilePath {
public:
    using CFilePath::AnalyzeDirectoryList;
    using CFilePath::AnalyzePathParts;
    using CFilePath::CFilePath;
    using CFilePath::DivideDriveDir;
    using CFilePath::MakeAbsoluteFullPath;

    Path() = default;
    bool is_empty() const { return drive_.IsEmpty() && directory_.IsEmpty() && file_name_.IsEmpty(); }
};

// The texts of a path that is made anew in each run.
struct Texts {
    CExtString share = "//server/a share whose name is long";
    CExtString directory = "/first directory/second directory";
    CExtString name = "the name of a file.extension";
};

}  // namespace

// Makes the texts before anything is refused: in the sweeps only the operation itself allocates.
static const Texts& texts() {
    static const Texts made;
    return made;
}

static const Path& whole_path() {
    static const Path path(texts().share, texts().directory, texts().name);
    return path;
}

// Runs a query again and again, with each of its allocations refused once: it gives the expected text or nothing.
template <typename Query>
static void expect_text_or_nothing(const std::string& expected, Query query) {
    whole_path();
    sweep_allocation_failures([&](auto failed) {
        const CExtString text = query(whole_path());
        if (failed()) {
            EXPECT_TRUE(text.IsEmpty() || text == expected.c_str()) << text.GetString();
        } else {
            EXPECT_EQ(text, expected.c_str());
        }
    });
}

TEST(FilePathWithoutMemory, AFullPathIsTakenApartOrThePartsAreEmpty) {
    const CExtString full = whole_path().MakeFullPath(true);
    sweep_allocation_failures([&](auto failed) {
        Path path;
        const bool made = path.CreateFromFullPath(full);
        EXPECT_EQ(made, !failed());
        EXPECT_EQ(path.is_empty(), !made);
    });
}

TEST(FilePathWithoutMemory, ThreePiecesAreJoinedOrThePartsAreEmpty) {
    const Texts& pieces = texts();
    sweep_allocation_failures([&](auto failed) {
        Path path;
        const bool made = path.CreateFromDriveDirName(pieces.share, pieces.directory, pieces.name);
        EXPECT_EQ(made, !failed());
        EXPECT_EQ(path.is_empty(), !made);
    });
}

TEST(FilePathWithoutMemory, TheAbsolutePathIsFalse) {
    sweep_allocation_failures([](auto failed) {
        CExtString full;
        const bool made = Path::MakeAbsoluteFullPath("/a/long/enough/path", full);
        EXPECT_EQ(made, !failed());
    });
}

TEST(FilePathWithoutMemory, TheAnalysisIsFalse) {
    const CExtString full("//server/share/directory/name");
    sweep_allocation_failures([&](auto failed) {
        CExtString drive;
        CExtString directory;
        CExtString name;
        const bool made = Path::AnalyzePathParts(full, drive, directory, name);
        EXPECT_EQ(made, !failed());
    });
}

TEST(FilePathWithoutMemory, TheDivisionIsFalse) {
    const CExtString full("//server/share/directory/name");
    sweep_allocation_failures([&](auto failed) {
        CExtString drive;
        CExtString directory;
        const bool made = Path::DivideDriveDir(full, drive, directory);
        EXPECT_EQ(made, !failed());
    });
}

TEST(FilePathWithoutMemory, TheListOfDirectoriesIsFalse) {
    whole_path();
    sweep_allocation_failures([](auto failed) {
        CExtStrArray list;
        const bool made = whole_path().AnalyzeDirectoryList(list);
        EXPECT_EQ(made, !failed());
    });
}

TEST(FilePathWithoutMemory, AnInstanceIsNull) {
    whole_path();
    sweep_allocation_failures([](auto failed) {
        const std::unique_ptr<CFilePath> copy(whole_path().GetCopyInstance());
        EXPECT_TRUE(copy != nullptr || failed());
        EXPECT_TRUE(failed() || *copy == whole_path());
    });
}

TEST(FilePathWithoutMemory, TheFullPathIsWholeOrEmpty) {
    expect_text_or_nothing(
        "//server/a share whose name is long/first directory/second directory/the name of a file.extension",
        [](const Path& path) { return path.MakeFullPath(true); });
}

TEST(FilePathWithoutMemory, TheDirectoryPathIsWholeOrEmpty) {
    expect_text_or_nothing("\\\\server\\a share whose name is long\\first directory\\second directory",
                           [](const Path& path) { return path.MakeDirPath(false); });
}

TEST(FilePathWithoutMemory, TheShortPathIsWholeOrEmpty) {
    whole_path();
    sweep_allocation_failures([](auto failed) {
        const CExtString text = whole_path().MakeShortFullPath(90, true);
        const char* expected = "//server/a share whose name is long/.../second directory/the name of a file.extension";
        EXPECT_TRUE(text == expected || (failed() && text.IsEmpty())) << text.GetString();
    });
}

TEST(FilePathWithoutMemory, QueriesAreWholeOrEmpty) {
    expect_text_or_nothing("\\first directory\\second directory",
                           [](const Path& path) { return path.QueryDirectoryName(); });
    expect_text_or_nothing("the name of a file", [](const Path& path) { return path.GetFileBaseName(); });
    expect_text_or_nothing("extension", [](const Path& path) { return path.GetFileExtension(); });
}

TEST(FilePathWithoutMemory, AJoinedNameIsWholeOrEmpty) {
    const CExtString base("a base name of some length");
    const CExtString extension("extension");
    expect_text_or_nothing("a base name of some length.extension",
                           [&](const Path&) { return CFilePath::MakeFileName(base, extension); });
}
