#include "camdata/platform/ZetNCCreator.h"

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
    ZetNCStructure getNCStructure(long) const override {
        ZetNCStructure structure;
        structure.setViews({ZetNCView(), ZetNCView()});
        return structure;
    }
};

TEST(ZetNCCreatorTest, HoldsWhatItsEntityGaveLast) {
    StyledEntity entity;
    ZetNCCreator creator;
    creator.setNCEntity(&entity);
    creator.setStyle(3);
    EXPECT_EQ(creator.getHeader().quantity, 0);
    creator.create();
    EXPECT_EQ(creator.getHeader().quantity, 3);
    EXPECT_EQ(creator.getNCStructure().getViews().length(), 2);
    creator.setNCEntity(nullptr);
    creator.create();
    EXPECT_EQ(creator.getHeader().quantity, 0);
    EXPECT_TRUE(creator.getNCStructure().getViews().isEmpty());
}

}  // namespace
