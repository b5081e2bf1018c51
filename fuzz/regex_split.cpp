// Splitting any short text gives the pieces that the naive model gives; without empty matches the pieces and the
// matches between them make up the text again.
#include <cstring>
#include <iterator>
#include <string>
#include <vector>

#include "../tests/strings/regex_models.h"
#include "orvil/strings/ext_str_array.h"
#include "orvil/strings/ext_string.h"
#include "orvil/strings/regex.h"
#include "strings/regex_entry.h"
#include "support/fuzz_check.h"
#include "support/regex_patterns.h"

namespace {

std::vector<std::string> texts_of(const CExtStrArray& array) {
    std::vector<std::string> texts;
    for (int i = 0; i < array.GetSize(); ++i) {
        texts.emplace_back(array.GetAt(i) != nullptr ? array.GetAt(i) : "");
    }
    return texts;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using orvil::fuzz::kPatterns;
    orvil::fuzz::InputReader input(data, size);
    const char* pattern = kPatterns[input.below(std::size(kPatterns))];
    const std::string text = input.text(400);

    const auto* entry = static_cast<const regex_entry*>(regex_compile(pattern));
    if (entry == nullptr) {
        FUZZ_CHECK(std::strstr(pattern, "UTF8") != nullptr);  // PCRE may be built without it
        return 0;
    }
    const CExtString subject(text.c_str());
    const std::vector<std::string> pieces = texts_of(subject.RegexSplit(pattern));
    FUZZ_CHECK(pieces == orvil::test::model_split(entry->code, text));

    const CExtStrArray commas = subject.RegexSplit("#,#");
    std::string joined;
    for (const std::string& piece : texts_of(commas)) {
        joined += piece + ",";
    }
    FUZZ_CHECK(text.empty() ? joined.empty() : joined == text || joined == text + ",");
    regex_cleanup();
    return 0;
}
