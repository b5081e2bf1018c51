// Named items and lists that write down which of their hooks are called.
#pragma once

#include <gtest/gtest.h>

#include <new>
#include <string>

#include "orvil/params/named_items.h"

namespace orvil::test {

class Item : public CVpItem {
public:
    explicit Item(const char* name, std::string* log = nullptr) : log_(log) {
        SetName(name);
        ++alive;
    }
    Item(const Item& source) : CVpItem(source), log_(source.log_) { ++alive; }
    ~Item() override {
        note("~");
        --alive;
    }

    CVpItem* duplicate() const override { return new (std::nothrow) Item(*this); }
    void OnDestroy() override { note("destroy "); }
    void OnAttachList(CVpList* list) override {
        CVpItem::OnAttachList(list);
        note("attach ");
    }
    void OnDetachList(CVpList* list) override {
        CVpItem::OnDetachList(list);
        note("detach ");
    }

    // Whether the item is linked to nothing.
    bool stands_alone() const { return next == this && prev == this; }

    static inline int alive = 0;

private:
    void note(const char* what) {
        if (log_ != nullptr) {
            *log_ += what + std::string(GetName()) + "\n";
        }
    }

    std::string* log_;
};

class List : public CVpList {
public:
    explicit List(const char* names = "", bool case_sensitive = true, std::string* log = nullptr)
        : CVpList(case_sensitive, 37), log_(log) {
        for (; *names != '\0'; ++names) {
            add(std::string(1, *names).c_str());
        }
    }

    // Appends a new item; null when that fails.
    Item* add(const char* name) {
        Item* item = new Item(name, log_);
        if (!AddTail(item)) {
            delete item;
            return nullptr;
        }
        return item;
    }

    void OnInsertItem(CVpItem* item) override {
        note("insert ", item);
        CVpList::OnInsertItem(item);
    }
    void OnRemoveItem(CVpItem* item) override {
        note("remove ", item);
        CVpList::OnRemoveItem(item);
    }
    void OnRenameItem(CVpItem* item, const char* newName) override {
        note("rename ", item, newName);
        CVpList::OnRenameItem(item, newName);
    }

    // The names in order, when the way back, the index, the count and the owners agree with it.
    std::string text() const {
        std::string forward, backward;
        int count = 0;
        for (const VPLIST* link = next; link != this; link = link->next) {
            const auto* item = static_cast<const CVpItem*>(link);
            forward += std::string(forward.empty() ? "" : " ") + item->GetName();
            EXPECT_EQ(item, Find(item->GetName()));
            EXPECT_EQ(this, item->Parent());
            EXPECT_EQ(item, GetAt(count));
            ++count;
        }
        for (const VPLIST* link = prev; link != this; link = link->prev) {
            backward =
                static_cast<const CVpItem*>(link)->GetName() + std::string(backward.empty() ? "" : " ") + backward;
        }
        EXPECT_EQ(forward, backward);
        EXPECT_EQ(count, GetCount());
        EXPECT_EQ(count, index_.GetCount());
        EXPECT_EQ(count == 0, IsEmpty());
        return forward;
    }

    int buckets() const { return bucket_count_; }
    bool heeds_case() const { return case_sensitive_; }

    std::string* log_;

private:
    void note(const char* what, const CVpItem* item, const char* more = nullptr) {
        if (log_ != nullptr) {
            *log_ += what + std::string(item->GetName()) + (more == nullptr ? "" : " " + std::string(more)) + "\n";
        }
    }
};

}  // namespace orvil::test
