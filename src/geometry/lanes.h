// Doubles that are computed with at once; each gets what it would get alone.
//
// A function that computes with four at once is to be compiled for a processor that can; all that takes or returns them
// by value must be inlined into it.
#pragma once

namespace orvil::detail {

using Pair = double __attribute__((vector_size(16)));
using Quad = double __attribute__((vector_size(32)));

template <typename Lanes>
inline constexpr int kLanes = sizeof(Lanes) / sizeof(double);

// What each lane is called.
template <typename Lanes>
inline constexpr Lanes kLaneNumbers{};
template <>
inline constexpr Pair kLaneNumbers<Pair>{0, 1};
template <>
inline constexpr Quad kLaneNumbers<Quad>{0, 1, 2, 3};

}  // namespace orvil::detail
