// Which values are boolean symbols, and which of them mean on.
#include "options/option_support.h"

namespace orvil::test {
namespace {

enum class Meaning { kNone, kOff, kOn };

// What an attached value does to a boolean.
Meaning meaning_of(const std::string& value) {
    getopt_clean();
    if (!parse({"--debug=" + value})) {
        return Meaning::kNone;
    }
    return getopt_boolean("debug") ? Meaning::kOn : Meaning::kOff;
}

// What a following argument does.
Meaning meaning_of_following(const std::string& value) {
    getopt_clean();
    parse({"--debug", value});
    if (!getopt_item_empty()) {
        return Meaning::kNone;
    }
    return getopt_boolean("debug") ? Meaning::kOn : Meaning::kOff;
}

class BooleanSymbol : public DeclaredOptionTest {
protected:
    static void expect(Meaning meaning, const Texts& values) {
        for (const std::string& value : values) {
            EXPECT_EQ(meaning_of(value), meaning) << value;
            EXPECT_EQ(meaning_of_following(value), meaning) << value;
        }
    }
};

TEST_F(BooleanSymbol, TrueWordsMeanOn) {
    expect(Meaning::kOn, {"True", "On", "Set", "Yes", "Ok", "Enable", "1", "Y", "y"});
}

TEST_F(BooleanSymbol, FalseWordsMeanOff) {
    expect(Meaning::kOff, {"False", "Off", "Reset", "No", "Cancel", "Disable", "0", "N", "n"});
}

TEST_F(BooleanSymbol, CaseDoesNotMatter) {
    expect(Meaning::kOn, {"TRUE", "oN", "sEt", "YES", "oK", "eNABLE"});
    expect(Meaning::kOff, {"fALSE", "OFF", "reSET", "nO", "CANCEL", "dISABLE"});
}

TEST_F(BooleanSymbol, WhatBeginsWithATrueWordMeansOff) {
    expect(Meaning::kOff, {"Yesterday", "1x", "online", "truex", "setup", "okay", "enabled", "yx", "on-"});
}

TEST_F(BooleanSymbol, WhatEndsWithAFalseWordMeansOff) {
    expect(Meaning::kOff, {"10", "ban", "Xn", "xfalse", "x off", "preset", "piano", "xcancel", "-disable", "plan"});
}

TEST_F(BooleanSymbol, OtherTextsAreNone) {
    expect(Meaning::kNone, {"maybe", "x",   "2",     "file1", "xyes",  "xtrue", "x1",  "nx", "offx", "01", "noo!",
                            "nox",   "tru", "enabl", "fals",  "cance", " yes",  "no ", "e",  "t",    "f"});
}

// Characters that differ from a letter or digit by the bit that tells cases apart.
TEST_F(BooleanSymbol, CaseIsThatOfLettersOnly) {
    expect(Meaning::kNone, {"\x11", "\x10", "0\x01", "\x4E\x20"});
}

TEST_F(BooleanSymbol, LastLineFeedIsLeftOut) {
    expect(Meaning::kOn, {"yes\n", "1\n"});
    expect(Meaning::kOff, {"ban\n", "no\n", "online\n"});
}

TEST_F(BooleanSymbol, FollowingLineFeedsCount) {
    EXPECT_EQ(meaning_of_following("yes\n\n"), Meaning::kOff);
    EXPECT_EQ(meaning_of_following("y\nx"), Meaning::kOff);
    EXPECT_EQ(meaning_of_following("x\nn"), Meaning::kOff);
    EXPECT_EQ(meaning_of_following("ban\n\n"), Meaning::kNone);
    EXPECT_EQ(meaning_of_following("no\nx"), Meaning::kNone);
    EXPECT_EQ(meaning_of_following("\n"), Meaning::kNone);
    EXPECT_EQ(meaning_of_following("\nyes"), Meaning::kNone);
}

}  // namespace
}  // namespace orvil::test
