#include "plugin/ledger/Ledger.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <utility>

namespace plugin {

namespace {

constexpr unsigned BitOf(Account account) {
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

/// Of features with the same tag the first counts.
Ledger::Ledger(std::vector<Feature> features) {
    const auto isBefore = [](const Feature& a, const Feature& b) { return a.tag < b.tag; };
    if (!std::is_sorted(features.begin(), features.end(), isBefore))
        std::stable_sort(features.begin(), features.end(), isBefore);
    m_entries.reserve(features.size());
    for (const Feature& feature : features)
        if (m_entries.empty() || m_entries.back().feature.tag != feature.tag)
            m_entries.push_back({feature});
}

/// Features stand in one line after the other mostly.
const Ledger::Entry* Ledger::EntryOf(long tag) const {
    if (m_entries.empty() || tag < m_entries.front().feature.tag)
        return nullptr;
    // Tags may be anything: no overflow.
    const std::size_t guess =
        static_cast<std::size_t>(tag) - static_cast<std::size_t>(m_entries.front().feature.tag);
    if (guess < m_entries.size() && m_entries[guess].feature.tag == tag)
        return &m_entries[guess];
    const auto at = std::lower_bound(
        m_entries.begin(), m_entries.end(), tag, [](const Entry& entry, long wanted) {
            return entry.feature.tag < wanted;
        });
    return at == m_entries.end() || at->feature.tag != tag ? nullptr : &*at;
}

Ledger::Entry* Ledger::EntryOf(long tag) {
    return const_cast<Entry*>(std::as_const(*this).EntryOf(tag));
}

const Feature* Ledger::Find(long tag) const {
    const Entry* const entry = EntryOf(tag);
    return entry == nullptr ? nullptr : &entry->feature;
}

void Ledger::Claim(long tag, Account account) {
    if (Entry* const entry = EntryOf(tag))
        entry->claims |= BitOf(account);
    else
        m_strangeTags.push_back(tag);
}

void Ledger::ClaimSetAside(long tag, long otherTag) {
    Claim(tag, Account::kSetAside);
    if (Entry* const entry = EntryOf(tag))
        entry->otherTag = otherTag;
}

void Ledger::Join(long tag, long wholeTag) {
    if (Entry* const entry = EntryOf(tag))
        entry->wholeTag = wholeTag;
}

unsigned Ledger::ClaimsOn(const Entry& entry) const {
    const Entry* const whole = entry.wholeTag == 0 ? nullptr : EntryOf(entry.wholeTag);
    return entry.claims | (whole != nullptr ? whole->claims : 0);
}

/// Made, refused, or what the machine is not asked for.
bool Ledger::IsSettled(long tag) const {
    constexpr unsigned kSettled =
        BitOf(Account::kMade) | BitOf(Account::kRefused) | BitOf(Account::kNotForMachine);
    const Entry* const entry = EntryOf(tag);
    return entry != nullptr && (ClaimsOn(*entry) & kSettled) != 0;
}

std::optional<Account> Ledger::AccountOf(const Entry& entry, bool isMemberMade) const {
    const unsigned claims = ClaimsOn(entry);
    const auto has = [&](Account account) { return (claims & BitOf(account)) != 0; };
    if (isMemberMade && has(Account::kMade))
        return Account::kMade;
    if (has(Account::kRefused))
        return Account::kRefused;
    if (!isMemberMade)
        return Account::kNotMade;
    if (has(Account::kSetAside))
        return entry.otherTag == 0 || IsSettled(entry.otherTag) ? std::optional(Account::kSetAside)
                                                                : std::nullopt;
    if (has(Account::kNotForMachine))
        return Account::kNotForMachine;
    return std::nullopt;
}

std::optional<Account> Ledger::AccountOf(long tag, bool isMemberMade) const {
    const Entry* const entry = EntryOf(tag);
    return entry == nullptr ? std::nullopt : AccountOf(*entry, isMemberMade);
}

Ledger::Accounts Ledger::AccountsOf(long tag) const {
    const Entry* const entry = EntryOf(tag);
    if (entry == nullptr)
        return {};
    return {AccountOf(*entry, true), AccountOf(*entry, false)};
}

std::vector<long> Ledger::FindTags(Account account) const {
    std::vector<long> tags;
    for (const Entry& each : m_entries)
        if (AccountOf(each, true) == account)
            tags.push_back(each.feature.tag);
    return tags;
}

long Ledger::CountNotMade() const {
    return static_cast<long>(
        std::count_if(m_entries.begin(), m_entries.end(), [&](const Entry& each) {
            return AccountOf(each, false) == Account::kNotMade;
        }));
}

}  // namespace plugin
