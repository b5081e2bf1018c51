#include "orvil/params/red_black_tree.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "params/tree_support.h"

namespace orvil::test {
namespace {

using Numbers = std::vector<int>;

// A tree of the numbers 1, 2, ... in ascending order of insertion.
template <std::size_t N>
struct Tree {
    Tree() {
        for (std::size_t i = 0; i < N; ++i) {
            records[i].number = static_cast<int>(i) + 1;
            EXPECT_EQ(0, enter(root, records[i]));
        }
    }

    arbt_node_t* node(int number) { return &records[static_cast<std::size_t>(number) - 1].node; }

    std::array<Numbered, N> records;
    arbt_root_t root{nullptr, 0};
};

int note_number(arbt_node_t* node, void* user) {
    static_cast<Numbers*>(user)->push_back(numbered(node)->number);
    return 0;
}

int stop_at_three(arbt_node_t* node, void* user) {
    note_number(node, user);
    return numbered(node)->number == 3 ? 33 : 0;
}

TEST(RedBlackRoot, InitMakesAnEmptyTree) {
    Numbered record(1);
    arbt_root_t root{&record.node, 5};
    arbt_init_root(&root);
    EXPECT_EQ(nullptr, root.node);
    EXPECT_EQ(0, root.count);
}

TEST(RedBlackNode, InitMakesTheNodeItsOwnParentAndKeepsTheLowBits) {
    for (std::uintptr_t bits = 0; bits < 4; ++bits) {
        arbt_node_t node{0x1230 | bits, &node, nullptr};
        arbt_init_node(&node);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(&node) | bits, node.parent);
        EXPECT_EQ(&node, node.left);
    }
}

TEST(RedBlackNode, SettingTheParentKeepsTheLowBits) {
    for (std::uintptr_t bits = 0; bits < 4; ++bits) {
        arbt_node_t parent{};
        arbt_node_t node{bits, nullptr, nullptr};
        arbt_set_parent(&node, &parent);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(&parent) | bits, node.parent);
        arbt_set_parent(&node, nullptr);
        EXPECT_EQ(bits, node.parent);
    }
}

TEST(RedBlackNode, SettingTheColourTakesBitZeroOnlyAndKeepsTheRest) {
    arbt_node_t node{0x1232, nullptr, nullptr};
    EXPECT_EQ(1, arbt_set_color(&node, 1));
    EXPECT_EQ(0x1233u, node.parent);
    EXPECT_EQ(2, arbt_set_color(&node, 2));
    EXPECT_EQ(0x1232u, node.parent);
    EXPECT_EQ(-1, arbt_set_color(&node, -1));
    EXPECT_EQ(0x1233u, node.parent);
    EXPECT_EQ(0, arbt_set_color(&node, 0));
    EXPECT_EQ(0x1232u, node.parent);
}

TEST(RedBlackNode, LinkingMakesARedLeafAndKeepsBitOne) {
    arbt_node_t parent{};
    arbt_node_t* link = nullptr;
    arbt_node_t node{0x7, &parent, &parent};
    arbt_link_node(&node, &parent, &link);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(&parent) | 2, node.parent);
    EXPECT_EQ(nullptr, node.left);
    EXPECT_EQ(nullptr, node.right);
    EXPECT_EQ(&node, link);
}

TEST(RedBlackInsert, LinkingAndFixingUpByHandLeavesTheCountToTheCaller) {
    Numbered first(1);
    Numbered second(2);
    arbt_root_t root{nullptr, 0};
    arbt_link_node(&first.node, nullptr, &root.node);
    arbt_insert_fixup(&first.node, &root);
    arbt_link_node(&second.node, &first.node, &first.node.right);
    arbt_insert_fixup(&second.node, &root);
    EXPECT_EQ(0, root.count);
    root.count = 2;
    EXPECT_EQ("", TreeCheck::fault(root));
    EXPECT_EQ("(.1b(.2r.))", shape(root.node));
}

TEST(RedBlackInsert, RedUncleIsRecoloured) {
    Tree<4> tree;
    EXPECT_EQ("((.1b.)2b(.3b(.4r.)))", shape(tree.root.node));
}

TEST(RedBlackInsert, StraightPairIsRotatedOnce) {
    Tree<3> tree;
    EXPECT_EQ("((.1r.)2b(.3r.))", shape(tree.root.node));
}

TEST(RedBlackInsert, BentPairIsRotatedTwice) {
    for (const Numbers& order : {Numbers{1, 3, 2}, Numbers{3, 1, 2}}) {
        Numbered a(order[0]), b(order[1]), c(order[2]);
        arbt_root_t root{nullptr, 0};
        for (Numbered* record : {&a, &b, &c}) {
            enter(root, *record);
        }
        EXPECT_EQ("((.1r.)2b(.3r.))", shape(root.node));
    }
}

TEST(RedBlackInsert, NullArgumentsGiveMinusOne) {
    arbt_root_t root{nullptr, 0};
    Numbered record(1);
    EXPECT_EQ(-1, arbt_entry_node(nullptr, &record.node, compare_numbers, &record.number));
    EXPECT_EQ(-1, arbt_entry_node(&root, nullptr, compare_numbers, &record.number));
    EXPECT_EQ(-1, arbt_entry_node(&root, &record.node, nullptr, &record.number));
    EXPECT_EQ(-1, arbt_entry_node(&root, &record.node, compare_numbers, nullptr));
    EXPECT_EQ(0, root.count);
    EXPECT_EQ(nullptr, root.node);
}

TEST(RedBlackInsert, EqualKeyGivesTwoAndInsertsNothing) {
    Tree<3> tree;
    Numbered twin(2);
    EXPECT_EQ(2, enter(tree.root, twin));
    EXPECT_EQ(3, tree.root.count);
    EXPECT_EQ(&twin.node, parent_of(&twin.node));
    EXPECT_EQ("((.1r.)2b(.3r.))", shape(tree.root.node));
}

TEST(RedBlackInsert, NodeThatIsThereAlreadyGivesTwo) {
    Tree<3> tree;
    EXPECT_EQ(2, enter(tree.root, tree.records[0]));
    EXPECT_EQ("", TreeCheck::fault(tree.root));
}

TEST(RedBlackInsert, ThousandAscendingKeysStayBalanced) {
    Tree<1000> tree;
    EXPECT_EQ("", TreeCheck::fault(tree.root));
    EXPECT_EQ(1000, tree.root.count);
    EXPECT_LE(TreeCheck::height(tree.root.node), static_cast<int>(2 * std::log2(1001)));
}

TEST(RedBlackErase, ErasedNodeIsMarkedAndHasNoNeighbours) {
    Tree<3> tree;
    arbt_erase_entry(tree.node(2), &tree.root);
    EXPECT_EQ(2, tree.root.count);
    EXPECT_EQ(tree.node(2), parent_of(tree.node(2)));
    EXPECT_EQ(nullptr, arbt_get_next(tree.node(2)));
    EXPECT_EQ(nullptr, arbt_get_prev(tree.node(2)));
    EXPECT_EQ((Numbers{1, 3}), ascending(tree.root));
}

TEST(RedBlackErase, SuccessorTakesTheColourAndKeepsItsOwnBitOne) {
    for (bool erased_marked : {false, true}) {
        Numbered records[] = {Numbered(1, true), Numbered(2, erased_marked), Numbered(3, !erased_marked), Numbered(4)};
        arbt_root_t root{nullptr, 0};
        for (Numbered& record : records) {
            enter(root, record);
        }
        arbt_erase_entry(&records[1].node, &root);
        EXPECT_EQ("((.1b.)3b(.4b.))", shape(root.node));
        EXPECT_EQ("", TreeCheck::fault(root));
        EXPECT_EQ(erased_marked, (records[1].node.parent & 2) != 0);
    }
}

TEST(RedBlackErase, LastNodeLeavesAnEmptyTree) {
    Tree<1> tree;
    arbt_erase_entry(tree.node(1), &tree.root);
    EXPECT_EQ(nullptr, tree.root.node);
    EXPECT_EQ(0, tree.root.count);
}

TEST(RedBlackErase, NodeInNoTreeHasNoEffect) {
    Tree<3> tree;
    Numbered alone(2);
    arbt_erase_entry(&alone.node, &tree.root);
    Numbered zeroed;
    zeroed.node = {};
    arbt_erase_entry(&zeroed.node, &tree.root);
    arbt_erase_entry(tree.node(3), &tree.root);
    arbt_erase_entry(tree.node(3), &tree.root);
    EXPECT_EQ(2, tree.root.count);
    EXPECT_EQ("", TreeCheck::fault(tree.root));
}

TEST(RedBlackErase, ErasedNodeCanBeEnteredAgain) {
    Tree<7> tree;
    for (int number : {4, 1, 7, 2}) {
        arbt_erase_entry(tree.node(number), &tree.root);
        EXPECT_EQ(0, enter(tree.root, tree.records[static_cast<std::size_t>(number) - 1]));
        EXPECT_EQ("", TreeCheck::fault(tree.root));
    }
    EXPECT_EQ((Numbers{1, 2, 3, 4, 5, 6, 7}), ascending(tree.root));
}

TEST(RedBlackErase, NodesPaintedByACallerNeverLeadOutOfTheTree) {
    for (int painted = 0; painted < 1 << 7; ++painted) {
        Tree<7> tree;
        for (int i = 0; i < 7; ++i) {
            arbt_set_color(tree.node(i + 1), painted >> i & 1);
        }
        for (int number : {4, 2, 6, 1, 3, 5, 7}) {
            arbt_erase_entry(tree.node(number), &tree.root);
        }
        EXPECT_EQ(0, tree.root.count);
        EXPECT_EQ(nullptr, tree.root.node);
    }
}

TEST(RedBlackInsert, RootPaintedRedIsMadeBlackAgain) {
    Tree<1> tree;
    arbt_set_color(tree.node(1), 0);
    Numbered second(2);
    enter(tree.root, second);
    EXPECT_EQ("(.1b(.2r.))", shape(tree.root.node));
}

TEST(RedBlackReplace, TakesTheWholeParentWordAndTheChildren) {
    for (int number = 1; number <= 7; ++number) {
        Tree<7> tree;
        const std::string before = shape(tree.root.node);
        Numbered twin(number);
        tree.node(number)->parent |= 2;
        arbt_replace_node(tree.node(number), &twin.node, &tree.root);
        twin.marked = true;
        EXPECT_EQ(before, shape(tree.root.node));
        EXPECT_EQ("", TreeCheck::fault(tree.root));
        EXPECT_EQ(&twin.node, find(tree.root, number));
        EXPECT_EQ(7, tree.root.count);
    }
}

TEST(RedBlackReplace, NodeInNoTreeHasNoEffect) {
    Tree<3> tree;
    Numbered alone(2);
    Numbered twin(2);
    arbt_replace_node(&alone.node, &twin.node, &tree.root);
    EXPECT_EQ(&twin.node, parent_of(&twin.node));
    alone.node = {};
    arbt_replace_node(&alone.node, &twin.node, &tree.root);
    arbt_replace_node(tree.node(2), tree.node(2), &tree.root);
    EXPECT_EQ("((.1r.)2b(.3r.))", shape(tree.root.node));
}

TEST(RedBlackFind, GivesTheNodeOrNull) {
    Tree<7> tree;
    for (int number = 1; number <= 7; ++number) {
        EXPECT_EQ(tree.node(number), find(tree.root, number));
    }
    EXPECT_EQ(nullptr, find(tree.root, 0));
    EXPECT_EQ(nullptr, find(tree.root, 8));
}

TEST(RedBlackFind, NullArgumentsGiveNull) {
    Tree<1> tree;
    const int key = 1;
    EXPECT_EQ(nullptr, arbt_find_node(nullptr, compare_numbers, &key));
    EXPECT_EQ(nullptr, arbt_find_node(&tree.root, nullptr, &key));
    EXPECT_EQ(nullptr, arbt_find_node(&tree.root, compare_numbers, nullptr));
}

TEST(RedBlackOrder, FirstAndLastAreTheEnds) {
    Tree<7> tree;
    EXPECT_EQ(tree.node(1), arbt_get_first(&tree.root));
    EXPECT_EQ(tree.node(7), arbt_get_last(&tree.root));
    EXPECT_EQ((Numbers{1, 2, 3, 4, 5, 6, 7}), ascending(tree.root));
    EXPECT_EQ((Numbers{7, 6, 5, 4, 3, 2, 1}), descending(tree.root));
}

TEST(RedBlackOrder, EmptyTreeHasNoEnds) {
    const arbt_root_t root{nullptr, 0};
    EXPECT_EQ(nullptr, arbt_get_first(&root));
    EXPECT_EQ(nullptr, arbt_get_last(&root));
}

TEST(RedBlackOrder, NodeInNoTreeHasNoNeighbours) {
    const Numbered alone(1);
    EXPECT_EQ(nullptr, arbt_get_next(&alone.node));
    EXPECT_EQ(nullptr, arbt_get_prev(&alone.node));
}

TEST(RedBlackTraverse, ZeroAndPositiveAscendNegativeDescends) {
    Tree<5> tree;
    for (int direction : {0, 1, 99, -1, -99}) {
        Numbers visited;
        EXPECT_EQ(0, arbt_traverse(&tree.root, direction, note_number, &visited));
        EXPECT_EQ(direction < 0 ? (Numbers{5, 4, 3, 2, 1}) : (Numbers{1, 2, 3, 4, 5}), visited);
    }
}

TEST(RedBlackTraverse, NonZeroEndsTheWalkAndIsReturned) {
    Tree<5> tree;
    Numbers visited;
    EXPECT_EQ(33, arbt_traverse(&tree.root, -1, stop_at_three, &visited));
    EXPECT_EQ((Numbers{5, 4, 3}), visited);
}

TEST(RedBlackTraverse, NullRootGivesMinusOneAndNoCallbackZero) {
    Tree<1> tree;
    EXPECT_EQ(-1, arbt_traverse(nullptr, 0, note_number, nullptr));
    EXPECT_EQ(0, arbt_traverse(&tree.root, 0, nullptr, nullptr));
    arbt_root_t empty{nullptr, 0};
    EXPECT_EQ(0, arbt_traverse(&empty, 0, note_number, nullptr));
}

TEST(RedBlackTraverse, CallbackMayEraseTheNodeThatItIsGiven) {
    Tree<9> tree;
    const auto erase = [](arbt_node_t* node, void* user) {
        arbt_erase_entry(node, static_cast<arbt_root_t*>(user));
        return 0;
    };
    EXPECT_EQ(0, arbt_traverse(&tree.root, 1, erase, &tree.root));
    EXPECT_EQ(0, tree.root.count);
    EXPECT_EQ(nullptr, tree.root.node);
}

TEST(RedBlackNull, EveryFunctionTakesNull) {
    arbt_node_t node{};
    arbt_root_t root{nullptr, 0};
    arbt_init_root(nullptr);
    arbt_init_node(nullptr);
    arbt_set_parent(nullptr, &node);
    EXPECT_EQ(1, arbt_set_color(nullptr, 1));
    arbt_link_node(nullptr, nullptr, &root.node);
    arbt_link_node(&node, nullptr, nullptr);
    arbt_insert_fixup(nullptr, &root);
    arbt_insert_fixup(&node, nullptr);
    arbt_erase_entry(nullptr, &root);
    arbt_erase_entry(&node, nullptr);
    arbt_replace_node(nullptr, &node, &root);
    arbt_replace_node(&node, nullptr, &root);
    arbt_replace_node(&node, &node, nullptr);
    EXPECT_EQ(nullptr, arbt_get_first(nullptr));
    EXPECT_EQ(nullptr, arbt_get_last(nullptr));
    EXPECT_EQ(nullptr, arbt_get_next(nullptr));
    EXPECT_EQ(nullptr, arbt_get_prev(nullptr));
    EXPECT_EQ(nullptr, root.node);
}

}  // namespace
}  // namespace orvil::test
