#pragma once

#include "job/formats/MachineFormat.h"
#include "plugin/formats/MachineMember.h"

#include <cstddef>
#include <map>
#include <tuple>
#include <vector>

namespace plugin {

/// Operations of a member that are alike but for their place along one axis.
class RepeatedOperations {
  public:
    /// `order` are positions of the member's operations as they are written, `steps` whole numbers
    /// that say where each of them lies along the axis; a pitch is a multiple of `pitchStep` of
    /// them. Member and order must outlive it.
    RepeatedOperations(const MachineMember& member,
                       const std::vector<std::size_t>& order,
                       job::RepeatAxis axis,
                       std::vector<double> steps,
                       double pitchStep);

    /// Some that lie evenly from `first` on.
    struct Run {
        std::vector<std::size_t> places;  ///< in `order`
        double pitch = 0.0;               ///< steps
    };
    /// That from the foremost of those alike where it reaches `place`, else that from `place`; none
    /// that `isTaken` says, which only ever grows. Empty when it has fewer than `least`.
    Run RunWith(std::size_t place, std::size_t least, const std::vector<char>& isTaken);

  private:
    /// All but the place along the axis.
    // clang-format off
    using Key = std::tuple<int, int, double, double, double, double, double, double, double, double,
                           double, int, ZetString>;
    // clang-format on

    const MachineOperation& At(std::size_t place) const {
        return m_member.operations[m_order[place]];
    }
    Key KeyOf(const MachineOperation& operation) const;

    /// Places in the order along the axis; those before `front` are taken.
    struct Alike {
        std::vector<std::size_t> places;
        std::vector<std::size_t> lasts;  ///< where the run from each would end if none were taken
        std::size_t front = 0;
        std::size_t lastTaken = 0;  ///< one that was found taken
    };

    void FindLasts(Alike& alike) const;
    std::size_t PositionOf(const Alike& alike, std::size_t place) const;
    static bool HasTaken(Alike& alike,
                         std::size_t behind,
                         std::size_t last,
                         const std::vector<char>& isTaken);
    Run RunFrom(const Alike& alike, std::size_t at, const std::vector<char>& isTaken) const;

    const MachineMember& m_member;
    const std::vector<std::size_t>& m_order;
    job::RepeatAxis m_axis;
    std::vector<double> m_steps;  ///< by place
    double m_pitchStep;
    std::map<Key, Alike> m_alike;
};

}  // namespace plugin
