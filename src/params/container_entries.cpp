#include <cstddef>
#include <cstdint>

#include "orvil/params/container_tree.h"

namespace {

// Hosts rely on the layout.
static_assert(offsetof(vpdpc_entry_t, label) == 0 && offsetof(vpdpc_entry_t, value) == 8 &&
              offsetof(vpdpc_entry_t, number) == 16 && offsetof(vpdpc_entry_t, children) == 24 &&
              offsetof(vpdpc_entry_t, link) == 40 && sizeof(vpdpc_entry_t) == 56);

vpdpc_entry_t* entry_of(adl_link_t* link) {
    return reinterpret_cast<vpdpc_entry_t*>(reinterpret_cast<std::uintptr_t>(link) - offsetof(vpdpc_entry_t, link));
}

void release(vpdpc_entry_t* entry) {
    vpr_free(entry->label);
    vpr_free(entry->value);
    vpr_free(entry);
}

char* copy_of(const char* text) {
    return vpr_strdup(text == nullptr ? "" : text);
}

// Appends an entry that owns the two texts, of which `value` may be none. When it cannot be made, they are released.
vpdpc_entry_t* append(vpdp_cont_t* cont, char* label, char* value) {
    auto* entry = label == nullptr ? nullptr : static_cast<vpdpc_entry_t*>(vpr_alloc(sizeof(vpdpc_entry_t)));
    if (entry == nullptr) {
        vpr_free(label);
        vpr_free(value);
        return nullptr;
    }
    entry->label = label;
    entry->value = value;
    adl_init(&entry->children);
    adl_add_tail(&cont->entries, &entry->link);
    return entry;
}

vpdpc_entry_t* append_with_value(vpdp_cont_t* cont, const char* label, char* value) {
    return value == nullptr ? nullptr : append(cont, copy_of(label), value);
}

// One record of a walk over a set becomes one entry.
int append_record(const char* name, const __aVPRESTVITEM_t* item, void* user) {
    auto* cont = static_cast<vpdp_cont_t*>(user);
    switch (item->type) {
        case 'i':
            vpdpc_add_valuef(cont, name, " ==> (Int) [%d]", item->value.i);
            break;
        case 'd':
            vpdpc_add_valuef(cont, name, " ==> (Dbl) [%lf]", item->value.d);
            break;
        case 's':
            vpdpc_add_valuef(cont, name, " ==> (Str) [%s]", item->value.s);
            break;
        default:
            vpdpc_add_valuef(cont, name, " ==> (unknown:%d/%c) [-]", item->type, item->type);
            break;
    }
    return 0;
}

}  // namespace

void vpdp_clear_cont(vpdp_cont_t* cont) {
    if (cont == nullptr) {
        return;
    }
    while (cont->entries.next != &cont->entries) {
        vpdpc_entry_t* entry = entry_of(cont->entries.next);
        adl_del(&entry->link);
        release(entry);
    }
}

bool vpdp_is_empty_items(const vpdp_cont_t* cont) {
    return cont == nullptr || cont->entries.next == &cont->entries;
}

vpdpc_entry_t* vpdpc_add_label(vpdp_cont_t* cont, const char* text) {
    return cont == nullptr ? nullptr : append(cont, copy_of(text), nullptr);
}

vpdpc_entry_t* vpdpc_add_labelf(vpdp_cont_t* cont, const char* format, ...) {
    va_list args;
    va_start(args, format);
    vpdpc_entry_t* entry = vpdpc_add_vlabelf(cont, format, args);
    va_end(args);
    return entry;
}

vpdpc_entry_t* vpdpc_add_vlabelf(vpdp_cont_t* cont, const char* format, va_list args) {
    return cont == nullptr ? nullptr : append(cont, vpr_vstrf(format, args), nullptr);
}

vpdpc_entry_t* vpdpc_add_value(vpdp_cont_t* cont, const char* label, const char* value) {
    return cont == nullptr ? nullptr : append_with_value(cont, label, copy_of(value));
}

vpdpc_entry_t* vpdpc_add_valuef(vpdp_cont_t* cont, const char* label, const char* format, ...) {
    va_list args;
    va_start(args, format);
    vpdpc_entry_t* entry = vpdpc_add_vvaluef(cont, label, format, args);
    va_end(args);
    return entry;
}

vpdpc_entry_t* vpdpc_add_vvaluef(vpdp_cont_t* cont, const char* label, const char* format, va_list args) {
    return cont == nullptr ? nullptr : append_with_value(cont, label, vpr_vstrf(format, args));
}

void vpdpc_build_vpres(vpdp_cont_t* cont, const char* title, const vpr_set_t* set, void* argument) {
    if (cont == nullptr) {
        return;
    }
    if (title != nullptr && *title != '\0') {
        vpdpc_add_labelf(cont, title, vpr_count(set), argument);
    }
    vpr_traverse(set, 1, append_record, cont);
}
