#pragma once

#include "dstv/NcEntries.h"
#include "plugin/ledger/Ledger.h"

#include "camdata/platform/text/ZetString.h"

#include <vector>

namespace camjob {

/// A feature of a file that ended in no account, or an operation without a feature.
struct LostFeature {
    long line = 0;
    ZetString text;
};

/// How many features of one file ended where.
struct FeatureAccounts {
    plugin::AccountNumbers whenMade;     ///< when the member is in the machine files
    plugin::AccountNumbers whenNotMade;  ///< when it is not
    std::vector<LostFeature> lost;       ///< when it is: a fault of the program
};

/// Joins what the reader has met with what the plug-in has made of it, feature by feature.
FeatureAccounts SettleAccounts(const std::vector<dstv::NcEntry>& entries,
                               const plugin::Ledger& ledger);

/// Of a file that takes no part: none of it is made.
plugin::AccountNumbers AllNotMade(const std::vector<dstv::NcEntry>& entries);

}  // namespace camjob
