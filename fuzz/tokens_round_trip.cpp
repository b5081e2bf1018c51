// Any bytes parse without a fault of ours, and what is written of the tree reads back as the same entries, wherever the
// language has a form for them.
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

#include "orvil/tokens/block_tokens.h"
#include "orvil/tokens/token_parser.h"
#include "orvil/tokens/token_register.h"
#include "support/fuzz_check.h"

namespace {

constexpr std::string_view kDelimiters = "(),*/:;=[]{}+-.";

// Whether a text stands for itself outside quotes.
bool is_ordinary(std::string_view text) {
    for (const char c : text) {
        if (c <= ' ' || c > '~' || std::string_view("\"'#()*,/:;=[\\]{}").find(c) != std::string_view::npos) {
            return false;
        }
    }
    return !text.empty();
}

bool is_plain_line(std::string_view text) {
    const std::size_t sign = text.find('#');
    return sign != std::string_view::npos && (sign == 0 || is_ordinary(text.substr(0, sign)));
}

bool token_reads_back(const CLexToken& token, bool whole_line) {
    const std::string_view text = token.GetString();
    switch (token.GetTokenKind()) {
        case eTokenMetaChar:
            return kDelimiters.find(text) != std::string_view::npos;
        case eTokenString:
            return !text.empty();
        case eTokenPreprocessor:
            return whole_line && is_plain_line(text);
        default:
            return is_ordinary(text);
    }
}

// Only entries of clean trees are compared. Depth is bounded by the size of the input.
bool entry_reads_back(const CLexTokenBlock& entry, int depth) {
    const int count = entry.GetBlockCount();
    if (depth > 100) {
        return false;
    }
    if (entry.IsInvalidType()) {
        return !entry.IsSymbolToken() && token_reads_back(entry, true);
    }
    if (!is_ordinary(entry.GetString()) || count < 2) {
        return false;
    }
    for (int i = 0; i < count; ++i) {
        const CLexTokenBlock& child = *entry.GetAt(i);
        const bool edge = entry.IsBlockType() && (i == 0 || i == count - 1);
        const bool reads_back = entry.IsAssignType() ? child.IsInvalidType() && token_reads_back(child, false)
                                : edge               ? child.Compare(eTokenMetaChar, i == 0 ? "{" : "}")
                                                     : !child.IsInvalidType() && entry_reads_back(child, depth + 1);
        if (!reads_back) {
            return false;
        }
    }
    return true;
}

bool same(const CLexTokenBlock& a, const CLexTokenBlock& b) {
    if (a.GetTokenKind() != b.GetTokenKind() || a.GetPureString() != b.GetPureString() ||
        a.QueryGrammerType() != b.QueryGrammerType() || a.GetBlockCount() != b.GetBlockCount()) {
        return false;
    }
    for (int i = 0; i < a.GetBlockCount(); ++i) {
        if (!same(*a.GetAt(i), *b.GetAt(i))) {
            return false;
        }
    }
    return true;
}

std::string scratch_file() {
    static const std::string path =
        (std::filesystem::temp_directory_path() / ("orvil-fuzz-" + std::to_string(std::random_device{}()))).string();
    return path;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string path = scratch_file();
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    CLexTokenBlock read;
    CTokenParser parser(path.c_str(), size > 0 && data[0] == '!');
    const bool parsed = parser.DoParse(read);
    FUZZ_CHECK(parsed == read.IsBlockType());

    CLexTokenBlock root;
    root.Create("", -1, -1, true, eTokenNone);
    root.SetupGrammerType(eGrammerBlock);
    for (int i = 0; i < read.GetBlockCount(); ++i) {
        if (entry_reads_back(*read.GetAt(i), 0)) {
            FUZZ_CHECK(root.AddBlock(*read.GetAt(i)) >= 0);
        }
    }
    FUZZ_CHECK(CTokenRegister(path.c_str(), true, 4).DoRegist(root, false));
    CLexTokenBlock again;
    FUZZ_CHECK(bt_input_file(path.c_str(), again));
    FUZZ_CHECK(again.GetBlockCount() == root.GetBlockCount());
    for (int i = 0; i < root.GetBlockCount(); ++i) {
        FUZZ_CHECK(same(*root.GetAt(i), *again.GetAt(i)));
    }
    std::filesystem::remove(path);
    return 0;
}
