#pragma once

#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/host/IHostObject.h"
#include "camdata/platform/host/ZetNCHeaderData.h"
#include "camdata/platform/host/ZetNCStructure.h"

/// One part of the model as its host offers it to NC output. Hosts implement it and own it.
class ZetNCEntity {
  public:
    enum NCTypes {
        eNCTypeUnknown = 0,
        eNCTypeBeam = 1,       ///< straight part cut from a section
        eNCTypeStructure = 2,  ///< part whose profile name only its IStructureObject knows
        eNCTypePlate = 3,
    };

    virtual ~ZetNCEntity() = default;

    virtual NCTypes getType() const = 0;
    /// The host's object of this part, with a reference that the caller owns; null when none.
    virtual IHostObject* getModelObject() = 0;
    /// `style` is the creator's; a host that knows no styles ignores it.
    virtual ZetNCHeaderData getHeader(long style) const = 0;
    virtual ZetNCStructure getNCStructure(long style) const = 0;
    /// The single parts fixed to this part; owned by the host.
    virtual ZetArray<ZetNCEntity*> getAttachedEntities() const { return {}; }
};
