// Double-byte characters on the command line: "\x83\x5C" is one, whose second byte is a backslash. A second byte is
// never a quote or a blank in a real text, but a hostile one may have it there.
#include "options/option_model.h"
#include "options/option_support.h"
#include "support/code_page_932.h"

namespace orvil::test {
namespace {

class DoubleByteCommandLine : public testing::Test {
protected:
    static Texts split(const char* text) {
        CExtStrList words;
        EXPECT_TRUE(getopt_parse_string_to_list(text, words, true));
        return texts_of(words);
    }

    template <typename Check>
    static void for_each_line(std::size_t length, Check check) {
        std::vector<std::string> lines{""};
        for (std::size_t i = 0; i < lines.size() && !HasFailure(); ++i) {
            const std::string line = lines[i];
            check(line);
            for (char c : line.size() < length ? std::string("\x83 \"\\a") : "") {
                lines.push_back(line + c);
            }
        }
    }

    const CodePage932 code_page;
};

TEST_F(DoubleByteCommandLine, SecondByteIsNoBackslash) {
    EXPECT_EQ(split("p \"\x83\x5C\" b"), Texts({"p", "\x83\x5C", "b"}));
    EXPECT_EQ(split("p \x83\x5C\\\"b c"), Texts({"p", "\x83\x5C\"b", "c"}));
}

TEST_F(DoubleByteCommandLine, SecondByteIsNoQuote) {
    EXPECT_EQ(split("p \x83\" b"), Texts({"p", "\x83\"", "b"}));
    EXPECT_EQ(split("\"\x83\" \" b"), Texts({"\x83\" ", "b"}));
}

TEST_F(DoubleByteCommandLine, SecondByteIsNoBlank) {
    EXPECT_EQ(split("\x83 p \x83\t\x83 b c"), Texts({"\x83 p", "\x83\t\x83 b", "c"}));
}

TEST_F(DoubleByteCommandLine, BackslashBeforeADoubleByteStands) {
    EXPECT_EQ(split("p \\\\\x83\"x y"), Texts({"p", "\\\\\x83\"x", "y"}));
}

TEST_F(DoubleByteCommandLine, LeadByteAtTheEndIsCopiedAlone) {
    EXPECT_EQ(split("\x83"), Texts({"\x83"}));
    EXPECT_EQ(split("p a\x83"), Texts({"p", "a\x83"}));
    EXPECT_EQ(split("p \"a\x83"), Texts({"p", "a\x83"}));
}

// All lines of up to seven characters out of five.
TEST_F(DoubleByteCommandLine, WordsAgreeWithThePlainModel) {
    for_each_line(7, [](const std::string& line) {
        Texts expected;
        CExtStrList words;
        ASSERT_EQ(getopt_parse_string_to_list(line.c_str(), words, true),
                  WordsModel(line, is_lead_byte_932).split(expected))
            << line;
        ASSERT_EQ(texts_of(words), expected) << line;
    });
}

TEST_F(DoubleByteCommandLine, OptionsAreReadByteByByte) {
    getopt_initialize();
    declare_scalars({"\x83\x5C: s"});
    EXPECT_TRUE(parse({"--\x83\x5C=\x83\x5C.txt", "\x83"}));
    EXPECT_EQ(scalar("s"), "\x83\x5C.txt");
    EXPECT_EQ(items(), Texts({"\x83"}));
    getopt_terminate();
}

// "\x83\x4E" is one character; its second byte is the letter N, and whatever ends with that is a boolean symbol.
TEST_F(DoubleByteCommandLine, SecondByteMayMakeABooleanSymbol) {
    getopt_initialize();
    declare_booleans({"debug"});
    EXPECT_TRUE(parse({"--debug", "\x83\x4E"}));
    EXPECT_FALSE(getopt_boolean("debug"));
    EXPECT_TRUE(getopt_item_empty());
    getopt_terminate();
}

}  // namespace
}  // namespace orvil::test
