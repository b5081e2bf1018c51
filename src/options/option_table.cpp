#include "options/option_table.h"

#include <algorithm>
#include <iterator>
#include <new>

namespace orvil::detail {

void OptionTable::clear() {
    std::fill(std::begin(chains_), std::end(chains_), nullptr);
    std::fill(std::begin(letters_), std::end(letters_), nullptr);
    memory_.release();
}

void OptionTable::clear_values() {
    for_each([](Option& option) { option.values = OptionValues(); });
}

// A name keeps its place when it is declared again. One that was only asked for before takes that of a new one.
void OptionTable::declare(OptionKind kind, std::string_view declaration) {
    const Declaration declared = read_declaration(declaration);
    Option* option = find_or_add(declared.name);
    if (option == nullptr) {
        return;
    }
    if (option->kind == OptionKind::kNone) {
        move_to_front(*option);
    }
    option->kind = kind;
    if (declared.letter != '\0') {
        letters_[index_of(declared.letter)] = option;
    }
}

Option* OptionTable::find(std::string_view name) const {
    Option* option = chains_[chain_of(name)];
    while (option != nullptr && option->name != name) {
        option = option->next;
    }
    return option;
}

Option* OptionTable::find_or_add(std::string_view name) {
    Option* option = find(name);
    return option != nullptr ? option : add(chains_[chain_of(name)], name);
}

Option* OptionTable::add(Option*& chain, std::string_view name) {
    const char* kept = keep_text(memory_, name);
    void* memory = kept == nullptr ? nullptr : memory_.take(sizeof(Option), alignof(Option));
    if (memory == nullptr) {
        return nullptr;
    }
    chain = new (memory) Option{chain, {kept, name.size()}, OptionKind::kNone, {}};
    return chain;
}

void OptionTable::move_to_front(Option& option) {
    Option*& chain = chains_[chain_of(option.name)];
    Option** link = &chain;
    while (*link != &option) {
        link = &(*link)->next;
    }
    *link = option.next;
    option.next = chain;
    chain = &option;
}

std::uint32_t OptionTable::chain_of(std::string_view name) {
    std::uint32_t hash = 0;
    for (char c : name) {
        hash = hash * 33 + static_cast<unsigned char>(c);
    }
    return hash % kChains;
}

}  // namespace orvil::detail
