// Any text as a notation: what is compiled, or refused, is what a naive reading of the rules says, and nothing beyond
// the text's end is read.
#include <pcre.h>

#include <cstring>
#include <memory>
#include <optional>
#include <string>

#include "orvil/strings/regex.h"
#include "strings/regex_entry.h"
#include "support/fuzz_check.h"

namespace {

struct Notation {
    std::string pattern;
    int options = 0;
};

std::optional<Notation> read_naively(std::string text) {
    while (!text.empty() && std::strchr(" \t\n\v\f\r", text[0]) != nullptr) {
        text.erase(0, 1);
    }
    const std::string no_delimiters = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz\\";
    if (text.empty() || no_delimiters.find(text[0]) != std::string::npos) {
        return std::nullopt;
    }
    const std::size_t closing = text.find(text[0], 1);
    Notation notation;
    notation.pattern = closing == std::string::npos || closing == 1 ? text.substr(1) : text.substr(1, closing - 1);
    const std::string letters = "imsxAEXU \n";
    const int values[] = {0x1, 0x2, 0x4, 0x8, 0x10, 0x20, 0x40, 0x200, 0, 0};
    for (std::size_t i = closing; i != std::string::npos && ++i < text.size();) {
        const std::size_t letter = letters.find(text[i]);
        if (letter == std::string::npos) {
            return std::nullopt;
        }
        notation.options |= values[letter];
    }
    return notation;
}

struct Free {
    void operator()(pcre* code) const { pcre_free(code); }
};
using Code = std::unique_ptr<pcre, Free>;

Code compile(const std::optional<Notation>& notation) {
    const char* message = nullptr;
    int offset = 0;
    return Code(notation ? pcre_compile(notation->pattern.c_str(), notation->options, &message, &offset, nullptr)
                         : nullptr);
}

void check_entry(const regex_entry& entry, const std::string& text, const pcre* expected) {
    FUZZ_CHECK(entry.zero == 0 && std::memcmp(entry.signature, "UrAs", 4) == 0);
    FUZZ_CHECK(entry.text == text && entry.length == text.size());
    FUZZ_CHECK(entry.references == 1 && entry.newer == nullptr && entry.older == nullptr);
    std::size_t size = 0;
    std::size_t expected_size = 0;
    pcre_fullinfo(entry.code, nullptr, PCRE_INFO_SIZE, &size);
    pcre_fullinfo(expected, nullptr, PCRE_INFO_SIZE, &expected_size);
    FUZZ_CHECK(size == expected_size);
    unsigned long options = 0;
    unsigned long expected_options = 0;
    pcre_fullinfo(entry.code, nullptr, PCRE_INFO_OPTIONS, &options);
    pcre_fullinfo(expected, nullptr, PCRE_INFO_OPTIONS, &expected_options);
    FUZZ_CHECK(options == expected_options);
    FUZZ_CHECK(std::memcmp(entry.code, expected, size) == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    orvil::fuzz::InputReader input(data, size < 2000 ? size : 2000);
    const std::string text = input.text(2000);
    const std::unique_ptr<char[]> exact(new char[text.size() + 1]);
    std::memcpy(exact.get(), text.c_str(), text.size() + 1);

    const Code expected = compile(read_naively(text));
    void* handle = regex_compile(exact.get());
    FUZZ_CHECK((handle != nullptr) == (expected != nullptr));
    FUZZ_CHECK(regex_check(handle) == (handle != nullptr));
    if (handle != nullptr) {
        check_entry(*static_cast<regex_entry*>(handle), text, expected.get());
        FUZZ_CHECK(regex_compile(text.c_str()) == handle);
        FUZZ_CHECK(regex_remove(handle) && regex_remove(text.c_str()));
    }
    FUZZ_CHECK(!regex_check(handle) && !regex_remove(text.c_str()));
    regex_cleanup();
    return 0;
}
