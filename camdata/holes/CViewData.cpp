#include "camdata/holes/CViewData.h"

#include <algorithm>
#include <array>

namespace {

struct FaceWord {
    eHoleFace face;
    const wchar_t* word;
};

constexpr std::array kFaceWords = {
    FaceWord{eHoleFaceWeb,          L"web"          },
    FaceWord{eHoleFaceTopFlange,    L"top flange"   },
    FaceWord{eHoleFaceBottomFlange, L"bottom flange"},
    FaceWord{eHoleFaceWebBack,      L"web back"     },
};
constexpr const wchar_t* kUnknownFace = L"unknown face";

constexpr const wchar_t* kPrintDef =
    L"\n Hole face :%s\n X Negate : %f\n Y Negate : %f\n Face width : %f\n From other face : %f\n Profile Face width : %f\n Hole Face :%d\n Y Val Offset : %f\n";

}  // namespace

ZetString CViewData::GetFaceStrForOutPut() const {
    const auto row = std::find_if(kFaceWords.begin(),
                                  kFaceWords.end(),
                                  [this](const FaceWord& each) { return each.face == m_holeFace; });
    return row == kFaceWords.end() ? kUnknownFace : row->word;
}

ZetString CViewData::GetPrintDef() const {
    return ZetString::format(kPrintDef,
                             m_faceStr,
                             m_xNegate,
                             m_yNegate,
                             m_faceWidth,
                             m_dimFromOtherFace,
                             m_profileFaceWidth,
                             m_holeFace,
                             m_yValOffset);
}
