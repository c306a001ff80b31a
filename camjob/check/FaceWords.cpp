#include "camjob/check/FaceWords.h"

#include "plugin/rules/FaceText.h"

#include <array>

namespace camjob {

namespace {

/// By view position.
constexpr std::array kStandardFaces = {
    eHoleFaceTopFlange, eHoleFaceWeb, eHoleFaceBottomFlange, eHoleFaceWebBack, eHoleFaceWeb};

bool IsStandard(int viewPosition) {
    return static_cast<std::size_t>(viewPosition) < kStandardFaces.size();
}

}  // namespace

ZetString FaceWord(eHoleFace face) {
    return plugin::FaceText(face);
}

ZetString ViewWord(int viewPosition) {
    if (IsStandard(viewPosition))
        return FaceWord(kStandardFaces[static_cast<std::size_t>(viewPosition)]);
    return ZetString::format(L"plane %d", viewPosition);
}

ZetString ViewWord(int viewPosition, eHoleFace face) {
    const ZetString word = ViewWord(viewPosition);
    return IsStandard(viewPosition) ? word : word + L" (" + FaceWord(face) + L")";
}

}  // namespace camjob
