#include "camdata/platform/host/ZetNCCreator.h"

#include <gtest/gtest.h>

namespace {

class StyledEntity : public ZetNCEntity {
  public:
    NCTypes getType() const override { return eNCTypeBeam; }
    IHostObject* getModelObject() override { return nullptr; }
    ZetNCHeaderData getHeader(long style) const override {
        ZetNCHeaderData header;
        header.quantity = style;
        return header;
    }
    ZetNCStructure getNCStructure(long style) const override {
        ZetNCView view;
        view.setViewPos(static_cast<int>(style));
        ZetNCStructure structure;
        structure.setViews({view, view});
        return structure;
    }
    ZetArray<ZetNCEntity*> getAttachedEntities() const override { return {m_attached}; }

    ZetNCEntity* m_attached = nullptr;
};

TEST(ZetNCCreatorTest, HoldsWhatItsEntityGaveLast) {
    StyledEntity attached;
    StyledEntity entity;
    entity.m_attached = &attached;
    ZetNCCreator creator;
    creator.setNCEntity(&entity);
    creator.setStyle(3);
    EXPECT_EQ(creator.getHeader().quantity, 0);
    creator.create();
    EXPECT_EQ(creator.getHeader().quantity, 3);
    EXPECT_EQ(creator.getNCStructure().getViews().length(), 2);
    EXPECT_EQ(creator.getNCStructure().getViews().last().getViewPos(), 3);
    EXPECT_EQ(creator.getAttachedEntities(), ZetArray<ZetNCEntity*>{&attached});
    creator.setNCEntity(nullptr);
    creator.create();
    EXPECT_EQ(creator.getHeader().quantity, 0);
    EXPECT_TRUE(creator.getNCStructure().getViews().isEmpty());
    EXPECT_TRUE(creator.getAttachedEntities().isEmpty());
}

}  // namespace
