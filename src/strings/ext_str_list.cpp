#include "orvil/strings/ext_str_list.h"

#include <cstddef>
#include <cstring>

#include "orvil/runtime/heap.h"
#include "orvil/strings/ext_str_array.h"
#include "strings/text_collection.h"

namespace {

// Hosts rely on the layout: the virtual table's pointer, then the members.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
struct Layout : CExtStrList {
    static constexpr bool is_as_promised() {
        return sizeof(CExtStrList) == 32 && offsetof(Layout, head_) == 8 && offsetof(Layout, tail_) == 16 &&
               offsetof(Layout, count_) == 24;
    }
    static constexpr bool is_node_as_promised() {
        using Node = CExtStrList_ListNode;
        return sizeof(Node) == 40 && offsetof(Node, next) == 0 && offsetof(Node, prev) == 8 &&
               offsetof(Node, value) == 16;
    }
};
static_assert(Layout::is_as_promised());
static_assert(Layout::is_node_as_promised());
#pragma GCC diagnostic pop

}  // namespace

CExtStrList::CExtStrList() = default;

CExtStrList::CExtStrList(const CExtStrList& other) : NodeList() {
    CopyData(other);
}

CExtStrList::CExtStrList(const char* first, ...) {
    va_list args;
    va_start(args, first);
    CreateFromStringsV(first, args);
    va_end(args);
}

CExtStrList::CExtStrList(const char* const* texts, int n) {
    CreateFromStringArray(texts, n);
}

CExtStrList::CExtStrList(const CExtStrArray& array, int from, int to) {
    CreateFromArrayObject(array, from, to);
}

CExtStrList::CExtStrList(FILE* fp, bool bStrip, bool bCRLF) {
    CreateFromStream(fp, bStrip, bCRLF);
}

CExtStrList::~CExtStrList() {
    RemoveAll();
}

// --- reading ---------------------------------------------------------------------------------------------------------

const char* CExtStrList::GetNext(__pos*& pos) const {
    const char* text = GetAt(pos);
    pos = pos == nullptr ? nullptr : ToPosition(ToNode(pos)->next);
    return text;
}

const char* CExtStrList::GetPrev(__pos*& pos) const {
    const char* text = GetAt(pos);
    pos = pos == nullptr ? nullptr : ToPosition(ToNode(pos)->prev);
    return text;
}

__pos* CExtStrList::PositionOf(const char* s, bool nocase) const {
    const auto compare = nocase ? st_ImpFunc_strcasecmp : std::strcmp;
    const char* wanted = s == nullptr ? "" : s;
    Node* node = head_;
    while (node != nullptr && compare(node->value.GetString(), wanted) != 0) {
        node = node->next;
    }
    return ToPosition(node);
}

// --- changing the list -----------------------------------------------------------------------------------------------

__pos* CExtStrList::InsertText(Node* prev, Node* next, const char* s) {
    Node* node = InsertNode(prev, next);
    if (node != nullptr) {
        orvil::detail::store_text(node->value, s);
    }
    return ToPosition(node);
}

bool CExtStrList::SetAt(__pos* pos, const char* s) {
    if (pos == nullptr) {
        return false;
    }
    orvil::detail::store_text(ToNode(pos)->value, s);
    return true;
}

__pos* CExtStrList::AddTail(const char* s) {
    return InsertText(tail_, nullptr, s);
}

__pos* CExtStrList::AddHead(const char* s) {
    return InsertText(nullptr, head_, s);
}

__pos* CExtStrList::InsertBefore(__pos* pos, const char* s) {
    Node* next = pos == nullptr ? head_ : ToNode(pos);
    return InsertText(next == nullptr ? nullptr : next->prev, next, s);
}

__pos* CExtStrList::InsertAfter(__pos* pos, const char* s) {
    Node* prev = pos == nullptr ? tail_ : ToNode(pos);
    return InsertText(prev, prev == nullptr ? nullptr : prev->next, s);
}

// --- taking over many texts ------------------------------------------------------------------------------------------

// Counting instead of looking for the end lets a list be added to itself.
bool CExtStrList::AddTail(const CExtStrList& other) {
    const Node* source = other.head_;
    for (int left = other.count_; left > 0 && source != nullptr; --left, source = source->next) {
        if (AddTail(source->value.GetString()) == nullptr) {
            return false;
        }
    }
    return true;
}

bool CExtStrList::AddHead(const CExtStrList& other) {
    const Node* source = other.tail_;
    for (int left = other.count_; left > 0 && source != nullptr; --left, source = source->prev) {
        if (AddHead(source->value.GetString()) == nullptr) {
            return false;
        }
    }
    return true;
}

bool CExtStrList::CopyData(const CExtStrList& other) {
    return this == &other || (RemoveAll() && AddTail(other));
}

bool CExtStrList::CreateFromStringsV(const char* first, va_list args) {
    for (const char* text = first; text != nullptr; text = va_arg(args, const char*)) {
        if (AddTail(text) == nullptr) {
            return false;
        }
    }
    return true;
}

bool CExtStrList::CreateFromStrings(const char* first, ...) {
    va_list args;
    va_start(args, first);
    const bool created = CreateFromStringsV(first, args);
    va_end(args);
    return created;
}

bool CExtStrList::CreateFromStringArray(const char* const* texts, int n) {
    if (texts == nullptr) {
        return false;
    }
    for (int k = 0; (n < 0 || k < n) && texts[k] != nullptr; ++k) {
        if (AddTail(texts[k]) == nullptr) {
            return false;
        }
    }
    return true;
}

bool CExtStrList::CreateFromArrayObject(const CExtStrArray& array, int from, int to) {
    const int end = to < 0 ? array.GetSize() : to;
    for (int i = from; i < end; ++i) {
        const char* text = array.GetAt(i);  // null: out of range, or an empty element, which ends the copy as well
        if (text == nullptr) {
            return true;
        }
        if (AddTail(text) == nullptr) {
            return false;
        }
    }
    return true;
}

bool CExtStrList::CreateFromStream(FILE* fp, bool bStrip, bool bCRLF) {
    orvil::detail::append_lines(fp, bStrip, bCRLF, [this](const char* line) { return AddTail(line) != nullptr; });
    return false;
}

// --- joining ---------------------------------------------------------------------------------------------------------

bool CExtStrList::MakeCombinedString(CExtString& out) const {
    out.Empty();
    for (const Node* node = head_; node != nullptr; node = node->next) {
        out.ConcatString(node->value.GetString());
    }
    return true;
}

CExtString CExtStrList::Join(const char* separator) const {
    CExtString joined;
    for (const Node* node = head_; node != nullptr; node = node->next) {
        orvil::detail::join_text(joined, separator, node->value.GetString());
    }
    return joined;
}

bool CExtStrList::WriteJoinedFile(const char* path, const char* separator) const {
    orvil::detail::JoinedFile file(path, separator);
    if (!file.is_open()) {
        return false;
    }
    for (const Node* node = head_; node != nullptr; node = node->next) {
        file.write(node->value.GetString());
    }
    return true;
}

// --- operators -------------------------------------------------------------------------------------------------------

CExtStrList& CExtStrList::operator=(const CExtStrList& other) {
    CopyData(other);
    return *this;
}

void CExtStrList::operator+=(const char* s) {
    AddTail(s);
}

void CExtStrList::operator+=(const CExtStrList& other) {
    AddTail(other);
}
