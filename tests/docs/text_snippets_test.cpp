// Texts of the token-block language in the documents, and what is said to come of them.
#include <gtest/gtest.h>

#include "docs/document_files.h"
#include "docs/markdown.h"
#include "docs/outline.h"
#include "support/temp_dir.h"

namespace orvil::test {
namespace {

TEST(Documents, HoldFencesOfKnownKindsOnly) {
    for (const std::string& document : document_names()) {
        for (const Fence& fence : fences_of_document(document)) {
            EXPECT_TRUE(is_subject(fence) || is_result(fence))
                << "docs/" << document << ".md:" << fence.line << ": what is ```" << fence.info << "?";
        }
    }
}

TEST(Documents, ShowTheLanguage) {
    EXPECT_GE(snippets_of_kind("orvil").size(), 30U);
}

class LanguageSnippet : public testing::TestWithParam<Snippet> {};

// A text whose fence says nothing else reads without a message.
void expect_messages(const Snippet& snippet, bool parsed, const std::string& message) {
    const Fence* failure = snippet.result("message");
    const Fence* note = snippet.result("note");
    EXPECT_EQ(parsed, failure == nullptr) << message;
    const Fence* expected = failure != nullptr ? failure : note;
    EXPECT_EQ(message, expected == nullptr ? "" : expected->text);
}

// Writes the entries below a root that has a written form: an empty line.
std::string written_text(const CLexTokenBlock& root, const std::string& path) {
    CLexTokenBlock master;
    CLexToken no_text;
    no_text.Create("", -1, -1, false, eTokenEmpty);
    CLexTokenBlock written(no_text);
    for (int i = 0; i < root.GetBlockCount(); ++i) {
        EXPECT_EQ(written.AddBlock(*root.GetAt(i)), i);
    }
    CTokenRegister writer(path.c_str(), true, 4);
    EXPECT_TRUE(writer.DoRegist(written, false));
    return read_file(path);
}

std::string without_cr(std::string text) {
    std::erase(text, '\r');
    return text;
}

// The message names the file as the document does.
std::string with_file_name(std::string text, const std::string& path, const std::string& name) {
    for (std::size_t at = text.find(path); at != std::string::npos; at = text.find(path)) {
        text.replace(at, path.size(), name);
    }
    return text;
}

TEST_P(LanguageSnippet, ReadsAsTheDocumentShows) {
    const Snippet& snippet = GetParam();
    const TempDir folder;
    const std::string path = folder.write("snippet.cfg", bytes_of(snippet.subject));
    CTokenParser parser(path.c_str(), snippet.subject.has("comments"));
    CLexTokenBlock root;
    const bool parsed = parser.DoParse(root);
    if (snippet.result("tokens") == nullptr && snippet.result("positions") == nullptr) {
        expect_messages(snippet, parsed, with_file_name(std::string(parser.GetErrorMessage()), path, "FILE"));
    }
    if (const Fence* tree = snippet.result("tree")) {
        EXPECT_EQ(tree_outline(root), tree->text);
    }
    if (const Fence* tokens = snippet.result("tokens")) {
        EXPECT_EQ(with_file_name(token_lines(path, false), path, "FILE"), tokens->text);
    }
    if (const Fence* positions = snippet.result("positions")) {
        EXPECT_EQ(token_lines(path, true), positions->text);
    }
    if (const Fence* written = snippet.result("written")) {
        EXPECT_EQ(without_cr(written_text(root, folder.path("written.cfg"))), "\n" + written->text);
    }
}

INSTANTIATE_TEST_SUITE_P(Docs, LanguageSnippet, testing::ValuesIn(snippets_of_kind("orvil")),
                         [](const auto& instance) { return name_of_snippet(instance.param); });

}  // namespace
}  // namespace orvil::test
