#include "orvil/strings/ext_string.h"

#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "orvil/runtime/heap.h"
#include "runtime/buffer_statistics.h"
#include "strings/string_access.h"

using orvil::detail::book_buffer;
using orvil::detail::book_growth;
using orvil::detail::book_release;
using orvil::detail::bounded_length;

namespace {

// Hosts rely on the layout: the virtual table's pointer, then the members. Every compiler of ours supports offsetof
// here.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
struct Layout : CExtString {
    static constexpr bool is_as_promised() {
        return sizeof(CExtString) == 24 && offsetof(Layout, buffer_) == 8 && offsetof(Layout, length_) == 16 &&
               offsetof(Layout, capacity_) == 20;
    }
};
static_assert(Layout::is_as_promised());
#pragma GCC diagnostic pop

// Whether `s` points into the block of `size` bytes at `block`.
bool points_into(const char* s, const char* block, int size) {
    return reinterpret_cast<std::uintptr_t>(s) - reinterpret_cast<std::uintptr_t>(block) <
           static_cast<std::uintptr_t>(size);
}

}  // namespace

const char* const CExtString::sm_pszNull = "";

// --- the buffer policy ----------------------------------------------------------------------------------------------

int CExtString::SafeStrlen(const char* s) {
    if (s == nullptr) {
        return 0;
    }
    const std::size_t length = std::strlen(s);
    return length < INT_MAX ? static_cast<int>(length) : INT_MAX;
}

int CExtString::CalcNewBufferSize(int len, int cap) {
    if (len > INT_MAX - 8) {
        return -1;
    }
    const int need = len / 8 * 8 + 8;
    return cap < need ? need : 0;
}

char* CExtString::AllocBuffer(int cap) {
    return cap < 0 ? nullptr : static_cast<char*>(orv_heap_alloc(static_cast<std::size_t>(cap) + 1));
}

char* CExtString::ReallocBuffer(char* buffer, int cap) {
    return cap < 0 ? nullptr : static_cast<char*>(orv_heap_realloc(buffer, static_cast<std::size_t>(cap) + 1));
}

bool CExtString::FreeBuffer(char* buffer) {
    orv_heap_free(buffer);
    return true;
}

// --- builders -------------------------------------------------------------------------------------------------------

bool CExtString::Init() {
    buffer_ = nullptr;
    length_ = 0;
    capacity_ = 0;
    return true;
}

void CExtString::Install(char* buffer, int length, int capacity) {
    buffer_ = buffer;
    length_ = length;
    capacity_ = capacity;
}

bool CExtString::FillCharacter(char c, int n) {
    const int need = n > INT_MAX - 8 ? -1 : n / 8 * 8 + 8;
    const int capacity = n < 0 && need < 0 ? 0 : need;
    char* fresh = AllocBuffer(capacity);
    if (fresh == nullptr) {
        return false;
    }
    book_buffer(capacity);
    const int length = n < 1 ? 0 : n;
    std::memset(fresh, c, static_cast<std::size_t>(length));
    fresh[length] = '\0';
    Install(fresh, length, capacity);
    return true;
}

// Copies n > 0 bytes, which may stand in the present buffer, into a fresh one. The present one goes last.
bool CExtString::TakeFresh(const char* s, int n) {
    const int capacity = CalcNewBufferSize(n, 0);
    char* fresh = AllocBuffer(capacity);
    if (fresh == nullptr) {
        return false;
    }
    book_buffer(capacity);
    orvil::detail::StringAccess::copy_text(fresh, s, n);
    fresh[n] = '\0';
    if (buffer_ != nullptr) {
        book_release(capacity_);
        FreeBuffer(buffer_);
    }
    Install(fresh, n, capacity);
    return true;
}

bool CExtString::DuplicateString(const char* s) {
    return orvil::detail::StringAccess::assign(*this, s, SafeStrlen(s));
}

bool CExtString::DuplicateStringLen(const char* s, int n) {
    return orvil::detail::StringAccess::assign(*this, s, bounded_length(s, n));
}

// Ends the building of a text on top of an empty string: a buffer that the string still has after a failure is
// abandoned.
bool CExtString::StartWith(bool built) {
    return built || !Init();
}

// --- construction ---------------------------------------------------------------------------------------------------

CExtString::CExtString(const CExtString& other) : CExtString() {
    if (!other.IsEmpty()) {
        DuplicateString(other.buffer_);
    }
}

CExtString::CExtString(char c, int n) : CExtString() {
    FillCharacter(c, n);
}

CExtString::CExtString(const char* s) : CExtString() {
    DuplicateString(s);
}

CExtString::CExtString(const char* s, int n) : CExtString() {
    DuplicateStringLen(s, n);
}

CExtString::CExtString(FILE* fp, bool bStrip, bool bCRLF) : CExtString() {
    CreateFromStream(fp, bStrip, bCRLF);
}

CExtString::~CExtString() {
    Empty();
}

// --- replacing the text ---------------------------------------------------------------------------------------------

void CExtString::Empty() {
    if (buffer_ == nullptr) {
        return;
    }
    book_release(capacity_);
    FreeBuffer(buffer_);
    Init();
}

bool CExtString::CopyData(const CExtString& other) {
    if (other.IsEmpty()) {
        Empty();
        return true;
    }
    return StartWith(DuplicateString(other.buffer_));
}

bool CExtString::SetAt(int i, char c) {
    if (i < 0 || i >= length_) {
        return false;
    }
    buffer_[i] = c;
    return true;
}

bool CExtString::CreateFromCharacters(char c, int n) {
    Empty();
    return FillCharacter(c, n);
}

bool CExtString::CreateFromString(const char* s) {
    return DuplicateString(s);
}

bool CExtString::CreateFromStringLen(const char* s, int n) {
    return DuplicateStringLen(s, n);
}

const CExtString& CExtString::operator=(const CExtString& other) {
    CopyData(other);
    return *this;
}

const CExtString& CExtString::operator=(char c) {
    CreateFromCharacters(c, 1);
    return *this;
}

const CExtString& CExtString::operator=(const char* s) {
    StartWith(DuplicateString(s));
    return *this;
}

// --- parts ----------------------------------------------------------------------------------------------------------

CExtString CExtString::Left(int n) const {
    if (n < 0 || n > length_) {
        return *this;
    }
    return CExtString(buffer_, n);
}

CExtString CExtString::Right(int n) const {
    if (IsEmpty() || n < 0) {
        return CExtString();
    }
    const int count = n < length_ ? n : length_;
    return CExtString(buffer_ + (length_ - count), count);
}

CExtString CExtString::Mid(int start, int n) const {
    if (IsEmpty() || start > length_) {
        return CExtString();
    }
    const int offset = start < 0 ? 0 : start;
    const int rest = length_ - offset;
    return CExtString(buffer_ + offset, n < 0 || n > rest ? rest : n);
}

// --- appending ------------------------------------------------------------------------------------------------------

bool CExtString::GrowFor(long long length) {
    if (length > INT_MAX) {
        return false;
    }
    const int capacity = CalcNewBufferSize(static_cast<int>(length), capacity_);
    if (capacity == 0) {
        return true;
    }
    char* grown = ReallocBuffer(buffer_, capacity);
    if (grown == nullptr) {
        return false;
    }
    book_growth(capacity_, capacity);
    buffer_ = grown;
    capacity_ = capacity;
    return true;
}

// Appends n bytes, which may stand in the own buffer, to a text that is not empty.
bool CExtString::AppendKnown(const char* s, int n) {
    const bool own = points_into(s, buffer_, capacity_ + 1);
    const std::ptrdiff_t offset = own ? s - buffer_ : 0;
    if (!GrowFor(static_cast<long long>(length_) + n)) {
        return false;
    }
    std::memmove(buffer_ + length_, own ? buffer_ + offset : s, static_cast<std::size_t>(n));
    length_ += n;
    buffer_[length_] = '\0';
    return true;
}

bool CExtString::ConcatObject(const CExtString& other) {
    return ConcatString(other.buffer_);
}

bool CExtString::ConcatString(const char* s) {
    return orvil::detail::StringAccess::append(*this, s, SafeStrlen(s));
}

bool CExtString::ConcatStringLen(const char* s, int n) {
    return orvil::detail::StringAccess::append(*this, s, bounded_length(s, n));
}

bool CExtString::ConcatCharacters(char c, int n) {
    if (IsEmpty()) {
        return CreateFromCharacters(c, n);
    }
    if (!GrowFor(static_cast<long long>(length_) + n)) {
        return false;
    }
    const int written = n < 2 ? 1 : n;
    std::memset(buffer_ + length_, c, static_cast<std::size_t>(written));
    buffer_[length_ + written] = '\0';
    length_ += n;
    return true;
}

const CExtString& CExtString::operator+=(const CExtString& other) {
    ConcatObject(other);
    return *this;
}

const CExtString& CExtString::operator+=(const char* s) {
    ConcatString(s);
    return *this;
}

CExtString operator+(const CExtString& left, const CExtString& right) {
    CExtString both(left);
    both += right;
    return both;
}

CExtString operator+(const CExtString& left, char right) {
    CExtString both(left);
    both += right;
    return both;
}

CExtString operator+(const CExtString& left, const char* right) {
    CExtString both(left);
    both += right;
    return both;
}

CExtString operator+(char left, const CExtString& right) {
    CExtString both(left, 1);
    both += right;
    return both;
}

CExtString operator+(const char* left, const CExtString& right) {
    CExtString both(left);
    both += right;
    return both;
}
