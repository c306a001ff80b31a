#include "plugin/ledger/Ledger.h"

#include <algorithm>
#include <functional>
#include <numeric>

namespace plugin {

namespace {

unsigned BitOf(Account account) {
    return 1u << static_cast<unsigned>(account);
}

}  // namespace

long AccountNumbers::Sum() const {
    return std::accumulate(features.begin(), features.end(), 0L);
}

AccountNumbers& AccountNumbers::operator+=(const AccountNumbers& other) {
    std::transform(
        features.begin(), features.end(), other.features.begin(), features.begin(), std::plus<>());
    return *this;
}

Ledger::Ledger(const std::vector<Feature>& features) {
    m_entries.reserve(features.size());
    for (const Feature& feature : features)
        m_entries.insert({feature.tag, {feature}});
}

const Feature* Ledger::Find(long tag) const {
    const auto at = m_entries.find(tag);
    return at == m_entries.end() ? nullptr : &at->second.feature;
}

void Ledger::Claim(long tag, Account account) {
    const auto at = m_entries.find(tag);
    if (at == m_entries.end())
        m_strangeTags.push_back(tag);
    else
        at->second.claims |= BitOf(account);
}

void Ledger::ClaimSetAside(long tag, long otherTag) {
    Claim(tag, Account::kSetAside);
    if (const auto at = m_entries.find(tag); at != m_entries.end())
        at->second.otherTag = otherTag;
}

void Ledger::Join(long tag, long wholeTag) {
    if (const auto at = m_entries.find(tag); at != m_entries.end())
        at->second.wholeTag = wholeTag;
}

bool Ledger::Has(const Entry& entry, Account account) const {
    if ((entry.claims & BitOf(account)) != 0)
        return true;
    const auto whole = m_entries.find(entry.wholeTag);
    return entry.wholeTag != 0 && whole != m_entries.end() &&
           (whole->second.claims & BitOf(account)) != 0;
}

/// Made, or refused.
bool Ledger::IsSettled(long tag) const {
    const auto at = m_entries.find(tag);
    return at != m_entries.end() &&
           (Has(at->second, Account::kMade) || Has(at->second, Account::kRefused));
}

std::optional<Account> Ledger::AccountOf(long tag, bool isMemberMade) const {
    const auto at = m_entries.find(tag);
    if (at == m_entries.end())
        return std::nullopt;
    const Entry& entry = at->second;
    if (isMemberMade && Has(entry, Account::kMade))
        return Account::kMade;
    if (Has(entry, Account::kRefused))
        return Account::kRefused;
    if (!isMemberMade)
        return Account::kNotMade;
    if (Has(entry, Account::kSetAside))
        return entry.otherTag == 0 || IsSettled(entry.otherTag) ? std::optional(Account::kSetAside)
                                                                : std::nullopt;
    if (Has(entry, Account::kNotForMachine))
        return Account::kNotForMachine;
    return std::nullopt;
}

long Ledger::CountNotMade() const {
    return static_cast<long>(
        std::count_if(m_entries.begin(), m_entries.end(), [&](const auto& each) {
            return AccountOf(each.first, false) == Account::kNotMade;
        }));
}

}  // namespace plugin
