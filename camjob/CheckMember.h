#pragma once

#include "camdata/member/CMxPeilaib.h"

#include <unordered_set>
#include <vector>

namespace camjob {

/// Why a hole is not among the member's holes.
enum class SetAside {
    kNot,          ///< it is among them
    kMarked,       ///< set aside in the NC data
    kInsideSlot,   ///< lies inside a slot
    kDuplicate,    ///< stands at the place of another hole, touches it or overlaps it
    kCountersink,  ///< the countersink of another hole
};

/// One hole of the member, wherever the member keeps it.
struct MemberHole {
    CHoleAddlInfo record;
    SetAside setAside = SetAside::kNot;
};

/// A member that is gathered and checked without rules of any machine: all dimensions from the
/// header, any number of holes and contours, any length, the library's own distances to edges and
/// ends.
class CheckMember final : public CMxPeilaib {
  public:
    /// Gathers and validates what the creator holds; the creator must outlive the member.
    explicit CheckMember(ZetNCCreator& creator);

    /// Every hole of the NC data once.
    std::vector<MemberHole> CollectHoles() const;
    /// The holes among the member's holes, with the warnings of their distances.
    const ZetArray<CHoleAddlInfo>& GetHoles() const { return m_holes; }
    const ZetArray<CNotchAddInfo>& GetNotches() const { return m_notches; }
    const ZetArray<CNotchAddInfo>& GetDuplicateNotches() const { return m_duplicateNotches; }
    const ZetArray<ZetString>& GetErrors() const { return m_errors; }
    const ZetArray<ZetString>& GetWarnings() const { return m_warnings; }

    void GenerateMemData() override {}
    ZetString GetMemOutPutStr() override { return {}; }
    void WriteMemOutPut(const ZetArray<ZetFileAccess*>&, ZetArray<CMxPeilaib*>&) override {}
    void WriteMemErrors(ZetFileAccess*) override {}
    void WriteMemWarnings(ZetFileAccess*) override {}

  private:
    /// Their tags.
    std::unordered_set<long> FindHolesInsideSlots() const;
};

}  // namespace camjob
