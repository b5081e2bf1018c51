// Container trees as text.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "orvil/params/container_tree.h"

namespace orvil::test {

inline std::string joined(const std::vector<std::string>& texts) {
    std::string all;
    for (const std::string& text : texts) {
        all += (all.empty() ? "" : " ") + text;
    }
    return all;
}

inline int append_name(vpdp_cont_t* cont, void* user) {
    static_cast<std::vector<std::string>*>(user)->push_back(cont->name);
    return 0;
}

// A root for the length of a test.
struct Root {
    Root() { vpdp_init_root(&root); }
    ~Root() { vpdp_destroy_root(&root); }
    Root(const Root&) = delete;
    Root& operator=(const Root&) = delete;

    operator vpdp_root_t*() { return &root; }

    vpdp_cont_t* add(const char* name) {
        vpdp_cont_t* cont = vpdp_add_cont(&root, name, nullptr, nullptr);
        EXPECT_NE(nullptr, cont) << name;
        return cont;
    }

    // The names in the order that vpdp_traverse() is asked for.
    std::string names(int order = 0) {
        std::vector<std::string> names;
        EXPECT_EQ(0, vpdp_traverse(&root, order, append_name, &names));
        return joined(names);
    }

    static int no_build(vpdp_cont_t*, void*, void*, void*, int) { return 0; }

    vpdp_root_t root;
};

inline const vpdpc_entry_t* entry_of(const adl_link_t* link) {
    return reinterpret_cast<const vpdpc_entry_t*>(reinterpret_cast<std::uintptr_t>(link) -
                                                  offsetof(vpdpc_entry_t, link));
}

// The entries, each as "label" or "label|value", a line each.
inline std::string entries(const vpdp_cont_t* cont) {
    std::string text;
    for (const adl_link_t* link = cont->entries.next; link != &cont->entries; link = link->next) {
        const vpdpc_entry_t* entry = entry_of(link);
        EXPECT_EQ(0, entry->number);
        EXPECT_EQ(&entry->children, entry->children.next);
        text += entry->label + (entry->value == nullptr ? "" : "|" + std::string(entry->value)) + "\n";
    }
    return text;
}

}  // namespace orvil::test
