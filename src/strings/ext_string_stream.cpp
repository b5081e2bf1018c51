#include <cctype>
#include <cstdio>

#include "orvil/strings/ext_string.h"
#include "strings/string_access.h"

namespace {

constexpr char kCarriageReturn = '\r';
constexpr char kLineFeed = '\n';

// A line without an end is kept only when it filled a chunk at least once.
constexpr int kChunkBytes = 32;

bool is_line_end(int c) {
    return c == kCarriageReturn || c == kLineFeed;
}

// Appends a chunk, of which a zero byte cuts off the rest.
bool append_chunk(CExtString& line, const char* chunk, int filled) {
    return filled == 0 || line.ConcatStringLen(chunk, filled);
}

// Reads up to the next line end, which stays in the stream, or to the end of the file. False when a last line is lost
// or memory runs out.
bool read_line_text(CExtString& line, FILE* fp) {
    char chunk[kChunkBytes];
    int filled = 0;
    for (;;) {
        const int c = std::fgetc(fp);
        if (c == EOF) {
            return !line.IsEmpty() && append_chunk(line, chunk, filled);
        }
        if (is_line_end(c)) {
            std::ungetc(c, fp);
            return append_chunk(line, chunk, filled);
        }
        chunk[filled++] = static_cast<char>(c);
        if (filled == kChunkBytes) {
            if (!append_chunk(line, chunk, filled)) {
                return false;
            }
            filled = 0;
        }
    }
}

// Skips a run of CR and one LF behind it, or one LF. True when there was any of these.
bool skip_line_end(FILE* fp) {
    if (std::feof(fp) != 0) {
        return false;
    }
    bool any = false;
    for (;;) {
        const int c = std::fgetc(fp);
        if (!is_line_end(c)) {
            std::ungetc(c, fp);
            return any;
        }
        any = true;
        if (c == kLineFeed) {
            return true;
        }
    }
}

// White space other than a line end, which joins a physical line to the one before.
bool is_continuation_mark(int c) {
    return !is_line_end(c) && std::isspace(c) != 0;
}

// Skips the white space at the start of a continuation. False when the next line is none, or there is no next line.
bool skip_continuation_mark(FILE* fp) {
    bool any = false;
    for (;;) {
        const int c = std::fgetc(fp);
        if (!is_continuation_mark(c)) {
            std::ungetc(c, fp);
            return any;
        }
        any = true;
    }
}

}  // namespace

bool CExtString::CreateFromStream(FILE* fp, bool bStrip, bool bCRLF) {
    Empty();
    if (fp == nullptr) {
        return false;
    }
    if (std::feof(fp) != 0) {
        return true;
    }
    if (!read_line_text(*this, fp)) {
        return false;
    }
    const bool ended = skip_line_end(fp);
    return bStrip || !ended || ConcatString(bCRLF ? "\r\n" : "\n");
}

bool CExtString::ReadRfcHeaderLine(FILE* fp, bool bKeepEnd) {
    if (!CreateFromStream(fp, false, true) || IsEmpty()) {
        return false;
    }
    const bool is_blank_line = is_line_end(GetAt(0));
    while (!is_blank_line && skip_continuation_mark(fp)) {
        Chomp(true);
        CExtString line;
        if (!line.CreateFromStream(fp, false, true)) {
            return line.IsEmpty() && std::feof(fp) != 0;
        }
        if (line.IsEmpty()) {
            return true;
        }
        if (!ConcatCharacters(' ', 1) || !ConcatObject(line)) {
            return false;
        }
    }
    if (!bKeepEnd) {
        Chomp(true);
    }
    return true;
}
