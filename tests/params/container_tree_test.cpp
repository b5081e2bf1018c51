// Roots and containers.
#include "orvil/params/container_tree.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <vector>

#include "params/container_support.h"

namespace orvil::test {
namespace {

TEST(ContainerRoot, InitMakesItEmpty) {
    Root root;
    EXPECT_EQ(&root.root.list, root.root.list.next);
    EXPECT_EQ(nullptr, root.root.tree.node);
    EXPECT_EQ(0, root.root.tree.count);
}

TEST(ContainerRoot, DestroyLeavesItEmptyAndReadyForMore) {
    Root root;
    for (int round = 0; round < 2; ++round) {
        vpdpc_add_value(root.add("a"), "label", "value");
        root.add("b");
        vpdp_destroy_root(root);
        EXPECT_EQ("", root.names());
        EXPECT_EQ(0, root.root.tree.count);
    }
}

TEST(ContainerAdd, NewContainerHasTheDefaults) {
    Root root;
    int argument = 0;
    vpdp_cont_t* cont = vpdp_add_cont(root, "name", Root::no_build, &argument);
    ASSERT_NE(nullptr, cont);
    EXPECT_STREQ("name", cont->name);
    EXPECT_EQ(100, cont->width1);
    EXPECT_EQ(100, cont->width2);
    EXPECT_STREQ("Label", cont->caption1);
    EXPECT_STREQ("Value", cont->caption2);
    EXPECT_EQ(0, cont->tvdir);
    EXPECT_EQ(0u, cont->flags);
    EXPECT_EQ(nullptr, cont->userdata);
    EXPECT_EQ(&root.root, cont->root);
    EXPECT_EQ(Root::no_build, cont->build);
    EXPECT_EQ(&argument, cont->build_arg);
    EXPECT_TRUE(vpdp_is_empty_items(cont));
}

TEST(ContainerAdd, CopiesTheNameAndGoesToTheEnd) {
    Root root;
    char name[] = "b";
    vpdp_cont_t* first = vpdp_add_cont(root, name, nullptr, nullptr);
    name[0] = 'a';
    vpdp_cont_t* second = vpdp_add_cont(root, name, nullptr, nullptr);
    EXPECT_STREQ("b", first->name);
    EXPECT_STREQ("a", second->name);
    EXPECT_EQ("b a", root.names());
    EXPECT_EQ(2, root.root.tree.count);
}

TEST(ContainerAdd, NameThatIsThereIsRefused) {
    Root root;
    vpdp_cont_t* first = root.add("A");
    EXPECT_EQ(nullptr, vpdp_add_cont(root, "A", nullptr, nullptr));
    EXPECT_EQ(first, vpdp_search_cont(root, "A"));
    EXPECT_EQ("A", root.names());
    EXPECT_EQ(1, root.root.tree.count);
}

TEST(ContainerAdd, EmptyNameIsANameLikeAnyOther) {
    Root root;
    vpdp_cont_t* cont = root.add("");
    EXPECT_EQ(cont, vpdp_search_cont(root, ""));
    EXPECT_EQ(nullptr, vpdp_add_cont(root, "", nullptr, nullptr));
}

TEST(ContainerSearch, FindsTheExactName) {
    Root root;
    vpdp_cont_t* upper = root.add("A");
    vpdp_cont_t* lower = root.add("a");
    EXPECT_EQ(upper, vpdp_search_cont(root, "A"));
    EXPECT_EQ(lower, vpdp_search_cont(root, "a"));
    EXPECT_EQ(nullptr, vpdp_search_cont(root, "aa"));
    EXPECT_EQ(nullptr, vpdp_search_cont(root, ""));
}

TEST(ContainerDestroy, TakesItFromItsRoot) {
    Root root;
    vpdp_cont_t* a = root.add("a");
    root.add("b");
    vpdpc_add_label(a, "label");
    vpdp_destroy_cont(a);
    EXPECT_EQ("b", root.names());
    EXPECT_EQ(nullptr, vpdp_search_cont(root, "a"));
    EXPECT_EQ(1, root.root.tree.count);
    EXPECT_NE(nullptr, root.add("a"));
    EXPECT_EQ("b a", root.names());
}

TEST(ContainerBuild, CallsTheCallbackWithItsArguments) {
    struct Call {
        vpdp_cont_t* cont;
        void *a, *b;
        int zero;
    } call{nullptr, nullptr, nullptr, 7};
    const auto note = [](vpdp_cont_t* cont, void* argument, void* a, void* b, int zero) {
        *static_cast<Call*>(argument) = {cont, a, b, zero};
        return 99;
    };
    Root root;
    int a = 0, b = 0;
    vpdp_cont_t* cont = vpdp_add_cont(root, "name", note, &call);
    vpdp_build_cont(cont, &a, &b);
    EXPECT_EQ(cont, call.cont);
    EXPECT_EQ(&a, call.a);
    EXPECT_EQ(&b, call.b);
    EXPECT_EQ(0, call.zero);
}

TEST(ContainerBuild, WithoutCallbackOrContainerDoesNothing) {
    Root root;
    vpdp_build_cont(root.add("name"), nullptr, nullptr);
    vpdp_build_cont(nullptr, nullptr, nullptr);
}

TEST(ContainerBuild, CallbackMayDestroyTheContainer) {
    const auto destroy = [](vpdp_cont_t* cont, void*, void*, void*, int) {
        vpdp_destroy_cont(cont);
        return 0;
    };
    Root root;
    vpdp_build_cont(vpdp_add_cont(root, "name", destroy, nullptr), nullptr, nullptr);
    EXPECT_EQ("", root.names());
}

TEST(ContainerParams, OnlyWidthsAboveZeroAndGivenCaptionsAreChanged) {
    Root root;
    vpdp_cont_t* cont = root.add("name");
    vpdp_set_cont_params(cont, 0, nullptr, 250, "Setting");
    EXPECT_EQ(100, cont->width1);
    EXPECT_STREQ("Label", cont->caption1);
    EXPECT_EQ(250, cont->width2);
    EXPECT_STREQ("Setting", cont->caption2);
    vpdp_set_cont_params(cont, 1, "", -5, nullptr);
    EXPECT_EQ(1, cont->width1);
    EXPECT_STREQ("", cont->caption1);
    EXPECT_EQ(250, cont->width2);
    EXPECT_STREQ("Setting", cont->caption2);
}

TEST(ContainerParams, CaptionsMayBeTheContainersOwn) {
    Root root;
    vpdp_cont_t* cont = root.add("name");
    vpdp_set_cont_params(cont, 0, cont->caption1, 0, cont->caption2);
    EXPECT_STREQ("Label", cont->caption1);
    EXPECT_STREQ("Value", cont->caption2);
    vpdp_set_cont_params(cont, 0, cont->caption1 + 2, 0, cont->caption2 + 5);
    EXPECT_STREQ("bel", cont->caption1);
    EXPECT_STREQ("", cont->caption2);
}

TEST(ContainerDirection, IsReadAndReplaced) {
    Root root;
    vpdp_cont_t* cont = root.add("name");
    EXPECT_EQ(0, vpdp_set_cont_tvdir(cont, -3));
    EXPECT_EQ(-3, vpdp_get_cont_tvdir(cont));
    EXPECT_EQ(-3, vpdp_set_cont_tvdir(cont, 4));
    EXPECT_EQ(4, cont->tvdir);
}

TEST(ContainerFlags, MaskIsClearedThenBitsAreSet) {
    Root root;
    vpdp_cont_t* cont = root.add("name");
    EXPECT_EQ(0u, vpdp_set_cont_flags(cont, 0, 0x1C));
    EXPECT_EQ(0x1Cu, vpdp_set_cont_flags(cont, 0x0F, 0x03));
    EXPECT_EQ(0x13u, vpdp_get_cont_flags(cont));
    EXPECT_EQ(0x13u, vpdp_set_cont_flags(cont, 0x10, 0x80000000u));
    EXPECT_EQ(0x80000003u, cont->flags);
}

TEST(ContainerUserData, IsReadAndReplaced) {
    Root root;
    vpdp_cont_t* cont = root.add("name");
    int data = 0;
    EXPECT_EQ(nullptr, vpdp_set_cont_userdata(cont, &data));
    EXPECT_EQ(&data, vpdp_get_cont_userdata(cont));
    EXPECT_EQ(&data, vpdp_set_cont_userdata(cont, nullptr));
    EXPECT_EQ(nullptr, cont->userdata);
}

TEST(ContainerTraverse, WalksTheThreeOrders) {
    Root root;
    for (const char* name : {"B", "a", "A", "\x80"}) {
        root.add(name);
    }
    EXPECT_EQ("B a A \x80", root.names(0));
    EXPECT_EQ("A B a \x80", root.names(1));
    EXPECT_EQ("A B a \x80", root.names(INT_MAX));
    EXPECT_EQ("\x80 a B A", root.names(-1));
    EXPECT_EQ("\x80 a B A", root.names(INT_MIN));
}

TEST(ContainerTraverse, NonZeroEndsTheWalkAndIsReturned) {
    Root root;
    for (const char* name : {"a", "b", "c"}) {
        root.add(name);
    }
    const auto stop_at_b = [](vpdp_cont_t* cont, void* user) {
        ++*static_cast<int*>(user);
        return *cont->name == 'b' ? -5 : 0;
    };
    int calls = 0;
    EXPECT_EQ(-5, vpdp_traverse(root, 0, stop_at_b, &calls));
    EXPECT_EQ(2, calls);
}

TEST(ContainerTraverse, NullRootGivesMinusOneAndNoCallbackZero) {
    Root root;
    root.add("a");
    EXPECT_EQ(-1, vpdp_traverse(nullptr, 0, append_name, nullptr));
    EXPECT_EQ(-1, vpdp_traverse(nullptr, 0, nullptr, nullptr));
    EXPECT_EQ(0, vpdp_traverse(root, 0, nullptr, nullptr));
}

// A walk whose callback destroys containers when it meets "c"; what it visited.
std::string walk_destroying(int order, const std::vector<const char*>& destroyed) {
    struct Walk {
        Root root;
        std::string visited;
        const std::vector<const char*>* destroyed;
    } walk;
    walk.destroyed = &destroyed;
    for (const char* name : {"a", "b", "c", "d", "e"}) {
        walk.root.add(name);
    }
    const auto visit = [](vpdp_cont_t* cont, void* user) {
        auto& self = *static_cast<Walk*>(user);
        self.visited += cont->name;
        for (const char* name : *cont->name == 'c' ? *self.destroyed : std::vector<const char*>()) {
            vpdp_destroy_cont(vpdp_search_cont(self.root, name));
        }
        return 0;
    };
    EXPECT_EQ(0, vpdp_traverse(walk.root, order, visit, &walk));
    return walk.visited;
}

TEST(ContainerTraverse, CallbackMayDestroyContainers) {
    EXPECT_EQ("abcde", walk_destroying(0, {"c"}));
    EXPECT_EQ("abcde", walk_destroying(1, {"c"}));
    EXPECT_EQ("edcba", walk_destroying(-1, {"c"}));
    EXPECT_EQ("abce", walk_destroying(0, {"c", "d"}));
    EXPECT_EQ("abce", walk_destroying(1, {"d", "b"}));
    EXPECT_EQ("edca", walk_destroying(-1, {"b", "c", "d"}));
    EXPECT_EQ("abc", walk_destroying(0, {"e", "d", "c", "b", "a"}));
}

TEST(ContainerTraverse, AddingContainersEnds) {
    for (int order : {0, 1}) {
        Root root;
        root.add("a");
        root.add("b");
        const auto add_behind = [](vpdp_cont_t* cont, void*) {
            const char name[] = {static_cast<char>('a' + cont->root->tree.count), '\0'};
            return vpdp_add_cont(cont->root, name, nullptr, nullptr) == nullptr ? 1 : 0;
        };
        EXPECT_EQ(0, vpdp_traverse(root, order, add_behind, nullptr));
        EXPECT_EQ("a b c d", root.names());
    }
}

TEST(ContainerNull, EveryFunctionTakesNull) {
    Root root;
    vpdp_init_root(nullptr);
    vpdp_destroy_root(nullptr);
    EXPECT_EQ(nullptr, vpdp_add_cont(nullptr, "a", nullptr, nullptr));
    EXPECT_EQ(nullptr, vpdp_add_cont(root, nullptr, nullptr, nullptr));
    EXPECT_EQ(nullptr, vpdp_search_cont(nullptr, "a"));
    EXPECT_EQ(nullptr, vpdp_search_cont(root, nullptr));
    vpdp_clear_cont(nullptr);
    vpdp_destroy_cont(nullptr);
    EXPECT_TRUE(vpdp_is_empty_items(nullptr));
    vpdp_set_cont_params(nullptr, 1, "a", 1, "b");
    EXPECT_EQ(0, vpdp_get_cont_tvdir(nullptr));
    EXPECT_EQ(0, vpdp_set_cont_tvdir(nullptr, 1));
    EXPECT_EQ(0u, vpdp_get_cont_flags(nullptr));
    EXPECT_EQ(0u, vpdp_set_cont_flags(nullptr, 1, 1));
    EXPECT_EQ(nullptr, vpdp_get_cont_userdata(nullptr));
    EXPECT_EQ(nullptr, vpdp_set_cont_userdata(nullptr, &root));
}

// Random additions and removals beside a vector of names in the order of creation.
TEST(ContainerModel, RandomContainersStandInBothOrders) {
    std::mt19937 random(1);
    Root root;
    std::vector<std::string> model;
    for (int i = 0; i < 3000; ++i) {
        const std::string name(1, static_cast<char>(random() % 60 + 0xA0));
        const auto found = std::find(model.begin(), model.end(), name);
        if (random() % 2 == 0) {
            EXPECT_EQ(found == model.end(), vpdp_add_cont(root, name.c_str(), nullptr, nullptr) != nullptr);
            if (found == model.end()) {
                model.push_back(name);
            }
        } else if (found != model.end()) {
            vpdp_destroy_cont(vpdp_search_cont(root, name.c_str()));
            model.erase(found);
        }
        ASSERT_EQ(joined(model), root.names());
        std::vector<std::string> sorted = model;
        std::sort(sorted.begin(), sorted.end());
        ASSERT_EQ(joined(sorted), root.names(1));
    }
}

}  // namespace
}  // namespace orvil::test
