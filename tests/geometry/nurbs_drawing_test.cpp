// Drawing by two samples at once and by four: the same bits.
#include "geometry/nurbs_drawing.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "geometry/filled_array.h"
#include "geometry/nurbs_probe.h"
#include "orvil/geometry/space_primitives.h"

namespace orvil::test {
namespace {

using detail::Curve;
using detail::Draw;

std::vector<double> numbers_of(const CExtArray<C3DLine>& lines) {
    std::vector<double> numbers;
    for (int i = 0; i < lines.GetSize(); ++i) {
        const C3DLine& line = *lines.GetAt(i);
        numbers.insert(numbers.end(), {line.start.x, line.start.y, line.start.z, line.end.x, line.end.y, line.end.z});
    }
    return numbers;
}

// A clamped curve with spans of any widths, some of which are none.
NurbsProbe random_curve(std::mt19937& random, int degree) {
    std::uniform_real_distribution<double> number(0.1, 3);
    NurbsProbe curve(degree);
    const int count = degree + 1 + static_cast<int>(random() % 8);
    for (int i = 0; i < count; ++i) {
        curve.add_ctrl(number(random), number(random), number(random), number(random));
    }
    double knot = number(random);
    for (int i = 0; i <= count + degree; ++i) {
        knot += i > degree && i <= count && random() % 4 != 0 ? number(random) : 0;
        curve.AppendKnot(knot);
    }
    return curve;
}

std::vector<double> drawn(Draw draw, const Curve& curve, int divisions) {
    CExtArray<C3DLine> lines;
    EXPECT_TRUE(detail::resize_slots(lines, static_cast<int>(count_segments(curve, divisions))));
    EXPECT_TRUE(draw(curve, divisions, lines));
    return numbers_of(lines);
}

// Where the processor cannot compute with four at once the curve is drawn by twos anyway.
TEST(NurbsDrawing, TwoAtOnceAndFourAtOnceGiveTheSameBits) {
    std::mt19937 random(3);
    for (int round = 0; round < 2000 && !testing::Test::HasFailure(); ++round) {
        SCOPED_TRACE(round);
        const int degree = 1 + round % 7;
        const int divisions = 1 + static_cast<int>(random() % 10);
        const NurbsProbe source = random_curve(random, degree);
        Curve curve;
        curve.degree = degree;
        ASSERT_TRUE(gather(source.knots_, source.ctrl_points_, curve));
        ASSERT_TRUE(has_single_spans(curve));
        const Draw by_fours = detail::drawing_by_fours(degree);
        EXPECT_EQ(choose_drawing(curve), by_fours != nullptr ? by_fours : detail::drawing_by_twos(degree));
        EXPECT_EQ(drawn(detail::drawing_by_twos(degree), curve, divisions),
                  drawn(choose_drawing(curve), curve, divisions));
    }
}

}  // namespace
}  // namespace orvil::test
