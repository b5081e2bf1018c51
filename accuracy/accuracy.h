// Measures how far results are from the truth: random cases beside arithmetic of 64 bits of mantissa.
//
// A file of measurements adds its functions to the table: for each a name, what the error is relative to, the greatest
// error that its header promises in each kind of cases, and how to make one case and tell its error.
#pragma once

#include <array>
#include <cstdint>
#include <random>
#include <vector>

namespace orvil::accuracy {

// Eleven bits more than a double.
using Real = long double;

// The kinds of cases; each file says what it takes for huge, tiny and nearly degenerate.
enum class Kind { Ordinary, Huge, Tiny, NearlyDegenerate };
inline constexpr std::array<Kind, 4> kKinds = {Kind::Ordinary, Kind::Huge, Kind::Tiny, Kind::NearlyDegenerate};

// Random numbers that are the same on every platform for the same seed.
class Random {
public:
    explicit Random(std::uint64_t seed) : engine_(seed) {}

    // Evenly distributed from `low` to `high`.
    double between(double low, double high);
    // Of a magnitude from `low` to `high`, with evenly distributed logarithms and a sign of either kind.
    double magnitude(double low, double high);
    // Whether a thing of the probability `part` happens.
    bool chance(double part) { return between(0.0, 1.0) < part; }

private:
    std::mt19937_64 engine_;
};

// What a case reports when it does not count, for instance because a tolerance decides the result.
inline constexpr double kNoCase = -1.0;

// Worst errors by kind; a kind that is not measured has none.
using Bounds = std::array<double, kKinds.size()>;
inline constexpr double kNotMeasured = 0.0;

struct Function {
    const char* name;
    const char* relative_to;  // what the error is divided by, for the table
    Bounds bounds;            // what the function's documentation promises
    double (*error_of)(Random&, Kind);
};

using Functions = std::vector<Function>;

// --- oracles ---------------------------------------------------------------------------------------------------------

struct RealPoint {
    Real x = 0.0L;
    Real y = 0.0L;
};

// A rotation by an angle of a magnitude of at most 1e7, whose period is the true 2 pi on every platform.
struct RealTurn {
    explicit RealTurn(double angle);
    RealPoint operator()(RealPoint p) const { return {cosine * p.x - sine * p.y, sine * p.x + cosine * p.y}; }

    Real cosine;
    Real sine;
};

inline constexpr Real kRealPi = 3.14159265358979323846264338327950288L;

// |found - truth| / size, or the bare error when the size is 0. What is not a number counts as infinitely wrong.
double error(Real found, Real truth, Real size);
// The distance of two points divided by a size.
double error(RealPoint found, RealPoint truth, Real size);
// The difference of two angles without regard to whole turns.
double angle_error(Real found, Real truth);

Real length(RealPoint p);

// --- measurements, each in a file of its own -------------------------------------------------------------------------

void add_scalars(Functions& functions);
void add_plane_figures(Functions& functions);
void add_plane_functions(Functions& functions);
void add_plane_ellipses(Functions& functions);
void add_space_figures(Functions& functions);
void add_curves(Functions& functions);

}  // namespace orvil::accuracy
