// Random sequences of calls on a CExtStrArray against a vector of texts, in which "" is an empty slot.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "support/array_probe.h"

namespace {

using orvil::test::ArrayProbe;
using Model = std::vector<std::string>;

struct Walk {
    explicit Walk(unsigned seed) : random(seed) {}

    int below(int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); }
    std::string text() {
        static const char* const kTexts[] = {"", "a", "b", "B", "42", "a longer text than eight bytes"};
        return kTexts[below(6)];
    }
    int index() { return below(static_cast<int>(model.size()) + 4) - 2; }
    bool is_index(int i) const { return i >= 0 && i < static_cast<int>(model.size()); }
    Model::iterator at(int i) { return model.begin() + i; }

    void add() {
        const std::string s = text();
        const int n = below(20) - 2;
        ASSERT_TRUE(array.Add(s.c_str(), n));
        model.insert(model.end(), static_cast<std::size_t>(std::max(n, 0)), s);
    }
    void insert() {
        const std::string s = text();
        const int i = index();
        const int n = below(20) - 2;
        ASSERT_EQ(array.Insert(i, s.c_str(), n), is_index(i));
        if (is_index(i)) {
            model.insert(at(i), static_cast<std::size_t>(std::max(n, 0)), s);
        }
    }
    void remove() {
        const int i = index();
        const int n = below(20) - 1;
        ASSERT_EQ(array.Remove(i, n), is_index(i));
        if (is_index(i)) {
            const int behind = static_cast<int>(model.size()) - i;
            model.erase(at(i), at(i + (n < 1 ? behind : std::min(n, behind))));
        }
    }
    void set() {
        const std::string s = text();
        const int i = index();
        ASSERT_EQ(array.SetAt(i, s.c_str()), i >= 0);
        if (i >= 0) {
            model.resize(std::max(model.size(), static_cast<std::size_t>(i) + 1));
            *at(i) = s;
        }
    }
    void insert_array() {
        const CExtStrArray other("x", "", "y", static_cast<const char*>(nullptr));
        const bool self = below(2) == 0 && model.size() < 200;
        const int i = index();
        ASSERT_EQ(array.InsertArray(i, self ? array : other), is_index(i));
        if (is_index(i)) {
            const Model inserted = self ? model : Model{"x", "", "y"};
            model.insert(at(i), inserted.begin(), inserted.end());
        }
    }
    void concat() {
        if (model.size() < 200) {
            ASSERT_TRUE(array.ConcatArray(array));
            const Model copy = model;
            model.insert(model.end(), copy.begin(), copy.end());
        }
    }
    void reverse() {
        ASSERT_EQ(array.Reverse(), !model.empty());
        std::reverse(model.begin(), model.end());
    }
    void sort_without_empty_slots() {
        if (std::find(model.begin(), model.end(), "") == model.end()) {
            ASSERT_EQ(array.Sort(), model.size() > 1);
            std::sort(model.begin(), model.end());
        }
    }
    void copy_or_clear() {
        if (below(4) == 0) {
            array.RemoveAll();
            model.clear();
        } else {
            array = CExtStrArray(array);
        }
    }
    void step() {
        using Step = void (Walk::*)();
        static constexpr Step kSteps[] = {
            &Walk::add,          &Walk::add,    &Walk::insert,       &Walk::remove,  &Walk::remove,
            &Walk::set,          &Walk::concat, &Walk::insert_array, &Walk::reverse, &Walk::sort_without_empty_slots,
            &Walk::copy_or_clear};
        (this->*kSteps[below(11)])();
    }

    void check() {
        ASSERT_TRUE(array.is_sound());
        ASSERT_EQ(array.GetSize(), static_cast<int>(model.size()));
        for (int i = 0; i < array.GetSize(); ++i) {
            const char* text = array.GetAt(i);
            ASSERT_EQ(text == nullptr ? "" : text, *at(i));
            ASSERT_EQ(text == nullptr, at(i)->empty());
        }
        const auto found = std::find(model.begin(), model.end(), "B");
        ASSERT_EQ(array.IndexOf("B"), found == model.end() ? -1 : static_cast<int>(found - model.begin()));
    }

    std::mt19937 random;
    ArrayProbe array;
    Model model;
};

TEST(ExtStrArrayModel, RandomStepsAgreeWithAVector) {
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    Walk walk(seed);
    for (int i = 0; i < 4000 && !testing::Test::HasFatalFailure(); ++i) {
        walk.step();
        walk.check();
    }
}

}  // namespace
