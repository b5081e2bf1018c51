/// @file
/// CExtString, the text type of the whole library, and its operators.
#pragma once

#include <cstdarg>
#include <cstdio>

#include "orvil/export.h"
#include "orvil/strings/ext_format.h"

class CExtStrArray;

namespace orvil::detail {
class StringAccess;
}

/// A growable, NUL-terminated byte string in the current code page, which owns its buffer.
///
/// An empty string normally has no buffer at all; reading it yields a static empty text, never null. The buffer's
/// capacity is the next multiple of 8 strictly above the length. Assignments and trims always take a fresh buffer;
/// nothing is shared between strings.
///
/// No member throws or writes a message. When memory runs out, members with a bool result return false and operators
/// say nothing. Unless a member says otherwise, a text argument may be null, which means the empty text, and may lie
/// inside the string's own buffer. Any change of a string invalidates pointers into its text.
///
/// Byte strings may hold zero bytes, which end the visible text but not the counted length; copies and searches follow
/// the visible text. Operations take time linear in the texts that they read, GetLength() and the like constant time.
class ORVIL_API CExtString {
public:
    /// The text of a string that has no buffer: a constant empty text.
    static const char* const sm_pszNull;

    // --- construction ------------------------------------------------------------------------------------------------
    // When there is no memory the new string is empty.

    /// An empty string without a buffer.
    CExtString() noexcept : buffer_(nullptr), length_(0), capacity_(0) {}

    /// A copy of the visible text of @p other.
    CExtString(const CExtString& other);

    /// @p n times @p c; empty, yet with a buffer, when @p n is below 1.
    CExtString(char c, int n);

    /// A copy of @p s.
    CExtString(const char* s);

    /// A copy of the first @p n bytes of @p s, or of all of it when it is shorter.
    CExtString(const char* s, int n);

    /// One line of a stream; see CreateFromStream().
    CExtString(FILE* fp, bool bStrip, bool bCRLF);

    virtual ~CExtString();

    // --- reading -----------------------------------------------------------------------------------------------------

    /// @return the text, never null; valid until the string changes
    const char* GetString() const { return buffer_ != nullptr ? buffer_ : sm_pszNull; }
    /// As GetString().
    operator const char*() const { return GetString(); }
    /// @return the counted length in bytes. ConcatCharacters() can make it smaller than the visible text, even
    /// negative.
    int GetLength() const { return length_; }
    /// @return whether the counted length is below 1
    bool IsEmpty() const { return length_ < 1; }
    /// @return the byte at @p i, or 0 when @p i is not between 0 and the length minus 1
    char GetAt(int i) const { return i >= 0 && i < length_ ? buffer_[i] : '\0'; }
    /// As GetAt().
    char operator[](int i) const { return GetAt(i); }

    // --- replacing the text ------------------------------------------------------------------------------------------

    /// Releases the buffer.
    void Empty();
    /// Becomes a copy of the visible text of @p other.
    /// @return false when there is no memory; then the string is empty and its former buffer is abandoned
    bool CopyData(const CExtString& other);
    /// Stores one byte. A zero shortens the visible text, not the length.
    /// @return false when @p i is not between 0 and the length minus 1
    bool SetAt(int i, char c);
    /// Becomes @p n times @p c; empty, yet with a buffer, when @p n is below 1.
    /// @return false when there is no memory; then the string is empty
    bool CreateFromCharacters(char c, int n);
    /// Becomes a copy of @p s.
    /// @return false when there is no memory; then the string is as it was
    bool CreateFromString(const char* s);
    /// Becomes a copy of the first @p n bytes of @p s, or of all of it when it is shorter.
    /// @return false when there is no memory; then the string is as it was
    bool CreateFromStringLen(const char* s, int n);

    /// As CopyData().
    const CExtString& operator=(const CExtString& other);
    /// Becomes the text of one character.
    const CExtString& operator=(char c);
    /// Becomes a copy of @p s; when there is no memory the string is empty and its former buffer is abandoned.
    const CExtString& operator=(const char* s);

    // --- comparing ---------------------------------------------------------------------------------------------------

    /// Compares unsigned bytes. @return -1, 0 or 1
    int Compare(const char* s) const;
    /// Compares lower-case bytes. @return negative, zero or positive
    int CompareNoCase(const char* s) const;
    /// Compares by the current locale, as `strcoll` does. @return negative, zero or positive
    int Collate(const char* s) const;

    // --- parts -------------------------------------------------------------------------------------------------------

    /// @return the first @p n bytes; the whole text when @p n is negative or above the length
    CExtString Left(int n) const;
    /// @return the last @p n bytes; the whole text when @p n is above the length, an empty one when it is negative
    CExtString Right(int n) const;
    /// @return @p n bytes from offset @p start on, or all of them when @p n is negative or too large. A negative start
    /// is 0; one above the length gives an empty text.
    CExtString Mid(int start, int n) const;

    // --- changing the text -------------------------------------------------------------------------------------------

    /// Makes the single-byte letters upper case, by the current locale. @return false for an empty string
    bool ChangeUpper();
    /// Makes the single-byte letters lower case, by the current locale. @return false for an empty string
    bool ChangeLower();
    /// Reverses the bytes (not the characters). @return false for an empty string
    bool Reverse();

    /// Drops leading members of @p set (null: white space by `isspace`). The string takes a fresh buffer even when
    /// nothing is dropped. @return a copy of the result
    CExtString TrimLeft(const char* set = nullptr);
    /// Drops trailing members of @p set, like TrimLeft().
    CExtString TrimRight(const char* set = nullptr);
    /// Drops leading and trailing members of @p set, like TrimLeft().
    CExtString TrimAll(const char* set = nullptr);

    /// Removes the line end at the end of the text and counts the length of what remains.
    /// @param all true: the whole trailing run of CR and LF; false: one LF
    /// @return the number of removed bytes plus 1, or 0 for an empty string
    int Chomp(bool all);

    // --- appending ---------------------------------------------------------------------------------------------------
    // These return false when there is no memory. Then a string that had text is as it was; an empty one stays empty,
    // and if it had a buffer, that is abandoned.

    /// Appends the text of @p other.
    bool ConcatObject(const CExtString& other);
    /// Appends @p s.
    bool ConcatString(const char* s);
    /// Appends the first @p n bytes of @p s, or all of it when it is shorter.
    bool ConcatStringLen(const char* s, int n);
    /// Appends @p n times @p c. When @p n is below 1 and the string is not empty, one @p c is written behind the text
    /// all the same, while @p n is added to the length.
    bool ConcatCharacters(char c, int n);

    /// As ConcatObject().
    const CExtString& operator+=(const CExtString& other);
    /// As ConcatString().
    const CExtString& operator+=(const char* s);
    /// Appends one character.
    const CExtString& operator+=(char c) {
        if (length_ > 0 && length_ < capacity_ - 1) {
            buffer_[length_++] = c;
            buffer_[length_] = '\0';
        } else {
            ConcatCharacters(c, 1);
        }
        return *this;
    }

    // --- searching ---------------------------------------------------------------------------------------------------
    // These look at the visible text and return an index from 0, or -1.

    /// @return where @p c first stands; for the zero character that is the visible length
    int Find(char c) const;
    /// @return where @p s first stands; -1 when it is null
    int Find(const char* s) const;
    /// @return where @p c last stands; for the zero character that is the visible length
    int ReverseFind(char c) const;
    /// @return where the first single-byte character out of @p set stands. Double-byte characters never match.
    int FindOneOf(const char* set) const;

    // --- numbers -----------------------------------------------------------------------------------------------------

    /// @return whether @p s is blanks, an optional sign, then digits without a superfluous leading zero; null is not
    static bool IsIntegerFormat(const char* s);
    /// @return whether @p s is blanks, an optional "0x" or "0X", then hexadecimal digits or nothing; null is not
    static bool IsHexaDecimalFormat(const char* s);
    /// @return whether @p s is blanks, an optional sign, then either a point and digits, or a digit, digits and any
    /// number of points, and an exponent if need be, which may lack its digits ("1e"); null is not
    static bool IsFloatingPointFormat(const char* s);
    /// Reads a decimal number of 32 bits; larger ones give the nearest value.
    /// @return false, @p value untouched, unless IsIntegerFormat() accepts the text
    bool ParseInteger(int& value) const;
    /// Reads a hexadecimal number, of which the low 32 bits count; 0 when there are no digits.
    /// @return false, @p value untouched, unless IsHexaDecimalFormat() accepts the text
    bool ParseHexaDecimal(unsigned long& value) const;
    /// Reads a floating-point number as `strtod` does, as much of the text as that takes.
    /// @return false, @p value untouched, unless IsFloatingPointFormat() accepts the text
    bool ParseFloatingPoint(double& value) const;

    // --- formatting --------------------------------------------------------------------------------------------------

    /// Becomes the text that a printf-style format makes. The arguments may lie inside the string's own text.
    /// @return the new length, in which zero bytes made by "%c" count; 0 when there is no memory or no format; -1, with
    /// the length -1 as well, when the C runtime cannot format the arguments
    int FormatV(const char* format, va_list args);
    /// As FormatV().
    int Format(const char* format, ...) ORVIL_PRINTF(2, 3);

    /// Becomes a template with its placeholders replaced: "%1%" stands for the first value, "%2%" for the second, and
    /// so on. A placeholder without a value is replaced by nothing; a percent sign that begins no placeholder, and
    /// "%0%", stand for themselves. Values are not searched for placeholders.
    /// @param format the template
    /// @param first the kind of the first value, EFT_END for no values; then follow the value itself (or a format text
    /// and the value), the kind of the next value as an `int`, and so on, up to an EFT_END
    /// @return the new length
    int ExtFormat(const char* format, EFT first, ...);
    /// As ExtFormat() with its list of arguments.
    int ExtFormatV(const char* format, EFT first, va_list args);
    /// As ExtFormat(), with texts as values.
    int ExtFormat(const char* format, const CExtStrArray& values);

    // --- reading lines -----------------------------------------------------------------------------------------------

    /// Becomes the next line of a stream. A line ends with LF, or with a run of CR that one LF may close. A last line
    /// without an end is lost when it is shorter than 32 bytes.
    /// @param fp the stream, open for reading; the caller's. At its end already, it yields an empty text and true
    /// @param bStrip true leaves the line's end out; false keeps it in the form that @p bCRLF says
    /// @param bCRLF the kept end: true CR LF, false LF
    /// @return false when a last line was lost, the stream held nothing more, or there is no memory
    bool CreateFromStream(FILE* fp, bool bStrip, bool bCRLF);
    /// Becomes the next header line of a stream, as in mail headers: lines that begin with white space continue the one
    /// before and are joined to it by one blank. The blank line behind the headers gives an empty text (or its end).
    /// @param fp the stream, open for reading; the caller's
    /// @param bKeepEnd whether the text keeps its line end, as CR LF
    /// @return false when no line could be read
    bool ReadRfcHeaderLine(FILE* fp, bool bKeepEnd);

    // --- regular expressions -----------------------------------------------------------------------------------------
    // A pattern is a notation text such as "/ab+c/i", or a handle of regex_compile() cast to const char*.

    /// Searches the text. @return the number of captured texts plus 1, or 0 when nothing matches or the pattern is bad
    int RegexMatch(const char* pattern) const;
    /// As above; @p parts receives the whole match and the captured texts. One without memory is empty.
    int RegexMatch(const char* pattern, CExtStrArray& parts) const;
    /// @return a copy in which every match is replaced; with groups in the pattern the groups are replaced instead, and
    /// the text behind the last one is dropped. The replacement is taken literally.
    CExtString RegexReplace(const char* pattern, const char* replacement) const;
    /// @return an unchanged copy: an array of replacements is not applied
    CExtString RegexReplace(const char* pattern, const CExtStrArray& replacements) const;
    /// @return the texts between the matches. Without memory they end at the first that could not be stored.
    CExtStrArray RegexSplit(const char* pattern) const;

protected:
    // --- the buffer policy -------------------------------------------------------------------------------------------

    /// @return the length of @p s; 0 when it is null. Lengths that an int cannot hold give INT_MAX, for which no buffer
    /// can be had.
    static int SafeStrlen(const char* s);
    /// @return the capacity that a text of @p len bytes needs when @p cap does not suffice, else 0. Negative when an
    /// int cannot hold it: AllocBuffer() and ReallocBuffer() refuse it.
    static int CalcNewBufferSize(int len, int cap);
    /// @return a zero-filled buffer of @p cap + 1 bytes, or null. Nothing is booked.
    static char* AllocBuffer(int cap);
    /// @return the buffer with room for @p cap + 1 bytes, or null, when @p buffer is as it was. Nothing is booked.
    static char* ReallocBuffer(char* buffer, int cap);
    /// Releases a buffer; null is ignored. Nothing is booked. @return true
    static bool FreeBuffer(char* buffer);

    /// Forgets the buffer without releasing it. @return true
    bool Init();
    /// Takes a new buffer, forgetting the present one, and fills it with @p n times @p c; empty when @p n is below 1.
    /// @return false when there is no memory; then the string is as it was
    bool FillCharacter(char c, int n);
    /// Becomes a copy of @p s in a fresh buffer. @return false when there is no memory; then the string is as it was
    bool DuplicateString(const char* s);
    /// Becomes a copy of the first @p n bytes of @p s in a fresh buffer, like DuplicateString().
    bool DuplicateStringLen(const char* s, int n);

    /// As ExtFormat() with texts as values.
    int _ExtFormatArray(const char* format, const CExtStrArray& values);

    /// @return @p pattern itself when it is a handle, else the handle of the compiled notation, or null
    static void* _MakeRegexV(const char* pattern);
    /// Searches the text. @param parts receives the whole match and the captured texts, unless it is null
    /// @return the number of captured texts plus 1, 0 when nothing matches, or -1 when the pattern is bad
    int _RegexMatch(const char* pattern, CExtStrArray* parts) const;

    char* buffer_;  ///< the text, NUL-terminated, or null
    int length_;    ///< bytes before the terminator
    int capacity_;  ///< bytes of the buffer, the terminator's not counted

private:
    friend class orvil::detail::StringAccess;

    bool TakeFresh(const char* s, int n);
    bool GrowFor(long long length);
    bool AppendKnown(const char* s, int n);
    bool StartWith(bool built);
    void Install(char* buffer, int length, int capacity);
};

/// The left text with the right one behind it; one of them may be missing when there is no memory.
///@{
ORVIL_API CExtString operator+(const CExtString& left, const CExtString& right);
ORVIL_API CExtString operator+(const CExtString& left, char right);
ORVIL_API CExtString operator+(const CExtString& left, const char* right);
ORVIL_API CExtString operator+(char left, const CExtString& right);
ORVIL_API CExtString operator+(const char* left, const CExtString& right);
///@}

/// Comparisons of the visible texts as unsigned bytes, in the order of CExtString::Compare(). A null text is empty.
///@{
ORVIL_API bool operator==(const CExtString& left, const CExtString& right);
ORVIL_API bool operator==(const CExtString& left, const char* right);
ORVIL_API bool operator==(const char* left, const CExtString& right);
ORVIL_API bool operator!=(const CExtString& left, const CExtString& right);
ORVIL_API bool operator!=(const CExtString& left, const char* right);
ORVIL_API bool operator!=(const char* left, const CExtString& right);
ORVIL_API bool operator<(const CExtString& left, const CExtString& right);
ORVIL_API bool operator<(const CExtString& left, const char* right);
ORVIL_API bool operator<(const char* left, const CExtString& right);
ORVIL_API bool operator>(const CExtString& left, const CExtString& right);
ORVIL_API bool operator>(const CExtString& left, const char* right);
ORVIL_API bool operator>(const char* left, const CExtString& right);
ORVIL_API bool operator<=(const CExtString& left, const CExtString& right);
ORVIL_API bool operator<=(const CExtString& left, const char* right);
ORVIL_API bool operator<=(const char* left, const CExtString& right);
ORVIL_API bool operator>=(const CExtString& left, const CExtString& right);
ORVIL_API bool operator>=(const CExtString& left, const char* right);
ORVIL_API bool operator>=(const char* left, const CExtString& right);
///@}
