#include <algorithm>
#include <bitset>
#include <cctype>
#include <cstring>

#include "orvil/strings/ext_string.h"
#include "platform/platform.h"
#include "strings/string_access.h"

using orvil::detail::StringAccess;

namespace {

constexpr char kCarriageReturn = '\r';
constexpr char kLineFeed = '\n';

// The bytes that a trim drops.
class TrimSet {
public:
    explicit TrimSet(const char* set) {
        if (set == nullptr) {
            for (int c = 1; c < 256; ++c) {
                members_[static_cast<std::size_t>(c)] = std::isspace(c) != 0;
            }
            return;
        }
        for (; *set != '\0'; ++set) {
            members_.set(static_cast<unsigned char>(*set));
        }
    }

    bool has(char c) const { return members_.test(static_cast<unsigned char>(c)); }

    // The terminator is no member, so this ends there at the latest.
    const char* first_kept(const char* begin) const {
        while (has(*begin)) {
            ++begin;
        }
        return begin;
    }

    const char* end_of_kept(const char* begin, const char* end) const {
        while (end > begin && has(end[-1])) {
            --end;
        }
        return end;
    }

private:
    std::bitset<256> members_;
};

// Converts what `isalpha` accepts. A double-byte character stays as it is, also when its second byte is missing.
template <typename Convert>
void change_case(char* p, Convert convert) {
    const bool may_lead = orvil::platform::has_lead_bytes();
    for (; *p != '\0'; ++p) {
        const auto byte = static_cast<unsigned char>(*p);
        if (may_lead && orvil::platform::is_lead_byte(byte)) {
            if (*++p == '\0') {
                return;
            }
        } else if (std::isalpha(byte) != 0) {
            *p = static_cast<char>(convert(byte));
        }
    }
}

int length_between(const char* begin, const char* end) {
    return static_cast<int>(end - begin);
}

}  // namespace

bool CExtString::ChangeUpper() {
    if (IsEmpty()) {
        return false;
    }
    change_case(buffer_, [](int c) { return std::toupper(c); });
    return true;
}

bool CExtString::ChangeLower() {
    if (IsEmpty()) {
        return false;
    }
    change_case(buffer_, [](int c) { return std::tolower(c); });
    return true;
}

bool CExtString::Reverse() {
    if (IsEmpty()) {
        return false;
    }
    std::reverse(buffer_, buffer_ + length_);
    return true;
}

CExtString CExtString::TrimLeft(const char* set) {
    if (!IsEmpty()) {
        DuplicateString(TrimSet(set).first_kept(buffer_));
    }
    return *this;
}

CExtString CExtString::TrimRight(const char* set) {
    if (!IsEmpty()) {
        const char* end = TrimSet(set).end_of_kept(buffer_, buffer_ + SafeStrlen(buffer_));
        StringAccess::assign(*this, buffer_, length_between(buffer_, end));
    }
    return *this;
}

CExtString CExtString::TrimAll(const char* set) {
    if (!IsEmpty()) {
        const TrimSet dropped(set);
        const char* begin = dropped.first_kept(buffer_);
        const char* end = dropped.end_of_kept(begin, begin + SafeStrlen(begin));
        StringAccess::assign(*this, begin, length_between(begin, end));
    }
    return *this;
}

// Without `all` one LF goes at most. The count covers the removed bytes and one more.
int CExtString::Chomp(bool all) {
    if (IsEmpty()) {
        return 0;
    }
    int kept = length_;
    if (all) {
        while (kept > 0 && (buffer_[kept - 1] == kLineFeed || buffer_[kept - 1] == kCarriageReturn)) {
            --kept;
        }
    } else if (buffer_[kept - 1] == kLineFeed) {
        --kept;
    }
    const int removed = length_ - kept;
    if (removed > 0) {
        buffer_[kept] = '\0';
    }
    length_ = SafeStrlen(buffer_);
    return removed + 1;
}
