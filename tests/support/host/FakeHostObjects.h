#pragma once

#include "camdata/platform/HostComError.h"
#include "camdata/platform/ICS3d.h"
#include "camdata/platform/IEqualPartObject.h"
#include "camdata/platform/IStructureObject.h"
#include "camdata/platform/ZetNCEntity.h"

#include <utility>
#include <vector>

/// A host object that counts the references that others hold to it. It offers the interfaces that
/// the test adds to m_offers, and nothing else.
template <typename Interface>
class FakeHostObject : public Interface {
  public:
    HostResult queryInterface(const HostInterfaceId& id, IHostObject** object) override {
        *object = nullptr;
        if (m_queryRaises)
            throw HostComError(kHostFail);
        for (const auto& [offered, target] : m_offers) {
            if (!(offered == id))
                continue;
            target->addRef();
            *object = target;
            return kHostOk;
        }
        return kHostNoInterface;
    }
    unsigned long addRef() override { return static_cast<unsigned long>(++m_references); }
    unsigned long release() override { return static_cast<unsigned long>(--m_references); }

    std::vector<std::pair<HostInterfaceId, IHostObject*>> m_offers;
    bool m_queryRaises = false;
    long m_references = 0;
};

class FakeCoordinateSystem final : public FakeHostObject<ICS3d> {
  public:
    HostResult getOrigin(ZetGeomPoint3d* origin) override {
        *origin = {10.0, -20.5, 12345.6789};
        return kHostOk;
    }
    HostResult getXAxis(ZetGeomVector3d* axis) override {
        *axis = {0.0, 1.0, 0.0};
        return kHostOk;
    }
    HostResult getYAxis(ZetGeomVector3d* axis) override {
        *axis = {-1.0, 0.0, 0.0};
        return kHostOk;
    }
    HostResult getZAxis(ZetGeomVector3d* axis) override {
        *axis = {0.0, 0.0, 1.0};
        return m_zAxisResult;
    }

    HostResult m_zAxisResult = kHostOk;
};

class FakeStructure final : public FakeHostObject<IStructureObject> {
  public:
    HostResult getProfileName(ZetString* name) override {
        if (m_raises)
            throw HostComError(kHostFail);
        *name = L"Z200";
        return m_result;
    }

    HostResult m_result = kHostOk;
    bool m_raises = false;
};

class FakeEqualPart final : public FakeHostObject<IEqualPartObject> {
  public:
    HostResult getMainPart(HostBool* isMainPart) override {
        *isMainPart = kHostTrue;
        return kHostOk;
    }
    HostResult getPartNumber(ZetString*) override { return kHostOk; }
    HostResult getAssemblyNumber(ZetString*) override { return kHostOk; }
    HostResult getName(ZetString*) override { return kHostOk; }
    HostResult getMaterial(ZetString*) override { return kHostOk; }
    HostResult getFinish(ZetString*) override { return kHostOk; }
    HostResult getRemark(ZetString*) override { return kHostOk; }
};

/// An entity whose model object offers a structure and an equal part.
class FakePartEntity final : public ZetNCEntity {
  public:
    FakePartEntity() {
        m_model.m_offers = {
            {IStructureObject::kId, &m_structure},
            {IEqualPartObject::kId, &m_equalPart}
        };
    }

    NCTypes getType() const override { return m_type; }
    IHostObject* getModelObject() override {
        if (m_hasModel)
            m_model.addRef();
        return m_hasModel ? &m_model : nullptr;
    }
    ZetNCHeaderData getHeader(long) const override {
        ZetNCHeaderData header;
        header.profileName = L"C150";
        return header;
    }
    ZetNCStructure getNCStructure(long) const override { return {}; }

    NCTypes m_type = eNCTypeStructure;
    bool m_hasModel = true;
    FakeHostObject<IHostObject> m_model;
    FakeStructure m_structure;
    FakeEqualPart m_equalPart;
};
