#include "message_catalogue.h"

#include <cstdint>

#include "input.h"
#include "orvil/messages/message_files.h"
#include "orvil/tokens/block_tokens.h"
#include "report.h"

namespace orvil_host {
namespace {

constexpr const char* kMapName = "MessageMap";

// What a block of a map holds beside messages: its name is followed by '{', the subject and '}'.
constexpr int kOtherEntries = 3;

std::string name_of(const CMessageMap& map) {
    return "map " + std::to_string(map.GetSubjectKeyCode()) + " " + quoted(map.GetSubjectKeyText());
}

std::string plural(int count, const std::string& singular, const std::string& plural) {
    return std::to_string(count) + " " + (count == 1 ? singular : plural);
}

// A message is two entries of its block.
void say_lost_messages(const std::string& path, const CLexTokenBlock& block, const CMessageMap& map) {
    const int idle = block.GetBlockCount() - kOtherEntries - 2 * map.GetItemCount();
    if (idle > 0) {
        fail(path + ": " + plural(idle, "entry makes", "entries make") + " no message in " + name_of(map));
    }
    for (int position = 0; position < map.GetItemCount(); ++position) {
        const int code = map.GetItemCode(position);
        if (map.GetItemText(position) != map.SearchItemText(code)) {
            fail(path + ": " + name_of(map) + " has message " + std::to_string(code) + " again; the last one counts");
        }
    }
}

}  // namespace

bool MessageCatalogue::add(const std::string& path) {
    Input input;
    if (!read_input(path, input)) {
        return false;
    }
    int blocks = 0;
    int next = 0;
    while (const CLexTokenBlock* block = bt_search_block(input.root, kMapName, next)) {
        add_block(path, *block);
        ++blocks;
    }
    const int others = input.root.GetBlockCount() - blocks;
    if (others > 0) {
        fail(path + ": " + plural(others, "entry is no message map", "entries are no message maps"));
    }
    return true;
}

void MessageCatalogue::add_block(const std::string& path, const CLexTokenBlock& block) {
    CMessageMap map;
    if (!CMessageLoader().Parse(block, map)) {
        fail(path + ": a map is refused: it has no Subject with a Title and a KeyCode");
        return;
    }
    if (!maps_.AddMap(map)) {
        fail(path + ": " + name_of(map) + " is refused: " + files_[map.GetSubjectKeyCode()] +
             " has a map of that code");
        return;
    }
    files_[map.GetSubjectKeyCode()] = path;
    say_lost_messages(path, block, map);
}

// Error numbers have 32 bits, so that those of high map codes start again from below.
const char* MessageCatalogue::text_of(int number) const {
    for (int position = 0; position < maps_.GetItemCount(); ++position) {
        const CMessageMap& map = *maps_.GetMessageMap(position);
        const int first = CMessageManager::GetFinalErrorCode(map.GetSubjectKeyCode(), 0);
        const auto code = static_cast<std::uint32_t>(number) - static_cast<std::uint32_t>(first);
        const char* text = map.SearchItemText(static_cast<int>(code));
        if (text != nullptr) {
            return text;
        }
    }
    return nullptr;
}

}  // namespace orvil_host
