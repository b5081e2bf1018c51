// Passes parameters in a record set, shows them as a table, and keeps named objects in a list: collect_records
#include <orvil/orvil.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <new>

namespace {

int print_type(const char* name, const __aVPRESTVITEM_t* item, void*) {
    std::printf("  %s: %c\n", name, item->type);
    return 0;
}

// Records are found by the place of their link in them.
const vpdpc_entry_t* entry_of(const adl_link_t* link) {
    return reinterpret_cast<const vpdpc_entry_t*>(reinterpret_cast<std::uintptr_t>(link) -
                                                  offsetof(vpdpc_entry_t, link));
}

void print_table(const vpdp_cont_t* cont) {
    std::printf("%s: %s %d, %s %d\n", cont->name, cont->caption1, cont->width1, cont->caption2, cont->width2);
    for (const adl_link_t* link = cont->entries.next; link != &cont->entries; link = link->next) {
        const vpdpc_entry_t* entry = entry_of(link);
        std::printf("%s%s\n", entry->label, entry->value == nullptr ? "" : entry->value);
    }
}

void show_records(const vpr_set_t& set) {
    vpdp_root_t root;
    vpdp_init_root(&root);
    if (vpdp_cont_t* cont = vpdp_add_cont(&root, "Pens of the plotter", nullptr, nullptr)) {
        vpdpc_add_labelf(cont, "%d pens", 1);
        vpdpc_build_vpres(cont, nullptr, &set, nullptr);
        print_table(cont);
    }
    vpdp_destroy_root(&root);
}

void use_records() {
    CVarResource pen;
    pen.AddDbl("width", 0.35);
    pen.AddInt("colour", 7);
    pen.AddStrFormat("name", "pen %d", pen.RefInt("colour"));
    std::printf("pen has %d records\n", pen.Count());
    pen.Traverse(1, print_type, nullptr);
    std::printf("width as text %s\n", pen.GetStr("width", nullptr));

    vpr_set_t set;
    if (vpr_init(&set, 8, 8) == 0) {
        pen.Traverse(
            0,
            [](const char* name, const __aVPRESTVITEM_t* item, void* user) {
                const void* value = item->type == 's' ? item->value.s : static_cast<const void*>(&item->value);
                return vpr_add(static_cast<vpr_set_t*>(user), name, item->type, value);
            },
            &set);
        show_records(set);
        vpr_destroy(&set);
    }
}

// A named object of this program.
class Layer : public CVpItem {
public:
    explicit Layer(int colour) : colour_(colour) {}
    CVpItem* duplicate() const override { return new (std::nothrow) Layer(*this); }
    int colour() const { return colour_; }

private:
    int colour_;
};

void add_layer(CVpList& layers, const char* name, int colour) {
    auto* layer = new Layer(colour);
    if (!layer->SetName(name) || !layers.AddTail(layer)) {
        delete layer;
    }
}

void use_items() {
    CVpList layers(false, 37);
    add_layer(layers, "Walls", 1);
    add_layer(layers, "Doors", 3);
    add_layer(layers, "WALLS", 5);  // there already: case does not matter in this list
    std::printf("layers: %s, %s\n", layers.GetHead()->GetName(), layers.GetTail()->GetName());
    const auto* doors = static_cast<const Layer*>(layers.Find("doors"));
    std::printf("doors has colour %d\n", doors->colour());
}

}  // namespace

int main() {
    use_records();
    use_items();
    return 0;
}
