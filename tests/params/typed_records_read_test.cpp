// Reading records: by their own type, converted, and all in order.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

#include "orvil/params/typed_records.h"
#include "params/record_support.h"

namespace orvil::test {
namespace {

TEST(RecordType, IsTheLetterOrZero) {
    RecordSet set;
    set.with("i", 1).with("d", 1.5).with("s", "x");
    EXPECT_EQ('i', vpr_type(set, "i"));
    EXPECT_EQ('d', vpr_type(set, "d"));
    EXPECT_EQ('s', vpr_type(set, "s"));
    EXPECT_EQ(0, vpr_type(set, "x"));
    EXPECT_EQ(0, vpr_type(set, ""));
    EXPECT_EQ(0, vpr_type(set, nullptr));
    EXPECT_EQ(0, vpr_type(nullptr, "i"));
}

TEST(RecordRef, GivesTheValueOfExactlyThatType) {
    RecordSet set;
    set.with("i", 42).with("d", 2.5).with("s", "7");
    EXPECT_EQ(42, vpr_ref_int(set, "i"));
    EXPECT_EQ(2.5, vpr_ref_dbl(set, "d"));
    EXPECT_STREQ("7", vpr_ref_str(set, "s"));
}

TEST(RecordRef, OtherTypesAreNotConverted) {
    RecordSet set;
    set.with("i", 42).with("d", 2.5).with("s", "7");
    EXPECT_EQ(0, vpr_ref_int(set, "d"));
    EXPECT_EQ(0, vpr_ref_int(set, "s"));
    EXPECT_EQ(0.0, vpr_ref_dbl(set, "i"));
    EXPECT_EQ(0.0, vpr_ref_dbl(set, "s"));
    EXPECT_STREQ("", vpr_ref_str(set, "i"));
    EXPECT_STREQ("", vpr_ref_str(set, "d"));
}

TEST(RecordRef, AbsentRecordsAndBadArgumentsGiveNothing) {
    RecordSet set;
    const vpr_set_t* sets[] = {nullptr, set};
    const char* names[] = {nullptr, "", "x"};
    for (const vpr_set_t* each : sets) {
        for (const char* name : names) {
            EXPECT_EQ(0, vpr_ref_int(each, name));
            EXPECT_EQ(0.0, vpr_ref_dbl(each, name));
            EXPECT_STREQ("", vpr_ref_str(each, name));
        }
    }
}

TEST(RecordGet, AbsentRecordsAndBadArgumentsGiveNothingAndTypeZero) {
    RecordSet set;
    const vpr_set_t* sets[] = {nullptr, set};
    const char* names[] = {nullptr, "", "x"};
    for (const vpr_set_t* each : sets) {
        for (const char* name : names) {
            char type = '?';
            EXPECT_EQ(0, vpr_get_int(each, name, &type));
            EXPECT_EQ(0, type);
            type = '?';
            EXPECT_EQ(0.0, vpr_get_dbl(each, name, &type));
            EXPECT_EQ(0, type);
            type = '?';
            EXPECT_STREQ("", vpr_get_str(each, name, &type));
            EXPECT_EQ(0, type);
        }
    }
}

TEST(RecordGet, TellsTheRecordsOwnType) {
    RecordSet set;
    set.with("i", 1).with("d", 1.5).with("s", "x");
    for (const char* name : {"i", "d", "s"}) {
        for (int round = 0; round < 2; ++round) {
            char type = '?';
            vpr_get_int(set, name, &type);
            EXPECT_EQ(name[0], type);
            vpr_get_dbl(set, name, &type);
            EXPECT_EQ(name[0], type);
            vpr_get_str(set, name, &type);
            EXPECT_EQ(name[0], type);
            EXPECT_EQ(name[0], vpr_type(set, name));
        }
    }
}

TEST(RecordGet, OwnTypeNeedsNoConversion) {
    RecordSet set;
    set.with("i", INT_MIN).with("d", -0.125).with("s", "text");
    EXPECT_EQ(INT_MIN, vpr_get_int(set, "i", nullptr));
    EXPECT_EQ(-0.125, vpr_get_dbl(set, "d", nullptr));
    EXPECT_STREQ("text", vpr_get_str(set, "s", nullptr));
    EXPECT_EQ(vpr_ref_str(set, "s"), vpr_get_str(set, "s", nullptr));
}

struct DoubleRow {
    double value;
    int expected;
};

TEST(RecordGetInt, DoubleIsCutTowardZero) {
    const DoubleRow rows[] = {{-2.9, -2},
                              {2.9, 2},
                              {0.999, 0},
                              {-0.5, 0},
                              {1e9, 1000000000},
                              {2147483647.9, INT_MAX},
                              {-2147483648.9, INT_MIN}};
    for (const DoubleRow& row : rows) {
        RecordSet set;
        set.with("d", row.value);
        EXPECT_EQ(row.expected, vpr_get_int(set, "d", nullptr)) << row.value;
    }
}

TEST(RecordGetInt, DoubleBeyondAnIntAndNoNumberGiveTheSmallestInt) {
    using Limits = std::numeric_limits<double>;
    for (double value :
         {2147483648.0, -2147483649.0, 1e300, -1e300, Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()}) {
        RecordSet set;
        set.with("d", value);
        EXPECT_EQ(INT_MIN, vpr_get_int(set, "d", nullptr)) << value;
    }
}

struct TextRow {
    const char* text;
    int expected;
};

TEST(RecordGetInt, StringIsReadInBaseTenOrSixteen) {
    const TextRow rows[] = {{"0x1A", 26}, {"0X1a", 26},    {"012", 12},  {"abc", 0},
                            {"", 0},      {"  42 mm", 42}, {"-17", -17}, {"+5", 5},
                            {"0x", 0},    {"0xg", 0},      {" 0x1A", 0}, {"-0x1A", 0},
                            {"2.9", 2},   {"1e3", 1},      {"0b11", 0},  {"0x7fffffff", INT_MAX},
                            {"08", 8}};
    for (const TextRow& row : rows) {
        RecordSet set;
        set.with("s", row.text);
        EXPECT_EQ(row.expected, vpr_get_int(set, "s", nullptr)) << row.text;
    }
}

TEST(RecordGetInt, StringBeyondThirtyTwoBitsIsClamped) {
    const TextRow rows[] = {{"99999999999", INT_MAX},
                            {"-99999999999", INT_MIN},
                            {"2147483647", INT_MAX},
                            {"2147483648", INT_MAX},
                            {"-2147483648", INT_MIN},
                            {"-2147483649", INT_MIN},
                            {"0x80000000", INT_MAX},
                            {"0xFFFFFFFF", INT_MAX},
                            {"0xFFFFFFFFFFFFFFFFFF", INT_MAX},
                            {"99999999999999999999999", INT_MAX},
                            {"-99999999999999999999999", INT_MIN}};
    for (const TextRow& row : rows) {
        RecordSet set;
        set.with("s", row.text);
        EXPECT_EQ(row.expected, vpr_get_int(set, "s", nullptr)) << row.text;
    }
}

TEST(RecordGetDouble, IntIsExact) {
    for (int value : {0, 1, -1, INT_MAX, INT_MIN}) {
        RecordSet set;
        set.with("i", value);
        EXPECT_EQ(static_cast<double>(value), vpr_get_dbl(set, "i", nullptr));
    }
}

TEST(RecordGetDouble, StringIsReadByStrtod) {
    const struct {
        const char* text;
        double expected;
    } rows[] = {{"2.5", 2.5}, {" -1e3 mm", -1000.0}, {"abc", 0.0}, {"", 0.0}, {"012", 12.0}, {".5", 0.5}};
    for (const auto& row : rows) {
        RecordSet set;
        set.with("s", row.text);
        EXPECT_EQ(row.expected, vpr_get_dbl(set, "s", nullptr)) << row.text;
    }
}

TEST(RecordGetString, IntIsPrintedInDecimal) {
    const struct {
        int value;
        const char* expected;
    } rows[] = {{42, "42"}, {0, "0"}, {-7, "-7"}, {INT_MAX, "2147483647"}, {INT_MIN, "-2147483648"}};
    for (const auto& row : rows) {
        RecordSet set;
        set.with("i", row.value);
        EXPECT_STREQ(row.expected, vpr_get_str(set, "i", nullptr));
    }
}

TEST(RecordGetString, DoubleIsPrintedWithFifteenDecimals) {
    const struct {
        double value;
        const char* expected;
    } rows[] = {{2.5, "2.500000000000000"},
                {1e20, "100000000000000000000.000000000000000"},
                {-0.1, "-0.100000000000000"},
                {0.0, "0.000000000000000"},
                {1e-16, "0.000000000000000"}};
    for (const auto& row : rows) {
        RecordSet set;
        set.with("d", row.value);
        EXPECT_STREQ(row.expected, vpr_get_str(set, "d", nullptr));
    }
}

TEST(RecordGetString, LargestDoubleIsPrintedWhole) {
    RecordSet set;
    set.with("d", -std::numeric_limits<double>::max());
    const std::string text = vpr_get_str(set, "d", nullptr);
    EXPECT_EQ(1u + 309 + 1 + 15, text.size());
    EXPECT_EQ("-17976931348623157", text.substr(0, 18));
    EXPECT_EQ(".000000000000000", text.substr(310));
}

TEST(RecordCache, ConvertedValueIsKept) {
    RecordSet set;
    set.with("i", 42);
    const char* text = vpr_get_str(set, "i", nullptr);
    EXPECT_EQ(text, vpr_get_str(set, "i", nullptr));
}

TEST(RecordCache, ReadingTheOwnTypeLeavesTheConvertedStringAlone) {
    RecordSet set;
    set.with("i", 42).with("d", 2.5);
    const char* of_int = vpr_get_str(set, "i", nullptr);
    const char* of_double = vpr_get_str(set, "d", nullptr);
    EXPECT_EQ(42, vpr_get_int(set, "i", nullptr));
    EXPECT_EQ(2.5, vpr_get_dbl(set, "d", nullptr));
    EXPECT_EQ(42, vpr_ref_int(set, "i"));
    EXPECT_STREQ("42", of_int);
    EXPECT_STREQ("2.500000000000000", of_double);
    EXPECT_EQ(of_int, vpr_get_str(set, "i", nullptr));
}

TEST(RecordCache, EveryConversionStartsFromTheStoredValue) {
    RecordSet set;
    set.with("s", "2.9").with("d", -2.9).with("i", 7);
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(2, vpr_get_int(set, "s", nullptr));
        EXPECT_EQ(2.9, vpr_get_dbl(set, "s", nullptr));
        EXPECT_STREQ("2.9", vpr_get_str(set, "s", nullptr));
        EXPECT_EQ(-2, vpr_get_int(set, "d", nullptr));
        EXPECT_STREQ("-2.900000000000000", vpr_get_str(set, "d", nullptr));
        EXPECT_EQ(-2, vpr_get_int(set, "d", nullptr));
        EXPECT_EQ(-2.9, vpr_get_dbl(set, "d", nullptr));
        EXPECT_EQ(7.0, vpr_get_dbl(set, "i", nullptr));
        EXPECT_STREQ("7", vpr_get_str(set, "i", nullptr));
        EXPECT_EQ(7.0, vpr_get_dbl(set, "i", nullptr));
        EXPECT_EQ(7, vpr_get_int(set, "i", nullptr));
    }
}

TEST(RecordCache, ReplacedRecordStartsWithoutOne) {
    RecordSet set;
    set.with("n", 1);
    EXPECT_STREQ("1", vpr_get_str(set, "n", nullptr));
    set.with("n", 2);
    EXPECT_STREQ("2", vpr_get_str(set, "n", nullptr));
    vpr_delete(set, "n");
    set.with("m", 3);
    EXPECT_STREQ("3", vpr_get_str(set, "m", nullptr));
}

TEST(RecordTraverse, WalksTheThreeOrders) {
    RecordSet set;
    set.with("B", 1).with("a", 2).with("A", 3);
    EXPECT_EQ("B=i1 a=i2 A=i3", show(set, 0));
    EXPECT_EQ("A=i3 B=i1 a=i2", show(set, 1));
    EXPECT_EQ("A=i3 B=i1 a=i2", show(set, INT_MAX));
    EXPECT_EQ("a=i2 B=i1 A=i3", show(set, -1));
    EXPECT_EQ("a=i2 B=i1 A=i3", show(set, INT_MIN));
}

TEST(RecordTraverse, NamesAreOrderedByUnsignedBytesAndLength) {
    RecordSet set;
    set.with("\x80", 1).with("\x7F", 2).with("aaaaaaaa", 3).with("aaaaaaaaa", 4).with("aaaaaaa", 5);
    set.with("aaaaaaaa\xFF", 6).with("aaaaaaaa\x01", 7).with("\xFF", 8).with("aaaaaaa\xFF", 9);
    EXPECT_EQ(
        "aaaaaaa=i5 aaaaaaaa=i3 aaaaaaaa\x01=i7 aaaaaaaaa=i4 aaaaaaaa\xFF=i6 aaaaaaa\xFF=i9 \x7F=i2 \x80=i1 \xFF=i8",
        show(set, 1));
    for (const char* name : {"\x80", "aaaaaaaa", "aaaaaaa", "aaaaaaaa\xFF", "aaaaaaa\xFF"}) {
        EXPECT_EQ('i', vpr_type(set, name));
    }
}

TEST(RecordTraverse, NonZeroEndsTheWalkAndIsReturned) {
    RecordSet set;
    set.with("a", 1).with("b", 0).with("c", 2);
    const auto first_value = [](const char*, const __aVPRESTVITEM_t* item, void* user) {
        ++*static_cast<int*>(user);
        return item->value.i;
    };
    int calls = 0;
    EXPECT_EQ(1, vpr_traverse(set, 0, first_value, &calls));
    EXPECT_EQ(1, calls);
    EXPECT_EQ(2, vpr_traverse(set, -1, first_value, &calls));
    EXPECT_EQ(2, calls);
}

TEST(RecordTraverse, NullSetGivesMinusOneAndNoCallbackZero) {
    RecordSet set;
    set.with("a", 1);
    EXPECT_EQ(-1, vpr_traverse(nullptr, 0, append_item, nullptr));
    EXPECT_EQ(-1, vpr_traverse(nullptr, 0, nullptr, nullptr));
    EXPECT_EQ(0, vpr_traverse(set, 0, nullptr, nullptr));
}

// A walk whose callback does something to the set when it meets "c"; what it visited.
struct Meddling {
    RecordSet set;
    std::string visited;
    void (*meddle)(vpr_set_t* set) = nullptr;

    static int visit(const char* name, const __aVPRESTVITEM_t*, void* user) {
        auto& self = *static_cast<Meddling*>(user);
        self.visited += *name == '\0' ? "?" : name;
        if (*name == 'c') {
            self.meddle(self.set);
        }
        return 0;
    }

    std::string walk(int order, void (*what)(vpr_set_t*)) {
        for (const char* name : {"a", "b", "c", "d", "e"}) {
            set.with(name, "text");
        }
        meddle = what;
        EXPECT_EQ(0, vpr_traverse(set, order, visit, this));
        return visited;
    }
};

TEST(RecordTraverse, CallbackMayDeleteTheRecordThatItIsGiven) {
    const auto remove = [](vpr_set_t* set) { vpr_delete(set, "c"); };
    EXPECT_EQ("abcde", Meddling().walk(0, remove));
    EXPECT_EQ("abcde", Meddling().walk(1, remove));
    EXPECT_EQ("edcba", Meddling().walk(-1, remove));
}

TEST(RecordTraverse, DeletedRecordsAreNotVisited) {
    const auto remove = [](vpr_set_t* set) {
        vpr_delete(set, "d");
        vpr_delete(set, "b");
    };
    EXPECT_EQ("abce", Meddling().walk(0, remove));
    EXPECT_EQ("abce", Meddling().walk(1, remove));
    EXPECT_EQ("edca", Meddling().walk(-1, remove));
}

TEST(RecordTraverse, RecordThatIsReplacedBeforeItIsVisitedIsVisitedAtItsNewPlaceOnly) {
    const auto replace = [](vpr_set_t* set) { vpr_add_str(set, "d", "new"); };
    EXPECT_EQ("abced", Meddling().walk(0, replace));
    EXPECT_EQ("abce", Meddling().walk(1, replace));
}

TEST(RecordTraverse, ClearingEndsTheWalk) {
    for (int order : {0, 1}) {
        EXPECT_EQ("abc", Meddling().walk(order, [](vpr_set_t* set) { vpr_clear(set); }));
    }
    EXPECT_EQ("edc", Meddling().walk(-1, [](vpr_set_t* set) { vpr_clear(set); }));
}

TEST(RecordTraverse, WalksWithinAWalkAreTheirOwn) {
    const auto remove_all = [](vpr_set_t* set) {
        const auto remove = [](const char* name, const __aVPRESTVITEM_t*, void* user) {
            return vpr_delete(static_cast<vpr_set_t*>(user), name);
        };
        EXPECT_EQ(0, vpr_traverse(set, -1, remove, set));
        EXPECT_EQ(0, vpr_count(set));
    };
    for (int order : {0, 1}) {
        EXPECT_EQ("abc", Meddling().walk(order, remove_all));
    }
}

TEST(RecordTraverse, WalkWithinAWalkLeavesTheOuterOneKnown) {
    const auto walk_then_remove = [](vpr_set_t* set) {
        show(set);
        vpr_delete(set, "d");
    };
    EXPECT_EQ("abce", Meddling().walk(0, walk_then_remove));
    EXPECT_EQ("edc", Meddling().walk(-1, [](vpr_set_t* set) {
        show(set);
        vpr_clear(set);
    }));
}

TEST(RecordTraverse, ClearingAnotherSetDoesNotEndTheWalk) {
    static RecordSet* other = nullptr;
    RecordSet second;
    other = &second;
    second.with("x", 1);
    EXPECT_EQ("abcde", Meddling().walk(0, [](vpr_set_t*) { vpr_clear(*other); }));
    EXPECT_EQ(0, vpr_count(second));
}

TEST(RecordTraverse, ReplacingEachRecordEnds) {
    RecordSet set;
    set.with("a", 1).with("b", 2).with("c", 3);
    struct Visit {
        vpr_set_t* set;
        int calls;
    } visit{set, 0};
    const auto replace = [](const char* name, const __aVPRESTVITEM_t* item, void* user) {
        auto& each = *static_cast<Visit*>(user);
        ++each.calls;
        return vpr_add_int(each.set, name, item->value.i + 10);
    };
    EXPECT_EQ(0, vpr_traverse(set, 0, replace, &visit));
    EXPECT_EQ(3, visit.calls);
    EXPECT_EQ(3, vpr_count(set));
    EXPECT_EQ("a=i11 b=i12 c=i13", show(set, 1));
}

TEST(RecordTraverse, AddingInFrontOfTheWalkEnds) {
    for (int order : {0, 1}) {
        RecordSet set;
        set.with("a", 1).with("b", 2);
        const auto add_behind = [](const char*, const __aVPRESTVITEM_t*, void* user) {
            auto* visited = static_cast<vpr_set_t*>(user);
            return vpr_add_int(visited, std::string(1, static_cast<char>('a' + vpr_count(visited))).c_str(), 0);
        };
        EXPECT_EQ(0, vpr_traverse(set, order, add_behind, &set.set));
        EXPECT_EQ("a=i1 b=i2 c=i0 d=i0", show(set, 1));
    }
}

}  // namespace
}  // namespace orvil::test
