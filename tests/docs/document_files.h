// A working folder that holds the files which a document names.
#pragma once

#include <filesystem>
#include <string>

#include "docs/markdown.h"
#include "support/temp_dir.h"

namespace orvil::test {

// Makes the folder, writes each fence "orvil file=NAME" of the document into it, and works there while it lives.
class DocumentFolder {
public:
    explicit DocumentFolder(const std::string& document);
    ~DocumentFolder();
    DocumentFolder(const DocumentFolder&) = delete;
    DocumentFolder& operator=(const DocumentFolder&) = delete;

private:
    TempDir folder_;
    std::filesystem::path before_;
};

// The bytes of the file that a fence shows. The word "crlf" makes its line ends CR LF, "no-line-end" takes the last one
// away.
std::string bytes_of(const Fence& fence);

}  // namespace orvil::test
