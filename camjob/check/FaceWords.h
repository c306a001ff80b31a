#pragma once

#include "camdata/holes/eHoleFace.h"
#include "camdata/platform/text/ZetString.h"

namespace camjob {

/// The library's word for the face; "sloped top flange" and "sloped bottom flange" besides.
ZetString FaceWord(eHoleFace face);

/// The word for the face at a view position; "plane 5" and so on for planes of their own.
ZetString ViewWord(int viewPosition);

/// As ViewWord; for a plane of its own with the face that it was recognised as: "plane 5 (web)".
ZetString ViewWord(int viewPosition, eHoleFace face);

}  // namespace camjob
