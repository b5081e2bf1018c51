#include "plane_cases.h"

#include <cctype>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <map>

#include "orvil/tokens/block_tokens.h"

namespace orvil::test {
namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

const std::map<std::string, double>& words() {
    static const std::map<std::string, double> values{{"pi", kPi},
                                                      {"half_pi", kPi / 2},
                                                      {"third_pi", kPi / 3},
                                                      {"quarter_pi", kPi / 4},
                                                      {"two_pi", 2 * kPi},
                                                      {"inf", kInfinity},
                                                      {"minus_inf", -kInfinity},
                                                      {"nan", std::nan("")},
                                                      {"root2", std::sqrt(2.0)},
                                                      {"root3", std::sqrt(3.0)},
                                                      {"kept", kKept}};
    return values;
}

// False for a word that is no value, and for a hexadecimal, such as 1e300 written without a point.
bool read_value(const CLexToken& token, double& value) {
    if (token.GetTokenKind() == eTokenSymbol) {
        const auto found = words().find(token.GetString());
        value = found == words().end() ? 0.0 : found->second;
        return found != words().end();
    }
    value = std::strtod(token.GetString(), nullptr);
    return token.GetTokenKind() == eTokenDouble || token.GetTokenKind() == eTokenDecimal;
}

bool read_values(const CLexTokenBlock& block, const char* name, std::vector<double>& values) {
    const CLexTokenBlock* assignment = block.FindAssignmentBlockEntity(name);
    for (int i = 1; assignment != nullptr && i < assignment->GetBlockCount() - 1; ++i) {
        double value = 0.0;
        if (!read_value(*assignment->GetAt(i), value)) {
            return false;
        }
        values.push_back(value);
    }
    return !values.empty();
}

bool read_case(const CLexTokenBlock& block, PlaneCase& plane_case) {
    CExtString caption;
    CExtString function;
    bool is_read = bt_get_block_assign(block, "Caption", caption, true) &&
                   bt_get_block_assign(block, "Function", function, false) &&
                   read_values(block, "Given", plane_case.given) && read_values(block, "Expected", plane_case.expected);
    if (block.FindAssignmentBlockEntity("Within") != nullptr) {
        is_read = is_read && bt_get_block_assign(block, "Within", plane_case.within);
    }
    plane_case.caption = caption.GetString();
    plane_case.function = function.GetString();
    return is_read;
}

}  // namespace

std::vector<PlaneCase> read_plane_cases(const std::string& file) {
    const std::string path = "tests/data/geometry/" + file;
    CLexTokenBlock root;
    CExtString message;
    if (!bt_input_file(path.c_str(), root, message) || !message.IsEmpty()) {
        return {{path + " does not read", "", {}, {}}};
    }
    std::vector<PlaneCase> cases;
    int index = 0;
    while (const CLexTokenBlock* block = bt_search_block(root, "Case", index)) {
        PlaneCase plane_case;
        if (!read_case(*block, plane_case)) {
            return {{path + " has a bad case after " + std::to_string(cases.size()), "", {}, {}}};
        }
        cases.push_back(plane_case);
    }
    return cases;
}

std::string test_name(const std::string& caption) {
    std::string name;
    bool starts_word = true;
    for (char c : caption) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte) != 0) {
            name += starts_word ? static_cast<char>(std::toupper(byte)) : c;
        }
        starts_word = std::isalnum(byte) == 0;
    }
    return name;
}

}  // namespace orvil::test
