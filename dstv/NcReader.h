#pragma once

#include "dstv/NcEncoding.h"
#include "dstv/NcNote.h"
#include "dstv/NcPart.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <variant>

namespace dstv {

/// Limits against hostile files; a file beyond one of them is refused with the line.
inline constexpr std::size_t kMaxFileBytes = 64u << 20;
/// Magnitude of any number, mm or degrees.
inline constexpr double kMaxNumber = 1e9;
/// Lines of one file, the empty ones included.
inline constexpr long kMaxLines = 1'000'000;
/// Characters of a text.
inline constexpr std::size_t kMaxTextLength = 1'000;
/// Holes of one file, marks given as holes included.
inline constexpr std::size_t kMaxHoles = 100'000;
/// Points of all outlines of one file, chords of arcs included.
inline constexpr std::size_t kMaxOutlinePoints = 200'000;
/// En blocks of one file.
inline constexpr std::size_t kMaxPlanes = 1'000;
/// Errors of one file that are told; what lies behind the last of them is not read.
inline constexpr std::size_t kMaxErrors = 50;
/// Notes of one file besides those of entries; the last one then says that there are more.
inline constexpr std::size_t kMaxNotes = 1'000;

/// What a part is told from others by.
enum class NcMarkSource {
    kMark,      ///< header line 4, as the standard has it
    kDrawing,   ///< header line 2
    kPhase,     ///< header line 3
    kFileName,  ///< the file's name without its ending
    kPath,      ///< the same with the folders before it
};

/// How the files of one origin are read.
struct NcReading {
    NcMarkSource mark = NcMarkSource::kMark;   ///< what becomes NcHeader::mark
    std::string encoding{kAutomaticEncoding};  ///< of texts, see NcEncoding.h
    ZetString folder = {};  ///< with a slash at its end; a mark that is a path begins behind it
};

/// A part, or the first reason why there is none.
using NcResult = std::variant<NcPart, NcError>;

/// Reads one file. A folder, and a file that cannot be opened or read, is an error with line 0.
NcResult ReadNcFile(const std::filesystem::path& path, const NcReading& reading = {});
/// The same of a name as the system has it: of many files, paths would be a part of the work.
NcResult ReadNcFileOfName(const std::filesystem::path::string_type& name,
                          const NcReading& reading = {});

/// Reads the bytes of a file in one pass; `name` is for messages, and for a mark that is the file's
/// name. Time grows as n log n.
NcResult ParseNc(std::string_view bytes, const ZetString& name, const NcReading& reading = {});

/// A path as text, whatever characters it holds.
ZetString PathText(const std::filesystem::path& path);

}  // namespace dstv
