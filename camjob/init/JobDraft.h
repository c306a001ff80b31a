#pragma once

#include "camjob/init/NcSurvey.h"
#include "camjob/init/ProfileFamilies.h"

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace camjob {

/// The sizes of all holes of one shape, mm.
struct HoleSizes {
    std::set<double> diameters;
    std::set<double> lengths;
    long holes = 0;
};

/// A job for a set of NC files, before it is written. Texts in UTF-8.
struct JobDraft {
    std::string name;
    std::vector<std::string> ncFiles;  ///< names and patterns, relative to the job's folder
    long fileCount = 0;
    job::MarkSource mark = job::MarkSource::kMark;
    std::vector<ProfileFamily> families;
    std::map<eHoleShapeType, HoleSizes> holes;
    std::map<NotchForm, long> notches;
    long trims = 0;
    long mitres = 0;
    long otherCuts = 0;
    std::vector<RefusedFile> leftOut;
    std::string foreignName;  ///< see PartSurvey
    std::string otherReading;
    std::string listingFault;  ///< of a folder that names are to be given for; "" when all is known
};

/// A job in `folder` that takes all parts of the survey that can be told apart. What parts are told
/// by is the first of mark, drawing, phase, file name and path that all have and that differs;
/// where none does, the one with the fewest parts that are to be left out.
JobDraft DraftJob(NcSurvey survey, const std::filesystem::path& folder);

}  // namespace camjob
