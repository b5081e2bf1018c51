/// @file
/// The kinds of values that CExtString::ExtFormat() takes in its argument list.
#pragma once

#include <cstdarg>

#include "orvil/export.h"

class CExtString;

/// A value's kind, which stands in front of the value in the argument list. The kinds from EFT_FORMATTED_CHAR on are
/// followed by a printf-style format text and then the value. Anything above 20 ends the list like EFT_END.
///
/// Small integers travel as `int`, `unsigned` or `long`, whichever the C++ rules make of them.
enum EFT {
    EFT_END = 0,     ///< the end of the list
    EFT_CHAR,        ///< char, "%c"
    EFT_UCHAR,       ///< unsigned char, "%c"
    EFT_SHORT,       ///< short, "%d"
    EFT_USHORT,      ///< unsigned short, "%u"
    EFT_LONG,        ///< long, of which the low 32 bits count, "%ld"
    EFT_ULONG,       ///< unsigned long, of which the low 32 bits count, "%lu"
    EFT_FLOAT_BITS,  ///< the four bytes of a float, as an unsigned integer; "%f"
    EFT_DOUBLE,      ///< double, "%lf"
    EFT_TEXT,        ///< const char*, "%s"; null gives an empty text
    EFT_POINTER,     ///< const void*, "%p"

    EFT_FORMATTED_CHAR,        ///< a format, then a char
    EFT_FORMATTED_UCHAR,       ///< a format, then an unsigned char
    EFT_FORMATTED_SHORT,       ///< a format, then a short
    EFT_FORMATTED_USHORT,      ///< a format, then an unsigned short
    EFT_FORMATTED_LONG,        ///< a format with the modifier l, then a long of 32 bits
    EFT_FORMATTED_ULONG,       ///< a format with the modifier l, then an unsigned long of 32 bits
    EFT_FORMATTED_FLOAT_BITS,  ///< a format, then the four bytes of a float as an unsigned integer
    EFT_FORMATTED_DOUBLE,      ///< a format, then a double
    EFT_FORMATTED_TEXT,        ///< a format, then a const char*
    EFT_FORMATTED_POINTER      ///< a format, then a const void*
};

/// Takes one value (or a format text and one value) from an argument list and formats it.
/// @param out receives the text; emptied first, also when the call fails
/// @param kind what stands in the list; nothing is taken when it is not between 1 and 20
/// @param args the list, which is advanced past what was taken
/// @return false for an unknown kind or when there is no memory
ORVIL_API bool gExtFormat_ParseParts(CExtString& out, EFT kind, va_list& args);
