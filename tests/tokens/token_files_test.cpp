// The files of tests/data/tokens: each input_NAME with the tree that it reads into and the file that is written of it,
// each bad_NAME with its message.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "tokens/tree_support.h"

namespace orvil::test {
namespace {

const std::string kFolder = "tests/data/tokens/";

std::vector<std::string> names_of(const std::string& kind) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(kFolder)) {
        const std::string file = entry.path().filename().string();
        if (file.starts_with(kind + "_")) {
            names.push_back(file.substr(kind.size() + 1));
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

// Comments are kept of the files that are named so.
void parse_input(const std::string& name, CLexTokenBlock& root) {
    CTokenParser parser((kFolder + "input_" + name).c_str(), name.starts_with("kept_comments"));
    ASSERT_TRUE(parser.DoParse(root)) << parser.GetErrorMessage().GetString();
}

// A dump with each token on a line of its own: there is a blank where the line ends in the file.
std::string dump_in_lines(const CLexTokenBlock& root) {
    CExtString dump;
    root.MakeDumpString(dump, 0);
    std::string lines(dump);
    for (std::size_t at = lines.find("> Pos("); at != std::string::npos; at = lines.find("> Pos(", at)) {
        at = lines.find(") ", at);
        lines.replace(at, 2, ")\n");
    }
    return lines;
}

TEST(TokenFiles, InputsReadIntoTheirTrees) {
    for (const std::string& name : names_of("input")) {
        SCOPED_TRACE(name);
        CLexTokenBlock root;
        parse_input(name, root);
        EXPECT_EQ(dump_in_lines(root), read_file(kFolder + "dump_" + name));
    }
}

TEST(TokenFiles, InputsAreWrittenAsTheirFiles) {
    const TempDir folder;
    for (const std::string& name : names_of("input")) {
        SCOPED_TRACE(name);
        CLexTokenBlock root;
        parse_input(name, root);
        const std::string path = folder.path("written_" + name);
        CLexTokenBlock master;
        ASSERT_TRUE(bt_make_master_block(master, path.c_str(), "Written"));
        for (int i = 0; i < root.GetBlockCount(); ++i) {
            ASSERT_EQ(bt_add_block(master, *root.GetAt(i)), i + 1);
        }
        ASSERT_TRUE(bt_output_file(path.c_str(), master, false));
        EXPECT_EQ(read_file(path), read_file(kFolder + "written_" + name));
    }
}

TEST(TokenFiles, BadInputsGiveTheirMessages) {
    for (const std::string& name : names_of("bad")) {
        SCOPED_TRACE(name);
        CLexTokenBlock root;
        CExtString message;
        EXPECT_FALSE(bt_input_file((kFolder + "bad_" + name).c_str(), root, message));
        EXPECT_EQ(std::string(message), read_file(kFolder + "message_" + name));
    }
}

TEST(TokenFiles, EveryFileHasItsCounterparts) {
    const std::vector<std::string> inputs = names_of("input");
    EXPECT_GE(inputs.size(), 18u);
    EXPECT_EQ(names_of("dump"), inputs);
    EXPECT_EQ(names_of("written"), inputs);
    const std::vector<std::string> bad = names_of("bad");
    EXPECT_GE(bad.size(), 11u);
    EXPECT_EQ(names_of("message"), bad);
}

}  // namespace
}  // namespace orvil::test
