#include "support/temp_dir.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <iterator>
#include <random>

namespace orvil::test {

TempDir::TempDir() {
    std::random_device device;
    do {
        folder_ = std::filesystem::temp_directory_path() / ("orvil-test-" + std::to_string(device()));
    } while (!std::filesystem::create_directory(folder_));
}

// Windows does not remove what is read-only.
TempDir::~TempDir() {
    std::error_code ignored;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_, ignored)) {
        std::filesystem::permissions(entry, std::filesystem::perms::owner_write, std::filesystem::perm_options::add,
                                     ignored);
    }
    std::filesystem::remove_all(folder_, ignored);
}

std::string TempDir::path(std::string_view name) const {
    return (folder_ / name).string();
}

std::string TempDir::write(std::string_view name, std::string_view bytes) const {
    std::string target = path(name);
    std::ofstream(target, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return target;
}

std::string read_file(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace orvil::test
