// The options that are declared or asked for, by name, with their values.
#pragma once

#include <cstdint>
#include <string_view>

#include "options/argument_syntax.h"
#include "options/kept_text.h"

namespace orvil::detail {

enum class OptionKind : std::uint8_t { kNone, kBoolean, kScalar, kList };

// The entries of one name in the maps of booleans, scalars and lists: one has an entry when its flag is set.
struct OptionValues {
    bool has_boolean = false;
    bool has_scalar = false;
    bool has_list = false;
    bool is_on = false;
    KeptText scalar;
    KeptTexts list;
};

struct Option {
    Option* next;      // in its chain
    Option* previous;  // the one that was added before it
    std::string_view name;
    OptionKind kind;  // none: only asked for
    OptionValues values;
};

// Declared options are walked in the order of a string hash of 37 buckets: bucket by bucket, and in each the one that
// was declared last comes first. Those that were only asked for stand between them without being seen.
class OptionTable {
public:
    constexpr OptionTable() = default;

    // Forgets all options.
    void clear();
    // Forgets the values of all options.
    void clear_values();

    void declare(OptionKind kind, std::string_view declaration);

    // Each returns null when there is none: no such name, no such letter, or no memory.
    Option* find(std::string_view name) const;
    Option* find_letter(char letter) const {
        const std::uint32_t index = index_of(letter);
        return index < kLetters ? letters_[index] : nullptr;
    }
    Option* find_or_add(std::string_view name);

    // Calls visit(option) for each option, in the order of the chains.
    template <typename Visitor>
    void for_each(Visitor visit) const {
        for (Option* option : chains_) {
            for (; option != nullptr; option = option->next) {
                visit(*option);
            }
        }
    }

private:
    static constexpr std::uint32_t kChains = 37;
    static constexpr std::uint32_t kLetters = 'z' - 'A' + 1;

    static std::uint32_t index_of(char letter) { return static_cast<std::uint32_t>(letter) - 'A'; }
    static std::uint32_t chain_of(std::string_view name);
    static Option* find_in(Option* chain, std::string_view name);
    Option* find_or_add(Option*& chain, std::string_view name);

    Option* chains_[kChains] = {};
    Option* letters_[kLetters] = {};
    Option* newest_ = nullptr;
    Arena memory_;
};

}  // namespace orvil::detail
