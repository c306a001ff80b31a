#pragma once

#include "camdata/member/CMxPeilaib.h"

/// A member for a punch line: the machine takes any member of at most 12 m, and is told of each
/// hole where it is and how large.
class PunchMember : public CMxPeilaib {
  public:
    /// Gathers and checks. The creator has run, and outlives the member.
    explicit PunchMember(ZetNCCreator& creator);

    void ValidateMember() override;

    void GenerateMemData() override;
    ZetString GetMemOutPutStr() override { return m_output; }
    void WriteMemOutPut(const ZetArray<ZetFileAccess*>& files,
                        ZetArray<CMxPeilaib*>& secondaryParts) override;
    void WriteMemErrors(ZetFileAccess* file) override;
    void WriteMemWarnings(ZetFileAccess* file) override;

  private:
    ZetString m_output;
};
