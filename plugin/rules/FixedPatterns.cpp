#include "plugin/rules/FixedPatterns.h"

#include "plugin/rules/JobMember.h"

#include "camdata/tolerance/CMxGeom.h"

#include <cmath>
#include <utility>

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

CMxHoles ExpectedHole(const job::PatternHole& hole, const job::FixedPattern& pattern) {
    ZetArray<double> positions;
    for (const double position : hole.positions)
        positions.append(PositionFromStart(position, pattern.fixedLength));
    CMxHoles expected;
    expected.SetValues(
        hole.diameter, hole.code, positions, hole.message, pattern.isMirrorAllowed, false);
    return expected;
}

/// The pattern as it lies the other way round. All of it turns: a member with some holes as given
/// and some turned does not have it.
CMxSingleMemValidation Turned(CMxSingleMemValidation prescription) {
    ZetArray<CMxHoles> holes = prescription.GetMxHoles();
    for (CMxHoles& hole : holes) {
        ZetArray<double> positions = hole.GetHoleXPosArr();
        for (double& x : positions)
            x = prescription.GetFixedLength() - x;
        hole.SetHoleXPos(positions.first());
        hole.SetHoleXPosArr(std::move(positions));
        hole.SetIsMirror(true);
    }
    prescription.SetMxHoles(std::move(holes));
    return prescription;
}

}  // namespace

CMxSingleMemValidation MakePrescription(const job::FixedPattern& pattern) {
    ZetArray<CMxHoles> holes;
    for (const job::PatternHole& hole : pattern.holes)
        holes.append(ExpectedHole(hole, pattern));
    CMxSingleMemValidation prescription;
    prescription.SetValues(pattern.fixedLength, holes, pattern.isMirrorAllowed);
    return prescription;
}

void JobMember::CheckFixedPattern() {
    const CMxSingleMemValidation* pattern = m_rules.FindPattern(m_type);
    if (pattern == nullptr)
        return;
    CMxSingleMemValidation prescription = LookFor(*pattern);
    if (pattern->GetMirrorApplicable()) {
        CMxSingleMemValidation turned = LookFor(Turned(*pattern));
        if (turned.GetNoOfHolesFound() > prescription.GetNoOfHolesFound())
            prescription = std::move(turned);
    }
    for (CMxHoles& expected : prescription.GetMxHoles()) {
        if (!expected.GetFound())
            FileFinding(MissingHole(expected, prescription.GetFixedLength()));
    }
    SetSingleMemValid(std::move(prescription));
}

/// With the hole of that diameter that comes nearest.
Finding JobMember::MissingHole(CMxHoles& expected, double fixedLength) const {
    Finding finding = {.type = job::kFixedPattern,
                       .text = expected.GetErrMsg(fixedLength),
                       .rule = GetJob().patterns[*m_type.pattern].id,
                       .ruleLine = GetJob().patterns[*m_type.pattern].line,
                       .required = expected.GetHoleXPosArr().first()};
    CMxGeom::SetTol(eTolY);
    for (const double x : expected.GetHoleXPosArr())
        for (const CHoleAddlInfo& hole : m_holes) {
            const double distance = std::abs(hole.GetXPos() - x);
            if (CMxGeom::IsEqual_Mx(hole.GetSize(), expected.GetHoleDia()) &&
                (!finding.found || distance < std::abs(*finding.found - *finding.required))) {
                finding.required = x;
                finding.found = hole.GetXPos();
            }
        }
    // A hole in its place has another code.
    if (finding.found && CMxGeom::IsEqual_Mx(*finding.found, *finding.required))
        finding.found.reset();
    return finding;
}

/// The prescription with its holes marked that the member has.
CMxSingleMemValidation JobMember::LookFor(CMxSingleMemValidation prescription) const {
    ZetArray<CMxHoles> expectedHoles = prescription.GetMxHoles();
    std::vector<char> isTaken(static_cast<std::size_t>(m_holes.length()));
    for (CMxHoles& expected : expectedHoles)
        expected.SetFound(TakeHoleOf(expected, isTaken));
    prescription.SetMxHoles(std::move(expectedHoles));
    return prescription;
}

/// Takes the first hole at one of the positions that no other expected one has.
bool JobMember::TakeHoleOf(const CMxHoles& expected, std::vector<char>& isTaken) const {
    for (const double x : expected.GetHoleXPosArr()) {
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
