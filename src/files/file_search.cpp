#include "orvil/files/file_search.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "files/owned_text.h"
#include "files/wildcard.h"
#include "orvil/files/file_path.h"
#include "orvil/strings/regex.h"
#include "platform/platform.h"

using orvil::detail::duplicate_text;
using orvil::detail::OwnedText;
using orvil::platform::FileStatus;

namespace {

// Hosts rely on the layout. Every compiler of ours supports offsetof here.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
struct SearchLayout : CFileSearch {
    static constexpr bool is_as_promised() {
        return offsetof(SearchLayout, stream_) == 8 && offsetof(SearchLayout, entry_) == 16 &&
               offsetof(SearchLayout, status_) == 24 && offsetof(SearchLayout, directory_) == 72 &&
               offsetof(SearchLayout, handle_) == 80 && offsetof(SearchLayout, pattern_) == 88 &&
               offsetof(SearchLayout, path_) == 96 && sizeof(SearchLayout) == 1128;
    }
    static constexpr bool has_status_of_the_runtime() {
        return offsetof(Status, mode) == 6 && offsetof(Status, links) == 8 && offsetof(Status, drive) == 16 &&
               offsetof(Status, size) == 20 && offsetof(Status, accessed) == 24 && offsetof(Status, created) == 40 &&
               sizeof(Status) == 48;
    }
};
static_assert(SearchLayout::is_as_promised() && SearchLayout::has_status_of_the_runtime());
#pragma GCC diagnostic pop

constexpr unsigned short kDirectory = 0x4000;
constexpr unsigned short kReadable = 0x100;
constexpr unsigned short kWritable = 0x80;

// PCRE's work space; with room for every group the search is fastest.
constexpr int kOffsets = 256;

dirent* duplicate_entry(const dirent* entry) {
    auto* copy = entry == nullptr ? nullptr : static_cast<dirent*>(std::malloc(sizeof(dirent)));
    if (copy != nullptr) {
        *copy = *entry;
    }
    return copy;
}

// The directory and the name with one separator between them. The root directory of POSIX is a separator already.
bool join(const char* directory, const char* name, CExtString& path) {
    return path.CreateFromString(directory) && (path == "/" || path.ConcatString("/")) && path.ConcatString(name);
}

}  // namespace

// The inner steps of a search.
struct orvil::detail::SearchAccess {
    // Fills a search that is closed.
    static void take_copy(CFileSearch& search, const CFileSearch& other) {
        search.entry_ = duplicate_entry(other.entry_);
        search.directory_ = duplicate_text(other.directory_).release();
        search.pattern_ = duplicate_text(other.pattern_).release();
        search.handle_ = other.handle_;
        search.status_ = other.status_;
        std::memcpy(search.path_, other.path_, sizeof search.path_);
        const bool is_whole = (search.entry_ != nullptr) == (other.entry_ != nullptr) &&
                              (search.directory_ != nullptr) == (other.directory_ != nullptr) &&
                              (search.pattern_ != nullptr) == (other.pattern_ != nullptr);
        if (!is_whole) {
            search.Close();
        }
    }

    static void drop_entry(CFileSearch& search) {
        if (search.stream_ == nullptr) {
            std::free(search.entry_);
        }
        search.entry_ = nullptr;
        search.status_ = {};
        search.path_[0] = '\0';
    }

    // Fills in status and path of the current entry. One without them is a match all the same.
    static void describe_entry(CFileSearch& search) {
        CExtString joined;
        if (join(search.directory_, search.entry_->d_name, joined)) {
            fill_status(search, joined);
            fill_path(search, joined);
        }
    }

private:
    static void fill_status(CFileSearch& search, const CExtString& path) {
        FileStatus found;
        if (!platform::file_status(path, found)) {
            return;
        }
        CFileSearch::Status& status = search.status_;
        status.device = status.drive = found.device;
        status.mode = static_cast<std::uint16_t>(found.mode);
        status.links = static_cast<std::int16_t>(found.links);
        status.size = static_cast<std::int32_t>(found.size);
        status.accessed = found.accessed;
        status.modified = found.modified;
        status.created = found.created;
    }

    static void fill_path(CFileSearch& search, const CExtString& joined) {
        CFilePath path;
        if (path.CreateFromFullPath(joined)) {
            const CExtString full = path.MakeFullPath(false);
            const std::size_t length = std::string_view(full).copy(search.path_, sizeof search.path_ - 1);
            search.path_[length] = '\0';
        }
    }
};

using orvil::detail::SearchAccess;

// --- beginning and end -----------------------------------------------------------------------------------------------

CFileSearch::CFileSearch() = default;

CFileSearch::~CFileSearch() {
    Close();
}

CFileSearch::CFileSearch(const CFileSearch& other) {
    SearchAccess::take_copy(*this, other);
}

CFileSearch& CFileSearch::operator=(const CFileSearch& other) {
    if (this != &other) {
        Close();
        SearchAccess::take_copy(*this, other);
    }
    return *this;
}

void CFileSearch::Close() {
    SearchAccess::drop_entry(*this);
    closedir(stream_);
    std::free(directory_);
    std::free(pattern_);
    stream_ = nullptr;
    directory_ = nullptr;
    pattern_ = nullptr;
    handle_ = nullptr;
}

// --- setting up ------------------------------------------------------------------------------------------------------

bool CFileSearch::Setup(const char* wildcard) {
    if (wildcard == nullptr || *wildcard == '\0') {
        return RegexSetup(nullptr);
    }
    const OwnedText notation = orvil::detail::wildcard_notation(wildcard);
    if (!notation) {
        Close();
        return false;
    }
    return RegexSetup(notation.get());
}

bool CFileSearch::RegexSetup(const char* pattern) {
    // The pattern may be a text of this object, which closing releases.
    OwnedText copy = duplicate_text(pattern);
    const bool is_asked_for = pattern != nullptr;
    Close();
    directory_ = orvil::detail::working_folder_text().release();
    if (is_asked_for && copy) {
        handle_ = regex_compile(copy.get());
    }
    if (directory_ == nullptr || (is_asked_for && handle_ == nullptr)) {
        Close();
        return false;
    }
    pattern_ = copy.release();
    return true;
}

// --- searching -------------------------------------------------------------------------------------------------------

bool CFileSearch::FindNext() {
    SearchAccess::drop_entry(*this);
    if (pattern_ == nullptr && handle_ == nullptr) {
        return false;
    }
    if (stream_ == nullptr) {
        stream_ = opendir(directory_);
    }
    do {
        entry_ = readdir(stream_);
    } while (entry_ != nullptr && !MatchPattern());
    if (entry_ == nullptr) {
        return false;
    }
    SearchAccess::describe_entry(*this);
    return true;
}

bool CFileSearch::MatchPattern() {
    if (entry_ == nullptr || handle_ == nullptr) {
        return entry_ != nullptr;
    }
    int offsets[kOffsets];
    return regex_execute(handle_, nullptr, entry_->d_name, entry_->d_reclen, 0, 0, offsets, kOffsets) >= 0;
}

// --- the current entry -----------------------------------------------------------------------------------------------

const char* CFileSearch::GetFileName() const {
    return entry_ == nullptr ? CExtString::sm_pszNull : entry_->d_name;
}

const char* CFileSearch::GetFilePath() const {
    return path_;
}

bool CFileSearch::StatMask(unsigned short mask) const {
    return (status_.mode & mask) != 0;
}

bool CFileSearch::IsDirectory() const {
    return StatMask(kDirectory);
}

bool CFileSearch::IsReadOnly() const {
    return StatMask(kReadable) && !StatMask(kWritable);
}

bool CFileSearch::IsDots() const {
    const std::string_view name = GetFileName();
    return name == "." || name == "..";
}
