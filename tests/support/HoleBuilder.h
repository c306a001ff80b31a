#pragma once

#include "camdata/holes/CHoleAddlInfo.h"

/// Builds hole records from NC data: HoleAt(100, 50).Round(18).On(eHoleFaceTopFlange).
class HoleAt {
  public:
    /// The NC position; for a slot the centre of the end that the host gives.
    HoleAt(double x, double y) {
        m_data.x = x;
        m_data.y = y;
    }

    HoleAt& Round(double size) { return Kind(ZetNCHoleData::eKindPlain, size); }
    HoleAt& Countersunk(double size) { return Kind(ZetNCHoleData::eKindCountersunk, size); }
    HoleAt& Kind(int kind, double size) {
        m_data.kind = kind;
        m_data.size = size;
        return *this;
    }
    HoleAt& Slot(double size, double length, double angle = 0.0) {
        m_data.slot = 1;
        m_data.size = size;
        m_data.slotLength = length;
        m_data.slotAngle = angle;
        return *this;
    }
    /// The face; the view keeps the coordinates as they are.
    HoleAt& On(eHoleFace face) {
        m_view.SetHoleFace(face);
        return *this;
    }

    operator CHoleAddlInfo() const {
        CHoleAddlInfo hole;
        hole.SetHoleData(m_data);
        hole.CorrectData(m_view);
        return hole;
    }

  private:
    ZetNCHoleData m_data;
    CViewData m_view;
};
