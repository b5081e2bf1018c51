#include "orvil/strings/ext_str_array.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>

#include "orvil/runtime/heap.h"
#include "orvil/strings/ext_str_list.h"
#include "platform/platform.h"
#include "strings/text_collection.h"

namespace orvil::detail {

void* HeapSlots::Allocate(int capacity) {
    return orv_heap_alloc(static_cast<std::size_t>(capacity) * sizeof(void*));
}

void* HeapSlots::Grow(void* block, int, int to) {
    return orv_heap_realloc(block, static_cast<std::size_t>(to) * sizeof(void*));
}

void HeapSlots::Free(void* block, int) {
    orv_heap_free(block);
}

}  // namespace orvil::detail

using orvil::detail::is_empty_text;

namespace {

// Hosts rely on the layout: the virtual table's pointer, then the members. Every compiler of ours supports offsetof
// here, though the language leaves it open.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
struct Layout : CExtStrArray {
    static constexpr bool is_as_promised() {
        return sizeof(CExtStrArray) == 24 && offsetof(Layout, slots_) == 8 && offsetof(Layout, size_) == 16 &&
               offsetof(Layout, capacity_) == 20;
    }
};
static_assert(Layout::is_as_promised());
#pragma GCC diagnostic pop

int sign(int value) {
    return (value > 0) - (value < 0);
}

const CExtString* slot_at(const void* slot) {
    return *static_cast<CExtString* const*>(slot);
}

}  // namespace

CExtStrArray::CExtStrArray() = default;

CExtStrArray::CExtStrArray(const CExtStrArray& other) : SlotArray() {
    CopyData(other);
}

CExtStrArray::CExtStrArray(const char* first, ...) {
    va_list args;
    va_start(args, first);
    CreateFromStringsV(first, args);
    va_end(args);
}

CExtStrArray::CExtStrArray(const CExtStrList& list, __pos* from, __pos* to) {
    CreateFromListObject(list, from, to);
}

CExtStrArray::CExtStrArray(const char* const* texts, int n) {
    CreateFromStringArray(texts, n);
}

CExtStrArray::CExtStrArray(FILE* fp, bool bStrip, bool bCRLF) {
    CreateFromStream(fp, bStrip, bCRLF);
}

CExtStrArray::~CExtStrArray() {
    RemoveAll();
}

bool CExtStrArray::GetAt(int i, CExtString& out) const {
    if (!IsIndex(i)) {
        return false;
    }
    out = GetAt(i);
    return true;
}

int CExtStrArray::IndexOf(const char* s, bool nocase) const {
    const auto compare = nocase ? st_ImpFunc_strcasecmp : std::strcmp;
    const char* wanted = s == nullptr ? "" : s;
    for (int i = 0; i < GetSize(); ++i) {
        if (slots_[i] != nullptr && compare(slots_[i]->GetString(), wanted) == 0) {
            return i;
        }
    }
    return -1;
}

// --- changing elements -----------------------------------------------------------------------------------------------

bool CExtStrArray::ReplaceElement(int i, const char* s) {
    if (!IsIndex(i)) {
        return false;
    }
    if (is_empty_text(s)) {
        return ReplaceSlot(i, nullptr);
    }
    CExtString* element = new (std::nothrow) CExtString(s);
    return element != nullptr && ReplaceSlot(i, element);
}

bool CExtStrArray::ReplaceElements(int i, const char* s, int n) {
    for (int k = 0; k < n; ++k) {
        if (!ReplaceElement(i + k, s)) {
            return false;
        }
    }
    return true;
}

bool CExtStrArray::AppendElement(const char* s) {
    return ResizeArray(size_ + 1) && ReplaceElement(size_ - 1, s);
}

bool CExtStrArray::SetAt(int i, const char* s) {
    return ReachIndex(i) && ReplaceElement(i, s);
}

bool CExtStrArray::Insert(int i, const char* s, int n) {
    if (!IsIndex(i)) {
        return false;
    }
    return n < 1 || (MoveElements(i, n) && ReplaceElements(i, s, n));
}

bool CExtStrArray::Remove(int i, int n) {
    return IsIndex(i) && DeleteElements(i, n);
}

bool CExtStrArray::Add(const char* s, int n) {
    if (n > kLargestSize - GetSize()) {
        return false;
    }
    for (int k = 0; k < n; ++k) {
        if (!AppendElement(s)) {
            return false;
        }
    }
    return true;
}

bool CExtStrArray::AddFormat(const char* format, ...) {
    va_list args;
    va_start(args, format);
    const bool added = AddFormatV(format, args);
    va_end(args);
    return added;
}

bool CExtStrArray::AddFormatV(const char* format, va_list args) {
    CExtString text;
    text.FormatV(format, args);
    return AppendElement(text);
}

bool CExtStrArray::RemoveAll() {
    return FreeArray();
}

// --- taking over many elements ---------------------------------------------------------------------------------------

bool CExtStrArray::ConcatArray(const CExtStrArray& other) {
    const int count = other.GetSize();
    for (int k = 0; k < count; ++k) {
        if (!AppendElement(other.GetAt(k))) {
            return false;
        }
    }
    return true;
}

bool CExtStrArray::InsertArray(int i, const CExtStrArray& other) {
    const int count = other.GetSize();
    if (!IsIndex(i) || !MoveElements(i, count)) {
        return false;
    }
    for (int k = 0; k < count; ++k) {
        const bool behind_own_gap = &other == this && k >= i;
        if (!ReplaceElement(i + k, other.GetAt(behind_own_gap ? k + count : k))) {
            return false;
        }
    }
    return true;
}

bool CExtStrArray::CopyData(const CExtStrArray& other) {
    if (this == &other) {
        return true;
    }
    RemoveAll();
    if (other.IsEmpty()) {
        return true;
    }
    if (!AllocArray(other.size_)) {
        return false;
    }
    for (int k = 0; k < size_; ++k) {
        if (!ReplaceElement(k, other.GetAt(k))) {
            return false;
        }
    }
    return true;
}

bool CExtStrArray::CreateFromStringsV(const char* first, va_list args) {
    for (const char* text = first; text != nullptr; text = va_arg(args, const char*)) {
        if (!AppendElement(text)) {
            return false;
        }
    }
    return true;
}

bool CExtStrArray::CreateFromStrings(const char* first, ...) {
    va_list args;
    va_start(args, first);
    const bool created = CreateFromStringsV(first, args);
    va_end(args);
    return created;
}

bool CExtStrArray::CreateFromStringArray(const char* const* texts, int n) {
    if (texts == nullptr) {
        return false;
    }
    for (int k = 0; (n < 0 || k < n) && texts[k] != nullptr; ++k) {
        if (!AppendElement(texts[k])) {
            return false;
        }
    }
    return true;
}

bool CExtStrArray::CreateFromListObject(const CExtStrList& list, __pos* from, __pos* to) {
    __pos* const end = to == nullptr ? list.GetTailPosition() : to;
    __pos* pos = from == nullptr ? list.GetHeadPosition() : from;
    if (list.IsEmpty()) {
        return false;
    }
    // Going on only onto the end node, the walk takes two elements at most.
    do {
        if (!AppendElement(list.GetNext(pos))) {
            return false;
        }
    } while (pos == end && pos != nullptr);
    return true;
}

bool CExtStrArray::CreateFromStream(FILE* fp, bool bStrip, bool bCRLF) {
    return orvil::detail::append_lines(fp, bStrip, bCRLF, [this](const char* line) { return AppendElement(line); }) > 0;
}

// --- joining ---------------------------------------------------------------------------------------------------------

CExtString CExtStrArray::Join(const char* separator) const {
    CExtString joined;
    for (int i = 0; i < GetSize(); ++i) {
        orvil::detail::join_text(joined, separator, GetAt(i));
    }
    return joined;
}

bool CExtStrArray::MakeCombinedString(CExtString& out) const {
    out.Empty();
    for (int i = 0; i < GetSize(); ++i) {
        out.ConcatString(GetAt(i));
    }
    return true;
}

bool CExtStrArray::WriteJoinedFile(const char* path, const char* separator) const {
    orvil::detail::JoinedFile file(path, separator);
    if (!file.is_open()) {
        return false;
    }
    for (int i = 0; i < GetSize(); ++i) {
        const char* text = GetAt(i);
        file.write(text == nullptr ? "(null)" : text);
    }
    return true;
}

// --- ordering --------------------------------------------------------------------------------------------------------

// The C++ library's sort wants a consistent order, which empty slots, equal to everything, do not give.
bool CExtStrArray::Sort(bool numeric) {
    if (GetSize() < 2) {
        return false;
    }
    std::qsort(slots_, static_cast<std::size_t>(size_), sizeof(*slots_),
               numeric ? compare_func_for_sort_num : compare_func_for_sort);
    return true;
}

bool CExtStrArray::Reverse() {
    if (IsEmpty()) {
        return false;
    }
    std::reverse(slots_, slots_ + size_);
    return true;
}

int CExtStrArray::compare_func_for_sort(const void* left, const void* right) {
    const CExtString* a = slot_at(left);
    const CExtString* b = slot_at(right);
    return a == nullptr || b == nullptr ? 0 : sign(std::strcmp(a->GetString(), b->GetString()));
}

int CExtStrArray::compare_func_for_sort_num(const void* left, const void* right) {
    const CExtString* a = slot_at(left);
    const CExtString* b = slot_at(right);
    if (a == nullptr || b == nullptr) {
        return 0;
    }
    const std::int32_t x = orvil::platform::parse_int32(a->GetString());
    const std::int32_t y = orvil::platform::parse_int32(b->GetString());
    return (x > y) - (x < y);
}

// --- operators -------------------------------------------------------------------------------------------------------

CExtStrArray& CExtStrArray::operator+=(const char* s) {
    AppendElement(s);
    return *this;
}

CExtStrArray& CExtStrArray::operator+=(const CExtStrArray& other) {
    ConcatArray(other);
    return *this;
}

CExtStrArray& CExtStrArray::operator=(const CExtStrArray& other) {
    CopyData(other);
    return *this;
}
