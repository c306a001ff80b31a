#pragma once

#include "camdata/platform/dialog/Dialog.h"

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

/// @file
/// What the keyboard does in a dialog, alike in all backends. All of it is inline: a backend may be
/// a module of its own.

namespace camdata::detail {

/// The ids of fields and buttons as they are seen: from top to bottom, in a row from left to right.
/// Those of other tabs are among them.
inline std::vector<int> OrderAsSeen(const DialogTemplate& dialog, const DialogWindow& window) {
    std::vector<int> ids;
    for (const ControlDef& row : dialog.controls)
        if (IsField(row.kind) || row.kind == ControlKind::kButton)
            ids.push_back(row.id);
    const auto placeOf = [&](int id) {
        const DialogRect place = window.Position(id);
        return std::tuple(place.y, place.x);
    };
    std::stable_sort(ids.begin(), ids.end(), [&](int a, int b) { return placeOf(a) < placeOf(b); });
    return ids;
}

/// The first field that is seen and can be changed; 0: none.
inline int FirstField(const DialogTemplate& dialog, const DialogWindow& window) {
    for (const int id : OrderAsSeen(dialog, window)) {
        const bool isField = IsField(FindControl(dialog, id)->kind);
        if (isField && window.IsShown(id) && window.IsEnabled(id) && !window.IsReadOnly(id))
            return id;
    }
    return 0;
}

/// A text as toolkits take captions: "&" marks the letter behind it, and "&&" is an "&". Marks the
/// first `letter`; 0: none.
inline ZetString MarkedCaption(const ZetString& text, wchar_t letter) {
    std::wstring caption;
    bool isMarked = letter == 0;
    for (const wchar_t c : text.view()) {
        if (c == letter && !isMarked) {
            caption += L'&';
            isMarked = true;
        }
        caption.append(c == L'&' ? 2 : 1, c);
    }
    return ZetString(std::move(caption));
}

/// The text of a caption.
inline ZetString UnmarkedCaption(const ZetString& caption) {
    std::wstring text;
    for (long i = 0; i < caption.length(); ++i)
        text += caption[i] == L'&' ? caption[++i] : caption[i];
    return ZetString(std::move(text));
}

}  // namespace camdata::detail
