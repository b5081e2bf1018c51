// The parser's scanner yields what fresh analysers yield.
#include "tokens/token_scanner.h"

#include <gtest/gtest.h>

#include "tokens/lexer_comparison.h"

using namespace orvil::test;
using orvil::detail::TokenScanner;

namespace {

void compare_scanner(const std::string& bytes) {
    MemoryStream stream(bytes);
    NaiveStream naive(bytes);
    TokenScanner scanner(stream);
    compare_tokens(
        stream, naive,
        [&scanner](CLexToken& token, CExtString& information) {
            const bool result = scanner.next(token);
            information = scanner.information();
            return result;
        },
        fresh_naive_lexers(naive));
}

}  // namespace

TEST(TokenScanner, AgreesWithTheNaiveLexer) {
    for_random_texts(20000, compare_scanner);
}

TEST(TokenScanner, ForgetsAStringThatFailed) {
    MemoryStream stream("'a\\q b;");
    TokenScanner scanner(stream);
    CLexToken token;
    EXPECT_FALSE(scanner.next(token));
    EXPECT_TRUE(scanner.next(token));
    EXPECT_EQ(seen(token), (NaiveToken{7, "q", 0, 2}));
    EXPECT_STREQ(scanner.information(), "");
}

TEST(TokenScanner, DroppedCommentsHaveTheirKindAndNoText) {
    MemoryStream stream("x/*a*///b\r\n#c");
    TokenScanner scanner(stream, false);
    const NaiveToken expected[] = {{8, "", 0, -1}, {9, "", 0, 5}, {10, "#c", 1, 1}, {0, "", -1, -1}};
    for (const NaiveToken& wanted : expected) {
        CLexToken token;
        EXPECT_TRUE(scanner.next(token));
        EXPECT_EQ(seen(token), wanted);
    }
}

TEST(TokenScanner, SlotIsUsedAgain) {
    MemoryStream stream("'a long text for the slot' ;");
    TokenScanner scanner(stream);
    CLexToken token;
    EXPECT_TRUE(scanner.next(token));
    EXPECT_TRUE(scanner.next(token));
    EXPECT_EQ(seen(token), (NaiveToken{2, ";", 0, 25}));
    EXPECT_TRUE(scanner.next(token));
    EXPECT_EQ(seen(token), NaiveToken());
}
