#include "camdata/platform/host/ZetNCCreator.h"

void ZetNCCreator::create() {
    if (m_entity == nullptr) {
        m_header = {};
        m_structure = {};
        m_attachedEntities.removeAll();
        return;
    }
    m_header = m_entity->getHeader(m_style);
    m_structure = m_entity->getNCStructure(m_style);
    m_attachedEntities = m_entity->getAttachedEntities();
}
