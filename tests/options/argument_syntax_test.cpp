// The forms that are matched by hand, beside the regular expressions that define them.
#include "options/argument_syntax.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "options/option_model.h"
#include "orvil/strings/regex.h"

namespace orvil::test {
namespace {

using detail::Declaration;
using detail::OptionArgument;

class RegexCache : public testing::Test {
protected:
    ~RegexCache() override { regex_cleanup(); }
};

// Calls check(text) for all texts of up to `length` characters.
template <typename Check>
void for_all_texts(const std::string& characters, std::size_t length, Check check) {
    std::vector<std::string> texts{""};
    for (std::size_t i = 0; i < texts.size() && !testing::Test::HasFailure(); ++i) {
        const std::string text = texts[i];
        check(text);
        if (text.size() < length) {
            for (char c : characters) {
                texts.push_back(text + c);
            }
        }
    }
}

// Calls check(text) for random texts made of pieces.
template <typename Check>
void for_random_texts(const std::vector<std::string>& pieces, int count, Check check) {
    std::mt19937 random(20260);
    for (int i = 0; i < count && !testing::Test::HasFailure(); ++i) {
        std::string text;
        for (auto length = random() % 6; length > 0; --length) {
            text += pieces[random() % pieces.size()];
        }
        check(text);
    }
}

// --- options ---------------------------------------------------------------------------------------------------------

void compare_option(const std::string& text) {
    const CExtString argument(("-" + text).c_str());
    CExtStrArray parts;
    bool is_long = true;
    bool matches = argument.RegexMatch("/^--([^:=]+)([:=](.+))?$/", parts) > 0;
    if (!matches) {
        is_long = false;
        matches = argument.RegexMatch("/^-([^:=])([:=](.+))?$/", parts) > 0 &&
                  CExtString(parts[1]).RegexMatch("/[A-Za-z]/") > 0;
    }
    OptionArgument option;
    ASSERT_EQ(detail::read_option_argument(argument.GetString(), option), matches) << text;
    if (matches) {
        EXPECT_EQ(option.is_long, is_long) << text;
        EXPECT_EQ(std::string(option.name), parts[1]) << text;
        EXPECT_EQ(option.has_value, parts[3] != nullptr) << text;
        EXPECT_EQ(std::string(option.value), parts[3] != nullptr ? parts[3] : "") << text;
    }
}

class OptionSyntax : public RegexCache {};

TEST_F(OptionSyntax, AgreesWithTheExpressionsOnAllShortTexts) {
    for_all_texts("-=:a\n\r", 6, [](const std::string& text) {
        if (!text.empty()) {
            compare_option(text);
        }
    });
}

TEST_F(OptionSyntax, AgreesWithTheExpressionsOnEachCharacter) {
    for (int c = 1; c < 256; ++c) {
        for (const char* behind : {"", "=", "=x", "\n", ":\n"}) {
            compare_option(static_cast<char>(c) + std::string(behind));
            compare_option("-" + std::string(1, static_cast<char>(c)) + behind);
            compare_option("-n=" + std::string(1, static_cast<char>(c)) + behind);
        }
    }
}

// --- boolean values --------------------------------------------------------------------------------------------------

void compare_boolean(const std::string& text) {
    ASSERT_EQ(detail::is_boolean_symbol(text), model_is_symbol(text.c_str())) << text;
    ASSERT_EQ(detail::is_true_word(text), model_is_on(text.c_str())) << text;
}

class BooleanSyntax : public RegexCache {};

TEST_F(BooleanSyntax, AgreesWithTheExpressionsOnEachPairOfCharacters) {
    for (int first = 1; first < 256; ++first) {
        compare_boolean(std::string(1, static_cast<char>(first)));
        for (int second = 1; second < 256; ++second) {
            compare_boolean({static_cast<char>(first), static_cast<char>(second)});
        }
    }
}

TEST_F(BooleanSyntax, AgreesWithTheExpressionsOnWordsAndTheirParts) {
    for_random_texts({"True",  "on", "SET",    "yes",     "oK",  "Enable", "1",  "y",  "False", "oFF",
                      "reset", "No", "Cancel", "disable", "0",   "n",      "\n", " ",  "x",     "t",
                      "e",     "a",  "able",   "ena",     "tru", "rue",    "al", "se", "of"},
                     60000, compare_boolean);
}

// --- declarations ----------------------------------------------------------------------------------------------------

void compare_declaration(const std::string& text) {
    CExtStrArray parts;
    const bool matches = CExtString(text.c_str()).RegexMatch("/^\\s*([^:]+)\\s*:\\s*([A-Za-z])\\s*$/", parts) > 0;
    const Declaration declaration = detail::read_declaration(text);
    ASSERT_EQ(std::string(declaration.name), matches ? parts[1] : text) << text;
    ASSERT_EQ(declaration.letter, matches ? *parts[2] : '\0') << text;
}

class DeclarationSyntax : public RegexCache {};

TEST_F(DeclarationSyntax, AgreesWithTheExpressionOnAllShortTexts) {
    for_all_texts(" :a\n1", 7, compare_declaration);
}

TEST_F(DeclarationSyntax, AgreesWithTheExpressionOnEachCharacter) {
    for (int c = 1; c < 256; ++c) {
        const std::string character(1, static_cast<char>(c));
        for (const char* behind : {": v", ":v\n", "a:v", "a : v "}) {
            compare_declaration(character + behind);
        }
        for (const char* before : {"a:", "a: ", "a:v", " : v "}) {
            compare_declaration(before + character);
            compare_declaration(before + character + "v");
        }
    }
}

}  // namespace
}  // namespace orvil::test
