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

/// A feature of a file, and where it ended.
struct AccountedFeature {
    const wchar_t* kind = L"";  ///< in words
    long line = 0;
    plugin::Account whenMade = plugin::Account::kMade;        ///< when the member is made
    plugin::Account whenNotMade = plugin::Account::kNotMade;  ///< when it is not

    plugin::Account Get(bool isMemberMade) const { return isMemberMade ? whenMade : whenNotMade; }
};

/// How many features of one file ended where.
struct MemberAccounts {
    plugin::AccountNumbers whenMade;  ///< when the member is made
    plugin::AccountNumbers whenNotMade;

    const plugin::AccountNumbers& Get(bool isMemberMade) const {
        return isMemberMade ? whenMade : whenNotMade;
    }
};

/// Where the features of one file ended.
struct FeatureAccounts {
    MemberAccounts numbers;
    std::vector<AccountedFeature> features;  ///< in the order of their lines; when they are kept
    std::vector<LostFeature> lost;           ///< when the member is made: a fault of the program
};

/// Joins what the reader has met with what the plug-in has made of it, feature by feature.
/// `areFeaturesKept` false: the features are counted only.
FeatureAccounts SettleAccounts(const std::vector<dstv::NcEntry>& entries,
                               const plugin::Ledger& ledger,
                               bool areFeaturesKept);

/// Of a file that takes no part: none of it is made.
plugin::AccountNumbers AllNotMade(const std::vector<dstv::NcEntry>& entries);

}  // namespace camjob
