#include <bitset>
#include <cstring>

#include "orvil/strings/ext_string.h"
#include "platform/platform.h"

namespace {

const char* text_or_empty(const char* s) {
    return s != nullptr ? s : CExtString::sm_pszNull;
}

int compare(const char* left, const char* right) {
    return std::strcmp(text_or_empty(left), text_or_empty(right));
}

int index_of(const char* found, const char* text) {
    return found == nullptr ? -1 : static_cast<int>(found - text);
}

}  // namespace

// --- comparing ------------------------------------------------------------------------------------------------------

int CExtString::Compare(const char* s) const {
    const int order = compare(GetString(), s);
    return (order > 0) - (order < 0);
}

int CExtString::CompareNoCase(const char* s) const {
    return orvil::platform::compare_no_case(GetString(), text_or_empty(s));
}

int CExtString::Collate(const char* s) const {
    return std::strcoll(GetString(), text_or_empty(s));
}

bool operator==(const CExtString& left, const CExtString& right) {
    return compare(left, right) == 0;
}
bool operator==(const CExtString& left, const char* right) {
    return compare(left, right) == 0;
}
bool operator==(const char* left, const CExtString& right) {
    return compare(left, right) == 0;
}
bool operator!=(const CExtString& left, const CExtString& right) {
    return compare(left, right) != 0;
}
bool operator!=(const CExtString& left, const char* right) {
    return compare(left, right) != 0;
}
bool operator!=(const char* left, const CExtString& right) {
    return compare(left, right) != 0;
}
bool operator<(const CExtString& left, const CExtString& right) {
    return compare(left, right) < 0;
}
bool operator<(const CExtString& left, const char* right) {
    return compare(left, right) < 0;
}
bool operator<(const char* left, const CExtString& right) {
    return compare(left, right) < 0;
}
bool operator>(const CExtString& left, const CExtString& right) {
    return compare(left, right) > 0;
}
bool operator>(const CExtString& left, const char* right) {
    return compare(left, right) > 0;
}
bool operator>(const char* left, const CExtString& right) {
    return compare(left, right) > 0;
}
bool operator<=(const CExtString& left, const CExtString& right) {
    return compare(left, right) <= 0;
}
bool operator<=(const CExtString& left, const char* right) {
    return compare(left, right) <= 0;
}
bool operator<=(const char* left, const CExtString& right) {
    return compare(left, right) <= 0;
}
bool operator>=(const CExtString& left, const CExtString& right) {
    return compare(left, right) >= 0;
}
bool operator>=(const CExtString& left, const char* right) {
    return compare(left, right) >= 0;
}
bool operator>=(const char* left, const CExtString& right) {
    return compare(left, right) >= 0;
}

// --- searching ------------------------------------------------------------------------------------------------------

int CExtString::Find(char c) const {
    const char* text = GetString();
    return index_of(std::strchr(text, c), text);
}

int CExtString::Find(const char* s) const {
    const char* text = GetString();
    return s == nullptr ? -1 : index_of(std::strstr(text, s), text);
}

int CExtString::ReverseFind(char c) const {
    const char* text = GetString();
    return index_of(std::strrchr(text, c), text);
}

int CExtString::FindOneOf(const char* set) const {
    if (IsEmpty() || set == nullptr) {
        return -1;
    }
    std::bitset<256> wanted;
    for (; *set != '\0'; ++set) {
        wanted.set(static_cast<unsigned char>(*set));
    }
    const bool may_lead = orvil::platform::has_lead_bytes();
    for (const char* p = buffer_; *p != '\0'; ++p) {
        const auto byte = static_cast<unsigned char>(*p);
        if (may_lead && orvil::platform::is_lead_byte(byte)) {
            if (*++p == '\0') {
                break;
            }
        } else if (wanted.test(byte)) {
            return index_of(p, buffer_);
        }
    }
    return -1;
}
