// Prints the layers that a token-block file describes: list_layers examples/data/layers.cfg
#include <orvil/orvil.h>

#include <cstdio>

int main(int argc, char** argv) {
    CLexTokenBlock file;
    CExtString message;
    if (argc != 2 || !bt_input_file(argv[1], file, message)) {
        std::fprintf(stderr, "cannot read the layers: %s", message.GetString());
        return 1;
    }
    CLexTokenBlock layers;
    bt_search_block(file, "Layers", layers, 0);
    int index = 0;
    while (const CLexTokenBlock* layer = bt_search_block(layers, "", index)) {
        double width = 0;
        bool visible = false;
        bt_get_block_assign(*layer, "Width", width);
        bt_get_block_assign(*layer, "Visible", visible);
        std::printf("%-8s %4.2f mm, %s\n", layer->GetString(), width, visible ? "shown" : "hidden");
    }
    return 0;
}
