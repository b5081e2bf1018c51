// A curve evaluated into segments.
#include <cstdint>

#include "geometry/filled_array.h"
#include "geometry/nurbs_curve.h"
#include "geometry/nurbs_drawing.h"
#include "geometry/nurbs_limits.h"
#include "orvil/geometry/nurbs.h"

namespace orvil::detail {
namespace {

// More segments than this fit into no array.
constexpr std::int64_t kMostSegments = INT32_MAX - 17;

// Segments that are there are used again.
bool draw_curve(const Curve& curve, int divisions, std::int64_t count, CExtArray<C3DLine>& lines) {
    if (count > kMostSegments || !has_finite_points(curve) || !resize_slots(lines, static_cast<int>(count))) {
        return false;
    }
    return choose_drawing(curve)(curve, divisions, lines);
}

}  // namespace
}  // namespace orvil::detail

bool CCalcNurbs::CreateLines(int divisions) {
    using namespace orvil::detail;
    bool is_done = dimension_ >= kLowestDegree && dimension_ <= kHighestDegree;
    std::int64_t count = 0;
    if (is_done && divisions > 0) {
        Curve curve;
        curve.degree = dimension_;
        is_done = gather(knots_, ctrl_points_, curve);
        count = is_done ? count_segments(curve, divisions) : 0;
        is_done = is_done && (count == 0 || draw_curve(curve, divisions, count, lines_));
    }
    if (!is_done || count == 0) {
        ClearLine();
    }
    return is_done;
}
