// The parser and the writer beside models that follow their rules as naively as can be, over random input.
#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "orvil/tokens/lexical_analyzer.h"
#include "tokens/tree_support.h"

namespace orvil::test {
namespace {

// --- the parser's model
// -----------------------------------------------------------------------------------------------

struct ModelNode {
    std::string token;
    std::string form;
    std::vector<ModelNode> children;

    std::string text() const {
        std::string result = (form.empty() ? "" : form + " ") + token;
        if (children.empty() && form.empty()) {
            return result;
        }
        result += "[";
        for (std::size_t i = 0; i < children.size(); ++i) {
            result += (i > 0 ? " " : "") + children[i].text();
        }
        return result + "]";
    }
};

class ParserModel {
public:
    ParserModel(const std::string& path, bool keep_comments) : stream_(eTransRead, 4096), keep_(keep_comments) {
        EXPECT_TRUE(stream_.OpenFile(path.c_str()));
    }

    Parsed parse() {
        ModelNode root{"0:", "", {}};
        while (block(root) && !stream_.IsEof()) {
        }
        if (!stream_.IsEof() || cut_off_at_top_) {
            return {false, message_, root.text()};
        }
        root.form = "B";
        return {true, message_, root.text()};
    }

private:
    bool lex(CLexToken& token) {
        silent_ = false;
        for (;;) {
            if (stream_.IsEof()) {
                silent_ = true;
                return false;
            }
            CLexicalAnalyzer analyzer(stream_);
            if (!analyzer.DoAnalyze(token)) {
                message_ = analyzer.GetInformation().GetString();
                silent_ = message_.empty() && stream_.IsEof();
                return false;
            }
            if (token.IsEmptyToken()) {
                message_ = keep_ ? "" : message_;
                continue;
            }
            if (!keep_ && (token.IsCommentToken() || token.IsSingleCommentToken())) {
                continue;
            }
            return true;
        }
    }

    bool block(ModelNode& node) {
        ++depth_;
        const bool result = entries(node);
        --depth_;
        return result;
    }

    bool entries(ModelNode& node) {
        for (;;) {
            CLexToken token;
            if (stream_.IsEof()) {
                return true;
            }
            if (!lex(token)) {
                return false;
            }
            const std::string text = token.GetString();
            if (token.IsMetaCharToken()) {
                node.children.push_back({describe_token(token), "", {}});
                if (text == "}") {
                    return true;
                }
                message_ = "Not Suppoerted. MetaChar [" + text + "]\n";
            } else if (!token.IsSymbolToken()) {
                node.children.push_back({describe_token(token), "", {}});
            } else {
                ModelNode entry{describe_token(token), "", {}};
                CLexToken next;
                if (!lex(next)) {
                    return false;
                }
                const std::string sign = next.GetString();
                if (!next.IsMetaCharToken()) {
                    message_ = "Not supported grammer. Token:" + sign + "\n";
                    return false;
                }
                if (sign != "=" && sign != "{") {
                    message_ = "Not supported grammer. Metachar:" + sign + "\n";
                    return false;
                }
                entry.children.push_back({describe_token(next), "", {}});
                if (sign == "=") {
                    entry.form = "A";
                    if (!values(entry, text)) {
                        return false;
                    }
                } else {
                    entry.form = "B";
                    if (!block(entry)) {
                        return true;
                    }
                }
                node.children.push_back(entry);
            }
        }
    }

    bool values(ModelNode& entry, const std::string& name) {
        for (;;) {
            CLexToken token;
            if (!lex(token)) {
                if (silent_) {
                    message_ = "Not found Expressio-Terminator token. Assign value = [" + name + "]\n";
                    cut_off_at_top_ = depth_ == 1;
                }
                return false;
            }
            entry.children.push_back({describe_token(token), "", {}});
            if (token.Compare(eTokenMetaChar, ";")) {
                return true;
            }
        }
    }

    CStreamMemFile stream_;
    bool keep_;
    std::string message_;
    bool silent_ = false;
    bool cut_off_at_top_ = false;
    int depth_ = 0;
};

// --- random text
// ------------------------------------------------------------------------------------------------------

class RandomText {
public:
    explicit RandomText(unsigned seed) : random_(seed) {}

    std::size_t below(std::size_t limit) { return random_() % limit; }

    std::string make() {
        std::string text;
        const std::size_t pieces = below(30);
        for (std::size_t i = 0; i < pieces; ++i) {
            text += below(4) == 0 ? piece() : entry(0);
        }
        if (below(3) == 0 && !text.empty()) {
            text.resize(below(text.size()) + 1);
        }
        return text;
    }

private:
    std::string piece() {
        static const std::vector<std::string> kPieces = {"x",      "View",  "face",    "Grid ",
                                                         "1",      "-25 ",  "0xFF",    "1e5",
                                                         "1.5 ",   "=",     ";",       "{",
                                                         "}",      "(",     "[",       ",",
                                                         ":",      "/",     "*",       "-",
                                                         "''",     "'it'",  "\"a b",   "'",
                                                         "\"",     "\\n",   "\\q",     "\\",
                                                         "// c\n", "/* c",  "*/",      "#line",
                                                         "\n",     "\r\n",  "\t",      " ",
                                                         " ",      "a;b",   "\xE9",    "x = 1;",
                                                         "{ }",    "'\\''", "#\n",     "/* c */",
                                                         "'' ",    "x 1",   "View { ", " } ",
                                                         " = ",    " ; ",   "z\\tz ",  std::string(1, '\0')};
        return kPieces[below(kPieces.size())];
    }

    std::string entry(int depth) {
        static const std::vector<std::string> kNames = {"x", "y", "View", "Grid", "Sheet1"};
        static const std::vector<std::string> kBlanks = {"", " ", "\n", "\r\n\t", " // c\n", "/**/"};
        const std::string name = kNames[below(kNames.size())] + kBlanks[below(kBlanks.size())];
        if (below(3) > 0 || depth > 5) {
            return name + "= " + piece() + (below(20) == 0 ? "" : ";") + kBlanks[below(kBlanks.size())];
        }
        std::string text = name + "{" + kBlanks[below(kBlanks.size())];
        for (std::size_t i = below(4); i > 0; --i) {
            text += below(8) == 0 ? piece() : entry(depth + 1);
        }
        return text + (below(15) == 0 ? "" : "}") + kBlanks[below(kBlanks.size())];
    }

    std::mt19937 random_;
};

Parsed parse_file(const std::string& path, bool keep_comments) {
    CTokenParser parser(path.c_str(), keep_comments);
    CLexTokenBlock root;
    const bool result = parser.DoParse(root);
    EXPECT_TRUE(parents_are_right(root));
    return {result, parser.GetErrorMessage().GetString(), describe(root)};
}

TEST(ParserModelled, RandomTextsGiveTheResultMessageAndTreeOfTheModel) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomText texts(seed);
    const TempDir folder;
    for (int round = 0; round < 1500; ++round) {
        const std::string bytes = texts.make();
        const std::string path = folder.write("in.txt", bytes);
        const bool keep_comments = texts.below(2) == 0;
        const Parsed expected = ParserModel(path, keep_comments).parse();
        ASSERT_EQ(parse_file(path, keep_comments), expected) << "round " << round << ": " << bytes;
    }
}

// --- the writer's model
// -----------------------------------------------------------------------------------------------

struct Refused {};

class WriterModel {
public:
    WriterModel(bool use_tab, int width) : unit_(use_tab ? "\t" : std::string(static_cast<std::size_t>(width), ' ')) {}

    std::string write(const CLexTokenBlock& root) {
        line(form_of(root));
        for (int i = 0; i < root.GetBlockCount(); ++i) {
            entry(*root.GetAt(i));
        }
        return text_;
    }

private:
    static std::string form_of(const CLexToken& token) {
        CExtString form;
        if (!token.CreateOutputString(form)) {
            throw Refused();
        }
        return form.GetString();
    }

    static bool is_plain(const CLexTokenBlock& node) {
        return !node.IsAssignType() && !node.IsBlockType() && !node.IsListingType();
    }

    std::string indentation() const {
        std::string result;
        for (int i = 0; i < level_; ++i) {
            result += unit_;
        }
        return result;
    }

    void line(const std::string& text, bool with_end = true) {
        for (const char c : text) {
            text_ += c == '\r' ? "" : c == '\n' ? "\r\n" : std::string(1, c);
        }
        text_ += with_end ? "\r\n" : "";
    }

    void entry(const CLexTokenBlock& node) {
        if (node.IsBlockType()) {
            block(node);
        } else if (node.IsAssignType()) {
            std::string text = indentation() + form_of(node);
            for (int i = 0; i < node.GetBlockCount() && is_plain(*node.GetAt(i)); ++i) {
                const CLexTokenBlock& token = *node.GetAt(i);
                text += (token.Compare(eTokenMetaChar, ";") ? "" : " ") + form_of(token);
            }
            line(text, !node.IsNoWriteDelimiter());
        } else if (node.IsListingType()) {
            std::string text = indentation();
            for (int i = 0; i < node.GetBlockCount() && is_plain(*node.GetAt(i)); ++i) {
                text += (i > 0 ? " " : "") + form_of(*node.GetAt(i));
            }
            line(text);
        } else {
            line(indentation() + form_of(node));
        }
    }

    void block(const CLexTokenBlock& node) {
        if (!node.IsSymbolToken()) {
            throw Refused();
        }
        line("");
        std::string pending = indentation() + form_of(node);
        for (int i = 0; i < node.GetBlockCount(); ++i) {
            const CLexTokenBlock& child = *node.GetAt(i);
            if (!is_plain(child)) {
                entry(child);
            } else if (child.Compare(eTokenMetaChar, "{")) {
                line(pending + " {");
                pending = indentation();
                ++level_;
            } else if (child.Compare(eTokenMetaChar, "}")) {
                --level_;
                pending = indentation() + "}";
            } else {
                pending += form_of(child);
            }
        }
        if (pending.find_first_not_of(" \t\n\v\f\r") != std::string::npos) {
            line(pending);
        }
    }

    std::string unit_;
    int level_ = 0;
    std::string text_;
};

class RandomTree {
public:
    explicit RandomTree(unsigned seed) : random_(seed) {}

    std::size_t below(std::size_t limit) { return random_() % limit; }

    CLexTokenBlock make(int depth) {
        CLexTokenBlock node(random_token());
        const std::size_t form = depth > 4 ? 0 : below(10);
        if (form < 2) {
            return node;
        }
        if (form == 2) {
            node.SetupBlockTypeFactor("Closed");
            node.InsertBlockEntityBlock(make(depth + 1));
            return node;
        }
        node.SetupGrammerType(static_cast<EGrammerType>(form < 8 ? 1 + form % 3 : form - 7));
        if (below(20) > 0) {
            node.Create("Name", 0, 0, true, eTokenNone);
        }
        node.SetNoWriteDelimiter(below(8) == 0);
        const bool braces = below(4) > 0;
        if (braces) {
            node.AddToken(token(node.IsBlockType() ? "{" : "=", eTokenMetaChar));
        }
        for (std::size_t i = below(5); i > 0; --i) {
            below(3) == 0 ? node.AddToken(random_token()) : node.AddBlock(make(depth + 1));
        }
        if (braces) {
            node.AddToken(token(node.IsBlockType() ? "}" : ";", eTokenMetaChar));
        }
        return node;
    }

private:
    CLexToken random_token() {
        static const std::vector<std::pair<const char*, ETokenKind>> kTokens = {{"x", eTokenSymbol},
                                                                                {"25", eTokenDecimal},
                                                                                {"0xFF", eTokenHexaDecimal},
                                                                                {"1.5", eTokenDouble},
                                                                                {"a\tb", eTokenString},
                                                                                {"'\"\\\n", eTokenString},
                                                                                {"/* a\r\nb */", eTokenComment},
                                                                                {"// c", eTokenSingleComment},
                                                                                {"#p q", eTokenPreprocessor},
                                                                                {"", eTokenEmpty},
                                                                                {";", eTokenMetaChar},
                                                                                {"{", eTokenMetaChar},
                                                                                {"}", eTokenMetaChar},
                                                                                {"(", eTokenMetaChar},
                                                                                {" \t", eTokenSymbol},
                                                                                {"%s", eTokenSymbol}};
        if (below(400) == 0) {
            return CLexToken();
        }
        const auto& [text, kind] = kTokens[below(kTokens.size())];
        return token(text, kind);
    }

    std::mt19937 random_;
};

TEST(WriterModelled, RandomTreesGiveTheTextOfTheModel) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomTree trees(seed);
    int refused = 0;
    for (int round = 0; round < 700; ++round) {
        CLexTokenBlock root = node("Root", eGrammerBlock);
        for (std::size_t i = trees.below(5); i > 0; --i) {
            root.AddBlock(trees.make(0));
        }
        const bool use_tab = trees.below(2) == 0;
        std::string expected;
        try {
            expected = WriterModel(use_tab, 3).write(root);
        } catch (const Refused&) {
            expected = "(refused)";
            ++refused;
        }
        ASSERT_EQ(written(root, use_tab, 3), expected) << "round " << round << ": " << describe(root);
    }
    EXPECT_GT(refused, 0);
    EXPECT_LT(refused, 500);
}

// --- changes to a closed block
// ----------------------------------------------------------------------------------------

TEST(InsertModelled, RandomChangesKeepTheFirstBraceTheOneThatCounts) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    for (int round = 0; round < 300; ++round) {
        CLexTokenBlock block = empty_block("View");
        std::vector<CLexTokenBlock*> held;
        for (int step = 0; step < 30; ++step) {
            int expected = -1;
            const CLexTokenBlock probe(block);  // the copy is searched, so that nothing of the block is handed out
            for (int i = probe.GetBlockCount() - 1; i >= 0; --i) {
                expected = probe.GetAt(i)->Compare(eTokenMetaChar, "}") ? i : expected;
            }
            switch (random() % 12) {
                case 0:
                    held.push_back(block.GetAt(static_cast<int>(random() % 4)));
                    break;
                case 1:
                    if (!held.empty() && held.back() != nullptr) {
                        held.back()->Create(random() % 2 == 0 ? "}" : "n", 0, 0, true, eTokenNone);
                    }
                    break;
                case 2:
                    ASSERT_EQ(block.InsertBlockEntityBlock(CLexTokenBlock(token("}", eTokenMetaChar))), expected);
                    break;
                case 3:
                    if (CLexTokenBlock* found = block.FindAssignmentBlockEntity("x")) {
                        held.push_back(found->GetParentBlock() == &block ? found : found->GetParentBlock());
                    }
                    break;
                default:
                    ASSERT_EQ(block.InsertBlockEntityBlock(assignment("x", step)), expected);
            }
        }
        ASSERT_TRUE(parents_are_right(block));
    }
}

}  // namespace
}  // namespace orvil::test
