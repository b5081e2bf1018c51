// Each allocating operation with each of its allocations refused.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "orvil/strings/ext_str_array.h"
#include "orvil/strings/ext_string.h"
#include "runtime/buffer_statistics.h"
#include "strings/ext_string_probe.h"
#include "support/failing_allocator.h"
#include "support/temp_dir.h"

using orvil::detail::booked_buffer_bytes;
using orvil::test::has_buffer;
using orvil::test::parse_part;
using orvil::test::StringProbe;
using orvil::test::sweep_allocation_failures;

namespace {

const char* const kLongText = "a text of some more than thirty-two bytes";

bool is_null(const CExtString& s) {
    return !has_buffer(s) && s.GetLength() == 0 && orvil::test::capacity_of(s) == 0;
}

// Runs an operation on a string that is made beforehand, without refusals. `check` is told whether one happened.
template <typename Operation, typename Check>
void sweep(const char* text, Operation operation, Check check) {
    for (std::int64_t nth = 1; nth < 100; ++nth) {
        StringProbe s(text);
        orvil::test::AllocationFailure failure(nth);
        const bool result = operation(s);
        check(s, result, failure.happened());
        if (!failure.happened()) {
            EXPECT_GT(nth, 1) << "the operation allocates nothing";
            return;
        }
    }
    ADD_FAILURE() << "the operation never runs without a refused allocation";
}

// Expects false and the text as it was, or true and the new text.
template <typename Operation>
void expect_unchanged_on_failure(const char* text, const char* expected, Operation operation) {
    sweep(text, operation, [&](const CExtString& s, bool result, bool failed) {
        EXPECT_EQ(result, !failed);
        EXPECT_STREQ(s, failed ? text : expected);
    });
}

// Expects the string without a buffer after a failure, and its former buffer neither released nor booked as such.
template <typename Operation>
void expect_abandoned_on_failure(StringProbe& s, Operation operation) {
    char* former = s.buffer_;
    ASSERT_NE(former, nullptr);
    const auto booked = booked_buffer_bytes();
    {
        const orvil::test::AllocationFailure failure(1);
        operation(s);
        EXPECT_TRUE(failure.happened());
    }
    EXPECT_TRUE(is_null(s));
    EXPECT_EQ(booked_buffer_bytes(), booked);
    StringProbe::FreeBuffer(former);
}

}  // namespace

// --- construction ---------------------------------------------------------------------------------------------------

TEST(ExtStringFailure, ConstructorsLeaveAnEmptyString) {
    const CExtString source("abc");
    sweep_allocation_failures([&](auto failed) {
        const CExtString copy(source);
        EXPECT_EQ(is_null(copy), failed());
    });
    sweep_allocation_failures([&](auto failed) {
        const CExtString filled('x', 3);
        EXPECT_EQ(is_null(filled), failed());
    });
    sweep_allocation_failures([&](auto failed) {
        const CExtString text("abc");
        EXPECT_EQ(is_null(text), failed());
    });
    sweep_allocation_failures([&](auto failed) {
        const CExtString counted("abc", 2);
        EXPECT_EQ(is_null(counted), failed());
    });
}

TEST(ExtStringFailure, ConstructorsBookNothing) {
    const auto booked = booked_buffer_bytes();
    const orvil::test::AllocationFailure failure(1, true);
    const CExtString text("abc"), filled('x', 3);
    EXPECT_EQ(booked_buffer_bytes(), booked);
}

// --- replacing ------------------------------------------------------------------------------------------------------

TEST(ExtStringFailure, CreateFromStringKeepsTheOldText) {
    expect_unchanged_on_failure("old", "new", [](StringProbe& s) { return s.CreateFromString("new"); });
    expect_unchanged_on_failure("old", "ne", [](StringProbe& s) { return s.CreateFromStringLen("new", 2); });
    expect_unchanged_on_failure("old", "new", [](StringProbe& s) { return s.DuplicateString("new"); });
    expect_unchanged_on_failure("old", "ne", [](StringProbe& s) { return s.DuplicateStringLen("new", 2); });
}

TEST(ExtStringFailure, CopyDataAbandonsTheOldBuffer) {
    const CExtString other("new");
    StringProbe s("old");
    expect_abandoned_on_failure(s, [&](CExtString& target) { EXPECT_FALSE(target.CopyData(other)); });
}

TEST(ExtStringFailure, AssignmentAbandonsTheOldBuffer) {
    const CExtString other("new");
    StringProbe s("old"), t("old");
    expect_abandoned_on_failure(s, [&](CExtString& target) { target = other; });
    expect_abandoned_on_failure(t, [&](CExtString& target) { target = "new"; });
}

TEST(ExtStringFailure, AssignmentOfACharacterReleasesTheOldBuffer) {
    sweep(
        "old",
        [](StringProbe& s) {
            static_cast<CExtString&>(s) = 'c';
            return true;
        },
        [](const CExtString& s, bool, bool failed) { EXPECT_EQ(is_null(s), failed); });
}

TEST(ExtStringFailure, CreateFromCharactersLeavesAnEmptyString) {
    sweep(
        "old", [](StringProbe& s) { return s.CreateFromCharacters('c', 9); },
        [](const CExtString& s, bool result, bool failed) {
            EXPECT_EQ(result, !failed);
            EXPECT_EQ(is_null(s), failed);
        });
}

// --- parts ----------------------------------------------------------------------------------------------------------

TEST(ExtStringFailure, PartsAreEmptyAndTheStringStays) {
    const CExtString s("abcdef");
    sweep_allocation_failures([&](auto failed) {
        const CExtString part = s.Left(2);
        EXPECT_STREQ(part, failed() ? "" : "ab");
    });
    sweep_allocation_failures([&](auto failed) {
        const CExtString part = s.Left(-1);
        EXPECT_STREQ(part, failed() ? "" : "abcdef");
    });
    sweep_allocation_failures([&](auto failed) {
        const CExtString part = s.Right(2);
        EXPECT_STREQ(part, failed() ? "" : "ef");
    });
    sweep_allocation_failures([&](auto failed) {
        const CExtString part = s.Mid(1, 2);
        EXPECT_STREQ(part, failed() ? "" : "bc");
    });
    EXPECT_STREQ(s, "abcdef");
}

TEST(ExtStringFailure, ATrimThatCannotDuplicateLeavesTheText) {
    for (auto trim : {&CExtString::TrimLeft, &CExtString::TrimRight, &CExtString::TrimAll}) {
        CExtString s(" a ");
        const orvil::test::AllocationFailure failure(1);
        EXPECT_STREQ((s.*trim)(nullptr), " a ");
        EXPECT_STREQ(s, " a ");
    }
}

TEST(ExtStringFailure, ATrimThatCannotCopyItsResultHasTrimmed) {
    CExtString s(" a ");
    const orvil::test::AllocationFailure failure(2);
    EXPECT_STREQ(s.TrimAll(), "");
    EXPECT_STREQ(s, "a");
}

// --- appending ------------------------------------------------------------------------------------------------------

TEST(ExtStringFailure, AppendingToTextKeepsIt) {
    const CExtString other("8");
    expect_unchanged_on_failure("1234567", "12345678", [](StringProbe& s) { return s.ConcatString("8"); });
    expect_unchanged_on_failure("1234567", "12345678", [](StringProbe& s) { return s.ConcatStringLen("89", 1); });
    expect_unchanged_on_failure("1234567", "12345678", [](StringProbe& s) { return s.ConcatCharacters('8', 1); });
    expect_unchanged_on_failure("1234567", "12345678", [&](StringProbe& s) { return s.ConcatObject(other); });
    expect_unchanged_on_failure("1234567", "12345671234567", [](StringProbe& s) { return s.ConcatString(s); });
}

TEST(ExtStringFailure, AppendOperatorsKeepTheText) {
    StringProbe s("1234567");
    const CExtString other("8");
    const orvil::test::AllocationFailure failure(1, true);
    s += "8";
    s += '8';
    s += other;
    EXPECT_STREQ(s, "1234567");
    EXPECT_EQ(s.capacity_, 8);
}

TEST(ExtStringFailure, AppendingToAnEmptyStringLeavesItEmpty) {
    sweep_allocation_failures([](auto failed) {
        CExtString s;
        const bool done = s.ConcatString("abc");
        EXPECT_EQ(done, !failed());
        EXPECT_EQ(is_null(s), failed());
    });
    sweep_allocation_failures([](auto failed) {
        CExtString s;
        const bool done = s.ConcatCharacters('x', 0);
        EXPECT_EQ(done, !failed());
        EXPECT_EQ(is_null(s), failed());
    });
}

TEST(ExtStringFailure, AppendingToAnEmptyStringAbandonsItsBuffer) {
    StringProbe s, t;
    s.CreateFromCharacters('x', 0);
    t.CreateFromCharacters('x', 0);
    expect_abandoned_on_failure(s, [](CExtString& target) { EXPECT_FALSE(target.ConcatString("abc")); });
    expect_abandoned_on_failure(t, [](CExtString& target) { EXPECT_FALSE(target.ConcatStringLen("abc", 2)); });
}

TEST(ExtStringFailure, AppendingCharactersToAnEmptyStringReleasesItsBuffer) {
    StringProbe s;
    s.CreateFromCharacters('x', 0);
    const orvil::test::AllocationFailure failure(1);
    EXPECT_FALSE(s.ConcatCharacters('y', 3));
    EXPECT_TRUE(is_null(s));
}

TEST(ExtStringFailure, PlusGivesOneOfTheTwoTexts) {
    const CExtString left("1234567"), right("89");
    {
        const orvil::test::AllocationFailure copying(1);
        EXPECT_STREQ(left + right, "89");
    }
    {
        const orvil::test::AllocationFailure growing(2);
        EXPECT_STREQ(left + right, "1234567");
    }
    const orvil::test::AllocationFailure all(1, true);
    EXPECT_STREQ('x' + right, "");
}

// --- formats --------------------------------------------------------------------------------------------------------

TEST(ExtStringFailure, AFormatLeavesAnEmptyStringAndGivesZero) {
    sweep(
        "old", [](StringProbe& s) { return s.Format("%s", kLongText) != 0; },
        [](const CExtString& s, bool result, bool failed) {
            EXPECT_EQ(result, !failed);
            EXPECT_STREQ(s, failed ? "" : kLongText);
            EXPECT_EQ(is_null(s), failed);
        });
}

TEST(ExtStringFailure, AValueByKindGivesFalse) {
    sweep(
        "old", [](StringProbe& s) { return parse_part(s, EFT_SHORT, 5); },
        [](const CExtString& s, bool result, bool failed) {
            EXPECT_EQ(result, !failed);
            EXPECT_EQ(is_null(s), failed);
        });
    sweep(
        "old", [](StringProbe& s) { return parse_part(s, EFT_FORMATTED_TEXT, "%s", ""); },
        [](const CExtString& s, bool result, bool failed) {
            EXPECT_EQ(result, !failed);
            EXPECT_EQ(is_null(s), failed);
        });
}

TEST(ExtStringFailure, ATemplateLeavesAnEmptyStringAndGivesZero) {
    CExtStrArray values;
    values.Add(kLongText);
    sweep(
        "old", [&](StringProbe& s) { return s.ExtFormat("<%1%>%a%1%", values) != 0; },
        [](const CExtString& s, bool result, bool failed) {
            EXPECT_EQ(result, !failed);
            EXPECT_EQ(is_null(s), failed);
        });
}

// The array of values makes do with less room when it must.
TEST(ExtStringFailure, ATemplateWithAListLeavesAnEmptyStringAndGivesZero) {
    sweep(
        "old", [](StringProbe& s) { return s.ExtFormat("<%1%%2%>", EFT_SHORT, 5, EFT_TEXT, kLongText, EFT_END) != 0; },
        [](const CExtString& s, bool result, bool failed) {
            EXPECT_TRUE(result || failed);
            EXPECT_EQ(is_null(s), !result);
            EXPECT_TRUE(!result || s.GetLength() == 44) << s.GetString();
        });
}

// --- streams --------------------------------------------------------------------------------------------------------

namespace {

// Reads from the start of a file again and again, with each allocation refused.
template <typename Read>
void sweep_reading(const std::string& bytes, const std::string& expected, Read read) {
    const orvil::test::TempDir folder;
    FILE* file = std::fopen(folder.write("input", bytes).c_str(), "rb");
    ASSERT_NE(file, nullptr);
    sweep_allocation_failures([&](auto failed) {
        std::rewind(file);
        CExtString s;
        const bool done = read(s, file);
        EXPECT_EQ(done, !failed());
        if (!failed()) {
            EXPECT_STREQ(s, expected.c_str());
        }
    });
    std::fclose(file);
}

}  // namespace

TEST(ExtStringFailure, ReadingALineGivesFalse) {
    const std::string line(100, 'x');
    const auto keep_end = [](CExtString& s, FILE* file) { return s.CreateFromStream(file, false, true); };
    sweep_reading(line + "\n", line + "\r\n", keep_end);
    sweep_reading("1234567\n", "1234567\r\n", keep_end);
    sweep_reading("\n", "\r\n", keep_end);
    sweep_reading(line, line, keep_end);
}

TEST(ExtStringFailure, ReadingAHeaderLineGivesFalse) {
    const auto read = [](CExtString& s, FILE* file) { return s.ReadRfcHeaderLine(file, false); };
    sweep_reading("A: b\r\n continued far enough for a second chunk\r\nC\r\n",
                  "A: b continued far enough for a second chunk", read);
    sweep_reading("\r\n", "", read);
}
