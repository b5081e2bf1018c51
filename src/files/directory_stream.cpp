#include "orvil/files/directory_stream.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "files/directory_record.h"
#include "files/owned_text.h"
#include "platform/platform.h"

using orvil::detail::duplicate_text;
using orvil::detail::OwnedText;
using orvil::platform::FindRecord;
using orvil::platform::kNoFind;

static_assert(sizeof(dirent) == 268 && offsetof(dirent, d_off) == 4 && offsetof(dirent, d_reclen) == 8 &&
              offsetof(dirent, d_name) == 10);
static_assert(offsetof(DIR, count) == 8 && offsetof(DIR, state) == 10 && offsetof(DIR, record) == 16 &&
              offsetof(DIR, working_directory) == 24 && offsetof(DIR, path) == 32 && offsetof(DIR, entry) == 40 &&
              sizeof(DIR) == 48);

namespace {

void release(DIR* stream) {
    if (stream->find != kNoFind) {
        orvil::platform::find_close(stream->find);
    }
    std::free(stream->record);
    std::free(stream->working_directory);
    std::free(stream->path);
    std::free(stream->entry);
    std::free(stream);
}

struct ReleaseStream {
    void operator()(DIR* stream) const { release(stream); }
};
using OwnedStream = std::unique_ptr<DIR, ReleaseStream>;

OwnedStream make_stream() {
    OwnedStream stream(static_cast<DIR*>(std::calloc(1, sizeof(DIR))));
    if (stream) {
        stream->find = kNoFind;
        stream->record = static_cast<FindRecord*>(std::calloc(1, orvil::platform::find_record_size()));
        stream->entry = static_cast<dirent*>(std::calloc(1, sizeof(dirent)));
        stream->working_directory = orvil::detail::working_folder_text().release();
    }
    return stream;
}

bool find_entry(DIR& stream) {
    if (stream.find != kNoFind) {
        return orvil::platform::find_next(stream.find, *stream.record);
    }
    stream.find = orvil::platform::find_first(*stream.record);
    return stream.find != kNoFind;
}

// Looks for the next entry in the stream's own directory, and comes back whatever happens.
bool find_entry_there(DIR& stream) {
    const std::intptr_t here = orvil::platform::note_working_folder();
    if (here == orvil::platform::kNoFolder) {
        return false;
    }
    // Otherwise the entries of the working directory would be taken for those of a directory that is not there.
    const bool is_there = orvil::platform::change_folder(stream.path);
    stream.entry->d_name[0] = '\0';
    const bool is_found = is_there && find_entry(stream);
    orvil::platform::return_to_folder(here);
    return is_found;
}

}  // namespace

void orvil::detail::show_entry(DIR& stream, const char* name) {
    dirent& entry = *stream.entry;
    const std::size_t length = (std::min)(std::strlen(name), sizeof entry.d_name - 1);
    std::memcpy(entry.d_name, name, length);
    entry.d_name[length] = '\0';
    entry.d_reclen = static_cast<unsigned short>(length);
    stream.count = static_cast<std::int16_t>(static_cast<std::uint16_t>(stream.count) + 1);
    entry.d_ino = 1;
    entry.d_off = stream.count;
}

DIR* opendir(const char* path) {
    OwnedStream stream = make_stream();
    if (!stream) {
        return nullptr;
    }
    stream->path = duplicate_text(path).release();
    const bool is_whole = stream->record != nullptr && stream->entry != nullptr &&
                          stream->working_directory != nullptr && stream->path != nullptr;
    return is_whole ? stream.release() : nullptr;
}

dirent* readdir(DIR* stream) {
    if (stream == nullptr || stream->state != 0 || !find_entry_there(*stream)) {
        return nullptr;
    }
    orvil::detail::show_entry(*stream, orvil::platform::found_name(*stream->record));
    return stream->entry;
}

// The stream that this opens is lost, and that is what hosts have been told.
// NOLINTBEGIN(clang-analyzer-unix.Malloc)
void rewinddir(DIR* stream) {
    if (stream == nullptr) {
        return;
    }
    const OwnedText path = duplicate_text(stream->path);
    release(stream);
    opendir(path.get());
}
// NOLINTEND(clang-analyzer-unix.Malloc)

int closedir(DIR* stream) {
    if (stream == nullptr) {
        return -1;
    }
    release(stream);
    return 0;
}
