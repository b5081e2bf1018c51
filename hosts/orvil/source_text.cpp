#include "source_text.h"

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string_view>
#include <utility>

#include "left_out.h"
#include "orvil/tokens/lexical_analyzer.h"
#include "orvil/tokens/stream_mem_file.h"

namespace orvil_host {
namespace {

constexpr int kGrowUnit = 4096;

bool is_skipped(char character) {
    return character == ' ' || character == '\t' || character == '\n' || character == '\r' || character == '\0';
}

bool is_quote(char character) {
    return character == '"' || character == '\'';
}

std::optional<std::string> read_bytes(const std::string& path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), std::fclose);
    if (file == nullptr) {
        return std::nullopt;
    }
    std::string bytes;
    char chunk[65536];
    while (const std::size_t count = std::fread(chunk, 1, sizeof chunk, file.get())) {
        bytes.append(chunk, count);
    }
    return std::ferror(file.get()) != 0 ? std::nullopt : std::optional(std::move(bytes));
}

class Reader {
public:
    Reader(std::string bytes, CStreamMemFile& stream) : bytes_(std::move(bytes)), stream_(stream) {}

    SourceText read() {
        while (!text_.fault && !stream_.IsEof()) {
            read_token();
        }
        text_.end = place_of(bytes_.size());
        return std::move(text_);
    }

private:
    void read_token() {
        const std::size_t start = skip(position());
        CLexicalAnalyzer analyzer(stream_);
        CLexToken token;
        if (analyzer.DoAnalyze(token)) {
            add(token, start);
        } else if (!analyzer.GetInformation().IsEmpty()) {
            text_.fault = bad_character(start);
        } else if (start < bytes_.size()) {
            text_.fault = unfinished(start);
        }
    }

    void add(const CLexToken& token, std::size_t start) {
        text_.tokens.push_back({token, place_of(start)});
        const std::string_view made_of = std::string_view(bytes_).substr(start, position() - start);
        const std::optional<std::size_t> left_out = find_left_out(made_of, token);
        if (left_out) {
            text_.left_out.push_back({text_.tokens.size() - 1, place_of(start + *left_out), made_of[*left_out]});
        }
    }

    // The stream does not tell its position, but which bytes ahead of it exist: the rest is as long as the smallest
    // offset at which there is none.
    std::size_t position() {
        std::size_t low = 0;
        std::size_t high = bytes_.size() - position_;
        while (low < high) {
            const std::size_t middle = low + (high - low) / 2;
            char first = 0;
            char second = 0;
            if (stream_.QueryNextData(first, second, static_cast<int>(middle))) {
                low = middle + 1;
            } else {
                high = middle;
            }
        }
        position_ = bytes_.size() - low;
        return position_;
    }

    std::size_t skip(std::size_t offset) const {
        while (offset < bytes_.size() && is_skipped(bytes_[offset])) {
            ++offset;
        }
        return offset;
    }

    // Asked for in ascending order only, so that the file is counted through once.
    Place place_of(std::size_t offset) {
        for (; counted_ < offset; ++counted_) {
            if (bytes_[counted_] == '\n') {
                ++line_;
                line_start_ = counted_ + 1;
            }
        }
        return {line_, static_cast<int>(offset - line_start_) + 1};
    }

    // The stream stands at the character that has no meaning, or behind the backslash of an unknown escape.
    Finding bad_character(std::size_t start) {
        const std::size_t stopped = position();
        const bool after_backslash = stopped > start && bytes_[stopped - 1] == '\\' && !escaped(start, stopped - 1);
        if (after_backslash) {
            return {place_of(stopped - 1), "one of \\\" \\' \\\\ \\n \\r \\t", quoted(bytes_.substr(stopped - 1, 2))};
        }
        return {place_of(stopped), "a plain character outside of a string", quoted(bytes_.substr(stopped, 1))};
    }

    // Whether a backslash is the second one of a pair.
    bool escaped(std::size_t start, std::size_t backslash) const {
        bool odd = false;
        while (backslash > start && bytes_[--backslash] == '\\') {
            odd = !odd;
        }
        return odd;
    }

    // The end of the file came before the end of a word or of a string.
    Finding unfinished(std::size_t start) {
        if (is_quote(bytes_[start])) {
            return {place_of(start), std::string("a closing ") + bytes_[start] + " for this string", kEndOfFile};
        }
        const std::string word = quoted(bytes_.substr(start));
        return {place_of(start), "a blank, a line end or a delimiter after " + word, kEndOfFile};
    }

    std::string bytes_;
    CStreamMemFile& stream_;
    SourceText text_;
    std::size_t position_ = 0;
    std::size_t counted_ = 0;
    std::size_t line_start_ = 0;
    int line_ = 1;
};

}  // namespace

std::optional<SourceText> read_source_text(const std::string& path) {
    CStreamMemFile stream(eTransRead, kGrowUnit);
    if (!stream.OpenFile(path.c_str())) {
        return std::nullopt;
    }
    std::optional<std::string> bytes = read_bytes(path);
    if (!bytes) {
        return std::nullopt;
    }
    return Reader(std::move(*bytes), stream).read();
}

}  // namespace orvil_host
