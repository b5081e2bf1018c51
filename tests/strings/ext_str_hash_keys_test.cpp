// The five kinds of keys of a string hash.
#include <gtest/gtest.h>

#include <string>

#include "orvil/strings/ext_str_hash.h"
#include "support/array_probe.h"

namespace {

using orvil::test::show;

const char* text(const CExtStrHash& hash, const char* key) {
    return hash[key];
}

TEST(ExtStrHashKeys, ReservedFormsAreStatedBytes) {
    char buffer[64];
    EXPECT_EQ(CExtStrHash::KeyToStr(buffer, -2), buffer);
    EXPECT_EQ(std::string(buffer),
              "\xFF\xFFs\xFF\xFF"
              "0xFFFFFFFE");
    EXPECT_EQ(std::string(CExtStrHash::KeyToStr(buffer, 0xABCU)),
              "\xFF\xFFu\xFF\xFF"
              "0x00000ABC");
    EXPECT_EQ(std::string(CExtStrHash::KeyToStr(buffer, 0.1)),
              "\xFF\xFF"
              "d\xFF\xFF"
              "0.1");
    EXPECT_EQ(std::string(CExtStrHash::KeyToStr(buffer, 1.0 / 3)),
              "\xFF\xFF"
              "d\xFF\xFF"
              "0.333333333333333");
    EXPECT_EQ(std::string(CExtStrHash::KeyToStr(buffer, 1e100)),
              "\xFF\xFF"
              "d\xFF\xFF"
              "1e+100");
}

TEST(ExtStrHashKeys, PointerFormIsThatOfTheStringFormat) {
    char buffer[64];
    int object = 0;
    CExtString expected;
    expected.Format("%p", static_cast<void*>(&object));
    EXPECT_EQ(std::string(CExtStrHash::KeyToStr(buffer, static_cast<void*>(&object))),
              std::string("\xFF\xFFp\xFF\xFF") + expected.GetString());
}

TEST(ExtStrHashKeys, IntegerFormTakesAnyLetterAndRefusesANullBuffer) {
    char buffer[64];
    EXPECT_TRUE(CExtStrHash::__Key_Format_I32_to_String(buffer, 5, 'z'));
    EXPECT_EQ(std::string(buffer),
              "\xFF\xFFz\xFF\xFF"
              "0x00000005");
    EXPECT_FALSE(CExtStrHash::__Key_Format_I32_to_String(nullptr, 5, 's'));
    EXPECT_EQ(CExtStrHash::KeyToStr(nullptr, 5), nullptr);
    EXPECT_EQ(CExtStrHash::KeyToStr(nullptr, 0.5), nullptr);
    EXPECT_EQ(CExtStrHash::KeyToStr(nullptr, static_cast<void*>(nullptr)), nullptr);
}

TEST(ExtStrHashKeys, KindsNeverMeet) {
    CExtStrHash hash;
    void* pointer = reinterpret_cast<void*>(std::uintptr_t{5});
    hash.SetAt(5, "int");
    hash.SetAt(5U, "unsigned");
    hash.SetAt("5", "text");
    hash.SetAt(5.0, "double");
    hash.SetAt(pointer, "pointer");
    EXPECT_EQ(hash.GetCount(), 5);
    const CExtStrHash& constant = hash;
    EXPECT_STREQ(constant[5], "int");
    EXPECT_STREQ(constant[5U], "unsigned");
    EXPECT_STREQ(constant["5"], "text");
    EXPECT_STREQ(constant[5.0], "double");
    EXPECT_STREQ(constant[pointer], "pointer");
}

template <typename Key>
void expect_all_operations_on(Key key) {
    CExtStrHash hash;
    const CExtStrHash& constant = hash;
    CExtString value;
    EXPECT_FALSE(hash.IsExistKey(key));
    EXPECT_EQ(constant[key], nullptr);
    EXPECT_FALSE(hash.Lookup(key, value));
    EXPECT_TRUE(hash.SetAt(key, "1"));
    EXPECT_TRUE(hash.IsExistKey(key));
    EXPECT_TRUE(hash.Lookup(key, value));
    EXPECT_STREQ(value, "1");
    hash[key] = "2";
    EXPECT_STREQ(constant[key], "2");
    EXPECT_TRUE(hash.RemoveKey(key));
    EXPECT_FALSE(hash.RemoveKey(key));
    EXPECT_TRUE(hash[key].IsEmpty());
    EXPECT_EQ(hash.GetCount(), 1);
}

TEST(ExtStrHashKeys, EveryOperationTakesEveryKind) {
    int object = 0;
    expect_all_operations_on("text");
    expect_all_operations_on(7U);
    expect_all_operations_on(-7);
    expect_all_operations_on(2.5);
    expect_all_operations_on(static_cast<void*>(&object));
}

TEST(ExtStrHashKeys, TextEqualToAReservedFormIsThatEntry) {
    CExtStrHash hash;
    hash.SetAt(5, "int");
    EXPECT_STREQ(text(hash,
                      "\xFF\xFFs\xFF\xFF"
                      "0x00000005"),
                 "int");
    EXPECT_EQ(show(hash.Keys()),
              "[\xFF\xFFs\xFF\xFF"
              "0x00000005]");
}

TEST(ExtStrHashKeys, DoublesMeetAtFifteenDigitsAndZerosDiffer) {
    CExtStrHash hash;
    hash.SetAt(0.1 + 0.2, "sum");
    EXPECT_TRUE(hash.IsExistKey(0.3));
    hash.SetAt(0.0, "plus");
    EXPECT_FALSE(hash.IsExistKey(-0.0));
}

}  // namespace
