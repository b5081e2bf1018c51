// The meta characters and how they are written inside quotes.
#pragma once

#include <array>
#include <cstddef>

#include "tokens/lead_bytes.h"

namespace orvil::detail {

inline constexpr char kMetaCharacters[] = "\t\n\r \"#'()*+,-./:;=[\\]{}";  // and, by its terminator, NUL

// The character behind the backslash for the meta characters that are escaped inside quotes.
struct Escape {
    char character;
    char letter;
};
inline constexpr Escape kEscapes[] = {{'\t', 't'}, {'\n', 'n'}, {'\r', 'r'}, {'"', '"'}, {'\'', '\''}, {'\\', '\\'}};

struct MetaCharacter {
    bool is_member = false;
    char escape_letter = '\0';  // 0 when the character stands for itself
    char written[3] = {};
};

constexpr std::array<MetaCharacter, 256> make_meta_characters() {
    std::array<MetaCharacter, 256> table;
    for (const char c : kMetaCharacters) {
        table[static_cast<unsigned char>(c)] = {true, '\0', {c, '\0', '\0'}};
    }
    for (const Escape& escape : kEscapes) {
        table[static_cast<unsigned char>(escape.character)] = {true, escape.letter, {'\\', escape.letter, '\0'}};
    }
    return table;
}

inline constexpr std::array<MetaCharacter, 256> kMetaCharacterTable = make_meta_characters();

inline const MetaCharacter& meta_character(char c) {
    return kMetaCharacterTable[byte_of(c)];
}

// The character that an escape stands for, by what follows its backslash; 0 when there is no such escape.
constexpr std::array<char, 256> make_escape_meanings() {
    std::array<char, 256> table{};
    for (const Escape& escape : kEscapes) {
        table[static_cast<unsigned char>(escape.letter)] = escape.character;
    }
    return table;
}

inline constexpr std::array<char, 256> kEscapeMeanings = make_escape_meanings();

}  // namespace orvil::detail
