#include <deque>

#include "commands.h"
#include "name_check.h"
#include "orvil/tokens/block_tokens.h"
#include "report.h"
#include "safe_write.h"
#include "settings.h"

namespace orvil_host {
namespace {

constexpr const char* kComment = "Made by orvil";
constexpr const char* kBlockName = "Settings";

// A block of assignments as the tokens that a file holds for it.
std::deque<CLexToken> tokens_of(const CLexTokenBlock& block) {
    std::deque<CLexToken> tokens{block};
    for (int i = 0; i < block.GetBlockCount(); ++i) {
        const CLexTokenBlock& entry = *block.GetAt(i);
        tokens.push_back(entry);
        for (int j = 0; j < entry.GetBlockCount(); ++j) {
            tokens.push_back(*entry.GetAt(j));
        }
    }
    return tokens;
}

ExitCode write_block(const std::string& target, const CLexTokenBlock& block) {
    CLexTokenBlock master;
    if (!bt_make_master_block(master, target.c_str(), kComment) || bt_add_block(master, block) < 0) {
        return fail("out of memory");
    }
    const WriteResult result = write_and_verify(target, master, tokens_of(block));
    if (result.failure.empty()) {
        return kDone;
    }
    return fail(result.failure, result.first_changed ? kRefused : kFailed);
}

ExitCode make_new(const Arguments& arguments) {
    if (arguments.value("out").empty() || arguments.words.empty()) {
        return misused(new_command(), "-o with a file, and at least one NAME=VALUE, are needed");
    }
    const std::string block_name = arguments.value("block", kBlockName);
    std::string trouble = why_no_name(block_name);
    if (!trouble.empty()) {
        return misused(new_command(), trouble);
    }
    CLexTokenBlock block;
    if (!bt_init_block(block, block_name.c_str())) {
        return fail("out of memory");
    }
    for (const std::string& setting : arguments.words) {
        trouble = add_setting(block, setting);
        if (!trouble.empty()) {
            return misused(new_command(), trouble);
        }
    }
    return write_block(arguments.value("out"), block);
}

}  // namespace

const Command& new_command() {
    static const Command command{
        "new",
        "new -o OUT [--block NAME] NAME=VALUE...",
        "make a file with one block of settings",
        "A value is a decimal (5, -5), a hexadecimal (0xFF), a double (1.5, 1e5), the switch On or Off, or else a\n"
        "string. Numbers have 32 bits. Words of the letters a to f only read as numbers and cannot be names.\n"
        "OUT is read back and compared before it takes the place of a file of that name.\n"
        "  -o, --out OUT    the file to write\n"
        "  --block NAME     the block's name instead of Settings\n"
        "Exit codes: 0 written; 1 OUT cannot be written; 2 OUT would not read back the same; 64 a bad name or value.\n",
        {{"out", 'o', true}, {"block", kNoLetter, true}},
        make_new};
    return command;
}

}  // namespace orvil_host
