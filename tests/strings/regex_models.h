// Naive models of replacing and splitting, written from the rules, for patterns that PCRE has compiled. They repeat the
// work for every match and keep every rest that was searched, so they are for short texts.
#pragma once

#include <pcre.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <set>
#include <string>
#include <vector>

namespace orvil::test {

struct ModelMatch {
    int pairs;
    std::array<int, 256> offsets;

    bool found() const { return pairs > 0; }
    int begin(int pair = 0) const { return offsets[static_cast<std::size_t>(pair) * 2]; }
    int end(int pair = 0) const { return offsets[static_cast<std::size_t>(pair) * 2 + 1]; }
    bool empty() const { return begin() >= end(); }
};

inline ModelMatch model_match(const pcre* code, const std::string& subject) {
    ModelMatch match{};
    const int result = pcre_exec(code, nullptr, subject.data(), static_cast<int>(subject.size()), 0, 0,
                                 match.offsets.data(), static_cast<int>(match.offsets.size()));
    match.pairs = result == 0 ? 85 : result;
    return match;
}

inline std::string model_slice(const std::string& text, int from, int to) {
    return from < to ? text.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from)) : "";
}

// What becomes of a text, from the offset on, by one match; moves the offset. False when that lies beyond the text.
inline bool model_replace_once(std::string& text, std::size_t& offset, const ModelMatch& match,
                               const std::string& with) {
    const std::string subject = text.substr(offset);
    std::string made = text.substr(0, offset);
    const int size = static_cast<int>(subject.size());
    if (match.pairs == 1) {
        made += model_slice(subject, 0, match.begin()) + with + model_slice(subject, match.end(), size);
        offset += static_cast<std::size_t>(match.begin()) + with.size();
        text = made;
        return true;
    }
    int previous_end = 0;
    int last_begin = 0;
    for (int group = 1; group < match.pairs; ++group) {
        const bool set = match.begin(group) >= 0;
        last_begin = set ? match.begin(group) : previous_end;
        made += model_slice(subject, previous_end, last_begin) + with;
        previous_end = std::max(previous_end, match.end(group));
    }
    offset += static_cast<std::size_t>(last_begin) + with.size();
    text = made;
    return offset <= text.size();
}

// Sets `ended` to false when the run repeats itself or grows beyond measure; the text at that point depends on how
// early that was noticed.
inline std::string model_replace(const pcre* code, std::string text, const std::string& with, bool& ended) {
    std::size_t offset = 0;
    std::set<std::string> searched;
    std::string before_empty;
    bool empty_before = false;
    ended = true;
    while (true) {
        const std::string subject = text.substr(offset);
        if (!searched.insert(subject).second || searched.size() > 500) {
            ended = false;
            return empty_before ? before_empty : text;
        }
        const ModelMatch match = model_match(code, subject);
        if (!match.found()) {
            return text;
        }
        if (match.empty() && !empty_before) {
            before_empty = text;
        }
        empty_before = match.empty();
        if (!model_replace_once(text, offset, match, with)) {
            return text;
        }
    }
}

inline std::vector<std::string> model_split(const pcre* code, std::string rest) {
    std::vector<std::string> pieces;
    std::vector<std::string> pieces_before_empty;
    std::string rest_before_empty;
    bool empty_before = false;
    while (true) {
        const ModelMatch match = model_match(code, rest);
        if (!match.found()) {
            break;
        }
        if (match.empty() && !empty_before) {
            pieces_before_empty = pieces;
            rest_before_empty = rest;
        }
        empty_before = match.empty();
        if (match.end() == 0) {
            pieces = pieces_before_empty;
            rest = rest_before_empty;
            break;
        }
        pieces.push_back(model_slice(rest, 0, match.begin()));
        rest = rest.substr(static_cast<std::size_t>(match.end()));
        if (rest.empty()) {
            return pieces;
        }
    }
    if (!rest.empty()) {
        pieces.push_back(rest);
    }
    return pieces;
}

}  // namespace orvil::test
