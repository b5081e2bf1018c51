// Rounds the corner of two walls: round_corner RADIUS X1 Y1 X2 Y2 X3 Y3 X4 Y4, each wall from its far end to its near
// one.
#include <orvil/orvil.h>

#include <cstdio>
#include <cstdlib>

namespace {

// A point on the way from one to another, at a distance from the first.
C2DPoint towards(const C2DPoint& from, const C2DPoint& to, double distance) {
    C2DPoint point;
    GET_ONPC(from, distance, RTOD(GET_ANGLE(to, from)), point);
    return point;
}

int fail(const char* message) {
    std::fprintf(stderr, "round_corner: %s\n", message);
    return 1;
}

int round_corner(double radius, const C2DLine& a, const C2DLine& b) {
    C2DPoint corner;
    if (CA_INS2L(a.start, a.end, b.start, b.end, corner) == 2) {
        return fail("the walls are parallel");
    }
    // On the line that halves the corner a circle touches both walls; how large it is grows with the distance.
    const C2DPoint on_a = towards(corner, a.start, 1.0);
    const C2DPoint on_b = towards(corner, b.start, 1.0);
    C2DPoint centre((on_a.x + on_b.x) / 2.0, (on_a.y + on_b.y) / 2.0);
    C2DPoint foot;
    double reach = 0.0;
    CA_PERLN(corner, on_a, centre, foot, reach);
    centre.Stretch(corner, radius / reach, radius / reach);

    C2DPoint end_of_a, end_of_b;
    if (CA_PERLN(a.start, corner, centre, end_of_a, reach) != 0 ||
        CA_PERLN(b.start, corner, centre, end_of_b, reach) != 0) {
        return fail("a wall is too short for this radius");
    }
    int side = 0;
    CA_POSLN(C2DLine(a.start, corner), b.start, side);
    double start = RTOD(GET_ANGLE(side < 0 ? end_of_a : end_of_b, centre));
    double end = RTOD(GET_ANGLE(side < 0 ? end_of_b : end_of_a, centre));
    CA_ARCAN(start, end);
    std::printf("corner (%.3f, %.3f)\n", corner.x, corner.y);
    std::printf("walls end at (%.3f, %.3f) and (%.3f, %.3f)\n", end_of_a.x, end_of_a.y, end_of_b.x, end_of_b.y);
    std::printf("arc about (%.3f, %.3f) from %.1f to %.1f degrees\n", centre.x, centre.y, start, end);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 10) {
        std::fprintf(stderr, "usage: round_corner RADIUS X1 Y1 X2 Y2 X3 Y3 X4 Y4\n");
        return 2;
    }
    double v[9];
    for (int i = 0; i < 9; ++i) {
        v[i] = std::atof(argv[i + 1]);
    }
    return round_corner(v[0], C2DLine(v[1], v[2], v[3], v[4]), C2DLine(v[5], v[6], v[7], v[8]));
}
