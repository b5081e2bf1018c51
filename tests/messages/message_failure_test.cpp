// Every operation of maps, files and managers that takes memory, with its 1st, 2nd, ... allocation refused.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "messages/message_support.h"
#include "orvil/messages/message_files.h"
#include "orvil/messages/message_manager.h"
#include "orvil/tokens/block_tokens.h"
#include "support/failing_allocator.h"
#include "tokens/block_access.h"
#include "tokens/token_access.h"

// Nothing here allocates while allocations are refused, but for what is tested.
namespace orvil::test {
namespace {

bool equal(const char* text, const char* expected) {
    return text == nullptr || expected == nullptr ? text == expected : std::strcmp(text, expected) == 0;
}

bool equal_or_empty(const char* text, const char* expected) {
    return equal(text, expected) || equal(text, "");
}

// Whether a file holds these bytes.
bool holds(const std::string& path, const std::string& bytes) {
    static char buffer[4096];
    std::FILE* file = std::fopen(path.c_str(), "rb");
    const std::size_t size = file == nullptr ? 0 : std::fread(buffer, 1, sizeof(buffer), file);
    if (file != nullptr) {
        std::fclose(file);
    }
    return bytes == std::string_view(buffer, size);
}

// --- maps -----------------------------------------------------------------------------------------------------------

TEST(MessageMapFailure, TitleWithoutMemoryIsEmpty) {
    CMessageMap map;
    sweep_allocation_failures([&](auto failed) {
        map.SetupSubjectKey(1, "Old");
        EXPECT_TRUE(map.SetupSubjectKey(2, "A title that needs memory"));
        EXPECT_EQ(map.GetSubjectKeyCode(), 2);
        EXPECT_TRUE(equal(map.GetSubjectKeyText(), "A title that needs memory") ||
                    (failed() && equal(map.GetSubjectKeyText(), "")));
    });
}

TEST(MessageMapFailure, AddedItemIsThereOrItsPositionIsEmptyOrNothingHasChanged) {
    sweep_allocation_failures([](auto failed) {
        MapProbe map;
        for (int code = 0; code < 40; ++code) {
            const int count = map.GetItemCount();
            const bool added = map.AddItem(code, "text");
            EXPECT_TRUE(added || failed());
            EXPECT_EQ(map.SearchIndex(code), added ? count : -1);
            EXPECT_EQ(map.GetItemCode(count), added ? code : -1);
            EXPECT_TRUE(added ? map.GetItemCount() == count + 1 : map.GetItemCount() <= count + 1);
            EXPECT_TRUE(!added || equal_or_empty(map.GetItemText(count), "text"));
        }
    });
}

TEST(MessageMapFailure, RefusedItemOfAKnownCodeLeavesTheOlderOneInReach) {
    sweep_allocation_failures([](auto failed) {
        MapProbe map;
        const bool first = map.AddItem(5, "five");
        const bool second = map.AddItem(5, "cinq");
        EXPECT_TRUE((first && second) || failed());
        if (first && !second) {
            EXPECT_EQ(map.SearchIndex(5), 0);
        }
    });
}

TEST(MessageMapFailure, ReplacedItemKeepsItsPositionWhateverHappens) {
    sweep_allocation_failures([](auto failed) {
        MapProbe map;
        if (!map.AddItem(5, "five")) {
            return;
        }
        const bool same = map.ReplaceItem(5, 5, map.SearchItemText(5));
        EXPECT_TRUE((same && equal(map.GetItemText(0), "five")) || failed());
        const bool replaced = map.ReplaceItem(5, 6, "a longer text");
        EXPECT_TRUE(replaced || failed());
        EXPECT_EQ(map.GetItemCode(0), 6);
        EXPECT_TRUE(equal_or_empty(map.GetItemText(0), "a longer text"));
        EXPECT_EQ(map.SearchIndex(5), -1);
        EXPECT_EQ(map.SearchIndex(6), replaced ? 0 : -1);
    });
}

TEST(MessageMapFailure, DeletingTakesNoMemory) {
    MapProbe map = numbered_map(20);
    const AllocationFailure failure(1, true);
    EXPECT_TRUE(map.DeleteItem(7));
    EXPECT_TRUE(map.DeleteAllItems());
    EXPECT_FALSE(failure.happened());
}

// Codes and positions; texts may be empty.
bool has_the_codes_of(const CMessageMap& map, const CMessageMap& source) {
    bool same = map.GetItemCount() == source.GetItemCount();
    for (int i = 0; same && i < map.GetItemCount(); ++i) {
        same = map.GetItemCode(i) == source.GetItemCode(i) && equal_or_empty(map.GetItemText(i), source.GetItemText(i));
    }
    return same;
}

TEST(MessageMapFailure, CopiesSayWhetherTheyAreWhole) {
    MapProbe source = numbered_map(20);
    source.SetupSubjectKey(3, "Subject");
    source.index_.InitializeHashTable(19, true);
    sweep_allocation_failures([&source](auto failed) {
        const std::unique_ptr<CMessageMap> instance(source.GetCopyInstance());
        EXPECT_TRUE(instance == nullptr ? failed() : has_the_codes_of(*instance, source));
        CMessageMap copy;
        EXPECT_TRUE(copy.CopyData(source) ? has_the_codes_of(copy, source) : failed());
        EXPECT_LE(copy.GetItemCount(), 20);
    });
}

TEST(MessageMapFailure, CodeArrayEndsEarly) {
    const MapProbe map = numbered_map(20);
    sweep_allocation_failures([&map](auto failed) {
        CExtStrArray codes;
        EXPECT_TRUE(map.MakeCodeArray(codes));
        EXPECT_TRUE(codes.GetSize() == 20 || failed());
    });
}

// --- files ----------------------------------------------------------------------------------------------------------

constexpr const char* kFile =
    "MessageMap { Subject { Title = \"New\"; KeyCode = 5; } 1 \"one\" 2 \"two\" }\n"
    "MessageMap { Subject { Title = \"Other\"; KeyCode = 6; } 3 \"three\" }\n";

TEST(MessageFileFailure, LoadLeavesTheMapUntouchedOrReadsItsItems) {
    const TempDir folder;
    const std::string path = folder.write("in.txt", kFile);
    CMessageMap map;
    sweep_allocation_failures([&](auto failed) {
        map.DeleteAllItems();
        const bool prepared = map.AddItem(8, "eight");
        const bool loaded = CMessageLoader().Load(path.c_str(), map);
        EXPECT_TRUE(loaded || failed());
        EXPECT_TRUE(loaded || !prepared || equal_or_empty(map.SearchItemText(8), "eight"));
        EXPECT_TRUE(!loaded || map.SearchItemText(8) == nullptr);
        EXPECT_TRUE(failed() || (equal(map.SearchItemText(1), "one") && equal(map.SearchItemText(2), "two")));
    });
}

TEST(MessageFileFailure, ParseChangesNothingOrReadsSubjectAndItems) {
    const TempDir folder;
    CLexTokenBlock root;
    ASSERT_TRUE(bt_input_file(folder.write("in.txt", kFile).c_str(), root));
    sweep_allocation_failures([&root](auto failed) {
        CMessageMap map;
        const bool parsed = CMessageLoader().Parse(*root.GetAt(0), map);
        EXPECT_TRUE(parsed || failed());
        EXPECT_EQ(map.GetSubjectKeyCode(), parsed ? 5 : 0);
        EXPECT_TRUE(parsed || map.GetItemCount() == 0);
        EXPECT_TRUE(failed() || equal(map.SearchItemText(2), "two"));
    });
}

CMessageMap stored_map() {
    CMessageMap map;
    map.SetupSubjectKey(5, "New");
    map.AddItem(2, "two");
    map.AddItem(1, "one");
    return map;
}

const std::string kStoredMap =
    "\r\nMessageMap {\r\n\r\n\tSubject {\r\n\t\tTitle = \"New\";\r\n\t\tKeyCode = 5;\r\n\t}\r\n"
    "\t1 \"one\"\r\n\t2 \"two\"\r\n}\r\n";

TEST(MessageFileFailure, StoreWritesTheWholeFileOrSaysFalseAndLeavesTheOldOne) {
    const TempDir folder;
    const std::string path = folder.write("out.txt", "old");
    const CMessageMap map = stored_map();
    const std::string whole = usual_heading("out.txt") + kStoredMap + kClosing;
    sweep_allocation_failures([&](auto failed) {
        const bool stored = CMessageRegister().Store(path.c_str(), map);
        EXPECT_TRUE(stored ? holds(path, whole) : failed() && (holds(path, "old") || holds(path, whole)));
    });
    EXPECT_TRUE(holds(path, whole));
}

class RegisterProbe : public CMessageRegister {
public:
    using CMessageRegister::RegistMessageMap;
};

TEST(MessageFileFailure, RegistAddsTheWholeBlockOrNothing) {
    const CMessageMap map = stored_map();
    sweep_allocation_failures([&map](auto failed) {
        CLexTokenBlock parent;
        const bool added = RegisterProbe().RegistMessageMap(parent, map);
        EXPECT_TRUE(added || failed());
        EXPECT_EQ(parent.GetBlockCount(), added ? 1 : 0);
        EXPECT_TRUE(!added || parent.GetAt(0)->GetBlockCount() == 5);
    });
}

// --- managers -------------------------------------------------------------------------------------------------------

CMessageMap titled_map(int code, const char* title) {
    CMessageMap map;
    map.SetupSubjectKey(code, title);
    map.AddItem(1, "one");
    return map;
}

TEST(MessageManagerFailure, RefusedMapChangesNothing) {
    const CMessageMap first = titled_map(30, "Same");
    const CMessageMap second = titled_map(4, "Same");
    const CMessageMap third = titled_map(50, "Other");
    sweep_allocation_failures([&](auto failed) {
        CMessageManager manager;
        int count = 0;
        int newest = 0;
        for (const CMessageMap* map : {&first, &second, &third}) {
            const bool added = manager.AddMap(*map);
            const int code = map->GetSubjectKeyCode();
            EXPECT_TRUE(added || failed());
            count += added ? 1 : 0;
            newest = added && map != &third ? code : newest;
            EXPECT_EQ(manager.GetItemCount(), count);
            EXPECT_EQ(manager.SearchMessageMap(code) != nullptr, added);
            EXPECT_EQ(manager.SearchMessageMap("Same"), newest == 0 ? nullptr : manager.SearchMessageMap(newest));
        }
        EXPECT_EQ(manager.SearchMessageMap("Other"), manager.SearchMessageMap(50));
        for (int i = 0; i < count; ++i) {
            EXPECT_NE(manager.GetMessageMap(i), nullptr);
        }
    });
}

TEST(MessageManagerFailure, CopiesSayWhetherTheyAreWhole) {
    CMessageManager source;
    for (int code = 0; code < 20; ++code) {
        source.AddMap(titled_map(code, "Title"));
    }
    sweep_allocation_failures([&source](auto failed) {
        const std::unique_ptr<CMessageManager> copy(source.GetCopyInstance());
        EXPECT_TRUE(copy == nullptr ? failed() : copy->GetItemCount() == 20);
    });
}

TEST(MessageManagerFailure, LoadSaysFalseAndChangesNothingOrAddsMaps) {
    const TempDir folder;
    const std::string path = folder.write("in.txt", kFile);
    sweep_allocation_failures([&path](auto failed) {
        CMessageManager manager;
        const bool loaded = manager.Load(path.c_str());
        EXPECT_TRUE(loaded || failed());
        EXPECT_TRUE(loaded || manager.GetItemCount() == 0);
        EXPECT_TRUE(failed() || manager.GetItemCount() == 2);
    });
}

TEST(MessageManagerFailure, StoreWritesTheWholeFileOrSaysFalseAndLeavesTheOldOne) {
    const TempDir folder;
    const std::string path = folder.write("out.txt", "old");
    CMessageManager manager;
    ASSERT_TRUE(manager.AddMap(stored_map()));
    const std::string whole = usual_heading("out.txt") + kStoredMap + kClosing;
    sweep_allocation_failures([&](auto failed) {
        const bool stored = manager.Store(path.c_str(), nullptr);
        EXPECT_TRUE(stored ? holds(path, whole) : failed() && (holds(path, "old") || holds(path, whole)));
    });
    EXPECT_TRUE(holds(path, whole));
}

// --- what no file makes ---------------------------------------------------------------------------------------------

class LoaderProbe : public CMessageLoader {
public:
    using CMessageLoader::ParseMessageMap;
};

// The analyser makes a string token without text, which the parser passes over.
TEST(MessageItemEntries, StringWithoutTextClearsThePendingText) {
    using orvil::detail::BlockAccess;
    CLexTokenBlock block;
    BlockAccess::append(block, BlockAccess::make(eTokenString, "five"));
    orvil::detail::NodePtr empty = BlockAccess::make();
    orvil::detail::TokenAccess::make_without_text(*empty, 0, 0, eTokenString);
    ASSERT_TRUE(empty->IsStringToken());
    BlockAccess::append(block, empty);
    BlockAccess::append(block, BlockAccess::make(eTokenDecimal, "5"));
    CMessageMap map;
    EXPECT_TRUE(LoaderProbe().ParseMessageMap(block, map));
    EXPECT_EQ(show(map), "0 :");
}

}  // namespace
}  // namespace orvil::test
