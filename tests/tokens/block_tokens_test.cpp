#include "orvil/tokens/block_tokens.h"

#include <gtest/gtest.h>

#include <cmath>
#include <type_traits>

#include "tokens/tree_support.h"

namespace orvil::test {
namespace {

const char* const kEnd = "\r\n/* END OF FILE */\r\n\r\n";

// --- files
// ------------------------------------------------------------------------------------------------------------

TEST(BtInput, ReadsAFileWithoutItsComments) {
    const TempDir folder;
    CLexTokenBlock root;
    EXPECT_TRUE(bt_input_file(folder.write("in.txt", "/* c */ x = 1; // d\n").c_str(), root));
    EXPECT_EQ(describe(root), "B 0:[A n:x[m:= d:1 m:;]]");
    CExtString message;
    EXPECT_TRUE(bt_input_file(folder.path("in.txt").c_str(), root, message));
    EXPECT_EQ(describe(root), "B 0:[A n:x[m:= d:1 m:;]]");
}

TEST(BtInput, MessageIsEmptiedAndSetOnFailureOnly) {
    const TempDir folder;
    CLexTokenBlock root;
    CExtString message("old");
    EXPECT_TRUE(bt_input_file(folder.write("in.txt", ";").c_str(), root, message));
    EXPECT_STREQ(message, "");
    EXPECT_FALSE(bt_input_file(folder.write("in.txt", "x 1 ;").c_str(), root, message));
    EXPECT_STREQ(message, "Not supported grammer. Token:1\n");
    const std::string path = folder.path("none.txt");
    EXPECT_FALSE(bt_input_file(path.c_str(), root, message));
    EXPECT_EQ(std::string(message), "Can not open source file [" + path + "]\n");
}

TEST(BtInput, PathMayLieInTheMessage) {
    const TempDir folder;
    CLexTokenBlock root;
    CExtString message(folder.write("in.txt", "x = 1;").c_str());
    EXPECT_TRUE(bt_input_file(message.GetString(), root, message));
    EXPECT_EQ(root.GetBlockCount(), 1);
}

TEST(BtInput, NullPathFails) {
    CLexTokenBlock root;
    EXPECT_FALSE(bt_input_file(nullptr, root));
}

CLexTokenBlock named_root() {
    CLexTokenBlock root = node("Root", eGrammerBlock);
    root.AddBlock(assignment("x", 1));
    return root;
}

TEST(BtOutput, WritesTheTreeAndTheClosingCommentWhichTheTreeKeeps) {
    const TempDir folder;
    const std::string path = folder.path("out.txt");
    CLexTokenBlock root = named_root();
    EXPECT_TRUE(bt_output_file(path.c_str(), root, false));
    EXPECT_EQ(read_file(path), std::string("Root\r\nx = 1;\r\n") + kEnd);
    EXPECT_EQ(describe(root), "B n:Root[A! n:x[m:= d:1 m:;] c:\\0A/* END OF FILE */\\0A]");
}

TEST(BtOutput, TwiceOnOneTreeWritesTheClosingCommentTwice) {
    const TempDir folder;
    const std::string path = folder.path("out.txt");
    CLexTokenBlock root = named_root();
    EXPECT_TRUE(bt_output_file(path.c_str(), root, false));
    EXPECT_TRUE(bt_output_file(path.c_str(), root, false));
    EXPECT_EQ(read_file(path), std::string("Root\r\nx = 1;\r\n") + kEnd + kEnd);
    EXPECT_TRUE(bt_output_file(path.c_str(), root, true));
    EXPECT_EQ(read_file(path),
              std::string("Root\r\nx = 1;\r\n") + kEnd + kEnd + "Root\r\nx = 1;\r\n" + kEnd + kEnd + kEnd);
}

TEST(BtOutput, ClosedRootIsWrittenWithoutTheClosingComment) {
    const TempDir folder;
    const std::string path = folder.path("out.txt");
    CLexTokenBlock root = empty_block("Root");
    EXPECT_TRUE(bt_output_file(path.c_str(), root, false));
    EXPECT_EQ(read_file(path), "Root\r\n{\r\n}\r\n");
}

TEST(BtOutput, MessageIsEmptiedAlsoOnFailure) {
    const TempDir folder;
    CLexTokenBlock root = named_root();
    CExtString message("old");
    EXPECT_TRUE(bt_output_file(folder.path("out.txt").c_str(), root, message, false));
    EXPECT_STREQ(message, "");
    message = "old";
    EXPECT_FALSE(bt_output_file(folder.path("none/out.txt").c_str(), root, message, false));
    EXPECT_STREQ(message, "");
    message = folder.path("second.txt").c_str();
    EXPECT_TRUE(bt_output_file(message.GetString(), root, message, false));
    EXPECT_NE(read_file(folder.path("second.txt")), "");
}

TEST(BtOutput, ParsedRootFailsButKeepsTheClosingComment) {
    const TempDir folder;
    CLexTokenBlock root;
    ASSERT_TRUE(bt_input_file(folder.write("in.txt", "x = 1;").c_str(), root));
    EXPECT_FALSE(bt_output_file(folder.path("out.txt").c_str(), root, false));
    EXPECT_EQ(root.GetBlockCount(), 2);
}

// --- the master block
// -------------------------------------------------------------------------------------------------

std::string box_of(const char* comment) {
    CLexTokenBlock block;
    EXPECT_TRUE(bt_make_master_block(block, "folder/view.txt", comment));
    return block.GetBlockCount() == 1 ? block.GetAt(0)->GetString() : "no box";
}

TEST(BtMaster, HasTheFileNameAsItsMarkerAndTheBoxAsAComment) {
    CLexTokenBlock block;
    EXPECT_TRUE(bt_make_master_block(block, "folder/view.txt", "A view"));
    EXPECT_EQ(describe(block, true),
              "B n:view.txt@-999,-999[c:/************/\\0A/*  A view  */\\0A/************/\\0A@-1,-1]");
    EXPECT_TRUE(parents_are_right(block));
    EXPECT_EQ(written(block), "// view.txt : \r\n/************/\r\n/*  A view  */\r\n/************/\r\n\r\n");
}

TEST(BtMaster, FileNameIsClassifiedAsUsual) {
    CLexTokenBlock block;
    EXPECT_TRUE(bt_make_master_block(block, "folder/12", nullptr));
    EXPECT_TRUE(block.IsDecimalToken());
    EXPECT_TRUE(bt_make_master_block(block, "folder/face", nullptr));
    EXPECT_TRUE(block.IsHexaDecimalToken());
}

TEST(BtMaster, LinesOfTheBoxAreAsWideAsTheLongest) {
    EXPECT_EQ(box_of("a\nlonger\n\nb"),
              "/************/\n"
              "/*  a       */\n"
              "/*  longer  */\n"
              "/*          */\n"
              "/*  b       */\n"
              "/************/\n");
}

TEST(BtMaster, LineFeedAtTheEndAddsNoLine) {
    EXPECT_EQ(box_of("ab\n"), "/********/\n/*  ab  */\n/********/\n");
    EXPECT_EQ(box_of("\n"), "/******/\n/*    */\n/******/\n");
    EXPECT_EQ(box_of("\n\n"), "/******/\n/*    */\n/*    */\n/******/\n");
}

TEST(BtMaster, NullAndEmptyCommentsGiveTheTwoEdges) {
    EXPECT_EQ(box_of(nullptr), "/******/\n/******/\n");
    EXPECT_EQ(box_of(""), "/******/\n/******/\n");
}

TEST(BtMaster, PercentSignsAndCarriageReturnsAreText) {
    EXPECT_EQ(box_of("%s%n\r"), "/***********/\n/*  %s%n\r  */\n/***********/\n");
}

TEST(BtMaster, ManyLinesTakeLinearTime) {
    std::string comment;
    for (int i = 0; i < 20000; ++i) {
        comment += "line\n";
    }
    EXPECT_EQ(box_of(comment.c_str()).size(), 20002u * 13);
}

TEST(BtMaster, ClearsANodeWithContentFirst) {
    CLexTokenBlock block = empty_block("Old");
    block.SetNoWriteDelimiter(true);
    EXPECT_TRUE(bt_make_master_block(block, "view.txt", ""));
    EXPECT_EQ(describe(block), "B n:view.txt[c:/******/\\0A/******/\\0A]");
    EXPECT_EQ(block.AddBlock(assignment("x", 1)), 1);
}

TEST(BtMaster, NodeThatHangsInATreeIsClearedLikeAnyOther) {
    CLexTokenBlock root = named_root();
    CLexTokenBlock* child = root.GetAt(0);
    EXPECT_TRUE(bt_make_master_block(*child, "view.txt", ""));
    EXPECT_EQ(describe(*child), "B n:view.txt[c:/******/\\0A/******/\\0A]");
    EXPECT_EQ(child->GetParentBlock(), nullptr);
}

TEST(BtMaster, PathAndCommentMayBeTextsOfTheBlock) {
    CLexTokenBlock block = node("view.txt", eGrammerBlock);
    block.AddToken(token("A view", eTokenString));
    EXPECT_TRUE(bt_make_master_block(block, block.GetString(), block.GetAt(0)->GetString()));
    EXPECT_EQ(describe(block), "B n:view.txt[c:/************/\\0A/*  A view  */\\0A/************/\\0A]");
}

TEST(BtMaster, NullPathIsRefusedAndNothingChanges) {
    CLexTokenBlock block = assignment("x", 1);
    EXPECT_FALSE(bt_make_master_block(block, nullptr, "comment"));
    EXPECT_EQ(describe(block), "A! n:x[m:= d:1 m:;]");
}

TEST(BtMaster, PathThatEndsInASeparatorHasAnEmptyName) {
    CLexTokenBlock block;
    EXPECT_TRUE(bt_make_master_block(block, "folder/", ""));
    EXPECT_EQ(written(block), "//  : \r\n/******/\r\n/******/\r\n\r\n");
}

TEST(BtMaster, WholeFileReadsBackWithoutItsComments) {
    const TempDir folder;
    const std::string path = folder.path("view.txt");
    CLexTokenBlock root;
    CLexTokenBlock view;
    ASSERT_TRUE(bt_make_master_block(root, path.c_str(), "A view"));
    ASSERT_TRUE(bt_init_block(view, "View"));
    ASSERT_TRUE(bt_add_block_assign(view, "Width", 640));
    ASSERT_EQ(bt_add_block(root, view), 1);
    ASSERT_TRUE(bt_add_block_assign(root, "Count", 3));
    ASSERT_TRUE(bt_output_file(path.c_str(), root, false));
    EXPECT_EQ(read_file(path),
              std::string("// view.txt : \r\n/************/\r\n/*  A view  */\r\n/************/\r\n\r\n"
                          "\r\nView {\r\n\tWidth = 640;\r\n}\r\nCount = 3;\r\n") +
                  kEnd);
    CLexTokenBlock read;
    ASSERT_TRUE(bt_input_file(path.c_str(), read));
    EXPECT_EQ(describe(read), "B 0:[B n:View[m:{ A n:Width[m:= d:640 m:;] m:}] A n:Count[m:= d:3 m:;]]");
}

// --- blocks and listings
// ----------------------------------------------------------------------------------------------

TEST(BtInit, BlockIsAnEmptyClosedBlock) {
    CLexTokenBlock block;
    EXPECT_TRUE(bt_init_block(block, "View"));
    EXPECT_EQ(describe(block), "B! n:View[m:{ m:}]");
    EXPECT_FALSE(bt_init_block(block, nullptr));
    EXPECT_FALSE(bt_init_block(block, ""));
}

TEST(BtInit, BlockWithMarkerHasAStringAssignmentFirst) {
    CLexTokenBlock block;
    EXPECT_TRUE(bt_init_block_with_marker(block, "View", "Type", "Plan"));
    EXPECT_EQ(describe(block), "B! n:View[m:{ A! n:Type[m:= s:Plan m:;] m:}]");
    EXPECT_TRUE(bt_init_block_with_marker(block, block.GetAt(1)->GetString(), block.GetString(),
                                          block.GetAt(1)->GetAt(1)->GetString()));
    EXPECT_EQ(describe(block), "B! n:Type[m:{ A! n:View[m:= s:Plan m:;] m:}]");
    EXPECT_FALSE(bt_init_block_with_marker(block, "View", nullptr, "Plan"));
    EXPECT_FALSE(bt_init_block_with_marker(block, nullptr, "Type", "Plan"));
}

TEST(BtInit, ListingIsRefusedByAClosedNode) {
    CLexTokenBlock listing;
    EXPECT_TRUE(bt_init_listing(listing));
    EXPECT_TRUE(listing.IsListingType());
    CLexTokenBlock closed = empty_block("View");
    EXPECT_FALSE(bt_init_listing(closed));
    EXPECT_EQ(describe(closed), "B! n:View[m:{ m:}]");
}

TEST(BtAdd, BlockGivesTheIndexOrMinusOne) {
    CLexTokenBlock open = node("Open", eGrammerBlock);
    CLexTokenBlock closed = empty_block("Closed");
    static_assert(std::is_same_v<decltype(bt_add_block(open, closed)), int>);
    static_assert(std::is_same_v<decltype(bt_insert_block(open, closed)), int>);
    EXPECT_EQ(bt_add_block(open, closed), 0);
    EXPECT_EQ(bt_add_block(open, closed), 1);
    EXPECT_EQ(bt_add_block(closed, open), -1);
    EXPECT_EQ(bt_insert_block(closed, closed), 1);
    EXPECT_EQ(bt_insert_block(open, closed), -1);
}

// --- assignments
// ------------------------------------------------------------------------------------------------------

TEST(BtAssign, EveryOverloadHasItsKindAndDefaultFormat) {
    CLexTokenBlock block = empty_block("V");
    EXPECT_TRUE(bt_add_block_assign(block, "t", true));
    EXPECT_TRUE(bt_add_block_assign(block, "n", false));
    EXPECT_TRUE(bt_add_block_assign(block, "i", -5));
    EXPECT_TRUE(bt_add_block_assign(block, "u", 255u));
    EXPECT_TRUE(bt_add_block_assign(block, "g", 1.5));
    EXPECT_TRUE(bt_add_block_assign(block, "s", "text", true));
    EXPECT_TRUE(bt_add_block_assign(block, "w", "word", false));
    EXPECT_EQ(describe(block),
              "B! n:V[m:{ A! n:t[m:= n:On m:;] A! n:n[m:= n:Off m:;] A! n:i[m:= d:-5 m:;] "
              "A! n:u[m:= x:0x000000FF m:;] A! n:g[m:= f:1.500000 m:;] A! n:s[m:= s:text m:;] "
              "A! n:w[m:= n:word m:;] m:}]");
    EXPECT_TRUE(parents_are_right(block));
}

TEST(BtAssign, FormatsAreTakenAndNullIsTheDefault) {
    CLexTokenBlock block = empty_block("V");
    EXPECT_TRUE(bt_add_block_assign(block, "i", 5, "%+d"));
    EXPECT_TRUE(bt_add_block_assign(block, "u", 255u, "%X"));
    EXPECT_TRUE(bt_add_block_assign(block, "g", 1.5, "%.1lf"));
    EXPECT_TRUE(bt_add_block_assign(block, "i", 5, nullptr));
    EXPECT_TRUE(bt_add_block_assign(block, "u", 255u, nullptr));
    EXPECT_TRUE(bt_add_block_assign(block, "g", 1.5, nullptr));
    EXPECT_EQ(describe(block),
              "B! n:V[m:{ A! n:i[m:= d:+5 m:;] A! n:u[m:= x:FF m:;] A! n:g[m:= f:1.5 m:;] "
              "A! n:i[m:= d:5 m:;] A! n:u[m:= x:0x000000FF m:;] A! n:g[m:= f:1.500000 m:;] m:}]");
}

TEST(BtAssign, OpenNodesTakeItAtTheEnd) {
    CLexTokenBlock open = node("Open", eGrammerBlock);
    open.AddToken(token("}", eTokenMetaChar));
    EXPECT_TRUE(bt_add_block_assign(open, "i", 5));
    EXPECT_EQ(describe(open), "B n:Open[m:} A! n:i[m:= d:5 m:;]]");
}

TEST(BtAssign, IsRefusedByClosedAssignmentsBadNamesAndBadValues) {
    CLexTokenBlock value = assignment("x", 1);
    CLexTokenBlock block = empty_block("V");
    EXPECT_FALSE(bt_add_block_assign(value, "y", 1));
    EXPECT_FALSE(bt_add_block_assign(block, nullptr, 1));
    EXPECT_FALSE(bt_add_block_assign(block, "", 1));
    EXPECT_FALSE(bt_add_block_assign(block, "y", 1, "<%d>"));
    EXPECT_FALSE(bt_add_block_assign(block, "y", HUGE_VAL));
    EXPECT_EQ(describe(block), "B! n:V[m:{ m:}]");
    block.GetAt(1)->Initialize();
    EXPECT_FALSE(bt_add_block_assign(block, "y", 1)) << "a closed block without its brace";
}

template <typename... Arguments>
concept CanAssign = requires(CLexTokenBlock& block, Arguments... arguments) {
    bt_add_block_assign(block, arguments...);
};

TEST(BtAssign, ATextWithoutIsStringIsNotTakenForABool) {
    static_assert(!CanAssign<const char*, const char*>);
    static_assert(CanAssign<const char*, bool> && CanAssign<const char*, const char*, bool>);
}

CLexTokenBlock settings() {
    CLexTokenBlock block = empty_block("V");
    bt_add_block_assign(block, "t", true);
    bt_add_block_assign(block, "n", false);
    bt_add_block_assign(block, "i", -5);
    bt_add_block_assign(block, "u", 255u);
    bt_add_block_assign(block, "g", 1.5);
    bt_add_block_assign(block, "s", "text", true);
    bt_add_block_assign(block, "w", "word", false);
    return block;
}

TEST(BtGet, EveryOverloadReadsItsKind) {
    const CLexTokenBlock block = settings();
    bool flag = false;
    int number = 0;
    unsigned int bits = 0;
    double real = 0;
    CExtString text;
    EXPECT_TRUE(bt_get_block_assign(block, "t", flag) && flag);
    EXPECT_TRUE(bt_get_block_assign(block, "n", flag) && !flag);
    EXPECT_TRUE(bt_get_block_assign(block, "i", number) && number == -5);
    EXPECT_TRUE(bt_get_block_assign(block, "u", bits) && bits == 255);
    EXPECT_TRUE(bt_get_block_assign(block, "g", real) && real == 1.5);
    EXPECT_TRUE(bt_get_block_assign(block, "s", text, true) && text == "text");
    EXPECT_TRUE(bt_get_block_assign(block, "w", text, false) && text == "word");
    EXPECT_FALSE(bt_get_block_assign(block, "w", text, true));
    EXPECT_FALSE(bt_get_block_assign(block, "i", real));
    EXPECT_FALSE(bt_get_block_assign(block, "missing", number));
}

TEST(BtGet, OnlyOnIsTrue) {
    for (const char* word : {"on", "ON", "Yes", "Off", "Only"}) {
        CLexTokenBlock block = empty_block("V");
        ASSERT_TRUE(bt_add_block_assign(block, "f", word, false));
        bool flag = true;
        EXPECT_TRUE(bt_get_block_assign(block, "f", flag)) << word;
        EXPECT_FALSE(flag) << word;
    }
}

TEST(BtGet, BoolStaysWhenThereIsNoSymbol) {
    const CLexTokenBlock block = settings();
    bool flag = true;
    EXPECT_FALSE(bt_get_block_assign(block, "i", flag));
    EXPECT_TRUE(flag);
}

// --- searching
// --------------------------------------------------------------------------------------------------------

TEST(BtCheck, AsksForBlockFormNameAndMarker) {
    CLexTokenBlock block;
    bt_init_block_with_marker(block, "View", "Type", "Plan");
    EXPECT_TRUE(bt_check_block_and_assign(block, "View", "Type", "Plan"));
    EXPECT_TRUE(bt_check_block_and_assign(block, nullptr, "Type", "Plan"));
    EXPECT_TRUE(bt_check_block_and_assign(block, "", "", "Plan"));
    EXPECT_TRUE(bt_check_block_and_assign(block, "View", nullptr, nullptr));
    EXPECT_FALSE(bt_check_block_and_assign(block, "view", "Type", "Plan"));
    EXPECT_FALSE(bt_check_block_and_assign(block, "View", "Type", "plan"));
    EXPECT_FALSE(bt_check_block_and_assign(block, "View", "Type", nullptr));
    EXPECT_FALSE(bt_check_block_and_assign(block, "View", "Kind", "Plan"));
}

TEST(BtCheck, RefusesOtherFormsAndNamesThatAreNoSymbols) {
    CLexTokenBlock odd(token("5", eTokenDecimal));
    odd.SetupGrammerType(eGrammerBlock);
    EXPECT_FALSE(bt_check_block_and_assign(odd, "", nullptr, nullptr));
    EXPECT_FALSE(bt_check_block_and_assign(node("View", eGrammerListing), "View", nullptr, nullptr));
    EXPECT_TRUE(bt_check_block_and_assign(node("View", eGrammerBlock), "View", nullptr, nullptr));
}

CLexTokenBlock blocks() {
    CLexTokenBlock root;
    for (const char* name : {"View", "Grid", "View", "View"}) {
        root.AddBlock(empty_block(name));
    }
    root.AddBlock(assignment("View", 1));
    return root;
}

TEST(BtSearch, IndexOfTheFirstBlockOfTheNameFromTheStart) {
    const CLexTokenBlock root = blocks();
    EXPECT_EQ(bt_search_block_index(root, "View", 0), 0);
    EXPECT_EQ(bt_search_block_index(root, "View", 1), 2);
    EXPECT_EQ(bt_search_block_index(root, "View", -3), 0);
    EXPECT_EQ(bt_search_block_index(root, "", 1), 1);
    EXPECT_EQ(bt_search_block_index(root, nullptr, 4), -1);
    EXPECT_EQ(bt_search_block_index(root, "None", 0), -1);
}

TEST(BtSearch, BlockFromTheFirstChildOn) {
    const CLexTokenBlock root = blocks();
    EXPECT_EQ(bt_search_block(root, "Grid"), root.GetAt(1));
    EXPECT_EQ(bt_search_block(root, "None"), nullptr);
}

TEST(BtSearch, RepeatedCallsWalkThroughAllBlocksOfTheName) {
    const CLexTokenBlock root = blocks();
    int index = -9;
    std::string found;
    while (bt_search_block(root, "View", index) != nullptr) {
        found += std::to_string(index) + " ";
    }
    EXPECT_EQ(found, "1 3 4 ");
    EXPECT_EQ(index, -1);
}

TEST(BtSearch, CopiesTheFoundBlockEvenOntoItsParent) {
    CLexTokenBlock root = blocks();
    CLexTokenBlock copy = assignment("x", 1);
    EXPECT_FALSE(bt_search_block(root, "None", copy, 0));
    EXPECT_EQ(describe(copy), "A! n:x[m:= d:1 m:;]");
    EXPECT_TRUE(bt_search_block(root, "Grid", copy, 0));
    EXPECT_EQ(describe(copy), "B! n:Grid[m:{ m:}]");
    EXPECT_FALSE(bt_search_block(root, "Grid", copy, 2));
    EXPECT_TRUE(bt_search_block(root, "View", root, 1));
    EXPECT_EQ(describe(root), "B! n:View[m:{ m:}]");
}

// --- listings
// ---------------------------------------------------------------------------------------------------------

CLexTokenBlock items() {
    CLexTokenBlock listing;
    bt_init_listing(listing);
    EXPECT_TRUE(bt_add_listing_item(listing, -5));
    EXPECT_TRUE(bt_add_listing_item(listing, 255u));
    EXPECT_TRUE(bt_add_listing_item(listing, 0.1));
    EXPECT_TRUE(bt_add_listing_item(listing, "text", true));
    EXPECT_TRUE(bt_add_listing_item(listing, "word", false));
    return listing;
}

TEST(BtListing, ItemsHaveTheirKindsAndDefaultFormats) {
    CLexTokenBlock listing = items();
    EXPECT_EQ(describe(listing), "L 0:[d:-5 x:0x000000FF f:0.1 s:text n:word]");
    EXPECT_TRUE(parents_are_right(listing));
}

TEST(BtListing, FormatsAreTakenAndNullIsTheDefault) {
    CLexTokenBlock listing;
    EXPECT_TRUE(bt_add_listing_item(listing, 5, "%+d"));
    EXPECT_TRUE(bt_add_listing_item(listing, 5, nullptr));
    EXPECT_TRUE(bt_add_listing_item(listing, 255u, "%x"));
    EXPECT_TRUE(bt_add_listing_item(listing, 255u, nullptr));
    EXPECT_TRUE(bt_add_listing_item(listing, 1.5, "%.3lf"));
    CLexTokenBlock::SetupDoublePercision(3);
    EXPECT_TRUE(bt_add_listing_item(listing, 2.0 / 3));
    CLexTokenBlock::SetupDoublePercision(15);
    EXPECT_EQ(describe(listing), "0:[d:+5 d:5 x:ff x:0x000000FF f:1.500 f:0.667]");
}

TEST(BtListing, ClosedNodesAndBadValuesAreRefused) {
    CLexTokenBlock closed = empty_block("View");
    CLexTokenBlock listing;
    EXPECT_FALSE(bt_add_listing_item(closed, 5));
    EXPECT_FALSE(bt_add_listing_item(closed, "text", true));
    EXPECT_FALSE(bt_add_listing_item(listing, 5, "no"));
    EXPECT_FALSE(bt_add_listing_item(listing, HUGE_VAL));
    EXPECT_EQ(listing.GetBlockCount(), 0);
}

TEST(BtListing, ItemsAreTestedByKind) {
    const CLexTokenBlock listing = items();
    const ETokenKind kinds[] = {eTokenDecimal, eTokenHexaDecimal, eTokenDouble, eTokenString, eTokenSymbol};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(bt_check_listing_itemtype(listing, i), kinds[i]);
        EXPECT_EQ(bt_check_listing_decimal(listing, i), i == 0);
        EXPECT_EQ(bt_check_listing_hexadecimal(listing, i), i == 1);
        EXPECT_EQ(bt_check_listing_double(listing, i), i == 2);
        EXPECT_EQ(bt_check_listing_string(listing, i), i == 3);
        EXPECT_EQ(bt_check_listing_symbol(listing, i), i == 4);
    }
}

TEST(BtListing, ItemsAreReadByKind) {
    const CLexTokenBlock listing = items();
    int number = 0;
    unsigned int bits = 0;
    double real = 0;
    CExtString text;
    EXPECT_TRUE(bt_get_listing_item(listing, 0, number) && number == -5);
    EXPECT_TRUE(bt_get_listing_item(listing, 1, bits) && bits == 255);
    EXPECT_TRUE(bt_get_listing_item(listing, 2, real) && real == 0.1);
    EXPECT_TRUE(bt_get_listing_item(listing, 3, text, true) && text == "text");
    EXPECT_TRUE(bt_get_listing_item(listing, 4, text, false) && text == "word");
    EXPECT_FALSE(bt_get_listing_item(listing, 0, real));
    EXPECT_FALSE(bt_get_listing_item(listing, 3, text, false));
}

TEST(BtListing, IndicesOutOfRangeAreOfNoKindAndHaveNoValue) {
    const CLexTokenBlock listing = items();
    for (const int index : {-1, 5, 1000000}) {
        int number = 7;
        unsigned int bits = 7;
        double real = 7;
        CExtString text;
        EXPECT_EQ(bt_check_listing_itemtype(listing, index), eTokenNone);
        EXPECT_FALSE(bt_check_listing_decimal(listing, index) || bt_check_listing_hexadecimal(listing, index) ||
                     bt_check_listing_double(listing, index) || bt_check_listing_string(listing, index) ||
                     bt_check_listing_symbol(listing, index));
        EXPECT_FALSE(bt_get_listing_item(listing, index, number) || bt_get_listing_item(listing, index, bits) ||
                     bt_get_listing_item(listing, index, real) || bt_get_listing_item(listing, index, text, true));
        EXPECT_EQ(number, 7);
    }
}

// --- what is written and what is read back
// ----------------------------------------------------------------------------

std::string read_back(const CLexTokenBlock& entry) {
    CLexTokenBlock root = node("", eGrammerBlock);
    root.AddBlock(entry);
    const Parsed parsed = parse(written(root));
    return (parsed.result ? "" : "failed: " + parsed.message) + parsed.tree;
}

CLexTokenBlock with_value(const char* value, ETokenKind kind) {
    CLexTokenBlock result;
    EXPECT_TRUE(result.SetupAssignmentFactor("x", value, kind));
    return result;
}

TEST(ReadBack, OrdinaryEntriesComeBackAsTheyWere) {
    CLexTokenBlock block = empty_block("View");
    block.InsertBlockEntityBlock(with_value("a \"b\" 'c' \\ \t\r\n{;}#//", eTokenString));
    block.InsertBlockEntityBlock(with_value("-12", eTokenDecimal));
    block.InsertBlockEntityBlock(with_value("0xFF", eTokenHexaDecimal));
    block.InsertBlockEntityBlock(with_value("1.50", eTokenDouble));
    block.InsertBlockEntityBlock(with_value("On", eTokenSymbol));
    EXPECT_EQ(read_back(block),
              "B 0:[B n:View[m:{ A n:x[m:= s:a \"b\" 'c' \\5C \\09\\0D\\0A{;}#// m:;] "
              "A n:x[m:= d:-12 m:;] A n:x[m:= x:0xFF m:;] A n:x[m:= f:1.50 m:;] "
              "A n:x[m:= n:On m:;] m:}]]");
}

TEST(ReadBack, ListingBecomesPlainValues) {
    CLexTokenBlock listing = node("Items", eGrammerListing);
    bt_add_listing_item(listing, 1);
    bt_add_listing_item(listing, "two", true);
    EXPECT_EQ(read_back(listing), "B 0:[d:1 s:two]");
}

TEST(ReadBack, ListingWithASymbolIsAFault) {
    CLexTokenBlock listing = node("Items", eGrammerListing);
    bt_add_listing_item(listing, "word", false);
    bt_add_listing_item(listing, 1);
    EXPECT_EQ(read_back(listing), "failed: Not supported grammer. Token:1\n0:");
}

TEST(ReadBack, EmptyStringBecomesNothing) {
    EXPECT_EQ(read_back(with_value("", eTokenString)), "B 0:[A n:x[m:= m:;]]");
}

TEST(ReadBack, NameAndSymbolOfTheLettersAToFBecomeHexadecimal) {
    EXPECT_EQ(read_back(with_value("cafe", eTokenSymbol)), "B 0:[A n:x[m:= x:cafe m:;]]");
    EXPECT_EQ(read_back(assignment("Add", 1)), "B 0:[x:Add m:= d:1 m:;]");
}

TEST(ReadBack, ShortestDoubleWithoutAFractionBecomesDecimal) {
    CLexTokenBlock value;
    EXPECT_TRUE(value.SetupAssignmentDouble("x", 2.0, nullptr));
    EXPECT_EQ(read_back(value), "B 0:[A n:x[m:= d:2 m:;]]");
}

TEST(ReadBack, LineTokenInAnAssignmentSwallowsTheSemicolon) {
    EXPECT_EQ(read_back(with_value("#two", eTokenPreprocessor)),
              "failed: Not found Expressio-Terminator token. Assign value = [x]\n0:");
    EXPECT_EQ(read_back(with_value("// two", eTokenSingleComment)),
              "failed: Not found Expressio-Terminator token. Assign value = [x]\n0:");
}

TEST(ReadBack, SymbolWithBlanksBecomesSeveralTokens) {
    EXPECT_EQ(read_back(with_value("two words", eTokenSymbol)), "B 0:[A n:x[m:= n:two n:words m:;]]");
}

TEST(ReadBack, BannerWithTheEndOfACommentEndsThere) {
    const TempDir folder;
    CLexTokenBlock root;
    ASSERT_TRUE(bt_make_master_block(root, "view.txt", "one */ x = 1; /* two"));
    EXPECT_EQ(parse(written(root)), (Parsed{true, "", "B 0:[A n:x[m:= d:1 m:;]]"}));
}

}  // namespace
}  // namespace orvil::test
