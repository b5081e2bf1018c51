// The root of a file to be written: a line that names the file, and a banner in a box of asterisks.
#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstring>
#include <utility>

#include "orvil/files/file_path.h"
#include "orvil/strings/ext_str_array.h"
#include "orvil/tokens/block_tokens.h"
#include "strings/string_access.h"
#include "tokens/block_access.h"
#include "tokens/output_text.h"

using orvil::detail::BlockAccess;
using orvil::detail::NodePtr;
using orvil::detail::OutputText;

namespace {

// Line and column by which the writer knows a header marker.
constexpr int kHeaderMarker = -999;

// What the box adds to the width of its longest line, and its line end.
constexpr std::int64_t kFrameWidth = 8;

class PathParts : private CFilePath {
public:
    // The file name of a path, which need not exist. False when it has no absolute form.
    static bool file_name(const char* path, CExtString& name) {
        CExtString full;
        CExtString drive;
        CExtString directory;
        return MakeAbsoluteFullPath(path, full) && AnalyzePathParts(full, drive, directory, name);
    }
};

int line_length(const CExtStrArray& lines, int i) {
    const char* line = lines.GetAt(i);
    return line == nullptr ? 0 : static_cast<int>(std::strlen(line));
}

// False when the lines do not make up the comment: then there was no memory for one of them. A pattern "/" in the cache
// of the program stands for this one, too, and leaves the comment in one piece.
bool split_lines(const char* comment, CExtStrArray& lines, int& longest) {
    const CExtString text(comment);
    const std::int64_t whole = comment == nullptr ? 0 : static_cast<std::int64_t>(std::strlen(comment));
    lines = text.RegexSplit("/\\n/");
    std::int64_t length = 0;
    for (int i = 0; i < lines.GetSize(); ++i) {
        length += line_length(lines, i);
        longest = std::max(longest, line_length(lines, i));
    }
    if (length == whole) {
        return true;
    }
    const bool ends_with_line = comment[whole - 1] == '\n';
    return length + lines.GetSize() == whole + (ends_with_line ? 0 : 1);
}

bool make_box(const char* comment, OutputText& box) {
    CExtStrArray lines;
    int longest = 0;
    if (!split_lines(comment, lines, longest) ||
        (longest + kFrameWidth + 1) * (std::int64_t{lines.GetSize()} + 2) > INT_MAX) {
        return false;
    }
    const auto append_edge = [&box, longest] {
        box.append("/***");
        box.append(static_cast<std::size_t>(longest), '*');
        box.append("***/\n");
    };
    append_edge();
    for (int i = 0; i < lines.GetSize(); ++i) {
        const int length = line_length(lines, i);
        box.append("/*  ");
        box.append(lines.GetAt(i), static_cast<std::size_t>(length));
        box.append(static_cast<std::size_t>(longest - length), ' ');
        box.append("  */\n");
    }
    append_edge();
    box.append(1, '\0');
    return box.good();
}

}  // namespace

// The block is changed last: path and comment may be its own texts.
bool bt_make_master_block(CLexTokenBlock& block, const char* filePath, const char* comment) {
    CExtString name;
    OutputText box;
    if (!PathParts::file_name(filePath, name) || !make_box(comment, box)) {
        return false;
    }
    NodePtr master = BlockAccess::make();
    if (master == nullptr || !master->Create(name, kHeaderMarker, kHeaderMarker, true, eTokenNone) ||
        BlockAccess::append(*master, BlockAccess::make(eTokenComment, box.data())) < 0) {
        return false;
    }
    BlockAccess::set_form(*master, eGrammerBlock);
    BlockAccess::clear(block);
    BlockAccess::take_content(block, *master);
    return true;
}
