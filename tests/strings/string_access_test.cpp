// What the library may do with strings beyond their public members.
#include "strings/string_access.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "strings/ext_string_probe.h"

using orvil::detail::bounded_length;
using orvil::detail::FormerBuffer;
using orvil::detail::StringAccess;
using orvil::test::counted;
using orvil::test::has_buffer;

TEST(BoundedLength, IsTheSmallerOfLengthAndCount) {
    const char unterminated[2] = {'a', 'b'};
    EXPECT_EQ(bounded_length("abc", 2), 2);
    EXPECT_EQ(bounded_length("abc", 3), 3);
    EXPECT_EQ(bounded_length("abc", INT_MAX), 3);
    EXPECT_EQ(bounded_length("abc", 0), 0);
    EXPECT_EQ(bounded_length("abc", -1), 0);
    EXPECT_EQ(bounded_length(nullptr, 5), 0);
    EXPECT_EQ(bounded_length(unterminated, 2), 2);
}

TEST(StringAccess, AssignTakesAFreshBufferOfTheStatedCapacity) {
    CExtString s("an old text that is longer");
    EXPECT_TRUE(StringAccess::assign(s, "abcdef", 3));
    EXPECT_EQ(counted(s), "3:abc");
    EXPECT_EQ(StringAccess::capacity(s), 8);
    EXPECT_TRUE(StringAccess::assign(s, s.GetString() + 1, 2));
    EXPECT_EQ(counted(s), "2:bc");
    EXPECT_TRUE(StringAccess::assign(s, "x", 0));
    EXPECT_FALSE(has_buffer(s));
}

TEST(StringAccess, AppendKeepsTheCapacityRule) {
    CExtString s;
    EXPECT_TRUE(StringAccess::append(s, "abcdef", 3));
    EXPECT_EQ(counted(s), "3:abc");
    EXPECT_TRUE(StringAccess::append(s, "defgh", 5));
    EXPECT_EQ(counted(s), "8:abcdefgh");
    EXPECT_EQ(StringAccess::capacity(s), 16);
    EXPECT_TRUE(StringAccess::append(s, s.GetString() + 6, 2));
    EXPECT_EQ(counted(s), "10:abcdefghgh");
    EXPECT_TRUE(StringAccess::append(s, nullptr, 0));
    EXPECT_EQ(counted(s), "10:abcdefghgh");
}

TEST(StringAccess, SwapExchangesTheBuffersThemselves) {
    CExtString a("abc"), b;
    const char* text = a;
    StringAccess::swap(a, b);
    EXPECT_FALSE(has_buffer(a));
    EXPECT_EQ(b.GetString(), text);
    EXPECT_EQ(counted(b), "3:abc");
    EXPECT_EQ(StringAccess::capacity(b), 8);
}

TEST(StringAccess, BytesAreTheBufferOrNull) {
    CExtString s("abc");
    StringAccess::bytes(s)[1] = 'X';
    EXPECT_STREQ(s, "aXc");
    s.Empty();
    EXPECT_EQ(StringAccess::bytes(s), nullptr);
}

TEST(FormerBuffer, KeepsTheFormerTextReadable) {
    CExtString s("abc");
    const char* text = s;
    const FormerBuffer former(s);
    EXPECT_FALSE(has_buffer(s));
    s = "new";
    EXPECT_STREQ(text, "abc");
    EXPECT_STREQ(s, "new");
}
