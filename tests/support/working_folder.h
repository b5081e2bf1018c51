// The working folder of a test.
#pragma once

#include <filesystem>
#include <string>

namespace orvil::test {

// Makes a folder the working folder for the length of a test.
class InFolder {
public:
    explicit InFolder(const std::filesystem::path& folder) : former_(std::filesystem::current_path()) {
        std::filesystem::current_path(folder);
    }
    ~InFolder() {
        std::error_code ignored;
        std::filesystem::current_path(former_, ignored);
    }
    InFolder(const InFolder&) = delete;
    InFolder& operator=(const InFolder&) = delete;

private:
    std::filesystem::path former_;
};

inline std::string working_folder() {
    return std::filesystem::current_path().string();
}

}  // namespace orvil::test
