// The dense solvers of linear equations that a curve offers.
#include <algorithm>
#include <cmath>

#include "geometry/nurbs_limits.h"
#include "orvil/geometry/nurbs.h"

namespace {

bool has_rows(const TCalcNurbsWorkBuffer& buffer, int n) {
    if (n < 1 || buffer.matrix == nullptr) {
        return false;
    }
    return std::all_of(buffer.matrix, buffer.matrix + n, [](const double* row) { return row != nullptr; });
}

bool are_finite(const double* values, int n) {
    return std::all_of(values, values + n, [](double value) { return std::isfinite(value); });
}

bool can_divide(double pivot) {
    return std::isfinite(pivot) && pivot != 0;
}

// Sets the scale of each row. Returns false when a row is 0 or not finite.
bool scale_rows(TCalcNurbsWorkBuffer& buffer, int n) {
    for (int i = 0; i < n; ++i) {
        const double* row = buffer.matrix[i];
        if (!are_finite(row, n)) {
            return false;
        }
        double largest = 0;
        for (int j = 0; j < n; ++j) {
            largest = (std::max)(largest, std::fabs(row[j]));
        }
        if (largest == 0) {
            return false;
        }
        buffer.scale[i] = 1.0 / largest;
    }
    return true;
}

// An element of the product of the triangles, less what rows and columns before `terms` add to it.
double reduced(double** matrix, int i, int j, int terms) {
    double value = matrix[i][j];
    for (int k = 0; k < terms; ++k) {
        value -= matrix[i][k] * matrix[k][j];
    }
    return value;
}

// Computes column j of both triangles, the lower one not yet divided by the pivot. Returns the row of the largest
// scaled coefficient from the diagonal on, or -1 when that is not above the least pivot.
int reduce_column(TCalcNurbsWorkBuffer& buffer, int n, int j) {
    int chosen = -1;
    double largest = orvil::detail::kLeastPivot;
    for (int i = 0; i < n; ++i) {
        buffer.matrix[i][j] = reduced(buffer.matrix, i, j, (std::min)(i, j));
        const double scaled = std::fabs(buffer.matrix[i][j]) * buffer.scale[i];
        if (i >= j && scaled > largest) {
            largest = scaled;
            chosen = i;
        }
    }
    return chosen;
}

void exchange_rows(TCalcNurbsWorkBuffer& buffer, int n, int one, int other) {
    std::swap_ranges(buffer.matrix[one], buffer.matrix[one] + n, buffer.matrix[other]);
    std::swap(buffer.scale[one], buffer.scale[other]);
}

int row_of_largest(double** matrix, int n, int column) {
    int chosen = column;
    for (int i = column + 1; i < n; ++i) {
        if (std::fabs(matrix[i][column]) > std::fabs(matrix[chosen][column])) {
            chosen = i;
        }
    }
    return chosen;
}

// Takes a column out of the rows below its diagonal.
void eliminate_column(TCalcNurbsWorkBuffer& buffer, int n, int column) {
    const double* pivot = buffer.matrix[column];
    for (int i = column + 1; i < n; ++i) {
        double* row = buffer.matrix[i];
        const double factor = row[column] / pivot[column];
        row[column] = 0;
        for (int j = column + 1; j < n; ++j) {
            row[j] -= factor * pivot[j];
        }
        buffer.rhs[i] -= factor * buffer.rhs[column];
    }
}

// Solves an upper triangle from its last row up. `solution` holds the right sides before.
void substitute_upwards(double** matrix, int n, double* solution) {
    for (int i = n - 1; i >= 0; --i) {
        for (int j = i + 1; j < n; ++j) {
            solution[i] -= matrix[i][j] * solution[j];
        }
        solution[i] /= matrix[i][i];
    }
}

// Solves a lower triangle with ones on its diagonal.
void substitute_downwards(double** matrix, int n, double* solution) {
    for (int i = 1; i < n; ++i) {
        for (int j = 0; j < i; ++j) {
            solution[i] -= matrix[i][j] * solution[j];
        }
    }
}

}  // namespace

bool CCalcNurbs::GauseMethod(TCalcNurbsWorkBuffer& buffer, int n) const {
    if (!has_rows(buffer, n) || buffer.rhs == nullptr || buffer.solution == nullptr) {
        return false;
    }
    for (int column = 0; column < n; ++column) {
        const int chosen = row_of_largest(buffer.matrix, n, column);
        if (!can_divide(buffer.matrix[chosen][column])) {
            return false;
        }
        if (chosen != column) {
            std::swap_ranges(buffer.matrix[column], buffer.matrix[column] + n, buffer.matrix[chosen]);
            std::swap(buffer.rhs[column], buffer.rhs[chosen]);
        }
        eliminate_column(buffer, n, column);
    }
    std::copy_n(buffer.rhs, n, buffer.solution);
    substitute_upwards(buffer.matrix, n, buffer.solution);
    return are_finite(buffer.solution, n);
}

bool CCalcNurbs::LU_Decomposition(int n, TCalcNurbsWorkBuffer& buffer, double& sign) const {
    sign = 1.0;
    if (!has_rows(buffer, n) || buffer.index == nullptr || buffer.scale == nullptr || !scale_rows(buffer, n)) {
        return false;
    }
    for (int j = 0; j < n; ++j) {
        const int chosen = reduce_column(buffer, n, j);
        if (chosen < 0) {
            return false;
        }
        buffer.index[j] = chosen;
        if (chosen != j) {
            exchange_rows(buffer, n, chosen, j);
            sign = -sign;
        }
        for (int i = j + 1; i < n; ++i) {
            buffer.matrix[i][j] /= buffer.matrix[j][j];
        }
    }
    return true;
}

bool CCalcNurbs::SolveLinerSystemOfEquations(int n, TCalcNurbsWorkBuffer& buffer) const {
    if (!has_rows(buffer, n) || buffer.rhs == nullptr || buffer.index == nullptr || buffer.solution == nullptr) {
        return false;
    }
    for (int i = 0; i < n; ++i) {
        if (buffer.index[i] < i || buffer.index[i] >= n || !can_divide(buffer.matrix[i][i])) {
            return false;
        }
    }
    std::copy_n(buffer.rhs, n, buffer.solution);
    for (int i = 0; i < n; ++i) {
        std::swap(buffer.solution[i], buffer.solution[buffer.index[i]]);
    }
    substitute_downwards(buffer.matrix, n, buffer.solution);
    substitute_upwards(buffer.matrix, n, buffer.solution);
    return are_finite(buffer.solution, n);
}
