// The parts of an analyser that only the library and the tests of its internals reach.
#pragma once

#include <optional>

#include "orvil/tokens/lexical_analyzer.h"

namespace orvil::detail {

class LexemeScanner;

struct AnalyzerAccess {
    static const CLexToken& current_token(const CLexicalAnalyzer& analyzer) { return analyzer.current_token_; }
    static const CExtString& lexeme(const CLexicalAnalyzer& analyzer) { return analyzer.lexeme_; }

    static constexpr bool has_promised_layout();

    // Goes on with the characters collected so far and makes the current token of what the scan adds to them.
    static bool read_on(CLexicalAnalyzer& analyzer, std::optional<ETokenKind> (LexemeScanner::*scan)());
};

}  // namespace orvil::detail
