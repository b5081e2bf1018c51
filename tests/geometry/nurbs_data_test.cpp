// What a curve holds, and the edits that need no evaluation.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <numbers>

#include "nurbs_probe.h"

namespace orvil::test {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(NurbsLayout, SizesAreThoseThatHostsRelyOn) {
    EXPECT_EQ(sizeof(CNurbsCtrlPoint), 48U);
    EXPECT_EQ(sizeof(CNurbsFitPoint), 40U);
    EXPECT_EQ(sizeof(TCalcNurbsWorkBuffer), 40U);
    EXPECT_EQ(sizeof(CCalcNurbs), 112U);
    EXPECT_EQ(sizeof(EKnotVectorForm), sizeof(int));
}

TEST(NurbsLayout, FieldsStandInOrder) {
    const NurbsProbe curve;
    const auto at = [&curve](const void* field) {
        return static_cast<const char*>(field) - reinterpret_cast<const char*>(&curve);
    };
    EXPECT_EQ(at(&curve.dimension_), 8);
    EXPECT_EQ(at(&curve.knots_), 16);
    EXPECT_EQ(at(&curve.ctrl_points_), 40);
    EXPECT_EQ(at(&curve.fit_points_), 64);
    EXPECT_EQ(at(&curve.lines_), 88);
}

TEST(NurbsLayout, FormsHaveTheirValues) {
    EXPECT_EQ(KnotFormClamped, 0);
    EXPECT_EQ(KnotFormUniform, 1);
}

// --- points ----------------------------------------------------------------------------------------------------------

TEST(NurbsCtrlPoint, IsMadeAtTheOriginWithWeightOne) {
    const CNurbsCtrlPoint point;
    EXPECT_EQ(point.point.x, 0);
    EXPECT_EQ(point.point.y, 0);
    EXPECT_EQ(point.point.z, 0);
    EXPECT_EQ(point.weight, 1.0);
}

void expect_equal(const CNurbsCtrlPoint& left, const CNurbsCtrlPoint& right) {
    EXPECT_EQ(left.point.x, right.point.x);
    EXPECT_EQ(left.point.y, right.point.y);
    EXPECT_EQ(left.point.z, right.point.z);
    EXPECT_EQ(left.weight, right.weight);
}

TEST(NurbsCtrlPoint, EveryWayOfCopyingTakesPointAndWeight) {
    CNurbsCtrlPoint point;
    point.point.SetData(1, 2, 3);
    point.weight = 0.25;
    const CNurbsCtrlPoint constructed(point);
    CNurbsCtrlPoint assigned;
    assigned = point;
    CNurbsCtrlPoint copied;
    EXPECT_TRUE(copied.CopyData(point));
    const std::unique_ptr<CNurbsCtrlPoint> on_heap(point.GetCopyInstance());
    for (const CNurbsCtrlPoint& copy : {constructed, assigned, copied, *on_heap}) {
        expect_equal(copy, point);
    }
    EXPECT_TRUE(point.CopyData(point));
    EXPECT_EQ(point.weight, 0.25);
}

TEST(NurbsFitPoint, EveryWayOfCopyingTakesThePoint) {
    CNurbsFitPoint point;
    EXPECT_TRUE(point.point.IsZero(1e-300));
    point.point.SetData(1, 2, 3);
    const CNurbsFitPoint constructed(point);
    CNurbsFitPoint assigned;
    assigned = point;
    CNurbsFitPoint copied;
    EXPECT_TRUE(copied.CopyData(point));
    const std::unique_ptr<CNurbsFitPoint> on_heap(point.GetCopyInstance());
    for (const CNurbsFitPoint& copy : {constructed, assigned, copied, *on_heap}) {
        EXPECT_EQ(copy.point.x, 1);
        EXPECT_EQ(copy.point.y, 2);
        EXPECT_EQ(copy.point.z, 3);
    }
}

class CountedPoint : public CNurbsCtrlPoint {
public:
    explicit CountedPoint(int& deleted) : deleted_(deleted) {}
    CountedPoint(const CountedPoint&) = default;
    CountedPoint& operator=(const CountedPoint&) = delete;
    ~CountedPoint() override { ++deleted_; }

private:
    int& deleted_;
};

TEST(NurbsCtrlPoint, DerivedPointsAreDeletedThroughTheBase) {
    int deleted = 0;
    const CNurbsCtrlPoint* point = new CountedPoint(deleted);
    delete point;
    EXPECT_EQ(deleted, 1);
}

// --- dimension and arrays --------------------------------------------------------------------------------------------

TEST(NurbsDimension, IsOneAtFirst) {
    EXPECT_EQ(NurbsProbe().dimension_, 1);
}

TEST(NurbsDimension, OneToSevenAreTaken) {
    NurbsProbe curve;
    for (int d = 1; d <= 7; ++d) {
        EXPECT_TRUE(curve.SetDimension(d));
        EXPECT_EQ(curve.dimension_, d);
    }
}

TEST(NurbsDimension, OthersAreRefusedWithoutAChange) {
    NurbsProbe curve(5);
    for (const int d : {0, 8, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        EXPECT_FALSE(curve.SetDimension(d));
        EXPECT_EQ(curve.dimension_, 5);
    }
}

TEST(NurbsKnots, AreReadInOrder) {
    NurbsProbe curve;
    EXPECT_EQ(curve.GetKnotSize(), 0);
    EXPECT_TRUE(curve.AppendKnot(2.5));
    EXPECT_TRUE(curve.AppendKnot(-1));
    EXPECT_EQ(curve.GetKnotSize(), 2);
    EXPECT_EQ(curve.GetKnot(0), 2.5);
    EXPECT_EQ(curve.GetKnot(1), -1);
}

TEST(NurbsKnots, OutsideOfTheArrayIsZero) {
    NurbsProbe curve;
    curve.AppendKnot(2.5);
    for (const int i : {-1, 1, 2, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        EXPECT_EQ(curve.GetKnot(i), 0.0);
    }
}

TEST(NurbsKnots, AnyValueIsKept) {
    NurbsProbe curve;
    EXPECT_TRUE(curve.AppendKnot(kInfinity));
    EXPECT_TRUE(curve.AppendKnot(kNaN));
    EXPECT_EQ(curve.GetKnot(0), kInfinity);
    EXPECT_TRUE(std::isnan(curve.GetKnot(1)));
}

TEST(NurbsKnots, ClearRemovesAll) {
    NurbsProbe curve;
    EXPECT_TRUE(curve.ClearKnot());
    curve.AppendKnot(2.5);
    EXPECT_TRUE(curve.ClearKnot());
    EXPECT_EQ(curve.GetKnotSize(), 0);
}

TEST(NurbsCtrl, AppendKeepsCopies) {
    NurbsProbe curve;
    CNurbsCtrlPoint point;
    point.point.SetData(1, 2, 3);
    point.weight = 4;
    EXPECT_TRUE(curve.AppendCtrl(point));
    point.weight = 5;
    ASSERT_EQ(curve.ctrl_count(), 1);
    EXPECT_EQ(curve.ctrl(0).weight, 4);
    EXPECT_EQ(curve.ctrl_place(0), (Place{1, 2, 3}));
    EXPECT_TRUE(curve.ClearCtrl());
    EXPECT_EQ(curve.ctrl_count(), 0);
}

TEST(NurbsFit, IsReadAndChangedInPlace) {
    NurbsProbe curve;
    EXPECT_EQ(curve.GetFitSize(), 0);
    curve.add_fit(1, 2, 3);
    curve.add_fit(4, 5, 6);
    ASSERT_EQ(curve.GetFitSize(), 2);
    EXPECT_EQ(curve.GetFit(1)->point.y, 5);
    curve.GetFit(1)->point.y = 7;
    EXPECT_EQ(curve.GetFit(1)->point.y, 7);
    EXPECT_TRUE(curve.ClearFit());
    EXPECT_EQ(curve.GetFitSize(), 0);
}

TEST(NurbsFit, OutsideOfTheArrayIsNull) {
    NurbsProbe curve;
    curve.add_fit(1, 2, 3);
    for (const int i : {-1, 1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        EXPECT_EQ(curve.GetFit(i), nullptr);
        EXPECT_EQ(curve.GetLine(i), nullptr);
    }
}

TEST(NurbsFit, AnElementCanBeAppendedAgain) {
    NurbsProbe curve;
    curve.add_fit(1, 2, 3);
    for (int i = 0; i < 40; ++i) {
        EXPECT_TRUE(curve.AppendFit(*curve.GetFit(0)));
    }
    EXPECT_EQ(curve.GetFit(40)->point.z, 3);
}

TEST(NurbsLine, IsAppendedReadAndCleared) {
    NurbsProbe curve;
    EXPECT_EQ(curve.GetLineSize(), 0);
    EXPECT_TRUE(curve.AppendLine(C3DLine(1, 2, 3, 4, 5, 6)));
    ASSERT_EQ(curve.GetLineSize(), 1);
    EXPECT_EQ(curve.GetLine(0)->start.x, 1);
    EXPECT_EQ(curve.GetLine(0)->end.z, 6);
    EXPECT_TRUE(curve.ClearLine());
    EXPECT_EQ(curve.GetLineSize(), 0);
}

// --- copies ----------------------------------------------------------------------------------------------------------

NurbsProbe full_curve() {
    NurbsProbe curve(4);
    curve.add_knots({1, 2, 3});
    curve.add_ctrl(1, 2, 3, 0.5);
    curve.add_fit(4, 5, 6);
    curve.add_fit(7, 8, 9);
    curve.AppendLine(C3DLine(1, 2, 3, 4, 5, 6));
    return curve;
}

void expect_full(const NurbsProbe& curve) {
    EXPECT_EQ(curve.dimension_, 4);
    EXPECT_EQ(curve.knots(), (std::vector<double>{1, 2, 3}));
    ASSERT_EQ(curve.ctrl_count(), 1);
    EXPECT_EQ(curve.ctrl(0).weight, 0.5);
    ASSERT_EQ(curve.GetFitSize(), 2);
    EXPECT_EQ(curve.GetFit(1)->point.x, 7);
    EXPECT_EQ(curve.chain(), (std::vector<Place>{{1, 2, 3}, {4, 5, 6}}));
}

TEST(NurbsCopy, EveryWayTakesAllArraysAndTheDimension) {
    const NurbsProbe curve = full_curve();
    const NurbsProbe constructed(curve);
    NurbsProbe assigned;
    assigned = curve;
    NurbsProbe copied;
    EXPECT_TRUE(copied.CopyData(curve));
    expect_full(constructed);
    expect_full(assigned);
    expect_full(copied);
}

TEST(NurbsCopy, ReplacesWhatWasThere) {
    NurbsProbe curve(2);
    curve.add_knots({9, 9, 9, 9, 9});
    curve.add_ctrl(9, 9);
    curve.add_ctrl(9, 9);
    curve = full_curve();
    expect_full(curve);
}

TEST(NurbsCopy, IsIndependent) {
    const NurbsProbe curve = full_curve();
    NurbsProbe copy(curve);
    copy.GetFit(1)->point.x = 0;
    copy.GetLine(0)->end.x = 0;
    copy.ClearKnot();
    copy.ClearCtrl();
    expect_full(curve);
}

TEST(NurbsCopy, OntoItselfIsNothing) {
    NurbsProbe curve = full_curve();
    const CNurbsFitPoint* fit = curve.GetFit(0);
    EXPECT_TRUE(curve.CopyData(curve));
    const NurbsProbe& same = curve;
    curve = same;
    expect_full(curve);
    EXPECT_EQ(curve.GetFit(0), fit);
}

// --- can it be a curve -----------------------------------------------------------------------------------------------

TEST(NurbsCanNurbsize, NeedsThreePoints) {
    NurbsProbe curve;
    EXPECT_FALSE(curve.CanNurbsize(1e-8));
    curve.add_fit(0, 0);
    curve.add_fit(1, 0);
    EXPECT_FALSE(curve.CanNurbsize(1e-8));
    curve.add_fit(2, 0);
    EXPECT_TRUE(curve.CanNurbsize(1e-8));
}

TEST(NurbsCanNurbsize, RefusesNeighboursThatCoincide) {
    NurbsProbe curve;
    curve.add_fit(0, 0, 1);
    curve.add_fit(1, 0, 1);
    curve.add_fit(1, 0, 1);
    EXPECT_FALSE(curve.CanNurbsize(0));
    EXPECT_TRUE(curve.CanNurbsize(-1));
    curve.GetFit(2)->point.z = 2;
    EXPECT_TRUE(curve.CanNurbsize(0));
}

TEST(NurbsCanNurbsize, TheToleranceItselfIsTooClose) {
    NurbsProbe curve;
    curve.add_fit(0, 0, 0);
    curve.add_fit(3, 0, 4);
    curve.add_fit(30, 0, 40);
    EXPECT_FALSE(curve.CanNurbsize(5));
    EXPECT_TRUE(curve.CanNurbsize(std::nextafter(5.0, 0.0)));
}

TEST(NurbsCanNurbsize, PointsThatAreNoNeighboursMayCoincide) {
    NurbsProbe curve;
    curve.add_fit(0, 0);
    curve.add_fit(1, 0);
    curve.add_fit(0, 0);
    EXPECT_TRUE(curve.CanNurbsize(1e-8));
}

TEST(NurbsCanNurbsize, ControlPointsGoBeforeFitPoints) {
    NurbsProbe curve;
    for (int i = 0; i < 3; ++i) {
        curve.add_fit(i, 0);
    }
    EXPECT_TRUE(curve.CanNurbsize(1e-8));
    curve.add_ctrl(0, 0);
    EXPECT_FALSE(curve.CanNurbsize(1e-8));
    EXPECT_TRUE(curve.fitCanNurbsize(1e-8));
    EXPECT_FALSE(curve.ctrlCanNurbsize(1e-8));
    curve.add_ctrl(1, 0);
    curve.add_ctrl(2, 0);
    curve.GetFit(0)->point.x = 1;
    EXPECT_TRUE(curve.CanNurbsize(1e-8));
    EXPECT_FALSE(curve.fitCanNurbsize(1e-8));
}

TEST(NurbsCanNurbsize, NothingIsWithinADistanceThatIsNoNumber) {
    NurbsProbe curve;
    for (int i = 0; i < 3; ++i) {
        curve.add_fit(kNaN, 0);
    }
    EXPECT_TRUE(curve.CanNurbsize(1e300));
    EXPECT_TRUE(curve.CanNurbsize(kNaN));
}

// --- straight segments -----------------------------------------------------------------------------------------------

TEST(NurbsLinearComplement, JoinsEachPointToTheNext) {
    NurbsProbe curve;
    curve.add_fit(0, 0, 1);
    curve.add_fit(1, 0, 2);
    curve.add_fit(1, 5, 3);
    EXPECT_TRUE(curve.LinearComplement());
    EXPECT_EQ(curve.chain(), (std::vector<Place>{{0, 0, 1}, {1, 0, 2}, {1, 5, 3}}));
}

TEST(NurbsLinearComplement, ClearsTheLinesWithFewerThanTwoPoints) {
    NurbsProbe curve;
    curve.AppendLine(C3DLine());
    EXPECT_TRUE(curve.LinearComplement());
    EXPECT_EQ(curve.GetLineSize(), 0);
    curve.add_ctrl(1, 1);
    curve.AppendLine(C3DLine());
    EXPECT_TRUE(curve.LinearComplement());
    EXPECT_EQ(curve.GetLineSize(), 0);
}

TEST(NurbsLinearComplement, FitPointsGoBeforeControlPoints) {
    NurbsProbe curve;
    curve.add_ctrl(0, 0, 0);
    curve.add_ctrl(1, 1, 1);
    EXPECT_TRUE(curve.LinearComplement());
    EXPECT_EQ(curve.chain(), (std::vector<Place>{{0, 0, 0}, {1, 1, 1}}));
    curve.add_fit(5, 5);
    EXPECT_TRUE(curve.LinearComplement());
    EXPECT_EQ(curve.GetLineSize(), 0);
    curve.add_fit(6, 6);
    EXPECT_TRUE(curve.LinearComplement());
    EXPECT_EQ(curve.chain(), (std::vector<Place>{{5, 5, 0}, {6, 6, 0}}));
}

TEST(NurbsLinearComplement, EachArrayHasItsOwn) {
    NurbsProbe curve;
    curve.add_ctrl(0, 0);
    curve.add_ctrl(1, 1);
    curve.add_fit(5, 5);
    curve.add_fit(6, 6);
    EXPECT_TRUE(curve.ctrlLinearComplement());
    EXPECT_EQ(curve.chain(), (std::vector<Place>{{0, 0, 0}, {1, 1, 0}}));
    EXPECT_TRUE(curve.fitLinearComplement());
    EXPECT_EQ(curve.chain(), (std::vector<Place>{{5, 5, 0}, {6, 6, 0}}));
}

TEST(NurbsLinearComplement, AnEmptySlotJoinsNothing) {
    NurbsProbe curve;
    for (int i = 0; i < 4; ++i) {
        curve.add_fit(i, 0);
    }
    curve.fit_points_.ClearAt(1);
    EXPECT_FALSE(curve.CanNurbsize(1e-8));
    EXPECT_TRUE(curve.LinearComplement());
    EXPECT_EQ(curve.chain(), (std::vector<Place>{{2, 0, 0}, {3, 0, 0}}));
}

// --- edits -----------------------------------------------------------------------------------------------------------

NurbsProbe edited_curve() {
    NurbsProbe curve;
    curve.add_ctrl(1, 2, 3);
    curve.add_ctrl(4, 5, 6);
    curve.add_fit(7, 8, 9);
    curve.AppendLine(C3DLine(1, 1, 1, 2, 2, 2));
    return curve;
}

TEST(NurbsMove, MovesPointsInThePlaneAndLeavesTheLines) {
    NurbsProbe curve = edited_curve();
    EXPECT_TRUE(curve.Move(10, -20));
    EXPECT_EQ(curve.ctrl_place(0), (Place{11, -18, 3}));
    EXPECT_EQ(curve.ctrl_place(1), (Place{14, -15, 6}));
    EXPECT_EQ(curve.GetFit(0)->point.x, 17);
    EXPECT_EQ(curve.GetFit(0)->point.y, -12);
    EXPECT_EQ(curve.GetFit(0)->point.z, 9);
    EXPECT_EQ(curve.chain(), (std::vector<Place>{{1, 1, 1}, {2, 2, 2}}));
}

TEST(NurbsMove, AnEmptyCurveMovesToo) {
    NurbsProbe curve;
    EXPECT_TRUE(curve.Move(1, 1));
    EXPECT_TRUE(curve.Rotate(C3DPoint(), 1));
}

TEST(NurbsRotate, TurnsPointsAboutZAndClearsTheLines) {
    NurbsProbe curve = edited_curve();
    EXPECT_TRUE(curve.Rotate(C3DPoint(1, 1, 100), std::numbers::pi / 2));
    EXPECT_NEAR(curve.ctrl(0).point.x, 0, 1e-15);
    EXPECT_NEAR(curve.ctrl(0).point.y, 1, 1e-15);
    EXPECT_EQ(curve.ctrl(0).point.z, 3);
    EXPECT_NEAR(curve.ctrl(1).point.x, -3, 1e-15);
    EXPECT_NEAR(curve.ctrl(1).point.y, 4, 1e-15);
    EXPECT_NEAR(curve.GetFit(0)->point.x, -6, 1e-14);
    EXPECT_NEAR(curve.GetFit(0)->point.y, 7, 1e-14);
    EXPECT_EQ(curve.GetFit(0)->point.z, 9);
    EXPECT_EQ(curve.GetLineSize(), 0);
}

TEST(NurbsRotate, TheCentreMayBeAPointOfTheCurve) {
    NurbsProbe curve;
    curve.add_fit(5, 5);
    curve.add_fit(6, 5);
    curve.add_ctrl(7, 5);
    EXPECT_TRUE(curve.Rotate(curve.GetFit(1)->point, std::numbers::pi));
    EXPECT_NEAR(curve.GetFit(0)->point.x, 7, 1e-15);
    EXPECT_NEAR(curve.GetFit(1)->point.x, 6, 1e-15);
    EXPECT_NEAR(curve.ctrl(0).point.x, 5, 1e-15);
}

TEST(NurbsEdits, EmptySlotsAreLeftAlone) {
    NurbsProbe curve = edited_curve();
    curve.ctrl_points_.ClearAt(0);
    EXPECT_TRUE(curve.Move(1, 1));
    EXPECT_TRUE(curve.Rotate(C3DPoint(), 0));
    EXPECT_EQ(curve.ctrl_place(1), (Place{5, 6, 6}));
}

}  // namespace
}  // namespace orvil::test
