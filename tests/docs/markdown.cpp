#include "docs/markdown.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <sstream>

#include "support/temp_dir.h"

namespace orvil::test {
namespace {

bool is_one_of(const std::string& word, const std::vector<std::string>& words) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

}  // namespace

std::vector<std::string> words_of(const std::string& text) {
    std::istringstream in(text);
    std::vector<std::string> words;
    for (std::string word; in >> word;) {
        words.push_back(word);
    }
    return words;
}

std::string Fence::kind() const {
    const std::vector<std::string> words = words_of(info);
    return words.empty() ? std::string() : words.front();
}

bool Fence::has(const std::string& word) const {
    return is_one_of(word, words_of(info));
}

std::string Fence::value(const std::string& name) const {
    for (const std::string& word : words_of(info)) {
        if (word.starts_with(name + "=")) {
            return word.substr(name.size() + 1);
        }
    }
    return "";
}

const Fence* Snippet::result(const std::string& kind) const {
    const auto found =
        std::find_if(results.begin(), results.end(), [&](const Fence& fence) { return fence.kind() == kind; });
    return found == results.end() ? nullptr : &*found;
}

void PrintTo(const Snippet& snippet, std::ostream* out) {
    *out << "docs/" << snippet.document << ".md:" << snippet.subject.line;
}

bool is_subject(const Fence& fence) {
    return is_one_of(fence.kind(), {"orvil", "cpp", "console", "cmake", "sh"});
}

bool is_result(const Fence& fence) {
    return is_one_of(fence.kind(), {"tree", "tokens", "positions", "message", "note", "written", "output"});
}

std::vector<Fence> fences_of(const std::string& markdown) {
    std::vector<Fence> fences;
    std::istringstream in(markdown);
    bool inside = false;
    int number = 0;
    for (std::string line; std::getline(in, line);) {
        ++number;
        if (line.starts_with("```")) {
            inside = !inside;
            if (inside) {
                fences.push_back({line.substr(3), "", number + 1});
            }
        } else if (inside) {
            fences.back().text += line + "\n";
        }
    }
    EXPECT_FALSE(inside) << "the last fence is not closed";
    return fences;
}

std::vector<std::string> document_names() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator("docs")) {
        if (entry.path().extension() == ".md") {
            names.push_back(entry.path().stem().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<Fence> fences_of_document(const std::string& document) {
    return fences_of(read_file("docs/" + document + ".md"));
}

std::vector<Snippet> snippets_of_kind(const std::string& kind) {
    std::vector<Snippet> snippets;
    for (const std::string& document : document_names()) {
        bool wanted = false;
        for (const Fence& fence : fences_of_document(document)) {
            if (is_subject(fence)) {
                wanted = fence.kind() == kind;
                if (wanted) {
                    snippets.push_back({document, fence, {}});
                }
            } else if (wanted) {
                snippets.back().results.push_back(fence);
            }
        }
    }
    return snippets;
}

std::string name_of_snippet(const Snippet& snippet) {
    return snippet.document + "_line_" + std::to_string(snippet.subject.line);
}

}  // namespace orvil::test
