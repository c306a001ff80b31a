#pragma once

#include "plugin/ledger/Feature.h"

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

namespace plugin {

/// Where a feature can end. It ends in the first that applies.
enum class Account {
    kMade,           ///< by an operation, or by a part of one
    kRefused,        ///< a finding names it
    kNotMade,        ///< the member is not made
    kSetAside,       ///< for another feature that is settled
    kNoted,          ///< the host's reader has told it
    kNotForMachine,  ///< what the machine is not asked for: marks and texts, or by its format
};
inline constexpr std::size_t kAccountCount = 6;

/// Features by Account.
struct AccountNumbers {
    std::array<long, kAccountCount> features{};

    long& operator[](Account account) { return features[static_cast<std::size_t>(account)]; }
    long operator[](Account account) const { return features[static_cast<std::size_t>(account)]; }
    long Sum() const;
    AccountNumbers& operator+=(const AccountNumbers& other);
};

/// What has become of each feature of one member: whoever makes, refuses or leaves out a feature
/// claims it here, by the host's tag, and a feature that nobody has claimed is lost.
class Ledger {
  public:
    Ledger() = default;
    explicit Ledger(std::vector<Feature> features);

    /// Null for a tag that no feature has.
    const Feature* Find(long tag) const;
    /// Several claims on one feature are no fault: the first account that applies is its own.
    void Claim(long tag, Account account);
    void ClaimSetAside(long tag, long otherTag);
    /// Makes a feature a part of another: what becomes of that becomes of it.
    void Join(long tag, long wholeTag);

    /// The account of a feature; nothing when it is lost, or set aside for one that is not
    /// settled: made, refused or not for this machine. `isMemberMade`: the member is in the machine
    /// files.
    std::optional<Account> AccountOf(long tag, bool isMemberMade) const;
    /// Both accounts of a feature.
    struct Accounts {
        std::optional<Account> whenMade;  ///< when the member is made
        std::optional<Account> whenNotMade;
    };
    Accounts AccountsOf(long tag) const;
    /// Of the features that have this account when the member is made.
    std::vector<long> FindTags(Account account) const;
    /// How many features are not made with a member that is not.
    long CountNotMade() const;
    /// Tags that were claimed, although no feature has them.
    const std::vector<long>& GetStrangeTags() const { return m_strangeTags; }

  private:
    struct Entry {
        Feature feature;
        unsigned claims = 0;  ///< bit by Account
        long otherTag = 0;    ///< that it is set aside for
        long wholeTag = 0;    ///< that it is a part of; 0: none
    };

    /// Bit by Account: its own, and those of what it is a part of.
    unsigned ClaimsOn(const Entry& entry) const;
    bool IsSettled(long tag) const;
    std::optional<Account> AccountOf(const Entry& entry, bool isMemberMade) const;

    /// Null for a tag that no feature has.
    const Entry* EntryOf(long tag) const;
    Entry* EntryOf(long tag);

    std::vector<Entry> m_entries;  ///< by tag
    std::vector<long> m_strangeTags;
};

}  // namespace plugin
