// Declarations, and the life of what is declared and parsed.
#include "options/option_support.h"

namespace orvil::test {
namespace {

class OptionDeclaration : public OptionTest {};

// --- the form --------------------------------------------------------------------------------------------------------

struct Form {
    const char* situation;
    const char* declaration;
    const char* name;
    const char* letter;  // empty for none
};

class OptionDeclarationForm : public OptionTest, public testing::WithParamInterface<Form> {};

// The name shows in the dump; the letter, by what it sets.
TEST_P(OptionDeclarationForm, GivesNameAndLetter) {
    declare_scalars({GetParam().declaration});
    const std::string letter = GetParam().letter;
    EXPECT_EQ(parse({"-" + (letter.empty() ? "v" : letter) + "=x"}), !letter.empty());
    const std::string header = letter.empty() ? "--- Scalar map [0] items. ---\n" : "--- Scalar map [1] items. ---\n";
    EXPECT_EQ(dumped(getopt_scalardump),
              header + "  0-" + GetParam().name + ": " + (letter.empty() ? "" : "x") + "\n\n");
}

INSTANTIATE_TEST_SUITE_P(
    Texts, OptionDeclarationForm,
    testing::Values(
        Form{"Usual", "verbose: v", "verbose", "v"}, Form{"NoBlank", "verbose:v", "verbose", "v"},
        Form{"UpperCaseLetter", "verbose: V", "verbose", "V"}, Form{"LastLetter", "verbose: Z", "verbose", "Z"},
        Form{"LastSmallLetter", "verbose: z", "verbose", "z"},
        Form{"BlankBeforeTheColonBelongsToTheName", "  name : v  ", "name ", "v"},
        Form{"AllWhiteSpaceIsSkipped", " \t\n\v\f\rname:\t\n\v\f\rv \t\n\v\f\r", "name", "v"},
        Form{"OneBlankIsAName", " : v", " ", "v"}, Form{"TheLastOfSeveralBlanksIsTheName", " \n\t: v", "\t", "v"},
        Form{"BlanksInTheName", "a b: v", "a b", "v"}, Form{"NameOfOneByte", "x: v", "x", "v"},
        Form{"BytesAbove127", "\xC3\xA4\xA0: v", "\xC3\xA4\xA0", "v"},
        Form{"LineFeedBehindTheLetter", "name: v\n", "name", "v"}, Form{"JustAName", "verbose", "verbose", ""},
        Form{"NameWithBlanksAround", " verbose ", " verbose ", ""}, Form{"NothingBeforeTheColon", ": v", ": v", ""},
        Form{"TwoLetters", "a: bc", "a: bc", ""}, Form{"TwoLettersApart", "a: b c", "a: b c", ""},
        Form{"NoLetter", "a:", "a:", ""}, Form{"BlankForALetter", "a: ", "a: ", ""},
        Form{"TwoColons", "a:b:c", "a:b:c", ""}, Form{"TwoColonsSideBySide", "a::b", "a::b", ""},
        Form{"Digit", "a: 1", "a: 1", ""}, Form{"CharacterBelowUpperCase", "a: @", "a: @", ""},
        Form{"CharacterAboveUpperCase", "a: [", "a: [", ""}, Form{"CharacterBelowLowerCase", "a: `", "a: `", ""},
        Form{"CharacterAboveLowerCase", "a: {", "a: {", ""}, Form{"NoBreakSpaceIsNoSpace", "a:\xA0v", "a:\xA0v", ""},
        Form{"Empty", "", "", ""}),
    [](const auto& test) { return std::string(test.param.situation); });

// --- several declarations --------------------------------------------------------------------------------------------

TEST_F(OptionDeclaration, NullArrayDeclaresNothing) {
    EXPECT_TRUE(getopt_init_boolmap(nullptr));
    EXPECT_TRUE(getopt_init_scalarmap(nullptr));
    EXPECT_TRUE(getopt_init_listmap(nullptr));
    EXPECT_EQ(dumped(getopt_booldump), "--- Boolean map [0] items. ---\n\n");
}

TEST_F(OptionDeclaration, CallsAddToEarlierOnes) {
    declare_booleans({"alpha: a"});
    declare_booleans({"beta: b"});
    EXPECT_TRUE(parse({"-a", "-b"}));
    EXPECT_TRUE(getopt_boolean("alpha"));
    EXPECT_TRUE(getopt_boolean("beta"));
}

TEST_F(OptionDeclaration, ALaterLetterReplacesTheEarlier) {
    declare_scalars({"first: x", "second: x"});
    EXPECT_TRUE(parse({"-x=1"}));
    EXPECT_EQ(scalar("first"), "");
    EXPECT_EQ(scalar("second"), "1");
    EXPECT_EQ(scalar("x"), "1");
}

TEST_F(OptionDeclaration, ANameKeepsItsEarlierLetters) {
    declare_scalars({"name: a", "name: b"});
    EXPECT_TRUE(parse({"-a=1"}));
    EXPECT_EQ(scalar("b"), "1");
}

TEST_F(OptionDeclaration, ALaterKindReplacesTheEarlier) {
    declare_scalars({"name: n"});
    EXPECT_TRUE(parse({"--name=scalar"}));
    declare_lists({"name"});
    EXPECT_TRUE(parse({"-n=list"}));
    EXPECT_EQ(scalar("name"), "scalar");
    EXPECT_EQ(values_of("name"), Texts({"list"}));
    EXPECT_EQ(dumped(getopt_scalardump), "--- Scalar map [1] items. ---\n\n");
}

TEST_F(OptionDeclaration, CaseCountsInNamesAndLetters) {
    declare_scalars({"name: n", "Name: N"});
    EXPECT_TRUE(parse({"--name=1", "-N=2"}));
    EXPECT_EQ(scalar("n"), "1");
    EXPECT_EQ(scalar("Name"), "2");
    EXPECT_FALSE(parse({"--NAME=3"}));
}

TEST_F(OptionDeclaration, TextsAreCopied) {
    std::string text = "name: n";
    declare_scalars({text});
    const char* const array[] = {text.c_str(), nullptr};
    EXPECT_TRUE(getopt_init_scalarmap(array));
    text = "other: o";
    EXPECT_TRUE(parse({"--name=1"}));
}

TEST_F(OptionDeclaration, ThousandsOfNamesAreKeptApart) {
    Texts names;
    Texts arguments;
    for (int i = 0; i < 3000; ++i) {
        names.push_back("name" + std::to_string(i));
        arguments.push_back("--name" + std::to_string(i) + "=" + std::to_string(i));
    }
    declare_scalars(names);
    EXPECT_TRUE(parse(arguments));
    for (int i = 0; i < 3000; ++i) {
        ASSERT_EQ(scalar(names[static_cast<std::size_t>(i)].c_str()), std::to_string(i));
    }
}

// --- life cycle ------------------------------------------------------------------------------------------------------

class OptionLife : public DeclaredOptionTest {
protected:
    OptionLife() {
        EXPECT_FALSE(parse({"-o", "x", "-d", "-D=1", "item", "-?"}));
        EXPECT_EQ(getopt_get_errorpos(), 5);
    }
    static void expect_no_results() {
        EXPECT_EQ(getopt_get_errorpos(), 0);
        EXPECT_STREQ(getopt_get_errornote(), "");
        EXPECT_TRUE(getopt_item_empty());
        EXPECT_EQ(dumped(getopt_booldump).find("--- Boolean map [0] items. ---\n"), 0U);
        EXPECT_EQ(dumped(getopt_scalardump).find("--- Scalar map [0] items. ---\n"), 0U);
        EXPECT_EQ(dumped(getopt_listdump).find("--- List map [0] lists. ---\n"), 0U);
        EXPECT_FALSE(getopt_boolean("debug"));
        EXPECT_EQ(scalar("output"), "");
        EXPECT_EQ(getopt_list_count("define"), 0);
    }
};

TEST_F(OptionLife, CleanForgetsResultsAndKeepsDeclarations) {
    getopt_clean();
    expect_no_results();
    EXPECT_TRUE(parse({"-o", "y", "--debug", "--define:2"}));
    EXPECT_EQ(scalar("output"), "y");
    EXPECT_TRUE(getopt_boolean("d"));
    EXPECT_EQ(values_of("D"), Texts({"2"}));
}

TEST_F(OptionLife, CleanForgetsNamesThatWereAskedFor) {
    getopt_boolean("never declared");
    getopt_clean();
    EXPECT_EQ(dumped(getopt_booldump).find("--- Boolean map [0] items. ---\n"), 0U);
}

void expect_no_declarations() {
    EXPECT_EQ(dumped(getopt_booldump), "--- Boolean map [0] items. ---\n\n");
    EXPECT_EQ(dumped(getopt_scalardump), "--- Scalar map [0] items. ---\n\n");
    EXPECT_EQ(dumped(getopt_listdump), "--- List map [0] lists. ---\n\n");
    EXPECT_FALSE(parse({"-d"}));
    EXPECT_STREQ(getopt_get_errornote(), "unknown option '-d'");
    EXPECT_FALSE(parse({"--debug"}));
    EXPECT_STREQ(getopt_get_errornote(), "unknown option name 'debug'");
}

TEST_F(OptionLife, InitializeForgetsDeclarationsToo) {
    getopt_initialize();
    expect_no_declarations();
    getopt_initialize();
    expect_no_results();
}

TEST_F(OptionLife, TerminateDoesTheSame) {
    getopt_terminate();
    expect_no_declarations();
    getopt_terminate();
    expect_no_results();
}

TEST_F(OptionLife, ResultsOfSeveralParsesAddUp) {
    EXPECT_TRUE(parse({"-D", "2", "other", "-d", "off"}));
    EXPECT_EQ(getopt_get_errorpos(), 5);
    EXPECT_EQ(values_of("define"), Texts({"1", "2"}));
    EXPECT_EQ(items(), Texts({"item", "other"}));
    EXPECT_EQ(scalar("output"), "x");
    EXPECT_FALSE(getopt_boolean("debug"));
}

TEST_F(OptionLife, NoteStaysWhenAParseBegins) {
    EXPECT_TRUE(parse({"item"}));
    EXPECT_STREQ(getopt_get_errornote(), "unknown option '-?'");
}

}  // namespace
}  // namespace orvil::test
