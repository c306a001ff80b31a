#include "camdata/output/CMxPeilaibArr.h"

CMxPeilaibArr::~CMxPeilaibArr() = default;
