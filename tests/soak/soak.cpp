// Loads the library, works with it and frees it, again and again, and watches the memory of the process:
//
//     soak [SECONDS [KEPT]]
//
// Memory is flat when, behind a first fifth of the time, it grows by no more than a few blocks that the system's loader
// and heap come to need. With KEPT, so many bytes are kept for each time that the library is loaded: then it is not.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

#include "soak/round.h"
#include "soak/system.h"
#include "support/child_process.h"
#include "support/temp_dir.h"
#include "support/working_folder.h"

namespace {

using orvil::soak::Module;
using Clock = std::chrono::steady_clock;

constexpr int kDefaultSeconds = 600;
constexpr unsigned kRoundsPerLoad = 3;
constexpr std::size_t kGrowthAllowed = 1024 * 1024;

// Blocks that are kept on purpose, each with the address of the one before.
void* kept = nullptr;

void keep(std::size_t size) {
    if (size < sizeof kept) {
        return;
    }
    void* block = std::malloc(size);
    if (block != nullptr) {
        std::memset(block, 1, size);
        std::memcpy(block, &kept, sizeof kept);
        kept = block;
    }
}

// Loads, works and frees once. False when something is wrong.
bool load_once(unsigned load) {
    const Module module((orvil::test::program_folder() + ORVIL_SOAK_MODULE).c_str());
    const auto round = reinterpret_cast<orvil::soak::Round>(module.find(orvil::soak::kRoundName));
    if (round == nullptr || !orvil::soak::product_is_loaded()) {
        std::fprintf(stderr, "soak: the library cannot be loaded\n");
        return false;
    }
    for (unsigned i = 0; i < kRoundsPerLoad; ++i) {
        const char* wrong = round(load * kRoundsPerLoad + i);
        if (wrong != nullptr) {
            std::fprintf(stderr, "soak: wrong results of %s\n", wrong);
            return false;
        }
    }
    return true;
}

struct Watch {
    unsigned loads = 0;
    std::size_t highest_early = 0;
    std::size_t lowest_late = SIZE_MAX;
};

// The highest figure of the second fifth of the time and the lowest one of the last fifth are compared: what swings in
// between is no growth.
bool soak(int seconds, std::size_t kept_each_time, Watch& watch) {
    const orvil::test::TempDir folder;
    const orvil::test::InFolder inside(folder.path("."));
    const Clock::time_point begin = Clock::now();
    const std::chrono::duration<double> whole = std::chrono::seconds(seconds);
    for (double part = 0; part < 1; part = (Clock::now() - begin) / whole) {
        if (!load_once(watch.loads++)) {
            return false;
        }
        if (orvil::soak::product_is_loaded()) {
            std::fprintf(stderr, "soak: the library is still loaded\n");
            return false;
        }
        keep(kept_each_time);
        const std::size_t resident = orvil::soak::resident_bytes();
        if (part > 0.2 && part < 0.4) {
            watch.highest_early = (std::max)(watch.highest_early, resident);
        } else if (part > 0.8) {
            watch.lowest_late = (std::min)(watch.lowest_late, resident);
        }
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    const int seconds = argc > 1 ? std::atoi(argv[1]) : kDefaultSeconds;
    if (seconds < 1) {
        std::fprintf(stderr, "usage: soak [SECONDS [KEPT]]\n");
        return 2;
    }
    Watch watch;
    if (!soak(seconds, argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 0, watch)) {
        return 1;
    }
    if (watch.highest_early == 0 || watch.lowest_late == SIZE_MAX) {
        std::fprintf(stderr, "soak: too few loads to compare\n");
        return 1;
    }
    std::printf("%u loads, %zu KiB early, %zu KiB late\n", watch.loads, watch.highest_early / 1024,
                watch.lowest_late / 1024);
    if (ORVIL_SOAK_WATCHES && watch.lowest_late > watch.highest_early + kGrowthAllowed) {
        std::fprintf(stderr, "soak: memory grew by %zu KiB\n", (watch.lowest_late - watch.highest_early) / 1024);
        return 1;
    }
    return 0;
}
