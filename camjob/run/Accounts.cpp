#include "camjob/run/Accounts.h"

namespace camjob {

namespace {

using plugin::Account;

/// A feature that the reader has told has no place in the NC data.
plugin::Ledger::Accounts AccountsOf(const dstv::NcEntry& entry, const plugin::Ledger& ledger) {
    if (entry.isNoted)
        return {Account::kNoted, Account::kNotMade};
    return ledger.AccountsOf(entry.line);
}

}  // namespace

FeatureAccounts SettleAccounts(const std::vector<dstv::NcEntry>& entries,
                               const plugin::Ledger& ledger,
                               bool areFeaturesKept) {
    FeatureAccounts accounts;
    if (areFeaturesKept)
        accounts.features.reserve(entries.size());
    for (const dstv::NcEntry& entry : entries) {
        const auto [whenMade, whenNotMade] = AccountsOf(entry, ledger);
        if (!whenMade)
            accounts.lost.push_back(
                {entry.line,
                 ZetString::format(L"%s: neither made nor told", ZetString(entry.kind))});
        const AccountedFeature feature = {entry.kind,
                                          entry.line,
                                          whenMade.value_or(Account::kNotMade),
                                          whenNotMade.value_or(Account::kNotMade)};
        ++accounts.numbers.whenMade[feature.whenMade];
        ++accounts.numbers.whenNotMade[feature.whenNotMade];
        if (areFeaturesKept)
            accounts.features.push_back(feature);
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
