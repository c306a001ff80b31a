#include "camjob/run/Accounts.h"

#include <utility>

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
    FeatureAccounts::Lists lists;
    if (areFeaturesKept)
        lists.features.reserve(entries.size());
    for (const dstv::NcEntry& entry : entries) {
        const auto [whenMade, whenNotMade] = AccountsOf(entry, ledger);
        if (!whenMade)
            lists.lost.push_back(
                {entry.line,
                 ZetString::format(L"%s: neither made nor told", ZetString(entry.kind))});
        const AccountedFeature feature = {entry.kind,
                                          entry.line,
                                          whenMade.value_or(Account::kNotMade),
                                          whenNotMade.value_or(Account::kNotMade)};
        accounts.numbers.Count(feature);
        if (areFeaturesKept)
            lists.features.push_back(feature);
    }
    for (const long tag : ledger.GetStrangeTags())
        lists.lost.push_back({tag, L"an operation or a message belongs to no feature"});
    if (!lists.features.empty() || !lists.lost.empty())
        accounts.lists = std::make_unique<FeatureAccounts::Lists>(std::move(lists));
    return accounts;
}

plugin::AccountNumbers AllNotMade(const std::vector<dstv::NcEntry>& entries) {
    plugin::AccountNumbers numbers;
    numbers[Account::kNotMade] = static_cast<long>(entries.size());
    return numbers;
}

}  // namespace camjob
