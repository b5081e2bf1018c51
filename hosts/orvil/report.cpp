#include "report.h"

#include <cstddef>
#include <cstdio>

namespace orvil_host {
namespace {

constexpr std::size_t kLongestQuote = 40;

std::string without_line_end(std::string text) {
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) {
        text.pop_back();
    }
    return text;
}

void append_printable(std::string& out, char character) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte >= ' ' && byte < 0x7F) {
        out += character;
        return;
    }
    char escape[5];
    std::snprintf(escape, sizeof escape, "\\x%02X", byte);
    out += escape;
}

std::string line_of(const std::string& file, const Finding& finding, const std::string& grade) {
    return file + ":" + std::to_string(finding.place.line) + ":" + std::to_string(finding.place.column) + ": " + grade +
           "expected " + finding.expected + ", found " + finding.found;
}

std::string printable(const std::string& text) {
    std::string out;
    for (char character : text) {
        append_printable(out, character);
    }
    return out;
}

void say(const std::string& line) {
    std::fprintf(stderr, "%s\n", line.c_str());
}

}  // namespace

void report(const std::string& file, const Finding& finding, const std::string& grade) {
    say(line_of(file, finding, grade));
}

void report_with_message(const std::string& file, const Finding& finding, const std::string& message) {
    say(line_of(file, finding, "") + " (" + printable(without_line_end(message)) + ")");
}

ExitCode fail(const std::string& message, ExitCode code) {
    say("orvil: " + without_line_end(message));
    return code;
}

std::string quoted(const std::string& text) {
    return "'" + printable(text.substr(0, kLongestQuote)) + (text.size() > kLongestQuote ? "...'" : "'");
}

std::string quoted(const CLexToken& token) {
    if (token.IsEmptyToken()) {
        return quoted("\"\"");
    }
    CExtString written;
    const bool has_form = token.CreateOutputString(written);
    return quoted(has_form ? written.GetString() : token.GetString());
}

}  // namespace orvil_host
