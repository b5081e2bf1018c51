#include "orvil/tokens/lex_token_block.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>

#include "tokens/tree_support.h"

namespace orvil::test {
namespace {

// --- construction, copies
// ---------------------------------------------------------------------------------------------

TEST(LexTokenBlock, DefaultIsAResetOpenPlainTokenWithoutChildrenAndParent) {
    CLexTokenBlock fresh;
    EXPECT_EQ(describe(fresh, true), "0:@-1,-1");
    EXPECT_TRUE(fresh.IsInvalidType());
    EXPECT_EQ(fresh.GetBlockCount(), 0);
    EXPECT_EQ(fresh.GetParentBlock(), nullptr);
    EXPECT_FALSE(fresh.IsNoWriteDelimiter());
    EXPECT_EQ(fresh.AddToken(token("x", eTokenSymbol)), 0);
}

TEST(LexTokenBlock, FromATokenTakesTheTokenAndNothingElse) {
    CLexToken source;
    source.Create("name", 3, 7, true, eTokenNone);
    const CLexTokenBlock block(source);
    EXPECT_EQ(describe(block, true), "n:name@3,7");
}

CLexTokenBlock sample() {
    CLexTokenBlock inner = empty_block("Inner");
    inner.InsertBlockEntityBlock(assignment("x", 1));
    CLexTokenBlock outer = node("Outer", eGrammerBlock);
    outer.AddBlock(inner);
    outer.AddToken(token("text", eTokenString));
    outer.SetNoWriteDelimiter(true);
    return outer;
}

const char* const kSample = "B~ n:Outer[B! n:Inner[m:{ A! n:x[m:= d:1 m:;] m:}] s:text]";

TEST(LexTokenBlockCopy, ConstructorCopiesTokenChildrenFormAndFlags) {
    const CLexTokenBlock source = sample();
    CLexTokenBlock copy(source);
    EXPECT_EQ(describe(copy), kSample);
    EXPECT_TRUE(parents_are_right(copy));
}

TEST(LexTokenBlockCopy, IsIndependentOfItsSource) {
    auto source = std::make_unique<CLexTokenBlock>(sample());
    CLexTokenBlock copy(*source);
    source->GetAt(0)->DeleteAllBlocks();
    source.reset();
    EXPECT_EQ(describe(copy), kSample);
}

TEST(LexTokenBlockCopy, AssignmentAndCopyDataReplaceEverything) {
    const CLexTokenBlock source = sample();
    CLexTokenBlock assigned = empty_block("Other");
    CLexTokenBlock copied = assignment("other", 2);
    assigned = source;
    EXPECT_TRUE(copied.CopyData(source));
    EXPECT_EQ(describe(assigned), kSample);
    EXPECT_EQ(describe(copied), kSample);
    EXPECT_TRUE(parents_are_right(assigned));
}

TEST(LexTokenBlockCopy, GetCopyGivesADeepCopyOnTheHeap) {
    const CLexTokenBlock source = sample();
    const std::unique_ptr<CLexTokenBlock> copy(source.GetCopy());
    EXPECT_EQ(describe(*copy), kSample);
    EXPECT_TRUE(parents_are_right(*copy));
}

TEST(LexTokenBlockCopy, OfAChildHasNoParent) {
    CLexTokenBlock root = sample();
    CLexTokenBlock copy(*root.GetAt(0));
    const std::unique_ptr<CLexTokenBlock> heap_copy(root.GetAt(0)->GetCopy());
    EXPECT_EQ(copy.GetParentBlock(), nullptr);
    EXPECT_EQ(heap_copy->GetParentBlock(), nullptr);
}

TEST(LexTokenBlockCopy, IntoAChildLeavesItWhereItHangs) {
    CLexTokenBlock root = sample();
    *root.GetAt(1) = assignment("y", 2);
    EXPECT_EQ(root.GetAt(1)->GetParentBlock(), &root);
    EXPECT_TRUE(parents_are_right(root));
}

TEST(LexTokenBlockCopy, GetCopyInstanceLosesTheChildren) {
    CLexTokenBlock source = sample();
    const std::unique_ptr<CLexToken> copy(source.GetCopyInstance());
    EXPECT_EQ(describe_token(*copy), "n:Outer");
    EXPECT_EQ(dynamic_cast<CLexTokenBlock*>(copy.get()), nullptr);
}

TEST(LexTokenBlockCopy, KeepsClosed) {
    CLexTokenBlock copy(empty_block("View"));
    EXPECT_EQ(copy.AddToken(token("x", eTokenSymbol)), -1);
    EXPECT_EQ(copy.InsertBlockEntityBlock(assignment("x", 1)), 1);
}

// --- aliases
// ----------------------------------------------------------------------------------------------------------

TEST(LexTokenBlockAlias, AddedToItself) {
    CLexTokenBlock block = node("b", eGrammerBlock);
    block.AddToken(token("x", eTokenSymbol));
    EXPECT_EQ(block.AddBlock(block), 1);
    EXPECT_EQ(describe(block), "B n:b[n:x B n:b[n:x]]");
    EXPECT_TRUE(parents_are_right(block));
}

TEST(LexTokenBlockAlias, InsertedIntoItself) {
    CLexTokenBlock block = empty_block("View");
    EXPECT_EQ(block.InsertBlockEntityBlock(block), 1);
    EXPECT_EQ(describe(block), "B! n:View[m:{ B! n:View[m:{ m:}] m:}]");
    EXPECT_TRUE(parents_are_right(block));
}

TEST(LexTokenBlockAlias, AssignedFromItsOwnChild) {
    CLexTokenBlock root = sample();
    root = *root.GetAt(0);
    EXPECT_EQ(describe(root), "B! n:Inner[m:{ A! n:x[m:= d:1 m:;] m:}]");
    EXPECT_TRUE(parents_are_right(root));
    root = *root.GetAt(1)->GetAt(1);
    EXPECT_EQ(describe(root), "d:1");
}

TEST(LexTokenBlockAlias, AssignedFromItsOwnParent) {
    CLexTokenBlock root = sample();
    *root.GetAt(1) = root;
    EXPECT_EQ(describe(root), std::string(kSample).replace(std::string(kSample).rfind("s:text"), 6, kSample));
    EXPECT_TRUE(parents_are_right(root));
}

TEST(LexTokenBlockAlias, AssignedToItselfNothingChanges) {
    CLexTokenBlock root = sample();
    const CLexTokenBlock& same = root;
    const CLexTokenBlock* child = root.GetAt(0);
    root = same;
    EXPECT_TRUE(root.CopyData(same));
    EXPECT_EQ(describe(root), kSample);
    EXPECT_EQ(root.GetAt(0), child);
}

TEST(LexTokenBlockAlias, OwnTokensAndTextsMayBeArguments) {
    CLexTokenBlock root = sample();
    EXPECT_EQ(root.AddToken(*root.GetAt(1)), 2);
    EXPECT_EQ(root.AddToken(root), 3);
    EXPECT_EQ(describe(*root.GetAt(3)), "n:Outer");
    EXPECT_TRUE(root.SetupAssignmentString(root.GetString(), root.GetAt(1)->GetString()));
    EXPECT_EQ(describe(root), "A! n:Outer[m:= s:text m:;]");
    EXPECT_TRUE(root.SetupBlockTypeFactor(root.GetAt(1)->GetString()));
    EXPECT_EQ(describe(root), "B! n:text[m:{ m:}]");
}

// --- the form
// ---------------------------------------------------------------------------------------------------------

TEST(LexTokenBlockForm, ValuesAreFixed) {
    EXPECT_EQ(static_cast<int>(eGrammerInvalid), 0);
    EXPECT_EQ(static_cast<int>(eGrammerAssign), 1);
    EXPECT_EQ(static_cast<int>(eGrammerBlock), 2);
    EXPECT_EQ(static_cast<int>(eGrammerListing), 3);
    EXPECT_EQ(sizeof(EGrammerType), 4u);
}

TEST(LexTokenBlockForm, EachPredicateHoldsForItsOwnFormOnly) {
    for (int form = -1; form <= 4; ++form) {
        CLexTokenBlock block;
        block.SetupGrammerType(static_cast<EGrammerType>(form));
        EXPECT_EQ(static_cast<int>(block.QueryGrammerType()), form);
        EXPECT_EQ(block.IsInvalidType(), form == 0);
        EXPECT_EQ(block.IsAssignType(), form == 1);
        EXPECT_EQ(block.IsBlockType(), form == 2);
        EXPECT_EQ(block.IsListingType(), form == 3);
    }
}

TEST(LexTokenBlockForm, ChangeIsIgnoredWhileClosed) {
    CLexTokenBlock block = empty_block("View");
    block.SetupGrammerType(eGrammerListing);
    EXPECT_TRUE(block.IsBlockType());
}

TEST(LexTokenBlockForm, NoWriteDelimiterIsStoredEvenWhenClosed) {
    CLexTokenBlock block = empty_block("View");
    block.SetNoWriteDelimiter(true);
    EXPECT_TRUE(block.IsNoWriteDelimiter());
    block.SetNoWriteDelimiter(false);
    EXPECT_FALSE(block.IsNoWriteDelimiter());
}

// --- children
// ---------------------------------------------------------------------------------------------------------

TEST(LexTokenBlockChildren, GetAtIsNullOutsideTheRange) {
    const CLexTokenBlock root = sample();
    EXPECT_EQ(root.GetAt(-1), nullptr);
    EXPECT_NE(root.GetAt(0), nullptr);
    EXPECT_NE(root.GetAt(1), nullptr);
    EXPECT_EQ(root.GetAt(2), nullptr);
    EXPECT_EQ(CLexTokenBlock().GetAt(0), nullptr);
}

TEST(LexTokenBlockChildren, AddTokenAndAddBlockGiveTheIndexAndSetTheParent) {
    CLexTokenBlock root;
    EXPECT_EQ(root.AddToken(token("x", eTokenSymbol)), 0);
    EXPECT_EQ(root.AddBlock(assignment("y", 2)), 1);
    EXPECT_EQ(root.AddToken(token("1", eTokenDecimal)), 2);
    EXPECT_EQ(describe(root), "0:[n:x A! n:y[m:= d:2 m:;] d:1]");
    EXPECT_TRUE(parents_are_right(root));
}

TEST(LexTokenBlockChildren, ClosedNodesRefuseAddTokenAndAddBlock) {
    CLexTokenBlock block = empty_block("View");
    CLexTokenBlock value = assignment("x", 1);
    EXPECT_EQ(block.AddToken(token("x", eTokenSymbol)), -1);
    EXPECT_EQ(block.AddBlock(value), -1);
    EXPECT_EQ(value.AddToken(token("x", eTokenSymbol)), -1);
    EXPECT_EQ(value.AddBlock(block), -1);
    EXPECT_EQ(describe(block), "B! n:View[m:{ m:}]");
}

TEST(LexTokenBlockChildren, OverManyGrowthStepsKeepTheirOrder) {
    CLexTokenBlock root;
    for (int i = 0; i < 1000; ++i) {
        ASSERT_EQ(root.AddBlock(assignment("n", i)), i);
    }
    int value = -1;
    for (int i = 0; i < 1000; ++i) {
        ASSERT_TRUE(root.GetAt(i)->GetAt(1)->ParseDecimal(value) && value == i);
    }
}

TEST(LexTokenBlockChildren, DeleteAllBlocksClearsFormClosedAndParentButNotTheToken) {
    CLexTokenBlock root = sample();
    CLexTokenBlock* inner = root.GetAt(0);
    EXPECT_TRUE(inner->DeleteAllBlocks());
    EXPECT_EQ(describe(*inner), "n:Inner");
    EXPECT_EQ(inner->GetParentBlock(), nullptr);
    EXPECT_EQ(inner->AddToken(token("x", eTokenSymbol)), 0);
    EXPECT_EQ(root.GetAt(0), inner);
    EXPECT_TRUE(CLexTokenBlock().DeleteAllBlocks());
}

TEST(LexTokenBlockLife, NodesAreMadeAndDeletedByThePlainAndByTheQuietOperators) {
    void* memory = CLexTokenBlock::operator new(sizeof(CLexTokenBlock), std::nothrow);
    ASSERT_NE(memory, nullptr);
    CLexTokenBlock::operator delete(memory, std::nothrow);
    const std::unique_ptr<CLexTokenBlock> block(new (std::nothrow) CLexTokenBlock(assignment("x", 1)));
    EXPECT_EQ(describe(*block), "A! n:x[m:= d:1 m:;]");
}

// --- insertion
// --------------------------------------------------------------------------------------------------------

TEST(LexTokenBlockInsert, PutsEntriesBeforeTheClosingBraceInOrder) {
    CLexTokenBlock block = empty_block("View");
    EXPECT_EQ(block.InsertBlockEntityBlock(assignment("x", 1)), 1);
    EXPECT_EQ(block.InsertBlockEntityBlock(empty_block("Grid")), 2);
    EXPECT_EQ(block.InsertBlockEntityBlock(assignment("y", 2)), 3);
    EXPECT_EQ(describe(block), "B! n:View[m:{ A! n:x[m:= d:1 m:;] B! n:Grid[m:{ m:}] A! n:y[m:= d:2 m:;] m:}]");
    EXPECT_TRUE(parents_are_right(block));
}

TEST(LexTokenBlockInsert, RefusesOpenNodesAndAssignments) {
    CLexTokenBlock open = node("View", eGrammerBlock);
    open.AddToken(token("}", eTokenMetaChar));
    CLexTokenBlock value = assignment("x", 1);
    EXPECT_EQ(open.InsertBlockEntityBlock(value), -1);
    EXPECT_EQ(value.InsertBlockEntityBlock(value), -1);
}

TEST(LexTokenBlockInsert, RefusesABlockWithoutClosingBrace) {
    CLexTokenBlock block = empty_block("View");
    block.GetAt(1)->Create("x", 0, 0, true, eTokenNone);
    EXPECT_EQ(block.InsertBlockEntityBlock(assignment("x", 1)), -1);
    EXPECT_EQ(describe(block), "B! n:View[m:{ n:x]");
}

TEST(LexTokenBlockInsert, FirstBraceDecidesAlsoWhenAnotherNodeBecomesOne) {
    CLexTokenBlock block = empty_block("View");
    block.InsertBlockEntityBlock(assignment("x", 1));
    block.InsertBlockEntityBlock(assignment("y", 2));
    *block.GetAt(1) = CLexTokenBlock(token("}", eTokenMetaChar));
    EXPECT_EQ(block.InsertBlockEntityBlock(assignment("z", 3)), 1);
}

TEST(LexTokenBlockInsert, FirstBraceDecidesAlsoWhenANodeHeldBeforeBecomesOne) {
    CLexTokenBlock block = empty_block("View");
    block.InsertBlockEntityBlock(assignment("x", 1));
    CLexTokenBlock* held = block.FindAssignmentBlockEntity("x");
    EXPECT_EQ(block.InsertBlockEntityBlock(assignment("y", 2)), 2);
    *held = CLexTokenBlock(token("}", eTokenMetaChar));
    EXPECT_EQ(block.InsertBlockEntityBlock(assignment("z", 3)), 1);
}

TEST(LexTokenBlockInsert, FirstBraceDecidesAlsoWhenANodeReachedFromBelowBecomesOne) {
    CLexTokenBlock block = empty_block("View");
    CLexTokenBlock grid = empty_block("Grid");
    grid.InsertBlockEntityBlock(assignment("x", 1));
    block.InsertBlockEntityBlock(grid);
    CLexTokenBlock* reached = block.FindAssignmentBlockEntity("x")->GetParentBlock();
    EXPECT_EQ(block.InsertBlockEntityBlock(assignment("y", 2)), 2);
    *reached = CLexTokenBlock(token("}", eTokenMetaChar));
    EXPECT_EQ(block.InsertBlockEntityBlock(assignment("z", 3)), 1);
}

TEST(LexTokenBlockInsert, AnInsertedBraceBecomesTheFirstOne) {
    CLexTokenBlock block = empty_block("View");
    EXPECT_EQ(block.InsertBlockEntityBlock(CLexTokenBlock(token("}", eTokenMetaChar))), 1);
    EXPECT_EQ(block.InsertBlockEntityBlock(assignment("x", 1)), 1);
    EXPECT_EQ(describe(block), "B! n:View[m:{ A! n:x[m:= d:1 m:;] m:} m:}]");
}

TEST(LexTokenBlockInsert, AStringBraceDoesNotClose) {
    CLexTokenBlock block = empty_block("View");
    block.InsertBlockEntityBlock(CLexTokenBlock(token("}", eTokenString)));
    EXPECT_EQ(block.InsertBlockEntityBlock(assignment("x", 1)), 2);
}

TEST(LexTokenBlockInsert, EntityTokenNeverSucceeds) {
    CLexTokenBlock closed = empty_block("View");
    CLexTokenBlock open = node("View", eGrammerBlock);
    open.AddToken(token("}", eTokenMetaChar));
    EXPECT_EQ(closed.InsertBlockEntityToken(token("x", eTokenSymbol)), -1);
    EXPECT_EQ(open.InsertBlockEntityToken(token("x", eTokenSymbol)), -1);
    EXPECT_EQ(describe(closed), "B! n:View[m:{ m:}]");
    EXPECT_EQ(describe(open), "B n:View[m:}]");
}

class InsertProbe : public CLexTokenBlock {
public:
    using CLexTokenBlock::InsertBlockArray;
};

TEST(LexTokenBlockInsert, BlockArrayInsertsAtTheIndexAndAppendsOutsideTheRange) {
    InsertProbe probe;
    EXPECT_EQ(probe.InsertBlockArray(5, nullptr), -1);
    const CLexTokenBlock a(token("n1", eTokenSymbol));
    const CLexTokenBlock b(token("n2", eTokenSymbol));
    const CLexTokenBlock c(token("n3", eTokenSymbol));
    const CLexTokenBlock d(token("n4", eTokenSymbol));
    EXPECT_EQ(probe.InsertBlockArray(0, &a), 0);
    EXPECT_EQ(probe.InsertBlockArray(0, &b), 0);
    EXPECT_EQ(probe.InsertBlockArray(2, &c), 2);
    EXPECT_EQ(probe.InsertBlockArray(-1, &d), 3);
    EXPECT_EQ(describe(probe), "0:[n:n2 n:n1 n:n3 n:n4]");
    EXPECT_TRUE(parents_are_right(probe));
}

TEST(LexTokenBlockInsert, BlockArrayBehindTheBraceDoesNotMoveTheEntries) {
    InsertProbe probe;
    probe.SetupBlockTypeFactor("View");
    const CLexTokenBlock tail(token("tail", eTokenSymbol));
    EXPECT_EQ(probe.InsertBlockArray(9, &tail), 2);
    EXPECT_EQ(probe.InsertBlockEntityBlock(assignment("x", 1)), 1);
    EXPECT_EQ(describe(probe), "B! n:View[m:{ A! n:x[m:= d:1 m:;] m:} n:tail]");
}

TEST(LexTokenBlockInsert, FirstBraceDecidesAlsoInABlockThatBecomesACopy) {
    InsertProbe probe;
    probe.SetupBlockTypeFactor("View");
    const CLexTokenBlock tail(token("tail", eTokenSymbol));
    probe.InsertBlockArray(9, &tail);
    CLexTokenBlock block;
    block.SetupBlockTypeFactor("Other");
    block = probe;
    EXPECT_EQ(block.InsertBlockEntityBlock(assignment("x", 1)), 1);
}

TEST(LexTokenBlockInsert, ClosedAssignmentRefusesEntriesAlsoWhenItHoldsABrace) {
    CLexTokenBlock value;
    ASSERT_TRUE(value.SetupAssignmentFactor("x", "}", eTokenMetaChar));
    EXPECT_EQ(value.InsertBlockEntityBlock(assignment("y", 1)), -1);
    EXPECT_FALSE(bt_add_block_assign(value, "y", 1));
    EXPECT_EQ(describe(value), "A! n:x[m:= m:} m:;]");
}

// --- searching
// --------------------------------------------------------------------------------------------------------

CLexTokenBlock tokens_abc() {
    CLexTokenBlock root;
    for (const char* text : {"gg", "hh", "gg", "g"}) {
        root.AddToken(token(text, eTokenSymbol));
    }
    root.AddToken(token("gg", eTokenString));
    return root;
}

TEST(LexTokenBlockSearch, FindsKindAndExactTextFromTheStart) {
    const CLexTokenBlock root = tokens_abc();
    EXPECT_EQ(root.SearchTokenBlockIndex(eTokenSymbol, "gg", 0), 0);
    EXPECT_EQ(root.SearchTokenBlockIndex(eTokenSymbol, "gg", 1), 2);
    EXPECT_EQ(root.SearchTokenBlockIndex(eTokenSymbol, "gg", 3), -1);
    EXPECT_EQ(root.SearchTokenBlockIndex(eTokenSymbol, "g", -7), 3);
    EXPECT_EQ(root.SearchTokenBlockIndex(eTokenSymbol, "GG", 0), -1);
    EXPECT_EQ(root.SearchTokenBlockIndex(eTokenString, "gg", 0), 4);
    EXPECT_EQ(root.SearchTokenBlockIndex(eTokenDecimal, "gg", 0), -1);
    EXPECT_EQ(root.SearchTokenBlockIndex(eTokenSymbol, "gg", 99), -1);
}

TEST(LexTokenBlockSearch, EmptyTextMatchesEveryTextOfTheKind) {
    const CLexTokenBlock root = tokens_abc();
    EXPECT_EQ(root.SearchTokenBlockIndex(eTokenSymbol, nullptr, 1), 1);
    EXPECT_EQ(root.SearchTokenBlockIndex(eTokenString, "", 0), 4);
    EXPECT_EQ(root.SearchTokenBlockIndex(eTokenNone, nullptr, 0), -1);
}

CLexTokenBlock nested() {
    CLexTokenBlock inner = node("Inner", eGrammerBlock);
    inner.AddBlock(assignment("x", 1));
    CLexTokenBlock listing = node("Items", eGrammerListing);
    listing.AddBlock(assignment("hidden", 5));
    CLexTokenBlock root = node("Root", eGrammerBlock);
    root.AddBlock(listing);
    root.AddBlock(assignment("w", 0));
    root.AddBlock(inner);
    root.AddBlock(assignment("x", 2));
    root.AddBlock(node("Second", eGrammerBlock));
    return root;
}

TEST(LexTokenBlockFind, BlockIsFoundAmongTheChildrenOnly) {
    const CLexTokenBlock root = nested();
    EXPECT_EQ(root.FindTokenBlockEntity("Second"), root.GetAt(4));
    EXPECT_EQ(root.FindTokenBlockEntity(""), root.GetAt(2));
    EXPECT_EQ(root.FindTokenBlockEntity(nullptr), root.GetAt(2));
    EXPECT_EQ(root.FindTokenBlockEntity("x"), nullptr);
    EXPECT_EQ(root.FindTokenBlockEntity("Items"), nullptr);
}

TEST(LexTokenBlockFind, BlockIsFoundInBlocksOnly) {
    CLexTokenBlock root = nested();
    root.SetupGrammerType(eGrammerListing);
    EXPECT_EQ(root.FindTokenBlockEntity("Second"), nullptr);
}

TEST(LexTokenBlockFind, BlockWithoutASymbolIsPassedOver) {
    CLexTokenBlock root = node("Root", eGrammerBlock);
    CLexTokenBlock odd(token("5", eTokenDecimal));
    odd.SetupGrammerType(eGrammerBlock);
    root.AddBlock(odd);
    root.AddBlock(node("Proper", eGrammerBlock));
    EXPECT_EQ(root.FindTokenBlockEntity("5"), nullptr);
    EXPECT_EQ(root.FindTokenBlockEntity(""), root.GetAt(1));
}

TEST(LexTokenBlockFind, FirstAssignmentInDocumentOrderWinsAtAnyDepth) {
    const CLexTokenBlock root = nested();
    EXPECT_EQ(root.FindAssignmentBlockEntity("x"), root.GetAt(2)->GetAt(0));
    EXPECT_EQ(root.FindAssignmentBlockEntity("w"), root.GetAt(1));
    EXPECT_EQ(root.FindAssignmentBlockEntity(""), root.GetAt(1));
    EXPECT_EQ(root.FindAssignmentBlockEntity(nullptr), root.GetAt(1));
    EXPECT_EQ(root.FindAssignmentBlockEntity("X"), nullptr);
}

TEST(LexTokenBlockFind, EmptyNameStandsForAnAssignmentWhoseNameIsNoSymbol) {
    CLexTokenBlock odd(token("5", eTokenDecimal));
    odd.SetupGrammerType(eGrammerAssign);
    CLexTokenBlock root = node("Root", eGrammerBlock);
    root.AddBlock(odd);
    root.AddBlock(assignment("x", 1));
    EXPECT_EQ(root.FindAssignmentBlockEntity(""), root.GetAt(0));
    EXPECT_EQ(root.FindAssignmentBlockEntity(nullptr), root.GetAt(0));
    EXPECT_EQ(root.FindAssignmentBlockEntity("5"), nullptr);
}

TEST(LexTokenBlockFind, ListingsAreNotSearchedForAssignments) {
    const CLexTokenBlock root = nested();
    EXPECT_EQ(root.FindAssignmentBlockEntity("hidden"), nullptr);
    EXPECT_EQ(root.GetAt(0)->FindAssignmentBlockEntity("hidden"), root.GetAt(0)->GetAt(0));
}

TEST(LexTokenBlockFind, AssignmentsAreFoundInNodesOfEveryForm) {
    CLexTokenBlock root = nested();
    root.SetupGrammerType(eGrammerInvalid);
    EXPECT_EQ(root.FindAssignmentBlockEntity("x"), root.GetAt(2)->GetAt(0));
}

// --- virtual operations
// -----------------------------------------------------------------------------------------------

// The slots of a virtual table of the Itanium C++ ABI, which both platforms follow.
using Slot = void (*)();

const Slot* slots_of(const CLexToken& object) {
    return *reinterpret_cast<const Slot* const*>(&object);
}

TEST(LexTokenBlockLayout, OverridesTheDumpAndTheDestructorOnly) {
    const CLexToken plain;
    const CLexTokenBlock block;
    const Slot* of_plain = slots_of(plain);
    const Slot* of_block = slots_of(block);
    EXPECT_EQ(of_block[0], of_plain[0]) << "GetCopyInstance";
    EXPECT_NE(of_block[1], of_plain[1]) << "MakeDumpString";
    EXPECT_NE(of_block[2], of_plain[2]) << "destructor";
}

TEST(LexTokenBlockLayout, SizeIsTheTokenChildrenFormFlagsAndParent) {
    EXPECT_EQ(sizeof(CLexTokenBlock), sizeof(CLexToken) + sizeof(CExtArray<CLexTokenBlock>) + 4 + 4 + sizeof(void*));
}

}  // namespace
}  // namespace orvil::test
