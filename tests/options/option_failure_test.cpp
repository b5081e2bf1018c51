// The option parser with each allocation refused in turn: nothing is read or written astray, and what is there is
// right.
#include <string>

#include "options/option_support.h"
#include "support/failing_allocator.h"

namespace orvil::test {
namespace {

// Texts that do not fit into what the parser has without asking.
const std::string kLong(20000, 'x');

const std::string kNote = "value '" + kLong + "' is not boolean symbol : name [debug]";
const std::string kLongDeclaration = kLong + ": L";
const CExtStrList kArguments =
    list_of({"-o", kLong, "--define=" + kLong, "-D", "b", kLong, "item", "-d", "--debug=" + kLong, "-o=last"});
const CExtStrList kItems = list_of(Texts(20000, "item"));

// The long one comes last: without memory for it there would be none for what follows.
void declare_all() {
    const char* const booleans[] = {"debug: d", nullptr};
    const char* const scalars[] = {"output: o", kLongDeclaration.c_str(), nullptr};
    const char* const lists[] = {"define: D", nullptr};
    getopt_init_boolmap(booleans);
    getopt_init_listmap(lists);
    getopt_init_scalarmap(scalars);
}

bool is_text_or_nothing(const char* text, std::string_view expected) {
    return std::string_view(text) == expected || *text == '\0';
}

TEST(OptionFailure, WhatCannotBeKeptIsLeftOut) {
    sweep_allocation_failures([](auto failed) {
        getopt_initialize();
        declare_all();
        const bool parsed = getopt_parse_arguments(kArguments, false);
        EXPECT_TRUE(parsed || failed());
        EXPECT_TRUE(getopt_boolean("debug"));
        EXPECT_EQ(getopt_get_errorpos(), 9);
        EXPECT_TRUE(is_text_or_nothing(getopt_scalar("output"), "last"));
        EXPECT_LE(getopt_list_count("define"), 2);
        EXPECT_LE(getopt_item_count(), 2);
        EXPECT_TRUE(failed() || (getopt_list_count("define") == 2 && getopt_item_count() == 2));
        EXPECT_TRUE(is_text_or_nothing(getopt_get_errornote(), kNote));
        EXPECT_TRUE(failed() || kNote == getopt_get_errornote());
        getopt_terminate();
    });
}

TEST(OptionFailure, NameThatCannotBeEnteredHasNoValue) {
    sweep_allocation_failures([](auto failed) {
        getopt_initialize();
        declare_all();
        EXPECT_FALSE(getopt_boolean(kLong.c_str()));
        EXPECT_TRUE(getopt_scalar(kLong.c_str()).IsEmpty());
        EXPECT_EQ(getopt_list_count(kLong.c_str()), 0);
        EXPECT_TRUE(getopt_list(kLong.c_str(), 0).IsEmpty());
        EXPECT_TRUE(failed() || !getopt_boolean("L"));
        getopt_terminate();
    });
}

TEST(OptionFailure, ManyValuesEndWhereMemoryEnds) {
    sweep_allocation_failures([](auto failed) {
        getopt_initialize();
        EXPECT_TRUE(getopt_parse_arguments(kItems, true));
        EXPECT_EQ(getopt_get_errorpos(), 20000);
        EXPECT_TRUE(getopt_item_count() == 20000 || failed());
        for (int i = 0; i < getopt_item_count(); ++i) {
            ASSERT_STREQ(getopt_item(i), "item");
        }
        getopt_terminate();
    });
}

TEST(OptionFailure, SplittingGivesAllWordsOrNone) {
    sweep_allocation_failures([](auto failed) {
        CExtStrList words;
        const bool split = getopt_parse_string_to_list("prog \"a b\" c", words, true);
        EXPECT_TRUE(split || failed());
        EXPECT_EQ(words.GetCount(), split ? 3 : 0);
        if (split) {
            EXPECT_STREQ(words.GetHead(), "prog");
            EXPECT_STREQ(words.GetTail(), "c");
        }
    });
}

// Neither declarations nor results leave anything behind that would in time fill the parser's own memory, or the
// largest block that a test before this one may have left.
TEST(OptionMemory, UsualCommandLineNeedsNone) {
    static const CExtStrList arguments = list_of({"-o", "out/sheet.plt", "-d", "--define=PEN", "sheet1.plt"});
    const char* const booleans[] = {"debug: d", "verbose: v", "quiet: q", nullptr};
    const char* const scalars[] = {"output: o", "scale: s", "pens: p", nullptr};
    const char* const lists[] = {"define: D", nullptr};
    start_counting_allocations();
    for (int i = 0; i < 3000; ++i) {
        getopt_initialize();
        getopt_init_boolmap(booleans);
        getopt_init_scalarmap(scalars);
        getopt_init_listmap(lists);
        getopt_parse_arguments(arguments, true);
        getopt_clean();
        getopt_parse_arguments(arguments, true);
        getopt_terminate();
    }
    EXPECT_EQ(stop_counting_allocations(), 0);
}

}  // namespace
}  // namespace orvil::test
