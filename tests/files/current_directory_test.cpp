#include "orvil/files/current_directory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <type_traits>

#include "support/temp_dir.h"
#include "support/working_folder.h"

using orvil::test::TempDir;
using orvil::test::working_folder;

static_assert(!std::is_copy_constructible_v<CCurrentDirectory> && !std::is_copy_assignable_v<CCurrentDirectory>);

TEST(CurrentDirectory, IsThatOfTheBeginningAtTheEnd) {
    const TempDir folder;
    const std::string before = working_folder();
    {
        const CCurrentDirectory here;
        std::filesystem::current_path(folder.path(""));
        EXPECT_NE(working_folder(), before);
    }
    EXPECT_EQ(working_folder(), before);
}

TEST(CurrentDirectory, ScopesInEachOtherGoBackStepByStep) {
    const TempDir folder;
    const std::string before = working_folder();
    std::optional<CCurrentDirectory> outer(std::in_place);
    std::filesystem::current_path(folder.path(""));
    const std::string between = working_folder();
    std::filesystem::create_directory("sub");
    {
        const CCurrentDirectory inner;
        std::filesystem::current_path("sub");
    }
    EXPECT_EQ(working_folder(), between);
    outer.reset();
    EXPECT_EQ(working_folder(), before);
}

TEST(CurrentDirectory, OneThatIsGoneIsNotGoneBackTo) {
    const TempDir folder;
    const orvil::test::InFolder around(folder.path(""));
    const std::string outside = working_folder();
    std::filesystem::create_directory("gone");
    std::filesystem::current_path("gone");
    {
        const CCurrentDirectory here;
        std::filesystem::current_path(outside);
        std::filesystem::remove("gone");
    }
    EXPECT_EQ(working_folder(), outside);
}
