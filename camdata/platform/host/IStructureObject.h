#pragma once

#include "camdata/platform/host/IHostObject.h"
#include "camdata/platform/text/ZetString.h"

/// The host's structural side of a part; knows the name of its section.
class IStructureObject : public IHostObject {
  public:
    static constexpr HostInterfaceId kId = {
        0x628888BC, 0x0695, 0x4FAD, {0xB0, 0xD8, 0x35, 0x77, 0xE2, 0x1A, 0x7F, 0x3C}
    };

    virtual HostResult getProfileName(ZetString* name) = 0;

  protected:
    ~IStructureObject() = default;
};
