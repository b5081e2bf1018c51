// The captioned cases of tests/data/geometry: each calls one function and compares its result and its outputs.
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "orvil/geometry/plane_functions.h"
#include "plane_cases.h"

namespace orvil::test {
namespace {

// The arguments of a call, one after the other.
class Given {
public:
    explicit Given(const std::vector<double>& values) : values_(values) {}

    double number() { return next_ < values_.size() ? values_[next_++] : std::nan(""); }
    C2DPoint point() {
        const double x = number();
        return {x, number()};
    }
    bool is_used_up() const { return next_ == values_.size(); }

private:
    const std::vector<double>& values_;
    std::size_t next_ = 0;
};

// The outputs of a call; all of them are kept as they are until they are written.
struct Outputs {
    C2DPoint p1{kKept, kKept};
    C2DPoint p2{kKept, kKept};
    double first = kKept;
    double second = kKept;
    double third = kKept;
    int whole = -7;

    double counted() const { return whole == -7 ? kKept : whole; }
};

using Numbers = std::vector<double>;
using Call = Numbers (*)(Given&);

Numbers with_points(int result, const Outputs& out) {
    return {static_cast<double>(result), out.p1.x, out.p1.y, out.p2.x, out.p2.y};
}

Numbers with_count(int result, const Outputs& out) {
    Numbers numbers = with_points(result, out);
    numbers.push_back(out.counted());
    return numbers;
}

Numbers call_ins2l(Given& in) {
    Outputs out;
    const C2DPoint a1 = in.point(), a2 = in.point(), b1 = in.point(), b2 = in.point();
    const int code = CA_INS2L(a1, a2, b1, b2, out.p1);
    return {static_cast<double>(code), out.p1.x, out.p1.y};
}

Numbers call_onlin(Given& in) {
    const C2DPoint a = in.point(), b = in.point(), p = in.point();
    return {static_cast<double>(CA_ONLIN(a, b, p))};
}

Numbers call_posln(Given& in) {
    Outputs out;
    const C2DPoint start = in.point(), end = in.point(), p = in.point();
    const int code = CA_POSLN(C2DLine(start, end), p, out.whole);
    return {static_cast<double>(code), out.counted()};
}

Numbers call_perln(Given& in) {
    Outputs out;
    const C2DPoint a = in.point(), b = in.point(), p = in.point();
    const int code = CA_PERLN(a, b, p, out.p1, out.first);
    return {static_cast<double>(code), out.p1.x, out.p1.y, out.first};
}

Numbers call_mirror(Given& in) {
    Outputs out;
    const C2DPoint p = in.point(), a = in.point(), b = in.point();
    const bool done = CA_MIRROR(p, a, b, out.p1);
    return {done ? 1.0 : 0.0, out.p1.x, out.p1.y};
}

Numbers call_inslc(Given& in) {
    Outputs out;
    const C2DPoint centre = in.point(), axis = in.point();
    const double ratio = in.number(), start = in.number(), end = in.number();
    const C2DPoint from = in.point(), to = in.point();
    const int code =
        CA_INSLC(C2DEllipse(centre, axis, ratio, start, end), C2DLine(from, to), out.p1, out.p2, out.whole);
    return with_count(code, out);
}

Numbers call_arc3p(Given& in) {
    Outputs out;
    const C2DPoint p1 = in.point(), p2 = in.point(), p3 = in.point();
    const bool done = CA_ARC3P(p1, p2, p3, out.p1, out.first, out.second, out.third);
    return {done ? 1.0 : 0.0, out.p1.x, out.p1.y, out.first, out.second, out.third};
}

Numbers call_pctan(Given& in) {
    Outputs out;
    const C2DPoint centre = in.point();
    const double radius = in.number();
    const C2DPoint p = in.point();
    const bool done = CA_PCTAN(centre, radius, p, out.p1, out.p2, out.whole);
    return with_count(done ? 1 : 0, out);
}

Numbers call_onpc(Given& in) {
    Outputs out;
    const C2DPoint centre = in.point();
    const double radius = in.number(), degrees = in.number();
    const bool done = GET_ONPC(centre, radius, degrees, out.p1);
    return {done ? 1.0 : 0.0, out.p1.x, out.p1.y};
}

Numbers call_ins2c(Given& in) {
    Outputs out;
    const C2DPoint c1 = in.point();
    const double r1 = in.number(), s1 = in.number(), e1 = in.number();
    const C2DPoint c2 = in.point();
    const double r2 = in.number(), s2 = in.number(), e2 = in.number();
    return with_count(CA_INS2C(c1, r1, s1, e1, c2, r2, s2, e2, out.p1, out.p2, out.whole), out);
}

Numbers call_insle(Given& in) {
    Outputs out;
    const C2DPoint l1 = in.point(), l2 = in.point(), centre = in.point(), axis = in.point();
    const double ratio = in.number();
    return with_count(CAL_INSLE(l1, l2, centre, axis, ratio, out.p1, out.p2, out.whole) ? 1 : 0, out);
}

Numbers call_insl1(Given& in) {
    double points[3][2];
    for (auto& point : points) {
        point[0] = in.number();
        point[1] = in.number();
    }
    const double longer = in.number(), shorter = in.number(), rotation = in.number();
    const double angles[2] = {in.number(), in.number()};
    double p1[2] = {kKept, kKept};
    double p2[2] = {kKept, kKept};
    int count = -7;
    const int code = A2D_INSL1(points[0], points[1], points[2], longer, shorter, rotation, angles, p1, p2, &count);
    return {static_cast<double>(code), p1[0], p1[1], p2[0], p2[1], static_cast<double>(count)};
}

Numbers call_elppn(Given& in) {
    Outputs out;
    const C2DPoint centre = in.point(), axis = in.point();
    const double ratio = in.number(), direction = in.number();
    return with_points(CAL_ELPPN(centre, axis, ratio, direction, out.p1, out.p2) ? 1 : 0, out);
}

Numbers call_elprr(Given& in) {
    Outputs out;
    const C2DPoint centre = in.point(), axis = in.point();
    const double ratio = in.number();
    const C2DPoint q1 = in.point(), q2 = in.point();
    return with_points(CAL_ELPRR(centre, axis, ratio, q1, q2, out.p1, out.p2) ? 1 : 0, out);
}

Numbers call_elpcp(Given& in) {
    Outputs out;
    const C2DPoint centre = in.point(), axis = in.point();
    const double ratio = in.number(), t = in.number();
    const bool done = CAL_ELPCP(centre, axis, ratio, t, out.p1);
    return {done ? 1.0 : 0.0, out.p1.x, out.p1.y};
}

Numbers call_elpdt(Given& in) {
    Outputs out;
    const C2DPoint p1 = in.point(), p2 = in.point(), centre = in.point();
    const bool done = CAL_ELPDT(p1, p2, centre, out.first, out.second, out.third);
    return {done ? 1.0 : 0.0, out.first, out.second, out.third};
}

Numbers call_angpt(Given& in) {
    Outputs out;
    const C2DPoint centre = in.point();
    const double a = in.number(), b = in.number(), rotation = in.number();
    const double start = in.number(), end = in.number(), direction = in.number();
    return with_points(CAL_ANGPT(centre, a, b, rotation, start, end, direction, out.p1, out.p2) ? 1 : 0, out);
}

Numbers call_elamn(Given& in) {
    Outputs out;
    const C2DPoint centre = in.point(), axis = in.point();
    const double ratio = in.number(), start = in.number(), end = in.number(), direction = in.number();
    return with_points(CAL_ELAMN(centre, axis, ratio, start, end, direction, out.p1, out.p2) ? 1 : 0, out);
}

Numbers call_elamn2(Given& in) {
    Outputs out;
    const C2DPoint centre = in.point();
    const double longer = in.number(), shorter = in.number(), rotation = in.number();
    const double start = in.number(), end = in.number();
    return with_points(CA_ELAMN2(centre, longer, shorter, rotation, start, end, out.p1, out.p2) ? 1 : 0, out);
}

Numbers call_on_arc(Given& in) {
    const C2DPoint centre = in.point();
    const double radius = in.number(), start = in.number(), end = in.number();
    return {static_cast<double>(ChkOnArc(centre, radius, start, end, in.point()))};
}

Numbers call_on_ellipse(Given& in) {
    const C2DPoint centre = in.point();
    const double rotation = in.number(), start = in.number(), end = in.number();
    const C2DPoint p = in.point();
    return {static_cast<double>(ChkOnEllipse(&centre, rotation, start, end, &p))};
}

const std::map<std::string, Call>& calls() {
    static const std::map<std::string, Call> table{
        {"CA_INS2L", call_ins2l},   {"CA_ONLIN", call_onlin},   {"CA_POSLN", call_posln},
        {"CA_PERLN", call_perln},   {"CA_MIRROR", call_mirror}, {"CA_INSLC", call_inslc},
        {"CA_ARC3P", call_arc3p},   {"CA_PCTAN", call_pctan},   {"GET_ONPC", call_onpc},
        {"CA_INS2C", call_ins2c},   {"CAL_INSLE", call_insle},  {"A2D_INSL1", call_insl1},
        {"CAL_ELPPN", call_elppn},  {"CAL_ELPRR", call_elprr},  {"CAL_ELPCP", call_elpcp},
        {"CAL_ELPDT", call_elpdt},  {"CAL_ANGPT", call_angpt},  {"CAL_ELAMN", call_elamn},
        {"CA_ELAMN2", call_elamn2}, {"ChkOnArc", call_on_arc},  {"ChkOnEllipse", call_on_ellipse}};
    return table;
}

bool agrees(double got, double expected, double within) {
    if (std::isnan(expected) || std::isinf(expected)) {
        return std::isnan(expected) ? std::isnan(got) : got == expected;
    }
    return std::fabs(got - expected) <= within * std::fmax(1.0, std::fabs(expected));
}

class PlaneCases : public testing::TestWithParam<PlaneCase> {};

TEST_P(PlaneCases, GiveWhatIsExpected) {
    const PlaneCase& plane_case = GetParam();
    const auto call = calls().find(plane_case.function);
    ASSERT_NE(call, calls().end()) << plane_case.function;
    Given given(plane_case.given);
    const Numbers numbers = call->second(given);
    EXPECT_TRUE(given.is_used_up()) << "more arguments than the function takes";
    ASSERT_EQ(numbers.size(), plane_case.expected.size());
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        EXPECT_PRED3(agrees, numbers[i], plane_case.expected[i], plane_case.within) << "number " << i;
    }
}

std::string name_of(const testing::TestParamInfo<PlaneCase>& info) {
    return test_name(info.param.function + ' ' + info.param.caption);
}

INSTANTIATE_TEST_SUITE_P(Lines, PlaneCases, testing::ValuesIn(read_plane_cases("lines.cfg")), name_of);
INSTANTIATE_TEST_SUITE_P(Circles, PlaneCases, testing::ValuesIn(read_plane_cases("circles.cfg")), name_of);
INSTANTIATE_TEST_SUITE_P(Arcs, PlaneCases, testing::ValuesIn(read_plane_cases("arcs.cfg")), name_of);
INSTANTIATE_TEST_SUITE_P(Ellipses, PlaneCases, testing::ValuesIn(read_plane_cases("ellipses.cfg")), name_of);
INSTANTIATE_TEST_SUITE_P(EllipsePoints, PlaneCases, testing::ValuesIn(read_plane_cases("ellipse_points.cfg")), name_of);
INSTANTIATE_TEST_SUITE_P(NotFinite, PlaneCases, testing::ValuesIn(read_plane_cases("not_finite.cfg")), name_of);

TEST(PlaneCaseFiles, EveryFunctionHasCases) {
    std::set<std::string> seen;
    for (const char* file : {"lines.cfg", "circles.cfg", "arcs.cfg", "ellipses.cfg", "ellipse_points.cfg"}) {
        for (const PlaneCase& plane_case : read_plane_cases(file)) {
            seen.insert(plane_case.function);
        }
    }
    for (const auto& call : calls()) {
        EXPECT_TRUE(seen.count(call.first) == 1) << call.first;
    }
}

}  // namespace
}  // namespace orvil::test
