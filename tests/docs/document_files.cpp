#include "docs/document_files.h"

namespace orvil::test {
namespace {

std::string with_cr_lf(const std::string& text) {
    std::string out;
    for (const char c : text) {
        out += c == '\n' ? std::string("\r\n") : std::string(1, c);
    }
    return out;
}

}  // namespace

std::string bytes_of(const Fence& fence) {
    std::string text = fence.text;
    if (fence.has("no-line-end")) {
        text.pop_back();
    }
    return fence.has("crlf") ? with_cr_lf(text) : text;
}

DocumentFolder::DocumentFolder(const std::string& document) : before_(std::filesystem::current_path()) {
    for (const Fence& fence : fences_of_document(document)) {
        if (fence.kind() == "orvil" && !fence.value("file").empty()) {
            folder_.write(fence.value("file"), bytes_of(fence));
        }
    }
    std::filesystem::current_path(folder_.path(""));
}

// Windows removes no folder in which a program works.
DocumentFolder::~DocumentFolder() {
    std::filesystem::current_path(before_);
}

}  // namespace orvil::test
