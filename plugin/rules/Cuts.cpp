#include "plugin/rules/JobMember.h"
#include "plugin/rules/MitreShortening.h"
#include "profiles/CutAngles.h"

#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <utility>

namespace plugin {

namespace {

constexpr const wchar_t* kInsideFormat =
    L"The cut lies at X %.1f, not at an end of the member: it is not made";
constexpr const wchar_t* kInwardFormat =
    L"The normal of the cut at X %.1f points into the member, of which it would leave nothing: it is "
    L"not made";
constexpr const wchar_t* kRunOutFormat =
    L"The mitres take %.1f off an edge of the %s, more than the member is long: none is made";

}  // namespace

/// A cut at an end of the member is a mitre. Leaves the current tolerance, by which holes are to be
/// compared.
void JobMember::CheckCuts() {
    const auto isAt = [](double a, double b) {
        return std::abs(a - b) <= std::abs(CMxGeom::GetXTol());
    };
    std::set<long> refused;  // one that is slanted both ways is two
    for (const ZetNCCut& cut : m_structure.getCuts()) {
        const bool isAtStart = cut.end == ZetNCCut::eEndStart;
        const double end = isAtStart ? 0.0 : GetLength();
        const bool isInward = isAt(cut.x, isAtStart ? GetLength() : 0.0);
        if (isAt(cut.x, end))
            m_judging->mitres.push_back(cut);
        else if (refused.insert(cut.hostTag).second)
            FileFinding({.type = job::kUnclearCut,
                         .text = isInward ? ZetString::format(kInwardFormat, cut.x)
                                          : ZetString::format(kInsideFormat, cut.x),
                         .required = end,
                         .found = cut.x,
                         .feature = FeatureOf(cut.hostTag),
                         .isRefusal = true});
    }
    DropMitresThatRunOut();
    JoinEqualMitres();
}

/// The most that the mitres of the web or of the flanges take off one of its edges, at both ends
/// together.
double JobMember::RunOutOf(int cutFace) const {
    const ZetNCHeaderData& header = m_memType.GetHeaderData();
    const double depth = IsPlate() ? header.thickness : header.width;
    const double width = cutFace == ZetNCCut::eFaceWeb ? header.height : depth;
    double most = 0.0;
    for (const double across : {0.0, width}) {
        std::array<double, 2> taken = {};  // by ZetNCCut::End
        for (const ZetNCCut& cut : m_judging->mitres) {
            double& atEnd = taken[static_cast<std::size_t>(cut.end)];
            if (cut.face == cutFace)
                atEnd = std::max(atEnd, ShorteningBy(cut, across, width).amount);
        }
        most = std::max(most, taken[0] + taken[1]);
    }
    return most;
}

void JobMember::DropMitresThatRunOut() {
    for (const int face : {int{ZetNCCut::eFaceWeb}, int{ZetNCCut::eFaceFlange}}) {
        const double runOut = RunOutOf(face);
        if (runOut <= GetLength() + std::abs(CMxGeom::GetXTol()))
            continue;
        const ZetString word = face == ZetNCCut::eFaceWeb ? L"web" : L"flange";
        for (const ZetNCCut& cut : std::exchange(m_judging->mitres, {})) {
            if (cut.face != face)
                m_judging->mitres.push_back(cut);
            else
                FileFinding({.type = job::kUnclearCut,
                             .text = ZetString::format(kRunOutFormat, runOut, word),
                             .required = GetLength(),
                             .found = runOut,
                             .feature = FeatureOf(cut.hostTag),
                             .isRefusal = true});
        }
    }
}

/// One is made for all that are the same: the header and a saw cut tell an angle with roundings of
/// their own.
void JobMember::JoinEqualMitres() {
    for (const ZetNCCut& cut : std::exchange(m_judging->mitres, {})) {
        const auto first = std::find_if(
            m_judging->mitres.begin(), m_judging->mitres.end(), [&](const ZetNCCut& each) {
                return each.end == cut.end && each.face == cut.face &&
                       profiles::IsSameAngle(each.angle, cut.angle);
            });
        if (first == m_judging->mitres.end())
            m_judging->mitres.push_back(cut);
        else
            m_ledger.Join(cut.hostTag, first->hostTag);
    }
}

}  // namespace plugin
