// Runs the library's analyser and the naive one over the same bytes and compares everything that can be seen.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <random>
#include <string>

#include "orvil/tokens/lexical_analyzer.h"
#include "tokens/memory_stream.h"
#include "tokens/naive_lexer.h"

namespace orvil::test {

inline void PrintTo(const NaiveToken& token, std::ostream* out) {
    *out << token.kind << " at " << token.line << ':' << token.column << " \"" << token.text << '"';
}

inline NaiveToken seen(const CLexToken& token) {
    NaiveToken result{static_cast<int>(token.GetTokenKind()), token.GetString(), 0, 0};
    token.QuerySourcePosition(result.line, result.column);
    EXPECT_EQ(token.GetPureString().GetLength(), static_cast<int>(result.text.size()));
    return result;
}

inline void expect_same_stream(const MemoryStream& stream, const NaiveStream& naive) {
    EXPECT_EQ(stream.position(static_cast<int>(naive.bytes.size())), static_cast<int>(naive.at));
    EXPECT_EQ(stream.QueryCurrentLine(), naive.line);
    EXPECT_EQ(stream.QueryCurrentColm(), naive.column);
    EXPECT_EQ(std::string(stream.GetErrorInformation()), naive.error);
    EXPECT_EQ(stream.IsEof(), naive.is_eof());
}

// `next(token, information)` produces the library's next token.
template <typename Next, typename NaiveNext>
void compare_tokens(MemoryStream& stream, NaiveStream& naive, Next next, NaiveNext naive_next) {
    // Each call consumes something or is the last.
    for (std::size_t calls = 0; calls <= naive.bytes.size(); ++calls) {
        const std::size_t before = naive.at;
        CLexToken token;
        CExtString information;
        NaiveToken naive_token;
        std::string naive_information;
        const bool naive_result = naive_next(naive_token, naive_information);
        EXPECT_EQ(next(token, information), naive_result);
        EXPECT_EQ(seen(token), naive_token);
        EXPECT_EQ(std::string(information.GetString()), naive_information);
        expect_same_stream(stream, naive);
        if (testing::Test::HasFailure() || naive.at == before) {
            return;
        }
    }
}

// The naive side of a comparison: one lexer for all tokens, or a fresh one for each.
inline auto one_naive_lexer(NaiveLexer& lexer) {
    return [&lexer](NaiveToken& token, std::string& information) {
        const bool result = lexer.analyze(token);
        information = lexer.information;
        return result;
    };
}
inline auto fresh_naive_lexers(NaiveStream& naive) {
    return [&naive](NaiveToken& token, std::string& information) {
        NaiveLexer lexer(naive);
        return one_naive_lexer(lexer)(token, information);
    };
}

// A fresh analyser for each token.
inline void compare_fresh_analyzers(const std::string& bytes, LeadPredicate is_lead,
                                    ETransDirection direction = eTransRead) {
    MemoryStream stream(bytes, direction);
    NaiveStream naive(bytes, is_lead, direction == eTransRead);
    compare_tokens(
        stream, naive,
        [&stream](CLexToken& token, CExtString& information) {
            CLexicalAnalyzer analyzer(stream);
            const bool result = analyzer.DoAnalyze(token);
            information = analyzer.GetInformation();
            return result;
        },
        fresh_naive_lexers(naive));
}

// One analyser for all tokens: after a failure inside a string it is still inside it.
inline void compare_one_analyzer(const std::string& bytes, LeadPredicate is_lead) {
    MemoryStream stream(bytes);
    NaiveStream naive(bytes, is_lead);
    CLexicalAnalyzer analyzer(stream);
    NaiveLexer lexer(naive);
    compare_tokens(
        stream, naive,
        [&analyzer](CLexToken& token, CExtString& information) {
            const bool result = analyzer.DoAnalyze(token);
            information = analyzer.GetInformation();
            return result;
        },
        one_naive_lexer(lexer));
}

// Texts made of the pieces that matter to the analysis.
inline std::string random_text(std::mt19937& random) {
    static const std::string pieces[] = {"a",
                                         "Zoo",
                                         "f",
                                         "Cafe",
                                         "0",
                                         "1",
                                         "42",
                                         "007",
                                         "0x",
                                         "1e5",
                                         "1.5",
                                         ".",
                                         "+",
                                         "-",
                                         " ",
                                         "  ",
                                         "\t",
                                         "\n",
                                         "\r",
                                         "\r\n",
                                         "\"",
                                         "'",
                                         "\\",
                                         "\\n",
                                         "\\t",
                                         "\\\"",
                                         "\\'",
                                         "\\\\",
                                         "\\q",
                                         "/",
                                         "//",
                                         "/*",
                                         "*/",
                                         "*",
                                         "#",
                                         "=",
                                         ";",
                                         "{",
                                         "}",
                                         "(",
                                         ",",
                                         ":",
                                         "[",
                                         "x-1",
                                         "**/",
                                         "/*/",
                                         "//\n",
                                         "\x81",
                                         "\x83\x5C",
                                         "\x82\xA0",
                                         "\xE0\n",
                                         "\xE0\r",
                                         "\xFF",
                                         "\x81*",
                                         "\x81/",
                                         "\x81\"",
                                         "\x7F",
                                         "\x01",
                                         std::string(1, '\0'),
                                         std::string("\x81\0", 2)};
    std::uniform_int_distribution<std::size_t> pick(0, std::size(pieces) - 1);
    std::uniform_int_distribution<std::size_t> ascii(0, std::size(pieces) - 14);
    std::uniform_int_distribution<int> count(1, 40);
    const bool plain = random() % 2 == 0;
    std::string text;
    for (int i = count(random); i > 0; --i) {
        text += pieces[plain ? ascii(random) : pick(random)];
    }
    return text;
}

// The seed of this run; set ORVIL_TEST_SEED to repeat one.
inline unsigned test_seed() {
    const char* wanted = std::getenv("ORVIL_TEST_SEED");
    const unsigned seed = wanted != nullptr ? static_cast<unsigned>(std::strtoul(wanted, nullptr, 10))
                                            : static_cast<unsigned>(std::random_device{}());
    std::printf("seed %u\n", seed);
    return seed;
}

// Calls compare(text) for many random texts and tells the first that differs.
template <typename Compare>
void for_random_texts(int count, Compare compare) {
    std::mt19937 random(test_seed());
    for (int i = 0; i < count; ++i) {
        const std::string text = random_text(random);
        compare(text);
        if (testing::Test::HasFailure()) {
            ADD_FAILURE() << "for the text " << testing::PrintToString(text);
            return;
        }
    }
}

}  // namespace orvil::test
