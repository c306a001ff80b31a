#pragma once

#include "camdata/holes/CHoleAddlInfo.h"
#include "camdata/holes/eHoleFace.h"
#include "camdata/platform/text/ZetString.h"

namespace plugin {

/// The library's word for the face; "sloped top flange" and "sloped bottom flange" besides.
ZetString FaceText(eHoleFace face);

/// A text of the library, which calls slopes an unknown face, with the face of the view instead.
ZetString WithFaceNamed(const ZetString& text, const CViewData& view);

/// What the library says of a hole, with the word for its face: "18.0 round holes on web at ...".
ZetString HoleText(const CHoleAddlInfo& hole);

}  // namespace plugin
