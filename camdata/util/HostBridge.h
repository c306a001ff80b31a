#pragma once

#include "camdata/platform/base/Export.h"
#include "camdata/platform/host/IEqualPartObject.h"
#include "camdata/platform/host/ZetNCCreator.h"
#include "camdata/platform/text/ZetString.h"

/// Asks the host for the name and the folder of the current drawing. Always 0: what the host does
/// not tell, and outside a host both, stays as it was.
CAMDATA_API long GetModelAndDirName(ZetString& modelName, ZetString& folderName);

/// The profile name of the part that a creator describes: the header's, or for a structure entity
/// the one that its IStructureObject knows ("" without one, and without creator or entity).
/// Raises HostComError when the host knows the object but cannot name its profile.
CAMDATA_API ZetString GetProfileNameFromCreator(ZetNCCreator* creator);

/// The equal-part object of an entity, with a reference that the caller owns; null when it has
/// none.
CAMDATA_API IEqualPartObject* GetEqualPartObj(ZetNCEntity* entity);
