// Options, lists and trees, records, containers and named items.
#include <gtest/gtest.h>

#include <cstdio>
#include <new>

#include "entry_points/entry_points.h"
#include "orvil/options/option_parser.h"
#include "orvil/orvil.h"

namespace orvil::test {
namespace {

const char* const kText = "a text of some more than thirty-two bytes";

int before(const arbt_node_t* node, const void* key) {
    return node < key ? 1 : node > key ? -1 : 0;
}

TEST(EntryPointsOfParams, OptionsAreDumped) {
    sweep_each([] {
        const char* const names[] = {"name: n", nullptr};
        getopt_initialize();
        getopt_init_listmap(names);
        CExtStrList arguments;
        getopt_parse_string_to_list("-n 1 -n 2 item", arguments, true);
        getopt_parse_arguments(arguments, true);
        getopt_item_empty();
        if (std::FILE* file = std::tmpfile()) {
            getopt_booldump(file);
            getopt_scalardump(file);
            getopt_listdump(file);
            getopt_itemdump(file);
            std::fclose(file);
        }
        getopt_terminate();
    });
}

TEST(EntryPointsOfParams, ListsLinkTheirNodes) {
    sweep_each([] {
        adl_link_t head;
        adl_link_t other;
        adl_link_t nodes[3];
        adl_init(&head);
        adl_init(&other);
        adl_add_head(&head, &nodes[0]);
        adl_add_tail(&head, &nodes[1]);
        adl_add_tail(&head, &nodes[2]);
        EXPECT_EQ(adl_count_left(&nodes[1], &nodes[0]), 1);
        EXPECT_EQ(adl_count_right(&nodes[0], &nodes[1]), 0);
        EXPECT_EQ(adl_forward_list(&nodes[0], &head, 1), &nodes[1]);
        EXPECT_EQ(adl_rewind_list(&nodes[1], &head, 1), &nodes[0]);
        adl_move_head(&nodes[2], &head);
        adl_move_tail(&nodes[2], &head);
        adl_del(&nodes[2]);
        adl_del_init(&nodes[1]);
        adl_splice(&other, &head);
        adl_splice_init(&head, &other);
        EXPECT_EQ(adl_count(&other), 1);
    });
}

TEST(EntryPointsOfParams, TreesLinkTheirNodes) {
    sweep_each([] {
        arbt_root_t root;
        arbt_node_t nodes[3];
        arbt_init_root(&root);
        for (arbt_node_t& node : nodes) {
            arbt_init_node(&node);
            arbt_entry_node(&root, &node, before, &node);
        }
        EXPECT_EQ(arbt_find_node(&root, before, &nodes[1]), &nodes[1]);
        EXPECT_EQ(arbt_get_next(arbt_get_first(&root)), arbt_get_prev(arbt_get_last(&root)));
        EXPECT_EQ(arbt_traverse(
                      &root, 0, [](arbt_node_t*, void*) { return 0; }, nullptr),
                  0);
        arbt_node_t other;
        arbt_replace_node(&nodes[1], &other, &root);
        arbt_erase_entry(&other, &root);
        arbt_root_t single;
        arbt_init_root(&single);
        arbt_link_node(&other, nullptr, &single.node);
        arbt_set_parent(&other, nullptr);
        arbt_set_color(&other, 0);
        arbt_insert_fixup(&other, &single);
    });
}

TEST(EntryPointsOfParams, RecordsAreAddedAndRead) {
    sweep_each(
        [] {
            CVarResource resource;
            resource.AddDbl("width", 1.5);
            resource.AddStr("name", kText);
            auto use = [&resource](va_list arguments) { resource.AddStrFormatV("format", "%s", arguments); };
            with_arguments(&use, kText);
        },
        [] {
            // A copy uses the records of its source, and destroys them: the source itself must not.
            auto* source = new (std::nothrow) CVarResource;
            if (source != nullptr) {
                { const CVarResource copy(*source); }
                ::operator delete(static_cast<void*>(source));
            }
            auto* second = new (std::nothrow) CVarResource;
            if (second != nullptr) {
                {
                    CVarResource copy;
                    copy = *second;
                }
                ::operator delete(static_cast<void*>(second));
            }
        },
        [] {
            vpr_set_t set;
            if (vpr_init(&set, 8, 8) != 0) {
                return;
            }
            const int number = 7;
            vpr_add(&set, "number", 'i', &number);
            auto use = [&set](va_list arguments) { vpr_add_vstrf(&set, "format", "%s", arguments); };
            with_arguments(&use, kText);
            auto text = [](va_list arguments) { vpr_free(vpr_vstrf("%s", arguments)); };
            with_arguments(&text, kText);
            EXPECT_EQ(vpr_ref_dbl(&set, "none"), 0.0);
            vpr_destroy(&set);
        });
}

void fill(vpdp_cont_t* cont) {
    auto label = [cont](va_list arguments) { vpdpc_add_vlabelf(cont, "%s", arguments); };
    with_arguments(&label, kText);
    auto value = [cont](va_list arguments) { vpdpc_add_vvaluef(cont, "label", "%s", arguments); };
    with_arguments(&value, kText);
}

TEST(EntryPointsOfParams, ContainersAreFilledAndCleared) {
    sweep_each([] {
        vpdp_root_t root;
        vpdp_init_root(&root);
        if (vpdp_cont_t* cont = vpdp_add_cont(&root, "name", nullptr, nullptr)) {
            fill(cont);
            vpdp_build_cont(cont, nullptr, nullptr);
            vpdp_set_cont_flags(cont, 1, 1);
            vpdp_set_cont_tvdir(cont, 2);
            vpdp_set_cont_userdata(cont, &root);
            EXPECT_EQ(vpdp_get_cont_flags(cont), 1u);
            EXPECT_EQ(vpdp_get_cont_tvdir(cont), 2);
            EXPECT_EQ(vpdp_get_cont_userdata(cont), &root);
            EXPECT_EQ(vpdp_traverse(
                          &root, 0, [](vpdp_cont_t*, void*) { return 0; }, nullptr),
                      0);
            vpdp_clear_cont(cont);
            vpdp_destroy_cont(cont);
        }
        vpdp_destroy_root(&root);
    });
}

void add(CVpList& list, const char* name) {
    auto* item = new (std::nothrow) CVpItem;
    if (item != nullptr && (!item->SetName(name) || !list.AddHead(item))) {
        delete item;
    }
}

TEST(EntryPointsOfParams, NamedItemsAreMovedAndCopied) {
    sweep_each([] {
        CVpList list(true, 7);
        add(list, "first");
        add(list, "second");
        if (CVpItem* item = list.GetHead()) {
            CVpItem copy;
            copy.Copy(*item);
            CVpItem other;
            other = *item;
            other.OnDestroy();
            item->CompareName("a");
            item->CompareNameNoCase("a");
            auto* next = new (std::nothrow) CVpItem;
            if (next != nullptr && (!next->SetName("third") || !item->InsertNext(next))) {
                delete next;
            }
            auto* previous = new (std::nothrow) CVpItem;
            if (previous != nullptr && (!previous->SetName("fourth") || !item->InsertPrev(previous))) {
                delete previous;
            }
        }
        CVpItem* tail = list.GetTail();
        if (tail != nullptr && !tail->MoveHead(&list)) {
            delete tail;
        }
        CVpList copy(list);
        copy = list;
        copy.Clear();
    });
}

}  // namespace
}  // namespace orvil::test
