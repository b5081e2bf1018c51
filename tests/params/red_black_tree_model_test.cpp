// Trees beside models: all sequences over a few keys, and long random ones over many.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <deque>
#include <numeric>
#include <random>
#include <set>

#include "params/tree_support.h"

namespace orvil::test {
namespace {

constexpr int kKeys = 7;

// A tree of some of the keys 1 to 7, every other one with bit 1 set.
struct SmallTree {
    SmallTree() {
        for (int i = 0; i < kKeys; ++i) {
            records[static_cast<std::size_t>(i)] = Numbered(i + 1, i % 2 == 1);
            arbt_init_node(&record(i + 1).node);
        }
    }

    Numbered& record(int key) { return records[static_cast<std::size_t>(key) - 1]; }

    // Takes a key out when it is there, enters it otherwise.
    void toggle(int key) {
        if (find(root, key) != nullptr) {
            arbt_erase_entry(&record(key).node, &root);
        } else {
            EXPECT_EQ(0, enter(root, record(key)));
        }
    }

    std::array<Numbered, kKeys> records;
    arbt_root_t root{nullptr, 0};
};

// What an operation does depends on the tree's shape and colours alone, so it is enough to try each operation once on
// each tree that any sequence leads to.
TEST(RedBlackTreeModel, EverySequenceOfInsertsAndErasesOfSevenKeysKeepsTheRules) {
    std::set<std::string> known{"."};
    std::deque<std::vector<int>> sequences{{}};
    while (!sequences.empty()) {
        const std::vector<int> sequence = sequences.front();
        sequences.pop_front();
        for (int key = 1; key <= kKeys; ++key) {
            SmallTree tree;
            std::for_each(sequence.begin(), sequence.end(), [&tree](int each) { tree.toggle(each); });
            tree.toggle(key);
            ASSERT_EQ("", TreeCheck::fault(tree.root)) << shape(tree.root.node);
            if (known.insert(shape(tree.root.node)).second) {
                sequences.push_back(sequence);
                sequences.back().push_back(key);
            }
        }
    }
    EXPECT_GT(known.size(), 128u);  // each subset of the keys is reached, most in several shapes
}

TEST(RedBlackTreeModel, EveryOrderOfInsertingAndOfErasingFiveKeysGivesTheKeysInOrder) {
    std::vector<int> inserts{1, 2, 3, 4, 5};
    do {
        std::vector<int> erases{1, 2, 3, 4, 5};
        do {
            SmallTree tree;
            std::set<int> model;
            for (const std::vector<int>* order : {&inserts, &erases}) {
                for (int key : *order) {
                    tree.toggle(key);
                    model.erase(key) > 0 || model.insert(key).second;
                    ASSERT_EQ(std::vector<int>(model.begin(), model.end()), ascending(tree.root));
                }
            }
        } while (std::next_permutation(erases.begin(), erases.end()));
    } while (std::next_permutation(inserts.begin(), inserts.end()));
}

// Random inserts and erases beside a set; the tree is checked after each.
void run_random(unsigned seed, int keys, int steps) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    std::vector<Numbered> records(static_cast<std::size_t>(keys));
    for (int i = 0; i < keys; ++i) {
        Numbered& record = records[static_cast<std::size_t>(i)];
        record.number = i;
        record.marked = random() % 2 == 0;
        arbt_init_node(&record.node);
        record.node.parent |= record.marked ? 2u : 0u;
    }
    arbt_root_t root{nullptr, 0};
    std::set<int> model;
    for (int step = 0; step < steps; ++step) {
        Numbered& record = records[random() % records.size()];
        if (model.count(record.number) != 0 && random() % 3 != 0) {
            arbt_erase_entry(&record.node, &root);
            model.erase(record.number);
        } else {
            Numbered twin(record.number);
            const bool is_new = model.insert(record.number).second;
            ASSERT_EQ(is_new ? 0 : 2, enter(root, is_new ? record : twin));
        }
        ASSERT_EQ("", TreeCheck::fault(root));
        ASSERT_EQ(static_cast<int>(model.size()), root.count);
    }
    EXPECT_EQ(std::vector<int>(model.begin(), model.end()), ascending(root));
    EXPECT_EQ(std::vector<int>(model.rbegin(), model.rend()), descending(root));
    for (int i = 0; i < keys; ++i) {
        EXPECT_EQ(model.count(i) != 0, find(root, i) != nullptr);
    }
}

TEST(RedBlackTreeModel, RandomSequencesOverFewKeysKeepTheRules) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        run_random(seed, 20, 1000);
    }
}

TEST(RedBlackTreeModel, RandomSequencesOverManyKeysKeepTheRules) {
    for (unsigned seed = 1; seed <= 3; ++seed) {
        run_random(seed, 1000, 5000);
    }
}

}  // namespace
}  // namespace orvil::test
