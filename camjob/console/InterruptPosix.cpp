#include "camjob/console/Interrupt.h"

#include <array>
#include <atomic>
#include <csignal>

namespace camjob {

namespace {

constexpr std::array kSignals = {SIGINT, SIGTERM};

/// Set in whichever thread the signal comes to.
std::atomic<bool> s_isRequested = false;
static_assert(std::atomic<bool>::is_always_lock_free, "signals may come between");
std::array<struct sigaction, kSignals.size()> s_previous;

void Note(int) {
    s_isRequested = true;
}

}  // namespace

Interrupt::Interrupt() {
    s_isRequested = false;
    struct sigaction action = {};
    action.sa_handler = Note;
    // The second one finds the system's own action.
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (std::size_t i = 0; i < kSignals.size(); ++i)
        ::sigaction(kSignals[i], &action, &s_previous[i]);
}

Interrupt::~Interrupt() {
    for (std::size_t i = 0; i < kSignals.size(); ++i)
        ::sigaction(kSignals[i], &s_previous[i], nullptr);
}

bool Interrupt::WasRequested() const {
    return s_isRequested;
}

}  // namespace camjob
