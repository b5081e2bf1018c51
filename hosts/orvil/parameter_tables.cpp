#include "parameter_tables.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <utility>
#include <vector>

namespace orvil_host {
namespace {

constexpr const char* kTitle = "Parameters (%d) of %s";

// --- from tokens to records -----------------------------------------------------------------------------------------

bool add_whole_number(vpr_set_t* set, const char* name, const char* text, int base) {
    const long long value = std::strtoll(text, nullptr, base);
    const bool fits = value >= std::numeric_limits<int>::min() && value <= std::numeric_limits<int>::max();
    return fits ? vpr_add_int(set, name, static_cast<int>(value)) == 0 : vpr_add_str(set, name, text) == 0;
}

bool add_value(vpr_set_t* set, const char* name, const CLexToken& value) {
    const char* text = value.GetString();
    if (value.IsDecimalToken()) {
        return add_whole_number(set, name, text, 10);
    }
    if (value.IsHexaDecimalToken()) {
        return add_whole_number(set, name, text, 16);
    }
    if (value.IsDoubleToken()) {
        return vpr_add_dbl(set, name, std::strtod(text, nullptr)) == 0;
    }
    return vpr_add_str(set, name, text) == 0;
}

// The children of an assignment are '=', its values and ';'. Several values are one text, as a file would hold them.
bool add_assignment(vpr_set_t* set, const CLexTokenBlock& assignment) {
    const int last = assignment.GetBlockCount() - 1;
    if (last == 2) {
        return add_value(set, assignment.GetString(), *assignment.GetAt(1));
    }
    std::string text;
    for (int i = 1; i < last; ++i) {
        CExtString written;
        assignment.GetAt(i)->CreateOutputString(written);
        text += (text.empty() ? "" : " ") + std::string(written.GetString());
    }
    return vpr_add_str(set, assignment.GetString(), text.c_str()) == 0;
}

// --- printing -------------------------------------------------------------------------------------------------------

const vpdpc_entry_t& entry_of(const adl_link_t* link) {
    return *reinterpret_cast<const vpdpc_entry_t*>(reinterpret_cast<std::uintptr_t>(link) -
                                                   offsetof(vpdpc_entry_t, link));
}

// A text that stays in its cell: control characters and high bytes as \xHH.
std::string printable(const char* text) {
    std::string shown;
    for (; *text != '\0'; ++text) {
        const auto byte = static_cast<unsigned char>(*text);
        char code[8];
        std::snprintf(code, sizeof code, byte < 0x20 || byte > 0x7E ? "\\x%02X" : "%c", byte);
        shown += code;
    }
    return shown;
}

// Values that a record set is shown by begin with a blank, which the table has of its own.
std::string cell(const char* value) {
    return printable(*value == ' ' ? value + 1 : value);
}

void print_row(const vpdp_cont_t& cont, const char* first, const char* second) {
    std::printf("%-*s | %s\n", cont.width1, printable(first).c_str(), cell(second).c_str());
}

void print_ruler(const vpdp_cont_t& cont) {
    const auto dashes = [](int width) { return std::string(static_cast<std::size_t>(width), '-'); };
    std::printf("%s-+-%s\n", dashes(cont.width1).c_str(), dashes(cont.width2).c_str());
}

void print_entry(const vpdp_cont_t& cont, const vpdpc_entry_t& entry) {
    if (entry.value == nullptr) {
        std::printf("%s\n", printable(entry.label).c_str());
    } else {
        print_row(cont, entry.label, entry.value);
    }
}

// The columns are as wide as what they hold. Texts of 2 GiB do not come out of a file.
void fit_columns(vpdp_cont_t& cont) {
    std::size_t first = std::string(cont.caption1).size();
    std::size_t second = std::string(cont.caption2).size();
    for (const adl_link_t* link = cont.entries.next; link != &cont.entries; link = link->next) {
        const vpdpc_entry_t& entry = entry_of(link);
        if (entry.value != nullptr) {
            first = std::max(first, printable(entry.label).size());
            second = std::max(second, cell(entry.value).size());
        }
    }
    vpdp_set_cont_params(&cont, static_cast<int>(first), nullptr, static_cast<int>(second), nullptr);
}

int print_container(vpdp_cont_t* cont, void*) {
    vpdp_build_cont(cont, nullptr, nullptr);
    fit_columns(*cont);
    print_row(*cont, cont->caption1, cont->caption2);
    print_ruler(*cont);
    for (const adl_link_t* link = cont->entries.next; link != &cont->entries; link = link->next) {
        print_entry(*cont, entry_of(link));
    }
    return 0;
}

int print_with_gap(vpdp_cont_t* cont, void* is_first) {
    if (!std::exchange(*static_cast<bool*>(is_first), false)) {
        std::printf("\n");
    }
    return print_container(cont, nullptr);
}

// Fills a container when it is about to be printed.
int build(vpdp_cont_t* cont, void* set, void*, void*, int) {
    vpdp_clear_cont(cont);
    vpdpc_build_vpres(cont, kTitle, static_cast<const vpr_set_t*>(set), cont->name);
    return 0;
}

}  // namespace

ParameterTables::ParameterTables() {
    vpdp_init_root(&root_);
}

ParameterTables::~ParameterTables() {
    vpdp_destroy_root(&root_);
    for (vpr_set_t& set : sets_) {
        vpr_destroy(&set);
    }
}

// Blocks wait in the opposite order of the file, so that the next one is the last of them.
bool ParameterTables::add_blocks(const CLexTokenBlock& file) {
    std::vector<std::pair<std::string, const CLexTokenBlock*>> waiting;
    const auto add_inner = [&waiting](const std::string& prefix, const CLexTokenBlock& outer) {
        for (int i = outer.GetBlockCount() - 1; i >= 0; --i) {
            const CLexTokenBlock* inner = outer.GetAt(i);
            if (inner->IsBlockType()) {
                waiting.emplace_back(prefix + inner->GetString(), inner);
            }
        }
    };
    add_inner("", file);
    while (!waiting.empty()) {
        const auto [name, block] = waiting.back();
        waiting.pop_back();
        if (!add_block(name, *block)) {
            return false;
        }
        add_inner(name + ".", *block);
    }
    return true;
}

bool ParameterTables::add_block(const std::string& name, const CLexTokenBlock& block) {
    for (int i = 0; i < block.GetBlockCount(); ++i) {
        const CLexTokenBlock& entry = *block.GetAt(i);
        if (!entry.IsAssignType()) {
            continue;
        }
        vpr_set_t* set = set_of(name);
        if (set == nullptr || !add_assignment(set, entry)) {
            return false;
        }
    }
    return true;
}

// The set behind the container of that name, both made when there is none. Null when memory runs out.
vpr_set_t* ParameterTables::set_of(const std::string& name) {
    const vpdp_cont_t* cont = vpdp_search_cont(&root_, name.c_str());
    if (cont == nullptr) {
        vpr_set_t* set = &sets_.emplace_back();
        vpdp_cont_t* added = vpr_init(set, 0, 0) == 0 ? vpdp_add_cont(&root_, name.c_str(), build, set) : nullptr;
        vpdp_set_cont_params(added, 0, "Parameter", 0, nullptr);
        cont = added;
    }
    return cont == nullptr ? nullptr : static_cast<vpr_set_t*>(cont->build_arg);
}

bool ParameterTables::print(const std::string& name) const {
    vpdp_cont_t* cont = vpdp_search_cont(&root_, name.c_str());
    return cont != nullptr && print_container(cont, nullptr) == 0;
}

void ParameterTables::print_all() {
    bool is_first = true;
    vpdp_traverse(&root_, 0, print_with_gap, &is_first);
}

}  // namespace orvil_host
