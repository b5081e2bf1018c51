#include "orvil/messages/message_map.h"

#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <string>

#include "messages/message_support.h"

namespace orvil::test {
namespace {

// --- classes of codes -----------------------------------------------------------------------------------------------

struct CodeClasses {
    int code;
    bool message, resource, error;
};

TEST(MessageCode, BelongsToTheClassesOfItsRange) {
    for (const CodeClasses& expected :
         {CodeClasses{INT_MIN, false, false, false}, CodeClasses{-1, false, false, false},
          CodeClasses{0, true, true, false}, CodeClasses{999, true, true, false}, CodeClasses{1000, true, false, true},
          CodeClasses{9999, true, false, true}, CodeClasses{10000, false, false, false},
          CodeClasses{INT_MAX, false, false, false}}) {
        EXPECT_EQ(CMessageMap::IsMsgCode(expected.code), expected.message) << expected.code;
        EXPECT_EQ(CMessageMap::IsResourceCode(expected.code), expected.resource) << expected.code;
        EXPECT_EQ(CMessageMap::IsErrorCode(expected.code), expected.error) << expected.code;
    }
}

// --- the subject ----------------------------------------------------------------------------------------------------

TEST(MessageMapSubject, NewMapHasCodeZeroAndAnEmptyTitle) {
    const CMessageMap map;
    EXPECT_EQ(map.GetSubjectKeyCode(), 0);
    EXPECT_STREQ(map.GetSubjectKeyText(), "");
}

TEST(MessageMapSubject, HoldsAnyCodeAndTitle) {
    CMessageMap map;
    for (int code : {INT_MIN, -1, 0, 3, INT_MAX}) {
        EXPECT_TRUE(map.SetupSubjectKey(code, "Title"));
        EXPECT_EQ(map.GetSubjectKeyCode(), code);
        EXPECT_STREQ(map.GetSubjectKeyText(), "Title");
    }
}

TEST(MessageMapSubject, RefusesNullAndEmptyTitlesAndKeepsTheOldSubject) {
    CMessageMap map;
    map.SetupSubjectKey(2, "Old");
    EXPECT_FALSE(map.SetupSubjectKey(3, ""));
    EXPECT_FALSE(map.SetupSubjectKey(3, nullptr));
    EXPECT_EQ(show(map), "2 Old:");
}

TEST(MessageMapSubject, TitleMayBeTheMapsOwnText) {
    CMessageMap map;
    map.SetupSubjectKey(2, "Old");
    EXPECT_TRUE(map.SetupSubjectKey(3, map.GetSubjectKeyText() + 1));
    EXPECT_STREQ(map.GetSubjectKeyText(), "ld");
}

// --- adding ---------------------------------------------------------------------------------------------------------

TEST(MessageMapAdd, KeepsTheOrderOfAdding) {
    CMessageMap map;
    EXPECT_TRUE(map.AddItem(30, "c"));
    EXPECT_TRUE(map.AddItem(4, "a"));
    EXPECT_TRUE(map.AddItem(9999, "z"));
    EXPECT_TRUE(map.AddItem(0, "zero"));
    EXPECT_EQ(show(map), "0 : 30=c 4=a 9999=z 0=zero");
}

TEST(MessageMapAdd, RefusesCodesOutsideTheRangeAndMissingTexts) {
    CMessageMap map;
    EXPECT_FALSE(map.AddItem(10000, "x"));
    EXPECT_FALSE(map.AddItem(-1, "x"));
    EXPECT_FALSE(map.AddItem(INT_MIN, "x"));
    EXPECT_FALSE(map.AddItem(5, ""));
    EXPECT_FALSE(map.AddItem(5, nullptr));
    EXPECT_EQ(map.GetItemCount(), 0);
    EXPECT_EQ(map.SearchItemText(5), nullptr);
}

TEST(MessageMapAdd, LastOfACodeWinsAndTheOthersStay) {
    CMessageMap map;
    map.AddItem(7, "a");
    map.AddItem(7, "b");
    EXPECT_EQ(map.GetItemCount(), 2);
    EXPECT_STREQ(map.SearchItemText(7), "b");
    EXPECT_STREQ(map.GetItemText(0), "a");
    EXPECT_EQ(codes_of(map), "[7][7]");
}

TEST(MessageMapAdd, TextMayBeTheMapsOwn) {
    CMessageMap map;
    map.SetupSubjectKey(1, "Title");
    map.AddItem(1, "one");
    EXPECT_TRUE(map.AddItem(2, map.GetItemText(0)));
    EXPECT_TRUE(map.AddItem(1, map.SearchItemText(1)));
    EXPECT_TRUE(map.AddItem(3, map.GetSubjectKeyText()));
    EXPECT_EQ(show(map), "1 Title: 1=one 2=one 1=one 3=Title");
}

TEST(MessageMapAdd, TextsStayWhereTheyAreWhileOthersComeAndGo) {
    CMessageMap map;
    map.AddItem(1, "one");
    map.AddItem(2, "two");
    const char* text = map.GetItemText(0);
    for (int code = 3; code < 1000; ++code) {
        map.AddItem(code, "other");
    }
    map.DeleteItem(2);
    EXPECT_EQ(map.GetItemText(0), text);
    EXPECT_STREQ(text, "one");
}

TEST(MessageMapAdd, TextsKeepEveryByte) {
    CMessageMap map;
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    map.AddItem(1, bytes.c_str());
    EXPECT_EQ(map.SearchItemText(1), bytes);
}

// --- reading --------------------------------------------------------------------------------------------------------

TEST(MessageMapRead, PositionsOutsideTheMapHaveNeitherCodeNorText) {
    MapProbe map;
    for (int position : {INT_MIN, -1, 0, 1, INT_MAX}) {
        EXPECT_EQ(map.GetItemCode(position), -1);
        EXPECT_EQ(map.GetItemText(position), nullptr);
        EXPECT_EQ(map.GetItem(position), nullptr);
    }
    map.AddItem(5, "five");
    EXPECT_EQ(map.GetItemCode(1), -1);
    EXPECT_EQ(map.GetItemText(1), nullptr);
    EXPECT_EQ(map.GetItem(1), nullptr);
}

TEST(MessageMapRead, SearchFindsOnlyCodesThatAreThere) {
    MapProbe map;
    map.AddItem(5, "five");
    map.AddItem(6, "six");
    EXPECT_EQ(map.SearchIndex(6), 1);
    EXPECT_EQ(map.SearchIndex(7), -1);
    EXPECT_EQ(map.SearchIndex(-1), -1);
    EXPECT_STREQ(map.SearchItemText(6), "six");
    EXPECT_EQ(map.SearchItemText(7), nullptr);
    EXPECT_EQ(map.SearchItemText(INT_MIN), nullptr);
}

TEST(MessageMapRead, ItemsWithoutATextAreReadAsEmptyTexts) {
    MapProbe map;
    map.AddItem(5, "five");
    map.GetItem(0)->text.Empty();
    EXPECT_STREQ(map.GetItemText(0), "");
    EXPECT_STREQ(map.SearchItemText(5), "");
}

TEST(MessageMapRead, CodeArrayIsEmptiedFirstAndListsEveryItem) {
    CMessageMap map;
    CExtStrArray codes;
    codes.Add("old");
    EXPECT_TRUE(map.MakeCodeArray(codes));
    EXPECT_EQ(codes.GetSize(), 0);
    for (int code : {30, 0, 9999, 30}) {
        map.AddItem(code, "x");
    }
    map.DeleteItem(0);
    EXPECT_TRUE(map.MakeCodeArray(codes));
    EXPECT_EQ(show(codes), "[30][9999][30]");
}

// --- deleting -------------------------------------------------------------------------------------------------------

TEST(MessageMapDelete, LeavesAHoleAndMovesNothing) {
    MapProbe map = numbered_map(3);
    EXPECT_TRUE(map.DeleteItem(1));
    EXPECT_EQ(show(map), "0 : 0=t0 ~ 2=t2");
    EXPECT_EQ(map.GetItemCount(), 3);
    EXPECT_EQ(map.GetItemCode(1), -1);
    EXPECT_EQ(map.GetItemText(1), nullptr);
    EXPECT_EQ(map.SearchIndex(2), 2);
}

TEST(MessageMapDelete, CodesThatLeadNowhereAreRefused) {
    CMessageMap map;
    map.AddItem(1, "one");
    EXPECT_FALSE(map.DeleteItem(2));
    EXPECT_FALSE(map.DeleteItem(-1));
    EXPECT_TRUE(map.DeleteItem(1));
    EXPECT_FALSE(map.DeleteItem(1));
    EXPECT_EQ(map.GetItemCount(), 1);
}

TEST(MessageMapDelete, OlderItemsOfTheCodeStayOutOfReach) {
    CMessageMap map;
    map.AddItem(7, "a");
    map.AddItem(7, "b");
    EXPECT_TRUE(map.DeleteItem(7));
    EXPECT_EQ(map.SearchItemText(7), nullptr);
    EXPECT_FALSE(map.DeleteItem(7));
    EXPECT_EQ(show(map), "0 : 7=a ~");
}

TEST(MessageMapDelete, HolesAreNotFilledAgain) {
    CMessageMap map;
    map.AddItem(1, "one");
    map.DeleteItem(1);
    EXPECT_TRUE(map.AddItem(1, "uno"));
    EXPECT_EQ(show(map), "0 : ~ 1=uno");
}

TEST(MessageMapDelete, AllItemsGoAndTheSubjectStays) {
    CMessageMap map = numbered_map(300);
    map.SetupSubjectKey(3, "Subject");
    EXPECT_TRUE(map.DeleteAllItems());
    EXPECT_EQ(show(map), "3 Subject:");
    EXPECT_EQ(map.SearchItemText(7), nullptr);
    EXPECT_TRUE(map.DeleteAllItems());
    map.AddItem(4, "four");
    EXPECT_EQ(show(map), "3 Subject: 4=four");
}

TEST(MessageMapDelete, PositionBeyondTheItemsIsReachedByGrowing) {
    MapProbe map;
    map.AddItem(1, "one");
    map.index_.SetAt(5, 3);
    EXPECT_EQ(map.SearchItemText(5), nullptr);
    EXPECT_FALSE(map.ReplaceItem(5, 6, "x"));
    EXPECT_TRUE(map.DeleteItem(5));
    EXPECT_EQ(show(map), "0 : 1=one ~ ~ ~");
    EXPECT_EQ(map.SearchIndex(5), -1);
}

TEST(MessageMapDelete, PositionThatCannotBeReachedOnlyLosesItsCode) {
    MapProbe map;
    map.AddItem(1, "one");
    map.index_.SetAt(5, INT_MAX);
    EXPECT_TRUE(map.DeleteItem(5));
    EXPECT_EQ(show(map), "0 : 1=one");
    EXPECT_EQ(map.SearchIndex(5), -1);
}

TEST(MessageMapDelete, NegativePositionIsRefused) {
    MapProbe map;
    map.index_.SetAt(5, -2);
    EXPECT_EQ(map.SearchItemText(5), nullptr);
    EXPECT_FALSE(map.DeleteItem(5));
    EXPECT_EQ(map.SearchIndex(5), -2);
}

// --- replacing ------------------------------------------------------------------------------------------------------

TEST(MessageMapReplace, SameCodeChangesTheTextOnly) {
    CMessageMap map = numbered_map(3);
    EXPECT_TRUE(map.ReplaceItem(1, 1, "new"));
    EXPECT_EQ(show(map), "0 : 0=t0 1=new 2=t2");
    EXPECT_STREQ(map.SearchItemText(1), "new");
}

TEST(MessageMapReplace, OtherCodeTakesThePositionOver) {
    CMessageMap map = numbered_map(3);
    EXPECT_TRUE(map.ReplaceItem(1, 9, "new"));
    EXPECT_EQ(show(map), "0 : 0=t0 9=new 2=t2");
    EXPECT_EQ(map.SearchItemText(1), nullptr);
    EXPECT_STREQ(map.SearchItemText(9), "new");
}

TEST(MessageMapReplace, FormerItemOfTheNewCodeStaysOutOfReach) {
    MapProbe map = numbered_map(3);
    EXPECT_TRUE(map.ReplaceItem(0, 2, "new"));
    EXPECT_EQ(show(map), "0 : 2=new 1=t1 2=t2");
    EXPECT_EQ(map.SearchIndex(2), 0);
    EXPECT_EQ(map.SearchIndex(0), -1);
    EXPECT_TRUE(map.DeleteItem(2));
    EXPECT_EQ(show(map), "0 : ~ 1=t1 2=t2");
}

TEST(MessageMapReplace, RefusesCodesOutsideTheRangeMissingTextsAndUnknownCodes) {
    CMessageMap map = numbered_map(2);
    EXPECT_FALSE(map.ReplaceItem(-1, 1, "x"));
    EXPECT_FALSE(map.ReplaceItem(10000, 1, "x"));
    EXPECT_FALSE(map.ReplaceItem(1, -1, "x"));
    EXPECT_FALSE(map.ReplaceItem(1, 10000, "x"));
    EXPECT_FALSE(map.ReplaceItem(1, 1, ""));
    EXPECT_FALSE(map.ReplaceItem(1, 1, nullptr));
    EXPECT_FALSE(map.ReplaceItem(2, 3, "x"));
    EXPECT_EQ(show(map), "0 : 0=t0 1=t1");
    EXPECT_STREQ(map.SearchItemText(1), "t1");
}

TEST(MessageMapReplace, CodeThatLeadsToAHoleIsRefused) {
    MapProbe map = numbered_map(2);
    map.DeleteItem(1);
    map.index_.SetAt(1, 1);
    EXPECT_FALSE(map.ReplaceItem(1, 3, "x"));
    EXPECT_EQ(map.SearchIndex(1), 1);
    EXPECT_EQ(map.SearchIndex(3), -1);
}

TEST(MessageMapReplace, CodeBeyondTheRangeIsRefusedWhereverItLeads) {
    MapProbe map = numbered_map(2);
    map.index_.SetAt(20000, 1);
    EXPECT_FALSE(map.ReplaceItem(20000, 3, "x"));
    EXPECT_EQ(show(map), "0 : 0=t0 1=t1");
}

TEST(MessageMapReplace, TextMayBeTheMapsOwn) {
    CMessageMap map = numbered_map(3);
    EXPECT_TRUE(map.ReplaceItem(1, 1, map.SearchItemText(1)));
    EXPECT_TRUE(map.ReplaceItem(0, 5, map.SearchItemText(0) + 1));
    EXPECT_TRUE(map.ReplaceItem(2, 1, map.SearchItemText(1)));
    EXPECT_EQ(show(map), "0 : 5=0 1=t1 1=t1");
}

// --- copying --------------------------------------------------------------------------------------------------------

TEST(MessageMapCopy, TakesSubjectAndItemsAndClosesHoles) {
    MapProbe map = numbered_map(3);
    map.SetupSubjectKey(-4, "Subject");
    map.DeleteItem(1);
    const CMessageMap copy(map);
    EXPECT_EQ(show(copy), "-4 Subject: 0=t0 2=t2");
    EXPECT_EQ(copy.GetItemCount(), 2);
    EXPECT_STREQ(copy.SearchItemText(2), "t2");
    EXPECT_EQ(copy.SearchItemText(1), nullptr);
}

TEST(MessageMapCopy, ReplacesWhatTheTargetHolds) {
    const CMessageMap source = numbered_map(2);
    CMessageMap target;
    target.SetupSubjectKey(3, "Old");
    target.AddItem(8, "eight");
    EXPECT_TRUE(target.CopyData(source));
    EXPECT_EQ(show(target), "0 : 0=t0 1=t1");
    EXPECT_EQ(target.SearchItemText(8), nullptr);
    CMessageMap assigned;
    assigned.AddItem(8, "eight");
    EXPECT_EQ(&(assigned = source), &assigned);
    EXPECT_EQ(show(assigned), "0 : 0=t0 1=t1");
}

TEST(MessageMapCopy, IsIndependentOfItsSource) {
    CMessageMap source = numbered_map(1);
    CMessageMap copy(source);
    source.ReplaceItem(0, 0, "changed");
    copy.AddItem(5, "five");
    EXPECT_EQ(show(copy), "0 : 0=t0 5=five");
    EXPECT_EQ(show(source), "0 : 0=changed");
}

TEST(MessageMapCopy, OntoItselfChangesNothing) {
    CMessageMap map = numbered_map(3);
    map.DeleteItem(1);
    EXPECT_TRUE(map.CopyData(map));
    const CMessageMap& same = map;
    map = same;
    EXPECT_EQ(show(map), "0 : 0=t0 ~ 2=t2");
}

TEST(MessageMapCopy, LastPositionOfACodeWinsWhateverWonInTheSource) {
    CMessageMap map;
    map.AddItem(1, "early");
    map.AddItem(2, "late");
    map.ReplaceItem(1, 2, "newest");
    EXPECT_STREQ(map.SearchItemText(2), "newest");
    const CMessageMap copy(map);
    EXPECT_EQ(show(copy), "0 : 2=newest 2=late");
    EXPECT_STREQ(copy.SearchItemText(2), "late");
}

TEST(MessageMapCopy, EndsAtAnItemThatIsRefused) {
    MapProbe map = numbered_map(3);
    map.GetItem(1)->text.Empty();
    CMessageMap copy;
    EXPECT_FALSE(copy.CopyData(map));
    EXPECT_EQ(show(copy), "0 : 0=t0");
    EXPECT_EQ(map.GetCopyInstance(), nullptr);
    map.GetItem(1)->text = "t1";
    map.GetItem(1)->code = 10000;
    EXPECT_FALSE(copy.CopyData(map));
    EXPECT_EQ(show(copy), "0 : 0=t0");
}

TEST(MessageMapCopy, InstanceIsAWholeCopy) {
    CMessageMap map = numbered_map(2);
    map.SetupSubjectKey(5, "Five");
    const std::unique_ptr<CMessageMap> copy(map.GetCopyInstance());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(show(*copy), "5 Five: 0=t0 1=t1");
}

// --- the index ------------------------------------------------------------------------------------------------------

// The order in which a hash lists keys tells its buckets apart: 277 of them unless the map was given others.
TEST(MessageMapIndex, HasTwoHundredAndSeventySevenBuckets) {
    MapProbe map = numbered_map(300);
    EXPECT_EQ(show(map.index_.Keys()), listed_keys(300, 277));
    EXPECT_NE(show(map.index_.Keys()), listed_keys(300, 37));
}

TEST(MessageMapIndex, CopiesHaveAsManyBucketsAsTheirSource) {
    MapProbe map;
    map.index_.InitializeHashTable(19, true);
    for (int code = 0; code < 50; ++code) {
        map.AddItem(code, "x");
    }
    MapProbe copy = numbered_map(50);
    EXPECT_TRUE(copy.CopyData(map));
    EXPECT_EQ(show(copy.index_.Keys()), listed_keys(50, 19));
}

TEST(MessageMapIndex, KeysAreTheFixedFormOfTheCode) {
    MapProbe map;
    map.AddItem(0x1A2B, "x");
    EXPECT_EQ(show(map.index_.Keys()),
              "[\xFF\xFF\x73\xFF\xFF"
              "0x00001A2B]");
}

}  // namespace
}  // namespace orvil::test
