// Curves when memory runs out.
#include <gtest/gtest.h>

#include <memory>
#include <new>

#include "nurbs_probe.h"
#include "support/failing_allocator.h"

namespace orvil::test {
namespace {

NurbsProbe small_curve() {
    NurbsProbe curve(3);
    for (int i = 0; i < 20; ++i) {
        curve.add_fit(i, i * i % 7, i % 3);
    }
    curve.CreateCtrl();
    curve.CreateLines(2);
    return curve;
}

void expect_same(const NurbsProbe& left, const NurbsProbe& right) {
    EXPECT_EQ(left.dimension_, right.dimension_);
    EXPECT_EQ(left.GetKnotSize(), right.GetKnotSize());
    EXPECT_EQ(left.ctrl_count(), right.ctrl_count());
    EXPECT_EQ(left.GetFitSize(), right.GetFitSize());
    EXPECT_EQ(left.GetLineSize(), right.GetLineSize());
}

TEST(NurbsOutOfMemory, CopyDataLeavesTheCurveAsItWas) {
    const NurbsProbe source = small_curve();
    const NurbsProbe empty(2);
    NurbsProbe before(2);
    before.add_fit(1, 2);
    sweep_allocation_failures([&](auto failed) {
        NurbsProbe curve(2);
        const bool has_fit = curve.AppendFit(CNurbsFitPoint());
        const bool copied = curve.CopyData(source);
        EXPECT_TRUE(failed() || copied);
        const NurbsProbe& unchanged = has_fit ? before : empty;
        expect_same(curve, copied ? source : unchanged);
    });
}

TEST(NurbsOutOfMemory, ACopyIsWholeOrEmpty) {
    const NurbsProbe source = small_curve();
    const NurbsProbe empty;
    sweep_allocation_failures([&](auto failed) {
        const NurbsProbe copy(source);
        expect_same(copy, failed() ? empty : source);
    });
}

TEST(NurbsOutOfMemory, PointsAreNotCopied) {
    sweep_allocation_failures([](auto failed) {
        const std::unique_ptr<CNurbsCtrlPoint> ctrl(CNurbsCtrlPoint().GetCopyInstance());
        EXPECT_EQ(ctrl == nullptr, failed());
    });
    sweep_allocation_failures([](auto failed) {
        const std::unique_ptr<CNurbsFitPoint> fit(CNurbsFitPoint().GetCopyInstance());
        EXPECT_EQ(fit == nullptr, failed());
    });
}

TEST(StoredByLibrary, WithoutMemoryEitherFormOfNewYieldsNull) {
    sweep_allocation_failures([](auto failed) {
        const std::unique_ptr<C3DLine> line(new C3DLine);
        EXPECT_EQ(line == nullptr, failed());
    });
    sweep_allocation_failures([](auto failed) {
        void* block = C3DLine::operator new(sizeof(C3DLine), std::nothrow);
        EXPECT_EQ(block == nullptr, failed());
        C3DLine::operator delete(block, std::nothrow);
    });
}

TEST(StoredByLibrary, NullIsNotTakenBack) {
    C3DLine::operator delete(nullptr, sizeof(C3DLine));
    C3DLine::operator delete(nullptr, std::nothrow);
    const std::unique_ptr<C3DLine> line(new C3DLine);
    EXPECT_NE(line, nullptr);
}

TEST(StoredByLibrary, AnObjectCanBeMadeInPlace) {
    alignas(C3DLine) unsigned char memory[sizeof(C3DLine)];
    auto* line = new (memory) C3DLine(1, 2, 3, 4, 5, 6);
    EXPECT_EQ(static_cast<void*>(line), static_cast<void*>(memory));
    EXPECT_EQ(line->end.z, 6);
    line->~C3DLine();
}

TEST(NurbsOutOfMemory, AppendingFails) {
    sweep_allocation_failures([](auto failed) {
        NurbsProbe curve;
        const bool all = curve.AppendKnot(1) & curve.AppendCtrl(CNurbsCtrlPoint()) & curve.AppendFit(CNurbsFitPoint()) &
                         curve.AppendLine(C3DLine());
        EXPECT_EQ(all, !failed());
        EXPECT_EQ(curve.GetKnotSize() + curve.ctrl_count() + curve.GetFitSize() + curve.GetLineSize() == 4, !failed());
    });
}

TEST(NurbsOutOfMemory, MakeKnotVectorLeavesNone) {
    for (const EKnotVectorForm form : {KnotFormClamped, KnotFormUniform}) {
        sweep_allocation_failures([form](auto failed) {
            NurbsProbe curve;
            const bool done = curve.MakeKnotVector(4, 30, form);
            EXPECT_EQ(done, !failed());
            EXPECT_EQ(curve.GetKnotSize(), failed() ? 0 : 34);
        });
    }
}

TEST(NurbsOutOfMemory, CreateCtrlLeavesNoCurve) {
    const NurbsProbe source = small_curve();
    sweep_allocation_failures([&](auto failed) {
        NurbsProbe curve(source);
        if (failed()) {
            return;
        }
        curve.ClearCtrl();
        curve.ClearKnot();
        const bool done = curve.CreateCtrl();
        EXPECT_EQ(done, !failed());
        EXPECT_EQ(curve.ctrl_count(), failed() ? 0 : 22);
        EXPECT_EQ(curve.GetKnotSize(), failed() ? 0 : 26);
        EXPECT_EQ(curve.GetFitSize(), 20);
    });
}

void expect_no_lines_on_failure(const NurbsProbe& source, int lines) {
    sweep_allocation_failures([&](auto failed) {
        NurbsProbe curve(source);
        if (failed()) {
            return;
        }
        curve.ClearLine();
        const bool done = curve.CreateLines(2);
        EXPECT_EQ(done, !failed());
        EXPECT_EQ(curve.GetLineSize(), failed() ? 0 : lines);
        EXPECT_EQ(curve.ctrl_count(), source.ctrl_count());
    });
}

TEST(NurbsOutOfMemory, CreateLinesLeavesNoLines) {
    expect_no_lines_on_failure(small_curve(), 38);
}

// With weights of 1 and -1 the sum is 0 in the middle of the span.
TEST(NurbsOutOfMemory, ACurveThatFailsTakesNoMemoryForWhatIsBehind) {
    for (const double weight : {0.0, -1.0}) {
        NurbsProbe curve(1);
        curve.add_ctrl(1, 2, 3, -weight);
        curve.add_ctrl(4, 5, 6, weight);
        curve.add_knots({0, 0, 1, 1});
        start_counting_allocations();
        EXPECT_FALSE(curve.CreateLines(100'000));
        EXPECT_LT(stop_counting_allocations(), weight == 0 ? 10 : 55'000);
    }
}

TEST(NurbsOutOfMemory, CreateLinesOverDecreasingKnotsLeavesNoLines) {
    NurbsProbe source(1);
    source.add_knots({0, 0, 2, 1, 3, 3});
    for (int i = 0; i < 4; ++i) {
        source.add_ctrl(i, 0);
    }
    expect_no_lines_on_failure(source, 4);
}

TEST(NurbsOutOfMemory, LinearComplementLeavesNoLines) {
    const NurbsProbe source = small_curve();
    sweep_allocation_failures([&](auto failed) {
        NurbsProbe curve(source);
        if (failed()) {
            return;
        }
        const bool done = curve.LinearComplement();
        EXPECT_EQ(done, !failed());
        EXPECT_EQ(curve.GetLineSize(), failed() ? 0 : 19);
    });
}

}  // namespace
}  // namespace orvil::test
