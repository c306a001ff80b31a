#pragma once

namespace camjob {

/// What the program ends with; of several outcomes the highest.
enum ExitCode : int {
    kExitDone = 0,
    kExitInvalidMembers = 1,  ///< done, but some members have errors or pieces no bar
    kExitBadInput = 2,        ///< bad usage, or an input that cannot be read
    kExitNotWritten = 3,      ///< an output could not be written
    kExitFault = 4,           ///< a fault of the program, caught before it could do harm
    kExitCancelled = 130,     ///< stopped by Ctrl-C, as shells tell it
};

}  // namespace camjob
