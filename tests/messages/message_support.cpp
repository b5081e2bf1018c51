#include "messages/message_support.h"

#include <cstdio>
#include <filesystem>
#include <vector>

namespace orvil::test {

std::string show(const CMessageMap& map) {
    std::string text = std::to_string(map.GetSubjectKeyCode()) + " " + map.GetSubjectKeyText() + ":";
    for (int position = 0; position < map.GetItemCount(); ++position) {
        const char* item = map.GetItemText(position);
        text += item == nullptr ? " ~" : " " + std::to_string(map.GetItemCode(position)) + "=" + item;
    }
    return text;
}

std::string show(const CExtStrArray& array) {
    std::string text;
    for (int i = 0; i < array.GetSize(); ++i) {
        text += std::string("[") + (array.GetAt(i) == nullptr ? "~" : array.GetAt(i)) + "]";
    }
    return text;
}

std::string codes_of(const CMessageMap& map) {
    CExtStrArray codes;
    map.MakeCodeArray(codes);
    return show(codes);
}

MapProbe numbered_map(int count) {
    MapProbe map;
    for (int code = 0; code < count; ++code) {
        map.AddItem(code, ("t" + std::to_string(code)).c_str());
    }
    return map;
}

WriteProtection::WriteProtection(const std::string& path) : path_(path) {
    using std::filesystem::perms;
    std::filesystem::permissions(path_, perms::owner_write | perms::group_write | perms::others_write,
                                 std::filesystem::perm_options::remove);
}

WriteProtection::~WriteProtection() {
    std::filesystem::permissions(path_, std::filesystem::perms::owner_write, std::filesystem::perm_options::add);
}

std::string usual_heading(const std::string& name) {
    const std::string edge = "/***" + std::string(63, '*') + "***/\r\n";
    const std::string blank = "/*  " + std::string(63, ' ') + "  */\r\n";
    const std::string title = "/*  " + std::string(25, ' ') + "Message File." + std::string(25, ' ') + "  */\r\n";
    return "// " + name + " : \r\n" + edge + blank + blank + title + blank + blank + edge + "\r\n";
}

std::string listed_keys(int count, int buckets) {
    std::vector<std::string> chains(static_cast<std::size_t>(buckets));
    for (int code = 0; code < count; ++code) {
        char digits[16];
        std::snprintf(digits, sizeof(digits), "0x%08X", static_cast<unsigned>(code));
        const std::string key = std::string("\xFF\xFF\x73\xFF\xFF") + digits;
        unsigned hash = 0;
        for (char c : key) {
            hash = hash * 33 + static_cast<unsigned char>(c);
        }
        std::string& chain = chains[hash % static_cast<unsigned>(buckets)];
        chain = "[" + key + "]" + chain;
    }
    std::string text;
    for (const std::string& chain : chains) {
        text += chain;
    }
    return text;
}

}  // namespace orvil::test
