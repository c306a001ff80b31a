#include "plugin/FixedPatterns.h"

#include "plugin/JobMember.h"

#include "camdata/holes/CMxGeom.h"

#include <algorithm>

namespace plugin {

namespace {

/// The library turns only the first of several positions into a distance from the start.
double PositionFromStart(double position, double fixedLength) {
    CMxSingleMemValidation one;
    CMxHoles hole;
    hole.SetHoleXPos(position);
    one.SetValues(fixedLength, {hole}, false);
    one.setHolesPosition();
    return one.GetMxHoles().first().GetHoleXPos();
}

CMxHoles ExpectedHole(const PatternHole& hole, const FixedPattern& pattern) {
    ZetArray<double> positions;
    for (const double position : hole.positions)
        positions.append(PositionFromStart(position, pattern.fixedLength));
    CMxHoles expected;
    expected.SetValues(
        hole.diameter, hole.code, positions, hole.message, pattern.isMirrorAllowed, false);
    return expected;
}

}  // namespace

CMxSingleMemValidation MakePrescription(const FixedPattern& pattern) {
    ZetArray<CMxHoles> holes;
    for (const PatternHole& hole : pattern.holes)
        holes.append(ExpectedHole(hole, pattern));
    CMxSingleMemValidation prescription;
    prescription.SetValues(pattern.fixedLength, holes, pattern.isMirrorAllowed);
    return prescription;
}

void JobMember::CheckFixedPattern() {
    const CMxSingleMemValidation* pattern = m_rules.FindPattern(m_type);
    if (pattern == nullptr)
        return;
    CMxSingleMemValidation prescription = *pattern;
    ZetArray<CMxHoles> expectedHoles = prescription.GetMxHoles();
    const double length = prescription.GetFixedLength();
    std::vector<char> isTaken(static_cast<std::size_t>(m_holes.length()));
    for (CMxHoles& expected : expectedHoles) {
        if (!FindExpected(expected, length, isTaken))
            FileFinding(kFixedPattern, expected.GetErrMsg(length));
    }
    prescription.SetMxHoles(std::move(expectedHoles));
    SetSingleMemValid(std::move(prescription));
}

/// Takes a hole of the member for the expected one: at one of its positions, or else at one of them
/// measured from the other end.
bool JobMember::FindExpected(CMxHoles& expected, double length, std::vector<char>& isTaken) const {
    expected.SetFound(TakeHoleOf(expected, 0.0, isTaken));
    if (!expected.GetFound() && expected.GetIsMirrApplicable()) {
        expected.SetFound(TakeHoleOf(expected, length, isTaken));
        expected.SetIsMirror(expected.GetFound());
    }
    return expected.GetFound();
}

/// Takes the first hole that no other expected one has. `mirrorAt` above 0: positions are measured
/// back from there.
bool JobMember::TakeHoleOf(const CMxHoles& expected,
                           double mirrorAt,
                           std::vector<char>& isTaken) const {
    for (const double position : expected.GetHoleXPosArr()) {
        const double x = mirrorAt > 0.0 ? mirrorAt - position : position;
        for (long i = 0; i < m_holes.length(); ++i) {
            char& taken = isTaken[static_cast<std::size_t>(i)];
            if (taken != 0 || !IsExpectedHole(m_holes[i], expected, x))
                continue;
            taken = 1;
            return true;
        }
    }
    return false;
}

bool JobMember::IsExpectedHole(const CHoleAddlInfo& hole, const CMxHoles& expected, double x) {
    if (!hole.GetValid() || !hole.CheckHoleCode(x, expected.GetHoleCode()))
        return false;
    CMxGeom::SetTol(eTolY);
    return CMxGeom::IsEqual_Mx(hole.GetSize(), expected.GetHoleDia());
}

}  // namespace plugin
