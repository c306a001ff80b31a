#pragma once

#include "camdata/platform/base/Export.h"
#include "camdata/platform/host/ZetNCEntity.h"

/// Runs one entity and holds its NC data. A value; the entity stays the host's.
class CAMDATA_API ZetNCCreator {
  public:
    void setNCEntity(ZetNCEntity* entity) { m_entity = entity; }
    ZetNCEntity* getNCEntity() const { return m_entity; }
    /// A number that the host's entities understand; 0 by default.
    void setStyle(long style) { m_style = style; }
    long getStyle() const { return m_style; }

    /// Fetches header, structure and attached entities from the entity; without one, empties them.
    void create();

    const ZetNCHeaderData& getHeader() const { return m_header; }
    const ZetNCStructure& getNCStructure() const { return m_structure; }
    const ZetArray<ZetNCEntity*>& getAttachedEntities() const { return m_attachedEntities; }

  private:
    ZetNCEntity* m_entity = nullptr;
    long m_style = 0;
    ZetNCHeaderData m_header;
    ZetNCStructure m_structure;
    ZetArray<ZetNCEntity*> m_attachedEntities;
};
