#pragma once

#include "camdata/platform/base/Export.h"
#include "camdata/platform/base/ZetArray.h"
#include "camdata/tolerance/eToleranceType.h"

/// The process-wide tolerances and distance limits, and every tolerant comparison of the library.
///
/// All comparisons read one current tolerance (called t below), which is the calling thread's own
/// and 0.1 in a new one. Only SetTol changes it: storing a tolerance does not make it current, and
/// nothing restores the one that was current before. An operation of another class that selects a
/// tolerance says so in its comment; one that does not say so leaves t alone. Lengths in mm.
///
/// The stored tolerances and the limits are those of all threads: they may change only while no
/// other thread uses the library.
class CAMDATA_API CMxGeom {
  public:
    /// Makes a stored tolerance current, or `value` for a type other than 0 to 4.
    static void SetTol(eToleranceType type, double value = 0.0);

    /// True when t >= |a - b|; false for NaN.
    static bool IsEqual_Mx(double a, double b);
    /// True when a is below b by more than t.
    static bool IsLess_Mx(double a, double b);
    /// IsEqual_Mx or IsLess_Mx.
    static bool IsLessOrEqual_Mx(double a, double b);
    /// True when a is above b by more than t.
    static bool IsGreater_Mx(double a, double b);
    /// IsEqual_Mx or IsGreater_Mx.
    static bool IsGreaterOrEqual_Mx(double a, double b);
    /// 0 when equal within t, -1 when a is below b by more than t, else 1. Gives 1 for NaN, and in
    /// both directions for two values so close to t apart that rounding decides.
    static int Compare_Mx(double a, double b);
    /// Index of the first element equal to `x` within t; -1 when there is none.
    static long find(ZetArray<double> values, double x);

    /// True when `dist`, from a hole to a face edge, is at least the limit less t.
    ///
    /// The limit (m_MinEdgeDist) is a distance; a negative limit -k stands for k times the hole's
    /// diameter `dia`; a limit within t of zero switches the check off.
    static bool CheckEdgeDist(double dist, double dia);
    /// As CheckEdgeDist, from a hole to a member end, with m_MinEndDist.
    static bool CheckEndDist(double dist, double dia);
    /// As CheckEdgeDist, from a hole to the adjoining face, with m_MinEdgeDistFromFace.
    static bool CheckEdgeDistFromFace(double dist, double dia);

    /// The double nearest to what `printf("%.*f")` prints of `value`: ties of the exact value go to
    /// the even digit. Decimals below 0 count as 0; NaN and infinities stay.
    static double Round_CAM(double value, int decimals);
    /// The multiple of |step| nearest to `value`, ties to the even multiple. Not finite for step 0.
    static double Round_CAM(double value, double step);

    /// Degrees to radians, with `pi`.
    static double dtor(double degrees);
    /// Radians to degrees, with `pi`.
    static double rtod(double radians);

    /// General epsilon, the tolerance selected most often.
    static void SetEPS(double value) { m_EPS = value; }
    static double GetEPS() { return m_EPS; }
    /// General tolerance.
    static void SetGenTol(double value) { m_tol_g = value; }
    static double GetGenTol() { return m_tol_g; }
    /// Tolerance of positions along the member.
    static void SetXTol(double value) { m_tol_x = value; }
    static double GetXTol() { return m_tol_x; }
    /// Tolerance of positions across a face.
    static void SetYTol(double value) { m_tol_y = value; }
    static double GetYTol() { return m_tol_y; }
    /// Tolerance of angles.
    static void SetAngTol(double value) { m_tol_a = value; }
    static double GetAngTol() { return m_tol_a; }
    /// Limit of CheckEdgeDist.
    static void SetMinEdgeDist(double value) { m_MinEdgeDist = value; }
    static double GetMinEdgeDist() { return m_MinEdgeDist; }
    /// Limit of CheckEndDist.
    static void SetMinEndDist(double value) { m_MinEndDist = value; }
    static double GetMinEndDist() { return m_MinEndDist; }
    /// Limit of CheckEdgeDistFromFace.
    static void SetMinEdgeDistFromFace(double value) { m_MinEdgeDistFromFace = value; }
    static double GetMinEdgeDistFromFace() { return m_MinEdgeDistFromFace; }

  private:
    CMxGeom() = default;

    static bool IsDistanceSufficient(double dist, double dia, double limit);

    static double m_EPS;
    static double m_tol_g;
    static double m_tol_x;
    static double m_tol_y;
    static double m_tol_a;
    static double m_MinEdgeDist;
    static double m_MinEndDist;
    static double m_MinEdgeDistFromFace;
    /// Ten decimals on purpose: output coordinates of slots depend on exactly this value.
    static constexpr double pi = 3.1415926535;
    /// Part of the binary interface only: the current tolerance is each thread's own.
    static double m_EPS_Cur;
};
