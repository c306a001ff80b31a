#pragma once

#include "job/Job.h"

#include "camdata/platform/text/ZetString.h"

namespace plugin {

/// The first type whose patterns fit; null when none does.
const job::MemberType* FindMemberType(const job::Job& job,
                                      const ZetString& profileName,
                                      const ZetString& profileCode);

/// Whether the profile name has all numbers that the type looks for in it.
bool HasNumbers(const job::MemberType& type, const ZetString& profileName);

/// Why the job cannot judge such a member, and what to do: no type takes it, or its type looks in
/// the profile name for a number that is not there. "" when it can.
ZetString WhyUnmatched(const job::Job& job,
                       const ZetString& profileName,
                       const ZetString& profileCode);

}  // namespace plugin
