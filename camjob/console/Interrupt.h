#pragma once

namespace camjob {

/// While it lives, Ctrl-C (and on POSIX the signal that asks a process to end) is only noted, so
/// that the work can stop where it suits; a second one ends the process. One at a time.
class Interrupt {
  public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    /// Ctrl-C was pressed since this object was made.
    bool WasRequested() const;
};

}  // namespace camjob
