#pragma once

#include "camdata/platform/base/ZetArray.h"

#include <vector>

namespace plugin {

template <typename T>
ZetArray<T> ArrayFromVector(const std::vector<T>& values) {
    return ZetArray<T>(values.begin(), values.end());
}

}  // namespace plugin
