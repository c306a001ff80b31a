#include "dstv/NcAssemblies.h"
#include "dstv/NcSample.h"

#include "camdata/platform/host/HostPtr.h"

namespace {

using dstv::NcAssemblies;
using dstv::NcFileEntity;

NcFileEntity EntityOf(const char* mark) {
    NcSample sample;
    sample.mark = mark;
    return NcFileEntity(ReadPart(sample.With("BO\n  v 100 50 18\n")));
}

bool IsMainPart(NcFileEntity& entity) {
    const auto object = HostPtr<IHostObject>::adopt(entity.getModelObject());
    IHostObject* found = nullptr;
    object->queryInterface(IEqualPartObject::kId, &found);
    const auto part = HostPtr<IEqualPartObject>::adopt(static_cast<IEqualPartObject*>(found));
    IEqualPartObject::HostBool isMainPart = 0;
    part->getMainPart(&isMainPart);
    return isMainPart != 0;
}

TEST(NcAssemblies, AttachOncePerPieceWhateverTheOrderOfFiles) {
    NcAssemblies assemblies({
        {L"M", {{L"A", 2}, {L"B", 1}}},
        {L"N", {{L"B", 3}, {L"X", 1}}}
    });
    NcFileEntity main = EntityOf("M");
    NcFileEntity other = EntityOf("N");
    NcFileEntity a = EntityOf("A");
    NcFileEntity b = EntityOf("B");
    NcFileEntity secondB = EntityOf("B");
    NcFileEntity stranger = EntityOf("S");
    EXPECT_FALSE(assemblies.names(L"S"));
    for (NcFileEntity* entity : {&main, &a, &stranger}) {
        EXPECT_FALSE(assemblies.isComplete(L"M"));
        assemblies.add(*entity);
    }
    assemblies.add(b);
    assemblies.add(secondB);
    EXPECT_TRUE(assemblies.isComplete(L"M"));
    EXPECT_FALSE(assemblies.isComplete(L"N"));
    EXPECT_EQ(assemblies.getMissingMarks(), (std::vector<ZetString>{L"N", L"X"}));

    EXPECT_FALSE(IsMainPart(main));
    assemblies.attach(main);
    assemblies.attach(other);
    EXPECT_TRUE(IsMainPart(main));
    EXPECT_FALSE(IsMainPart(a));
    const auto isAttached = [](NcFileEntity& entity, std::vector<ZetNCEntity*> expected) {
        const ZetArray<ZetNCEntity*> attached = entity.getAttachedEntities();
        return std::vector<ZetNCEntity*>(attached.begin(), attached.end()) == expected;
    };
    EXPECT_TRUE(isAttached(main, {&a, &a, &b}));
    EXPECT_TRUE(isAttached(other, {&b, &b, &b}));
}

TEST(NcAssemblies, ReleasedPartsKeepTheirHeader) {
    NcFileEntity entity = EntityOf("A");
    entity.releaseFeatures();
    EXPECT_EQ(entity.getHeader(0).mark, L"A");
    EXPECT_EQ(entity.getHeader(0).profileName, L"ZS 175*1.5");
    EXPECT_TRUE(entity.getNCStructure(0).getViews().isEmpty());
    EXPECT_EQ(entity.getPart().file, L"part.nc1");
    EXPECT_TRUE(entity.getPart().holes.empty());
    EXPECT_TRUE(entity.getHoleTargets().empty());
}

}  // namespace
