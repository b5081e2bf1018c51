#include "safe_write.h"

#include <sys/stat.h>

#include <cstdio>
#include <memory>

#include "heading.h"
#include "orvil/tokens/block_tokens.h"
#include "replace_file.h"
#include "source_text.h"

namespace orvil_host {
namespace {

// The mode bits of a file or folder; 0 when there is none.
unsigned mode_of(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? status.st_mode : 0U;
}

// A new file's name, and its end unless it has been renamed.
class NewFileBeside {
public:
    explicit NewFileBeside(const std::string& target) {
        int number = 0;
        do {
            path_ = target + ".new" + std::to_string(++number);
        } while (mode_of(path_) != 0);
    }
    ~NewFileBeside() { std::remove(path_.c_str()); }
    NewFileBeside(const NewFileBeside&) = delete;
    NewFileBeside& operator=(const NewFileBeside&) = delete;

    const std::string& path() const { return path_; }

private:
    std::string path_;
};

std::string why_no_target(const std::string& target) {
    const unsigned mode = mode_of(target);
    if (mode != 0 && S_ISDIR(mode)) {
        return target + " is a folder";
    }
    return mode != 0 && (mode & S_IWUSR) == 0 ? target + " is read-only" : "";
}

// The writer ends every line in CR LF, also inside of comments.
std::string with_plain_line_ends(const char* text) {
    std::string out;
    for (; *text != '\0'; ++text) {
        if (text[0] != '\r' || text[1] != '\n') {
            out += *text;
        }
    }
    return out;
}

bool is_same(const CLexToken& left, const CLexToken& right) {
    if (left.GetTokenKind() != right.GetTokenKind()) {
        return false;
    }
    return left.IsCommentToken() ? with_plain_line_ends(left.GetString()) == with_plain_line_ends(right.GetString())
                                 : left.GetPureString() == right.GetPureString();
}

// The first token that did not come back; past the end when all did.
std::size_t first_difference(const SourceText& text, const Body& body, const std::deque<CLexToken>& expected) {
    std::size_t index = 0;
    while (index < expected.size() && body.begin + index < body.end &&
           is_same(text.tokens[body.begin + index].token, expected[index])) {
        ++index;
    }
    return index;
}

std::optional<std::size_t> changed_in(const std::string& path, const std::deque<CLexToken>& expected) {
    const std::optional<SourceText> text = read_source_text(path);
    if (!text) {
        return 0;
    }
    const Body body = find_body(*text);
    const std::size_t index = first_difference(*text, body, expected);
    const bool is_whole =
        body.has_heading && !text->fault && index == expected.size() && body.begin + index == body.end;
    return is_whole ? std::nullopt : std::optional(index);
}

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

bool write_bytes(const std::string& path, const std::string& text) {
    std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "wb"));
    return file && std::fwrite(text.data(), 1, text.size(), file.get()) == text.size() &&
           std::fclose(file.release()) == 0;
}

bool holds_bytes(const std::string& path, const std::string& text) {
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rb"));
    std::string found(text.size() + 1, '\0');
    return file && std::fread(found.data(), 1, found.size(), file.get()) == text.size() &&
           found.compare(0, text.size(), text) == 0;
}

}  // namespace

WriteResult write_and_verify(const std::string& target, CLexTokenBlock& master, const std::deque<CLexToken>& expected) {
    std::string reason = why_no_target(target);
    if (!reason.empty()) {
        return {reason, std::nullopt};
    }
    const NewFileBeside file(target);
    if (!bt_output_file(file.path().c_str(), master, false)) {
        return {target + " cannot be written", std::nullopt};
    }
    const std::optional<std::size_t> changed = changed_in(file.path(), expected);
    if (changed) {
        return {target + " would not read back as it should", changed};
    }
    const bool replaced = replace_file(file.path().c_str(), target.c_str());
    return {replaced ? "" : target + " cannot be replaced", std::nullopt};
}

std::string write_text(const std::string& target, const std::string& text) {
    std::string reason = why_no_target(target);
    if (!reason.empty()) {
        return reason;
    }
    const NewFileBeside file(target);
    if (!write_bytes(file.path(), text) || !holds_bytes(file.path(), text)) {
        return target + " cannot be written";
    }
    return replace_file(file.path().c_str(), target.c_str()) ? "" : target + " cannot be replaced";
}

}  // namespace orvil_host
