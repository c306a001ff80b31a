#pragma once

#include "camjob/console/OutputStream.h"

namespace camjob {

/// While this object lives, the program is a host with a command line: what the library and a
/// plug-in print there (`icPrintfAsync`, HostFunctions.h) goes to a stream, at once. Otherwise it
/// is dropped. One at a time.
class HostPrinting {
  public:
    explicit HostPrinting(OutputStream& stream);
    ~HostPrinting();
    HostPrinting(const HostPrinting&) = delete;
    HostPrinting& operator=(const HostPrinting&) = delete;
};

}  // namespace camjob
