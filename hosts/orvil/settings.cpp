#include "settings.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <optional>
#include <system_error>

#include "name_check.h"
#include "orvil/tokens/block_tokens.h"
#include "report.h"

namespace orvil_host {
namespace {

// Reads a whole text as a number of 32 bits; nothing when it does not fit.
template <typename Number>
std::optional<Number> read_number(const std::string& digits, int base) {
    Number number = 0;
    const char* end = digits.data() + digits.size();
    const std::from_chars_result read = std::from_chars(digits.data(), end, number, base);
    return read.ec == std::errc() && read.ptr == end ? std::optional(number) : std::nullopt;
}

bool starts_blank(const std::string& text) {
    return text.front() == ' ' || text.front() == '\t';
}

bool is_integer(const std::string& text) {
    return !starts_blank(text) && CExtString::IsIntegerFormat(text.c_str());
}

bool is_hexadecimal(const std::string& text) {
    return text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X') &&
           CExtString::IsHexaDecimalFormat(text.c_str());
}

// The language takes more for a double than the C library does, and digits alone for none: 1.2.3, 1e and 007 are texts.
bool is_double(const std::string& text) {
    if (starts_blank(text) || !CExtString::IsFloatingPointFormat(text.c_str()) ||
        text.find_first_of(".eE") == std::string::npos) {
        return false;
    }
    char* end = nullptr;
    std::strtod(text.c_str(), &end);
    return *end == '\0';
}

// The first format that keeps the value. All of them write a point, so the result reads as a double.
const char* format_for(double value) {
    constexpr std::array<const char*, 5> kFormats{"%.6lf", "%.9lf", "%.12lf", "%.15le", "%.16le"};
    constexpr std::size_t kFirstWithExponent = 3;
    constexpr double kLargestPlain = 1e15;
    for (std::size_t i = std::fabs(value) < kLargestPlain ? 0 : kFirstWithExponent; i + 1 < kFormats.size(); ++i) {
        CExtString written;
        written.Format(kFormats[i], value);  // NOLINT(clang-diagnostic-format-nonliteral)
        if (std::strtod(written.GetString(), nullptr) == value) {
            return kFormats[i];
        }
    }
    return kFormats.back();
}

std::string too_large(const std::string& value, const char* room) {
    return quoted(value) + " does not fit into " + room;
}

std::string result_of(bool added) {
    return added ? "" : "out of memory";
}

std::string add_integer(CLexTokenBlock& block, const char* name, const std::string& value) {
    const std::optional<int> number = read_number<int>(value.substr(value.front() == '+' ? 1 : 0), 10);
    return number ? result_of(bt_add_block_assign(block, name, *number)) : too_large(value, "32 bits");
}

std::string add_hexadecimal(CLexTokenBlock& block, const char* name, const std::string& value) {
    const std::optional<unsigned> number = read_number<unsigned>(value.substr(2), 16);
    return number ? result_of(bt_add_block_assign(block, name, *number)) : too_large(value, "32 bits");
}

std::string add_double(CLexTokenBlock& block, const char* name, const std::string& value) {
    const double number = std::strtod(value.c_str(), nullptr);
    return std::isfinite(number) ? result_of(bt_add_block_assign(block, name, number, format_for(number)))
                                 : too_large(value, "a double");
}

std::string add_value(CLexTokenBlock& block, const char* name, const std::string& value) {
    if (value.empty()) {
        return std::string(name) + " is given an empty string, which a file cannot hold";
    }
    if (value == "On" || value == "Off") {
        return result_of(bt_add_block_assign(block, name, value == "On"));
    }
    if (is_integer(value)) {
        return add_integer(block, name, value);
    }
    if (is_hexadecimal(value)) {
        return add_hexadecimal(block, name, value);
    }
    if (is_double(value)) {
        return add_double(block, name, value);
    }
    return result_of(bt_add_block_assign(block, name, value.c_str(), true));
}

}  // namespace

std::string add_setting(CLexTokenBlock& block, const std::string& setting) {
    const std::size_t equals = setting.find('=');
    if (equals == std::string::npos) {
        return quoted(setting) + " is not of the form NAME=VALUE";
    }
    const std::string name = setting.substr(0, equals);
    std::string trouble = why_no_name(name);
    if (!trouble.empty()) {
        return trouble;
    }
    if (block.FindAssignmentBlockEntity(name.c_str()) != nullptr) {
        return name + " is given twice";
    }
    return add_value(block, name.c_str(), setting.substr(equals + 1));
}

}  // namespace orvil_host
