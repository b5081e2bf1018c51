// The regular-expression members of CExtString.
#include <algorithm>
#include <climits>
#include <string_view>

#include "orvil/strings/ext_str_array.h"
#include "orvil/strings/ext_string.h"
#include "strings/array_access.h"
#include "strings/regex_cache.h"
#include "strings/regex_replace.h"
#include "strings/regex_rest_search.h"
#include "strings/string_access.h"

using orvil::detail::ArrayAccess;
using orvil::detail::bounded_length;
using orvil::detail::BoundedText;
using orvil::detail::regex_entry_for;
using orvil::detail::RegexRestSearch;
using orvil::detail::StringAccess;

namespace {

// Cuts a text at every match. A match that leaves the search where it is would be found for ever: then the cuts at the
// empty matches that led there are undone, and what is left is one piece.
class Splitting {
public:
    Splitting(const regex_entry& entry, std::string_view text, CExtStrArray& parts)
        : search_(entry), rest_(text), parts_(parts) {}

    void run() {
        while (search_.find(rest_) && pass_match()) {
        }
        if (!rest_.empty()) {
            append(rest_.size());
        }
    }

private:
    // False when nothing is left to be searched for, or when there is no memory for the piece.
    bool pass_match() {
        if (!search_.is_empty()) {
            before_empty_ = nullptr;
        } else if (before_empty_ == nullptr) {
            before_empty_ = rest_.data();
            parts_before_empty_ = parts_.GetSize();
        }
        if (search_.end() == 0) {
            undo_empty_matches();
            return false;
        }
        if (!append(static_cast<std::size_t>(search_.begin()))) {
            rest_ = {};
            return false;
        }
        rest_.remove_prefix(static_cast<std::size_t>(search_.end()));
        return !rest_.empty();
    }

    bool append(std::size_t bytes) { return ArrayAccess::append(parts_, rest_.data(), static_cast<int>(bytes)); }

    void undo_empty_matches() {
        const auto passed = static_cast<std::size_t>(rest_.data() - before_empty_);
        rest_ = {before_empty_, rest_.size() + passed};
        if (parts_.GetSize() > parts_before_empty_) {
            parts_.Remove(parts_before_empty_, parts_.GetSize() - parts_before_empty_);
        }
    }

    RegexRestSearch search_;
    std::string_view rest_;
    CExtStrArray& parts_;
    const char* before_empty_ = nullptr;  // where the first of a series of empty matches was searched for
    int parts_before_empty_ = 0;
};

}  // namespace

void* CExtString::_MakeRegexV(const char* pattern) {
    return regex_entry_for(pattern);
}

// The pattern is looked up before the parts are emptied: it may be one of them.
int CExtString::_RegexMatch(const char* pattern, CExtStrArray* parts) const {
    const regex_entry* entry = regex_entry_for(pattern);
    if (parts != nullptr) {
        parts->RemoveAll();
    }
    if (entry == nullptr) {
        return -1;
    }
    if (buffer_ == nullptr || length_ < 0) {
        return 0;
    }
    RegexRestSearch search(*entry);
    if (!search.find({buffer_, static_cast<std::size_t>(length_)})) {
        return 0;
    }
    // Texts end at a zero byte; an unset group, or one that ends before it begins, gives an empty element. So does one
    // without memory, so that each group stays at its index.
    for (int pair = 0; parts != nullptr && pair < search.pairs(); ++pair) {
        const int begin = std::max(search.begin(pair), 0);
        const char* text = buffer_ + begin;
        ArrayAccess::store(*parts, pair, text, bounded_length(text, search.end(pair) - begin));
    }
    return search.pairs();
}

int CExtString::RegexMatch(const char* pattern) const {
    return std::max(_RegexMatch(pattern, nullptr), 0);
}

int CExtString::RegexMatch(const char* pattern, CExtStrArray& parts) const {
    return std::max(_RegexMatch(pattern, &parts), 0);
}

CExtString CExtString::RegexReplace(const char* pattern, const char* replacement) const {
    CExtString result(*this);
    const regex_entry* entry = regex_entry_for(pattern);
    if (entry == nullptr) {
        return result;
    }
    BoundedText text(INT_MAX);
    if (orvil::detail::replace_regex(*entry, GetString(), replacement != nullptr ? replacement : "", text)) {
        StringAccess::assign(result, text.view().data(), static_cast<int>(text.length()));
    }
    return result;
}

CExtString CExtString::RegexReplace(const char*, const CExtStrArray&) const {
    return *this;
}

CExtStrArray CExtString::RegexSplit(const char* pattern) const {
    CExtStrArray parts;
    const regex_entry* entry = buffer_ != nullptr ? regex_entry_for(pattern) : nullptr;
    if (entry != nullptr) {
        Splitting(*entry, buffer_, parts).run();
    }
    return parts;
}
