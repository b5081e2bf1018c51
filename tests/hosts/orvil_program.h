// The program under test.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/run_program.h"
#include "support/temp_dir.h"

namespace orvil::test {

inline ProgramResult orvil_program(const std::vector<std::string>& arguments) {
    return run_program("orvil", arguments);
}

inline void expect_result(const ProgramResult& result, int exit_code, const std::string& out, const std::string& err) {
    EXPECT_EQ(result.exit_code, exit_code);
    EXPECT_EQ(result.out, out);
    EXPECT_EQ(result.err, err);
}

inline std::string repeated(const std::string& text, int count) {
    std::string out;
    for (int i = 0; i < count; ++i) {
        out += text;
    }
    return out;
}

}  // namespace orvil::test
