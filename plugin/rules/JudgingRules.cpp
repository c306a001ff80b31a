#include "plugin/rules/JudgingRules.h"

#include "plugin/rules/FixedPatterns.h"
#include "plugin/rules/MemberTypeSearch.h"

#include "camdata/output/CMxCamGlobAcc.h"
#include "camdata/util/HostBridge.h"

namespace plugin {

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
    return plugin::FindMemberType(
        m_job, GetProfileNameFromCreator(&creator), creator.getHeader().profileCode);
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
