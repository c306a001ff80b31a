#include "dstv/NcAssemblies.h"

#include <algorithm>
#include <utility>

namespace dstv {

NcAssemblies::NcAssemblies(const std::vector<NcAssembly>& assemblies) {
    for (const NcAssembly& assembly : assemblies) {
        m_parts.insert({assembly.mark, assembly.parts});
        m_entities[assembly.mark] = nullptr;
        for (const NcAssemblyPart& part : assembly.parts)
            m_entities[part.mark] = nullptr;
    }
}

void NcAssemblies::add(NcFileEntity& entity) {
    const auto at = m_entities.find(entity.getPart().header.mark);
    if (at != m_entities.end() && at->second == nullptr)
        at->second = &entity;
}

bool NcAssemblies::isComplete(const ZetString& mainMark) const {
    const std::vector<NcAssemblyPart>& parts = m_parts.at(mainMark);
    return std::all_of(parts.begin(), parts.end(), [this](const NcAssemblyPart& part) {
        return m_entities.at(part.mark) != nullptr;
    });
}

void NcAssemblies::attach(NcFileEntity& mainPart) const {
    ZetArray<ZetNCEntity*> pieces;
    for (const NcAssemblyPart& part : m_parts.at(mainPart.getPart().header.mark)) {
        NcFileEntity* const entity = m_entities.at(part.mark);
        for (long i = 0; entity != nullptr && i < part.count; ++i)
            pieces.append(entity);
    }
    mainPart.setAssembly(std::move(pieces));
}

std::vector<ZetString> NcAssemblies::getMissingMarks() const {
    std::vector<ZetString> marks;
    for (const auto& [mark, entity] : m_entities)
        if (entity == nullptr)
            marks.push_back(mark);
    return marks;
}

}  // namespace dstv
