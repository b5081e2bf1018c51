// What is written for a token is read back as the same token: strings whatever they hold, other texts when they stood
// alone in a file.
#include <cstdint>
#include <string>

#include "../tests/tokens/memory_stream.h"
#include "orvil/tokens/lexical_analyzer.h"
#include "support/fuzz_check.h"

using orvil::test::MemoryStream;

namespace {

void require_read_back(const CLexToken& token, const char* behind) {
    CExtString written;
    FUZZ_CHECK(token.CreateOutputString(written));
    MemoryStream stream(std::string(written.GetString()) + behind);
    CLexToken read;
    FUZZ_CHECK(CLexicalAnalyzer(stream).DoAnalyze(read));
    FUZZ_CHECK(read.Compare(token.GetTokenKind(), nullptr));
    FUZZ_CHECK(std::string(read.GetString()) == token.GetString());
}

// Texts that hold none of what an escape or a quote alone can bring into a lexeme.
bool is_plain(const CLexToken& token) {
    return std::string(token.GetString()).find_first_of("\t\n\r \"#'()*,/:;=[\\]{}") == std::string::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) {
        return 0;
    }
    const std::string text(reinterpret_cast<const char*>(data), size);
    CLexToken token;
    FUZZ_CHECK(token.Create(text.c_str(), 0, 0, false, eTokenString));
    if (!token.IsEmptyToken()) {
        require_read_back(token, "");
    }
    MemoryStream stream(text);
    while (CLexicalAnalyzer(stream).DoAnalyze(token) && token.GetTokenKind() != eTokenNone) {
        const bool number_or_name =
            token.IsDecimalToken() || token.IsHexaDecimalToken() || token.IsDoubleToken() || token.IsSymbolToken();
        if ((number_or_name && is_plain(token)) || token.IsStringToken()) {
            require_read_back(token, ";");
        }
    }
    return 0;
}
