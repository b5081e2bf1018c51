// What the public interface does not show: machine code against the interpreter, room on small stacks, memory that runs
// out, unloading, and random texts against naive models.
#include <gtest/gtest.h>
#include <pcre.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <functional>
#include <ostream>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "orvil/strings/ext_str_array.h"
#include "orvil/strings/ext_string.h"
#include "orvil/strings/regex.h"
#include "platform/platform.h"
#include "regex_models.h"
#include "strings/regex_cache.h"
#include "strings/regex_execute.h"
#include "strings/regex_replace.h"
#include "support/failing_allocator.h"

namespace orvil::test {
namespace {

using detail::regex_cache;

class RegexInternal : public testing::Test {
protected:
    void SetUp() override { regex_cleanup(); }
    void TearDown() override { regex_cleanup(); }
};

const char* text_at(const CExtStrArray& array, int i) {
    return array[i] == nullptr ? "" : array[i];
}

// PCRE allocates through function pointers that a shared PCRE keeps to itself; here they pass the refusing allocator.
class PcreMemory {
public:
    PcreMemory() {
        pcre_malloc = [](std::size_t size) { return std::malloc(size); };
    }
    ~PcreMemory() { pcre_malloc = former_; }

private:
    void* (*former_)(std::size_t) = pcre_malloc;
};

// --- the cache -------------------------------------------------------------------------------------------------------

TEST_F(RegexInternal, CountFollowsEachOperation) {
    EXPECT_EQ(regex_cache.count(), 0);
    EXPECT_EQ(regex_cache.newest(), nullptr);
    void* a = regex_compile("/a/");
    EXPECT_EQ(regex_cache.count(), 1);
    regex_compile("/a/");
    regex_compile("/(/");
    EXPECT_EQ(regex_cache.count(), 1);
    void* b = regex_compile("/b/");
    EXPECT_EQ(regex_cache.count(), 2);
    EXPECT_EQ(regex_cache.newest(), b);
    regex_remove(a);
    EXPECT_EQ(regex_cache.count(), 2);
    regex_remove(a);
    EXPECT_EQ(regex_cache.count(), 1);
    regex_remove(b);
    EXPECT_EQ(regex_cache.count(), 0);
    EXPECT_EQ(regex_cache.newest(), nullptr);
}

TEST_F(RegexInternal, CleanupEmptiesTheCache) {
    regex_compile("/a/");
    regex_compile("/b/");
    regex_cleanup();
    EXPECT_EQ(regex_cache.count(), 0);
    EXPECT_EQ(regex_cache.newest(), nullptr);
}

TEST_F(RegexInternal, PatternsAreCompiledToMachineCodeWherePcreCan) {
    int available = 0;
    pcre_config(PCRE_CONFIG_JIT, &available);
    EXPECT_EQ(static_cast<regex_entry*>(regex_compile("/a+b/"))->has_machine_code, available != 0);
}

TEST_F(RegexInternal, UnloadingReleasesTheCache) {
    void* handle = regex_compile("/a/");
    platform::on_unload();
    EXPECT_EQ(regex_cache.count(), 0);
    EXPECT_FALSE(regex_check(handle));
}

// --- machine code ----------------------------------------------------------------------------------------------------

const char* const kPatterns[] = {
    "/a/",         "/a+b/",           "/(a)(b)?(c)?/",  "/(a)|(b)|(c)/", "/^a.*c$/",
    "/[ab]*c/",    "/(?i)AB/",        "/\\bb/",         "/(a+)+c/",      "/(?<=a)b/",
    "/(?=(b))/",   "/((a)b)*/",       "/(a(b(c)?)?)?/", "/x*/",          "/$/",
    "/(?>a*)b/",   "/(a)\\1/",        "/(?|(a)|(b))c/", "/a{2,3}/",      "/(*COMMIT)[ab]c/",
    "/(?:a|b)*c/", "/a(?!b)(c|\\w)/", "/(a)(?:b|(c))/", "/a*?b/U",       "/(*ACCEPT)a/",
    "/(?1)(a|b)/",
};

struct Answer {
    int result;
    std::vector<int> pairs;

    bool operator==(const Answer&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Answer& answer) {
        out << answer.result << ":";
        for (const int offset : answer.pairs) {
            out << " " << offset;
        }
        return out;
    }
};

// The pairs are those that the pattern has groups for, as far as the vector holds them: the rest is work space, and all
// of it is when nothing matches.
Answer ask(int (*run)(const regex_entry&, const detail::RegexSearch&), const regex_entry& entry,
           const std::string& subject, int start, int options, int size) {
    std::vector<int> ovector(static_cast<std::size_t>(size), -7);
    Answer answer;
    answer.result =
        run(entry, {subject.data(), static_cast<int>(subject.size()), start, options, ovector.data(), size});
    int groups = 0;
    pcre_fullinfo(entry.code, nullptr, PCRE_INFO_CAPTURECOUNT, &groups);
    const int held = size == 2 ? 2 : size / 3 * 2;
    const int wanted = answer.result < 0 ? 0 : std::min(held, (groups + 1) * 2);
    answer.pairs.assign(ovector.begin(), ovector.begin() + wanted);
    return answer;
}

std::string random_text(std::mt19937& random, const char* letters, std::size_t longest) {
    std::string text(random() % (longest + 1), ' ');
    std::generate(text.begin(), text.end(), [&] { return letters[random() % std::strlen(letters)]; });
    return text;
}

std::string replaced(const regex_entry& entry, const std::string& text, const std::string& with,
                     std::size_t longest = INT_MAX) {
    detail::BoundedText result(longest);
    return detail::replace_regex(entry, text, with, result) ? std::string(result.view()) : "no room";
}

TEST_F(RegexInternal, MachineCodeAnswersLikeTheInterpreter) {
    std::mt19937 random(20240601);
    const int options[] = {0, PCRE_NOTBOL, PCRE_NOTEOL, PCRE_NOTEMPTY, PCRE_NOTEMPTY_ATSTART, PCRE_ANCHORED};
    for (const char* pattern : kPatterns) {
        const auto* entry = static_cast<regex_entry*>(regex_compile(pattern));
        ASSERT_NE(entry, nullptr) << pattern;
        for (int round = 0; round < 400; ++round) {
            const std::string subject = random_text(random, "abcA\n", 9);
            const int start = static_cast<int>(random() % (subject.size() + 1));
            const int option = options[random() % std::size(options)];
            const int size = static_cast<int>(random() % 14);
            EXPECT_EQ(ask(detail::execute_regex, *entry, subject, start, option, size),
                      ask(detail::interpret_regex, *entry, subject, start, option, size))
                << pattern << " on " << subject << " from " << start << " options " << option << " size " << size;
        }
    }
}

TEST_F(RegexInternal, StudyingChangesNoAnswer) {
    std::mt19937 random(7);
    for (const char* pattern : kPatterns) {
        const auto* entry = static_cast<regex_entry*>(regex_compile(pattern));
        for (int round = 0; round < 200; ++round) {
            const std::string subject = random_text(random, "abc", 8);
            regex_entry bare = *entry;
            bare.study = nullptr;
            EXPECT_EQ(ask(detail::interpret_regex, *entry, subject, 0, 0, 30),
                      ask(detail::interpret_regex, bare, subject, 0, 0, 30))
                << pattern << " on " << subject;
        }
    }
}

TEST_F(RegexInternal, MachineCodesOwnLimitsAreNeverHandedOut) {
    const auto* entry = static_cast<regex_entry*>(regex_compile("/^(a|b)*$/"));
    for (const std::size_t length : {1000u, 1500u, 2000u, 2500u, 3000u, 100000u}) {
        const std::string subject(length, 'a');
        const Answer answer = ask(detail::execute_regex, *entry, subject, 0, 0, 30);
        EXPECT_NE(answer.result, PCRE_ERROR_JIT_STACKLIMIT) << length;
        EXPECT_EQ(answer, ask(detail::interpret_regex, *entry, subject, 0, 0, 30)) << length;
    }
}

// --- the stack -------------------------------------------------------------------------------------------------------

TEST(RegexStack, RoomOnTheStackIsKnownAndShrinksWithUse) {
    const std::size_t outside = platform::stack_room();
    EXPECT_GT(outside, std::size_t{64} << 10);
    const std::function<std::size_t()> deeper = [] {
        volatile char used[20000];
        used[0] = 0;
        used[19999] = used[0];
        return platform::stack_room() + static_cast<std::size_t>(used[0]);
    };
    EXPECT_LT(deeper() + 19000, outside);
}

TEST(RegexStack, RoomIsThatOfTheCallingThread) {
    std::size_t room = 0;
    std::thread([&] { room = platform::stack_room(); }).join();
    EXPECT_GT(room, std::size_t{64} << 10);
    EXPECT_LT(room, std::size_t{1} << 30);
}

// --- memory that runs out --------------------------------------------------------------------------------------------

TEST_F(RegexInternal, CompileWithoutMemoryGivesNullOrAWorkingHandle) {
    const PcreMemory through_here;
    sweep_allocation_failures([](auto failed) {
        void* handle = regex_compile("/(a+)b|c/i");
        EXPECT_TRUE(handle != nullptr || failed());
        EXPECT_EQ(regex_cache.count(), handle != nullptr ? 1 : 0);
        EXPECT_EQ(regex_check(handle), handle != nullptr);
        if (handle != nullptr) {
            int pairs[9];
            EXPECT_EQ(regex_execute(handle, nullptr, "xAAb", 4, 0, 0, pairs, 9), 2);
        }
        regex_cleanup();
    });
}

TEST_F(RegexInternal, ManyPatternsWithoutMemoryLeaveTheOthers) {
    sweep_allocation_failures([](auto failed) {
        int made = 0;
        for (int i = 0; i < 20; ++i) {
            const char text[] = {'#', static_cast<char>('a' + i), '#', '\0'};
            made += regex_compile(text) != nullptr ? 1 : 0;
        }
        EXPECT_TRUE(made == 20 || failed());
        EXPECT_EQ(regex_cache.count(), made);
        for (const regex_entry* entry = regex_cache.newest(); entry != nullptr; entry = entry->older) {
            EXPECT_TRUE(regex_check(entry));
        }
        regex_cleanup();
    });
}

TEST_F(RegexInternal, MatchWithoutMemoryStillCountsThePairs) {
    const CExtString text("key=value, and more of them");
    const char* handle = static_cast<const char*>(regex_compile("/(\\w+)=(\\w+)/"));
    sweep_allocation_failures([&](auto failed) {
        CExtStrArray parts;
        EXPECT_EQ(text.RegexMatch(handle, parts), 3);
        EXPECT_TRUE(failed() || parts.GetSize() == 3);
        EXPECT_LE(parts.GetSize(), 3);
    });
}

// Each element is the group of its index or, without memory, empty or beyond the end.
TEST_F(RegexInternal, MatchWithoutMemoryKeepsEachGroupAtItsIndex) {
    const CExtString text("abcdefghijklmnopqr");
    const char* handle =
        static_cast<const char*>(regex_compile("/(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)(k)(l)(m)(n)(o)(p)(q)(r)/"));
    sweep_allocation_failures([&](auto failed) {
        CExtStrArray parts;
        EXPECT_EQ(text.RegexMatch(handle, parts), 19);
        int missing = 19 - parts.GetSize();
        for (int group = 1; group < parts.GetSize(); ++group) {
            const char expected[] = {text[group - 1], '\0'};
            missing += std::strcmp(text_at(parts, group), "") == 0;
            EXPECT_TRUE(std::strcmp(text_at(parts, group), expected) == 0 || text_at(parts, group)[0] == '\0') << group;
        }
        EXPECT_TRUE(failed() || missing == 0);
    });
}

// The 16th element needs more slots than the first fifteen; the two behind it get them.
TEST_F(RegexInternal, GroupWithoutASlotIsEmptyBehindItself) {
    const CExtString text("abcdefghijklmnopq");
    const char* handle =
        static_cast<const char*>(regex_compile("/(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)(k)(l)(m)(n)(o)(p)(q)/"));
    CExtStrArray parts;
    int pairs = 0;
    {
        const AllocationFailure failure(1 + 2 * 15 + 1);  // the slots, 15 elements and their texts, the slots again
        pairs = text.RegexMatch(handle, parts);
    }
    EXPECT_EQ(pairs, 18);
    ASSERT_EQ(parts.GetSize(), 18);
    EXPECT_STREQ(parts[14], "n");
    EXPECT_EQ(parts[15], nullptr);
    EXPECT_STREQ(parts[16], "p");
    EXPECT_STREQ(parts[17], "q");
}

TEST_F(RegexInternal, ReplaceWithoutMemoryGivesTheResultOrACopyOrNothing) {
    const std::string original = "a long enough text, with commas, to replace";
    const CExtString text(original.c_str());
    const char* handle = static_cast<const char*>(regex_compile("/,/"));
    sweep_allocation_failures([&](auto failed) {
        const CExtString result = text.RegexReplace(handle, "; and then, some more text;");
        const bool replaced = std::strchr(result, ';') != nullptr;
        EXPECT_TRUE(replaced || (failed() && (result.IsEmpty() || result == original.c_str())));
    });
    EXPECT_STREQ(text, original.c_str());
}

TEST_F(RegexInternal, ReplaceOfGroupsWithoutMemoryGivesTheResultOrACopyOrNothing) {
    const CExtString text("a fairly long beginning of a text: key=value, and its end");
    const char* handle = static_cast<const char*>(regex_compile("/(\\w+)=(\\w+)/"));
    sweep_allocation_failures([&](auto failed) {
        const CExtString result = text.RegexReplace(handle, "<a rather long replacement>");
        const bool replaced = std::strchr(result, '<') != nullptr;
        EXPECT_TRUE(replaced || (failed() && (result.IsEmpty() || result == text)));
    });
}

TEST_F(RegexInternal, SplitWithoutMemoryGivesFewerPiecesOrEmptyOnes) {
    const CExtString text("one,two,three,four,five,six,seven,eight,nine,ten,eleven,twelve,thirteen,fourteen,x,y,z");
    const char* handle = static_cast<const char*>(regex_compile("/,/"));
    const CExtStrArray pieces = text.RegexSplit(handle);
    ASSERT_EQ(pieces.GetSize(), 17);
    sweep_allocation_failures([&](auto failed) {
        const CExtStrArray parts = text.RegexSplit(handle);
        EXPECT_LE(parts.GetSize(), 17);
        EXPECT_TRUE(failed() || parts.GetSize() == 17);
        for (int i = 0; i < parts.GetSize(); ++i) {
            EXPECT_TRUE(text_at(parts, i)[0] == '\0' || std::strcmp(parts[i], pieces[i]) == 0) << i;
        }
    });
}

// --- results too long ------------------------------------------------------------------------------------------------

TEST_F(RegexInternal, ResultLongerThanTheLimitFailsLikeAnAllocation) {
    const auto* entry = static_cast<regex_entry*>(regex_compile("/,/"));
    EXPECT_EQ(replaced(*entry, ",x,", "123", 7), "123x123");
    EXPECT_EQ(replaced(*entry, ",x,", "123", 6), "no room");
    EXPECT_EQ(replaced(*entry, "abc", "123", 2), "no room");
    const auto* groups = static_cast<regex_entry*>(regex_compile("/(:)/"));
    EXPECT_EQ(replaced(*groups, "x:y", "123", 4), "x123");
    EXPECT_EQ(replaced(*groups, "x:y", "123", 3), "no room");
}

// --- random texts against the models ---------------------------------------------------------------------------------

TEST_F(RegexInternal, RandomTextsAreReplacedLikeTheModel) {
    std::mt19937 random(11);
    int ended_runs = 0;
    for (const char* pattern : kPatterns) {
        const auto* entry = static_cast<regex_entry*>(regex_compile(pattern));
        for (int round = 0; round < 300; ++round) {
            const std::string text = random_text(random, "abc", 10);
            const std::string with = random_text(random, "abx", 3);
            bool ended = false;
            const std::string expected = model_replace(entry->code, text, with, ended);
            const std::string result = replaced(*entry, text, with);
            if (ended) {
                ++ended_runs;
                EXPECT_EQ(result, expected) << pattern << " on " << text << " with " << with;
            }
        }
    }
    EXPECT_GT(ended_runs, 3000);
}

TEST_F(RegexInternal, RandomTextsAreSplitLikeTheModel) {
    std::mt19937 random(12);
    for (const char* pattern : kPatterns) {
        const auto* entry = static_cast<regex_entry*>(regex_compile(pattern));
        for (int round = 0; round < 300; ++round) {
            const std::string text = random_text(random, "abc", 10);
            const CExtStrArray parts = CExtString(text.c_str()).RegexSplit(pattern);
            std::vector<std::string> pieces;
            for (int i = 0; i < parts.GetSize(); ++i) {
                pieces.emplace_back(parts.GetAt(i) != nullptr ? parts.GetAt(i) : "");
            }
            EXPECT_EQ(pieces, model_split(entry->code, text)) << pattern << " on " << text;
        }
    }
}

}  // namespace
}  // namespace orvil::test
