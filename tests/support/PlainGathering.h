#pragma once

#include "camdata/holes/CHoleAddlInfo.h"
#include "camdata/notches/CNotchAddInfo.h"
#include "camdata/tolerance/CMxGeom.h"

#include <cmath>
#include <utility>
#include <vector>

/// Gathering in plain loops, step by step: what the library's faster ways are held against.
///
/// Lists hold pointers, so that a step that exchanges or removes records costs no copies; copies
/// are made where a list takes a copy.

template <typename Record>
using RecordPtrs = std::vector<Record*>;

template <typename Record>
RecordPtrs<Record> PtrsTo(std::vector<Record>& records) {
    RecordPtrs<Record> ptrs;
    for (Record& record : records)
        ptrs.push_back(&record);
    return ptrs;
}

template <typename Record>
void PlainOrder(RecordPtrs<Record>& list) {
    for (std::size_t i = 0; i < list.size(); ++i) {
        for (std::size_t j = i + 1; j < list.size(); ++j) {
            const double x = list[i]->GetXPos();
            const double otherX = list[j]->GetXPos();
            if (x > otherX || (x == otherX && list[i]->GetYPos() >= list[j]->GetYPos()))
                std::swap(list[i], list[j]);
        }
    }
}

inline void PlainTagMainHole(const RecordPtrs<CHoleAddlInfo>& list, const CHoleAddlInfo& csk) {
    for (CHoleAddlInfo* hole : list) {
        if (hole->GetHoleStatus() != 2 && hole->GetXPos() == csk.GetXPos() &&
            hole->GetYPos() == csk.GetYPos() && !hole->GetIsCSK()) {
            hole->SetIsCSK(true);
            return hole->SetCSKPos(0);
        }
    }
}

inline void PlainCountersinks(RecordPtrs<CHoleAddlInfo>& list, std::vector<CHoleAddlInfo>& csks) {
    for (const CHoleAddlInfo* hole : list) {
        if (hole->GetHoleStatus() != 2)
            continue;
        PlainTagMainHole(list, *hole);
        csks.push_back(*hole);
    }
    std::erase_if(list, [](CHoleAddlInfo* hole) { return hole->GetHoleStatus() == 2; });
}

inline bool PlainIsDuplicate(const CHoleAddlInfo& a, const CHoleAddlInfo& b) {
    CMxGeom::SetTol(eTolEPS);
    if (a.GetXPos() == b.GetXPos() && a.GetYPos() == b.GetYPos())
        return true;
    const double dx = b.GetHoleData().x - a.GetHoleData().x;
    const double dy = b.GetHoleData().y - a.GetHoleData().y;
    const double d = std::sqrt(dx * dx + dy * dy);
    const double meanDiameter = (a.GetSize() + b.GetSize()) * 0.5;
    const double eps = CMxGeom::GetEPS();
    return std::abs(d - meanDiameter) <= eps || d - (meanDiameter - eps) < 0.0;
}

template <typename Record, typename IsDuplicate>
void PlainDuplicates(RecordPtrs<Record>& list,
                     std::vector<Record>& duplicates,
                     const IsDuplicate& isDuplicate) {
    for (std::size_t i = 0; i < list.size(); ++i) {
        for (std::size_t j = i + 1; j < list.size();) {
            if (!isDuplicate(*list[i], *list[j])) {
                ++j;
                continue;
            }
            duplicates.push_back(*list[j]);
            list.erase(list.begin() + static_cast<std::ptrdiff_t>(j));
        }
    }
}

inline void PlainHolesInSlots(RecordPtrs<CHoleAddlInfo>& list,
                              std::vector<CHoleAddlInfo>& duplicates) {
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (!list[i]->GetIsSlot())
            continue;
        for (std::size_t j = 0; j < list.size(); ++j) {
            if (j != i && list[i]->IsInside(*list[j])) {
                duplicates.push_back(*list[j]);
                list[j]->SetHoleStatus(eHoleStatusInsideSlot);
            }
        }
    }
    std::erase_if(list, [](CHoleAddlInfo* hole) { return hole->GetHoleStatus() == 7; });
}

inline bool PlainIsDuplicateNotch(const CNotchAddInfo& a, const CNotchAddInfo& b) {
    const auto isEqual = [](double u, double v) {
        return CMxGeom::IsEqual_Mx(CMxGeom::Round_CAM(u, 1), CMxGeom::Round_CAM(v, 1));
    };
    const auto faceOf = [](const CNotchAddInfo& notch) {
        const int face = notch.GetViewData().GetHoleFace();
        return face == 5 ? 0 : face;
    };
    return isEqual(a.GetXPos(), b.GetXPos()) && isEqual(a.GetYPos(), b.GetYPos()) &&
           a.GetNoOfVertices() == b.GetNoOfVertices() && a.GetNotchStatus() == b.GetNotchStatus() &&
           a.GetIsInternal() == b.GetIsInternal() && faceOf(a) == faceOf(b);
}

/// A member's lists of records.
struct PlainMember {
    std::vector<CHoleAddlInfo> holes;
    std::vector<CHoleAddlInfo> cskHoles;
    std::vector<CHoleAddlInfo> duplicateHoles;
    std::vector<CNotchAddInfo> notches;
    std::vector<CNotchAddInfo> duplicateNotches;

    void TakeHoles(const ZetArray<ZetNCHoleData>& holeData, const CViewData& view) {
        std::vector<CHoleAddlInfo> gathered;
        for (const ZetNCHoleData& data : holeData) {
            CHoleAddlInfo hole;
            hole.SetHoleData(data);
            hole.CorrectData(view);
            (data.commented == 1 ? duplicateHoles : gathered).push_back(hole);
        }
        RecordPtrs<CHoleAddlInfo> list = PtrsTo(gathered);
        PlainOrder(list);
        PlainCountersinks(list, cskHoles);
        PlainDuplicates(list, duplicateHoles, PlainIsDuplicate);
        for (const CHoleAddlInfo* hole : list)
            holes.push_back(*hole);
    }

    /// A negative limit allows any number of contours of its kind.
    void TakeNotches(const ZetArray<ZetNCContour>& contours,
                     const CViewData& view,
                     long internalLimit,
                     long externalLimit) {
        CNotchAddInfo notch;
        for (const ZetNCContour& contour : contours) {
            ZetArray<CNotchAddInfo> pieces;
            notch.InitValues();
            notch.SetNotchData(contour, view, pieces);
            notch.CorrectData();
            pieces.append(notch);
            for (CNotchAddInfo& piece : pieces) {
                const bool isAllowed = (piece.GetIsInternal() ? internalLimit : externalLimit) != 0;
                if (!isAllowed && piece.GetNotchStatus() != 4)
                    piece.SetNotchStatus(eNotchNotAllowed);
                notches.push_back(piece);
            }
        }
    }

    void Finish() {
        RecordPtrs<CHoleAddlInfo> holeList = PtrsTo(holes);
        PlainHolesInSlots(holeList, duplicateHoles);
        Keep(holeList, holes);
        RecordPtrs<CNotchAddInfo> notchList = PtrsTo(notches);
        PlainDuplicates(notchList, duplicateNotches, PlainIsDuplicateNotch);
        Keep(notchList, notches);
    }

  private:
    template <typename Record>
    static void Keep(const RecordPtrs<Record>& list, std::vector<Record>& records) {
        std::vector<Record> kept;
        for (const Record* record : list)
            kept.push_back(*record);
        records = std::move(kept);
    }
};
