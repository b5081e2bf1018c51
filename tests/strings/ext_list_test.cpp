#include "orvil/strings/ext_list.h"

#include <gtest/gtest.h>

#include <list>
#include <random>
#include <string>

namespace {

class Item {
public:
    explicit Item(int value) : value_(value) { ++living; }
    Item(const Item& other) : value_(other.value_) { ++living; }
    Item& operator=(const Item&) = delete;
    virtual ~Item() { --living; }
    virtual int value() const { return value_; }

    static int living;

private:
    int value_;
};
int Item::living = 0;

class NegativeItem : public Item {
public:
    using Item::Item;
    int value() const override { return -Item::value(); }
};

class ExtList : public testing::Test {
protected:
    ~ExtList() override { EXPECT_EQ(Item::living, 0) << "items leaked or deleted twice"; }
};

std::string show(const CExtList<Item>& list) {
    std::string forth;
    std::string back;
    int count = 0;
    for (__pos* pos = list.GetHeadPosition(); pos != nullptr; ++count) {
        forth += std::to_string(list.GetNext(pos)->value()) + " ";
    }
    for (__pos* pos = list.GetTailPosition(); pos != nullptr;) {
        back.insert(0, std::to_string(list.GetPrev(pos)->value()) + " ");
    }
    EXPECT_EQ(forth, back);
    EXPECT_EQ(count, list.GetCount());
    return forth;
}

class ListProbe : public CExtList<Item> {
public:
    using CExtList<Item>::count_;
    using CExtList<Item>::head_;
    using CExtList<Item>::tail_;
};

TEST_F(ExtList, LayoutIsThatOfTheStringList) {
    ListProbe list;
    const char* start = reinterpret_cast<const char*>(static_cast<CExtList<Item>*>(&list));
    EXPECT_EQ(sizeof(CExtList<Item>), 32U);
    EXPECT_EQ(reinterpret_cast<const char*>(&list.head_) - start, 8);
    EXPECT_EQ(reinterpret_cast<const char*>(&list.tail_) - start, 16);
    EXPECT_EQ(reinterpret_cast<const char*>(&list.count_) - start, 24);
}

TEST_F(ExtList, NewListIsEmpty) {
    CExtList<Item> list;
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(list.GetCount(), 0);
    EXPECT_EQ(list.GetHeadPosition(), nullptr);
    EXPECT_EQ(list.GetTailPosition(), nullptr);
    EXPECT_FALSE(list.RemoveHead());
    EXPECT_FALSE(list.RemoveTail());
    EXPECT_FALSE(list.RemoveAt(nullptr));
}

TEST_F(ExtList, CopiesAreAddedAtBothEnds) {
    CExtList<Item> list;
    const Item item(2);
    __pos* second = list.AddTail(item);
    __pos* first = list.AddHead(Item(1));
    EXPECT_EQ(show(list), "1 2 ");
    EXPECT_EQ(list.GetHeadPosition(), first);
    EXPECT_EQ(list.GetTailPosition(), second);
    EXPECT_NE(list.GetAt(second), &item);
}

TEST_F(ExtList, AdoptedItemsKeepTheirClass) {
    CExtList<Item> list;
    auto* item = new NegativeItem(3);
    __pos* pos = list.AddTailPtr(item);
    EXPECT_EQ(list.GetAt(pos), item);
    EXPECT_EQ(show(list), "-3 ");
    EXPECT_EQ(list.AddTailPtr(nullptr), nullptr);
    EXPECT_EQ(list.GetCount(), 1);
}

TEST_F(ExtList, WalksEndWithNoPosition) {
    CExtList<Item> list;
    list.AddTail(Item(1));
    __pos* pos = list.GetHeadPosition();
    EXPECT_EQ(list.GetNext(pos)->value(), 1);
    EXPECT_EQ(pos, nullptr);
    EXPECT_EQ(list.GetNext(pos), nullptr);
    EXPECT_EQ(list.GetPrev(pos), nullptr);
    EXPECT_EQ(list.GetAt(nullptr), nullptr);
    pos = list.GetTailPosition();
    EXPECT_EQ(list.GetPrev(pos)->value(), 1);
    EXPECT_EQ(pos, nullptr);
}

TEST_F(ExtList, RemovedItemsAreDeleted) {
    CExtList<Item> list;
    for (int i = 1; i <= 4; ++i) {
        list.AddTail(Item(i));
    }
    __pos* pos = list.GetHeadPosition();
    list.GetNext(pos);
    EXPECT_TRUE(list.RemoveAt(pos));
    EXPECT_EQ(show(list), "1 3 4 ");
    EXPECT_TRUE(list.RemoveHead());
    EXPECT_TRUE(list.RemoveTail());
    EXPECT_EQ(show(list), "3 ");
    EXPECT_EQ(Item::living, 1);
    EXPECT_TRUE(list.RemoveAll());
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(list.GetTailPosition(), nullptr);
}

TEST_F(ExtList, RandomStepsAgreeWithAList) {
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    CExtList<Item> list;
    std::list<int> model;
    for (int step = 0; step < 2000; ++step) {
        const auto choice = random() % 6;
        if (choice == 0) {
            list.AddHead(Item(step));
            model.push_front(step);
        } else if (choice < 4) {
            choice == 1 ? list.AddTail(Item(step)) : list.AddTailPtr(new Item(step));
            model.push_back(step);
        } else if (!model.empty()) {
            EXPECT_TRUE(choice == 4 ? list.RemoveHead() : list.RemoveTail());
            choice == 4 ? model.pop_front() : model.pop_back();
        }
        std::string expected;
        for (const int value : model) {
            expected += std::to_string(value) + " ";
        }
        ASSERT_EQ(show(list), expected);
    }
}

}  // namespace
