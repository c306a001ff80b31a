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
    for (auto& [key, alike] : m_alike)
        std::stable_sort(alike.places.begin(),
                         alike.places.end(),
                         [&](std::size_t a, std::size_t b) { return m_steps[a] < m_steps[b]; });
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
            o.thread,
            o.code};
}

RepeatedOperations::Run RepeatedOperations::RunWith(std::size_t place,
                                                    const std::vector<char>& isTaken) {
    Alike& alike = m_alike.at(KeyOf(At(place)));
    while (isTaken[alike.places[alike.front]] != 0)
        ++alike.front;
    Run run = RunFrom(alike, alike.front, isTaken);
    if (std::find(run.places.begin(), run.places.end(), place) != run.places.end())
        return run;
    const auto at = std::lower_bound(
        alike.places.begin(), alike.places.end(), place, [&](std::size_t a, std::size_t b) {
            return std::pair(m_steps[a], a) < std::pair(m_steps[b], b);
        });
    return RunFrom(alike, static_cast<std::size_t>(at - alike.places.begin()), isTaken);
}

RepeatedOperations::Run RepeatedOperations::RunFrom(const Alike& alike,
                                                    std::size_t at,
                                                    const std::vector<char>& isTaken) const {
    Run run{{alike.places[at]}};
    for (++at; at < alike.places.size() && isTaken[alike.places[at]] == 0; ++at) {
        const double distance = m_steps[alike.places[at]] - m_steps[run.places.back()];
        if (distance <= 0.0 || std::fmod(distance, m_pitchStep) != 0.0 ||
            (run.places.size() > 1 && distance != run.pitch))
            break;
        run.pitch = distance;
        run.places.push_back(alike.places[at]);
    }
    return run;
}

}  // namespace plugin
