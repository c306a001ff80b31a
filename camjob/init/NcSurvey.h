#pragma once

#include "job/Job.h"

#include <array>
#include <compare>
#include <filesystem>
#include <string>
#include <vector>

namespace camjob {

/// Holes that one rule serves; mm.
struct HoleForm {
    eHoleShapeType shape = eHoleShapeRound;
    double diameter = 0.0;  ///< as a hole rule has it
    double length = 0.0;    ///< overall
};

/// Notches that one corner notch serves.
struct NotchForm {
    eHoleFace face = eHoleFaceWeb;
    job::NotchCorner along = job::NotchCorner::kStart;
    job::NotchCorner across = job::NotchCorner::kStart;
    int corners = 0;
    bool isRectangle = false;
    bool isParallel = false;

    auto operator<=>(const NotchForm&) const = default;
};

/// What one NC file says that its job has to cover. Texts in UTF-8.
struct PartSurvey {
    std::filesystem::path file;
    std::array<std::string, 5> marks;  ///< by job::MarkSource
    std::string profile;
    std::string code;
    double height = 0.0;  ///< of the header, mm
    std::vector<HoleForm> holes;
    std::vector<NotchForm> notches;
    long trims = 0;            ///< cuts along a whole side of a face
    long mitres = 0;           ///< saw cuts, which need no rule
    long otherCuts = 0;        ///< notches and openings of no form that a corner notch describes
    std::string foreignName;   ///< a name whose bytes are not UTF-8, as Windows-1252
    std::string otherReading;  ///< the same name as Windows-1251
};

/// A file that a job cannot take, and why.
struct RefusedFile {
    std::string file;    ///< UTF-8
    std::string reason;  ///< a line
};

/// All that was found in NC files.
struct NcSurvey {
    std::vector<PartSurvey> parts;  ///< in the order of the files
    std::vector<RefusedFile> refused;
};

/// Reads the files, and gathers what is in them as a run does. Sets the process-wide tolerances to
/// those of a job without any of its own.
NcSurvey SurveyNcFiles(const std::vector<std::string>& files);

}  // namespace camjob
