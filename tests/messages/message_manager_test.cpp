#include "orvil/messages/message_manager.h"

#include <gtest/gtest.h>

#include <climits>
#include <filesystem>
#include <memory>
#include <string>
#include <type_traits>

#include "messages/message_support.h"
#include "orvil/messages/message_files.h"

namespace orvil::test {
namespace {

CMessageMap titled_map(int code, const char* title) {
    CMessageMap map;
    map.SetupSubjectKey(code, title);
    map.AddItem(1, ("of " + std::to_string(code)).c_str());
    return map;
}

// Maps of these codes, titled T30 and so on.
CMessageManager manager_of(std::initializer_list<int> codes) {
    CMessageManager manager;
    for (int code : codes) {
        EXPECT_TRUE(manager.AddMap(titled_map(code, ("T" + std::to_string(code)).c_str())));
    }
    return manager;
}

// The maps in the manager's order, in brackets.
std::string show_all(const CMessageManager& manager) {
    std::string text;
    for (int position = 0; position < manager.GetItemCount(); ++position) {
        text += "[" + show(*manager.GetMessageMap(position)) + "]";
    }
    return text;
}

int code_of(const CMessageMap* map) {
    return map == nullptr ? -1 : map->GetSubjectKeyCode();
}

// --- adding and finding ---------------------------------------------------------------------------------------------

TEST(MessageManager, NewOneHasNoMaps) {
    const CMessageManager manager;
    EXPECT_EQ(manager.GetItemCount(), 0);
    EXPECT_EQ(manager.GetMessageMap(0), nullptr);
    EXPECT_EQ(manager.SearchMessageMap(0), nullptr);
    EXPECT_EQ(manager.SearchMessageMap(""), nullptr);
}

TEST(MessageManager, MapsAreOrderedByCode) {
    const CMessageManager manager = manager_of({30, 4, 200});
    EXPECT_EQ(show_all(manager), "[4 T4: 1=of 4][30 T30: 1=of 30][200 T200: 1=of 200]");
    EXPECT_EQ(manager.GetItemCount(), 3);
    EXPECT_EQ(manager.GetMessageMap(-1), nullptr);
    EXPECT_EQ(manager.GetMessageMap(3), nullptr);
    EXPECT_EQ(manager.GetMessageMap(INT_MIN), nullptr);
}

TEST(MessageManager, CodesSpanThirtyTwoBits) {
    const CMessageManager manager = manager_of({INT_MAX, 0, INT_MIN, -1, 9, 10});
    int position = 0;
    for (int code : {INT_MIN, -1, 0, 9, 10, INT_MAX}) {
        EXPECT_EQ(manager.GetMessageMap(position++)->GetSubjectKeyCode(), code);
        EXPECT_EQ(code_of(manager.SearchMessageMap(code)), code);
    }
}

TEST(MessageManager, SecondMapOfACodeIsRefused) {
    CMessageManager manager = manager_of({30, 4});
    EXPECT_FALSE(manager.AddMap(titled_map(4, "Other")));
    EXPECT_EQ(show_all(manager), "[4 T4: 1=of 4][30 T30: 1=of 30]");
    EXPECT_EQ(manager.SearchMessageMap("Other"), nullptr);
}

TEST(MessageManager, HoldsACopyOfTheMap) {
    CMessageManager manager;
    CMessageMap map = titled_map(4, "T");
    EXPECT_TRUE(manager.AddMap(map));
    map.SetupSubjectKey(5, "U");
    map.AddItem(2, "two");
    EXPECT_EQ(show_all(manager), "[4 T: 1=of 4]");
    EXPECT_NE(manager.SearchMessageMap(4), &map);
}

TEST(MessageManager, TitleLeadsToTheMapAddedLast) {
    CMessageManager manager;
    for (int code : {5, 9, 2}) {
        manager.AddMap(titled_map(code, "Same"));
    }
    EXPECT_EQ(code_of(manager.SearchMessageMap("Same")), 2);
    EXPECT_EQ(code_of(manager.SearchMessageMap(9)), 9);
    EXPECT_FALSE(manager.AddMap(titled_map(9, "Same")));
    EXPECT_EQ(code_of(manager.SearchMessageMap("Same")), 2);
}

TEST(MessageManager, TitlesAreComparedExactly) {
    const CMessageManager manager = manager_of({4});
    EXPECT_EQ(code_of(manager.SearchMessageMap("T4")), 4);
    EXPECT_EQ(manager.SearchMessageMap("t4"), nullptr);
    EXPECT_EQ(manager.SearchMessageMap("T"), nullptr);
    EXPECT_EQ(manager.SearchMessageMap("T4 "), nullptr);
    EXPECT_EQ(manager.SearchMessageMap("4"), nullptr);
}

TEST(MessageManager, MapWithoutATitleIsFoundByTheEmptyOne) {
    CMessageManager manager;
    EXPECT_TRUE(manager.AddMap(CMessageMap()));
    const char* const none = nullptr;
    EXPECT_EQ(manager.SearchMessageMap(""), manager.GetMessageMap(0));
    EXPECT_EQ(manager.SearchMessageMap(none), manager.GetMessageMap(0));
}

TEST(MessageManager, SubjectsChangedThroughAPointerAreNotNoticed) {
    const CMessageManager manager = manager_of({4, 5});
    manager.GetMessageMap(0)->SetupSubjectKey(6, "New");
    EXPECT_EQ(code_of(manager.GetMessageMap(0)), 6);
    EXPECT_EQ(code_of(manager.SearchMessageMap(4)), 6);
    EXPECT_EQ(code_of(manager.SearchMessageMap("T4")), 6);
    EXPECT_EQ(manager.SearchMessageMap(6), nullptr);
    EXPECT_EQ(manager.SearchMessageMap("New"), nullptr);
}

TEST(MessageManager, RemovesAllMapsAndCanBeFilledAgain) {
    CMessageManager manager = manager_of({4, 5});
    EXPECT_TRUE(manager.RemoveAll());
    EXPECT_EQ(manager.GetItemCount(), 0);
    EXPECT_EQ(manager.SearchMessageMap(4), nullptr);
    EXPECT_EQ(manager.SearchMessageMap("T4"), nullptr);
    EXPECT_TRUE(manager.RemoveAll());
    EXPECT_TRUE(manager.AddMap(titled_map(4, "Again")));
    EXPECT_EQ(show_all(manager), "[4 Again: 1=of 4]");
    EXPECT_EQ(manager.SearchMessageMap("T4"), nullptr);
}

// Far more than the hashes have buckets at first.
TEST(MessageManager, ManyMapsAreAddedAndFound) {
    constexpr int kMaps = 20000;
    CMessageManager manager;
    for (int code = 0; code < kMaps; ++code) {
        ASSERT_TRUE(manager.AddMap(titled_map(code, ("T" + std::to_string(code)).c_str())));
    }
    for (int code = 0; code < kMaps; ++code) {
        ASSERT_EQ(code_of(manager.SearchMessageMap(code)), code);
        ASSERT_EQ(code_of(manager.SearchMessageMap(("T" + std::to_string(code)).c_str())), code);
        ASSERT_EQ(manager.GetMessageMap(code), manager.SearchMessageMap(code));
    }
}

// --- maps of other classes ------------------------------------------------------------------------------------------

class CountedMap : public CMessageMap {
public:
    explicit CountedMap(bool copies) : copies_(copies) { ++alive; }
    CountedMap(const CountedMap& other) : CMessageMap(other), copies_(other.copies_) { ++alive; }
    ~CountedMap() override { --alive; }
    CMessageMap* GetCopyInstance() const override {
        ++asked;
        return copies_ ? new CountedMap(*this) : nullptr;
    }

    static inline int alive = 0;
    static inline int asked = 0;

private:
    bool copies_;
};

TEST(MessageManagerCopies, AreMadeAndDeletedAsTheClassOfTheMapWants) {
    {
        CountedMap map(true);
        map.SetupSubjectKey(4, "T");
        CMessageManager manager;
        EXPECT_TRUE(manager.AddMap(map));
        EXPECT_NE(dynamic_cast<CountedMap*>(manager.SearchMessageMap(4)), nullptr);
        const CMessageManager copy(manager);
        EXPECT_NE(dynamic_cast<CountedMap*>(copy.SearchMessageMap(4)), nullptr);
        EXPECT_EQ(CountedMap::alive, 3);
        manager.RemoveAll();
        EXPECT_EQ(CountedMap::alive, 2);
    }
    EXPECT_EQ(CountedMap::alive, 0);
}

TEST(MessageManagerCopies, MapThatDoesNotCopyIsRefused) {
    CMessageManager manager;
    const CountedMap map(false);
    EXPECT_FALSE(manager.AddMap(map));
    EXPECT_EQ(manager.GetItemCount(), 0);
    EXPECT_EQ(manager.SearchMessageMap(""), nullptr);
}

TEST(MessageManagerCopies, RefusedMapIsNotCopied) {
    CMessageManager manager;
    manager.AddMap(CMessageMap());
    const CountedMap map(true);
    const int asked = CountedMap::asked;
    EXPECT_FALSE(manager.AddMap(map));
    EXPECT_EQ(CountedMap::asked, asked);
}

// A map that adds others while it is copied.
class BusyMap : public CMessageMap {
public:
    explicit BusyMap(CMessageManager& manager) : manager_(manager) {}
    CMessageMap* GetCopyInstance() const override {
        for (int code : {1, 5, 9}) {
            manager_.AddMap(titled_map(code, "Other"));
        }
        return CMessageMap::GetCopyInstance();
    }

private:
    CMessageManager& manager_;
};

TEST(MessageManagerCopies, MapMayAddOthersWhileItIsCopied) {
    CMessageManager manager;
    BusyMap map(manager);
    map.SetupSubjectKey(6, "Busy");
    EXPECT_TRUE(manager.AddMap(map));
    EXPECT_EQ(show_all(manager), "[1 Other: 1=of 1][5 Other: 1=of 5][6 Busy:][9 Other: 1=of 9]");
    map.SetupSubjectKey(5, "Busy");
    EXPECT_FALSE(manager.AddMap(map));
    manager.RemoveAll();
    EXPECT_FALSE(manager.AddMap(map));
    EXPECT_EQ(manager.GetItemCount(), 3);
}

// --- copying managers -----------------------------------------------------------------------------------------------

TEST(MessageManagerCopy, ReplacesTheMaps) {
    const CMessageManager source = manager_of({30, 4});
    CMessageManager target = manager_of({7, 4});
    EXPECT_TRUE(target.CopyData(source));
    EXPECT_EQ(show_all(target), show_all(source));
    EXPECT_EQ(target.SearchMessageMap("T7"), nullptr);
    CMessageManager assigned = manager_of({7});
    EXPECT_EQ(&(assigned = source), &assigned);
    EXPECT_EQ(show_all(assigned), show_all(source));
    EXPECT_EQ(show_all(CMessageManager(source)), show_all(source));
}

TEST(MessageManagerCopy, IsIndependentOfItsSource) {
    CMessageManager source = manager_of({4});
    const CMessageManager copy(source);
    source.SearchMessageMap(4)->AddItem(2, "two");
    source.AddMap(titled_map(5, "T5"));
    EXPECT_EQ(show_all(copy), "[4 T4: 1=of 4]");
}

TEST(MessageManagerCopy, OntoItselfChangesNothing) {
    CMessageManager manager = manager_of({4, 5});
    const CMessageMap* map = manager.GetMessageMap(0);
    EXPECT_TRUE(manager.CopyData(manager));
    const CMessageManager& same = manager;
    manager = same;
    EXPECT_EQ(manager.GetMessageMap(0), map);
    EXPECT_EQ(manager.GetItemCount(), 2);
}

TEST(MessageManagerCopy, SharedTitleThenLeadsToTheHighestCode) {
    CMessageManager source;
    source.AddMap(titled_map(9, "Same"));
    source.AddMap(titled_map(2, "Same"));
    EXPECT_EQ(code_of(source.SearchMessageMap("Same")), 2);
    EXPECT_EQ(code_of(CMessageManager(source).SearchMessageMap("Same")), 9);
}

TEST(MessageManagerCopy, EndsAtAMapThatIsRefused) {
    CMessageManager source = manager_of({4, 5, 6});
    source.GetMessageMap(1)->SetupSubjectKey(4, "Four again");
    CMessageManager copy;
    EXPECT_FALSE(copy.CopyData(source));
    EXPECT_EQ(show_all(copy), "[4 T4: 1=of 4]");
    EXPECT_EQ(source.GetCopyInstance(), nullptr);
}

TEST(MessageManagerCopy, InstanceIsAWholeCopy) {
    const CMessageManager source = manager_of({4, 5});
    const std::unique_ptr<CMessageManager> copy(source.GetCopyInstance());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(show_all(*copy), show_all(source));
}

// --- loading --------------------------------------------------------------------------------------------------------

std::string block(const std::string& subject, const std::string& entries) {
    return "MessageMap { Subject { " + subject + " } " + entries + " }\n";
}

std::string block(int code, const std::string& title, const std::string& entries) {
    return block("Title = \"" + title + "\"; KeyCode = " + std::to_string(code) + ";", entries);
}

// Whether a manager takes a file of these bytes.
bool load(CMessageManager& manager, const std::string& bytes) {
    const TempDir folder;
    return manager.Load(folder.write("in.txt", bytes).c_str());
}

TEST(MessageManagerLoad, ReadsEveryMapOfTheFile) {
    CMessageManager manager;
    EXPECT_TRUE(load(manager, block(30, "B", "1 \"b\"") + "x = 1;\n" + block(4, "A", "2 \"a\" 1 \"aa\"")));
    EXPECT_EQ(show_all(manager), "[4 A: 2=a 1=aa][30 B: 1=b]");
    EXPECT_EQ(code_of(manager.SearchMessageMap("B")), 30);
    EXPECT_STREQ(manager.SearchMessageMap(4)->SearchItemText(1), "aa");
}

TEST(MessageManagerLoad, MapsWithoutASubjectAreLeftOut) {
    CMessageManager manager;
    EXPECT_TRUE(load(
        manager, block(1, "A", "") + "MessageMap { 5 \"five\" }\n" + block("KeyCode = 3;", "") + block(2, "B", "")));
    EXPECT_EQ(show_all(manager), "[1 A:][2 B:]");
}

TEST(MessageManagerLoad, MapsOfATakenCodeAreLeftOutAndThoseThereStay) {
    CMessageManager manager = manager_of({4});
    EXPECT_TRUE(load(manager, block(4, "Other", "") + block(5, "First", "") + block(5, "Second", "")));
    EXPECT_EQ(show_all(manager), "[4 T4: 1=of 4][5 First:]");
    EXPECT_EQ(manager.SearchMessageMap("Other"), nullptr);
    EXPECT_EQ(manager.SearchMessageMap("Second"), nullptr);
}

TEST(MessageManagerLoad, LastMapOfATitleInTheFileIsTheOneThatItLeadsTo) {
    CMessageManager manager;
    EXPECT_TRUE(load(manager, block(9, "Same", "") + block(2, "Same", "")));
    EXPECT_EQ(code_of(manager.SearchMessageMap("Same")), 2);
}

TEST(MessageManagerLoad, OnlyBlocksOfExactlyThatNameAtTheTopLevelAreMaps) {
    CMessageManager manager;
    EXPECT_TRUE(load(manager, "Outer { " + block(1, "A", "") +
                                  " }\nMessagemap { Subject { Title = \"B\"; KeyCode = 2; } }\n"
                                  "MessageMap = 3;\n"));
    EXPECT_EQ(manager.GetItemCount(), 0);
}

TEST(MessageManagerLoad, FileThatDoesNotReadWholeChangesNothing) {
    CMessageManager manager = manager_of({4});
    EXPECT_FALSE(load(manager, block(5, "Five", "") + "x 5\n"));
    const TempDir folder;
    EXPECT_FALSE(manager.Load(folder.path("none.txt").c_str()));
    EXPECT_FALSE(manager.Load(folder.path("").c_str()));
    EXPECT_FALSE(manager.Load(""));
    EXPECT_FALSE(manager.Load(nullptr));
    EXPECT_EQ(show_all(manager), "[4 T4: 1=of 4]");
}

TEST(MessageManagerLoad, FaultInsideOfAMapCostsThatMapOnly) {
    CMessageManager manager;
    EXPECT_TRUE(load(manager, block(1, "A", "5 \"five\"") + block(2, "B", "x 5") + block(3, "C", "")));
    EXPECT_EQ(show_all(manager), "[1 A: 5=five][3 C:]");
}

TEST(MessageManagerLoad, CommentsAreNoEntries) {
    CMessageManager manager;
    EXPECT_TRUE(load(manager, "/* file */ " + block(1, "A", "5 /* code */ \"five\" // text\n 6 \"six\"")));
    EXPECT_EQ(show_all(manager), "[1 A: 5=five 6=six]");
}

// --- storing --------------------------------------------------------------------------------------------------------

const char* const kTwoMaps =
    "\r\n"
    "MessageMap {\r\n"
    "\r\n"
    "\tSubject {\r\n"
    "\t\tTitle = \"T4\";\r\n"
    "\t\tKeyCode = 4;\r\n"
    "\t}\r\n"
    "\t1 \"of 4\"\r\n"
    "}\r\n"
    "\r\n"
    "MessageMap {\r\n"
    "\r\n"
    "\tSubject {\r\n"
    "\t\tTitle = \"T30\";\r\n"
    "\t\tKeyCode = 30;\r\n"
    "\t}\r\n"
    "\t1 \"of 30\"\r\n"
    "}\r\n";

TEST(MessageManagerStore, LaysTheFileOutToTheByte) {
    const TempDir folder;
    const std::string path = folder.path("out.txt");
    EXPECT_TRUE(manager_of({30, 4}).Store(path.c_str(), nullptr));
    EXPECT_EQ(read_file(path), usual_heading("out.txt") + kTwoMaps + kClosing);
}

TEST(MessageManagerStore, EmptyBannerIsTheUsualOne) {
    const TempDir folder;
    const std::string path = folder.path("out.txt");
    EXPECT_TRUE(CMessageManager().Store(path.c_str(), ""));
    EXPECT_EQ(read_file(path), usual_heading("out.txt") + kClosing);
}

TEST(MessageManagerStore, BannerIsTheHeadingsText) {
    const TempDir folder;
    const std::string path = folder.path("out.txt");
    EXPECT_TRUE(manager_of({30, 4}).Store(path.c_str(), "Two\nmaps"));
    EXPECT_EQ(read_file(path),
              std::string("// out.txt : \r\n/**********/\r\n/*  Two   */\r\n/*  maps  */\r\n/**********/\r\n\r\n") +
                  kTwoMaps + kClosing);
}

TEST(MessageManagerStore, FileReadsBackTheSame) {
    const TempDir folder;
    const std::string path = folder.path("out.txt");
    CMessageManager manager = manager_of({INT_MAX, 30, INT_MIN});
    EXPECT_TRUE(manager.Store(path.c_str(), "Banner"));
    CMessageManager read;
    EXPECT_TRUE(read.Load(path.c_str()));
    EXPECT_EQ(show_all(read), show_all(manager));
}

TEST(MessageManagerStore, MapWithoutATitleDoesNotReadBack) {
    const TempDir folder;
    const std::string path = folder.path("out.txt");
    CMessageManager manager = manager_of({4});
    manager.AddMap(CMessageMap());
    EXPECT_TRUE(manager.Store(path.c_str(), nullptr));
    CMessageManager read;
    EXPECT_TRUE(read.Load(path.c_str()));
    EXPECT_EQ(show_all(read), "[4 T4: 1=of 4]");
}

TEST(MessageManagerStore, FileThatMayNotBeWrittenIsLeftAsItIs) {
    const TempDir folder;
    const std::string path = folder.write("out.txt", "old");
    {
        const WriteProtection protection(path);
        EXPECT_FALSE(manager_of({4}).Store(path.c_str(), nullptr));
    }
    EXPECT_EQ(read_file(path), "old");
    EXPECT_TRUE(manager_of({4}).Store(path.c_str(), nullptr));
}

// Where there is no right to read, as on Windows, the file stays readable and is replaced.
TEST(MessageManagerStore, FileThatMayNotBeReadIsLeftAsItIs) {
    using std::filesystem::perms;
    const TempDir folder;
    const std::string path = folder.write("out.txt", "old");
    std::filesystem::permissions(path, perms::owner_read, std::filesystem::perm_options::remove);
    const bool readable = (std::filesystem::status(path).permissions() & perms::owner_read) != perms::none;
    EXPECT_EQ(manager_of({4}).Store(path.c_str(), nullptr), readable);
    std::filesystem::permissions(path, perms::owner_read, std::filesystem::perm_options::add);
    EXPECT_EQ(read_file(path) == "old", !readable);
}

TEST(MessageManagerStore, PathsThatCannotBeWrittenAreRefused) {
    const TempDir folder;
    const CMessageManager manager = manager_of({4});
    EXPECT_FALSE(manager.Store(nullptr, nullptr));
    EXPECT_FALSE(manager.Store("", nullptr));
    EXPECT_FALSE(manager.Store(folder.path("none/out.txt").c_str(), nullptr));
    EXPECT_FALSE(manager.Store(folder.path("").c_str(), nullptr));
}

// --- error numbers --------------------------------------------------------------------------------------------------

TEST(MessageManagerNumbers, CombineMapAndMessage) {
    EXPECT_EQ(CMessageManager::GetFinalErrorCode(12, 3456), 123456);
    EXPECT_EQ(CMessageManager::GetFinalErrorCode(0, 0), 0);
    EXPECT_EQ(CMessageManager::GetFinalErrorCode(1, 9999), 19999);
    EXPECT_EQ(CMessageManager::GetFinalErrorCode(-3, 5), -29995);
}

TEST(MessageManagerNumbers, MessagesOutOfRangeCountAsZero) {
    EXPECT_EQ(CMessageManager::GetFinalErrorCode(12, -5), 120000);
    EXPECT_EQ(CMessageManager::GetFinalErrorCode(1, 10000), 10000);
    EXPECT_EQ(CMessageManager::GetFinalErrorCode(1, INT_MIN), 10000);
    EXPECT_EQ(CMessageManager::GetFinalErrorCode(1, INT_MAX), 10000);
}

TEST(MessageManagerNumbers, WrapBeyondThirtyTwoBits) {
    EXPECT_EQ(CMessageManager::GetFinalErrorCode(214748, 3647), 2147483647);
    EXPECT_EQ(CMessageManager::GetFinalErrorCode(214748, 3648), INT_MIN);
    EXPECT_EQ(CMessageManager::GetFinalErrorCode(INT_MAX, 1), -9999);
    EXPECT_EQ(CMessageManager::GetFinalErrorCode(INT_MIN, 1), 1);
}

}  // namespace
}  // namespace orvil::test
