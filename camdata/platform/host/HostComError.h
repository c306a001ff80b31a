#pragma once

#include "camdata/platform/base/Export.h"
#include "camdata/platform/host/IHostObject.h"

#include <stdexcept>

/// Raised when a call into a host interface fails; passes through the library to the plug-in.
class CAMDATA_API HostComError : public std::runtime_error {
  public:
    explicit HostComError(HostResult result);
    ~HostComError() override;

    /// The result code of the call that failed.
    HostResult GetResult() const { return m_result; }

  private:
    HostResult m_result;
};

/// Raises HostComError when `result` says that a host call failed.
inline void CheckHostCall(HostResult result) {
    if (result < 0)
        throw HostComError(result);
}
