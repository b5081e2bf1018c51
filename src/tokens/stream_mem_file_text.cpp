// The characters and lines of a stream.
#include <algorithm>
#include <cstring>

#include "orvil/tokens/stream_mem_file.h"
#include "strings/string_access.h"
#include "tokens/lead_bytes.h"
#include "tokens/stream_access.h"

using orvil::detail::bounded_length;
using orvil::detail::is_lead_byte;
using orvil::detail::StreamAccess;
using orvil::detail::StringAccess;

namespace {

// Lines are taken in chunks of this size, each up to its first NUL.
constexpr std::ptrdiff_t kChunk = 1024;

// The first CR or LF, or `end`. Both are searched for in small windows: where one of them is rare, a search for it to
// the end of the text, made for each line, would be quadratic.
const char* find_line_end(const char* from, const char* end) {
    while (from != end) {
        const auto window = static_cast<std::size_t>(std::min(end - from, kChunk));
        const void* lf = std::memchr(from, '\n', window);
        const std::size_t before_lf =
            lf == nullptr ? window : static_cast<std::size_t>(static_cast<const char*>(lf) - from);
        const void* cr = std::memchr(from, '\r', before_lf);
        const void* found = cr != nullptr ? cr : lf;
        if (found != nullptr) {
            return static_cast<const char*>(found);
        }
        from += window;
    }
    return end;
}

// Behind the line end at `at`: CR, LF or CR LF.
const char* skip_line_end(const char* at, const char* end) {
    const bool cr = *at == '\r';
    ++at;
    return cr && at != end && *at == '\n' ? at + 1 : at;
}

// Calls visit(chunk, length) for the chunks of a text, with the length up to the first NUL.
template <typename Visit>
void for_each_chunk(const char* from, const char* end, Visit visit) {
    for (; from != end; from += std::min(end - from, kChunk)) {
        visit(from, bounded_length(from, static_cast<int>(std::min(end - from, kChunk))));
    }
}

bool store_chunks(CExtString& line, const char* from, const char* end) {
    const auto size = static_cast<std::size_t>(end - from);
    if (std::memchr(from, '\0', size) == nullptr) {
        return StringAccess::assign(line, from, static_cast<int>(size));
    }
    int total = 0;
    for_each_chunk(from, end, [&total](const char*, int length) { total += length; });
    if (total == 0) {
        return true;
    }
    if (!line.CreateFromCharacters(' ', total)) {
        return false;
    }
    char* out = StringAccess::bytes(line);
    for_each_chunk(from, end, [&out](const char* chunk, int length) {
        std::memcpy(out, chunk, static_cast<std::size_t>(length));
        out += length;
    });
    return true;
}

}  // namespace

bool StreamAccess::refuse_at_end(CStreamMemFile& stream) {
    stream.error_information_.Format("%s(%d) : EOF", stream.path_.GetString(), stream.line_);
    return false;
}

void StreamAccess::consume(CStreamMemFile& stream) {
    TextPosition counters = position(stream);
    counters.count_byte(*current(stream));
    move_to(stream, current(stream) + 1, counters);
}

bool CStreamMemFile::GetCurrentData(char& first, char& second) {
    first = second = '\0';
    if (!StreamAccess::usable(*this)) {
        return false;
    }
    if (position_ >= capacity_) {
        return StreamAccess::refuse_at_end(*this);
    }
    first = buffer_[position_];
    if (!is_lead_byte(first)) {
        StreamAccess::consume(*this);
        return true;
    }
    if (capacity_ - position_ < 2) {
        return StreamAccess::refuse_at_end(*this);
    }
    second = buffer_[position_ + 1];
    StreamAccess::consume(*this);
    StreamAccess::consume(*this);
    return position_ < capacity_ || StreamAccess::refuse_at_end(*this);
}

bool CStreamMemFile::QueryCurrentData(char& first, char& second) const {
    return QueryNextData(first, second, 0);
}

bool CStreamMemFile::QueryNextData(char& first, char& second, int offset) const {
    first = second = '\0';
    const long long index = static_cast<long long>(position_) + offset;
    if (!StreamAccess::usable(*this) || index < 0 || index >= capacity_) {
        return false;
    }
    first = buffer_[index];
    if (index + 1 < capacity_ && is_lead_byte(first)) {
        second = buffer_[index + 1];
    }
    return true;
}

bool CStreamMemFile::ReadString(CExtString& line) {
    if (direction_ != eTransRead) {
        return false;
    }
    line.Empty();
    if (!StreamAccess::usable(*this)) {
        return false;
    }
    const char* const start = StreamAccess::current(*this);
    const char* const end = StreamAccess::end(*this);
    const char* const stop = find_line_end(start, end);
    if (stop == end) {
        position_ = capacity_;
        store_chunks(line, start, stop - (stop - start) % kChunk);
        return false;
    }
    StreamAccess::next_line(*this, skip_line_end(stop, end));
    return store_chunks(line, start, stop);
}

bool CStreamMemFile::ReadString(char* buffer, size_t size) {
    if (direction_ != eTransRead || buffer == nullptr || size == 0 || !StreamAccess::usable(*this)) {
        return false;
    }
    const char* const start = StreamAccess::current(*this);
    const char* const end = StreamAccess::end(*this);
    const std::size_t room = size - 1;
    // A line end is seen even where there is no room for a byte.
    const std::size_t looked_at = std::min(std::max<std::size_t>(room, 1), static_cast<std::size_t>(end - start));
    const char* const stop = find_line_end(start, start + looked_at);
    const std::size_t stored = std::min(room, static_cast<std::size_t>(stop - start));
    std::memcpy(buffer, start, stored);
    buffer[stored] = '\0';
    if (stop != start + looked_at) {
        StreamAccess::next_line(*this, skip_line_end(stop, end));
        return true;
    }
    if (stored < room || start == end) {
        position_ = capacity_;
        return false;
    }
    buffer[size] = '\0';
    StreamAccess::next_line(*this, stored > 0 ? start + stored - 1 : start);
    return true;
}

bool StreamAccess::write(CStreamMemFile& stream, const char* bytes, std::size_t size) {
    while (size > 0) {
        const auto room = static_cast<std::size_t>(stream.capacity_ - stream.position_);
        const std::size_t part = std::min(size, room);
        std::memcpy(stream.buffer_ + stream.position_, bytes, part);
        stream.position_ += static_cast<int>(part);
        bytes += part;
        size -= part;
        if (part == 0 || (part == room && !stream.ReallocBuffer())) {
            return false;
        }
    }
    return true;
}

bool StreamAccess::write_line_end(CStreamMemFile& stream) {
    switch (stream.delimiter_mode_) {
        case eDelimiterCr:
            return write(stream, "\r", 1);
        case eDelimiterLf:
            return write(stream, "\n", 1);
        default:
            return write(stream, "\r\n", 2);
    }
}

bool CStreamMemFile::WriteString(const char* text, bool addLineEnd) {
    if (direction_ != eTransWrite || !StreamAccess::usable(*this) || text == nullptr) {
        return false;
    }
    const char* const end = text + std::strlen(text);
    while (text != end) {
        const char* const stop = find_line_end(text, end);
        if (!StreamAccess::write(*this, text, static_cast<std::size_t>(stop - text))) {
            return false;
        }
        if (stop == end) {
            break;
        }
        if (*stop == '\n' && !StreamAccess::write_line_end(*this)) {
            return false;
        }
        text = stop + 1;
    }
    return !addLineEnd || StreamAccess::write_line_end(*this);
}

char CStreamMemFile::QueryQue() const {
    return StreamAccess::usable(*this) && position_ < capacity_ ? buffer_[position_] : '\0';
}

bool CStreamMemFile::IncrementQue(bool count) {
    if (!StreamAccess::usable(*this) || position_ >= capacity_) {
        return false;
    }
    if (count) {
        StreamAccess::consume(*this);
    } else {
        ++position_;
    }
    return position_ < capacity_;
}

bool CStreamMemFile::AddQue(char c) {
    if (!StreamAccess::usable(*this) || position_ >= capacity_) {
        return false;
    }
    return StreamAccess::write(*this, &c, 1);
}
