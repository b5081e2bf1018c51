#include "orvil/messages/message_manager.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>

#include "messages/message_blocks.h"
#include "orvil/messages/message_files.h"
#include "orvil/tokens/block_tokens.h"
#include "platform/platform.h"
#include "strings/hash_access.h"
#include "strings/string_access.h"
#include "tokens/block_access.h"

using orvil::detail::BlockAccess;
using orvil::detail::kMessageFileBanner;
using orvil::detail::kMessageMapName;
using orvil::detail::ManagerAccess;
using orvil::detail::StringAccess;

namespace {

constexpr int kBuckets = 61;
constexpr int kCodesPerMap = 10000;

// A subject code as the key of its map.
class CodeKey {
public:
    explicit CodeKey(int code) { *std::to_chars(text_, text_ + sizeof(text_) - 1, code).ptr = '\0'; }
    const char* text() const { return text_; }

private:
    char text_[16];
};

int code_at(const CExtStrArray& codes, int place) {
    return orvil::platform::parse_int32(codes.GetAt(place));
}

// Where the code stands among ascending ones, or belongs.
int place_of(const CExtStrArray& codes, int code) {
    int from = 0;
    int to = codes.GetSize();
    while (from < to) {
        const int middle = from + (to - from) / 2;
        if (code_at(codes, middle) < code) {
            from = middle + 1;
        } else {
            to = middle;
        }
    }
    return from;
}

bool stands_at(const CExtStrArray& codes, int place, int code) {
    return place < codes.GetSize() && code_at(codes, place) == code;
}

// Adds a code at its place. False without memory; then nothing has changed.
bool insert_code(CExtStrArray& codes, int place, const char* code) {
    const int size = codes.GetSize();
    if (place == size) {
        codes.Add(code);
    } else {
        codes.Insert(place, code);
    }
    if (codes.GetSize() == size) {
        return false;
    }
    const char* stored = codes.GetAt(place);
    if (stored != nullptr && std::strcmp(stored, code) == 0) {
        return true;
    }
    codes.Remove(place);
    return false;
}

// Lets the key lead to the value. False without memory; then nothing has changed.
bool set_entry(CExtStrHash& hash, const char* key, const char* value) {
    const int count = hash.GetCount();
    CExtString text(value);
    if (text.IsEmpty()) {
        return false;
    }
    CExtString& entry = hash[key];
    if (hash.GetCount() == count && !hash.IsExistKey(key)) {
        return false;
    }
    StringAccess::swap(entry, text);
    return true;
}

}  // namespace

namespace orvil::detail {

struct ManagerAccess {
    // Takes a map over, or deletes it when it is refused. The subject is that of the map which it is a copy of.
    static bool adopt(CMessageManager& manager, const CMessageMap& subject, CMessageMap* map) {
        std::unique_ptr<CMessageMap> owner(map);
        const int code = subject.GetSubjectKeyCode();
        const CodeKey key(code);
        const int place = place_of(manager.codes_, code);
        if (map == nullptr || stands_at(manager.codes_, place, code) || !manager.maps_.SetAt(key.text(), map)) {
            return false;
        }
        const bool listed = insert_code(manager.codes_, place, key.text());
        if (!listed || !set_entry(manager.titles_, subject.GetSubjectKeyText(), key.text())) {
            if (listed) {
                manager.codes_.Remove(place);
            }
            manager.maps_.RemoveKey(key.text());
            return false;
        }
        HashAccess::keep_chains_short(manager.maps_);
        HashAccess::keep_chains_short(manager.titles_);
        static_cast<void>(owner.release());
        return true;
    }

    // The map of a subject code as text; null when there is none or no text.
    static CMessageMap* find(const CMessageManager& manager, const char* key) {
        CMessageMap* map = nullptr;
        if (key != nullptr) {
            manager.maps_.Lookup(key, map);
        }
        return map;
    }
};

}  // namespace orvil::detail

// --- construction ---------------------------------------------------------------------------------------------------

CMessageManager::CMessageManager() : maps_(kBuckets), titles_(kBuckets) {
}

CMessageManager::CMessageManager(const CMessageManager& source) : CMessageManager() {
    CopyData(source);
}

CMessageManager& CMessageManager::operator=(const CMessageManager& source) {
    CopyData(source);
    return *this;
}

CMessageManager::~CMessageManager() {
    RemoveAll();
}

CMessageManager* CMessageManager::GetCopyInstance() const {
    std::unique_ptr<CMessageManager> copy(new (std::nothrow) CMessageManager);
    return copy != nullptr && copy->CopyData(*this) ? copy.release() : nullptr;
}

bool CMessageManager::CopyData(const CMessageManager& source) {
    if (this == &source) {
        return true;
    }
    RemoveAll();
    for (int position = 0; position < source.GetItemCount(); ++position) {
        if (!AddMap(*source.GetMessageMap(position))) {
            return false;
        }
    }
    return true;
}

// --- maps -----------------------------------------------------------------------------------------------------------

int CMessageManager::GetItemCount() const {
    return codes_.GetSize();
}

bool CMessageManager::AddMap(const CMessageMap& map) {
    return SearchMessageMap(map.GetSubjectKeyCode()) == nullptr &&
           ManagerAccess::adopt(*this, map, map.GetCopyInstance());
}

CMessageMap* CMessageManager::GetMessageMap(int position) const {
    return ManagerAccess::find(*this, codes_.GetAt(position));
}

CMessageMap* CMessageManager::SearchMessageMap(int code) const {
    return ManagerAccess::find(*this, CodeKey(code).text());
}

CMessageMap* CMessageManager::SearchMessageMap(const char* title) const {
    return ManagerAccess::find(*this, titles_[title]);
}

bool CMessageManager::RemoveAll() {
    for (int position = 0; position < GetItemCount(); ++position) {
        delete GetMessageMap(position);
    }
    codes_.RemoveAll();
    maps_.RemoveAll();
    titles_.RemoveAll();
    return true;
}

// --- files ----------------------------------------------------------------------------------------------------------

bool CMessageManager::Load(const char* path) {
    CLexTokenBlock root;
    if (!bt_input_file(path, root)) {
        return false;
    }
    for (int i = BlockAccess::find_block(root, kMessageMapName, 0); i >= 0;
         i = BlockAccess::find_block(root, kMessageMapName, i + 1)) {
        std::unique_ptr<CMessageMap> map(new (std::nothrow) CMessageMap);
        if (map != nullptr && CMessageLoader().Parse(*BlockAccess::child(root, i), *map)) {
            const CMessageMap& loaded = *map;
            ManagerAccess::adopt(*this, loaded, map.release());
        }
    }
    return true;
}

// The writer refuses a file that its owner may not both read and write.
bool CMessageManager::Store(const char* path, const char* banner) const {
    const char* heading = banner == nullptr || *banner == '\0' ? kMessageFileBanner : banner;
    CLexTokenBlock master;
    bool written = bt_make_master_block(master, path, heading);
    for (int position = 0; written && position < GetItemCount(); ++position) {
        written = CMessageRegister().RegistMessageMap(master, *GetMessageMap(position));
    }
    return written && bt_output_file(path, master, false);
}

// --- error numbers --------------------------------------------------------------------------------------------------

int CMessageManager::GetFinalErrorCode(int mapCode, int messageCode) {
    const int message = CMessageMap::IsMsgCode(messageCode) ? messageCode : 0;
    return static_cast<int>(static_cast<std::uint32_t>(mapCode) * kCodesPerMap + static_cast<std::uint32_t>(message));
}
