// Lists of named items.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <random>
#include <vector>

#include "params/item_support.h"

namespace orvil::test {
namespace {

TEST(NamedList, NewOneIsEmpty) {
    const List list;
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(0, list.GetCount());
    EXPECT_EQ(nullptr, list.GetHead());
    EXPECT_EQ(nullptr, list.GetTail());
    EXPECT_EQ(nullptr, list.GetAt(0));
    EXPECT_EQ(nullptr, list.Find("a"));
}

// A list with a number of buckets.
struct Buckets : CVpList {
    explicit Buckets(int count) : CVpList(true, count) {}
    int count() const { return bucket_count_; }
};

TEST(NamedList, BucketCountBelowOneIsThirtySeven) {
    EXPECT_EQ(37, Buckets(0).count());
    EXPECT_EQ(37, Buckets(-1).count());
    EXPECT_EQ(1, Buckets(1).count());
    EXPECT_EQ(100, Buckets(100).count());
}

TEST(NamedList, OneBucketHoldsAllNames) {
    CVpList list(true, 1);
    for (const char* name : {"a", "b", "c"}) {
        EXPECT_TRUE(list.AddTail(new Item(name)));
    }
    EXPECT_EQ(list.GetAt(1), list.Find("b"));
}

TEST(NamedListAdd, GoesToTheFrontOrTheEnd) {
    List list;
    EXPECT_TRUE(list.AddTail(new Item("b")));
    EXPECT_TRUE(list.AddHead(new Item("a")));
    EXPECT_TRUE(list.AddTail(new Item("c")));
    EXPECT_EQ("a b c", list.text());
    EXPECT_STREQ("a", list.GetHead()->GetName());
    EXPECT_STREQ("c", list.GetTail()->GetName());
}

TEST(NamedListAdd, NameThatIsThereIsRefused) {
    List list("a");
    Item twin("a");
    EXPECT_FALSE(list.AddHead(&twin));
    EXPECT_FALSE(list.AddTail(&twin));
    EXPECT_EQ(nullptr, twin.Parent());
    EXPECT_EQ("a", list.text());
}

TEST(NamedListAdd, NullAndAnItemInAListAreRefused) {
    List list("a");
    List other("b");
    EXPECT_FALSE(list.AddHead(nullptr));
    EXPECT_FALSE(list.AddTail(nullptr));
    EXPECT_FALSE(list.AddHead(other.Find("b")));
    EXPECT_FALSE(list.AddTail(list.Find("a")));
    EXPECT_EQ("a", list.text());
    EXPECT_EQ("b", other.text());
}

TEST(NamedListAdd, CaseMattersOnlyInACaseSensitiveList) {
    List ignoring("", false);
    EXPECT_NE(nullptr, ignoring.add("Alpha"));
    EXPECT_EQ(nullptr, ignoring.add("ALPHA"));
    EXPECT_EQ("Alpha", ignoring.text());
    EXPECT_EQ(ignoring.GetHead(), ignoring.Find("aLPHA"));
    List heeding("", true);
    EXPECT_NE(nullptr, heeding.add("Alpha"));
    EXPECT_NE(nullptr, heeding.add("ALPHA"));
    EXPECT_EQ("Alpha ALPHA", heeding.text());
    EXPECT_EQ(nullptr, heeding.Find("alpha"));
}

TEST(NamedListAdd, CallsTheHooksAfterLinking) {
    std::string log;
    List list("", true, &log);
    list.add("a");
    EXPECT_EQ("insert a\nattach a\n", log);
    list.Clear();
}

TEST(NamedListFind, EmptyNameIsANameLikeAnyOther) {
    List list;
    EXPECT_FALSE(list.IsExist(""));
    EXPECT_FALSE(list.IsExist(nullptr));
    Item* item = list.add("");
    EXPECT_TRUE(list.IsExist(""));
    EXPECT_EQ(item, list.Find(""));
    EXPECT_EQ(item, list.Find(nullptr));
}

TEST(NamedListGetAt, WalksFromTheHead) {
    const List list("abc");
    EXPECT_STREQ("a", list.GetAt(0)->GetName());
    EXPECT_STREQ("c", list.GetAt(2)->GetName());
    for (int outside : {3, 4, -1, -2147483647 - 1, 2147483647}) {
        EXPECT_EQ(nullptr, list.GetAt(outside));
    }
}

TEST(NamedListClear, RemovesDetachesDestroysAndDeletesEachFromTheHead) {
    std::string log;
    List list("ab", true, &log);
    log.clear();
    const int alive = Item::alive;
    list.Clear();
    EXPECT_EQ("remove a\ndetach a\ndestroy a\n~a\nremove b\ndetach b\ndestroy b\n~b\n", log);
    EXPECT_EQ(alive - 2, Item::alive);
    EXPECT_EQ("", list.text());
}

TEST(NamedListClear, ClearedListTakesItemsAgain) {
    List list("ab");
    list.Clear();
    list.Clear();
    list.add("a");
    EXPECT_EQ("a", list.text());
}

TEST(NamedListDestruction, DeletesTheItems) {
    const int alive = Item::alive;
    { List list("abc"); }
    EXPECT_EQ(alive, Item::alive);
}

TEST(NamedListSplice, MovesWhatTheOtherListDoesNotHaveToItsEnd) {
    std::string log;
    List from("abc", true, &log);
    List to("b", true, &log);
    log.clear();
    EXPECT_TRUE(from.Splice(&to));
    EXPECT_EQ("remove a\ndetach a\ninsert a\nattach a\nremove c\ndetach c\ninsert c\nattach c\n", log);
    EXPECT_EQ("b", from.text());
    EXPECT_EQ("b a c", to.text());
    from.Clear();
    to.Clear();
}

TEST(NamedListSplice, IsFalseOnlyForAnEmptyList) {
    List from("a"), to("a"), empty;
    EXPECT_TRUE(from.Splice(&to));
    EXPECT_FALSE(empty.Splice(&to));
    EXPECT_TRUE(from.Splice(&from));
    EXPECT_EQ("a", from.text());
    EXPECT_TRUE(from.Splice(&empty));
    EXPECT_EQ("a", empty.text());
    EXPECT_FALSE(from.Splice(&empty));
}

TEST(NamedListSplice, NullListIsFalse) {
    List from("a");
    EXPECT_FALSE(from.Splice(nullptr));
    EXPECT_EQ("a", from.text());
}

TEST(NamedListSplice, GoesByTheCaseRuleOfTheOtherList) {
    List from("aA"), to("", false);
    EXPECT_TRUE(from.Splice(&to));
    EXPECT_EQ("A", from.text());
    EXPECT_EQ("a", to.text());
}

TEST(NamedListCopy, TakesCaseRuleBucketsAndDuplicates) {
    CVpList source(false, 11);
    source.AddTail(new Item("a"));
    source.AddTail(new Item("b"));
    List copy("", true);
    EXPECT_TRUE(copy.Copy(source));
    EXPECT_EQ("a b", copy.text());
    EXPECT_EQ(11, copy.buckets());
    EXPECT_FALSE(copy.heeds_case());
    EXPECT_EQ(copy.GetHead(), copy.Find("A"));
    EXPECT_NE(source.GetHead(), copy.GetHead());
    EXPECT_NE(nullptr, dynamic_cast<Item*>(copy.GetHead()));
    EXPECT_EQ(nullptr, copy.add("A"));
}

TEST(NamedListCopy, LeavesTheItemsItHeldAliveAndDetachedWithoutAHook) {
    std::string log;
    List list("ab", true, &log);
    CVpItem* a = list.Find("a");
    CVpItem* b = list.Find("b");
    log.clear();
    EXPECT_TRUE(list.Copy(List("x")));
    EXPECT_EQ("insert x\n", log);
    EXPECT_EQ("x", list.text());
    for (CVpItem* item : {a, b}) {
        EXPECT_EQ(nullptr, item->Parent());
        EXPECT_EQ(item, item->next);
        delete item;
    }
    list.log_ = nullptr;
}

TEST(NamedListCopy, OntoItselfChangesNothing) {
    List list("ab");
    CVpItem* a = list.Find("a");
    const List& same = list;
    EXPECT_TRUE(list.Copy(same));
    list = same;
    EXPECT_EQ("a b", list.text());
    EXPECT_EQ(a, list.GetHead());
}

TEST(NamedListCopy, ConstructedCopyIsACopyOfItsOwn) {
    List source("ab", false);
    const CVpList copy(source);
    source.Clear();
    EXPECT_EQ(2, copy.GetCount());
    EXPECT_STREQ("b", copy.GetTail()->GetName());
    EXPECT_TRUE(copy.IsExist("B"));
}

TEST(NamedListCopy, AssignmentDeletesTheOldItems) {
    const int alive = Item::alive;
    {
        List list("abc");
        list = List("xy");
        EXPECT_EQ("x y", list.text());
        EXPECT_EQ(alive + 2, Item::alive);
    }
    EXPECT_EQ(alive, Item::alive);
}

// Its duplicates are all of one name.
struct OneName : Item {
    using Item::Item;
    CVpItem* duplicate() const override { return new (std::nothrow) Item("same"); }
};

TEST(NamedListCopy, DuplicateWhoseNameIsThereIsDeleted) {
    const int alive = Item::alive;
    {
        CVpList source(true, 37);
        source.AddTail(new OneName("a"));
        source.AddTail(new OneName("b"));
        List copy;
        EXPECT_TRUE(copy.Copy(source));
        EXPECT_EQ("same", copy.text());
        EXPECT_EQ(alive + 3, Item::alive);
    }
    EXPECT_EQ(alive, Item::alive);
}

// Its duplicate is itself.
struct NoDuplicate : Item {
    using Item::Item;
    CVpItem* duplicate() const override { return const_cast<NoDuplicate*>(this); }
};

TEST(NamedListCopy, DuplicateThatIsInAListIsLeftThere) {
    List source;
    source.AddTail(new NoDuplicate("a"));
    List copy;
    EXPECT_TRUE(copy.Copy(source));
    EXPECT_EQ("", copy.text());
    EXPECT_EQ("a", source.text());
}

TEST(NamedListHooks, NullItemHasNoEffect) {
    List list("a");
    list.CVpList::OnInsertItem(nullptr);
    list.CVpList::OnRemoveItem(nullptr);
    list.CVpList::OnRenameItem(nullptr, "b");
    EXPECT_EQ("a", list.text());
}

TEST(NamedListHooks, RenamingToTheSameNameKeepsTheItemInTheIndex) {
    List list("a");
    list.OnRenameItem(list.Find("a"), "a");
    EXPECT_EQ("a", list.text());
}

TEST(NamedListHooks, RemovingAnItemOfAnotherListTakesNothingFromThisOne) {
    List list("a"), other("a");
    list.CVpList::OnRemoveItem(other.Find("a"));
    EXPECT_EQ("a", list.text());
}

// An item and a list whose hooks do not call the originals.
struct SilentItem : CVpItem {
    void OnAttachList(CVpList*) override {}
    void OnDetachList(CVpList*) override {}
};
struct SilentList : CVpList {
    SilentList() : CVpList(true, 37) {}
    void OnInsertItem(CVpItem*) override {}
    void OnRemoveItem(CVpItem*) override {}
    void OnRenameItem(CVpItem*, const char*) override {}
};

TEST(NamedListHooks, ItemThatDoesNotRecordItsOwnerIsTakenOutAllTheSame) {
    List list;
    auto* item = new SilentItem;
    item->SetName("a");
    EXPECT_TRUE(list.AddTail(item));
    EXPECT_EQ("a", list.text());
    item->Delete();
    EXPECT_EQ(nullptr, item->Parent());
    EXPECT_EQ("", list.text());
    EXPECT_TRUE(list.AddTail(item));
    delete item;
    EXPECT_EQ("", list.text());
}

TEST(NamedListHooks, ListThatKeepsNoIndexIsStillLinkedAndCleared) {
    SilentList list;
    auto* item = new Item("a");
    EXPECT_TRUE(list.AddTail(item));
    EXPECT_EQ(item, list.GetHead());
    EXPECT_EQ(nullptr, list.Find("a"));
    EXPECT_EQ(0, list.GetCount());
    EXPECT_TRUE(item->SetName("b"));
    const int alive = Item::alive;
    list.Clear();
    EXPECT_EQ(alive - 1, Item::alive);
    EXPECT_TRUE(list.IsEmpty());
}

struct NoRename : List {
    using List::List;
    void OnRenameItem(CVpItem*, const char*) override {}
};

TEST(NamedListHooks, NameStaysWhenTheIndexIsNotKeyedAnew) {
    NoRename list("a");
    EXPECT_FALSE(list.Find("a")->SetName("b"));
    EXPECT_EQ("a", list.text());
}

// Random operations on two lists beside two vectors of names.
class Twins {
public:
    explicit Twins(unsigned seed, bool case_sensitive)
        : case_sensitive_(case_sensitive), random_(seed), lists_{List("", case_sensitive), List("", case_sensitive)} {}

    void step() {
        const std::size_t which = random_() % 2;
        List& list = lists_[which];
        Names& names = models_[which];
        const std::string name(1, "abcdefABCDEF"[random_() % 12]);
        const auto found = find(names, name);
        const bool known = found != names.end();
        switch (random_() % 8) {
            case 0:
                add(list, names, name, known, true);
                break;
            case 1:
            case 2:
                add(list, names, name, known, false);
                break;
            case 3:
                if (known) {
                    delete list.Find(name.c_str());
                    names.erase(found);
                }
                break;
            case 4:
                if (!names.empty()) {
                    EXPECT_EQ(!known, list.GetTail()->SetName(name.c_str()));
                    names.back() = known ? names.back() : name;
                }
                break;
            case 5:
                move(which, name, known);
                break;
            case 6:
                if (random_() % 4 == 0) {
                    splice(which);
                }
                break;
            default:
                if (random_() % 8 == 0) {
                    list = lists_[1 - which];
                    names = models_[1 - which];
                }
        }
    }

    void check() const {
        for (std::size_t which = 0; which < 2; ++which) {
            std::string text;
            for (const std::string& name : models_[which]) {
                text += (text.empty() ? "" : " ") + name;
            }
            ASSERT_EQ(text, lists_[which].text());
        }
    }

private:
    using Names = std::vector<std::string>;

    Names::iterator find(Names& names, const std::string& name) const {
        return std::find_if(names.begin(), names.end(), [&](const std::string& each) {
            return case_sensitive_ ? each == name : std::tolower(each[0]) == std::tolower(name[0]);
        });
    }

    static void add(List& list, Names& names, const std::string& name, bool known, bool head) {
        auto* item = new Item(name.c_str());
        EXPECT_EQ(!known, head ? list.AddHead(item) : list.AddTail(item));
        if (known) {
            delete item;
        } else {
            names.insert(head ? names.begin() : names.end(), name);
        }
    }

    void move(std::size_t which, const std::string& name, bool known) {
        if (!known) {
            return;
        }
        CVpItem* item = lists_[which].Find(name.c_str());
        const std::string moved = item->GetName();
        Names& target = models_[1 - which];
        const bool refused = find(target, moved) != target.end();
        EXPECT_EQ(!refused, item->MoveTail(&lists_[1 - which]));
        models_[which].erase(find(models_[which], moved));
        if (refused) {
            delete item;
        } else {
            target.push_back(moved);
        }
    }

    void splice(std::size_t which) {
        Names kept;
        EXPECT_EQ(!models_[which].empty(), lists_[which].Splice(&lists_[1 - which]));
        for (const std::string& name : models_[which]) {
            Names& target = models_[1 - which];
            (find(target, name) == target.end() ? target : kept).push_back(name);
        }
        models_[which] = kept;
    }

    bool case_sensitive_;
    std::mt19937 random_;
    std::array<List, 2> lists_;
    std::array<Names, 2> models_;
};

TEST(NamedListModel, RandomOperationsGiveTheItemsOfTheModel) {
    const int alive = Item::alive;
    for (unsigned seed = 1; seed <= 30; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Twins twins(seed, seed % 2 == 0);
        for (int i = 0; i < 500 && !testing::Test::HasFailure(); ++i) {
            twins.step();
            twins.check();
        }
    }
    EXPECT_EQ(alive, Item::alive);
}

}  // namespace
}  // namespace orvil::test
