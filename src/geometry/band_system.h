// Linear equations whose coefficients stand in a narrow band around the diagonal, for three right sides at once.
#pragma once

#include <cstddef>

#include "geometry/scratch_array.h"

namespace orvil::detail {

// One right side for each coordinate; so is the solution.
struct Triple {
    double x, y, z;
};

class BandSystem {
public:
    // Takes memory for `size` equations, all coefficients 0, that reach `below` columns to the left of the diagonal and
    // `above` to its right. Returns false when there is none.
    bool allocate(int size, int below, int above);

    // Sets `count` coefficients from a column on, which must lie in the band.
    void set_row(int row, int column, const double* values, int count);

    void set_right_side(int row, const Triple& value) { sides_[static_cast<std::size_t>(row)] = value; }

    // Solves the equations, which are used up, by elimination with implicitly scaled partial pivoting; the fill stays
    // inside the band and `below` columns to its right. Returns false when a row is 0 or a scaled pivot is not above
    // kLeastPivot. Takes size * below * (below + above) steps.
    bool solve();

    // The unknowns, once they are solved.
    const Triple& solution(int i) const { return sides_[static_cast<std::size_t>(i)]; }

private:
    // The coefficients of a row from the first column on that elimination has left.
    double* row(int i) { return coefficients_.data() + static_cast<std::size_t>(i) * static_cast<std::size_t>(width_); }
    int rows_with_column(int column) const;
    bool scale_rows();
    bool choose_pivot(int column);
    void eliminate(int column);
    void substitute();

    int size_ = 0;
    int below_ = 0;
    int width_ = 0;
    ScratchArray<double> coefficients_;
    ScratchArray<double> scales_;
    ScratchArray<Triple> sides_;
};

}  // namespace orvil::detail
