// Runs a fuzz target once on each file of the folders given as arguments, so that seeds and kept crashes are replayed
// by the ordinary tests. A folder may be missing, but a run without any input fails.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

void replay(const std::filesystem::path& file) {
    std::printf("%s\n", file.filename().string().c_str());
    std::fflush(stdout);
    std::ifstream stream(file, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
}

int replay_folder(const std::filesystem::path& folder) {
    if (!std::filesystem::is_directory(folder)) {
        return 0;
    }
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.is_regular_file()) {
            replay(entry.path());
            ++count;
        }
    }
    return count;
}

}  // namespace

int main(int argc, char** argv) {
    int count = 0;
    for (int i = 1; i < argc; ++i) {
        count += replay_folder(argv[i]);
    }
    std::printf("%d inputs\n", count);
    return count > 0 ? 0 : 1;
}
