#include "camjob/HoleRecords.h"

#include <algorithm>
#include <array>

namespace camjob {

namespace {

struct StandardFace {
    eHoleFace face;
    const wchar_t* name;
    double ZetNCHeaderData::*width;
};

/// By view position.
constexpr std::array<StandardFace, 5> kStandardFaces{
    {
     {eHoleFaceTopFlange, L"TOP", &ZetNCHeaderData::width},
     {eHoleFaceWeb, L"WEB", &ZetNCHeaderData::height},
     {eHoleFaceBottomFlange, L"BOT", &ZetNCHeaderData::width},
     {eHoleFaceWebBack, L"WEB", &ZetNCHeaderData::height},
     {eHoleFaceWeb, L"WEB", &ZetNCHeaderData::height},
     }
};

const StandardFace* FindStandardFace(int viewPosition) {
    const auto index = static_cast<std::size_t>(viewPosition);
    return index < kStandardFaces.size() ? &kStandardFaces[index] : nullptr;
}

/// A plane of its own keeps its coordinates: the default view data.
CViewData ViewDataOf(int viewPosition, const ZetNCHeaderData& header) {
    CViewData viewData;
    if (const StandardFace* face = FindStandardFace(viewPosition)) {
        viewData.SetFaceStr(face->name);
        viewData.SetHoleFace(face->face);
        viewData.SetFaceWidth(header.*face->width);
        viewData.SetProfileFaceWidth(header.*face->width);
    }
    return viewData;
}

/// The middle of the bounding rectangle: the centre of an outline that is symmetric about it.
ZetGeomPoint2d CentreOf(const ZetNCContour& contour) {
    const auto middle = [](const ZetArray<double>& values) {
        const auto [low, high] = std::minmax_element(values.begin(), values.end());
        return (*low + *high) * 0.5;
    };
    return {middle(contour.xValues), middle(contour.yValues)};
}

void SetRectangle(CHoleAddlInfo& record,
                  const dstv::NcHole& hole,
                  const ZetNCContour& contour,
                  const CViewData& viewData) {
    const ZetGeomPoint2d centre = CentreOf(contour);
    const double length = hole.slotWidth + hole.diameter;
    const double width = hole.slotHeight + hole.diameter;
    if (length == width)
        record.SetSqrHoleData(width, centre.x, centre.y);
    else
        record.SetRectHoleData(length, width, centre.x, centre.y, viewData);
}

CHoleAddlInfo MakeRecord(const dstv::NcHole& hole,
                         const ZetNCView& view,
                         long index,
                         const CViewData& viewData) {
    CHoleAddlInfo record;
    record.InitValues();
    const bool isRectangle = hole.form == dstv::NcHoleForm::kRectangle;
    if (!isRectangle)
        record.SetHoleData(view.getHoles()[index]);
    record.CorrectData(viewData);
    if (isRectangle)
        SetRectangle(record, hole, view.getInternalContours()[index], viewData);
    return record;
}

}  // namespace

std::vector<HoleRecord> MakeHoleRecords(const dstv::NcFileEntity& entity,
                                        const ZetNCCreator& creator) {
    const ZetArray<ZetNCView>& views = creator.getNCStructure().getViews();
    const std::vector<dstv::NcHole>& holes = entity.getPart().holes;
    std::vector<HoleRecord> records;
    for (std::size_t i = 0; i < holes.size(); ++i) {
        if (holes[i].form == dstv::NcHoleForm::kMark)
            continue;
        const dstv::NcHoleTarget& target = entity.getHoleTargets()[i];
        const ZetNCView& view = views[target.view];
        const CViewData viewData = ViewDataOf(view.getViewPos(), creator.getHeader());
        records.push_back(
            {&holes[i], view.getViewPos(), MakeRecord(holes[i], view, target.index, viewData)});
    }
    return records;
}

ZetString FaceWord(int viewPosition) {
    if (FindStandardFace(viewPosition) == nullptr)
        return ZetString::format(L"plane %d", viewPosition);
    return ViewDataOf(viewPosition, {}).GetFaceStrForOutPut();
}

}  // namespace camjob
