#include "tokens/tree_support.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <ostream>
#include <vector>

namespace orvil::test {

std::string describe_token(const CLexToken& token) {
    static constexpr char kLetters[] = "0emdxfsnclp";
    const int kind = token.GetTokenKind();
    std::string text(1, kind >= 0 && kind <= 10 ? kLetters[kind] : '?');
    text += ':';
    for (const char* at = token.GetString(); *at != '\0'; ++at) {
        if (*at < ' ' || *at > '~' || *at == '[' || *at == ']' || *at == '\\') {
            char escaped[4];
            std::snprintf(escaped, sizeof(escaped), "\\%02X", static_cast<unsigned char>(*at) & 0xFFu);
            text += escaped;
        } else {
            text += *at;
        }
    }
    return text;
}

namespace {

// A closed node ignores a change of its form, and an open one gets its own back.
bool is_closed(const CLexTokenBlock& node) {
    auto& changed = const_cast<CLexTokenBlock&>(node);
    const EGrammerType form = node.QueryGrammerType();
    changed.SetupGrammerType(static_cast<EGrammerType>(form + 1));
    const bool refused = node.QueryGrammerType() == form;
    changed.SetupGrammerType(form);
    return refused;
}

std::string describe_node(const CLexTokenBlock& node, bool positions) {
    std::string text;
    if (!node.IsInvalidType()) {
        text += node.IsAssignType() ? "A" : node.IsBlockType() ? "B" : node.IsListingType() ? "L" : "?";
        text += is_closed(node) ? "!" : "";
        text += node.IsNoWriteDelimiter() ? "~" : "";
        text += " ";
    }
    text += describe_token(node);
    if (positions) {
        int line = 0;
        int column = 0;
        node.QuerySourcePosition(line, column);
        text += "@" + std::to_string(line) + "," + std::to_string(column);
    }
    return text;
}

}  // namespace

std::string describe(const CLexTokenBlock& root, bool positions) {
    struct Place {
        const CLexTokenBlock* node;
        int next;
    };
    std::string text = describe_node(root, positions);
    std::vector<Place> places{{&root, 0}};
    while (!places.empty()) {
        Place& place = places.back();
        const int count = place.node->GetBlockCount();
        const bool listed = count > 0 || !place.node->IsInvalidType();
        if (place.next == 0 && listed) {
            text += '[';
        }
        if (place.next == count) {
            text += listed ? "]" : "";
            places.pop_back();
            continue;
        }
        text += place.next > 0 ? " " : "";
        const CLexTokenBlock* child = place.node->GetAt(place.next++);
        text += describe_node(*child, positions);
        places.push_back({child, 0});
    }
    return text;
}

bool parents_are_right(CLexTokenBlock& root) {
    std::vector<CLexTokenBlock*> todo{&root};
    while (!todo.empty()) {
        CLexTokenBlock* holder = todo.back();
        todo.pop_back();
        for (int i = 0; i < holder->GetBlockCount(); ++i) {
            if (holder->GetAt(i)->GetParentBlock() != holder) {
                return false;
            }
            todo.push_back(holder->GetAt(i));
        }
    }
    return true;
}

std::ostream& operator<<(std::ostream& out, const Parsed& parsed) {
    return out << (parsed.result ? "true" : "false") << " \"" << parsed.message << "\" " << parsed.tree;
}

Parsed parse(std::string_view bytes, bool keep_comments) {
    const TempDir folder;
    CTokenParser parser(folder.write("in.txt", bytes).c_str(), keep_comments);
    CLexTokenBlock root;
    const bool result = parser.DoParse(root);
    EXPECT_TRUE(parents_are_right(root));
    std::string message = parser.GetErrorMessage().GetString();
    const std::string path = folder.path("in.txt");
    const std::size_t at = message.find(path);
    if (at != std::string::npos) {
        message.replace(at, path.size(), "PATH");
    }
    return {result, message, describe(root)};
}

std::string parsed_tree(std::string_view bytes, bool keep_comments) {
    const Parsed parsed = parse(bytes, keep_comments);
    EXPECT_TRUE(parsed.result) << parsed.message;
    return parsed.tree;
}

std::string written(const CLexTokenBlock& root, bool use_tab, int indent_width) {
    const TempDir folder;
    const std::string path = folder.path("out.txt");
    CTokenRegister writer(path.c_str(), use_tab, indent_width);
    return writer.DoRegist(root, false) ? read_file(path) : "(refused)";
}

CLexToken token(const char* text, ETokenKind kind) {
    CLexToken result;
    result.Create(text, -1, -1, false, kind);
    return result;
}

CLexTokenBlock node(const char* name, EGrammerType form) {
    CLexTokenBlock result(token(name, eTokenSymbol));
    result.SetupGrammerType(form);
    return result;
}

CLexTokenBlock assignment(const char* name, int value) {
    CLexTokenBlock result;
    EXPECT_TRUE(result.SetupAssignmentDecimal(name, value, nullptr));
    return result;
}

CLexTokenBlock empty_block(const char* name) {
    CLexTokenBlock result;
    EXPECT_TRUE(result.SetupBlockTypeFactor(name));
    return result;
}

}  // namespace orvil::test
