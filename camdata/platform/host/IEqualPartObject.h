#pragma once

#include "camdata/platform/host/IHostObject.h"
#include "camdata/platform/text/ZetString.h"

/// The host's view of a part that stands for all equal parts of the model.
class IEqualPartObject : public IHostObject {
  public:
    static constexpr HostInterfaceId kId = {
        0x736E0A1D, 0x76DE, 0x4C8C, {0x9B, 0x3F, 0x27, 0x4E, 0x13, 0x0B, 0x89, 0xBD}
    };

    /// The host's boolean: all bits set is true, 0 is false.
    using HostBool = short;
    static constexpr HostBool kHostTrue = -1;

    /// True when the part is the main part of its assembly.
    virtual HostResult getMainPart(HostBool* isMainPart) = 0;
    virtual HostResult getPartNumber(ZetString* text) = 0;
    virtual HostResult getAssemblyNumber(ZetString* text) = 0;
    virtual HostResult getName(ZetString* text) = 0;
    virtual HostResult getMaterial(ZetString* text) = 0;
    virtual HostResult getFinish(ZetString* text) = 0;
    virtual HostResult getRemark(ZetString* text) = 0;

  protected:
    ~IEqualPartObject() = default;
};
