#include "orvil/tokens/stream_mem_file.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/platform.h"
#include "tokens/lead_bytes.h"
#include "tokens/stream_access.h"

using orvil::detail::StreamAccess;

namespace orvil::detail {

// Hosts rely on the layout: the virtual table's pointer, then the fields.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
constexpr bool StreamAccess::has_promised_layout() {
    using Stream = CStreamMemFile;
    return sizeof(Stream) == 96 && offsetof(Stream, direction_) == 8 && offsetof(Stream, path_) == 16 &&
           offsetof(Stream, capacity_) == 40 && offsetof(Stream, grow_unit_) == 44 && offsetof(Stream, buffer_) == 48 &&
           offsetof(Stream, position_) == 56 && offsetof(Stream, delimiter_mode_) == 60 &&
           offsetof(Stream, line_) == 64 && offsetof(Stream, column_) == 68 &&
           offsetof(Stream, error_information_) == 72;
}
#pragma GCC diagnostic pop
static_assert(StreamAccess::has_promised_layout());

}  // namespace orvil::detail

namespace {

constexpr unsigned kFileTypeMask = 0xF000;
constexpr unsigned kFolder = 0x4000;
constexpr unsigned kReadableAndWritable = 0x100 | 0x80;

// Up to this size a block holds exactly the stream's capacity.
constexpr unsigned kExactBlocks = 64 * 1024;

// How many bytes stand behind a capacity. Large blocks come in four sizes for each doubling, so that a buffer whose
// capacity grows by a small unit is moved only now and then.
std::size_t block_size(int capacity) {
    const auto size = static_cast<unsigned>(capacity);
    if (size < kExactBlocks) {
        return size;
    }
    const std::size_t step = std::bit_floor(size) / 4;
    return (size + step - 1) / step * step;  // NOLINT(clang-analyzer-core.DivideZero): the size is far above 4
}

bool load_file(const char* path, char* buffer, int size) {
    std::FILE* file = std::fopen(path, "rb");
    if (file == nullptr) {
        return false;
    }
    const std::size_t wanted = static_cast<std::size_t>(size);
    const std::size_t got = std::fread(buffer, 1, wanted, file);
    std::fclose(file);
    return got == wanted;
}

bool save_file(const char* path, bool append, const char* bytes, int size) {
    std::FILE* file = std::fopen(path, append ? "ab" : "wb");
    if (file == nullptr) {
        return false;
    }
    const std::size_t wanted = static_cast<std::size_t>(size);
    const std::size_t put = std::fwrite(bytes, 1, wanted, file);
    return std::fclose(file) == 0 && put == wanted;
}

}  // namespace

CStreamMemFile::CStreamMemFile(ETransDirection direction, int growUnit) : direction_(direction), grow_unit_(growUnit) {
}

CStreamMemFile::CStreamMemFile(const CStreamMemFile& source)
    : direction_(source.direction_), grow_unit_(source.grow_unit_) {
    CopyData(source);
}

CStreamMemFile::~CStreamMemFile() {
    CloseFile();
}

CStreamMemFile& CStreamMemFile::operator=(const CStreamMemFile& source) {
    CopyData(source);
    return *this;
}

bool CStreamMemFile::CopyData(const CStreamMemFile& source) {
    if (this == &source) {
        return true;
    }
    direction_ = source.direction_;
    grow_unit_ = source.grow_unit_;
    delimiter_mode_ = source.delimiter_mode_;
    const bool texts =
        path_.CreateFromString(source.path_) && error_information_.CreateFromString(source.error_information_);
    const bool copied = GetBuffer(source.capacity_);
    if (copied && source.buffer_ != nullptr && source.capacity_ > 0) {
        std::memcpy(buffer_, source.buffer_, static_cast<std::size_t>(source.capacity_));
    }
    const bool nothing_to_copy = source.capacity_ < 1 && source.grow_unit_ < 1;
    capacity_ = copied ? source.capacity_ : 0;
    position_ = copied || nothing_to_copy ? source.position_ : -1;
    line_ = source.line_;
    column_ = source.column_;
    return texts && (copied || nothing_to_copy);
}

bool CStreamMemFile::OpenFile(const char* path) {
    if (path == nullptr || *path == '\0' || !path_.CreateFromString(path)) {
        return false;
    }
    orvil::platform::FileStatus status;
    const bool exists = orvil::platform::file_status(path_, status);
    if (direction_ == eTransRead) {
        return exists && StreamAccess::load(*this, status.mode, static_cast<int>(status.size));
    }
    if (exists && (status.mode & kReadableAndWritable) != kReadableAndWritable) {
        return false;
    }
    if (!GetBuffer(grow_unit_)) {
        return false;
    }
    position_ = 0;
    return true;
}

bool StreamAccess::load(CStreamMemFile& stream, unsigned mode, int size) {
    if ((mode & kFileTypeMask) == kFolder || !stream.GetBuffer(size)) {
        return false;
    }
    stream.capacity_ = size;
    stream.position_ = std::min(stream.position_, size);
    if (!load_file(stream.path_, stream.buffer_, size)) {
        return false;
    }
    stream.line_ = 0;
    stream.position_ = 0;
    return true;
}

bool CStreamMemFile::WriteFile(bool append) {
    if (direction_ != eTransWrite || !StreamAccess::usable(*this)) {
        return false;
    }
    const bool written = save_file(path_, append, buffer_, position_);
    position_ = -1;
    return written;
}

bool CStreamMemFile::CloseFile() {
    std::free(buffer_);
    buffer_ = nullptr;
    path_.Empty();
    capacity_ = 0;
    grow_unit_ = -1;
    position_ = -1;
    line_ = -1;
    column_ = -1;
    return true;
}

bool CStreamMemFile::Rewind() {
    position_ = 0;
    line_ = 0;
    return true;
}

bool CStreamMemFile::IsEof() const {
    return StreamAccess::at_end(*this);
}

int CStreamMemFile::QueryCurrentLine() const {
    return line_;
}

int CStreamMemFile::QueryCurrentColm() const {
    return column_;
}

bool CStreamMemFile::SetDelimiterMode(EDelimiterMode mode) {
    delimiter_mode_ = mode;
    return true;
}

const char* CStreamMemFile::GetErrorInformation() const {
    return error_information_;
}

const CExtString& CStreamMemFile::GetFilePath() const {
    return path_;
}

bool CStreamMemFile::GetBuffer(int size) {
    std::free(buffer_);
    buffer_ = nullptr;
    capacity_ = 0;
    const int wanted = size < 1 ? grow_unit_ : size;
    if (wanted < 1) {
        return false;
    }
    buffer_ = static_cast<char*>(std::calloc(block_size(wanted), 1));
    if (buffer_ == nullptr) {
        return false;
    }
    capacity_ = wanted;
    position_ = std::min(position_, capacity_);
    return true;
}

bool CStreamMemFile::ReallocBuffer() {
    if (grow_unit_ < 1 || capacity_ > INT_MAX - grow_unit_) {
        return false;
    }
    const int grown = capacity_ + grow_unit_;
    if (buffer_ == nullptr || capacity_ < 1 || block_size(grown) != block_size(capacity_)) {
        void* block = std::realloc(buffer_, block_size(grown));
        if (block == nullptr) {
            return false;
        }
        buffer_ = static_cast<char*>(block);
    }
    std::memset(buffer_ + capacity_, 0, static_cast<std::size_t>(grow_unit_));
    capacity_ = grown;
    return true;
}
