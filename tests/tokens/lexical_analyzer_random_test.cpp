#include <gtest/gtest.h>

#include "tokens/lexer_comparison.h"

using namespace orvil::test;

TEST(LexicalAnalyzerRandom, FreshAnalyzersAgreeWithTheNaiveLexer) {
    for_random_texts(20000, [](const std::string& text) { compare_fresh_analyzers(text, no_lead_byte); });
}

TEST(LexicalAnalyzerRandom, OneAnalyzerAgreesWithTheNaiveLexer) {
    for_random_texts(20000, [](const std::string& text) { compare_one_analyzer(text, no_lead_byte); });
}

TEST(LexicalAnalyzerRandom, AStreamForWritingAgreesWithTheNaiveLexer) {
    for_random_texts(5000, [](const std::string& text) { compare_fresh_analyzers(text, no_lead_byte, eTransWrite); });
}
