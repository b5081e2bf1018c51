#include "orvil/messages/message_files.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "messages/message_blocks.h"
#include "orvil/tokens/block_tokens.h"
#include "tokens/block_access.h"

using orvil::detail::BlockAccess;
using orvil::detail::kMessageFileBanner;
using orvil::detail::kMessageMapName;
using orvil::detail::NodePtr;

namespace {

constexpr const char* kSubjectName = "Subject";
constexpr const char* kTitleName = "Title";
constexpr const char* kKeyCodeName = "KeyCode";

// Hosts rely on the layout.
static_assert(sizeof(CMessageLoader) == sizeof(void*) && sizeof(CMessageRegister) == sizeof(void*));

// Pairs codes and texts, whichever comes first. A pair counts as taken when the map refuses it, too.
class ItemReader {
public:
    explicit ItemReader(CMessageMap& map) : map_(map) {}

    void take(const CLexToken& entry) {
        if (entry.IsDecimalToken()) {
            has_code_ = entry.ParseDecimal(code_);
        } else {
            text_ = entry.IsStringToken() ? entry.GetString() : "";
        }
        if (has_code_ && *text_ != '\0') {
            map_.AddItem(code_, text_);
            has_code_ = false;
            text_ = "";
        }
    }

private:
    CMessageMap& map_;
    bool has_code_ = false;
    int code_ = 0;
    const char* text_ = "";  // lies in its entry
};

// The codes of all items of a map, ascending, each as often as it occurs.
class SortedCodes {
public:
    explicit SortedCodes(const CMessageMap& map)
        : codes_(static_cast<int*>(std::malloc(static_cast<std::size_t>(map.GetItemCount()) * sizeof(int) + 1))) {
        for (int position = 0; good() && position < map.GetItemCount(); ++position) {
            if (map.GetItemText(position) != nullptr) {
                codes_[count_++] = map.GetItemCode(position);
            }
        }
        std::sort(begin(), end());
    }
    ~SortedCodes() { std::free(codes_); }
    SortedCodes(const SortedCodes&) = delete;
    SortedCodes& operator=(const SortedCodes&) = delete;

    // Whether there was memory for them.
    bool good() const { return codes_ != nullptr; }
    int* begin() const { return codes_; }
    int* end() const { return codes_ + count_; }

private:
    int* codes_;
    int count_ = 0;
};

bool add_entry(CLexTokenBlock& block, NodePtr& entry) {
    return BlockAccess::add_entry(block, std::move(entry)) >= 0;
}

bool add_subject(CLexTokenBlock& block, const CMessageMap& map) {
    NodePtr subject = BlockAccess::make();
    return subject != nullptr && bt_init_block(*subject, kSubjectName) &&
           bt_add_block_assign(*subject, kTitleName, map.GetSubjectKeyText(), true) &&
           bt_add_block_assign(*subject, kKeyCodeName, map.GetSubjectKeyCode()) && add_entry(block, subject);
}

bool add_item(CLexTokenBlock& block, int code, const char* text) {
    NodePtr listing = BlockAccess::make();
    return listing != nullptr && bt_init_listing(*listing) && bt_add_listing_item(*listing, code) &&
           bt_add_listing_item(*listing, text, true) && add_entry(block, listing);
}

bool add_items(CLexTokenBlock& block, const CMessageMap& map) {
    const SortedCodes codes(map);
    return codes.good() && std::all_of(codes.begin(), codes.end(), [&block, &map](int code) {
               return add_item(block, code, map.SearchItemText(code));
           });
}

}  // namespace

// --- reading --------------------------------------------------------------------------------------------------------

CMessageLoader::CMessageLoader() = default;

CMessageLoader::CMessageLoader(const CMessageLoader&) = default;

CMessageLoader& CMessageLoader::operator=(const CMessageLoader&) = default;

CMessageLoader::~CMessageLoader() = default;

bool CMessageLoader::Load(const char* path, CMessageMap& map) {
    CLexTokenBlock root;
    if (!bt_input_file(path, root)) {
        return false;
    }
    map.DeleteAllItems();
    const CLexTokenBlock* block = BlockAccess::child(root, BlockAccess::find_block(root, kMessageMapName, 0));
    return block == nullptr || ParseMessageMap(*block, map);
}

bool CMessageLoader::Parse(const CLexTokenBlock& block, CMessageMap& map) {
    const CLexTokenBlock* subject = BlockAccess::child(block, BlockAccess::find_block(block, kSubjectName, 0));
    CExtString title;
    int code = 0;
    return subject != nullptr && subject->GetAssignmentString(kTitleName, title) &&
           subject->GetAssignmentDecimal(kKeyCodeName, code) && map.SetupSubjectKey(code, title) &&
           ParseMessageMap(block, map);
}

bool CMessageLoader::ParseMessageMap(const CLexTokenBlock& block, CMessageMap& map) {
    ItemReader reader(map);
    for (int i = 0; i < BlockAccess::count(block); ++i) {
        reader.take(*BlockAccess::child(block, i));
    }
    return true;
}

// --- writing --------------------------------------------------------------------------------------------------------

CMessageRegister::CMessageRegister() = default;

CMessageRegister::CMessageRegister(const CMessageRegister&) = default;

CMessageRegister& CMessageRegister::operator=(const CMessageRegister&) = default;

CMessageRegister::~CMessageRegister() = default;

bool CMessageRegister::Store(const char* path, const CMessageMap& map) const {
    CLexTokenBlock master;
    return bt_make_master_block(master, path, kMessageFileBanner) && RegistMessageMap(master, map) &&
           bt_output_file(path, master, false);
}

bool CMessageRegister::Regist(CLexTokenBlock& parent, const CMessageMap& map) const {
    RegistMessageMap(parent, map);
    return false;
}

bool CMessageRegister::RegistMessageMap(CLexTokenBlock& parent, const CMessageMap& map) const {
    NodePtr block = BlockAccess::make();
    if (block == nullptr || !bt_init_block(*block, kMessageMapName) || !add_subject(*block, map) ||
        !add_items(*block, map)) {
        return false;
    }
    return BlockAccess::is_closed(parent) || BlockAccess::append(parent, block) >= 0;
}
