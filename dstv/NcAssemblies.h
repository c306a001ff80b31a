#pragma once

#include "dstv/NcHost.h"

#include "camdata/platform/text/ZetString.h"

#include <map>
#include <vector>

namespace dstv {

/// A single part of an assembly.
struct NcAssemblyPart {
    ZetString mark;
    long count = 1;  ///< pieces on one main part
};

/// A main part and what is fixed to it.
struct NcAssembly {
    ZetString mark;
    std::vector<NcAssemblyPart> parts;
};

/// Which parts are fixed to which. Finds entities by their marks; they stay the caller's and must
/// live as long as main parts that they were attached to.
class NcAssemblies {
  public:
    /// Of several assemblies with one main mark the first counts.
    explicit NcAssemblies(const std::vector<NcAssembly>& assemblies);

    /// Some assembly names the mark.
    bool names(const ZetString& mark) const { return m_entities.count(mark) > 0; }
    bool isMainPart(const ZetString& mark) const { return m_parts.count(mark) > 0; }
    /// Remembers an entity whose mark is named; of several with one mark the first.
    void add(NcFileEntity& entity);
    /// All parts that are to be fixed to the main part are known.
    bool isComplete(const ZetString& mainMark) const;
    /// Makes the entity a main part and attaches the parts that are known.
    void attach(NcFileEntity& mainPart) const;
    /// Marks that are named, ascending, of which no entity is known.
    std::vector<ZetString> getMissingMarks() const;

  private:
    std::map<ZetString, std::vector<NcAssemblyPart>> m_parts;  ///< by main mark
    std::map<ZetString, NcFileEntity*> m_entities;  ///< by mark, all that are named; null: unknown
};

}  // namespace dstv
