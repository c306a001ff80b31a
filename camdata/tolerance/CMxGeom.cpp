#include "camdata/tolerance/CMxGeom.h"

#include "camdata/platform/text/FixedPoint.h"

#include <array>
#include <cmath>

namespace {

// Each thread compares with its own. In this source only, not in the class: how a thread's own
// value is exported differs from system to system. What is loaded with the program, or by a host,
// finds room for these eight bytes at once, so no comparison has to call for them.
#if defined(__ELF__)
[[gnu::tls_model("initial-exec")]]
#endif
thread_local double t_current = 0.1;

}  // namespace

double CMxGeom::m_EPS = 0.1;
double CMxGeom::m_tol_g = 0.5;
double CMxGeom::m_tol_x = 0.5;
double CMxGeom::m_tol_y = 0.5;
double CMxGeom::m_tol_a = 0.5;
double CMxGeom::m_MinEdgeDist = -1.5;
double CMxGeom::m_MinEndDist = -1.5;
double CMxGeom::m_MinEdgeDistFromFace = -1.0;
double CMxGeom::m_EPS_Cur = 0.1;  // of the binary interface; nothing reads it

void CMxGeom::SetTol(eToleranceType type, double value) {
    static constexpr std::array kStored = {&m_EPS, &m_tol_g, &m_tol_x, &m_tol_y, &m_tol_a};
    static_assert(kStored.size() == eTolAngle + 1);
    const auto index = static_cast<std::size_t>(type);
    t_current = index < kStored.size() ? *kStored[index] : value;
}

// The forms of the comparisons decide at the boundary and for NaN: b - t and b + t are rounded
// before a is compared with them.

bool CMxGeom::IsEqual_Mx(double a, double b) {
    return t_current >= std::abs(a - b);
}

bool CMxGeom::IsLess_Mx(double a, double b) {
    return a - (b - t_current) < 0.0;
}

bool CMxGeom::IsLessOrEqual_Mx(double a, double b) {
    return IsEqual_Mx(a, b) || IsLess_Mx(a, b);
}

bool CMxGeom::IsGreater_Mx(double a, double b) {
    return a - (b + t_current) > 0.0;
}

bool CMxGeom::IsGreaterOrEqual_Mx(double a, double b) {
    return IsEqual_Mx(a, b) || IsGreater_Mx(a, b);
}

int CMxGeom::Compare_Mx(double a, double b) {
    if (IsEqual_Mx(a, b))
        return 0;
    return IsLess_Mx(a, b) ? -1 : 1;
}

long CMxGeom::find(ZetArray<double> values, double x) {
    for (long i = 0; i < values.length(); ++i) {
        if (IsEqual_Mx(x, values[i]))
            return i;
    }
    return -1;
}

bool CMxGeom::CheckEdgeDist(double dist, double dia) {
    return IsDistanceSufficient(dist, dia, m_MinEdgeDist);
}

bool CMxGeom::CheckEndDist(double dist, double dia) {
    return IsDistanceSufficient(dist, dia, m_MinEndDist);
}

bool CMxGeom::CheckEdgeDistFromFace(double dist, double dia) {
    return IsDistanceSufficient(dist, dia, m_MinEdgeDistFromFace);
}

bool CMxGeom::IsDistanceSufficient(double dist, double dia, double limit) {
    const bool isOff = IsEqual_Mx(limit, 0.0);
    if (isOff)
        return true;
    const double required = IsLess_Mx(limit, 0.0) ? limit * -1.0 * dia : limit;
    return dist - (required - t_current) >= 0.0;
}

double CMxGeom::Round_CAM(double value, int decimals) {
    return camdata::detail::RoundToDecimals(value, decimals);
}

double CMxGeom::Round_CAM(double value, double step) {
    const double size = std::abs(step);
    return size * Round_CAM(value / size, 0);
}

double CMxGeom::dtor(double degrees) {
    return degrees * pi / 180.0;
}

double CMxGeom::rtod(double radians) {
    return radians * 180.0 / pi;
}
