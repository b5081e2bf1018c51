// Uses the library through nothing but its installed headers; the exit code is 0 when it works.
#include <orvil/orvil.h>

#include <cstring>

// Classes and flat functions.
static bool builds_a_block() {
    CLexTokenBlock view;
    int width = 0;
    return bt_init_block(view, "View") && bt_add_block_assign(view, "Width", 640) &&
           bt_get_block_assign(view, "Width", width) && width == 640;
}

// A template, which is compiled in the consumer and takes its memory from the library.
static bool keeps_values_by_key() {
    CExtHash<int> pages;
    int page = 0;
    return pages.SetAt("index", 12) && pages.Lookup("index", page) && page == 12;
}

// Exported data.
static bool sees_the_statistics() {
    CExtString text('x', 100);
    return st_dwMostLargeSize >= 100 && std::strcmp(CExtString().GetString(), "") == 0;
}

int main() {
    return builds_a_block() && keeps_values_by_key() && sees_the_statistics() ? 0 : 1;
}
