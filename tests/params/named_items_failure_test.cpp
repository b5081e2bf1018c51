// Named items without memory: nothing is lost, nothing dangles.
#include <gtest/gtest.h>

#include "params/item_support.h"
#include "support/failing_allocator.h"

namespace orvil::test {
namespace {

// Runs `operation(refused)` with its 1st, 2nd, ... allocation refused until none is; `refused` receives a
// AllocationFailure that the operation ends when it has called what it tests.
template <typename Operation>
void sweep(Operation operation) {
    for (bool and_all_later : {false, true}) {
        for (int nth = 1;; ++nth) {
            ASSERT_LT(nth, 100);
            if (!operation(nth, and_all_later)) {
                break;
            }
        }
    }
}

TEST(NamedItemFailure, NameStaysWithoutMemory) {
    sweep([](int nth, bool and_all_later) {
        List list("ab");
        CVpItem* a = list.Find("a");
        bool renamed = false, refused = false;
        {
            const AllocationFailure failure(nth, and_all_later);
            renamed = a->SetName("a name that is longer");
            refused = failure.happened();
        }
        EXPECT_EQ(!refused, renamed);
        EXPECT_EQ(renamed ? "a name that is longer b" : "a b", list.text());
        return refused;
    });
}

TEST(NamedItemFailure, DuplicateIsNullWithoutMemory) {
    sweep([](int nth, bool and_all_later) {
        const CVpItem item(Item("name"));
        const AllocationFailure failure(nth, and_all_later);
        const CVpItem* copy = item.duplicate();
        EXPECT_EQ(failure.happened(), copy == nullptr);
        delete copy;
        return failure.happened();
    });
}

TEST(NamedListFailure, ItemIsNotAddedWithoutMemory) {
    sweep([](int nth, bool and_all_later) {
        List list;
        Item item("a");
        bool added = false, refused = false;
        {
            const AllocationFailure failure(nth, and_all_later);
            added = list.AddTail(&item);
            refused = failure.happened();
        }
        EXPECT_EQ(!refused, added);
        EXPECT_EQ(added ? "a" : "", list.text());
        EXPECT_EQ(added ? &list : nullptr, item.Parent());
        EXPECT_EQ(!added, item.stands_alone());
        item.Delete();
        return refused;
    });
}

TEST(NamedListFailure, RefusedItemGetsBothHooks) {
    std::string log;
    log.reserve(200);
    List list("", true, &log);
    Item item("a", &log);
    {
        const AllocationFailure failure(1, true);
        EXPECT_FALSE(list.AddTail(&item));
    }
    EXPECT_EQ("insert a\nattach a\nremove a\ndetach a\n", log);
}

TEST(NamedItemFailure, MovedItemIsInNoListWithoutMemory) {
    sweep([](int nth, bool and_all_later) {
        List from("ab"), to;
        CVpItem* a = from.Find("a");
        bool moved = false, refused = false;
        {
            const AllocationFailure failure(nth, and_all_later);
            moved = a->MoveTail(&to);
            refused = failure.happened();
        }
        EXPECT_EQ(!refused, moved);
        EXPECT_EQ("b", from.text());
        EXPECT_EQ(moved ? "a" : "", to.text());
        if (!moved) {
            EXPECT_EQ(nullptr, a->Parent());
            delete a;
        }
        return refused;
    });
}

TEST(NamedListFailure, SplicedItemsAreInOneOfTheLists) {
    const int alive = Item::alive;
    sweep([](int nth, bool and_all_later) {
        List from("abc"), to("x");
        bool refused = false;
        {
            const AllocationFailure failure(nth, and_all_later);
            EXPECT_TRUE(from.Splice(&to));
            refused = failure.happened();
        }
        EXPECT_EQ(4, from.GetCount() + to.GetCount());
        EXPECT_TRUE(refused || to.text() == "x a b c");
        return refused;
    });
    EXPECT_EQ(alive, Item::alive);
}

TEST(NamedListFailure, SplicedItemWithoutMemoryGoesBackToItsPlace) {
    List from("abc"), to("x");
    {
        const AllocationFailure failure(1);
        EXPECT_TRUE(from.Splice(&to));
    }
    EXPECT_EQ("a", from.text());
    EXPECT_EQ("x b c", to.text());
}

TEST(NamedListFailure, ItemThatTheIndexLostIsOwnedAndDeleted) {
    const int alive = Item::alive;
    List from("ab"), to;
    {
        const AllocationFailure failure(1, true);
        EXPECT_TRUE(from.Splice(&to));
    }
    EXPECT_EQ(2, from.GetCount());
    EXPECT_FALSE(from.IsExist("a"));
    EXPECT_STREQ("a", from.GetHead()->GetName());
    EXPECT_TRUE(from.GetHead()->SetName("c"));
    EXPECT_FALSE(from.IsExist("a"));
    delete from.GetHead();
    EXPECT_EQ(1, from.GetCount());
    CVpItem* b = from.GetHead();
    b->Delete();
    EXPECT_EQ(0, from.GetCount());
    delete b;
    EXPECT_EQ(alive, Item::alive);
}

TEST(NamedListFailure, LaterItemThatTheIndexLostIsCountedOffWhenItIsDestroyed) {
    List from("ab"), to;
    {
        const AllocationFailure failure(1, true);
        EXPECT_TRUE(from.Splice(&to));
    }
    delete from.GetTail();
    EXPECT_EQ(1, from.GetCount());
    EXPECT_STREQ("a", from.GetTail()->GetName());
}

TEST(NamedListFailure, RenamingAnItemThatTheIndexLostLeavesItsNamesakeInTheIndex) {
    List from("a"), to;
    {
        const AllocationFailure failure(1, true);
        EXPECT_TRUE(from.Splice(&to));
    }
    const Item* namesake = from.add("a");
    EXPECT_TRUE(from.GetHead()->SetName("c"));
    EXPECT_EQ(namesake, from.Find("a"));
}

TEST(NamedListFailure, CopyWithoutMemoryIsFalseAndLosesNothing) {
    const int alive = Item::alive;
    sweep([](int nth, bool and_all_later) {
        CVpList source(true, 11);
        source.AddTail(new CVpItem(Item("a")));
        source.AddTail(new CVpItem(Item("b")));
        List copy;
        bool complete = false, refused = false;
        {
            const AllocationFailure failure(nth, and_all_later);
            complete = copy.Copy(source);
            refused = failure.happened();
        }
        EXPECT_EQ(!refused, complete);
        EXPECT_EQ(complete, copy.text() == "a b");
        return refused;
    });
    EXPECT_EQ(alive, Item::alive);
}

TEST(NamedListFailure, HashTableWithoutMemoryTakesItemsLater) {
    List copy;
    {
        const List source("a");
        const AllocationFailure failure(1);
        EXPECT_FALSE(copy.Copy(source));
    }
    EXPECT_NE(nullptr, copy.add("b"));
    EXPECT_EQ("b", copy.text());
}

}  // namespace
}  // namespace orvil::test
