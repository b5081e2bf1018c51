// Lines read and texts written.
#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <string>
#include <vector>

#include "orvil/tokens/stream_mem_file.h"
#include "support/temp_dir.h"
#include "tokens/memory_stream.h"

using orvil::test::MemoryStream;
using orvil::test::read_file;
using orvil::test::TempDir;

namespace {

// The lines that a stream yields until the first false; that one follows as "|text".
std::vector<std::string> lines_of(const std::string& bytes) {
    MemoryStream stream(bytes);
    std::vector<std::string> lines;
    CExtString line("old");
    while (stream.ReadString(line)) {
        lines.push_back(line.GetString());
    }
    lines.push_back("|" + std::string(line.GetString()));
    EXPECT_EQ(stream.QueryCurrentLine(), static_cast<int>(lines.size()) - 1);
    EXPECT_EQ(stream.QueryCurrentColm(), -1);
    EXPECT_TRUE(stream.IsEof());
    EXPECT_STREQ(stream.GetErrorInformation(), "");
    return lines;
}

using Lines = std::vector<std::string>;

// A call of the buffer form: its result and what it stored, up to the terminator.
struct Chunk {
    bool result;
    std::string text;
    bool operator==(const Chunk&) const = default;
};

// The buffer has exactly the bytes that the contract asks for.
Chunk read_chunk(CStreamMemFile& stream, std::size_t size) {
    std::vector<char> buffer(size + 1, '?');
    const bool result = stream.ReadString(buffer.data(), size);
    return {result, buffer.data()};
}

class WrittenText : public testing::Test {
protected:
    std::string written(const std::string& text, bool line_end, EDelimiterMode mode, int grow_unit = 4096) {
        CStreamMemFile stream(eTransWrite, grow_unit);
        const std::string path = folder.path("out");
        EXPECT_TRUE(stream.OpenFile(path.c_str()));
        EXPECT_TRUE(stream.SetDelimiterMode(mode));
        EXPECT_TRUE(stream.WriteString(text.c_str(), line_end));
        EXPECT_TRUE(stream.WriteFile(false));
        return read_file(path);
    }

    TempDir folder;
};

}  // namespace

// --- lines as strings -----------------------------------------------------------------------------------------------

TEST(StreamLines, EachKindOfLineEndEndsALine) {
    EXPECT_EQ(lines_of("a\nb\rc\r\nd\n"), (Lines{"a", "b", "c", "d", "|"}));
    EXPECT_EQ(lines_of("\n\r\r\n\n\r"), (Lines{"", "", "", "", "", "|"}));
}

TEST(StreamLines, UnterminatedLastLineIsLost) {
    EXPECT_EQ(lines_of("ab\ncd"), (Lines{"ab", "|"}));
}

TEST(StreamLines, UnterminatedLastLineKeepsItsWholeChunks) {
    const std::string chunk(1024, 'x');
    EXPECT_EQ(lines_of(chunk.substr(1)), (Lines{"|"}));
    EXPECT_EQ(lines_of(chunk), (Lines{"|" + chunk}));
    EXPECT_EQ(lines_of(chunk + "y"), (Lines{"|" + chunk}));
    EXPECT_EQ(lines_of(chunk + chunk + "y"), (Lines{"|" + chunk + chunk}));
}

TEST(StreamLines, LinesAroundTheChunkSizeAreWhole) {
    for (const int size : {1, 1023, 1024, 1025, 2047, 2048, 2049, 5000}) {
        const std::string text(static_cast<std::size_t>(size), 'x');
        EXPECT_EQ(lines_of(text + "\n" + text + "\r\n"), (Lines{text, text, "|"})) << size;
    }
}

TEST(StreamLines, LineEndsAroundTheChunkSizeBelongTogether) {
    for (const int size : {1022, 1023, 1024}) {
        const std::string text(static_cast<std::size_t>(size), 'x');
        EXPECT_EQ(lines_of(text + "\r\nb\r\n"), (Lines{text, "b", "|"})) << size;
    }
}

TEST(StreamLines, EachChunkCountsUpToItsFirstNul) {
    std::string first(1024, 'a');
    first[3] = '\0';
    std::string second(1024, 'b');
    second[1023] = '\0';
    const std::string third("cd\0e", 4);
    EXPECT_EQ(lines_of(first + second + third + "\n"), (Lines{"aaa" + std::string(1023, 'b') + "cd", "|"}));
    EXPECT_EQ(lines_of(first + second + third), (Lines{"|aaa" + std::string(1023, 'b')}));
    EXPECT_EQ(lines_of(std::string("\0x\n", 3)), (Lines{"", "|"}));
}

TEST(StreamLines, LengthIsThatOfTheStoredText) {
    MemoryStream stream(std::string("ab\0cd\n", 6));
    CExtString line;
    ASSERT_TRUE(stream.ReadString(line));
    EXPECT_EQ(line.GetLength(), 2);
}

TEST(StreamLines, StreamForWritingIsRefusedAndTheTargetStays) {
    MemoryStream stream("a\n", eTransWrite);
    CExtString line("old");
    EXPECT_FALSE(stream.ReadString(line));
    EXPECT_STREQ(line, "old");
}

TEST(StreamLines, LinesAndCharactersMix) {
    MemoryStream stream("ab\ncd\n");
    char first = '\0';
    char second = '\0';
    stream.GetCurrentData(first, second);
    CExtString line;
    ASSERT_TRUE(stream.ReadString(line));
    EXPECT_STREQ(line, "b");
    stream.GetCurrentData(first, second);
    EXPECT_EQ(first, 'c');
    EXPECT_EQ(stream.QueryCurrentLine(), 1);
    EXPECT_EQ(stream.QueryCurrentColm(), 1);
}

// Whichever of CR and LF is missing, the search for it must not go to the end of the text for each line.
TEST(StreamLines, FourMillionShortLinesAreReadAtOnce) {
    for (const char* end : {"\n", "\r", "\r\n"}) {
        std::string bytes;
        while (bytes.size() < 4000000) {
            bytes += end;
        }
        MemoryStream stream(bytes);
        CExtString line;
        const auto start = std::chrono::steady_clock::now();
        while (stream.ReadString(line)) {
        }
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10)) << testing::PrintToString(end);
        EXPECT_EQ(stream.QueryCurrentLine(), static_cast<int>(bytes.size() / std::strlen(end)));
    }
}

// --- lines in buffers -----------------------------------------------------------------------------------------------

TEST(StreamBufferLines, LinesThatFitAreRead) {
    MemoryStream stream("ab\r\n\rcd\n");
    EXPECT_EQ(read_chunk(stream, 10), (Chunk{true, "ab"}));
    EXPECT_EQ(read_chunk(stream, 10), (Chunk{true, ""}));
    EXPECT_EQ(read_chunk(stream, 10), (Chunk{true, "cd"}));
    EXPECT_EQ(stream.QueryCurrentLine(), 3);
    EXPECT_EQ(stream.QueryCurrentColm(), -1);
    EXPECT_EQ(read_chunk(stream, 10), (Chunk{false, ""}));
    EXPECT_EQ(stream.QueryCurrentLine(), 3);
}

TEST(StreamBufferLines, FilledBufferLeavesItsLastByteForTheNextCall) {
    MemoryStream stream("abcdef\n");
    EXPECT_EQ(read_chunk(stream, 4), (Chunk{true, "abc"}));
    EXPECT_EQ(read_chunk(stream, 4), (Chunk{true, "cde"}));
    EXPECT_EQ(read_chunk(stream, 4), (Chunk{true, "ef"}));
    EXPECT_EQ(stream.QueryCurrentLine(), 3);
    EXPECT_TRUE(stream.IsEof());
}

TEST(StreamBufferLines, FilledBufferGetsTwoZeros) {
    MemoryStream stream("abcdef");
    char buffer[6];
    std::memset(buffer, '?', sizeof buffer);
    ASSERT_TRUE(stream.ReadString(buffer, 4));
    EXPECT_EQ(std::string(buffer, 6), std::string("abc\0\0?", 6));
}

TEST(StreamBufferLines, LineThatEndsInTimeGetsOneZero) {
    MemoryStream stream("ab\n");
    char buffer[6];
    std::memset(buffer, '?', sizeof buffer);
    ASSERT_TRUE(stream.ReadString(buffer, 4));
    EXPECT_EQ(std::string(buffer, 6), std::string("ab\0???", 6));
}

TEST(StreamBufferLines, LineOfExactlyTheRoomFillsTheBuffer) {
    MemoryStream stream("abc\nx\n");
    EXPECT_EQ(read_chunk(stream, 4), (Chunk{true, "abc"}));
    EXPECT_EQ(read_chunk(stream, 4), (Chunk{true, "c"}));
    EXPECT_EQ(read_chunk(stream, 4), (Chunk{true, "x"}));
}

TEST(StreamBufferLines, UnterminatedLastLineIsStoredButFalse) {
    MemoryStream stream("ab");
    EXPECT_EQ(read_chunk(stream, 10), (Chunk{false, "ab"}));
    EXPECT_TRUE(stream.IsEof());
    EXPECT_EQ(stream.QueryCurrentLine(), 0);
    EXPECT_EQ(read_chunk(stream, 10), (Chunk{false, ""}));
}

TEST(StreamBufferLines, LastLineThatFillsTheBufferIsDeliveredOnceMore) {
    MemoryStream stream("abc");
    EXPECT_EQ(read_chunk(stream, 4), (Chunk{true, "abc"}));
    EXPECT_EQ(read_chunk(stream, 4), (Chunk{false, "c"}));
}

TEST(StreamBufferLines, SizeTwoNeverPassesAByte) {
    MemoryStream stream("ab\n");
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(read_chunk(stream, 2), (Chunk{true, "a"}));
    }
    EXPECT_EQ(stream.QueryCurrentLine(), 5);
}

TEST(StreamBufferLines, SizeOneStoresZerosAndCountsALine) {
    MemoryStream stream("a\n");
    char buffer[3] = {'?', '?', '?'};
    EXPECT_TRUE(stream.ReadString(buffer, 1));
    EXPECT_EQ(std::string(buffer, 3), std::string("\0\0?", 3));
    EXPECT_EQ(stream.QueryCurrentLine(), 1);
    EXPECT_EQ(stream.QueryQue(), 'a');
}

TEST(StreamBufferLines, SizeOnePassesALineEnd) {
    MemoryStream stream("\r\n\n");
    EXPECT_EQ(read_chunk(stream, 1), (Chunk{true, ""}));
    EXPECT_EQ(stream.QueryQue(), '\n');
    EXPECT_EQ(read_chunk(stream, 1), (Chunk{true, ""}));
    EXPECT_EQ(read_chunk(stream, 1), (Chunk{false, ""}));
}

TEST(StreamBufferLines, SizeZeroAndNullBufferAreRefused) {
    MemoryStream stream("a\n");
    char buffer[1] = {'?'};
    EXPECT_FALSE(stream.ReadString(buffer, 0));
    EXPECT_EQ(buffer[0], '?');
    EXPECT_FALSE(stream.ReadString(nullptr, 8));
    EXPECT_EQ(stream.QueryQue(), 'a');
}

TEST(StreamBufferLines, StreamForWritingIsRefused) {
    MemoryStream stream("a\n", eTransWrite);
    char buffer[9] = "old";
    EXPECT_FALSE(stream.ReadString(buffer, 8));
    EXPECT_STREQ(buffer, "old");
}

TEST(StreamBufferLines, LargestSizeReadsToTheLineEnd) {
    MemoryStream stream("ab\n");
    char buffer[8];
    EXPECT_TRUE(stream.ReadString(buffer, SIZE_MAX));
    EXPECT_STREQ(buffer, "ab");
}

// --- writing --------------------------------------------------------------------------------------------------------

TEST_F(WrittenText, LineFeedBecomesTheChosenLineEnd) {
    EXPECT_EQ(written("a\nb", false, eDelimiterCrLf), "a\r\nb");
    EXPECT_EQ(written("a\nb", false, eDelimiterCr), "a\rb");
    EXPECT_EQ(written("a\nb", false, eDelimiterLf), "a\nb");
    EXPECT_EQ(written("a\nb", false, static_cast<EDelimiterMode>(7)), "a\r\nb");
    EXPECT_EQ(written("a\nb", false, static_cast<EDelimiterMode>(-1)), "a\r\nb");
}

TEST_F(WrittenText, CarriageReturnIsDropped) {
    EXPECT_EQ(written("a\r\nb\rc\r", false, eDelimiterCrLf), "a\r\nbc");
    EXPECT_EQ(written("\r\r\n\n", false, eDelimiterLf), "\n\n");
}

TEST_F(WrittenText, OneMoreLineEndFollowsWhenAskedFor) {
    EXPECT_EQ(written("a", true, eDelimiterCrLf), "a\r\n");
    EXPECT_EQ(written("a\n", true, eDelimiterCr), "a\r\r");
    EXPECT_EQ(written("", true, eDelimiterLf), "\n");
    EXPECT_EQ(written("", false, eDelimiterLf), "");
}

TEST_F(WrittenText, LongTextsAndSmallUnitsGiveTheSameBytes) {
    std::string text;
    for (int i = 0; i < 3000; ++i) {
        text += std::to_string(i) + (i % 7 == 0 ? "\n" : "");
    }
    std::string expected;
    for (const char c : text) {
        expected += c == '\n' ? "\r\n" : std::string(1, c);
    }
    for (const int unit : {1, 2, 3, 1000, 4096, 100000}) {
        EXPECT_EQ(written(text, true, eDelimiterCrLf, unit), expected + "\r\n") << unit;
    }
}

TEST_F(WrittenText, FullBufferGrowsAtOnce) {
    class Probe : public CStreamMemFile {
    public:
        using CStreamMemFile::CStreamMemFile;
        using CStreamMemFile::IncrementQue;
    } stream(eTransWrite, 4096);
    ASSERT_TRUE(stream.OpenFile(folder.path("out").c_str()));
    char first = '\0';
    char second = '\0';
    ASSERT_TRUE(stream.WriteString(std::string(4095, 'x').c_str(), false));
    EXPECT_TRUE(stream.QueryNextData(first, second, 0));
    EXPECT_FALSE(stream.QueryNextData(first, second, 1));
    ASSERT_TRUE(stream.WriteString("x", false));
    EXPECT_TRUE(stream.QueryNextData(first, second, 4095));
    EXPECT_EQ(first, '\0');
    EXPECT_FALSE(stream.QueryNextData(first, second, 4096));
}

TEST_F(WrittenText, BufferThatCannotGrowTakesWhatFits) {
    MemoryStream stream("....", eTransWrite);
    EXPECT_TRUE(stream.WriteString("ab", false));
    EXPECT_FALSE(stream.WriteString("cdef", false));
    EXPECT_FALSE(stream.WriteString("g", false));
    EXPECT_TRUE(stream.WriteString("", false));
    EXPECT_FALSE(stream.WriteString("", true));
    EXPECT_FALSE(stream.WriteString("\r\n", false));
    stream.Rewind();
    for (const char c : {'a', 'b', 'c', 'd'}) {
        EXPECT_EQ(stream.QueryQue(), c);
        stream.IncrementQue(false);
    }
}

TEST_F(WrittenText, NullAndStreamsForReadingAreRefused) {
    CStreamMemFile stream(eTransWrite, 4096);
    ASSERT_TRUE(stream.OpenFile(folder.path("out").c_str()));
    EXPECT_FALSE(stream.WriteString(nullptr, true));
    MemoryStream reading("abc");
    EXPECT_FALSE(reading.WriteString("x", false));
    EXPECT_FALSE(reading.WriteFile(false));
    EXPECT_EQ(reading.QueryQue(), 'a');
}

TEST_F(WrittenText, SecondWriteFileIsRefusedAndTouchesNothing) {
    CStreamMemFile stream(eTransWrite, 4096);
    const std::string path = folder.path("out");
    ASSERT_TRUE(stream.OpenFile(path.c_str()));
    ASSERT_TRUE(stream.WriteString("text", false));
    EXPECT_TRUE(stream.WriteFile(false));
    EXPECT_FALSE(stream.WriteFile(false));
    EXPECT_FALSE(stream.WriteFile(true));
    EXPECT_FALSE(stream.WriteString("more", false));
    EXPECT_EQ(read_file(path), "text");
}

TEST_F(WrittenText, AppendingAddsAndReplacingTruncates) {
    const std::string path = folder.write("out", "old text");
    for (const bool append : {true, false}) {
        CStreamMemFile stream(eTransWrite, 4096);
        ASSERT_TRUE(stream.OpenFile(path.c_str()));
        ASSERT_TRUE(stream.WriteString("+", false));
        EXPECT_TRUE(stream.WriteFile(append));
        EXPECT_EQ(read_file(path), append ? "old text+" : "+");
    }
}

TEST_F(WrittenText, NothingWrittenMakesAnEmptyFile) {
    CStreamMemFile stream(eTransWrite, 4096);
    const std::string path = folder.path("out");
    ASSERT_TRUE(stream.OpenFile(path.c_str()));
    EXPECT_TRUE(stream.WriteFile(false));
    EXPECT_EQ(read_file(path), "");
}

TEST_F(WrittenText, FileThatCannotBeOpenedSpendsThePositionToo) {
    CStreamMemFile stream(eTransWrite, 4096);
    ASSERT_TRUE(stream.OpenFile(folder.path("no/such/folder").c_str()));
    ASSERT_TRUE(stream.WriteString("text", false));
    EXPECT_FALSE(stream.WriteFile(false));
    EXPECT_FALSE(stream.WriteString("more", false));
}

TEST_F(WrittenText, RewindBringsTheWrittenBytesBack) {
    CStreamMemFile stream(eTransWrite, 4096);
    const std::string path = folder.path("out");
    ASSERT_TRUE(stream.OpenFile(path.c_str()));
    ASSERT_TRUE(stream.WriteString("text", false));
    ASSERT_TRUE(stream.WriteFile(false));
    stream.Rewind();
    ASSERT_TRUE(stream.WriteString("TE", false));
    EXPECT_TRUE(stream.WriteFile(false));
    EXPECT_EQ(read_file(path), "TE");
}

// 4096 bytes at a time, a moving buffer would copy a hundred gigabytes here.
TEST_F(WrittenText, SixtyMegabytesInSmallTextsAreWrittenAtOnce) {
    CStreamMemFile stream(eTransWrite, 4096);
    ASSERT_TRUE(stream.OpenFile(folder.path("out").c_str()));
    const std::string text(100, 'x');
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 600000; ++i) {
        ASSERT_TRUE(stream.WriteString(text.c_str(), false));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    char first = '\0';
    char second = '\0';
    const int capacity = 60000000 / 4096 * 4096 + 4096;
    EXPECT_TRUE(stream.QueryNextData(first, second, capacity - 60000000 - 1));
    EXPECT_FALSE(stream.QueryNextData(first, second, capacity - 60000000));
}
