// Every operation of the containers that takes several blocks, with each of its allocations refused, compared with what
// a model makes of the same refusals: the elements, the capacity and the result.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "hash_probe.h"
#include "orvil/strings/ext_str_list.h"
#include "refusal_models.h"
#include "support/array_probe.h"
#include "support/failing_allocator.h"
#include "support/temp_dir.h"

namespace orvil::test {
namespace {

constexpr const char* kEnd = nullptr;  // ends a list of arguments

const char* outcome(bool result) {
    return result ? " true" : " false";
}

// `run` makes its objects, does the operation by `guarded` under the refusal and tells what came of it; `predict` tells
// the same of the models.
template <typename Run, typename Predict>
void compare(Run run, Predict predict) {
    for (const bool and_all_later : {false, true}) {
        for (int nth = 1, more = 1; more != 0; ++nth) {
            ASSERT_LT(nth, 1000) << "the operation never runs without a refused allocation";
            bool happened = false;
            const auto guarded = [&](auto operation) {
                const AllocationFailure failure(nth, and_all_later);
                const bool result = operation();
                happened = failure.happened();
                return result;
            };
            const std::string actual = run(guarded);
            Refusals refusals(nth, and_all_later);
            EXPECT_EQ(actual, predict(refusals)) << "allocation " << nth << (and_all_later ? " and all later" : "");
            ASSERT_EQ(happened, refusals.happened()) << "allocation " << nth;
            ASSERT_TRUE(happened || nth > 1) << "the operation allocates nothing";
            more = happened ? 1 : 0;
        }
    }
}

// --- arrays ----------------------------------------------------------------------------------------------------------

Texts numbers(int n) {
    Texts texts;
    for (int i = 0; i < n; ++i) {
        texts.push_back(i == 1 ? "" : std::to_string(i));
    }
    return texts;
}

ArrayProbe array_of(const Texts& texts) {
    ArrayProbe array;
    for (const std::string& text : texts) {
        array.Add(text.c_str());
    }
    return array;
}

template <typename Operation, typename Model>
void compare_arrays(int size, Operation operation, Model model) {
    compare(
        [&](auto guarded) {
            ArrayProbe array = array_of(numbers(size));
            const bool result = guarded([&] { return operation(array); });
            EXPECT_TRUE(array.is_sound());
            return show(array) + outcome(result) + std::to_string(array.capacity_);
        },
        [&](Refusals& refusals) {
            ArrayModel array(refusals);
            array.prepare(numbers(size));
            const bool result = model(array);
            return array.shown() + outcome(result) + std::to_string(array.capacity());
        });
}

const Texts kOthers = {"x", "", "yy", "z"};

TEST(ArrayRefusal, AppendedCopies) {
    for (const int size : {0, 3, 14, 15}) {
        compare_arrays(
            size, [](ArrayProbe& array) { return array.Add("x", 4); },
            [](ArrayModel& array) {
                return array.append_all({"x", "x", "x", "x"});
            });
    }
}

TEST(ArrayRefusal, InsertedCopies) {
    for (const int size : {3, 15}) {
        compare_arrays(
            size, [](ArrayProbe& array) { return array.Insert(2, "x", 3); },
            [](ArrayModel& array) {
                return array.insert_all(2, {"x", "x", "x"});
            });
    }
}

TEST(ArrayRefusal, ElementBehindTheEnd) {
    compare_arrays(
        3, [](ArrayProbe& array) { return array.SetAt(20, "x"); },
        [](ArrayModel& array) { return array.resize(21) && array.put(20, "x"); });
}

TEST(ArrayRefusal, AnotherArrayAppended) {
    const ArrayProbe other = array_of(kOthers);
    for (const int size : {0, 14}) {
        compare_arrays(
            size, [&](ArrayProbe& array) { return array.ConcatArray(other); },
            [](ArrayModel& array) { return array.append_all(kOthers); });
    }
}

TEST(ArrayRefusal, ItselfAppended) {
    compare_arrays(
        9, [](ArrayProbe& array) { return array.ConcatArray(array); },
        [](ArrayModel& array) { return array.append_all(numbers(9)); });
}

TEST(ArrayRefusal, AnotherArrayInserted) {
    const ArrayProbe other = array_of(kOthers);
    for (const int size : {3, 14}) {
        compare_arrays(
            size, [&](ArrayProbe& array) { return array.InsertArray(1, other); },
            [](ArrayModel& array) { return array.insert_all(1, kOthers); });
    }
}

TEST(ArrayRefusal, ItselfInserted) {
    compare_arrays(
        9, [](ArrayProbe& array) { return array.InsertArray(8, array); },
        [](ArrayModel& array) { return array.insert_all(8, numbers(9)); });
}

TEST(ArrayRefusal, CopyOfAnotherArray) {
    const ArrayProbe other = array_of(kOthers);
    const auto model = [](ArrayModel& array) { return array.replace_by(kOthers); };
    compare_arrays(
        3, [&](ArrayProbe& array) { return array.CopyData(other); }, model);
}

TEST(ArrayRefusal, ArgumentsAndCArrays) {
    const char* const texts[] = {"x", "", "yy", "z", nullptr};
    const auto model = [](ArrayModel& array) { return array.append_all(kOthers); };
    compare_arrays(
        14, [](ArrayProbe& array) { return array.CreateFromStrings("x", "", "yy", "z", kEnd); }, model);
    compare_arrays(
        14, [&](ArrayProbe& array) { return array.CreateFromStringArray(texts, -1); }, model);
    compare_arrays(
        14, [&](ArrayProbe& array) { return array.CreateFromStringArray(texts, 4); }, model);
}

TEST(ArrayRefusal, TwoTextsOfAList) {
    const CExtStrList list("x", "yy", kEnd);
    compare_arrays(
        14, [&](ArrayProbe& array) { return array.CreateFromListObject(list, nullptr, nullptr); },
        [](ArrayModel& array) {
            return array.append_all({"x", "yy"});
        });
}

// Without a buffer the formatted text is empty, and so is the element.
TEST(ArrayRefusal, FormattedElement) {
    compare_arrays(
        15, [](ArrayProbe& array) { return array.AddFormat("%d", 55); },
        [](ArrayModel& array) { return array.append_formatted("55"); });
}

TEST(ArrayRefusal, EachLineOfAStreamIsWholeEmptyOrMissing) {
    const TempDir folder;
    const std::string path = folder.write("lines.txt", "1\n2\n3\n4\n5\n6\n7\n8\n9\n");
    sweep_allocation_failures([&](auto failed) {
        FILE* fp = std::fopen(path.c_str(), "rb");
        if (fp == nullptr) {
            ASSERT_TRUE(failed());
            return;
        }
        ArrayProbe array;
        const bool result = array.CreateFromStream(fp, true, false);
        std::fclose(fp);
        for (int i = 0; i < array.GetSize(); ++i) {
            const char line[] = {static_cast<char>('1' + i), '\0'};
            const char* text = array[i] == nullptr ? "" : array[i];
            EXPECT_TRUE(std::strcmp(text, line) == 0 || (failed() && *text == '\0')) << i;
        }
        EXPECT_TRUE(failed() || (result && array.GetSize() == 9));
        EXPECT_TRUE(array.is_sound());
    });
}

// --- joined texts ----------------------------------------------------------------------------------------------------

const Texts kPieces = {"", "a piece", "", "another piece", "b", "the last of the pieces"};

template <typename Run>
void compare_texts(const std::string& separator, Run run) {
    compare(
        [&](auto guarded) {
            char text[128] = "";
            guarded([&] {
                const CExtString joined = run();
                std::memcpy(text, joined.GetString(), static_cast<std::size_t>(joined.GetLength()));
                return true;
            });
            return std::string(text);
        },
        [&](Refusals& refusals) {
            TextModel text(refusals);
            text.join(kPieces, separator);
            return text.text();
        });
}

CExtStrList list_of(const Texts& texts) {
    CExtStrList list;
    for (const std::string& text : texts) {
        list.AddTail(text.c_str());
    }
    return list;
}

TEST(JoinRefusal, PieceThatDoesNotFitIsLeftOut) {
    const ArrayProbe array = array_of(kPieces);
    const CExtStrList list = list_of(kPieces);
    compare_texts(", ", [&] { return array.Join(", "); });
    compare_texts("", [&] { return array.Join(nullptr); });
    compare_texts(", ", [&] { return list.Join(", "); });
    compare_texts("", [&] { return list.Join(""); });
}

TEST(JoinRefusal, PieceThatDoesNotFitIsLeftOutOfACombinedString) {
    const ArrayProbe array = array_of(kPieces);
    const CExtStrList list = list_of(kPieces);
    const auto combined = [](const auto& texts) {
        CExtString out;
        EXPECT_TRUE(texts.MakeCombinedString(out));
        return out;
    };
    compare_texts("", [&] { return combined(array); });
    compare_texts("", [&] { return combined(list); });
}

// --- lists -----------------------------------------------------------------------------------------------------------

std::string show(const CExtStrList& list) {
    std::string all;
    int walked = 0;
    for (__pos* pos = list.GetHeadPosition(); pos != nullptr; ++walked) {
        all += std::string("[") + list.GetNext(pos) + "]";
    }
    EXPECT_EQ(walked, list.GetCount());
    return all;
}

const Texts kTwo = {"a", "b"};

template <typename Operation, typename Model>
void compare_lists(Operation operation, Model model) {
    compare(
        [&](auto guarded) {
            CExtStrList list = list_of(kTwo);
            const bool result = guarded([&] { return operation(list); });
            return show(list) + outcome(result);
        },
        [&](Refusals& refusals) {
            ListModel list(refusals, kTwo);
            const bool result = model(list);
            return list.shown() + outcome(result);
        });
}

TEST(ListRefusal, AnotherListAddedAtEitherEnd) {
    const CExtStrList other = list_of(kOthers);
    compare_lists([&](CExtStrList& list) { return list.AddTail(other); },
                  [](ListModel& list) { return list.add_all(kOthers); });
    compare_lists([&](CExtStrList& list) { return list.AddHead(other); },
                  [](ListModel& list) { return list.prepend_all(kOthers); });
}

TEST(ListRefusal, ItselfAddedAtEitherEnd) {
    compare_lists([](CExtStrList& list) { return list.AddTail(list); },
                  [](ListModel& list) { return list.add_all(kTwo); });
    compare_lists([](CExtStrList& list) { return list.AddHead(list); },
                  [](ListModel& list) { return list.prepend_all(kTwo); });
}

TEST(ListRefusal, CopyOfAnotherList) {
    const CExtStrList other = list_of(kOthers);
    compare_lists([&](CExtStrList& list) { return list.CopyData(other); },
                  [](ListModel& list) {
                      list.clear();
                      return list.add_all(kOthers);
                  });
}

TEST(ListRefusal, ArgumentsArraysAndCArrays) {
    const char* const texts[] = {"x", "", "yy", "z", nullptr};
    const CExtStrArray array("x", "yy", kEnd);
    const auto all = [](ListModel& list) { return list.add_all(kOthers); };
    compare_lists([](CExtStrList& list) { return list.CreateFromStrings("x", "", "yy", "z", kEnd); }, all);
    compare_lists([&](CExtStrList& list) { return list.CreateFromStringArray(texts, -1); }, all);
    compare_lists([&](CExtStrList& list) { return list.CreateFromArrayObject(array, 0, -1); },
                  [](ListModel& list) {
                      return list.add_all({"x", "yy"});
                  });
}

// --- hashes ----------------------------------------------------------------------------------------------------------

const std::vector<Pair> kPairs = {{"a", "1"}, {"b", ""}, {"c", "333"}, {"", "4"}};

HashProbe hash_of(const std::vector<Pair>& pairs) {
    HashProbe hash;
    for (const Pair& pair : pairs) {
        hash.SetAt(pair.first.c_str(), pair.second.c_str());
    }
    return hash;
}

std::vector<Pair> in_bucket_order(const CExtStrHash& hash) {
    CExtStrArray array;
    hash.MakeArray(array);
    std::vector<Pair> pairs;
    for (int i = 0; i < array.GetSize(); i += 2) {
        const auto text = [&](int k) { return array[k] == nullptr ? "" : array[k]; };
        pairs.emplace_back(text(i), text(i + 1));
    }
    return pairs;
}

std::string show(const CExtStrHash& hash) {
    std::vector<Pair> pairs = in_bucket_order(hash);
    EXPECT_EQ(static_cast<int>(pairs.size()), hash.GetCount());
    std::sort(pairs.begin(), pairs.end());
    std::string all;
    for (const Pair& pair : pairs) {
        EXPECT_TRUE(hash.IsExistKey(pair.first.c_str()));
        all += pair.first + "=" + pair.second + ";";
    }
    return all;
}

template <typename Operation, typename Model>
void compare_hashes(const std::vector<Pair>& before, Operation operation, Model model) {
    compare(
        [&](auto guarded) {
            HashProbe hash = hash_of(before);
            const bool result = guarded([&] { return operation(hash); });
            return show(hash) + outcome(result);
        },
        [&](Refusals& refusals) {
            HashModel hash(refusals);
            hash.prepare(before);
            const bool result = model(hash);
            return hash.shown() + outcome(result);
        });
}

TEST(HashRefusal, EntryStoredOrReplaced) {
    const auto store = [](HashProbe& hash) { return hash.SetAt("a", "2"); };
    const auto model = [](HashModel& hash) { return hash.set("a", "2"); };
    compare_hashes({}, store, model);
    compare_hashes({{"b", "1"}}, store, model);
    compare_hashes({{"a", "1"}}, store, model);
}

TEST(HashRefusal, EntryMadeByBrackets) {
    compare_hashes(
        {},
        [](HashProbe& hash) {
            hash["a"];
            return true;
        },
        [](HashModel& hash) {
            hash.set("a", "");
            return true;
        });
}

TEST(HashRefusal, CopyOfAnotherHash) {
    const HashProbe other = hash_of(kPairs);
    const std::vector<Pair> pairs = in_bucket_order(other);
    ASSERT_EQ(pairs.size(), 4U);
    compare_hashes(
        {{"a", "0"}, {"z", "0"}}, [&](HashProbe& hash) { return hash.CopyData(other); },
        [&](HashModel& hash) {
            hash.clear();
            return hash.set_all(pairs);
        });
}

TEST(HashRefusal, EveryCreation) {
    const char* const texts[] = {"a", "1", "b", "", "a", "22", nullptr};
    const CExtStrArray array(texts, -1);
    const CExtStrList list(texts, -1);
    const std::vector<Pair> before = {{"z", "0"}};
    const auto model = [](HashModel& hash) {
        hash.clear();
        return hash.set_all({{"a", "1"}, {"b", ""}, {"a", "22"}});
    };
    compare_hashes(
        before, [&](HashProbe& hash) { return hash.CreateFromArray(array); }, model);
    compare_hashes(
        before, [&](HashProbe& hash) { return hash.CreateFromList(list); }, model);
    compare_hashes(
        before, [&](HashProbe& hash) { return hash.CreateFromStringArray(texts, -1); }, model);
    compare_hashes(
        before, [](HashProbe& hash) { return hash.CreateFromStrings("a", "1", "b", "", "a", "22", kEnd); }, model);
}

TEST(HashRefusal, NewBuckets) {
    compare_hashes(
        {{"a", "1"}}, [](HashProbe& hash) { return hash.InitializeHashTable(50, true); },
        [](HashModel& hash) {
            hash.clear();
            return hash.make_buckets();
        });
}

TEST(HashRefusal, ArrayOfKeysAndValuesEndsAtTheFirstRefusal) {
    const HashProbe hash = hash_of(kPairs);
    const std::vector<Pair> pairs = in_bucket_order(hash);
    compare_arrays(
        3, [&](ArrayProbe& array) { return hash.MakeArray(array); },
        [&](ArrayModel& array) {
            array.clear();
            return std::all_of(pairs.begin(), pairs.end(),
                               [&](const Pair& pair) { return array.append(pair.first) && array.append(pair.second); });
        });
}

// No key moves to the place of one that was refused.
TEST(HashRefusal, KeysEndAtTheFirstRefusal) {
    HashProbe hash;
    for (int key = 0; key < 20; ++key) {
        hash.SetAt(std::to_string(key).c_str(), "");
    }
    const std::vector<Pair> pairs = in_bucket_order(hash);
    compare(
        [&](auto guarded) {
            char text[256] = "";
            guarded([&] {
                const CExtStrArray keys = hash.Keys();
                for (int i = 0; i < keys.GetSize(); ++i) {
                    std::snprintf(text + std::strlen(text), 16, "[%s]", keys[i] == nullptr ? "~" : keys[i]);
                }
                return true;
            });
            return std::string(text);
        },
        [&](Refusals& refusals) {
            ArrayModel keys(refusals);
            static_cast<void>(
                std::all_of(pairs.begin(), pairs.end(), [&](const Pair& pair) { return keys.append(pair.first); }));
            return keys.shown();
        });
}

TEST(HashRefusal, SnapshotIsWholeOrNotOpen) {
    HashProbe hash = hash_of(kPairs);
    EXPECT_EQ(hash.OpenKeys(), 4);
    int stored = -1;
    {
        const AllocationFailure failure(1);
        stored = hash.OpenKeys();
    }
    EXPECT_EQ(stored, 0);
    EXPECT_EQ(hash.snapshot_, nullptr);
    EXPECT_EQ(hash.KeyAt(0), nullptr);
}

}  // namespace
}  // namespace orvil::test
