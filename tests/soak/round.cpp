// One round of work with each subsystem. Each part is a small, complete use: what it makes is gone when it returns.
#include "soak/round.h"

#include <orvil/orvil.h>

#include <cstring>

namespace {

CExtString numbered(const char* before, unsigned number, const char* behind = "") {
    CExtString text;
    text.Format("%s%u%s", before, number, behind);
    return text;
}

// --- Strings, containers, regular expressions ---------------------------------------------------------------------

bool uses_strings(unsigned number) {
    CExtString text;
    for (unsigned i = 0; i < 200; ++i) {
        text += numbered("", number % 1000 + i, " ");
    }
    const CExtStrArray words = text.RegexSplit("/ +/");
    CExtStrList list;
    CExtStrHash lengths;
    CExtHash<int> places;
    for (int i = 0; i < words.GetSize(); ++i) {
        list.AddTail(words[i]);
        lengths.SetAt(words[i], words[i]);
        places.SetAt(words[i], i);
    }
    int place = -1;
    return places.Lookup(numbered("", number % 1000 + 7).GetString(), place) && place == 7 && list.GetCount() >= 200 &&
           lengths.GetCount() >= 200;
}

bool uses_regular_expressions(unsigned number) {
    // More patterns than a program has: the cache has to let go of some.
    const CExtString pattern = numbered("/(sheet)", number % 5000, "-(\\d+)/");
    const CExtString name = numbered("sheet", number % 5000, "-12.plt");
    CExtStrArray parts;
    if (name.RegexMatch(pattern.GetString(), parts) <= 0 || std::strcmp(parts[2], "12") != 0) {
        return false;
    }
    regex_remove(pattern.GetString());
    return name.RegexReplace("/\\.plt$/", ".out").GetLength() == name.GetLength();
}

// --- Token blocks: made, written, parsed, searched, edited, written again -----------------------------------------

bool make_page(CLexTokenBlock& page, int number) {
    CLexTokenBlock scales;
    bool done = bt_init_block_with_marker(page, "Page", "Kind", "page settings");
    done = done && bt_add_block_assign(page, "Number", number);
    done = done && bt_add_block_assign(page, "Width", 841.0);
    done = done && bt_add_block_assign(page, "Title", "Sheet \"1\"", true);
    done = done && bt_init_listing(scales);
    for (int scale = 1; done && scale < 20; ++scale) {
        done = bt_add_listing_item(scales, scale);
    }
    return done && bt_insert_block(page, scales) >= 0;
}

bool write_pages(const char* path) {
    CLexTokenBlock master;
    bool done = bt_make_master_block(master, path, "Pages");
    for (int i = 0; done && i < 50; ++i) {
        CLexTokenBlock page;
        done = make_page(page, i) && bt_add_block(master, page) >= 0;
    }
    return done && bt_output_file(path, master, false);
}

bool edit_pages(const char* path) {
    CLexTokenBlock root;
    if (!bt_input_file(path, root)) {
        return false;
    }
    int pages = 0;
    int next = 0;
    while (CLexTokenBlock* page = bt_search_block(root, "Page", next)) {
        int number = -1;
        if (!bt_get_block_assign(*page, "Number", number) || number != pages || !page->DeleteAllBlocks()) {
            return false;
        }
        ++pages;
    }
    CExtString dump;
    root.MakeDumpString(dump, 0);
    const CLexTokenBlock copy(root);
    return pages == 50 && copy.GetBlockCount() == root.GetBlockCount() && !dump.IsEmpty();
}

bool uses_token_blocks() {
    const char* const path = "pages.cfg";
    CLexTokenBlock nothing;
    CExtString message;
    return write_pages(path) && edit_pages(path) && !bt_input_file("none.cfg", nothing, message) && !message.IsEmpty();
}

// --- Message files ------------------------------------------------------------------------------------------------

bool uses_messages(unsigned number) {
    const char* const path = "messages.cfg";
    CMessageManager written;
    for (unsigned map = 1; map <= 5; ++map) {
        CMessageMap messages;
        messages.SetupSubjectKey(static_cast<int>(map), numbered("Map ", map).GetString());
        for (int code = 1; code <= 100; ++code) {
            messages.AddItem(code, numbered("message ", number).GetString());
        }
        messages.DeleteItem(50);
        if (!written.AddMap(messages)) {
            return false;
        }
    }
    CMessageManager read;
    if (!written.Store(path, "Messages") || !read.Load(path)) {
        return false;
    }
    const CMessageManager copy(read);
    const CMessageMap* map = copy.SearchMessageMap("Map 3");
    return map != nullptr && map->SearchItemText(99) != nullptr && map->SearchItemText(50) == nullptr;
}

// --- Options ------------------------------------------------------------------------------------------------------

bool uses_options() {
    const char* const switches[] = {"verbose: v", nullptr};
    const char* const values[] = {"output: o", "scale", nullptr};
    const char* const lists[] = {"layer: l", nullptr};
    getopt_initialize();
    bool done = getopt_init_boolmap(switches) && getopt_init_scalarmap(values) && getopt_init_listmap(lists);
    CExtStrList arguments;
    done =
        done && getopt_parse_string_to_list("-v --scale=2.5 -l Walls --layer Doors \"a b.plt\" c.plt", arguments, true);
    done = done && getopt_parse_arguments(arguments, true) && getopt_boolean("verbose") &&
           getopt_list_count("layer") == 2 && getopt_scalar("scale") == "2.5" && getopt_item_count() == 2;
    getopt_terminate();
    return done;
}

// --- Records, tables, named items ---------------------------------------------------------------------------------

bool uses_records(unsigned number) {
    CVarResource pens;
    for (unsigned i = 0; i < 100; ++i) {
        pens.AddStrFormat(numbered("pen ", i).GetString(), "%u", number + i);
    }
    CVarResource some;
    if (!some.MaskedCopy(pens, "pen 7,pen 8", ',') || !some.AddInt("colour", 7) || !pens.Update(some)) {
        return false;
    }
    pens.Delete("pen 7");
    vpr_set_t set;
    if (vpr_init(&set, 8, 8) != 0) {
        return false;
    }
    vpr_add_dbl(&set, "width", 0.35);
    vpdp_root_t root;
    vpdp_init_root(&root);
    vpdp_cont_t* table = vpdp_add_cont(&root, "Pens", nullptr, nullptr);
    if (table != nullptr) {
        vpdpc_add_valuef(table, "count", "%d", pens.Count());
        vpdpc_build_vpres(table, nullptr, &set, nullptr);
    }
    vpdp_destroy_root(&root);
    vpr_destroy(&set);
    return table != nullptr && pens.Count() == 100;
}

bool uses_named_items() {
    CVpList layers(false, 37);
    for (unsigned i = 0; i < 100; ++i) {
        auto* layer = new CVpItem;
        if (!layer->SetName(numbered("Layer ", i).GetString()) || !layers.AddTail(layer)) {
            delete layer;
            return false;
        }
    }
    return layers.Find("LAYER 42") != nullptr;
}

// --- Files and geometry -------------------------------------------------------------------------------------------

bool uses_files() {
    CFilePath path;
    if (!path.CreateFromFullPath("pages.cfg")) {
        return false;
    }
    CFileSearch search;
    int found = 0;
    if (!search.Setup("*.cfg")) {
        return false;
    }
    while (search.FindNext()) {
        ++found;
    }
    return found == 2;
}

bool uses_curves(unsigned number) {
    CCalcNurbs curve;
    CNurbsFitPoint fit;
    for (int i = 0; i < 40; ++i) {
        fit.point.SetData(i, (i + static_cast<int>(number % 7)) % 5, 0.0);
        curve.AppendFit(fit);
    }
    curve.SetDimension(3);
    const CCalcNurbs* drawn = curve.CreateCtrl() && curve.CreateLines(8) ? new CCalcNurbs(curve) : nullptr;
    const bool done = drawn != nullptr && drawn->GetLineSize() == curve.GetLineSize() && curve.GetLineSize() > 40;
    delete drawn;
    return done;
}

bool uses_placement() {
    C2DMatrixList chain;
    C2DMatrixItem step;
    step.angle = DTOR(30.0);
    step.scale.SetData(2.0, 2.0);
    for (int i = 0; i < 10; ++i) {
        chain.PushItem(step);
    }
    C2DEllipse arc(C2DPoint(1.0, 0.0), C2DPoint(1.0, 0.0), 0.5, 0.0, DTOR(90.0));
    for (__pos* pos = chain.GetHeadPosition(); pos != nullptr;) {
        if (!arc.MatrixCalculation(*chain.GetNext(pos))) {
            return false;
        }
    }
    return !arc.GetDumpText().IsEmpty() && ZERO(arc.GetLongRadius() - 1024.0, 1e-6);
}

}  // namespace

#ifdef _WIN32
#define ORVIL_SOAK_EXPORT __declspec(dllexport)

// The module holds a C++ runtime of its own, which does not give back what it sets aside for exceptions.
namespace __gnu_cxx {
void __freeres();
}
[[gnu::destructor]] static void unloaded() {
    __gnu_cxx::__freeres();
}
#else
#define ORVIL_SOAK_EXPORT __attribute__((visibility("default")))
#endif

extern "C" ORVIL_SOAK_EXPORT const char* soak_round(unsigned number) {
    const bool done[] = {uses_strings(number), uses_regular_expressions(number),
                         uses_token_blocks(),  uses_messages(number),
                         uses_options(),       uses_records(number),
                         uses_named_items(),   uses_files(),
                         uses_curves(number),  uses_placement()};
    const char* const names[] = {"strings", "regular expressions", "token blocks", "messages", "options",
                                 "records", "named items",         "files",        "curves",   "placement"};
    for (std::size_t i = 0; i < sizeof done / sizeof *done; ++i) {
        if (!done[i]) {
            return names[i];
        }
    }
    return nullptr;
}
