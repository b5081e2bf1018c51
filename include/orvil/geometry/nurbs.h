/// @file
/// CCalcNurbs, which turns a NURBS curve into straight segments and lays a curve through given points.
///
/// A host either gives knots and control points and calls CreateLines(), or gives fit points, calls CreateCtrl(), which
/// computes the knots and control points, and then CreateLines():
/// @code
/// CCalcNurbs curve;
/// curve.SetDimension(3);
/// CNurbsFitPoint fit;
/// for (const C3DPoint& corner : {C3DPoint(0, 0, 0), C3DPoint(40, 30, 0), C3DPoint(80, 0, 0)}) {
///     fit.point = corner;
///     curve.AppendFit(fit);
/// }
/// const bool drawn = curve.CanNurbsize(1e-8) && curve.CreateCtrl() && curve.CreateLines(16);
/// for (int i = 0; drawn && i < curve.GetLineSize(); ++i) printf("%s\n", curve.GetLine(i)->GetDumpText().GetString());
/// @endcode
///
/// Coordinates are doubles in the host's own unit, curve parameters and weights have none, angles are radians. The one
/// tolerance is 1e-8 (r_EP8()): knots closer than that are one knot where spans are told apart. It is absolute, so the
/// knots of a curve should lie about 1 apart, as MakeKnotVector() and CreateCtrl() place them.
///
/// Accuracy, measured over a million random curves of each kind, ordinary, huge, tiny and nearly degenerate, beside
/// arithmetic of 64 bits of mantissa (docs/accuracy.md): a basis function is good to 4e-15 of its value; a point of
/// CreateLines() with positive weights to 1e-15 of the largest coordinate of the control points that count for it; a
/// rational circle lies within 1e-15 of its radius; control points of CreateCtrl() for up to ten fit points are good to
/// 4e-15 of the largest one for dimensions 2 to 4, to 1e-13 for the others.
///
/// No member throws, and no input makes one run without end or leave its arrays: infinities, NaN, missing knots and
/// divisions of any size are answered as each member says. The object owns copies of all that is appended. Not for use
/// by several threads at a time.
#pragma once

#include "orvil/export.h"
#include "orvil/geometry/space_primitives.h"
#include "orvil/runtime/stored_by_library.h"
#include "orvil/strings/ext_array.h"

/// A control point of a rational curve.
class ORVIL_API CNurbsCtrlPoint : public orvil::detail::StoredByLibrary {
public:
    /// The origin, with the weight 1.
    CNurbsCtrlPoint();
    /// A copy.
    CNurbsCtrlPoint(const CNurbsCtrlPoint& source);
    /// As CopyData().
    CNurbsCtrlPoint& operator=(const CNurbsCtrlPoint& source);
    virtual ~CNurbsCtrlPoint();

    /// @return a copy on the heap, which is the caller's to delete, or null when memory runs out
    virtual CNurbsCtrlPoint* GetCopyInstance() const;

    /// Takes over point and weight. @return true
    bool CopyData(const CNurbsCtrlPoint& source);

    C3DPoint point;  ///< where it lies
    double weight;   ///< how much it draws the curve; curves are sound with weights above 0
};

/// A point that a curve is to pass through.
class ORVIL_API CNurbsFitPoint : public orvil::detail::StoredByLibrary {
public:
    /// The origin.
    CNurbsFitPoint();
    /// A copy.
    CNurbsFitPoint(const CNurbsFitPoint& source);
    /// As CopyData().
    CNurbsFitPoint& operator=(const CNurbsFitPoint& source);
    virtual ~CNurbsFitPoint();

    /// @return a copy on the heap, which is the caller's to delete, or null when memory runs out
    virtual CNurbsFitPoint* GetCopyInstance() const;

    /// Takes over the point. @return true
    bool CopyData(const CNurbsFitPoint& source);

    C3DPoint point;  ///< where it lies
};

/// Which knots CCalcNurbs::MakeKnotVector() makes.
enum EKnotVectorForm : int {
    KnotFormClamped = 0,  ///< ends of full multiplicity, the integers between them
    KnotFormUniform = 1,  ///< 0, 1, 2 ...
};

/// What the dense solvers of CCalcNurbs work on: n equations with n unknowns, for one coordinate. All arrays are the
/// caller's and hold n entries.
struct TCalcNurbsWorkBuffer {
    double** matrix;   ///< n rows of n coefficients
    double* rhs;       ///< the right sides
    int* index;        ///< entry j is the row that row j was exchanged with when column j was decomposed
    double* scale;     ///< the reciprocal of each row's largest absolute coefficient
    double* solution;  ///< the unknowns
};

/// A NURBS curve: its degree, knots, control points, fit points, and the segments made of it.
///
/// The degree, called the dimension, is 1 to 7; the order is the dimension plus 1. A curve of n control points has n +
/// order knots, which do not decrease. Every knot outside of the array reads as 0.
class ORVIL_API CCalcNurbs {
public:
    /// A curve of dimension 1 without anything.
    CCalcNurbs();
    /// A copy of its own, as by CopyData(); empty when memory runs out.
    CCalcNurbs(const CCalcNurbs& source);
    /// As CopyData().
    CCalcNurbs& operator=(const CCalcNurbs& source);
    virtual ~CCalcNurbs();

    /// Takes over the dimension and copies of all four arrays. Copying an object onto itself does nothing.
    /// @return false when memory runs out; then this object is as it was
    bool CopyData(const CCalcNurbs& source);

    /// @param d the degree of the curve, 1 to 7
    /// @return false for any other value; then nothing has changed
    bool SetDimension(int d);

    /// @name Knots
    /// @{

    /// @return the number of knots
    int GetKnotSize() const;
    /// @return the knot at @p i, counted from 0; 0 when there is none
    double GetKnot(int i) const;
    /// Appends a knot; any value is taken. @return false when memory runs out
    bool AppendKnot(double value);
    /// Removes all knots. @return true
    bool ClearKnot();

    /// @}
    /// @name Control points
    /// @{

    /// Appends a copy. @return false when memory runs out
    bool AppendCtrl(const CNurbsCtrlPoint& value);
    /// Removes all control points. @return true
    bool ClearCtrl();

    /// @}
    /// @name Fit points
    /// @{

    /// @return the number of fit points
    int GetFitSize() const;
    /// @return the fit point at @p i itself, which stays the curve's own; null when there is none
    CNurbsFitPoint* GetFit(int i) const;
    /// Appends a copy. @return false when memory runs out
    bool AppendFit(const CNurbsFitPoint& value);
    /// Removes all fit points. @return true
    bool ClearFit();

    /// @}
    /// @name Segments
    /// @{

    /// @return the number of segments
    int GetLineSize() const;
    /// @return the segment at @p i itself, which stays the curve's own until the segments are cleared or made anew;
    /// null when there is none
    C3DLine* GetLine(int i) const;
    /// Appends a copy. @return false when memory runs out
    bool AppendLine(const C3DLine& value);
    /// Removes all segments. @return true
    bool ClearLine();

    /// @}
    /// @name Curves
    /// @{

    /// Computes the knots and control points of a curve through the fit points: with n fit points, n + 2 control points
    /// of weight 1 over a clamped knot vector that ends at T = n + 2 - dimension. The curve meets fit point j at the
    /// parameter j T / (n - 1). At its ends it is natural: the differences of the first three control points, each
    /// divided by the width of the knots it spans, are equal, and those of the last three. That is a second derivative
    /// of 0; for dimension 1, no kink at the first and last inner knot. Dimension 3 is the natural cubic spline.
    /// (Interpolation by B-splines: C. de Boor, A Practical Guide to Splines, chapter XIII.)
    ///
    /// The system is solved in band form, with implicitly scaled partial pivoting: linear in n.
    ///
    /// @return false, with no knots and no control points, when there are fewer than 2 fit points or fewer than
    /// dimension - 1; when a scaled pivot is not above 1e-14; when the curve would miss a fit point by more than 1e-6
    /// of the largest absolute coordinate, or a coordinate is not finite; and when memory runs out. With dimension 2, 3
    /// and 4 the system is sound for any n. With 1, 5, 6 and 7 rounding grows with n: curves through up to 60, 150, 70
    /// and 50 points come out, through many more they do not.
    bool CreateCtrl();

    /// Evaluates the curve into segments, which replace those there are: @p divisions for each knot span, from the span
    /// that begins at the first knot t0 to the one that ends at the last knot t1. Among the knots number dimension up
    /// to the number of control points, the first that is t0, or whose span has t0 inside, begins, and the first that
    /// is t1 ends, within 1e-8. A span whose step (its width divided by @p divisions) is below 1e-8 is skipped.
    /// Parameters are the span's start plus multiples of the step, and its end itself. At t1, when all knots from there
    /// on are exactly equal, the last control point's basis is 1, so that the curve ends on it.
    ///
    /// A point is the sum of B w P divided by the sum of B w over the control points P with weights w, B being
    /// GetSplineBase(). (L. Piegl, W. Tiller, The NURBS Book, section 4.2.) At a knot that is repeated as often as
    /// the dimension says, one control point alone counts, and the curve passes through it exactly.
    ///
    /// Time and memory grow with the number of segments, whatever the number of control points; with knots that
    /// decrease somewhere, or are missing, with the product of both.
    ///
    /// @return true, without segments, when @p divisions is below 1, or when no span begins at t0, none ends at t1 or
    /// the one does not stand before the other, as with knots that are not clamped. False, without segments, when a sum
    /// of B w is 0 or not finite (weights of 0 or of both signs, knots closer than 1e-8 but not equal), when a point is
    /// not finite, when a control point or weight is not finite although there is something to draw, when an array
    /// cannot hold the segments, and when memory runs out.
    bool CreateLines(int divisions);

    /// Whether the points allow a curve: there are at least 3, and no two that follow each other are @p tolerance or
    /// less apart. The control points decide when there is one, otherwise the fit points.
    bool CanNurbsize(double tolerance) const;

    /// Joins the points by straight segments, which replace those there are: one for each point but the first. The fit
    /// points are joined when there is one, otherwise the control points.
    /// @return true, without segments when there are fewer than 2 points; false, without segments, when memory runs out
    bool LinearComplement();

    /// @}
    /// @name Edits
    /// @{

    /// Adds (@p dx, @p dy, 0) to every fit point and control point. The segments stay as they are. @return true
    bool Move(double dx, double dy);

    /// Turns every fit point and control point about the axis through @p centre in the direction of z, and removes the
    /// segments.
    /// @param angle radians, from x towards y
    /// @return true
    bool Rotate(const C3DPoint& centre, double angle);

    /// @}

protected:
    /// The basis function of order @p k at index @p i for the parameter @p t, by the recursion of Cox and de Boor over
    /// the knots. For k = 1 it is 1 when u[i] <= t < u[i + 1], and otherwise 0. Above that it is
    ///
    ///     (t - u[i]) / (u[i+k-1] - u[i]) B(k - 1, i, t) + (u[i+k] - t) / (u[i+k] - u[i+1]) B(k - 1, i + 1, t)
    ///
    /// where a term whose divisor is below 1e-8 in absolute value is 0.
    /// (C. de Boor, On Calculating with B-splines, J. Approx. Theory 6, 1972.) Takes k^2 steps.
    /// @return the recursion's value to the last bit; 0 when @p k is below 1 or above 64
    double GetSplineBase(int k, int i, double t) const;

    /// Replaces the knots. With KnotFormClamped, @p order times 0, then the integers 1 .. count - order, then @p order
    /// times count - order + 1; with @p count below @p order, each index from count to order - 1 gets both the 0 and
    /// that last value. With KnotFormUniform, the integers 0 .. count + order - 1.
    /// @return false for any other form and when memory runs out; then there are no knots
    bool MakeKnotVector(int order, int count, EKnotVectorForm form);

    /// Solves the @p n equations of @p buffer by Gaussian elimination with partial pivoting (Golub, Van Loan, Matrix
    /// Computations, section 3.4), n^3 / 3 steps. Matrix and right sides are used up; index and scale may be null.
    /// @return false, with any content in the buffer, when the matrix is singular or not finite, n is below 1 or an
    /// array is null
    bool GauseMethod(TCalcNurbsWorkBuffer& buffer, int n) const;

    /// Decomposes the matrix of @p buffer into a lower triangle with ones on its diagonal and an upper one, which take
    /// its place, with its rows exchanged as index then says. (Crout's method with implicit partial pivoting: a row is
    /// chosen by its coefficient multiplied by its scale.) Right sides and solution are not needed.
    /// @param sign receives 1 or -1: even or odd number of exchanges
    /// @return false, with any content in the buffer, when a row is 0, a scaled pivot is not above 1e-14, n is below 1
    /// or an array is null
    bool LU_Decomposition(int n, TCalcNurbsWorkBuffer& buffer, double& sign) const;

    /// Solves the @p n equations whose matrix LU_Decomposition() has decomposed, for the right sides of @p buffer,
    /// which stay as they are: as often as needed, n^2 steps each.
    /// @return false, with any content in the solution, when a row index is out of range, a pivot is 0, n is below 1 or
    /// an array but scale is null
    bool SolveLinerSystemOfEquations(int n, TCalcNurbsWorkBuffer& buffer) const;

    /// CanNurbsize() on the control points.
    bool ctrlCanNurbsize(double tolerance) const;
    /// CanNurbsize() on the fit points.
    bool fitCanNurbsize(double tolerance) const;
    /// LinearComplement() on the control points.
    bool ctrlLinearComplement();
    /// LinearComplement() on the fit points.
    bool fitLinearComplement();

    int dimension_;                           ///< the degree, 1 to 7
    CExtArray<double> knots_;                 ///< the knots
    CExtArray<CNurbsCtrlPoint> ctrl_points_;  ///< the control points
    CExtArray<CNurbsFitPoint> fit_points_;    ///< the fit points
    CExtArray<C3DLine> lines_;                ///< the segments
};
