// The heap's ways that a healthy system seldom takes: a host process runs the library on a private heap that can be
// refused, and prints every call that reaches it in brackets. Blocks are large here, since small ones share a large
// one.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/child_process.h"

namespace {

std::string run_host(const char* value, const std::vector<std::string>& actions) {
    std::vector<std::string> all = {"load"};
    all.insert(all.end(), actions.begin(), actions.end());
    const auto result = orvil::test::run_child("runtime_seam_host", all, {{"KESA_HEAPINFO_ORV", value}});
    EXPECT_EQ(result.exit_code, 0) << result.output;
    return result.output;
}

}  // namespace

TEST(HeapInitialisation, HappensAtTheFirstAllocationAtTheLatest) {
    EXPECT_EQ(run_host(nullptr, {"type", "handle", "alloc:5000", "handle", "free"}),
              "type=0x4\nhandle=null\n[heap made]\n[policy]\n[take]\nalloc=zeros\nhandle=heap\n[give back]\n");
}

TEST(HeapInitialisation, HappensOnce) {
    EXPECT_EQ(run_host(nullptr, {"init", "init", "alloc:5000", "free"}),
              "[heap made]\n[policy]\ninit=0x1\ninit=0x1\n[take]\nalloc=zeros\n[give back]\n");
}

TEST(HeapInitialisation, ModeThreeAsksForNoPolicy) {
    EXPECT_EQ(run_host("3", {"init", "lfh"}), "[heap made]\ninit=0x1\nlfh=0x0\n");
    EXPECT_EQ(run_host("4", {"init", "lfh"}), "[heap made]\n[policy]\ninit=0x1\nlfh=0x2\n");
}

TEST(HeapInitialisation, TheRuntimeHeapIsMadeOfNothing) {
    EXPECT_EQ(run_host("1", {"init", "alloc:5000", "realloc:9000", "free", "term"}),
              "init=0x1\nalloc=zeros\nrealloc=kept\nterm=0xFFFFFFFE\n");
    EXPECT_EQ(run_host("2", {"init", "term"}), "init=0x1\nterm=0xFFFFFFFF\n");
}

TEST(HeapInitialisation, AReallocationMakesTheHeapReadyToo) {
    EXPECT_EQ(run_host("2", {"realloc:8", "type", "free"}), "realloc=kept\ntype=0x2\n");
    EXPECT_EQ(run_host("3", {"realloc:5000", "handle", "free"}),
              "[heap made]\n[take]\nrealloc=keptzeros\nhandle=heap\n[give back]\n");
}

TEST(HeapBlocks, LargeOnesGrowInTheHeap) {
    EXPECT_EQ(run_host("4", {"alloc:5000", "realloc:90000", "realloc:10", "free"}),
              "[heap made]\n[policy]\n[take]\nalloc=zeros\n[change]\nrealloc=keptzeros\nrealloc=kept\n[give back]\n");
}

TEST(HeapFallback, OnlyAllocationFallsBack) {
    EXPECT_EQ(run_host(nullptr, {"refuse:3", "init", "type", "init", "type", "alloc:5000", "type", "handle", "free"}),
              "[no heap]\ninit=0x0\ntype=0x4\n[no heap]\ninit=0x0\ntype=0x4\n[no heap]\n"
              "alloc=zeros\ntype=0x2\nhandle=null\n");
}

TEST(HeapFallback, ALaterInitialisationTriesAgain) {
    EXPECT_EQ(run_host(nullptr, {"refuse:1", "init", "init", "type", "handle"}),
              "[no heap]\ninit=0x0\n[heap made]\n[policy]\ninit=0x1\ntype=0x4\nhandle=heap\n");
}

TEST(HeapFallback, IsFinal) {
    EXPECT_EQ(run_host(nullptr, {"refuse:1", "alloc:5000", "free", "init", "type", "term", "alloc:5000", "free"}),
              "[no heap]\nalloc=zeros\ninit=0x1\ntype=0x2\nterm=0xFFFFFFFF\nalloc=zeros\n");
}

TEST(HeapFallback, ADemandedHeapIsTriedTwiceForEachAllocation) {
    EXPECT_EQ(run_host("3", {"refuse:4", "alloc:5000", "type", "alloc:5000", "init", "alloc:5000", "free"}),
              "[no heap]\n[no heap]\nalloc=null\ntype=0x3\n[no heap]\n[no heap]\nalloc=null\n"
              "[heap made]\ninit=0x1\n[take]\nalloc=zeros\n[give back]\n");
}

TEST(HeapFallback, ADemandedHeapMayComeAtTheSecondTry) {
    EXPECT_EQ(run_host("4", {"refuse:1", "alloc:5000", "type", "free"}),
              "[no heap]\n[heap made]\n[policy]\n[take]\nalloc=zeros\ntype=0x4\n[give back]\n");
}

TEST(HeapFallback, WithoutAHeapReallocationYieldsNull) {
    EXPECT_EQ(run_host("3", {"refuse:2", "realloc:8", "largest"}), "[no heap]\n[no heap]\nrealloc=null\nlargest=8\n");
}

TEST(HeapFallback, TheLargestRequestRisesEvenWhenNothingIsGranted) {
    EXPECT_EQ(run_host("3", {"refuse:2", "alloc:77", "largest"}), "[no heap]\n[no heap]\nalloc=null\nlargest=77\n");
}

TEST(HeapTermination, TheHeapGoesWithItsBlocksAndNoSecondIsMade) {
    EXPECT_EQ(
        run_host("4", {"alloc:5000", "term", "handle", "lfh", "free", "alloc:5000", "realloc:9000", "init", "term"}),
        "[heap made]\n[policy]\n[take]\nalloc=zeros\n[heap gone]\nterm=0x1\nhandle=null\nlfh=0xFFFFFFFF\n"
        "alloc=null\nrealloc=null\ninit=0x1\nterm=0x1\n");
}

TEST(HeapTermination, RepeatedInModeThreeItGivesZero) {
    EXPECT_EQ(run_host("3", {"init", "term", "term"}), "[heap made]\ninit=0x1\n[heap gone]\nterm=0x1\nterm=0x0\n");
}

TEST(HeapTermination, TheSystemsAnswerIsHandedOn) {
    EXPECT_EQ(run_host("3", {"init", "refuse-destruction", "term", "handle"}),
              "[heap made]\ninit=0x1\n[heap gone]\nterm=0x0\nhandle=null\n");
}

TEST(HeapTermination, BeforeAnyHeapItGivesTheModeMinusThree) {
    EXPECT_EQ(run_host(nullptr, {"term", "type"}), "term=0x1\ntype=0x4\n");
}

TEST(HeapTermination, NewStringsAreEmptyAfterwards) {
    EXPECT_EQ(run_host("4", {"string", "term", "string"}),
              "[heap made]\n[policy]\n[take]\nstring=abc,3\n[heap gone]\nterm=0x1\nstring=,0\n");
}

TEST(LibraryEntry, AttachAndDetachTakeTheirSteps) {
    EXPECT_EQ(run_host("4", {"attach", "handle", "detach", "handle"}),
              "[ORVIL.DLL Initialize ... \\r\\n]\n[heap made]\n[policy]\nhandle=heap\n"
              "[patterns dropped]\n[heap gone]\n[ORVIL.DLL Terminate ... \\r\\n]\nhandle=null\n");
}

TEST(LibraryEntry, AFailedInitialisationAtAttachIsIgnored) {
    EXPECT_EQ(run_host(nullptr, {"refuse:2", "attach", "type", "alloc:5000", "type", "free", "detach"}),
              "[ORVIL.DLL Initialize ... \\r\\n]\n[no heap]\ntype=0x4\n[no heap]\nalloc=zeros\ntype=0x2\n"
              "[patterns dropped]\n[ORVIL.DLL Terminate ... \\r\\n]\n");
}

TEST(LibraryEntry, DetachAfterTerminationDestroysNothing) {
    EXPECT_EQ(run_host("4", {"attach", "term", "detach"}),
              "[ORVIL.DLL Initialize ... \\r\\n]\n[heap made]\n[policy]\n[heap gone]\nterm=0x1\n"
              "[patterns dropped]\n[ORVIL.DLL Terminate ... \\r\\n]\n");
}
