#include "geometry/band_system.h"

#include <algorithm>
#include <cmath>

#include "geometry/nurbs_limits.h"

namespace orvil::detail {

bool BandSystem::allocate(int size, int below, int above) {
    size_ = size;
    below_ = below;
    width_ = below + above + 1;
    const auto rows = static_cast<std::size_t>(size);
    return coefficients_.allocate(rows * static_cast<std::size_t>(width_)) && scales_.allocate(rows) &&
           sides_.allocate(rows);
}

// The first rows begin with column 0, the others `below` columns left of the diagonal, so that a row begins with the
// column that is eliminated when it is first looked at.
void BandSystem::set_row(int row_number, int column, const double* values, int count) {
    std::copy(values, values + count, row(row_number) + column - (std::max)(row_number - below_, 0));
}

bool BandSystem::solve() {
    if (!scale_rows()) {
        return false;
    }
    for (int column = 0; column < size_; ++column) {
        if (!choose_pivot(column)) {
            return false;
        }
        eliminate(column);
    }
    substitute();
    return true;
}

// Rows from `column` up to this one have coefficients in that column.
int BandSystem::rows_with_column(int column) const {
    return (std::min)(column + below_ + 1, size_);
}

bool BandSystem::scale_rows() {
    for (int i = 0; i < size_; ++i) {
        double largest = 0;
        for (int p = 0; p < width_; ++p) {
            largest = (std::max)(largest, std::fabs(row(i)[p]));
        }
        if (largest == 0) {
            return false;
        }
        scales_[static_cast<std::size_t>(i)] = 1.0 / largest;
    }
    return true;
}

// Brings the row with the largest scaled coefficient in the column to the diagonal.
bool BandSystem::choose_pivot(int column) {
    int chosen = column;
    double largest = 0;
    for (int i = column; i < rows_with_column(column); ++i) {
        const double scaled = std::fabs(row(i)[0]) * scales_[static_cast<std::size_t>(i)];
        if (scaled > largest) {
            largest = scaled;
            chosen = i;
        }
    }
    if (chosen != column) {
        std::swap_ranges(row(column), row(column) + width_, row(chosen));
        std::swap(scales_[static_cast<std::size_t>(column)], scales_[static_cast<std::size_t>(chosen)]);
        std::swap(sides_[static_cast<std::size_t>(column)], sides_[static_cast<std::size_t>(chosen)]);
    }
    return largest > kLeastPivot;
}

// Takes the column out of the rows below, which move one place to the left.
void BandSystem::eliminate(int column) {
    const double* pivot = row(column);
    const Triple& pivot_side = sides_[static_cast<std::size_t>(column)];
    for (int i = column + 1; i < rows_with_column(column); ++i) {
        double* below = row(i);
        const double factor = below[0] / pivot[0];
        for (int p = 1; p < width_; ++p) {
            below[p - 1] = below[p] - factor * pivot[p];
        }
        below[width_ - 1] = 0;
        Triple& side = sides_[static_cast<std::size_t>(i)];
        side.x -= factor * pivot_side.x;
        side.y -= factor * pivot_side.y;
        side.z -= factor * pivot_side.z;
    }
}

void BandSystem::substitute() {
    for (int i = size_ - 1; i >= 0; --i) {
        const double* coefficients = row(i);
        Triple& side = sides_[static_cast<std::size_t>(i)];
        for (int p = 1; p < (std::min)(width_, size_ - i); ++p) {
            const Triple& known = (&side)[p];
            side.x -= coefficients[p] * known.x;
            side.y -= coefficients[p] * known.y;
            side.z -= coefficients[p] * known.z;
        }
        side.x /= coefficients[0];
        side.y /= coefficients[0];
        side.z /= coefficients[0];
    }
}

}  // namespace orvil::detail
