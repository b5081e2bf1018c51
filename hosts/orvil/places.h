// What drawing files have in common: where their entries stand, the numbers that these hold, and the title.
#pragma once

#include <deque>
#include <string>
#include <unordered_map>
#include <vector>

#include "orvil/tokens/lex_token_block.h"
#include "report.h"
#include "source_text.h"

namespace orvil_host {

// Both hold the tokens in one order, the file with comments and empty strings.
class Places {
public:
    Places(const CLexTokenBlock& root, const SourceText& text);

    Place of(const CLexTokenBlock& node) const { return places_.at(&node); }

private:
    Place take();

    std::deque<SourceToken>::const_iterator next_;
    std::deque<SourceToken>::const_iterator end_;
    std::unordered_map<const CLexTokenBlock*, Place> places_;
};

// Reads the numbers of an entry: { 1.0 2.0 } as well as = 1.0 2.0; Returns false when something else is among them, or
// a number that arithmetic has no room for.
bool read_numbers(const CLexTokenBlock& entry, std::vector<double>& numbers);

// Whether the entry of the root gives the file its title: Title = "...";
bool read_title(const CLexTokenBlock& root, const CLexTokenBlock& entry, std::string& title);

}  // namespace orvil_host
