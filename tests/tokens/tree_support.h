// Trees as one line of text, exact to the last flag, and files as trees.
#pragma once

#include <string>
#include <string_view>

#include "orvil/tokens/block_tokens.h"
#include "orvil/tokens/token_parser.h"
#include "orvil/tokens/token_register.h"
#include "support/temp_dir.h"

namespace orvil::test {

// A token: the letter of its kind and its text, as in n:Width (a symbol), d:640, x:0xFF, f:1.5, s:text, m:{ (a meta
// character), e: (empty), c: and l: (comments), p: (preprocessor), 0: (none). Bytes outside the ASCII letters, and the
// characters []\, as \xx.
std::string describe_token(const CLexToken& token);

// A tree: plain tokens as above; A, B and L for the three forms, then "!" if closed, "~" if without line end, then the
// token and the children in brackets, as in B n:View[m:{ A n:x[m:= d:1 m:;] m:}]. With positions, each token is
// followed by @line,column.
std::string describe(const CLexTokenBlock& root, bool positions = false);

// Whether every node below the root has the node in which it hangs as its parent.
bool parents_are_right(CLexTokenBlock& root);

struct Parsed {
    bool result = false;
    std::string message;
    std::string tree;
    bool operator==(const Parsed&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Parsed& parsed);

// What the parser makes of a file of these bytes.
Parsed parse(std::string_view bytes, bool keep_comments = false);

// The tree alone; fails the running test when the parse does.
std::string parsed_tree(std::string_view bytes, bool keep_comments = false);

// What the writer makes of a tree; "(refused)" when it refuses.
std::string written(const CLexTokenBlock& root, bool use_tab = true, int indent_width = 4);

// A token of that text and kind, as it is.
CLexToken token(const char* text, ETokenKind kind);

// A fresh node of that form, with a token of that text.
CLexTokenBlock node(const char* name, EGrammerType form);

CLexTokenBlock assignment(const char* name, int value);
CLexTokenBlock empty_block(const char* name);

}  // namespace orvil::test
