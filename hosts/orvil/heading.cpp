#include "heading.h"

namespace orvil_host {
namespace {

constexpr std::size_t kFrameWidth = 8;  // "/*  " and "  */", or "/***" and "***/"

bool is_name_line(const CLexToken& token) {
    const std::string text = token.GetString();
    return token.IsSingleCommentToken() && text.starts_with("// ") && text.size() > 6 && text.ends_with(" : ");
}

bool is_rule(const CLexToken& token) {
    const std::string text = token.GetString();
    return token.IsCommentToken() && text.size() >= kFrameWidth && text.front() == '/' && text.back() == '/' &&
           text.find_first_not_of('*', 1) == text.size() - 1;
}

bool is_box_line(const CLexToken& token, std::size_t width) {
    const std::string text = token.GetString();
    return token.IsCommentToken() && text.size() == width && text.starts_with("/*  ") && text.ends_with("  */") &&
           text.find('\n') == std::string::npos;
}

bool is_end_of_file_comment(const CLexToken& token) {
    return token.IsCommentToken() && std::string(token.GetString()) == "/* END OF FILE */";
}

// Reads the box whose first rule is the token `rule`. A box without its second rule is no box.
void find_box(const SourceText& text, std::size_t rule, Body& body) {
    const std::size_t width = std::string(text.tokens[rule].token.GetString()).size();
    std::string comment;
    std::size_t next = rule + 1;
    for (; next < body.end && is_box_line(text.tokens[next].token, width); ++next) {
        comment += comment.empty() ? "" : "\n";
        comment += std::string(text.tokens[next].token.GetString()).substr(4, width - kFrameWidth);
    }
    if (next < body.end && is_rule(text.tokens[next].token) &&
        std::string(text.tokens[next].token.GetString()).size() == width) {
        body.begin = next + 1;
        body.has_heading = true;
        body.comment = comment;
    }
}

}  // namespace

Body find_body(const SourceText& text) {
    Body body;
    body.end = text.tokens.size();
    if (body.end > 0 && is_end_of_file_comment(text.tokens.back().token)) {
        --body.end;
    }
    if (body.end > 2 && is_name_line(text.tokens[0].token) && is_rule(text.tokens[1].token)) {
        find_box(text, 1, body);
    }
    return body;
}

}  // namespace orvil_host
