// Runs a test in a code page with double-byte characters, where the system has one.
#pragma once

#include <clocale>
#include <cstdlib>
#include <string>

namespace orvil::test {

// Japanese (Shift JIS), in which 0x81 to 0x9F and 0xE0 to 0xFC are lead bytes. Elsewhere every byte is a character.
class DoubleByteLocale {
public:
    DoubleByteLocale() : former_(std::setlocale(LC_ALL, nullptr)) {
        for (const char* name : {"Japanese_Japan.932", ".932", "ja_JP.SJIS", "ja_JP.sjis", "ja_JP.shiftjis"}) {
            if (std::setlocale(LC_ALL, name) != nullptr && MB_CUR_MAX == 2) {
                active_ = true;
                return;
            }
        }
        std::setlocale(LC_ALL, former_.c_str());
    }
    ~DoubleByteLocale() { std::setlocale(LC_ALL, former_.c_str()); }
    DoubleByteLocale(const DoubleByteLocale&) = delete;
    DoubleByteLocale& operator=(const DoubleByteLocale&) = delete;

    bool active() const { return active_; }

private:
    std::string former_;
    bool active_ = false;
};

}  // namespace orvil::test
