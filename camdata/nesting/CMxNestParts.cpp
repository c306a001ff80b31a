#include "camdata/nesting/CMxNestParts.h"

CMxNestParts::~CMxNestParts() = default;
