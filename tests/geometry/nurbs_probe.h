// A CCalcNurbs whose protected members can be reached, and short ways to fill one.
#pragma once

#include <array>
#include <initializer_list>
#include <ostream>
#include <vector>

#include "orvil/geometry/nurbs.h"

namespace orvil::test {

using Place = std::array<double, 3>;

class NurbsProbe : public CCalcNurbs {
public:
    using CCalcNurbs::ctrl_points_;
    using CCalcNurbs::ctrlCanNurbsize;
    using CCalcNurbs::ctrlLinearComplement;
    using CCalcNurbs::dimension_;
    using CCalcNurbs::fit_points_;
    using CCalcNurbs::fitCanNurbsize;
    using CCalcNurbs::fitLinearComplement;
    using CCalcNurbs::GauseMethod;
    using CCalcNurbs::GetSplineBase;
    using CCalcNurbs::knots_;
    using CCalcNurbs::lines_;
    using CCalcNurbs::LU_Decomposition;
    using CCalcNurbs::MakeKnotVector;
    using CCalcNurbs::SolveLinerSystemOfEquations;

    NurbsProbe() = default;
    explicit NurbsProbe(int dimension) { dimension_ = dimension; }

    void add_knots(const std::vector<double>& values) {
        for (const double value : values) {
            AppendKnot(value);
        }
    }

    void add_ctrl(double x, double y, double z = 0, double weight = 1) {
        CNurbsCtrlPoint point;
        point.point.SetData(x, y, z);
        point.weight = weight;
        AppendCtrl(point);
    }

    void add_fit(double x, double y, double z = 0) {
        CNurbsFitPoint point;
        point.point.SetData(x, y, z);
        AppendFit(point);
    }

    int ctrl_count() const { return ctrl_points_.GetSize(); }
    const CNurbsCtrlPoint& ctrl(int i) const { return *ctrl_points_.GetAt(i); }
    Place ctrl_place(int i) const { return {ctrl(i).point.x, ctrl(i).point.y, ctrl(i).point.z}; }

    std::vector<double> knots() const {
        std::vector<double> values;
        for (int i = 0; i < GetKnotSize(); ++i) {
            values.push_back(GetKnot(i));
        }
        return values;
    }

    // Where the segments begin and end: one place more than there are segments, which must join.
    std::vector<Place> chain() const {
        std::vector<Place> places;
        for (int i = 0; i < GetLineSize(); ++i) {
            const C3DPoint& start = GetLine(i)->start;
            const C3DPoint& end = GetLine(i)->end;
            const Place from{start.x, start.y, start.z};
            if (places.empty()) {
                places.push_back(from);
            } else if (places.back() != from) {
                return {};
            }
            places.push_back({end.x, end.y, end.z});
        }
        return places;
    }
};

}  // namespace orvil::test
