#include "plugin/output/LargePages.h"

namespace plugin {

/// There they take a right that users do not have.
void WishForLargePages(char*, std::size_t) {}

}  // namespace plugin
