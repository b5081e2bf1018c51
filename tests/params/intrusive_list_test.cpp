#include "orvil/params/intrusive_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>

namespace {

// A list of the letters a, b, ... and letters that are in no list.
struct Letters {
    explicit Letters(const char* listed = "") {
        adl_init(&head);
        for (; *listed != '\0'; ++listed) {
            adl_add_tail(&head, &link(*listed));
        }
    }

    Letters(const Letters&) = delete;
    Letters& operator=(const Letters&) = delete;

    adl_link_t& link(char letter) { return links[static_cast<std::size_t>(letter - 'a')]; }
    char letter(const adl_link_t* link) const { return static_cast<char>('a' + (link - links.data())); }

    // The letters in order, when the way back gives the same.
    std::string text(const adl_link_t& of) const {
        std::string forward, backward;
        for (const adl_link_t* each = of.next; each != &of; each = each->next) {
            forward += letter(each);
        }
        for (const adl_link_t* each = of.prev; each != &of; each = each->prev) {
            backward.insert(backward.begin(), letter(each));
        }
        return forward == backward ? forward : forward + " is not " + backward;
    }
    std::string text() const { return text(head); }

    adl_link_t head;
    std::array<adl_link_t, 26> links{};
};

TEST(IntrusiveList, InitPointsTheHeadToItself) {
    adl_link_t head{nullptr, nullptr};
    adl_init(&head);
    EXPECT_EQ(&head, head.prev);
    EXPECT_EQ(&head, head.next);
}

TEST(IntrusiveList, FirstElementIsNextAndPrevious) {
    Letters list("a");
    EXPECT_EQ(&list.link('a'), list.head.next);
    EXPECT_EQ(&list.link('a'), list.head.prev);
    EXPECT_EQ(&list.head, list.link('a').next);
    EXPECT_EQ(&list.head, list.link('a').prev);
}

TEST(IntrusiveListAdd, HeadGoesToTheFrontAndTailToTheEnd) {
    Letters list("b");
    adl_add_head(&list.head, &list.link('a'));
    adl_add_tail(&list.head, &list.link('c'));
    EXPECT_EQ("abc", list.text());
}

TEST(IntrusiveListAdd, BesideAnElementGoesBehindOrBeforeIt) {
    Letters list("ad");
    adl_add_head(&list.link('a'), &list.link('b'));
    adl_add_tail(&list.link('d'), &list.link('c'));
    EXPECT_EQ("abcd", list.text());
}

TEST(IntrusiveListAdd, HeadThatIsNoneOrTheNodeItselfHasNoEffect) {
    Letters list("a");
    adl_link_t no_list{nullptr, nullptr};
    adl_add_head(&no_list, &list.link('b'));
    adl_add_tail(&no_list, &list.link('b'));
    adl_add_head(&list.head, &list.head);
    adl_add_tail(&list.head, &list.head);
    EXPECT_EQ(nullptr, list.link('b').next);
    EXPECT_EQ("a", list.text());
}

TEST(IntrusiveListCount, CountsElements) {
    EXPECT_EQ(0, adl_count(nullptr));
    const std::string letters = "abc";
    for (int n = 0; n <= 3; ++n) {
        const Letters list(letters.substr(0, static_cast<std::size_t>(n)).c_str());
        EXPECT_EQ(n, adl_count(&list.head));
    }
    const adl_link_t no_list{nullptr, nullptr};
    EXPECT_EQ(0, adl_count(&no_list));
}

TEST(IntrusiveListDelete, UnlinksAndLeavesNull) {
    Letters list("abc");
    adl_del(&list.link('b'));
    EXPECT_EQ("ac", list.text());
    EXPECT_EQ(nullptr, list.link('b').prev);
    EXPECT_EQ(nullptr, list.link('b').next);
}

TEST(IntrusiveListDelete, InitLeavesAListOfItsOwn) {
    Letters list("abc");
    adl_del_init(&list.link('c'));
    EXPECT_EQ("ab", list.text());
    EXPECT_EQ("", list.text(list.link('c')));
}

TEST(IntrusiveListDelete, NodeInNoListHasNoEffect) {
    Letters list("ab");
    adl_del(&list.link('z'));
    adl_del_init(&list.link('z'));
    EXPECT_EQ(nullptr, list.link('z').next);
    EXPECT_EQ(nullptr, list.link('z').prev);
    adl_del(&list.link('a'));
    adl_del(&list.link('a'));
    EXPECT_EQ("b", list.text());
}

TEST(IntrusiveListDelete, EmptyListOfItsOwnStaysOrBecomesNull) {
    adl_link_t alone;
    adl_init(&alone);
    adl_del_init(&alone);
    EXPECT_EQ(&alone, alone.next);
    adl_del(&alone);
    EXPECT_EQ(nullptr, alone.next);
    EXPECT_EQ(nullptr, alone.prev);
}

TEST(IntrusiveListMove, GoesToFrontOrEndOfTheSameList) {
    Letters list("abc");
    adl_move_head(&list.link('c'), &list.head);
    EXPECT_EQ("cab", list.text());
    adl_move_tail(&list.link('a'), &list.head);
    EXPECT_EQ("cba", list.text());
    adl_move_head(&list.link('c'), &list.head);
    adl_move_tail(&list.link('a'), &list.head);
    EXPECT_EQ("cba", list.text());
}

TEST(IntrusiveListMove, GoesToAnotherList) {
    Letters list("abc");
    adl_link_t other;
    adl_init(&other);
    adl_move_tail(&list.link('b'), &other);
    adl_move_head(&list.link('c'), &other);
    EXPECT_EQ("a", list.text());
    EXPECT_EQ("cb", list.text(other));
}

TEST(IntrusiveListMove, NodeInNoListIsInserted) {
    Letters list("a");
    adl_move_tail(&list.link('b'), &list.head);
    adl_move_head(&list.link('c'), &list.head);
    EXPECT_EQ("cab", list.text());
}

TEST(IntrusiveListMove, BesideItselfHasNoEffect) {
    Letters list("abc");
    adl_move_head(&list.link('b'), &list.link('b'));
    adl_move_tail(&list.link('b'), &list.link('b'));
    EXPECT_EQ("abc", list.text());
}

TEST(IntrusiveListMove, ToNoListLeavesTheNodeWhereItIs) {
    Letters list("ab");
    adl_link_t no_list{nullptr, nullptr};
    adl_move_head(&list.link('a'), &no_list);
    adl_move_tail(&list.link('a'), &no_list);
    EXPECT_EQ("ab", list.text());
}

// Two lists: the letters before the stroke, and those behind it.
struct TwoLists : Letters {
    explicit TwoLists(const char* first, const char* second) : Letters(first) {
        adl_init(&other);
        for (; *second != '\0'; ++second) {
            adl_add_tail(&other, &link(*second));
        }
    }
    adl_link_t other;
};

TEST(IntrusiveListSplice, InsertsAtTheFrontAndLeavesTheSourceAsItWas) {
    TwoLists lists("ab", "cde");
    adl_splice(&lists.other, &lists.head);
    EXPECT_EQ("cdeab", lists.text());
    EXPECT_EQ(&lists.link('c'), lists.other.next);
    EXPECT_EQ(&lists.link('e'), lists.other.prev);
}

TEST(IntrusiveListSplice, InitLeavesTheSourceEmpty) {
    TwoLists lists("ab", "c");
    adl_splice_init(&lists.other, &lists.head);
    EXPECT_EQ("cab", lists.text());
    EXPECT_EQ("", lists.text(lists.other));
}

TEST(IntrusiveListSplice, IntoAnEmptyList) {
    TwoLists lists("", "abc");
    adl_splice_init(&lists.other, &lists.head);
    EXPECT_EQ("abc", lists.text());
}

TEST(IntrusiveListSplice, OfAnEmptyListOrOntoItselfHasNoEffect) {
    TwoLists lists("ab", "");
    adl_splice(&lists.other, &lists.head);
    adl_splice_init(&lists.other, &lists.head);
    adl_splice(&lists.head, &lists.head);
    adl_splice_init(&lists.head, &lists.head);
    EXPECT_EQ("ab", lists.text());
    EXPECT_EQ("", lists.text(lists.other));
}

TEST(IntrusiveListSplice, HeadsThatAreNoListHaveNoEffect) {
    Letters list("ab");
    adl_link_t no_list{nullptr, nullptr};
    adl_splice(&no_list, &list.head);
    adl_splice_init(&no_list, &list.head);
    adl_splice(&list.head, &no_list);
    adl_splice_init(&list.head, &no_list);
    EXPECT_EQ("ab", list.text());
    EXPECT_EQ(nullptr, no_list.next);
}

TEST(IntrusiveListStep, ForwardGoesAtMostSoManySteps) {
    Letters list("abcd");
    EXPECT_EQ(&list.link('c'), adl_forward_list(&list.link('a'), &list.head, 2));
    EXPECT_EQ(&list.link('d'), adl_forward_list(&list.link('a'), &list.head, 3));
    EXPECT_EQ(nullptr, adl_forward_list(&list.link('a'), &list.head, 4));
    EXPECT_EQ(nullptr, adl_forward_list(&list.link('a'), &list.head, 400));
    EXPECT_EQ(nullptr, adl_forward_list(&list.link('a'), &list.link('c'), 2));
}

TEST(IntrusiveListStep, RewindGoesTheOtherWay) {
    Letters list("abcd");
    EXPECT_EQ(&list.link('b'), adl_rewind_list(&list.link('d'), &list.head, 2));
    EXPECT_EQ(&list.link('a'), adl_rewind_list(&list.link('d'), &list.head, 3));
    EXPECT_EQ(nullptr, adl_rewind_list(&list.link('d'), &list.head, 4));
}

TEST(IntrusiveListStep, NoStepsOrFewerStayAtTheStart) {
    Letters list("ab");
    for (int n : {0, -1, -2147483647}) {
        EXPECT_EQ(&list.link('a'), adl_forward_list(&list.link('a'), &list.head, n));
        EXPECT_EQ(&list.link('a'), adl_rewind_list(&list.link('a'), &list.head, n));
    }
}

TEST(IntrusiveListStep, EqualEndsAndNullGiveNull) {
    Letters list("ab");
    for (auto step : {adl_forward_list, adl_rewind_list}) {
        EXPECT_EQ(nullptr, step(&list.link('a'), &list.link('a'), 0));
        EXPECT_EQ(nullptr, step(nullptr, &list.head, 1));
        EXPECT_EQ(nullptr, step(&list.head, nullptr, 1));
        EXPECT_EQ(nullptr, step(&list.link('z'), &list.head, 1));
    }
}

TEST(IntrusiveListCountBetween, LeftCountsTheStepsAndRightTheLinksBetween) {
    Letters list("abc");
    EXPECT_EQ(2, adl_count_left(&list.link('c'), &list.link('a')));
    EXPECT_EQ(1, adl_count_right(&list.link('a'), &list.link('c')));
    EXPECT_EQ(1, adl_count_left(&list.link('b'), &list.link('a')));
    EXPECT_EQ(0, adl_count_right(&list.link('a'), &list.link('b')));
    EXPECT_EQ(0, adl_count_left(&list.link('a'), &list.link('a')));
}

TEST(IntrusiveListCountBetween, HeadCountsAsALink) {
    Letters list("abc");
    EXPECT_EQ(3, adl_count_left(&list.link('a'), &list.link('b')));
    EXPECT_EQ(2, adl_count_right(&list.link('b'), &list.link('a')));
    EXPECT_EQ(3, adl_count_right(&list.head, &list.head));
}

TEST(IntrusiveListCountBetween, NoWayGivesZero) {
    TwoLists lists("abc", "de");
    EXPECT_EQ(0, adl_count_left(&lists.link('a'), &lists.link('d')));
    EXPECT_EQ(0, adl_count_right(&lists.link('a'), &lists.link('d')));
    EXPECT_EQ(0, adl_count_left(&lists.link('z'), &lists.link('a')));
    EXPECT_EQ(0, adl_count_right(&lists.link('z'), &lists.link('a')));
    EXPECT_EQ(0, adl_count_left(nullptr, &lists.head));
    EXPECT_EQ(0, adl_count_left(&lists.head, nullptr));
    EXPECT_EQ(0, adl_count_right(nullptr, &lists.head));
    EXPECT_EQ(0, adl_count_right(&lists.head, nullptr));
}

TEST(IntrusiveListNull, EveryFunctionTakesNull) {
    Letters list("ab");
    adl_init(nullptr);
    adl_add_head(nullptr, &list.link('c'));
    adl_add_tail(nullptr, &list.link('c'));
    adl_add_head(&list.head, nullptr);
    adl_add_tail(&list.head, nullptr);
    adl_del(nullptr);
    adl_del_init(nullptr);
    adl_move_head(nullptr, &list.head);
    adl_move_tail(nullptr, &list.head);
    adl_move_head(&list.link('a'), nullptr);
    adl_move_tail(&list.link('a'), nullptr);
    adl_splice(nullptr, &list.head);
    adl_splice(&list.head, nullptr);
    adl_splice_init(nullptr, &list.head);
    adl_splice_init(&list.head, nullptr);
    EXPECT_EQ("ab", list.text());
}

// Random operations on two lists beside two of std::.
struct ListModel {
    explicit ListModel(unsigned seed) : random(seed) {
        for (adl_link_t& head : heads) {
            adl_init(&head);
        }
    }

    static void remove(std::array<std::string, 2>& texts, char letter) {
        for (std::string& text : texts) {
            text.erase(std::remove(text.begin(), text.end(), letter), text.end());
        }
    }

    void step() {
        const std::size_t which = random() % 2;
        const char letter = static_cast<char>('a' + random() % 26);
        adl_link_t& link = letters.link(letter);
        switch (random() % 5) {
            case 0:
                adl_move_head(&link, &heads[which]);
                remove(model, letter);
                model[which].insert(model[which].begin(), letter);
                break;
            case 1:
                adl_move_tail(&link, &heads[which]);
                remove(model, letter);
                model[which] += letter;
                break;
            case 2:
                adl_del(&link);
                remove(model, letter);
                break;
            case 3:
                adl_del_init(&link);
                remove(model, letter);
                break;
            default:
                if (random() % 8 == 0) {
                    adl_splice_init(&heads[which], &heads[1 - which]);
                    model[1 - which].insert(0, model[which]);
                    model[which].clear();
                }
        }
    }

    std::mt19937 random;
    Letters letters;
    std::array<adl_link_t, 2> heads;
    std::array<std::string, 2> model;
};

TEST(IntrusiveListModel, RandomOperationsGiveTheOrderOfTheModel) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        ListModel lists(seed);
        for (int i = 0; i < 500; ++i) {
            lists.step();
            for (std::size_t which : {0u, 1u}) {
                ASSERT_EQ(lists.model[which], lists.letters.text(lists.heads[which]));
                ASSERT_EQ(static_cast<int>(lists.model[which].size()), adl_count(&lists.heads[which]));
            }
        }
    }
}

}  // namespace
