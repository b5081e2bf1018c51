#include "orvil/tokens/token_register.h"

#include <cstddef>

#include "strings/string_access.h"
#include "tokens/block_access.h"
#include "tokens/block_writer.h"

using orvil::detail::BlockAccess;
using orvil::detail::BlockWriter;
using orvil::detail::Indentation;
using orvil::detail::OutputText;

namespace {

constexpr int kGrowUnit = 4096;

// Hosts rely on the layout.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
struct Layout : CTokenRegister {
    static constexpr bool is_as_promised() {
        return sizeof(Layout) == 168 && offsetof(Layout, message_) == 8 && offsetof(Layout, target_path_) == 32 &&
               offsetof(Layout, stream_) == 56 && offsetof(Layout, indent_level_) == 152 &&
               offsetof(Layout, indent_width_) == 156 && offsetof(Layout, use_tab_) == 160;
    }
};
#pragma GCC diagnostic pop
static_assert(Layout::is_as_promised());

}  // namespace

CTokenRegister::CTokenRegister(const char* targetPath, bool useTab, int indentWidth)
    : target_path_(targetPath),
      stream_(eTransWrite, kGrowUnit),
      indent_level_(0),
      indent_width_(indentWidth),
      use_tab_(useTab) {
}

CTokenRegister::CTokenRegister(const CTokenRegister& source) = default;

CTokenRegister& CTokenRegister::operator=(const CTokenRegister& source) = default;

CTokenRegister::~CTokenRegister() = default;

bool CTokenRegister::DoRegist(const CLexTokenBlock& root, bool append) {
    if (target_path_.IsEmpty() || !stream_.OpenFile(target_path_)) {
        return false;
    }
    indent_level_ = 0;
    BlockWriter writer(stream_, indent_level_, {indent_width_, use_tab_});
    bool written = writer.write_token(root);
    for (int i = 0; written && i < BlockAccess::count(root); ++i) {
        written = writer.write_entry(*BlockAccess::child(root, i));
    }
    written = written && stream_.WriteFile(append);
    stream_.CloseFile();
    return written;
}

CExtString CTokenRegister::CreateIndentSpace() const {
    OutputText blanks;
    CExtString result;
    Indentation{indent_width_, use_tab_}.append_to(blanks, indent_level_);
    orvil::detail::StringAccess::assign(result, blanks.data(), static_cast<int>(blanks.size()));
    return result;
}

bool CTokenRegister::DoRegistBlock(const CLexTokenBlock& node) {
    return BlockWriter(stream_, indent_level_, {indent_width_, use_tab_}).write_entry(node);
}

bool CTokenRegister::DoRegistAssign(const CLexTokenBlock& node) {
    return BlockWriter(stream_, indent_level_, {indent_width_, use_tab_}).write_assignment(node);
}

bool CTokenRegister::DoRegistListing(const CLexTokenBlock& node) {
    return BlockWriter(stream_, indent_level_, {indent_width_, use_tab_}).write_listing(node);
}
