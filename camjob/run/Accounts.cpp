#include "camjob/run/Accounts.h"

#include <optional>

namespace camjob {

namespace {

using plugin::Account;

/// A feature that the reader has told has no place in the NC data.
std::optional<Account> AccountOf(const dstv::NcEntry& entry,
                                 const plugin::Ledger& ledger,
                                 bool isMemberMade) {
    if (!entry.isNoted)
        return ledger.AccountOf(entry.line, isMemberMade);
    return isMemberMade ? Account::kNoted : Account::kNotMade;
}

}  // namespace

FeatureAccounts SettleAccounts(const std::vector<dstv::NcEntry>& entries,
                               const plugin::Ledger& ledger) {
    FeatureAccounts accounts;
    accounts.features.reserve(entries.size());
    for (const dstv::NcEntry& entry : entries) {
        const auto whenMade = AccountOf(entry, ledger, true);
        if (!whenMade)
            accounts.lost.push_back(
                {entry.line,
                 ZetString::format(L"%s: neither made nor told", ZetString(entry.kind))});
        const AccountedFeature& feature = accounts.features.emplace_back(
            AccountedFeature{entry.kind,
                             entry.line,
                             whenMade.value_or(Account::kNotMade),
                             AccountOf(entry, ledger, false).value_or(Account::kNotMade)});
        ++accounts.numbers.whenMade[feature.whenMade];
        ++accounts.numbers.whenNotMade[feature.whenNotMade];
    }
    for (const long tag : ledger.GetStrangeTags())
        accounts.lost.push_back({tag, L"an operation or a message belongs to no feature"});
    return accounts;
}

plugin::AccountNumbers AllNotMade(const std::vector<dstv::NcEntry>& entries) {
    plugin::AccountNumbers numbers;
    numbers[Account::kNotMade] = static_cast<long>(entries.size());
    return numbers;
}

}  // namespace camjob
