#include "orvil/tokens/token_register.h"

#include <gtest/gtest.h>

#include <climits>
#include <filesystem>

#include "tokens/tree_support.h"

namespace orvil::test {
namespace {

CLexTokenBlock plain(const char* text, ETokenKind kind) {
    return CLexTokenBlock(token(text, kind));
}

CLexTokenBlock root_with(const CLexTokenBlock& entry) {
    CLexTokenBlock root = node("Root", eGrammerBlock);
    root.AddBlock(entry);
    return root;
}

CLexTokenBlock view() {
    CLexTokenBlock colors = empty_block("Colors");
    colors.InsertBlockEntityBlock(assignment("Red", 255));
    CLexTokenBlock scale;
    scale.SetupAssignmentDouble("Scale", 1.5, nullptr);
    CLexTokenBlock block = empty_block("View");
    block.InsertBlockEntityBlock(assignment("Width", 640));
    block.InsertBlockEntityBlock(scale);
    block.InsertBlockEntityBlock(colors);
    return block;
}

// --- layout
// -----------------------------------------------------------------------------------------------------------

TEST(Writer, IndentsByTabsOnRequest) {
    EXPECT_EQ(written(root_with(view())),
              "Root\r\n"
              "\r\n"
              "View {\r\n"
              "\tWidth = 640;\r\n"
              "\tScale = 1.5;\r\n"
              "\r\n"
              "\tColors {\r\n"
              "\t\tRed = 255;\r\n"
              "\t}\r\n"
              "}\r\n");
}

TEST(Writer, IndentsByBlanksOtherwise) {
    EXPECT_EQ(written(root_with(view()), false, 2),
              "Root\r\n\r\nView {\r\n  Width = 640;\r\n  Scale = 1.5;\r\n\r\n"
              "  Colors {\r\n    Red = 255;\r\n  }\r\n}\r\n");
    EXPECT_EQ(written(root_with(empty_block("V")), false, 0), "Root\r\n\r\nV {\r\n}\r\n");
    EXPECT_EQ(written(root_with(view()), false, -3), written(root_with(view()), false, 0));
}

TEST(Writer, EmptyBlockIsTwoLines) {
    EXPECT_EQ(written(root_with(empty_block("View"))), "Root\r\n\r\nView {\r\n}\r\n");
}

TEST(Writer, PlainTokensOfTheRootStandOnLinesOfTheirOwn) {
    CLexTokenBlock root = node("Root", eGrammerBlock);
    root.AddToken(token("1", eTokenDecimal));
    root.AddToken(token("/* c */", eTokenComment));
    root.AddToken(token("#version 2", eTokenPreprocessor));
    root.AddToken(token("}", eTokenMetaChar));
    EXPECT_EQ(written(root), "Root\r\n1\r\n/* c */\r\n#version 2\r\n}\r\n");
}

TEST(Writer, NodesOfAnUnknownFormAreWrittenAsPlainTokens) {
    EXPECT_EQ(written(root_with(node("word", static_cast<EGrammerType>(9)))), "Root\r\nword\r\n");
}

TEST(Writer, PlainValuesBetweenTheBracesAreLost) {
    CLexTokenBlock block = empty_block("View");
    block.InsertBlockEntityBlock(plain("1", eTokenDecimal));
    block.InsertBlockEntityBlock(assignment("x", 1));
    block.InsertBlockEntityBlock(plain("/* c */", eTokenComment));
    EXPECT_EQ(written(root_with(block)), "Root\r\n\r\nView {\r\n\tx = 1;\r\n}\r\n");
}

TEST(Writer, PlainTokensBehindTheBraceAreGluedToIt) {
    CLexTokenBlock block = node("View", eGrammerBlock);
    for (const char* text : {"{", "}", "(", ")"}) {
        block.AddToken(token(text, eTokenMetaChar));
    }
    EXPECT_EQ(written(root_with(block)), "Root\r\n\r\nView {\r\n}()\r\n");
}

TEST(Writer, BlockWithoutBracesGluesItsTokensToItsName) {
    CLexTokenBlock block = node("View", eGrammerBlock);
    block.AddToken(token("1", eTokenDecimal));
    block.AddBlock(assignment("x", 1));
    block.AddToken(token("two", eTokenString));
    EXPECT_EQ(written(root_with(block)), "Root\r\n\r\nx = 1;\r\nView1\"two\"\r\n");
}

TEST(Writer, BlockWithoutClosingBraceKeepsTheLevel) {
    CLexTokenBlock block = node("View", eGrammerBlock);
    block.AddToken(token("{", eTokenMetaChar));
    block.AddToken(token("1", eTokenDecimal));
    CLexTokenBlock root = root_with(block);
    root.AddBlock(assignment("x", 1));
    EXPECT_EQ(written(root), "Root\r\n\r\nView {\r\n1\r\n\tx = 1;\r\n");
}

TEST(Writer, PendingLineOfWhiteSpaceAloneIsNotWritten) {
    CLexTokenBlock block = node("View", eGrammerBlock);
    block.AddToken(token("{", eTokenMetaChar));
    block.AddToken(token(" \t", eTokenSymbol));
    CLexTokenBlock nested_block = node("Outer", eGrammerBlock);
    nested_block.AddToken(token("{", eTokenMetaChar));
    nested_block.AddBlock(block);
    nested_block.AddToken(token("}", eTokenMetaChar));
    EXPECT_EQ(written(root_with(nested_block)), "Root\r\n\r\nOuter {\r\n\r\n\tView {\r\n\t}\r\n");
}

TEST(Writer, SecondOpeningBraceIndentsOnceMore) {
    CLexTokenBlock block = node("View", eGrammerBlock);
    for (const char* text : {"{", "{", "}", "}"}) {
        block.AddToken(token(text, eTokenMetaChar));
    }
    EXPECT_EQ(written(root_with(block)), "Root\r\n\r\nView {\r\n {\r\n}\r\n");
}

TEST(Writer, MoreClosingThanOpeningBracesNeverIndent) {
    CLexTokenBlock block = node("View", eGrammerBlock);
    block.AddToken(token("}", eTokenMetaChar));
    block.AddToken(token("}", eTokenMetaChar));
    CLexTokenBlock root = root_with(block);
    root.AddBlock(assignment("x", 1));
    root.AddBlock(empty_block("Next"));
    EXPECT_EQ(written(root), "Root\r\n\r\n}\r\nx = 1;\r\n\r\nNext {\r\n}\r\n");
}

TEST(Writer, AssignmentGluesTheSemicolonAndPutsABlankBeforeAllElse) {
    CLexTokenBlock value = node("Sizes", eGrammerAssign);
    for (const char* text : {"=", "(", ";", "=", ";"}) {
        value.AddToken(token(text, eTokenMetaChar));
    }
    value.AddToken(token("1", eTokenDecimal));
    EXPECT_EQ(written(root_with(value)), "Root\r\nSizes = (; =; 1\r\n");
}

TEST(Writer, QuotedSemicolonIsNotGlued) {
    CLexTokenBlock value;
    value.SetupAssignmentString("x", ";");
    EXPECT_EQ(written(root_with(value)), "Root\r\nx = \";\";\r\n");
}

TEST(Writer, AssignmentEndsBeforeAFormAmongItsChildren) {
    CLexTokenBlock value = node("x", eGrammerAssign);
    value.AddToken(token("=", eTokenMetaChar));
    value.AddBlock(empty_block("View"));
    value.AddToken(token(";", eTokenMetaChar));
    EXPECT_EQ(written(root_with(value)), "Root\r\nx =\r\n");
}

TEST(Writer, AssignmentWithoutLineEndLetsTheNextOutputFollow) {
    CLexTokenBlock value = assignment("x", 1);
    value.SetNoWriteDelimiter(true);
    CLexTokenBlock root = root_with(value);
    root.AddBlock(assignment("y", 2));
    root.AddBlock(value);
    root.AddBlock(empty_block("View"));
    EXPECT_EQ(written(root), "Root\r\nx = 1;y = 2;\r\nx = 1;\r\nView {\r\n}\r\n");
}

TEST(Writer, EmptyValueIsWrittenAsNothing) {
    CLexTokenBlock value;
    value.SetupAssignmentString("x", "");
    EXPECT_EQ(written(root_with(value)), "Root\r\nx = ;\r\n");
}

TEST(Writer, ListingIsOneLineOfItsValues) {
    CLexTokenBlock listing = node("Items", eGrammerListing);
    EXPECT_EQ(written(root_with(listing)), "Root\r\n\r\n");
    listing.AddToken(token("1", eTokenDecimal));
    listing.AddToken(token("two", eTokenString));
    listing.AddToken(token("3.5", eTokenDouble));
    EXPECT_EQ(written(root_with(listing)), "Root\r\n1 \"two\" 3.5\r\n");
    CLexTokenBlock block = empty_block("View");
    block.InsertBlockEntityBlock(listing);
    EXPECT_EQ(written(root_with(block)), "Root\r\n\r\nView {\r\n\t1 \"two\" 3.5\r\n}\r\n");
}

TEST(Writer, ListingEndsBeforeAFormWithoutATrailingBlank) {
    CLexTokenBlock listing = node("Items", eGrammerListing);
    listing.AddToken(token("1", eTokenDecimal));
    listing.AddBlock(assignment("x", 1));
    listing.AddToken(token("2", eTokenDecimal));
    EXPECT_EQ(written(root_with(listing)), "Root\r\n1\r\n");
}

TEST(Writer, LongListingsAreNotWrapped) {
    CLexTokenBlock listing = node("Items", eGrammerListing);
    std::string line = "1";
    listing.AddToken(token("1", eTokenDecimal));
    for (int i = 1; i < 5000; ++i) {
        listing.AddToken(token("1", eTokenDecimal));
        line += " 1";
    }
    EXPECT_EQ(written(root_with(listing)), "Root\r\n" + line + "\r\n");
}

// --- written forms
// ----------------------------------------------------------------------------------------------------

TEST(Writer, StringsAreQuotedAndEscaped) {
    CLexTokenBlock value;
    value.SetupAssignmentString("x", "a\tb\nc\rd\"e'f\\g;{}#/ \xE9");
    EXPECT_EQ(written(root_with(value)), "Root\r\nx = \"a\\tb\\nc\\rd\\\"e\\'f\\\\g;{}#/ \xE9\";\r\n");
}

TEST(Writer, LineEndsInsideOtherTextsBecomeCrLf) {
    EXPECT_EQ(written(root_with(plain("/* a\nb\r\nc\rd */", eTokenComment))), "Root\r\n/* a\r\nb\r\ncd */\r\n");
}

TEST(Writer, EmptyTokenAsTheRootGivesAnEmptyFirstLine) {
    CLexTokenBlock root(token("", eTokenSymbol));
    EXPECT_EQ(written(root), "\r\n");
}

TEST(Writer, MarkerAsTheRootGivesACommentWithItsText) {
    CLexTokenBlock root;
    root.Create("view.txt", -999, -999, true, eTokenNone);
    EXPECT_EQ(written(root), "// view.txt : \r\n");
}

TEST(Writer, EveryMetaCharacterHasItsWrittenForm) {
    CLexTokenBlock value = node("x", eGrammerAssign);
    std::string line = "x";
    for (const char* text : {"\t", "\n", "\r", " ", "\"", "#", "'", "(",  ")", "*", "+",
                             ",",  "-",  ".",  "/", ":",  "=", "[", "\\", "]", "{", "}"}) {
        CLexToken meta;
        ASSERT_TRUE(meta.Create(static_cast<EMetaCharacter>(text[0]), 0, 0));
        value.AddToken(meta);
        CExtString form;
        ASSERT_TRUE(meta.CreateOutputString(form));
        line += " " + std::string(form);
    }
    EXPECT_EQ(written(root_with(value)), "Root\r\n" + line + "\r\n");
}

// --- refusals
// ---------------------------------------------------------------------------------------------------------

TEST(WriterRefusal, TokenOfNoKindAnywhere) {
    const CLexTokenBlock none;
    CLexTokenBlock in_assignment = node("x", eGrammerAssign);
    in_assignment.AddBlock(none);
    CLexTokenBlock in_listing = node("x", eGrammerListing);
    in_listing.AddBlock(none);
    CLexTokenBlock in_block = empty_block("View");
    in_block.InsertBlockEntityBlock(none);
    CLexTokenBlock nameless(none);
    nameless.SetupGrammerType(eGrammerAssign);
    EXPECT_EQ(written(none), "(refused)");
    for (const CLexTokenBlock& entry : {none, in_assignment, in_listing, in_block, nameless}) {
        EXPECT_EQ(written(root_with(entry)), "(refused)");
    }
}

TEST(WriterRefusal, MetaCharacterWithoutAWrittenForm) {
    CLexToken nul;
    ASSERT_TRUE(nul.Create(static_cast<EMetaCharacter>(0), 0, 0));
    for (const CLexToken& odd : {nul, token("x", eTokenMetaChar)}) {
        EXPECT_EQ(written(root_with(CLexTokenBlock(odd))), "(refused)");
        CLexTokenBlock value = node("x", eGrammerAssign);
        value.AddToken(odd);
        EXPECT_EQ(written(root_with(value)), "(refused)");
    }
}

TEST(WriterRefusal, RootStraightFromTheParser) {
    const TempDir folder;
    CLexTokenBlock root;
    ASSERT_TRUE(bt_input_file(folder.write("in.txt", "x = 1;").c_str(), root));
    EXPECT_EQ(written(root), "(refused)");
}

TEST(WriterRefusal, BlockWhoseNameIsNoSymbol) {
    CLexTokenBlock block = plain("5", eTokenDecimal);
    block.SetupGrammerType(eGrammerBlock);
    EXPECT_EQ(written(root_with(block)), "(refused)");
    CLexTokenBlock outer = empty_block("View");
    outer.InsertBlockEntityBlock(block);
    EXPECT_EQ(written(root_with(outer)), "(refused)");
}

TEST(WriterRefusal, WritesNoFile) {
    const TempDir folder;
    const std::string path = folder.write("out.txt", "old");
    CTokenRegister writer(path.c_str(), true, 4);
    EXPECT_FALSE(writer.DoRegist(root_with(CLexTokenBlock()), false));
    EXPECT_EQ(read_file(path), "old");
}

TEST(WriterRefusal, EmptyAndNullPaths) {
    EXPECT_FALSE(CTokenRegister("", true, 4).DoRegist(node("Root", eGrammerBlock), false));
    EXPECT_FALSE(CTokenRegister(nullptr, true, 4).DoRegist(node("Root", eGrammerBlock), false));
}

TEST(WriterRefusal, ReadOnlyFile) {
    const TempDir folder;
    const std::string path = folder.write("out.txt", "old");
    std::filesystem::permissions(path,
                                 std::filesystem::perms::owner_write | std::filesystem::perms::group_write |
                                     std::filesystem::perms::others_write,
                                 std::filesystem::perm_options::remove);
    EXPECT_FALSE(CTokenRegister(path.c_str(), true, 4).DoRegist(node("Root", eGrammerBlock), false));
    EXPECT_EQ(read_file(path), "old");
    std::filesystem::permissions(path, std::filesystem::perms::owner_write, std::filesystem::perm_options::add);
}

TEST(WriterRefusal, PathThatCannotBeWritten) {
    const TempDir folder;
    const std::string path = folder.path("none/out.txt");
    EXPECT_FALSE(CTokenRegister(path.c_str(), true, 4).DoRegist(node("Root", eGrammerBlock), false));
}

TEST(WriterRefusal, IndentationBeyondTheLargestText) {
    CLexTokenBlock outer = empty_block("Outer");
    CLexTokenBlock inner = empty_block("Inner");
    inner.InsertBlockEntityBlock(assignment("x", 1));
    outer.InsertBlockEntityBlock(inner);
    EXPECT_EQ(written(root_with(outer), false, INT_MAX), "(refused)");
}

// --- the file and the object
// ------------------------------------------------------------------------------------------

TEST(WriterObject, AppendingAddsToTheFileAndReplacingReplaces) {
    const TempDir folder;
    const std::string path = folder.path("out.txt");
    const CLexTokenBlock root = root_with(assignment("x", 1));
    const std::string once = "Root\r\nx = 1;\r\n";
    EXPECT_TRUE(CTokenRegister(path.c_str(), true, 4).DoRegist(root, true));
    EXPECT_TRUE(CTokenRegister(path.c_str(), true, 4).DoRegist(root, true));
    EXPECT_EQ(read_file(path), once + once);
    EXPECT_TRUE(CTokenRegister(path.c_str(), true, 4).DoRegist(root, false));
    EXPECT_EQ(read_file(path), once);
}

TEST(WriterObject, SecondWriteOfOneWriterFails) {
    const TempDir folder;
    const std::string path = folder.path("out.txt");
    const CLexTokenBlock root = root_with(assignment("x", 1));
    CTokenRegister writer(path.c_str(), true, 4);
    EXPECT_TRUE(writer.DoRegist(root, false));
    EXPECT_FALSE(writer.DoRegist(root, true));
    EXPECT_EQ(read_file(path), "Root\r\nx = 1;\r\n");
}

TEST(WriterObject, CopiesWriteIndependently) {
    const TempDir folder;
    const std::string path = folder.path("out.txt");
    const CLexTokenBlock root = root_with(view());
    const CTokenRegister first(path.c_str(), false, 1);
    CTokenRegister second(first);
    CTokenRegister third("other", true, 4);
    third = first;
    EXPECT_TRUE(second.DoRegist(root, false));
    EXPECT_TRUE(third.DoRegist(root, true));
    const std::string once = written(root, false, 1);
    EXPECT_EQ(read_file(path), once + once);
}

TEST(WriterObject, TextsBeyondTheGrowUnitAreWrittenWhole) {
    CLexTokenBlock root = node("Root", eGrammerBlock);
    std::string expected = "Root\r\n";
    for (int i = 0; i < 3000; ++i) {
        root.AddBlock(assignment("name", i));
        expected += "name = " + std::to_string(i) + ";\r\n";
    }
    EXPECT_EQ(written(root), expected);
}

class OpenWriter : public CTokenRegister {
public:
    OpenWriter(const std::string& path, bool use_tab, int width, int level)
        : CTokenRegister(path.c_str(), use_tab, width) {
        EXPECT_TRUE(stream_.OpenFile(target_path_));
        indent_level_ = level;
    }
    std::string finish() {
        EXPECT_TRUE(stream_.WriteFile(false));
        return read_file(target_path_.GetString());
    }
    int level() const { return indent_level_; }
    const CExtString& message() const { return message_; }
    using CTokenRegister::CreateIndentSpace;
    using CTokenRegister::DoRegistAssign;
    using CTokenRegister::DoRegistBlock;
    using CTokenRegister::DoRegistListing;
};

TEST(WriterProtected, IndentSpaceFollowsLevelAndWidth) {
    const TempDir folder;
    const std::string path = folder.path("out.txt");
    EXPECT_STREQ(OpenWriter(path, true, 4, 3).CreateIndentSpace(), "\t\t\t");
    EXPECT_STREQ(OpenWriter(path, false, 4, 2).CreateIndentSpace(), "        ");
    EXPECT_STREQ(OpenWriter(path, true, 4, 0).CreateIndentSpace(), "");
    EXPECT_STREQ(OpenWriter(path, true, 4, -2).CreateIndentSpace(), "");
    EXPECT_STREQ(OpenWriter(path, false, -1, 2).CreateIndentSpace(), "");
    EXPECT_STREQ(OpenWriter(path, false, INT_MAX, INT_MAX).CreateIndentSpace(), "");
}

TEST(WriterProtected, WholeWriteBeginsAtLevelZero) {
    const TempDir folder;
    const std::string path = folder.path("out.txt");
    OpenWriter writer(path, true, 4, 3);
    EXPECT_TRUE(writer.DoRegist(root_with(assignment("x", 1)), false));
    EXPECT_EQ(read_file(path), "Root\r\nx = 1;\r\n");
}

TEST(WriterProtected, EachFormIsWrittenAtTheLevelOfTheWriter) {
    const TempDir folder;
    OpenWriter writer(folder.path("out.txt"), true, 4, 1);
    CLexTokenBlock listing = node("Items", eGrammerListing);
    listing.AddToken(token("1", eTokenDecimal));
    CLexTokenBlock open = node("Open", eGrammerBlock);
    open.AddToken(token("{", eTokenMetaChar));
    EXPECT_TRUE(writer.DoRegistAssign(assignment("x", 1)));
    EXPECT_TRUE(writer.DoRegistListing(listing));
    EXPECT_TRUE(writer.DoRegistBlock(plain("5", eTokenDecimal)));
    EXPECT_TRUE(writer.DoRegistBlock(open));
    EXPECT_EQ(writer.level(), 2);
    EXPECT_FALSE(writer.DoRegistBlock(CLexTokenBlock()));
    EXPECT_STREQ(writer.message(), "");
    EXPECT_EQ(writer.finish(), "\tx = 1;\r\n\t1\r\n\t5\r\n\r\n\tOpen {\r\n");
}

}  // namespace
}  // namespace orvil::test
