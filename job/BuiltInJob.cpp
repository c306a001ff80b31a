#include "job/BuiltInJob.h"

#include "job/ValidationTypes.h"

#include "camdata/util/CMxUtil.h"

#include <algorithm>
#include <limits>

namespace job {

namespace {

/// Findings that stand with the records of holes and notches, and need no lines of the member.
constexpr ValidationType kToldByRecords[] = {kHoleInsideSlot, kDuplicateHole, kDuplicateNotch};

CMemTypeAndAttrib TypeFromHeader() {
    constexpr eProfPropType kSource = eProfPropHeader;
    constexpr eProfPropType kNone = eProfPropNone;
    CMemTypeAndAttrib type;
    // clang-format off
    type.SetValues(kFirstOwnGroup, 0,
                   kSource, -1, 0, 0.0,       // height
                   kSource, -1, 0, 0.0,       // width
                   kSource, -1, 0, 0.0, 1.0,  // thickness
                   kNone, -1, 0, 0.0, 1.0,    // slope of the top flange
                   0, 0, L"NC file", L"NC", 0, 0, 0);
    // clang-format on
    return type;
}

CMemberValidations NoLimits() {
    CMemberValidations limits;
    limits.SetNoOfHoles(CMxUtil::m_NOT_LIMITED);
    limits.SetNoOfInternalContours(CMxUtil::m_NOT_LIMITED);
    limits.SetNoOfExternalContours(CMxUtil::m_NOT_LIMITED);
    limits.SetMaximumLength(kAnyLength);
    return limits;
}

MemberType AnyMember() {
    MemberType member;
    member.type = TypeFromHeader();
    member.limits = NoLimits();
    member.areMarksMade = true;
    std::fill(member.reports.begin() + kUncoveredHole,
              member.reports.begin() + kMissingParts,
              eReportingWarning);
    for (const ValidationType type : kToldByRecords)
        member.reports[static_cast<std::size_t>(type)] = eReportingNonStdSilent;
    return member;
}

OutputFile MakeFile(const wchar_t* id, const wchar_t* ending) {
    OutputFile file;
    file.id = id;
    file.ending = ending;
    return file;
}

Group MakeGroup(const wchar_t* id, std::vector<std::size_t> files) {
    Group group;
    group.id = id;
    group.files = std::move(files);
    return group;
}

}  // namespace

Job MakeEmptyJob() {
    Job job;
    job.files = {
        MakeFile(L"order", L"-orders.txt"),
        MakeFile(L"info", L"-info.txt"),
        MakeFile(L"errors", L"-errors.txt"),
        MakeFile(L"warnings", L"-warnings.txt"),
    };
    job.groups = {MakeGroup(L"", {}), MakeGroup(L"secondary", {kOrderFile})};
    return job;
}

Job BuiltInJob() {
    Job job = MakeEmptyJob();
    job.maximumQuantity = std::numeric_limits<long>::max();
    job.groups.push_back(MakeGroup(L"members", {kOrderFile}));
    job.memberTypes = {AnyMember()};
    job.uncoveredHoles = {Uncovered::kAccept, L""};
    job.uncoveredNotches.action = Uncovered::kAccept;
    return job;
}

}  // namespace job
