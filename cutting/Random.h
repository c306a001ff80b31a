#pragma once

#include <cstdint>

namespace cutting {

/// Random numbers of our own, the same with every standard library.
class Random {
  public:
    explicit Random(std::uint64_t seed) : m_state(seed) {}

    std::uint64_t Next() {
        m_state += 0x9E3779B97F4A7C15;
        std::uint64_t value = m_state;
        value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9;
        value = (value ^ (value >> 27)) * 0x94D049BB133111EB;
        return value ^ (value >> 31);
    }

    /// From 0 to below 1.
    double NextUnit() { return static_cast<double>(Next() >> 11) / 9007199254740992.0; }

  private:
    std::uint64_t m_state;
};

}  // namespace cutting
