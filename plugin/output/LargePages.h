#pragma once

#include <cstddef>

namespace plugin {

/// Asks the system for few large pages in place of many small ones behind memory that nothing was
/// written to yet. A wish, where the system has such pages; what is in the memory stays the same.
void WishForLargePages(char* memory, std::size_t size);

}  // namespace plugin
