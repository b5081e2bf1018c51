// What fuzz targets share: a check that ends the program in every kind of build, and a reader that takes an input
// apart.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace orvil::fuzz {

[[noreturn]] inline void fail(const char* property, const char* file, int line) {
    std::fprintf(stderr, "%s:%d: broken property: %s\n", file, line, property);
    std::fflush(stderr);
    std::abort();
}

// Hands out an input's bytes from the front. Past the end there are zeros and empty texts.
class InputReader {
public:
    InputReader(const std::uint8_t* data, std::size_t size) : data_(data), left_(size) {}

    std::size_t left() const { return left_; }

    std::uint8_t byte() {
        if (left_ == 0) {
            return 0;
        }
        --left_;
        return *data_++;
    }

    // A number below `limit`, which is at most 256.
    std::size_t below(std::size_t limit) { return byte() % limit; }

    // The bytes up to the next zero byte, at most `limit` of them; the zero byte is passed over.
    std::string text(std::size_t limit) {
        std::string result;
        while (left_ > 0 && result.size() < limit) {
            const std::uint8_t next = byte();
            if (next == 0) {
                break;
            }
            result.push_back(static_cast<char>(next));
        }
        return result;
    }

private:
    const std::uint8_t* data_;
    std::size_t left_;
};

}  // namespace orvil::fuzz

// Ends the program when the condition does not hold.
#define FUZZ_CHECK(condition) ((condition) ? static_cast<void>(0) : ::orvil::fuzz::fail(#condition, __FILE__, __LINE__))
