// Prints the corners of a smooth line through the points of the command line: a cubic curve where the points allow one,
// straight segments where they do not.
#include <cstdio>
#include <cstdlib>

#include "orvil/geometry/nurbs.h"

namespace {

constexpr double kApart = 1e-6;
constexpr int kDivisions = 4;

bool draw(CCalcNurbs& curve) {
    curve.SetDimension(3);
    if (curve.CanNurbsize(kApart) && curve.CreateCtrl() && curve.CreateLines(kDivisions)) {
        return true;
    }
    return curve.LinearComplement();
}

void print(const C3DPoint& point) {
    std::printf("%.3f %.3f\n", point.x, point.y);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 5 || argc % 2 == 0) {
        std::fprintf(stderr, "usage: draw_curve X Y X Y ...\n");
        return 1;
    }
    CCalcNurbs curve;
    CNurbsFitPoint fit;
    for (int i = 1; i < argc; i += 2) {
        fit.point.SetData(std::atof(argv[i]), std::atof(argv[i + 1]), 0.0);
        curve.AppendFit(fit);
    }
    if (!draw(curve)) {
        std::fprintf(stderr, "out of memory\n");
        return 1;
    }
    print(curve.GetLine(0)->start);
    for (int i = 0; i < curve.GetLineSize(); ++i) {
        print(curve.GetLine(i)->end);
    }
    return 0;
}
