#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

#include "tokens/tree_support.h"

namespace orvil::test {
namespace {

class DoublePrecision {
public:
    explicit DoublePrecision(int precision) { CLexTokenBlock::SetupDoublePercision(precision); }
    ~DoublePrecision() { CLexTokenBlock::SetupDoublePercision(15); }
};

// --- blocks
// -----------------------------------------------------------------------------------------------------------

TEST(BlockForm, HasTheNameBothBracesAndIsClosed) {
    CLexTokenBlock block;
    EXPECT_TRUE(block.SetupBlockTypeFactor("View"));
    EXPECT_EQ(describe(block, true), "B! n:View@-1,-1[m:{@-1,-1 m:}@-1,-1]");
    EXPECT_TRUE(parents_are_right(block));
}

TEST(BlockForm, NameOfTheLettersAToFIsASymbolAllTheSame) {
    EXPECT_EQ(describe(empty_block("Face")), "B! n:Face[m:{ m:}]");
}

TEST(BlockForm, RefusesNullAndEmptyNamesAndChangesNothing) {
    CLexTokenBlock block = assignment("x", 1);
    EXPECT_FALSE(block.SetupBlockTypeFactor(nullptr));
    EXPECT_FALSE(block.SetupBlockTypeFactor(""));
    EXPECT_EQ(describe(block), "A! n:x[m:= d:1 m:;]");
}

TEST(BlockForm, MakesAFreshNodeOfAUsedOne) {
    CLexTokenBlock root = node("Root", eGrammerBlock);
    root.AddBlock(assignment("x", 1));
    CLexTokenBlock* child = root.GetAt(0);
    child->SetNoWriteDelimiter(true);
    EXPECT_TRUE(child->SetupBlockTypeFactor("View"));
    EXPECT_EQ(describe(*child), "B! n:View[m:{ m:}]");
    EXPECT_EQ(child->GetParentBlock(), nullptr);
}

// --- assignments
// ------------------------------------------------------------------------------------------------------

TEST(AssignmentForm, HasTheNameEqualsValueSemicolonAndIsClosed) {
    CLexTokenBlock value;
    EXPECT_TRUE(value.SetupAssignmentFactor("Width", "640", eTokenDecimal));
    EXPECT_EQ(describe(value, true), "A! n:Width@-1,-1[m:=@-1,-1 d:640@-1,-1 m:;@-1,-1]");
    EXPECT_TRUE(parents_are_right(value));
}

TEST(AssignmentForm, ValueIsCheckedByTheRuleOfItsKind) {
    CLexTokenBlock value;
    EXPECT_FALSE(value.SetupAssignmentFactor("v", "6x", eTokenDecimal));
    EXPECT_FALSE(value.SetupAssignmentFactor("v", "0x1G", eTokenHexaDecimal));
    EXPECT_FALSE(value.SetupAssignmentFactor("v", "one", eTokenDouble));
    EXPECT_TRUE(value.SetupAssignmentFactor("v", "12", eTokenSymbol));
    EXPECT_EQ(describe(value), "A! n:v[m:= n:12 m:;]");
    EXPECT_TRUE(value.SetupAssignmentFactor("v", "/* c */", eTokenComment));
    EXPECT_EQ(describe(value), "A! n:v[m:= c:/* c */ m:;]");
}

TEST(AssignmentForm, KindNoneIsDecidedByTheTextButALoneMetaCharacterIsNotOne) {
    CLexTokenBlock value;
    EXPECT_TRUE(value.SetupAssignmentFactor("v", "1.5", eTokenNone));
    EXPECT_EQ(describe(value), "A! n:v[m:= f:1.5 m:;]");
    EXPECT_TRUE(value.SetupAssignmentFactor("v", ";", eTokenNone));
    EXPECT_EQ(describe(value), "A! n:v[m:= n:; m:;]");
}

TEST(AssignmentForm, EmptyValueOfAnyKindIsAnEmptyToken) {
    CLexTokenBlock value;
    EXPECT_TRUE(value.SetupAssignmentString("v", ""));
    EXPECT_EQ(describe(value), "A! n:v[m:= e: m:;]");
    EXPECT_TRUE(value.SetupAssignmentSymbol("v", nullptr));
    EXPECT_EQ(describe(value), "A! n:v[m:= e: m:;]");
    EXPECT_TRUE(value.SetupAssignmentFactor("v", "", eTokenDecimal));
    EXPECT_EQ(describe(value), "A! n:v[m:= e: m:;]");
}

TEST(AssignmentForm, RefusedLeavesTheNodeClearedAndOpen) {
    CLexTokenBlock value = assignment("x", 1);
    value.SetNoWriteDelimiter(true);
    EXPECT_FALSE(value.SetupAssignmentFactor("y", "none", eTokenDecimal));
    EXPECT_EQ(describe(value, true), "0:@-1,-1");
    EXPECT_FALSE(value.IsNoWriteDelimiter());
    EXPECT_EQ(value.AddToken(token("x", eTokenSymbol)), 0);
}

TEST(AssignmentForm, RefusesNullAndEmptyNames) {
    CLexTokenBlock value = assignment("x", 1);
    EXPECT_FALSE(value.SetupAssignmentDecimal(nullptr, 1, nullptr));
    EXPECT_EQ(describe(value), "0:");
    EXPECT_FALSE(value.SetupAssignmentString("", "text"));
}

TEST(AssignmentForm, TypedFormsHaveTheirDefaultFormats) {
    CLexTokenBlock value;
    EXPECT_TRUE(value.SetupAssignmentDecimal("a", -12, nullptr));
    EXPECT_EQ(describe(value), "A! n:a[m:= d:-12 m:;]");
    EXPECT_TRUE(value.SetupAssignmentHexaDecimal("a", 255, nullptr));
    EXPECT_EQ(describe(value), "A! n:a[m:= x:0x000000FF m:;]");
    EXPECT_TRUE(value.SetupAssignmentDouble("a", 0.1, nullptr));
    EXPECT_EQ(describe(value), "A! n:a[m:= f:0.1 m:;]");
    EXPECT_TRUE(value.SetupAssignmentString("a", "it's"));
    EXPECT_EQ(describe(value), "A! n:a[m:= s:it's m:;]");
    EXPECT_TRUE(value.SetupAssignmentSymbol("a", "On"));
    EXPECT_EQ(describe(value), "A! n:a[m:= n:On m:;]");
}

TEST(AssignmentForm, TypedFormsTakeTheCallersFormat) {
    CLexTokenBlock value;
    EXPECT_TRUE(value.SetupAssignmentDecimal("a", 12, "%+d"));
    EXPECT_EQ(describe(value), "A! n:a[m:= d:+12 m:;]");
    EXPECT_TRUE(value.SetupAssignmentHexaDecimal("a", 255, "%x"));
    EXPECT_EQ(describe(value), "A! n:a[m:= x:ff m:;]");
    EXPECT_TRUE(value.SetupAssignmentDouble("a", 2.0, "%.2lf"));
    EXPECT_EQ(describe(value), "A! n:a[m:= f:2.00 m:;]");
    EXPECT_FALSE(value.SetupAssignmentDecimal("a", 12, "%d px"));
    EXPECT_FALSE(value.SetupAssignmentDecimal("a", 12, "%05d"));
    EXPECT_FALSE(value.SetupAssignmentHexaDecimal("a", 12, "%uh"));
    EXPECT_FALSE(value.SetupAssignmentDouble("a", 12, "<%lf>"));
}

TEST(AssignmentForm, ExtremesOfTheIntegersAreWrittenWhole) {
    CLexTokenBlock value;
    EXPECT_TRUE(value.SetupAssignmentDecimal("a", INT_MIN, nullptr));
    EXPECT_EQ(describe(value), "A! n:a[m:= d:-2147483648 m:;]");
    EXPECT_TRUE(value.SetupAssignmentHexaDecimal("a", UINT_MAX, nullptr));
    EXPECT_EQ(describe(value), "A! n:a[m:= x:0xFFFFFFFF m:;]");
}

TEST(AssignmentForm, LongFormattedTextsAreMeasured) {
    CLexTokenBlock value;
    double read = 0;
    EXPECT_TRUE(value.SetupAssignmentDouble("a", 1e308, "%.6lf"));
    EXPECT_EQ(value.GetAt(1)->GetPureString().GetLength(), 316);
    EXPECT_TRUE(value.GetAt(1)->ParseDouble(read));
    EXPECT_EQ(read, 1e308);
    EXPECT_TRUE(value.SetupAssignmentDecimal("a", 7, "%10000d"));
    EXPECT_EQ(value.GetAt(1)->GetPureString().GetLength(), 10000);
}

TEST(AssignmentForm, FormattedTextsOfEveryLengthAreWhole) {
    for (int length = 1; length < 300; ++length) {
        CLexTokenBlock value;
        const std::string format = "%" + std::to_string(length) + "d";
        ASSERT_TRUE(value.SetupAssignmentDecimal("x", 7, format.c_str()));
        EXPECT_EQ(describe_token(*value.GetAt(1)), "d:" + std::string(static_cast<std::size_t>(length) - 1, ' ') + "7");
    }
}

TEST(AssignmentForm, FormatThatCannotBeFollowedIsRefused) {
    CLexTokenBlock value = assignment("x", 1);
    EXPECT_FALSE(value.SetupAssignmentDecimal("y", 0x7FFFFFFF, "x%lc")) << "there is no such character";
    EXPECT_EQ(describe(value), "0:");
    EXPECT_FALSE(bt_add_block_assign(value, "y", 0x7FFFFFFF, "x%lc"));
    EXPECT_FALSE(bt_add_listing_item(value, 0x7FFFFFFF, "x%lc"));
    EXPECT_EQ(describe(value), "0:");
}

TEST(AssignmentForm, InfinitiesAndNanAreRefused) {
    CLexTokenBlock value;
    EXPECT_FALSE(value.SetupAssignmentDouble("a", std::numeric_limits<double>::infinity(), nullptr));
    EXPECT_FALSE(value.SetupAssignmentDouble("a", std::nan(""), nullptr));
}

TEST(AssignmentForm, DoublePrecisionIsFifteenUntilItIsSet) {
    EXPECT_EQ(CLexTokenBlock::RefDoublePercision(), 15);
    const DoublePrecision three(3);
    CLexTokenBlock value;
    EXPECT_EQ(CLexTokenBlock::RefDoublePercision(), 3);
    EXPECT_TRUE(value.SetupAssignmentDouble("a", 2.0 / 3, nullptr));
    EXPECT_EQ(describe(value), "A! n:a[m:= f:0.667 m:;]");
    EXPECT_TRUE(value.SetupAssignmentDouble("a", 2.0 / 3, "%.5f"));
    EXPECT_EQ(describe(value), "A! n:a[m:= f:0.66667 m:;]");
}

// --- reading
// ----------------------------------------------------------------------------------------------------------

CLexTokenBlock settings() {
    CLexTokenBlock inner = empty_block("Inner");
    inner.InsertBlockEntityBlock(assignment("x", 1));
    CLexTokenBlock value;
    CLexTokenBlock root = empty_block("Root");
    root.InsertBlockEntityBlock(inner);
    root.InsertBlockEntityBlock(assignment("x", 2));
    value.SetupAssignmentHexaDecimal("h", 0xFF, nullptr);
    root.InsertBlockEntityBlock(value);
    value.SetupAssignmentDouble("d", 1.5, nullptr);
    root.InsertBlockEntityBlock(value);
    value.SetupAssignmentString("s", "text");
    root.InsertBlockEntityBlock(value);
    value.SetupAssignmentSymbol("n", "Symbol");
    root.InsertBlockEntityBlock(value);
    return root;
}

TEST(AssignmentRead, EachKindIsReadByItsOwnAccessor) {
    const CLexTokenBlock root = settings();
    int decimal = 0;
    unsigned int hexadecimal = 0;
    double real = 0;
    CExtString text;
    EXPECT_TRUE(root.GetAssignmentDecimal("x", decimal));
    EXPECT_EQ(decimal, 1) << "the first in document order";
    EXPECT_TRUE(root.GetAssignmentHexaDecimal("h", hexadecimal));
    EXPECT_EQ(hexadecimal, 255u);
    EXPECT_TRUE(root.GetAssignmentDouble("d", real));
    EXPECT_EQ(real, 1.5);
    EXPECT_TRUE(root.GetAssignmentString("s", text));
    EXPECT_STREQ(text, "text");
    EXPECT_TRUE(root.GetAssignmentSymbol("n", text));
    EXPECT_STREQ(text, "Symbol");
}

TEST(AssignmentRead, AnotherKindIsRefusedAndTheOutputStays) {
    const CLexTokenBlock root = settings();
    int decimal = 7;
    unsigned int hexadecimal = 7;
    double real = 7;
    CExtString text("seven");
    EXPECT_FALSE(root.GetAssignmentDecimal("d", decimal));
    EXPECT_FALSE(root.GetAssignmentHexaDecimal("x", hexadecimal));
    EXPECT_FALSE(root.GetAssignmentDouble("x", real));
    EXPECT_FALSE(root.GetAssignmentString("n", text));
    EXPECT_FALSE(root.GetAssignmentSymbol("s", text));
    EXPECT_FALSE(root.GetAssignmentDecimal("missing", decimal));
    EXPECT_EQ(decimal, 7);
    EXPECT_EQ(hexadecimal, 7u);
    EXPECT_EQ(real, 7);
    EXPECT_STREQ(text, "seven");
}

TEST(AssignmentRead, FirstAssignmentDecidesAlsoWhenItsKindIsWrong) {
    CLexTokenBlock root = empty_block("Root");
    CLexTokenBlock value;
    value.SetupAssignmentString("x", "one");
    root.InsertBlockEntityBlock(value);
    root.InsertBlockEntityBlock(assignment("x", 2));
    int decimal = 7;
    EXPECT_FALSE(root.GetAssignmentDecimal("x", decimal));
    EXPECT_EQ(decimal, 7);
}

TEST(AssignmentRead, FirstValueOfTheKindIsTaken) {
    CLexTokenBlock value(token("Sizes", eTokenSymbol));
    value.SetupGrammerType(eGrammerAssign);
    for (const char* text : {"1.5", "0x10", "3", "4"}) {
        CLexToken item;
        item.Create(text, 0, 0, true, eTokenNone);
        value.AddToken(item);
    }
    CLexTokenBlock root = node("Root", eGrammerBlock);
    root.AddBlock(value);
    int decimal = 0;
    unsigned int hexadecimal = 0;
    EXPECT_TRUE(root.GetAssignmentDecimal("Sizes", decimal));
    EXPECT_EQ(decimal, 3);
    EXPECT_TRUE(root.GetAssignmentHexaDecimal("Sizes", hexadecimal));
    EXPECT_EQ(hexadecimal, 16u);
}

TEST(AssignmentRead, EmptyNameStandsForAnyAssignment) {
    const CLexTokenBlock root = settings();
    int decimal = 0;
    EXPECT_TRUE(root.GetAssignmentDecimal("", decimal));
    EXPECT_EQ(decimal, 1);
    EXPECT_TRUE(root.GetAssignmentDecimal(nullptr, decimal));
    double real = 0;
    EXPECT_FALSE(root.GetAssignmentDouble("", real)) << "the first assignment holds no double";
}

TEST(AssignmentRead, WorksOnBlocksOnly) {
    CLexTokenBlock root = node("Root", eGrammerBlock);
    root.AddBlock(assignment("x", 2));
    int decimal = 0;
    EXPECT_TRUE(root.GetAssignmentDecimal("x", decimal));
    for (const EGrammerType form : {eGrammerInvalid, eGrammerAssign, eGrammerListing}) {
        root.SetupGrammerType(form);
        EXPECT_FALSE(root.GetAssignmentDecimal("x", decimal));
    }
}

// --- descriptions
// -----------------------------------------------------------------------------------------------------

TEST(Information, OfABlockIsItsNameAndNumberOfChildren) {
    EXPECT_STREQ(empty_block("View").QueryInformationString(), "View { ... Token(2) ... }");
    EXPECT_STREQ(node("", eGrammerBlock).QueryInformationString(), " { ... Token(0) ... }");
}

TEST(Information, OfAListingIsItsNumberOfChildren) {
    CLexTokenBlock listing = node("Items", eGrammerListing);
    listing.AddToken(token("1", eTokenDecimal));
    EXPECT_STREQ(listing.QueryInformationString(), "Listing { ... Token(1) ... }");
}

TEST(Information, OfAnAssignmentIsItsNameAndTheTextsOfItsChildren) {
    EXPECT_STREQ(assignment("Width", 640).QueryInformationString(), "Width = 640 ;");
}

TEST(Information, OfEveryOtherNodeIsEmpty) {
    EXPECT_STREQ(node("x", eGrammerInvalid).QueryInformationString(), "");
    EXPECT_STREQ(node("x", static_cast<EGrammerType>(9)).QueryInformationString(), "");
}

TEST(Dump, OfAPlainNodeIsItsToken) {
    CLexTokenBlock plain(token("640", eTokenDecimal));
    plain.AddToken(token("hidden", eTokenSymbol));
    CExtString out("> ");
    plain.MakeDumpString(out, 3);
    EXPECT_STREQ(out, "> Token[*]-Decimal <640> Pos(-1:-1) ");
}

const std::string kRule(40, '-');

TEST(Dump, OfAFormIsARuleItsInformationAndItsChildrenOneLevelDeeper) {
    CLexTokenBlock block = empty_block("View");
    block.InsertBlockEntityBlock(assignment("x", 1));
    const CLexToken& as_token = block;
    CExtString out;
    as_token.MakeDumpString(out, 0);
    EXPECT_EQ(std::string(out), "    " + kRule + "\n    View { ... Token(3) ... }\n" +
                                    "Token[*]-<<MetaChar>> <{> Pos(-1:-1) " + "        " + kRule +
                                    "\n        x = 1 ;\n" + "Token[*]-<<MetaChar>> <=> Pos(-1:-1) " +
                                    "Token[*]-Decimal <1> Pos(-1:-1) " + "Token[*]-<<MetaChar>> <;> Pos(-1:-1) " +
                                    "Token[*]-<<MetaChar>> <}> Pos(-1:-1) ");
}

TEST(Dump, IndentationIsFourTimesTheLevelPlusOneAndNeverNegative) {
    const CLexTokenBlock listing = node("Items", eGrammerListing);
    for (const auto& [indent, blanks] : {std::pair{2, 12u}, {0, 4u}, {-1, 0u}, {-2, 0u}, {-9, 0u}, {INT_MIN, 0u}}) {
        CExtString out;
        listing.MakeDumpString(out, indent);
        const std::string margin(blanks, ' ');
        EXPECT_EQ(std::string(out), margin + kRule + "\n" + margin + "Listing { ... Token(0) ... }\n");
    }
}

TEST(Dump, StopsWhereTheTextCannotGrow) {
    CExtString out("before");
    node("Items", eGrammerListing).MakeDumpString(out, INT_MAX);
    EXPECT_STREQ(out.Left(6), "before");
}

TEST(Dump, TakesPercentSignsAsTheyAre) {
    CLexTokenBlock block = node("100%s%n", eGrammerBlock);
    CExtString out;
    block.MakeDumpString(out, 0);
    EXPECT_NE(std::string(out).find("100%s%n { ... Token(0) ... }"), std::string::npos);
}

}  // namespace
}  // namespace orvil::test
