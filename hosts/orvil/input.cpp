#include "input.h"

#include <optional>
#include <utility>

#include "orvil/tokens/block_tokens.h"
#include "report.h"

namespace orvil_host {
namespace {

// The parser goes on behind most faults without the block around them; a person wants to know the place.
bool say_why(const std::string& path, const Input& input, const CExtString& message) {
    if (!input.review.fault) {
        fail(path + ": " + message.GetString());
    } else if (message.IsEmpty()) {
        report(path, *input.review.fault);
    } else {
        report_with_message(path, *input.review.fault, message.GetString());
    }
    return false;
}

}  // namespace

bool read_input(const std::string& path, Input& input) {
    CExtString message;
    const bool parsed = bt_input_file(path.c_str(), input.root, message);
    std::optional<SourceText> text = read_source_text(path);
    if (!text) {
        fail(message.IsEmpty() ? "Can not open source file [" + path + "]" : message.GetString());
        return false;
    }
    input.text = std::move(*text);
    input.review = review(input.text);
    return (parsed && !input.review.fault) || say_why(path, input, message);
}

}  // namespace orvil_host
