#pragma once

#include "camdata/platform/host/HostComError.h"
#include "camdata/platform/host/HostPtr.h"
#include "camdata/platform/host/IStructureObject.h"
#include "camdata/platform/host/ZetNCEntity.h"

namespace camdata::detail {

/// The host interface T of an entity's model object; null without an entity and when its object
/// does not offer it.
template <typename T>
HostPtr<T> InterfaceOf(ZetNCEntity* entity) {
    if (entity == nullptr)
        return {};
    const auto model = HostPtr<IHostObject>::adopt(entity->getModelObject());
    IHostObject* object = nullptr;
    if (!model || model->queryInterface(T::kId, &object) < 0)
        return {};
    return HostPtr<T>::adopt(static_cast<T*>(object));
}

/// The profile name that an entity's structure object knows; "" without entity or object.
inline ZetString ProfileNameOfStructure(ZetNCEntity* entity) {
    ZetString name;
    if (const auto structure = InterfaceOf<IStructureObject>(entity))
        CheckHostCall(structure->getProfileName(&name));
    return name;
}

}  // namespace camdata::detail
