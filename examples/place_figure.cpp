// Places a door of a symbol library in a plan: the symbol has a leaf of length 1 and the arc through which it swings.
#include <orvil/orvil.h>

#include <cstdio>

namespace {

// From the symbol to a door of 90 cm, and from there to its place: hinged on the other side, turned upwards, at (4, 2).
void make_chain(C2DMatrixList& chain) {
    C2DMatrixItem size;
    size.scale.SetData(0.9, 0.9);
    chain.PushItem(size);

    C2DMatrixItem place;
    place.scale.SetData(1.0, -1.0);
    place.angle = DTOR(90.0);
    place.move.SetData(4.0, 2.0);
    chain.PushItem(place);
}

// Every figure takes one step at a time. False when a step cannot be applied, for instance a scale of 0 to an ellipse.
template <typename Figure>
bool place(Figure& figure, const C2DMatrixList& chain) {
    for (__pos* pos = chain.GetHeadPosition(); pos != nullptr;) {
        if (!figure.MatrixCalculation(*chain.GetNext(pos))) {
            return false;
        }
    }
    return true;
}

}  // namespace

int main() {
    C2DMatrixList chain;
    make_chain(chain);
    C2DLine leaf(0.0, 0.0, 1.0, 0.0);
    C2DEllipse swing(C2DPoint(0.0, 0.0), C2DPoint(1.0, 0.0), 1.0, 0.0, DTOR(90.0));
    if (!place(leaf, chain) || !place(swing, chain)) {
        return 1;
    }
    std::printf("leaf from (%.2f, %.2f) to (%.2f, %.2f)\n", leaf.start.x, leaf.start.y, leaf.end.x, leaf.end.y);

    // An arc's angles count from its axis.
    const double axis = GET_ANGLE(swing.axis, C2DPoint());
    double start = RTOD(axis + swing.start);
    double end = RTOD(axis + swing.end);
    CA_ARCAN(start, end);
    std::printf("swing about (%.2f, %.2f), radius %.2f, from %.0f to %.0f degrees\n", swing.center.x, swing.center.y,
                swing.GetLongRadius(), start, end);
    return 0;
}
