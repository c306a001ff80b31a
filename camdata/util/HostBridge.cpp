#include "camdata/util/HostBridge.h"

#include "camdata/platform/host/HostFunctions.h"
#include "camdata/platform/system/Modules.h"
#include "camdata/util/ModelInterface.h"

namespace {

// Replaces `text` by the value of a host variable; leaves it when the host has no text of that
// name.
void ReadTextVariable(HostGetVariable getVariable, const wchar_t* name, ZetString& text) {
    HostVariable value;
    if (getVariable(name, &value) >= 0 && value.type == HostVariable::eTypeText)
        text = value.text;
}

}  // namespace

long GetModelAndDirName(ZetString& modelName, ZetString& folderName) {
    const ModuleHandle core = FindLoadedModule(L"kwcore.dll");
    const ModuleFunction function = core == nullptr ? nullptr : FindFunction(core, "kwedGetVar");
    if (function == nullptr)
        return 0;
    const auto getVariable = reinterpret_cast<HostGetVariable>(function);
    ReadTextVariable(getVariable, L"PLXPREFIX", folderName);
    ReadTextVariable(getVariable, L"PLXNAME", modelName);
    return 0;
}

ZetString GetProfileNameFromCreator(ZetNCCreator* creator) {
    ZetNCEntity* entity = creator == nullptr ? nullptr : creator->getNCEntity();
    if (entity == nullptr)
        return {};
    if (entity->getType() == ZetNCEntity::eNCTypeStructure)
        return camdata::detail::ProfileNameOfStructure(entity);
    return creator->getHeader().profileName;
}

IEqualPartObject* GetEqualPartObj(ZetNCEntity* entity) {
    return camdata::detail::InterfaceOf<IEqualPartObject>(entity).detach();
}
