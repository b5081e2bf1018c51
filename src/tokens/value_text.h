// The text of one value, made by a printf format of whatever length.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace orvil::detail {

// Short texts stay within the object itself.
class ValueText {
public:
    // The format takes exactly the given values. Ends with null as text() when it cannot be followed or there is no
    // memory.
    template <typename... Values>
    explicit ValueText(const char* format, Values... values) {
        const int length = std::snprintf(inline_text_, sizeof(inline_text_), format, values...);
        if (length < 0) {
            text_ = nullptr;
        } else if (static_cast<std::size_t>(length) >= sizeof(inline_text_)) {
            const std::size_t size = static_cast<std::size_t>(length) + 1;
            text_ = static_cast<char*>(std::malloc(size));
            if (text_ != nullptr) {
                std::snprintf(text_, size, format, values...);
            }
        }
    }
    ~ValueText() {
        if (text_ != inline_text_) {
            std::free(text_);
        }
    }
    ValueText(const ValueText&) = delete;
    ValueText& operator=(const ValueText&) = delete;

    const char* text() const { return text_; }

private:
    char inline_text_[64] = {};
    char* text_ = inline_text_;
};

inline constexpr const char* kDecimalFormat = "%d";
inline constexpr const char* kHexaDecimalFormat = "0x%08X";
inline constexpr const char* kPrecisionFormat = "%.*g";

}  // namespace orvil::detail
