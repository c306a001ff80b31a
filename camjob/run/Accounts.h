#pragma once

#include "dstv/NcEntries.h"
#include "plugin/ledger/Ledger.h"

#include "camdata/platform/text/ZetString.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
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
class MemberAccounts {
  public:
    void Count(const AccountedFeature& feature) {
        ++m_whenMade[static_cast<std::size_t>(feature.whenMade)];
        ++m_whenNotMade[static_cast<std::size_t>(feature.whenNotMade)];
    }
    plugin::AccountNumbers Get(bool isMemberMade) const {
        const Numbers& numbers = isMemberMade ? m_whenMade : m_whenNotMade;
        plugin::AccountNumbers accounts;
        std::copy(numbers.begin(), numbers.end(), accounts.features.begin());
        return accounts;
    }

  private:
    /// By Account. Half the size of AccountNumbers: there may be very many members.
    using Numbers = std::array<std::int32_t, plugin::kAccountCount>;

    Numbers m_whenMade{};  ///< when the member is made
    Numbers m_whenNotMade{};
};

/// Where the features of one file ended.
struct FeatureAccounts {
    struct Lists {
        /// In the order of their lines; when they are kept.
        std::vector<AccountedFeature> features;
        /// When the member is made: a fault of the program.
        std::vector<LostFeature> lost;
    };

    MemberAccounts numbers;
    std::unique_ptr<Lists> lists;  ///< null when both are empty, as those of very many members are
};

/// Joins what the reader has met with what the plug-in has made of it, feature by feature.
/// `areFeaturesKept` false: the features are counted only.
FeatureAccounts SettleAccounts(const std::vector<dstv::NcEntry>& entries,
                               const plugin::Ledger& ledger,
                               bool areFeaturesKept);

/// Of a file that takes no part: none of it is made.
plugin::AccountNumbers AllNotMade(const std::vector<dstv::NcEntry>& entries);

}  // namespace camjob
