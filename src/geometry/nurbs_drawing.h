// Drawing a curve into segments.
#pragma once

#include "geometry/nurbs_curve.h"
#include "orvil/geometry/space_primitives.h"

namespace orvil::detail {

// Writes over the segments of an array that has as many slots as count_segments() says, and makes those that are
// missing. Returns false when a weighted sum is 0, anything is not finite or memory runs out; then they hold anything.
using Draw = bool (*)(const Curve& curve, int divisions, CExtArray<C3DLine>& lines);

// For curves with single spans, by the number of samples that are computed at once. All give the same bits; four at
// once take less time than two where the processor divides four doubles in the time of two.
Draw drawing_by_twos(int degree);
// Null where the processor cannot.
Draw drawing_by_fours(int degree);

// The quickest that is right for a curve.
Draw choose_drawing(const Curve& curve);

}  // namespace orvil::detail
