#include "orvil/strings/ext_array.h"

#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

// Counts its living objects and has nothing but a copy constructor.
class Counted {
public:
    explicit Counted(int value) : value_(value) { ++living; }
    Counted(const Counted& other) : value_(other.value_) {
        ++living;
        ++copies;
    }
    Counted& operator=(const Counted&) = delete;
    ~Counted() { --living; }
    int value() const { return value_; }

    static int living;
    static int copies;

private:
    int value_;
};
int Counted::living = 0;
int Counted::copies = 0;

class CountedArray : public CExtArray<Counted> {
public:
    using CExtArray<Counted>::capacity_;
    using CExtArray<Counted>::size_;
    using CExtArray<Counted>::slots_;
    using CExtArray<Counted>::DeleteElements;
    using CExtArray<Counted>::ResizeArray;
};

// The values, an empty slot as a tilde: "1 ~ 3 ".
std::string show(const CExtArray<Counted>& array) {
    std::string text;
    for (int i = 0; i < array.GetSize(); ++i) {
        const Counted* element = array.GetAt(i);
        text += (element == nullptr ? "~" : std::to_string(element->value())) + " ";
    }
    return text;
}

CExtArray<Counted> make(std::initializer_list<int> values) {
    CExtArray<Counted> array;
    for (const int value : values) {
        array.Add(Counted(value));
    }
    return array;
}

class ExtArray : public testing::Test {
protected:
    ~ExtArray() override { EXPECT_EQ(Counted::living, 0) << "elements leaked or deleted twice"; }
};

// A tree whose nodes hold an array of themselves, as an incomplete type.
struct TreeNode {
    CExtArray<TreeNode> children;
    int value = 0;
};

TEST_F(ExtArray, LayoutIsThatOfTheStringArray) {
    CountedArray array;
    const char* start = reinterpret_cast<const char*>(static_cast<CExtArray<Counted>*>(&array));
    EXPECT_EQ(sizeof(CExtArray<Counted>), 24U);
    EXPECT_EQ(reinterpret_cast<const char*>(&array.slots_) - start, 8);
    EXPECT_EQ(reinterpret_cast<const char*>(&array.size_) - start, 16);
    EXPECT_EQ(reinterpret_cast<const char*>(&array.capacity_) - start, 20);
}

TEST_F(ExtArray, NewArrayHasNoSlots) {
    const CountedArray array;
    EXPECT_EQ(array.slots_, nullptr);
    EXPECT_EQ(array.GetSize(), 0);
    EXPECT_EQ(array.capacity_, 0);
    EXPECT_EQ(array.GetAt(0), nullptr);
}

TEST_F(ExtArray, CapacityGrowsBySixteensAndSlotsBeyondTheSizeAreNull) {
    CountedArray array;
    for (int size = 1; size <= 200; ++size) {
        ASSERT_TRUE(array.Add(Counted(size)));
        ASSERT_EQ(array.capacity_, (size / 16 + 1) * 16);
        for (int i = size; i < array.capacity_; ++i) {
            ASSERT_EQ(array.slots_[i], nullptr);
        }
    }
}

TEST_F(ExtArray, AnArrayStartedSmallHasFourSlotsAndThenSixteens) {
    CountedArray array;
    ASSERT_TRUE(array.StartAdopted(new Counted(0)));
    for (int size = 1; size <= 100; ++size) {
        ASSERT_EQ(array.GetSize(), size);
        ASSERT_EQ(array.GetAt(size - 1)->value(), size - 1);
        ASSERT_EQ(array.capacity_, size < 4 ? 4 : (size / 16 + 1) * 16);
        for (int i = size; i < array.capacity_; ++i) {
            ASSERT_EQ(array.slots_[i], nullptr);
        }
        ASSERT_TRUE(array.AddAdopted(new Counted(size)));
    }
}

TEST_F(ExtArray, AnArrayStartedSmallTakesElementsInFrontAndFarBehind) {
    CountedArray inserted;
    ASSERT_TRUE(inserted.StartAdopted(new Counted(9)));
    for (int i = 0; i < 5; ++i) {
        ASSERT_TRUE(inserted.InsertAdopted(0, new Counted(i)));
    }
    EXPECT_EQ(show(inserted), "4 3 2 1 0 9 ");
    CountedArray reached;
    ASSERT_TRUE(reached.StartAdopted(new Counted(9)));
    ASSERT_TRUE(reached.SetAdopted(17, new Counted(1)));
    EXPECT_EQ(reached.capacity_, 32);
    EXPECT_EQ(reached.GetSize(), 18);
    EXPECT_EQ(reached.GetAt(16), nullptr);
}

TEST_F(ExtArray, ForgottenElementsAreTheCallers) {
    CExtArray<Counted> array = make({1, 2, 3});
    const std::unique_ptr<Counted> second(array.Slots()[1]);
    const std::unique_ptr<Counted> third(array.Slots()[2]);
    const std::unique_ptr<Counted> first(array.Slots()[0]);
    array.ForgetFrom(0);
    array.ReleaseSlots();
    EXPECT_EQ(array.Slots(), nullptr);
    EXPECT_EQ(array.GetSize(), 0);
    EXPECT_EQ(third->value(), 3);
}

TEST_F(ExtArray, SlotsInUseAreNotReleased) {
    CExtArray<Counted> array = make({1});
    array.ReleaseSlots();
    EXPECT_EQ(show(array), "1 ");
}

TEST_F(ExtArray, ReserveIsTheNextPowerOfTwoAboveTheCapacity) {
    EXPECT_EQ(orvil::detail::RuntimeSlots::Reserve(4), 4U);
    EXPECT_EQ(orvil::detail::RuntimeSlots::Reserve(16), 16U);
    EXPECT_EQ(orvil::detail::RuntimeSlots::Reserve(32), 32U);
    EXPECT_EQ(orvil::detail::RuntimeSlots::Reserve(48), 64U);
    EXPECT_EQ(orvil::detail::RuntimeSlots::Reserve(INT_MAX - 15), std::size_t{1} << 31);
}

TEST_F(ExtArray, GetAtIsNullOutOfRangeAndForAnEmptySlot) {
    CExtArray<Counted> array = make({1, 2});
    EXPECT_TRUE(array.ClearAt(0));
    EXPECT_EQ(array.GetAt(0), nullptr);
    EXPECT_EQ(array.GetAt(1)->value(), 2);
    EXPECT_EQ(array.GetAt(2), nullptr);
    EXPECT_EQ(array.GetAt(-1), nullptr);
}

TEST_F(ExtArray, SetAtReplacesOrGrowsWithEmptySlots) {
    CExtArray<Counted> array = make({1});
    EXPECT_TRUE(array.SetAt(0, Counted(7)));
    EXPECT_TRUE(array.SetAt(3, Counted(9)));
    EXPECT_EQ(show(array), "7 ~ ~ 9 ");
    EXPECT_FALSE(array.SetAt(-1, Counted(1)));
    EXPECT_FALSE(array.SetAt(INT_MAX, Counted(1)));
    EXPECT_FALSE(array.SetAt(INT_MIN, Counted(1)));
    EXPECT_EQ(array.GetSize(), 4);
}

TEST_F(ExtArray, SetAtAndAddTakeAnElementOfTheirOwn) {
    CExtArray<Counted> array = make({1, 2});
    EXPECT_TRUE(array.SetAt(0, *array.GetAt(0)));
    EXPECT_TRUE(array.Insert(0, *array.GetAt(1)));
    EXPECT_TRUE(array.Add(*array.GetAt(1)));
    EXPECT_EQ(show(array), "2 1 2 1 ");
}

TEST_F(ExtArray, InsertOpensAGapButNotAtTheEnd) {
    CExtArray<Counted> array = make({1, 2});
    const Counted* second = array.GetAt(1);
    EXPECT_TRUE(array.Insert(1, Counted(5)));
    EXPECT_TRUE(array.Insert(0, Counted(6)));
    EXPECT_EQ(show(array), "6 1 5 2 ");
    EXPECT_EQ(array.GetAt(3), second);
    EXPECT_FALSE(array.Insert(4, Counted(7)));
    EXPECT_FALSE(array.Insert(-1, Counted(7)));
    CExtArray<Counted> empty;
    EXPECT_FALSE(empty.Insert(0, Counted(7)));
}

TEST_F(ExtArray, ClearAtEmptiesASlotInRangeOnly) {
    CExtArray<Counted> array = make({1, 2});
    EXPECT_TRUE(array.ClearAt(1));
    EXPECT_TRUE(array.ClearAt(1));
    EXPECT_EQ(show(array), "1 ~ ");
    EXPECT_FALSE(array.ClearAt(2));
    EXPECT_FALSE(array.ClearAt(-1));
}

TEST_F(ExtArray, RemoveAllReleasesTheSlots) {
    CountedArray array;
    array.Add(Counted(1));
    EXPECT_TRUE(array.RemoveAll());
    EXPECT_EQ(array.slots_, nullptr);
    EXPECT_EQ(array.capacity_, 0);
    EXPECT_TRUE(array.RemoveAll());
}

TEST_F(ExtArray, CopiesAreDeepAndKeepEmptySlots) {
    CExtArray<Counted> source = make({1, 2, 3});
    source.ClearAt(1);
    CExtArray<Counted> copy(source);
    CExtArray<Counted> assigned = make({9});
    EXPECT_EQ(&(assigned = source), &assigned);
    source.SetAt(0, Counted(7));
    EXPECT_EQ(show(copy), "1 ~ 3 ");
    EXPECT_EQ(show(assigned), "1 ~ 3 ");
    assigned = CExtArray<Counted>();
    EXPECT_EQ(assigned.GetSize(), 0);
}

TEST_F(ExtArray, CopyOntoItselfChangesNothing) {
    CExtArray<Counted> array = make({1});
    const CExtArray<Counted>& self = array;
    const Counted* element = array.GetAt(0);
    array = self;
    EXPECT_TRUE(array.CopyData(self));
    EXPECT_EQ(array.GetAt(0), element);
}

TEST_F(ExtArray, AdoptedElementsAreNotCopied) {
    CExtArray<Counted> array = make({1});
    Counted::copies = 0;
    auto* added = new Counted(2);
    EXPECT_TRUE(array.AddAdopted(added));
    EXPECT_TRUE(array.InsertAdopted(0, new Counted(3)));
    EXPECT_TRUE(array.SetAdopted(4, new Counted(4)));
    EXPECT_TRUE(array.AddAdopted(nullptr));
    EXPECT_EQ(show(array), "3 1 2 ~ 4 ~ ");
    EXPECT_EQ(array.GetAt(2), added);
    EXPECT_EQ(Counted::copies, 0);
}

TEST_F(ExtArray, RefusedElementStaysTheCallers) {
    CExtArray<Counted> array = make({1});
    Counted element(2);
    EXPECT_FALSE(array.InsertAdopted(1, &element));
    EXPECT_FALSE(array.SetAdopted(-1, &element));
    EXPECT_FALSE(array.SetAdopted(INT_MAX, &element));
    EXPECT_EQ(show(array), "1 ");
}

TEST_F(ExtArray, AdoptingTheElementThatStandsThereKeepsIt) {
    CExtArray<Counted> array = make({1});
    EXPECT_TRUE(array.SetAdopted(0, array.GetAt(0)));
    EXPECT_EQ(show(array), "1 ");
}

TEST_F(ExtArray, ReleasedElementIsTheCallers) {
    CExtArray<Counted> array = make({1, 2});
    Counted* element = array.ReleaseAt(0);
    EXPECT_EQ(show(array), "~ 2 ");
    EXPECT_EQ(element->value(), 1);
    delete element;
    EXPECT_EQ(array.ReleaseAt(0), nullptr);
    EXPECT_EQ(array.ReleaseAt(2), nullptr);
    EXPECT_EQ(array.ReleaseAt(-1), nullptr);
}

TEST_F(ExtArray, ProtectedHelpersWorkAsThoseOfTheStringArray) {
    CountedArray array;
    EXPECT_TRUE(array.ResizeArray(0));
    EXPECT_EQ(array.size_, 1);
    array.SetAt(2, Counted(3));
    EXPECT_TRUE(array.DeleteElements(1, 99));
    EXPECT_EQ(show(array), "~ ");
    EXPECT_FALSE(array.ResizeArray(INT_MAX));
}

TEST_F(ExtArray, ElementTypeMayBeIncompleteAtTheDeclaration) {
    TreeNode root;
    TreeNode leaf;
    leaf.value = 7;
    root.children.Add(leaf);
    const TreeNode copy = root;
    EXPECT_EQ(copy.children.GetAt(0)->value, 7);
    EXPECT_NE(copy.children.GetAt(0), root.children.GetAt(0));
}

TEST_F(ExtArray, LiteralsOfAValueTypeAreValues) {
    CExtArray<double> array;
    EXPECT_TRUE(array.SetAt(0, 0));
    EXPECT_TRUE(array.Add(1.5));
    EXPECT_EQ(*array.GetAt(0), 0.0);
    EXPECT_EQ(*array.GetAt(1), 1.5);
}

TEST_F(ExtArray, ManyElementsKeepTheirAddresses) {
    CExtArray<int> array;
    array.Add(0);
    const int* first = array.GetAt(0);
    for (int i = 1; i < 100000; ++i) {
        ASSERT_TRUE(array.Add(i));
    }
    EXPECT_EQ(array.GetAt(0), first);
    EXPECT_EQ(*array.GetAt(99999), 99999);
}

// One random step on the array and on the model, in which -1 is an empty slot.
void random_step(CExtArray<Counted>& array, std::vector<int>& model, std::mt19937& random) {
    const int size = static_cast<int>(model.size());
    const int value = static_cast<int>(random() % 1000);
    const int i = static_cast<int>(random() % 40) - 2;
    const bool in_range = i >= 0 && i < size;
    const auto at = model.begin() + (in_range ? i : 0);
    switch (random() % 6) {
        case 0:
            ASSERT_TRUE(array.Add(Counted(value)));
            model.push_back(value);
            break;
        case 1:
            ASSERT_EQ(array.Insert(i, Counted(value)), in_range);
            if (in_range) {
                model.insert(at, value);
            }
            break;
        case 2:
            ASSERT_EQ(array.SetAt(i, Counted(value)), i >= 0);
            if (i >= size) {
                model.resize(static_cast<std::size_t>(i) + 1, -1);
            }
            if (i >= 0) {
                model[static_cast<std::size_t>(i)] = value;
            }
            break;
        case 3:
            ASSERT_EQ(array.ClearAt(i), in_range);
            if (in_range) {
                *at = -1;
            }
            break;
        case 4:
            array = CExtArray<Counted>(array);
            break;
        default:
            if (random() % 40 == 0) {
                array.RemoveAll();
                model.clear();
            }
    }
}

TEST_F(ExtArray, RandomStepsAgreeWithAVector) {
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    CExtArray<Counted> array;
    std::vector<int> model;
    for (int step = 0; step < 5000; ++step) {
        random_step(array, model, random);
        ASSERT_EQ(array.GetSize(), static_cast<int>(model.size()));
        for (int i = 0; i < array.GetSize(); ++i) {
            const Counted* element = array.GetAt(i);
            ASSERT_EQ(element == nullptr ? -1 : element->value(), model[static_cast<std::size_t>(i)]);
        }
    }
}

}  // namespace
