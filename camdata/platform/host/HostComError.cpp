#include "camdata/platform/host/HostComError.h"

#include <cstdio>
#include <string>

namespace {

std::string Describe(HostResult result) {
    char text[48];
    std::snprintf(text, sizeof text, "host call failed: 0x%08X", static_cast<unsigned>(result));
    return text;
}

}  // namespace

HostComError::HostComError(HostResult result)
    : std::runtime_error(Describe(result)), m_result(result) {}

HostComError::~HostComError() = default;
