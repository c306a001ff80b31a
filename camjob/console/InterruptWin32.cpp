#include "camjob/console/Interrupt.h"

#include <atomic>
#include <windows.h>

namespace camjob {

namespace {

std::atomic<bool> s_isRequested = false;

/// Called in a thread of its own. FALSE: the system's own action follows, which ends the process.
BOOL WINAPI Note(DWORD event) {
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT)
        return FALSE;
    return s_isRequested.exchange(true) ? FALSE : TRUE;
}

}  // namespace

Interrupt::Interrupt() {
    s_isRequested = false;
    ::SetConsoleCtrlHandler(Note, TRUE);
}

Interrupt::~Interrupt() {
    ::SetConsoleCtrlHandler(Note, FALSE);
}

bool Interrupt::WasRequested() const {
    return s_isRequested;
}

}  // namespace camjob
