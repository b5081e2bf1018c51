// Copying records between sets.
#include <gtest/gtest.h>

#include "orvil/params/typed_records.h"
#include "params/record_support.h"

namespace orvil::test {
namespace {

// width, height and title, in that order.
struct Source : RecordSet {
    Source() { with("width", 420).with("height", 297.5).with("title", "Plan"); }
};

TEST(RecordCopy, ReplacesAllRecordsInTheOrderOfCreation) {
    Source src;
    RecordSet dst;
    dst.with("old", 1).with("title", 2);
    EXPECT_EQ(0, vpr_copy(dst, src));
    EXPECT_EQ("width=i420 height=d297.5 title=sPlan", show(dst));
    EXPECT_EQ("height=d297.5 title=sPlan width=i420", show(dst, 1));
    EXPECT_EQ("width=i420 height=d297.5 title=sPlan", show(src));
}

TEST(RecordCopy, CopiesTheStringsThemselves) {
    Source src;
    RecordSet dst;
    EXPECT_EQ(0, vpr_copy(dst, src));
    EXPECT_NE(vpr_ref_str(dst, "title"), vpr_ref_str(src, "title"));
    vpr_clear(src);
    EXPECT_STREQ("Plan", vpr_ref_str(dst, "title"));
}

TEST(RecordCopy, NullSetsGiveFourAndFive) {
    Source set;
    EXPECT_EQ(4, vpr_copy(nullptr, set));
    EXPECT_EQ(4, vpr_copy(nullptr, nullptr));
    EXPECT_EQ(5, vpr_copy(set, nullptr));
    EXPECT_EQ(3, vpr_count(set));
}

TEST(RecordCopy, OntoItselfLeavesAnEmptySet) {
    Source set;
    EXPECT_EQ(0, vpr_copy(set, set));
    EXPECT_EQ(0, vpr_count(set));
}

TEST(RecordCopy, OfAnEmptySetEmpties) {
    Source dst;
    RecordSet src;
    EXPECT_EQ(0, vpr_copy(dst, src));
    EXPECT_EQ("", show(dst));
}

TEST(RecordMaskedCopy, CopiesTheNamedRecordsInTheOrderOfTheMask) {
    Source src;
    RecordSet dst;
    dst.with("old", 1);
    EXPECT_EQ(0, vpr_masked_copy(dst, src, "title;zz;width", ';'));
    EXPECT_EQ("title=sPlan width=i420", show(dst));
}

struct MaskRow {
    const char* mask;
    char separator;
    const char* expected;
};

TEST(RecordMaskedCopy, PiecesAreWhatStandsBetweenTheSeparators) {
    const MaskRow rows[] = {{"", ';', ""},
                            {";;;", ';', ""},
                            {";width;;title;", ';', "width=i420 title=sPlan"},
                            {"width", ';', "width=i420"},
                            {"width;height", ',', ""},
                            {"width,height", ',', "width=i420 height=d297.5"},
                            {"width; height", ';', "width=i420"},
                            {"Width;HEIGHT", ';', ""},
                            {"heightewidth", 'e', "width=i420"},
                            {"width\xFFtitle", '\xFF', "width=i420 title=sPlan"}};
    for (const MaskRow& row : rows) {
        Source src;
        RecordSet dst;
        dst.with("old", 1);
        EXPECT_EQ(0, vpr_masked_copy(dst, src, row.mask, row.separator)) << row.mask;
        EXPECT_EQ(row.expected, show(dst)) << row.mask;
    }
}

TEST(RecordMaskedCopy, WithoutMaskOrSeparatorCopiesEverything) {
    Source src;
    RecordSet dst;
    EXPECT_EQ(0, vpr_masked_copy(dst, src, nullptr, ';'));
    EXPECT_EQ(3, vpr_count(dst));
    vpr_clear(dst);
    EXPECT_EQ(0, vpr_masked_copy(dst, src, "width", '\0'));
    EXPECT_EQ(3, vpr_count(dst));
}

TEST(RecordMaskedCopy, NameThatStandsTwiceGivesOneAndKeepsTheCopiesMadeSoFar) {
    Source src;
    RecordSet dst;
    EXPECT_EQ(1, vpr_masked_copy(dst, src, "title;width;title;height", ';'));
    EXPECT_EQ("title=sPlan width=i420", show(dst));
    EXPECT_EQ(2, adl_count(&dst.set.records));
    EXPECT_EQ(2, vpr_count(dst));
}

TEST(RecordMaskedCopy, MaskMayLieInARecordOfTheDestination) {
    Source src;
    RecordSet dst;
    dst.with("mask", "height;title");
    EXPECT_EQ(0, vpr_masked_copy(dst, src, vpr_ref_str(dst, "mask"), ';'));
    EXPECT_EQ("height=d297.5 title=sPlan", show(dst));
}

TEST(RecordMaskedCopy, MaskIsLeftAsItIs) {
    Source src;
    RecordSet dst;
    char mask[] = "width;title";
    EXPECT_EQ(0, vpr_masked_copy(dst, src, mask, ';'));
    EXPECT_STREQ("width;title", mask);
}

TEST(RecordMaskedCopy, NullSetsGiveFourAndFive) {
    Source set;
    for (const char* mask : {static_cast<const char*>(nullptr), "width"}) {
        EXPECT_EQ(4, vpr_masked_copy(nullptr, set, mask, ';'));
        EXPECT_EQ(4, vpr_masked_copy(nullptr, nullptr, mask, ';'));
        EXPECT_EQ(5, vpr_masked_copy(set, nullptr, mask, ';'));
    }
    EXPECT_EQ(3, vpr_count(set));
}

TEST(RecordMaskedCopy, OntoItselfLeavesAnEmptySet) {
    Source set;
    EXPECT_EQ(0, vpr_masked_copy(set, set, "width;title", ';'));
    EXPECT_EQ(0, vpr_count(set));
}

TEST(RecordUpdate, ReplacesRecordsOfTheSameNameAndMovesThemToTheEnd) {
    Source src;
    RecordSet dst;
    dst.with("title", 1).with("own", 2).with("width", "wide").with("last", 3);
    EXPECT_EQ(0, vpr_update(dst, src));
    EXPECT_EQ("own=i2 last=i3 width=i420 height=d297.5 title=sPlan", show(dst));
    EXPECT_EQ(5, vpr_count(dst));
}

TEST(RecordUpdate, FromItselfChangesNothing) {
    Source set;
    EXPECT_EQ(0, vpr_update(set, set));
    EXPECT_EQ("width=i420 height=d297.5 title=sPlan", show(set));
}

TEST(RecordUpdate, NullSetsGiveFourAndFive) {
    Source set;
    EXPECT_EQ(4, vpr_update(nullptr, set));
    EXPECT_EQ(4, vpr_update(nullptr, nullptr));
    EXPECT_EQ(5, vpr_update(set, nullptr));
    EXPECT_EQ(3, vpr_count(set));
}

TEST(RecordUpdate, TakesNothingFromAnEmptySet) {
    Source dst;
    RecordSet src;
    EXPECT_EQ(0, vpr_update(dst, src));
    EXPECT_EQ(3, vpr_count(dst));
}

}  // namespace
}  // namespace orvil::test
