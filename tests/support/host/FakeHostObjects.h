#pragma once

#include "support/HeaderOf.h"

#include "camdata/platform/host/HostComError.h"
#include "camdata/platform/host/ICS3d.h"
#include "camdata/platform/host/IEqualPartObject.h"
#include "camdata/platform/host/IStraightBeam.h"
#include "camdata/platform/host/IStructureObject.h"
#include "camdata/platform/host/ZetNCCreator.h"

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
    HostResult getXAxis(ZetGeomVector3d* axis) override { return Answer(axis, {0, 1, 0}); }
    HostResult getYAxis(ZetGeomVector3d* axis) override { return Answer(axis, {-1, 0, 0}); }
    HostResult getZAxis(ZetGeomVector3d* axis) override {
        Answer(axis, {0, 0, 1});
        return m_zAxisResult;
    }

    HostResult m_zAxisResult = kHostOk;

  private:
    static HostResult Answer(ZetGeomVector3d* axis, const ZetGeomVector3d& answer) {
        *axis = answer;
        return kHostOk;
    }
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

/// An equal part whose texts are the names of its properties.
class FakeEqualPart final : public FakeHostObject<IEqualPartObject> {
  public:
    HostResult getMainPart(HostBool* isMainPart) override {
        *isMainPart = m_isMainPart;
        return m_result;
    }
    HostResult getPartNumber(ZetString* text) override { return Answer(text, L"part"); }
    HostResult getAssemblyNumber(ZetString* text) override { return Answer(text, L"assembly"); }
    HostResult getName(ZetString* text) override { return Answer(text, L"name"); }
    HostResult getMaterial(ZetString* text) override { return Answer(text, L"material"); }
    HostResult getFinish(ZetString* text) override { return Answer(text, L"finish"); }
    HostResult getRemark(ZetString* text) override { return Answer(text, L"remark"); }

    HostBool m_isMainPart = kHostTrue;
    HostResult m_result = kHostOk;

  private:
    HostResult Answer(ZetString* text, const wchar_t* answer) const {
        *text = answer;
        return m_result;
    }
};

/// A beam from (1, 2, 3); the offset of an axis is its number, in X.
class FakeBeam final : public FakeHostObject<IStraightBeam> {
  public:
    HostResult getEndPoints(ZetGeomPoint3d* start, ZetGeomPoint3d* end) override {
        *start = {1.0, 2.0, 3.0};
        *end = {1.0, 2.0, 3.0 + m_length};
        return m_endPointsResult;
    }
    HostResult getAxisOffset(eProfRefAxis axis, ZetGeomVector3d* offset) override {
        *offset = {static_cast<double>(axis), 0.0, 0.0};
        return m_offsetResult;
    }

    double m_length = 10.0;
    HostResult m_endPointsResult = kHostOk;
    HostResult m_offsetResult = kHostOk;
};

/// An entity whose model object offers a structure and an equal part. The style that it was run
/// with is its drawing number.
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
    ZetNCHeaderData getHeader(long style) const override {
        // clang-format off
        return HeaderOf{.drawingNumber = ZetString::format(L"style %d", style), .mark = m_mark,
                        .quantity = m_quantity, .profileName = L"C150", .profileCode = m_profileCode};
        // clang-format on
    }
    ZetNCStructure getNCStructure(long) const override {
        ZetNCStructure structure;
        structure.setViews({ZetNCView(), ZetNCView()});
        return structure;
    }

    ZetArray<ZetNCEntity*> getAttachedEntities() const override { return m_attachedEntities; }

    ZetString m_mark;
    long m_quantity = 0;
    ZetString m_profileCode = L"C";
    NCTypes m_type = eNCTypeStructure;
    ZetArray<ZetNCEntity*> m_attachedEntities;
    bool m_hasModel = true;
    FakeHostObject<IHostObject> m_model;
    FakeStructure m_structure;
    FakeEqualPart m_equalPart;
};

inline ZetNCCreator CreatorOf(FakePartEntity& entity) {
    ZetNCCreator creator;
    creator.setNCEntity(&entity);
    creator.create();
    return creator;
}
