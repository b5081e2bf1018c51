/// @file
/// Cuts the text of a token-block file into tokens, one a call.
///
/// The analyser refers to a stream that its caller owns and has opened for reading; it must not outlive that stream. It
/// resolves escapes, quoted strings, both forms of comments and preprocessor lines, and reports failures as texts. One
/// object belongs to one thread. No operation throws.
///
/// @code
/// CStreamMemFile file(eTransRead, 4096);
/// file.OpenFile("view.txt");
/// CLexToken token;
/// for (bool ok = true; ok && !file.IsEof();) {
///     CLexicalAnalyzer analyzer(file);
///     ok = analyzer.DoAnalyze(token);
///     std::puts(ok ? token.GetString() : analyzer.GetInformation().GetString());
/// }
/// @endcode
#pragma once

#include "orvil/export.h"
#include "orvil/strings/ext_string.h"
#include "orvil/tokens/lex_token.h"
#include "orvil/tokens/stream_mem_file.h"

namespace orvil::detail {
struct AnalyzerAccess;
}

/// The role of a character in the analysis.
enum ELexConditionBehavior : int {
    eLexNone = 0,       ///< NUL and bytes above 127 that begin no double-byte character
    eLexOrdinary = 1,   ///< part of a lexeme
    eLexSeparator = 2,  ///< TAB, LF, CR and space: ends a lexeme
    eLexBinder = 3,     ///< a double quote or an apostrophe
    eLexDelimiter = 4,  ///< ends a lexeme and is one itself
};

/// Produces the tokens of a stream.
class ORVIL_API CLexicalAnalyzer {
public:
    /// @param stream is only referred to, and must live as long as the analyser and its copies
    explicit CLexicalAnalyzer(CStreamMemFile& stream);

    /// A copy that works on the same stream.
    CLexicalAnalyzer(const CLexicalAnalyzer& source);

    /// Becomes a copy that works on the source's stream.
    CLexicalAnalyzer& operator=(const CLexicalAnalyzer& source);

    virtual ~CLexicalAnalyzer();

    /// Consumes the next token. Linear in the number of consumed bytes.
    ///
    /// A token's position is the stream's line and column when the call begins, before leading blanks. A lexeme, also
    /// an unterminated string, that is still open at the end of the file is dropped. Comments and number signs are
    /// taken up inside a lexeme too, which becomes the start of their text.
    ///
    /// After a failure inside a string the object still believes itself inside it: use a fresh one.
    /// @param token receives the token; reset on failure and at the end of the stream
    /// @return true, at the end of the stream with a token of no kind; false when the file ends before a token is
    /// complete (without a message) or the text is faulty, and GetInformation() says why. The stream then stands at the
    /// fault, which is not consumed: a caller that repeats the call until the end of the stream would never end.
    bool DoAnalyze(CLexToken& token);

    /// @return the messages of the last DoAnalyze(), each with a line feed at its end: the stream's failures, "FilePos(
    /// line,column) : EscapeSequence<\x> is not format." and "... : Stream x is not parsed."
    const CExtString& GetInformation() const;

protected:
    /// Believes itself inside a string that was opened by this quote.
    void SetBinderCharacter(char c);

    /// Believes itself outside strings.
    void ResetBinderCharacter();

    /// @param character the text of one character
    /// @return its role; ordinary for an empty text and for one of several bytes. Inside a string everything but quotes
    /// and the backslash is ordinary.
    ELexConditionBehavior CheckConditionBehavior(const char* character) const;

    /// Formats as CExtString::Format() does and appends the result to the messages.
    /// @return false only when @p format is null
    bool AddInfo(const char* format, ...) ORVIL_PRINTF(2, 3);

    /// Makes the current token from the characters collected so far, at the token's position.
    /// @param kind eTokenNone decides by the text, where a lone meta character is a meta-character token; any other
    /// kind is set as it is
    /// @return what CLexToken::Create() gives
    bool CreateCurrentToken(ETokenKind kind);

    /// Tells whether a comment begins at the stream's position: a slash and then a slash or an asterisk.
    /// @return false, and @p isComment is false too, when the stream refuses the current character
    bool IsCommentStart(bool& isComment) const;

    /// Consumes a comment and makes the current token of it. When the stream refuses a character, or no comment begins
    /// here, the stream is put back to where it was.
    /// @return whether a token was made; a refusal is told by GetInformation()
    bool AblateComment();

    /// Consumes a number sign and the rest of its line and makes the current token of it; on a refusal as
    /// AblateComment().
    /// @return whether a token was made
    bool AblatePreprocess();

    /// Consumes a backslash and what follows it, and collects the character that they stand for.
    /// @return false for an unknown escape, of which the backslash alone is consumed then, and when the stream ends
    bool ParseEscapeSequence();

    /// @param sequence the text behind the backslash
    /// @return the character meant, 0 when there is no such escape
    char SearchEscapeSequenceTable(const char* sequence) const;

private:
    friend struct orvil::detail::AnalyzerAccess;

    int token_line_ = -1;
    int token_column_ = -1;
    CStreamMemFile* stream_;
    CLexToken current_token_;
    CExtString lexeme_;
    char binder_ = 0;
    CExtString information_;
};
