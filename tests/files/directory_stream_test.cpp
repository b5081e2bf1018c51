#include "orvil/files/directory_stream.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <dlfcn.h>
#include <sys/resource.h>
#include <unistd.h>
#endif

#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "files/directory_names.h"
#include "support/lost_memory.h"
#include "support/temp_dir.h"
#include "support/working_folder.h"

namespace {

using orvil::test::InFolder;
using orvil::test::Names;
using orvil::test::next_name;
using orvil::test::rest_of;
using orvil::test::sorted;
using orvil::test::TempDir;
using orvil::test::working_folder;

namespace fs = std::filesystem;

// A folder with a file, one without a point in its name, and a folder that is not empty.
class DirectoryStream : public testing::Test {
protected:
    void SetUp() override {
        folder.write("a.txt", "text");
        folder.write("noext", "");
        fs::create_directory(folder.path("sub"));
        folder.write("sub/inner.txt", "");
    }

    const TempDir folder;
    const Names all{".", "..", "a.txt", "noext", "sub"};
};

// All names of a folder, in order of the alphabet.
Names names_of(const std::string& path) {
    DIR* stream = opendir(path.c_str());
    EXPECT_NE(stream, nullptr);
    Names names = sorted(rest_of(stream));
    EXPECT_EQ(closedir(stream), 0);
    return names;
}

}  // namespace

TEST_F(DirectoryStream, YieldsEachEntryOnceAndTheDotsLikeAnyOther) {
    EXPECT_EQ(names_of(folder.path("")), all);
}

TEST_F(DirectoryStream, YieldsAThousandEntries) {
    Names expected{".", ".."};
    fs::create_directory(folder.path("many"));
    for (int i = 1000; i < 2000; ++i) {
        expected.push_back("file " + std::to_string(i));
        folder.write("many/" + expected.back(), "");
    }
    EXPECT_EQ(names_of(folder.path("many")), expected);
}

TEST_F(DirectoryStream, EntriesAreCountedFromOneAndCarryTheLengthOfTheirNames) {
    DIR* stream = opendir(folder.path("").c_str());
    int count = 0;
    while (const dirent* entry = readdir(stream)) {
        EXPECT_EQ(entry->d_ino, 1);
        EXPECT_EQ(entry->d_off, ++count);
        EXPECT_EQ(entry->d_reclen, std::strlen(entry->d_name));
    }
    EXPECT_EQ(count, 5);
    closedir(stream);
}

TEST_F(DirectoryStream, TheEntryIsTheStreamsAndIsUsedAgain) {
    DIR* stream = opendir(folder.path("").c_str());
    const dirent* first = readdir(stream);
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(readdir(stream), first);
    closedir(stream);
}

TEST_F(DirectoryStream, TheEndStaysTheEnd) {
    DIR* stream = opendir(folder.path("").c_str());
    rest_of(stream);
    EXPECT_EQ(readdir(stream), nullptr);
    EXPECT_EQ(readdir(stream), nullptr);
    closedir(stream);
}

TEST_F(DirectoryStream, MissingDirectoryYieldsNothingAndLeavesTheWorkingDirectory) {
    const InFolder here(folder.path("sub"));
    const std::string before = working_folder();
    DIR* stream = opendir(folder.path("none").c_str());
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(readdir(stream), nullptr);
    EXPECT_EQ(readdir(stream), nullptr);
    EXPECT_EQ(working_folder(), before);
    EXPECT_EQ(closedir(stream), 0);
}

TEST_F(DirectoryStream, FileAndEmptyPathYieldNothing) {
    for (const std::string& path : {folder.path("a.txt"), std::string()}) {
        const InFolder here(folder.path("sub"));
        DIR* stream = opendir(path.c_str());
        ASSERT_NE(stream, nullptr);
        EXPECT_EQ(readdir(stream), nullptr);
        closedir(stream);
    }
}

TEST_F(DirectoryStream, WorkingDirectoryIsTheSameAfterEveryCall) {
    const InFolder here(folder.path("sub"));
    const std::string before = working_folder();
    DIR* stream = opendir(folder.path("").c_str());
    EXPECT_EQ(working_folder(), before);
    while (readdir(stream) != nullptr) {
        EXPECT_EQ(working_folder(), before);
    }
    EXPECT_EQ(working_folder(), before);
    closedir(stream);
    EXPECT_EQ(working_folder(), before);
}

TEST_F(DirectoryStream, OpeningDoesNotAskTheFileSystem) {
    DIR* stream = opendir(folder.path("later").c_str());
    ASSERT_NE(stream, nullptr);
    fs::create_directory(folder.path("later"));
    folder.write("later/x", "");
    EXPECT_EQ(sorted(rest_of(stream)), (Names{".", "..", "x"}));
    closedir(stream);
}

TEST_F(DirectoryStream, ThePathIsCopied) {
    std::string path = folder.path("sub");
    DIR* stream = opendir(path.c_str());
    path.assign(path.size(), '?');
    EXPECT_EQ(sorted(rest_of(stream)), (Names{".", "..", "inner.txt"}));
    closedir(stream);
}

TEST_F(DirectoryStream, RelativePathIsTakenFromTheWorkingDirectoryOfTheReading) {
    fs::create_directories(folder.path("other/sub"));
    folder.write("other/sub/there.txt", "");
    DIR* stream = nullptr;
    {
        const InFolder here(folder.path(""));
        stream = opendir("sub");
    }
    const InFolder other(folder.path("other"));
    EXPECT_EQ(sorted(rest_of(stream)), (Names{".", "..", "there.txt"}));
    closedir(stream);
}

TEST_F(DirectoryStream, RelativePathOutOfSightYieldsNothingUntilItIsBack) {
    const InFolder here(folder.path(""));
    DIR* stream = opendir("sub");
    Names names{next_name(stream)};
    {
        const InFolder elsewhere(folder.path("sub"));
        EXPECT_EQ(readdir(stream), nullptr);
    }
    for (const std::string& name : rest_of(stream)) {
        names.push_back(name);
    }
    EXPECT_EQ(sorted(names), (Names{".", "..", "inner.txt"}));
    closedir(stream);
}

TEST_F(DirectoryStream, TwoOnOneDirectoryAreIndependent) {
    DIR* first = opendir(folder.path("").c_str());
    DIR* second = opendir(folder.path("").c_str());
    Names of_first{next_name(first), next_name(first)};
    Names of_second;
    for (int i = 0; i < 3; ++i) {
        of_second.push_back(next_name(second));
        of_first.push_back(next_name(first));
    }
    EXPECT_EQ(sorted(of_first), all);
    EXPECT_EQ(closedir(first), 0);
    of_second.push_back(next_name(second));
    of_second.push_back(next_name(second));
    EXPECT_EQ(sorted(of_second), all);
    closedir(second);
}

TEST_F(DirectoryStream, ClosingBeforeOrAmidstReadingReleasesEverything) {
    EXPECT_EQ(closedir(opendir(folder.path("").c_str())), 0);
    DIR* stream = opendir(folder.path("").c_str());
    EXPECT_NE(readdir(stream), nullptr);
    EXPECT_EQ(closedir(stream), 0);
}

TEST(NullStream, IsNoStream) {
    EXPECT_EQ(opendir(nullptr), nullptr);
    EXPECT_EQ(readdir(nullptr), nullptr);
    EXPECT_EQ(closedir(nullptr), -1);
    rewinddir(nullptr);
}

// The stream that it opens is lost; the caller's has ended, so that its directory can be removed.
TEST_F(DirectoryStream, RewindingEndsIt) {
    const std::string before = working_folder();
    DIR* stream = opendir(folder.path("sub").c_str());
    ASSERT_NE(readdir(stream), nullptr);
    {
        const orvil::test::LostMemory lost;
        rewinddir(stream);
    }
    EXPECT_EQ(working_folder(), before);
    EXPECT_EQ(fs::remove_all(folder.path("sub")), 2u);
}

TEST_F(DirectoryStream, NameOf255BytesIsWhole) {
    const std::string name = std::string(251, 'n') + ".txt";
    const InFolder here(folder.path("sub"));
    folder.write("sub/" + name, "");
    EXPECT_EQ(names_of("."), sorted({".", "..", "inner.txt", name}));
}

#ifndef _WIN32

static int count_open_files() {
    int count = 0;
    for ([[maybe_unused]] const auto& entry : fs::directory_iterator("/proc/self/fd")) {
        ++count;
    }
    return count;
}

TEST_F(DirectoryStream, NoFileStaysOpen) {
    const int before = count_open_files();
    DIR* stream = opendir(folder.path("").c_str());
    readdir(stream);
    EXPECT_EQ(count_open_files(), before + 1);
    rest_of(stream);
    closedir(stream);
    EXPECT_EQ(count_open_files(), before);
    DIR* rewound = opendir(folder.path("").c_str());
    readdir(rewound);
    const orvil::test::LostMemory lost;
    rewinddir(rewound);
    EXPECT_EQ(count_open_files(), before);
}

// Lets so many more files be opened than are open now.
class FewFiles {
public:
    explicit FewFiles(int more) {
        getrlimit(RLIMIT_NOFILE, &former_);
        rlimit limit = former_;
        limit.rlim_cur = static_cast<rlim_t>(first_unused() + more);
        setrlimit(RLIMIT_NOFILE, &limit);
    }
    ~FewFiles() { setrlimit(RLIMIT_NOFILE, &former_); }
    FewFiles(const FewFiles&) = delete;
    FewFiles& operator=(const FewFiles&) = delete;

private:
    static int first_unused() {
        const int file = dup(0);
        close(file);
        return file;
    }

    rlimit former_{};
};

TEST_F(DirectoryStream, WithoutFilesToOpenYieldsNothingAndStaysWhereItIs) {
    DIR* stream = opendir(folder.path("").c_str());
    const std::string before = working_folder();
    for (int more : {0, 1}) {
        const FewFiles few(more);
        EXPECT_EQ(readdir(stream), nullptr);
        EXPECT_EQ(working_folder(), before);
    }
    EXPECT_EQ(sorted(rest_of(stream)), all);
    closedir(stream);
}

TEST_F(DirectoryStream, WorkingDirectoryWithoutANameIsComeBackTo) {
    DIR* stream = opendir(folder.path("").c_str());
    fs::create_directory(folder.path("gone"));
    const InFolder here(folder.path("gone"));
    fs::remove(folder.path("gone"));
    EXPECT_EQ(sorted(rest_of(stream)), all);
    char path[16];
    EXPECT_EQ(getcwd(path, sizeof path), nullptr);
    closedir(stream);
}

TEST_F(DirectoryStream, WithoutANamedWorkingDirectoryNoneIsOpened) {
    fs::create_directory(folder.path("gone"));
    const InFolder here(folder.path("gone"));
    fs::remove(folder.path("gone"));
    EXPECT_EQ(opendir(folder.path("").c_str()), nullptr);
}

TEST(DirectoryStreamNames, DoNotReplaceThoseOfTheCLibrary) {
    EXPECT_NE(dlsym(RTLD_DEFAULT, "opendir"), reinterpret_cast<void*>(&opendir));
    EXPECT_NE(dlsym(RTLD_DEFAULT, "readdir"), reinterpret_cast<void*>(&readdir));
    EXPECT_NE(dlsym(RTLD_DEFAULT, "rewinddir"), reinterpret_cast<void*>(&rewinddir));
    EXPECT_NE(dlsym(RTLD_DEFAULT, "closedir"), reinterpret_cast<void*>(&closedir));
    EXPECT_EQ(dlsym(RTLD_DEFAULT, "orvil_readdir"), reinterpret_cast<void*>(&readdir));
}

#endif
