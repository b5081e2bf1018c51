// The input is a script: each line is an operation on one of two record sets. After each, the sets hold what lists of
// names and texts hold that went through the same, and every way of reading them agrees.
#include <algorithm>
#include <cstdint>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "orvil/params/typed_records.h"
#include "support/fuzz_check.h"

namespace {

using Entry = std::pair<std::string, std::string>;

// A record set of strings, and the same as a list in the order of creation.
struct Twin {
    Twin() { FUZZ_CHECK(vpr_init(&set, 0, 0) == 0); }
    ~Twin() { vpr_destroy(&set); }
    Twin(const Twin&) = delete;
    Twin& operator=(const Twin&) = delete;

    bool remove(const std::string& name) {
        const auto end =
            std::remove_if(list.begin(), list.end(), [&](const Entry& each) { return each.first == name; });
        const bool removed = end != list.end();
        list.erase(end, list.end());
        return removed;
    }

    void add(const std::string& name, const std::string& text) {
        FUZZ_CHECK(vpr_add_str(&set, name.c_str(), text.c_str()) == (name.empty() ? -1 : 0));
        if (!name.empty()) {
            remove(name);
            list.emplace_back(name, text);
        }
    }

    vpr_set_t set;
    std::vector<Entry> list;
};

std::vector<Entry> visited(const vpr_set_t& set, int order) {
    std::vector<Entry> entries;
    const auto note = [](const char* name, const __aVPRESTVITEM_t* item, void* user) {
        static_cast<std::vector<Entry>*>(user)->emplace_back(name, item->value.s);
        return 0;
    };
    FUZZ_CHECK(vpr_traverse(&set, order, note, &entries) == 0);
    return entries;
}

void require_equal(const Twin& twin) {
    std::vector<Entry> sorted = twin.list;
    std::sort(sorted.begin(), sorted.end());
    FUZZ_CHECK(visited(twin.set, 0) == twin.list);
    FUZZ_CHECK(visited(twin.set, 1) == sorted);
    std::reverse(sorted.begin(), sorted.end());
    FUZZ_CHECK(visited(twin.set, -1) == sorted);
    FUZZ_CHECK(vpr_count(&twin.set) == static_cast<int>(sorted.size()));
}

// Numbers are read from a text whatever they are asked for first, and the text stays.
void require_readable(const vpr_set_t& set, const std::string& name, const std::string& text) {
    char type = '?';
    const double real = vpr_get_dbl(&set, name.c_str(), &type);
    const int whole = vpr_get_int(&set, name.c_str(), nullptr);
    FUZZ_CHECK(type == (name.empty() ? '\0' : 's'));
    FUZZ_CHECK(vpr_get_str(&set, name.c_str(), nullptr) == (name.empty() ? std::string() : text));
    FUZZ_CHECK(vpr_get_int(&set, name.c_str(), nullptr) == whole);
    const double again = vpr_get_dbl(&set, name.c_str(), nullptr);
    FUZZ_CHECK(again == real || (again != again && real != real));
}

void masked_copy(Twin& to, const Twin& from, const std::string& mask, char separator) {
    std::vector<Entry> copied;
    int expected = 0;
    std::istringstream pieces(mask);
    for (std::string name; expected == 0 && std::getline(pieces, name, separator);) {
        const auto same_name = [&](const Entry& each) { return each.first == name; };
        const auto found = std::find_if(from.list.begin(), from.list.end(), same_name);
        if (found != from.list.end() && std::any_of(copied.begin(), copied.end(), same_name)) {
            expected = 1;
        } else if (found != from.list.end()) {
            copied.push_back(*found);
        }
    }
    FUZZ_CHECK(vpr_masked_copy(&to.set, &from.set, mask.c_str(), separator) == expected);
    to.list = copied;
}

void update(Twin& to, const Twin& from) {
    FUZZ_CHECK(vpr_update(&to.set, &from.set) == 0);
    for (const Entry& each : from.list) {
        to.remove(each.first);
        to.list.push_back(each);
    }
}

// The first two characters say what is done and to which set; the rest are a name, '=' and a text, or a mask.
void run(Twin& to, const Twin& from, char operation, const std::string& rest) {
    const std::size_t end = std::min(rest.find('='), rest.size());
    const std::string name = rest.substr(0, end);
    const std::string text = end == rest.size() ? "" : rest.substr(end + 1);
    switch (operation) {
        case 'd': {
            const bool removed = to.remove(name);
            FUZZ_CHECK(vpr_delete(&to.set, name.c_str()) == (name.empty() ? -1 : (removed ? 0 : 1)));
            break;
        }
        case 'u':
            update(to, from);
            break;
        case 'm':
            masked_copy(to, from, rest, ';');
            break;
        case 'c':
            FUZZ_CHECK(vpr_copy(&to.set, &from.set) == 0);
            to.list = from.list;
            break;
        default:
            to.add(name, text);
            require_readable(to.set, name, text);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string script(reinterpret_cast<const char*>(data), std::min<size_t>(size, 4096));
    std::replace(script.begin(), script.end(), '\0', '0');
    std::istringstream lines(script);
    Twin twins[2];
    for (std::string line; std::getline(lines, line);) {
        if (line.size() >= 2) {
            const std::size_t which = line[1] & 1;
            run(twins[which], twins[1 - which], line[0], line.substr(2));
            require_equal(twins[which]);
        }
    }
    return 0;
}
