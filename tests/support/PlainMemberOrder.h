#pragma once

#include "support/PlainSort.h"

#include "camdata/member/CMxPeilaib.h"
#include "camdata/tolerance/CMxGeom.h"

#include <cmath>
#include <vector>

// The order of members in plain steps, as a reference for the library's.

inline int PlainNumbers(double a, double b) {
    const double e = CMxGeom::GetEPS();
    if (std::abs(a - b) <= e)
        return 0;
    return a - (b - e) < 0 ? -1 : 1;
}

inline int PlainKey(int key, const CMxPeilaib& a, const CMxPeilaib& b) {
    // clang-format off
    switch (key) {
        case 0: return a.GetMark().compare(b.GetMark());
        case 1: return a.GetProfileName().compare(b.GetProfileName());
        case 2: return PlainNumbers(a.GetWebWidth(), b.GetWebWidth());
        case 3: return PlainNumbers(a.GetProfileWidth(), b.GetProfileWidth());
        case 4: return PlainNumbers(a.GetProfileThick(), b.GetProfileThick());
        case 5: return PlainNumbers(a.GetLength(), b.GetLength());
        case 6: return static_cast<int>(a.GetProfileName().length() - b.GetProfileName().length());
        case 7: return static_cast<int>(a.GetGroupID() - b.GetGroupID());
        default: return 0;
    }
    // clang-format on
}

inline int PlainCompare(const CMxPeilaib& a, const CMxPeilaib& b) {
    CMxGeom::SetTol(eTolEPS);
    int result = 0;
    for (const eSortOrder key : a.GetSortOrderArr()) {
        if (result == 0)
            result = PlainKey(key, a, b);
    }
    return result;
}

inline std::vector<CMxPeilaib*> PlainSorted(const std::vector<CMxPeilaib*>& members) {
    return PlainSorted(
        members, [](const CMxPeilaib* a, const CMxPeilaib* b) { return PlainCompare(*a, *b); });
}
