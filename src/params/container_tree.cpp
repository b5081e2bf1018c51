#include "orvil/params/container_tree.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "params/active_walks.h"

namespace {

// Hosts rely on the layout.
static_assert(offsetof(vpdp_root_t, list) == 0 && offsetof(vpdp_root_t, tree) == 16 && sizeof(vpdp_root_t) == 32);
static_assert(offsetof(vpdp_cont_t, name) == 0 && offsetof(vpdp_cont_t, entries) == 8 &&
              offsetof(vpdp_cont_t, build) == 24 && offsetof(vpdp_cont_t, build_arg) == 32 &&
              offsetof(vpdp_cont_t, width1) == 40 && offsetof(vpdp_cont_t, width2) == 44 &&
              offsetof(vpdp_cont_t, caption1) == 48 && offsetof(vpdp_cont_t, caption2) == 56 &&
              offsetof(vpdp_cont_t, tvdir) == 64 && offsetof(vpdp_cont_t, flags) == 68 &&
              offsetof(vpdp_cont_t, userdata) == 72 && offsetof(vpdp_cont_t, root) == 80 &&
              offsetof(vpdp_cont_t, link) == 88 && offsetof(vpdp_cont_t, node) == 104 && sizeof(vpdp_cont_t) == 128);

constexpr int kWidth = 100;
constexpr const char* kFirstCaption = "Label";
constexpr const char* kSecondCaption = "Value";

vpdp_cont_t* container_of(const adl_link_t* link) {
    return reinterpret_cast<vpdp_cont_t*>(reinterpret_cast<std::uintptr_t>(link) - offsetof(vpdp_cont_t, link));
}

vpdp_cont_t* container_of(const arbt_node_t* node) {
    return reinterpret_cast<vpdp_cont_t*>(reinterpret_cast<std::uintptr_t>(node) - offsetof(vpdp_cont_t, node));
}

vpdp_cont_t* container_or_null(const arbt_node_t* node) {
    return node == nullptr ? nullptr : container_of(node);
}

int compare_name(const arbt_node_t* node, const void* name) {
    return std::strcmp(static_cast<const char*>(name), container_of(node)->name);
}

void release(vpdp_cont_t* cont) {
    vpdp_clear_cont(cont);
    vpr_free(cont->name);
    vpr_free(cont->caption1);
    vpr_free(cont->caption2);
    vpr_free(cont);
}

// A container that is in no root, or null when there is no memory.
vpdp_cont_t* make_container(const char* name) {
    auto* cont = static_cast<vpdp_cont_t*>(vpr_alloc(sizeof(vpdp_cont_t)));
    if (cont == nullptr) {
        return nullptr;
    }
    adl_init(&cont->entries);
    arbt_init_node(&cont->node);
    cont->width1 = kWidth;
    cont->width2 = kWidth;
    cont->name = vpr_strdup(name);
    cont->caption1 = vpr_strdup(kFirstCaption);
    cont->caption2 = vpr_strdup(kSecondCaption);
    if (cont->name == nullptr || cont->caption1 == nullptr || cont->caption2 == nullptr) {
        release(cont);
        return nullptr;
    }
    return cont;
}

// The new caption may be the old one.
void set_caption(char*& caption, const char* text) {
    char* copy = vpr_strdup(text);
    if (copy != nullptr) {
        vpr_free(caption);
        caption = copy;
    }
}

vpdp_cont_t* next_created(const vpdp_cont_t* cont) {
    const adl_link_t* next = cont->link.next;
    return next == &cont->root->list ? nullptr : container_of(next);
}

vpdp_cont_t* next_named(const vpdp_cont_t* cont) {
    return container_or_null(arbt_get_next(&cont->node));
}

vpdp_cont_t* previous_named(const vpdp_cont_t* cont) {
    return container_or_null(arbt_get_prev(&cont->node));
}

using Walk = orvil::detail::ActiveWalk<vpdp_cont_t>;

Walk begin_walk(const vpdp_root_t& root, int order) {
    const int limit = root.tree.count;
    if (order > 0) {
        return Walk(container_or_null(arbt_get_first(&root.tree)), next_named, limit);
    }
    if (order < 0) {
        return Walk(container_or_null(arbt_get_last(&root.tree)), previous_named, limit);
    }
    return Walk(limit == 0 ? nullptr : container_of(root.list.next), next_created, limit);
}

}  // namespace

void vpdp_init_root(vpdp_root_t* root) {
    if (root != nullptr) {
        adl_init(&root->list);
        arbt_init_root(&root->tree);
    }
}

void vpdp_destroy_root(vpdp_root_t* root) {
    while (root != nullptr && root->tree.node != nullptr) {
        vpdp_destroy_cont(container_of(root->list.next));
    }
}

int vpdp_traverse(vpdp_root_t* root, int order, vpdp_visit_t callback, void* user) {
    if (root == nullptr) {
        return -1;
    }
    if (callback == nullptr) {
        return 0;
    }
    Walk walk = begin_walk(*root, order);
    while (vpdp_cont_t* cont = walk.take()) {
        const int result = callback(cont, user);
        if (result != 0) {
            return result;
        }
    }
    return 0;
}

vpdp_cont_t* vpdp_add_cont(vpdp_root_t* root, const char* name, vpdp_build_t buildCallback, void* buildArgument) {
    if (root == nullptr || name == nullptr) {
        return nullptr;
    }
    vpdp_cont_t* cont = make_container(name);
    if (cont == nullptr) {
        return nullptr;
    }
    if (arbt_entry_node(&root->tree, &cont->node, compare_name, cont->name) != 0) {
        release(cont);
        return nullptr;
    }
    cont->build = buildCallback;
    cont->build_arg = buildArgument;
    cont->root = root;
    adl_add_tail(&root->list, &cont->link);
    return cont;
}

vpdp_cont_t* vpdp_search_cont(const vpdp_root_t* root, const char* name) {
    return root == nullptr ? nullptr : container_or_null(arbt_find_node(&root->tree, compare_name, name));
}

void vpdp_destroy_cont(vpdp_cont_t* cont) {
    if (cont != nullptr) {
        Walk::leave_out(cont);
        arbt_erase_entry(&cont->node, &cont->root->tree);
        adl_del(&cont->link);
        release(cont);
    }
}

void vpdp_build_cont(vpdp_cont_t* cont, void* a, void* b) {
    if (cont != nullptr && cont->build != nullptr) {
        cont->build(cont, cont->build_arg, a, b, 0);
    }
}

void vpdp_set_cont_params(vpdp_cont_t* cont, int firstWidth, const char* firstCaption, int secondWidth,
                          const char* secondCaption) {
    if (cont == nullptr) {
        return;
    }
    cont->width1 = firstWidth > 0 ? firstWidth : cont->width1;
    cont->width2 = secondWidth > 0 ? secondWidth : cont->width2;
    set_caption(cont->caption1, firstCaption);
    set_caption(cont->caption2, secondCaption);
}

int vpdp_get_cont_tvdir(const vpdp_cont_t* cont) {
    return cont == nullptr ? 0 : cont->tvdir;
}

int vpdp_set_cont_tvdir(vpdp_cont_t* cont, int value) {
    const int former = vpdp_get_cont_tvdir(cont);
    if (cont != nullptr) {
        cont->tvdir = value;
    }
    return former;
}

unsigned vpdp_get_cont_flags(const vpdp_cont_t* cont) {
    return cont == nullptr ? 0 : cont->flags;
}

unsigned vpdp_set_cont_flags(vpdp_cont_t* cont, unsigned mask, unsigned bits) {
    const unsigned former = vpdp_get_cont_flags(cont);
    if (cont != nullptr) {
        cont->flags = (former & ~mask) | bits;
    }
    return former;
}

void* vpdp_get_cont_userdata(const vpdp_cont_t* cont) {
    return cont == nullptr ? nullptr : cont->userdata;
}

void* vpdp_set_cont_userdata(vpdp_cont_t* cont, void* userdata) {
    void* former = vpdp_get_cont_userdata(cont);
    if (cont != nullptr) {
        cont->userdata = userdata;
    }
    return former;
}
