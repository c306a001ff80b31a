// The host's parts: a sound purlin with two holes, one of them too near to the start, and a rail
// that is longer than any machine takes. What a plug-in may forget is forgotten, too: the module is
// unloaded with a run that holds an open file, and with its handler of assertions in place.

#include "camdata/output/CMxCamGlobAcc.h"
#include "camdata/platform/base/ZetAssert.h"
#include "camdata/platform/host/ZetNCEntity.h"
#include "camdata/project/CProjectInformation.h"

#include <array>

namespace {

class HostPart final : public ZetNCEntity {
  public:
    HostPart(const wchar_t* mark, double length, std::initializer_list<double> holePositions) {
        m_header.mark = mark;
        m_header.quantity = 4;
        m_header.profileName = L"Z200";
        m_header.profileCode = L"Z";
        m_header.length = length;
        m_header.height = 200.0;
        m_header.width = 65.0;
        m_header.thickness = 2.0;
        ZetArray<ZetNCHoleData> holes;
        for (const double x : holePositions) {
            holes.append({});
            holes.last().x = x;
            holes.last().y = 100.0;
            holes.last().size = 18.0;
        }
        ZetNCView web;
        web.setViewPos(1);
        web.setHoles(holes);
        m_structure.setViews({web});
    }

    NCTypes getType() const override { return eNCTypeBeam; }
    IHostObject* getModelObject() override { return nullptr; }
    ZetNCHeaderData getHeader(long) const override { return m_header; }
    ZetNCStructure getNCStructure(long) const override { return m_structure; }

  private:
    ZetNCHeaderData m_header;
    ZetNCStructure m_structure;
};

/// A run whose file of additional information is open.
CMxCamGlobAcc ForgottenRun() {
    ZetArray<CMxFileGroups> files = {{}, {}};
    files[1].setValues(
        -1, L"Tr\u00e4ger und Ma\u00dfe/forgotten.txt", L"", ZetArray<ZetString>(), false, true);
    CMxCamGlobAcc run;
    run.SetProjectInfo(new CProjectInformation);
    run.appendFileGroups(std::move(files));
    run.WriteAddInfo();
    return run;
}

}  // namespace

#if defined(_WIN32)
extern "C" __declspec(dllexport) long GetHostParts(ZetNCEntity* const** parts);
#else
extern "C" __attribute__((visibility("default"))) long GetHostParts(ZetNCEntity* const** parts);
#endif

long GetHostParts(ZetNCEntity* const** parts) {
    static HostPart purlin(L"Z\u00fc1", 6000.0, {3000.0, 10.0});
    static HostPart rail(L"R1", 12500.0, {});
    static const std::array<ZetNCEntity*, 2> all = {&purlin, &rail};
    static const CMxCamGlobAcc forgotten = ForgottenRun();
    SetZetAssertHandler([](const char*, const char*, int) {});
    *parts = all.data();
    return static_cast<long>(all.size());
}
