#include "camjob/console/Interrupt.h"

#include <array>
#include <csignal>

namespace camjob {

namespace {

constexpr std::array kSignals = {SIGINT, SIGTERM};

volatile std::sig_atomic_t s_isRequested = 0;
std::array<struct sigaction, kSignals.size()> s_previous;

void Note(int) {
    s_isRequested = 1;
}

}  // namespace

Interrupt::Interrupt() {
    s_isRequested = 0;
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
    return s_isRequested != 0;
}

}  // namespace camjob
