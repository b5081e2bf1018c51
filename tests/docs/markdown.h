// The fences of the documents in docs/.
//
// A fence that is run or read is a subject; the fences behind it, up to the next subject, say what comes of it.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace orvil::test {

std::vector<std::string> words_of(const std::string& text);

struct Fence {
    std::string info;  // what stands behind the opening backticks
    std::string text;  // each line with a line feed
    int line = 0;      // the number of the first line of the text

    // The first word of the info, and whether a further word is there.
    std::string kind() const;
    bool has(const std::string& word) const;
    // What stands behind "name=" in the info; empty when it is not there.
    std::string value(const std::string& name) const;
};

struct Snippet {
    std::string document;  // without folder and extension
    Fence subject;
    std::vector<Fence> results;

    const Fence* result(const std::string& kind) const;
};

// How a failing test shows its snippet.
void PrintTo(const Snippet& snippet, std::ostream* out);

// All fences of a text, in order. An unclosed fence fails the running test.
std::vector<Fence> fences_of(const std::string& markdown);

// The documents in docs/, by name.
std::vector<std::string> document_names();

std::vector<Fence> fences_of_document(const std::string& document);

// The snippets of all documents whose subjects are of the given kind.
std::vector<Snippet> snippets_of_kind(const std::string& kind);

// Names an instance of a test by where its snippet stands: language_line_12.
std::string name_of_snippet(const Snippet& snippet);

bool is_subject(const Fence& fence);
bool is_result(const Fence& fence);

}  // namespace orvil::test
