/// @file
/// Command-line options: flat functions over one parser for the whole process.
///
/// A host declares its options once, then parses its arguments and asks for the results by name:
///
/// @code
/// const char* const switches[] = {"verbose: v", nullptr};
/// const char* const values[] = {"output: o", nullptr};
/// const char* const lists[] = {"define: D", nullptr};
/// getopt_initialize();
/// getopt_init_boolmap(switches);
/// getopt_init_scalarmap(values);
/// getopt_init_listmap(lists);
/// if (!getopt_parse_arguments(arguments, true)) {
///     fprintf(stderr, "%s\n", getopt_get_errornote());
/// }
/// const CExtString output = getopt_scalar("output");
/// @endcode
///
/// An option is of one of three kinds. A boolean is on or off, a scalar keeps its last value, a list keeps all of its
/// values. It has a long name and perhaps a short one, which is a letter:
///
///     --output=a.txt   --output:a.txt   --output a.txt   -o=a.txt   -o:a.txt   -o a.txt
///
/// Values are texts in the current code page. A boolean needs none, and takes one that is a *boolean symbol*:
///
/// - Whatever begins with True, On, Set, Yes, Ok, Enable, 1 or y, or ends with False, Off, Reset, No, Cancel, Disable,
///   0 or n, is a boolean symbol, in letters of either case: "yes", but also "online", "plan" and "-10".
/// - It means on when it is one of True, On, Set, Yes, Ok, Enable, 1 and y as a whole, else off.
///
/// A line feed that ends the text is passed over in these tests. An attached value ends before such a one, too, and can
/// hold no other; a value that is an argument of its own is taken as it is.
///
/// Results are kept in three maps from long names to values: of booleans, of scalars and of lists. Asking for a name
/// that has no value yet enters it with an empty one, which the dumps count.
///
/// Everything is the library's. Texts that are handed out as pointers are valid until the next parse, getopt_clean(),
/// getopt_initialize() or getopt_terminate(). Names are compared with their case. Nothing throws or prints, apart from
/// the dumps; what cannot be kept for want of memory is left out, which no result tells. One thread at a time. Where
/// nothing else is said, functions take time linear in the texts that they are given; a name is looked up in one of 37
/// chains.
#pragma once

#include <cstdio>

#include "orvil/export.h"
#include "orvil/strings/ext_str_list.h"
#include "orvil/strings/ext_string.h"

// Strings are returned by value to C++ hosts only.
#if defined(__clang__)
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wreturn-type-c-linkage"
#endif

extern "C" {

/// @name Life cycle
/// @{

/// Forgets all declarations and, like getopt_clean(), all results. Linear in what is forgotten.
ORVIL_API void getopt_initialize();

/// As getopt_initialize(). All memory is given back.
ORVIL_API void getopt_terminate();

/// Forgets all results: the three maps, the remaining items, the error position and the error note. Declarations stay.
/// Linear in what is forgotten.
ORVIL_API void getopt_clean();

/// @}
/// @name Declaring
///
/// Each takes an array of texts that ends with a null, and adds to what is declared. A text is "name: letter", or just
/// "name" for an option without a short name:
///
/// - White space before the name and around the letter is skipped. Blanks between the name and the colon belong to the
///   name. The letter is one of A to Z and a to z.
/// - A text that is not of this form, such as "a: bc", is a long name as a whole.
/// - A later declaration of the same name or letter replaces the earlier one.
///
/// A null array declares nothing.
/// @return true, always
/// @{

/// Declares booleans.
ORVIL_API bool getopt_init_boolmap(const char* const* decls);

/// Declares scalars.
ORVIL_API bool getopt_init_scalarmap(const char* const* decls);

/// Declares lists.
ORVIL_API bool getopt_init_listmap(const char* const* decls);

/// @}
/// @name Parsing
/// @{

/// Parses arguments, of which the program's name is none, from the first to the last:
///
/// - An argument that does not begin with "-", an empty one, and "-" alone are remaining items.
/// - Any other must be an option that is declared, in one of the forms above; "-abc" and "--" are not. An attached
///   value has at least one byte.
/// - A boolean without an attached value takes the next argument if that is a boolean symbol, even when it begins with
///   "-". Otherwise it is on.
/// - A scalar or list without an attached value takes the next argument, an empty one too, and an empty value when
///   there is none. If the next argument begins with "-", the option is dropped without an error.
///
/// Results are added to those of earlier calls, and a note stays as it was when there is no error: see getopt_clean().
///
/// The error position counts the arguments that were consumed. Dropped and faulty options do not count, and a value
/// that was missing at the end does. At the first error it is the index of the faulty argument, unless an option was
/// dropped before it.
/// @param args the arguments; not changed
/// @param stopAtError whether to stop at the first error. Otherwise what is wrong is left out, and the note tells the
/// last error; but an argument that is no declared option's form ends the parse in any case.
/// @return whether all arguments were consumed. Linear in their bytes.
ORVIL_API bool getopt_parse_arguments(const CExtStrList& args, bool stopAtError);

/// Splits a command line into words at blanks and TABs:
///
/// - The first word, the program's name, may stand in double quotes. There are no escapes in it.
/// - In the others a double quote begins and ends a quoted part, in which blanks stand for themselves; one that is not
///   closed runs to the end. Two quotes side by side in a quoted part are one quote, and the part goes on.
/// - Of backslashes before a double quote each two are one; an odd one makes the quote an ordinary character. Other
///   backslashes stand for themselves.
/// - The bytes of a double-byte character always stay together.
/// @param text the command line, which may lie in @p out
/// @param out receives the words, in place of what it held; empty with false
/// @param keepFirst whether the first word is kept
/// @return false when @p text is null, empty or blank, or there is no memory
ORVIL_API bool getopt_parse_string_to_list(const char* text, CExtStrList& out, bool keepFirst);

/// @}
/// @name Results by name
///
/// A name of one byte is a short name, also when there is a long name like it; null, an empty name and a letter that is
/// not declared stand for the empty long name. Any other name is a long one. Each function looks into the map of its
/// own kind, whatever the name is declared as.
/// @{

/// @return whether the boolean is on
ORVIL_API bool getopt_boolean(const char* name);

/// @return a copy of the scalar's last value; empty when it has none
ORVIL_API CExtString getopt_scalar(const char* name);

/// @return the number of the list's values
ORVIL_API int getopt_list_count(const char* name);

/// @return a copy of value @p index of the list, counted from 0; empty when there is none
ORVIL_API CExtString getopt_list(const char* name, int index);

/// @}
/// @name Other results
/// @{

/// @return the number of remaining items
ORVIL_API int getopt_item_count();

/// @return remaining item @p index, counted from 0; null when there is none
ORVIL_API const char* getopt_item(int index);

/// @return whether there is no remaining item
ORVIL_API bool getopt_item_empty();

/// @return how many arguments the last parse consumed; 0 before the first
ORVIL_API int getopt_get_errorpos();

/// @return what the last error was; empty when there was none since getopt_clean()
ORVIL_API const char* getopt_get_errornote();

/// @}
/// @name Dumps
///
/// Each writes a part of the state to a stream, which is the host's; nothing to a null one. Names are those that are
/// declared as the kind, in the order of the 37 buckets of a CExtStrHash. Those without a value are entered with an
/// empty one, after the header has been written.
/// @return true, always
/// @{

/// Writes "--- Boolean map [COUNT] items. ---", a line "  NUMBER-NAME: VALUE" for each name, and an empty line. COUNT
/// is the number of entries; VALUE is "1" or nothing.
ORVIL_API bool getopt_booldump(FILE* stream);

/// Writes "--- Scalar map [COUNT] items. ---", a line "  NUMBER-NAME: VALUE" for each name, and an empty line.
ORVIL_API bool getopt_scalardump(FILE* stream);

/// Writes "--- List map [COUNT] lists. ---", a line "  NAME-INDEX: VALUE" for each value of each name, and an empty
/// line.
ORVIL_API bool getopt_listdump(FILE* stream);

/// Writes a line "  file-INDEX: TEXT" for each remaining item.
ORVIL_API bool getopt_itemdump(FILE* stream);

/// @}

}  // extern "C"

#if defined(__clang__)
#pragma clang diagnostic pop
#endif
