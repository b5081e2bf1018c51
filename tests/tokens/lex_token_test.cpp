// Kinds, values, comparison and texts of tokens.
#include "orvil/tokens/lex_token.h"

#include <gtest/gtest.h>

#include <climits>
#include <clocale>
#include <memory>
#include <random>
#include <string>

#include "tokens/lexer_comparison.h"
#include "tokens/naive_lexer.h"

using orvil::test::for_random_texts;
using orvil::test::naive_is_decimal;
using orvil::test::naive_is_double;
using orvil::test::naive_is_hexadecimal;
using orvil::test::naive_kind;
using orvil::test::NaiveToken;
using orvil::test::seen;

namespace {

constexpr auto kNoKind = static_cast<ETokenKind>(99);

CLexToken classified(const char* text) {
    CLexToken token;
    EXPECT_TRUE(token.Create(text, 1, 2, true, eTokenNone));
    return token;
}

ETokenKind kind_of(const char* text) {
    return classified(text).GetTokenKind();
}

CLexToken of_kind(const char* text, ETokenKind kind) {
    CLexToken token;
    token.Create(text, 1, 2, false, kind);
    return token;
}

}  // namespace

TEST(LexToken, IsAsLargeAsItsFields) {
    EXPECT_EQ(sizeof(CLexToken), 48U);
    EXPECT_EQ(sizeof(ETokenKind), 4U);
    EXPECT_EQ(sizeof(EMetaCharacter), 4U);
}

TEST(LexToken, NewAndInitializedTokensAreReset) {
    const NaiveToken reset{0, "", -1, -1};
    CLexToken token;
    EXPECT_EQ(seen(token), reset);
    token.Create("abc", 3, 4, true, eTokenNone);
    EXPECT_TRUE(token.Initialize());
    EXPECT_EQ(seen(token), reset);
    EXPECT_STREQ(token.GetString(), "");
}

TEST(LexToken, CopiesHaveAllFourFields) {
    const CLexToken token = of_kind("it's", eTokenString);
    const NaiveToken expected{6, "it's", 1, 2};
    CLexToken assigned;
    assigned = token;
    CLexToken copied;
    EXPECT_TRUE(copied.CopyData(token));
    EXPECT_EQ(seen(CLexToken(token)), expected);
    EXPECT_EQ(seen(assigned), expected);
    EXPECT_EQ(seen(copied), expected);
    EXPECT_TRUE(copied.CopyData(copied));
    EXPECT_EQ(seen(copied), expected);
}

TEST(LexToken, CopyInstanceIsAnotherToken) {
    CLexToken token = of_kind("name", eTokenSymbol);
    const std::unique_ptr<CLexToken> copy(token.GetCopyInstance());
    token.Initialize();
    EXPECT_EQ(seen(*copy), (NaiveToken{7, "name", 1, 2}));
}

// --- kinds ----------------------------------------------------------------------------------------------------------

TEST(LexTokenKind, IntegersAreDecimal) {
    for (const char* text : {"0", "-12", "+5", "-5", " 12", "\t\t7", "-0", "99999999999999999999"}) {
        EXPECT_EQ(kind_of(text), eTokenDecimal) << text;
    }
}

TEST(LexTokenKind, HexadecimalNeedsNoPrefix) {
    for (const char* text :
         {"ff", "007", "1e5", "CAFE", "0x", "0X", "0x1F", "abc", "a", "00", " ff", "  ", "\t0x", "12a"}) {
        EXPECT_EQ(kind_of(text), eTokenHexaDecimal) << text;
    }
}

TEST(LexTokenKind, NumbersWithPointOrSignedExponentAreDouble) {
    for (const char* text :
         {"1.5", ".5", "-2.", "1.0e-3", "5.", "1.2.3", "-007", "+00", "1e+", "-1e5", "1E-2", " .5", "1.e"}) {
        EXPECT_EQ(kind_of(text), eTokenDouble) << text;
    }
}

TEST(LexTokenKind, EverythingElseIsASymbol) {
    for (const char* text : {"abg",  "0x1G", "x-1",      "--1", "+-",   ".5.5", "..", "1 ",   "ff ", "0x0x",
                             "1e5x", "name", "\x82\xA0", "_a",  "1.5f", "\n1",  "-.", "+.e1", "  g", "-ff"}) {
        EXPECT_EQ(kind_of(text), eTokenSymbol) << text;
    }
}

TEST(LexTokenKind, EmptyTextIsEmptyWhateverWasAskedFor) {
    for (int kind = -1; kind < 12; ++kind) {
        for (const char* text : {"", static_cast<const char*>(nullptr)}) {
            CLexToken token;
            EXPECT_TRUE(token.Create(text, 1, 2, false, static_cast<ETokenKind>(kind)));
            EXPECT_EQ(seen(token), (NaiveToken{1, "", 1, 2}));
        }
    }
    EXPECT_EQ(kind_of(""), eTokenEmpty);
}

TEST(LexTokenKind, LoneMetaCharacterIsOneOnlyWhenAnalyzed) {
    for (const char c : std::string("\t\n\r \"#'()*+,-./:;=[\\]{}")) {
        EXPECT_EQ(kind_of(std::string(1, c).c_str()), eTokenMetaChar) << c;
    }
    EXPECT_EQ(of_kind(";", eTokenNone).GetTokenKind(), eTokenSymbol);
    EXPECT_EQ(of_kind(" ", eTokenNone).GetTokenKind(), eTokenHexaDecimal);
    EXPECT_EQ(of_kind(";", eTokenString).GetTokenKind(), eTokenString);
    EXPECT_EQ(kind_of(";;"), eTokenSymbol);
    EXPECT_EQ(kind_of("--"), eTokenSymbol);
    EXPECT_EQ(kind_of("!"), eTokenSymbol);
}

TEST(LexTokenKind, KindArgumentIsIgnoredWhenAnalyzed) {
    CLexToken token;
    EXPECT_TRUE(token.Create("12", 0, 0, true, eTokenString));
    EXPECT_EQ(token.GetTokenKind(), eTokenDecimal);
}

TEST(LexTokenKind, GivenNumberKindIsCheckedAndKept) {
    CLexToken token;
    EXPECT_FALSE(token.Create("x", 0, 0, false, eTokenDecimal));
    EXPECT_EQ(seen(token), (NaiveToken{3, "x", 0, 0}));
    EXPECT_FALSE(token.Create("1.5", 0, 0, false, eTokenDecimal));
    EXPECT_TRUE(token.Create("15", 0, 0, false, eTokenDecimal));
    EXPECT_FALSE(token.Create("fg", 0, 0, false, eTokenHexaDecimal));
    EXPECT_EQ(token.GetTokenKind(), eTokenHexaDecimal);
    EXPECT_TRUE(token.Create("0xfF", 0, 0, false, eTokenHexaDecimal));
    EXPECT_FALSE(token.Create(".", 0, 0, false, eTokenDouble));
    EXPECT_EQ(token.GetTokenKind(), eTokenDouble);
    EXPECT_TRUE(token.Create("1", 0, 0, false, eTokenDouble));
}

TEST(LexTokenKind, OtherKindsAreTakenAsTheyAre) {
    for (const int kind : {2, 6, 7, 8, 9, 10, 11, -5, INT_MAX, INT_MIN}) {
        CLexToken token;
        EXPECT_TRUE(token.Create("1.5", 0, 0, false, static_cast<ETokenKind>(kind)));
        EXPECT_EQ(seen(token), (NaiveToken{kind, "1.5", 0, 0}));
    }
}

TEST(LexTokenKind, TextMayBeTheTokensOwn) {
    CLexToken token = of_kind("abc", eTokenString);
    EXPECT_TRUE(token.Create(token.GetString(), 5, 6, true, eTokenNone));
    EXPECT_EQ(seen(token), (NaiveToken{4, "abc", 5, 6}));
}

TEST(LexTokenKind, RandomTextsAgreeWithTheNaiveRules) {
    std::mt19937 random(orvil::test::test_seed());
    const std::string alphabet = "0019aAfFgxX.+-eE \t#;";
    for (int i = 0; i < 200000; ++i) {
        std::string text;
        for (auto n = random() % 7; n > 0; --n) {
            text += alphabet[random() % alphabet.size()];
        }
        ASSERT_EQ(kind_of(text.c_str()), naive_kind(text)) << text;
        ASSERT_EQ(CLexToken::AnalyzeIntegerFormat(text.c_str()), naive_is_decimal(text)) << text;
        ASSERT_EQ(CLexToken::AnalyzeHexaDecimalFormat(text.c_str()), naive_is_hexadecimal(text)) << text;
        ASSERT_EQ(CLexToken::AnalyzeDoubleFormat(text.c_str()), naive_is_double(text)) << text;
    }
}

TEST(LexTokenKind, NullTextHasNoFormat) {
    EXPECT_FALSE(CLexToken::AnalyzeIntegerFormat(nullptr));
    EXPECT_FALSE(CLexToken::AnalyzeHexaDecimalFormat(nullptr));
    EXPECT_FALSE(CLexToken::AnalyzeDoubleFormat(nullptr));
    EXPECT_TRUE(CLexToken::AnalyzeHexaDecimalFormat(""));
}

TEST(LexTokenKind, NamesArePartOfTheInterface) {
    const char* names[] = {"Error!!", "Empty",  "<<MetaChar>>", "Decimal",       "HexaDecimal",  "Double",
                           "String",  "Symbol", "Comment",      "SingleComment", "Preprocesser", "Error!!"};
    for (int kind = 0; kind < 12; ++kind) {
        CLexToken token = of_kind("1", static_cast<ETokenKind>(kind == 0 ? -7 : kind));
        if (kind != eTokenEmpty) {
            EXPECT_STREQ(token.GetTokenKindString(), names[kind]);
        }
    }
    EXPECT_STREQ(classified("").GetTokenKindString(), "Empty");
    EXPECT_STREQ(CLexToken().GetTokenKindString(), "Error!!");
    EXPECT_STREQ(of_kind("1", kNoKind).GetTokenKindString(), "Error!!");
    EXPECT_STREQ(of_kind("1", static_cast<ETokenKind>(INT_MIN)).GetTokenKindString(), "Error!!");
}

TEST(LexTokenKind, EachPredicateIsTrueForItsKindAlone) {
    for (int kind = 0; kind < 12; ++kind) {
        CLexToken token = of_kind(kind == 1 ? "" : "1", static_cast<ETokenKind>(kind));
        const int actual = kind == 0 ? 3 : kind;
        EXPECT_EQ(token.IsEmptyToken(), actual == 1);
        EXPECT_EQ(token.IsMetaCharToken(), actual == 2);
        EXPECT_EQ(token.IsDecimalToken(), actual == 3);
        EXPECT_EQ(token.IsHexaDecimalToken(), actual == 4);
        EXPECT_EQ(token.IsDoubleToken(), actual == 5);
        EXPECT_EQ(token.IsStringToken(), actual == 6);
        EXPECT_EQ(token.IsSymbolToken(), actual == 7);
        EXPECT_EQ(token.IsCommentToken(), actual == 8);
        EXPECT_EQ(token.IsSingleCommentToken(), actual == 9);
        EXPECT_EQ(token.IsPreprocessorToken(), actual == 10);
    }
}

// --- meta characters ------------------------------------------------------------------------------------------------

TEST(LexTokenMeta, TwentyFourBytesAreMembersWithTheirOwnCode) {
    const std::string members("\0\t\n\r \"#'()*+,-./:;=[\\]{}", 24);
    int count = 0;
    for (int code = -128; code < 128; ++code) {
        const bool member = members.find(static_cast<char>(code)) != std::string::npos;
        EXPECT_EQ(CLexToken::IsMetaCharacter(static_cast<char>(code)), member ? code : -1) << code;
        count += member ? 1 : 0;
    }
    EXPECT_EQ(count, 24);
}

TEST(LexTokenMeta, SixAreWrittenWithABackslash) {
    EXPECT_STREQ(CLexToken::TransMetaCharToString(eMetaTab), "\\t");
    EXPECT_STREQ(CLexToken::TransMetaCharToString(eMetaLineFeed), "\\n");
    EXPECT_STREQ(CLexToken::TransMetaCharToString(eMetaCarriageReturn), "\\r");
    EXPECT_STREQ(CLexToken::TransMetaCharToString(eMetaDoubleQuote), "\\\"");
    EXPECT_STREQ(CLexToken::TransMetaCharToString(eMetaApostrophe), "\\'");
    EXPECT_STREQ(CLexToken::TransMetaCharToString(eMetaBackslash), "\\\\");
}

TEST(LexTokenMeta, OthersAreWrittenAsThemselves) {
    for (const char c : std::string(" #()*+,-./:;=[]{}")) {
        EXPECT_EQ(std::string(1, c), CLexToken::TransMetaCharToString(static_cast<EMetaCharacter>(c)));
    }
}

TEST(LexTokenMeta, NulAndStrangersHaveNoWrittenForm) {
    EXPECT_EQ(CLexToken::TransMetaCharToString(eMetaNul), nullptr);
    for (const int code : {-1, -200, INT_MIN, 65, 127, 128, 256 + 59, INT_MAX}) {
        EXPECT_EQ(CLexToken::TransMetaCharToString(static_cast<EMetaCharacter>(code)), nullptr) << code;
    }
}

TEST(LexTokenMeta, TokensAreMadeOfMembersOnly) {
    CLexToken token = of_kind("old", eTokenString);
    EXPECT_FALSE(token.Create(static_cast<EMetaCharacter>(65), 8, 9));
    EXPECT_FALSE(token.Create(static_cast<EMetaCharacter>(-1), 8, 9));
    EXPECT_FALSE(token.Create(static_cast<EMetaCharacter>(256 + 59), 8, 9));
    EXPECT_EQ(seen(token), (NaiveToken{6, "old", 1, 2}));
    EXPECT_TRUE(token.Create(eMetaSemicolon, 8, 9));
    EXPECT_EQ(seen(token), (NaiveToken{2, ";", 8, 9}));
}

TEST(LexTokenMeta, TokenOfNulHasNoWrittenForm) {
    CLexToken token;
    EXPECT_TRUE(token.Create(eMetaNul, 8, 9));
    EXPECT_TRUE(token.IsMetaCharToken());
    char c = 'x';
    EXPECT_TRUE(token.ParseMetaChar(c));
    EXPECT_EQ(c, '\0');
    CExtString out("old");
    EXPECT_FALSE(token.CreateOutputString(out));
    EXPECT_STREQ(out, "");
}

// --- values ---------------------------------------------------------------------------------------------------------

TEST(LexTokenValue, MetaCharacterIsTheFirstOfTheText) {
    char c = 'x';
    EXPECT_TRUE(classified("=").ParseMetaChar(c));
    EXPECT_EQ(c, '=');
    EXPECT_TRUE(of_kind("ab", eTokenMetaChar).ParseMetaChar(c));
    EXPECT_EQ(c, 'a');
    EXPECT_FALSE(classified("ab").ParseMetaChar(c));
    EXPECT_EQ(c, 'a');
}

TEST(LexTokenValue, DecimalsSaturateAt32Bits) {
    int value = 5;
    EXPECT_TRUE(classified(" -12").ParseDecimal(value));
    EXPECT_EQ(value, -12);
    EXPECT_TRUE(classified("2147483648").ParseDecimal(value));
    EXPECT_EQ(value, INT_MAX);
    EXPECT_TRUE(classified("-99999999999999999999").ParseDecimal(value));
    EXPECT_EQ(value, INT_MIN);
}

TEST(LexTokenValue, DecimalOfAnotherKindOrFormIsRefused) {
    int value = 5;
    EXPECT_FALSE(classified("ff").ParseDecimal(value));
    EXPECT_FALSE(of_kind("12", eTokenString).ParseDecimal(value));
    EXPECT_FALSE(of_kind("x", eTokenDecimal).ParseDecimal(value));
    EXPECT_EQ(value, 5);
}

TEST(LexTokenValue, HexadecimalsKeepTheirLow32Bits) {
    unsigned int value = 5;
    EXPECT_TRUE(classified("0x1f").ParseHexaDecimal(value));
    EXPECT_EQ(value, 31U);
    EXPECT_TRUE(classified("123456789ABCDEF0").ParseHexaDecimal(value));
    EXPECT_EQ(value, 0x9ABCDEF0U);
    EXPECT_TRUE(classified("0x").ParseHexaDecimal(value));
    EXPECT_EQ(value, 0U);
    EXPECT_TRUE(classified("1e5").ParseHexaDecimal(value));
    EXPECT_EQ(value, 0x1E5U);
}

TEST(LexTokenValue, HexadecimalOfAnotherKindOrFormIsRefused) {
    unsigned int value = 5;
    EXPECT_FALSE(classified("12").ParseHexaDecimal(value));
    EXPECT_FALSE(of_kind("xyz", eTokenHexaDecimal).ParseHexaDecimal(value));
    EXPECT_EQ(value, 5U);
}

TEST(LexTokenValue, DoublesAreReadByTheRuntime) {
    double value = 5;
    EXPECT_TRUE(classified("1.5").ParseDouble(value));
    EXPECT_EQ(value, 1.5);
    EXPECT_TRUE(classified(" -.25e+2").ParseDouble(value));
    EXPECT_EQ(value, -25.0);
    EXPECT_TRUE(classified("1.2.3").ParseDouble(value));
    EXPECT_EQ(value, 1.2);
    EXPECT_TRUE(of_kind("1e", eTokenDouble).ParseDouble(value));
    EXPECT_EQ(value, 1.0);
}

TEST(LexTokenValue, DoubleOfAnotherKindOrFormIsRefused) {
    double value = 5;
    EXPECT_FALSE(classified("12").ParseDouble(value));
    EXPECT_FALSE(of_kind("inf", eTokenDouble).ParseDouble(value));
    EXPECT_EQ(value, 5);
}

TEST(LexTokenValue, TextsAreCopiedForTheirKindAlone) {
    using Accessor = bool (CLexToken::*)(CExtString&) const;
    const std::pair<ETokenKind, Accessor> accessors[] = {{eTokenString, &CLexToken::ParseString},
                                                         {eTokenSymbol, &CLexToken::ParseSymbol},
                                                         {eTokenComment, &CLexToken::ParseComment},
                                                         {eTokenSingleComment, &CLexToken::ParseSingleComment}};
    for (const auto& [own, accessor] : accessors) {
        for (int kind = 2; kind < 12; ++kind) {
            const CLexToken token = of_kind("new", static_cast<ETokenKind>(kind));
            CExtString text("old");
            EXPECT_EQ((token.*accessor)(text), kind == own);
            EXPECT_STREQ(text, kind == own ? "new" : "old");
        }
    }
}

TEST(LexTokenPreprocessor, NameAndValueAreSplitAtTheBlanks) {
    CExtString name("old");
    CExtString value("old");
    EXPECT_TRUE(of_kind("#version  2 beta ", eTokenPreprocessor).ParsePreprocessor(name, value));
    EXPECT_STREQ(name, "version");
    EXPECT_STREQ(value, "2 beta ");
    EXPECT_TRUE(of_kind("#_9", eTokenPreprocessor).ParsePreprocessor(name, value));
    EXPECT_STREQ(name, "_9");
    EXPECT_STREQ(value, "");
}

TEST(LexTokenPreprocessor, OtherFormsEmptyBothOutputs) {
    for (const char* text : {"#a", "#", "version", "# version", "#ve-rsion", "#9a", "x#version", "#version "}) {
        CExtString name("old");
        CExtString value("old");
        EXPECT_FALSE(of_kind(text, eTokenPreprocessor).ParsePreprocessor(name, value)) << text;
        EXPECT_STREQ(name, "") << text;
        EXPECT_STREQ(value, "") << text;
    }
}

TEST(LexTokenPreprocessor, AnotherKindOrNoTextLeavesBothOutputs) {
    CExtString name("old");
    CExtString value("old");
    EXPECT_FALSE(of_kind("#version 2", eTokenString).ParsePreprocessor(name, value));
    EXPECT_FALSE(of_kind("", eTokenPreprocessor).ParsePreprocessor(name, value));
    EXPECT_STREQ(name, "old");
    EXPECT_STREQ(value, "old");
}

// --- comparison, positions, texts -----------------------------------------------------------------------------------

TEST(LexTokenCompare, TextCountsOnlyWhenGiven) {
    const CLexToken token = of_kind("Name", eTokenSymbol);
    EXPECT_TRUE(token.Compare(eTokenSymbol, nullptr));
    EXPECT_TRUE(token.Compare(eTokenSymbol, ""));
    EXPECT_TRUE(token.Compare(eTokenSymbol, "Name"));
    EXPECT_FALSE(token.Compare(eTokenSymbol, "name"));
    EXPECT_FALSE(token.Compare(eTokenSymbol, "Nam"));
    EXPECT_FALSE(token.Compare(eTokenSymbol, "Names"));
    EXPECT_FALSE(token.Compare(eTokenString, "Name"));
    EXPECT_FALSE(token.Compare(eTokenString, nullptr));
    EXPECT_TRUE(CLexToken().Compare(eTokenNone, nullptr));
    EXPECT_FALSE(CLexToken().Compare(eTokenNone, "a"));
}

TEST(LexTokenPosition, LineAndColumnAreKept) {
    CLexToken token;
    token.Create("a", -999, 7, true, eTokenNone);
    EXPECT_TRUE(token.CompareFilePosition(-999, 7));
    EXPECT_FALSE(token.CompareFilePosition(-999, 8));
    EXPECT_FALSE(token.CompareFilePosition(0, 7));
    EXPECT_STREQ(token.GetSourcePositionString(), "Pos(-999:7) ");
}

TEST(LexTokenDump, IsAppended) {
    CExtString out("> ");
    of_kind("50%s", eTokenString).MakeDumpString(out, 3);
    CLexToken().MakeDumpString(out, 0);
    EXPECT_STREQ(out, "> Token[*]-String <50%s> Pos(1:2) Token[*]-Error!! <> Pos(-1:-1) ");
}
