#pragma once

#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/host/ZetNCView.h"

#include <utility>

/// The views of one member, in the host's order. A value.
class ZetNCStructure {
  public:
    const ZetArray<ZetNCView>& getViews() const { return m_views; }
    void setViews(ZetArray<ZetNCView> views) { m_views = std::move(views); }

  private:
    ZetArray<ZetNCView> m_views;
};
