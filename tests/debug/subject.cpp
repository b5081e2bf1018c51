// Objects to look at by a debugger, which stops in look().
#include <orvil/orvil.h>

#include <new>

namespace {

int looks = 0;

[[gnu::noinline]] void look() {
    looks = looks + 1;
}

void fill(CLexTokenBlock& root, CLexTokenBlock& view) {
    bt_init_block(view, "View");
    bt_add_block_assign(view, "Width", 640);
    bt_add_block_assign(view, "Title", "Main view", true);
    root.SetupGrammerType(eGrammerBlock);
    root.AddBlock(view);
    CLexToken number;
    number.Create("0x1F", 3, 12, true, eTokenNone);
    root.AddToken(number);
}

}  // namespace

int main() {
    CExtString no_text;
    CExtString text("one \"two\"");
    CExtStrArray no_texts;
    CExtStrArray texts("alpha", "", "gamma", static_cast<const char*>(nullptr));
    CExtArray<C2DPoint> points;
    points.Add(C2DPoint(1.5, -2));
    points.SetAt(2, C2DPoint(3, 4));
    CExtStrList words("alpha", "", static_cast<const char*>(nullptr));
    CExtList<C2DLine> lines;
    lines.AddTail(C2DLine(0, 0, 4, 3));
    lines.AddHead(C2DLine(1, 1, 1, 2));
    CExtStrHash no_names;
    CExtStrHash names(1);
    names.SetAt("sky", "blue");
    names.SetAt(-7, "red");
    CExtHash<int> counts(1);
    counts.SetAt("", 1);
    counts.SetAt(5U, 2);
    counts.SetAt(0.5, 3);
    CLexToken no_token;
    CLexToken token;
    token.Create("0x1F", 3, 12, true, eTokenNone);
    CLexTokenBlock root;
    CLexTokenBlock view;
    fill(root, view);
    CLexTokenBlock listing;
    bt_init_listing(listing);
    bt_add_listing_item(listing, 12);
    const C2DPoint point(0.12345678901234, 1e30);
    const C3DPoint corner(1, 2, 3);
    const C2DLine line(0, 0, 4, 3);
    const C3DLine edge(C3DPoint(0, 0, 1), C3DPoint(4, 3, 1));
    const C2DVectorLine ray(1, 2, 3, 4);
    const C3DVectorLine beam(C3DPoint(1, 2, 3), C3DPoint(0, 0, 1));
    const C2DEllipse arc(C2DPoint(1, 1), C2DPoint(2, 0), 0.5, 0, 3);
    look();
    return looks == 1 && point.x > 0 && corner.x > 0 && line.end.x > 0 && edge.end.x > 0 && ray.base.x > 0 &&
                   beam.base.x > 0 && arc.ratio > 0
               ? 0
               : 1;
}
