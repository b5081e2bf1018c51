#include "review.h"

#include <algorithm>
#include <string>
#include <utility>

namespace orvil_host {
namespace {

bool is_meta(const CLexToken& token, char character) {
    char found = 0;
    return token.ParseMetaChar(found) && found == character;
}

bool is_any_comment(const CLexToken& token) {
    return token.IsCommentToken() || token.IsSingleCommentToken();
}

bool is_unclosed_comment(const CLexToken& token) {
    const std::string text = token.GetString();
    const std::size_t opener = text.find("/*");
    return token.IsCommentToken() && text.find("*/", opener + 2) == std::string::npos;
}

Finding unexpected(const SourceToken& token, std::string expected) {
    return {token.place, std::move(expected), quoted(token.token)};
}

class Walk {
public:
    explicit Walk(const SourceText& text) : tokens_(text.tokens), text_(text) {}

    Review walk() {
        while (!result_.fault && next_ < tokens_.size()) {
            entry();
        }
        at_end();
        return std::move(result_);
    }

private:
    const CLexToken& token(std::size_t index) const { return tokens_[index].token; }
    std::string name_of(std::size_t index) const { return quoted(token(index)); }

    void entry() {
        const std::size_t here = next_++;
        if (token(here).IsSymbolToken()) {
            named_entry(here);
        } else if (is_any_comment(token(here))) {
            comment(here);
        } else if (token(here).IsEmptyToken()) {
            lose(here, LossReason::kEmptyString);
        } else if (is_meta(token(here), '}') && !open_.empty()) {
            open_.pop_back();
            count_entry();
        } else {
            value_or_stray(here);
        }
    }

    void named_entry(std::size_t name) {
        while (next_ < tokens_.size() && belongs_to_nothing(next_)) {
            check_closed(next_);
            lose(next_, LossReason::kBehindName, name);
            ++next_;
        }
        if (next_ == tokens_.size()) {
            fail_at_end(after(name));
        } else if (is_meta(token(next_), '=')) {
            ++next_;
            assignment(name);
        } else if (is_meta(token(next_), '{')) {
            ++next_;
            open_.push_back(name);
            result_.deepest = open_.size() > result_.deepest ? open_.size() : result_.deepest;
        } else {
            result_.fault = unexpected(tokens_[next_], after(name));
        }
    }

    void assignment(std::size_t name) {
        for (; next_ < tokens_.size(); ++next_) {
            if (is_meta(token(next_), ';')) {
                ++next_;
                count_entry();
                return;
            }
            assigned(next_);
        }
        fail_at_end("';' to end the assignment of " + name_of(name) + " in line " +
                    std::to_string(tokens_[name].place.line));
    }

    void assigned(std::size_t value) {
        if (is_any_comment(token(value))) {
            check_closed(value);
            lose(value, LossReason::kCommentInAssignment);
        } else if (token(value).IsEmptyToken()) {
            lose(value, LossReason::kEmptyString);
        } else if (token(value).IsPreprocessorToken()) {
            lose(value, LossReason::kNumberSign);
        }
    }

    void comment(std::size_t here) {
        check_closed(here);
        if (open_.empty()) {
            result_.comments.push_back({here, entries_});
        } else {
            lose(here, LossReason::kCommentInBlock);
        }
    }

    void value_or_stray(std::size_t here) {
        if (token(here).IsMetaCharToken()) {
            result_.strays.push_back(here);
        }
        if (!open_.empty()) {
            lose(here, LossReason::kValueInBlock, open_.back());
        }
        count_entry();
    }

    void at_end() {
        if (result_.fault) {
            return;
        }
        if (text_.fault) {
            result_.fault = text_.fault;
        } else if (!open_.empty()) {
            const SourceToken& opener = tokens_[open_.back()];
            result_.fault = missing(
                "'}' to close " + name_of(open_.back()) + " of line " + std::to_string(opener.place.line), text_.end);
        }
    }

    // What ended the file too early, a comment or a string say, is told rather than what is missing then.
    void fail_at_end(std::string expected) {
        if (!result_.fault) {
            result_.fault = text_.fault ? text_.fault : missing(std::move(expected), text_.end);
        }
    }

    void check_closed(std::size_t here) {
        if (!result_.fault && is_unclosed_comment(token(here))) {
            result_.fault =
                missing("*/ to close the comment of line " + std::to_string(tokens_[here].place.line), text_.end);
        }
    }

    bool belongs_to_nothing(std::size_t index) const {
        return is_any_comment(token(index)) || token(index).IsEmptyToken();
    }

    void count_entry() {
        if (open_.empty()) {
            ++entries_;
        }
    }

    void lose(std::size_t index, LossReason reason) { lose(index, reason, index); }
    void lose(std::size_t index, LossReason reason, std::size_t owner) {
        result_.losses.push_back({index, owner, reason});
    }

    std::string after(std::size_t name) const { return "'=' or '{' after " + name_of(name); }

    static Finding missing(std::string expected, Place end) { return {end, std::move(expected), kEndOfFile}; }

    const std::deque<SourceToken>& tokens_;
    const SourceText& text_;
    Review result_;
    std::vector<std::size_t> open_;  // the names of the blocks around
    std::size_t next_ = 0;
    int entries_ = 0;  // outermost ones
};

}  // namespace

Review review(const SourceText& text) {
    Review result = Walk(text).walk();
    for (std::size_t i = 0; i < text.left_out.size(); ++i) {
        result.losses.push_back({text.left_out[i].token, i, LossReason::kLeftOut});
    }
    std::stable_sort(result.losses.begin(), result.losses.end(),
                     [](const Loss& left, const Loss& right) { return left.token < right.token; });
    return result;
}

Finding finding_of_left_out(const LeftOut& left_out) {
    const bool is_quote = left_out.character == '"' || left_out.character == '\'';
    return {left_out.place, is_quote ? std::string("\\") + left_out.character : "a character that is kept",
            quoted(std::string(1, left_out.character))};
}

// A word of the letters a to f reads as a number, so an entry that is given such a name ends in a lone '=' or '{'.
Finding finding_of_stray(const SourceText& text, std::size_t stray) {
    const SourceToken& found = text.tokens[stray];
    if (stray > 0 && text.tokens[stray - 1].token.IsHexaDecimalToken() &&
        (is_meta(found.token, '=') || is_meta(found.token, '{'))) {
        return unexpected(found, "a name before it (" + quoted(text.tokens[stray - 1].token) + " reads as a number)");
    }
    return unexpected(found, "an entry");
}

Finding finding_of_loss(const SourceText& text, const Loss& loss) {
    if (loss.reason == LossReason::kLeftOut) {
        return finding_of_left_out(text.left_out[loss.owner]);
    }
    const SourceToken& found = text.tokens[loss.token];
    const std::string owner = quoted(text.tokens[loss.owner].token);
    switch (loss.reason) {
        case LossReason::kCommentInBlock:
            return unexpected(found, "no comment inside a block");
        case LossReason::kCommentInAssignment:
            return unexpected(found, "no comment inside an assignment");
        case LossReason::kBehindName:
            return unexpected(found, "no comment or empty string behind the name " + owner);
        case LossReason::kValueInBlock:
            return unexpected(found, "an assignment or a block inside of " + owner);
        case LossReason::kNumberSign:
            return unexpected(found, "no line with # inside an assignment");
        case LossReason::kEmptyString:
        case LossReason::kLeftOut:
            break;
    }
    return unexpected(found, "a value that can be written");
}

}  // namespace orvil_host
