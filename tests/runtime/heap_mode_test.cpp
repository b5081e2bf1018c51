// The heap's modes on the shared library, loaded and unloaded at run time by a host in a process of its own.
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "support/child_process.h"

namespace {

using Actions = std::vector<std::string>;

// What the host prints for the actions with the variable set to `value`, or without it.
std::string run_host(const char* value, const Actions& actions) {
    const auto result = orvil::test::run_child("runtime_heap_host", actions, {{"KESA_HEAPINFO_ORV", value}});
    EXPECT_EQ(result.exit_code, 0) << result.output;
    return result.output;
}

// As above, without the debug texts.
std::string run_quietly(const char* value, const Actions& actions) {
    std::string lines = run_host(value, actions);
    for (std::size_t at = lines.find("debug="); at != std::string::npos; at = lines.find("debug=")) {
        lines.erase(at, lines.find('\n', at) + 1 - at);
    }
    return lines;
}

const Actions kWholeLife = {"load",       "type", "init", "type",   "handle",    "alloc:100", "realloc:5000",
                            "realloc:50", "free", "term", "handle", "type",      "init",      "term",
                            "alloc:10",   "free", "lfh",  "type",   "duplicate", "unload"};

struct ModeCase {
    const char* value;  // of the variable
    char mode;
    bool is_demanded;  // whether the variable names the mode
};

std::ostream& operator<<(std::ostream& out, const ModeCase& row) {
    return out << (row.value == nullptr ? "unset" : row.value);
}

std::string type_line(char mode) {
    return std::string("type=0x") + mode + "\n";
}

std::string life_in_runtime_heap(char mode) {
    const std::string type = type_line(mode);
    const std::string term = mode == '1' ? "term=0xFFFFFFFE\n" : "term=0xFFFFFFFF\n";
    return type + "init=0x1\n" + type + "handle=null\nalloc=zeros\nrealloc=kept\nrealloc=kept\n" + term +
           "handle=null\n" + type + "init=0x1\n" + term + "alloc=zeros\nlfh=0xFFFFFFFF\n" + type + "duplicate=abc\n";
}

#ifdef _WIN32

std::string life_in_private_heap(const ModeCase& row) {
    const std::string type = type_line(row.mode);
    // The second destruction finds no heap and answers with the mode minus 3.
    const std::string second_term = row.mode == '3' ? "term=0x0\n" : "term=0x1\n";
    return type + "init=0x1\n" + type + "handle=heap\nalloc=zeros\nrealloc=keptzeros\nrealloc=kept\n" +
           "term=0x1\nhandle=null\n" + type + "init=0x1\n" + second_term + "alloc=null\nlfh=0xFFFFFFFF\n" + type +
           "duplicate=abc\n";
}

#else

// There is no private heap. A demanded one leaves every allocation null; otherwise loading leaves the mode open, and
// the first allocation falls back.
std::string life_in_private_heap(const ModeCase& row) {
    const std::string type = type_line(row.mode);
    if (!row.is_demanded) {
        return type + "init=0x0\n" + type + "handle=null\nalloc=zeros\nrealloc=kept\nrealloc=kept\nterm=0xFFFFFFFF\n" +
               "handle=null\ntype=0x2\ninit=0x1\nterm=0xFFFFFFFF\nalloc=zeros\nlfh=0xFFFFFFFF\ntype=0x2\n" +
               "duplicate=abc\n";
    }
    const std::string term = row.mode == '3' ? "term=0x0\n" : "term=0x1\n";
    return type + "init=0x0\n" + type + "handle=null\nalloc=null\nrealloc=null\nrealloc=null\n" + term +
           "handle=null\n" + type + "init=0x0\n" + term + "alloc=null\nlfh=0xFFFFFFFF\n" + type + "duplicate=abc\n";
}

#endif

const ModeCase kModes[] = {
    {nullptr, '4', false}, {"", '4', false},     {"0", '4', false},  {"5", '4', false},
    {"-1", '4', false},    {"word", '4', false}, {"12", '4', false}, {"4294967298", '4', false},
    {"1", '1', true},      {"2", '2', true},     {"3", '3', true},   {"4", '4', true},
    {"2abc", '2', true},   {" 3", '3', true},    {"+1", '1', true},  {"01", '1', true},
};

}  // namespace

class HeapMode : public testing::TestWithParam<ModeCase> {};

TEST_P(HeapMode, IsWhatTheVariableSaysForAWholeLife) {
    const ModeCase& row = GetParam();
    EXPECT_EQ(run_quietly(row.value, kWholeLife),
              row.mode < '3' ? life_in_runtime_heap(row.mode) : life_in_private_heap(row));
}

INSTANTIATE_TEST_SUITE_P(Values, HeapMode, testing::ValuesIn(kModes));

#ifdef _WIN32

TEST(HeapModePolicy, IsTheSystemsAnswerForAPrivateHeap) {
    for (const char* value : {"3", "4"}) {
        const std::string answer = run_quietly(value, {"load", "lfh", "lfh:7", "unload"});
        const bool is_policy =
            answer == "lfh=0x0\nlfh=0x0\n" || answer == "lfh=0x1\nlfh=0x1\n" || answer == "lfh=0x2\nlfh=0x2\n";
        EXPECT_TRUE(is_policy) << value << ": " << answer;
    }
}

TEST(HeapModePolicy, WithoutAPrivateHeapThereIsNone) {
    for (const char* value : {"1", "2"}) {
        EXPECT_EQ(run_quietly(value, {"load", "lfh", "unload"}), "lfh=0xFFFFFFFF\n");
    }
}

TEST(PrivateHeap, IsOneOfTheProcesssUntilTheLibraryIsUnloaded) {
    for (const char* value : {"3", "4"}) {
        EXPECT_EQ(run_quietly(value, {"load", "remember", "exists", "is-process-heap", "unload", "exists"}),
                  "exists=1\nis-process-heap=0\nexists=0\n");
    }
}

TEST(PrivateHeap, IsGoneOnceTerminated) {
    EXPECT_EQ(run_quietly("4", {"load", "remember", "term", "exists", "unload"}), "term=0x1\nexists=0\n");
}

TEST(PrivateHeap, BeginsWithAMebibyte) {
    EXPECT_EQ(run_quietly("4", {"load", "committed", "unload"}), "committed=enough\n");
}

TEST(PrivateHeap, HoldsSmallAndLargeBlocksButNoDuplicates) {
    for (const char* value : {"3", "4"}) {
        EXPECT_EQ(run_quietly(value, {"load", "alloc:8", "block-home", "realloc:100000", "block-home", "duplicate-home",
                                      "unload"}),
                  "alloc=zeros\nblock-home=private\nrealloc=keptzeros\nblock-home=private\nduplicate-home=elsewhere\n");
    }
}

TEST(PrivateHeap, GrowsBeyondItsFirstMebibyte) {
    EXPECT_EQ(run_quietly("3", {"load", "alloc:50000000", "free", "unload"}), "alloc=zeros\n");
}

TEST(PrivateHeap, ASecondLoadMakesANewOne) {
    EXPECT_EQ(run_quietly("4", {"load", "term", "alloc:1", "unload", "load", "handle", "alloc:1", "unload"}),
              "term=0x1\nalloc=null\nhandle=heap\nalloc=zeros\n");
}

TEST(HeapVariable, IsReadFromTheCopyOfTheCRuntime) {
    EXPECT_EQ(run_quietly(nullptr, {"setenv-system:1", "load", "type", "unload"}), "type=0x4\n");
    EXPECT_EQ(run_quietly(nullptr, {"setenv:1", "load", "type", "unload"}), "type=0x1\n");
}

#endif

TEST(HeapVariable, ALaterValueIsNotRead) {
    EXPECT_EQ(run_quietly("1", {"load", "setenv:2", "init", "type", "alloc:8", "type", "free", "unload"}),
              "init=0x1\ntype=0x1\nalloc=zeros\ntype=0x1\n");
}

TEST(HeapStatistics, TheLargestRequestRisesOnly) {
    EXPECT_EQ(run_quietly("1", {"load", "largest", "alloc:100", "largest", "realloc:300", "largest", "realloc:10",
                                "largest", "free", "alloc:299", "largest", "free", "unload"}),
              "largest=0\nalloc=zeros\nlargest=100\nrealloc=kept\nlargest=300\nrealloc=kept\nlargest=300\n"
              "alloc=zeros\nlargest=300\n");
}

TEST(HeapStatistics, ADuplicateIsNoRequest) {
    EXPECT_EQ(run_quietly("1", {"load", "duplicate", "largest", "unload"}), "duplicate=abc\nlargest=0\n");
}

TEST(HeapStatistics, PlainBlocksAreNoStringBuffers) {
    EXPECT_EQ(run_quietly("1", {"load", "most", "alloc:100", "most", "free", "unload"}),
              "most=0\nalloc=zeros\nmost=0\n");
}

TEST(HeapStatistics, TheRunningTotalIsNotExported) {
    EXPECT_EQ(run_quietly("1", {"load", "exports-current-size", "unload"}), "exports-current-size=0\n");
}

TEST(LibraryEntry, LoadingAndUnloadingWriteTheirDebugTexts) {
    EXPECT_EQ(run_host("1", {"load", "type", "unload", "setenv:2", "load", "type", "unload"}),
              "debug=ORVIL.DLL Initialize ... \\r\\n\n"
              "type=0x1\n"
              "debug=ORVIL.DLL Terminate ... \\r\\n\n"
              "debug=ORVIL.DLL Initialize ... \\r\\n\n"
              "type=0x2\n"
              "debug=ORVIL.DLL Terminate ... \\r\\n\n");
}

TEST(LibraryEntry, ThreadsComeAndGoUnnoticed) {
    EXPECT_EQ(run_host("1", {"load", "thread", "type", "unload"}),
              "debug=ORVIL.DLL Initialize ... \\r\\n\nthread\ntype=0x1\ndebug=ORVIL.DLL Terminate ... \\r\\n\n");
}

TEST(LibraryEntry, ALibraryStillLoadedAtTheProcesssEndWritesItsLastTextThen) {
    EXPECT_EQ(run_host("1", {"load", "type"}),
              "debug=ORVIL.DLL Initialize ... \\r\\n\ntype=0x1\ndebug=ORVIL.DLL Terminate ... \\r\\n\n");
}
