/// @file
/// One lexeme of a token-block file: its text, its kind and where it began.
///
/// A token owns its text. Texts are in the process's code page. One object belongs to one thread. No operation throws.
///
/// @code
/// CLexToken token;
/// token.Create("0x1F", 0, 0, true, eTokenNone);
/// unsigned int value = 0;
/// if (token.IsHexaDecimalToken() && token.ParseHexaDecimal(value)) {
///     std::printf("%u\n", value);
/// }
/// @endcode
#pragma once

#include "orvil/export.h"
#include "orvil/strings/ext_string.h"

namespace orvil::detail {
struct TokenAccess;
}

/// What a token is. Any 32-bit value may be stored; those without a name here are treated as no kind.
enum ETokenKind : int {
    eTokenNone = 0,           ///< not decided
    eTokenEmpty = 1,          ///< no text
    eTokenMetaChar = 2,       ///< one meta character
    eTokenDecimal = 3,        ///< an integer
    eTokenHexaDecimal = 4,    ///< hexadecimal digits, with or without 0x
    eTokenDouble = 5,         ///< a number with a point or an exponent
    eTokenString = 6,         ///< quoted text, held without quotes and with its escapes resolved
    eTokenSymbol = 7,         ///< a name
    eTokenComment = 8,        ///< a block comment with its delimiters
    eTokenSingleComment = 9,  ///< a comment up to the end of its line, with its slashes
    eTokenPreprocessor = 10,  ///< a line that begins with a number sign
};

/// The 24 meta characters, each with its own code.
enum EMetaCharacter : int {
    eMetaNul = 0,
    eMetaTab = 9,
    eMetaLineFeed = 10,
    eMetaCarriageReturn = 13,
    eMetaSpace = 32,
    eMetaDoubleQuote = 34,
    eMetaNumberSign = 35,
    eMetaApostrophe = 39,
    eMetaLeftParenthesis = 40,
    eMetaRightParenthesis = 41,
    eMetaAsterisk = 42,
    eMetaPlus = 43,
    eMetaComma = 44,
    eMetaMinus = 45,
    eMetaPoint = 46,
    eMetaSlash = 47,
    eMetaColon = 58,
    eMetaSemicolon = 59,
    eMetaEqual = 61,
    eMetaLeftBracket = 91,
    eMetaBackslash = 92,
    eMetaRightBracket = 93,
    eMetaLeftBrace = 123,
    eMetaRightBrace = 125,
};

/// A lexeme with its kind and position. Every node of a token-block tree is one.
class ORVIL_API CLexToken {
public:
    /// A reset token: no text, kind none, line and column -1.
    CLexToken();

    /// A deep copy.
    CLexToken(const CLexToken& source);

    /// As CopyData().
    CLexToken& operator=(const CLexToken& source);

    /// @return a new copy of this token alone, also for objects of derived classes. The caller deletes it. Null when
    /// there is no memory.
    virtual CLexToken* GetCopyInstance();

    /// Appends "Token[*]-kind <text> Pos(line:column) " to @p out.
    /// @param out receives the text behind what it holds
    /// @param indent the depth in a tree, which a token alone does not show
    virtual void MakeDumpString(CExtString& out, int indent) const;

    /// Releases the text.
    virtual ~CLexToken();

    /// Copies position, kind and text.
    /// @return true; false when there is no memory for the text
    bool CopyData(const CLexToken& source);

    /// Becomes a token of the given text and position.
    /// @param text the lexeme, without quotes and with its escapes resolved; null is as empty
    /// @param line,column where it began
    /// @param analyze true: the kind follows from the text, where a text of one meta character is a meta-character
    /// token. False: the kind is @p kind.
    /// @param kind with @p analyze false, the kind; eTokenNone decides by the text all the same, but a lone meta
    /// character is then classified like any other text. Ignored with @p analyze true.
    /// @return what AnalyzeString() gives; false when there is no memory, and the token is reset then
    bool Create(const char* text, int line, int column, bool analyze, ETokenKind kind);

    /// Becomes the token of one meta character.
    /// @return false, and nothing changes, when @p c is none
    bool Create(EMetaCharacter c, int line, int column);

    /// Resets the token: no text, kind none, line and column -1.
    /// @return true
    bool Initialize();

    /// Gives the position at which the token was created.
    void QuerySourcePosition(int& line, int& column) const;

    /// @return whether the token was created at exactly this position
    bool CompareFilePosition(int line, int column) const;

    /// @return the text. It lives until the token changes.
    const CExtString& GetPureString() const;

    /// @return the text; never null. It lives until the token changes.
    const char* GetString() const;

    /// @return the kind
    ETokenKind GetTokenKind() const;

    /// @return whether the token is of the kind eTokenEmpty
    bool IsEmptyToken() const;
    /// @return whether the token is of the kind eTokenMetaChar
    bool IsMetaCharToken() const;
    /// @return whether the token is of the kind eTokenDecimal
    bool IsDecimalToken() const;
    /// @return whether the token is of the kind eTokenHexaDecimal
    bool IsHexaDecimalToken() const;
    /// @return whether the token is of the kind eTokenDouble
    bool IsDoubleToken() const;
    /// @return whether the token is of the kind eTokenString
    bool IsStringToken() const;
    /// @return whether the token is of the kind eTokenSymbol
    bool IsSymbolToken() const;
    /// @return whether the token is of the kind eTokenComment
    bool IsCommentToken() const;
    /// @return whether the token is of the kind eTokenSingleComment
    bool IsSingleCommentToken() const;
    /// @return whether the token is of the kind eTokenPreprocessor
    bool IsPreprocessorToken() const;

    /// Gives the character of a meta-character token, 0 for one without text.
    /// @return false, and @p c stays, for a token of another kind
    bool ParseMetaChar(char& c) const;

    /// Gives the value of a decimal token. Values beyond 32 bits become the nearest that fits.
    /// @return false, and @p value stays, for a token of another kind or a text that is no integer
    bool ParseDecimal(int& value) const;

    /// Gives the value of a hexadecimal token: the low 32 bits, 0 when it has no digit.
    /// @return false, and @p value stays, for a token of another kind or a text that is not hexadecimal
    bool ParseHexaDecimal(unsigned int& value) const;

    /// Gives the value of a double token as the C runtime's strtod() reads it; the decimal point follows the C locale.
    /// @return false, and @p value stays, for a token of another kind or a text that is no number
    bool ParseDouble(double& value) const;

    /// Copies the text of a string token. @return false, and @p text stays, for a token of another kind
    bool ParseString(CExtString& text) const;

    /// Copies the text of a symbol token. @return false, and @p text stays, for a token of another kind
    bool ParseSymbol(CExtString& text) const;

    /// Copies the text of a comment token. @return false, and @p text stays, for a token of another kind
    bool ParseComment(CExtString& text) const;

    /// Copies the text of a single-line comment token. @return false, and @p text stays, for a token of another kind
    bool ParseSingleComment(CExtString& text) const;

    /// Splits the text of a preprocessor token into a name of at least two characters and the rest of the line.
    /// @param name receives the name without the number sign
    /// @param value receives what follows the blanks behind the name; empty when there is nothing
    /// @return whether the text is of that form; when it is not, both are empty. For a token of another kind or without
    /// text false, and both stay.
    bool ParsePreprocessor(CExtString& name, CExtString& value) const;

    /// @param kind the kind asked for
    /// @param text the text asked for, with regard to case; null or empty asks for the kind alone
    /// @return whether the token is of that kind and text
    bool Compare(ETokenKind kind, const char* text) const;

    /// @return the kind's name: "Empty", "<<MetaChar>>", "Decimal", "HexaDecimal", "Double", "String", "Symbol",
    /// "Comment", "SingleComment" or "Preprocesser", and "Error!!" for any other kind
    const char* GetTokenKindString() const;

    /// @return "Pos(line:column) ", with the trailing blank
    CExtString GetSourcePositionString() const;

    /// Makes the form in which the token is written to a file: strings in double quotes and with escapes, everything
    /// else as its text. A token at line and column -999 is a header marker, "// text : ". Linear in the text's length.
    /// @param out receives the form; empty on failure
    /// @return false for a token of no kind, for a meta-character token without a written form, and when there is no
    /// memory
    bool CreateOutputString(CExtString& out) const;

    /// @return the meta character that @p c is, or -1
    static EMetaCharacter IsMetaCharacter(char c);

    /// @return how a meta character is written inside quotes: TAB, LF, CR, both quotes and the backslash by an escape,
    /// the others as themselves. Null for NUL and for a value that is no meta character.
    static const char* TransMetaCharToString(EMetaCharacter c);

    /// @return whether the text is an integer; as CExtString::IsIntegerFormat()
    static bool AnalyzeIntegerFormat(const char* text);

    /// @return whether the text is hexadecimal: blanks, an optional 0x and hexadecimal digits only, or none. False for
    /// null.
    static bool AnalyzeHexaDecimalFormat(const char* text);

    /// @return whether the text is a floating-point number; as CExtString::IsFloatingPointFormat()
    static bool AnalyzeDoubleFormat(const char* text);

protected:
    /// Decides the kind of a token of kind none by its text: decimal, else hexadecimal, else double, else symbol. So a
    /// word of the letters a to f only, and 1e5, are hexadecimal. A kind that is set already is only checked and kept.
    /// A token without text becomes empty, whatever it was.
    /// @return false when the text does not have the form that a decimal, hexadecimal or double token must have
    bool AnalyzeString();

private:
    friend struct orvil::detail::TokenAccess;

    int line_ = -1;
    int column_ = -1;
    ETokenKind kind_ = eTokenNone;
    CExtString text_;
};
