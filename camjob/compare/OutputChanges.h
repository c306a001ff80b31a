#pragma once

#include "camjob/compare/OutputMember.h"

#include <functional>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

namespace camjob {

/// What became of a feature. A changed one stands where it stood, with another shape or size.
enum class FeatureChangeKind { kAdded, kRemoved, kMoved, kRecoded, kChanged };

struct FeatureChange {
    FeatureChangeKind kind = FeatureChangeKind::kAdded;
    std::optional<OutputFeature> before;
    std::optional<OutputFeature> after;
};

/// A value that differs, in words.
struct ValueChange {
    std::string what;
    std::string before;
    std::string after;
};

enum class MemberChangeKind { kAdded, kRemoved, kChanged };

struct MemberChange {
    std::string mark;
    MemberChangeKind kind = MemberChangeKind::kChanged;
    std::vector<ValueChange> values;      ///< of a whole member that came or went: all of them
    std::vector<FeatureChange> features;  ///< of a changed member, by face and kind
};

/// The bars of a profile and material; nothing on the side that has none. Where all numbers of both
/// sides are equal, they are cut differently.
struct BarChange {
    std::optional<OutputBars> before;
    std::optional<OutputBars> after;
};

/// What differs between two outputs. A plain value.
struct OutputChanges {
    std::string against;  ///< the older one, UTF-8
    long added = 0;
    long removed = 0;
    long changed = 0;
    long unchanged = 0;
    std::vector<MemberChange> members;  ///< as in the newer output, then those that went
    std::vector<BarChange> bars;

    bool HasMembers() const { return !members.empty(); }
};

/// Compares two outputs, the older one member by member: neither has to be in memory.
class OutputComparison {
  public:
    /// A member of the newer output by its mark; nothing when it has none.
    using Lookup = std::function<std::optional<OutputMember>(const std::string& mark)>;

    explicit OutputComparison(Lookup lookUp) : m_lookUp(std::move(lookUp)) {}

    /// Takes the next member of the older output.
    void TakeOld(const OutputMember& old);
    /// The same for one that the newer output has just so.
    void TakeUnchanged(const std::string& mark);
    /// `marks`: all of the newer output, in its order. Once.
    OutputChanges Finish(const std::vector<std::string>& marks,
                         const std::vector<OutputBars>& oldBars,
                         const std::vector<OutputBars>& newBars);

  private:
    void OrderMembers(const std::vector<std::string>& marks);

    Lookup m_lookUp;
    std::unordered_set<std::string> m_oldMarks;
    OutputChanges m_changes;
};

}  // namespace camjob
