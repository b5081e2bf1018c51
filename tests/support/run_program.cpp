#include "support/run_program.h"

#include <cstddef>

#include "support/child_process.h"
#include "support/spawn.h"
#include "support/temp_dir.h"

namespace orvil::test {
namespace {

std::string with_plain_line_ends(const std::string& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r' || i + 1 == text.size() || text[i + 1] != '\n') {
            out += text[i];
        }
    }
    return out;
}

}  // namespace

ProgramResult run_program(const std::string& program, const std::vector<std::string>& arguments) {
    const TempDir folder;
    const std::string out = folder.write("out", "");
    const std::string err = folder.write("err", "");
    const int exit_code = spawn_and_wait(program_folder() + program, arguments, out, err);
    return {exit_code, with_plain_line_ends(read_file(out)), with_plain_line_ends(read_file(err))};
}

}  // namespace orvil::test
