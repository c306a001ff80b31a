#include "camdata/util/HostBridge.h"

#include "camdata/platform/HostComError.h"
#include "camdata/platform/HostFunctions.h"
#include "camdata/platform/HostPtr.h"
#include "camdata/platform/IStructureObject.h"
#include "camdata/platform/Modules.h"

namespace {

// Replaces `text` by the value of a host variable; leaves it when the host has no text of that
// name.
void ReadTextVariable(HostGetVariable getVariable, const wchar_t* name, ZetString& text) {
    HostVariable value;
    if (getVariable(name, &value) >= 0 && value.type == HostVariable::eTypeText)
        text = value.text;
}

// The host interface T of an entity's model object; null when there is none.
template <typename T>
HostPtr<T> InterfaceOf(ZetNCEntity& entity) {
    const auto model = HostPtr<IHostObject>::adopt(entity.getModelObject());
    IHostObject* object = nullptr;
    if (!model || model->queryInterface(T::kId, &object) < 0)
        return {};
    return HostPtr<T>::adopt(static_cast<T*>(object));
}

ZetString ProfileNameOfStructure(ZetNCEntity& entity) {
    ZetString name;
    if (const auto structure = InterfaceOf<IStructureObject>(entity))
        CheckHostCall(structure->getProfileName(&name));
    return name;
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
        return ProfileNameOfStructure(*entity);
    return creator->getHeader().profileName;
}

IEqualPartObject* GetEqualPartObj(ZetNCEntity* entity) {
    return entity == nullptr ? nullptr : InterfaceOf<IEqualPartObject>(*entity).detach();
}
