#pragma once

#include <string>
#include <string_view>

namespace dstv {

/// The name of an encoding that is told from the bytes: each text is UTF-8 when it is well-formed,
/// else Windows-1252.
inline constexpr std::string_view kAutomaticEncoding = "auto";

/// The bytes of a file in UTF-8: as they are, or `decoded`, which is theirs to fill. `encoding` is
/// "auto" (the bytes as they are), "utf-8" or a name of codepages/CodePages.h. A file that begins
/// with the mark of UTF-8 is that whatever the name says. Fails, with the line, at the first byte
/// that the encoding does not have, and for a name that is none.
std::string_view InUtf8(std::string_view bytes, std::string_view encoding, std::string& decoded);

}  // namespace dstv
