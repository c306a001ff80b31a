#include "camjob/init/NcSurvey.h"

#include "camjob/console/Paths.h"
#include "dstv/NcHost.h"
#include "dstv/NcReader.h"
#include "job/BuiltInJob.h"
#include "plugin/rules/JobMember.h"
#include "plugin/rules/JudgingRules.h"
#include "plugin/rules/UprightRectangle.h"

#include "camdata/tolerance/CMxGeom.h"

#include <utility>
#include <variant>

namespace camjob {

namespace {

/// A corner notch with more corners would be an arc in chords: it is cut along its outline.
constexpr long kMaxCorners = 6;

constexpr job::NotchCorner kCorners[] = {job::NotchCorner::kStart, job::NotchCorner::kEnd};

/// The sizes of a rectangular opening as a hole rule sees them.
HoleForm OpeningForm(const CNotchAddInfo& opening) {
    const eHoleShapeType shape = opening.GetIsSqr() ? eHoleShapeSquare : eHoleShapeRectangular;
    return {shape, opening.GetWidth(), opening.GetLength()};
}

/// The library decides whether the notch lies in that corner, as it does in a run.
bool LiesAt(CNotchAddInfo notch, const NotchForm& form, double length) {
    SCheckNotch definition;
    definition.face = form.face;
    definition.vertexCount = form.corners;
    definition.mustBeRect = form.isRectangle;
    definition.mustBeParallelToAxis = form.isParallel;
    definition.cornerX = form.along == job::NotchCorner::kStart ? 0.0 : length;
    definition.cornerY =
        form.across == job::NotchCorner::kStart ? 0.0 : notch.GetViewData().GetFaceWidth();
    definition.outPutFormat = L"%.1f %.1f";
    definition.valueSelectors = {4, 5};
    CMxGeom::SetTol(eTolGeneral);
    return notch.CheckNotchCorner(definition);
}

/// False when it lies in no corner.
bool FindForm(const CNotchAddInfo& notch, double length, NotchForm& form) {
    form.face = notch.GetViewData().GetHoleFace();
    form.corners = static_cast<int>(notch.GetNoOfVertices() - 1);
    form.isRectangle = plugin::IsRectangle(notch);
    form.isParallel = notch.GetIsParallelToAxis();
    for (const job::NotchCorner along : kCorners)
        for (const job::NotchCorner across : kCorners) {
            form.along = along;
            form.across = across;
            if (LiesAt(notch, form, length))
                return true;
        }
    return false;
}

void TakeNotch(const CNotchAddInfo& notch, double length, PartSurvey& part) {
    NotchForm form;
    if (notch.GetIsInternal() && plugin::IsUprightRectangle(notch))
        part.holes.push_back(OpeningForm(notch));
    else if (notch.GetIsInternal() || notch.GetNoOfVertices() - 1 > kMaxCorners ||
             !FindForm(notch, length, form))
        ++part.otherCuts;
    else
        part.notches.push_back(form);
}

void TakeFeatures(dstv::NcFileEntity& entity, const plugin::JudgingRules& rules, PartSurvey& part) {
    ZetNCCreator creator;
    creator.setNCEntity(&entity);
    creator.create();
    plugin::JobMember member(rules, *rules.FindMemberType(creator), creator);
    member.ValidateMember();
    for (const CHoleAddlInfo& hole : member.GetHoles())
        part.holes.push_back(
            {hole.GetHoleShapeType(), hole.GetSize(), plugin::OverallLength(hole)});
    part.mitres = creator.getNCStructure().getCuts().length();
    for (const plugin::Finding& finding : member.GetFindings())
        part.trims += finding.type == job::kUncoveredTrim ? 1 : 0;
    for (const CNotchAddInfo& notch : member.GetNotches())
        if (notch.GetNotchStatus() != eNotchNone)
            TakeNotch(notch, member.GetLength(), part);
}

/// A name of the header that is read in another way as Windows-1251.
void TakeForeignName(const dstv::NcHeader& header, PartSurvey& part) {
    const dstv::NcResult other =
        dstv::ReadNcFile(part.file, {dstv::NcMarkSource::kMark, "windows-1251"});
    const auto* read = std::get_if<dstv::NcPart>(&other);
    if (read == nullptr || !std::holds_alternative<dstv::NcError>(
                               dstv::ReadNcFile(part.file, {dstv::NcMarkSource::kMark, "utf-8"})))
        return;
    for (const auto text : {&dstv::NcHeader::mark,
                            &dstv::NcHeader::drawing,
                            &dstv::NcHeader::phase,
                            &dstv::NcHeader::profileName})
        if (header.*text != read->header.*text) {
            part.foreignName = (header.*text).toUtf8();
            part.otherReading = (read->header.*text).toUtf8();
        }
}

PartSurvey SurveyPart(const std::string& file,
                      dstv::NcPart read,
                      const plugin::JudgingRules& rules) {
    PartSurvey part;
    const dstv::NcHeader header = read.header;
    part.file = PathFromUtf8(file);
    part.marks = {header.mark.toUtf8(),
                  header.drawing.toUtf8(),
                  header.phase.toUtf8(),
                  Utf8FromPath(part.file.stem()),
                  Utf8FromPath((part.file.parent_path() / part.file.stem()).generic_u8string())};
    part.profile = header.profileName.toUtf8();
    part.code = header.profileCode.toUtf8();
    part.height = header.profileHeight;
    TakeForeignName(header, part);
    dstv::NcFileEntity entity(std::move(read));
    TakeFeatures(entity, rules, part);
    return part;
}

}  // namespace

NcSurvey SurveyNcFiles(const std::vector<std::string>& files) {
    const job::Job job = job::BuiltInJob();
    plugin::UseTolerances(job.tolerances);
    const plugin::JudgingRules rules(job);
    NcSurvey survey;
    for (const std::string& file : files) {
        dstv::NcResult result = dstv::ReadNcFile(PathFromUtf8(file));
        if (const auto* error = std::get_if<dstv::NcError>(&result))
            survey.refused.push_back({file, error->describe().toUtf8()});
        else
            survey.parts.push_back(
                SurveyPart(file, std::get<dstv::NcPart>(std::move(result)), rules));
    }
    return survey;
}

}  // namespace camjob
