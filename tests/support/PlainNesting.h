#pragma once

#include "support/PlainSort.h"

#include "camdata/platform/text/ZetString.h"
#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>
#include <cmath>
#include <vector>

/// Nesting in plain loops, piece by piece: what the library's faster way is held against.

struct PlainPart {
    ZetString mark;
    long qty;
    double length;
};

struct PlainNest {
    struct Entry {
        ZetString mark;
        int quantity;
        double length;
    };
    std::vector<Entry> entries;
    long qty = 0;

    template <typename T>
    static T* FirstOf(std::vector<T>& list, const ZetString& mark) {
        const auto at = std::find_if(
            list.begin(), list.end(), [&](const T& item) { return item.mark == mark; });
        return at == list.end() ? nullptr : &*at;
    }

    double OffCut() const {
        double taken = 0.0;
        for (const Entry& entry : entries)
            taken += entry.quantity * entry.length;
        return 4000.0 - taken;
    }

    bool Append(PlainPart& part) {
        if (part.qty < 1)
            return false;
        --part.qty;
        entries.push_back({part.mark, 1, part.length});
        return true;
    }

    bool Insert(PlainPart& part) {
        if (part.qty == 0)
            return false;
        bool hasPassed = false;
        while (CMxGeom::IsGreater_Mx(OffCut(), part.length)) {
            hasPassed = true;
            Entry* const found = FirstOf(entries, part.mark);
            if (part.qty < 1)
                break;
            if (found == nullptr) {
                Append(part);
                continue;
            }
            --part.qty;
            ++found->quantity;
        }
        return hasPassed;
    }

    void CheckCombinations(std::vector<PlainPart>& parts) {
        std::vector<PlainPart*> found;
        for (const Entry& entry : entries) {
            PlainPart* const first = FirstOf(parts, entry.mark);
            if (first == nullptr || first->qty < entry.quantity)
                return;
            found.push_back(first);
        }
        ++qty;
        for (std::size_t i = 0; i < entries.size(); ++i) {
            if (found[i]->qty >= entries[i].quantity)
                found[i]->qty -= entries[i].quantity;
        }
    }

    /// What CMxNestParts tells of itself: bars, off-cut line, combinations.
    ZetString Report() const {
        const ZetString main = entries.front().mark;
        ZetString text = ZetString::format(L"%d\n", qty);
        if (CMxGeom::IsGreater_Mx(OffCut(), 0.0))
            text +=
                ZetString::format(L"%d No @ %5.0f long   Cut from Mark %s", qty, OffCut(), main);
        text += ZetString::format(L"\nPart mark (%s) combinations are as below", main);
        for (const Entry& entry : entries)
            text += ZetString::format(
                L"\n\tMark:%s, Qty:%d, Length:%5.0f", entry.mark, entry.quantity, entry.length);
        return text;
    }
};

/// Ascending length; lengths within m_EPS are equal.
inline int PlainCompare(const PlainPart& a, const PlainPart& b) {
    CMxGeom::SetTol(eTolEPS);
    const double eps = CMxGeom::GetEPS();
    if (std::abs(a.length - b.length) <= eps)
        return 0;
    return a.length < b.length - eps ? -1 : 1;
}

inline std::vector<PlainNest> PlainNesting(const std::vector<PlainPart>& unsorted,
                                           double reserveLength) {
    std::vector<PlainPart> parts = PlainSorted(unsorted, PlainCompare);
    std::erase_if(parts, [](const PlainPart& part) { return part.qty <= 0; });
    std::vector<PlainNest> nests;
    while (!parts.empty()) {
        PlainNest nest;
        nest.Append(parts.front());
        nest.qty = 1;
        for (PlainPart& part : parts) {
            if (!CMxGeom::IsGreater_Mx(nest.OffCut(), reserveLength))
                break;
            nest.Insert(part);
        }
        nest.CheckCombinations(parts);
        std::erase_if(parts, [](const PlainPart& part) { return part.qty == 0; });
        nests.push_back(nest);
    }
    return nests;
}
