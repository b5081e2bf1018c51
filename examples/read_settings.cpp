// Reads a settings file and prints some of it: single values, the blocks of one kind, and a list of values.
#include <cstdio>

#include "orvil/tokens/block_tokens.h"

namespace {

void print_layer(const CLexTokenBlock& layer) {
    int number = 0;
    bool visible = false;
    double width = 0;
    unsigned int colour = 0;
    if (bt_get_block_assign(layer, "Number", number) && bt_get_block_assign(layer, "Visible", visible) &&
        bt_get_block_assign(layer, "Width", width) && bt_get_block_assign(layer, "Colour", colour)) {
        std::printf("layer %d %s: %s, %.2f mm, colour %06X\n", number, layer.GetString(), visible ? "shown" : "hidden",
                    width, colour);
    }
}

// The children of an assignment are '=', its values and ';'.
void print_pens(const CLexTokenBlock& layer) {
    const CLexTokenBlock* pens = layer.FindAssignmentBlockEntity("Pens");
    for (int i = 1; pens != nullptr && i < pens->GetBlockCount() - 1; ++i) {
        std::printf("  pen %s\n", pens->GetAt(i)->GetString());
    }
}

}  // namespace

int main(int argc, char** argv) {
    CLexTokenBlock root;
    CExtString message;
    if (argc != 2 || !bt_input_file(argv[1], root, message)) {
        std::fprintf(stderr, "%s", argc == 2 ? message.GetString() : "usage: read_settings FILE\n");
        return 1;
    }
    const CLexTokenBlock* layers = bt_search_block(root, "Layers");
    if (layers == nullptr) {
        std::fprintf(stderr, "there is no block Layers\n");
        return 1;
    }
    // An empty name finds every block; the index steps on from one to the next.
    int next = 0;
    while (const CLexTokenBlock* layer = bt_search_block(*layers, "", next)) {
        print_layer(*layer);
        print_pens(*layer);
    }
    return 0;
}
