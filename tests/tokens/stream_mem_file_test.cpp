// Opening, closing, copying, counting and delivering characters.
#include "orvil/tokens/stream_mem_file.h"

#include <gtest/gtest.h>

#include <climits>
#include <filesystem>
#include <fstream>
#include <string>

#include "support/temp_dir.h"
#include "tokens/memory_stream.h"

using orvil::test::MemoryStream;
using orvil::test::read_file;
using orvil::test::TempDir;

namespace {

// What a stream delivers: the two bytes, and the result.
struct Delivered {
    bool result;
    std::string bytes;
    bool operator==(const Delivered&) const = default;
};

Delivered get(CStreamMemFile& stream) {
    char first = 'x';
    char second = 'x';
    const bool result = stream.GetCurrentData(first, second);
    return {result, std::string{first, second}};
}

Delivered query(const CStreamMemFile& stream) {
    char first = 'x';
    char second = 'x';
    const bool result = stream.QueryCurrentData(first, second);
    return {result, std::string{first, second}};
}

Delivered query_next(const CStreamMemFile& stream, int offset) {
    char first = 'x';
    char second = 'x';
    const bool result = stream.QueryNextData(first, second, offset);
    return {result, std::string{first, second}};
}

Delivered came(char first) {
    return {true, std::string{first, '\0'}};
}

const Delivered kNothing{false, std::string(2, '\0')};

std::string counters(const CStreamMemFile& stream) {
    return std::to_string(stream.QueryCurrentLine()) + ":" + std::to_string(stream.QueryCurrentColm());
}

// The counters behind each consumed byte.
std::string counters_of(const std::string& bytes) {
    MemoryStream stream(bytes);
    std::string all;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        EXPECT_EQ(get(stream), came(bytes[i]));
        all += counters(stream) + " ";
    }
    return all;
}

class OpenStreams : public testing::Test {
protected:
    TempDir folder;
};

}  // namespace

TEST(StreamMemFile, IsAsLargeAsItsFields) {
    EXPECT_EQ(sizeof(CStreamMemFile), 96U);
    EXPECT_EQ(sizeof(ETransDirection), 4U);
    EXPECT_EQ(sizeof(EDelimiterMode), 4U);
    EXPECT_EQ(eTransRead, 1);
    EXPECT_EQ(eTransWrite, 2);
    EXPECT_EQ(eDelimiterCrLf, 0);
    EXPECT_EQ(eDelimiterCr, 1);
    EXPECT_EQ(eDelimiterLf, 2);
}

TEST(StreamMemFile, NewStreamHasNoPositionAndNoText) {
    const CStreamMemFile stream(eTransRead, 4096);
    EXPECT_EQ(counters(stream), "-1:-1");
    EXPECT_STREQ(stream.GetErrorInformation(), "");
    EXPECT_STREQ(stream.GetFilePath(), "");
    EXPECT_FALSE(stream.IsEof());
}

TEST(StreamMemFile, UnopenedStreamRefusesEverything) {
    for (const ETransDirection direction : {eTransRead, eTransWrite}) {
        MemoryStream stream("", direction);
        CExtString line;
        char buffer[8] = "old";
        EXPECT_EQ(get(stream), kNothing);
        EXPECT_EQ(query(stream), kNothing);
        EXPECT_EQ(query_next(stream, 1), kNothing);
        EXPECT_FALSE(stream.ReadString(line));
        EXPECT_FALSE(stream.ReadString(buffer, 4));
        EXPECT_FALSE(stream.WriteString("a", true));
        EXPECT_FALSE(stream.WriteFile(false));
        EXPECT_FALSE(stream.AddQue('a'));
        EXPECT_FALSE(stream.IncrementQue(true));
        EXPECT_EQ(stream.QueryQue(), '\0');
        EXPECT_STREQ(stream.GetErrorInformation(), "");
        EXPECT_STREQ(buffer, "old");
        EXPECT_EQ(counters(stream), "-1:-1");
    }
}

TEST(StreamMemFile, BufferWithoutAPositionIsRefusedToo) {
    MemoryStream stream("", eTransWrite);
    ASSERT_TRUE(stream.GetBuffer(16));
    EXPECT_EQ(get(stream), kNothing);
    EXPECT_EQ(query(stream), kNothing);
    EXPECT_EQ(query_next(stream, 1), kNothing);
    EXPECT_FALSE(stream.WriteString("a", true));
    EXPECT_FALSE(stream.AddQue('a'));
    EXPECT_FALSE(stream.IncrementQue(false));
    EXPECT_EQ(stream.QueryQue(), '\0');
}

TEST_F(OpenStreams, PathThatIsNullOrEmptyIsRefused) {
    CStreamMemFile stream(eTransRead, 4096);
    EXPECT_FALSE(stream.OpenFile(nullptr));
    EXPECT_FALSE(stream.OpenFile(""));
    EXPECT_STREQ(stream.GetFilePath(), "");
}

TEST_F(OpenStreams, MissingFileIsRefusedButItsPathIsKept) {
    CStreamMemFile stream(eTransRead, 4096);
    const std::string path = folder.path("missing");
    EXPECT_FALSE(stream.OpenFile(path.c_str()));
    EXPECT_STREQ(stream.GetFilePath(), path.c_str());
    EXPECT_EQ(counters(stream), "-1:-1");
}

TEST_F(OpenStreams, FileOfMoreBytesThanAnIntCountsIsRefused) {
    const std::string path = folder.write("huge", "");
    std::ofstream file(path, std::ios::binary);
    file.seekp(INT_MAX);
    ASSERT_TRUE(file.put('x').flush());
    CStreamMemFile stream(eTransRead, 4096);
    EXPECT_FALSE(stream.OpenFile(path.c_str()));
    EXPECT_EQ(query(stream), kNothing);
    EXPECT_EQ(counters(stream), "-1:-1");
}

TEST_F(OpenStreams, FolderIsRefusedForReading) {
    CStreamMemFile stream(eTransRead, 4096);
    EXPECT_FALSE(stream.OpenFile(folder.path(".").c_str()));
}

TEST_F(OpenStreams, OpenedFileStandsAtLineZeroAndColumnMinusOne) {
    CStreamMemFile stream(eTransRead, 4096);
    ASSERT_TRUE(stream.OpenFile(folder.write("f", "ab").c_str()));
    EXPECT_EQ(counters(stream), "0:-1");
    EXPECT_EQ(get(stream), came('a'));
    EXPECT_EQ(counters(stream), "0:0");
    EXPECT_FALSE(stream.IsEof());
    EXPECT_EQ(get(stream), came('b'));
    EXPECT_TRUE(stream.IsEof());
}

TEST_F(OpenStreams, NoOpeningResetsTheColumn) {
    const std::string path = folder.write("f", "abc");
    CStreamMemFile stream(eTransRead, 4096);
    ASSERT_TRUE(stream.OpenFile(path.c_str()));
    get(stream);
    get(stream);
    ASSERT_TRUE(stream.OpenFile(path.c_str()));
    EXPECT_EQ(counters(stream), "0:1");
    EXPECT_EQ(get(stream), came('a'));
}

TEST_F(OpenStreams, PathMayBeTheStreamsOwn) {
    const std::string path = folder.write("f", "abc");
    CStreamMemFile stream(eTransRead, 4096);
    ASSERT_TRUE(stream.OpenFile(path.c_str()));
    ASSERT_TRUE(stream.OpenFile(stream.GetFilePath()));
    EXPECT_EQ(path, stream.GetFilePath().GetString());
    EXPECT_EQ(get(stream), came('a'));
}

TEST_F(OpenStreams, EmptyFileIsAtItsEndWithAnErrorTextOfLineZero) {
    CStreamMemFile stream(eTransRead, 4096);
    const std::string path = folder.write("empty", "");
    ASSERT_TRUE(stream.OpenFile(path.c_str()));
    EXPECT_TRUE(stream.IsEof());
    EXPECT_EQ(get(stream), kNothing);
    EXPECT_EQ(path + "(0) : EOF", stream.GetErrorInformation());
}

TEST_F(OpenStreams, EmptyFileNeedsAGrowUnit) {
    CStreamMemFile stream(eTransRead, 0);
    EXPECT_FALSE(stream.OpenFile(folder.write("empty", "").c_str()));
}

TEST_F(OpenStreams, ErrorTextNamesTheCurrentLineAndTakesThePathAsItIs) {
    CStreamMemFile stream(eTransRead, 4096);
    const std::string path = folder.write("50%s%n", "a\nb\n");
    ASSERT_TRUE(stream.OpenFile(path.c_str()));
    while (get(stream).result) {
    }
    EXPECT_EQ(path + "(2) : EOF", stream.GetErrorInformation());
}

TEST_F(OpenStreams, BytesAreReadUntranslated) {
    CStreamMemFile stream(eTransRead, 4096);
    const std::string bytes("a\r\n\x1A\0\xFF\x80z", 8);
    ASSERT_TRUE(stream.OpenFile(folder.write("f", bytes).c_str()));
    for (const char byte : bytes) {
        EXPECT_EQ(get(stream), came(byte));
    }
    EXPECT_EQ(get(stream), kNothing);
}

TEST_F(OpenStreams, WritingRefusesAFileThatIsReadOnly) {
    const std::string path = folder.write("f", "old");
    std::filesystem::permissions(path, std::filesystem::perms::owner_write, std::filesystem::perm_options::remove);
    CStreamMemFile stream(eTransWrite, 4096);
    EXPECT_FALSE(stream.OpenFile(path.c_str()));
    std::filesystem::permissions(path, std::filesystem::perms::owner_write, std::filesystem::perm_options::add);
    EXPECT_TRUE(stream.OpenFile(path.c_str()));
    EXPECT_EQ(read_file(path), "old");
}

#ifndef _WIN32
TEST_F(OpenStreams, WritingRefusesAFileThatIsNotReadable) {
    const std::string path = folder.write("f", "old");
    std::filesystem::permissions(path, std::filesystem::perms::owner_write);
    CStreamMemFile stream(eTransWrite, 4096);
    EXPECT_FALSE(stream.OpenFile(path.c_str()));
}
#endif

TEST_F(OpenStreams, WritingTouchesNoFileBeforeWriteFile) {
    const std::string path = folder.path("new");
    CStreamMemFile stream(eTransWrite, 4096);
    ASSERT_TRUE(stream.OpenFile(path.c_str()));
    ASSERT_TRUE(stream.WriteString("text", false));
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(counters(stream), "-1:-1");
}

TEST_F(OpenStreams, WritingNeedsAGrowUnit) {
    for (const int unit : {0, -1, INT_MIN}) {
        CStreamMemFile stream(eTransWrite, unit);
        EXPECT_FALSE(stream.OpenFile(folder.path("new").c_str()));
    }
}

TEST_F(OpenStreams, ClosingForgetsEverythingButTheErrorText) {
    CStreamMemFile stream(eTransRead, 4096);
    const std::string path = folder.write("f", "a");
    ASSERT_TRUE(stream.OpenFile(path.c_str()));
    get(stream);
    get(stream);
    ASSERT_EQ(counters(stream), "0:0");
    EXPECT_TRUE(stream.CloseFile());
    EXPECT_STREQ(stream.GetFilePath(), "");
    EXPECT_EQ(counters(stream), "-1:-1");
    EXPECT_FALSE(stream.IsEof());
    EXPECT_EQ(get(stream), kNothing);
    EXPECT_EQ(path + "(0) : EOF", stream.GetErrorInformation());
    EXPECT_TRUE(stream.CloseFile());
}

TEST_F(OpenStreams, ClosedStreamForWritingDoesNotOpenAgain) {
    CStreamMemFile stream(eTransWrite, 4096);
    const std::string path = folder.path("f");
    ASSERT_TRUE(stream.OpenFile(path.c_str()));
    stream.CloseFile();
    EXPECT_FALSE(stream.OpenFile(path.c_str()));
    EXPECT_FALSE(stream.WriteString("a", false));
}

TEST_F(OpenStreams, ClosedStreamForReadingOpensAgainUnlessTheFileIsEmpty) {
    CStreamMemFile stream(eTransRead, 4096);
    stream.CloseFile();
    EXPECT_TRUE(stream.OpenFile(folder.write("f", "a").c_str()));
    EXPECT_EQ(get(stream), came('a'));
    EXPECT_FALSE(stream.OpenFile(folder.write("empty", "").c_str()));
    EXPECT_EQ(get(stream), kNothing);
}

// --- counting -------------------------------------------------------------------------------------------------------

TEST(StreamMemFileCounting, EachByteAddsAColumn) {
    EXPECT_EQ(counters_of("abc"), "0:0 0:1 0:2 ");
}

TEST(StreamMemFileCounting, LineFeedAddsALineAndLetsTheColumnGrow) {
    EXPECT_EQ(counters_of("a\nb\n"), "0:0 1:1 1:2 2:3 ");
}

TEST(StreamMemFileCounting, CarriageReturnResetsTheColumnSoThatItIsOneBehindBoth) {
    EXPECT_EQ(counters_of("ab\r\nc"), "0:0 0:1 0:0 1:1 1:2 ");
    EXPECT_EQ(counters_of("\r\rx"), "0:0 0:0 0:1 ");
}

TEST(StreamMemFileCounting, RewindKeepsTheColumn) {
    MemoryStream stream("ab\nc");
    for (int i = 0; i < 3; ++i) {
        get(stream);
    }
    EXPECT_EQ(counters(stream), "1:2");
    EXPECT_TRUE(stream.Rewind());
    EXPECT_EQ(counters(stream), "0:2");
    EXPECT_EQ(get(stream), came('a'));
    EXPECT_EQ(counters(stream), "0:3");
}

// --- looking ahead --------------------------------------------------------------------------------------------------

TEST(StreamMemFileQuery, CurrentCharacterIsNotConsumed) {
    MemoryStream stream("ab");
    EXPECT_EQ(query(stream), came('a'));
    EXPECT_EQ(query(stream), came('a'));
    EXPECT_EQ(counters(stream), "0:-1");
}

TEST(StreamMemFileQuery, AtTheEndNothingComesAndNoTextIsSet) {
    MemoryStream stream("a");
    get(stream);
    EXPECT_EQ(query(stream), kNothing);
    EXPECT_STREQ(stream.GetErrorInformation(), "");
    EXPECT_EQ(get(stream), kNothing);
    EXPECT_STREQ(stream.GetErrorInformation(), "(0) : EOF");
}

TEST(StreamMemFileQuery, OffsetsReachEveryByteAndNoOther) {
    for (const ETransDirection direction : {eTransRead, eTransWrite}) {
        MemoryStream stream("abc", direction);
        get(stream);
        EXPECT_EQ(query_next(stream, -1), came('a'));
        EXPECT_EQ(query_next(stream, 0), came('b'));
        EXPECT_EQ(query_next(stream, 1), came('c'));
        for (const int outside : {-2, 2, 3, INT_MAX, INT_MIN}) {
            EXPECT_EQ(query_next(stream, outside), kNothing) << outside;
        }
    }
}

TEST(StreamMemFileQuery, FullStreamForWritingRefusesAsOneForReadingDoes) {
    MemoryStream stream("a", eTransWrite);
    EXPECT_EQ(get(stream), came('a'));
    EXPECT_FALSE(stream.IsEof());
    EXPECT_EQ(query(stream), kNothing);
    EXPECT_EQ(get(stream), kNothing);
    EXPECT_STREQ(stream.GetErrorInformation(), "(0) : EOF");
}

// --- the queue ------------------------------------------------------------------------------------------------------

TEST(StreamMemFileQueue, IncrementCountsOnlyWhenAskedTo) {
    MemoryStream stream("a\nb");
    EXPECT_EQ(stream.QueryQue(), 'a');
    EXPECT_TRUE(stream.IncrementQue(false));
    EXPECT_EQ(counters(stream), "0:-1");
    EXPECT_EQ(stream.QueryQue(), '\n');
    EXPECT_TRUE(stream.IncrementQue(true));
    EXPECT_EQ(counters(stream), "1:0");
}

TEST(StreamMemFileQueue, LastByteIsCountedAndGivesFalse) {
    MemoryStream stream("\n");
    EXPECT_FALSE(stream.IncrementQue(true));
    EXPECT_EQ(counters(stream), "1:0");
    EXPECT_EQ(stream.QueryQue(), '\0');
}

TEST(StreamMemFileQueue, BehindTheEndNothingIsCounted) {
    MemoryStream stream("a");
    stream.IncrementQue(false);
    EXPECT_FALSE(stream.IncrementQue(true));
    EXPECT_EQ(counters(stream), "0:-1");
    EXPECT_EQ(query_next(stream, -1), came('a'));
}

TEST(StreamMemFileQueue, AddGrowsAsSoonAsTheBufferIsFull) {
    class Probe : public CStreamMemFile {
    public:
        Probe() : CStreamMemFile(eTransWrite, 2) {
            GetBuffer(0);
            Rewind();
        }
        using CStreamMemFile::AddQue;
    } stream;
    EXPECT_TRUE(stream.AddQue('a'));
    EXPECT_EQ(query_next(stream, 0), came('\0'));
    EXPECT_EQ(query_next(stream, 1), kNothing);
    EXPECT_TRUE(stream.AddQue('b'));
    EXPECT_EQ(query_next(stream, 1), came('\0'));
    EXPECT_EQ(query_next(stream, 2), kNothing);
    EXPECT_EQ(query_next(stream, -1), came('b'));
}

TEST(StreamMemFileQueue, AddFailsWhenTheFullBufferCannotGrowButStoresTheByte) {
    MemoryStream stream("ab");
    EXPECT_TRUE(stream.AddQue('x'));
    EXPECT_FALSE(stream.AddQue('y'));
    EXPECT_FALSE(stream.AddQue('z'));
    EXPECT_EQ(query_next(stream, -2), came('x'));
    EXPECT_EQ(query_next(stream, -1), came('y'));
}

TEST(StreamMemFileQueue, NewBufferIsZeroAndHoldsThePosition) {
    MemoryStream stream("abcdef");
    get(stream);
    get(stream);
    get(stream);
    ASSERT_TRUE(stream.GetBuffer(2));
    EXPECT_EQ(query_next(stream, 0), kNothing);
    EXPECT_EQ(query_next(stream, -1), came('\0'));
    EXPECT_EQ(query_next(stream, -2), came('\0'));
    EXPECT_EQ(query_next(stream, -3), kNothing);
}

TEST(StreamMemFileQueue, BufferWithoutASizeIsRefused) {
    MemoryStream stream("abc");
    EXPECT_FALSE(stream.GetBuffer(0));
    EXPECT_FALSE(stream.GetBuffer(-5));
    EXPECT_EQ(get(stream), kNothing);
    EXPECT_FALSE(stream.ReallocBuffer());
}

TEST(StreamMemFileQueue, GrowthIsZeroAndKeepsTheBytes) {
    class Probe : public CStreamMemFile {
    public:
        Probe() : CStreamMemFile(eTransRead, 40000) {
            GetBuffer(1);
            Rewind();
            AddQue('a');
            Rewind();
        }
        using CStreamMemFile::ReallocBuffer;
    } stream;
    for (int size = 40001; size < 1000000; size += 40000) {
        EXPECT_EQ(query_next(stream, 0), came('a'));
        EXPECT_EQ(query_next(stream, size - 1), came('\0'));
        EXPECT_EQ(query_next(stream, size), kNothing);
        ASSERT_TRUE(stream.ReallocBuffer());
    }
}

TEST(StreamMemFileQueue, GrowthPastTheLargestIntIsRefused) {
    class Probe : public CStreamMemFile {
    public:
        Probe() : CStreamMemFile(eTransRead, INT_MAX) { GetBuffer(1); }
        using CStreamMemFile::ReallocBuffer;
    } stream;
    EXPECT_FALSE(stream.ReallocBuffer());
}

// --- copies ---------------------------------------------------------------------------------------------------------

TEST_F(OpenStreams, CopyReadsOnByItself) {
    CStreamMemFile stream(eTransRead, 4096);
    const std::string path = folder.write("f", "a\nbc");
    ASSERT_TRUE(stream.OpenFile(path.c_str()));
    get(stream);
    get(stream);
    CStreamMemFile copy(stream);
    EXPECT_EQ(counters(copy), "1:1");
    EXPECT_EQ(path, copy.GetFilePath().GetString());
    EXPECT_EQ(get(copy), came('b'));
    EXPECT_EQ(get(copy), came('c'));
    EXPECT_EQ(get(copy), kNothing);
    EXPECT_EQ(get(stream), came('b'));
    EXPECT_STREQ(stream.GetErrorInformation(), "");
    stream = copy;
    EXPECT_EQ(path + "(1) : EOF", stream.GetErrorInformation());
    EXPECT_TRUE(stream.IsEof());
}

TEST_F(OpenStreams, CopyWritesOnByItself) {
    CStreamMemFile stream(eTransWrite, 4);
    ASSERT_TRUE(stream.OpenFile(folder.path("f").c_str()));
    ASSERT_TRUE(stream.SetDelimiterMode(eDelimiterLf));
    ASSERT_TRUE(stream.WriteString("abcdef", false));
    CStreamMemFile copy(eTransRead, 1);
    EXPECT_TRUE(copy.CopyData(stream));
    EXPECT_TRUE(copy.WriteString("ghi", true));
    EXPECT_TRUE(stream.WriteString("X", false));
    EXPECT_TRUE(copy.WriteFile(false));
    EXPECT_EQ(read_file(folder.path("f")), "abcdefghi\n");
    EXPECT_TRUE(stream.WriteFile(true));
    EXPECT_EQ(read_file(folder.path("f")), "abcdefghi\nabcdefX");
}

TEST_F(OpenStreams, CopyOntoItselfChangesNothing) {
    CStreamMemFile stream(eTransRead, 4096);
    ASSERT_TRUE(stream.OpenFile(folder.write("f", "ab").c_str()));
    get(stream);
    EXPECT_TRUE(stream.CopyData(stream));
    EXPECT_EQ(get(stream), came('b'));
}

TEST_F(OpenStreams, CopyOfAnEmptyFileIsAtItsEnd) {
    CStreamMemFile stream(eTransRead, 4096);
    ASSERT_TRUE(stream.OpenFile(folder.write("f", "").c_str()));
    CStreamMemFile copy(stream);
    EXPECT_TRUE(copy.IsEof());
    EXPECT_EQ(get(copy), kNothing);
}

TEST(StreamMemFileCopy, CopyOfAnUnopenedOrClosedStreamRefusesEverything) {
    MemoryStream unopened("", eTransWrite);
    CStreamMemFile closed(eTransRead, 4096);
    closed.CloseFile();
    for (const CStreamMemFile* source : std::initializer_list<const CStreamMemFile*>{&unopened, &closed}) {
        MemoryStream copy("abc");
        EXPECT_TRUE(copy.CopyData(*source));
        EXPECT_EQ(get(copy), kNothing);
        EXPECT_FALSE(copy.AddQue('a'));
        EXPECT_FALSE(copy.WriteString("a", false));
        EXPECT_EQ(counters(copy), "-1:-1");
    }
    CStreamMemFile of_fresh(CStreamMemFile(eTransWrite, 4096));
    EXPECT_FALSE(of_fresh.WriteString("a", false));
    EXPECT_EQ(query_next(of_fresh, 1), kNothing);
}
