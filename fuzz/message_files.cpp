// Any bytes load without a fault of ours; what has been loaded keeps the rules of maps, and reads back from a file as
// it was stored.
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "orvil/messages/message_files.h"
#include "orvil/messages/message_manager.h"
#include "support/fuzz_check.h"

namespace {

std::string scratch_file() {
    static const std::string path =
        (std::filesystem::temp_directory_path() / ("orvil-fuzz-" + std::to_string(std::random_device{}()))).string();
    return path;
}

void check_items(const CMessageMap& map) {
    for (int i = 0; i < map.GetItemCount(); ++i) {
        const char* text = map.GetItemText(i);
        FUZZ_CHECK(text != nullptr && *text != '\0');
        FUZZ_CHECK(CMessageMap::IsMsgCode(map.GetItemCode(i)));
        FUZZ_CHECK(map.SearchItemText(map.GetItemCode(i)) != nullptr);
    }
}

// Stored items come by code, each with the newest text of its code.
void check_stored(const CMessageMap& map, const CMessageMap& stored) {
    FUZZ_CHECK(stored.GetItemCount() == map.GetItemCount());
    std::vector<int> counts(10000, 0);
    for (int i = 0; i < map.GetItemCount(); ++i) {
        ++counts[static_cast<std::size_t>(map.GetItemCode(i))];
    }
    for (int i = 0; i < stored.GetItemCount(); ++i) {
        const int code = stored.GetItemCode(i);
        FUZZ_CHECK(i == 0 || stored.GetItemCode(i - 1) <= code);
        FUZZ_CHECK(--counts[static_cast<std::size_t>(code)] >= 0);
        FUZZ_CHECK(std::string(stored.GetItemText(i)) == map.SearchItemText(code));
    }
}

void check_manager(const std::string& path) {
    CMessageManager manager;
    manager.Load(path.c_str());
    FUZZ_CHECK(manager.Store(path.c_str(), nullptr));
    CMessageManager stored;
    FUZZ_CHECK(stored.Load(path.c_str()));
    FUZZ_CHECK(stored.GetItemCount() == manager.GetItemCount());
    for (int i = 0; i < manager.GetItemCount(); ++i) {
        const CMessageMap& map = *manager.GetMessageMap(i);
        check_items(map);
        FUZZ_CHECK(i == 0 || manager.GetMessageMap(i - 1)->GetSubjectKeyCode() < map.GetSubjectKeyCode());
        FUZZ_CHECK(manager.SearchMessageMap(map.GetSubjectKeyCode()) == &map);
        FUZZ_CHECK(manager.SearchMessageMap(map.GetSubjectKeyText()) != nullptr);
        FUZZ_CHECK(std::string(stored.GetMessageMap(i)->GetSubjectKeyText()) == map.GetSubjectKeyText());
        check_stored(map, *stored.GetMessageMap(i));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string path = scratch_file();
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    CMessageMap map;
    map.AddItem(1, "old");
    const bool loaded = CMessageLoader().Load(path.c_str(), map);
    FUZZ_CHECK(loaded || map.GetItemCount() == 1);
    check_items(map);
    check_manager(path);

    CMessageMap stored;
    FUZZ_CHECK(CMessageRegister().Store(path.c_str(), map));
    FUZZ_CHECK(CMessageLoader().Load(path.c_str(), stored));
    check_stored(map, stored);
    std::filesystem::remove(path);
    return 0;
}
