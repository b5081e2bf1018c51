// The rules of the lexical analysis written down byte by byte over std::string, as slowly and plainly as they read.
// Tests and fuzz targets compare the library with it.
#pragma once

#include <cstdio>
#include <string>
#include <utility>

namespace orvil::test {

using LeadPredicate = bool (*)(unsigned char);

inline bool no_lead_byte(unsigned char) {
    return false;
}

inline std::string naive_format(const char* format, const std::string& text, int number) {
    const int size = std::snprintf(nullptr, 0, format, text.c_str(), number);
    std::string out(static_cast<std::size_t>(size) + 1, '\0');
    std::snprintf(out.data(), out.size(), format, text.c_str(), number);
    out.pop_back();
    return out;
}

struct NaiveStream {
    explicit NaiveStream(std::string text, LeadPredicate lead = no_lead_byte, bool for_reading = true)
        : bytes(std::move(text)), is_lead(lead), reads(for_reading) {}

    std::string bytes;
    std::string path;
    LeadPredicate is_lead;
    bool reads;
    std::size_t at = 0;
    int line = 0;
    int column = -1;
    std::string error;

    bool is_eof() const { return reads && at >= bytes.size(); }

    void count_one() {
        ++column;
        if (bytes[at] == '\r') {
            column = 0;
        } else if (bytes[at] == '\n') {
            ++line;
        }
        ++at;
    }

    bool refuse() {
        error = naive_format("%s(%d) : EOF", path, line);
        return false;
    }

    bool get(char& first, char& second) {
        first = second = '\0';
        if (at >= bytes.size()) {
            return refuse();
        }
        first = bytes[at];
        if (!is_lead(static_cast<unsigned char>(first))) {
            count_one();
            return true;
        }
        if (at + 1 >= bytes.size()) {
            return refuse();
        }
        second = bytes[at + 1];
        count_one();
        count_one();
        return at < bytes.size() || refuse();
    }

    bool query(char& first, char& second, std::size_t offset = 0) const {
        first = second = '\0';
        const std::size_t index = at + offset;
        if (index >= bytes.size()) {
            return false;
        }
        first = bytes[index];
        if (is_lead(static_cast<unsigned char>(first)) && index + 1 < bytes.size()) {
            second = bytes[index + 1];
        }
        return true;
    }
};

struct NaiveToken {
    int kind = 0;
    std::string text;
    int line = -1;
    int column = -1;

    bool operator==(const NaiveToken&) const = default;
};

inline bool in_set(char c, const char* set) {
    return std::string(set).find(c) != std::string::npos;
}

inline bool all_in_set(const std::string& text, const char* set) {
    for (const char c : text) {
        if (!in_set(c, set)) {
            return false;
        }
    }
    return true;
}

inline std::string without_blanks(const std::string& text) {
    std::size_t start = 0;
    while (start < text.size() && in_set(text[start], " \t")) {
        ++start;
    }
    return text.substr(start);
}

inline std::string without_sign(const std::string& text) {
    return !text.empty() && in_set(text[0], "+-") ? text.substr(1) : text;
}

inline bool naive_is_decimal(const std::string& text) {
    const std::string digits = without_sign(without_blanks(text));
    return !digits.empty() && all_in_set(digits, "0123456789") && (digits[0] != '0' || digits.size() == 1);
}

inline bool naive_is_hexadecimal(const std::string& text) {
    std::string digits = without_blanks(text);
    if (digits.size() >= 2 && digits[0] == '0' && in_set(digits[1], "xX")) {
        digits = digits.substr(2);
    }
    return all_in_set(digits, "0123456789abcdefABCDEF");
}

inline bool naive_is_double(const std::string& text) {
    const std::string number = without_sign(without_blanks(text));
    const std::string mantissa = number.substr(0, number.find_first_of("eE"));
    const bool exponent = mantissa.size() < number.size();
    const char* const digits = "0123456789";
    if (mantissa.empty()) {
        return false;
    }
    if (mantissa[0] == '.') {
        if (mantissa.size() < 2 || !all_in_set(mantissa.substr(1), digits)) {
            return false;
        }
    } else if (!in_set(mantissa[0], digits) || !all_in_set(mantissa, "0123456789.")) {
        return false;
    }
    return !exponent || all_in_set(without_sign(number.substr(mantissa.size() + 1)), digits);
}

// The kind of a text that is not known yet: 3 decimal, 4 hexadecimal, 5 double, 7 symbol, 1 empty, 2 meta character.
inline int naive_kind(const std::string& text) {
    if (text.empty()) {
        return 1;
    }
    if (text.size() == 1 && in_set(text[0], "\t\n\r \"#'()*+,-./:;=[\\]{}")) {
        return 2;
    }
    if (naive_is_decimal(text)) {
        return 3;
    }
    if (naive_is_hexadecimal(text)) {
        return 4;
    }
    return naive_is_double(text) ? 5 : 7;
}

class NaiveLexer {
public:
    explicit NaiveLexer(NaiveStream& stream) : stream_(stream) {}

    std::string information;

    bool analyze(NaiveToken& token) {
        token = NaiveToken();
        lexeme_.clear();
        information.clear();
        if (stream_.is_eof()) {
            return true;
        }
        line_ = stream_.line;
        column_ = stream_.column;
        int kind = 0;
        if (!collect(kind)) {
            return false;
        }
        if (kind == 0) {
            kind = naive_kind(lexeme_);
        }
        token = {lexeme_.empty() ? 1 : kind, lexeme_, line_, column_};
        return true;
    }

private:
    // Collects the lexeme; `kind` stays 0 when its text decides.
    bool collect(int& kind) {
        for (;;) {
            char first = '\0';
            char second = '\0';
            if (stream_.is_eof()) {
                return false;
            }
            if (!stream_.query(first, second)) {
                return io_error();
            }
            if (second != '\0') {
                if (!consume()) {
                    return io_error();
                }
                continue;
            }
            if (first == '\0') {
                stream_.count_one();
                continue;
            }
            if (first == '"' || first == '\'') {
                stream_.count_one();
                if (first == binder_) {
                    binder_ = '\0';
                    kind = 6;
                    return true;
                }
                if (lexeme_.empty()) {
                    binder_ = first;
                }
                continue;
            }
            if (first == '\\') {
                if (!escape()) {
                    return false;
                }
                continue;
            }
            if (binder_ != '\0') {
                if (!consume()) {
                    return io_error();
                }
                continue;
            }
            if (static_cast<unsigned char>(first) >= 128) {
                information += stream_.error + " : Stream " + std::string(1, first) + " is not parsed.\n";
                return false;
            }
            if (in_set(first, "\t\n\r ")) {
                if (!lexeme_.empty()) {
                    return true;
                }
                stream_.count_one();
                continue;
            }
            char next = '\0';
            char next_second = '\0';
            const bool has_next = stream_.query(next, next_second, 1);
            if (first == '/' && has_next && (next == '/' || next == '*')) {
                kind = next == '*' ? 8 : 9;
                return on_copy(&NaiveLexer::comment);
            }
            if (first == '#') {
                kind = 10;
                return on_copy(&NaiveLexer::preprocessor);
            }
            if (in_set(first, "()*,/:;=[]{}")) {
                if (lexeme_.empty()) {
                    consume();
                }
                return true;
            }
            consume();
        }
    }

    // Consumes a character and appends it. A second byte other than 0 tells that both came.
    bool consume() {
        char first = '\0';
        char second = '\0';
        if (!stream_.get(first, second) && second == '\0') {
            return false;
        }
        lexeme_ += first;
        if (second != '\0') {
            lexeme_ += second;
        }
        return true;
    }

    bool io_error() {
        information += stream_.error + " : Stream I/O Error.\n";
        return false;
    }

    bool escape() {
        stream_.count_one();
        char first = '\0';
        char second = '\0';
        if (!stream_.query(first, second)) {
            stream_.get(first, second);
            return io_error();
        }
        const std::string known = "\"'\\nrt";
        const std::size_t index = second == '\0' && first != '\0' ? known.find(first) : std::string::npos;
        if (index == std::string::npos) {
            information += "FilePos(" + std::to_string(line_) + "," + std::to_string(column_) +
                           ") : EscapeSequence<\\" + character(first, second) + "> is not format.\n";
            return false;
        }
        stream_.count_one();
        lexeme_ += "\"'\\\n\r\t"[index];
        return true;
    }

    static std::string character(char first, char second) {
        std::string text;
        if (first != '\0') {
            text += first;
        }
        if (second != '\0') {
            text += second;
        }
        return text;
    }

    // Reads on a copy of the stream, which takes its place only on success.
    bool on_copy(bool (NaiveLexer::*read)()) {
        const NaiveStream before = stream_;
        if ((this->*read)()) {
            return true;
        }
        io_error();
        stream_ = before;
        return false;
    }

    bool comment() {
        consume();
        const bool block = stream_.bytes[stream_.at] == '*';
        consume();
        return block ? block_comment() : rest_of_line();
    }

    bool preprocessor() {
        consume();
        return rest_of_line();
    }

    bool rest_of_line() {
        const int line = stream_.line;
        while (!stream_.is_eof() && stream_.line == line) {
            char first = '\0';
            char second = '\0';
            if (!stream_.get(first, second) && second == '\0') {
                return false;
            }
            if (second == '\0' && first == '\0') {
                return true;
            }
            if (second != '\0' || (first != '\r' && first != '\n')) {
                lexeme_ += character(first, second);
            }
        }
        return true;
    }

    bool block_comment() {
        while (!stream_.is_eof()) {
            char first = '\0';
            char second = '\0';
            if (!stream_.get(first, second) && second == '\0') {
                return false;
            }
            lexeme_ += character(first, second);
            char next = '\0';
            char next_second = '\0';
            if (first == '*' && stream_.query(next, next_second) && next == '/') {
                return consume();
            }
        }
        return true;
    }

    NaiveStream& stream_;
    std::string lexeme_;
    char binder_ = '\0';
    int line_ = -1;
    int column_ = -1;
};

}  // namespace orvil::test
