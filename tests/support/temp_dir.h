// A folder of its own for a test, removed with everything in it when the test ends.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace orvil::test {

class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    // The path of an entry of this folder, which need not exist.
    std::string path(std::string_view name) const;

    // Writes a file byte by byte as given and returns its path.
    std::string write(std::string_view name, std::string_view bytes) const;

private:
    std::filesystem::path folder_;
};

// The bytes of a file; fails the running test when there is none.
std::string read_file(const std::string& path);

}  // namespace orvil::test
