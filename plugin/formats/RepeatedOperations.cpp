#include "plugin/formats/RepeatedOperations.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace plugin {

RepeatedOperations::RepeatedOperations(const MachineMember& member,
                                       const std::vector<std::size_t>& order,
                                       job::RepeatAxis axis,
                                       std::vector<double> steps,
                                       double pitchStep)
    : m_member(member),
      m_order(order),
      m_axis(axis),
      m_steps(std::move(steps)),
      m_pitchStep(pitchStep) {
    for (std::size_t place = 0; place < order.size(); ++place)
        m_alike[KeyOf(At(place))].places.push_back(place);
    for (auto& [key, alike] : m_alike) {
        std::stable_sort(alike.places.begin(),
                         alike.places.end(),
                         [&](std::size_t a, std::size_t b) { return m_steps[a] < m_steps[b]; });
        FindLasts(alike);
    }
}

void RepeatedOperations::FindLasts(Alike& alike) const {
    const std::size_t count = alike.places.size();
    const auto distanceBehind = [&](std::size_t at) {
        return m_steps[alike.places[at + 1]] - m_steps[alike.places[at]];
    };
    alike.lasts.resize(count);
    for (std::size_t at = count; at-- > 0;) {
        alike.lasts[at] = at;
        if (at + 1 == count)
            continue;
        const double distance = distanceBehind(at);
        if (distance <= 0.0 || std::fmod(distance, m_pitchStep) != 0.0)
            continue;
        const bool goesOn = at + 2 < count && distanceBehind(at + 1) == distance;
        alike.lasts[at] = goesOn ? alike.lasts[at + 1] : at + 1;
    }
}

RepeatedOperations::Key RepeatedOperations::KeyOf(const MachineOperation& o) const {
    const double across = m_axis == job::RepeatAxis::kX ? o.y : o.x;
    return {static_cast<int>(o.kind),
            o.face,
            across,
            o.diameter,
            o.length,
            o.width,
            o.angle,
            o.depth,
            o.sinkDiameter,
            o.sinkDepth,
            o.sinkAngle,
            o.thread,
            o.code};
}

std::size_t RepeatedOperations::PositionOf(const Alike& alike, std::size_t place) const {
    const auto at = std::lower_bound(
        alike.places.begin(), alike.places.end(), place, [&](std::size_t a, std::size_t b) {
            return std::pair(m_steps[a], a) < std::pair(m_steps[b], b);
        });
    return static_cast<std::size_t>(at - alike.places.begin());
}

/// What was found taken before is looked at first: it stays so.
bool RepeatedOperations::HasTaken(Alike& alike,
                                  std::size_t behind,
                                  std::size_t last,
                                  const std::vector<char>& isTaken) {
    if (alike.lastTaken > behind && alike.lastTaken <= last)
        return true;
    for (std::size_t at = behind + 1; at <= last; ++at)
        if (isTaken[alike.places[at]] != 0) {
            alike.lastTaken = at;
            return true;
        }
    return false;
}

/// Looks at members of a run only where there can be one, so a long `least` costs no time.
RepeatedOperations::Run RepeatedOperations::RunWith(std::size_t place,
                                                    std::size_t least,
                                                    const std::vector<char>& isTaken) {
    Alike& alike = m_alike.at(KeyOf(At(place)));
    while (isTaken[alike.places[alike.front]] != 0)
        ++alike.front;
    const std::size_t own = PositionOf(alike, place);
    const auto isLong = [&](std::size_t at) { return alike.lasts[at] - at + 1 >= least; };
    // Inside of a front run that is too short, the run from the place is shorter still.
    const std::size_t last = alike.lasts[alike.front];
    const bool mayReach = own == last || (own < last && isLong(alike.front));
    const std::size_t at =
        mayReach && !HasTaken(alike, alike.front, own, isTaken) ? alike.front : own;
    if (!isLong(at) || HasTaken(alike, at, at + least - 1, isTaken))
        return {};
    return RunFrom(alike, at, isTaken);
}

/// Of two or more.
RepeatedOperations::Run RepeatedOperations::RunFrom(const Alike& alike,
                                                    std::size_t at,
                                                    const std::vector<char>& isTaken) const {
    const std::vector<std::size_t>& places = alike.places;
    Run run{{}, m_steps[places[at + 1]] - m_steps[places[at]]};
    for (const std::size_t last = alike.lasts[at]; at <= last && isTaken[places[at]] == 0; ++at)
        run.places.push_back(places[at]);
    return run;
}

}  // namespace plugin
