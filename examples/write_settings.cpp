// Writes a settings file: a heading, a block of values with a block inside, and a list of values in one line.
#include <cstdio>

#include "orvil/tokens/block_tokens.h"

namespace {

bool add_page(CLexTokenBlock& master) {
    CLexTokenBlock margins;
    bool done = bt_init_block(margins, "Margins");
    done = done && bt_add_block_assign(margins, "Left", 10);
    done = done && bt_add_block_assign(margins, "Right", 20);

    CLexTokenBlock page;
    done = done && bt_init_block_with_marker(page, "Page", "Kind", "page settings");
    done = done && bt_add_block_assign(page, "Width", 841.0, "%.1lf");
    done = done && bt_add_block_assign(page, "Colour", 0xFF8000U);
    done = done && bt_add_block_assign(page, "Border", true);
    done = done && bt_add_block_assign(page, "Title", "Sheet \"1\"", true);
    done = done && bt_insert_block(page, margins) >= 0;
    return done && bt_add_block(master, page) >= 0;
}

bool add_scales(CLexTokenBlock& master) {
    CLexTokenBlock scales;
    bool done = bt_init_listing(scales);
    for (int scale : {1, 2, 5, 10}) {
        done = done && bt_add_listing_item(scales, scale);
    }
    return done && bt_add_block(master, scales) >= 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: write_settings FILE\n");
        return 1;
    }
    CLexTokenBlock master;
    if (!bt_make_master_block(master, argv[1], "Page settings\nWritten by an example") || !add_page(master) ||
        !add_scales(master) || !bt_output_file(argv[1], master, false)) {
        std::fprintf(stderr, "%s cannot be written\n", argv[1]);
        return 1;
    }
    return 0;
}
