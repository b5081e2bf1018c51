// Replacing in any short text gives what the naive model gives. Where a run repeats itself the model only knows the
// result when empty matches kept it going; any result that ends is right otherwise.
#include <cstring>
#include <iterator>
#include <string>

#include "../tests/strings/regex_models.h"
#include "orvil/strings/ext_string.h"
#include "orvil/strings/regex.h"
#include "strings/regex_entry.h"
#include "support/fuzz_check.h"
#include "support/regex_patterns.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using orvil::fuzz::kPatterns;
    orvil::fuzz::InputReader input(data, size);
    const char* pattern = kPatterns[input.below(std::size(kPatterns))];
    const std::string replacement = input.text(8);
    const std::string text = input.text(200);

    const auto* entry = static_cast<const regex_entry*>(regex_compile(pattern));
    if (entry == nullptr) {
        FUZZ_CHECK(std::strstr(pattern, "UTF8") != nullptr);  // PCRE may be built without it
        return 0;
    }
    const CExtString result = CExtString(text.c_str()).RegexReplace(pattern, replacement.c_str());
    bool ended = false;
    const std::string expected = orvil::test::model_replace(entry->code, text, replacement, ended);
    FUZZ_CHECK(!ended || result == expected.c_str());
    regex_cleanup();
    return 0;
}
