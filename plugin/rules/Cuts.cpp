#include "plugin/rules/JobMember.h"

#include "camdata/tolerance/CMxGeom.h"

namespace plugin {

namespace {

constexpr const wchar_t* kInsideFormat =
    L"The cut lies at X %.1f, not at an end of the member: it is not made";

}  // namespace

/// A cut at an end of the member is a mitre.
void JobMember::CheckCuts() {
    CMxGeom::SetTol(eTolX);
    for (const ZetNCCut& cut : m_structure.getCuts()) {
        const double end = cut.end == ZetNCCut::eEndStart ? 0.0 : GetLength();
        if (CMxGeom::IsEqual_Mx(cut.x, end))
            m_mitres.push_back(cut);
        else
            FileFinding({.type = job::kUnclearCut,
                         .text = ZetString::format(kInsideFormat, cut.x),
                         .required = end,
                         .found = cut.x,
                         .feature = FeatureOf(cut.hostTag),
                         .isRefusal = true});
    }
}

}  // namespace plugin
