// The functions of the cache through the public interface.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "orvil/strings/regex.h"
#include "regex_entry_view.h"

namespace orvil::test {
namespace {

class RegexCache : public testing::Test {
protected:
    void SetUp() override { regex_cleanup(); }
    void TearDown() override { regex_cleanup(); }

    // The texts from an entry to the end of the cache.
    static std::vector<std::string> texts_from(void* newest) {
        std::vector<std::string> texts;
        for (const EntryView* entry = &entry_of(newest); entry != nullptr; entry = entry->older) {
            texts.emplace_back(entry->text);
            if (entry->older != nullptr) {
                EXPECT_EQ(entry->older->newer, entry);
            }
        }
        return texts;
    }
};

using Texts = std::vector<std::string>;

// --- the handle ------------------------------------------------------------------------------------------------------

TEST_F(RegexCache, EntryHasItsFieldsAtTheStatedOffsets) {
    EXPECT_EQ(offsetof(EntryView, signature), 4u);
    EXPECT_EQ(offsetof(EntryView, references), 32u);
    EXPECT_EQ(offsetof(EntryView, older), 48u);
    const EntryView& entry = entry_of(regex_compile(" /abc/im"));
    EXPECT_EQ(entry.zero, 0u);
    EXPECT_EQ(std::memcmp(entry.signature, "UrAs", 4), 0);
    EXPECT_STREQ(entry.text, " /abc/im");
    EXPECT_EQ(entry.length, 8u);
    EXPECT_NE(entry.code, nullptr);
    EXPECT_EQ(entry.references, 1);
    EXPECT_EQ(entry.newer, nullptr);
    EXPECT_EQ(entry.older, nullptr);
}

TEST_F(RegexCache, EntryKeepsItsOwnCopyOfTheText) {
    char text[] = "/abc/";
    void* handle = regex_compile(text);
    text[1] = 'x';
    EXPECT_STREQ(entry_of(handle).text, "/abc/");
    EXPECT_NE(regex_compile(text), handle);
}

// --- compiling -------------------------------------------------------------------------------------------------------

TEST_F(RegexCache, InvalidNotationsGiveNull) {
    for (const char* text : {"", " ", "abc", "1a1", "\\a\\", "/a/g", "/a/\t", "/a/\r"}) {
        EXPECT_EQ(regex_compile(text), nullptr) << text;
    }
    EXPECT_EQ(regex_compile(nullptr), nullptr);
}

TEST_F(RegexCache, PatternThatPcreRejectsGivesNullAndIsNotCached) {
    EXPECT_EQ(regex_compile("/(/"), nullptr);
    EXPECT_EQ(regex_compile("/a**/"), nullptr);
    EXPECT_FALSE(regex_remove("/(/"));
}

TEST_F(RegexCache, NewEntriesBecomeTheHead) {
    void* a = regex_compile("/a/");
    void* b = regex_compile("/b/");
    void* c = regex_compile("/c/");
    EXPECT_EQ(texts_from(c), (Texts{"/c/", "/b/", "/a/"}));
    EXPECT_EQ(entry_of(b).newer, &entry_of(c));
    EXPECT_EQ(entry_of(b).older, &entry_of(a));
    EXPECT_EQ(entry_of(c).newer, nullptr);
}

TEST_F(RegexCache, SameTextGivesTheSameHandleAndCountsAReference) {
    void* handle = regex_compile("/a/");
    const std::string elsewhere = "/a/";
    EXPECT_EQ(regex_compile(elsewhere.c_str()), handle);
    EXPECT_EQ(regex_compile("/a/"), handle);
    EXPECT_EQ(entry_of(handle).references, 3);
}

TEST_F(RegexCache, LookUpDoesNotReorderTheCache) {
    void* a = regex_compile("/a/");
    void* b = regex_compile("/b/");
    EXPECT_EQ(regex_compile("/a/"), a);
    EXPECT_EQ(texts_from(b), (Texts{"/b/", "/a/"}));
}

TEST_F(RegexCache, FlagsOfALaterRequestAreLost) {
    void* handle = regex_compile("/abc/");
    EXPECT_EQ(regex_compile("/abc/i"), handle);
    EXPECT_EQ(entry_of(handle).references, 2);
    EXPECT_FALSE(matches(handle, "ABC"));
}

TEST_F(RegexCache, EarlierRequestWithFlagsDoesNotAnswerForOneWithout) {
    void* with_flags = regex_compile("/abc/i");
    void* without = regex_compile("/abc/");
    EXPECT_NE(with_flags, without);
    EXPECT_TRUE(matches(with_flags, "ABC"));
    EXPECT_FALSE(matches(without, "ABC"));
}

TEST_F(RegexCache, NewestLeadingPartIsTaken) {
    void* longer = regex_compile("/ab/i");
    void* shorter = regex_compile("/ab/");
    EXPECT_EQ(regex_compile("/ab/im"), shorter);
    EXPECT_EQ(regex_compile("/ab/i"), shorter);
    EXPECT_EQ(entry_of(shorter).references, 3);
    EXPECT_EQ(entry_of(longer).references, 1);
}

TEST_F(RegexCache, OlderLeadingPartIsFoundBehindNewerOnes) {
    void* shorter = regex_compile("/ab");
    void* other = regex_compile("/x/");
    EXPECT_EQ(regex_compile("/abc/"), shorter);
    EXPECT_NE(regex_compile("/xb/"), other);
}

TEST_F(RegexCache, InvalidNotationWhoseBeginningIsCachedSucceeds) {
    EXPECT_EQ(regex_compile("/a/g"), nullptr);
    void* handle = regex_compile("/a/");
    EXPECT_EQ(regex_compile("/a/g"), handle);
}

TEST_F(RegexCache, LoneSlashCapturesAllLaterSlashPatterns) {
    void* handle = regex_compile("/");
    EXPECT_EQ(regex_compile("/abc/"), handle);
    EXPECT_EQ(regex_compile("/^x$/i"), handle);
    EXPECT_NE(regex_compile("#abc#"), handle);
    EXPECT_TRUE(matches(handle, ""));
}

TEST_F(RegexCache, EntryLongerThanTheRequestIsNotReadPastTheRequest) {
    regex_compile("/abcdefghijklmnopqrstuvwxyz/");
    const std::unique_ptr<char[]> exact(new char[3]{'/', 'a', '\0'});
    void* handle = regex_compile(exact.get());
    EXPECT_STREQ(entry_of(handle).text, "/a");
}

TEST_F(RegexCache, ChangedTextAtTheSameAddressIsLookedUpAnew) {
    char text[16] = "/a/";
    void* a = regex_compile(text);
    EXPECT_EQ(regex_compile(text), a);
    std::strcpy(text, "/b/");
    void* b = regex_compile(text);
    EXPECT_NE(b, a);
    std::strcpy(text, "/a/i");
    EXPECT_EQ(regex_compile(text), a);
    std::strcpy(text, "/a");
    EXPECT_NE(regex_compile(text), a);
}

TEST_F(RegexCache, NewerLeadingPartWinsOverATextFoundBefore) {
    const char* text = "/abc/";
    void* whole = regex_compile(text);
    EXPECT_EQ(regex_compile(text), whole);
    void* part = regex_compile("/ab");
    EXPECT_EQ(regex_compile(text), part);
    EXPECT_TRUE(regex_remove(part));  // the reference just added
    EXPECT_TRUE(regex_remove(part));
    EXPECT_EQ(regex_compile(text), whole);
}

TEST_F(RegexCache, TextFoundBeforeIsForgottenWhenItsEntryIsRemoved) {
    const char* text = "/abc/";
    ASSERT_NE(regex_compile(text), nullptr);
    ASSERT_NE(regex_compile(text), nullptr);
    EXPECT_TRUE(regex_remove(text));
    EXPECT_TRUE(regex_remove(text));
    EXPECT_FALSE(regex_remove(text));
    EXPECT_EQ(entry_of(regex_compile(text)).references, 1);
}

TEST_F(RegexCache, ReferencesStopAtTheLargestNumber) {
    void* handle = regex_compile("/a/");
    entry_of(handle).references = std::numeric_limits<std::int32_t>::max() - 1;
    regex_compile("/a/");
    regex_compile("/a/");
    EXPECT_EQ(entry_of(handle).references, std::numeric_limits<std::int32_t>::max());
    entry_of(handle).references = 1;
}

TEST_F(RegexCache, HundredsOfPatternsAreAllFound) {
    std::vector<void*> handles;
    for (int i = 0; i < 300; ++i) {
        handles.push_back(regex_compile(("/x" + std::to_string(i) + "y/").c_str()));
    }
    for (int i = 0; i < 300; ++i) {
        const auto k = static_cast<std::size_t>(i);
        EXPECT_EQ(regex_compile(("/x" + std::to_string(i) + "y/").c_str()), handles[k]);
        EXPECT_TRUE(regex_check(handles[k]));
        EXPECT_TRUE(matches(handles[k], "x" + std::to_string(i) + "y"));
    }
    EXPECT_EQ(texts_from(handles.back()).size(), 300u);
}

// --- removing --------------------------------------------------------------------------------------------------------

TEST_F(RegexCache, RemoveTakesOneReferenceAtATime) {
    void* handle = regex_compile("/a/");
    regex_compile("/a/");
    EXPECT_TRUE(regex_remove(handle));
    EXPECT_EQ(entry_of(handle).references, 1);
    EXPECT_TRUE(regex_check(handle));
    EXPECT_TRUE(regex_remove(handle));
    EXPECT_FALSE(regex_check(handle));
}

TEST_F(RegexCache, RemoveWithoutReferencesReleasesAtOnce) {
    void* handle = regex_compile("/a/");
    entry_of(handle).references = 0;
    EXPECT_TRUE(regex_remove(handle));
    EXPECT_FALSE(regex_check(handle));
}

TEST_F(RegexCache, RemoveByTextTakesTheNewestLeadingPart) {
    void* longer = regex_compile("/ab/i");
    void* shorter = regex_compile("/ab/");
    EXPECT_TRUE(regex_remove("/ab/i"));
    EXPECT_FALSE(regex_check(shorter));
    EXPECT_TRUE(regex_check(longer));
}

TEST_F(RegexCache, RemoveFindsNothing) {
    regex_compile("/a/");
    EXPECT_FALSE(regex_remove(nullptr));
    EXPECT_FALSE(regex_remove(""));
    EXPECT_FALSE(regex_remove("/b/"));
    EXPECT_FALSE(regex_remove("/a"));
}

TEST_F(RegexCache, RemovingAMiddleEntryLinksItsNeighbours) {
    void* a = regex_compile("/a/");
    void* b = regex_compile("/b/");
    void* c = regex_compile("/c/");
    EXPECT_TRUE(regex_remove(b));
    EXPECT_EQ(texts_from(c), (Texts{"/c/", "/a/"}));
    EXPECT_EQ(entry_of(a).newer, &entry_of(c));
}

TEST_F(RegexCache, RemovingTheOldestEntryEndsTheListAtItsNeighbour) {
    void* a = regex_compile("/a/");
    void* b = regex_compile("/b/");
    EXPECT_TRUE(regex_remove(a));
    EXPECT_EQ(texts_from(b), (Texts{"/b/"}));
}

TEST_F(RegexCache, RemovingTheNewestEntryMovesTheHeadToItsOlderNeighbour) {
    void* a = regex_compile("/a/");
    void* b = regex_compile("/b/");
    EXPECT_TRUE(regex_remove(b));
    EXPECT_EQ(entry_of(a).newer, nullptr);
    EXPECT_EQ(regex_compile("/a/"), a);
    void* c = regex_compile("/c/");
    EXPECT_EQ(texts_from(c), (Texts{"/c/", "/a/"}));
}

TEST_F(RegexCache, RemovingTheOnlyEntryLeavesAWorkingCache) {
    EXPECT_TRUE(regex_remove(regex_compile("/a/")));
    EXPECT_FALSE(regex_remove("/a/"));
    EXPECT_EQ(texts_from(regex_compile("/b/")), (Texts{"/b/"}));
}

TEST_F(RegexCache, ManyRemovalsKeepTheOtherHandlesKnown) {
    std::vector<void*> handles;
    for (int i = 0; i < 200; ++i) {
        handles.push_back(regex_compile(("/" + std::to_string(i) + "z/").c_str()));
    }
    for (std::size_t i = 0; i < handles.size(); i += 2) {
        EXPECT_TRUE(regex_remove(handles[i]));
    }
    for (std::size_t i = 0; i < handles.size(); ++i) {
        EXPECT_EQ(regex_check(handles[i]), i % 2 == 1) << i;
    }
    EXPECT_EQ(texts_from(handles.back()).size(), 100u);
}

// --- checking --------------------------------------------------------------------------------------------------------

TEST_F(RegexCache, CheckAcceptsHandlesOnly) {
    void* handle = regex_compile("/a/");
    EXPECT_TRUE(regex_check(handle));
    EXPECT_FALSE(regex_check(nullptr));
    EXPECT_FALSE(regex_check("/a/"));
    EXPECT_FALSE(regex_check(""));
    EXPECT_FALSE(regex_check(static_cast<char*>(handle) + 4));
}

TEST_F(RegexCache, CheckReadsNothing) {
    const std::unique_ptr<char[]> one_byte(new char[1]{'\0'});
    EXPECT_FALSE(regex_check(one_byte.get()));
    EXPECT_FALSE(regex_check(reinterpret_cast<const void*>(std::uintptr_t{8})));
}

TEST_F(RegexCache, ImitationOfAHandleIsNone) {
    EntryView imitation = entry_of(regex_compile("/a/"));
    EXPECT_FALSE(regex_check(&imitation));
    EXPECT_EQ(regex_compile(reinterpret_cast<const char*>(&imitation)), nullptr);
}

TEST_F(RegexCache, StaleHandlesAreHarmless) {
    void* removed = regex_compile("/a/");
    regex_remove(removed);
    EXPECT_FALSE(regex_check(removed));
    EXPECT_FALSE(matches(removed, "a"));
    void* cleaned = regex_compile("/b/");
    regex_cleanup();
    EXPECT_FALSE(regex_check(cleaned));
    EXPECT_FALSE(matches(cleaned, "b"));
}

// --- cleaning up -----------------------------------------------------------------------------------------------------

TEST_F(RegexCache, CleanupReleasesEverythingWhateverItsReferences) {
    regex_compile("/a/");
    regex_compile("/a/");
    regex_compile("/b/");
    regex_cleanup();
    EXPECT_FALSE(regex_remove("/a/"));
    EXPECT_FALSE(regex_remove("/b/"));
}

TEST_F(RegexCache, CacheStartsAnewAfterCleanup) {
    regex_compile("/a/");
    regex_cleanup();
    regex_cleanup();
    void* handle = regex_compile("/a/i");
    EXPECT_TRUE(matches(handle, "A"));
    EXPECT_EQ(texts_from(handle), (Texts{"/a/i"}));
}

}  // namespace
}  // namespace orvil::test
