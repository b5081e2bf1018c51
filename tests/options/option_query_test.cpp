// Asking for results by name and by index, and the dumps.
#include "options/option_support.h"

namespace orvil::test {
namespace {

class OptionQuery : public DeclaredOptionTest {};

// --- names -----------------------------------------------------------------------------------------------------------

TEST_F(OptionQuery, LetterAnswersForItsName) {
    EXPECT_TRUE(parse({"--debug", "--output=x", "--define=y"}));
    EXPECT_TRUE(getopt_boolean("d"));
    EXPECT_EQ(scalar("o"), "x");
    EXPECT_EQ(getopt_list_count("D"), 1);
    EXPECT_EQ(getopt_list("D", 0), "y");
}

TEST_F(OptionQuery, UndeclaredLetterIsTheEmptyName) {
    EXPECT_EQ(scalar("q"), "");
    EXPECT_EQ(dumped(getopt_scalardump), "--- Scalar map [1] items. ---\n  0-output: \n\n");
    EXPECT_EQ(scalar("r"), "");
    EXPECT_EQ(scalar(""), "");
    EXPECT_EQ(scalar(nullptr), "");
    EXPECT_EQ(scalar("\xE4"), "");
    EXPECT_EQ(dumped(getopt_scalardump), "--- Scalar map [2] items. ---\n  0-output: \n\n");
}

TEST_F(OptionQuery, OneLetterIsShortEvenWhenThereIsALongNameLikeIt) {
    declare_scalars({"x"});
    EXPECT_TRUE(parse({"--x=1"}));
    EXPECT_EQ(scalar("x"), "");
    EXPECT_NE(dumped(getopt_scalardump).find("-x: 1\n"), std::string::npos);
}

TEST_F(OptionQuery, EachFunctionLooksIntoItsOwnMap) {
    EXPECT_TRUE(parse({"-o=x", "-d", "-D=y"}));
    EXPECT_FALSE(getopt_boolean("output"));
    EXPECT_EQ(scalar("define"), "");
    EXPECT_EQ(getopt_list_count("debug"), 0);
    EXPECT_EQ(scalar("output"), "x");
}

// --- entering --------------------------------------------------------------------------------------------------------

TEST_F(OptionQuery, AskingEntersTheName) {
    EXPECT_FALSE(getopt_boolean("none"));
    EXPECT_FALSE(getopt_boolean("none"));
    EXPECT_FALSE(getopt_boolean("debug"));
    EXPECT_EQ(dumped(getopt_booldump), "--- Boolean map [2] items. ---\n  0-debug: \n\n");
    EXPECT_EQ(scalar("none"), "");
    EXPECT_EQ(dumped(getopt_scalardump), "--- Scalar map [1] items. ---\n  0-output: \n\n");
    EXPECT_EQ(getopt_list_count("none"), 0);
    EXPECT_EQ(getopt_list("other", 7), "");
    EXPECT_EQ(dumped(getopt_listdump), "--- List map [2] lists. ---\n\n");
}

TEST_F(OptionQuery, TurningOffRemovesAnEntryThatWasAskedFor) {
    EXPECT_FALSE(getopt_boolean("debug"));
    EXPECT_TRUE(parse({"-d=off"}));
    EXPECT_EQ(dumped(getopt_booldump).find("--- Boolean map [0] items. ---\n"), 0U);
}

TEST_F(OptionQuery, NameThatIsDeclaredLaterHasOneEntry) {
    EXPECT_EQ(scalar("later"), "");
    declare_scalars({"later"});
    EXPECT_TRUE(parse({"--later=x"}));
    EXPECT_EQ(dumped(getopt_scalardump).find("--- Scalar map [1] items. ---\n"), 0U);
    EXPECT_EQ(scalar("later"), "x");
}

// --- lists and items -------------------------------------------------------------------------------------------------

TEST_F(OptionQuery, ListIndexOutOfRangeGivesNothing) {
    EXPECT_TRUE(parse({"-D=a", "-D=b"}));
    EXPECT_EQ(getopt_list("define", 1), "b");
    EXPECT_EQ(getopt_list("define", 2), "");
    EXPECT_EQ(getopt_list("define", -1), "");
}

TEST_F(OptionQuery, ListKeepsManyValuesInOrder) {
    Texts arguments;
    Texts values;
    for (int i = 0; i < 10000; ++i) {
        values.push_back("value " + std::to_string(i));
        arguments.push_back("-D=" + values.back());
    }
    EXPECT_TRUE(parse(arguments));
    EXPECT_EQ(values_of("define"), values);
}

TEST_F(OptionQuery, ItemIndexOutOfRangeGivesNull) {
    EXPECT_TRUE(getopt_item_empty());
    EXPECT_EQ(getopt_item(0), nullptr);
    EXPECT_TRUE(parse({"a", ""}));
    EXPECT_FALSE(getopt_item_empty());
    EXPECT_EQ(getopt_item_count(), 2);
    EXPECT_STREQ(getopt_item(0), "a");
    EXPECT_STREQ(getopt_item(1), "");
    EXPECT_EQ(getopt_item(2), nullptr);
    EXPECT_EQ(getopt_item(-1), nullptr);
}

TEST_F(OptionQuery, LongTextsAreKeptWhole) {
    const std::string text(3000000, 'x');
    EXPECT_TRUE(parse({text, "-o", text, "--define=" + text, "y"}));
    EXPECT_EQ(items(), Texts({text, "y"}));
    EXPECT_EQ(scalar("output"), text);
    EXPECT_EQ(getopt_list("define", 0), text.c_str());
    EXPECT_FALSE(parse({"-d=" + text}));
    EXPECT_EQ(getopt_get_errornote(), "value '" + text + "' is not boolean symbol : name [debug]");
}

// --- dumps -----------------------------------------------------------------------------------------------------------

TEST_F(OptionQuery, DumpsShowEachPartOfTheState) {
    declare_booleans({"quiet: q"});
    EXPECT_TRUE(parse({"-d", "-o=x", "-D=1", "--define", "", "item", ""}));
    EXPECT_EQ(dumped(getopt_booldump), "--- Boolean map [1] items. ---\n  0-quiet: \n  1-debug: 1\n\n");
    EXPECT_EQ(dumped(getopt_booldump), "--- Boolean map [2] items. ---\n  0-quiet: \n  1-debug: 1\n\n");
    EXPECT_EQ(dumped(getopt_scalardump), "--- Scalar map [1] items. ---\n  0-output: x\n\n");
    EXPECT_EQ(dumped(getopt_listdump), "--- List map [1] lists. ---\n  define-0: 1\n  define-1: \n\n");
    EXPECT_EQ(dumped(getopt_itemdump), "  file-0: item\n  file-1: \n");
}

TEST_F(OptionQuery, ListDumpEntersListsWithoutCountingThem) {
    EXPECT_EQ(dumped(getopt_listdump), "--- List map [0] lists. ---\n\n");
    EXPECT_EQ(dumped(getopt_listdump), "--- List map [1] lists. ---\n\n");
}

TEST_F(OptionQuery, EmptyItemDumpWritesNothing) {
    EXPECT_EQ(dumped(getopt_itemdump), "");
}

TEST_F(OptionQuery, DumpToNoStreamChangesNothing) {
    EXPECT_TRUE(getopt_booldump(nullptr));
    EXPECT_TRUE(getopt_scalardump(nullptr));
    EXPECT_TRUE(getopt_listdump(nullptr));
    EXPECT_TRUE(getopt_itemdump(nullptr));
    EXPECT_EQ(dumped(getopt_booldump), "--- Boolean map [0] items. ---\n  0-debug: \n\n");
}

TEST_F(OptionQuery, PercentSignsAreOrdinary) {
    declare_scalars({"100%s"});
    EXPECT_TRUE(parse({"--100%s=%n", "%d"}));
    EXPECT_NE(dumped(getopt_scalardump).find("-100%s: %n\n"), std::string::npos);
    EXPECT_EQ(dumped(getopt_itemdump), "  file-0: %d\n");
}

// Names in the order of 37 buckets: the bucket of a letter is its code modulo 37. "b", "\x87" and "G" share number 24
// ('b' is 98, 0x87 is 135); "a" is in bucket 23.
class OptionDumpOrder : public OptionTest {};

TEST_F(OptionDumpOrder, IsByBucketAndInABucketTheNewestFirst) {
    declare_scalars({"b", "a", "\x87"});
    EXPECT_EQ(dumped(getopt_scalardump), "--- Scalar map [0] items. ---\n  0-a: \n  1-\x87: \n  2-b: \n\n");
}

TEST_F(OptionDumpOrder, KeepsThePlaceOfANameThatIsDeclaredAgain) {
    declare_scalars({"b", "\x87", "b"});
    EXPECT_EQ(dumped(getopt_scalardump), "--- Scalar map [0] items. ---\n  0-\x87: \n  1-b: \n\n");
}

// The two-letter names of one bucket: 33 * 'a' + 'b' and 33 * 'b' + 'A' are both 3299.
TEST_F(OptionDumpOrder, IsNotChangedByNamesThatWereOnlyAskedFor) {
    getopt_scalar("ab");
    declare_scalars({"bA", "ab"});
    EXPECT_EQ(dumped(getopt_scalardump), "--- Scalar map [1] items. ---\n  0-ab: \n  1-bA: \n\n");
}

TEST_F(OptionDumpOrder, NumbersRunOverTheKindOnly) {
    declare_scalars({"a", "c"});
    declare_booleans({"b"});
    EXPECT_EQ(dumped(getopt_scalardump), "--- Scalar map [0] items. ---\n  0-a: \n  1-c: \n\n");
    EXPECT_EQ(dumped(getopt_booldump), "--- Boolean map [0] items. ---\n  0-b: \n\n");
}

}  // namespace
}  // namespace orvil::test
