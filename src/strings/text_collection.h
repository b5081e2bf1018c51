// What the array and the list of strings do alike with a whole collection of texts.
#pragma once

#include <cstdio>

#include "orvil/strings/ext_string.h"

namespace orvil::detail {

inline bool is_empty_text(const char* text) {
    return text == nullptr || *text == '\0';
}

// Replaces a text in its place. When there is no memory it becomes empty.
inline void store_text(CExtString& place, const char* text) {
    if (!place.CreateFromString(text)) {
        place.Empty();
    }
}

// Appends a text to a joined result. The separator stands before every text but those with nothing before them.
inline void join_text(CExtString& joined, const char* separator, const char* text) {
    if (!is_empty_text(separator) && !joined.IsEmpty()) {
        joined.ConcatString(separator);
    }
    joined.ConcatString(text);
}

// A text file of joined texts. Each text is a line or, when there is a separator, is followed by it.
class JoinedFile {
public:
    JoinedFile(const char* path, const char* separator)
        : file_(path == nullptr ? nullptr : std::fopen(path, "wt")),
          ending_(is_empty_text(separator) ? "\n" : separator) {}
    ~JoinedFile() {
        if (file_ != nullptr) {
            std::fclose(file_);
        }
    }
    JoinedFile(const JoinedFile&) = delete;
    JoinedFile& operator=(const JoinedFile&) = delete;

    bool is_open() const { return file_ != nullptr; }
    void write(const char* text) {
        std::fputs(text, file_);
        std::fputs(ending_, file_);
    }

private:
    FILE* file_;
    const char* ending_;
};

// Hands each line of a stream to `append(line)` until that or reading fails or the file ends; the number of lines
// handed over.
template <typename Append>
int append_lines(FILE* fp, bool strip, bool cr_lf, Append append) {
    int lines = 0;
    while (fp != nullptr && std::feof(fp) == 0) {
        CExtString line;
        if (!line.CreateFromStream(fp, strip, cr_lf) || !append(line.GetString())) {
            break;
        }
        ++lines;
    }
    return lines;
}

}  // namespace orvil::detail
