#include "docs/outline.h"

namespace orvil::test {
namespace {

std::string kind_name(ETokenKind kind) {
    switch (kind) {
        case eTokenEmpty:
            return "empty";
        case eTokenMetaChar:
            return "character";
        case eTokenDecimal:
            return "decimal";
        case eTokenHexaDecimal:
            return "hexadecimal";
        case eTokenDouble:
            return "double";
        case eTokenString:
            return "string";
        case eTokenSymbol:
            return "symbol";
        case eTokenComment:
            return "comment";
        case eTokenSingleComment:
            return "line-comment";
        case eTokenPreprocessor:
            return "preprocessor";
        case eTokenNone:
            break;
    }
    return "none";
}

// Control characters are shown by their escapes.
std::string shown(const std::string& text) {
    std::string out;
    for (const char c : text) {
        switch (c) {
            case '\t':
                out += "\\t";
                break;
            case '\n':
                out += "\\n";
                break;
            case '\r':
                out += "\\r";
                break;
            default:
                out += c;
        }
    }
    return out;
}

std::string token_line(const CLexToken& token) {
    const std::string text = shown(token.GetString());
    return kind_name(token.GetTokenKind()) + (text.empty() ? "" : " " + text) + "\n";
}

std::string position(const CLexToken& token) {
    int line = 0;
    int column = 0;
    token.QuerySourcePosition(line, column);
    return std::to_string(line) + ":" + std::to_string(column) + " ";
}

// The end of the file inside a lexeme, or behind blanks, is no failure that is told.
std::string failure_line(const CLexicalAnalyzer& analyzer) {
    const std::string information(analyzer.GetInformation());
    return information.empty() ? "" : "failure " + information;
}

bool is_character(const CLexTokenBlock* node, const char* text) {
    return node != nullptr && node->Compare(eTokenMetaChar, text);
}

void append_children(const CLexTokenBlock& node, int first, int end, const std::string& indent, std::string& out);

void append_form(const CLexTokenBlock& node, const std::string& indent, std::string& out) {
    const char* open = node.IsAssignType() ? "=" : "{";
    const char* close = node.IsAssignType() ? ";" : "}";
    int end = node.GetBlockCount();
    const int first = is_character(node.GetAt(0), open) ? 1 : 0;
    const bool closed = end > first && is_character(node.GetAt(end - 1), close);
    end -= closed ? 1 : 0;
    out += std::string(node.IsAssignType() ? "assignment " : "block ") + shown(node.GetString()) +
           (closed ? "\n" : " (open)\n");
    append_children(node, first, end, indent + "    ", out);
}

void append_children(const CLexTokenBlock& node, int first, int end, const std::string& indent, std::string& out) {
    for (int i = first; i < end; ++i) {
        const CLexTokenBlock& child = *node.GetAt(i);
        out += indent;
        if (child.IsInvalidType()) {
            out += token_line(child);
        } else {
            append_form(child, indent, out);
        }
    }
}

}  // namespace

std::string token_lines(const std::string& path, bool with_positions) {
    CStreamMemFile file(eTransRead, 4096);
    std::string out;
    if (!file.OpenFile(path.c_str())) {
        return "the file cannot be opened\n";
    }
    while (!file.IsEof()) {
        CLexToken token;
        CLexicalAnalyzer analyzer(file);
        if (!analyzer.DoAnalyze(token)) {
            out += failure_line(analyzer);
            break;
        }
        out += (with_positions ? position(token) : "") + token_line(token);
    }
    return out;
}

std::string tree_outline(const CLexTokenBlock& root) {
    std::string out;
    append_children(root, 0, root.GetBlockCount(), "", out);
    return out;
}

}  // namespace orvil::test
