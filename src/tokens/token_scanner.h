// The parser's way to its tokens.
#pragma once

#include "tokens/lexeme_scanner.h"
#include "tokens/token_access.h"

namespace orvil::detail {

// Yields the tokens of a stream one after the other. Result, token, messages and stream are each time as a fresh
// CLexicalAnalyzer would leave them, but nothing is made and released for a token other than its text.
class TokenScanner {
public:
    // `keep_comments` false leaves comment tokens of both kinds without their text; their kind stays.
    explicit TokenScanner(CStreamMemFile& stream, bool keep_comments = true)
        : stream_(stream), keep_comments_(keep_comments) {}

    TokenScanner(const TokenScanner&) = delete;
    TokenScanner& operator=(const TokenScanner&) = delete;

    // Reads the next token. At the end of the stream true, with a token of no kind; on failure false, with the token
    // reset and information() saying why, unless the file has ended inside the token. `room` is null, or where a short
    // text may stand as long as the token lives.
    bool next(CLexToken& token, char* room = nullptr);

    const CExtString& information() const { return information_; }

    // Whether a token was ever lost because there was no memory for it.
    bool out_of_memory() { return out_of_memory_ || scanner_.lexeme().failed(); }

private:
    CStreamMemFile& stream_;
    CExtString information_;
    char binder_ = '\0';
    LexemeScanner scanner_{stream_, information_, binder_};
    bool keep_comments_;
    bool out_of_memory_ = false;
};

}  // namespace orvil::detail
