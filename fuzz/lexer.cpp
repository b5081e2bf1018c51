// The analyser and the parser's scanner agree with the naive lexer on every text. The first byte chooses the direction.
#include <cstdint>
#include <string>

#include "../tests/tokens/memory_stream.h"
#include "../tests/tokens/naive_lexer.h"
#include "orvil/tokens/lexical_analyzer.h"
#include "support/fuzz_check.h"
#include "tokens/token_scanner.h"

using orvil::detail::TokenScanner;
using orvil::test::MemoryStream;
using orvil::test::NaiveLexer;
using orvil::test::NaiveStream;
using orvil::test::NaiveToken;

namespace {

void require_same(const CLexToken& token, const NaiveToken& naive) {
    FUZZ_CHECK(token.GetTokenKind() == naive.kind);
    FUZZ_CHECK(naive.text == token.GetString());
    FUZZ_CHECK(token.CompareFilePosition(naive.line, naive.column));
}

void require_same(const CStreamMemFile& stream, const NaiveStream& naive) {
    char first = '\0';
    char second = '\0';
    const auto left = static_cast<int>(naive.bytes.size() - naive.at);
    FUZZ_CHECK(stream.QueryNextData(first, second, left - 1) || naive.bytes.empty());
    FUZZ_CHECK(!stream.QueryNextData(first, second, left));
    FUZZ_CHECK(stream.QueryCurrentLine() == naive.line && stream.QueryCurrentColm() == naive.column);
    FUZZ_CHECK(naive.error == stream.GetErrorInformation());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 2) {
        return 0;
    }
    const std::string text(reinterpret_cast<const char*>(data + 1), size - 1);
    const bool reads = data[0] % 8 != 0;
    MemoryStream stream(text, reads ? eTransRead : eTransWrite);
    MemoryStream scanned(text, reads ? eTransRead : eTransWrite);
    NaiveStream naive(text, orvil::test::no_lead_byte, reads);
    TokenScanner scanner(scanned);
    for (std::size_t before = naive.at + 1; naive.at != before;) {
        before = naive.at;
        NaiveToken expected;
        NaiveLexer lexer(naive);
        const bool result = lexer.analyze(expected);
        CLexToken token;
        CLexicalAnalyzer analyzer(stream);
        FUZZ_CHECK(analyzer.DoAnalyze(token) == result);
        require_same(token, expected);
        FUZZ_CHECK(lexer.information == analyzer.GetInformation().GetString());
        require_same(stream, naive);
        FUZZ_CHECK(scanner.next(token) == result);
        require_same(token, expected);
        FUZZ_CHECK(lexer.information == scanner.information().GetString());
        require_same(scanned, naive);
    }
    return 0;
}
