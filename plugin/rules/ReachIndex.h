#pragma once

#include <cmath>
#include <map>

namespace plugin {

/// Features by where they lie along the member, to find those that may touch another. Time grows
/// with what lies near, a few long ones among many short ones cost nothing.
class ReachIndex {
  public:
    /// `reach`: how far it goes to either side of `x`. What lies nowhere is not taken.
    void Add(long index, double x, double reach) {
        if (std::isfinite(x) && std::isfinite(reach))
            m_byReach[ClassOf(reach)].insert({x, index});
    }

    /// Calls `visit` with the index of each that may reach as far as `reach` from `x`, and perhaps
    /// of some more, until it returns true. Whether it did.
    template <typename Visit>
    bool FindNear(double x, double reach, const Visit& visit) const {
        for (const auto& [largest, features] : m_byReach) {
            const double span = largest + reach;
            const auto end = features.upper_bound(x + span);
            for (auto at = features.lower_bound(x - span); at != end; ++at)
                if (visit(at->second))
                    return true;
        }
        return false;
    }

  private:
    /// The least power of two that is no less, but 1 at least.
    static double ClassOf(double reach) {
        return std::exp2(std::ceil(std::log2(std::fmax(reach, 1.0))));
    }

    std::map<double, std::multimap<double, long>> m_byReach;
};

}  // namespace plugin
