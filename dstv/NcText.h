#pragma once

#include "camdata/platform/text/ZetString.h"

#include <string_view>

namespace dstv {

/// True for bytes that are well-formed UTF-8.
bool IsUtf8(std::string_view bytes);

/// Text of a file: UTF-8 when the bytes are that, else Windows-1252 (bytes without a meaning there
/// become U+FFFD).
ZetString DecodeText(std::string_view bytes);

/// The text without blanks and tabs at either end.
std::string_view Trimmed(std::string_view text);

/// Text of a file: decoded, control characters as U+FFFD.
ZetString DecodeWithoutControls(std::string_view bytes);

/// Text of a file for a message: decoded, control characters as U+FFFD, cut after 60 characters.
ZetString Quotable(std::string_view bytes);

}  // namespace dstv
