// How findings and failures are said. Everything here goes to standard error.
#pragma once

#include <string>

#include "exit_codes.h"
#include "orvil/tokens/lex_token.h"

namespace orvil_host {

// A place in a file as editors count: from 1, lines end at a line feed, a column is a byte.
struct Place {
    int line = 1;
    int column = 1;
};

// Something at a place that should not be there.
struct Finding {
    Place place;
    std::string expected;
    std::string found;
};

// "FILE:LINE:COLUMN: GRADE expected X, found Y". The grade is "", "warning: " or "dropped: ".
void report(const std::string& file, const Finding& finding, const std::string& grade = "");

// The same for a file that the library refused, with the library's own message behind it.
void report_with_message(const std::string& file, const Finding& finding, const std::string& message);

// "orvil: MESSAGE". The message's line end, if it has one, is not needed.
ExitCode fail(const std::string& message, ExitCode code = kFailed);

// A token as it stands in a finding: within apostrophes, control characters and high bytes as \xHH, long ones cut.
std::string quoted(const std::string& text);
std::string quoted(const CLexToken& token);

inline const std::string kEndOfFile = "the end of the file";

}  // namespace orvil_host
