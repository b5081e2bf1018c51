// How arguments are told apart and consumed.
#include "options/option_support.h"

namespace orvil::test {
namespace {

class OptionParsing : public DeclaredOptionTest {};

void expect_refused(const Texts& arguments, const std::string& note, int position) {
    for (bool stop_at_error : {true, false}) {
        getopt_clean();
        EXPECT_FALSE(parse(arguments, stop_at_error)) << note;
        EXPECT_EQ(getopt_get_errornote(), note);
        EXPECT_EQ(getopt_get_errorpos(), position) << note;
    }
}

// --- the whole -------------------------------------------------------------------------------------------------------

TEST_F(OptionParsing, AllFormsTogether) {
    EXPECT_TRUE(parse({"-o", "out.txt", "-d", "-D", "A", "--define=B", "file1", "-", "file2"}));
    EXPECT_EQ(scalar("output"), "out.txt");
    EXPECT_TRUE(getopt_boolean("debug"));
    EXPECT_EQ(values_of("define"), Texts({"A", "B"}));
    EXPECT_EQ(items(), Texts({"file1", "-", "file2"}));
    EXPECT_EQ(getopt_get_errorpos(), 9);
    EXPECT_STREQ(getopt_get_errornote(), "");
}

TEST_F(OptionParsing, NoArgumentsAreParsed) {
    EXPECT_TRUE(parse({}));
    EXPECT_EQ(getopt_get_errorpos(), 0);
    EXPECT_TRUE(getopt_item_empty());
}

TEST_F(OptionParsing, PositionIsSetToZeroWhenAParseBegins) {
    EXPECT_TRUE(parse({"a", "b", "c"}));
    EXPECT_TRUE(parse({"d"}));
    EXPECT_EQ(getopt_get_errorpos(), 1);
}

TEST_F(OptionParsing, ArgumentsAreNotChanged) {
    const CExtStrList arguments = list_of({"-o", "x", "y"});
    EXPECT_TRUE(getopt_parse_arguments(arguments, true));
    EXPECT_EQ(texts_of(arguments), Texts({"-o", "x", "y"}));
}

// --- items -----------------------------------------------------------------------------------------------------------

TEST_F(OptionParsing, EmptyArgumentAndASingleDashAreItems) {
    EXPECT_TRUE(parse({"", "-", "a-b"}));
    EXPECT_EQ(items(), Texts({"", "-", "a-b"}));
    EXPECT_EQ(getopt_get_errorpos(), 3);
}

// --- what is no option -----------------------------------------------------------------------------------------------

class OptionRefusal : public DeclaredOptionTest, public testing::WithParamInterface<const char*> {};

TEST_P(OptionRefusal, IsAnUnknownOption) {
    expect_refused({"item", GetParam(), "-d"}, std::string("unknown option '") + GetParam() + "'", 1);
    EXPECT_EQ(items(), Texts({"item"}));
    EXPECT_FALSE(getopt_boolean("debug"));
}

INSTANTIATE_TEST_SUITE_P(Arguments, OptionRefusal,
                         testing::Values("-x", "--", "-abc", "-ofile", "-dd", "-o=", "-o:", "-=", "-:", "-=x", "-o=\n",
                                         "-o=a\nb", "-o=a\n\n", "-o=\na", "--output=", "--output:", "--=", "--:x",
                                         "--=x", "--output=\n", "--output=a\nb", "--output=a\n\n", "-\n", "-\n\n",
                                         "-o\nx", "-o\n\n", "-1", "-\xE4", "-x=1"),
                         [](const auto& test) { return "Number" + std::to_string(test.index); });

// A long form whose name is not declared is consumed, but not counted.
TEST_F(OptionParsing, UnknownNameIsConsumedWithoutCounting) {
    EXPECT_FALSE(parse({"a", "--colour=red", "b"}));
    EXPECT_STREQ(getopt_get_errornote(), "unknown option name 'colour'");
    EXPECT_EQ(getopt_get_errorpos(), 1);
    EXPECT_EQ(items(), Texts({"a"}));
}

TEST_F(OptionParsing, UnknownNameIsPassedOverWhenErrorsAreIgnored) {
    EXPECT_TRUE(parse({"a", "--colour", "b"}, false));
    EXPECT_STREQ(getopt_get_errornote(), "unknown option name 'colour'");
    EXPECT_EQ(getopt_get_errorpos(), 2);
    EXPECT_EQ(items(), Texts({"a", "b"}));
}

TEST_F(OptionParsing, DashesBehindTheFirstTwoAreALongName) {
    EXPECT_FALSE(parse({"---"}));
    EXPECT_STREQ(getopt_get_errornote(), "unknown option name '-'");
    EXPECT_FALSE(parse({"---x"}));
    EXPECT_STREQ(getopt_get_errornote(), "unknown option name '-x'");
}

TEST_F(OptionParsing, LetterIsNoLongName) {
    EXPECT_FALSE(parse({"--o=x"}));
    EXPECT_STREQ(getopt_get_errornote(), "unknown option name 'o'");
}

TEST_F(OptionParsing, PartOfANameIsUnknown) {
    EXPECT_FALSE(parse({"--out=x"}));
    EXPECT_STREQ(getopt_get_errornote(), "unknown option name 'out'");
}

TEST_F(OptionParsing, AskingForANameDoesNotMakeItKnown) {
    getopt_scalar("colour");
    EXPECT_FALSE(parse({"--colour=red"}));
    EXPECT_STREQ(getopt_get_errornote(), "unknown option name 'colour'");
}

TEST_F(OptionParsing, LineFeedEndsALongName) {
    declare_scalars({"name\n", "\n"});
    EXPECT_TRUE(parse({"--name\n", "x", "--\n", "y"}));
    EXPECT_EQ(scalar("name\n"), "x");
    EXPECT_EQ(dumped(getopt_scalardump).find("-\n: y\n") == std::string::npos, false);
    EXPECT_FALSE(parse({"--output\n", "x"}));
    EXPECT_STREQ(getopt_get_errornote(), "unknown option name 'output\n'");
}

TEST_F(OptionParsing, LineFeedBehindALetterIsNoPartOfIt) {
    EXPECT_TRUE(parse({"-o\n", "x"}));
    EXPECT_EQ(scalar("output"), "x");
}

// --- attached values -------------------------------------------------------------------------------------------------

struct Attached {
    const char* situation;
    const char* argument;
    const char* value;
};

class OptionAttachedValue : public DeclaredOptionTest, public testing::WithParamInterface<Attached> {};

TEST_P(OptionAttachedValue, IsStored) {
    EXPECT_TRUE(parse({GetParam().argument, "item"}));
    EXPECT_EQ(scalar("output"), GetParam().value);
    EXPECT_EQ(getopt_get_errorpos(), 2);
    EXPECT_EQ(items(), Texts({"item"}));
}

INSTANTIATE_TEST_SUITE_P(
    Arguments, OptionAttachedValue,
    testing::Values(Attached{"LongByEquals", "--output=ab", "ab"}, Attached{"LongByColon", "--output:ab", "ab"},
                    Attached{"ShortByEquals", "-o=ab", "ab"}, Attached{"ShortByColon", "-o:ab", "ab"},
                    Attached{"SecondEqualsBelongsToTheValue", "--output==b", "=b"},
                    Attached{"ColonBehindEquals", "--output=:b", ":b"}, Attached{"EqualsBehindColon", "-o:a=b", "a=b"},
                    Attached{"Dash", "-o=-d", "-d"}, Attached{"OneEquals", "-o==", "="}, Attached{"Blank", "-o= ", " "},
                    Attached{"CarriageReturn", "-o=a\rb", "a\rb"},
                    Attached{"LastLineFeedIsLeftOut", "--output=ab\n", "ab"},
                    Attached{"LastLineFeedOfAShortFormIsLeftOut", "-o:b\n", "b"}),
    [](const auto& test) { return std::string(test.param.situation); });

TEST_F(OptionParsing, LastScalarWins) {
    EXPECT_TRUE(parse({"-o=a long value at first", "--output", "b"}));
    EXPECT_EQ(scalar("output"), "b");
    EXPECT_TRUE(parse({"-o=and then a much longer value than that at first"}));
    EXPECT_EQ(scalar("output"), "and then a much longer value than that at first");
}

// --- following values ------------------------------------------------------------------------------------------------

TEST_F(OptionParsing, FollowingArgumentIsTheValue) {
    EXPECT_TRUE(parse({"--output", "a", "--define", "b"}));
    EXPECT_EQ(scalar("output"), "a");
    EXPECT_EQ(values_of("define"), Texts({"b"}));
    EXPECT_EQ(getopt_get_errorpos(), 4);
}

TEST_F(OptionParsing, FollowingEmptyArgumentIsTheValue) {
    EXPECT_TRUE(parse({"-o=x", "--output", "", "-D", ""}));
    EXPECT_EQ(scalar("output"), "");
    EXPECT_EQ(values_of("define"), Texts({""}));
    EXPECT_EQ(getopt_get_errorpos(), 5);
    EXPECT_TRUE(getopt_item_empty());
}

TEST_F(OptionParsing, LineFeedOfAFollowingArgumentIsKept) {
    EXPECT_TRUE(parse({"-o", "a\nb\n"}));
    EXPECT_EQ(scalar("output"), "a\nb\n");
}

TEST_F(OptionParsing, MissingLastValueIsEmptyAndCountsAsConsumed) {
    EXPECT_TRUE(parse({"--output"}));
    EXPECT_EQ(getopt_get_errorpos(), 2);
    EXPECT_EQ(dumped(getopt_scalardump), "--- Scalar map [1] items. ---\n  0-output: \n\n");
    EXPECT_TRUE(parse({"x", "-D"}));
    EXPECT_EQ(getopt_get_errorpos(), 3);
    EXPECT_EQ(values_of("define"), Texts({""}));
}

TEST_F(OptionParsing, MissingLastValueReplacesTheOneBefore) {
    EXPECT_TRUE(parse({"-o=x", "-o"}));
    EXPECT_EQ(scalar("output"), "");
}

TEST_F(OptionParsing, OptionBeforeADashIsDropped) {
    EXPECT_TRUE(parse({"--output", "-d"}));
    EXPECT_EQ(dumped(getopt_scalardump), "--- Scalar map [0] items. ---\n  0-output: \n\n");
    EXPECT_TRUE(getopt_boolean("debug"));
    EXPECT_EQ(getopt_get_errorpos(), 1);
    EXPECT_STREQ(getopt_get_errornote(), "");
}

TEST_F(OptionParsing, ListBeforeASingleDashIsDroppedToo) {
    EXPECT_TRUE(parse({"-D", "-", "-D", "-5=x"}, false) == false);
    EXPECT_EQ(getopt_list_count("define"), 0);
    EXPECT_EQ(items(), Texts({"-"}));
    EXPECT_STREQ(getopt_get_errornote(), "unknown option '-5=x'");
}

TEST_F(OptionParsing, DroppedOptionKeepsTheFormerValue) {
    EXPECT_TRUE(parse({"-o=x", "-o", "-d"}));
    EXPECT_EQ(scalar("output"), "x");
    EXPECT_EQ(getopt_get_errorpos(), 2);
}

// --- booleans --------------------------------------------------------------------------------------------------------

TEST_F(OptionParsing, BooleanTakesAFollowingSymbol) {
    EXPECT_TRUE(parse({"--debug", "No", "x"}));
    EXPECT_FALSE(getopt_boolean("debug"));
    EXPECT_EQ(items(), Texts({"x"}));
    EXPECT_EQ(getopt_get_errorpos(), 3);
    EXPECT_TRUE(parse({"-d", "yes"}));
    EXPECT_TRUE(getopt_boolean("debug"));
    EXPECT_EQ(getopt_get_errorpos(), 2);
}

TEST_F(OptionParsing, BooleanLeavesWhatIsNoSymbol) {
    EXPECT_TRUE(parse({"--debug", "file1"}));
    EXPECT_TRUE(getopt_boolean("debug"));
    EXPECT_EQ(items(), Texts({"file1"}));
    EXPECT_EQ(getopt_get_errorpos(), 2);
}

TEST_F(OptionParsing, BooleanLeavesAnEmptyArgument) {
    EXPECT_TRUE(parse({"-d", ""}));
    EXPECT_TRUE(getopt_boolean("debug"));
    EXPECT_EQ(items(), Texts({""}));
}

TEST_F(OptionParsing, BooleanTakesAWordThatEndsLikeOne) {
    EXPECT_TRUE(parse({"--debug", "plan"}));
    EXPECT_FALSE(getopt_boolean("debug"));
    EXPECT_TRUE(getopt_item_empty());
    EXPECT_EQ(getopt_get_errorpos(), 2);
}

TEST_F(OptionParsing, BooleanTakesASymbolThatBeginsWithADash) {
    declare_booleans({"run: n"});
    EXPECT_TRUE(parse({"--debug", "--run"}));
    EXPECT_FALSE(getopt_boolean("debug"));
    EXPECT_FALSE(getopt_boolean("run"));
    EXPECT_EQ(getopt_get_errorpos(), 2);
    EXPECT_TRUE(parse({"-d", "-n", "-d", "--unknown=no"}));
    EXPECT_FALSE(getopt_boolean("debug"));
    EXPECT_EQ(getopt_get_errorpos(), 4);
}

TEST_F(OptionParsing, LastBooleanIsOn) {
    EXPECT_TRUE(parse({"-d"}));
    EXPECT_TRUE(getopt_boolean("debug"));
    EXPECT_EQ(getopt_get_errorpos(), 1);
}

TEST_F(OptionParsing, TurningOffRemovesTheEntry) {
    EXPECT_TRUE(parse({"--debug", "x", "--debug=off"}));
    EXPECT_EQ(dumped(getopt_booldump), "--- Boolean map [0] items. ---\n  0-debug: \n\n");
    EXPECT_FALSE(getopt_boolean("debug"));
}

TEST_F(OptionParsing, AttachedValueThatIsNoSymbolIsAnError) {
    EXPECT_FALSE(parse({"a", "--debug=maybe", "b"}));
    EXPECT_STREQ(getopt_get_errornote(), "value 'maybe' is not boolean symbol : name [debug]");
    EXPECT_EQ(getopt_get_errorpos(), 1);
    EXPECT_EQ(items(), Texts({"a"}));
}

TEST_F(OptionParsing, ErrorNamesTheLongNameOfALetter) {
    EXPECT_FALSE(parse({"-d:maybe"}));
    EXPECT_STREQ(getopt_get_errornote(), "value 'maybe' is not boolean symbol : name [debug]");
}

TEST_F(OptionParsing, ErrorIsPassedOverWhenErrorsAreIgnored) {
    EXPECT_TRUE(parse({"-d", "--debug=maybe", "--colour", "b"}, false));
    EXPECT_TRUE(getopt_boolean("debug"));
    EXPECT_STREQ(getopt_get_errornote(), "unknown option name 'colour'");
    EXPECT_EQ(getopt_get_errorpos(), 2);
}

TEST_F(OptionParsing, AttachedWordThatEndsLikeASymbolMeansOff) {
    EXPECT_TRUE(parse({"-d", "--debug=ban"}));
    EXPECT_FALSE(getopt_boolean("debug"));
}

}  // namespace
}  // namespace orvil::test
