#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace codepages {
struct CodePage;
}

namespace job {

/// A text in the bytes of an encoding; null: UTF-8. Nothing when it has a character that the
/// encoding has not.
std::optional<std::string> InEncoding(std::wstring_view text, const codepages::CodePage* page);

}  // namespace job
