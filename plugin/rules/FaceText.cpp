#include "plugin/rules/FaceText.h"

#include "camdata/holes/CViewData.h"

#include <string>

namespace plugin {

ZetString FaceText(eHoleFace face) {
    if (face == eHoleFaceSlopedTopFlange)
        return L"sloped top flange";
    if (face == eHoleFaceSlopedBottomFlange)
        return L"sloped bottom flange";
    CViewData view;
    view.SetHoleFace(face);
    return view.GetFaceStrForOutPut();
}

ZetString WithFaceNamed(const ZetString& text, const CViewData& view) {
    const ZetString word = view.GetFaceStrForOutPut();
    const ZetString name = FaceText(view.GetHoleFace());
    std::wstring named(text.view());
    if (const std::size_t at = named.find(word.view()); name != word && at != std::wstring::npos)
        named.replace(at, word.view().size(), name.view());
    return ZetString(named);
}

ZetString HoleText(const CHoleAddlInfo& hole) {
    return WithFaceNamed(hole.GetHoleMsg().trimmedLeft(), hole.GetViewData());
}

}  // namespace plugin
