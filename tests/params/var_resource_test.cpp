#include "orvil/params/var_resource.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "params/record_support.h"

namespace orvil::test {
namespace {

// Shows the set that is in use.
class Resource : public CVarResource {
public:
    using CVarResource::CVarResource;
    Resource() = default;

    const vpr_set_t* set() const { return resource_; }
    const vpr_set_t* own_set() const { return &set_; }
    std::string text(int order = 0) const { return show(resource_, order); }
};

TEST(VarResource, IsAVirtualTableASetAndAPointerToIt) {
    EXPECT_EQ(sizeof(vpr_set_t) + 16, sizeof(CVarResource));
    EXPECT_TRUE(std::has_virtual_destructor_v<CVarResource>);
    const Resource resource;
    EXPECT_EQ(resource.own_set(), resource.set());
}

TEST(VarResource, DefaultBlockIsEightAndPoolSixteen) {
    const Resource resource;
    EXPECT_EQ(8, resource.set()->block_size);
    EXPECT_EQ(16, resource.set()->pool_count);
}

TEST(VarResource, BlockSizeComesFirst) {
    const Resource resource(5, 11);
    EXPECT_EQ(5, resource.set()->block_size);
    EXPECT_EQ(15, resource.set()->pool_count);
}

TEST(VarResource, AddsReadsAndDeletes) {
    Resource resource;
    const int five = 5;
    EXPECT_TRUE(resource.Add("a", 'i', &five));
    EXPECT_TRUE(resource.AddInt("b", 6));
    EXPECT_TRUE(resource.AddDbl("c", 2.5));
    EXPECT_TRUE(resource.AddStr("d", "text"));
    EXPECT_TRUE(resource.AddStrFormat("e", "%s-%d", "x", 7));
    EXPECT_EQ("a=i5 b=i6 c=d2.5 d=stext e=sx-7", resource.text());
    EXPECT_EQ(5, resource.Count());
    EXPECT_TRUE(resource.Delete("c"));
    EXPECT_FALSE(resource.Delete("c"));
    EXPECT_TRUE(resource.Clear());
    EXPECT_EQ(0, resource.Count());
}

TEST(VarResource, RefusesWhatTheFunctionsRefuse) {
    Resource resource;
    EXPECT_FALSE(resource.Add("a", 'q', nullptr));
    EXPECT_FALSE(resource.AddInt("", 6));
    EXPECT_FALSE(resource.AddDbl(nullptr, 2.5));
    EXPECT_FALSE(resource.AddStr("", "text"));
    EXPECT_FALSE(resource.AddStrFormat("", "%d", 7));
    EXPECT_FALSE(resource.Delete(""));
    EXPECT_EQ(0, resource.Count());
}

TEST(VarResource, ReadsByTypeAndConverted) {
    Resource resource;
    resource.AddInt("i", 42);
    resource.AddDbl("d", -2.9);
    resource.AddStr("s", "0x1A");
    EXPECT_EQ('d', resource.Type("d"));
    EXPECT_EQ(42, resource.RefInt("i"));
    EXPECT_EQ(-2.9, resource.RefDbl("d"));
    EXPECT_STREQ("0x1A", resource.RefStr("s"));
    EXPECT_EQ(0, resource.RefInt("d"));
    char type = '?';
    EXPECT_EQ(26, resource.GetInt("s", &type));
    EXPECT_EQ('s', type);
    EXPECT_EQ(42.0, resource.GetDbl("i", nullptr));
    EXPECT_STREQ("-2.900000000000000", resource.GetStr("d", nullptr));
}

TEST(VarResource, TraversesInTheThreeOrders) {
    Resource resource;
    for (const char* name : {"B", "a", "A"}) {
        resource.AddInt(name, 1);
    }
    EXPECT_EQ("B=i1 a=i1 A=i1", resource.text());
    EXPECT_EQ("A=i1 B=i1 a=i1", resource.text(1));
    std::string text;
    EXPECT_EQ(0, resource.Traverse(-1, append_item, &text));
    EXPECT_EQ("a=i1 B=i1 A=i1", text);
    EXPECT_EQ(0, resource.Traverse(0, nullptr, nullptr));
}

TEST(VarResource, CopiesRecordsBetweenObjects) {
    Resource source;
    source.AddInt("a", 1);
    source.AddStr("b", "x");
    Resource copy, masked, updated;
    EXPECT_TRUE(copy.Copy(source));
    EXPECT_EQ("a=i1 b=sx", copy.text());
    EXPECT_TRUE(masked.MaskedCopy(source, "b,a", ','));
    EXPECT_EQ("b=sx a=i1", masked.text());
    updated.AddInt("a", 7);
    updated.AddInt("c", 8);
    EXPECT_TRUE(updated.Update(source));
    EXPECT_EQ("c=i8 a=i1 b=sx", updated.text());
    EXPECT_FALSE(masked.MaskedCopy(source, "b,b", ','));
}

TEST(VarResourceCopy, ConstructedCopyUsesTheRecordsOfItsSource) {
    Resource source;
    source.AddInt("a", 1);
    {
        Resource copy(source);
        EXPECT_EQ(source.set(), copy.set());
        EXPECT_TRUE(copy.AddInt("b", 2));
        EXPECT_EQ("a=i1 b=i2", source.text());
    }
    EXPECT_EQ(0, source.Count());
    EXPECT_TRUE(source.AddInt("c", 3));
    EXPECT_EQ("c=i3", source.text());
}

TEST(VarResourceCopy, AssignedObjectUsesTheRecordsOfItsSource) {
    Resource source;
    source.AddInt("a", 1);
    {
        Resource target;
        target.AddStr("gone", "with its records");
        target = source;
        EXPECT_EQ(source.set(), target.set());
        EXPECT_EQ("a=i1", target.text());
    }
    EXPECT_EQ(0, source.Count());
}

TEST(VarResourceCopy, AssignmentLeavesCopiesOfTheTargetWithAnEmptySet) {
    Resource source, target;
    source.AddInt("a", 1);
    target.AddInt("b", 2);
    Resource of_target(target);
    target = source;
    EXPECT_EQ(0, of_target.Count());
    EXPECT_TRUE(of_target.AddInt("c", 3));
    EXPECT_EQ("c=i3", of_target.text());
    EXPECT_EQ("a=i1", source.text());
}

TEST(VarResourceCopy, AssignmentToItselfAndFromAnOwnCopyChangesNothing) {
    Resource source;
    source.AddInt("a", 1);
    const Resource& same = source;
    source = same;
    EXPECT_EQ("a=i1", source.text());
    Resource copy(source);
    source = copy;
    EXPECT_EQ("a=i1", source.text());
    EXPECT_EQ(source.own_set(), source.set());
}

}  // namespace
}  // namespace orvil::test
