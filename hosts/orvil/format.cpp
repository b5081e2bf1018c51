#include <algorithm>
#include <cstddef>
#include <deque>

#include "commands.h"
#include "heading.h"
#include "input.h"
#include "orvil/tokens/block_tokens.h"
#include "report.h"
#include "safe_write.h"

namespace orvil_host {
namespace {

constexpr const char* kComment = "Formatted by orvil";

class Formatter {
public:
    Formatter(const std::string& path, const std::string& target, const Input& input)
        : path_(path), target_(target), input_(input), body_(find_body(input.text)) {}

    // Whether nothing stands in the way; says everything that would be lost.
    bool may_write(bool drop) const {
        for (const Loss& loss : input_.review.losses) {
            const bool dropped = drop && loss.is_droppable();
            report(path_, finding_of_loss(input_.text, loss), dropped ? "dropped: " : "");
            if (!dropped) {
                return false;
            }
        }
        return true;
    }

    ExitCode write() {
        CLexTokenBlock master;
        const std::deque<std::size_t> kept = kept_tokens();
        if (!build(master)) {
            return fail("out of memory");
        }
        std::deque<CLexToken> expected;
        for (std::size_t index : kept) {
            expected.push_back(input_.text.tokens[index].token);
        }
        const WriteResult result = write_and_verify(target_, master, expected);
        if (result.first_changed) {
            say_changed(kept, *result.first_changed);
            return fail(target_ + " is not written", kRefused);
        }
        return result.failure.empty() ? kDone : fail(result.failure);
    }

private:
    // The body's tokens without the lost ones.
    std::deque<std::size_t> kept_tokens() const {
        std::deque<std::size_t> kept;
        auto loss = input_.review.losses.begin();
        const auto end = input_.review.losses.end();
        for (std::size_t index = body_.begin; index < body_.end; ++index) {
            bool is_lost = false;
            for (; loss != end && loss->token <= index; ++loss) {
                is_lost = is_lost || (loss->token == index && loss->is_of_token());
            }
            if (!is_lost) {
                kept.push_back(index);
            }
        }
        return kept;
    }

    // A heading, then the outermost entries with the comments between them.
    bool build(CLexTokenBlock& master) const {
        const std::string comment = body_.has_heading ? body_.comment : kComment;
        bool built = bt_make_master_block(master, target_.c_str(), comment.c_str());
        auto outer = input_.review.comments.begin();
        const int count = input_.root.GetBlockCount();
        for (int entry = 0; built && entry <= count; ++entry) {
            for (; outer != input_.review.comments.end() && outer->entries_before == entry; ++outer) {
                built = built && add_comment(master, outer->token);
            }
            built = built && (entry == count || bt_add_block(master, *input_.root.GetAt(entry)) >= 0);
        }
        return built;
    }

    bool add_comment(CLexTokenBlock& master, std::size_t index) const {
        const bool is_dress = index < body_.begin || index >= body_.end;
        return is_dress || master.AddToken(input_.text.tokens[index].token) >= 0;
    }

    void say_changed(const std::deque<std::size_t>& kept, std::size_t changed) const {
        if (changed < kept.size()) {
            const SourceToken& token = input_.text.tokens[kept[changed]];
            report(path_, {token.place, "a token that reads back as it is written", quoted(token.token)});
        }
    }

    const std::string& path_;
    const std::string& target_;
    const Input& input_;
    Body body_;
};

ExitCode format(const Arguments& arguments) {
    if (arguments.words.size() != 1 || arguments.value("out").empty()) {
        return misused(format_command(), "one file and -o with a file are needed");
    }
    const std::string path = arguments.words.front();
    const std::string target = arguments.value("out");
    Input input;
    if (!read_input(path, input)) {
        return kFailed;
    }
    if (input.review.deepest > kDeepestShown) {
        return fail(path + " is nested " + std::to_string(input.review.deepest) + " deep, and files are written to " +
                        std::to_string(kDeepestShown),
                    kRefused);
    }
    Formatter formatter(path, target, input);
    if (!formatter.may_write(arguments.has("drop"))) {
        return fail(target + " is not written, as it would lose this" +
                        (arguments.has("drop") ? "" : "; --drop leaves out comments and plain values"),
                    kRefused);
    }
    return formatter.write();
}

}  // namespace

const Command& format_command() {
    static const Command command{
        "format",
        "format FILE -o OUT [--drop]",
        "write a file anew in the standard layout",
        "Comments between the outermost entries are kept. Comments elsewhere, plain values inside of blocks and empty\n"
        "strings cannot be written: the first of them is named with its place, and OUT is left as it is.\n"
        "OUT is read back and compared before it takes the place of a file of that name; it may be FILE itself.\n"
        "  -o, --out OUT    the file to write\n"
        "  --drop           write without what cannot be written, and say each piece\n"
        "Exit codes: 0 written; 1 FILE does not read whole or OUT cannot be written; 2 something would be lost.\n",
        {{"out", 'o', true}, {"drop", kNoLetter, false}},
        format};
    return command;
}

}  // namespace orvil_host
