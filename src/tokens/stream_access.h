// What the library's own readers and writers of streams may do beyond the public members.
#pragma once

#include <algorithm>
#include <cstring>

#include "orvil/tokens/stream_mem_file.h"

namespace orvil::detail {

// A place in a text as a stream counts it: LF adds a line, CR resets the column.
struct TextPosition {
    int line = -1;
    int column = -1;

    // Counts bytes among which there is no CR and no LF. Counters wrap; a stream that is rewound often enough gets
    // there.
    void count_plain(std::size_t bytes) {
        column = static_cast<int>(static_cast<unsigned>(column) + static_cast<unsigned>(bytes));
    }

    void count_byte(char byte) {
        count_plain(1);
        if (byte == '\r') {
            column = 0;
        } else if (byte == '\n') {
            count_lines(1);
        }
    }

    void count(const char* from, const char* to) {
        constexpr std::ptrdiff_t kShort = 48;
        if (to - from <= kShort) {
            for (; from != to; ++from) {
                count_byte(*from);
            }
            return;
        }
        const char* start = from;
        for (const char* cr = find_last_cr(from, to); cr != nullptr; cr = nullptr) {
            column = 0;
            start = cr + 1;
        }
        count_plain(static_cast<std::size_t>(to - start));
        count_lines(std::count(from, to, '\n'));
    }

private:
    void count_lines(std::ptrdiff_t lines) {
        line = static_cast<int>(static_cast<unsigned>(line) + static_cast<unsigned>(lines));
    }

    static const char* find_last_cr(const char* from, const char* to) {
        if (std::memchr(from, '\r', static_cast<std::size_t>(to - from)) == nullptr) {
            return nullptr;
        }
        do {
            --to;
        } while (*to != '\r');
        return to;
    }
};

struct StreamAccess {
    // Whether there are bytes to work on. Without a buffer, and at position -1, every operation is refused.
    static bool usable(const CStreamMemFile& stream) { return stream.buffer_ != nullptr && stream.position_ >= 0; }

    static bool reads(const CStreamMemFile& stream) { return stream.direction_ == eTransRead; }
    static bool at_end(const CStreamMemFile& stream) { return reads(stream) && stream.position_ >= stream.capacity_; }

    static const char* begin(const CStreamMemFile& stream) { return stream.buffer_; }
    static const char* end(const CStreamMemFile& stream) { return stream.buffer_ + stream.capacity_; }
    static const char* current(const CStreamMemFile& stream) { return stream.buffer_ + stream.position_; }

    static TextPosition position(const CStreamMemFile& stream) { return {stream.line_, stream.column_}; }

    static void move_to(CStreamMemFile& stream, const char* at, const TextPosition& position) {
        stream.position_ = static_cast<int>(at - stream.buffer_);
        stream.line_ = position.line;
        stream.column_ = position.column;
    }

    static CExtString& error_text(CStreamMemFile& stream) { return stream.error_information_; }

    // Takes in a file whose status is known already.
    static bool load(CStreamMemFile& stream, unsigned mode, int size);

    // What a stream says when it has no further character. Always false.
    static bool refuse_at_end(CStreamMemFile& stream);

    // Steps over one counted byte. The position stays at most at the end.
    static void consume(CStreamMemFile& stream);

    // Goes on at the start of a line; the column stays.
    static void next_line(CStreamMemFile& stream, const char* at) {
        const TextPosition before = position(stream);
        TextPosition after = before;
        after.count_byte('\n');
        move_to(stream, at, {after.line, before.column});
    }

    static constexpr bool has_promised_layout();

    // Appends bytes as they are; the buffer grows each time it is full.
    static bool write(CStreamMemFile& stream, const char* bytes, std::size_t size);
    static bool write_line_end(CStreamMemFile& stream);
};

}  // namespace orvil::detail
