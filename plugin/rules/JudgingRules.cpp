#include "plugin/rules/JudgingRules.h"

#include "job/TextPattern.h"
#include "plugin/rules/FixedPatterns.h"

#include "camdata/output/CMxCamGlobAcc.h"
#include "camdata/util/HostBridge.h"

#include <algorithm>

namespace plugin {

namespace {

bool Fits(const ZetString& text, const ZetString& pattern) {
    return pattern.isEmpty() || job::MatchesPattern(text.view(), pattern.view());
}

}  // namespace

JudgingRules::JudgingRules(const job::Job& job) : m_job(job), m_holeRules(job.holeRules) {
    for (const job::MachineFormat& format : job.formats)
        m_formats.emplace_back(format);
    const job::ProjectData& project = job.project;
    m_formatTexts = {project.fileName,
                     job.name,
                     project.name,
                     project.number,
                     project.client,
                     project.revision,
                     {}};
    for (const job::FixedPattern& pattern : job.patterns)
        m_patterns.push_back(MakePrescription(pattern));
    for (const job::Assembly& assembly : job.assemblies) {
        m_assemblyMarks.insert(assembly.mark);
        for (const job::AssemblyPart& part : assembly.parts)
            m_assemblyMarks.insert(part.mark);
    }
}

const job::MemberType* JudgingRules::FindMemberType(ZetNCCreator& creator) const {
    const ZetString profileName = GetProfileNameFromCreator(&creator);
    const std::vector<job::MemberType>& types = m_job.memberTypes;
    const auto at = std::find_if(types.begin(), types.end(), [&](const job::MemberType& type) {
        return Fits(profileName, type.profilePattern) &&
               Fits(creator.getHeader().profileCode, type.codePattern);
    });
    return at == types.end() ? nullptr : &*at;
}

const CMxSingleMemValidation* JudgingRules::FindPattern(const job::MemberType& type) const {
    return type.pattern ? &m_patterns[*type.pattern] : nullptr;
}

bool JudgingRules::IsPartOfAssembly(const ZetString& mark) const {
    return m_assemblyMarks.count(mark) > 0;
}

void UseTolerances(const job::Tolerances& tolerances) {
    CMxCamGlobAcc::SetGeomEPSs(tolerances.eps,
                               tolerances.general,
                               tolerances.x,
                               tolerances.y,
                               tolerances.angle,
                               tolerances.edgeDistance,
                               tolerances.distanceFromFace,
                               tolerances.endDistance);
}

}  // namespace plugin
