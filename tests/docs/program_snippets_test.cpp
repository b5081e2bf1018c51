// C++ and commands in the documents, and what is said that they print.
#include <gtest/gtest.h>

#include <sstream>

#include "docs/document_files.h"
#include "docs/markdown.h"
#include "support/run_program.h"

namespace orvil::test {
namespace {

// A whole file is built by other tests.
std::vector<Snippet> function_bodies() {
    std::vector<Snippet> snippets = snippets_of_kind("cpp");
    std::erase_if(snippets, [](const Snippet& snippet) { return snippet.subject.has("file=host.cpp"); });
    return snippets;
}

class CppSnippet : public testing::TestWithParam<Snippet> {};

TEST_P(CppSnippet, PrintsWhatTheDocumentShows) {
    const Snippet& snippet = GetParam();
    const DocumentFolder folder(snippet.document);
    const ProgramResult result =
        run_program("document_snippets", {snippet.document + ":" + std::to_string(snippet.subject.line)});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_EQ(result.err, "");
    const Fence* output = snippet.result("output");
    ASSERT_NE(output, nullptr) << "the document does not show what is printed";
    EXPECT_EQ(result.out, output->text);
}

INSTANTIATE_TEST_SUITE_P(Docs, CppSnippet, testing::ValuesIn(function_bodies()),
                         [](const auto& instance) { return name_of_snippet(instance.param); });

class ConsoleSnippet : public testing::TestWithParam<Snippet> {};

// The output of one command "orvil ...", both streams one after the other.
std::string output_of(const std::string& command) {
    std::vector<std::string> words = words_of(command);
    if (words.empty() || words.front() != "orvil") {
        return "this is no command that a document may show\n";
    }
    words.erase(words.begin());
    const ProgramResult result = run_program("orvil", words);
    return result.out + result.err;
}

TEST_P(ConsoleSnippet, PrintsWhatTheDocumentShows) {
    const DocumentFolder folder(GetParam().document);
    std::istringstream in(GetParam().subject.text);
    std::string expected;
    std::string actual;
    for (std::string line; std::getline(in, line);) {
        expected += line + "\n";
        if (line.starts_with("$ ")) {
            actual += line + "\n" + output_of(line.substr(2));
        }
    }
    EXPECT_EQ(actual, expected);
}

INSTANTIATE_TEST_SUITE_P(Docs, ConsoleSnippet, testing::ValuesIn(snippets_of_kind("console")),
                         [](const auto& instance) { return name_of_snippet(instance.param); });

}  // namespace
}  // namespace orvil::test
