// Strings, containers, regular expressions and the heap.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

#include "entry_points/entry_points.h"
#include "orvil/orvil.h"
#include "support/temp_dir.h"
#include "support/working_folder.h"

namespace orvil::test {
namespace {

const char* const kText = "a text of some more than thirty-two bytes";
const char* const kTexts[] = {kText, "12", "", "0x1F"};

struct String : CExtString {
    using CExtString::_ExtFormatArray;
    using CExtString::_MakeRegexV;
    using CExtString::_RegexMatch;
    using CExtString::AllocBuffer;
    using CExtString::CalcNewBufferSize;
    using CExtString::CExtString;
    using CExtString::FillCharacter;
    using CExtString::FreeBuffer;
    using CExtString::Init;
    using CExtString::ReallocBuffer;
    using CExtString::SafeStrlen;
};

struct Array : CExtStrArray {
    using CExtStrArray::AppendElement;
    using CExtStrArray::CreateFromStringsV;
    using CExtStrArray::ReplaceElements;
};

struct List : CExtStrList {
    using CExtStrList::CreateFromStringsV;
};

struct Hash : CExtStrHash {
    using CExtStrHash::__Key_Format_I32_to_String;
    using CExtStrHash::CreateFromStringsV;
    using CExtStrHash::KeyToStr;
};

// Opens the file of the test for one use.
template <typename Use>
void with_file(Use use) {
    if (std::FILE* file = std::fopen("lines.txt", "rb")) {
        use(file);
        std::fclose(file);
    }
}

class EntryPointsOfStrings : public testing::Test {
protected:
    EntryPointsOfStrings() { folder.write("lines.txt", "a first line of more than thirty-two bytes\nsecond\n"); }

    TempDir folder;
    InFolder inside{folder.path(".")};
};

TEST_F(EntryPointsOfStrings, StringsAreMadeAndChanged) {
    sweep_each(
        [] {
            String text(kText, 20);
            const CExtString copy(text);
            const CExtString many('x', 50);
            text.SetAt(1, 'X');
            text.ChangeUpper();
            text.ChangeLower();
            text.Reverse();
            text.Chomp(true);
        },
        [] { with_file([](std::FILE* file) { const CExtString line(file, true, false); }); },
        [] {
            String text;
            text.FillCharacter('x', 40);
            text.ConcatStringLen(kText, 30);
        },
        [] {
            String text;
            text.Init();
            const int capacity = String::CalcNewBufferSize(String::SafeStrlen(kText), 0);
            if (char* buffer = String::AllocBuffer(capacity)) {
                char* grown = String::ReallocBuffer(buffer, 2 * capacity);
                String::FreeBuffer(grown == nullptr ? buffer : grown);
            }
        });
}

TEST_F(EntryPointsOfStrings, StringsAreFormatted) {
    sweep_each(
        [] {
            auto use = [](va_list arguments) { CExtString().FormatV("%d %s", arguments); };
            with_arguments(&use, 7, kText);
        },
        [] {
            auto use = [](va_list arguments) { CExtString().ExtFormatV("$1", static_cast<EFT>(0), arguments); };
            with_arguments(&use, 0);
        },
        [] {
            String text;
            const CExtStrArray values(kTexts, 4);
            text._ExtFormatArray("%s %s", values);
        });
}

TEST_F(EntryPointsOfStrings, StringsAreComparedAndSearched) {
    sweep_each([] {
        const CExtString text(kText);
        int number = text.Compare("b") + text.CompareNoCase("b") + text.Collate("b") + text.Find('t') +
                     text.Find("text") + text.ReverseFind('t') + text.FindOneOf("xyz");
        unsigned long hexadecimal = 0;
        double real = 0;
        CExtString("12").ParseInteger(number);
        CExtString("0x12").ParseHexaDecimal(hexadecimal);
        CExtString("1.5").ParseFloatingPoint(real);
        EXPECT_FALSE(CExtString::IsIntegerFormat("x") || CExtString::IsHexaDecimalFormat("x") ||
                     CExtString::IsFloatingPointFormat("x"));
    });
}

TEST_F(EntryPointsOfStrings, OperatorsTakeTextsOnBothSides) {
    sweep_each([] {
        const CExtString a(kText);
        const CExtString b("b");
        const CExtString sums[] = {a + 'x', a + kText, kText + a};
        int count = 0;
        for (const CExtString& c : sums) {
            count += (kText == c) + (c != kText) + (kText != c) + (c < b) + (c < kText) + (kText < c) + (c > b) +
                     (c > kText) + (kText > c) + (c <= b) + (c <= kText) + (kText <= c) + (c >= b) + (c >= kText) +
                     (kText >= c);
        }
        EXPECT_GE(count, 0);
    });
}

TEST_F(EntryPointsOfStrings, RegularExpressionsMatchSplitAndReplace) {
    sweep_each(
        [] {
            const CExtString text(kText);
            CExtStrArray parts;
            text.RegexMatch("/(te)(xt)/");
            text.RegexMatch("/(te)(xt)/", parts);
            static_cast<String>(kText)._RegexMatch("/(te)(xt)/", &parts);
            text.RegexReplace("/text/", "word");
            text.RegexReplace("/(te)(xt)/", CExtStrArray(kTexts, 2));
            text.RegexSplit("/ /");
            regex_cleanup();
        },
        [] {
            void* handle = regex_compile("/(a+)b/i");
            int found[30];
            regex_execute(handle, nullptr, "xaab", 4, 0, 0, found, 30);
            EXPECT_EQ(regex_check(handle), handle != nullptr);
            regex_remove(handle);
            String::_MakeRegexV("/c/");
            regex_cleanup();
        });
}

TEST_F(EntryPointsOfStrings, ArraysAreMade) {
    sweep_each([] { const CExtStrArray array(kTexts, 4); }, [] { const CExtStrArray array(kText, kText, nullptr); },
               [] { with_file([](std::FILE* file) { const CExtStrArray array(file, true, false); }); },
               [] {
                   CExtStrArray array;
                   with_file([&array](std::FILE* file) { array.CreateFromStream(file, true, false); });
               },
               [] {
                   const CExtStrList list(kTexts, 4);
                   const CExtStrArray array(list, nullptr, nullptr);
                   CExtStrArray copy(array);
                   copy = array;
                   copy += kText;
                   copy += array;
               },
               [] {
                   Array array;
                   auto use = [&array](va_list arguments) { array.CreateFromStringsV(kText, arguments); };
                   with_arguments(&use, kText, static_cast<const char*>(nullptr));
               });
}

TEST_F(EntryPointsOfStrings, ArraysAreChangedAndJoined) {
    sweep_each(
        [] {
            Array array;
            array.AppendElement(kText);
            array.Add("12", 3);
            array.ReplaceElements(0, "b", array.GetSize());
            auto use = [&array](va_list arguments) { array.AddFormatV("%d", arguments); };
            with_arguments(&use, 7);
            array.Remove(0, 1);
            array.Reverse();
            array.Sort(true);
            array.Sort();
            CExtString out;
            array.GetAt(0, out);
            array.IndexOf("b", true);
            array.RemoveAll();
        },
        [] {
            const CExtStrArray array(kTexts, 4);
            CExtString out;
            array.Join(", ");
            array.MakeCombinedString(out);
            array.WriteJoinedFile("joined.txt", ", ");
            const CExtString* slots[] = {nullptr, nullptr};
            EXPECT_EQ(CExtStrArray::compare_func_for_sort(&slots[0], &slots[1]), 0);
            EXPECT_EQ(CExtStrArray::compare_func_for_sort_num(&slots[0], &slots[1]), 0);
        });
}

TEST_F(EntryPointsOfStrings, ListsAreMadeAndJoined) {
    sweep_each([] { const CExtStrList list(kText, kText, nullptr); },
               [] { with_file([](std::FILE* file) { const CExtStrList list(file, true, false); }); },
               [] {
                   CExtStrList list;
                   with_file([&list](std::FILE* file) { list.CreateFromStream(file, true, false); });
                   list.CreateFromStringArray(kTexts, 4);
                   const CExtStrList from_array(CExtStrArray(kTexts, 2), 0, -1);
                   CExtStrList copy(list);
                   copy = from_array;
                   copy += kText;
                   copy += list;
                   CExtString out;
                   copy.Join(", ");
                   copy.MakeCombinedString(out);
                   copy.WriteJoinedFile("joined.txt", ", ");
                   __pos* pos = copy.PositionOf(kText, true);
                   copy.GetPrev(pos);
               },
               [] {
                   List list;
                   auto use = [&list](va_list arguments) { list.CreateFromStringsV(kText, arguments); };
                   with_arguments(&use, kText, static_cast<const char*>(nullptr));
               });
}

TEST_F(EntryPointsOfStrings, HashesAreMadeAndSearched) {
    sweep_each([] { const CExtStrHash hash("key", kText, nullptr); },
               [] {
                   CExtStrHash hash(kTexts, 4);
                   hash.CreateFromStringArray(kTexts, 4);
                   const CExtStrHash from_array{CExtStrArray(kTexts, 4)};
                   const CExtStrHash from_list{CExtStrList(kTexts, 4)};
                   const CExtStrHash copy(from_list);
                   hash = from_array;
                   hash = CExtStrArray(kTexts, 4);
                   CExtString value;
                   CExtStrArray array;
                   copy.Lookup(kText, value);
                   copy.IsExistValue("12");
                   copy.MakeArray(array);
                   EXPECT_EQ(copy["none"], nullptr);
               },
               [] {
                   Hash hash;
                   auto use = [&hash](va_list arguments) { hash.CreateFromStringsV("key", arguments); };
                   with_arguments(&use, kText, static_cast<const char*>(nullptr));
                   char key[64];
                   int value = 0;
                   Hash::KeyToStr(key, 7U);
                   Hash::KeyToStr(key, 1.5);
                   Hash::KeyToStr(key, static_cast<void*>(&value));
                   Hash::__Key_Format_I32_to_String(key, 7, 's');
               });
}

TEST_F(EntryPointsOfStrings, SlotsOfArraysAreReserved) {
    sweep_each([] {
        if (void* slots = detail::HeapSlots::Allocate(4)) {
            void* grown = detail::HeapSlots::Grow(slots, 4, 64);
            detail::HeapSlots::Free(grown == nullptr ? slots : grown, grown == nullptr ? 4 : 64);
        }
        CExtArray<CLexTokenBlock> blocks;
        EXPECT_GE(detail::RuntimeSlots::Reserve(16), 16U);
    });
}

TEST_F(EntryPointsOfStrings, TheHeapTellsOfItself) {
    sweep_each([] {
        orv_heap_init();
        EXPECT_EQ(orv_heap_gettype(), 1u);
        EXPECT_EQ(orv_heap_gethandle(), nullptr);
        EXPECT_EQ(orv_heap_getlfh(0), 0xFFFFFFFFu);
        EXPECT_EQ(orv_heap_term(), 0xFFFFFFFEu);  // mode 1 has no private heap to destroy
        EXPECT_LT(st_ImpFunc_strncasecmp("a", "B", 1), 0);
        EXPECT_GE(st_dwMostLargeSize, 0u);
    });
}

}  // namespace
}  // namespace orvil::test
