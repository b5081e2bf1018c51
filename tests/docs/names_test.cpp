// What pages of the source tree link to and name is there.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "docs/markdown.h"
#include "support/temp_dir.h"

namespace orvil::test {
namespace {

std::vector<std::string> all_pages() {
    std::vector<std::string> pages = {"README.md", "CHANGELOG.md", "CONTRIBUTING.md", "editors/vscode/README.md"};
    for (const std::string& document : document_names()) {
        pages.push_back("docs/" + document + ".md");
    }
    return pages;
}

// The targets of links, without what stands behind a number sign.
std::vector<std::string> links_of(const std::string& text) {
    std::vector<std::string> links;
    for (std::size_t at = text.find("]("); at != std::string::npos; at = text.find("](", at + 2)) {
        const std::string link = text.substr(at + 2, text.find_first_of(")#", at + 2) - at - 2);
        if (!link.empty()) {
            links.push_back(link);
        }
    }
    return links;
}

// The words of a text that stand between backticks in one line.
std::vector<std::string> code_of(const std::string& text) {
    std::vector<std::string> code;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        std::istringstream pieces(line);
        bool inside = false;
        for (std::string piece; std::getline(pieces, piece, '`'); inside = !inside) {
            if (inside) {
                code.push_back(piece);
            }
        }
    }
    return code;
}

bool is_source(const std::string& word) {
    const bool is_one_word = word.find_first_of(" <>()=\"*") == std::string::npos;
    return is_one_word && (word.ends_with(".h") || word.ends_with(".cpp") || word.ends_with(".py"));
}

// The files of the source tree by their names, without folders.
std::set<std::string> names_of_files() {
    std::set<std::string> names;
    for (const char* folder : {"accuracy", "bench", "debug", "fuzz", "hosts", "include", "src", "tests"}) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            names.insert(entry.path().filename().string());
        }
    }
    return names;
}

TEST(Documents, LinkToWhatIsThere) {
    int links = 0;
    for (const std::string& page : all_pages()) {
        const std::filesystem::path folder = std::filesystem::path(page).parent_path();
        for (const std::string& link : links_of(read_file(page))) {
            EXPECT_TRUE(std::filesystem::exists(folder / link)) << page << " links to " << link;
            ++links;
        }
    }
    EXPECT_GT(links, 10);
}

TEST(Documents, NameSourcesThatAreThere) {
    const std::set<std::string> names = names_of_files();
    int sources = 0;
    for (const std::string& page : all_pages()) {
        for (const std::string& word : code_of(read_file(page))) {
            if (is_source(word)) {
                const std::string name = std::filesystem::path(word).filename().string();
                EXPECT_TRUE(names.contains(name)) << page << " names " << word;
                ++sources;
            }
        }
    }
    EXPECT_GT(sources, 20);
}

}  // namespace
}  // namespace orvil::test
