#include "camdata/nesting/CMxParts.h"

CMxParts::~CMxParts() = default;
