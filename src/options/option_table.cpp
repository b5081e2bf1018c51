#include "options/option_table.h"

#include <algorithm>
#include <iterator>
#include <new>

namespace orvil::detail {

namespace {

// Takes a link out of the chain that leads to it, and puts it at the front.
void move_to_front(Option*& chain, Option& option) {
    Option** link = &chain;
    while (*link != &option) {
        link = &(*link)->next;
    }
    *link = option.next;
    option.next = chain;
    chain = &option;
}

}  // namespace

void OptionTable::clear() {
    memory_.release();
    if (newest_ == nullptr) {
        return;
    }
    newest_ = nullptr;
    std::fill(std::begin(chains_), std::end(chains_), nullptr);
    std::fill(std::begin(letters_), std::end(letters_), nullptr);
}

void OptionTable::clear_values() {
    for (Option* option = newest_; option != nullptr; option = option->previous) {
        option->values = OptionValues();
    }
}

// A name keeps its place when it is declared again. One that was only asked for before takes that of a new one.
void OptionTable::declare(OptionKind kind, std::string_view declaration) {
    const Declaration declared = read_declaration(declaration);
    Option*& chain = chains_[chain_of(declared.name)];
    Option* option = find_or_add(chain, declared.name);
    if (option == nullptr) {
        return;
    }
    if (option->kind == OptionKind::kNone) {
        move_to_front(chain, *option);
    }
    option->kind = kind;
    if (declared.letter != '\0') {
        letters_[index_of(declared.letter)] = option;
    }
}

Option* OptionTable::find(std::string_view name) const {
    return find_in(chains_[chain_of(name)], name);
}

Option* OptionTable::find_or_add(std::string_view name) {
    return find_or_add(chains_[chain_of(name)], name);
}

Option* OptionTable::find_in(Option* chain, std::string_view name) {
    while (chain != nullptr && chain->name != name) {
        chain = chain->next;
    }
    return chain;
}

Option* OptionTable::find_or_add(Option*& chain, std::string_view name) {
    Option* option = find_in(chain, name);
    if (option != nullptr) {
        return option;
    }
    const char* kept = keep_text(memory_, name);
    void* memory = kept == nullptr ? nullptr : memory_.take(sizeof(Option), alignof(Option));
    if (memory == nullptr) {
        return nullptr;
    }
    newest_ = chain = new (memory) Option{chain, newest_, {kept, name.size()}, OptionKind::kNone, {}};
    return newest_;
}

std::uint32_t OptionTable::chain_of(std::string_view name) {
    std::uint32_t hash = 0;
    for (char c : name) {
        hash = hash * 33 + static_cast<unsigned char>(c);
    }
    return hash % kChains;
}

}  // namespace orvil::detail
