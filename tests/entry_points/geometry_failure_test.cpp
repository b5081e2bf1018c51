// Scalars, figures, placement, plane functions and curves. Most of them allocate nothing, and so cannot fail.
#include <gtest/gtest.h>

#include "entry_points/entry_points.h"
#include "orvil/orvil.h"

namespace orvil::test {
namespace {

struct Curve : CCalcNurbs {
    using CCalcNurbs::ctrlCanNurbsize;
    using CCalcNurbs::ctrlLinearComplement;
    using CCalcNurbs::fitCanNurbsize;
    using CCalcNurbs::fitLinearComplement;
    using CCalcNurbs::GauseMethod;
    using CCalcNurbs::GetSplineBase;
    using CCalcNurbs::LU_Decomposition;
    using CCalcNurbs::SolveLinerSystemOfEquations;
};

TEST(EntryPointsOfGeometry, ScalarsAreCalculated) {
    sweep_each([] {
        double a = DTOR(30.0) + RTOD(1.0) + HYPOT(3.0, 4.0) + FABS(-1.0) + ABS(-1) + r_PAI();
        double b = r_EP1() + r_EP2() + r_EP3() + r_EP4() + r_EP5() + r_EP6() + r_EP7() + r_EP8() + r_EP9() + r_EP10() +
                   r_EP11() + r_EP12() + r_EP13();
        EXPECT_FALSE(ZERO(a, 1e-8));
        int i = 1;
        int j = 2;
        SWAP(a, b);
        SWAP(i, j);
        TRIMVALUE(a, 0.0, 1.0);
        TRIMVALUE(i, 0, 1);
        ANG_CVT_STD(a);
        ANGSTDDEG(a);
        A2D_STDSEDEG(a, b);
        CA_ANGLE(a);
        CA_ANGLE_RAD(a);
        CA_ARCAN(a, b);
        CA_ARCAN_RAD(a, b);
        A2D_CHKDEGR(a, b, 1.0);
        GET_ANGLE(1.0, 0.0, 0.0, 0.0);
        GET_ANGLE(C2DPoint(1.0, 0.0), C2DPoint());
    });
}

TEST(EntryPointsOfGeometry, PointsOfThePlane) {
    sweep_each([] {
        C2DPoint a(1.0, 2.0);
        C2DPoint b(a);
        C2DPoint c;
        c = a;
        SWAP(a, b);
        a.SetData(c);
        a.SetData(3.0, 4.0);
        a.AddPoint(b);
        a.AddPoint(1.0, 1.0);
        a.SubPoint(b);
        a.SubPoint(1.0, 1.0);
        a += b;
        a -= b;
        a.Move(b);
        a.Mirror(C2DPoint(), b);
        a.Rotate(b, 1.0);
        a.Stretch(b, 2.0, 2.0);
        a.MatrixCalculation(C2DMatrixItem());
        EXPECT_EQ(a == b, a.Compare(b));
        EXPECT_EQ(a != b, !a.Compare(b));
        EXPECT_GE(a.GetDistance(b) + a.GetDistance(1.0, 1.0), 0.0);
        EXPECT_EQ(a.IsZero(), a.IsZero(1e-8));
    });
}

TEST(EntryPointsOfGeometry, LinesOfThePlane) {
    sweep_each([] {
        const C2DPoint p(1.0, 2.0);
        C2DLine a(p, C2DPoint(3.0, 5.0));
        C2DLine b(a);
        C2DLine c;
        c = a;
        SWAP(a, b);
        a.SetData(c);
        a.SetData(p, p);
        a.SetData(0.0, 0.0, 1.0, 1.0);
        a.AddLine(b);
        a.AddLine(p, p);
        a.AddLine(1.0, 1.0, 1.0, 1.0);
        a.SubLine(b);
        a.SubLine(p, p);
        a.SubLine(1.0, 1.0, 1.0, 1.0);
        a += b;
        a -= b;
        a.Move(p);
        a.Mirror(C2DPoint(), p);
        a.Rotate(p, 1.0);
        a.Stretch(p, 2.0, 2.0);
        a.MatrixCalculation(C2DMatrixItem());
        EXPECT_EQ(a.Compare(b), a.Compare(b.start, b.end));
        EXPECT_GE(a.GetLength() + a.GetAngle(), 0.0);
    });
}

TEST(EntryPointsOfGeometry, VectorLinesOfThePlane) {
    sweep_each([] {
        const C2DPoint p(1.0, 2.0);
        C2DVectorLine a(p, C2DPoint(3.0, 5.0));
        const C2DVectorLine b(a);
        C2DVectorLine c;
        c = a;
        a.SetData(c);
        a.SetData(p, p);
        a.SetData(0.0, 0.0, 1.0, 1.0);
        a.Move(p);
        a.Rotate(p, 1.0);
        a.Stretch(p, 2.0, 2.0);
        a.Optimize();
        a.MatrixCalculation(C2DMatrixItem());
        EXPECT_EQ(a.Compare(b), a.Compare(b.base, b.vector));
        EXPECT_GE(a.GetLength(), 0.0);
    });
}

TEST(EntryPointsOfGeometry, EllipsesOfThePlane) {
    sweep_each([] {
        const C2DPoint p(1.0, 2.0);
        C2DEllipse a(p, p, 0.5, 0.0, 1.0);
        const C2DEllipse b(a);
        C2DEllipse c;
        c = a;
        a.SetData(c);
        a.SetData(p, p, 0.5, 0.0, 1.0);
        a.AddCenterPoint(p);
        a.SubCenterPoint(p);
        a.Move(p);
        a.Rotate(p, 1.0);
        a.Stretch(p, 2.0, 2.0);
        a.MatrixCalculation(C2DMatrixItem());
        double angle = 0;
        a.CalcFxEllipsAngle(p, p, 2.0, 1.0, 0.0, angle);
        EXPECT_EQ(a == b, a.Compare(b));
        EXPECT_EQ(a != b, !a.Compare(b));
        EXPECT_NE(a.IsCircle(), a.IsEllipse());
        EXPECT_GE(a.GetLongRadius(), a.GetShortRadius());
    });
}

TEST(EntryPointsOfGeometry, PlacementIsCopiedAndUndone) {
    sweep_each(
        [] {
            C2DMatrixItem item;
            C2DMatrixItem copy(item);
            copy = item;
            copy.CopyData(item);
            C2DMatrixList list;
            list.PushItem(copy);
            C2DMatrixList other(list);
            other = list;
            other.PopItem();
            other.DeleteAllItems();
        },
        [] {
            C3DMatrixItem item;
            C3DMatrixItem copy(item);
            copy = item;
            copy.CopyData(item);
            C2DMatrixItem flat;
            copy.Make2DItem(flat);
            C3DMatrixList list;
            list.PushItem(copy);
            C3DMatrixList other(list);
            other = list;
            other.PopItem();
            other.DeleteAllItems();
        });
}

TEST(EntryPointsOfGeometry, PointsOfSpace) {
    sweep_each([] {
        C3DPoint a(1.0, 2.0, 3.0);
        const C3DPoint b(a);
        C3DPoint c;
        c = a;
        a.SetData(c);
        a.AddPoint(b);
        a.AddPoint(1.0, 1.0, 1.0);
        a.SubPoint(b);
        a.SubPoint(1.0, 1.0, 1.0);
        a += b;
        a -= b;
        a.Move(b);
        a.Rotate(b, 1.0, 1.0, 1.0);
        a.Stretch(b, 2.0, 2.0, 2.0);
        a.MatrixCalculation(C3DMatrixItem());
        double x = 0;
        double y = 0;
        a.Select2D(0, x, y);
        EXPECT_EQ(a == b, a.Compare(b));
        EXPECT_EQ(a != b, !a.Compare(b));
        EXPECT_GE(a.GetDistance(b) + a.GetDistance(1.0, 1.0, 1.0), 0.0);
        EXPECT_EQ(a.IsZero(), a.IsZero(1e-8));
    });
}

template <typename Line>
void use_line_of_space() {
    const C3DPoint p(1.0, 2.0, 3.0);
    Line a(p, p);
    const Line b(a);
    Line c;
    c = a;
    a.SetData(c);
    a.SetData(p, p);
    a.SetData(0.0, 0.0, 0.0, 1.0, 1.0, 1.0);
    a.Move(p);
    a.Rotate(p, 1.0, 1.0, 1.0);
    a.Stretch(p, 2.0, 2.0, 2.0);
    a.MatrixCalculation(C3DMatrixItem());
    EXPECT_GE(a.GetLength() + a.Compare(b), 0.0);
}

TEST(EntryPointsOfGeometry, LinesOfSpace) {
    sweep_each([] { use_line_of_space<C3DLine>(); },
               [] {
                   use_line_of_space<C3DVectorLine>();
                   C3DVectorLine().Optimize();
               });
}

TEST(EntryPointsOfGeometry, PlaneFunctionsOfLinesAndCircles) {
    sweep_each([] {
        const C2DPoint a(0.0, 0.0);
        const C2DPoint b(1.0, 0.0);
        const C2DPoint c(0.0, 1.0);
        C2DPoint p;
        C2DPoint q;
        double x = 0;
        double y = 0;
        double z = 0;
        int count = 0;
        CA_INS2L(a, b, c, b, p);
        CA_ONLIN(a, b, c);
        CA_POSLN(C2DLine(a, b), c, count);
        CA_PERLN(a, b, c, p, x);
        CA_MIRROR(c, a, b, p);
        CA_INSLC(C2DEllipse(a, b, 1.0, 0.0, 1.0), C2DLine(a, c), p, q, count);
        CA_ARC3P(a, b, c, p, x, y, z);
        CA_PCTAN(a, 0.5, b, p, q, count);
        CA_INS2C(a, 1.0, 0.0, 360.0, b, 1.0, 0.0, 360.0, p, q, count);
        GET_ONPC(a, 1.0, 30.0, p);
        ChkOnArc(a, 1.0, 0.0, 90.0, b);
    });
}

TEST(EntryPointsOfGeometry, PlaneFunctionsOfEllipses) {
    sweep_each([] {
        const C2DPoint a(0.0, 0.0);
        const C2DPoint b(1.0, 0.0);
        const C2DPoint c(0.0, 1.0);
        C2DPoint p;
        C2DPoint q;
        double x = 0;
        double y = 0;
        double z = 0;
        int count = 0;
        CAL_INSLE(a, c, a, b, 0.5, p, q, count);
        CAL_ELPPN(a, b, 0.5, 1.0, p, q);
        CAL_ELPRR(a, b, 0.5, b, c, p, q);
        CAL_ELPCP(a, b, 0.5, 1.0, p);
        CAL_ELPDT(b, c, a, x, y, z);
        CA_ELAMN2(a, 2.0, 1.0, 0.0, 0.0, 1.0, p, q);
        CAL_ANGPT(a, 2.0, 1.0, 0.0, 0.0, 1.0, 0.5, p, q);
        CAL_ELAMN(a, b, 0.5, 0.0, 1.0, 0.5, p, q);
        ChkOnEllipse(&a, 0.0, 0.0, 1.0, &b);
        const double from[] = {0.0, 0.0};
        const double to[] = {0.0, 1.0};
        const double range[] = {0.0, 6.0};
        double first[2];
        double second[2];
        A2D_INSL1(from, to, from, 2.0, 1.0, 0.0, range, first, second, &count);
        A2D_PIN_CHK(from, 0.0, range, to);
    });
}

TEST(EntryPointsOfGeometry, CurvesAreCopiedMovedAndComplemented) {
    sweep_each([] {
        Curve curve;
        curve.SetDimension(2);
        CNurbsFitPoint fit;
        CNurbsFitPoint fit_copy(fit);
        fit_copy = fit;
        fit_copy.CopyData(fit);
        CNurbsCtrlPoint ctrl;
        CNurbsCtrlPoint ctrl_copy(ctrl);
        ctrl_copy = ctrl;
        ctrl_copy.CopyData(ctrl);
        for (int i = 0; i < 4; ++i) {
            fit.point.SetData(i, i % 2, 0.0);
            curve.AppendFit(fit);
        }
        curve.AppendCtrl(ctrl_copy);
        curve.AppendKnot(1.0);
        curve.CanNurbsize(1e-6);
        curve.fitCanNurbsize(1e-6);
        curve.ctrlCanNurbsize(1e-6);
        curve.fitLinearComplement();
        curve.ctrlLinearComplement();
        curve.Move(1.0, 1.0);
        curve.Rotate(C3DPoint(), 1.0);
        curve.GetSplineBase(2, 0, 0.5);
        EXPECT_EQ(curve.GetFit(99), nullptr);
        EXPECT_EQ(curve.GetLine(99), nullptr);
        EXPECT_EQ(curve.GetKnot(99), 0.0);
        CCalcNurbs copy;
        copy = curve;
        copy.ClearFit();
    });
}

TEST(EntryPointsOfGeometry, LinearSystemsAreSolved) {
    sweep_each([] {
        const Curve curve;
        for (int way = 0; way < 2; ++way) {
            double rows[2][2] = {{2.0, 1.0}, {1.0, 3.0}};
            double* matrix[] = {rows[0], rows[1]};
            double rhs[] = {3.0, 5.0};
            int index[2];
            double scale[2];
            double solution[2];
            TCalcNurbsWorkBuffer buffer{matrix, rhs, index, scale, solution};
            double sign = 0;
            if (way == 0) {
                curve.GauseMethod(buffer, 2);
            } else {
                curve.LU_Decomposition(2, buffer, sign);
                curve.SolveLinerSystemOfEquations(2, buffer);
            }
        }
    });
}

}  // namespace
}  // namespace orvil::test
