#pragma once

#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/host/ZetNCCut.h"
#include "camdata/platform/host/ZetNCView.h"

#include <utility>

/// The views of one member, in the host's order, and the cuts through it. A value.
class ZetNCStructure {
  public:
    const ZetArray<ZetNCView>& getViews() const { return m_views; }
    void setViews(ZetArray<ZetNCView> views) { m_views = std::move(views); }
    /// Those that no outline of a view holds.
    const ZetArray<ZetNCCut>& getCuts() const { return m_cuts; }
    void setCuts(ZetArray<ZetNCCut> cuts) { m_cuts = std::move(cuts); }

  private:
    ZetArray<ZetNCView> m_views;
    ZetArray<ZetNCCut> m_cuts;
};
