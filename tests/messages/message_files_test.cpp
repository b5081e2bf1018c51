#include "orvil/messages/message_files.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "messages/message_support.h"
#include "tokens/tree_support.h"

namespace orvil::test {
namespace {

class LoaderProbe : public CMessageLoader {
public:
    using CMessageLoader::ParseMessageMap;
};

class RegisterProbe : public CMessageRegister {
public:
    using CMessageRegister::RegistMessageMap;
};

// A map that shows whether a call has changed it.
CMessageMap old_map() {
    CMessageMap map;
    map.SetupSubjectKey(3, "Old");
    map.AddItem(8, "eight");
    return map;
}

constexpr const char* kOldMap = "3 Old: 8=eight";
constexpr const char* kNoItems = "3 Old:";

// What Load() makes of a file of these bytes and the old map; "(refused) " in front when it fails.
std::string loaded(const std::string& bytes) {
    const TempDir folder;
    CMessageMap map = old_map();
    const bool result = CMessageLoader().Load(folder.write("in.txt", bytes).c_str(), map);
    return (result ? "" : "(refused) ") + show(map);
}

// The items that a MessageMap block of these entries holds.
std::string items(const std::string& entries) {
    const std::string map = loaded("MessageMap {\n" + entries + "\n}\n");
    return map.substr(map.find(':') + 1);
}

// What Parse() makes of the first block of a file of these bytes and the old map.
std::string parsed_map(const std::string& bytes) {
    const TempDir folder;
    CLexTokenBlock root;
    EXPECT_TRUE(bt_input_file(folder.write("in.txt", bytes).c_str(), root));
    CMessageMap map = old_map();
    const bool result = CMessageLoader().Parse(*root.GetAt(0), map);
    return (result ? "" : "(refused) ") + show(map);
}

// The file that Store() makes of a map, without its heading and closing comment.
std::string stored(const CMessageMap& map) {
    const TempDir folder;
    const std::string path = folder.path("out.txt");
    EXPECT_TRUE(CMessageRegister().Store(path.c_str(), map));
    const std::string bytes = read_file(path);
    const std::string heading = usual_heading("out.txt");
    EXPECT_EQ(bytes.substr(0, heading.size()), heading);
    EXPECT_EQ(bytes.substr(bytes.size() - kClosing.size()), kClosing);
    return bytes.substr(heading.size(), bytes.size() - heading.size() - kClosing.size());
}

std::string stored_items(const CMessageMap& map) {
    const std::string text = stored(map);
    const std::size_t begin = text.find("\t}\r\n") + 4;
    return text.substr(begin, text.rfind("}\r\n") - begin);
}

// --- loading a file -------------------------------------------------------------------------------------------------

TEST(MessageFileLoad, ReplacesTheItemsAndKeepsTheSubject) {
    EXPECT_EQ(loaded("MessageMap { Subject { Title = \"New\"; KeyCode = 5; } 4 \"four\" 2 \"two\" }\n"),
              "3 Old: 4=four 2=two");
}

TEST(MessageFileLoad, FileWithoutAMapLeavesAnEmptyMap) {
    EXPECT_EQ(loaded("Messages { 4 \"four\" }\n"), kNoItems);
    EXPECT_EQ(loaded("// nothing\n"), kNoItems);
    EXPECT_EQ(loaded("4 \"four\"\n"), kNoItems);
}

TEST(MessageFileLoad, OnlyBlocksOfExactlyThatNameAtTheTopLevelAreMaps) {
    EXPECT_EQ(loaded("messagemap { 4 \"four\" }\n"), kNoItems);
    EXPECT_EQ(loaded("MessageMap = 4;\n"), kNoItems);
    EXPECT_EQ(loaded("Outer { MessageMap { 4 \"four\" } }\n"), kNoItems);
    EXPECT_EQ(loaded("MessageMap = 4; Other { 1 \"x\" } MessageMap { 4 \"four\" }\n"), "3 Old: 4=four");
}

TEST(MessageFileLoad, OnlyTheFirstMapIsRead) {
    EXPECT_EQ(loaded("MessageMap { 4 \"four\" }\nMessageMap { 5 \"five\" }\n"), "3 Old: 4=four");
}

TEST(MessageFileLoad, FileThatCannotBeOpenedLeavesTheMapUntouched) {
    const TempDir folder;
    CMessageMap map = old_map();
    EXPECT_FALSE(CMessageLoader().Load(folder.path("none.txt").c_str(), map));
    EXPECT_FALSE(CMessageLoader().Load(folder.path("").c_str(), map));
    EXPECT_FALSE(CMessageLoader().Load("", map));
    EXPECT_FALSE(CMessageLoader().Load(nullptr, map));
    EXPECT_EQ(show(map), kOldMap);
}

TEST(MessageFileLoad, DamagedFileLeavesTheMapUntouched) {
    const std::string refused = std::string("(refused) ") + kOldMap;
    EXPECT_EQ(loaded("MessageMap { 4 \"four\" }\nMessageMap 5\n"), refused);
    EXPECT_EQ(loaded("MessageMap { 4 \"four\" }\nx = 5"), refused);
}

TEST(MessageFileLoad, FaultInsideOfAMapCostsThatMapOnly) {
    EXPECT_EQ(loaded("MessageMap { 4 \"four\" x 5 }\n"), kNoItems);
    EXPECT_EQ(loaded("MessageMap { 4 \"four\" x 5 }\nMessageMap { 6 \"six\" }\n"), "3 Old: 6=six");
}

TEST(MessageFileLoad, PathMayBeTheMapsOwnText) {
    const TempDir folder;
    CMessageMap map;
    map.AddItem(1, folder.write("in.txt", "MessageMap { 4 \"four\" }\n").c_str());
    EXPECT_TRUE(CMessageLoader().Load(map.GetItemText(0), map));
    EXPECT_EQ(show(map), "0 : 4=four");
}

// --- items ----------------------------------------------------------------------------------------------------------

TEST(MessageFileItems, CodeAndTextComeInEitherOrder) {
    EXPECT_EQ(items("5 \"five\" 6 \"six\""), " 5=five 6=six");
    EXPECT_EQ(items("\"five\" 5 \"six\" 6"), " 5=five 6=six");
    EXPECT_EQ(items("5 \"five\" \"six\" 6"), " 5=five 6=six");
}

TEST(MessageFileItems, LaterHalfReplacesAnEarlierOneOfItsKind) {
    EXPECT_EQ(items("5 6 \"six\""), " 6=six");
    EXPECT_EQ(items("\"a\" \"b\" 5"), " 5=b");
}

TEST(MessageFileItems, HalvesThatStayAloneAreDropped) {
    EXPECT_EQ(items("5"), "");
    EXPECT_EQ(items("\"five\""), "");
    EXPECT_EQ(items("4 \"four\" 5"), " 4=four");
    EXPECT_EQ(items(""), "");
}

TEST(MessageFileItems, CodesOutOfRangeAreDroppedWithTheirTexts) {
    EXPECT_EQ(items("10000 \"big\" 5 \"five\""), " 5=five");
    EXPECT_EQ(items("-1 \"negative\" 5 \"five\""), " 5=five");
    EXPECT_EQ(items("\"big\" 10000 \"five\" 5"), " 5=five");
    EXPECT_EQ(items("4294967300 \"beyond 32 bits\" 5 \"five\""), " 5=five");
    EXPECT_EQ(items("-4294967292 \"beyond 32 bits\" 5 \"five\""), " 5=five");
    EXPECT_EQ(items("9999 \"last\" 0 \"first\" +5 \"five\""), " 9999=last 0=first 5=five");
}

TEST(MessageFileItems, EmptyTextsDoNotDisturbTheOthers) {
    EXPECT_EQ(items("4 \"\" 5 \"five\" 6 \"six\""), " 5=five 6=six");
    EXPECT_EQ(items("\"\" 4 \"five\" 5"), " 4=five");
}

TEST(MessageFileItems, CodesOccurringTwiceMakeTwoItems) {
    EXPECT_EQ(items("5 \"a\" 5 \"b\""), " 5=a 5=b");
}

TEST(MessageFileItems, OtherEntriesDropTheTextAndKeepTheCode) {
    EXPECT_EQ(items("5 x = 1; \"five\""), " 5=five");
    EXPECT_EQ(items("\"five\" x = 1; 5"), "");
    EXPECT_EQ(items("5 Sub { 6 \"six\" } \"five\""), " 5=five");
    EXPECT_EQ(items("\"five\" Sub { 6 \"six\" } 5"), "");
    EXPECT_EQ(items("5 ; \"five\""), " 5=five");
    EXPECT_EQ(items("\"five\" ; 5"), "");
    EXPECT_EQ(items("5 1.5 \"five\""), " 5=five");
    EXPECT_EQ(items("\"five\" 1.5 5"), "");
}

TEST(MessageFileItems, HexadecimalNumbersAreNoCodes) {
    EXPECT_EQ(items("0x05 \"five\""), "");
    EXPECT_EQ(items("\"five\" 0x05 5"), "");
    EXPECT_EQ(items("007 \"seven\" 8 \"eight\""), " 8=seven");
}

TEST(MessageFileItems, CommentsAreNoEntries) {
    EXPECT_EQ(items("5 /* comment */ \"five\""), " 5=five");
    EXPECT_EQ(items("\"five\" // comment\n 5"), " 5=five");
}

TEST(MessageFileItems, TextsMayHoldAnyByteThatTheLanguageCanHold) {
    EXPECT_EQ(items("5 \"a\\nb\\t\\\"c\\\"\\\\\x1A\x80\xFF\""), " 5=a\nb\t\"c\"\\\x1A\x80\xFF");
}

CLexTokenBlock block_of(std::initializer_list<CLexToken> tokens) {
    CLexTokenBlock block = node("MessageMap", eGrammerBlock);
    for (const CLexToken& each : tokens) {
        block.AddToken(each);
    }
    return block;
}

std::string items_of(const CLexTokenBlock& block) {
    CMessageMap map;
    EXPECT_TRUE(LoaderProbe().ParseMessageMap(block, map));
    return show(map).substr(3);
}

TEST(MessageItemEntries, DecimalThatIsNoIntegerTakesTheCodeAwayAndKeepsTheText) {
    const CLexToken five = token("5", eTokenDecimal);
    const CLexToken six = token("6", eTokenDecimal);
    const CLexToken text = token("text", eTokenString);
    const CLexToken wrong = token("1x", eTokenDecimal);
    ASSERT_TRUE(wrong.IsDecimalToken());
    EXPECT_EQ(items_of(block_of({five, wrong, text})), "");
    EXPECT_EQ(items_of(block_of({text, wrong, six})), " 6=text");
    EXPECT_EQ(items_of(block_of({wrong, text, six})), " 6=text");
}

TEST(MessageItemEntries, EmptyTokensAndCommentsDropTheTextAndKeepTheCode) {
    const CLexToken five = token("5", eTokenDecimal);
    const CLexToken text = token("text", eTokenString);
    for (const CLexToken& other : {token("", eTokenString), token("/* c */", eTokenComment)}) {
        EXPECT_EQ(items_of(block_of({five, other, text})), " 5=text");
        EXPECT_EQ(items_of(block_of({text, other, five})), "");
    }
}

TEST(MessageItemEntries, FormOfTheBlockDoesNotMatterAndItemsAreAdded) {
    CLexTokenBlock listing = node("", eGrammerListing);
    listing.AddToken(token("5", eTokenDecimal));
    listing.AddToken(token("five", eTokenString));
    CMessageMap map = old_map();
    EXPECT_TRUE(LoaderProbe().ParseMessageMap(listing, map));
    EXPECT_EQ(show(map), "3 Old: 8=eight 5=five");
}

// --- parsing a block ------------------------------------------------------------------------------------------------

TEST(MessageBlockParse, SetsTheSubjectAndAddsTheItems) {
    EXPECT_EQ(parsed_map("MessageMap { Subject { Title = \"New\"; KeyCode = 5; } 4 \"four\" }\n"),
              "5 New: 8=eight 4=four");
    EXPECT_EQ(parsed_map("MessageMap { 4 \"four\" Subject { KeyCode = 5; Title = \"New\"; } 6 \"six\" }\n"),
              "5 New: 8=eight 4=four 6=six");
}

TEST(MessageBlockParse, NameOfTheBlockDoesNotMatter) {
    EXPECT_EQ(parsed_map("Any { Subject { Title = \"New\"; KeyCode = 5; } }\n"), "5 New: 8=eight");
}

TEST(MessageBlockParse, SubjectThatIsMissingOrNotWholeIsRefused) {
    const std::string refused = std::string("(refused) ") + kOldMap;
    for (const char* entries :
         {"", "4 \"four\"", "Subject = 5;", "subject { Title = \"T\"; KeyCode = 5; }", "Subject { }",
          "Subject { Title = \"T\"; }", "Subject { KeyCode = 5; }", "Subject { title = \"T\"; KeyCode = 5; }",
          "Subject { Title = \"T\"; Keycode = 5; }", "Subject { Title = T; KeyCode = 5; }",
          "Subject { Title = ; KeyCode = 5; }", "Subject { Title = \"\"; KeyCode = 5; }",
          "Subject { Title = \"T\"; KeyCode = 0x5; }", "Subject { Title = \"T\"; KeyCode = \"5\"; }",
          "Subject { Title = \"T\"; KeyCode = 5.0; }", "Other { Subject { Title = \"T\"; KeyCode = 5; } }"}) {
        EXPECT_EQ(parsed_map("MessageMap { " + std::string(entries) + " }\n"), refused) << entries;
    }
}

TEST(MessageBlockParse, FirstSubjectAndFirstAssignmentDecide) {
    EXPECT_EQ(parsed_map("MessageMap { Subject { } Subject { Title = \"T\"; KeyCode = 5; } }\n"),
              std::string("(refused) ") + kOldMap);
    EXPECT_EQ(
        parsed_map("MessageMap { Subject { Deep { Title = \"D\"; } Title = \"T\"; KeyCode = 5; KeyCode = 6; } }\n"),
        "5 D: 8=eight");
}

TEST(MessageBlockParse, SubjectCodesAreAnyThirtyTwoBits) {
    const auto code = [](const char* text) {
        return parsed_map("M { Subject { Title = \"T\"; KeyCode = " + std::string(text) + "; } }\n");
    };
    EXPECT_EQ(code("-2147483648"), "-2147483648 T: 8=eight");
    EXPECT_EQ(code("2147483647"), "2147483647 T: 8=eight");
    EXPECT_EQ(code("99999999999"), "2147483647 T: 8=eight");
    EXPECT_EQ(code("-99999999999"), "-2147483648 T: 8=eight");
}

// --- building blocks ------------------------------------------------------------------------------------------------

CMessageMap sample_map() {
    CMessageMap map;
    map.SetupSubjectKey(2, "Sample messages");
    map.AddItem(1001, "Input file cannot be read");
    map.AddItem(1002, "Unknown entity type");
    map.AddItem(2001, "Output folder is missing");
    return map;
}

TEST(MessageRegist, AddsTheBlockAndSaysFalse) {
    CLexTokenBlock parent = node("Root", eGrammerBlock);
    CMessageMap map;
    map.SetupSubjectKey(-2, "T");
    map.AddItem(5, "five");
    EXPECT_FALSE(CMessageRegister().Regist(parent, map));
    EXPECT_EQ(describe(parent),
              "B n:Root[B! n:MessageMap[m:{ "
              "B! n:Subject[m:{ A! n:Title[m:= s:T m:;] A! n:KeyCode[m:= d:-2 m:;] m:}] "
              "L 0:[d:5 s:five] m:}]]");
    EXPECT_TRUE(parents_are_right(parent));
    EXPECT_TRUE(RegisterProbe().RegistMessageMap(parent, map));
    EXPECT_EQ(parent.GetBlockCount(), 2);
}

TEST(MessageRegist, ClosedParentTakesNothingAndTheResultStays) {
    CLexTokenBlock parent = empty_block("Closed");
    EXPECT_FALSE(CMessageRegister().Regist(parent, sample_map()));
    EXPECT_TRUE(RegisterProbe().RegistMessageMap(parent, sample_map()));
    EXPECT_EQ(describe(parent), "B! n:Closed[m:{ m:}]");
}

TEST(MessageRegist, TreeOfListingsParsesIntoItsSubjectOnly) {
    CLexTokenBlock parent = node("Root", eGrammerBlock);
    CMessageRegister().Regist(parent, sample_map());
    CMessageMap map = old_map();
    EXPECT_TRUE(CMessageLoader().Parse(*parent.GetAt(0), map));
    EXPECT_EQ(show(map), "2 Sample messages: 8=eight");
}

// --- storing a file -------------------------------------------------------------------------------------------------

TEST(MessageFileStore, LaysTheFileOutToTheByte) {
    EXPECT_EQ(stored(sample_map()),
              "\r\n"
              "MessageMap {\r\n"
              "\r\n"
              "\tSubject {\r\n"
              "\t\tTitle = \"Sample messages\";\r\n"
              "\t\tKeyCode = 2;\r\n"
              "\t}\r\n"
              "\t1001 \"Input file cannot be read\"\r\n"
              "\t1002 \"Unknown entity type\"\r\n"
              "\t2001 \"Output folder is missing\"\r\n"
              "}\r\n");
}

TEST(MessageFileStore, MapWithoutItemsHasItsSubjectOnly) {
    CMessageMap map;
    map.SetupSubjectKey(INT_MIN, "T");
    EXPECT_EQ(
        stored(map),
        "\r\nMessageMap {\r\n\r\n\tSubject {\r\n\t\tTitle = \"T\";\r\n\t\tKeyCode = -2147483648;\r\n\t}\r\n}\r\n");
}

TEST(MessageFileStore, ItemsComeInNumericOrderAndReadBackInIt) {
    const TempDir folder;
    const std::string path = folder.path("out.txt");
    CMessageMap map;
    for (int code : {30, 4, 200}) {
        map.AddItem(code, "x");
    }
    EXPECT_EQ(stored_items(map), "\t4 \"x\"\r\n\t30 \"x\"\r\n\t200 \"x\"\r\n");
    EXPECT_TRUE(CMessageRegister().Store(path.c_str(), map));
    EXPECT_TRUE(CMessageLoader().Load(path.c_str(), map));
    EXPECT_EQ(show(map), "0 : 4=x 30=x 200=x");
}

TEST(MessageFileStore, ShadowedItemsAreWrittenWithTheNewestText) {
    CMessageMap map;
    map.AddItem(7, "a");
    map.AddItem(5, "five");
    map.AddItem(7, "b");
    EXPECT_EQ(stored_items(map), "\t5 \"five\"\r\n\t7 \"b\"\r\n\t7 \"b\"\r\n");
}

TEST(MessageFileStore, ItemsThatNoCodeLeadsToAreWrittenWithoutTextAndNotReadBack) {
    CMessageMap map;
    map.AddItem(7, "a");
    map.AddItem(7, "b");
    map.AddItem(8, "eight");
    map.DeleteItem(7);
    const std::string text = stored_items(map);
    EXPECT_EQ(text, "\t7 \r\n\t8 \"eight\"\r\n");
    EXPECT_EQ(items(text), " 8=eight");
}

TEST(MessageFileStore, MapWithoutATitleHasNoSubjectThatCouldBeRead) {
    CMessageMap map;
    map.AddItem(5, "five");
    const std::string text = stored(map);
    EXPECT_NE(text.find("\t\tTitle = ;\r\n\t\tKeyCode = 0;\r\n"), std::string::npos);
    EXPECT_EQ(parsed_map(text), std::string("(refused) ") + kOldMap);
    EXPECT_EQ(loaded(text), "3 Old: 5=five");
}

TEST(MessageFileStore, TextsAndTitlesKeepEveryByte) {
    const TempDir folder;
    const std::string path = folder.path("out.txt");
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    CMessageMap map;
    map.SetupSubjectKey(1, bytes.c_str());
    map.AddItem(1, bytes.c_str());
    map.AddItem(2, "\r\n\x1A");
    EXPECT_TRUE(CMessageRegister().Store(path.c_str(), map));
    CMessageMap read;
    CLexTokenBlock root;
    EXPECT_TRUE(bt_input_file(path.c_str(), root));
    EXPECT_TRUE(CMessageLoader().Parse(*root.GetAt(0), read));
    EXPECT_EQ(read.GetSubjectKeyText(), bytes);
    EXPECT_EQ(read.SearchItemText(1), bytes);
    EXPECT_STREQ(read.SearchItemText(2), "\r\n\x1A");
}

TEST(MessageFileStore, ReplacesTheFileThatIsThere) {
    const TempDir folder;
    const std::string path = folder.write("out.txt", std::string(5000, 'x'));
    EXPECT_TRUE(CMessageRegister().Store(path.c_str(), sample_map()));
    EXPECT_EQ(read_file(path).substr(0, 12), "// out.txt :");
    EXPECT_EQ(read_file(path).find("xx"), std::string::npos);
}

TEST(MessageFileStore, FileThatMayNotBeWrittenIsLeftAsItIs) {
    const TempDir folder;
    const std::string path = folder.write("out.txt", "old");
    {
        const WriteProtection protection(path);
        EXPECT_FALSE(CMessageRegister().Store(path.c_str(), sample_map()));
    }
    EXPECT_EQ(read_file(path), "old");
}

TEST(MessageFileStore, PathsThatCannotBeWrittenAreRefused) {
    const TempDir folder;
    EXPECT_FALSE(CMessageRegister().Store(nullptr, sample_map()));
    EXPECT_FALSE(CMessageRegister().Store("", sample_map()));
    EXPECT_FALSE(CMessageRegister().Store(folder.path("none/out.txt").c_str(), sample_map()));
    EXPECT_FALSE(CMessageRegister().Store(folder.path("").c_str(), sample_map()));
}

TEST(MessageFileStore, PathMayBeAMessageOfTheMap) {
    const TempDir folder;
    CMessageMap map;
    map.AddItem(5, folder.path("out.txt").c_str());
    EXPECT_TRUE(CMessageRegister().Store(map.SearchItemText(5), map));
    CMessageMap read;
    EXPECT_TRUE(CMessageLoader().Load(map.SearchItemText(5), read));
    EXPECT_EQ(show(read), show(map));
}

// --- the classes ----------------------------------------------------------------------------------------------------

TEST(MessageFileClasses, HoldNothingAndCopyNothing) {
    EXPECT_EQ(sizeof(CMessageLoader), sizeof(void*));
    EXPECT_EQ(sizeof(CMessageRegister), sizeof(void*));
    const CMessageLoader loader;
    CMessageLoader other_loader(loader);
    EXPECT_EQ(&(other_loader = loader), &other_loader);
    const CMessageRegister writer;
    CMessageRegister other_writer(writer);
    EXPECT_EQ(&(other_writer = writer), &other_writer);
}

}  // namespace
}  // namespace orvil::test
