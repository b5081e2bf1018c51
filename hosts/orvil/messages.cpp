#include <charconv>
#include <cstdio>
#include <deque>

#include "commands.h"
#include "message_catalogue.h"
#include "orvil/messages/message_files.h"
#include "orvil/tokens/block_tokens.h"
#include "report.h"
#include "safe_write.h"

namespace orvil_host {
namespace {

constexpr const char* kBanner = "Messages put together by orvil";

// A text in one line, as a file would hold it.
std::string written_form(const char* text) {
    CLexToken token;
    CExtString written;
    token.Create(text, 0, 0, false, eTokenString);
    token.CreateOutputString(written);
    return written.GetString();
}

// --- listing --------------------------------------------------------------------------------------------------------

void print_map(const CMessageMap& map) {
    const int code = map.GetSubjectKeyCode();
    std::printf("%d %s\n", code, written_form(map.GetSubjectKeyText()).c_str());
    for (int position = 0; position < map.GetItemCount(); ++position) {
        const int number = CMessageManager::GetFinalErrorCode(code, map.GetItemCode(position));
        std::printf("  %d %s\n", number, written_form(map.GetItemText(position)).c_str());
    }
}

ExitCode list_maps(const CMessageManager& maps) {
    for (int position = 0; position < maps.GetItemCount(); ++position) {
        print_map(*maps.GetMessageMap(position));
    }
    return kDone;
}

ExitCode print_text(const MessageCatalogue& catalogue, const std::string& path, int number) {
    const char* text = catalogue.text_of(number);
    if (text == nullptr) {
        return fail(path + " has no message " + std::to_string(number));
    }
    std::printf("%s\n", text);
    return kDone;
}

// --- putting together -----------------------------------------------------------------------------------------------

// A node as the tokens that a file holds for it. A listing has no token of its own, and map trees are four deep.
void append_tokens(const CLexTokenBlock& node, std::deque<CLexToken>& tokens) {
    if (!node.IsListingType()) {
        tokens.push_back(node);
    }
    for (int i = 0; i < node.GetBlockCount(); ++i) {
        append_tokens(*node.GetAt(i), tokens);
    }
}

ExitCode write_maps(const std::string& target, const CMessageManager& maps) {
    CLexTokenBlock master;
    if (!bt_make_master_block(master, target.c_str(), kBanner)) {
        return fail(target + " cannot be written");
    }
    std::deque<CLexToken> tokens;
    for (int position = 0; position < maps.GetItemCount(); ++position) {
        const int place = master.GetBlockCount();
        CMessageRegister().Regist(master, *maps.GetMessageMap(position));
        if (master.GetBlockCount() == place) {
            return fail("out of memory");
        }
        append_tokens(*master.GetAt(place), tokens);
    }
    const WriteResult result = write_and_verify(target, master, tokens);
    if (result.failure.empty()) {
        return kDone;
    }
    return fail(result.failure, result.first_changed ? kRefused : kFailed);
}

// --- the command line -----------------------------------------------------------------------------------------------

bool read_number(const std::string& text, int& number) {
    const char* end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end;
}

// Why the command line makes no sense; nothing when it does.
std::string trouble_with(const Arguments& arguments, int& number) {
    if (arguments.has("code") && !read_number(arguments.value("code"), number)) {
        return "--code needs a number of 32 bits";
    }
    if (!arguments.has("out")) {
        return arguments.words.size() == 1 ? "" : "one file, or -o with a file, is needed";
    }
    if (arguments.has("code")) {
        return "--code and -o do not go together";
    }
    return arguments.words.empty() || arguments.value("out").empty() ? "files, and -o with a file, are needed" : "";
}

ExitCode messages(const Arguments& arguments) {
    int number = 0;
    const std::string trouble = trouble_with(arguments, number);
    if (!trouble.empty()) {
        return misused(messages_command(), trouble);
    }
    MessageCatalogue catalogue;
    for (const std::string& path : arguments.words) {
        if (!catalogue.add(path)) {
            return kFailed;
        }
    }
    if (catalogue.maps().GetItemCount() == 0) {
        return fail("there is no message map in " + arguments.words.back());
    }
    if (arguments.has("out")) {
        return write_maps(arguments.value("out"), catalogue.maps());
    }
    return arguments.has("code") ? print_text(catalogue, arguments.words.front(), number) : list_maps(catalogue.maps());
}

}  // namespace

const Command& messages_command() {
    static const Command command{
        "messages",
        "messages FILE [--code N] | FILE... -o OUT",
        "list messages, look one up, or put message files together",
        "Lists the message maps of a file by their codes, and below each its messages by their error numbers: the "
        "code\n"
        "of the map x 10000 + the code of the message. Of several maps of one code only the first counts, and of "
        "several\n"
        "messages of one code only the last. What makes no map or no message is said.\n"
        "OUT receives the maps of all files, by code, and nothing else: no comments and no other entries. It is read\n"
        "back and compared before it takes the place of a file of that name; it may be one of the FILEs.\n"
        "  --code N         print the text of one error number\n"
        "  -o, --out OUT    write the maps of all files to one\n"
        "Exit codes: 0 done; 1 a FILE does not read whole, there is no map or no such message, or OUT cannot be\n"
        "written; 2 OUT would not read back the same.\n",
        {{"code", kNoLetter, true}, {"out", 'o', true}},
        messages};
    return command;
}

}  // namespace orvil_host
