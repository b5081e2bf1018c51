// A walk over a file's tokens by the grammar of the language. It finds what the parser passes over in silence, and what
// the writer could not give back.
//
//     file:       entry*
//     entry:      assignment | block | value | stray
//     assignment: SYMBOL '=' token* ';'
//     block:      SYMBOL '{' entry* '}'
//
// Comments stand anywhere and belong to nothing.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "report.h"
#include "source_text.h"

namespace orvil_host {

// Why a token would not stand in a written file.
enum class LossReason {
    kCommentInBlock,
    kCommentInAssignment,
    kBehindName,    // a comment or an empty string between a name and its '=' or '{'
    kValueInBlock,  // a plain value or a delimiter between the braces
    kEmptyString,
    kLeftOut,     // the token would, but not a character of it
    kNumberSign,  // a preprocessor line in an assignment would swallow the ';'
};

struct Loss {
    std::size_t token;
    std::size_t owner;  // the token that names the block or the assignment; for kLeftOut the index of what is left out
    LossReason reason;

    // Whether the rest means the same without the token.
    bool is_droppable() const { return reason != LossReason::kNumberSign; }
    bool is_of_token() const { return reason != LossReason::kLeftOut; }
};

// A comment between the file's outermost entries. These can be written back.
struct OuterComment {
    std::size_t token;
    int entries_before;
};

struct Review {
    std::optional<Finding> fault;     // the first thing that keeps the file from being read whole
    std::vector<std::size_t> strays;  // delimiters that stand alone: read, but most likely slips
    std::vector<Loss> losses;         // in the file's order
    std::vector<OuterComment> comments;
    std::size_t deepest = 0;  // blocks within blocks
};

Review review(const SourceText& text);

// How to say them.
Finding finding_of_left_out(const LeftOut& left_out);
Finding finding_of_stray(const SourceText& text, std::size_t stray);
Finding finding_of_loss(const SourceText& text, const Loss& loss);

}  // namespace orvil_host
