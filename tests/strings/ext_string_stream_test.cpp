// Lines and header lines of C streams.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "orvil/strings/ext_string.h"
#include "strings/ext_string_probe.h"
#include "support/temp_dir.h"

using orvil::test::capacity_of;
using orvil::test::counted;
using orvil::test::has_buffer;

namespace {

// A stream of the given bytes, read in binary mode.
class InputFile {
public:
    explicit InputFile(const std::string& bytes) : file_(std::fopen(folder_.write("input", bytes).c_str(), "rb")) {}
    ~InputFile() { std::fclose(file_); }
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    operator FILE*() const { return file_; }

    // What has not been read yet.
    std::string rest() const {
        std::string bytes;
        for (int c = std::fgetc(file_); c != EOF; c = std::fgetc(file_)) {
            bytes += static_cast<char>(c);
        }
        return bytes;
    }

private:
    orvil::test::TempDir folder_;
    FILE* file_;
};

std::string letters(int n) {
    return std::string(static_cast<std::size_t>(n), 'x');
}

// The line, whether it was read, and what follows: "true 3:abc|rest".
std::string read_line(const std::string& bytes, bool strip, bool crlf) {
    const InputFile file(bytes);
    CExtString s("old");
    const bool read = s.CreateFromStream(file, strip, crlf);
    return (read ? "true " : "false ") + counted(s) + "|" + file.rest();
}

}  // namespace

// --- lines ----------------------------------------------------------------------------------------------------------

TEST(ExtStringStream, EachLineEndIsTakenWhole) {
    EXPECT_EQ(read_line("abc\nnext", true, false), "true 3:abc|next");
    EXPECT_EQ(read_line("abc\r\nnext", true, false), "true 3:abc|next");
    EXPECT_EQ(read_line("abc\rnext", true, false), "true 3:abc|next");
    EXPECT_EQ(read_line("abc\r\r\r\nnext", true, false), "true 3:abc|next");
    EXPECT_EQ(read_line("abc\r\r\rnext", true, false), "true 3:abc|next");
}

TEST(ExtStringStream, ALineFeedEndsTheLineEndAtOnce) {
    EXPECT_EQ(read_line("abc\n\nnext", true, false), "true 3:abc|\nnext");
    EXPECT_EQ(read_line("abc\n\rnext", true, false), "true 3:abc|\rnext");
    EXPECT_EQ(read_line("abc\r\n\r\nnext", true, false), "true 3:abc|\r\nnext");
}

TEST(ExtStringStream, TheKeptEndHasTheAskedForm) {
    EXPECT_EQ(read_line("abc\r\n", false, false), "true 4:abc\n|");
    EXPECT_EQ(read_line("abc\r\n", false, true), "true 5:abc\r\n|");
    EXPECT_EQ(read_line("abc\n", false, true), "true 5:abc\r\n|");
    EXPECT_EQ(read_line("abc\rx", false, true), "true 5:abc\r\n|x");
    EXPECT_EQ(read_line("abc\r\r\n", false, false), "true 4:abc\n|");
}

TEST(ExtStringStream, AnEmptyLineIsEmptyPlusItsEnd) {
    EXPECT_EQ(read_line("\nnext", true, false), "true 0:|next");
    EXPECT_EQ(read_line("\nnext", false, false), "true 1:\n|next");
    EXPECT_EQ(read_line("\r\nnext", false, true), "true 2:\r\n|next");
}

TEST(ExtStringStream, AShortLastLineWithoutEndIsLost) {
    EXPECT_EQ(read_line("abc", true, false), "false 0:|");
    EXPECT_EQ(read_line("abc", false, true), "false 0:|");
    EXPECT_EQ(read_line(letters(31), true, false), "false 0:|");
}

TEST(ExtStringStream, ALastLineOfThirtyTwoBytesOrMoreIsKept) {
    EXPECT_EQ(read_line(letters(32), true, false), "true 32:" + letters(32) + "|");
    EXPECT_EQ(read_line(letters(33), true, false), "true 33:" + letters(33) + "|");
    EXPECT_EQ(read_line(letters(95), false, true), "true 95:" + letters(95) + "|");
}

TEST(ExtStringStream, AnEmptyFileGivesFalseOnceAndTrueAtItsEnd) {
    const InputFile file("");
    CExtString s("old");
    EXPECT_FALSE(s.CreateFromStream(file, true, false));
    ASSERT_NE(std::feof(file), 0);
    s = "old";
    EXPECT_TRUE(s.CreateFromStream(file, true, false));
    EXPECT_FALSE(has_buffer(s));
    EXPECT_TRUE(s.CreateFromStream(file, false, true));
    EXPECT_FALSE(has_buffer(s));
}

TEST(ExtStringStream, AfterTheLastEndedLineOneMoreReadFails) {
    const InputFile file("abc\n");
    CExtString s;
    EXPECT_TRUE(s.CreateFromStream(file, true, false));
    EXPECT_FALSE(s.CreateFromStream(file, true, false));
    EXPECT_NE(std::feof(file), 0);
}

TEST(ExtStringStream, AKeptLastLineLeavesTheStreamAtItsEnd) {
    const InputFile file(letters(40));
    CExtString s;
    EXPECT_TRUE(s.CreateFromStream(file, false, true));
    EXPECT_NE(std::feof(file), 0);
}

TEST(ExtStringStream, LinesOfEveryLengthAroundTheChunkComeOutWhole) {
    for (int n = 0; n <= 130; ++n) {
        EXPECT_EQ(read_line(letters(n) + "\nrest", true, false),
                  "true " + std::to_string(n) + ":" + letters(n) + "|rest");
    }
}

TEST(ExtStringStream, CapacityFollowsTheLengthOfTheLine) {
    for (int n : {1, 7, 8, 31, 32, 33, 64, 100}) {
        const InputFile file(letters(n) + "\n");
        CExtString s;
        s.CreateFromStream(file, true, false);
        EXPECT_EQ(capacity_of(s), n / 8 * 8 + 8) << n;
    }
}

TEST(ExtStringStream, AZeroByteCutsOffTheRestOfItsChunk) {
    std::string bytes = letters(64);
    bytes[3] = '\0';
    EXPECT_EQ(read_line(bytes + "\n", true, false), "true 35:xxx" + letters(32) + "|");
}

TEST(ExtStringStream, BytesAboveAsciiAreText) {
    EXPECT_EQ(read_line("\xFF\x80\x1A\n", true, false), "true 3:\xFF\x80\x1A|");
}

TEST(ExtStringStream, ANullStreamFails) {
    CExtString s("old");
    EXPECT_FALSE(s.CreateFromStream(nullptr, true, false));
    EXPECT_FALSE(has_buffer(s));
    EXPECT_FALSE(s.ReadRfcHeaderLine(nullptr, true));
}

TEST(ExtStringStream, TheConstructorReadsALine) {
    const InputFile file("first\r\nsecond\r\n");
    EXPECT_EQ(counted(CExtString(file, true, false)), "5:first");
    EXPECT_EQ(counted(CExtString(file, false, true)), "8:second\r\n");
    EXPECT_EQ(counted(CExtString(file, true, false)), "0:");
}

// --- header lines ---------------------------------------------------------------------------------------------------

namespace {

std::string read_header(const std::string& bytes, bool keep_end) {
    const InputFile file(bytes);
    CExtString s("old");
    const bool read = s.ReadRfcHeaderLine(file, keep_end);
    return (read ? "true " : "false ") + counted(s) + "|" + file.rest();
}

}  // namespace

TEST(ExtStringHeaderLine, ALineWithoutContinuationComesAlone) {
    EXPECT_EQ(read_header("A: b\r\nC: d\r\n", false), "true 4:A: b|C: d\r\n");
    EXPECT_EQ(read_header("A: b\nC: d\n", true), "true 6:A: b\r\n|C: d\n");
}

TEST(ExtStringHeaderLine, ContinuationsAreJoinedByOneBlank) {
    EXPECT_EQ(read_header("A: b\r\n  c\r\nD", false), "true 6:A: b c|D");
    EXPECT_EQ(read_header("A: b\r\n\tc\r\n \t d\r\nD", false), "true 8:A: b c d|D");
    EXPECT_EQ(read_header("A: b\n c\nD", true), "true 8:A: b c\r\n|D");
    EXPECT_EQ(read_header("A: b\n\v\f c\nD", false), "true 6:A: b c|D");
}

TEST(ExtStringHeaderLine, TheLineEndOfALineOfCarriageReturnsGoesWhole) {
    EXPECT_EQ(read_header("A\r\r\n b\r\nD", false), "true 3:A b|D");
}

TEST(ExtStringHeaderLine, TheBlankLineIsEmptyOrItsEnd) {
    EXPECT_EQ(read_header("\r\nbody", false), "true 0:|body");
    EXPECT_EQ(read_header("\nbody", true), "true 2:\r\n|body");
    EXPECT_EQ(read_header("\r\n body", false), "true 0:| body");
}

TEST(ExtStringHeaderLine, ABlankLineBehindEndsTheHeader) {
    EXPECT_EQ(read_header("A: b\r\n\r\nbody", false), "true 4:A: b|\r\nbody");
    EXPECT_EQ(read_header("A: b\n\rbody", false), "true 4:A: b|\rbody");
}

TEST(ExtStringHeaderLine, AContinuationOfWhiteSpaceOnlyDoesNotSwallowTheNextLine) {
    EXPECT_EQ(read_header("A: b\r\n  \r\nC: d", false), "true 5:A: b |C: d");
    EXPECT_EQ(read_header("A: b\r\n  \r\n c\r\nC: d", false), "true 7:A: b  c|C: d");
}

TEST(ExtStringHeaderLine, AFirstLineMayBeginWithWhiteSpace) {
    EXPECT_EQ(read_header("  A\r\nB", false), "true 3:  A|B");
}

TEST(ExtStringHeaderLine, NoFirstLineGivesFalse) {
    EXPECT_EQ(read_header("", false), "false 0:|");
    EXPECT_EQ(read_header("short", false), "false 0:|");
}

TEST(ExtStringHeaderLine, AtTheEndOfTheFileItGivesFalse) {
    const InputFile file("A\r\n");
    CExtString s;
    EXPECT_TRUE(s.ReadRfcHeaderLine(file, false));
    ASSERT_NE(std::feof(file), 0);
    EXPECT_FALSE(s.ReadRfcHeaderLine(file, false));
    EXPECT_TRUE(s.IsEmpty());
}

TEST(ExtStringHeaderLine, ALongLastLineWithoutEndIsKept) {
    EXPECT_EQ(read_header(letters(40), true), "true 40:" + letters(40) + "|");
    EXPECT_EQ(read_header("A\r\n " + letters(40), true), "true 42:A " + letters(40) + "|");
}

TEST(ExtStringHeaderLine, TheEndOfTheFileInsideAContinuationKeepsWhatWasRead) {
    EXPECT_EQ(read_header("A: b\r\n lost", false), "true 4:A: b|");
    EXPECT_EQ(read_header("A: b\r\n lost", true), "true 4:A: b|");
    EXPECT_EQ(read_header("A: b\r\n   ", false), "true 4:A: b|");
}

TEST(ExtStringHeaderLine, AWholeHeaderIsReadLineByLine) {
    const InputFile file("A: 1\r\nB: 2\r\n 3\r\n\r\nbody\r\n");
    std::vector<std::string> lines;
    CExtString s;
    while (s.ReadRfcHeaderLine(file, false) && !s.IsEmpty()) {
        lines.emplace_back(s);
    }
    EXPECT_EQ(lines, (std::vector<std::string>{"A: 1", "B: 2 3"}));
    EXPECT_EQ(file.rest(), "body\r\n");
}
