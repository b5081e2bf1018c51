// Items: names, flags, and what they do in a list.
#include "orvil/params/named_items.h"

#include <gtest/gtest.h>

#include "params/item_support.h"

namespace orvil::test {
namespace {

TEST(NamedLink, NewOneStandsAloneAndCopiesCopyThePointers) {
    VPLIST a, b;
    EXPECT_EQ(&a, a.prev);
    EXPECT_EQ(&a, a.next);
    b = a;
    EXPECT_EQ(&a, b.prev);
    EXPECT_EQ(&a, b.next);
    b = VPLIST{&b, &a};
    EXPECT_EQ(&b, b.prev);
    EXPECT_EQ(&a, b.next);
}

TEST(NamedLink, LiesBehindTheVirtualTable) {
    CVpItem item;
    CVpList list(true, 1);
    EXPECT_EQ(reinterpret_cast<char*>(&item) + 8, reinterpret_cast<char*>(static_cast<VPLIST*>(&item)));
    EXPECT_EQ(reinterpret_cast<char*>(&list) + 8, reinterpret_cast<char*>(static_cast<VPLIST*>(&list)));
    EXPECT_EQ(64u, sizeof(CVpItem));
    EXPECT_EQ(80u, sizeof(CVpList));
}

TEST(NamedItem, NewOneIsDetachedWithoutNameAndFlags) {
    CVpItem item;
    EXPECT_STREQ("", item.GetName());
    EXPECT_EQ(0, item.GetNameLength());
    EXPECT_EQ(0u, item.GetFlags());
    EXPECT_EQ(nullptr, item.Parent());
    EXPECT_EQ(&item, item.next);
    EXPECT_EQ(&item, item.prev);
}

TEST(NamedItem, CopyConstructorTakesTheNameAndNoFlags) {
    List list("abc");
    CVpItem* b = list.Find("b");
    b->SetFlags(5);
    const CVpItem copy(*b);
    EXPECT_STREQ("b", copy.GetName());
    EXPECT_EQ(0u, copy.GetFlags());
    EXPECT_EQ(nullptr, copy.Parent());
    EXPECT_EQ(&copy, copy.next);
    EXPECT_EQ("a b c", list.text());
}

TEST(NamedItem, CopyAndAssignmentTakeNameAndFlags) {
    Item source("source");
    source.SetFlags(5);
    CVpItem copied, assigned;
    copied.Copy(source);
    assigned = source;
    for (const CVpItem* item : {&copied, &assigned}) {
        EXPECT_STREQ("source", item->GetName());
        EXPECT_EQ(5u, item->GetFlags());
        EXPECT_EQ(nullptr, item->Parent());
        EXPECT_EQ(item, item->next);
    }
}

TEST(NamedItem, CopyOntoItselfChangesNothing) {
    Item item("name");
    item.SetFlags(5);
    item.Copy(item);
    EXPECT_STREQ("name", item.GetName());
    EXPECT_EQ(5u, item.GetFlags());
}

TEST(NamedItem, CopyOntoAnItemInAListTakesItOut) {
    List list("abc");
    CVpItem* b = list.Find("b");
    Item source("x");
    b->Copy(source);
    EXPECT_EQ("a c", list.text());
    EXPECT_EQ(nullptr, b->Parent());
    EXPECT_STREQ("x", b->GetName());
    delete b;
}

TEST(NamedItem, DuplicateIsANewItemOfItsName) {
    Item item("name");
    item.SetFlags(5);
    const CVpItem& base = item;
    CVpItem* copy = base.CVpItem::duplicate();
    EXPECT_STREQ("name", copy->GetName());
    EXPECT_EQ(0u, copy->GetFlags());
    delete copy;
}

TEST(NamedItem, ComparesByUnsignedBytes) {
    const struct {
        const char *left, *right;
        int order;
    } rows[] = {{"a", "b", -1}, {"b", "a", 1}, {"a", "a", 0},       {"", "a", -1},
                {"a", "", 1},   {"", "", 0},   {"\x80", "\x7F", 1}, {"A", "a", -1}};
    for (const auto& row : rows) {
        const Item left(row.left);
        Item right(row.right);
        EXPECT_EQ(row.order, left.Compare(&right)) << row.left << " " << row.right;
        EXPECT_EQ(row.order, left.CompareName(row.right)) << row.left << " " << row.right;
    }
}

TEST(NamedItem, ComparesWithNullAsWithTheEmptyName) {
    const Item item("a");
    EXPECT_EQ(1, item.Compare(nullptr));
    EXPECT_EQ(1, item.CompareName(nullptr));
    EXPECT_GT(item.CompareNameNoCase(nullptr), 0);
}

TEST(NamedItem, ComparesWithoutRegardToCaseAsLowerCase) {
    const Item item("Walls");
    EXPECT_EQ(0, item.CompareNameNoCase("wALLS"));
    EXPECT_LT(item.CompareNameNoCase("x"), 0);
    EXPECT_GT(item.CompareNameNoCase("A"), 0);
    EXPECT_GT(Item("a").CompareNameNoCase("_"), 0);  // 'a' is 97 and '_' 95; 'A' would be 65
    EXPECT_GT(Item("A").CompareNameNoCase("_"), 0);
}

TEST(NamedItemName, IsSetAndEmptied) {
    CVpItem item;
    EXPECT_TRUE(item.SetName("name"));
    EXPECT_STREQ("name", item.GetName());
    EXPECT_EQ(4, item.GetNameLength());
    EXPECT_TRUE(item.SetName("name"));
    EXPECT_TRUE(item.SetName(item.GetName() + 2));
    EXPECT_STREQ("me", item.GetName());
    EXPECT_TRUE(item.SetName(nullptr));
    EXPECT_STREQ("", item.GetName());
}

TEST(NamedItemName, NameOfAnotherItemIsRefused) {
    List list("ab");
    EXPECT_FALSE(list.Find("a")->SetName("b"));
    EXPECT_EQ("a b", list.text());
}

TEST(NamedItemName, OwnNameIsRefusedInAList) {
    List list("a");
    EXPECT_FALSE(list.Find("a")->SetName("a"));
    EXPECT_EQ("a", list.text());
}

TEST(NamedItemName, ChangeOfCaseIsRefusedInAListThatIgnoresCase) {
    List ignoring("a", false);
    EXPECT_FALSE(ignoring.Find("a")->SetName("A"));
    EXPECT_EQ("a", ignoring.text());
    List heeding("a", true);
    EXPECT_TRUE(heeding.Find("a")->SetName("A"));
    EXPECT_EQ("A", heeding.text());
}

TEST(NamedItemName, NewNameIsFoundAndTheOldOneNot) {
    List list("ab");
    CVpItem* a = list.Find("a");
    EXPECT_TRUE(a->SetName("c"));
    EXPECT_EQ(a, list.Find("c"));
    EXPECT_EQ(nullptr, list.Find("a"));
    EXPECT_EQ("c b", list.text());
}

TEST(NamedItemName, IndexIsKeyedAnewBeforeTheNameIsSet) {
    std::string log;
    List list("a", true, &log);
    log.clear();
    EXPECT_TRUE(list.Find("a")->SetName("b"));
    EXPECT_EQ("rename a b\n", log);
    EXPECT_FALSE(list.Find("b")->SetName("b"));
    EXPECT_EQ("rename a b\n", log);
}

TEST(NamedItemFlags, AreReplacedMaskedAndTested) {
    CVpItem item;
    item.SetFlags(0xF0000005u);
    EXPECT_EQ(0xF0000005u, item.GetFlags());
    EXPECT_EQ(0x5u, item.GetMaskedFlags(0xF));
    EXPECT_EQ(0u, item.GetMaskedFlags(0));
    item.SetFlags(1);
    EXPECT_EQ(1u, item.GetFlags());
    EXPECT_TRUE(item.TestFlags(0x1));
    EXPECT_FALSE(item.TestFlags(0x3));
    EXPECT_TRUE(item.TestFlags(0));
}

TEST(NamedItemFlags, MaskedSettingDoesNotMaskTheBits) {
    CVpItem item;
    item.SetFlags(0x1C);
    item.SetMaskedFlags(0x0F, 0x03);
    EXPECT_EQ(0x13u, item.GetFlags());
    item.SetMaskedFlags(0x01, 0x80);
    EXPECT_EQ(0x92u, item.GetFlags());
}

TEST(NamedItemFlags, ModFlagsClearsFirst) {
    CVpItem item;
    item.ModFlags(0x1, 0x1);
    EXPECT_EQ(0x1u, item.GetFlags());
    item.ModFlags(0x2, 0);
    EXPECT_EQ(0x3u, item.GetFlags());
    item.ModFlags(0, 0x1);
    EXPECT_EQ(0x2u, item.GetFlags());
    item.ModFlags(0, 0);
    EXPECT_EQ(0x2u, item.GetFlags());
}

TEST(NamedItemInsert, GoesBehindOrBeforeInTheList) {
    List list("ac");
    EXPECT_TRUE(list.Find("a")->InsertNext(new Item("b")));
    EXPECT_TRUE(list.Find("c")->InsertNext(new Item("d")));
    EXPECT_TRUE(list.Find("a")->InsertPrev(new Item("0")));
    EXPECT_TRUE(list.Find("c")->InsertPrev(new Item("bb")));
    EXPECT_EQ("0 a b bb c d", list.text());
}

TEST(NamedItemInsert, NameThatIsThereIsRefused) {
    List list("ab");
    Item twin("b");
    EXPECT_FALSE(list.Find("a")->InsertNext(&twin));
    EXPECT_FALSE(list.Find("a")->InsertPrev(&twin));
    EXPECT_TRUE(twin.stands_alone());
    EXPECT_EQ(nullptr, twin.Parent());
    EXPECT_EQ("a b", list.text());
}

TEST(NamedItemInsert, ItselfNullAndAnItemInAListAreRefused) {
    List list("ab");
    List other("c");
    CVpItem* a = list.Find("a");
    EXPECT_FALSE(a->InsertNext(a));
    EXPECT_FALSE(a->InsertPrev(a));
    EXPECT_FALSE(a->InsertNext(nullptr));
    EXPECT_FALSE(a->InsertPrev(nullptr));
    EXPECT_FALSE(a->InsertNext(list.Find("b")));
    EXPECT_FALSE(a->InsertPrev(other.Find("c")));
    EXPECT_EQ("a b", list.text());
    EXPECT_EQ("c", other.text());
}

TEST(NamedItemInsert, OutsideOfAListItemsAreLinkedWithEachOther) {
    Item a("a"), b("b"), c("a");
    EXPECT_FALSE(a.InsertNext(&a));
    EXPECT_TRUE(a.InsertNext(&b));
    EXPECT_TRUE(a.InsertPrev(&c));
    EXPECT_EQ(&b, a.next);
    EXPECT_EQ(&c, a.prev);
    EXPECT_EQ(&c, b.next);
    EXPECT_EQ(nullptr, a.Parent());
    EXPECT_EQ(nullptr, b.Parent());
    EXPECT_TRUE(a.InsertNext(&c));
    EXPECT_EQ(&c, a.next);
    EXPECT_EQ(&b, c.next);
    EXPECT_EQ(&a, b.next);
    EXPECT_TRUE(a.InsertNext(&c));
    EXPECT_EQ(&c, a.next);
}

TEST(NamedItemInsert, ItemLinkedOutsideOfAListLeavesItsNeighbours) {
    Item a("a"), b("b");
    a.InsertNext(&b);
    {
        List list("x");
        EXPECT_TRUE(list.AddTail(&a));
        EXPECT_TRUE(b.stands_alone());
        EXPECT_EQ("x a", list.text());
        a.Delete();
    }
    a.InsertNext(&b);
    List list("x");
    EXPECT_TRUE(list.Find("x")->InsertNext(&b));
    EXPECT_TRUE(a.stands_alone());
    EXPECT_EQ("x b", list.text());
    b.Delete();
}

TEST(NamedItemInsert, CallsTheHooks) {
    std::string log;
    List list("a", true, &log);
    log.clear();
    list.Find("a")->InsertNext(new Item("b", &log));
    EXPECT_EQ("insert b\nattach b\n", log);
    list.log_ = nullptr;
    list.Clear();
}

TEST(NamedItemDelete, TakesTheItemOutAndLetsItLive) {
    std::string log;
    List list("abc", true, &log);
    CVpItem* b = list.Find("b");
    log.clear();
    b->Delete();
    EXPECT_EQ("remove b\ndetach b\n", log);
    EXPECT_EQ("a c", list.text());
    EXPECT_EQ(nullptr, b->Parent());
    EXPECT_EQ(b, b->next);
    b->Delete();
    EXPECT_EQ("remove b\ndetach b\n", log);
    EXPECT_TRUE(list.AddHead(b));
    EXPECT_EQ("b a c", list.text());
    list.Clear();
}

TEST(NamedItemDelete, TakesItFromNeighboursOutsideOfAList) {
    Item a("a"), b("b");
    a.InsertNext(&b);
    a.Delete();
    EXPECT_TRUE(a.stands_alone());
    EXPECT_TRUE(b.stands_alone());
}

TEST(NamedItemMove, GoesToTheFrontOrTheEndOfAnotherList) {
    std::string log;
    List from("abc", true, &log);
    List to("xy", true, &log);
    log.clear();
    EXPECT_TRUE(from.Find("b")->MoveHead(&to));
    EXPECT_EQ("remove b\ndetach b\ninsert b\nattach b\n", log);
    EXPECT_TRUE(from.Find("a")->MoveTail(&to));
    EXPECT_EQ("c", from.text());
    EXPECT_EQ("b x y a", to.text());
    from.Clear();
    to.Clear();
}

TEST(NamedItemMove, WithinItsListGoesToTheFrontOrTheEnd) {
    List list("abc");
    EXPECT_TRUE(list.Find("b")->MoveHead(&list));
    EXPECT_EQ("b a c", list.text());
    EXPECT_TRUE(list.Find("a")->MoveTail(&list));
    EXPECT_EQ("b c a", list.text());
    EXPECT_TRUE(list.Find("a")->MoveTail(&list));
    EXPECT_TRUE(list.Find("b")->MoveHead(&list));
    EXPECT_EQ("b c a", list.text());
}

TEST(NamedItemMove, NameThatIsThereLeavesTheItemInNoList) {
    for (bool head : {false, true}) {
        List from("ab");
        List to("bx");
        CVpItem* b = from.Find("b");
        EXPECT_FALSE(head ? b->MoveHead(&to) : b->MoveTail(&to));
        EXPECT_EQ(nullptr, b->Parent());
        EXPECT_EQ(b, b->next);
        EXPECT_EQ("a", from.text());
        EXPECT_EQ("b x", to.text());
        delete b;
    }
}

TEST(NamedItemMove, ToNoListChangesNothing) {
    List list("ab");
    EXPECT_FALSE(list.Find("a")->MoveHead(nullptr));
    EXPECT_FALSE(list.Find("a")->MoveTail(nullptr));
    EXPECT_EQ("a b", list.text());
}

TEST(NamedItemMove, DetachedItemIsInserted) {
    List list("a");
    auto* item = new Item("b");
    EXPECT_TRUE(item->MoveHead(&list));
    EXPECT_EQ("b a", list.text());
}

TEST(NamedItemDestruction, TakesTheItemOutOfListIndexAndCountWithoutAHook) {
    std::string log;
    List list("abc", true, &log);
    log.clear();
    delete list.Find("b");
    EXPECT_EQ("~b\n", log);
    EXPECT_EQ("a c", list.text());
    EXPECT_EQ(nullptr, list.Find("b"));
    list.Clear();
}

TEST(NamedItemDestruction, OfAnItemThatANameHasReplacedLeavesTheOtherOne) {
    List list("ab");
    // A hook called by hand: the index finds "b" by the name "a", and "a" not at all.
    list.OnRenameItem(list.Find("b"), "a");
    CVpItem* a = list.GetHead();
    EXPECT_NE(a, list.Find("a"));
    delete a;
    EXPECT_EQ(1, list.GetCount());
    EXPECT_EQ(list.GetHead(), list.Find("a"));
}

TEST(NamedItemHooks, RecordAndClearTheOwner) {
    CVpItem item;
    {
        CVpList list(true, 1);
        item.OnAttachList(&list);
        EXPECT_EQ(&list, item.Parent());
        item.OnDetachList(&list);
        EXPECT_EQ(nullptr, item.Parent());
        item.OnAttachList(&list);
        {
            CVpItem other;
            other.OnAttachList(&list);  // destroyed without ever having been linked
        }
        EXPECT_EQ(0, list.GetCount());
        item.OnDetachList(&list);
    }
    item.OnDestroy();
}

}  // namespace
}  // namespace orvil::test
