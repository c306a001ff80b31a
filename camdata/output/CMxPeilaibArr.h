#pragma once

#include "camdata/output/CMxGroups.h"
#include "camdata/platform/base/Export.h"
#include "camdata/platform/base/ZetArray.h"

#include <utility>

class CMxPeilaib;

/// The members of one member group, in the order of the output. A copy has a list and a group of
/// its own; the members are the host's and never deleted.
class CAMDATA_API CMxPeilaibArr {
  public:
    CMxPeilaibArr() = default;
    explicit CMxPeilaibArr(CMxGroups group) : m_group(std::move(group)) {}
    virtual ~CMxPeilaibArr();
    CMxPeilaibArr(const CMxPeilaibArr&) = default;
    CMxPeilaibArr& operator=(const CMxPeilaibArr&) = default;
    CMxPeilaibArr(CMxPeilaibArr&&) = default;
    CMxPeilaibArr& operator=(CMxPeilaibArr&&) = default;

    void Append(CMxPeilaib* member) { m_members.append(member); }
    ZetArray<CMxPeilaib*>& GetMembers() { return m_members; }
    const ZetArray<CMxPeilaib*>& GetMembers() const { return m_members; }
    /// The group as it was when the list was made; its member group ID tells the lists apart.
    const CMxGroups& GetGroup() const { return m_group; }

  private:
    ZetArray<CMxPeilaib*> m_members;
    CMxGroups m_group;
};
